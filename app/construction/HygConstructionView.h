#pragma once

#include "construction/HygConstructionCanvas.h"
#include "construction/HygConstructionEditor.h"
#include "construction/HygSelectionHistory.h"

#include <QWidget>

#include <memory>

namespace QtExt {
class ValueEdit;
}
class HygAssignPanel;
class HygAssignmentPanel;
class HygChipRow;
class HygConstructionActions;
class HygConstructionStart;
class HygHintBar;
class HygLayerPanel;
class HygMaterialOffer;
class HygMessageBar;
class HygProjectHandler;
class HygProjectMaterialFiles;
class QLabel;
class QSlider;
class QSplitter;
class QTabWidget;
class QToolBar;

/// The view of the construction: drawing, tools, and the panels that change it.
class HygConstructionView : public QWidget {
    Q_OBJECT
public:
    explicit HygConstructionView(HygProjectHandler * projects, QWidget * parent = nullptr);
    ~HygConstructionView() override;

    HygConstructionCanvas & canvas() { return *m_canvas; }
    HygConstructionEditor & editor() { return *m_editor; }

public slots:
    /// Selects what a check of the project names: the cells of an assignment, of a definition those it acts on.
    void showPlace(const QString & place);

protected:
    void changeEvent(QEvent * event) override;
    void showEvent(QShowEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    friend class HygConstructionActions; // what they do
    void setUpCanvas();
    void retranslate();
    void fitPanels();
    void updateScene(bool isNewProject);
    void updateActions();
    /// After a step of undo: selects what was selected before it, or what has become of it.
    void followUndo();
    void updateSummary();
    /// Shows what is known of the files of the materials.
    void updateProblems();
    void replaceMaterial(std::size_t index);
    void updateMarks();
    void showDefinition(int kind, const QString & name);
    void assignFile(const QString & path, const std::vector<HYGRION::Range> & ranges);
    void projectModified(int code, void * data);

    void insertCells(unsigned int dir, bool isAfter);
    void splitCells(unsigned int dir);
    void mergeCells(unsigned int dir);
    void deleteCells(unsigned int dir);
    void mirrorCells(unsigned int dir);
    void copyCells();
    void cutCells();
    void pasteCells();
    void clearCells();
    void closeWidthEdit();
    void askWidth(Qt::Orientation orientation, std::size_t first, std::size_t last);
    void addLayer();
    void discretize();
    void startDetail();
    void setEquidistant(bool on);
    void setGridLines(bool on);
    void setPlane(int plane);

    HygProjectHandler & m_projects;
    HygProjectMaterialFiles & m_files;
    HygConstructionEditor * m_editor;
    HygConstructionCanvas * m_canvas;
    HygMaterialOffer * m_offer;
    HygAssignPanel * m_assignPanel;
    HygLayerPanel * m_layerPanel;
    HygAssignmentPanel * m_assignmentPanel;
    HygHintBar * m_hintBar;
    HygConstructionStart * m_start;
    std::unique_ptr<HygConstructionActions> m_actions;
    QToolBar * m_tools;
    QSplitter * m_splitter;
    QTabWidget * m_panels;
    QSlider * m_planeSlider;
    QLabel * m_planeLabel;
    QLabel * m_summary;
    HygMessageBar * m_message;
    QtExt::ValueEdit * m_widthEdit = nullptr;
    HygChipRow * m_switches;
    HygSelectionHistory m_history;
    bool m_isOutdated = true; ///< the project has changed while the view was hidden
    bool m_isNewProject = true;
};
