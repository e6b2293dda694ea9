#pragma once

#include "construction/HygConstructionEditor.h"
#include "construction/HygMaterialOffer.h"

#include <QWidget>

class HygConstructionCanvas;
class HygLayerModel;
class QLabel;
class QTableView;
class QToolButton;

/// The table of layers: material and thickness are typed in place, the order is changed by dragging.
class HygLayerPanel : public QWidget {
    Q_OBJECT
public:
    HygLayerPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, HygMaterialOffer & offer,
                  QWidget * parent = nullptr);

    void updateLayers();
    /// Marks the layers of the selection.
    void updateSelection();
    const HygLayerModel & model() const { return *m_model; }

signals:
    void layerRequested();

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void retranslate();
    void updateButtons();
    void move(int step);
    void moveLayer(int layer, int before);
    void removeLayer();
    int currentLayer() const;

    HygConstructionEditor & m_editor;
    HygConstructionCanvas & m_canvas;
    HygLayerModel * m_model;
    QTableView * m_table;
    QLabel * m_total;
    QToolButton * m_add;
    QToolButton * m_remove;
    QToolButton * m_up;
    QToolButton * m_down;
    bool m_isFollowing = false; ///< the table is following the drawing
};
