#include "EditedProject.h"
#include "FailingCalls.h"
#include "document/HygProjectLock.h"
#include "undo/HygModification.h"
#include "undo/HygUndoDefinitions.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>

#include <sys/mount.h>
#include <unistd.h>

namespace {

using testing::HasSubstr;

class HygProjectHandlerTest : public EditedProject {};

TEST_F(HygProjectHandlerTest, CreatesAProjectThatOpensAgain) {
    const QString file = path("Südwand.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    EXPECT_EQ(m_projects.projectFile(), file);
    EXPECT_EQ(m_projects.project().m_projectInfo.m_projectName, "Südwand");
    EXPECT_FALSE(m_projects.project().m_projectInfo.m_created.empty());
    EXPECT_EQ(m_projects.project().m_disc.nx(), 1u);
    EXPECT_THAT(KOR::readFile(file.toStdString(), 1 << 20),
                testing::AllOf(HasSubstr("DefaultTemperature\" unit=\"C\">20<"),
                               HasSubstr("DefaultRelativeHumidity\" unit=\"%\">80<"),
                               HasSubstr("Duration\" unit=\"d\">365<")));
    HygProjectHandler other;
    ASSERT_TRUE(other.openProject(file));
    EXPECT_EQ(other.project(), m_projects.project());
    EXPECT_EQ(m_changed.count(), 1);
    EXPECT_EQ(m_failed.count(), 0);
}

/// A file that is refused: the project that was open stays, with its changes.
struct BadFile {
    const char * name;
    std::string content;
    std::vector<std::string> messages; ///< outermost first
};

TEST_F(HygProjectHandlerTest, KeepsTheOpenProjectWhenAnotherCannotBeRead) {
    const QString good = path("good.h6p");
    ASSERT_TRUE(m_projects.createProject(good));
    change("kept");
    const std::string advice = "Please use HYGRION 5 to upgrade older projects to at least version 5.8";
    const BadFile files[] = {
        {"wrong",               "<HygrionProject>\n  <Init><Wrong/></Init>\n</HygrionProject>\n", {"Cannot open project", "line 2"}                                                },
        {"other root",          "<Wall/>",                                                        {"Cannot open project", "Expected HygrionProject as root node in XML file."}     },
        {"empty",               "",                                                               {"Cannot open project"}                                                          },
        {"newer",
         "<HygrionProject fileVersion='6.3'><Future/></HygrionProject>",                          {"newer version", "version 6.3", "up to version 6.1", "Unknown element 'Future'"}},
        {"old",
         "[FILE_VERSION]\n5.7.2\n\n[PROJECT_INFO]\n",                                             {advice, "Minimum supported project version number is 5.8.x (current 5.7.2).\n"} },
        {"old with words",
         "\xEF\xBB\xBF  FILE_VERSION:\r\n  VERSION = 4\r\n",                                      {advice, "Minimum supported project version number is 5.8.x (current 4).\n"}     },
        {"old without version",
         "[DISCRETISATION]\n1 2 3\n",                                                             {advice, "Minimum supported project version number is 5.8.x (current ?).\n"}     },
        {"sectioned",           "[PROJECT_INFO]\nname\n[FILE_VERSION]\n5.10\n",                   {"sectioned format of version 5.10"}                                             },
    };
    for (const BadFile & bad : files) {
        SCOPED_TRACE(bad.name);
        EXPECT_FALSE(m_projects.openProject(write("bad.h6p", bad.content)));
        std::size_t at = 0;
        for (const std::string & message : bad.messages) {
            const std::size_t found = lastFailure().find(message, at);
            EXPECT_NE(found, std::string::npos) << message << " in " << lastFailure();
            at = found == std::string::npos ? at : found;
        }
        EXPECT_EQ(m_projects.projectFile(), good);
    }
    EXPECT_FALSE(m_projects.openProject(path("gone.h6p")));
    EXPECT_THAT(lastFailure(), HasSubstr("does not exist"));
    EXPECT_FALSE(m_projects.openProject(m_directory.path()));
    EXPECT_FALSE(m_projects.createProject(path("gone/wall.h6p")));
    EXPECT_THAT(lastFailure(), HasSubstr("gone/wall.h6p"));
    EXPECT_EQ(description(), "kept");
    EXPECT_TRUE(m_projects.isModified());
    EXPECT_FALSE(m_projects.isReadOnly());
}

TEST_F(HygProjectHandlerTest, ANewerProjectThatCanBeReadIsReadOnly) {
    const QString file = write("newer.h6p", "<HygrionProject fileVersion='7.0'/>");
    ASSERT_TRUE(m_projects.openProject(file));
    EXPECT_THAT(lastNotice(), HasSubstr("newer version"));
    change("x");
    EXPECT_FALSE(m_projects.save());
    EXPECT_TRUE(m_projects.saveAs(path("own.h6p")));
    EXPECT_FALSE(m_projects.isReadOnly());
    EXPECT_EQ(KOR::readFile(file.toStdString(), 1000), "<HygrionProject fileVersion='7.0'/>");
}

TEST_F(HygProjectHandlerTest, SavesUnderItsNameAnotherOneOrAsACopy) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    change("one");
    EXPECT_TRUE(m_projects.saveCopy(path("copy.h6p")));
    EXPECT_EQ(description(path("copy.h6p")), "one");
    EXPECT_EQ(m_projects.projectFile(), file);
    EXPECT_TRUE(m_projects.isModified());
    EXPECT_EQ(description(file), "");
    EXPECT_TRUE(m_projects.saveIfModified());
    EXPECT_EQ(description(file), "one");
    EXPECT_FALSE(m_projects.isModified());
    EXPECT_TRUE(m_projects.undoStack().isClean());
    change("two");
    EXPECT_TRUE(m_projects.saveAs(path("other.h6p")));
    EXPECT_EQ(m_projects.projectFile(), path("other.h6p"));
    EXPECT_EQ(description(file), "one");
    HygProjectHandler other;
    EXPECT_TRUE(other.openProject(file));
    EXPECT_FALSE(other.isReadOnly()); // it was let go
    EXPECT_FALSE(other.saveAs(path("other.h6p")));
    EXPECT_EQ(description(path("other.h6p")), "two");
}

TEST_F(HygProjectHandlerTest, AFileThatCouldNotBeReadAgainIsNotWritten) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    HYGRION::Project doubled = m_projects.project();
    for (int i = 0; i < 2; ++i)
        doubled.m_conditions.m_schedules.emplace_back().m_name = "Twice";
    m_projects.undoStack().push(new HygUndoProject("doubled", doubled));
    const std::string before = KOR::readFile(file.toStdString(), 10000);
    EXPECT_FALSE(m_projects.save());
    EXPECT_THAT(lastFailure(), HasSubstr("Duplicate identification name 'Twice'"));
    EXPECT_EQ(KOR::readFile(file.toStdString(), 10000), before);
    EXPECT_TRUE(m_projects.isModified());
}

