#include "src/Program.h"

#include <QApplication>

#include <cstdio>
#include <exception>

int main(int argc, char ** argv) {
    // Pictures look the same everywhere, whatever screen, scale and style there are.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char * variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_STYLE_OVERRIDE", "QT_FONT_DPI"})
        qunsetenv(variable);
    // What the toolkit says about screens and sessions is no concern of ours.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString & text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    try {
        const QApplication application(argc, argv);
        return PLOT::run({argv + (argc > 0 ? 1 : 0), argv + argc});
    } catch (const std::exception & ex) { // commands report their own failures; this is memory that ran out
        std::fprintf(stderr, "hygrion-plot: %s\n", ex.what());
    }
    return 1;
}
