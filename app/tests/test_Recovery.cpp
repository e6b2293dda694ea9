// Editors that are killed while they work: what they leave, and what is offered of it.
#include "EditUntilKilled.h"
#include "EditedProject.h"
#include "dialogs/HygRecoveryDialog.h"

#include <KOR/Exception.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

#include <iostream>
#include <random>

int editUntilKilled(const char * mode, const char * folder) {
    const QDir place(QString::fromLocal8Bit(folder));
    HygProjectHandler projects;
    projects.setJournalDirectory(place.filePath("journal"));
    projects.setUndoLimit(100);
    if (!projects.openProject(place.filePath("wall.h6p")) || projects.isReadOnly())
        return 1;
    const bool saves = std::string_view(mode) == "save";
    int number = 0;
    if (std::string_view(mode) == "once") { // saved although nothing had changed, then changed in one step of three
        if (!projects.save())
            return 3;
        const auto describe = [&](const char * text) {
            projects.undoStack().push(new HygUndoProjectDescription("Describe", text));
        };
        describe("gone again");
        projects.undoStack().undo();
        projects.undoStack().beginMacro("Describe");
        for (const char * text : {"1", "2", "3"})
            describe(text);
        projects.undoStack().endMacro();
        std::cout << "\n1 " << QDateTime::currentMSecsSinceEpoch() << std::endl;
        return QCoreApplication::exec();
    }
    QTimer timer;
    timer.setSingleShot(true); // saving runs an event loop of its own
    QObject::connect(&timer, &QTimer::timeout, [&] {
        // Large enough for a write to be interrupted.
        const std::string text = std::to_string(++number) + ' ' + std::string(saves ? 300'000 : 10'000, 'x');
        projects.undoStack().push(new HygUndoProjectDescription("Describe", text));
        if (saves && !projects.save())
            QCoreApplication::exit(2);
        std::cout << number << ' ' << QDateTime::currentMSecsSinceEpoch() << std::endl;
        timer.start();
    });
    timer.setInterval(saves ? 1 : 5);
    timer.start();
    return QCoreApplication::exec();
}

namespace {

/// The environment may ask for more.
int rounds(const char * variable, int standard) {
    const int wanted = qEnvironmentVariableIntValue(variable);
    return wanted > 0 ? wanted : standard;
}

class Recovery : public EditedProject {
protected:
    struct Change {
        int number = 0;
        qint64 time = 0; ///< [ms since 1970]
    };
    /// Lets an editor work and kills it \p milliseconds after its first change. \return the changes it told
    std::vector<Change> workOfAKilledEditor(const char * mode, int milliseconds) const {
        QProcess editor;
        editor.start(QCoreApplication::applicationFilePath(), {"--edit-until-killed", mode, m_directory.path()});
        QByteArray out;
        while (!out.contains("\n1 ") && editor.waitForReadyRead(30000))
            out += editor.readAllStandardOutput();
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        editor.kill();
        EXPECT_TRUE(editor.waitForFinished(30000));
        std::vector<Change> changes;
        out += editor.readAllStandardOutput();
        const QList<QByteArray> lines = out.split('\n');
        for (const QByteArray & line : lines)
            if (const QList<QByteArray> words = line.split(' '); words.size() == 2)
                changes.push_back({words[0].toInt(), words[1].toLongLong()});
        EXPECT_FALSE(changes.empty()) << out.toStdString() << editor.readAllStandardError().toStdString();
        return changes;
    }
    static std::string filesIn(const QString & folder) {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden).join(' ').toStdString();
    }
    static int numberIn(const std::string & description) { return std::atoi(description.c_str()); }

    std::mt19937 m_random{7};
};

TEST_F(Recovery, AnEditorKilledWhileEditingLosesAtMostTwoSeconds) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    m_projects.closeProject();
    qint64 worst = 0;
    for (int round = 0; round < rounds("HYG_TEST_EDIT_ROUNDS", 20); ++round) {
        SCOPED_TRACE(round);
        const auto changes = workOfAKilledEditor("edit", std::uniform_int_distribution(0, 1500)(m_random));
        const std::vector<HygJournal::Entry> entries = HygJournal::orphans(journals(), file);
        int kept = 0;
        if (!entries.empty()) {
            ASSERT_EQ(entries.size(), 1u);
            EXPECT_EQ(entries[0].projectFile, QFileInfo(file).canonicalFilePath());
            EXPECT_EQ(entries[0].fileDate, QFileInfo(file).lastModified());
            QElapsedTimer timer;
            timer.start();
            ASSERT_TRUE(m_projects.openRecovered(entries[0]));
            EXPECT_LT(timer.elapsed(), 1000);
            EXPECT_FALSE(m_projects.isReadOnly()); // the dead editor's lock is gone
            EXPECT_TRUE(m_projects.isModified());
            kept = numberIn(description());
            EXPECT_EQ(kept, entries[0].changes);
            if (round % 2 == 0) { // saved or given up: nothing is left to offer
                EXPECT_TRUE(m_projects.save());
            }
            m_projects.closeProject();
        }
        if (static_cast<std::size_t>(kept) < changes.size()) // the first change that is lost, to the kill
            worst = std::max(worst, changes.back().time - changes[static_cast<std::size_t>(kept)].time);
        EXPECT_TRUE(HygJournal::orphans(journals()).empty());
        EXPECT_EQ(filesIn(journals()), "");
    }
    std::cout << "work lost at most: " << worst << " ms\n";
    EXPECT_LE(worst, 2000);
}

