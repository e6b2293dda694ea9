#include "construction/HygConstructionEditor.h"

#include "HygCoreMessages.h"
#include "construction/HygCellPlane.h"
#include "construction/HygMaterialOffer.h"
#include "document/HygProjectHandler.h"
#include "materials/HygProjectMaterials.h"
#include "outputs/HygStandardOutputs.h"
#include "undo/HygEditing.h"
#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoSections.h"

#include <HYGRION/CellClip.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QUndoStack>

#include <algorithm>
#include <numeric>
#include <set>

namespace {

using namespace HYGRION;
using type_t = Assignment::type_t;
using location_t = Assignment::location_t;

/// A kind of definition has a name that nobody else of the kind has.
std::string freeName(const std::vector<Interface> & list, const std::string & wanted) {
    std::string name = wanted;
    for (int n = 2; std::any_of(list.begin(), list.end(), [&](const auto & item) { return item.m_name == name; }); ++n)
        name = wanted + ' ' + std::to_string(n);
    return name;
}

/// Takes out what is on the left and on the right end of the construction.
std::vector<Assignment> takeSurfaces(const Disc & disc, Assignments & assignments) {
    const auto end = static_cast<std::uint32_t>(disc.nx() - 1);
    std::vector<Assignment> surfaces;
    std::erase_if(assignments.m_list, [&](const Assignment & assignment) {
        const Range cells = edit::effectiveRange(assignment);
        const bool isSurface = (assignment.m_location == location_t::Left && cells.left == 0) ||
                               (assignment.m_location == location_t::Right && cells.right == end);
        if (isSurface)
            surfaces.push_back(assignment);
        return isSurface;
    });
    return surfaces;
}

/// Puts it onto the ends that the construction has now.
void putSurfaces(const Disc & disc, Assignments & assignments, const std::vector<Assignment> & surfaces) {
    const auto end = static_cast<std::uint32_t>(disc.nx() - 1);
    for (Assignment surface : surfaces) {
        surface.m_range.left = surface.m_range.right = surface.m_location == location_t::Left ? 0 : end;
        assignments.m_list.push_back(std::move(surface));
    }
}

/// What becomes of cells that are divided or united.
auto dividedIn(unsigned int dir) {
    return [dir](const Disc & before, const Disc & after) {
        return HygGridMap::divided(dir, before.steps(dir).m_data, after.steps(dir).m_data);
    };
}

auto removedIn(unsigned int dir, std::size_t first, std::size_t last) {
    return [=](const Disc & before, const Disc &) {
        return HygGridMap::replaced(dir, before.steps(dir).size(), first, last - first + 1, 0);
    };
}

/// Names the width of a run of cells: typed several times in a row it is one step of undo.
QString fieldOf(unsigned int dir, std::size_t first, std::size_t last) {
    return QStringLiteral("width %1 %2 %3").arg(dir).arg(first).arg(last);
}

} // namespace

HygConstructionEditor::HygConstructionEditor(HygProjectHandler & projects, QObject * parent)
    : QObject(parent), m_projects(projects) {}

QUndoStack & HygConstructionEditor::stack() const {
    return m_projects.undoStack();
}

const Project & HygConstructionEditor::project() const {
    return m_projects.project();
}

bool HygConstructionEditor::hasProject() const {
    return m_projects.hasProject();
}

void HygConstructionEditor::attempt(const std::function<void()> & action) {
    if (!hasProject())
        return;
    try {
        action();
    } catch (const KOR::Exception & ex) {
        emit refused(HygCoreMessages::translated(QString::fromUtf8(ex.what())));
    }
}

void HygConstructionEditor::changeGrid(const QString & text, const GridChange & change, const GridMap & map,
                                       const QString & field) {
    attempt([&] {
        std::optional<HygGridMap> moves;
        auto command = HygEditing::gridCommand(text, project(), [&](Disc & disc, Assignments & assignments) {
            change(disc, assignments);
            if (map)
                moves = map(project().m_disc, disc);
        });
        command->setField(field);
        if (moves)
            emit cellsToMove(*moves);
        stack().push(command.release());
    });
}