TEST_F(HygProjectHandlerTest, PathsLeadToTheSameFilesFromAnotherFolder) {
    ASSERT_TRUE(m_projects.createProject(path("wall.h6p")));
    QDir(m_directory.path()).mkdir("sub");
    HYGRION::MaterialReference brick;
    brick.m_name = "Brick";
    brick.m_filename = KOR::Path("${Project Directory}/materials/brick.m6");
    HYGRION::MaterialReference wood = brick;
    wood.m_name = "Wood";
    wood.m_filename = KOR::Path("${Install Directory}/DB_materials/wood.m6");
    m_projects.undoStack().push(new HygUndoAddMaterial("add", brick));
    m_projects.undoStack().push(new HygUndoAddMaterial("add", wood));
    const auto pathsIn = [](const QString & file) {
        HYGRION::Project project;
        project.readXML(file.toStdString());
        return std::pair(project.resolved(project.m_materials[0].m_filename).str(),
                         project.m_materials[1].m_filename.str());
    };
    const std::pair expected(path("materials/brick.m6").toStdString(), wood.m_filename.str());
    EXPECT_TRUE(m_projects.saveCopy(path("sub/copy.h6p")));
    EXPECT_EQ(pathsIn(path("sub/copy.h6p")), expected);
    EXPECT_EQ(m_projects.project().m_materials[0], brick);
    EXPECT_TRUE(m_projects.saveAs(path("sub/moved.h6p")));
    EXPECT_EQ(pathsIn(path("sub/moved.h6p")), expected);
    EXPECT_EQ(m_projects.undoStack().count(), 0);
    EXPECT_TRUE(m_projects.saveAs(path("back.h6p")));
    EXPECT_EQ(m_projects.project().m_materials[0].m_filename, KOR::Path(path("materials/brick.m6").toStdString()));
}

TEST_F(HygProjectHandlerTest, TheUndoLimitHoldsFromTheNextProjectOn) {
    m_projects.setUndoLimit(3);
    ASSERT_TRUE(m_projects.createProject(path("a.h6p")));
    const auto countAfter = [&](int changes) {
        for (int i = 0; i < changes; ++i)
            change(std::to_string(i));
        return m_projects.undoStack().count();
    };
    EXPECT_EQ(countAfter(5), 3);
    m_projects.setUndoLimit(4);
    EXPECT_EQ(countAfter(5), 3);
    ASSERT_TRUE(m_projects.reload());
    EXPECT_EQ(countAfter(9), 4);
}

