#pragma once

#include "results/HygResultChart.h"
#include "results/HygResultLayout.h"

#include <QDateTime>

class HygMaterialNotice;
class HygProjectHandler;
class HygResultTree;
class HygThresholdField;
class HygTimeBar;
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QMenu;
class QSlider;
class QSpinBox;
class QTimer;
class QToolButton;

/// Results of the project and of others: the tree of files, their charts over time and place, figures and exports.
class HygResultsView : public QWidget {
    Q_OBJECT
public:
    explicit HygResultsView(HygProjectHandler * projects);
    ~HygResultsView() override;

    HygResultTree & tree() { return *m_tree; }
    HygResultChart & chart() { return *m_chart; }
    HygTimeBar & timeBar() { return *m_timeBar; }

    /// Lays measured values over the courses. A table that cannot be read is told.
    void loadMeasured(const QString & path);
    void removeMeasured();
    /// By the extension png, svg, pdf or csv. False, and told, if that fails.
    bool exportChart(const QString & path);
    /// Pictures of all time points, or a film; see HygAnimation.
    void exportAnimation(const QString & path);

    HygResultLayout layoutOf(const QString & name) const;
    void apply(const HygResultLayout & layout);
    /// Keeps what is shown under a name. False, and told, if that fails.
    bool saveLayout(const QString & name);
    std::vector<HygResultLayout> layouts() const;

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    QWidget * makeFiles();
    QWidget * makeOptions();
    void openProject(const QString & projectFile);
    void openChosen();
    void takeOptions();
    /// The threshold in the unit that is shown now; of another quantity there is none.
    void takeThreshold();
    void showEmptyText();
    void showOptions();
    void updateOffers();
    void showTime(std::size_t index);
    void follow();
    void fillUnits();
    void fillLayouts();
    /// Saves after a question if there is one of the name.
    void askForLayout(const QString & name);
    void removeLayout(const QString & name);
    /// \param done what is told with an offer to take it back; empty: nothing. False, and told, if it fails
    bool writeLayouts(const std::vector<HygResultLayout> & all, const QString & done);
    void undoLayouts();
    void fillExport();
    void chooseFolder(bool isProject);
    void retranslate();

    HygProjectHandler & m_projects;
    QString m_outputDirectory;
    HygResultTree * m_tree;
    HygResultChart * m_chart;
    HygTimeBar * m_timeBar;
    QToolButton * m_addFolder;
    QToolButton * m_addProject;
    QToolButton * m_removeFolder;
    QToolButton * m_measured;
    QAction * m_removeMeasured;
    QToolButton * m_export;
    QToolButton * m_layouts;
    QComboBox * m_mode;
    QComboBox * m_unit;
    QSpinBox * m_place;
    QLabel * m_placeText;
    QComboBox * m_normal; ///< of planes through volumes
    QSlider * m_plane;
    QLabel * m_planeText;
    QComboBox * m_cut;
    QSlider * m_cutPlace;
    QLabel * m_cutText;
    HygThresholdField * m_threshold;
    std::vector<QCheckBox *> m_flags;
    QLabel * m_statistics;
    QLabel * m_problems;
    QLabel * m_layoutStory; ///< what has become of a layout
    std::vector<HygResultLayout> m_layoutsBefore;
    HygMaterialNotice * m_materials;
    QTimer * m_timer;
    QDateTime m_folderChanged; ///< when a file last came or went
    bool m_isShowing = false;  ///< controls are being set, not used
};
