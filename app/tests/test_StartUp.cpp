// The program as a user starts it: a process with a home directory of its own.
#include <KOR/FileIO.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char * SHOWN = "Main window shown.";

/// One run of the program. Console verbosity 3 shows on standard output all that the log file holds.
class StartUp : public testing::Test {
protected:
    StartUp() {
        QDir().mkpath(QFileInfo(store()).path());
        KOR::writeFile(store().toStdString(), "[General]\nUserLogLevelConsole=3\n");
        m_environment = QProcessEnvironment::systemEnvironment();
        for (const char * name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "DISPLAY", "WAYLAND_DISPLAY"})
            m_environment.remove(QLatin1String(name));
        m_environment.insert("HOME", m_home.path());
        m_environment.insert("QT_QPA_PLATFORM", "offscreen");
        m_environment.insert("LC_ALL", "en_GB.UTF-8");
    }

    QString store() const { return m_home.filePath(".config/KOR/Hygrion 6.1.conf"); }
    QString logFile() const { return m_home.filePath(".local/share/Hygrion6/Hygrion6.log"); }
    QString makeProject(const QString & name) const {
        KOR::writeFile(m_home.filePath(name).toStdString(), "<HygrionProject/>\n");
        return m_home.filePath(name);
    }

    void start(const QStringList & arguments) {
        m_process.setProcessEnvironment(m_environment);
        m_process.setWorkingDirectory(m_home.path());
        m_process.start(QStringLiteral(HYG_BINARY_DIR "/Hygrion"), arguments);
        ASSERT_TRUE(m_process.waitForStarted());
    }
    /// Waits until standard output holds a text; false when it does not within the time.
    bool waitFor(const char * text, int milliseconds = 20000) {
        QElapsedTimer timer;
        timer.start();
        while (!m_out.contains(text)) {
            if (timer.elapsed() > milliseconds || m_process.state() == QProcess::NotRunning)
                return false;
            m_process.waitForReadyRead(100);
            m_out += m_process.readAllStandardOutput();
        }
        return true;
    }
    /// Runs until the program ends by itself; its exit code.
    int run(const QStringList & arguments) {
        start(arguments);
        EXPECT_TRUE(m_process.waitForFinished(20000));
        m_out += m_process.readAllStandardOutput();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    /// Starts, waits for the main window and ends the program as the system would; its exit code.
    int runWindow(const QStringList & arguments, const char * awaited = SHOWN) {
        start(arguments);
        EXPECT_TRUE(waitFor(awaited)) << m_out.constData() << m_process.readAllStandardError().constData();
        m_process.terminate();
        EXPECT_TRUE(m_process.waitForFinished(20000));
        m_out += m_process.readAllStandardOutput();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    std::string out() const { return m_out.toStdString(); }

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QProcess m_process;
    QByteArray m_out;
};

struct Printing {
    const char * name;
    const char * argument;
    const char * text;
    friend void PrintTo(const Printing & row, std::ostream * out) { *out << row.name; }
};
class StartUpPrints : public StartUp, public testing::WithParamInterface<Printing> {};

TEST_P(StartUpPrints, AndEndsBeforeAnyDirectoryIsMade) {
    m_environment.remove("QT_QPA_PLATFORM"); // a text needs no screen
    EXPECT_EQ(run({GetParam().argument}), 0);
    EXPECT_THAT(out(), HasSubstr(GetParam().text));
    EXPECT_THAT(out(), HasSubstr("no-splash"));
    EXPECT_FALSE(QFileInfo::exists(m_home.filePath(".local")));
}
INSTANTIATE_TEST_SUITE_P(Flags, StartUpPrints,
                         testing::Values(Printing{"Help", "--help", "The project to be opened"},
                                         Printing{"ManPage", "--man-page", ".SH SYNOPSIS\n"}),
                         [](const auto & row) { return std::string(row.param.name); });

/// Options, and what the console says and does not say of them.
struct Option {
    const char * name;
    const char * argument;
    const char * expected;
    const char * unexpected;
    friend void PrintTo(const Option & row, std::ostream * out) { *out << row.name; }
};
class StartUpOptions : public StartUp, public testing::WithParamInterface<Option> {};

TEST_P(StartUpOptions, AreObeyed) {
    EXPECT_EQ(runWindow({GetParam().argument}), 0);
    EXPECT_THAT(out(), HasSubstr(GetParam().expected));
    EXPECT_THAT(out(), Not(HasSubstr(GetParam().unexpected)));
    EXPECT_TRUE(QFileInfo::exists(logFile()));
    // The language of the command line is that of the run only.
    EXPECT_EQ(QSettings(store(), QSettings::IniFormat).value("LangID").toString(), "");
}
constexpr const char * SPLASH = "Splash screen shown.";
constexpr const char * GERMAN = "Installing translator for language: 'de'.";
INSTANTIATE_TEST_SUITE_P(CommandLine, StartUpOptions,
                         testing::Values(Option{"Splash", "--no-splash=false", SPLASH, GERMAN},
                                         Option{"SplashUnlessTrue", "--no-splash=yes", SPLASH, GERMAN},
                                         Option{"NoSplash", "--no-splash", SHOWN, SPLASH},
                                         Option{"German", "--lang=de", GERMAN, "Translation required for locale:"},
                                         Option{"SystemLanguage", "--no-splash=true",
                                                "Translation required for locale: 'en'.", GERMAN},
                                         Option{"CommandLine", "--cmd-line", "Command line: ", "Options left:"},
                                         Option{"OptionsLeft", "--options-left", "Options left:\n", "Command line: "},
                                         Option{"OptionWithoutValue", "--lang",
                                                "Option '--lang' needs a value: --lang=<en;de;it;...>", GERMAN}),
                         [](const auto & row) { return std::string(row.param.name); });

TEST_F(StartUp, OpensOnlyTheFirstOfTwoProjects) {
    const QString first = makeProject("first.h6p");
    makeProject("second.h6p");
    EXPECT_EQ(runWindow({"--no-splash", "first.h6p", "second.h6p"}), 0);
    EXPECT_EQ(QSettings(store(), QSettings::IniFormat).value("RecentProjects").toStringList(), QStringList{first});
}

TEST_F(StartUp, NamesAProjectThatIsMissingAndGoesOn) {
    EXPECT_EQ(runWindow({"--no-splash", "nowhere.h6p"}, "nowhere.h6p"), 0);
    EXPECT_THAT(out(), HasSubstr("The project file 'nowhere.h6p' does not exist."));
    EXPECT_TRUE(QSettings(store(), QSettings::IniFormat).value("RecentProjects").toStringList().isEmpty());
}

TEST_F(StartUp, RunsWithAHomeThatCannotBeWritten) {
    m_environment.insert("HOME", "/dev/null"); // stops the system administrator too
    EXPECT_EQ(runWindow({"--no-splash"}, "Cannot open/create logfile"), 0);
    EXPECT_THAT(out(), HasSubstr("Cannot create the user data directory '/dev/null/.local/share/Hygrion6'."));
    EXPECT_THAT(out(), HasSubstr("Cannot open/create logfile '/dev/null/.local/share/Hygrion6/Hygrion6.log'."));
    EXPECT_THAT(out(), HasSubstr("Cannot write settings to '/dev/null/"));
}

TEST_F(StartUp, IsNotHeldUpByALockThatAKilledProgramLeft) {
    KOR::writeFile((store() + ".lock").toStdString(), "");
    start({"--no-splash"});
    EXPECT_TRUE(waitFor(SHOWN, 5000));
    m_process.terminate();
    EXPECT_TRUE(m_process.waitForFinished(5000));
}

TEST_F(StartUp, EndsWithOneWhenAFailureEscapes) {
    if (!QFileInfo::exists("/dev/full"))
        GTEST_SKIP() << "there is no /dev/full here";
    m_process.setStandardOutputFile("/dev/full"); // the help page cannot be written
    EXPECT_EQ(run({"--help"}), 1);
}

TEST_F(StartUp, SaysWhatToDoWithoutAScreen) {
    m_environment.remove("QT_QPA_PLATFORM");
    EXPECT_EQ(run({"--no-splash"}), 1);
    EXPECT_THAT(m_process.readAllStandardError().toStdString(), HasSubstr("QT_QPA_PLATFORM=offscreen"));
}

TEST_F(StartUp, EndsWithoutAskingAndLeavesNoLock) {
    const QString project = makeProject("wall.h6p");
    start({"--no-splash=true", project});
    EXPECT_TRUE(waitFor("opened:")) << out();
    EXPECT_TRUE(QFileInfo::exists(m_home.filePath(".wall.h6p.lock")));
    m_process.terminate();
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_FALSE(QFileInfo::exists(m_home.filePath(".wall.h6p.lock")));
    // Killed, it leaves its lock; the next start clears it at once.
    start({"--no-splash=true", project});
    m_out.clear();
    EXPECT_TRUE(waitFor("opened:")) << out();
    m_process.kill();
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_TRUE(QFileInfo::exists(m_home.filePath(".wall.h6p.lock")));
    m_out.clear();
    start({"--no-splash=true", project});
    EXPECT_TRUE(waitFor("opened:")) << out();
    m_process.terminate();
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_THAT(out(), Not(HasSubstr("can only be read")));
    EXPECT_FALSE(QFileInfo::exists(m_home.filePath(".wall.h6p.lock")));
}

} // namespace
