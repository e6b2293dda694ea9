#include "HygDebugApplication.h"

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

bool terminates = false;

#ifdef Q_OS_UNIX
int signalPipe[2] = {-1, -1};

// Only calls that are safe inside a signal handler: the event loop reads the byte and does the work.
void noteSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}
#endif

} // namespace

// The macro must stand outside of classes and namespaces.
static void registerResources() {
    Q_INIT_RESOURCE(hygrion);
}

HygDebugApplication::HygDebugApplication(int & argc, char ** argv) : QApplication(argc, argv) {}

HygDebugApplication::~HygDebugApplication() {
#ifdef Q_OS_UNIX
    if (signalPipe[0] < 0)
        return;
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, SIG_DFL);
    for (int & end : signalPipe) {
        close(end);
        end = -1;
    }
#endif
}

bool HygDebugApplication::prepareScreen(bool onlyPrints, std::string & advice) {
    constexpr const char * PLATFORM = "QT_QPA_PLATFORM";
    if (onlyPrints) {
        qputenv(PLATFORM, "offscreen");
        return true;
    }
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty(PLATFORM)) {
        advice =
            "Hygrion is a program with windows, and there is no screen here: neither DISPLAY nor WAYLAND_DISPLAY is "
            "set.\nStart it on a desktop, log in with 'ssh -X', use 'xvfb-run' for a virtual screen, or set "
            "QT_QPA_PLATFORM=offscreen to run it unseen.";
        return false;
    }
#endif
    return true;
}

void HygDebugApplication::initResources() {
    registerResources();
}

bool HygDebugApplication::notify(QObject * receiver, QEvent * event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const KOR::Exception & ex) {
        ex.report();
    } catch (const std::exception & ex) {
        KOR::message(ex.what(), KOR::MSG_ERROR, "[HygDebugApplication::notify]");
    }
    return false;
}

bool HygDebugApplication::isTerminating() {
    return terminates;
}

void HygDebugApplication::closeOnTerminationSignals() {
#ifdef Q_OS_UNIX
    if (signalPipe[0] >= 0 || pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto * notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [] {
        char byte = 0;
        while (read(signalPipe[0], &byte, 1) == 1) {
        }
        terminates = true;
        closeAllWindows();
        quit();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, noteSignal);
#endif
}