void HygConstructionEditor::changeList(const QString & text, const ListChange & change) {
    attempt([&] { stack().push(HygEditing::assignmentsCommand(text, project(), change).release()); });
}

void HygConstructionEditor::tellGone(const std::vector<Assignment> & gone) {
    if (!gone.empty())
        emit informed(
            tr("%n assignments went with their cells. Undo brings them back.", nullptr, static_cast<int>(gone.size())));
}

void HygConstructionEditor::insert(unsigned int dir, std::size_t before, std::size_t count) {
    const int number = static_cast<int>(count);
    changeGrid(
        dir == Disc::X ? tr("Insert %n columns", nullptr, number) : tr("Insert %n rows", nullptr, number),
        [&](Disc & disc, Assignments & assignments) {
            const bool isAtEnd = dir == Disc::X && (before == 0 || before == disc.nx());
            const auto surfaces = isAtEnd ? takeSurfaces(disc, assignments) : std::vector<Assignment>();
            edit::insertSteps(disc, assignments, dir, before, count);
            putSurfaces(disc, assignments, surfaces);
        },
        [=](const Disc & disc, const Disc &) {
            return HygGridMap::replaced(dir, disc.steps(dir).size(), before, 0, count);
        });
}

void HygConstructionEditor::split(unsigned int dir, std::size_t first, std::size_t last, std::size_t count) {
    changeGrid(
        tr("Split cells"),
        [&](Disc & disc, Assignments & assignments) {
            for (std::size_t i = last + 1; i-- > first;)
                edit::splitStep(disc, assignments, dir, i, count);
        },
        dividedIn(dir));
}

void HygConstructionEditor::merge(unsigned int dir, std::size_t first, std::size_t last) {
    std::vector<Assignment> gone;
    changeGrid(
        tr("Merge cells"),
        [&](Disc & disc, Assignments & assignments) { gone = edit::mergeSteps(disc, assignments, dir, first, last); },
        dividedIn(dir));
    tellGone(gone);
}

void HygConstructionEditor::remove(unsigned int dir, std::size_t first, std::size_t last) {
    std::vector<Assignment> gone;
    changeGrid(
        dir == Disc::X ? tr("Delete columns") : tr("Delete rows"),
        [&](Disc & disc, Assignments & assignments) { gone = edit::removeSteps(disc, assignments, dir, first, last); },
        removedIn(dir, first, last));
    tellGone(gone);
}

void HygConstructionEditor::mirror(unsigned int dir, std::size_t first, std::size_t last) {
    changeGrid(
        tr("Mirror cells"),
        [&](Disc & disc, Assignments & assignments) { edit::mirrorSteps(disc, assignments, dir, first, last); },
        [=](const Disc & disc, const Disc &) {
            return HygGridMap::mirrored(dir, disc.steps(dir).size(), first, last);
        });
}

void HygConstructionEditor::move(unsigned int dir, std::size_t first, std::size_t last, std::size_t before) {
    changeGrid(
        tr("Move cells"),
        [&](Disc & disc, Assignments & assignments) {
            const auto surfaces = dir == Disc::X ? takeSurfaces(disc, assignments) : std::vector<Assignment>();
            edit::moveSteps(disc, assignments, dir, first, last, before);
            putSurfaces(disc, assignments, surfaces);
        },
        [=](const Disc & disc, const Disc &) {
            return HygGridMap::moved(dir, disc.steps(dir).size(), first, last, before);
        });
}

void HygConstructionEditor::removeLayer(std::size_t first, std::size_t last) {
    std::vector<Assignment> gone;
    changeGrid(
        tr("Remove layer"),
        [&](Disc & disc, Assignments & assignments) {
            const auto surfaces = takeSurfaces(disc, assignments);
            gone = edit::removeSteps(disc, assignments, Disc::X, first, last);
            putSurfaces(disc, assignments, surfaces);
        },
        removedIn(Disc::X, first, last));
    // The layer's own material goes without saying.
    std::erase_if(gone, [](const Assignment & assignment) { return assignment.m_type == type_t::Material; });
    tellGone(gone);
}

