#include "ReferenceCases.h"

#include <SOLVER/RunDirectory.h>
#include <SOLVER/Simulation.h>

#include <DATAIO/DataIO.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/UnitList.h>

#include <gmock/gmock.h>

#include <unistd.h>

#include <filesystem>
#include <set>

namespace {

using namespace SOLVER;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pointwise;
namespace fs = std::filesystem;
using Location = HYGRION::Assignment::location_t;
using Space = HYGRION::OutputFile::space_type_t;
using Time = HYGRION::OutputFile::time_type_t;

constexpr double HOUR = 3600;
constexpr double SWITCH = 2.3 * HOUR; ///< when the outside of the test wall changes

std::string scratch(const std::string & name) {
    std::string path = testing::TempDir() + "hyg-simulation-" + std::to_string(::getpid()) + '-' + name;
    fs::remove_all(path);
    return path;
}

/// A wall of two layers, the left surface heated from SWITCH on, both in contact with humid air.
Construction wall(double tolerance = 1e-5, const MaterialFunctions & inside = reference::insulation()) {
    Construction c;
    const std::vector<double> widths{0.01, 0.02, 0.03, 0.02, 0.02};
    const auto materialAt = [](double x) { return x < 0.06 ? 0U : 1U; };
    c.input = reference::wall(widths, {reference::loadBearing(), inside}, materialAt, 293.15,
                              [](std::uint32_t) { return reference::suctionAt(0.6); });
    c.input.climate = [](double time, ModelInput::Loads loads) {
        loads.surfaces[0].heatFlux = time < SWITCH ? 0 : 50;
        loads.surfaces[0].vaporTransfer = 2e-8;
        loads.surfaces[0].vaporPressure = 1500;
        loads.surfaces[0].airTemperature = 293.15;
        loads.surfaces[1] = loads.surfaces[0];
        loads.surfaces[1].heatFlux = 0;
        loads.surfaces[1].heatTransfer = 8;
        loads.surfaces[1].vaporPressure = 1000;
    };
    c.nextJump = [](double time) { return time < SWITCH ? SWITCH : std::numeric_limits<double>::infinity(); };
    c.isContinuousAt = [](double) { return false; };
    c.integrator.relativeTolerance = tolerance;
    c.integrator.absoluteToleranceHeat = c.integrator.absoluteToleranceMoisture = tolerance;
    c.endTime = 6 * HOUR;
    c.startYear = 2026;
    std::vector<std::uint32_t> ids;
    for (std::uint32_t i = 0; i < widths.size(); ++i) {
        const std::uint32_t material = i < 3 ? 0 : 1;
        c.cellPlaces.push_back({
            std::array{i, 0U, 0U},
            material
        });
        c.cellOfGrid.push_back(i);
        ids.push_back(material);
    }
    c.surfacePlaces.push_back({
        std::array{0U, 0U, 0U},
        DATAIO::GeoFile::LEFT, "Outside", 0, 90
    });
    c.surfacePlaces.push_back({
        std::array{4U, 0U, 0U},
        DATAIO::GeoFile::RIGHT, "Inside", 0, 90
    });
    c.geometry.m_materials.push_back({0, 0xff808080, "Concrete"});
    c.geometry.m_materials.push_back({1, 0xffffff00, "Wool"});
    const std::vector<double> metre{1.0};
    c.geometry.setGrid({widths, metre, metre});
    c.geometry.makeTables(ids);
    c.expansion.resize(2);
    c.expansion[0].density = 2000;
    c.expansion[1].density = 50;
    return c;
}

HYGRION::Range range(std::uint32_t left, std::uint32_t right) {
    return {.left = left, .bottom = 0, .back = 0, .right = right, .top = 0, .front = 0};
}

struct Interval {
    double start, end, step; ///< [h]
};

struct Outputs {
    HYGRION::Project project;

