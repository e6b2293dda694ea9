#include "ProjectTexts.h"

#include <SOLVER/OutputWriter.h>
#include <SOLVER/Simulation.h>

#include <DATAIO/DataIO.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/UnitList.h>

#include <gmock/gmock.h>

#include <fstream>
#include <numbers>
#include <numeric>
#include <set>

using namespace SOLVER;
using namespace texts;

namespace {

constexpr double AIR = 283.15;

/// Values of output quantities of an evaluated model, in base units.
struct Values {
    Evaluated & wall;
    double time = 0;

    Snapshot snapshot() const {
        const auto & loaded = wall.model.input().loadedCells;
        loads.assign(wall.model.cellCount(), {});
        for (std::uint32_t i = 0; i < loaded.size(); ++i)
            loads[loaded[i]].push_back(i);
        return {wall.model, wall.construction, time, {}, loads};
    }
    double surface(std::string_view keyword, std::size_t i = 0) const {
        return outputQuantity(keyword).ofSurface(snapshot(), i);
    }
    double cell(std::string_view keyword, std::size_t c) const { return outputQuantity(keyword).ofCell(snapshot(), c); }
    double face(std::string_view keyword, std::size_t f, bool isSeenFromB = false) const {
        return outputQuantity(keyword).ofFace(snapshot(), f, isSeenFromB);
    }
    mutable std::vector<std::vector<std::uint32_t>> loads = {};
};

Parts pipe() {
    Parts parts;
    parts.module = "HeatTransport";
    parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='PipeCollectorModel'>" +
                     reference("Temperature") + reference("MassFlowRate") + reference("HeatTransferCoefficient") +
                     parameter("PipeCollectorDiameter", "25", "mm") + parameter("PipeCollectorThickness", "2", "mm") +
                     parameter("PipeCollectorLength", "20", "m") +
                     parameter("PipeCollectorThermalConductivity", "0.4", "W/mK") +
                     parameter("PipeCollectorFluidHeatCapacity", "3800", "J/kgK") + "</BoundaryCondition>";
    return parts;
}

} // namespace

TEST(OutputQuantities, HaveUnitsOfTheRegistryAndPlaces) {
    std::set<std::string_view> keywords;
    for (const OutputQuantity & quantity : outputQuantities()) {
        EXPECT_TRUE(keywords.insert(quantity.keyword).second) << quantity.keyword;
        EXPECT_NO_THROW(KOR::Unit(quantity.unit).base()) << quantity.keyword;
        EXPECT_NO_THROW(KOR::Unit(quantity.integralUnit).base()) << quantity.keyword;
        const bool isOfSides = quantity.kind == OutputQuantity::FLUX;
        EXPECT_EQ(quantity.ofCell == nullptr, isOfSides) << quantity.keyword;
        EXPECT_TRUE(!isOfSides || quantity.ofSurface != nullptr) << quantity.keyword;
    }
    // What the keyword list promises of pipes.
    using Pipe = HYGRION::BoundaryCond::output_t;
    for (int i = 0; i < HYGRION::KeywordList::count<Pipe>(); ++i)
        EXPECT_EQ(outputQuantity(HYGRION::KeywordList::Keyword(static_cast<Pipe>(i))).unit,
                  HYGRION::KeywordList::Unit(static_cast<Pipe>(i)));
}

