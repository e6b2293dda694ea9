#pragma once

#include "simulation/HygRunMonitor.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

/// The runs of this user, newest first: those of now and those that an earlier session of the editor started. The list
/// is kept in a file, so that a run is found again whatever became of the editor.
class HygRunList : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t { Project, State, Progress, Simulated, Speed, End, NUM_COLUMNS };
    /// Of the column Progress: percent done.
    static constexpr int PercentRole = Qt::UserRole;

    /// \param storePath file of the list; empty: it is not kept
    explicit HygRunList(QString storePath, QObject * parent = nullptr);

    /// Takes a run over; one of the same kind in the same directory is replaced. \return its row
    int add(HygRunMonitor::Run run);
    /// Finds a run that somebody else started in the directory of a project.
    void attach(const QString & projectFile);
    /// Takes a run out of the list; the run itself goes on.
    void remove(int row);
    HygRunMonitor * at(int row) const;
    /// \param isTest tests of the set-up stand in rows of their own
    int rowOf(const QString & directory, bool isTest = false) const;

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    static QString stateText(HygRunMonitor::state_t state);

signals:
    void runChanged(HygRunMonitor * run);
    void runEnded(HygRunMonitor * run);

private:
    void insert(HygRunMonitor::Run run);
    void read();
    void write() const;

    QString m_storePath;
    std::vector<std::unique_ptr<HygRunMonitor>> m_runs;
};
