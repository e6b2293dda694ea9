#include <SOLVER/OutputWriter.h>

#include <SOLVER/Physics.h>

#include <KOR/Binary.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/UnitList.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <iostream>
#include <limits>
#include <numeric>
#include <set>

namespace SOLVER {

using KOR::Exception;
using KOR::text;
using Header = DATAIO::DataHeader;
using Location = HYGRION::Assignment::location_t;
using SpaceType = HYGRION::OutputFile::space_type_t;
using TimeType = HYGRION::OutputFile::time_type_t;

namespace {

constexpr const char * WHERE = "[OutputWriter::OutputWriter]";
constexpr const char * GEOMETRY_FILE = "geometry.h6g";
/// Of the length of a step: output times that lie closer are one.
constexpr double TIME_TOLERANCE = 1e-9;
/// No grid has more times.
constexpr double MOST_OUTPUTS = 1e8;

std::uint64_t key(std::uint64_t high, std::uint64_t low) {
    return high << 32 | low;
}
std::uint64_t sideKey(std::uint64_t gridCell, std::uint32_t location) {
    return gridCell * 8 + location;
}

/// A name that every file system takes.
std::string fileName(const std::string & name) {
    std::string safe;
    for (const char c : name)
        safe += static_cast<unsigned char>(c) < ' ' || std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos
                    ? '_'
                    : c;
    return safe.empty() || safe.front() == '.' ? '_' + safe : safe;
}

KOR::Unit spaceIntegral(const OutputQuantity & quantity) {
    return quantity.integralUnit == "---" ? KOR::Unit() : KOR::Unit(quantity.integralUnit).base();
}
/// Undefined where the registry has no name for the integral.
KOR::Unit timeIntegral(KOR::Unit unit) {
    try {
        return unit == KOR::Unit() ? unit : KOR::UnitList::instance().integralQuantity(unit);
    } catch (const Exception &) {
        return {};
    }
}

std::string now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm utc{};
    std::array<char, 32> buffer{};
    if (gmtime_r(&seconds, &utc) == nullptr)
        return {};
    return {buffer.data(), std::strftime(buffer.data(), buffer.size(), "%Y-%m-%d %H:%M:%S", &utc)};
}

void makeDirectory(const std::string & path) {
    KOR::Path(path).makePath();
}

} // namespace

OutputWriter::OutputWriter(const HYGRION::Project & project, const Construction & construction, Model & model,
                           std::string directory)
    : m_outputs(project.m_outputs), m_construction(construction), m_model(model), m_directory(std::move(directory)) {
    using Para = HYGRION::Outputs::para_t;
    m_projectFile = project.m_fileName.empty() ? std::string() : KOR::Path(project.m_fileName).filename();
    m_maxHygroscopicHumidity = m_outputs.m_para.value(Para::MaximumHygricRH, "---").value_or(0.98);
    m_expansionTemperature = m_outputs.m_para.value(Para::ThermalExpansionTRef, "K").value_or(T_REF);
    m_expansionHumidity = m_outputs.m_para.value(Para::HygricExpansionRHRef, "---").value_or(0);
    for (const HYGRION::Assignment & assignment : project.m_assignments.m_list)
        if (assignment.m_type == HYGRION::Assignment::type_t::Output)
            m_assignments.push_back(assignment);
    makeGrids(construction.startTime, construction.endTime);
    indexSides();

    std::set<std::string> used;
    for (const HYGRION::OutputFile & definition : m_outputs.m_outputFiles) {
        File file;
        file.definition = &definition;
        try {
            resolve(file);
        } catch (const Exception & ex) {
            throw Exception(ex, text("Error in output '%1'.", definition.m_name), WHERE);
        }
        if (file.targets.empty())
            continue;
        if (!m_directory.empty()) {
            const std::string path = resultPath(definition);
            const std::string extension = m_outputs.isBinary() ? ".h6b" : ".h6o";
            file.path = path + extension;
            for (int n = 2; !used.insert(KOR::Path(file.path).str()).second; ++n)
                file.path = path + text(" (%1)", n) + extension;
        }
        m_files.push_back(std::move(file));
    }
    for (const File & file : m_files) {
        const TimeType type = file.definition->m_timeType;
        m_needsQuadrature = m_needsQuadrature || type == TimeType::Mean || type == TimeType::Integral;
        m_needsExtremes = m_needsExtremes || type == TimeType::Min || type == TimeType::Max;
    }
    for (std::size_t g = 0; g < m_grids.size(); ++g)
        if (std::none_of(m_files.begin(), m_files.end(), [g](const File & file) { return file.grid == g; }))
            m_grids[g].next = NEVER; // nobody waits for it
}

