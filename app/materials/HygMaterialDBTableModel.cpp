#include "materials/HygMaterialDBTableModel.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialTexts.h"
#include "views/HygLogModel.h"

#include <QDir>
#include <QMimeData>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>

namespace {

struct ColumnRow {
    const char * header;
    const char * toolTip;
};
// clang-format off
constexpr ColumnRow COLUMNS[] = {
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "ID"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Number of the material, from the name of its file")},
    {"", QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Favourites and files with problems")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Name"), nullptr},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Category"), nullptr},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Producer"), nullptr},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Rho [kg/m3]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Bulk density of the dry material; usually 15 to 2500 kg/m³")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "cp [J/kgK]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Specific heat capacity of the dry material; usually 800 to 2500 J/(kg·K)")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Lambda [W/mK]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Thermal conductivity of the dry material; usually 0.02 to 3 W/(m·K), metals up to 400 W/(m·K)")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "µ [---]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Resistance factor to the diffusion of water vapour; from 1 (still air) to 100000 (foils)")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "W80 [kg/m3]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Moisture content in balance with a relative humidity of 80 %; usually 0 to 150 kg/m³")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "WSat [kg/m3]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Moisture content at saturation; usually 50 to 950 kg/m³")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Aw [kg/m2s05]"), QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Water uptake coefficient; usually 0.001 to 0.5 kg/(m²·√s)")},
    {QT_TRANSLATE_NOOP("HygMaterialDBTableModel", "Material file path"), nullptr},
};
// clang-format on
static_assert(std::size(COLUMNS) == HygMaterialDBTableModel::NUM_COLUMNS, "column table and enumeration disagree");

/// Above this number of changes the whole table is set anew, which is faster.
constexpr int MAX_SINGLE_CHANGES = 100;
constexpr int SWATCH = 14;

bool isValueColumn(int column) {
    return column >= HygMaterialDBTableModel::RhoColumn && column <= HygMaterialDBTableModel::AwColumn;
}

double valueOf(const HygMaterialDBEntry & entry, int column) {
    return entry.values[static_cast<std::size_t>(column - HygMaterialDBTableModel::RhoColumn)];
}

/// A square in the colour of the material.
QPixmap swatch(QRgb color) {
    const QString key = QStringLiteral("HygMaterialSwatch%1").arg(color);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(SWATCH, SWATCH);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(128, 128, 128), 1));
        painter.setBrush(QColor(color));
        painter.drawRoundedRect(QRectF(0.5, 0.5, SWATCH - 1, SWATCH - 1), 3, 3);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace

HygMaterialDBTableModel::HygMaterialDBTableModel(QObject * parent) : QAbstractTableModel(parent) {}

QString HygMaterialDBTableModel::favouriteName(const HygMaterialDBEntry & entry) {
    return entry.origin == HygMaterialDBEntry::User ? QStringLiteral("user/") + entry.fileName() : entry.fileName();
}

void HygMaterialDBTableModel::translate(Row & row) const {
    const std::string language = m_language.toStdString();
    const std::string & given = row.entry.name.get(language);
    row.name = given.empty() ? row.entry.fileName() : QString::fromStdString(given);
    row.producer = QString::fromStdString(row.entry.producer.get(language));
    row.category = row.entry.isReadable() ? HygMaterialTexts::category(row.entry.categories[0]) : QString();
}

HygMaterialDBTableModel::Row HygMaterialDBTableModel::makeRow(const HygMaterialDBEntry & entry) const {
    Row row;
    row.entry = entry;
    row.isFavourite = m_favourites.count(favouriteName(entry)) > 0;
    row.isCompared = m_compared.count(entry.path) > 0;
    translate(row);
    return row;
}

void HygMaterialDBTableModel::markDoubles() {
    std::map<unsigned int, int> files;
    for (const Row & row : m_rows)
        ++files[row.entry.id];
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row & row = m_rows[i];
        const bool isDouble = row.entry.id > 0 && files[row.entry.id] > 1;
        if (isDouble == row.isDouble)
            continue;
        row.isDouble = isDouble;
        const int changed = static_cast<int>(i);
        emit dataChanged(index(changed, 0), index(changed, NUM_COLUMNS - 1));
    }
}