    Outputs()
        : Outputs({
              Interval{0, 1e9, 1}
    }) {}
    explicit Outputs(std::initializer_list<Interval> intervals) {
        using Para = HYGRION::Interval::para_t;
        HYGRION::OutputGrid grid;
        grid.m_name = "grid";
        for (const Interval & interval : intervals) {
            HYGRION::Interval & one = grid.m_intervals.emplace_back();
            one.m_para.set(Para::Start, interval.start, "h");
            one.m_para.set(Para::End, interval.end, "h");
            one.m_para.set(Para::StepSize, interval.step, "h");
        }
        project.m_outputs.m_outputGrids.push_back(grid);
    }
    Outputs & add(const std::string & name, const char * quantity, Space space, Time time, Location location,
                  HYGRION::Range where, const char * unit = "undefined") {
        HYGRION::OutputFile file;
        file.m_name = name;
        file.m_quantity = quantity;
        file.m_outputUnit = KOR::Unit(unit);
        file.m_spaceType = space;
        file.m_timeType = time;
        file.m_outputGrid = "grid";
        project.m_outputs.m_outputFiles.push_back(file);
        project.m_assignments.m_list.emplace_back(HYGRION::Assignment::type_t::Output, location, where, name);
        return *this;
    }
};

DATAIO::DataIO read(const std::string & directory, const std::string & name) {
    DATAIO::DataIO file;
    file.read(directory + '/' + name + ".h6b");
    return file;
}

std::vector<double> series(const std::string & directory, const std::string & name, std::size_t index = 0) {
    return read(directory, name).dataVector(index);
}

std::string message(const std::function<void()> & act) {
    try {
        act();
    } catch (const KOR::Exception & ex) {
        return ex.what();
    }
    return "nothing was thrown";
}

} // namespace

TEST(Simulation, KeepsItsBalancesAcrossAJump) {
    Simulation simulation(wall(), Outputs().project, {});
    EXPECT_EQ(simulation.run(1e9), Simulation::end_t::REACHED);
    EXPECT_DOUBLE_EQ(simulation.time(), 6 * HOUR);
    const RunSummary summary = simulation.summary();
    EXPECT_LT(summary.energy.relativeError(), 1e-2);
    EXPECT_LT(summary.moisture.relativeError(), 1e-2);
    EXPECT_GT(summary.energy.exchanged, 50 * 3.7 * HOUR);
    ASSERT_EQ(summary.layers.size(), 2U);
    EXPECT_EQ(summary.layers[1].material, "Wool");
    EXPECT_GT(summary.layers[0].maxTemperature, summary.layers[0].minTemperature + 5);
    EXPECT_FALSE(summary.limits.empty());
}

