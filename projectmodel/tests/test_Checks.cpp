#include "XmlTesting.h"

#include <HYGRION/Conditions.h>
#include <HYGRION/Defaults.h>
#include <HYGRION/Init.h>
#include <HYGRION/Outputs.h>

#include <set>

using namespace testing_xml;
using namespace HYGRION;

namespace {

/// The innermost message of checkParameters; empty if it finds nothing.
template <typename Item> std::string refusal(const Item & item) {
    try {
        item.checkParameters();
    } catch (const KOR::Exception & ex) {
        return ex.cause();
    }
    return {};
}

struct InitialCase {
    InitialCond::condition_t type;
    double value;
    const char * unit;
    const char * message; ///< what follows the name; empty: accepted
};

} // namespace

TEST(Checks, InitialConditionsKeepToPhysics) {
    using enum InitialCond::condition_t;
    const InitialCase CASES[] = {
        {Temperature,        -50,    "C",     " has probably an invalid temperature (<= -50 C)."},
        {Temperature,        -49.9,  "C",     ""                                                },
        {Temperature,        99.9,   "C",     ""                                                },
        {Temperature,        100,    "C",     " has probably an invalid temperature (>= 100 C)."},
        {Temperature,        400,    "K",     " has probably an invalid temperature (>= 100 C)."},
        {MoistureContent,    -1e-9,  "m3/m3", " has an invalid volumetric content (< 0 m3/m3)." },
        {MoistureContent,    0,      "m3/m3", ""                                                },
        {MoistureMass,       -1,     "g/m3",  " has an invalid mass density (< 0 kg/m3)."       },
        {MoistureMassByMass, -0.1,   "kg/kg", " has an invalid mass content (< 0 kg/kg)."       },
        {RelativeHumidity,   -0.1,   "%",     " has an invalid relative humidity (< 0 %%)."     },
        {RelativeHumidity,   100,    "%",     ""                                                },
        {RelativeHumidity,   1,      "---",   ""                                                },
        {RelativeHumidity,   100.01, "%",     " has an invalid relative humidity (> 100 %%)."   },
        {CapillaryPressure,  0,      "Pa",    " has an invalid capillary pressure (>= 0 Pa)."   },
        {CapillaryPressure,  -1,     "hPa",   ""                                                },
    };
    for (const InitialCase & row : CASES) {
        InitialCond condition;
        condition.m_name = "i";
        condition.m_type = row.type;
        condition.setValue(row.value, KOR::Unit(row.unit));
        EXPECT_EQ(refusal(condition), *row.message == '\0' ? "" : "Initial condition 'i'" + std::string(row.message));
    }
    InitialCond empty;
    empty.m_name = "i";
    EXPECT_EQ(refusal(empty), "Initial condition 'i' does not have a valid condition type.");
    empty.m_type = Temperature;
    EXPECT_EQ(refusal(empty), "Initial condition 'i' does not have a value.");
    empty.m_reference = "other";
    EXPECT_EQ(refusal(empty), "");
}