void HygConstructionEditor::setWidth(unsigned int dir, std::size_t first, std::size_t last,
                                     const KOR::Parameter & width) {
    attempt([&] {
        const double value = width.get_value(project().m_disc.steps(dir).m_unit);
        auto command = HygEditing::widthCommand(tr("Change width"), project(), dir, first, last, value);
        command->setField(fieldOf(dir, first, last));
        stack().push(command.release());
    });
}

void HygConstructionEditor::setThickness(unsigned int dir, std::size_t first, std::size_t last,
                                         const KOR::Parameter & width) {
    if (first == last)
        return setWidth(dir, first, last, width);
    const auto change = [&](Disc & disc, Assignments & assignments) {
        const KOR::UnitVector & list = std::as_const(disc).steps(dir);
        const auto begin = list.m_data.begin() + static_cast<std::ptrdiff_t>(first);
        std::vector<double> widths(begin, begin + static_cast<std::ptrdiff_t>(last - first + 1));
        const double wanted = width.get_value(list.m_unit);
        const double factor = wanted / std::accumulate(widths.begin(), widths.end(), 0.0);
        for (double & cell : widths)
            cell *= factor;
        disc.modifySteps(dir, first, widths.size(), widths, assignments);
    };
    changeGrid(tr("Change thickness"), change, {}, fieldOf(dir, first, last));
}

std::vector<double> HygConstructionEditor::cellsOf(double width, const Disc::LayerSettings & settings) {
    Disc layer;
    layer.m_xSteps = {{width}, KOR::Unit("m")};
    Assignments none;
    BoundaryIDGrid unused;
    layer.autoDisc(std::span(&settings, 1), {}, {}, none, unused);
    return layer.m_xSteps.m_data;
}

void HygConstructionEditor::addLayer(const NewLayer & layer) {
    attempt([&] {
        const bool isKnown = hasMaterial(layer.material.m_name);
        const bool isBlank = project().m_assignments.empty() && project().m_disc.nx() == 1;
        std::size_t first = 0;
        std::size_t count = 0;
        auto grid = HygEditing::gridCommand(tr("Add layer"), project(), [&](Disc & disc, Assignments & assignments) {
            // Millimetres keep the digits that the user thinks in.
            if (isBlank)
                disc.m_xSteps.m_unit = KOR::Unit("mm");
            const KOR::Unit unit = disc.m_xSteps.m_unit;
            std::vector<double> widths{layer.thickness.get_value(unit)};
            if (layer.isDivided) {
                widths = cellsOf(layer.thickness.value(), {});
                KOR::UnitList::instance().convert(KOR::Unit("m"), unit, widths);
            }
            const std::size_t before = std::min(layer.before, disc.nx());
            const auto surfaces = takeSurfaces(disc, assignments);
            disc.modifySteps(Disc::X, isBlank ? 0 : before, isBlank ? 1 : 0, widths, assignments);
            first = isBlank ? 0 : before;
            count = widths.size();
            const std::size_t last = first + count - 1;
            putSurfaces(disc, assignments, surfaces);
            edit::assign(project(), assignments,
                         {
                             type_t::Material,
                             location_t::Element,
                             {static_cast<std::uint32_t>(first), 0, 0, static_cast<std::uint32_t>(last),
                                        static_cast<std::uint32_t>(disc.ny() - 1), static_cast<std::uint32_t>(disc.nz() - 1)},
                             layer.material.m_name
            });
        });
        if (!isBlank) {
            HygGridMap map = HygGridMap::replaced(Disc::X, project().m_disc.nx(), first, 0, count);
            map.chosen.reset(); // the dialog may add further ones
            emit cellsToMove(map);
        }
        stack().beginMacro(tr("Add layer '%1'").arg(QString::fromStdString(layer.material.m_name)));
        if (!isKnown)
            stack().push(new HygUndoAddMaterial(tr("Add material"), layer.material));
        stack().push(grid.release());
        stack().endMacro();
    });
}

