#pragma once

#include "construction/HygConstructionScene.h"

#include <QAbstractTableModel>

#include <optional>

/// All assignments, a row each, in their order. Columns, rows and planes count from 1 as the user sees them; another
/// range is only asked for, by changeRequested().
class HygAssignmentModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t {
        TypeColumn,
        DefinitionColumn,
        PlaceColumn,
        FirstColumn,
        LastColumn,
        FirstRow,
        LastRow,
        FirstPlane,
        LastPlane,
        NameColumn,
        NUM_COLUMNS
    };

    explicit HygAssignmentModel(const HygConstructionScene & scene, QObject * parent = nullptr);

    /// The material of the project whose file cannot be used, by a row's definition; nothing for others.
    std::optional<std::size_t> unusableMaterial(int row) const;
    /// Reads the assignments of the scene's project anew.
    void update();

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role) const override;
    bool setData(const QModelIndex & index, const QVariant & value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;

signals:
    void changeRequested(int row, const HYGRION::Assignment & changed);

private:
    const HYGRION::Assignment & assignment(int row) const;

    const HygConstructionScene & m_scene;
    int m_count = 0;
};