TEST(OutputQuantities, PipesTellTheirHeatAndTemperatures) {
    Evaluated wall(pipe());
    const Values values{wall};
    const double resistance = 1 / (12 * std::numbers::pi * 0.021) + std::log(25 / 21.0) / (2 * std::numbers::pi * 0.4);
    const double capacity = 0.05 * 3800;
    const double heat = capacity * (1 - std::exp(-20 / (resistance * capacity))) * (AIR - wall.surface().temperature);
    EXPECT_NEAR(values.surface("PipeCollectorQdot"), heat, 1e-9 * std::fabs(heat));
    EXPECT_NEAR(values.surface("TotalFluxHeat"), heat, 1e-6 * std::fabs(heat)) << "the wall of 1 m2 holds all of it";
    EXPECT_NEAR(values.surface("PipeCollectorTr"), AIR - heat / capacity, 1e-9);
    EXPECT_DOUBLE_EQ(values.surface("PipeCollectorT0"), AIR);
    EXPECT_DOUBLE_EQ(values.surface("PipeCollectorHP"), 12);

    // Switched off, the fluid takes the temperature around it. One that only heats stands still before a warm wall.
    Parts parts = pipe();
    parts.schedules = "<Schedule name='Later' enabled='true'><Interval>" + parameter("Start", "2", "d") +
                      parameter("End", "3", "d") + "</Interval></Schedule>";
    parts.boundary.insert(parts.boundary.rfind('<'), "<Schedule>Later</Schedule>");
    Evaluated off(parts);
    EXPECT_EQ((Values{off}.surface("PipeCollectorQdot")), 0);
    EXPECT_DOUBLE_EQ((Values{off}.surface("PipeCollectorTr")), off.surface().temperature);
    parts = pipe();
    parts.boundary.insert(parts.boundary.rfind('<'), "<KOR:IntPara name='HeatingCooling'>1</KOR:IntPara>");
    Evaluated warm(parts);
    EXPECT_EQ((Values{warm}.surface("PipeCollectorQdot")), 0);
    EXPECT_DOUBLE_EQ((Values{warm}.surface("PipeCollectorTr")), AIR);
}

/// Where there is no pipe the project is refused.
TEST(OutputQuantities, OfPipesNeedAPipe) {
    for (const bool hasPipe : {true, false}) {
        Parts parts = pipe();
        if (!hasPipe)
            parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='SurfaceValue'>" +
                             reference("Temperature") + "</BoundaryCondition>";
        HYGRION::Project project = texts::project(parts);
        HYGRION::OutputGrid & grid = project.m_outputs.m_outputGrids.emplace_back();
        grid.m_name = "Grid";
        grid.m_intervals.emplace_back().m_para.set(HYGRION::Interval::para_t::StepSize, 1, "h");
        HYGRION::OutputFile & file = project.m_outputs.m_outputFiles.emplace_back();
        file.m_name = "Return";
        file.m_quantity = "PipeCollectorTr";
        file.m_outputGrid = "Grid";
        project.m_assignments.m_list.emplace_back(HYGRION::Assignment::type_t::Output,
                                                  HYGRION::Assignment::location_t::Left, HYGRION::Range{}, "Return");
        const Construction construction = buildConstruction(project);
        Model model(construction.input);
        std::string said;
        try {
            OutputWriter(project, construction, model, {});
        } catch (const KOR::Exception & ex) {
            said = ex.cause();
        }
        if (hasPipe)
            EXPECT_EQ(said, "");
        else
            EXPECT_THAT(said,
                        testing::HasSubstr("PipeCollectorTr belongs to the surfaces of a pipe; interface 'Surface' "
                                           "has no"));
    }
}

