#pragma once

#include <SOLVER/Simulation.h>
#include <SOLVER/SimulationRun.h>
#include <SOLVER/SolverOptions.h>

#include <QDateTime>
#include <QWidget>

#include <mutex>

class HygRunLive;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QThread;
class QTimer;

/// The window of the solver: runs a project in a thread of its own and shows its progress, the work of the integrator
/// and the results as they grow.
class HygSolverWindow : public QWidget {
    Q_OBJECT
public:
    explicit HygSolverWindow(SOLVER::SolverOptions options, QWidget * parent = nullptr);
    ~HygSolverWindow() override;

    /// Starts the run.
    void start();
    bool isRunning() const { return m_thread != nullptr; }
    /// Of the simulated time that is done; 0 before it begins.
    double share();
    /// Lets the run end, if it has not yet, and tells how it did.
    SOLVER::exit_t waitForEnd();

public slots:
    /// Lets the solver write a restart file and end.
    void stop();

signals:
    void ended();

protected:
    void closeEvent(QCloseEvent * event) override;

private:
    /// What the calculating thread has to tell.
    struct State {
        SOLVER::Simulation::Progress progress;
        SOLVER::IntegratorStatistics statistics;
        std::string limit;
        bool hasBegun = false;
    };

    void observe(const SOLVER::Simulation & simulation);
    void showState();
    void finish();

    SOLVER::SolverOptions m_options;
    std::atomic<bool> m_stop = false;
    SOLVER::exit_t m_result = SOLVER::exit_t::FAILED;
    std::mutex m_mutex;
    State m_state; ///< guarded by the mutex
    QThread * m_thread = nullptr;
    QDateTime m_started;
    double m_startShare = -1; ///< of the simulated time when the run began; below 0 until it has
    QLabel * m_heading;
    QProgressBar * m_progress;
    QLabel * m_times;
    QTableWidget * m_statistics;
    HygRunLive * m_live;
    QPushButton * m_button;
    QTimer * m_timer;
};