// *** output times ***

void OutputWriter::Grid::advance() {
    const double before = next;
    while (span < spans.size()) {
        const Span & s = spans[span];
        const double time = s.start + count * s.step;
        if (time > s.end + TIME_TOLERANCE * s.step) {
            ++span;
            count = 0;
            continue;
        }
        count += 1;
        if (before == NEVER || time > before + TIME_TOLERANCE * s.step) {
            next = time;
            return;
        }
    }
    next = NEVER;
}

void OutputWriter::checkGrid(const HYGRION::OutputGrid & definition, double endTime) {
    for (const HYGRION::Interval & interval : definition.m_intervals) {
        const double step = interval.stepSize();
        if (!(step > 0))
            throw Exception(text("Output grid '%1' has an interval without StepSize.", definition.m_name), WHERE);
        if ((std::min(interval.end(), endTime) - interval.start()) / step > MOST_OUTPUTS)
            throw Exception(text("Output grid '%1': more than %2 outputs are asked for, the StepSize is too small.",
                                 definition.m_name, MOST_OUTPUTS),
                            WHERE);
    }
}

void OutputWriter::makeGrids(double startTime, double endTime) {
    for (const HYGRION::OutputGrid & definition : m_outputs.m_outputGrids) {
        Grid & grid = m_grids.emplace_back();
        checkGrid(definition, endTime);
        for (const HYGRION::Interval & interval : definition.m_intervals) {
            const double step = interval.stepSize();
            Grid::Span span{interval.start(), std::min(interval.end(), endTime), step};
            // What lies before the simulation is not written.
            if (span.start < startTime)
                span.start += step * std::ceil((startTime - span.start) / step - TIME_TOLERANCE);
            grid.spans.push_back(span);
        }
        grid.advance();
    }
}

double OutputWriter::nextTime() const {
    double next = NEVER;
    for (const Grid & grid : m_grids)
        next = std::min(next, grid.next);
    return next;
}

// *** what is written ***

void OutputWriter::indexSides() {
    const ModelInput & input = m_model.input();
    const DATAIO::GeoFile & geometry = m_construction.geometry;
    const std::uint64_t nx = geometry.widths(0).size();
    const std::uint64_t ny = geometry.widths(1).size();
    const auto gridCell = [&](std::uint64_t i, std::uint64_t j, std::uint64_t k) { return i + nx * (j + ny * k); };
    for (const DATAIO::GeoFile::Side & side : geometry.m_sides)
        m_sides[sideKey(gridCell(side.i, side.j, side.k), side.location)] = side.number;
    for (std::uint32_t s = 0; s < m_construction.surfacePlaces.size(); ++s) {
        const Construction::SurfacePlace & place = m_construction.surfacePlaces[s];
        m_surfaces[sideKey(gridCell(place.index[0], place.index[1], place.index[2]), place.location)] = s;
    }
    if (!input.loadedCells.empty())
        m_loadsOfCell.resize(input.cells.size());
    for (std::uint32_t i = 0; i < input.loadedCells.size(); ++i)
        m_loadsOfCell.at(input.loadedCells[i]).push_back(i);
    for (std::uint32_t f = 0; f < input.faces.size(); ++f)
        m_faces[key(input.faces[f].a, input.faces[f].b)] = f;
}

std::string OutputWriter::resultPath(const HYGRION::OutputFile & file) const {
    const bool hasOwnDirectory = m_outputs.m_flag.isEnabled(HYGRION::Outputs::flag_t::CreateDirectoryPerGrid);
    return m_directory + '/' + (hasOwnDirectory ? fileName(file.m_outputGrid) + '/' : std::string()) +
           fileName(file.m_name);
}

