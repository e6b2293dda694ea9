#include "ProjectTexts.h"

#include <SOLVER/Physics.h>
#include <SOLVER/Simulation.h>

#include <HYGRION/Project.h>
#include <KOR/Exception.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

using namespace SOLVER;
using namespace texts;

namespace {

HYGRION::Project example(const std::string & name) {
    HYGRION::Project project;
    project.readXML(std::string(HYG_SOURCE_DIR) + "/examples/" + name + ".h6p");
    return project;
}

class EveryExample : public testing::TestWithParam<std::string> {};

TEST_P(EveryExample, BecomesAModelThatCanBeEvaluated) {
    const HYGRION::Project project = example(GetParam());
    const Construction construction = buildConstruction(project);
    EXPECT_EQ(construction.cellPlaces.size(), construction.input.cells.size());
    EXPECT_EQ(construction.surfacePlaces.size(), construction.input.surfaces.size());
    EXPECT_GT(construction.input.surfaces.size(), 0u);
    EXPECT_GT(construction.endTime, construction.startTime);
    Model model(construction.input);
    std::vector<double> derivative(model.size());
    const std::vector<double> state = model.initialState();
    for (double t = construction.startTime; t < construction.endTime;
         t += (construction.endTime - construction.startTime) / 7)
        EXPECT_TRUE(model.rightHandSide(t, state, derivative)) << t;
}

TEST_P(EveryExample, TakesItsFirstSteps) {
    const HYGRION::Project project = example(GetParam());
    Simulation run(buildConstruction(project), project, "");
    for (int step = 0; step < 12; ++step) {
        const double before = run.time();
        ASSERT_TRUE(run.step());
        EXPECT_GT(run.time(), before);
    }
    const RunSummary summary = run.summary();
    EXPECT_LT(std::fabs(summary.moisture.error()), 1e-9 * summary.moisture.exchanged + 1e-9);
    EXPECT_LT(std::fabs(summary.energy.error()), 1e-6 * summary.energy.exchanged + 1e-6);
}

std::vector<std::string> examples() {
    std::vector<std::string> names;
    const std::filesystem::path root = std::string(HYG_SOURCE_DIR) + "/examples";
    for (const auto & entry : std::filesystem::recursive_directory_iterator(root))
        if (entry.path().extension() == ".h6p")
            names.push_back(std::filesystem::relative(entry.path(), root).replace_extension().string());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Files, EveryExample, testing::ValuesIn(examples()), [](const auto & name) {
    std::string word;
    for (const char c : name.param)
        if (std::isalnum(static_cast<unsigned char>(c)))
            word += c;
    return word;
});

// *** Grid ***

/// Volumes, areas and distances of rings around an axis.
TEST(Construction, RingsAroundAnAxisHaveTheirVolumes) {
    Parts parts;
    parts.module = "HeatTransport";
    parts.grid = "<XSteps unit='m'>0.1 0.2</XSteps><YSteps unit='m'>0.5</YSteps>" + parameter("ThetaZ", "90", "Deg");
    parts.range = "0 0 1 0";
    parts.interface = "<Interface name='Surface' type='Detailed'/>";
    HYGRION::Project made = project(parts);
    made.m_assignments.m_list[1].m_location = HYGRION::Assignment::location_t::Right;
    const Construction construction = buildConstruction(made);
    const ModelInput & input = construction.input;
    const double quarter = std::numbers::pi / 4;
    constexpr double ROUNDED = 1e-6; // degrees are converted with six digits
    EXPECT_NEAR(input.cells[0].volume, quarter * 0.01 * 0.5, ROUNDED);
    EXPECT_NEAR(input.cells[1].volume, quarter * (0.09 - 0.01) * 0.5, ROUNDED);
    EXPECT_NEAR(input.faces[0].area, 2 * quarter * 0.1 * 0.5, ROUNDED);
    EXPECT_NEAR(input.surfaces[0].area, 2 * quarter * 0.3 * 0.5, ROUNDED);
    EXPECT_DOUBLE_EQ(input.surfaces[0].distance, 0.1);
}

/// Steady heat through the wall of a tube: the logarithm of its radii, of second order in the cells.
TEST(Construction, TubesConductByTheLogarithmOfTheirRadii) {
    double error[2] = {};
    for (const int refinement : {0, 1}) {
        const int cells = 10 << refinement;
        Parts parts;
        parts.module = "HeatTransport";
        std::string steps = "0.1";
        for (int i = 0; i < cells; ++i)
            steps += " " + std::to_string(0.2 / cells);
        parts.grid = "<XSteps unit='m'>" + steps + "</XSteps>" + parameter("ThetaZ", "360", "Deg");
        parts.range = "1 0 " + std::to_string(cells) + " 0";
        parts.duration = "100";
        parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='SurfaceValue'>" +
                         reference("Temperature") +
                         "</BoundaryCondition>"
                         "<BoundaryCondition name='Warm' type='HeatConduction' kind='SurfaceValue'>" +
                         reference("Temperature", "Indoor") + "</BoundaryCondition>";
        parts.interface += "<Interface name='Inside' type='Detailed'><BCReference>Warm</BCReference></Interface>";
        parts.assignments = assignment("Interface", "Right", "Inside", parts.range);
        Construction construction = buildConstruction(project(parts));
        Model model(construction.input);
        const auto integrator = makeIntegrator(model, construction.integrator, 0, model.initialState());
        integrator->advance(construction.endTime);
        std::vector<double> derivative(model.size());
        model.rightHandSide(construction.endTime, integrator->state(), derivative);
        const double exact = -2 * std::numbers::pi * model.cellStates()[0].lambda * 11 / std::log(3);
        error[refinement] = model.exchangeRates()[0].heat / exact - 1;
    }
    EXPECT_LT(std::fabs(error[1]), 1e-3);
    EXPECT_NEAR(error[0] / error[1], 4, 0.5);
}

TEST(Construction, StartsAtTheInitialConditions) {
    struct Case {
        const char *type, *value, *unit;
        double moisture, temperature;
    };
    // Brick: 9.2 kg/m3 at 80 %, 370 kg/m3 at saturation, density 1650 kg/m3.
    for (const Case & row : {
             Case{"Temperature",        "5",         "C",     0,   278.15},
             Case{"RelativeHumidity",   "80",        "%",     9.2, 293.15},
             Case{"MoistureContent",    "15",        "Vol%",  150, 293.15},
             Case{"MoistureMass",       "42",        "kg/m3", 42,  293.15},
             Case{"MoistureMassByMass", "20",        "g/kg",  33,  293.15},
             Case{"CapillaryPressure",  "-30192000", "Pa",    9.2, 293.15}
    }) {
        Parts parts;
        parts.initial = "<InitialCondition name='Start' type='" + std::string(row.type) + "'>" +
                        parameter("Value", row.value, row.unit) +
                        "</InitialCondition>"
                        "<InitialCondition name='Again' type='" +
                        row.type + "'><Reference>Start</Reference></InitialCondition>";
        parts.assignments = assignment("InitialCondition", "Element", "Again", "1 0 3 0");
        parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='ImposedFlux'>" +
                         reference("HeatFlux") + "</BoundaryCondition>";
        const Evaluated wall(parts);
        const auto cells = wall.model.cellStates();
        EXPECT_NEAR(cells[2].temperature, row.temperature, 1e-9) << row.type;
        if (row.moisture > 0) {
            EXPECT_NEAR(cells[2].moisture, row.moisture, 2e-3 * row.moisture) << row.type;
        } else {
            EXPECT_NEAR(cells[2].humidity, 0.8, 1e-6);
        }
        EXPECT_NEAR(cells[0].temperature, 293.15, 1e-9);
        EXPECT_NEAR(cells[0].humidity, 0.8, 1e-6);
    }
}

/// A material with directions of its own: the mapping, or a matrix along the axes, says which of them lies along x, y and z.
TEST(Construction, MappingsTurnAnisotropicMaterials) {
    struct Case {
        const char * mapping;
        std::array<double, 3> lambda;
    };
    const std::string path = testing::TempDir() + "grain_900.m6";
    std::ofstream(path)
        << "H6MARLZ! 006.001\n[IDENTIFICATION]\n  NAME = grain\n  FLAGS = AIR_TIGHT WATER_TIGHT VAPOR_TIGHT\n"
           "[STORAGE_BASE_PARAMETERS]\n  RHO = 500 kg/m3\n  CE = 1500 J/kgK\n"
           "[TRANSPORT_BASE_PARAMETERS]\n  LAMBDA = 0.1 W/mK\n  LAMBDA_V = 0.2 W/mK\n  LAMBDA_W = 0.4 W/mK\n  "
           "LAMBDA_DESIGN = 0.15 W/mK\n";
    for (const Case & row : {
             Case{"<Mapping>UVW</Mapping>",                                                         {0.1, 0.2, 0.4}},
             Case{"<Mapping>WUV</Mapping>",                                                         {0.4, 0.1, 0.2}},
             Case{"<Mapping>VVU</Mapping>",                                                         {0.2, 0.2, 0.1}},
             Case{"<Mapping>UserMatrix</Mapping><DirectionRotationMatrix><RotationMatrixInstance elementID='0'>0 1 0 0 "
                  "0 1 1 0 0</RotationMatrixInstance></DirectionRotationMatrix>", {0.2, 0.4, 0.1}}
    }) {
        Parts parts;
        parts.module = "HeatTransport";
        parts.material = path;
        parts.grid = "<XSteps unit='m'>1 1</XSteps><YSteps unit='m'>1 1</YSteps><ZSteps unit='m'>1 1</ZSteps>";
        parts.range = "0 0 0 1 1 1";
        parts.initial =
            "<InitialCondition name='Warm' type='Temperature'>" + parameter("Value", "30", "C") + "</InitialCondition>";
        parts.assignments = assignment("InitialCondition", "Element", "Warm", "0 0 0 0");
        parts.assignments += "<Assignment type='Material' location='Element'><Reference>Brick</Reference>" +
                             std::string(row.mapping) + "<Range>0 0 0 1 1 1</Range></Assignment>";
        parts.interface = "<Interface name='Surface' type='Detailed'/>";
        const Evaluated detail(parts);
        const auto faces = detail.model.faceFluxes();
        for (std::size_t f = 0; f < faces.size(); ++f) {
            const ModelInput::Face & face = detail.model.input().faces[f];
            const double drop = face.a == 0 ? 10 : 0;
            EXPECT_NEAR(faces[f].conduction, drop * row.lambda[static_cast<std::size_t>(face.direction)], 1e-6)
                << row.mapping;
        }
        ASSERT_EQ(faces.size(), 12u);
        // The design value knows no direction, the dry one does.
        parts.settings = "<LambdaSelection>LambdaDesign</LambdaSelection>";
        EXPECT_NEAR(Evaluated(parts).model.faceFluxes()[0].conduction, 1.5, 1e-6);
        parts.settings = "<LambdaSelection>LambdaDry</LambdaSelection>";
        EXPECT_NEAR(Evaluated(parts).model.faceFluxes()[0].conduction, 10 * row.lambda[0], 1e-6);
    }
}

// *** Fields over several cells ***

/// Water that flows past two cells of each of two rows: each takes the water as the one before left it.
TEST(Construction, GroundWaterFlowsFromCellToCell) {
    Parts parts;
    parts.grid = "<XSteps unit='m'>1 2 1 1</XSteps><YSteps unit='m'>1 3</YSteps>";
    parts.range = "0 0 3 1";
    parts.module = "HeatTransport";
    parts.interface = "<Interface name='Surface' type='Detailed'/>";
    parts.initial =
        "<InitialCondition name='Warm' type='Temperature'>" + parameter("Value", "30", "C") + "</InitialCondition>";
    parts.field = "<FieldCondition name='Water' type='GroundWaterFlow'>" + reference("Temperature") +
                  reference("MassFlowRate") + "<KOR:IntPara name='FlowDirection'>0</KOR:IntPara></FieldCondition>";
    parts.assignments = assignment("InitialCondition", "Element", "Warm", "2 0 2 1") +
                        assignment("FieldCondition", "Element", "Water", "1 0 2 1");
    const Evaluated ground(parts);
    const auto loads = ground.model.loadRates();
    ASSERT_EQ(loads.size(), 4u);
    // To the left: into column 3 at 10 C, from there at 30 C into column 2, which is at 20 C; a quarter in the lower row.
    const double capacity = 0.05 * 4187;
    const double expected[] = {10 * capacity / 4, -20 * capacity / 4, 10 * capacity * 3 / 4, -20 * capacity * 3 / 4};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(loads[i].heat, expected[i], 1e-6 * std::fabs(expected[i])) << i;
}

/// Walls around two columns: left and right, bottom and top; concentric in a body of revolution.
TEST(Construction, CavitiesLinkOppositeWalls) {
    for (const bool isRound : {false, true}) {
        Parts parts;
        parts.grid = "<XSteps unit='m'>0.1 0.2 0.3 0.4</XSteps><YSteps unit='m'>1 2 3</YSteps>" +
                     (isRound ? parameter("ThetaZ", "360", "Deg") : std::string());
        parts.range = "0 0 3 2";
        parts.module = "HeatTransport";
        parts.interface = "<Interface name='Surface' type='Detailed'/>";
        parts.field = "<FieldCondition name='Cavity' type='LongWaveRadiation'>" + flag("LongWaveRadiationX") +
                      flag("LongWaveRadiationY", !isRound) + parameter("LeftEmissionCoefficient", "0.9", "---") +
                      parameter("RightEmissionCoefficient", "0.8", "---") +
                      parameter("BottomEmissionCoefficient", "0.5", "---") +
                      parameter("TopEmissionCoefficient", "1", "---") + "</FieldCondition>";
        parts.assignments = assignment("FieldCondition", "Element", "Cavity", "1 1 2 1");
        HYGRION::Project made = project(parts);
        made.m_assignments.m_list[1].m_location = HYGRION::Assignment::location_t::Right;
        const auto links = buildConstruction(made).input.radiation;
        ASSERT_EQ(links.size(), isRound ? 1u : 3u);
        EXPECT_EQ(links[0].a, 4u);
        EXPECT_EQ(links[0].b, 7u);
        EXPECT_DOUBLE_EQ(links[0].distanceA, 0.05);
        EXPECT_DOUBLE_EQ(links[0].distanceB, 0.2);
        const double ratio = isRound ? 0.1 / 0.6 : 1;
        EXPECT_NEAR(links[0].area, 2 * (isRound ? 2 * std::numbers::pi * 0.1 : 1), 1e-5);
        EXPECT_NEAR(links[0].emissivity, 1 / (1 / 0.9 + ratio * (1 / 0.8 - 1)), 1e-6);
        if (isRound)
            continue;
        EXPECT_EQ(links[2].a, 2u);
        EXPECT_EQ(links[2].b, 10u);
        EXPECT_DOUBLE_EQ(links[2].area, 0.3);
        EXPECT_DOUBLE_EQ(links[2].emissivity, 0.5);
    }
}

/// Two halves of a wall with a gap between: one interface leads to the other, or each to the other.
TEST(Construction, InterfacesThatLeadToOneAnotherPassHeatAndVapor) {
    for (const bool isMutual : {false, true}) {
        const auto law = [](const std::string & name, const std::string & type, const std::string & coefficient,
                            const std::string & unit, const std::string & other) {
            return "<BoundaryCondition name='" + name + "' type='" + type + "' kind='Exchange'>" +
                   parameter("ExchangeCoefficient", coefficient, unit) + "<OtherInterfaceReference>" + other +
                   "</OtherInterfaceReference></BoundaryCondition>";
        };
        Parts parts;
        parts.grid = "<XSteps unit='m'>0.02 0.05 0.02</XSteps>";
        parts.range = "0 0 0 0";
        parts.interface = "<Interface name='Surface' type='Detailed'/><Interface name='A' "
                          "type='Detailed'><BCReference>Heat</BCReference><BCReference>Vapor</BCReference></Interface>"
                          "<Interface name='B' type='Detailed'>" +
                          std::string(isMutual ? "<BCReference>Back</BCReference>" : "") + "</Interface>";
        parts.boundary = law("Heat", "HeatConduction", "5", "W/m2K", "B") +
                         law("Vapor", "VaporDiffusion", "1e-12", "s/m", "B") +
                         law("Back", "HeatConduction", "4", "W/m2K", "A");
        parts.initial =
            "<InitialCondition name='Warm' type='Temperature'>" + parameter("Value", "30", "C") + "</InitialCondition>";
        parts.assignments = assignment("Material", "Element", "Brick", "2 0 2 0") +
                            assignment("InitialCondition", "Element", "Warm", "0 0 0 0") +
                            assignment("Interface", "Right", "A", "0 0 0 0") +
                            assignment("Interface", "Left", "B", "2 0 2 0");
        const Evaluated gap(parts);
        ASSERT_EQ(gap.model.faceFluxes().size(), 1u);
        const auto cells = gap.model.cellStates();
        const double halves = 0.01 / cells[0].lambda + 0.01 / cells[1].lambda;
        const double heat = 10 / (halves + 0.2 + (isMutual ? 0.25 : 0));
        EXPECT_NEAR(gap.model.faceFluxes()[0].conduction, heat, 2e-3 * heat); // vapour carries a little
        const double vapor = 1e-12 * (cells[0].vaporPressure - cells[1].vaporPressure);
        EXPECT_NEAR(gap.model.faceFluxes()[0].vapor, vapor, 0.3 * vapor); // the sides of the gap are less far apart
        EXPECT_NEAR(gap.model.faceFluxes()[0].liquid, 0, 1e-15);
    }
}

// *** Rain ***

/// An hour of rain in a dry year, tabulated in two ways, and one that a schedule lets through: with steps of a month
/// between, all of it arrives.
TEST(Construction, NoStepLeapsOverAnHourOfRain) {
    const std::string path = testing::TempDir() + "shower.ccd";
    std::ofstream(path)
        << "RainFluxNormal : l/m2h\n0 00:00:00 0\n200 09:00:00 0\n200 10:00:00 2\n200 11:00:00 0\n364 00:00:00 0\n";
    for (const bool isConstant : {false, true})
        for (const bool isInterpolated : {false, true}) {
            Parts parts;
            parts.duration = "365";
            parts.climate = "<ClimateCondition name='Shower' type='RainFluxNormal' kind='TabulatedData'>" +
                            flag("UseInterpolation", isInterpolated) + flag("Cyclic") + "<Filename>" + path +
                            "</Filename></ClimateCondition>";
            parts.schedules = "<Schedule name='Hour' enabled='true'><Interval>" + parameter("Start", "4810", "h") +
                              parameter("Duration", "1", "h") + "</Interval></Schedule>";
            parts.boundary = "<BoundaryCondition name='Law' type='WindDrivenRain' kind='ImposedFlux'>" +
                             reference("RainFluxNormal", isConstant ? "" : "Shower") +
                             (isConstant ? "<Schedule>Hour</Schedule>" : "") + "</BoundaryCondition>";
            HYGRION::Project made = project(parts);
            made.m_init.m_solverSettings.m_para.set(HYGRION::SolverSettings::para_t::MaxTimeStep, 30, "d");
            Simulation run(buildConstruction(made), made, "");
            double longest = 0;
            double wettest = 0;
            while (run.step()) {
                longest = std::max(longest, run.progress().step);
                wettest = std::max(wettest, run.model().surfaceLoads()[0].rain);
            }
            const RunSummary summary = run.summary();
            const double rain = isConstant ? 1 : 2; // [kg/m2]
            EXPECT_NEAR(summary.moisture.cameIn, rain, 1e-3 * rain) << isConstant << isInterpolated;
            EXPECT_NEAR(summary.moisture.gained, rain, 1e-3 * rain) << isConstant << isInterpolated;
            EXPECT_GT(longest, 10 * 86400);
        }
}

/// Steps of a climate that repeats every year, at new year as well, and a schedule that begins in one and ends at another.
TEST(Construction, JumpsRepeatEveryYear) {
    const std::string path = testing::TempDir() + "steps.ccd";
    std::ofstream(path) << "Temperature : C\n0 00:00:00 5\n100 06:00:00 7\n200 00:00:00 7\n364 23:59:59 6\n";
    Parts parts;
    parts.duration = "1100";
    parts.climate = "<ClimateCondition name='Steps' type='Temperature' kind='TabulatedData'>" + flag("Cyclic") +
                    "<Filename>" + path + "</Filename></ClimateCondition>";
    parts.schedules = "<Schedule name='Years' enabled='true'><Interval>" + parameter("Start", "300", "d") +
                      parameter("End", "730", "d") + "</Interval></Schedule>";
    parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='Exchange'>" +
                     parameter("ExchangeCoefficient", "8", "W/m2K") + reference("Temperature", "Steps") +
                     "<Schedule>Years</Schedule></BoundaryCondition>";
    const Construction made = buildConstruction(project(parts));
    std::vector<double> expected;
    for (const double year : {0.0, 365.0, 730.0, 1095.0})
        for (const double day : {0.0, 100.25, 364 + 86399 / 86400.0})
            expected.push_back(86400 * (year + day));
    expected.insert(expected.begin() + 2, 300 * 86400); // the end falls on a new year
    expected.erase(expected.begin());                   // the first moment is no jump
    double t = 0;
    for (const double jump : expected) {
        if (jump > made.endTime)
            break;
        const double before = made.nextJump(t);
        EXPECT_TRUE(made.isContinuousAt(before)) << before;
        t = made.nextJump(before);
        EXPECT_NEAR(before, jump, 0.01);
        EXPECT_LT(before, t);
        EXPECT_NEAR(t, jump, 1e-6);
        EXPECT_FALSE(made.isContinuousAt(t)) << t;
    }
    EXPECT_GT(t, 1095 * 86400.0 - 1);
}

} // namespace
