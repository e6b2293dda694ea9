#pragma once

#include <QDateTime>
#include <QWidget>

class HygResultChart;
class QCheckBox;
class QComboBox;
class QLabel;
class QTimer;

/// A result file of a run as it grows: the course, or the profile or field at the newest time.
class HygRunLive : public QWidget {
    Q_OBJECT
public:
    explicit HygRunLive(QWidget * parent = nullptr);

    /// The output directory of a run; empty: none.
    void setDirectory(const QString & directory);
    HygResultChart & chart() { return *m_chart; }
    /// Shows what has been written since; done by itself every second while the widget is visible.
    void refresh();

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    void listFiles();
    void openFile();
    void showNewest();
    void retranslate();

    QString m_directory;
    QDateTime m_changed; ///< of the results' directory, when the files were listed
    QLabel * m_label;
    QComboBox * m_file;
    QCheckBox * m_overTime;
    QLabel * m_time;
    HygResultChart * m_chart;
    QTimer * m_timer;
};
