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

#ifdef Q_OS_UNIX
int signalPipe[2] = {-1, -1};

// Only calls that are safe inside a signal handler: the event loop reads the byte and does the work.
void noteSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}
#endif

} // namespace

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

void HygDebugApplication::closeOnTerminationSignals() {
#ifdef Q_OS_UNIX
    if (signalPipe[0] >= 0 || pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto * notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [] {
        char byte = 0;
        while (read(signalPipe[0], &byte, 1) == 1) {
        }
        closeAllWindows();
        quit();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, noteSignal);
#endif
}