void OutputWriter::resolve(File & file) {
    const HYGRION::OutputFile & definition = *file.definition;
    file.quantity = &outputQuantity(definition.m_quantity);
    const auto & grids = m_outputs.m_outputGrids;
    const auto grid = std::find_if(grids.begin(), grids.end(),
                                   [&](const auto & known) { return known.m_name == definition.m_outputGrid; });
    if (grid == grids.end())
        throw Exception(text("There is no output grid '%1'.", definition.m_outputGrid), WHERE);
    file.grid = static_cast<std::size_t>(grid - grids.begin());

    bool isAssigned = false;
    bool hasSides = false, hasCells = false;
    std::size_t block = 0;
    for (const HYGRION::Assignment & assignment : m_assignments) {
        if (assignment.m_reference != definition.m_name)
            continue;
        checkPlace(definition, assignment);
        isAssigned = true;
        (assignment.isOnSide() ? hasSides : hasCells) = true;
        if (hasSides && hasCells)
            throw Exception("One output is assigned both to elements and to sides.", WHERE);
        if (assignment.isOnSide())
            addSides(file, assignment);
        else if (assignment.m_location == Location::Coordinate)
            addPoint(file, assignment);
        else
            addElements(file, assignment, block);
        ++block;
    }
    if (!isAssigned) {
        m_warnings.push_back(text("Output '%1' is not assigned to any place, nothing is written.", definition.m_name));
        return;
    }
    if (file.targets.empty())
        throw Exception("It is assigned to places where there is no material.", WHERE);

    const OutputQuantity & quantity = *file.quantity;
    const module_t module = m_model.input().module;
    if ((quantity.needsHeat && module == module_t::moisture) || (quantity.needsMoisture && module == module_t::heat))
        m_warnings.push_back(text("Output '%1': %2 stays as it is, the project does not balance %3.", definition.m_name,
                                  quantity.keyword, module == module_t::heat ? "moisture" : "heat"));
    const Units units = unitsOf(definition, quantity);
    file.baseUnit = units.base;
    file.unit = units.written;
    Header & header = file.header;
    header.type = quantity.kind == OutputQuantity::STATE ? Header::STATE : hasSides ? Header::FLUX : Header::FIELD;
    header.projectFile = m_projectFile;
    header.created = now();
    header.quantity = definition.m_name;
    header.quantityKeyword = quantity.keyword;
    header.spaceType = static_cast<Header::spaceType_t>(definition.m_spaceType);
    header.timeType = static_cast<Header::timeType_t>(definition.m_timeType);
    header.valueUnit = file.unit.name();
    header.timeUnit = m_outputs.m_timeUnit.name();
    header.startYear = m_construction.startYear;
    file.accumulated.assign(header.valueCount(), 0.0);
}

OutputWriter::Units OutputWriter::unitsOf(const HYGRION::OutputFile & definition, const OutputQuantity & quantity) {
    const KOR::Unit own(quantity.unit);
    KOR::Unit base = own.base();
    const bool isSum = definition.m_spaceType == SpaceType::Integral;
    if (isSum && !quantity.isAmount)
        base = spaceIntegral(quantity);
    if (definition.m_timeType == TimeType::Integral)
        base = timeIntegral(base);
    const bool isPlain = base == own.base();
    const KOR::Unit asked = definition.m_outputUnit;
    if (base == KOR::Unit()) { // an integral without a name, in base units
        if (asked != KOR::Unit() && asked != KOR::Unit("---"))
            throw Exception(text("This integral of %1 has no unit of the list, '%2' cannot be used.", quantity.keyword,
                                 asked.name()),
                            WHERE);
        return {KOR::Unit("---"), KOR::Unit("---")};
    }
    const KOR::Unit written = asked != KOR::Unit() ? asked : isPlain ? own : base;
    if (written.base() != base)
        throw Exception(text("Unit '%1' does not fit %2, which is given in '%3'.", asked.name(), quantity.keyword,
                             isPlain ? own.name() : base.name()),
                        WHERE);
    return {base, written};
}

void OutputWriter::checkDefinition(const HYGRION::OutputFile & definition) {
    unitsOf(definition, outputQuantity(definition.m_quantity));
}

void OutputWriter::checkPlace(const HYGRION::OutputFile & definition, const HYGRION::Assignment & assignment) {
    const OutputQuantity & quantity = outputQuantity(definition.m_quantity);
    if (!assignment.isOnSide() && quantity.ofCell == nullptr)
        throw Exception(text("Quantity %1 belongs to sides, it cannot be assigned to elements.", quantity.keyword),
                        WHERE);
    if (assignment.isOnSide() && quantity.ofFace == nullptr && quantity.ofSurface == nullptr)
        throw Exception(text("Quantity %1 belongs to elements, it cannot be assigned to sides.", quantity.keyword),
                        WHERE);
}