void HygConstructionEditor::discretize(unsigned int dir, const std::vector<Layer> & layers) {
    changeGrid(
        tr("Automatic discretization"),
        [&](Disc & disc, Assignments & assignments) {
            const std::size_t count = std::as_const(disc).steps(dir).size();
            const bool isWhole =
                layers.size() == count && std::all_of(layers.begin(), layers.end(),
                                                      [](const Layer & layer) { return layer.first == layer.last; });
            if (isWhole) {
                std::vector<Disc::LayerSettings> settings;
                for (const Layer & layer : layers) {
                    settings.push_back(layer.settings.value_or(Disc::LayerSettings{}));
                    if (!layer.settings)
                        settings.back().mode = Disc::MODE_NONE;
                }
                BoundaryIDGrid unused;
                const std::span<const Disc::LayerSettings> none;
                disc.autoDisc(dir == Disc::X ? settings : none, dir == Disc::Y ? settings : none,
                              dir == Disc::Z ? settings : none, assignments, unused);
                return;
            }
            for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
                if (!layer->settings)
                    continue;
                const KOR::UnitVector & list = std::as_const(disc).steps(dir);
                const auto begin = list.m_data.begin() + static_cast<std::ptrdiff_t>(layer->first);
                const std::size_t cells = layer->last - layer->first + 1;
                const double width = std::accumulate(begin, begin + static_cast<std::ptrdiff_t>(cells), 0.0);
                KOR::UnitVector divided{{width}, list.m_unit};
                divided.convert(KOR::Unit("m"));
                divided.m_data = cellsOf(divided.m_data.front(), *layer->settings);
                divided.convert(list.m_unit);
                disc.modifySteps(dir, layer->first, cells, divided.m_data, assignments);
            }
        },
        dividedIn(dir));
}

void HygConstructionEditor::assign(type_t type, const std::string & name, const std::vector<Range> & ranges,
                                   location_t location) {
    changeList(tr("Assign '%1'").arg(QString::fromStdString(name)), [&](Assignments & assignments) {
        for (const Range & range : ranges)
            edit::assign(project(), assignments, {type, location, range, name});
    });
}

void HygConstructionEditor::unassign(type_t type, const std::string & name, const std::vector<Range> & ranges,
                                     location_t location) {
    changeList(tr("Take '%1' off").arg(QString::fromStdString(name)), [&](Assignments & assignments) {
        for (const Range & range : ranges)
            edit::unassign(assignments, type, location, range, name);
    });
}

void HygConstructionEditor::removeAssignments(std::vector<std::size_t> indices) {
    std::sort(indices.rbegin(), indices.rend());
    changeList(tr("Remove %n assignments", nullptr, static_cast<int>(indices.size())), [&](Assignments & assignments) {
        for (const std::size_t index : indices)
            if (index < assignments.size())
                assignments.m_list.erase(assignments.m_list.begin() + static_cast<std::ptrdiff_t>(index));
    });
}

void HygConstructionEditor::changeAssignment(std::size_t index, const Assignment & changed) {
    if (!hasProject() || index >= project().m_assignments.size() || project().m_assignments.m_list[index] == changed)
        return;
    attempt([&] {
        changed.checkParameters(project().m_disc);
        changeList(tr("Change assignment"), [&](Assignments & assignments) { assignments.m_list[index] = changed; });
    });
}

void HygConstructionEditor::clear(const std::vector<Range> & ranges) {
    changeList(tr("Clear cells"), [&](Assignments & assignments) {
        std::set<std::pair<type_t, location_t>> kinds;
        for (const Assignment & assignment : assignments.m_list)
            if (assignment.m_location != location_t::Coordinate)
                kinds.emplace(assignment.m_type, assignment.m_location);
        for (const Range & range : ranges)
            for (const auto & [type, location] : kinds)
                edit::unassign(assignments, type, location, range);
    });
}

