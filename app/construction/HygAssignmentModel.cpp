#include "construction/HygAssignmentModel.h"

#include "HygIconEngine.h"
#include "construction/HygMaterialOffer.h"

#include <QtExt/Palette.h>

#include <algorithm>

namespace {

using HYGRION::Assignment;
using HYGRION::Range;

constexpr const char * HEADERS[] = {
    QT_TRANSLATE_NOOP("HygAssignmentModel", "Kind"),      QT_TRANSLATE_NOOP("HygAssignmentModel", "Definition"),
    QT_TRANSLATE_NOOP("HygAssignmentModel", "Place"),     QT_TRANSLATE_NOOP("HygAssignmentModel", "From column"),
    QT_TRANSLATE_NOOP("HygAssignmentModel", "to column"), QT_TRANSLATE_NOOP("HygAssignmentModel", "From row"),
    QT_TRANSLATE_NOOP("HygAssignmentModel", "to row"),    QT_TRANSLATE_NOOP("HygAssignmentModel", "From plane"),
    QT_TRANSLATE_NOOP("HygAssignmentModel", "to plane"),  QT_TRANSLATE_NOOP("HygAssignmentModel", "Name")};
static_assert(std::size(HEADERS) == HygAssignmentModel::NUM_COLUMNS);

constexpr std::uint32_t Range::*ENDS[] = {&Range::left, &Range::right, &Range::bottom,
                                          &Range::top,  &Range::back,  &Range::front};

bool isEnd(int column) {
    return column >= HygAssignmentModel::FirstColumn && column <= HygAssignmentModel::LastPlane;
}

} // namespace

HygAssignmentModel::HygAssignmentModel(const HygConstructionScene & scene, QObject * parent)
    : QAbstractTableModel(parent), m_scene(scene) {}

void HygAssignmentModel::update() {
    beginResetModel();
    m_count = m_scene.project == nullptr ? 0 : static_cast<int>(m_scene.project->m_assignments.size());
    endResetModel();
}

const Assignment & HygAssignmentModel::assignment(int row) const {
    return m_scene.project->m_assignments.m_list[static_cast<std::size_t>(row)];
}

std::optional<std::size_t> HygAssignmentModel::unusableMaterial(int row) const {
    const Assignment & shown = assignment(row);
    if (m_scene.problemOf(shown).isEmpty())
        return std::nullopt;
    const auto & materials = m_scene.project->m_materials;
    const auto found = std::find_if(materials.begin(), materials.end(),
                                    [&](const auto & material) { return material.m_name == shown.m_reference; });
    return static_cast<std::size_t>(found - materials.begin());
}

int HygAssignmentModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : m_count;
}

int HygAssignmentModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygAssignmentModel::data(const QModelIndex & index, int role) const {
    // Views may ask between a change of the project and update().
    if (m_scene.project == nullptr || static_cast<std::size_t>(index.row()) >= m_scene.project->m_assignments.size())
        return {};
    const Assignment & shown = assignment(index.row());
    const int column = index.column();
    if (role == Qt::TextAlignmentRole && isEnd(column))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (column == DefinitionColumn &&
        (role == Qt::DecorationRole || role == Qt::ToolTipRole || role == Qt::ForegroundRole))
        if (const QString problem = m_scene.problemOf(shown); !problem.isEmpty())
            return role == Qt::ToolTipRole ? QVariant(tr("%1\nDouble-click to choose another file.").arg(problem))
                   : role == Qt::ForegroundRole
                       ? QVariant(QtExt::Palette::color(QtExt::Palette::ERROR_TEXT))
                       : QVariant(HygIconEngine::icon(QStringLiteral("error"),
                                                      QtExt::Palette::color(QtExt::Palette::ERROR_TEXT)));
    if (role == Qt::DecorationRole && column == DefinitionColumn) {
        const QColor colour = m_scene.colourOf(shown.m_type, shown.m_reference);
        return colour;
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    switch (column) {
    case TypeColumn:
        return HygConstructionScene::typeName(shown.m_type);
    case DefinitionColumn:
        return QString::fromStdString(shown.m_reference);
    case PlaceColumn:
        return HygConstructionScene::locationName(shown.m_location);
    case NameColumn:
        return QString::fromStdString(shown.m_name);
    default:
        break;
    }
    if (shown.m_location == Assignment::location_t::Coordinate)
        return {};
    return static_cast<int>(shown.m_range.*ENDS[column - FirstColumn]) + 1;
}

bool HygAssignmentModel::setData(const QModelIndex & index, const QVariant & value, int role) {
    if (role != Qt::EditRole || !index.isValid())
        return false;
    Assignment changed = assignment(index.row());
    if (index.column() == NameColumn) {
        changed.m_name = value.toString().toStdString();
    } else {
        const int number = value.toInt();
        if (number < 1)
            return false;
        std::uint32_t & end = changed.m_range.*ENDS[index.column() - FirstColumn];
        end = static_cast<std::uint32_t>(number - 1);
        changed.m_range.normalise();
    }
    if (changed != assignment(index.row()))
        emit changeRequested(index.row(), changed);
    return true;
}

QVariant HygAssignmentModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::DisplayRole)
        return orientation == Qt::Vertical ? QVariant(section + 1) : QVariant(tr(HEADERS[section]));
    return {};
}

Qt::ItemFlags HygAssignmentModel::flags(const QModelIndex & index) const {
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const bool isPoint = assignment(index.row()).m_location == Assignment::location_t::Coordinate;
    return index.column() == NameColumn || (isEnd(index.column()) && !isPoint) ? flags | Qt::ItemIsEditable : flags;
}
