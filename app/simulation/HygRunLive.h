#pragma once

#include <QDateTime>
#include <QWidget>

#include <vector>

class HygResultChart;
class QCheckBox;
class QGridLayout;
class QLabel;
class QMenu;
class QTimer;
class QToolButton;

/// Result files of a run as they grow, one chart a file: the course, or the profile or field at the newest time.
class HygRunLive : public QWidget {
    Q_OBJECT
public:
    /// Charts that can be shown at once.
    static constexpr int MAX_CHARTS = 6;

    explicit HygRunLive(QWidget * parent = nullptr);

    /// The output directory of a run; empty: none.
    void setDirectory(const QString & directory);
    /// Names of the result files without extension, "Temperature field". Those that are not there yet are shown when
    /// they come. Kept from run to run.
    void choose(const QStringList & names);
    const QStringList & chosen() const { return m_chosen; }
    /// One a chosen file that is there, in the order in which they were chosen.
    std::vector<HygResultChart *> charts() const;
    /// Shows what has been written since; done by itself every second while the widget is visible.
    void refresh();

signals:
    void chosenChanged();

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    struct Pane {
        QString path;
        QWidget * widget;
        HygResultChart * chart;
    };

    void listFiles();
    void fillMenu();
    void setChosen(const QString & name, bool on);
    void openFiles();
    void showNewest();
    void retranslate();

    QString m_directory;
    QDateTime m_changed; ///< of the results' directory, when the files were listed
    QStringList m_paths;
    QStringList m_chosen;
    std::vector<Pane> m_panes;
    QLabel * m_label;
    QToolButton * m_files;
    QMenu * m_menu;
    QCheckBox * m_overTime;
    QLabel * m_time;
    QGridLayout * m_grid;
    QLabel * m_empty; ///< what stands in place of charts
    QTimer * m_timer;
};
