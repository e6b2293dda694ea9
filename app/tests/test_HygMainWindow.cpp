#include "HygMainWindow.h"

#include "HygDebugApplication.h"
#include "HygSettings.h"
#include "construction/HygConstructionView.h"
#include "dialogs/HygAboutDialog.h"
#include "dialogs/HygCommandSearch.h"
#include "dialogs/HygHelpWindow.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDBWidget.h"
#include "undo/HygUndoSections.h"
#include "views/HygNavigationButton.h"
#include "views/HygProjectListModel.h"
#include "views/HygStartView.h"

#include <QtExt/LanguageHandler.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QUndoStack>

#include <gmock/gmock.h>

namespace {

/// A window with an empty store, two examples and three recent projects, of which one is missing.
class HygMainWindowTest : public testing::Test {
protected:
    HygMainWindowTest()
        : m_settings("KOR", QString::fromLatin1(testing::UnitTest::GetInstance()->current_test_info()->name())),
          m_languages(QStringLiteral(HYG_BINARY_DIR "/translations"), "hygrion") {
        m_settings.setDefaults();
        m_settings.setInstallationDirectory(m_directory.path());
        m_settings.setDirectory("UserData", m_directory.filePath("user")); // nobody else's journals are offered
        makeFile("examples/Brick wall.h6p");
        makeFile("examples/Flat roof.h6p");
        makeFile("examples/notes.txt");
        m_missing = m_directory.filePath("gone/Cellar.h6p");
        m_settings.addRecentProject(makeFile("old.h6p"));
        m_settings.addRecentProject(m_missing);
        m_settings.addRecentProject(makeFile("new.h6p"));
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_handler);
        m_languages.installTranslator("en");
    }
    ~HygMainWindowTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    QString makeFile(const QString & name) const {
        const QString path = m_directory.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        KOR::writeFile(path.toStdString(), "<HygrionProject/>\n");
        return path;
    }
    HygMainWindow & window() {
        if (!m_window) {
            m_window = std::make_unique<HygMainWindow>(m_settings, m_languages, m_messages);
            m_window->show();
        }
        return *m_window;
    }
    template <typename Object> Object & find(const char * name) { return *window().findChild<Object *>(name); }
    /// Does something to a modal dialog as soon as it is there. A test that fails is better than one that hangs.
    template <typename Dialog> void answer(const char * name, std::function<void(Dialog &)> reply) {
        auto * driver = new QTimer(&window());
        QObject::connect(driver, &QTimer::timeout, [=, this, tries = 0]() mutable {
            auto * dialog = window().findChild<Dialog *>(name);
            if (dialog == nullptr || !dialog->isVisible())
                return;
            if (++tries == 1)
                reply(*dialog);
            else if (tries > 40)
                dialog->reject();
        });
        QObject::connect(driver, &QTimer::timeout, driver, [=, this, seen = false]() mutable {
            const auto * dialog = window().findChild<Dialog *>(name);
            seen = seen || dialog != nullptr;
            if (seen && (dialog == nullptr || !dialog->isVisible()))
                driver->deleteLater();
        });
        driver->start(30);
    }
    QStringList listed(const char * name) {
        QStringList names;
        const QAbstractItemModel & rows = *find<QListView>(name).model();
        for (int row = 0; row < rows.rowCount(); ++row)
            names << rows.index(row, 0).data().toString();
        return names;
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_handler;
    QTemporaryDir m_directory;
    QString m_missing;
    HygSettings m_settings;
    QtExt::LanguageHandler m_languages;
    HygLogModel m_messages;
    std::unique_ptr<HygMainWindow> m_window;
};

TEST_F(HygMainWindowTest, ListsRecentProjectsAndExamples) {
    EXPECT_EQ(listed("recentProjects"), (QStringList{"new", "Cellar", "old"}));
    EXPECT_EQ(listed("exampleProjects"), (QStringList{"Brick wall", "Flat roof"}));
    const QModelIndex missing = find<QListView>("recentProjects").model()->index(1, 0);
    EXPECT_TRUE(missing.data(HygProjectListModel::IsMissingRole).toBool());
    EXPECT_TRUE(missing.data(Qt::ToolTipRole).toString().contains("The folder does not exist any more"));
    EXPECT_TRUE(missing.data(Qt::AccessibleTextRole).toString().contains("missing"));

    find<QListView>("recentProjects").setCurrentIndex(missing);
    QTest::keyClick(&find<QListView>("recentProjects"), Qt::Key_Delete);
    EXPECT_EQ(listed("recentProjects"), (QStringList{"new", "old"}));
    EXPECT_FALSE(m_settings.m_recentProjects.contains(m_missing));
}

TEST_F(HygMainWindowTest, ViewsLeadTheirMenuInTheOrderOfTheNavigation) {
    QStringList entries;
    for (const QAction * entry : find<QMenu>("menuView").actions()) {
        if (entry->isSeparator())
            break;
        entries << entry->text() + ' ' + entry->shortcut().toString();
    }
    EXPECT_EQ(entries, (QStringList{"Start Ctrl+1", "Construction Ctrl+2", "Outputs Ctrl+3", "Materials Ctrl+4",
                                    "Simulation Ctrl+5", "Results Ctrl+6"}));
}

TEST_F(HygMainWindowTest, OpensProjectsFromTheListsAndMakesNewOnes) {
    auto & recent = find<QListView>("recentProjects");
    const auto clickRow = [&](int row) {
        QTest::mouseClick(recent.viewport(), Qt::LeftButton, {},
                          recent.visualRect(recent.model()->index(row, 0)).center());
    };
    const auto file = [&] { return window().projects().projectFile(); };
    clickRow(1); // missing
    EXPECT_EQ(file(), "");
    clickRow(2);
    EXPECT_EQ(file(), m_directory.filePath("old.h6p"));
    EXPECT_EQ(listed("recentProjects"), (QStringList{"old", "new", "Cellar"}));
    EXPECT_EQ(window().currentView(), HygViewTable::Construction);
    window().showView(HygViewTable::Start);
    auto & examples = find<QListView>("exampleProjects");
    examples.setCurrentIndex(examples.model()->index(1, 0));
    examples.setFocus();
    QTest::keyClick(&examples, Qt::Key_Return);
    EXPECT_TRUE(file().endsWith("examples/Flat roof.h6p"));
    // "New" asks for a place; the suffix is added. The native dialogs of a platform cannot be driven.
    m_settings.m_dontUseNativeDialogs = true;
    answer<QFileDialog>("newProjectDialog", [&](QFileDialog & dialog) {
        dialog.findChild<QLineEdit *>("fileNameEdit")->setText(m_directory.filePath("Attic"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    window().showView(HygViewTable::Start);
    QTest::mouseClick(&find<QAbstractButton>("startNew"), Qt::LeftButton);
    EXPECT_EQ(file(), m_directory.filePath("Attic.h6p"));
    EXPECT_EQ(m_settings.m_lastFileOpenDirectory, m_directory.path());
}

TEST_F(HygMainWindowTest, AsksWhatIsToBecomeOfUnsavedChanges) {
    const QString path = m_directory.filePath("old.h6p");
    ASSERT_TRUE(window().openProject(path));
    const auto change = [&](const char * text) {
        window().undoStack().push(new HygUndoProjectDescription("Describe", text));
    };
    const auto isOpenAfter = [&](QMessageBox::StandardButton button) {
        answer<QMessageBox>("unsavedChanges", [&](QMessageBox & box) { box.button(button)->click(); });
        find<QAction>("actionClose").trigger();
        return window().projects().hasProject();
    };
    const auto description = [&] {
        HYGRION::Project project;
        project.readXML(path.toStdString());
        return project.m_projectInfo.m_description;
    };
    EXPECT_FALSE(window().isWindowModified());
    change("one");
    EXPECT_TRUE(window().isWindowModified());
    EXPECT_EQ(find<QAction>("actionUndo").text(), "&Undo: Describe");
    find<QAction>("actionUndo").trigger();
    EXPECT_FALSE(window().isWindowModified());
    find<QAction>("actionRedo").trigger();

    EXPECT_TRUE(isOpenAfter(QMessageBox::Cancel));
    EXPECT_TRUE(window().isWindowModified());
    answer<QMessageBox>("unsavedChanges", [](QMessageBox & box) { box.button(QMessageBox::Cancel)->click(); });
    EXPECT_FALSE(window().close());
    EXPECT_FALSE(isOpenAfter(QMessageBox::Save));
    EXPECT_EQ(description(), "one");
    EXPECT_FALSE(find<QAction>("actionSave").isEnabled());
    ASSERT_TRUE(window().openProject(path));
    change("two");
    find<QAction>("actionSave").trigger();
    EXPECT_FALSE(window().isWindowModified());
    find<QAction>("actionUndo").trigger(); // away from what is in the file
    EXPECT_TRUE(window().isWindowModified());
    EXPECT_FALSE(isOpenAfter(QMessageBox::Discard));
    EXPECT_EQ(description(), "two");
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(HygMainWindowTest, OpensTheProjectOfTheCommandLine) {
    m_settings.m_initialProjectFile = m_directory.filePath("old.h6p");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().windowTitle().contains("old"); }));
    EXPECT_EQ(m_settings.m_recentProjects.front(), m_directory.filePath("old.h6p"));
    EXPECT_EQ(m_settings.m_recentProjects.size(), 3);
    EXPECT_TRUE(find<QLabel>("projectFile").text().endsWith("old.h6p"));

    QWidget & simulation = find<QWidget>("HygSimulationView");
    EXPECT_FALSE(simulation.isVisible());
    QMetaObject::invokeMethod(&simulation, "placeRequested", Q_ARG(QString, QStringLiteral("Simulation")));
    EXPECT_TRUE(simulation.isVisible());
    QMetaObject::invokeMethod(&simulation, "placeRequested", Q_ARG(QString, QStringLiteral("Assignments")));
    EXPECT_TRUE(find<QWidget>("constructionView").isVisible());
    m_window.reset();
    m_settings.m_initialView = "simulation";
    EXPECT_TRUE(QTest::qWaitFor([&] { return find<QWidget>("HygSimulationView").isVisible(); }));

    for (const QString & wrong : {m_missing, m_directory.path()}) {
        EXPECT_FALSE(window().openProject(wrong));
        EXPECT_TRUE(find<QWidget>("messageBar").isVisible());
    }
    EXPECT_TRUE(window().windowTitle().contains("old"));
    EXPECT_EQ(m_settings.m_recentProjects.size(), 3);
}

TEST_F(HygMainWindowTest, ComesBackAsItWasLeft) {
    window().resize(1000, 700);
    find<QDockWidget>("logDock").hide();
    window().close();
    m_window.reset();
    EXPECT_FALSE(find<QDockWidget>("logDock").isVisible());
    EXPECT_EQ(window().size(), QSize(1000, 700));

    QTest::mouseClick(&find<QAbstractButton>("logButton"), Qt::LeftButton);
    EXPECT_TRUE(find<QDockWidget>("logDock").isVisible());
    window().close();
    m_window.reset();
    EXPECT_TRUE(find<QDockWidget>("logDock").isVisible());

    m_settings.m_mainWindowState = "nonsense";
    m_settings.m_mainWindowGeometry = "nonsense";
    m_window.reset();
    EXPECT_TRUE(window().isVisible());
}

TEST_F(HygMainWindowTest, ChangesItsLanguageWhileItRuns) {
    const QString english = window().menuBar()->actions().first()->text();
    const auto choose = [&](const char * menu, const char * value) {
        for (QAction * action : find<QMenu>(menu).actions())
            if (action->data().toString() == value)
                action->trigger();
    };
    choose("menuLanguage", "de");
    QCoreApplication::processEvents();
    EXPECT_EQ(window().menuBar()->actions().first()->text(), "&Datei");
    EXPECT_EQ(find<QAbstractButton>("logButton").text(), "Meldungen");
    EXPECT_EQ(find<QListView>("recentProjects").accessibleName(), "Letzte Projekte");
    EXPECT_EQ(m_settings.m_langId, "de");
    // Nothing that carries English words of ours is left behind.
    for (const QAction * action : window().findChildren<QAction *>())
        EXPECT_THAT(action->text().toStdString(), testing::Not(testing::HasSubstr("&Preferences")));
    choose("menuLanguage", "en");
    QCoreApplication::processEvents();
    EXPECT_EQ(window().menuBar()->actions().first()->text(), english);

    choose("menuAppearance", "dark");
    const QColor dark = window().palette().color(QPalette::Window);
    choose("menuAppearance", "light");
    EXPECT_GT(window().palette().color(QPalette::Window).lightness(), dark.lightness() + 100);
}

TEST_F(HygMainWindowTest, OpensFilesThatAreDropped) {
    QWidget * target = &window();
    const auto drop = [&](const QString & path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(target, &enter);
        QDropEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        if (enter.isAccepted())
            QCoreApplication::sendEvent(target, &event);
        QCoreApplication::processEvents();
        return enter.isAccepted();
    };
    EXPECT_FALSE(drop(m_directory.filePath("examples/notes.txt")));
    EXPECT_TRUE(drop(m_directory.filePath("new.h6p")));
    EXPECT_EQ(window().projects().projectFile(), m_directory.filePath("new.h6p"));
    // The project is empty: now its start card lies there.
    target = &find<QWidget>("constructionStart");
    ASSERT_TRUE(target->isVisible());
    EXPECT_TRUE(drop(m_directory.filePath("old.h6p")));
    EXPECT_EQ(window().projects().projectFile(), m_directory.filePath("old.h6p"));

    // What is dragged within the program opens the view on whose button it rests.
    const QList<HygNavigationButton *> buttons = window().findChildren<HygNavigationButton *>();
    const auto button = std::find_if(buttons.begin(), buttons.end(),
                                     [](const QAbstractButton * each) { return each->text() == "Materials"; });
    ASSERT_NE(button, buttons.end());
    ASSERT_FALSE((*button)->isChecked());
    QMimeData data;
    data.setData("application/x-hygrion-material", "a.m6");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(*button, &enter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return (*button)->isChecked(); }));
}

TEST_F(HygMainWindowTest, FitsASmallScreenWithEverythingInGerman) {
    m_languages.installTranslator("de");
    ASSERT_TRUE(window().openProject(makeFile("new.h6p")));
    find<QDockWidget>("logDock").show();
    find<QDockWidget>("historyDock").show();
    auto & view = find<HygConstructionView>("constructionView");
    for (const bool isDetail : {false, true}) {
        if (isDetail)
            view.editor().startDetail(6, KOR::Parameter("Width", 100, KOR::Unit("mm")));
        else
            view.editor().addLayer({
                {"Vollziegel aus einem sehr alten Gebäude mit Putz", {}, 5, KOR::Path("a.m6")},
                KOR::Parameter("Thickness", 24, KOR::Unit("cm")),
                true,
                0
            });
        view.canvas().selectAll();
        EXPECT_TRUE(QTest::qWaitFor([&] { return find<QWidget>("hintBar").isVisible(); }));
        QCoreApplication::processEvents();
        EXPECT_LE(window().minimumSizeHint().width(), 1366);
        EXPECT_LE(window().minimumSizeHint().height(), 768 - 40) << "less the title bar";
        window().undoStack().setIndex(0);
    }
    // The switches keep their words as long as there is room, and their names always.
    auto & chip = find<QAbstractButton>("showInitials");
    window().resize(1900, 900);
    QCoreApplication::processEvents();
    const int wide = chip.width();
    window().resize(1100, 700);
    QCoreApplication::processEvents();
    EXPECT_LT(chip.width(), wide / 2);
    EXPECT_EQ(chip.text(), "Anfangsbedingungen");
    EXPECT_TRUE(chip.toolTip().startsWith(chip.text()));
    window().resize(1900, 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(chip.width(), wide);
    m_languages.installTranslator("en");
}

TEST_F(HygMainWindowTest, FindsDefinitionsAndMaterialsOfTheDatabase) {
    const QString brick = m_directory.filePath("DB_materials/clay_brick_solid_108.m6");
    QDir(m_directory.path()).mkpath("DB_materials");
    ASSERT_TRUE(QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/clay_brick_solid_108.m6"), brick));
    ASSERT_TRUE(window().openProject(makeFile("new.h6p")));
    auto & view = find<HygConstructionView>("constructionView");
    view.editor().addLayer({
        {"Cork", {}, 10, KOR::Path("a.m6")},
        KOR::Parameter("Thickness", 4, KOR::Unit("cm")), false, 0
    });
    const auto choose = [&](const char * words, int expected) {
        answer<QDialog>("commandSearch", [=](QDialog & dialog) {
            auto & list = *dialog.findChild<QListWidget *>("commandList");
            QTest::keyClicks(dialog.findChild<QLineEdit *>("commandField"), words);
            EXPECT_TRUE(QTest::qWaitFor([&] { return list.count() == expected; })) << words << ' ' << list.count();
            QTest::keyClick(dialog.findChild<QLineEdit *>("commandField"), Qt::Key_Return);
        });
        find<QAction>("actionFindCommand").trigger();
    };
    view.canvas().select({});
    choose("cork material", 1);
    EXPECT_EQ(window().currentView(), HygViewTable::Construction);
    ASSERT_EQ(view.canvas().scene().selection.blocks().size(), 1u) << "its cells are shown";
    choose("no such thing at all", 1); // words instead of an empty list; Enter does nothing
    window().showView(HygViewTable::Start);
    choose("equal cells", 1);
    EXPECT_EQ(window().currentView(), HygViewTable::Construction) << "a command of another view";
    EXPECT_TRUE(view.canvas().scene().isEquidistant);
    choose("solid brick database", 1);
    EXPECT_EQ(window().currentView(), HygViewTable::Materials);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().findChild<HygMaterialDBWidget *>()->currentPath() == brick; }));
}

