#include "construction/HygLayerModel.h"

#include "HygIconEngine.h"
#include "construction/HygMaterialOffer.h"

#include <QtExt/Palette.h>

#include <QMimeData>

HygLayerModel::HygLayerModel(const HygConstructionScene & scene, QObject * parent)
    : QAbstractTableModel(parent), m_scene(scene) {}

void HygLayerModel::update() {
    beginResetModel();
    m_layers.clear();
    if (m_scene.isStack() && !m_scene.isBlank()) {
        const auto & borders = m_scene.cells.columnBorders();
        for (std::size_t n = 0; n + 1 < borders.size(); ++n)
            m_layers.push_back({borders[n], borders[n + 1] - 1, m_scene.cells.material(borders[n], 0)});
    }
    endResetModel();
}

int HygLayerModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_layers.size());
}

int HygLayerModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygLayerModel::data(const QModelIndex & index, int role) const {
    const Layer & layer = m_layers[static_cast<std::size_t>(index.row())];
    const auto & materials = m_scene.project->m_materials;
    const bool isKnown = layer.material >= 0 && layer.material < static_cast<std::int32_t>(materials.size());
    const double thickness = m_scene.x.width(layer.first, layer.last);
    if (role == Qt::TextAlignmentRole && index.column() != MaterialColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    switch (index.column()) {
    case MaterialColumn: {
        const QString problem = m_scene.problemOf(layer.material);
        if (!problem.isEmpty() && role == Qt::DecorationRole)
            return HygIconEngine::icon(QStringLiteral("error"), QtExt::Palette::color(QtExt::Palette::ERROR_TEXT));
        if (!problem.isEmpty() && role == Qt::ForegroundRole)
            return QtExt::Palette::color(QtExt::Palette::ERROR_TEXT);
        if (!problem.isEmpty() && role == Qt::ToolTipRole)
            return tr("%1\nDouble-click to choose another material.").arg(problem);
        if (role == Qt::DecorationRole && isKnown)
            return HygMaterialOffer::swatch(materials[static_cast<std::size_t>(layer.material)]);
        if (role == Qt::ForegroundRole && !isKnown)
            return QtExt::Palette::color(QtExt::Palette::WARNING_TEXT);
        if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole) {
            if (isKnown)
                return QString::fromStdString(materials[static_cast<std::size_t>(layer.material)].m_name);
            if (role != Qt::EditRole)
                return layer.material == HygCellPlane::UNKNOWN ? tr("unknown material") : tr("no material");
        }
        break;
    }
    case ThicknessColumn:
        if (role == Qt::DisplayRole)
            return m_scene.lengthText(thickness);
        if (role == Qt::EditRole)
            return thickness; // m
        if (role == Qt::ToolTipRole)
            return tr("Thickness of the layer, usually 1 mm to 1 m. Its cells keep their proportions.");
        break;
    case CellsColumn:
        if (role == Qt::DisplayRole)
            return layer.last - layer.first + 1;
        if (role == Qt::ToolTipRole)
            return tr("Cells that the layer is divided into; the automatic discretization changes them");
        break;
    default:
        break;
    }
    return {};
}

QVariant HygLayerModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return section == MaterialColumn ? tr("Material") : section == ThicknessColumn ? tr("Thickness") : tr("Cells");
}

Qt::ItemFlags HygLayerModel::flags(const QModelIndex & index) const {
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled;
    return index.column() == CellsColumn ? flags : flags | Qt::ItemIsEditable;
}

QStringList HygLayerModel::mimeTypes() const {
    return {QLatin1String(MIME_TYPE)};
}

QMimeData * HygLayerModel::mimeData(const QModelIndexList & indexes) const {
    auto * data = new QMimeData;
    data->setData(QLatin1String(MIME_TYPE), QByteArray::number(indexes.isEmpty() ? -1 : indexes.front().row()));
    return data;
}

bool HygLayerModel::dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int,
                                 const QModelIndex & parent) {
    bool isNumber = false;
    const int layer = data->data(QLatin1String(MIME_TYPE)).toInt(&isNumber);
    if (!isNumber || action != Qt::MoveAction || layer < 0 || layer >= rowCount())
        return false;
    const int before = row >= 0 ? row : parent.isValid() ? parent.row() : rowCount();
    if (before == layer || before == layer + 1)
        return false;
    emit moveRequested(layer, before);
    return false; // the rows are read anew from the project
}
