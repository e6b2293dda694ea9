#include "HygMainWindow.h"

#include "HygDebugApplication.h"
#include "HygSettings.h"
#include "dialogs/HygAboutDialog.h"
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
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

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

TEST_F(HygMainWindowTest, OffersOnlyWhatIsAnswered) {
    const auto offers = [&] {
        QString names;
        for (const char * name : {"actionNew", "actionOpen"})
            if (find<QAction>(name).isVisible())
                names += QString(name) + ' ';
        for (const char * name : {"startNew", "startOpen"})
            if (!find<QAbstractButton>(name).isHidden())
                names += QString(name) + ' ';
        if (find<QMenu>("menuRecent").menuAction()->isVisible())
            names += "menuRecent ";
        return names.trimmed();
    };
    EXPECT_EQ(offers(), "");
    auto & recent = find<QListView>("recentProjects");
    const auto clickRow = [&](int row) {
        QTest::mouseClick(recent.viewport(), Qt::LeftButton, {},
                          recent.visualRect(recent.model()->index(row, 0)).center());
    };
    clickRow(2);
    EXPECT_EQ(m_settings.m_recentProjects.front(), m_directory.filePath("new.h6p"));

    auto opened = std::make_unique<QSignalSpy>(&window(), &HygMainWindow::openProjectRequested);
    EXPECT_EQ(offers(), "actionOpen startOpen menuRecent");
    auto created = std::make_unique<QSignalSpy>(&window(), &HygMainWindow::newProjectRequested);
    EXPECT_EQ(offers(), "actionNew actionOpen startNew startOpen menuRecent");

    clickRow(1); // missing
    EXPECT_EQ(opened->size(), 0);
    clickRow(2);
    ASSERT_EQ(opened->size(), 1);
    EXPECT_EQ(opened->last()[0].toString(), m_directory.filePath("old.h6p"));
    EXPECT_EQ(listed("recentProjects"), (QStringList{"old", "new", "Cellar"}));
    auto & examples = find<QListView>("exampleProjects");
    examples.setCurrentIndex(examples.model()->index(1, 0));
    examples.setFocus();
    QTest::keyClick(&examples, Qt::Key_Return);
    ASSERT_EQ(opened->size(), 2);
    EXPECT_TRUE(opened->last()[0].toString().endsWith("examples/Flat roof.h6p"));
    // "New" asks for a place; the suffix is added. The native dialogs of a platform cannot be driven.
    m_settings.m_dontUseNativeDialogs = true;
    QTimer driver;
    int tries = 0;
    QObject::connect(&driver, &QTimer::timeout, &window(), [&] {
        auto * dialog = window().findChild<QFileDialog *>("newProjectDialog");
        if (dialog == nullptr)
            return;
        if (++tries > 40) {
            dialog->reject(); // a test that fails is better than one that hangs
            return;
        }
        dialog->findChild<QLineEdit *>("fileNameEdit")->setText(m_directory.filePath("Attic"));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    driver.start(50);
    QTest::mouseClick(&find<QAbstractButton>("startNew"), Qt::LeftButton);
    ASSERT_EQ(created->size(), 1);
    EXPECT_EQ(created->last()[0].toString(), m_directory.filePath("Attic.h6p"));
    EXPECT_EQ(m_settings.m_lastFileOpenDirectory, m_directory.path());

    opened.reset();
    created.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(offers(), "");
}

TEST_F(HygMainWindowTest, OpensTheProjectOfTheCommandLine) {
    m_settings.m_initialProjectFile = m_directory.filePath("old.h6p");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().windowTitle().contains("old"); }));
    EXPECT_EQ(m_settings.m_recentProjects.front(), m_directory.filePath("old.h6p"));
    EXPECT_EQ(m_settings.m_recentProjects.size(), 3);
    EXPECT_TRUE(find<QLabel>("projectFile").text().endsWith("old.h6p"));

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
