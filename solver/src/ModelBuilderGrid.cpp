#include "ModelBuilder.h"

#include <SOLVER/Physics.h>

#include <KOR/MessageHandler.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <set>

namespace SOLVER {

using HYGRION::Assignment;
using HYGRION::InitialCond;
using HYGRION::KeywordList;
using KOR::text;

namespace {

constexpr double DRIEST_SUCTION = 1e10;         ///< relative humidity below 1e-31 [Pa]
constexpr std::uint64_t MAX_CELLS = 20'000'000; ///< some 100 GB of memory

/// The material direction along x, y and z out of the mapping's keyword, "UVW".
std::array<std::uint8_t, 3> directionsOf(const Assignment & assignment) {
    std::array<std::uint8_t, 3> result{};
    if (assignment.m_anisotropy != Assignment::AnisotropyInitType::UserMatrix) {
        const std::string word = KeywordList::Keyword(assignment.m_anisotropy);
        for (std::size_t d = 0; d < 3; ++d)
            result[d] = static_cast<std::uint8_t>(word[d] - 'U');
        return result;
    }
    if (assignment.m_rotationMatrices.empty())
        refuse("Mapping 'UserMatrix' needs a rotation matrix.");
    const auto & first = assignment.m_rotationMatrices.front().values;
    for (const auto & matrix : assignment.m_rotationMatrices)
        if (matrix.values != first)
            refuse("Mapping 'UserMatrix' with different matrices in one assignment is not available.");
    // Column c holds the material's direction c; aligned, each row has one entry of size 1.
    for (std::size_t row = 0; row < 3; ++row) {
        std::size_t found = 3;
        for (std::size_t column = 0; column < 3; ++column)
            if (std::fabs(std::fabs(first[3 * row + column]) - 1) < 1e-6)
                found = column;
        if (found == 3)
            refuse(
                "Mapping 'UserMatrix' turns the material's directions out of the grid's axes, which is not available.");
        result[row] = static_cast<std::uint8_t>(found);
    }
    return result;
}

} // namespace

void ModelBuilder::checkGrid(const HYGRION::Disc & disc) {
    // Beyond them sums of widths and ratios of volumes lose their digits.
    constexpr double NARROWEST = 1e-8;
    constexpr double WIDEST = 1e5;
    constexpr const char * NAMES[] = {"Column", "Row", "Stack plane"};
    const std::array<const KOR::UnitVector *, 3> steps{&disc.m_xSteps, &disc.m_ySteps, &disc.m_zSteps};
    for (std::size_t d = 0; d < 3; ++d) {
        const std::vector<double> widths = steps[d]->baseValues();
        const bool isPlane = d == 2 && widths.size() == 1 && widths[0] == 0;
        for (std::size_t i = 0; i < widths.size() && !isPlane; ++i)
            if (!(widths[i] >= NARROWEST && widths[i] <= WIDEST))
                refuse(text("%1 %2 is %3 m wide; cells must be %4 to %5 m wide.", NAMES[d], i + 1, widths[i], NARROWEST,
                            WIDEST));
    }
}

void ModelBuilder::readGrid() {
    const HYGRION::Disc & disc = m_project.m_disc;
    checkGrid(disc);
    const std::array<const KOR::UnitVector *, 3> steps{&disc.m_xSteps, &disc.m_ySteps, &disc.m_zSteps};
    for (std::size_t d = 0; d < 3; ++d) {
        m_widths[d] = steps[d]->baseValues();
        m_size[d] = static_cast<std::uint32_t>(m_widths[d].size());
    }
    // Three lists of a file that was read are short enough for their product to fit.
    const std::uint64_t cells = std::uint64_t{m_size[0]} * m_size[1] * m_size[2];
    if (cells > MAX_CELLS)
        refuse(text("The grid has %1 cells, %2 is the largest number that can be calculated.", cells, MAX_CELLS));
    if (m_size[2] == 1 && m_widths[2][0] == 0)
        m_widths[2][0] = 1; // a plane construction of unit depth
    for (std::size_t d = 0; d < 3; ++d) {
        m_borders[d].assign(1, 0);
        for (const double width : m_widths[d])
            m_borders[d].push_back(m_borders[d].back() + width);
    }
    if (!disc.m_thetaZ.empty() && disc.m_thetaZ.value() != 0) {
        m_angle = disc.m_thetaZ.get_value("Deg") * std::numbers::pi / 180;
        if (!(m_angle > 0) || m_angle > 2 * std::numbers::pi * (1 + 1e-9))
            refuse("Parameter 'ThetaZ', the angle of a body of revolution, must lie between 0 and 360 Deg.");
        if (m_size[2] > 1)
            refuse("A body of revolution (parameter 'ThetaZ') has one stack plane only.");
    }
    HYGRION::Discretization::updateDiscAssignmentGrid(m_size[0], m_size[1], m_size[2], m_project.m_assignments, m_grid);
}

/// With the left border as axis a cell is a ring.
double ModelBuilder::volume(const Index & index) const {
    const auto [i, j, k] = index;
    if (m_angle == 0)
        return m_widths[0][i] * m_widths[1][j] * m_widths[2][k];
    const double inner = m_borders[0][i];
    const double outer = m_borders[0][i + 1];
    return m_angle / 2 * (outer * outer - inner * inner) * m_widths[1][j];
}

double ModelBuilder::area(const GridFace & face) const {
    const auto [i, j, k] = face.index;
    if (m_angle > 0) {
        if (face.direction == 0)
            return m_angle * m_borders[0][i] * m_widths[1][j];
        const double inner = m_borders[0][i];
        const double outer = m_borders[0][i + 1];
        return face.direction == 1 ? m_angle / 2 * (outer * outer - inner * inner) : m_widths[0][i] * m_widths[1][j];
    }
    switch (face.direction) {
    case 0:
        return m_widths[1][j] * m_widths[2][k];
    case 1:
        return m_widths[0][i] * m_widths[2][k];
    default:
        return m_widths[0][i] * m_widths[1][j];
    }
}

double ModelBuilder::height(const GridFace & face) const {
    const std::uint32_t j = face.index[1];
    return face.direction == 1 ? m_borders[1][j] : m_borders[1][j] + m_widths[1][j] / 2;
}

std::uint64_t ModelBuilder::faceKey(const GridFace & face) const {
    const auto [i, j, k] = face.index;
    return ((std::uint64_t{k} * (m_size[1] + 1) + j) * (m_size[0] + 1) + i) * 3 + face.direction;
}

std::pair<std::int64_t, std::int64_t> ModelBuilder::cellsAt(const GridFace & face) const {
    std::pair<std::int64_t, std::int64_t> cells{NO_CELL, NO_CELL};
    const std::size_t d = face.direction;
    if (face.index[d] < m_size[d])
        cells.second = cellAt(face.index);
    if (face.index[d] > 0) {
        Index before = face.index;
        --before[d];
        cells.first = cellAt(before);
    }
    return cells;
}

std::vector<ModelBuilder::GridFace> ModelBuilder::facesOf(const Assignment & assignment) const {
    const auto side = static_cast<std::size_t>(assignment.m_location) - 1; // left, right, bottom, top, back, front
    const std::size_t direction = side / 2;
    const HYGRION::Range & r = assignment.m_range;
    Index first{r.left, r.bottom, r.back};
    Index last{r.right, r.top, r.front};
    if (side % 2 == 0) {
        last[direction] = first[direction];
    } else {
        first[direction] = last[direction] + 1;
        last[direction] = first[direction];
    }
    std::vector<GridFace> faces;
    for (std::uint32_t k = first[2]; k <= last[2]; ++k)
        for (std::uint32_t j = first[1]; j <= last[1]; ++j)
            for (std::uint32_t i = first[0]; i <= last[0]; ++i)
                faces.push_back({
                    direction, {i, j, k}
                });
    return faces;
}

std::int64_t ModelBuilder::materialIndex(const std::string & name) {
    if (const auto known = m_materialIndices.find(name); known != m_materialIndices.end())
        return known->second;
    const HYGRION::MaterialReference & reference = named(m_project.m_materials, name, "Material");
    return inContext(text("Material '%1' cannot be used.", name), [&] {
        const MM::Material material =
            readMaterial(m_project.resolved(reference.m_filename).systemPath(), m_materialOptions);
        MaterialFunctions functions = buildMaterialFunctions(material, m_materialOptions);
        functions.name = name;
        m_result.input.materials.emplace_back(functions);
        m_result.expansion.push_back(buildExpansion(material));
        const auto index = static_cast<std::int64_t>(m_result.input.materials.size() - 1);
        m_result.geometry.m_materials.push_back(
            {static_cast<std::uint32_t>(index + 1), reference.m_color.argb(), name});
        m_materialIndices.emplace(name, index);
        return index;
    });
}

const InitialCond & ModelBuilder::initialCondition(const std::string & name) const {
    std::set<std::string> seen;
    const InitialCond * condition = &named(m_project.m_conditions.m_initialConditions, name, "Initial condition");
    while (condition->m_value.empty() && !condition->m_reference.empty()) {
        if (!seen.insert(condition->m_name).second)
            refuse(text("Initial condition '%1' refers to itself.", name));
        condition = &named(m_project.m_conditions.m_initialConditions, condition->m_reference, "Initial condition");
    }
    return *condition;
}

void ModelBuilder::readInitialState(const std::vector<std::uint32_t> & assignments, CellAssignments & cell) {
    using Type = InitialCond::condition_t;
    using Default = HYGRION::Init::defaultInitialCondition_t;
    const MaterialTable & material = m_result.input.materials[static_cast<std::size_t>(cell.material)];
    const double density = m_result.expansion[static_cast<std::size_t>(cell.material)].density;
    const HYGRION::Init & init = m_project.m_init;

    double temperature = init.parameter(Default::DefaultTemperature).get_value("K");
    Type kind = Type::RelativeHumidity;
    double value = init.parameter(Default::DefaultRelativeHumidity).get_value("---");
    std::string name = "DefaultRelativeHumidity";
    for (const std::uint32_t index : assignments) {
        const Assignment & assignment = m_project.m_assignments.m_list[index];
        if (assignment.m_type != Assignment::type_t::InitialCondition)
            continue;
        const InitialCond & condition = initialCondition(assignment.m_reference);
        condition.checkParameters();
        const Type type = *condition.m_type;
        if (type >= Type::VOCMass)
            refuse(text("Initial condition '%1' is of type '%2', which belongs to modules that are not available.",
                        assignment.m_reference, KeywordList::Keyword(type)));
        const double given = condition.m_value.get_value(
            KOR::Unit(KeywordList::Unit("InitialCond::condition_t", static_cast<int>(type))).base());
        if (type == Type::Temperature) {
            temperature = given;
        } else {
            kind = type;
            value = given;
            name = assignment.m_reference;
        }
    }
    cell.temperature = m_isothermalTemperature.value_or(temperature);

    const double kelvin = kelvinPressure(m_result.input.useReferenceTemperature ? T_REF : cell.temperature);
    const auto fromMass = [&](double mass) {
        if (mass > material.saturation() * (1 + 1e-9))
            refuse(text("Initial condition '%1' asks for %2 kg/m3, but material '%3' holds %4 kg/m3 at most.", name,
                        KOR::toString(mass, 6), material.name(), KOR::toString(material.saturation(), 6)));
        std::uint32_t interval = 0;
        return std::max(0.0, material.fromMoisture(mass, interval).suction);
    };
    switch (kind) {
    case Type::RelativeHumidity:
        cell.suction = value > 0 ? -kelvin * std::log(value) : DRIEST_SUCTION;
        break;
    case Type::CapillaryPressure:
        cell.suction = -value;
        break;
    case Type::MoistureContent:
        cell.suction = fromMass(RHO_WATER * value);
        break;
    case Type::MoistureMass:
        cell.suction = fromMass(value);
        break;
    case Type::MoistureMassByMass:
        cell.suction = fromMass(density * value);
        break;
    default:
        break;
    }
    cell.suction = std::clamp(cell.suction, 0.0, DRIEST_SUCTION);
}

ModelBuilder::CellAssignments ModelBuilder::resolve(const std::vector<std::uint32_t> & assignments) {
    CellAssignments cell;
    for (const std::uint32_t index : assignments) { // the last one of a kind counts
        const Assignment & assignment = m_project.m_assignments.m_list[index];
        if (assignment.m_type == Assignment::type_t::Material)
            inContext(
                text("Assignment %1 (%2) cannot be used.", m_project.assignmentLabel(index), assignment.description()),
                [&] {
                    cell.material = materialIndex(assignment.m_reference);
                    cell.direction = directionsOf(assignment);
                });
    }
    if (cell.material >= 0)
        readInitialState(assignments, cell);
    return cell;
}

void ModelBuilder::makeCells() {
    std::vector<std::optional<CellAssignments>> resolved(m_grid.listCount() + 1);
    m_result.cellOfGrid.assign(std::size_t{m_size[0]} * m_size[1] * m_size[2], NO_CELL);
    Index index{};
    for (index[2] = 0; index[2] < m_size[2]; ++index[2])
        for (index[1] = 0; index[1] < m_size[1]; ++index[1])
            for (index[0] = 0; index[0] < m_size[0]; ++index[0]) {
                const auto list = m_grid.elementList(index[0], index[1], index[2]);
                if (list >= resolved.size())
                    resolved.resize(list + 1);
                if (!resolved[list])
                    resolved[list] = resolve(m_grid.list(list));
                const CellAssignments & cell = *resolved[list];
                if (cell.material < 0)
                    continue; // open air, or nothing
                const auto material = static_cast<std::uint32_t>(cell.material);
                m_result.cellOfGrid[gridIndex(index)] = static_cast<std::int64_t>(m_result.input.cells.size());
                m_result.input.cells.push_back(
                    {volume(index), material, cell.temperature, cell.suction, cell.direction});
                m_result.cellPlaces.push_back({index, material});
            }
    if (m_result.input.cells.empty())
        refuse("No material is assigned to any cell.");
    checkEmptyCells();
}

/// Cells without material are open air. Where no interface faces them they are an oversight, but at the rim of a detail
/// they may be cut off on purpose.
void ModelBuilder::checkEmptyCells() const {
    const bool isWall = m_size[1] == 1 && m_size[2] == 1;
    std::set<std::uint64_t> faced;
    for (const Assignment & assignment : m_project.m_assignments.m_list)
        if (assignment.m_type == Assignment::type_t::Interface)
            for (const GridFace & face : facesOf(assignment))
                faced.insert(faceKey(face));
    std::vector<bool> seen(m_result.cellOfGrid.size(), false);
    for (std::size_t start = 0; start < seen.size(); ++start) {
        if (m_result.cellOfGrid[start] != NO_CELL || seen[start])
            continue;
        const Index first = indexOf(start);
        // All empty cells that hang together, and whether an interface looks at them.
        bool isFaced = false;
        bool isEnclosed = true;
        std::vector<Index> open{first};
        seen[start] = true;
        while (!open.empty()) {
            const Index index = open.back();
            open.pop_back();
            for (std::size_t d = 0; d < 3; ++d)
                for (const bool isUpper : {false, true}) {
                    GridFace face{d, index};
                    face.index[d] += isUpper ? 1 : 0;
                    if (isUpper ? index[d] + 1 == m_size[d] : index[d] == 0) {
                        isEnclosed = isEnclosed && m_size[d] == 1;
                        continue;
                    }
                    Index next = index;
                    next[d] += isUpper ? 1u : -1u;
                    if (cellAt(next) != NO_CELL) {
                        isFaced = isFaced || faced.contains(faceKey(face));
                    } else if (!seen[gridIndex(next)]) {
                        seen[gridIndex(next)] = true;
                        open.push_back(next);
                    }
                }
        }
        if (isFaced)
            continue;
        if (isEnclosed || isWall)
            refuse(
                text("The cells without material at %1 have no interface: either a material or the climate that they "
                     "stand for is missing.",
                     placeText(first)));
        KOR::message(text("No heat and no moisture passes into the cells without material at %1, which have no "
                          "interface.",
                          placeText(first)),
                     KOR::MSG_WARNING, "[SOLVER::buildConstruction]");
    }
}

std::array<double, 3> ModelBuilder::upDirection() const {
    if (m_size[1] > 1 || m_size[2] > 1 || m_angle > 0)
        return {0, 1, 0};
    // One dimension: the inclination of a surface tells how the layers lie; its outward normal rises with its cosine.
    for (const Assignment & assignment : m_project.m_assignments.m_list) {
        if (assignment.m_type != Assignment::type_t::Interface)
            continue;
        const HYGRION::Interface & interface = interfaceOf(assignment.m_reference);
        const auto inclination = interface.m_para.value(HYGRION::Interface::para_t::Inclination, "Deg");
        const bool isLeft = assignment.m_location == Assignment::location_t::Left;
        if (inclination && (isLeft || assignment.m_location == Assignment::location_t::Right))
            return {(isLeft ? -1 : 1) * std::cos(*inclination * std::numbers::pi / 180), 0, 0};
    }
    return {0, 0, 0};
}

void ModelBuilder::makeFaces() {
    const std::array<double, 3> up = upDirection();
    for (std::uint32_t c = 0; c < m_result.cellPlaces.size(); ++c)
        for (std::size_t d = 0; d < 3; ++d) {
            GridFace face{d, m_result.cellPlaces[c].index};
            const double width = m_widths[d][face.index[d]];
            if (++face.index[d] == m_size[d])
                continue;
            const std::int64_t other = cellsAt(face).second;
            if (other == NO_CELL)
                continue;
            const double otherWidth = m_widths[d][face.index[d]];
            ModelInput::Face made{c,
                                  static_cast<std::uint32_t>(other),
                                  area(face),
                                  width / 2,
                                  otherWidth / 2,
                                  up[d] * (width + otherWidth) / 2,
                                  {},
                                  static_cast<int>(d)};
            if (const auto contact = m_contacts.find(faceKey(face)); contact != m_contacts.end())
                made.contact = contact->second;
            m_result.input.faces.push_back(made);
        }
}

void ModelBuilder::makeGeometry() {
    m_result.geometry.setGrid(m_widths);
    std::vector<std::uint32_t> ids(m_result.cellOfGrid.size(), 0); // 0 where nothing is
    for (std::size_t g = 0; g < ids.size(); ++g)
        if (m_result.cellOfGrid[g] != NO_CELL)
            ids[g] = m_result.input.cells[static_cast<std::size_t>(m_result.cellOfGrid[g])].material + 1;
    m_result.geometry.makeTables(ids);
}

} // namespace SOLVER