void OutputWriter::addCell(File & file, std::size_t gridCell, std::size_t block) {
    const std::int64_t cell = m_construction.cellOfGrid.at(gridCell);
    if (cell < 0)
        return;
    const auto number = static_cast<std::uint32_t>(gridCell);
    auto & indices = file.header.indices;
    const auto index = static_cast<std::size_t>(cell);
    file.targets.push_back(
        {Target::CELL, index, file.quantity->isAmount ? 1 : m_model.input().cells[index].volume, 1, block});
    if (file.quantity->kind != OutputQuantity::STATE || indices.size() <= block)
        indices.push_back(number);
}

void OutputWriter::addElements(File & file, const HYGRION::Assignment & assignment, std::size_t block) {
    const DATAIO::GeoFile & geometry = m_construction.geometry;
    const HYGRION::Range & range = assignment.m_range;
    const std::size_t nx = geometry.widths(0).size();
    const std::size_t ny = geometry.widths(1).size();
    if (range.right >= nx || range.top >= ny || range.front >= geometry.widths(2).size())
        throw Exception(text("Its range %1 lies outside the grid.", range.toString()), WHERE);
    std::set<std::uint32_t> known;
    if (file.quantity->kind != OutputQuantity::STATE) // several blocks together, each element once
        known.insert(file.header.indices.begin(), file.header.indices.end());
    const std::size_t before = file.targets.size();
    for (std::size_t k = range.back; k <= range.front; ++k)
        for (std::size_t j = range.bottom; j <= range.top; ++j)
            for (std::size_t i = range.left; i <= range.right; ++i)
                if (const std::size_t gridCell = i + nx * (j + ny * k);
                    known.empty() || !known.contains(static_cast<std::uint32_t>(gridCell)))
                    addCell(file, gridCell, block);
    if (file.quantity->kind == OutputQuantity::STATE && file.targets.size() == before)
        throw Exception(text("Its range %1 holds no material.", range.toString()), WHERE);
}

void OutputWriter::addPoint(File & file, const HYGRION::Assignment & assignment) {
    const HYGRION::Point3D & p = assignment.m_coordinates;
    const double point[3] = {p.x, p.y, p.z};
    std::size_t index[3] = {};
    for (int d = 0; d < 3; ++d) {
        const std::vector<double> & edges = m_construction.geometry.boundaries(d);
        const auto at = static_cast<std::size_t>(d);
        if (edges.size() < 2 || point[at] < edges.front() || point[at] > edges.back())
            throw Exception(text("The point (%1, %2, %3) m lies outside the grid.", p.x, p.y, p.z), WHERE);
        const auto above = std::upper_bound(edges.begin(), edges.end(), point[at]);
        index[at] = std::min(static_cast<std::size_t>(above - edges.begin()), edges.size() - 1) - 1;
    }
    const std::size_t before = file.targets.size();
    addCell(file,
            index[0] + m_construction.geometry.widths(0).size() *
                           (index[1] + m_construction.geometry.widths(1).size() * index[2]),
            before);
    if (file.targets.size() == before)
        throw Exception(text("There is no material at the point (%1, %2, %3) m.", p.x, p.y, p.z), WHERE);
}

