#pragma once

#include <QAbstractTableModel>

class HygProjectHandler;

/// The outputs of the project, one a row in the order of the project's list.
class HygOutputModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t {
        NameColumn,
        QuantityColumn,
        UnitColumn,
        PlaceColumn,
        SpaceColumn,
        TimeColumn,
        ScheduleColumn,
        NUM_COLUMNS
    };

    explicit HygOutputModel(const HygProjectHandler & projects, QObject * parent = nullptr);

    /// Reads the project anew.
    void update();

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const HygProjectHandler & m_projects;
    std::vector<QString> m_places; ///< by row; empty: nowhere
};
