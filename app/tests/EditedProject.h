#pragma once

#include "document/HygProjectHandler.h"
#include "undo/HygUndoSections.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <gmock/gmock.h>

/// A project handler with a folder for projects and one for journals, in the role of one running editor.
class EditedProject : public testing::Test {
protected:
    EditedProject() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        m_projects.setJournalDirectory(journals());
    }
    ~EditedProject() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    QString path(const QString & name) const { return m_directory.filePath(name); }
    QString journals() const { return m_directory.filePath("journal"); }
    QString write(const QString & name, const std::string & content) const {
        KOR::writeFile(path(name).toStdString(), content);
        return path(name);
    }
    static void change(HygProjectHandler & projects, const std::string & text) {
        projects.undoStack().push(new HygUndoProjectDescription("Describe", text));
    }
    void change(const std::string & text) { change(m_projects, text); }
    static std::string description(const QString & file) {
        HYGRION::Project project;
        project.readXML(file.toStdString());
        return project.m_projectInfo.m_description;
    }
    std::string description() const { return m_projects.project().m_projectInfo.m_description; }
    std::string lastFailure() const {
        return m_failed.isEmpty() ? std::string() : m_failed.last()[0].toString().toStdString();
    }
    std::string lastNotice() const {
        return m_noticed.isEmpty() ? std::string() : m_noticed.last()[0].toString().toStdString();
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygProjectHandler m_projects;
    QSignalSpy m_changed{&m_projects, &HygProjectHandler::projectFileChanged};
    QSignalSpy m_failed{&m_projects, &HygProjectHandler::failed};
    QSignalSpy m_noticed{&m_projects, &HygProjectHandler::noticed};
};
