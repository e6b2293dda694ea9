#include "ExampleBuilder.h"

#include <HYGRION/ProjectCheck.h>

#include <KOR/Numbers.h>

#include <MM/Material.h>

#include <algorithm>
#include <cmath>
#include <iostream>

using namespace HYGRION;
using Type = Assignment::type_t;

namespace {

constexpr const char * OWN_FOLDER = HYG_SOURCE_DIR "/DB_materials/";
constexpr const char * MATERIALS = "${Install Directory}/DB_materials/";

template <typename Item> Item & added(std::vector<Item> & items, const std::string & name) {
    items.emplace_back().m_name = name;
    return items.back();
}

template <typename Item> bool has(const std::vector<Item> & items, const std::string & name) {
    return std::any_of(items.begin(), items.end(), [&name](const Item & item) { return item.m_name == name; });
}

} // namespace

ExampleBuilder::ExampleBuilder(std::string name, std::string description) {
    m_project.m_projectInfo.m_created = "2026-11-22 12:00";
    m_project.m_projectInfo.m_projectName = std::move(name);
    m_project.m_projectInfo.m_description = std::move(description);
    m_project.m_init.m_balanceEquationModule = "HeatMoistureTransport";
}

void ExampleBuilder::location(const char * place, const char * climateFile) {
    m_project.m_projectInfo.m_location = place;
    m_project.m_init.m_climateDataFilePath = KOR::Path(std::string("${Climate Database}/") + climateFile);
}

void ExampleBuilder::duration(double value, const char * unit) {
    m_project.m_init.m_interval.m_para.set(Interval::para_t::Start, 0, unit);
    m_project.m_init.m_interval.m_para.set(Interval::para_t::Duration, value, unit);
}

ExampleBuilder::Edges ExampleBuilder::divided(std::initializer_list<Part> parts, KOR::UnitVector & steps) {
    Edges edges{0};
    steps = {{}, KOR::Unit("mm")};
    for (const Part & part : parts) {
        std::vector<double> cells;
        Disc::discretizeWidth(part.width, part.mode, part.minStep, part.maxStep, part.stretch, true, cells);
        // A tenth of a micrometre is enough, and is read more easily.
        constexpr double DIGITS = 1e4;
        double rest = part.width;
        for (double & width : cells) {
            width = std::round((&width == &cells.back() ? rest : width) * DIGITS) / DIGITS;
            rest -= width;
        }
        steps.m_data.insert(steps.m_data.end(), cells.begin(), cells.end());
        edges.push_back(static_cast<std::uint32_t>(steps.size()));
    }
    return edges;
}

Range ExampleBuilder::cells(std::size_t left, std::size_t right, std::size_t bottom, std::size_t top, std::size_t back,
                            std::size_t front) const {
    return {.left = m_columns.at(left),
            .bottom = m_rows.at(bottom),
            .back = m_planes.at(back),
            .right = m_columns.at(right + 1) - 1,
            .top = m_rows.at(top + 1) - 1,
            .front = m_planes.at(front + 1) - 1};
}

Range ExampleBuilder::allCells() const {
    return cells(0, m_columns.size() - 2, 0, m_rows.size() - 2, 0, m_planes.size() - 2);
}

void ExampleBuilder::material(const std::string & file, const Range & range) {
    MM::Material read;
    read.read(OWN_FOLDER + file + ".m6");
    const std::string name = read.m_identification.m_name.get("en");
    if (!has(m_project.m_materials, name)) {
        MaterialReference & reference = added(m_project.m_materials, name);
        reference.m_color = read.m_identification.m_colour.value_or(KOR::Color{.red = 200, .green = 200, .blue = 200});
        if (const auto hatching = read.m_identification.m_hatching)
            reference.m_hatchCode = static_cast<int>(*hatching);
        reference.m_filename = KOR::Path(MATERIALS + file + ".m6");
    }
    assign(Type::Material, name, Location::Element, range);
}

void ExampleBuilder::initial(double temperature, double relativeHumidity) {
    InitialCond & first = added(m_project.m_conditions.m_initialConditions, "Initial temperature");
    first.m_type = InitialCond::condition_t::Temperature;
    first.setValue(temperature, KOR::Unit("C"));
    InitialCond & second = added(m_project.m_conditions.m_initialConditions, "Initial humidity");
    second.m_type = InitialCond::condition_t::RelativeHumidity;
    second.setValue(relativeHumidity, KOR::Unit("%"));
    for (const char * name : {"Initial temperature", "Initial humidity"})
        assign(Type::InitialCondition, name, Location::Element, allCells());
}