TEST(Simulation, WritesEveryKindOfMeanAsItFollowsFromTheOthers) {
    const std::string directory = scratch("types");
    Outputs outputs;
    const HYGRION::Range all = range(0, 4);
    outputs.add("flux", "TotalFluxHeat", Space::Mean, Time::None, Location::Left, all, "W/m2")
        .add("mean flux", "TotalFluxHeat", Space::Mean, Time::Mean, Location::Left, all, "W/m2")
        .add("heat", "TotalFluxHeat", Space::Integral, Time::Integral, Location::Left, all, "kJ")
        .add("right heat", "TotalFluxHeat", Space::Integral, Time::Integral, Location::Right, all, "J")
        .add("energy", "Energy", Space::Integral, Time::None, Location::Element, all)
        .add("T", "Temperature", Space::Single, Time::None, Location::Element, all, "C")
        .add("T min", "Temperature", Space::Min, Time::None, Location::Element, all, "C")
        .add("T max", "Temperature", Space::Max, Time::None, Location::Element, all, "C")
        .add("T mean", "Temperature", Space::Mean, Time::None, Location::Element, all, "C")
        .add("T low", "Temperature", Space::Max, Time::Min, Location::Element, all, "C")
        .add("T high", "Temperature", Space::Max, Time::Max, Location::Element, all, "C")
        .add("density", "MoistureMassDensity", Space::Integral, Time::None, Location::Element, all)
        .add("mass", "MoistureMass", Space::Integral, Time::None, Location::Element, all, "g")
        .add("inner flux", "FluxVapor", Space::Single, Time::None, Location::Right, range(1, 3))
        .add("layers", "LayerMoistureMass", Space::Single, Time::None, Location::Element, range(0, 2));
    outputs.project.m_assignments.m_list.emplace_back(HYGRION::Assignment::type_t::Output, Location::Element,
                                                      range(3, 4), "layers");
    Simulation simulation(wall(1e-8), outputs.project, directory);
    simulation.run(1e9);

    const std::vector<double> widths{0.01, 0.02, 0.03, 0.02, 0.02};
    const auto of = [&](const char * name) { return series(directory, name); };
    EXPECT_THAT(read(directory, "flux").timePoints(), ElementsAre(0, 1, 2, 3, 4, 5, 6));
    // The surface also evaporates and takes up vapour: what is imposed is there, and a little more.
    const std::vector<double> flux = of("flux"), mean = of("mean flux"), heat = of("heat");
    EXPECT_NEAR(flux[5], 50, 5);
    EXPECT_NEAR(mean[3], 0.7 * flux[3] + 0.3 * flux[2], 0.3); // the jump is at 2.3 h
    double sum = 0;
    for (std::size_t t = 1; t < heat.size(); ++t) {
        sum += mean[t] * HOUR / 1000;
        EXPECT_NEAR(heat[t], sum, 1e-9 * sum);
    }
    const std::vector<double> energy = of("energy"), right = of("right heat");
    EXPECT_NEAR(energy.back() - energy.front(), 1000 * heat.back() + right.back(), 1); // of 6e5 J

    const std::vector<double> high = of("T high"), low = of("T low"), highest = of("T max");
    DATAIO::DataIO field = read(directory, "T");
    for (std::size_t t = 0; t < 7; ++t) {
        const std::vector<double> T = field.data(t);
        double average = 0;
        for (std::size_t i = 0; i < 5; ++i)
            average += widths[i] * T[i] / 0.1;
        EXPECT_NEAR(of("T mean")[t], average, 1e-12 * 20);
        EXPECT_DOUBLE_EQ(of("T min")[t], *std::min_element(T.begin(), T.end()));
        EXPECT_DOUBLE_EQ(highest[t], *std::max_element(T.begin(), T.end()));
        EXPECT_NEAR(of("mass")[t], 1000 * of("density")[t], 1e-9);
        const std::vector<double> layers = read(directory, "layers").data(t);
        ASSERT_EQ(layers.size(), 2U);
        EXPECT_NEAR(layers[0] + layers[1], of("density")[t], 1e-12);
    }
    EXPECT_DOUBLE_EQ(high[6], highest[6]); // heated: the end of each hour is the warmest
    EXPECT_DOUBLE_EQ(low[6], highest[5]);
    EXPECT_EQ(read(directory, "heat").header().valueUnit, "kJ");
    EXPECT_EQ(read(directory, "T").header().startYear, 2026);
    DATAIO::GeoFile geometry;
    geometry.read(directory + "/geometry.h6g");
    EXPECT_EQ(read(directory, "T").header().geoFileHash, geometry.hash());
    EXPECT_EQ(read(directory, "T").determineDataFormat(&geometry), DATAIO::DataIO::PROFILE_X);
    const std::vector<std::uint32_t> sides = read(directory, "inner flux").header().indices;
    ASSERT_EQ(sides.size(), 1U);
    ASSERT_LT(sides[0], geometry.m_sides.size());
    EXPECT_NEAR(geometry.m_sides[sides[0]].x, 0.08, 1e-12); // between the layers
}

