#include "outputs/HygOutputModel.h"

#include "document/HygProjectHandler.h"
#include "outputs/HygOutputPlaces.h"
#include "outputs/HygOutputTexts.h"

#include <QtExt/Palette.h>

#include <SOLVER/OutputQuantities.h>

#include <KOR/Exception.h>

HygOutputModel::HygOutputModel(const HygProjectHandler & projects, QObject * parent)
    : QAbstractTableModel(parent), m_projects(projects) {}

void HygOutputModel::update() {
    beginResetModel();
    m_places.clear();
    for (const HYGRION::OutputFile & file : m_projects.project().m_outputs.m_outputFiles)
        m_places.push_back(HygOutputPlaces::of(m_projects.project(), file.m_name).text);
    endResetModel();
}

int HygOutputModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
}

int HygOutputModel::columnCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : NUM_COLUMNS;
}

QVariant HygOutputModel::data(const QModelIndex & index, int role) const {
    const auto & outputs = m_projects.project().m_outputs;
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= m_places.size() || row >= outputs.m_outputFiles.size())
        return {};
    const HYGRION::OutputFile & file = outputs.m_outputFiles[row];
    const bool isNowhere = index.column() == PlaceColumn && m_places[row].isEmpty();
    if (role == Qt::ForegroundRole && isNowhere)
        return QtExt::Palette::color(QtExt::Palette::WARNING_TEXT);
    if (role == Qt::ToolTipRole && isNowhere)
        return tr("The output is tied to no place and would not be written; edit it and choose one.");
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (static_cast<column_t>(index.column())) {
    case NameColumn:
        return QString::fromStdString(file.m_name);
    case QuantityColumn:
        return HygOutputTexts::quantity(file.m_quantity);
    case UnitColumn:
        if (!file.m_outputUnit.name().empty())
            return QString::fromStdString(file.m_outputUnit.displayName());
        try {
            const std::string_view unit = SOLVER::outputQuantity(file.m_quantity).unit;
            return QString::fromStdString(KOR::Unit(unit).displayName());
        } catch (const KOR::Exception &) {
            return QString(); // the checks name the quantity
        }
    case PlaceColumn:
        return isNowhere ? tr("⚠ nowhere") : m_places[row];
    case SpaceColumn:
        return HygOutputTexts::spaceType(file.m_spaceType);
    case TimeColumn:
        return HygOutputTexts::timeType(file.m_timeType);
    case ScheduleColumn:
        for (const HYGRION::OutputGrid & grid : outputs.m_outputGrids)
            if (grid.m_name == file.m_outputGrid && role == Qt::ToolTipRole)
                return HygOutputTexts::schedule(grid);
        return QString::fromStdString(file.m_outputGrid);
    case NUM_COLUMNS:
        break;
    }
    return {};
}

QVariant HygOutputModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString TITLES[NUM_COLUMNS] = {tr("Name"),     tr("Quantity"), tr("Unit"),    tr("Where"),
                                         tr("In space"), tr("In time"),  tr("Schedule")};
    return section >= 0 && section < NUM_COLUMNS ? TITLES[section] : QVariant();
}
