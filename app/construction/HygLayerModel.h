#pragma once

#include "construction/HygConstructionScene.h"

#include <QAbstractTableModel>

/// The layers of a construction of one row, a row a layer, from the outside. Edits are only asked for, by signals.
class HygLayerModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t { MaterialColumn, ThicknessColumn, CellsColumn, NUM_COLUMNS };
    static constexpr const char * MIME_TYPE = "application/x-hygrion-layer";

    /// Columns of the grid.
    struct Layer {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::int32_t material = HygCellPlane::NO_MATERIAL;
        bool operator==(const Layer &) const = default;
    };

    explicit HygLayerModel(const HygConstructionScene & scene, QObject * parent = nullptr);

    /// Reads the layers of the scene; empty if it is no stack.
    void update();
    const std::vector<Layer> & layers() const { return m_layers; }

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    QMimeData * mimeData(const QModelIndexList & indexes) const override;
    bool dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
                      const QModelIndex & parent) override;

signals:
    /// The layer is to stand before another one, or behind the last.
    void moveRequested(int layer, int before);

private:
    const HygConstructionScene & m_scene;
    std::vector<Layer> m_layers;
};
