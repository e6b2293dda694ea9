#pragma once

#include <QApplication>

/// The application object. A failure that escapes an event handler is logged and the program goes on.
class HygDebugApplication : public QApplication {
    Q_OBJECT
public:
    HygDebugApplication(int & argc, char ** argv);
    ~HygDebugApplication() override;

    bool notify(QObject * receiver, QEvent * event) override;

    /// Lets the termination signals of the system close the windows, so that settings and window state are stored.
    void closeOnTerminationSignals();
};