void HygConstructionEditor::copy(const Range & range) const {
    QGuiApplication::clipboard()->setText(QString::fromStdString(edit::CellClip::copy(project(), range).text()));
}

void HygConstructionEditor::paste(const QString & text, const Range & at) {
    attempt([&] {
        edit::CellClip clip = edit::CellClip::fromText(text.toStdString());
        Project merged = project();
        const auto room = [](std::size_t size, std::uint32_t start, std::uint32_t count) {
            return static_cast<std::uint32_t>(std::min<std::size_t>(size - std::min<std::size_t>(start, size), count));
        };
        const std::uint32_t nx = room(merged.m_disc.nx(), at.left, clip.block.nx);
        const std::uint32_t ny = room(merged.m_disc.ny(), at.bottom, clip.block.ny);
        const std::uint32_t nz = room(merged.m_disc.nz(), at.back, clip.block.nz);
        const auto cells = [](std::uint32_t x, std::uint32_t y, std::uint32_t z) { return double{1} * x * y * z; };
        const double lost = cells(clip.block.nx, clip.block.ny, clip.block.nz) - cells(nx, ny, nz);
        clip.crop(nx, ny, nz);
        clip.addTo(merged);
        edit::pasteBlock(merged, merged.m_assignments, clip.block, at.left, at.bottom, at.back);
        auto commands = additions(merged); // all there before the first is pushed
        if (nx > 0 && ny > 0 && nz > 0) {
            HygGridMap map;
            map.block = Range{at.left, at.bottom, at.back, at.left + nx - 1, at.bottom + ny - 1, at.back + nz - 1};
            emit cellsToMove(map);
        }
        stack().beginMacro(tr("Paste cells"));
        for (auto & command : commands)
            stack().push(command.release());
        stack().push(new HygUndoAssignments(tr("Paste cells"), std::move(merged.m_assignments)));
        stack().endMacro();
        if (lost > 0)
            emit informed(tr("%n cells of the block lie beyond the edge of the construction and were left out.",
                             nullptr, static_cast<int>(std::min(lost, 1e9))));
    });
}

std::vector<std::unique_ptr<QUndoCommand>> HygConstructionEditor::additions(const Project & merged) const {
    const QString text = tr("Paste cells");
    std::vector<std::unique_ptr<QUndoCommand>> commands;
    const auto add = [&]<typename Command>(std::type_identity<Command>, const auto & list, std::size_t known) {
        for (std::size_t n = known; n < list.size(); ++n)
            commands.push_back(std::make_unique<Command>(text, list[n]));
    };
    // Before those that refer to them.
    const Conditions & now = project().m_conditions;
    const Conditions & wanted = merged.m_conditions;
    add(std::type_identity<HygUndoAddMaterial>(), merged.m_materials, project().m_materials.size());
    add(std::type_identity<HygUndoAddListItem>(), wanted.m_schedules, now.m_schedules.size());
    add(std::type_identity<HygUndoAddListItem>(), wanted.m_climateConditions, now.m_climateConditions.size());
    add(std::type_identity<HygUndoAddContactCond>(), wanted.m_contactConditions, now.m_contactConditions.size());
    add(std::type_identity<HygUndoAddListItem>(), wanted.m_boundaryConditions, now.m_boundaryConditions.size());
    add(std::type_identity<HygUndoAddInterface>(), wanted.m_interfaces, now.m_interfaces.size());
    add(std::type_identity<HygUndoAddInitialCond>(), wanted.m_initialConditions, now.m_initialConditions.size());
    add(std::type_identity<HygUndoAddFieldCond>(), wanted.m_fieldConditions, now.m_fieldConditions.size());
    add(std::type_identity<HygUndoAddListItem>(), merged.m_outputs.m_outputGrids,
        project().m_outputs.m_outputGrids.size());
    add(std::type_identity<HygUndoAddOutput>(), merged.m_outputs.m_outputFiles,
        project().m_outputs.m_outputFiles.size());
    return commands;
}