/// What the outside brings is what goes into the wall, whether it takes the rain, lets it run off or dews.
TEST(OutputQuantities, FluxesAtASurfaceAddUp) {
    enum { TAKES, RUNS_OFF, DEWS, DRIES };
    for (const int weather : {TAKES, RUNS_OFF, DEWS, DRIES}) {
        Parts parts;
        const auto law = [](const std::string & name, const std::string & attributes, const std::string & children) {
            return "<BoundaryCondition name='" + name + "' " + attributes + ">" + children + "</BoundaryCondition>";
        };
        const std::string climate = weather == DEWS
                                        ? reference("Temperature", "Warm") + reference("RelativeHumidity", "Damp")
                                        : reference("Temperature", "Warm") + reference("RelativeHumidity");
        parts.climate =
            constant("Temperature", "40", "C", "Warm") + constant("RainFluxNormal", "2000", "l/m2h", "Burst");
        parts.interface =
            "<Interface name='Surface' type='Detailed'><BCReference>Heat</BCReference><BCReference>Vapor"
            "</BCReference><BCReference>Sun</BCReference><BCReference>Sky</BCReference>" +
            std::string(weather == TAKES || weather == RUNS_OFF ? "<BCReference>Rain</BCReference>" : "") +
            "</Interface>";
        parts.boundary =
            law("Heat", "type='HeatConduction' kind='Exchange'",
                reference("Temperature", "Warm") + parameter("ExchangeCoefficient", "8", "W/m2K")) +
            law("Vapor", "type='VaporDiffusion' kind='Exchange'",
                climate + parameter("ExchangeCoefficient", "5e-6", "s/m")) +
            law("Sun", "type='ShortWaveRadiation' kind='ImposedFlux'", reference("SWRadiationImposed")) +
            law("Sky", "type='LongWaveRadiation' kind='LongWaveComponents'",
                reference("LWRadiationSkyEmission") + parameter("SurfaceEmissionCoefficient", "0.9", "---")) +
            law("Rain", "type='WindDrivenRain' kind='ImposedFlux'",
                reference("RainFluxNormal", weather == RUNS_OFF ? "Burst" : "RainFluxNormal"));
        if (weather == RUNS_OFF || weather == DEWS) { // a full wall
            parts.initial = "<InitialCondition name='Wet' type='RelativeHumidity'>" + parameter("Value", "100", "%") +
                            "</InitialCondition>";
            parts.assignments = assignment("InitialCondition", "Element", "Wet", "0 0 3 0");
        }
        Evaluated wall(parts);
        const Values values{wall};
        const double runoff = values.surface("FluxRunoff");
        EXPECT_EQ(runoff > 0, weather == RUNS_OFF || weather == DEWS) << weather;
        const double total = values.surface("TotalFluxHeat");
        double brought = 0;
        double size = 0;
        for (const char * part :
             {"FluxHeatConvection", "FluxHeatShortWave", "FluxHeatLongWave", "FluxHeatVapor", "FluxHeatRain"}) {
            brought += values.surface(part);
            size += std::fabs(values.surface(part));
        }
        EXPECT_NEAR(brought, total, 1e-9 * size) << weather;
        EXPECT_NEAR(values.surface("FluxHeatConduction") + values.surface("FluxHeatEnthalpy"), total, 1e-9 * size);
        const double water = values.surface("TotalFluxMoisture");
        EXPECT_NEAR(values.surface("FluxVapor") + values.surface("FluxRain") - runoff, water, 1e-12) << weather;
        EXPECT_NEAR(values.surface("FluxVaporMaterial") + values.surface("FluxLiquidMaterial"), water, 1e-15);
    }
}

/// All that field conditions bring shows, of every kind: the sum of the outputs is what the balance gains.
TEST(OutputQuantities, SourcesAreWhatTheBalanceGets) {
    const std::string indoor = reference("Temperature", "Indoor") + reference("RelativeHumidity", "Damp");
    struct Source {
        std::string type, children;
    };
    const Source SOURCES[] = {
        {"ConvectiveSource", indoor + parameter("ConvectiveSourcekCL", "0.007", "m3/m2hPa") +
                                 parameter("ConvectiveSourcePressure", "5", "Pa")},
        {"AirChange",             indoor + reference("FluidChangeRate")                                                    },
        {"WaterSource",      reference("WaterSource")                },
        {"HeatExchanger",               indoor + parameter("HeatTransferCoefficient",                                                 "3",                                                  "W/K")                                                                    },
    };
    for (const auto & [type, children] : SOURCES) {
        Parts parts;
        parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='SurfaceValue'>" +
                         reference("Temperature") + "</BoundaryCondition>";
        parts.field = "<FieldCondition name='Field' type='" + type + "'>" + children + "</FieldCondition>";
        parts.assignments = assignment("FieldCondition", "Element", "Field", "1 0 2 0");
        Evaluated wall(parts);
        const Values values{wall};
        double heat = 0;
        double water = 0;
        for (std::size_t c = 0; c < wall.model.cellCount(); ++c) {
            const double volume = wall.model.input().cells[c].volume;
            heat += volume * (values.cell("SourceHeat", c) + values.cell("ThermalLoadGroundWaterFlow", c));
            water += volume * values.cell("SourceMoisture", c);
        }
        const Exchange & loads = wall.model.exchangeRates().back();
        EXPECT_NEAR(heat, loads.heat, 1e-12 * std::fabs(loads.heat)) << type;
        EXPECT_NEAR(water, loads.water, 1e-12 * std::fabs(loads.water)) << type;
        EXPECT_EQ(loads.water > 0, type != "HeatExchanger") << type;
        EXPECT_GT(std::fabs(loads.heat), 0) << type;
        EXPECT_EQ(values.cell("SourceHeat", 0), 0) << "not assigned";
    }
}

