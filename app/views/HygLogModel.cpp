#include "HygLogModel.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <KOR/MessageHandler.h>

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace {

struct KindRow {
    const char * name;
    const char * icon;
};
constexpr std::array<KindRow, HygLogModel::NUM_KINDS> KINDS = {
    {
     {QT_TRANSLATE_NOOP("HygLogModel", "Information"), "information"},
     {QT_TRANSLATE_NOOP("HygLogModel", "Warning"), "warning"},
     {QT_TRANSLATE_NOOP("HygLogModel", "Error"), "error"},
     {QT_TRANSLATE_NOOP("HygLogModel", "Debug"), "debug"},
     }
};

constexpr int COLLECT_MS = 40;

} // namespace

HygLogModel::HygLogModel(QObject * parent) : QAbstractTableModel(parent) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(COLLECT_MS);
    connect(&m_timer, &QTimer::timeout, this, &HygLogModel::flush);
}

HygLogModel::kind_t HygLogModel::kindOf(int type) {
    switch (type) {
    case KOR::MSG_WARNING:
        return Warning;
    case KOR::MSG_ERROR:
        return Error;
    case KOR::MSG_DEBUG:
        return Debug;
    default:
        return Information;
    }
}

QString HygLogModel::nameOf(kind_t kind) {
    return tr(KINDS[kind].name);
}

QString HygLogModel::iconOf(kind_t kind) {
    return QString::fromLatin1(KINDS[kind].icon);
}

QColor HygLogModel::colourOf(kind_t kind) {
    const QPalette palette = QGuiApplication::palette();
    switch (kind) {
    case Warning:
        return QtExt::Palette::color(QtExt::Palette::WARNING_TEXT);
    case Error:
        return QtExt::Palette::color(QtExt::Palette::ERROR_TEXT);
    case Debug:
        return palette.color(QPalette::LinkVisited);
    default:
        return palette.color(QPalette::Text);
    }
}

void HygLogModel::append(int type, const QString & text) {
    const bool isLong = text.size() > MAX_TEXT;
    const QString kept = isLong ? text.left(MAX_TEXT) + QChar(0x2026) : text;
    m_waiting.push_back({QDateTime::currentDateTime(), type, kept, HygCoreMessages::translated(kept)});
    if (m_waiting.size() > MAX_ROWS)
        m_waiting.pop_front();
    if (!m_timer.isActive())
        m_timer.start();
}

void HygLogModel::flush() {
    m_timer.stop();
    if (m_waiting.empty())
        return;
    const int held = static_cast<int>(m_entries.size());
    const int added = static_cast<int>(m_waiting.size());
    const int surplus = std::min(held, std::max(0, held + added - MAX_ROWS));
    if (surplus > 0) {
        beginRemoveRows({}, 0, surplus - 1);
        for (int i = 0; i < surplus; ++i) {
            --m_counts[kindOf(m_entries.front().type)];
            m_entries.pop_front();
        }
        endRemoveRows();
    }
    const int first = held - surplus;
    beginInsertRows({}, first, first + added - 1);
    for (Entry & entry : m_waiting) {
        ++m_counts[kindOf(entry.type)];
        m_entries.push_back(std::move(entry));
    }
    m_waiting.clear();
    endInsertRows();
    emit countsChanged();
}

void HygLogModel::clear() {
    m_timer.stop();
    beginResetModel();
    m_waiting.clear();
    m_entries.clear();
    m_counts = {};
    endResetModel();
    emit countsChanged();
}

QString HygLogModel::line(int row) const {
    const Entry & entry = m_entries.at(static_cast<std::size_t>(row));
    const std::string_view label = KOR::messageTypeLabel(entry.type);
    return HygFormat::dateTime(entry.time, true) + QLatin1Char(' ') +
           QString::fromLatin1(label.data(), static_cast<int>(label.size())) + entry.text;
}

void HygLogModel::retranslate() {
    emit headerDataChanged(Qt::Horizontal, 0, NUM_COLUMNS - 1);
    for (auto * entries : {&m_entries, &m_waiting})
        for (Entry & entry : *entries)
            entry.text = HygCoreMessages::translated(entry.told);
    if (!m_entries.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, NUM_COLUMNS - 1));
}

int HygLogModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int HygLogModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygLogModel::data(const QModelIndex & index, int role) const {
    if (!index.isValid())
        return {};
    const Entry & entry = m_entries.at(static_cast<std::size_t>(index.row()));
    const kind_t kind = kindOf(entry.type);
    switch (role) {
    case TypeRole:
        return entry.type;
    case TextRole:
    case Qt::ToolTipRole:
        return entry.text;
    case Qt::DecorationRole:
        if (index.column() == TypeColumn)
            return HygIconEngine::icon(iconOf(kind), colourOf(kind));
        return {};
    case Qt::ForegroundRole:
        return index.column() == TimeColumn ? QVariant() : colourOf(kind);
    case Qt::DisplayRole:
        break;
    default:
        return {};
    }
    switch (index.column()) {
    case TimeColumn:
        return entry.time.toString(QStringLiteral("HH:mm:ss"));
    case TypeColumn:
        return nameOf(kind);
    default:
        return entry.text.contains(QLatin1Char('\n')) ? entry.text.simplified() : entry.text;
    }
}

QVariant HygLogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case TypeColumn:
        return tr("Kind");
    default:
        return tr("Message");
    }
}
