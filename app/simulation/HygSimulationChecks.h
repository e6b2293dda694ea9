#pragma once

#include <HYGRION/Project.h>

#include <QWidget>

#include <atomic>
#include <memory>
#include <vector>

class HygProjectHandler;
class QLabel;
class QListWidget;
class QThread;
class QTimer;

/// What would stop or spoil a run, before it starts. A click leads to the place.
class HygSimulationChecks : public QWidget {
    Q_OBJECT
public:
    struct Finding {
        enum severity_t { ERROR, WARNING } severity = ERROR;
        QString place;        ///< the definition, "interface 'Outside'"; may be empty
        QString message;      ///< of the library as it is, of the editor in the user's language
        QString setting = {}; ///< object name of the field of the settings in which it is mended, if known
        bool operator==(const Finding &) const = default;
    };

    explicit HygSimulationChecks(HygProjectHandler & projects, QWidget * parent = nullptr);
    ~HygSimulationChecks() override;

    /// The findings about a project: its own check, its materials and climate files, its outputs and time.
    /// Reads files; for any thread. \param isStopped ends it early when it becomes true
    static std::vector<Finding> check(const HYGRION::Project & project, const std::atomic<bool> & isStopped);

    /// A finding in the user's language.
    static QString text(const Finding & finding);

    const std::vector<Finding> & findings() const { return m_findings; }
    bool isBusy() const { return m_thread != nullptr; }

signals:
    void checked();
    /// \param place, setting as in Finding
    void placeRequested(const QString & place, const QString & setting);

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;

private:
    void start();
    void finish();
    void showFindings();
    void retranslate();

    HygProjectHandler & m_projects;
    QLabel * m_heading;
    QListWidget * m_list;
    QTimer * m_delay; ///< after a change, so that a series of edits is checked once
    QThread * m_thread = nullptr;
    std::atomic<bool> m_isStopped = false;
    bool m_isStale = true;
    std::vector<Finding> m_findings;
    std::shared_ptr<std::vector<Finding>> m_result; ///< written by the thread, read after its end
};