TEST_F(HygMainWindowTest, UndoWorksWhereverTheFocusIs) {
    ASSERT_TRUE(window().openProject(makeFile("new.h6p")));
    window().showView(HygViewTable::Simulation);
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto & field = find<QLineEdit>("DefaultTemperature");
    for (QWidget * parent = field.parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (auto * pages = qobject_cast<QStackedWidget *>(parent->parentWidget()))
            pages->setCurrentWidget(parent);
    field.setFocus();
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    };
    ASSERT_EQ(QApplication::focusWidget(), &field);
    const HYGRION::Init before = window().projects().project().m_init;
    field.selectAll();
    QTest::keyClicks(&field, "15 C");
    press(Qt::Key_Z, Qt::ControlModifier); // what is being typed is undone in the field
    EXPECT_EQ(window().undoStack().count(), 0);
    field.selectAll();
    QTest::keyClicks(&field, "15 C");
    press(Qt::Key_Return);
    ASSERT_EQ(window().undoStack().index(), 1);
    press(Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), &field);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window().undoStack().index(), 0);
    EXPECT_EQ(window().projects().project().m_init, before);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(window().undoStack().index(), 1);
    // A view that is switched to by keys has them from then on.
    window().showView(HygViewTable::Construction);
    EXPECT_EQ(QApplication::focusWidget(), &find<QWidget>("constructionCanvas"));
}