void HygMaterialDBTableModel::setScan(HygMaterialDBScanPtr scan) {
    if (!scan)
        return;
    std::size_t known = 0;
    for (const HygMaterialDBEntry & entry : scan->entries)
        known += rowOf(entry.path) >= 0 ? 1 : 0;
    const std::size_t changes = m_rows.size() + scan->entries.size() - 2 * known;
    if (m_rows.empty() || changes > MAX_SINGLE_CHANGES) {
        beginResetModel();
        m_rows.clear();
        m_rows.reserve(scan->entries.size());
        for (const HygMaterialDBEntry & entry : scan->entries)
            m_rows.push_back(makeRow(entry));
        endResetModel();
    } else {
        mergeRows(scan->entries);
    }
    markDoubles();
}

void HygMaterialDBTableModel::mergeRows(const std::vector<HygMaterialDBEntry> & entries) {
    std::size_t row = 0;
    const auto remove = [&] {
        const int gone = static_cast<int>(row);
        beginRemoveRows({}, gone, gone);
        m_rows.erase(m_rows.begin() + gone);
        endRemoveRows();
    };
    for (const HygMaterialDBEntry & entry : entries) {
        while (row < m_rows.size() && key(m_rows[row].entry) < key(entry))
            remove();
        const int place = static_cast<int>(row);
        if (row == m_rows.size() || key(entry) < key(m_rows[row].entry)) {
            beginInsertRows({}, place, place);
            m_rows.insert(m_rows.begin() + place, makeRow(entry));
            endInsertRows();
        } else if (!m_rows[row].entry.isSameFile(entry)) {
            m_rows[row] = makeRow(entry);
            emit dataChanged(index(place, 0), index(place, NUM_COLUMNS - 1));
        }
        ++row;
    }
    while (row < m_rows.size())
        remove();
}

void HygMaterialDBTableModel::setLanguage(const QString & language) {
    m_language = language;
    for (Row & row : m_rows)
        translate(row);
    emit headerDataChanged(Qt::Horizontal, 0, NUM_COLUMNS - 1);
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, NUM_COLUMNS - 1));
}

void HygMaterialDBTableModel::setFavourites(const QStringList & fileNames) {
    m_favourites = {fileNames.begin(), fileNames.end()};
    for (int i = 0; i < rowCount(); ++i) {
        Row & row = m_rows[static_cast<std::size_t>(i)];
        const bool isFavourite = m_favourites.count(favouriteName(row.entry)) > 0;
        if (isFavourite == row.isFavourite)
            continue;
        row.isFavourite = isFavourite;
        emit dataChanged(index(i, 0), index(i, NUM_COLUMNS - 1), {FavouriteRole, SortRole, Qt::DecorationRole});
    }
}

void HygMaterialDBTableModel::setCompared(const QStringList & paths) {
    m_compared = {paths.begin(), paths.end()};
    for (int i = 0; i < rowCount(); ++i) {
        Row & row = m_rows[static_cast<std::size_t>(i)];
        const bool isCompared = m_compared.count(row.entry.path) > 0;
        if (isCompared == row.isCompared)
            continue;
        row.isCompared = isCompared;
        emit dataChanged(index(i, 0), index(i, NUM_COLUMNS - 1),
                         {ComparedRole, Qt::BackgroundRole, Qt::ForegroundRole});
    }
}

int HygMaterialDBTableModel::rowOf(const QString & path) const {
    // Each origin's rows are in the order of their paths.
    const auto user = std::partition_point(
        m_rows.begin(), m_rows.end(), [](const Row & row) { return row.entry.origin == HygMaterialDBEntry::BuiltIn; });
    for (const auto & [first, last] : {std::pair(m_rows.begin(), user), std::pair(user, m_rows.end())}) {
        const auto found =
            std::lower_bound(first, last, path, [](const Row & row, const QString & p) { return row.entry.path < p; });
        if (found != last && found->entry.path == path)
            return static_cast<int>(found - m_rows.begin());
    }
    return -1;
}

int HygMaterialDBTableModel::countProblems() const {
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(),
                                          [](const Row & row) { return !row.entry.isReadable() || row.isDouble; }));
}

int HygMaterialDBTableModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int HygMaterialDBTableModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygMaterialDBTableModel::display(const Row & row, int column) const {
    switch (column) {
    case IdColumn:
        return row.entry.id > 0 ? QString::number(row.entry.id) : QString();
    case NameColumn:
        return row.name;
    case CategoryColumn:
        return row.category;
    case ProducerColumn:
        return row.producer;
    case PathColumn:
        return QDir::toNativeSeparators(row.entry.path);
    case MarkColumn:
        return {};
    default:
        return HygMaterialTexts::number(valueOf(row.entry, column));
    }
}