void OutputWriter::addSides(File & file, const HYGRION::Assignment & assignment) {
    const OutputQuantity & quantity = *file.quantity;
    const DATAIO::GeoFile & geometry = m_construction.geometry;
    const std::array<std::int64_t, 3> n{static_cast<std::int64_t>(geometry.widths(0).size()),
                                        static_cast<std::int64_t>(geometry.widths(1).size()),
                                        static_cast<std::int64_t>(geometry.widths(2).size())};
    const HYGRION::Range & range = assignment.m_range;
    if (range.right >= n[0] || range.top >= n[1] || range.front >= n[2])
        throw Exception(text("Its range %1 lies outside the grid.", range.toString()), WHERE);
    const auto location = static_cast<std::uint32_t>(assignment.m_location);
    const std::size_t direction = (location - 1) / 2;
    const bool isUpper = location % 2 == 0;
    std::array<std::int64_t, 3> first{range.left, range.bottom, range.back};
    std::array<std::int64_t, 3> last{range.right, range.top, range.front};
    (isUpper ? first : last)[direction] = (isUpper ? last : first)[direction]; // only the side of the block itself

    const std::set<std::uint32_t> known(file.header.indices.begin(), file.header.indices.end());
    const auto cellAt = [&](const std::array<std::int64_t, 3> & at) -> std::int64_t {
        if (at[direction] < 0 || at[direction] >= n[direction])
            return -1;
        return m_construction.cellOfGrid.at(static_cast<std::size_t>(at[0] + n[0] * (at[1] + n[1] * at[2])));
    };
    const auto gridNumber = [&](const std::array<std::int64_t, 3> & at) {
        return static_cast<std::uint64_t>(at[0] + n[0] * (at[1] + n[1] * at[2]));
    };
    std::array<std::int64_t, 3> at{};
    for (at[2] = first[2]; at[2] <= last[2]; ++at[2])
        for (at[1] = first[1]; at[1] <= last[1]; ++at[1])
            for (at[0] = first[0]; at[0] <= last[0]; ++at[0]) {
                // The cells below and above the side.
                std::array<std::int64_t, 3> lower = at, upper = at;
                (isUpper ? upper : lower)[direction] += isUpper ? 1 : -1;
                const std::int64_t below = cellAt(lower), above = cellAt(upper);
                if (below < 0 && above < 0)
                    continue;
                const bool isLast = upper[direction] == n[direction];
                const auto upperOf = static_cast<std::uint32_t>(2 * direction + 2);
                const auto lowerOf = static_cast<std::uint32_t>(2 * direction + 1);
                const std::uint32_t number =
                    m_sides.at(isLast ? sideKey(gridNumber(lower), upperOf) : sideKey(gridNumber(upper), lowerOf));
                if (known.contains(number))
                    continue;

                Target target;
                const auto find = [&](const auto & map, std::uint64_t wanted) {
                    const auto found = map.find(wanted);
                    if (found == map.end())
                        return false;
                    target.index = found->second;
                    return true;
                };
                const auto a = static_cast<std::uint64_t>(below), b = static_cast<std::uint64_t>(above);
                if ((below >= 0 && find(m_surfaces, sideKey(gridNumber(lower), upperOf))) ||
                    (above >= 0 && find(m_surfaces, sideKey(gridNumber(upper), lowerOf)))) {
                    target.kind = Target::SURFACE;
                    const ModelInput::Surface & surface = m_model.input().surfaces[target.index];
                    target.weight = surface.area;
                    target.coupling = m_construction.surfacePlaces[target.index].coupling;
                    if (target.coupling >= 0) {
                        const auto & face = m_model.input().faces[static_cast<std::size_t>(target.coupling)];
                        target.isSeenFromB = face.b == surface.cell;
                        target.sign = target.isSeenFromB ? 1 : -1;
                    }
                    if (quantity.needsPipe &&
                        !(m_construction.pipeFlow && m_construction.pipeFlow(m_construction.startTime, target.index)))
                        throw Exception(text("Quantity %1 belongs to the surfaces of a pipe; interface '%2' has no "
                                             "boundary condition of kind 'PipeCollectorModel', or several.",
                                             quantity.keyword, m_construction.surfacePlaces[target.index].interface),
                                        WHERE);
                } else if (below >= 0 && above >= 0 && (find(m_faces, key(a, b)) || find(m_faces, key(b, a)))) {
                    target.kind = Target::FACE;
                    const ModelInput::Face & face = m_model.input().faces[target.index];
                    target.weight = face.area;
                    target.sign = quantity.kind == OutputQuantity::FLUX && face.a != a ? -1 : 1;
                    target.isSeenFromB = face.b == (isUpper ? a : b);
                } else {
                    target.kind = Target::CLOSED;
                    target.index = below >= 0 ? a : b;
                    const ModelInput::Cell & cell = m_model.input().cells[target.index];
                    target.weight = cell.volume /
                                    geometry.widths(static_cast<int>(
                                        direction))[static_cast<std::size_t>((below >= 0 ? lower : upper)[direction])];
                }
                if (target.kind == Target::FACE && quantity.ofFace == nullptr)
                    throw Exception(text("Quantity %1 belongs to surfaces, the side at %2 has cells on both sides.",
                                         quantity.keyword, range.toString()),
                                    WHERE);
                file.targets.push_back(target);
                file.header.indices.push_back(number);
            }
}

// *** values ***

