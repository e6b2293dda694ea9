#pragma once

#include <MM/CheckMaterial.h>
#include <MM/Material.h>

#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <QUndoStack>

#include <functional>
#include <memory>

/// A material that is being edited, with its own undo stack, and what is wrong with it.
class HygMaterialDocument : public QObject {
    Q_OBJECT
public:
    using MaterialPtr = std::shared_ptr<const MM::Material>;

    explicit HygMaterialDocument(MM::Material material, QObject * parent = nullptr);
    /// Waits for a check that is running.
    ~HygMaterialDocument() override;

    /// What is being edited; another object after each change.
    const MM::Material & material() const { return *m_material; }
    const MaterialPtr & shared() const { return m_material; }
    /// The same, ready to evaluate as far as that is possible; of the latest check.
    const MaterialPtr & prepared() const { return m_checked.prepared; }
    QUndoStack & undoStack() { return m_undoStack; }

    /// Changes a copy and takes it over as one step of undo; nothing if the copy is equal afterwards.
    /// \param field successive changes of one field are one step; empty keeps each a step of its own
    void change(const QString & text, const std::function<void(MM::Material &)> & edit, const QString & field = {});

    const std::vector<MM::Finding> & findings() const { return m_checked.findings; }
    /// Why a file with this content could not be read again; empty if it could.
    const QString & refusal() const { return m_checked.refusal; }
    /// Why a calculation could not use the material; empty if it could.
    const QString & unusable() const { return m_checked.unusable; }
    /// Checks at once, in the thread of the caller.
    void checkNow();
    /// Writes the file and takes its path over, in another thread while the window waits. Throws KOR::Exception, also
    /// for what could not be read again.
    void save(const QString & path);

signals:
    void changed();
    /// findings(), refusal() and prepared() hold for the material.
    void checked();

private:
    class Command;
    struct Checked {
        std::vector<MM::Finding> findings;
        QString refusal;
        QString unusable;
        MaterialPtr prepared;
    };

    void set(MaterialPtr material);
    static Checked check(const MM::Material & material);
    void startCheck();

    MaterialPtr m_material;
    Checked m_checked;
    QUndoStack m_undoStack;
    QTimer m_checkTimer;
    QThreadPool m_threads;
    unsigned int m_version = 0; ///< of the material, so that old checks are known
};
