#pragma once

#include "HygLogModel.h"

#include <QSortFilterProxyModel>
#include <QStringList>

/// Shows the messages of the kinds that are switched on and that hold every word searched for, in any case.
class HygLogFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit HygLogFilter(HygLogModel & model, QObject * parent = nullptr);

    void setShown(HygLogModel::kind_t kind, bool isShown);
    void setSearch(const QString & text);

    bool filterAcceptsRow(int row, const QModelIndex & parent) const override;

private:
    std::array<bool, HygLogModel::NUM_KINDS> m_isShown;
    QStringList m_words;
};
