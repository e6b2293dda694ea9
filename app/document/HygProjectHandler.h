#pragma once

#include <HYGRION/Project.h>

#include <QObject>
#include <QString>

#include <memory>

class QUndoStack;

/// Owns the project of the session, its file and the undo stack. Views get the project as const and push commands; what
/// is wrong with a file is told by signal, and the project that was open stays.
class HygProjectHandler : public QObject {
    Q_OBJECT
public:
    explicit HygProjectHandler(QObject * parent = nullptr);
    ~HygProjectHandler() override;

    /// The handler constructed last, nullptr without one: whose project the undo commands change.
    static HygProjectHandler * instance();

    bool hasProject() const { return m_project != nullptr; }
    /// An empty one without a project.
    const HYGRION::Project & project() const;
    /// Empty without a project.
    QString projectFile() const;

    /// Every change of the project is pushed here.
    QUndoStack & undoStack() { return *m_undoStack; }
    /// A stack that holds commands keeps its limit until it is emptied. \param steps 0: no limit
    void setUndoLimit(unsigned int steps);

    /// Writes a new project of one cell into \p path and opens it. False, and failed() is emitted, if that fails.
    bool createProject(const QString & path);
    /// Reads a project in place of the present one. False, and failed() is emitted, if it cannot be read.
    bool openProject(const QString & path);
    /// Writes the project into its file. False, and failed() is emitted, if that fails; the project stays as it was.
    bool save();
    /// Writes the project into another file, which is its file from then on.
    bool saveAs(const QString & path);
    /// Writes the project into another file; its own stays what it is.
    bool saveCopy(const QString & path);
    /// True if the file holds the project: nothing was to be saved, or it has been saved.
    bool saveIfModified() { return !m_isModified || save(); }
    void closeProject();

    /// Whether the project differs from its file.
    bool isModified() const { return m_isModified; }
    /// Marks the project as modified and tells the views; called by the undo commands.
    /// \param modificationType HygModification::code_t
    /// \param data see HygModification
    void setModified(int modificationType, void * data);

signals:
    /// What has changed, delivered directly; see HygModification. A project that was opened or closed is a
    /// ProjectReplaced too.
    void modified(int modificationType, void * data);
    /// Whether there is something to save.
    void modifiedChanged(bool isModified);
    /// After every attempt: the file of the project that is open now.
    void projectFileChanged(const QString & path);
    /// The whole story, outermost message first, one a line.
    void failed(const QString & story);

private:
    friend class HygUndoCommandBase; // nobody else changes the project
    HYGRION::Project & mutableProject() { return *m_project; }

    void setIsModified(bool isModified);
    void replaceProject(std::unique_ptr<HYGRION::Project> project);
    bool write(const QString & path);
    void fail(const QString & problem);

    std::unique_ptr<HYGRION::Project> m_project;
    QUndoStack * m_undoStack;
    unsigned int m_undoLimit = 0;
    bool m_isModified = false;
};