void ExampleBuilder::initialContent(const char * name, double moistureContent, const Range & range) {
    InitialCond & state = added(m_project.m_conditions.m_initialConditions, name);
    state.m_type = InitialCond::condition_t::MoistureContent;
    state.setValue(moistureContent, KOR::Unit("m3/m3"));
    assign(Type::InitialCondition, name, Location::Element, range);
}

void ExampleBuilder::assign(Type type, const std::string & name, Location side, const Range & range,
                            const char * label) {
    m_project.m_assignments.m_list.emplace_back(type, side, range, name).m_name = label;
}

Interface & ExampleBuilder::outdoor(const char * name, double orientation, double inclination, double absorption,
                                    bool hasRain) {
    Interface & surface = added(m_project.m_conditions.m_interfaces, name);
    surface.m_type = Interface::type_t::EngineeringOutdoor;
    surface.m_climateTypeOutdoor = Interface::climateTypeOutdoor_t::OutdoorUserData;
    surface.m_para.set(Interface::para_t::Orientation, orientation, "Deg");
    surface.m_para.set(Interface::para_t::Inclination, inclination, "Deg");
    surface.m_para.set(Interface::para_t::OutdoorAdsorptionCoefficient, absorption, "---");
    for (const auto flag : {Interface::flag_t::UseHeatCond, Interface::flag_t::UseVapDiff,
                            Interface::flag_t::UseShortWaveRadiation, Interface::flag_t::UseLongWaveRadiation})
        surface.m_flag.set(flag, true);
    surface.m_flag.set(Interface::flag_t::UseStandardRain, hasRain);
    return surface;
}

Interface & ExampleBuilder::indoor() {
    Interface & surface = added(m_project.m_conditions.m_interfaces, "Inside");
    surface.m_type = Interface::type_t::EngineeringIndoor;
    surface.m_climateTypeIndoor = Interface::climateTypeIndoor_t::IndoorWTA;
    surface.m_indoorWTAType = Interface::indoorWTAType_t::IndoorWTANormalLoad;
    surface.m_flag.set(Interface::flag_t::UseHeatCond, true);
    surface.m_flag.set(Interface::flag_t::UseVapDiff, true);
    return surface;
}

Interface & ExampleBuilder::detailed(const char * name, std::initializer_list<const char *> boundaryConditions) {
    Interface & surface = added(m_project.m_conditions.m_interfaces, name);
    surface.m_bcReferences.assign(boundaryConditions.begin(), boundaryConditions.end());
    return surface;
}

ClimateCond & ExampleBuilder::constant(const char * name, Climate quantity, double value) {
    ClimateCond & climate = added(m_project.m_conditions.m_climateConditions, name);
    climate.m_type = quantity;
    climate.m_kind = ClimateCond::kind_t::Constant;
    climate.m_para.set(ClimateCond::para_t::ConstantValue, value, KeywordList::Unit(quantity));
    return climate;
}

ClimateCond & ExampleBuilder::fromFile(const char * name, Climate quantity, const char * file) {
    ClimateCond & climate = added(m_project.m_conditions.m_climateConditions, name);
    climate.m_type = quantity;
    climate.m_kind = ClimateCond::kind_t::TabulatedData;
    climate.m_filename = KOR::Path(std::string("${Project Directory}/") + file);
    climate.m_flag.set(ClimateCond::flag_t::UseInterpolation, true);
    climate.m_flag.set(ClimateCond::flag_t::Cyclic, true);
    return climate;
}

ClimateCond & ExampleBuilder::fromLocation(const char * name, Climate quantity) {
    ClimateCond & climate = added(m_project.m_conditions.m_climateConditions, name);
    climate.m_type = quantity;
    climate.m_kind = ClimateCond::kind_t::CCM;
    climate.m_flag.set(ClimateCond::flag_t::UseInterpolation, quantity != Climate::RainFluxHorizontal);
    climate.m_flag.set(ClimateCond::flag_t::Cyclic, true);
    return climate;
}

BoundaryCond & ExampleBuilder::boundary(const char * name, BoundaryCond::condition_t law, BoundaryCond::kind_t kind,
                                        std::initializer_list<const char *> climate) {
    BoundaryCond & condition = added(m_project.m_conditions.m_boundaryConditions, name);
    condition.m_type = law;
    condition.m_kind = kind;
    for (const char * one : climate)
        for (const ClimateCond & known : m_project.m_conditions.m_climateConditions)
            if (known.m_name == one)
                condition.m_ccReferences[known.m_type] = one;
    return condition;
}

