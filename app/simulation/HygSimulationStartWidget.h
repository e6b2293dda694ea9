#pragma once

#include "simulation/HygRunOptions.h"

#include <QWidget>

#include <functional>

class HygProjectHandler;
class HygSettings;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
namespace QtExt {
class ValueEdit;
}

/// Options of a run, the command line that follows from them, and the buttons that start the solver with it.
class HygSimulationStartWidget : public QWidget {
    Q_OBJECT
public:
    enum mode_t { Normal, Continue, TestInit };

    HygSimulationStartWidget(HygProjectHandler & projects, HygSettings & settings, QWidget * parent = nullptr);

    /// What saves the project if it is modified or has no file; returns whether it is on the disk now.
    void setSaveProject(std::function<bool()> save) { m_saveProject = std::move(save); }

    /// What is asked before anything is done for a run; returns whether to go on.
    void setConfirm(std::function<bool()> confirm) { m_confirm = std::move(confirm); }

    const QString & solverExecutable() const { return m_solverExecutable; }
    const QStringList & commandLineOptions() const { return m_options; }

    /// Saves the project, prepares the output directory and starts the solver. What stands in the way is told in a
    /// message box. Returns whether the solver was started.
    bool start(mode_t mode);

public slots:
    void updateCommandLine();
    void onVerbosityLevelChanged(int level);
    /// Asks for the screen log of the project to be shown.
    void on_pushButtonShowScreenLog_clicked();

signals:
    /// Just before the solver starts.
    void aboutToStart(const QString & outputDirectory, int mode);
    /// \param process its number; 0: it could not be started
    /// \param outputFile what the solver writes on the screen
    void started(const QString & outputDirectory, int mode, qint64 process, const QString & outputFile);
    void screenLogRequested(const QString & path);

protected:
    void changeEvent(QEvent * event) override;

private:
    void setUpControls();
    void retranslate();
    void updateThreads();
    void updateOffers();
    bool refuse(const QString & text);
    /// Asks what is to become of results. \return the mode to start with, or nothing when the user cancels or the
    /// results cannot be removed
    bool prepareResults(mode_t & mode);

    HygProjectHandler & m_projects;
    HygSettings & m_settings;
    std::function<bool()> m_saveProject;
    std::function<bool()> m_confirm;
    HygRunOptions m_runOptions;
    QString m_solverExecutable;
    QStringList m_options;

    QGroupBox * m_group;
    QRadioButton * m_classicalSolver;
    QRadioButton * m_modernSolver;
    std::vector<QCheckBox *> m_flags; ///< in the order of HygRunOptions::flags()
    QLabel * m_verbosityLabel;
    QComboBox * m_verbosity;
    QLabel * m_restartLabel;
    QtExt::ValueEdit * m_restartPeriod;
    QLabel * m_threadsLabel;
    QLineEdit * m_threads;
    QLabel * m_commandLineLabel;
    QPlainTextEdit * m_commandLine;
    QPushButton * m_start;
    QPushButton * m_test;
    QPushButton * m_showScreenLog;
};