Snapshot OutputWriter::snapshot(double time, std::span<const double> state) const {
    return {m_model,
            m_construction,
            time,
            state,
            m_loadsOfCell,
            m_maxHygroscopicHumidity,
            m_expansionTemperature,
            m_expansionHumidity};
}

double OutputWriter::surfaceValue(const OutputQuantity & quantity, const Target & target, const Snapshot & snapshot) {
    const double own = quantity.ofSurface(snapshot, target.index);
    if (target.coupling < 0 || quantity.ofFace == nullptr)
        return own;
    const double across = quantity.ofFace(snapshot, static_cast<std::size_t>(target.coupling), target.isSeenFromB);
    return quantity.kind == OutputQuantity::FLUX ? own + target.sign * across : across;
}

void OutputWriter::evaluate(const File & file, const Snapshot & snapshot) {
    const OutputQuantity & quantity = *file.quantity;
    const SpaceType space = file.definition->m_spaceType;
    const bool isState = quantity.kind == OutputQuantity::STATE;
    const bool isSingle = space == SpaceType::Single && !isState;
    m_values.assign(file.header.valueCount(), 0.0);
    double total = 0;
    for (std::size_t i = 0; i < file.targets.size(); ++i) {
        const Target & target = file.targets[i];
        double value = 0;
        switch (target.kind) {
        case Target::CELL:
        case Target::CLOSED: // no flux passes there
            value = quantity.ofCell != nullptr ? quantity.ofCell(snapshot, target.index) : 0;
            break;
        case Target::FACE:
            value = target.sign * quantity.ofFace(snapshot, target.index, target.isSeenFromB);
            break;
        case Target::SURFACE:
            value = surfaceValue(quantity, target, snapshot);
            break;
        }
        if (isSingle) {
            m_values[i] = value;
            continue;
        }
        if (isState) {
            m_values[target.block] += value;
            continue;
        }
        if (std::isnan(value)) // nothing is there that the others could be compared with
            continue;
        double & sum = m_values[0];
        switch (space) {
        case SpaceType::Min:
            sum = total == 0 ? value : std::min(sum, value);
            break;
        case SpaceType::Max:
            sum = total == 0 ? value : std::max(sum, value);
            break;
        default:
            sum += target.weight * value;
        }
        total += target.weight;
    }
    if (isSingle || isState)
        return;
    if (total == 0)
        m_values[0] = std::numeric_limits<double>::quiet_NaN();
    else if (space == SpaceType::Mean)
        m_values[0] /= total;
}

void OutputWriter::accumulate(const Snapshot & snapshot, double weight) {
    for (File & file : m_files) {
        const TimeType type = file.definition->m_timeType;
        if ((type != TimeType::Mean && type != TimeType::Integral) || m_grids[file.grid].last == NEVER)
            continue;
        evaluate(file, snapshot);
        for (std::size_t i = 0; i < m_values.size(); ++i)
            file.accumulated[i] += weight * m_values[i];
    }
}

void OutputWriter::observe(const Snapshot & snapshot) {
    for (File & file : m_files) {
        const TimeType type = file.definition->m_timeType;
        if (type != TimeType::Min && type != TimeType::Max)
            continue;
        evaluate(file, snapshot);
        for (std::size_t i = 0; i < m_values.size(); ++i)
            file.accumulated[i] = file.isFresh            ? m_values[i]
                                  : type == TimeType::Min ? std::min(file.accumulated[i], m_values[i])
                                                          : std::max(file.accumulated[i], m_values[i]);
        file.isFresh = false;
    }
}

void OutputWriter::write(double time, const Snapshot & snapshot) {
    double timePoint = time;
    KOR::UnitList::instance().convert(KOR::Unit("s"), m_outputs.m_timeUnit, timePoint);
    for (File & file : m_files) {
        const Grid & grid = m_grids[file.grid];
        if (grid.next > time)
            continue;
        const bool isFirst = grid.last == NEVER;
        switch (file.definition->m_timeType) {
        case TimeType::None:
            evaluate(file, snapshot);
            break;
        case TimeType::Mean:
            if (isFirst) {
                evaluate(file, snapshot);
            } else {
                m_values = file.accumulated;
                for (double & value : m_values)
                    value /= time - grid.last;
            }
            std::fill(file.accumulated.begin(), file.accumulated.end(), 0.0);
            break;
        case TimeType::Integral:
            m_values = file.accumulated;
            break;
        case TimeType::Min:
        case TimeType::Max:
            if (file.isFresh || isFirst)
                evaluate(file, snapshot);
            else
                m_values = file.accumulated;
            file.isFresh = true;
            break;
        }
        if (file.unit != file.baseUnit)
            KOR::UnitList::instance().convert(file.baseUnit, file.unit, std::span(m_values));
        if (file.writer)
            file.writer->append(timePoint, m_values);
    }
    for (Grid & grid : m_grids)
        if (grid.next <= time) {
            grid.last = grid.next;
            grid.advance();
        }
    if (m_needsExtremes)
        observe(snapshot); // the end of one span of time is the start of the next
}