/// Every parameter, flag and choice of Init and solver has a default that it accepts itself.
TEST(Checks, DefaultsAreCompleteAndSound) {
    Init all;
    std::size_t rows = 0;
    const auto walk = [&](auto key, auto && body) {
        using Enum = decltype(key);
        for (int i = 0; i < KeywordList::count<Enum>(); ++i, ++rows)
            body(static_cast<Enum>(i));
    };
    walk(Init::para_t{},
         [&](auto key) { all.m_para.set(key, all.parameter(key).ioValue(), all.parameter(key).ioUnit()); });
    walk(Init::defaultInitialCondition_t{}, [&](auto key) {
        all.m_defaultInitialCondition.set(key, all.parameter(key).ioValue(), all.parameter(key).ioUnit());
    });
    walk(Init::intpara_t{}, [&](auto key) { all.m_intPara.set(key, all.intParameter(key)); });
    walk(Init::flag_t{}, [&](auto key) { all.m_flag.set(key, all.isEnabled(key)); });
    SolverSettings & solver = all.m_solverSettings;
    walk(SolverSettings::para_t{},
         [&](auto key) { solver.m_para.set(key, solver.parameter(key).ioValue(), solver.parameter(key).ioUnit()); });
    walk(SolverSettings::flag_t{}, [&](auto key) { solver.m_flag.set(key, solver.isEnabled(key)); });
    EXPECT_EQ(refusal(all), "");
    EXPECT_EQ(refusal(Init()), "");
    EXPECT_EQ(solver.integrator(), SolverSettings::integrator_t::Auto);
    EXPECT_EQ(solver.lesSolver(), SolverSettings::lesSolver_t::Auto);
    EXPECT_EQ(solver.preconditioner(), SolverSettings::precond_t::Auto);
    EXPECT_EQ(all.lambdaSelection(), Init::lambdaSelection_t::LambdaMoistureDependent);
    EXPECT_EQ(all.balanceEquationModule(), Init::balanceEquationModule_t::HeatMoistureTransport);

    constexpr std::size_t CHOICES = 5;
    EXPECT_EQ(defaults().size(), rows + CHOICES) << "a row too many, or twice";
    std::set<std::pair<std::string_view, std::string_view>> seen;
    for (const DefaultRow & row : defaults()) {
        EXPECT_TRUE(seen.emplace(row.category, row.keyword).second) << row.keyword;
        EXPECT_FALSE(row.reason.empty()) << row.keyword;
    }
}

TEST(Checks, NonsenseInSettingsIsRefusedByName) {
    using Para = SolverSettings::para_t;
    struct Row {
        Para key;
        double value;
        const char * unit;
        const char * message;
    };
    const Row ROWS[] = {
        {Para::RelTol,          -1e-5, "---", "Parameter 'RelTol' is -1e-05 ---, it must be positive, at most 0.1 ---."  },
        {Para::AbsTolMoisture,  0,     "g",   "Parameter 'AbsTolMoisture' is 0 g, it must be positive."                  },
        {Para::MaxOrder,        6,     "---", "Parameter 'MaxOrder' is 6 ---, it must lie within 1..5 ---."              },
        {Para::MinTimeStep,     -1,    "s",   "Parameter 'MinTimeStep' is -1 s, it must not be negative."                },
        {Para::MinTimeStep,     31,    "min", "Parameter 'MinTimeStep' (31 min) must not exceed 'MaxTimeStep' (30 min)." },
        {Para::InitialTimeStep, 1,     "h",   "Parameter 'InitialTimeStep' (1 h) must not exceed 'MaxTimeStep' (30 min)."},
    };
    for (const Row & row : ROWS) {
        Init init;
        init.m_solverSettings.m_para.set(row.key, row.value, row.unit);
        EXPECT_EQ(refusal(init), row.message);
    }
    SolverSettings shortSteps;
    shortSteps.m_para.set(Para::MaxTimeStep, 1, "ms");
    EXPECT_EQ(refusal(shortSteps), "");
    EXPECT_EQ(shortSteps.parameter(Para::InitialTimeStep).get_value("ms"), 1) << "a default follows what is given";
    EXPECT_EQ(shortSteps.parameter(Para::MinTimeStep).get_value("s"), 1e-8);
    SolverSettings wrongUnit;
    wrongUnit.m_para.set(Para::RelTol, 1, "kg");
    EXPECT_EQ(caught([&] { wrongUnit.checkParameters(); }).message(),
              "Parameter 'RelTol' has an unsuitable unit 'kg'.");

    Init init;
    init.m_interval.m_para.set(Interval::para_t::Start, 10, "d");
    init.m_interval.m_para.set(Interval::para_t::End, 240, "h");
    EXPECT_EQ(refusal(init), "Parameter 'End' of the interval must lie after its start.");
    init.m_interval.m_para.set(Interval::para_t::End, 241, "h");
    EXPECT_EQ(refusal(init), "");
    init.m_interval.m_para.set(Interval::para_t::Duration, 1, "h");
    EXPECT_EQ(refusal(init), "Parameters 'End' and 'Duration' of the interval exclude one another.");
    init.m_interval.m_para.erase(Interval::para_t::End);
    init.m_interval.m_para.set(Interval::para_t::Duration, 1001, "a");
    EXPECT_EQ(refusal(init), "The simulation lasts beyond 1000 a.");
    init.m_interval.m_para.set(Interval::para_t::Duration, 1, "h");
    EXPECT_DOUBLE_EQ(init.m_interval.end(), 241 * 3600);
    init.m_intPara.set(Init::intpara_t::TimeZone, 15);
    EXPECT_EQ(refusal(init), "Parameter 'TimeZone' is 15, it must lie within -12..14.");
    init.m_balanceEquationModule = "Heat";
    EXPECT_EQ(caught([&] { init.checkParameters(); }).message(), "Unknown balance equation module 'Heat'.");
}

