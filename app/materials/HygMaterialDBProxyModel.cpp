#include "materials/HygMaterialDBProxyModel.h"

#include "materials/HygMaterialDBTableModel.h"

#include <QColor>

#include <algorithm>

namespace {

using Model = HygMaterialDBTableModel;

/// A wildcard pattern as a regular expression that may be found anywhere.
QString fromWildcard(const QString & word) {
    QString pattern;
    for (int i = 0; i < word.size(); ++i) {
        const QChar c = word[i];
        const int close = c == QLatin1Char('[') ? word.indexOf(QLatin1Char(']'), i + 2) : -1;
        if (c == QLatin1Char('*')) {
            pattern += QStringLiteral(".*");
        } else if (c == QLatin1Char('?')) {
            pattern += QLatin1Char('.');
        } else if (close > 0) {
            QString set = word.mid(i + 1, close - i - 1);
            set.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('['), QStringLiteral("\\["));
            if (set.startsWith(QLatin1Char('!')))
                set[0] = QLatin1Char('^');
            pattern += QLatin1Char('[') + set + QLatin1Char(']');
            i = close;
        } else {
            pattern += QRegularExpression::escape(QString(c));
        }
    }
    return pattern;
}

} // namespace

bool HygMaterialDBProxyModel::Word::isIn(const QString & where) const {
    return isPattern ? pattern.match(where).hasMatch() : where.contains(text, Qt::CaseInsensitive);
}

HygMaterialDBProxyModel::HygMaterialDBProxyModel(QObject * parent) : QSortFilterProxyModel(parent) {
    setSortRole(Model::SortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setSortLocaleAware(true);
}

void HygMaterialDBProxyModel::setCategory(int category) {
    m_category = category;
    invalidateFilter();
}

void HygMaterialDBProxyModel::setSearch(const QString & text) {
    m_words.clear();
    const QStringList words = text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    for (const QString & given : words) {
        Word word;
        word.text = given;
        word.isPattern = given.contains(QRegularExpression(QStringLiteral("[*?\\[]")));
        if (word.isPattern) {
            word.pattern = QRegularExpression(fromWildcard(given), QRegularExpression::CaseInsensitiveOption);
            word.isPattern = word.pattern.isValid();
        }
        m_words.push_back(std::move(word));
    }
    invalidateFilter();
}

void HygMaterialDBProxyModel::setMarks(int marks) {
    m_marks = marks;
    invalidateFilter();
}

bool HygMaterialDBProxyModel::filterAcceptsRow(int row, const QModelIndex &) const {
    const auto & model = static_cast<const Model &>(*sourceModel());
    const HygMaterialDBEntry & entry = model.entry(row);
    if (m_category != ALL_CATEGORIES &&
        std::find(entry.categories.begin(), entry.categories.end(), m_category) == entry.categories.end())
        return false;
    if (m_marks != 0) {
        const bool isProblem = !entry.isReadable() || model.isDouble(row);
        const bool isUser = entry.origin == HygMaterialDBEntry::User;
        const bool isFavourite = model.isFavourite(row);
        if (!((m_marks & Problems) != 0 && isProblem) && !((m_marks & UserMaterials) != 0 && isUser) &&
            !((m_marks & Favourites) != 0 && isFavourite))
            return false;
    }
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const Word & word) { return word.isIn(model.name(row)) || word.isIn(model.producer(row)); });
}

QVariant HygMaterialDBProxyModel::data(const QModelIndex & index, int role) const {
    if (role == Qt::BackgroundRole || role == Qt::ForegroundRole) {
        const bool isCompared = QSortFilterProxyModel::data(index, Model::ComparedRole).toBool();
        const bool isUser = QSortFilterProxyModel::data(index, Model::UserRole).toBool();
        if (isCompared || isUser) // the backgrounds are light ones in every theme
            return QColor(role == Qt::ForegroundRole ? TEXT_COLOR : isCompared ? COMPARED_COLOR : USER_COLOR);
    }
    return QSortFilterProxyModel::data(index, role);
}