TEST_F(HygMainWindowTest, OffersAtTheStartWhatACrashLeft) {
    m_settings.setDirectory("UserData", m_directory.path());
    const QString file = makeFile("crashed.h6p");
    const QString journal = m_directory.filePath("journal/1.h6j");
    const auto crash = [&] {
        QDir(m_directory.path()).mkpath("journal");
        KOR::writeFile(journal.toStdString(),
                       "H6JOURNAL 1\n{\"project\":\"" + file.toStdString() +
                           "\",\"date\":\"2026-11-01T12:00:00.000\",\"changes\":3}\n<HygrionProject><ProjectInfo "
                           "created='1'><Description>kept</Description></ProjectInfo></HygrionProject>");
    };
    const auto answerWith = [&](const char * button) {
        answer<QDialog>("recoveryDialog",
                        [button](QDialog & dialog) { dialog.findChild<QAbstractButton *>(button)->click(); });
    };
    crash();
    answerWith("later");
    QTest::qWait(200);
    EXPECT_FALSE(window().projects().hasProject());
    answerWith("openFile"); // asked again when that project is opened
    EXPECT_TRUE(window().openProject(file));
    EXPECT_EQ(window().projects().project().m_projectInfo.m_description, "");
    EXPECT_TRUE(QFileInfo::exists(journal));
    answerWith("openRecovered");
    EXPECT_TRUE(window().openProject(file));
    EXPECT_EQ(window().projects().project().m_projectInfo.m_description, "kept");
    EXPECT_TRUE(window().isWindowModified());
    EXPECT_EQ(window().projects().projectFile(), file);
    find<QAction>("actionSave").trigger();
    EXPECT_FALSE(window().isWindowModified());
    EXPECT_FALSE(QFileInfo::exists(journal));
    window().close();
}

