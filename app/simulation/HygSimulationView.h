#pragma once

#include "simulation/HygOutputDirectory.h"

#include <QDateTime>
#include <QWidget>

#include <memory>
#include <optional>

class HygProjectHandler;
class HygRunList;
class HygRunLive;
class HygRunMonitor;
class HygRunPanel;
class HygScreenLogView;
class HygSimulationChecks;
class HygSimulationStartWidget;
class QAction;
class QTabWidget;

/// The page from which the project is run: start, what stands in the way, the runs, and the settings of model and solver.
class HygSimulationView : public QWidget {
    Q_OBJECT
public:
    explicit HygSimulationView(HygProjectHandler * projects);
    ~HygSimulationView() override;

    HygSimulationStartWidget & startWidget() { return *m_start; }
    HygRunList & runs() { return *m_runs; }
    HygRunLive & live() { return *m_live; }
    void selectRun(int row);
    /// Shows a log in a window of its own and follows it.
    void showScreenLog(const QString & path);

signals:
    /// A finding was clicked whose place is not in this view, "interface 'Outside'", or the view itself is to be shown.
    void placeRequested(const QString & place);

protected:
    void changeEvent(QEvent * event) override;

private:
    void retranslate();
    void goTo(const QString & place, const QString & setting);
    /// Asks when the checks say that the run would be stopped; returns whether to start.
    bool confirmErrors();
    void prepare(const QString & directory, int mode);
    void follow(const QString & directory, int mode, qint64 process, const QString & outputFile);
    void finish(HygRunMonitor * run);
    HygScreenLogView & log();
    void showLog();

    HygProjectHandler & m_projects;
    QTabWidget * m_tabs;
    QAction * m_startAction;
    QAction * m_testAction;
    HygRunList * m_runs;
    HygRunPanel * m_panel;
    HygRunLive * m_live;
    HygSimulationStartWidget * m_start;
    HygSimulationChecks * m_checks;
    std::unique_ptr<HygScreenLogView> m_log;
    QDateTime m_launched;
    std::optional<HygOutputDirectory::Snapshot> m_beforeTest; ///< while the set-up is being tested
    qint64 m_testProcess = 0;
};
