#include "document/HygBackground.h"

#include <QApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QProgressDialog>
#include <QTimer>
#include <QtConcurrent>

#include <exception>
#include <memory>

namespace {

constexpr int BOX_DELAY_MS = 300;

int running = 0; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

struct Count {
    Count() { ++running; }
    ~Count() { --running; }
    Count(const Count &) = delete;
    Count & operator=(const Count &) = delete;
};

bool wait(const QString & text, const std::function<void()> & work, bool isCancellable) {
    const Count count;
    const auto failure = std::make_shared<std::exception_ptr>();
    QFutureWatcher<void> watcher;
    QEventLoop loop;
    QObject::connect(&watcher, &QFutureWatcher<void>::finished, &loop, &QEventLoop::quit);
    watcher.setFuture(QtConcurrent::run([work, failure] {
        try {
            work();
        } catch (...) {
            *failure = std::current_exception();
        }
    }));
    QTimer::singleShot(BOX_DELAY_MS, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!watcher.isFinished()) {
        QProgressDialog box(text, isCancellable ? QProgressDialog::tr("Cancel") : QString(), 0, 0,
                            QApplication::activeWindow());
        box.setObjectName(QStringLiteral("backgroundWork"));
        box.setWindowTitle(QCoreApplication::applicationName());
        box.setWindowModality(Qt::ApplicationModal);
        QObject::connect(&box, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
        box.show();
        loop.exec(isCancellable ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
        if (box.wasCanceled() && isCancellable)
            return false;
    }
    watcher.waitForFinished(); // the program may be about to end
    if (*failure)
        std::rethrow_exception(*failure);
    return true;
}

} // namespace

void HygBackground::run(const QString & text, const std::function<void()> & work) {
    wait(text, work, false);
}

bool HygBackground::runCancellable(const QString & text, const std::function<void()> & work) {
    return wait(text, work, true);
}

bool HygBackground::isBusy() {
    return running > 0;
}