void HygConstructionEditor::resolveOverlaps() {
    changeList(tr("Resolve overlaps"), [&](Assignments & assignments) {
        const HygCellPlane::Parts parts = HygCellPlane::seenParts(project());
        std::vector<Assignment> result;
        for (std::size_t n = 0; n < assignments.size(); ++n) {
            const auto place = parts.find(static_cast<std::uint32_t>(n));
            if (place == parts.end()) {
                result.push_back(std::move(assignments.m_list[n]));
                continue;
            }
            for (const Range & part : place->second) {
                result.push_back(assignments.m_list[n]);
                result.back().m_range = part;
            }
        }
        assignments.m_list = std::move(result);
    });
}

void HygConstructionEditor::addStandardInterface(bool isOutdoor, const std::vector<Range> & ranges,
                                                 location_t location) {
    attempt([&] {
        Interface surface;
        surface.m_name =
            freeName(project().m_conditions.m_interfaces, (isOutdoor ? tr("Outside") : tr("Inside")).toStdString());
        surface.m_type = isOutdoor ? Interface::type_t::EngineeringOutdoor : Interface::type_t::EngineeringIndoor;
        if (isOutdoor)
            surface.m_climateTypeOutdoor = Interface::climateTypeOutdoor_t::OutdoorDIN4108;
        else
            surface.m_climateTypeIndoor = Interface::climateTypeIndoor_t::IndoorDIN4108_2014;
        surface.checkParameters();
        stack().beginMacro(isOutdoor ? tr("Add outdoor climate") : tr("Add indoor climate"));
        stack().push(new HygUndoAddInterface(tr("Add interface"), surface));
        assign(type_t::Interface, surface.m_name, ranges, location);
        stack().endMacro();
    });
}

void HygConstructionEditor::addStandardOutputs() {
    attempt([&] { HygStandardOutputs::add(stack(), project()); });
}

void HygConstructionEditor::startDetail(int cells, const KOR::Parameter & width) {
    changeGrid(tr("Start a 2D detail"), [&](Disc & disc, Assignments &) {
        for (KOR::UnitVector * list : {&disc.m_xSteps, &disc.m_ySteps})
            *list = {std::vector<double>(static_cast<std::size_t>(cells), width.ioValue()), width.ioUnit()};
    });
}

void HygConstructionEditor::assignMaterial(const MaterialReference & material, const std::vector<Range> & ranges) {
    if (hasMaterial(material.m_name))
        return assign(type_t::Material, material.m_name, ranges, location_t::Element);
    attempt([&] {
        stack().beginMacro(tr("Assign '%1'").arg(QString::fromStdString(material.m_name)));
        stack().push(new HygUndoAddMaterial(tr("Add material"), material));
        assign(type_t::Material, material.m_name, ranges, location_t::Element);
        stack().endMacro();
    });
}

MaterialReference HygConstructionEditor::materialOf(const QString & path) const {
    const int known = HygProjectMaterials::find(project(), path);
    return known < 0 ? HygProjectMaterials::reference(project(), path)
                     : project().m_materials[static_cast<std::size_t>(known)];
}

void HygConstructionEditor::assignFile(const QString & path, const std::vector<Range> & ranges) {
    attempt([&] { assignMaterial(materialOf(path), ranges); });
}

void HygConstructionEditor::addFileAsLayer(const QString & path) {
    attempt([&] {
        const MaterialReference material = materialOf(path);
        addLayer({material,
                  KOR::Parameter("Thickness", HygMaterialOffer::usualThickness(material.m_hatchCode), KOR::Unit("m")),
                  true, project().m_disc.nx()});
    });
}

bool HygConstructionEditor::hasMaterial(const std::string & name) const {
    const auto & list = project().m_materials;
    return std::any_of(list.begin(), list.end(),
                       [&](const MaterialReference & material) { return material.m_name == name; });
}