TEST_F(Recovery, AKilledEditorLeavesTheTrueNumberAndDatesOfItsChanges) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    m_projects.closeProject();
    {
        QFile old(file);
        ASSERT_TRUE(old.open(QIODevice::ReadWrite));
        ASSERT_TRUE(old.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
    }
    const auto changes = workOfAKilledEditor("once", 1000);
    const auto entries = HygJournal::orphans(journals(), file);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].changes, 1);
    EXPECT_EQ(entries[0].fileDate, QFileInfo(file).lastModified()) << "as it was saved, not as it was opened";
    EXPECT_NEAR(static_cast<double>(entries[0].journalDate.toMSecsSinceEpoch()), static_cast<double>(changes[0].time),
                150)
        << "of the change, not of the writing";
    HygRecoveryDialog dialog(entries, nullptr);
    EXPECT_THAT(dialog.findChild<QLabel *>("hint")->text().toStdString(),
                testing::Not(testing::HasSubstr("was saved again")));

    // What is changed further on counts on, back as well as forth.
    ASSERT_TRUE(m_projects.openRecovered(entries[0]));
    const auto told = [&] {
        m_projects.keepForRecovery();
        const QString journal = QDir(journals()).entryInfoList({"*.h6j"}, QDir::Files).at(0).absoluteFilePath();
        const std::string content = KOR::readFile(journal.toStdString(), 1 << 20);
        return std::atoi(content.c_str() + content.find("\"changes\":") + 10);
    };
    change("4");
    change("5");
    EXPECT_EQ(told(), 3);
    m_projects.undoStack().undo();
    EXPECT_EQ(told(), 2);
    ASSERT_TRUE(m_projects.save());
    change("6");
    EXPECT_EQ(told(), 1);
    // Another program writes the file: going back to what was saved does not make that known.
    write("wall.h6p", KOR::readFile(file.toStdString(), 1 << 20) + "\n");
    const QDateTime ours = QFileInfo(file).lastModified();
    m_projects.undoStack().undo();
    {
        QFile later(file);
        ASSERT_TRUE(later.open(QIODevice::ReadWrite));
        ASSERT_TRUE(later.setFileTime(ours.addSecs(60), QFileDevice::FileModificationTime));
    }
    m_projects.undoStack().redo();
    m_projects.keepForRecovery();
    const QString journal = QDir(journals()).entryInfoList({"*.h6j"}, QDir::Files).at(0).absoluteFilePath();
    EXPECT_THAT(KOR::readFile(journal.toStdString(), 1 << 20),
                testing::Not(testing::HasSubstr(ours.addSecs(60).toString(Qt::ISODateWithMs).toStdString())));
    m_projects.undoStack().undo();
    m_projects.closeProject();
}

TEST_F(Recovery, AnEditorKilledWhileSavingLeavesTheOldFileOrTheNew) {
    const QString file = path("wall.h6p");
    ASSERT_TRUE(m_projects.createProject(file));
    m_projects.closeProject();
    for (int round = 0; round < rounds("HYG_TEST_SAVE_ROUNDS", 30); ++round) {
        SCOPED_TRACE(round);
        const auto changes = workOfAKilledEditor("save", std::uniform_int_distribution(0, 60)(m_random));
        const int found = numberIn(description(file));
        EXPECT_GE(found, changes.back().number); // what was told as saved is there
        EXPECT_LE(found, changes.back().number + 1);
        const auto entries = HygJournal::orphans(journals(), file);
        for (const HygJournal::Entry & entry : entries)
            HygJournal::discard(entry);
        ASSERT_TRUE(m_projects.openProject(file));
        EXPECT_FALSE(m_projects.isReadOnly());
        m_projects.closeProject();
        EXPECT_EQ(filesIn(m_directory.path()), "wall.h6p");
        EXPECT_EQ(filesIn(journals()), "");
    }
}