/// Air that no boundary condition names is told as the surface, and rain without a temperature is as warm as that.
TEST(OutputQuantities, WithoutAirTheSurfaceStandsForIt) {
    Parts parts;
    parts.boundary = "<BoundaryCondition name='Law' type='WindDrivenRain' kind='ImposedFlux'>" +
                     reference("RainFluxNormal") + "</BoundaryCondition>";
    Evaluated wall(parts);
    const Values values{wall};
    EXPECT_NEAR(wall.surface().temperature, 293.15, 0.1) << "only wetting changes it";
    EXPECT_DOUBLE_EQ(values.surface("AirTemperature"), wall.surface().temperature);
    EXPECT_DOUBLE_EQ(values.surface("AirVaporPressure"), wall.surface().vaporPressure);
    EXPECT_NEAR(values.surface("FluxHeatRain"), 1 / 3600.0 * 4187 * (wall.surface().temperature - 273.15), 1e-6);
}

/// Brick that swells like wood: by its coefficients along the axes of the grid, and no more once its fibres are full.
TEST(OutputQuantities, MaterialsExpandAlongTheirDirections) {
    std::string content = KOR::readFile(HYG_BINARY_DIR "/DB_materials/clay_brick_solid_108.m6", 1 << 20);
    content.insert(content.find("[MOISTURE_STORAGE]"),
                   "[MECHANICAL_BASE_PARAMETERS]\n  ALPHA = 0.005 mm/mK\n"
                   "  ALPHA_V = 0.03 mm/mK\n  BETA_THETA_L = 0.02 m3m/m3m\n"
                   "  BETA_THETA_L_V = 0.5 m3m/m3m\n  BETA_THETA_L2 = 0.1 m3/m3\n\n");
    Parts parts;
    parts.material = testing::TempDir() + "swelling_905.m6";
    std::ofstream(parts.material) << content;
    parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='SurfaceValue'>" +
                     reference("Temperature") + "</BoundaryCondition>";
    parts.initial = "<InitialCondition name='Warm' type='Temperature'>" + parameter("Value", "30", "C") +
                    "</InitialCondition>" + "<InitialCondition name='Damp' type='MoistureMass'>" +
                    parameter("Value", "60", "kg/m3") + "</InitialCondition>" +
                    "<InitialCondition name='Wet' type='MoistureMass'>" + parameter("Value", "300", "kg/m3") +
                    "</InitialCondition>";
    parts.assignments = assignment("InitialCondition", "Element", "Warm", "0 0 3 0") +
                        assignment("InitialCondition", "Element", "Damp", "0 0 1 0") +
                        assignment("InitialCondition", "Element", "Wet", "2 0 3 0");
    for (const bool isTurned : {false, true}) {
        parts.assignments += "<Assignment type='Material' location='Element'><Reference>Brick</Reference><Mapping>" +
                             std::string(isTurned ? "VUW" : "UVW") + "</Mapping><Range>0 0 3 0</Range></Assignment>";
        Evaluated wall(parts);
        const Values values{wall};
        const double alongX = values.cell("ThermalExpansionX", 0), alongY = values.cell("ThermalExpansionY", 0);
        EXPECT_NEAR(isTurned ? alongY : alongX, 5e-6 * 10, 1e-12);
        EXPECT_NEAR(isTurned ? alongX : alongY, 30e-6 * 10, 1e-12);
        EXPECT_NEAR(values.cell("ThermalExpansionZ", 0), 30e-6 * 10, 1e-12) << "as the direction before";
        EXPECT_NEAR(values.cell(isTurned ? "HygricExpansionY" : "HygricExpansionX", 0), 0.02 * 0.06, 1e-9);
        EXPECT_NEAR(values.cell(isTurned ? "HygricExpansionX" : "HygricExpansionY", 0), 0.5 * 0.06, 1e-7);
        EXPECT_NEAR(values.cell(isTurned ? "HygricExpansionX" : "HygricExpansionY", 2), 0.5 * 0.1, 1e-9);
        Snapshot fromDamp = values.snapshot();
        fromDamp.expansionHumidity = 0.8; // 9.2 kg/m3
        EXPECT_NEAR(outputQuantity("HygricExpansionZ").ofCell(fromDamp, 0), 0.5 * (0.06 - 0.0092), 1e-5);
    }
}