// ---- the lock

TEST_F(HygProjectHandlerTest, ASecondEditorReadsOnlyAndSaysWhoHoldsTheFile) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    HygProjectHandler second;
    QSignalSpy notices(&second, &HygProjectHandler::noticed);
    QFile::link(file, path("link.h6p"));
    ASSERT_TRUE(second.openProject(path("link.h6p"))); // the same file by another name
    EXPECT_TRUE(second.isReadOnly());
    ASSERT_EQ(notices.count(), 1);
    const std::string notice = notices[0][0].toString().toStdString();
    EXPECT_THAT(notice, HasSubstr("process " + std::to_string(getpid())));
    EXPECT_THAT(notice, HasSubstr(QSysInfo::machineHostName().toStdString()));
    change(second, "mine");
    EXPECT_FALSE(second.save());
    EXPECT_TRUE(second.isModified());
    EXPECT_EQ(description(file), "");

    m_projects.closeProject(); // it lets the file go, so the second may have it
    EXPECT_TRUE(second.save());
    EXPECT_FALSE(second.isReadOnly());
    EXPECT_EQ(description(file), "mine");
    ASSERT_TRUE(m_projects.openProject(file));
    EXPECT_TRUE(m_projects.isReadOnly());
}

TEST_F(HygProjectHandlerTest, LeftLocksAreClearedWithoutWaiting) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    m_projects.closeProject();
    const QString lock = HygProjectLock::lockPath(file);
    EXPECT_FALSE(QFileInfo::exists(lock));
    QProcess gone;
    gone.start("true", QStringList());
    ASSERT_TRUE(gone.waitForStarted());
    const std::string pid = std::to_string(gone.processId());
    ASSERT_TRUE(gone.waitForFinished());
    const std::string host = QSysInfo::machineHostName().toStdString();
    struct Left {
        std::string content;
        int age; ///< seconds
        bool isCleared;
    };
    const Left locks[] = {
        {pid + "\nHygrion\n" + host + "\n", 0,    true }, // killed
        {"1\nHygrion\n" + host + "\n",      0,    true }, // its number has gone to another program
        {"",                                60,   true }, // killed while it made the lock
        {"no number",                       60,   true },
        {"",                                0,    false}, // just being made
        {"4711\nHygrion\nelsewhere\n",      60,   false},
        {"4711\nHygrion\nelsewhere\n",      3600, true }, // not renewed for long
    };
    for (const Left & left : locks) {
        SCOPED_TRACE(left.content);
        KOR::writeFile(lock.toStdString(), left.content);
        QFile stamp(lock);
        ASSERT_TRUE(stamp.open(QIODevice::ReadWrite));
        stamp.setFileTime(QDateTime::currentDateTime().addSecs(-left.age), QFileDevice::FileModificationTime);
        stamp.close();
        QElapsedTimer timer;
        timer.start();
        ASSERT_TRUE(m_projects.openProject(file));
        EXPECT_LT(timer.elapsed(), 1000);
        EXPECT_EQ(m_projects.isReadOnly(), !left.isCleared);
        m_projects.closeProject();
        QFile::remove(lock);
    }
}

// ---- other programs

TEST_F(HygProjectHandlerTest, NoticesWhenAnotherProgramChangesTheFile) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    QSignalSpy changed(&m_projects, &HygProjectHandler::changedOnDisk);
    change("mine");
    ASSERT_TRUE(m_projects.save());
    QTest::qWait(500);
    EXPECT_EQ(changed.count(), 0); // our own saving is no news

    HYGRION::Project theirs = m_projects.project();
    theirs.m_projectInfo.m_description = "theirs";
    ASSERT_TRUE(theirs.writeXML(file.toStdString()));
    ASSERT_TRUE(changed.wait(5000));
    EXPECT_TRUE(changed.last()[0].toBool());
    change("more");
    EXPECT_FALSE(m_projects.save());
    EXPECT_THAT(lastFailure(), HasSubstr("Another program has changed the file"));
    EXPECT_EQ(description(file), "theirs");
    m_projects.keepOverDisk();
    EXPECT_TRUE(m_projects.save());
    EXPECT_EQ(description(file), "more");

    ASSERT_TRUE(theirs.writeXML(file.toStdString()));
    EXPECT_TRUE(m_projects.isChangedOnDisk());
    QSignalSpy modified(&m_projects, &HygProjectHandler::modified);
    ASSERT_TRUE(m_projects.reload());
    EXPECT_EQ(description(), "theirs");
    ASSERT_EQ(modified.count(), 1);
    EXPECT_EQ(modified[0][0].toInt(), HygModification::ProjectReplaced);
    EXPECT_FALSE(m_projects.isModified());
    EXPECT_FALSE(m_projects.isReadOnly());

    changed.clear();
    QFile::remove(file);
    ASSERT_TRUE(changed.wait(5000));
    EXPECT_FALSE(changed.last()[0].toBool());
    change("anew");
    EXPECT_TRUE(m_projects.save());
    EXPECT_EQ(description(file), "anew");
}