/// What neither holds water nor lets it through has no humidity: no noise is written, and the others are as without it.
TEST(Simulation, TightMaterialsHaveNoHumidity) {
    for (const bool isBinary : {true, false}) {
        const std::string directory = scratch("tight");
        Outputs outputs;
        outputs.project.m_outputs.m_flag.set(HYGRION::Outputs::flag_t::BinaryFormat, isBinary);
        const HYGRION::Range all = range(0, 4), tight = range(3, 4);
        outputs.add("field", "RelativeHumidity", Space::Single, Time::None, Location::Element, all)
            .add("means", "RelativeHumidity", Space::Single, Time::Mean, Location::Element, all)
            .add("pressure", "VaporPressure", Space::Single, Time::Max, Location::Element, all)
            .add("mean", "RelativeHumidity", Space::Mean, Time::None, Location::Element, all)
            .add("mean of concrete", "RelativeHumidity", Space::Mean, Time::None, Location::Element, range(0, 2))
            .add("lowest", "CapillaryPressure", Space::Min, Time::None, Location::Element, all)
            .add("of metal", "RelativeHumidity", Space::Mean, Time::None, Location::Element, tight)
            .add("highest of metal", "LiquidSaturation", Space::Max, Time::None, Location::Element, tight)
            .add("between", "RelativeHumidity", Space::Single, Time::None, Location::Left, tight)
            .add("within", "RelativeHumidity", Space::Single, Time::None, Location::Right, range(3, 3))
            .add("surface", "RelativeHumidity", Space::Single, Time::None, Location::Right, tight)
            .add("T", "Temperature", Space::Single, Time::None, Location::Element, all)
            .add("water", "MoistureMass", Space::Single, Time::None, Location::Element, tight);
        const MaterialFunctions metal{"metal", 3e6,     [](double) { return 0.0; },
                                      nullptr, nullptr, [](double) { return 200.0; }};
        Construction construction = wall(1e-5, metal);
        construction.endTime = 2 * HOUR;
        Simulation simulation(std::move(construction), outputs.project, directory);
        simulation.run(1e9);
        const auto last = [&](const std::string & name) {
            DATAIO::DataIO file;
            file.read(directory + '/' + name + (isBinary ? ".h6b" : ".h6o"));
            return file.data(2);
        };
        for (const char * name : {"field", "means", "pressure"}) {
            const std::vector<double> values = last(name);
            for (std::size_t c = 0; c < 5; ++c)
                EXPECT_EQ(std::isnan(values[c]), c >= 3) << name << ' ' << c;
        }
        EXPECT_DOUBLE_EQ(last("mean")[0], last("mean of concrete")[0]);
        EXPECT_GT(last("lowest")[0], 1e6);
        for (const char * name : {"of metal", "highest of metal", "within"})
            EXPECT_TRUE(std::isnan(last(name)[0])) << name;
        EXPECT_NEAR(last("between")[0], 60, 10) << "the concrete's";
        EXPECT_NEAR(last("surface")[0], 1000 / 23.4, 3) << "of the air before it";
        EXPECT_NEAR(last("T")[4], 20, 1);
        EXPECT_LT(last("water")[0], 1e-9);
        const RunSummary summary = simulation.summary();
        EXPECT_NEAR(summary.layers[0].minHumidity, 0.6, 0.1);
        EXPECT_TRUE(std::isnan(summary.layers[1].maxHumidity));
    }
}

TEST(Simulation, WritesOnGridsOfSeveralIntervals) {
    const std::string directory = scratch("grids");
    Outputs outputs({
        {0, 1, 0.25},
        {1, 3, 1   },
        {5, 9, 0.5 }
    });
    outputs.project.m_outputs.m_timeUnit = KOR::Unit("min");
    outputs.project.m_outputs.m_flag.set(HYGRION::Outputs::flag_t::BinaryFormat, false);
    outputs.project.m_outputs.m_intPara.set(HYGRION::Outputs::intpara_t::AsciiPrecision, 3);
    outputs.add("T/x: a", "Temperature", Space::Single, Time::None, Location::Element, range(0, 1));
    HYGRION::Assignment point;
    point.m_type = HYGRION::Assignment::type_t::Output;
    point.m_location = Location::Coordinate;
    point.m_coordinates.x = 0.09;
    point.m_reference = "T/x: a";
    outputs.project.m_assignments.m_list.push_back(point);
    Simulation simulation(wall(), outputs.project, directory);
    simulation.run(1e9);
    DATAIO::DataIO file;
    file.read(directory + "/T_x_ a.h6o");
    EXPECT_THAT(file.timePoints(), ElementsAre(0, 15, 30, 45, 60, 120, 180, 300, 330, 360));
    EXPECT_THAT(file.header().indices, ElementsAre(0, 1, 4));
    EXPECT_THAT(KOR::readFile(file.path(), 1 << 20), HasSubstr("\n0\t20\t20\t20\n"));
}