QVariant HygMaterialDBTableModel::sortKey(const Row & row, int column) const {
    switch (column) {
    case IdColumn:
        return row.entry.id;
    case MarkColumn: // favourites first, then problems
        return row.isFavourite ? 0 : !row.entry.isReadable() ? 1 : row.isDouble ? 2 : 3;
    default:
        if (!isValueColumn(column))
            return display(row, column);
        const double value = valueOf(row.entry, column);
        return std::isnan(value) ? -1. : value;
    }
}

QString HygMaterialDBTableModel::toolTip(const Row & row, int column) const {
    if (!row.entry.isReadable())
        return tr("This file cannot be read: %1").arg(row.entry.problem);
    if (row.isDouble && column <= MarkColumn) {
        QStringList others;
        for (const Row & other : m_rows)
            if (other.entry.id == row.entry.id && &other != &row)
                others << QDir::toNativeSeparators(other.entry.path);
        return tr("Other files have the same ID:\n%1").arg(others.join(QLatin1Char('\n')));
    }
    if (column == MarkColumn)
        return row.isFavourite ? tr("Favourite") : QString();
    if (column == CategoryColumn) {
        QStringList names;
        for (const quint8 category : row.entry.categories)
            if (category > 0)
                names << HygMaterialTexts::category(category);
        return names.join(QStringLiteral(", "));
    }
    return isValueColumn(column) ? QString() : display(row, column).toString();
}

QVariant HygMaterialDBTableModel::decoration(const Row & row, int column) const {
    if (column == NameColumn && row.entry.color != 0)
        return swatch(row.entry.color);
    if (column != MarkColumn)
        return {};
    const auto sign = [](HygLogModel::kind_t kind) {
        return HygIconEngine::icon(HygLogModel::iconOf(kind), HygLogModel::colourOf(kind));
    };
    if (!row.entry.isReadable())
        return sign(HygLogModel::Error);
    if (row.isDouble)
        return sign(HygLogModel::Warning);
    return row.isFavourite ? QVariant(HygIconEngine::icon(QStringLiteral("star"))) : QVariant();
}

QVariant HygMaterialDBTableModel::data(const QModelIndex & index, int role) const {
    if (!index.isValid())
        return {};
    const Row & row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return display(row, index.column());
    case Qt::ToolTipRole:
        return toolTip(row, index.column());
    case Qt::DecorationRole:
        return decoration(row, index.column());
    case Qt::AccessibleTextRole:
        return index.column() == MarkColumn ? toolTip(row, MarkColumn) : display(row, index.column());
    case Qt::TextAlignmentRole:
        return isValueColumn(index.column()) || index.column() == IdColumn
                   ? QVariant(static_cast<int>(Qt::AlignRight | Qt::AlignVCenter))
                   : QVariant();
    case Category1Role:
    case Category2Role:
    case Category3Role:
        return static_cast<int>(row.entry.categories[static_cast<std::size_t>(role - Category1Role)]);
    case SortRole:
        return sortKey(row, index.column());
    case PathRole:
        return row.entry.path;
    case UserRole:
        return row.entry.origin == HygMaterialDBEntry::User;
    case ProblemRole:
        return row.entry.problem;
    case DoubleRole:
        return row.isDouble;
    case FavouriteRole:
        return row.isFavourite;
    case ComparedRole:
        return row.isCompared;
    default:
        return {};
    }
}

QVariant HygMaterialDBTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= NUM_COLUMNS)
        return {};
    const ColumnRow & column = COLUMNS[section];
    if (role == Qt::DisplayRole)
        return *column.header == '\0' ? QString() : tr(column.header);
    if (role == Qt::ToolTipRole && column.toolTip != nullptr)
        return tr(column.toolTip);
    return {};
}

Qt::ItemFlags HygMaterialDBTableModel::flags(const QModelIndex & index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return entry(index.row()).isReadable() ? common | Qt::ItemIsDragEnabled : common;
}

QStringList HygMaterialDBTableModel::mimeTypes() const {
    return {QLatin1String(MIME_TYPE)};
}

QMimeData * HygMaterialDBTableModel::mimeData(const QModelIndexList & indexes) const {
    for (const QModelIndex & dragged : indexes) {
        const HygMaterialDBEntry & first = entry(dragged.row());
        if (!first.isReadable())
            continue;
        auto * data = new QMimeData;
        data->setData(QLatin1String(MIME_TYPE), first.path.toUtf8());
        data->setText(name(dragged.row()));
        return data;
    }
    return nullptr;
}