/// What passes a gap from interface to interface is told at both of them.
TEST(OutputQuantities, CoupledInterfacesTellWhatPasses) {
    Parts parts;
    parts.module = "HeatTransport";
    parts.grid = "<XSteps unit='m'>0.02 0.05 0.02</XSteps>";
    parts.range = "0 0 0 0";
    parts.interface = "<Interface name='Surface' type='Detailed'/><Interface name='A' type='Detailed'>"
                      "<BCReference>Heat</BCReference></Interface><Interface name='B' type='Detailed'/>";
    parts.boundary = "<BoundaryCondition name='Heat' type='HeatConduction' kind='Exchange'>" +
                     parameter("ExchangeCoefficient", "5", "W/m2K") +
                     "<OtherInterfaceReference>B</OtherInterfaceReference></BoundaryCondition>";
    parts.initial =
        "<InitialCondition name='Warm' type='Temperature'>" + parameter("Value", "30", "C") + "</InitialCondition>";
    parts.assignments = assignment("Material", "Element", "Brick", "2 0 2 0") +
                        assignment("InitialCondition", "Element", "Warm", "0 0 0 0") +
                        assignment("Interface", "Right", "A", "0 0 0 0") +
                        assignment("Interface", "Left", "B", "2 0 2 0");
    HYGRION::Project project = texts::project(parts);
    HYGRION::OutputGrid & grid = project.m_outputs.m_outputGrids.emplace_back();
    grid.m_name = "Grid";
    grid.m_intervals.emplace_back().m_para.set(HYGRION::Interval::para_t::StepSize, 1, "h");
    using Location = HYGRION::Assignment::location_t;
    const auto write = [&](const std::string & name, const char * quantity, Location location, std::uint32_t column) {
        HYGRION::OutputFile & file = project.m_outputs.m_outputFiles.emplace_back();
        file.m_name = name;
        file.m_quantity = quantity;
        file.m_outputGrid = "Grid";
        project.m_assignments.m_list.emplace_back(HYGRION::Assignment::type_t::Output, location,
                                                  HYGRION::Range{.left = column, .right = column}, name);
    };
    write("out", "TotalFluxHeat", Location::Right, 0);
    write("in", "TotalFluxHeat", Location::Left, 2);
    write("warm", "Temperature", Location::Right, 0);
    write("cold", "Temperature", Location::Left, 2);
    const std::string directory = testing::TempDir() + "hyg-coupled";
    Simulation simulation(buildConstruction(project), project, directory);
    const auto first = [&directory](const std::string & name) {
        DATAIO::DataIO file;
        file.read(directory + '/' + name + ".h6b");
        return file.data(0).front();
    };
    Model & model = simulation.model();
    const double half = 0.01 / model.cellStates()[0].lambda;
    const double flux = 10 / (2 * half + 0.2);
    EXPECT_NEAR(first("out"), -flux, 1e-6 * flux);
    EXPECT_NEAR(first("in"), flux, 1e-6 * flux);
    EXPECT_NEAR(first("warm"), 30 - flux * half, 1e-6);
    EXPECT_NEAR(first("cold"), 20 + flux * half, 1e-6);
}
