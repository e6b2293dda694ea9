#pragma once

#include "materials/HygMaterialDB.h"

#include <QDialog>

class HygMaterialDBWidget;
class QDialogButtonBox;

/// Lets the user choose one material of the database.
class HygMaterialDBDialog : public QDialog {
    Q_OBJECT
public:
    HygMaterialDBDialog(std::shared_ptr<HygMaterialDB> database, const QString & title, QWidget * parent = nullptr);

    /// The file that was chosen.
    QString path() const;

    /// Empty if none was chosen. \param search to begin with
    static QString choose(const QString & title, QWidget * parent, const QString & search = {});

private:
    HygMaterialDBWidget * m_widget;
    QDialogButtonBox * m_buttons;
};
