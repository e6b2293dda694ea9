#include "outputs/HygStandardOutputs.h"

#include "outputs/HygOutputPlaces.h"
#include "undo/HygUndoGrid.h"
#include "undo/HygUndoSections.h"

#include <SOLVER/OutputQuantities.h>

#include <QCoreApplication>
#include <QUndoStack>

#include <algorithm>

namespace {

using HYGRION::Init;
using HYGRION::OutputFile;
using HYGRION::OutputGrid;

/// Fields of more cells are written once a day: an hourly year of them would be gigabytes.
constexpr std::size_t MAX_CELLS_HOURLY = 1000;

struct Row {
    const char * name; ///< %1: the place
    const char * quantity;
    const char * unit;
    OutputFile::time_type_t time;
    OutputFile::space_type_t space;
    bool isAtSurfaces;
};

using enum OutputFile::space_type_t;
constexpr auto NOW = OutputFile::time_type_t::None;
constexpr auto MEAN = OutputFile::time_type_t::Mean;
// clang-format off
constexpr Row ROWS[] = {
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Temperature field"),       "Temperature",       "C",      NOW,  Single,   false},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Humidity field"),          "RelativeHumidity",  "%",      NOW,  Single,   false},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Moisture mass"),           "MoistureMass",      "kg",     NOW,  Integral, false},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Surface temperature %1"), "Temperature",       "C",      NOW,  OutputFile::space_type_t::Mean, true},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Surface humidity %1"),    "RelativeHumidity",  "%",      NOW,  OutputFile::space_type_t::Mean, true},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Heat flux %1"),           "TotalFluxHeat",     "W/m2",   MEAN, OutputFile::space_type_t::Mean, true},
    {QT_TRANSLATE_NOOP("HygStandardOutputs", "Moisture flux %1"),       "TotalFluxMoisture", "kg/m2s", MEAN, OutputFile::space_type_t::Mean, true},
};
// clang-format on

struct Text {
    Q_DECLARE_TR_FUNCTIONS(HygStandardOutputs)
};

/// A schedule with this step that never ends: one the project has, else a new one.
std::string scheduleOf(HYGRION::Outputs & outputs, const QString & name, double seconds) {
    for (const OutputGrid & grid : outputs.m_outputGrids)
        if (grid.m_intervals.size() == 1 && grid.m_intervals[0].start() == 0 &&
            grid.m_intervals[0].stepSize() == seconds && std::isinf(grid.m_intervals[0].end()))
            return grid.m_name;
    const auto isTaken = [&outputs](const std::string & wanted) {
        return std::any_of(outputs.m_outputGrids.begin(), outputs.m_outputGrids.end(),
                           [&](const OutputGrid & grid) { return grid.m_name == wanted; });
    };
    OutputGrid grid;
    grid.m_name = name.toStdString();
    for (int n = 2; isTaken(grid.m_name); ++n)
        grid.m_name = name.toStdString() + ' ' + std::to_string(n);
    grid.m_intervals.emplace_back().m_para.set(HYGRION::Interval::para_t::StepSize, seconds / 3600, "h");
    outputs.m_outputGrids.push_back(grid);
    return grid.m_name;
}

} // namespace

HygStandardOutputs::Sections HygStandardOutputs::of(const HYGRION::Project & project) {
    Sections sections{project.m_outputs, project.m_assignments};
    const auto balances = project.m_init.balanceEquationModule();
    const bool hasHeat = balances != Init::balanceEquationModule_t::MoistureTransport;
    const bool hasMoisture = balances != Init::balanceEquationModule_t::HeatTransport;
    const std::size_t cells = project.m_disc.nx() * project.m_disc.ny() * project.m_disc.nz();

    const auto add = [&](const Row & row, const QString & name, const HygOutputPlaces::Place & place) {
        OutputFile file;
        file.m_name = name.toStdString();
        const auto & files = sections.outputs.m_outputFiles;
        if (std::any_of(files.begin(), files.end(),
                        [&](const OutputFile & known) { return known.m_name == file.m_name; }))
            return;
        file.m_quantity = row.quantity;
        file.m_outputUnit = KOR::Unit(row.unit);
        file.m_timeType = row.time;
        file.m_spaceType = row.space;
        const bool isDaily = row.space == Single && cells > MAX_CELLS_HOURLY;
        file.m_outputGrid =
            scheduleOf(sections.outputs, isDaily ? Text::tr("Daily") : Text::tr("Hourly"), isDaily ? 86400 : 3600);
        sections.outputs.m_outputFiles.push_back(file);
        HygOutputPlaces::set(sections.assignments, file.m_name, place);
    };
    // One output for an interface, whatever sides it lies on in how many pieces.
    std::vector<std::pair<QString, HygOutputPlaces::Place>> surfaces;
    for (const HYGRION::Assignment & assignment : project.m_assignments.m_list) {
        if (assignment.m_type != HYGRION::Assignment::type_t::Interface || !assignment.isOnSide())
            continue;
        const QString name = QString::fromStdString(assignment.m_reference);
        auto known = std::find_if(surfaces.begin(), surfaces.end(), [&](const auto & s) { return s.first == name; });
        if (known == surfaces.end())
            known = surfaces.insert(surfaces.end(), {name, {}});
        known->second.assignments.emplace_back(HYGRION::Assignment::type_t::Output, assignment.m_location,
                                               assignment.m_range, std::string());
    }
    const HygOutputPlaces::Place everywhere = HygOutputPlaces::offered(project).front();
    for (const Row & row : ROWS) {
        const SOLVER::OutputQuantity & quantity = SOLVER::outputQuantity(row.quantity);
        if ((quantity.needsHeat && !hasHeat) || (quantity.needsMoisture && !hasMoisture))
            continue;
        if (!row.isAtSurfaces)
            add(row, Text::tr(row.name), everywhere);
        else
            for (const auto & [name, place] : surfaces)
                add(row, Text::tr(row.name).arg(name), place);
    }
    return sections;
}

bool HygStandardOutputs::add(QUndoStack & stack, const HYGRION::Project & project) {
    Sections sections = of(project);
    if (sections.outputs == project.m_outputs)
        return false;
    stack.beginMacro(Text::tr("Add standard outputs"));
    stack.push(new HygUndoOutputs(Text::tr("Add outputs"), std::move(sections.outputs)));
    stack.push(new HygUndoAssignments(Text::tr("Assign outputs"), std::move(sections.assignments)));
    stack.endMacro();
    return true;
}