// *** files ***

void OutputWriter::open(std::optional<double> resumeAt) {
    if (m_directory.empty())
        return;
    makeDirectory(m_directory);
    const std::string content = m_construction.geometry.content(m_outputs.isBinary());
    KOR::writeFile(m_directory + '/' + GEOMETRY_FILE, content);
    double lastTime = resumeAt.value_or(0);
    KOR::UnitList::instance().convert(KOR::Unit("s"), m_outputs.m_timeUnit, lastTime);
    const bool hasOwnDirectory = m_outputs.m_flag.isEnabled(HYGRION::Outputs::flag_t::CreateDirectoryPerGrid);
    for (File & file : m_files) {
        makeDirectory(KOR::Path(file.path).parentPath().str());
        file.header.geoFile = hasOwnDirectory ? std::string("../") + GEOMETRY_FILE : GEOMETRY_FILE;
        file.header.geoFileHash = DATAIO::GeoFile::hash(content);
        const int precision = m_outputs.asciiPrecision();
        file.writer = std::make_unique<DATAIO::DataWriter>(
            resumeAt ? DATAIO::DataWriter::resume(file.path, file.header, lastTime, precision)
                     : DATAIO::DataWriter(file.path, file.header, m_outputs.isBinary(), precision));
    }
}

void OutputWriter::flush() {
    for (File & file : m_files)
        if (file.writer)
            file.writer->flush();
}

std::vector<std::string> OutputWriter::paths() const {
    std::vector<std::string> all;
    for (const File & file : m_files)
        if (!file.path.empty())
            all.push_back(file.path);
    return all;
}

void OutputWriter::save(std::ostream & out) const {
    KOR::write_binary(out, static_cast<std::uint32_t>(m_grids.size()));
    for (const Grid & grid : m_grids) {
        KOR::write_binary(out, static_cast<std::uint64_t>(grid.span));
        for (const double value : {grid.count, grid.next, grid.last})
            KOR::write_binary(out, value);
    }
    KOR::write_binary(out, static_cast<std::uint32_t>(m_files.size()));
    for (const File & file : m_files) {
        KOR::write_string_binary(out, file.definition->m_name);
        KOR::write_binary(out, static_cast<std::uint8_t>(file.isFresh));
        KOR::write_vector_binary(out, file.accumulated);
    }
}

void OutputWriter::load(std::istream & in) {
    constexpr std::uint32_t MAX_NAME = 100'000;
    const auto refuse = [](bool isOther) {
        if (isOther)
            throw Exception("The outputs of the project are no longer those of the interrupted run.",
                            "[OutputWriter::load]");
    };
    refuse(KOR::read_binary<std::uint32_t>(in) != m_grids.size());
    for (Grid & grid : m_grids) {
        grid.span = static_cast<std::size_t>(KOR::read_binary<std::uint64_t>(in));
        for (double * value : {&grid.count, &grid.next, &grid.last})
            *value = KOR::read_binary<double>(in);
        if (grid.next == NEVER && grid.last != NEVER) { // the end of the simulation may have moved
            grid.span = std::min(grid.span, grid.spans.size());
            grid.next = grid.last;
            grid.span = 0;
            grid.count = 0;
            grid.advance();
        }
    }
    refuse(KOR::read_binary<std::uint32_t>(in) != m_files.size());
    for (File & file : m_files) {
        refuse(KOR::read_string_binary(in, MAX_NAME) != file.definition->m_name);
        file.isFresh = KOR::read_binary<std::uint8_t>(in) != 0;
        std::vector<double> values = KOR::read_vector_binary<double>(in, 1'000'000);
        refuse(values.size() != file.accumulated.size());
        file.accumulated = std::move(values);
    }
}

} // namespace SOLVER