TEST(Checks, ConditionsAndOutputs) {
    BoundaryCond law;
    law.m_name = "b";
    EXPECT_EQ(refusal(law), "Boundary condition 'b': Parameter 'ExchangeCoefficient' is missing for kind 'Exchange'.");
    law.m_para.set(BoundaryCond::para_t::ExchangeCoefficient, -1, "W/m2K");
    EXPECT_EQ(refusal(law), "Boundary condition 'b': Parameter 'ExchangeCoefficient' is -1 W/m2K, it must lie within "
                            "0..1e+06 W/m2K.");
    law.m_para.set(BoundaryCond::para_t::ExchangeCoefficient, 1e300, "W/m2K");
    EXPECT_NE(refusal(law), "");
    law.m_para.set(BoundaryCond::para_t::ExchangeCoefficient, 1, "s/m");
    EXPECT_EQ(caught([&] { law.checkParameters(); }).message(),
              "Boundary condition 'b': Parameter 'ExchangeCoefficient' has an unsuitable unit 's/m'.");
    law.m_type = BoundaryCond::condition_t::VaporDiffusion;
    law.m_intPara.set(BoundaryCond::intpara_t::HP_GlycolKind, 3);
    EXPECT_EQ(refusal(law), "Boundary condition 'b': Parameter 'HP_GlycolKind' is 3, it must lie within 0..2.");

    Interface room;
    room.m_name = "r";
    EXPECT_EQ(refusal(room), "");
    room.m_type = Interface::type_t::EngineeringIndoor;
    EXPECT_EQ(refusal(room), "Interface 'r': 'ClimateTypeIndoor' is missing.");
    room.m_climateTypeIndoor = Interface::climateTypeIndoor_t::IndoorWTA;
    room.m_indoorWTAType = Interface::indoorWTAType_t::IndoorWTAUserData;
    EXPECT_EQ(refusal(room), "Interface 'r': 'WTALowTemperature' is missing.");

    Schedule schedule;
    schedule.m_name = "s";
    EXPECT_EQ(refusal(schedule), "Schedule 's' has no interval.");
    schedule.m_intervals.emplace_back().m_para.set(Interval::para_t::Start, 1, "d");
    schedule.m_intervals.back().m_para.set(Interval::para_t::Duration, 1, "d");
    EXPECT_EQ(refusal(schedule), "");
    EXPECT_TRUE(schedule.isActive(86400));
    EXPECT_FALSE(schedule.isActive(86399));
    EXPECT_FALSE(schedule.isActive(2 * 86400));
    schedule.m_enabled = false;
    EXPECT_TRUE(schedule.isActive(0));

    OutputGrid grid;
    grid.m_name = "g";
    grid.m_intervals = {schedule.m_intervals[0], schedule.m_intervals[0]};
    EXPECT_EQ(refusal(grid), "Output grid 'g': parameter 'StepSize' is missing in interval no. 1.");
    for (Interval & interval : grid.m_intervals)
        interval.m_para.set(Interval::para_t::StepSize, 1);
    EXPECT_EQ(refusal(grid), "Output grid 'g': interval no. 2 starts before the end of the previous one.");

    ContactCond foil;
    foil.m_name = "f";
    foil.m_type = ContactCond::condition_t::FoilAdaptive;
    EXPECT_EQ(
        refusal(foil),
        "Contact condition 'f': An adaptive foil needs a foil name, function 'sd+(rh)' or parameter 'SCALING_A_POS'.");
    Outputs outputs;
    outputs.m_intPara.set(Outputs::intpara_t::AsciiPrecision, 0);
    EXPECT_EQ(refusal(outputs), "Outputs: Parameter 'AsciiPrecision' is 0, it must lie within 1..17.");
}