Interface & ExampleBuilder::steady(const std::string & name, double temperature, double relativeHumidity, double heat,
                                   double vapor) {
    const std::string T = "Temperature " + name;
    const std::string phi = "Humidity " + name;
    const std::string conduction = "Heat " + name;
    const std::string diffusion = "Vapour " + name;
    constant(T.c_str(), Climate::Temperature, temperature);
    boundary(conduction.c_str(), BoundaryCond::condition_t::HeatConduction, BoundaryCond::kind_t::Exchange, {T.c_str()})
        .m_para.set(BoundaryCond::para_t::ExchangeCoefficient, heat, "W/m2K");
    if (vapor == 0)
        return detailed(name.c_str(), {conduction.c_str()});
    constant(phi.c_str(), Climate::RelativeHumidity, relativeHumidity);
    boundary(diffusion.c_str(), BoundaryCond::condition_t::VaporDiffusion, BoundaryCond::kind_t::Exchange,
             {T.c_str(), phi.c_str()})
        .m_para.set(BoundaryCond::para_t::ExchangeCoefficient, vapor, "s/m");
    return detailed(name.c_str(), {conduction.c_str(), diffusion.c_str()});
}

ContactCond & ExampleBuilder::foil(const char * name, double sd,
                                   const std::vector<std::pair<double, double>> & functionOfHumidity) {
    ContactCond & contact = added(m_project.m_conditions.m_contactConditions, name);
    contact.m_type = ContactCond::condition_t::Foil;
    contact.m_kind = ContactCond::kind_t::DirectionIndependent;
    if (functionOfHumidity.empty()) {
        contact.m_para.set(ContactCond::para_t::VaporDiffusionSD, sd, "m");
        return contact;
    }
    contact.m_type = ContactCond::condition_t::FoilAdaptive;
    std::vector<double> x, y;
    for (const auto & [humidity, value] : functionOfHumidity) {
        x.push_back(humidity);
        y.push_back(value);
    }
    contact.setFunction(ContactCond::function_t::SdPositive, x, "%", y, "m");
    return contact;
}

void ExampleBuilder::outputGrid(const char * name, double step, const char * unit) {
    Interval & interval = added(m_project.m_outputs.m_outputGrids, name).m_intervals.emplace_back();
    interval.m_para.set(Interval::para_t::Start, 0, "d");
    interval.m_para.set(Interval::para_t::StepSize, step, unit);
}

void ExampleBuilder::output(const char * name, const char * quantity, const char * unit, OutputFile::space_type_t space,
                            const char * grid, Location side, const Range & range, OutputFile::time_type_t time) {
    OutputFile & file = added(m_project.m_outputs.m_outputFiles, name);
    file.m_quantity = quantity;
    file.m_outputUnit = KOR::Unit(unit);
    file.m_timeType = time;
    file.m_spaceType = space;
    file.m_outputGrid = grid;
    assign(Type::Output, name, side, range);
}

void ExampleBuilder::standardOutputs(const Range & inside, Location side) {
    using Space = OutputFile::space_type_t;
    using Time = OutputFile::time_type_t;
    outputGrid("Hourly", 1, "h");
    outputGrid("Daily", 1, "d");
    output("Temperature field", "Temperature", "C", Space::Single, "Daily", Location::Element, allCells());
    output("Humidity field", "RelativeHumidity", "%", Space::Single, "Daily", Location::Element, allCells());
    output("Moisture mass", "MoistureMass", "kg", Space::Integral, "Hourly", Location::Element, allCells());
    output("Inner surface temperature", "Temperature", "C", Space::Mean, "Hourly", side, inside);
    output("Inner surface humidity", "RelativeHumidity", "%", Space::Mean, "Hourly", side, inside);
    output("Inner heat flux", "TotalFluxHeat", "W/m2", Space::Mean, "Hourly", side, inside, Time::Mean);
    output("Inner moisture flux", "TotalFluxMoisture", "kg/m2s", Space::Mean, "Hourly", side, inside, Time::Mean);
}

void ExampleBuilder::assessment(const char * name, Assessment::AssessmentType type, Assessment::AssignmentType where,
                                std::optional<std::uint32_t> layer) {
    Assessment & item = added(m_project.m_assessments, name);
    item.m_type = type;
    item.m_assignmentType = where;
    item.m_layer = layer;
}

bool ExampleBuilder::write(const std::string & file) const {
    bool isSound = true;
    for (const ProjectCheck::Finding & finding : ProjectCheck::checkProject(m_project))
        if (finding.severity == ProjectCheck::FAULT) {
            std::cerr << file << ": " << finding.text() << '\n';
            isSound = false;
        }
    std::cout << file << ": " << m_project.m_disc.nx() << " x " << m_project.m_disc.ny() << " x "
              << m_project.m_disc.nz() << " cells\n";
    return m_project.writeXML(file) && isSound;
}