// ---- calls that fail, and a full disk

struct Saving {
    const char * name;
    bool (*run)(HygProjectHandler & projects, const QString & path);
    bool isOfTheProject; ///< writes the project's own file
};

TEST_F(HygProjectHandlerTest, EachCallOfASaveThatFailsIsTold) {
    const Saving ways[] = {
        {"save",      [](HygProjectHandler & projects, const QString &) { return projects.save(); },          true },
        {"save as",   [](HygProjectHandler & projects, const QString & to) { return projects.saveAs(to); },   false},
        {"save copy", [](HygProjectHandler & projects, const QString & to) { return projects.saveCopy(to); }, false},
    };
    for (const Saving & way : ways) {
        int refused = 0;
        for (int failing = 1;; ++failing) {
            SCOPED_TRACE(way.name + std::string(", call ") + std::to_string(failing));
            ASSERT_LT(failing, 100);
            const QString file = path("wall.h6p");
            const QString target = way.isOfTheProject ? file : path("other.h6p");
            QFile::remove(path("other.h6p"));
            ASSERT_TRUE(m_projects.createProject(file));
            change("old");
            ASSERT_TRUE(m_projects.saveCopy(target) && m_projects.save());
            change("new");
            m_failed.clear();
            FailingCalls::arm(failing);
            const bool isSaved = way.run(m_projects, target);
            const int calls = FailingCalls::disarm();
            EXPECT_EQ(description(), "new");
            if (isSaved) {
                EXPECT_EQ(description(target), "new") << "told as saved";
                EXPECT_EQ(m_failed.count(), 0);
            } else {
                ++refused;
                EXPECT_THAT(lastFailure(), HasSubstr("Nothing is lost"));
                EXPECT_THAT(lastFailure(), HasSubstr("Input/output error"));
                EXPECT_THAT(description(target), testing::AnyOf("old", "new"));
                EXPECT_EQ(m_projects.projectFile(), file);
                EXPECT_TRUE(m_projects.isModified());
                EXPECT_TRUE(way.run(m_projects, target)) << "the next time it works: " << lastFailure();
                EXPECT_EQ(description(target), "new");
            }
            m_projects.closeProject();
            ASSERT_TRUE(m_projects.openProject(target)); // clears what is left
            EXPECT_TRUE(QDir(m_directory.path()).entryList(QDir::Files | QDir::Hidden).filter(".hyg-").isEmpty());
            m_projects.closeProject();
            if (calls < failing)
                break;
        }
        EXPECT_GE(refused, 5) << way.name << ": open, write, fsync, fstat, rename";
    }
}

TEST_F(HygProjectHandlerTest, AFullDiskKeepsTheOldFileAndTheWork) {
    QDir(m_directory.path()).mkdir("small");
    const QByteArray disk = path("small").toLocal8Bit();
    if (geteuid() != 0 || mount("tmpfs", disk.constData(), "tmpfs", 0, "size=128k") != 0)
        GTEST_SKIP() << "NOT TESTED: a full disk needs the right to mount one";
    const QString file = path("small/wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    int refused = 0;
    for (int kilobytes = 0; kilobytes < 128; kilobytes += 2) {
        const std::string before = description(file);
        QFile ballast(path("small/ballast"));
        ASSERT_TRUE(ballast.open(QIODevice::WriteOnly));
        ballast.write(QByteArray(kilobytes * 1024, 'x'));
        ballast.close();
        const std::string text = std::to_string(kilobytes) + std::string(40000, 'd');
        change(text);
        if (m_projects.save()) {
            EXPECT_EQ(description(file), text);
            EXPECT_FALSE(m_projects.isModified());
        } else {
            ++refused;
            EXPECT_EQ(description(file), before);
            EXPECT_TRUE(m_projects.isModified());
            EXPECT_EQ(description(), text);
            EXPECT_THAT(lastFailure(), HasSubstr("Nothing is lost"));
        }
        EXPECT_LE(QDir(path("small")).entryList(QDir::Files | QDir::Hidden).size(), 3); // file, lock, ballast
    }
    EXPECT_GT(refused, 10);
    EXPECT_LT(refused, 60);
    QFile::remove(path("small/ballast"));
    EXPECT_TRUE(m_projects.save());
    m_projects.closeProject();
    EXPECT_EQ(umount2(disk.constData(), MNT_DETACH), 0);
}

} // namespace
