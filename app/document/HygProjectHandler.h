#pragma once

#include <HYGRION/Project.h>

#include <QObject>
#include <QString>

#include <memory>

class QWidget;

/// Owns the project of the session. Views get it as const; what is wrong with a file is told by signal, and the project
/// that was open stays.
class HygProjectHandler : public QObject {
    Q_OBJECT
public:
    explicit HygProjectHandler(QObject * parent = nullptr);
    ~HygProjectHandler() override;

    /// The handler constructed last, nullptr without one: whose project the undo commands change.
    static HygProjectHandler * instance();

    bool hasProject() const { return m_project != nullptr; }
    const HYGRION::Project & project() const { return *m_project; }
    /// Empty without a project.
    QString projectFile() const;

    /// Writes a new project of one cell into \p path and opens it. False, and failed() is emitted, if that fails.
    bool createProject(const QString & path);
    /// Reads a project in place of the present one. False, and failed() is emitted, if it cannot be read.
    bool openProject(const QString & path);

    /// Whether the project differs from its file.
    bool isModified() const { return m_isModified; }
    /// Marks the project as modified and tells the views; called by the undo commands.
    /// \param modificationType HygModification::code_t
    /// \param data see HygModification
    void setModified(int modificationType, void * data);

signals:
    /// What has changed, delivered directly; see HygModification.
    void modified(int modificationType, void * data);
    /// After every attempt: the file of the project that is open now.
    void projectFileChanged(const QString & path);
    /// The whole story, outermost message first, one a line.
    void failed(const QString & story);

private:
    friend class HygUndoCommandBase; // nobody else changes the project
    HYGRION::Project & mutableProject() { return *m_project; }

    std::unique_ptr<HYGRION::Project> m_project;
    bool m_isModified = false;
    HygProjectHandler * m_previous; ///< instance() before this one
};