TEST(Simulation, RefusesOutputsThatMakeNoSense) {
    const HYGRION::Range all = range(0, 4);
    const auto refusal = [](const char * quantity, Space space, Time time, Location location, HYGRION::Range where,
                            const char * unit) {
        Outputs outputs;
        outputs.add("the output", quantity, space, time, location, where, unit);
        std::string found = message([&] { Simulation(wall(), outputs.project, {}); });
        EXPECT_THAT(found, HasSubstr("Error in output 'the output'."));
        return found;
    };
    EXPECT_THAT(refusal("Temperatur", Space::Mean, Time::None, Location::Element, all, "C"),
                HasSubstr("Did you mean 'Temperature'?"));
    EXPECT_THAT(refusal("TotalFluxHeat", Space::Mean, Time::None, Location::Element, all, "W/m2"),
                HasSubstr("belongs to sides"));
    EXPECT_THAT(refusal("MoistureMass", Space::Mean, Time::None, Location::Left, all, "kg"),
                HasSubstr("belongs to elements"));
    EXPECT_THAT(refusal("FluxRain", Space::Mean, Time::None, Location::Left, range(2, 3), "kg/m2s"),
                HasSubstr("belongs to surfaces"));
    EXPECT_THAT(refusal("Temperature", Space::Mean, Time::None, Location::Element, all, "kg"),
                HasSubstr("Unit 'kg' does not fit Temperature"));
    EXPECT_THAT(refusal("TotalFluxHeat", Space::Integral, Time::Integral, Location::Left, all, "W"),
                HasSubstr("given in 'J'"));
    EXPECT_THAT(refusal("Temperature", Space::Mean, Time::None, Location::Element, range(0, 5), "C"),
                HasSubstr("outside the grid"));
}

TEST(Simulation, GoesOnFromARestartFileAsIfNothingHadHappened) {
    Outputs outputs;
    const HYGRION::Range all = range(0, 4);
    outputs.add("T", "Temperature", Space::Single, Time::None, Location::Element, all, "K")
        .add("w", "MoistureMassDensity", Space::Single, Time::None, Location::Element, all)
        .add("heat", "TotalFluxHeat", Space::Integral, Time::Integral, Location::Left, all)
        .add("mean", "TotalFluxHeat", Space::Mean, Time::Mean, Location::Left, all)
        .add("high", "Temperature", Space::Max, Time::Max, Location::Element, all, "K");
    const std::string whole = scratch("whole");
    Simulation uninterrupted(wall(), outputs.project, whole);
    uninterrupted.run(1e9);

    const std::string cut = scratch("cut");
    for (const double at : {0.0, 0.4, 1.0, 2.29, 2.3, 3.7, 5.99}) {
        fs::remove_all(cut);
        const std::string path = cut + "-restart";
        {
            Simulation first(wall(), outputs.project, cut);
            first.run(at * HOUR);
            first.restartState().write(path);
            first.run(at * HOUR + 1.2 * HOUR); // what was written later is cut
        }
        const RestartFile restart = RestartFile::read(path);
        Simulation second(wall(), outputs.project, cut, &restart);
        EXPECT_DOUBLE_EQ(second.time(), at * HOUR);
        second.run(1e9);
        for (const char * name : {"T", "w", "heat", "mean", "high"}) {
            DATAIO::DataIO a = read(whole, name), b = read(cut, name);
            ASSERT_EQ(a.timePoints(), b.timePoints()) << name << " after " << at;
            for (std::size_t t = 0; t < a.timeCount(); ++t) {
                const std::vector<double> expected = a.data(t), found = b.data(t);
                for (std::size_t i = 0; i < expected.size(); ++i) // ten times the tolerance of 1e-5
                    EXPECT_NEAR(found[i], expected[i], 1e-4 * std::max(1.0, std::fabs(expected[i])))
                        << name << ' ' << t << " after " << at;
            }
        }
        EXPECT_LT(second.summary().energy.relativeError(), 1e-2);
        EXPECT_NEAR(second.summary().energy.cameIn, uninterrupted.summary().energy.cameIn, 640);
    }
    // Another material under the same name would make two constructions of one result.
    const RestartFile restart = RestartFile::read(cut + "-restart");
    Construction changed = wall();
    MaterialFunctions insulation = reference::insulation();
    insulation.thermalConductivity = [](double) { return 0.35; };
    changed.input.materials[1] = MaterialTable(insulation);
    EXPECT_THAT(message([&] { Simulation(std::move(changed), outputs.project, cut, &restart); }),
                HasSubstr("is no longer what it was"));
    std::string content = KOR::readFile(cut + "-restart", 1 << 20);
    content[content.size() / 2] = static_cast<char>(content[content.size() / 2] ^ 1);
    KOR::writeFile(cut + "-restart", content);
    EXPECT_THAT(message([&] { RestartFile::read(cut + "-restart"); }), HasSubstr("checksum"));
}

