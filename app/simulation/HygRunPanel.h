#pragma once

#include <QWidget>

class HygRunList;
class HygRunMonitor;
class QLabel;
class QTableView;
class QToolButton;

/// The runs in a table with what can be done to the selected one.
class HygRunPanel : public QWidget {
    Q_OBJECT
public:
    explicit HygRunPanel(HygRunList & runs, QWidget * parent = nullptr);

    /// The selected run; nullptr without one.
    HygRunMonitor * current() const;
    void select(int row);

signals:
    void currentChanged(HygRunMonitor * run);
    void screenLogRequested(const QString & path);

protected:
    void changeEvent(QEvent * event) override;

private:
    void update();
    void retranslate();
    void togglePause();
    void stop();

    HygRunList & m_runs;
    QLabel * m_heading;
    QTableView * m_table;
    QLabel * m_story;
    QToolButton * m_pause;
    QToolButton * m_stop;
    QToolButton * m_log;
    QToolButton * m_remove;
};
