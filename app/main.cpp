#include "HygDebugApplication.h"
#include "HygMainWindow.h"
#include "HygMessageHandler.h"
#include "HygSettings.h"
#include "views/HygLogModel.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/ArgParser.h>
#include <KOR/Directories.h>
#include <KOR/Exception.h>
#include <KOR/Path.h>

#include <QFont>
#include <QIcon>
#include <QSplashScreen>
#include <QTimer>

#include <iostream>
#include <optional>

namespace {

constexpr const char * ORGANISATION = "KOR";
constexpr const char * DISPLAY_NAME = "Hygrion 6.1";
constexpr const char * VIEW = "view"; ///< option
constexpr int SPLASH_MS = 5000;
constexpr int SHOW_DELAY_MS = 10;

void printQtMessage(QtMsgType, const QMessageLogContext &, const QString & text) {
    std::cout << text.toStdString() << std::endl;
}

/// True if the command line only asks for a text, which needs no screen.
bool onlyPrints(int argc, char * argv[]) {
    KOR::ArgParser parser;
    try {
        parser.parse(argc, argv);
    } catch (const KOR::Exception &) {
        // Reported when the command line is parsed for good.
    }
    return parser.flag("help") || parser.flag("man-page");
}

void applyFontSize(const HygSettings & settings) {
    if (settings.m_fontPointSize == 0)
        return;
    QFont font = QApplication::font();
    font.setPointSize(static_cast<int>(settings.m_fontPointSize));
    QApplication::setFont(font);
}

/// Takes over the arguments. What is wrong with them is handed back, and the program goes on without it.
std::optional<KOR::Exception> parseArguments(KOR::ArgParser & parser, int argc, char * argv[]) {
    QtExt::Settings::addOptions(parser);
    parser.addOption(0, VIEW, "Shows this view once the project is open.", "construction|simulation|results|...", "");
    parser.setAppName(DISPLAY_NAME);
    parser.setArguments("[project file]", "The project to be opened (*.h6p).");
    try {
        parser.parse(argc, argv);
    } catch (const KOR::Exception & ex) {
        return ex;
    }
    return std::nullopt;
}

/// Creates the user data directory; a failure is handed back.
std::optional<KOR::Exception> makeUserDataDirectory(const HygSettings & settings) {
    const QString directory = settings.directory(HygSettings::DIR_USER_DATA);
    try {
        KOR::Path(directory.toStdString()).makePath();
    } catch (const KOR::Exception & ex) {
        return KOR::Exception(ex, KOR::text("Cannot create the user data directory '%1'.", directory.toStdString()),
                              "[main]");
    }
    return std::nullopt;
}

/// Opens the log file; the reason of a failure, else an empty text.
std::string openLogFile(HygMessageHandler & handler, const HygSettings & settings) {
    const std::string path = settings.directory(HygSettings::DIR_USER_DATA).toStdString() + '/' +
                             KOR::directories::APPLICATION_NAME + ".log";
    std::string problem;
    handler.setConsoleLogLevel(settings.m_userLogLevelConsole);
    handler.setLogfileLogLevel(settings.m_userLogLevelLogfile);
    if (!handler.openLogFile(path, false, problem))
        KOR::message(problem, KOR::MSG_ERROR, "[main]");
    return problem;
}

std::unique_ptr<QSplashScreen> showSplash() {
    const QPixmap picture(QStringLiteral(":/gfx/splashscreen/Hygrion_SplashScreen.png"));
    auto splash = std::make_unique<QSplashScreen>(picture, Qt::WindowStaysOnTopHint);
    splash->show();
    KOR::message("Splash screen shown.\n", KOR::MSG_PROGRESS, "[main]", 3);
    QTimer::singleShot(SPLASH_MS, splash.get(), &QWidget::close);
    return splash;
}

/// The message handler of the editor is the process-wide one while this lives.
struct Registration {
    explicit Registration(HygMessageHandler & handler) {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&handler);
    }
    ~Registration() { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    Registration(const Registration &) = delete;
    Registration & operator=(const Registration &) = delete;
};

} // namespace

int main(int argc, char * argv[]) {
    QCoreApplication::setAttribute(Qt::AA_DisableWindowContextHelpButton);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    if (std::string advice; !HygDebugApplication::prepareScreen(onlyPrints(argc, argv), advice)) {
        std::cerr << advice << std::endl;
        return 1;
    }

    HygDebugApplication app(argc, argv);
    qInstallMessageHandler(printQtMessage);
    HygDebugApplication::initResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gfx/hygrion_icon_black_48x48.png")));
    QCoreApplication::setApplicationName(QLatin1String(DISPLAY_NAME));
    QCoreApplication::setApplicationVersion(QStringLiteral(HYG_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("hygrion"));
    app.closeOnTerminationSignals();

    // Messages may come until the windows are gone.
    HygMessageHandler handler;
    std::optional<Registration> registration;
    std::unique_ptr<QSplashScreen> splash;
    try {
        HygSettings settings{QLatin1String(ORGANISATION), QLatin1String(DISPLAY_NAME)};
        settings.setDefaults();
        settings.read();
        settings.setInstallationDirectory(QCoreApplication::applicationDirPath());
        applyFontSize(settings);
        QtExt::Palette::apply(settings.m_theme);

        KOR::ArgParser parser;
        const std::optional<KOR::Exception> argumentProblem = parseArguments(parser, argc, argv);
        if (parser.handleDefaultFlags(std::cout))
            return 0;
        settings.applyCommandLine(parser);
        if (parser.hasOption(VIEW))
            settings.m_initialView = QString::fromStdString(parser.option(VIEW));

        const std::optional<KOR::Exception> directoryProblem = makeUserDataDirectory(settings);

        HygLogModel messages;
        QObject::connect(&handler, &HygMessageHandler::msgReceived, &messages, &HygLogModel::append);
        registration.emplace(handler);
        for (const auto & problem : {argumentProblem, directoryProblem})
            if (problem)
                problem->report();
        const std::string logProblem = openLogFile(handler, settings);

        QtExt::LanguageHandler languages(settings.directory(HygSettings::DIR_INSTALLATION) + "/translations",
                                         "hygrion");
        languages.install(settings);

        if (!settings.m_noSplash)
            splash = showSplash();

        auto window = std::make_unique<HygMainWindow>(settings, languages, messages);
        for (const auto & problem : {argumentProblem, directoryProblem})
            if (problem)
                window->showProblem(QString::fromUtf8(problem->what()));
        if (!logProblem.empty())
            window->showProblem(QString::fromStdString(logProblem));
        QTimer::singleShot(SHOW_DELAY_MS, window.get(), [&] {
            window->showMaximized();
            if (splash)
                splash->raise();
        });

        const int result = QApplication::exec();
        window.reset();
        settings.writeOrLog();
        splash.reset();
        return result;
    } catch (const KOR::Exception & ex) {
        ex.report();
    }
    return 1;
}