TEST_F(Recovery, TheJournalHoldsWhatIsNotSaved) {
    ASSERT_TRUE(m_projects.createProject(path("wall.h6p")));
    const auto kept = [&] { return QDir(journals()).entryList({"*.h6j"}, QDir::Files).size(); };
    EXPECT_EQ(kept(), 0);
    change("one");
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept() == 1; }, 2000));
    EXPECT_TRUE(HygJournal::orphans(journals()).empty()); // its editor lives
    m_projects.undoStack().undo();
    EXPECT_EQ(kept(), 0);
    m_projects.undoStack().redo();
    m_projects.keepForRecovery();
    EXPECT_EQ(kept(), 1);
    ASSERT_TRUE(m_projects.save());
    EXPECT_EQ(kept(), 0);
    change("two");
    m_projects.keepForRecovery();
    ASSERT_TRUE(m_projects.saveAs(path("other.h6p")));
    EXPECT_EQ(kept(), 0);
    change("three");
    m_projects.closeProject(); // given up, even while it is being written
    QTest::qWait(600);
    EXPECT_EQ(kept(), 0);
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(Recovery, JournalsThatCannotBeUsedAreToldOnceAndPutAside) {
    QDir().mkpath(journals());
    const std::string head = R"({"project":"/x/wall.h6p","fileDate":"","date":"2026-11-01T12:00:00.000","changes":3})";
    const std::pair<const char *, std::string> files[] = {
        {"empty",   ""                             },
        {"foreign", "<HygrionProject/>"            },
        {"cut",     "H6JOURNAL 1\n" + head.substr(0, 30)},
        {"headless",         "H6JOURNAL 1\n\n<HygrionProject/>"                              },
        {"torn",         "H6JOURNAL 1\n" + head + "\n<HygrionProject><Init>"    },
    };
    for (const auto & [name, content] : files)
        write(QStringLiteral("journal/%1.h6j").arg(name), content);
    const std::vector<HygJournal::Entry> entries = HygJournal::orphans(journals());
    ASSERT_EQ(entries.size(), 1u); // the torn one shows when it is opened
    EXPECT_FALSE(m_projects.openRecovered(entries[0]));
    EXPECT_THAT(lastFailure(), testing::HasSubstr("/x/wall.h6p"));
    EXPECT_FALSE(m_projects.hasProject());
    EXPECT_EQ(QDir(journals()).entryList({"*.bad"}, QDir::Files).size(), 4);
    // Their number is bounded, the oldest go first.
    for (int i = 0; i < 60; ++i)
        write(QStringLiteral("journal/%1.h6j").arg(i), "H6JOURNAL 1\n" + head + "\n<HygrionProject/>");
    EXPECT_EQ(HygJournal::orphans(journals()).size(), 50u);
    EXPECT_EQ(QDir(journals()).entryList({"*.h6j"}, QDir::Files).size(), 50);
}

TEST_F(Recovery, TheDialogNamesDatesAndChangesAndOffersWhatCanBeDone) {
    const QString file = write("wall.h6p", "<HygrionProject/>");
    const QDateTime then = QDateTime(QDate(2026, 11, 1), QTime(12, 30, 0));
    const HygJournal::Entry entries[] = {
        {"1.h6j", file,             then, then.addSecs(61), 17},
        {"2.h6j", path("gone.h6p"), then, then,             1 }
    };
    HygRecoveryDialog dialog({std::begin(entries), std::end(entries)}, nullptr);
    auto & list = *dialog.findChild<QTreeWidget *>("journals");
    EXPECT_EQ(list.topLevelItem(0)->text(0), "wall");
    EXPECT_EQ(list.topLevelItem(0)->text(2), "2026-11-01 12:31:01");
    EXPECT_EQ(list.topLevelItem(0)->text(3), "17");
    EXPECT_EQ(list.topLevelItem(1)->text(1), "missing");
    const auto isOffered = [&](const char * name) { return dialog.findChild<QPushButton *>(name)->isEnabled(); };
    EXPECT_TRUE(isOffered("openBoth"));
    EXPECT_THAT(dialog.findChild<QLabel *>("hint")->text().toStdString(), testing::HasSubstr("was saved again"));
    list.setCurrentItem(list.topLevelItem(1));
    EXPECT_FALSE(isOffered("openBoth"));
    EXPECT_FALSE(isOffered("openFile"));
    EXPECT_TRUE(isOffered("openRecovered"));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(dialog.choice(), HygRecoveryDialog::OpenRecovered);
    EXPECT_EQ(dialog.entry().journalFile, "2.h6j");
    EXPECT_LE(dialog.sizeHint().height(), 700);
}

} // namespace
