#include "ModelBuilder.h"

#include <MM/Physics.h>

#include <algorithm>
#include <cmath>
#include <numbers>

/// Interfaces of the project become surfaces of the model and the laws that act on them.
namespace SOLVER {

using HYGRION::Assignment;
using HYGRION::BoundaryCond;
using HYGRION::Interface;
using HYGRION::KeywordList;
using KOR::text;

namespace {

constexpr double RADIANS = std::numbers::pi / 180;

} // namespace

const Interface & ModelBuilder::interfaceOf(const std::string & name) const {
    return named(m_project.m_conditions.m_interfaces, name, "Interface");
}

ActiveTimes ModelBuilder::activeTimes(const std::string & schedule) const {
    ActiveTimes active;
    if (schedule.empty())
        return active;
    const HYGRION::Schedule & definition = named(m_project.m_conditions.m_schedules, schedule, "Schedule");
    definition.checkParameters();
    if (definition.m_enabled)
        for (const HYGRION::Interval & interval : definition.m_intervals)
            active.add(interval.start(), interval.end());
    return active;
}

SurfacePosition ModelBuilder::positionOf(const Interface & interface, bool needsOrientation) {
    const auto inclination = interface.m_para.value(Interface::para_t::Inclination, "Deg");
    const auto orientation = interface.m_para.value(Interface::para_t::Orientation, "Deg");
    const SurfacePosition position{orientation.value_or(0) * RADIANS, inclination.value_or(90) * RADIANS, 0};
    if (needsOrientation && !orientation && std::fabs(std::sin(position.inclination)) > 1e-6)
        refuse(text("Parameter 'Orientation' of interface '%1' is missing, which sun and driving rain need.",
                    interface.m_name));
    return position;
}

/// The place of the sun: of the climate data, or the project's own.
const CCM::SolarRadiationModel & ModelBuilder::place() {
    using Para = HYGRION::Init::para_t;
    if (m_place)
        return *m_place;
    const HYGRION::Init & init = m_project.m_init;
    m_place.emplace();
    CCM::ClimateDataLoader & place = m_place->m_climate;
    if (init.isEnabled(HYGRION::Init::flag_t::UseCustomLocation)) {
        place.m_longitude = init.parameter(Para::Longitude).get_value("Deg");
        place.m_latitude = init.parameter(Para::Latitude).get_value("Deg");
        place.m_elevation = init.parameter(Para::Height).get_value("m");
        place.setUtcOffset(init.intParameter(HYGRION::Init::intpara_t::TimeZone));
    } else if (m_driver->signals().hasLocation()) {
        const CCM::ClimateDataLoader & location = m_driver->signals().location();
        place.m_longitude = location.m_longitude;
        place.m_latitude = location.m_latitude;
        place.m_elevation = location.m_elevation;
        place.setUtcOffset(location.utcOffset());
    } else {
        m_place.reset();
        refuse("The place of the sun is not known: the project names no climate data file and does not enable "
               "'UseCustomLocation'.");
    }
    m_place->m_albedo = init.parameter(Para::Albedo).value();
    return *m_place;
}

void ModelBuilder::checkCondition(const BoundaryCond & condition) {
    condition.checkParameters();
    if (!condition.m_contactConditionName.empty())
        refuse("'ContactConditionName' needs an 'OtherInterfaceReference', to which the contact leads.");
}

BoundaryLaw ModelBuilder::lawOf(const Interface & interface, const BoundaryCond & condition,
                                const Interface::Generated * generated) {
    using Type = BoundaryCond::condition_t;
    checkCondition(condition);
    BoundaryLaw law = BoundaryLaw::fromCondition(condition);
    ClimateSignals & signals = m_driver->signals();
    for (const auto & [quantity, name] : condition.m_ccReferences) {
        const HYGRION::ClimateCond * own = nullptr;
        if (generated)
            for (const HYGRION::ClimateCond & climate : generated->m_climateConditions)
                if (climate.m_name == name)
                    own = &climate;
        law.signals.set(quantity, own ? signals.addGenerated(*own, interface.m_name) : signals.add(name, quantity));
    }
    law.active = activeTimes(condition.m_schedule);
    law.position = positionOf(interface, law.needsOrientation());
    law.skyView = (1 + std::cos(law.position.inclination)) / 2;
    if (law.isPipe())
        law.pipe.perArea = pipeShare(interface, condition);
    if (m_result.input.useReferenceTemperature && condition.m_type == Type::VaporDiffusion)
        law.kelvinTemperature = MM::T_REF;
    if (law.needsSun())
        m_driver->connectSun(law, place());
    return law;
}

/// A section through a pipe, or a part of that, holds as much of it as the model is deep; otherwise the model holds all.
double ModelBuilder::pipeShare(const Interface & interface, const BoundaryCond & condition) const {
    double sum = 0;
    for (const Assignment & assignment : m_project.m_assignments.m_list)
        if (assignment.m_type == Assignment::type_t::Interface && assignment.m_reference == interface.m_name)
            for (const GridFace & face : facesOf(assignment)) {
                const auto [before, behind] = cellsAt(face);
                if ((before == NO_CELL) != (behind == NO_CELL))
                    sum += area(face);
            }
    if (!(sum > 0))
        refuse("The pipe has no surface.");
    const double fraction = condition.m_para.value(BoundaryCond::para_t::PipeCollectorModelFraction, "---").value_or(1);
    const double length = condition.m_para.value(BoundaryCond::para_t::PipeCollectorLength, "m").value_or(1);
    const bool isSection = m_size[1] > 1 && m_size[2] == 1 && m_angle == 0;
    return fraction * (isSection ? m_widths[2][0] / length : 1) / sum;
}

ModelBuilder::InterfaceLaws & ModelBuilder::lawsOf(const Interface & interface) {
    if (const auto known = m_interfaceLaws.find(interface.m_name); known != m_interfaceLaws.end())
        return known->second;
    return inContext(text("Interface '%1' cannot be calculated.", interface.m_name), [&]() -> InterfaceLaws & {
        if (interface.m_type == Interface::type_t::External)
            refuse("Interfaces of type 'External' need an external model, which the solver cannot run with.");
        interface.checkParameters();
        InterfaceLaws laws;
        const auto add = [&](const BoundaryCond & condition, const Interface::Generated * generated) {
            inContext(text("Boundary condition '%1' cannot be calculated.", condition.m_name), [&] {
                if (isCoupling(condition))
                    laws.coupled.push_back(condition.m_name);
                else
                    laws.laws.push_back(lawOf(interface, condition, generated));
            });
        };
        if (interface.m_type == Interface::type_t::Detailed) {
            // In the order of their types: rain may take the temperature of the air from the heat exchange.
            std::vector<const BoundaryCond *> conditions;
            for (const std::string & name : interface.m_bcReferences)
                conditions.push_back(&named(m_project.m_conditions.m_boundaryConditions, name, "Boundary condition"));
            std::stable_sort(conditions.begin(), conditions.end(),
                             [](const auto * a, const auto * b) { return a->m_type < b->m_type; });
            for (const BoundaryCond * condition : conditions)
                add(*condition, nullptr);
        } else {
            const Interface::Generated generated = interface.generateConditions(m_driver->signals().location());
            for (const BoundaryCond & condition : generated.m_boundaryConditions)
                add(condition, &generated);
        }
        const auto exchanges = std::count_if(laws.laws.begin(), laws.laws.end(),
                                             [](const BoundaryLaw & law) { return law.isHeatExchange(); });
        if (exchanges > 1 && std::any_of(laws.laws.begin(), laws.laws.end(),
                                         [](const BoundaryLaw & law) { return law.heatDirection != 0; }))
            refuse("A heat exchange that only heats or cools (parameter 'HeatingCooling') must be the only one of its "
                   "interface.");
        laws.isHydrostatic = std::any_of(laws.laws.begin(), laws.laws.end(),
                                         [](const BoundaryLaw & law) { return law.isHydrostatic(); });
        return m_interfaceLaws.emplace(interface.m_name, std::move(laws)).first->second;
    });
}

void ModelBuilder::makeSurface(const Assignment & assignment, const GridFace & face, InterfaceLaws & laws) {
    const auto [before, behind] = cellsAt(face);
    if (before == NO_CELL && behind == NO_CELL)
        return; // an interface may pass by open air
    if (before != NO_CELL && behind != NO_CELL)
        refuse(text("It lies between two cells with material at %1; there is no surface.", placeText(face.index)));
    const double faceArea = area(face);
    if (faceArea == 0)
        refuse("It lies on the axis of the body of revolution, which has no surface.");
    const auto surface = static_cast<std::uint32_t>(m_result.input.surfaces.size());
    if (!m_surfaceOfFace.emplace(faceKey(face), surface).second)
        refuse(text("The surface at %1 has two interfaces.", placeText(face.index)));

    const bool isUpper = before != NO_CELL; // the face is the upper one of its cell
    const auto cell = static_cast<std::uint32_t>(isUpper ? before : behind);
    const Index & index = m_result.cellPlaces[cell].index;
    const std::size_t d = face.direction;
    const double distance = m_widths[d][index[d]] / 2;
    m_result.input.surfaces.push_back(
        {cell, faceArea, distance, static_cast<int>(d), (isUpper ? distance : -distance) * upDirection()[d]});
    const Interface & interface = interfaceOf(assignment.m_reference);
    const auto degrees = [&](Interface::para_t key, double otherwise) {
        return interface.m_para.value(key, "Deg").value_or(otherwise);
    };
    m_result.surfacePlaces.push_back({index, static_cast<Construction::location_t>(1 + 2 * d + (isUpper ? 1 : 0)),
                                      interface.m_name, degrees(Interface::para_t::Orientation, 0),
                                      degrees(Interface::para_t::Inclination, 90)});

    const auto micrometres = laws.isHydrostatic ? std::llround(height(face) * 1e6) : 0;
    auto group = laws.groups.find(micrometres);
    if (group == laws.groups.end()) {
        std::vector<BoundaryLaw> placed = laws.laws;
        for (BoundaryLaw & law : placed)
            law.position.height = height(face);
        group = laws.groups.emplace(micrometres, m_driver->addGroup(std::move(placed))).first;
    }
    m_driver->addSurface(group->second);
}

void ModelBuilder::makeSurfaces() {
    const auto & assignments = m_project.m_assignments.m_list;
    for (std::size_t a = 0; a < assignments.size(); ++a)
        if (assignments[a].m_type == Assignment::type_t::Interface)
            inContext(text("Assignment %1 (%2) cannot be calculated.", m_project.assignmentLabel(a),
                           assignments[a].description()),
                      [&] {
                          InterfaceLaws & laws = lawsOf(interfaceOf(assignments[a].m_reference));
                          for (const GridFace & face : facesOf(assignments[a]))
                              makeSurface(assignments[a], face, laws);
                      });
}

/// What the boundary conditions with an OtherInterfaceReference say; what none of them passes on does not pass.
ModelBuilder::Coupling ModelBuilder::couplingOf(const InterfaceLaws & laws) {
    Coupling coupling;
    for (const std::string & name : laws.coupled) {
        const BoundaryCond & condition = named(m_project.m_conditions.m_boundaryConditions, name, "Boundary condition");
        if (!coupling.other.empty() && coupling.other != condition.m_otherInterfaceReference)
            refuse("Its boundary conditions lead to different interfaces.");
        coupling.other = condition.m_otherInterfaceReference;
        if (!condition.m_schedule.empty())
            refuse(text("Boundary condition '%1': a schedule cannot switch a coupling of interfaces.", name));
        const bool isHeat = condition.m_type == BoundaryCond::condition_t::HeatConduction;
        if (!isHeat && condition.m_type != BoundaryCond::condition_t::VaporDiffusion)
            refuse(text("Boundary condition '%1': type '%2' cannot couple interfaces.", name,
                        KeywordList::Keyword(condition.m_type)));
        ContactResistance own{};
        if (!condition.m_contactConditionName.empty())
            own = contactOf(contactCondition(condition.m_contactConditionName));
        double resistance = isHeat ? own.heat : own.vapor;
        if (condition.m_kind == BoundaryCond::kind_t::Exchange) {
            const auto coefficient =
                condition.m_para.value(BoundaryCond::para_t::ExchangeCoefficient, isHeat ? "W/m2K" : "s/m");
            if (!coefficient || !(*coefficient > 0))
                refuse(text("Boundary condition '%1': parameter 'ExchangeCoefficient' is missing or 0.", name));
            resistance += 1 / *coefficient;
        } else if (condition.m_kind != BoundaryCond::kind_t::SurfaceValue) {
            refuse(text("Boundary condition '%1': kind '%2' cannot couple interfaces.", name,
                        KeywordList::Keyword(condition.m_kind)));
        }
        (isHeat ? coupling.heat : coupling.vapor) = resistance;
        if (!isHeat)
            coupling.foil = own.foil;
    }
    return coupling;
}

void ModelBuilder::coupleInterfaces() {
    for (const auto & [name, laws] : m_interfaceLaws) {
        if (laws.coupled.empty())
            continue;
        inContext(text("Interface '%1' cannot be coupled to another one.", name), [&, &name = name, &laws = laws] {
            Coupling coupling = couplingOf(laws);
            const auto back = m_interfaceLaws.find(coupling.other);
            if (back != m_interfaceLaws.end() && !back->second.coupled.empty()) {
                const Coupling other = couplingOf(back->second);
                if (other.other != name)
                    refuse(text("Interface '%1' leads to interface '%2'.", coupling.other, other.other));
                if (back->first < name)
                    return; // the pair was coupled from there
                coupling.add(other);
            }
            couple(interfaceOf(name), coupling);
        });
    }
}

/// Makes a contact between the cells behind both interfaces, surface by surface in the order of the grid.
void ModelBuilder::couple(const Interface & interface, const Coupling & coupling) {
    constexpr double BLOCKED = 1e30;
    const ContactResistance contact{coupling.heat.value_or(BLOCKED), coupling.vapor.value_or(BLOCKED), 0, true,
                                    coupling.foil};
    const std::string & other = coupling.other;
    const auto surfacesOf = [&](const std::string & name) {
        std::vector<std::uint32_t> surfaces;
        for (std::uint32_t s = 0; s < m_result.surfacePlaces.size(); ++s)
            if (m_result.surfacePlaces[s].interface == name)
                surfaces.push_back(s);
        std::sort(surfaces.begin(), surfaces.end(), [&](std::uint32_t a, std::uint32_t b) {
            return gridIndex(m_result.surfacePlaces[a].index) < gridIndex(m_result.surfacePlaces[b].index);
        });
        return surfaces;
    };
    const std::vector<std::uint32_t> here = surfacesOf(interface.m_name);
    const std::vector<std::uint32_t> there = surfacesOf(other);
    if (here.size() != there.size())
        refuse(text("It has %1 surfaces, interface '%2' has %3.", here.size(), other, there.size()));
    for (std::size_t i = 0; i < here.size(); ++i) {
        const ModelInput::Surface & a = m_result.input.surfaces[here[i]];
        const ModelInput::Surface & b = m_result.input.surfaces[there[i]];
        if (std::fabs(a.area - b.area) > 1e-6 * a.area || a.cell == b.cell)
            refuse(text("Its surfaces and those of interface '%1' differ in area.", other));
        for (const std::uint32_t s : {here[i], there[i]})
            m_result.surfacePlaces[s].coupling = static_cast<std::int64_t>(m_result.input.faces.size());
        m_result.input.faces.push_back({a.cell, b.cell, a.area, a.distance, b.distance, 0, contact, a.direction});
    }
}

} // namespace SOLVER