/// From a checkpoint the same steps are taken: jumps or not, to the last bit.
TEST(Simulation, GoesOnFromACheckpointToTheSameBits) {
    Outputs outputs;
    outputs.add("T", "Temperature", Space::Single, Time::None, Location::Element, range(0, 4), "K")
        .add("mean", "TotalFluxHeat", Space::Mean, Time::Mean, Location::Left, range(0, 4))
        .add("high", "Temperature", Space::Max, Time::Max, Location::Element, range(0, 4), "K");
    struct Choice {
        integrator_t integrator;
        double tolerance; ///< small enough for some thousand steps
    };
    for (const auto & [integrator, tolerance] : {
             Choice{integrator_t::automatic, 1e-6},
             Choice{integrator_t::adi,       1e-4}
    }) {
        const auto construction = [integrator = integrator, tolerance = tolerance] {
            Construction c = wall(tolerance);
            c.integrator.integrator = integrator;
            c.input.climate = [ofAll = c.input.climate](double time, ModelInput::Loads loads) {
                ofAll(time, loads);
                loads.surfaces[1].airTemperature = 293.15 + 5 * std::sin(time / 100); // many steps
            };
            return c;
        };
        const std::string whole = scratch("bits-whole");
        Simulation uninterrupted(construction(), outputs.project, whole);
        uninterrupted.run(1e9);
        const std::string cut = scratch("bits-cut");
        std::set<double> checkpoints;
        for (const double at : {0.1, 2.31, 3.3, 5.9}) {
            fs::remove_all(cut);
            const std::string path = cut + "-restart";
            {
                Simulation first(construction(), outputs.project, cut);
                while (first.time() < at * HOUR)
                    first.step();
                first.flush();
                first.checkpoint().write(path);
            }
            const RestartFile restart = RestartFile::read(path);
            checkpoints.insert(restart.time);
            Simulation second(construction(), outputs.project, cut, &restart);
            second.run(1e9);
            EXPECT_TRUE(std::ranges::equal(second.state(), uninterrupted.state())) << "after " << restart.time;
            EXPECT_EQ(second.summary().energy.cameIn, uninterrupted.summary().energy.cameIn);
            EXPECT_EQ(second.statistics().steps, uninterrupted.statistics().steps);
            for (const char * name : {"T", "mean", "high"}) {
                DATAIO::DataIO a = read(whole, name), b = read(cut, name);
                ASSERT_EQ(a.timePoints(), b.timePoints()) << name;
                for (std::size_t t = 0; t < a.timeCount(); ++t)
                    EXPECT_EQ(a.data(t), b.data(t)) << name << ' ' << t << " after " << restart.time;
            }
        }
        EXPECT_GT(checkpoints.size(), 1U) << static_cast<int>(integrator);
    }
}

TEST(Simulation, SaysWhereAndWhyAStepFails) {
    Construction construction = wall();
    construction.input.climate = [](double time, ModelInput::Loads loads) {
        loads.surfaces[0].heatFlux = time < HOUR ? 10 : std::numeric_limits<double>::quiet_NaN();
    };
    construction.nextJump = nullptr;
    Simulation simulation(std::move(construction), Outputs().project, {});
    const std::string found = message([&] { simulation.run(1e9); });
    EXPECT_THAT(found, HasSubstr("The simulation cannot go on at 1 h in cell 1 (Concrete, at x = 5 mm)."));
    EXPECT_THAT(found, HasSubstr("What may help: "));
}

TEST(RunDirectory, BelongsToOneRun) {
    const std::string path = scratch("lock");
    {
        const RunDirectory first(path);
        EXPECT_THAT(message([&] { RunDirectory second(path); }),
                    HasSubstr("is in use by another run (process " + std::to_string(::getpid()) + ")"));
    }
    EXPECT_NO_THROW(RunDirectory again(path));
    KOR::writeFile(path + "-file", "");
    EXPECT_THAT(message([&] { RunDirectory second(path + "-file"); }), HasSubstr("There is already a file"));
}