TEST_F(HygMainWindowTest, AsksBeforeOtherProgramsAndChangesOfOurOwnMeet) {
    const QString file = m_directory.filePath("old.h6p");
    ASSERT_TRUE(window().openProject(file));
    const auto touch = [&] {
        KOR::writeFile(file.toStdString(), "<HygrionProject><ProjectInfo created='1'><Description>theirs"
                                           "</Description></ProjectInfo></HygrionProject>");
    };
    const auto description = [&] { return window().projects().project().m_projectInfo.m_description; };
    touch();
    window().projects().checkDisk(); // nothing of ours to lose
    EXPECT_EQ(description(), "theirs");
    window().undoStack().push(new HygUndoProjectDescription("Describe", "ours"));
    touch();
    answer<QMessageBox>("changedOnDisk", [](QMessageBox & box) { box.reject(); });
    window().projects().checkDisk();
    EXPECT_EQ(description(), "ours");
    find<QAction>("actionSave").trigger(); // they were kept knowingly
    EXPECT_FALSE(window().isWindowModified());
    window().undoStack().push(new HygUndoProjectDescription("Describe", "more"));
    touch();
    answer<QMessageBox>("overwriteChanged", [](QMessageBox & box) { box.button(QMessageBox::Cancel)->click(); });
    find<QAction>("actionSave").trigger();
    EXPECT_TRUE(window().isWindowModified());
    answer<QMessageBox>("changedOnDisk", [&](QMessageBox & box) {
        for (QAbstractButton * button : box.buttons())
            if (box.buttonRole(button) == QMessageBox::DestructiveRole)
                button->click();
    });
    window().projects().checkDisk();
    EXPECT_EQ(description(), "theirs");
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(HygMainWindowTest, FindsCommandsAndHelp) {
    using Command = HygCommandSearch::Command;
    const std::vector<Command> commands = {
        {"Open project", "File",     {}, {}, {}},
        {"Save a copy",  "File",     {}, {}, {}},
        {"Cosave",       "File",     {}, {}, {}},
        {"Brick",        "Material", {}, {}, {}}
    };
    EXPECT_EQ(HygCommandSearch::find(commands, "SAV"), (std::vector<int>{1, 2}));
    EXPECT_EQ(HygCommandSearch::find(commands, "co sav"), (std::vector<int>{1, 2}));
    EXPECT_EQ(HygCommandSearch::find(commands, "mat"), (std::vector<int>{3}));
    EXPECT_EQ(HygCommandSearch::find(commands, "x"), (std::vector<int>{}));
    EXPECT_EQ(HygCommandSearch::find(commands, " ").size(), 4u);

    answer<QDialog>("commandSearch", [](QDialog & dialog) {
        auto & field = *dialog.findChild<QLineEdit *>("commandField");
        QTest::keyClicks(&field, "messages");
        QTest::keyClick(&field, Qt::Key_Down);
        QTest::keyClick(&field, Qt::Key_Up);
        QTest::keyClick(&field, Qt::Key_Return);
    });
    const bool isShown = find<QDockWidget>("logDock").isVisible();
    find<QAction>("actionFindCommand").trigger();
    EXPECT_NE(find<QDockWidget>("logDock").isVisible(), isShown);

    // The shipped pages: all are there in both languages, and no link of theirs leads nowhere.
    const QDir guide(HYG_SOURCE_DIR "/docs/user-guide");
    for (const QString & folder : {QStringLiteral("."), QStringLiteral("de")})
        for (const QFileInfo & page : QDir(guide.filePath(folder)).entryInfoList({"*.md"}, QDir::Files)) {
            EXPECT_TRUE(QFileInfo::exists(guide.filePath("de/" + page.fileName()))) << page.fileName().toStdString();
            const QString text = QString::fromStdString(KOR::readFile(page.filePath().toStdString(), 1 << 20));
            QRegularExpression link(R"(\]\(([^)#:]+)[^)]*\))");
            for (auto match = link.globalMatch(text); match.hasNext();) {
                const QString target = match.next().captured(1);
                EXPECT_TRUE(QFileInfo::exists(page.dir().filePath(target))) << target.toStdString();
            }
        }
    m_settings.setInstallationDirectory(QStringLiteral(HYG_BINARY_DIR));
    find<QListView>("recentProjects").setFocus();
    find<QAction>("actionHelp").trigger();
    EXPECT_EQ(find<HygHelpWindow>("helpWindow").currentPage(), "projects");
    window().setProperty(HygHelpWindow::PAGE_PROPERTY, "packages");
    find<QAction>("actionHelp").trigger();
    EXPECT_EQ(find<HygHelpWindow>("helpWindow").currentPage(), "packages");
    // No picture of a page is wider than the window.
    window().showHelp("construction");
    auto & text = find<QTextBrowser>("helpText");
    EXPECT_TRUE(QTest::qWaitFor([&] { return text.horizontalScrollBar()->maximum() < 40; }))
        << text.horizontalScrollBar()->maximum();
    EXPECT_GT(text.document()->size().height(), 2000) << "the pictures are there";
    window().showHelp("nonsense");
    EXPECT_EQ(find<HygHelpWindow>("helpWindow").currentPage(), "index");
}

TEST_F(HygMainWindowTest, EveryButtonTellsItsName) {
    HygAboutDialog about(&window());
    for (const QWidget * parent : {static_cast<QWidget *>(&window()), static_cast<QWidget *>(&about)}) {
        for (const QAbstractButton * button : parent->findChildren<QAbstractButton *>()) {
            const bool isOfTheToolkit = button->objectName().startsWith("qt_") ||
                                        button->inherits("QLineEditIconButton") ||
                                        button->inherits("QTableCornerButton");
            EXPECT_TRUE(isOfTheToolkit || !button->text().isEmpty() || !button->accessibleName().isEmpty())
                << button->objectName().toStdString() << ' ' << button->metaObject()->className();
        }
    }
}

TEST(HygDebugApplication, LogsAFailureThatEscapesAnEventAndGoesOn) {
    QObject context;
    bool hasGoneOn = false;
    QTimer::singleShot(0, &context, [] {
        throw KOR::Exception(KOR::Exception("no vapour data", "[Material::read]"), "Cannot open the wall.",
                             "[View::open]");
    });
    QTimer::singleShot(5, &context, [&] { hasGoneOn = true; });
    testing::internal::CaptureStdout();
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasGoneOn; }));
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_THAT(out, testing::HasSubstr("[Material::read]\tno vapour data"));
    EXPECT_LT(out.find("no vapour data"), out.find("Cannot open the wall."));
}

} // namespace
