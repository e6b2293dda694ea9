#pragma once

#include "materials/HygMaterialDocument.h"

#include <QDateTime>
#include <QDialog>

class HygMaterialChart;
class HygMaterialDB;
class HygMaterialFunctionPage;
class HygMaterialIdentityForm;
class HygMaterialMeasuredTable;
class HygMaterialModelPage;
class HygMaterialParameterForm;
class HygMaterialTable;
class HygMessageBar;
class QDialogButtonBox;
class QLabel;
class QListWidget;
class QTabWidget;
class QToolButton;

/// Edits one material of a database: texts, parameters, functions, models, measured data. What the check of the material finds stands at the
/// field that it concerns.
class HygMaterialEditor : public QDialog {
    Q_OBJECT
public:
    /// \param material with its path; a new one has none and gets its file when it is saved
    HygMaterialEditor(HygMaterialDB & database, MM::Material material, QWidget * parent = nullptr);
    ~HygMaterialEditor() override;

    /// Asks for a duplicate if the material is a built-in one, and opens the editor. \return the file that was edited and
    /// saved, empty if none was. Throws KOR::Exception if the material cannot be read or copied, which the window waits for.
    static QString edit(HygMaterialDB & database, const QString & path, QWidget * parent);

    HygMaterialDocument & document() { return m_document; }
    /// The file last written, empty if none was.
    const QString & savedPath() const { return m_savedPath; }
    bool isReadOnly() const { return m_isReadOnly; }

    void reject() override;

protected:
    void changeEvent(QEvent * event) override;

private:
    enum page_t { Identity, Parameters, Functions, Models, Measured, Curves };

    void setUp();
    void retranslate();
    void updateTitle();
    void showFindings();
    void goToFinding(int row);
    void showCurves();
    /// True if the material is in its file then.
    bool save();
    void takeOverFocus();

    HygMaterialDB & m_database;
    HygMaterialDocument m_document;
    QString m_savedPath;
    QDateTime m_fileTime; ///< of the file when it was read or written last
    const bool m_isReadOnly;

    HygMessageBar * m_messages;
    QLabel * m_lock;
    QTabWidget * m_pages;
    HygMaterialIdentityForm * m_identity;
    HygMaterialParameterForm * m_parameters;
    HygMaterialFunctionPage * m_functions;
    HygMaterialModelPage * m_models;
    HygMaterialMeasuredTable * m_measured;
    HygMaterialTable * m_measuredTable;
    HygMaterialChart * m_curves;
    QLabel * m_findingsTitle;
    QListWidget * m_findings;
    QToolButton * m_undo;
    QToolButton * m_redo;
    QDialogButtonBox * m_buttons;
};
