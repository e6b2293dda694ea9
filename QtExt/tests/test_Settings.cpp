#include <QtExt/Settings.h>

#include <KOR/ArgParser.h>
#include <KOR/Exception.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

/// A store of its own for each test.
class SettingsTest : public testing::Test {
protected:
    SettingsTest() : m_application(testing::UnitTest::GetInstance()->current_test_info()->name()) {
        settings.setDefaults();
    }
    QString m_application;
    QtExt::Settings settings{"KOR", m_application};

    QtExt::Settings & reopened() {
        m_second = std::make_unique<QtExt::Settings>("KOR", m_application);
        m_second->setDefaults();
        m_second->read();
        return *m_second;
    }
    void put(const char * key, const QVariant & value) { QSettings("KOR", m_application).setValue(key, value); }

private:
    std::unique_ptr<QtExt::Settings> m_second;
};

TEST_F(SettingsTest, FreshUserGetsTheDefaults) {
    settings.read();
    EXPECT_EQ(settings.m_maxRecentProjects, 10u);
    EXPECT_EQ(settings.m_maxNumUndoSteps, 100u);
    EXPECT_EQ(settings.m_userLogLevelConsole, 1);
    EXPECT_EQ(settings.m_userLogLevelLogfile, 3);
    EXPECT_FALSE(settings.m_dontUseNativeDialogs);
    EXPECT_TRUE(settings.langId().isEmpty());
    EXPECT_TRUE(settings.m_recentProjects.isEmpty());
    EXPECT_FALSE(settings.m_noSplash);
}

TEST_F(SettingsTest, EveryKeyIsStoredAndReadBack) {
    settings.m_maxNumUndoSteps = 7;
    settings.m_langId = "de";
    settings.m_textEditorExecutable = "/usr/bin/böse, \"editor\"";
    settings.m_dontUseNativeDialogs = true;
    settings.m_recentProjects = QStringList{"/a, b.h6p"}; // a list of one with a comma
    settings.rememberAnswer("overwrite", 16384);
    settings.rememberAnswer("close", 65536);
    settings.write();

    const QtExt::Settings & read = reopened();
    for (const auto & row : settings.rows())
        EXPECT_EQ(read.value(row.key), settings.value(row.key)) << row.key.toStdString();
    EXPECT_EQ(read.m_rememberedAnswers, settings.m_rememberedAnswers);

    settings.m_rememberedAnswers.remove("close");
    settings.write(); // a shorter array leaves nothing of the longer one
    EXPECT_EQ(reopened().m_rememberedAnswers, settings.m_rememberedAnswers);
}

TEST_F(SettingsTest, UnusableValuesKeepTheDefaults) {
    put("MaxNumUndoSteps", "many");
    put("MaxRecentProjects", -3);
    put("UserLogLevelConsole", "nan");
    put("UserLogLevelLogfile", 1e9);
    put("DontUseNativeDialogs", "perhaps");
    put("DoNotShowAgainDialogs/size", 2147483647); // must not loop two thousand million times
    QElapsedTimer clock;
    clock.start();
    settings.read();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(settings.m_maxNumUndoSteps, 100u);
    EXPECT_EQ(settings.m_maxRecentProjects, 0u);
    EXPECT_EQ(settings.m_userLogLevelConsole, 1);
    EXPECT_EQ(settings.m_userLogLevelLogfile, 4);
    EXPECT_FALSE(settings.m_dontUseNativeDialogs);
}

TEST_F(SettingsTest, LanguageOfTheRunIsNeverStored) {
    settings.m_langId = "de";
    settings.setLangIdOfRun("en");
    EXPECT_EQ(settings.langId(), "en");
    settings.write();
    EXPECT_EQ(reopened().langId(), "de");
}

TEST_F(SettingsTest, CommandLineHoldsForTheRun) {
    struct Case {
        std::vector<const char *> arguments;
        bool noSplash;
        const char * langId;
        const char * project;
    };
    const Case cases[] = {
        {{"hygrion"},                                               false, "de", ""     },
        {{"hygrion", "--no-splash", "--lang=en", "a.h6p", "b.h6p"}, true,  "en", "a.h6p"},
        {{"hygrion", "--no-splash=yes", "--lang=fr"},               false, "fr", ""     },
    };
    for (const Case & c : cases) {
        KOR::ArgParser parser;
        QtExt::Settings::addOptions(parser);
        parser.parse(static_cast<int>(c.arguments.size()), c.arguments.data());
        QtExt::Settings run("KOR", m_application);
        run.setDefaults();
        run.m_langId = "de";
        run.applyCommandLine(parser);
        EXPECT_EQ(run.m_noSplash, c.noSplash);
        EXPECT_EQ(run.langId(), c.langId);
        EXPECT_EQ(run.m_initialProjectFile, c.project);
        run.write();
        EXPECT_EQ(reopened().m_langId, "de");
    }
}

TEST_F(SettingsTest, RecentProjectsAreNewestFirstWithoutDoubles) {
    settings.m_maxRecentProjects = 3;
    for (const char * path : {"/p/1.h6p", "/p/2.h6p", "/p/x/../1.h6p", "/p/3.h6p", "/p/4.h6p"})
        settings.addRecentProject(path);
    EXPECT_EQ(settings.m_recentProjects, (QStringList{"/p/4.h6p", "/p/3.h6p", "/p/1.h6p"}));
    EXPECT_EQ(settings.m_lastProjectFile, "/p/4.h6p");
    settings.removeRecentProject("/p/3.h6p");
    settings.m_maxRecentProjects = 1;
    settings.write();
    EXPECT_EQ(reopened().m_recentProjects, QStringList{"/p/4.h6p"}); // a lower limit cuts when reading
}

TEST_F(SettingsTest, StaleLockDoesNotStall) {
    settings.write();
    QFile lock(settings.storePath() + ".lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();
    QElapsedTimer clock;
    clock.start();
    QtExt::Settings & again = reopened();
    again.write();
    EXPECT_LT(clock.elapsed(), 1000);
}

TEST_F(SettingsTest, UnwritableStoreIsNamed) {
    // A directory in the place of the file is refused to everybody, root included.
    ASSERT_TRUE(QDir().mkpath(settings.storePath()));
    try {
        settings.m_langId = "de";
        settings.write();
        FAIL() << "no exception";
    } catch (const KOR::Exception & ex) {
        EXPECT_EQ(ex.message(), "Cannot write settings to '" + settings.storePath().toStdString() + "'.");
        EXPECT_EQ(ex.chain().back().where, "[Settings::write]");
    }
}

TEST_F(SettingsTest, InstanceIsTheLastOne) {
    EXPECT_EQ(&QtExt::Settings::instance(), &settings);
    {
        const QtExt::Settings inner("KOR", "inner");
        EXPECT_EQ(&QtExt::Settings::instance(), &inner);
    }
    EXPECT_EQ(&QtExt::Settings::instance(), &settings);
}

} // namespace
