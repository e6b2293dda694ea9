#pragma once

#include <QApplication>

#include <string>

/// The application object. A failure that escapes an event handler is logged and the program goes on.
class HygDebugApplication : public QApplication {
    Q_OBJECT
public:
    HygDebugApplication(int & argc, char ** argv);
    ~HygDebugApplication() override;

    /// Makes sure that Qt finds a screen, before the application object exists. What only prints a text needs none.
    /// False if there is no screen; \p advice then says what the user can do.
    static bool prepareScreen(bool onlyPrints, std::string & advice);
    /// Registers the icons and pictures, which lie in a library.
    static void initResources();

    bool notify(QObject * receiver, QEvent * event) override;

    /// Lets the termination signals of the system close the windows, so that settings and window state are stored.
    void closeOnTerminationSignals();
    /// Whether such a signal has come: windows close without asking.
    static bool isTerminating();
};
