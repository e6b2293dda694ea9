#include "HygLogFilter.h"

#include <algorithm>

HygLogFilter::HygLogFilter(HygLogModel & model, QObject * parent) : QSortFilterProxyModel(parent) {
    m_isShown.fill(true);
    setSourceModel(&model);
}

void HygLogFilter::setShown(HygLogModel::kind_t kind, bool isShown) {
    m_isShown[kind] = isShown;
    invalidateFilter();
}

void HygLogFilter::setSearch(const QString & text) {
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool HygLogFilter::filterAcceptsRow(int row, const QModelIndex & parent) const {
    const QModelIndex index = sourceModel()->index(row, HygLogModel::TextColumn, parent);
    if (!m_isShown[HygLogModel::kindOf(index.data(HygLogModel::TypeRole).toInt())])
        return false;
    const QString text = index.data(HygLogModel::TextRole).toString();
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const QString & word) { return text.contains(word, Qt::CaseInsensitive); });
}
