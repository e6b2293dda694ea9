#include "HygDebugApplication.h"
#include "HygSettings.h"
#include "simulation/HygSolverProcess.h"
#include "solverui/HygSolverWindow.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/ArgParser.h>
#include <KOR/Exception.h>

#include <QIcon>

#include <iostream>

/// HygrionSolverUI.exe: the solver in a window. Its command line and exit codes are those of the console program.
int main(int argc, char * argv[]) {
    using SOLVER::exit_t;
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    KOR::ArgParser parser;
    parser.setAppName("HygrionSolverUI.exe");
    SOLVER::SolverOptions::define(parser);
    SOLVER::SolverOptions options;
    try {
        parser.parse(argc, argv);
        if (parser.flag("version")) {
            std::cout << "HygrionSolverUI " HYG_VERSION "\n";
            return 0;
        }
        if (parser.handleDefaultFlags(std::cout))
            return 0;
        options = SOLVER::SolverOptions::read(parser);
    } catch (const KOR::Exception & ex) {
        std::cerr << ex.what() << "\nHelp: HygrionSolverUI.exe --help\n";
        return static_cast<int>(exit_t::USAGE);
    }
    if (std::string advice; !HygDebugApplication::prepareScreen(false, advice)) {
        std::cerr << advice << std::endl;
        return static_cast<int>(exit_t::FAILED);
    }
    HygDebugApplication app(argc, argv);
    HygDebugApplication::initResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gfx/hygrion_icon_black_48x48.png")));
    QCoreApplication::setApplicationName(QStringLiteral("Hygrion 6.1"));
    QGuiApplication::setDesktopFileName(QStringLiteral("hygrion"));
    HygSettings settings{QStringLiteral("KOR"), QStringLiteral("Hygrion 6.1")};
    settings.setDefaults();
    settings.read();
    settings.setLangIdOfRun(qEnvironmentVariable(HygSolverProcess::LANGUAGE_VARIABLE));
    settings.setInstallationDirectory(QCoreApplication::applicationDirPath());
    QtExt::Palette::apply(settings.m_theme);
    QtExt::LanguageHandler languages(settings.directory(HygSettings::DIR_INSTALLATION) + "/translations", "hygrion");
    languages.install(settings);

    HygSolverWindow window(options);
    app.closeOnTerminationSignals(); // which ends the run as a click on "Stop" does
    window.show();
    window.start();
    QApplication::exec();
    return static_cast<int>(window.waitForEnd());
}
