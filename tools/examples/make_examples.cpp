#include "ExampleBuilder.h"

#include <KOR/Exception.h>

#include <iostream>

/// Writes the example projects: hyg_examples DIRECTORY. Their manual is examples/README.md.

using namespace HYGRION;
using Type = Assignment::type_t;
using Side = ExampleBuilder::Location;
using Climate = ExampleBuilder::Climate;
using Law = BoundaryCond::condition_t;
using Kind = BoundaryCond::kind_t;
using Coefficient = BoundaryCond::para_t;
using Space = OutputFile::space_type_t;

namespace {

constexpr const char * POTSDAM = "Potsdam_Germany.c6b";
constexpr double WEST = 270;
constexpr double VERTICAL = 90;
constexpr double HORIZONTAL = 0;
//  Surface coefficients of thermal bridges, ISO 6946 and ISO 13788: heat [W/m2K], vapour [s/m].
constexpr double HEAT_OUTSIDE = 1 / 0.04;
constexpr double HEAT_INSIDE_MOULD = 1 / 0.25;
constexpr double VAPOR_OUTSIDE = 7.5e-8;
constexpr double VAPOR_INSIDE = 2.5e-8;

using Part = ExampleBuilder::Part;

Part undivided(double width) {
    return {width, Disc::MODE_NONE};
}

/// A strip of a two-dimensional detail, with coarser cells than a wall.
Part detail(double width, Disc::mode_t mode, double minStep, double maxStep) {
    return {width, mode, minStep, maxStep, 1.5};
}

/// Outside on the left, inside on the right, as in all walls and roofs here.
void standardSurfaces(ExampleBuilder & b, double inclination, double absorption, bool hasRain) {
    b.outdoor("Outside", WEST, inclination, absorption, hasRain);
    b.indoor();
    b.assign(Type::Interface, "Outside", Side::Left, b.allCells());
    b.assign(Type::Interface, "Inside", Side::Right, b.allCells());
    b.standardOutputs(b.allCells(), Side::Right);
}

ExampleBuilder brickWall() {
    ExampleBuilder b("Plain brick wall",
                     "Solid brick wall, rendered and plastered, without insulation. West side, driving "
                     "rain. All boundary conditions are spelled out.");
    b.location("Potsdam", POTSDAM);
    b.duration(365, "d");
    b.columns({Part{15}, Part{365}, Part{15}});
    b.material("render_water_repellent_106", b.cells(0, 0));
    b.material("clay_brick_solid_108", b.cells(1, 1));
    b.material("gypsum_plaster_234", b.cells(2, 2));
    b.initial(15, 80);

    b.fromLocation("Outdoor temperature", Climate::Temperature);
    b.fromLocation("Outdoor humidity", Climate::RelativeHumidity);
    b.fromLocation("Rain", Climate::RainFluxHorizontal);
    b.fromLocation("Wind direction", Climate::WindDirection);
    b.fromLocation("Wind velocity", Climate::WindVelocity);
    b.fromLocation("Direct sun", Climate::SWRadiationDirect);
    b.fromLocation("Diffuse sun", Climate::SWRadiationDiffuse);
    b.fromLocation("Counter radiation", Climate::LWRadiationSkyEmission);
    struct Wave {
        const char * name;
        Climate quantity;
        double mean, amplitude;
        const char * unit;
        const char * amplitudeUnit;
    };
    for (const Wave & wave : {
             Wave{"Indoor temperature", Climate::Temperature,      21, 1,  "C", "K"},
             Wave{"Indoor humidity",    Climate::RelativeHumidity, 50, 10, "%", "%"}
    }) {
        ClimateCond & indoor = b.constant(wave.name, wave.quantity, 0);
        indoor.m_kind = ClimateCond::kind_t::Sinus;
        indoor.m_para.clear();
        indoor.m_para.set(ClimateCond::para_t::MeanValue, wave.mean, wave.unit);
        indoor.m_para.set(ClimateCond::para_t::Amplitude1, wave.amplitude, wave.amplitudeUnit);
        indoor.m_para.set(ClimateCond::para_t::OscPeriod1, 365, "d");
        indoor.m_para.set(ClimateCond::para_t::PhaseShift1, 105, "d"); // warmest and dampest in mid-July
    }
    b.boundary("Outdoor heat exchange", Law::HeatConduction, Kind::ExchangeVelocity,
               {"Outdoor temperature", "Wind velocity"});
    {
        auto & heat = b.project().m_conditions.m_boundaryConditions.back().m_para;
        heat.set(Coefficient::ExchangeCoefficient, 4, "W/m2K"); // ISO 6946: 4 + 4 v
        heat.set(Coefficient::ExchangeSlope, 4, "J/m3K");
        heat.set(Coefficient::ExchangeExponent, 1, "---");
    }
    b.boundary("Outdoor vapour exchange", Law::VaporDiffusion, Kind::Exchange,
               {"Outdoor temperature", "Outdoor humidity"})
        .m_para.set(Coefficient::ExchangeCoefficient, VAPOR_OUTSIDE, "s/m");
    b.boundary("Driving rain", Law::WindDrivenRain, Kind::StandardRainModel,
               {"Rain", "Wind direction", "Wind velocity", "Outdoor temperature"})
        .m_para.set(Coefficient::ExposureCoefficient, 0.7, "---");
    b.boundary("Sun", Law::ShortWaveRadiation, Kind::StandardRadiationModel, {"Direct sun", "Diffuse sun"})
        .m_para.set(Coefficient::SurfaceAbsorptionCoefficient, 0.6, "---");
    b.boundary("Sky", Law::LongWaveRadiation, Kind::LongWaveComponents, {"Counter radiation"})
        .m_para.set(Coefficient::SurfaceEmissionCoefficient, 0.9, "---");
    b.boundary("Indoor heat exchange", Law::HeatConduction, Kind::Exchange, {"Indoor temperature"})
        .m_para.set(Coefficient::ExchangeCoefficient, 7.69, "W/m2K");
    b.boundary("Indoor vapour exchange", Law::VaporDiffusion, Kind::Exchange, {"Indoor temperature", "Indoor humidity"})
        .m_para.set(Coefficient::ExchangeCoefficient, VAPOR_INSIDE, "s/m");

    Interface & outside =
        b.detailed("Outside", {"Outdoor heat exchange", "Outdoor vapour exchange", "Driving rain", "Sun", "Sky"});
    outside.m_para.set(Interface::para_t::Orientation, WEST, "Deg");
    outside.m_para.set(Interface::para_t::Inclination, VERTICAL, "Deg");
    b.detailed("Inside", {"Indoor heat exchange", "Indoor vapour exchange"});
    b.assign(Type::Interface, "Outside", Side::Left, b.allCells());
    b.assign(Type::Interface, "Inside", Side::Right, b.allCells());
    b.standardOutputs(b.allCells(), Side::Right);
    b.assessment("Frost in the masonry", Assessment::AssessmentType::IceCriteriaDIN4108,
                 Assessment::AssignmentType::Layer1D, 1);
    return b;
}

ExampleBuilder interiorInsulation() {
    ExampleBuilder b("Interior insulation",
                     "Brick wall with 80 mm of wood-fibre insulation on the inside, diffusion-open "
                     "and capillary active. Does the cold joint between brick and insulation dry?");
    b.location("Potsdam", POTSDAM);
    b.duration(3, "a");
    b.columns({Part{15}, Part{365}, Part{10}, Part{80}, Part{12.5}});
    b.material("render_water_repellent_106", b.cells(0, 0));
    b.material("clay_brick_solid_108", b.cells(1, 1));
    b.material("gypsum_plaster_234", b.cells(2, 2));
    b.material("wood_fibre_insulation_127", b.cells(3, 3));
    b.material("gypsum_plasterboard_103", b.cells(4, 4));
    b.initial(15, 80);
    standardSurfaces(b, VERTICAL, 0.6, true);
    b.output("Humidity at the cold side", "RelativeHumidity", "%", Space::Mean, "Hourly", Side::Left, b.cells(3, 3));
    b.output("Moisture mass of insulation", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element,
             b.cells(3, 3));
    b.assessment("Mould at the inner surface", Assessment::AssessmentType::MoldGrowth,
                 Assessment::AssignmentType::InnerSurface);
    b.assessment("Moisture accumulation", Assessment::AssessmentType::MoistureAccumulation,
                 Assessment::AssignmentType::TotalConstruction);
    return b;
}

ExampleBuilder timberFrameWall() {
    ExampleBuilder b("Timber-frame wall",
                     "Timber-frame wall between the studs: sheathing behind a ventilated cladding, "
                     "cellulose, plywood as air barrier, board. Cladding keeps off rain.");
    b.location("Potsdam", POTSDAM);
    b.duration(2, "a");
    b.columns({Part{60}, Part{200}, Part{15}, Part{12.5}});
    b.material("wood_fibre_insulation_127", b.cells(0, 0));
    b.material("cellulose_insulation_115", b.cells(1, 1));
    b.material("plywood_vapour_114", b.cells(2, 2));
    b.material("gypsum_plasterboard_103", b.cells(3, 3));
    b.initial(15, 80);
    b.foil("Vapour retarder", 2);
    b.assign(Type::ContactCondition, "Vapour retarder", Side::Left, b.cells(2, 2), "between cellulose and plywood");
    standardSurfaces(b, VERTICAL, 0.2, false);
    b.output("Humidity outside of the cellulose", "RelativeHumidity", "%", Space::Mean, "Hourly", Side::Left,
             b.cells(1, 1));
    b.assessment("Moisture of the plywood", Assessment::AssessmentType::WoodDegradation68800,
                 Assessment::AssignmentType::Layer1D, 2);
    return b;
}

ExampleBuilder flatRoof() {
    ExampleBuilder b("Flat roof",
                     "Unventilated timber flat roof with a dark sheet and a vapour retarder that opens with "
                     "humidity: it must dry to the inside in summer.");
    b.location("Potsdam", POTSDAM);
    b.duration(3, "a");
    b.columns({undivided(1.5), Part{24}, Part{240}, {12.5}});
    b.material("pvc_sheet_111", b.cells(0, 0));
    b.material("spruce_113", b.cells(1, 1));
    b.material("cellulose_insulation_115", b.cells(2, 2));
    b.material("gypsum_plasterboard_103", b.cells(3, 3));
    b.initial(15, 80);
    b.foil("Adaptive vapour retarder", 0,
           {
               {0,   20 },
               {40,  15 },
               {60,  5  },
               {80,  0.8},
               {100, 0.2}
    });
    b.assign(Type::ContactCondition, "Adaptive vapour retarder", Side::Right, b.cells(2, 2),
             "between cellulose and plasterboard");
    standardSurfaces(b, HORIZONTAL, 0.8, false);
    b.output("Moisture mass of sheathing", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element,
             b.cells(1, 1));
    b.assessment("Rot of the sheathing", Assessment::AssessmentType::WoodDegradationWTA6_8,
                 Assessment::AssignmentType::Layer1D, 1);
    b.assessment("Moisture accumulation", Assessment::AssessmentType::MoistureAccumulation,
                 Assessment::AssignmentType::TotalConstruction);
    return b;
}

ExampleBuilder dryingOfConstructionMoisture() {
    ExampleBuilder b("Drying of construction moisture",
                     "New sand-lime masonry, still wet, with external insulation: how "
                     "long does it take to dry to the inside?");
    b.location("Potsdam", POTSDAM);
    b.duration(3, "a");
    b.columns({Part{10}, Part{160}, Part{240}, Part{10}});
    b.material("render_water_repellent_106", b.cells(0, 0));
    b.material("eps_generic_110", b.cells(1, 1));
    b.material("sand_lime_brick_107", b.cells(2, 2));
    b.material("gypsum_plaster_234", b.cells(3, 3));
    b.initial(15, 80);
    b.initialContent("Construction moisture", 0.15, b.cells(2, 2));
    standardSurfaces(b, VERTICAL, 0.4, true);
    b.output("Moisture mass of masonry", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element, b.cells(2, 2));
    b.assessment("Mould at the inner surface", Assessment::AssessmentType::MoldGrowth,
                 Assessment::AssignmentType::InnerSurface);
    return b;
}

ExampleBuilder floorSlabEdge() {
    ExampleBuilder b("Floor slab edge",
                     "Slab on the ground at the foot of an insulated wall, a vertical section. Heat flow "
                     "over a year, down to 2 m of soil.");
    b.project().m_init.m_balanceEquationModule = "HeatTransport";
    b.location("Potsdam", POTSDAM);
    b.duration(1, "a");
    // Outside to inside: ground or open air, insulation, masonry, room.
    b.columns({detail(1500, Disc::MODE_END, 10, 250), detail(120, Disc::MODE_BOTH, 10, 250),
               detail(240, Disc::MODE_BOTH, 10, 250), detail(2000, Disc::MODE_START, 10, 250)});
    // Bottom to top: soil, insulation under the slab, slab, insulation and screed, wall.
    b.rows({detail(2000, Disc::MODE_END, 10, 250), detail(120, Disc::MODE_BOTH, 10, 250),
            detail(200, Disc::MODE_BOTH, 10, 250), detail(60, Disc::MODE_BOTH, 10, 250),
            detail(60, Disc::MODE_BOTH, 10, 250), detail(1000, Disc::MODE_START, 10, 250)});
    b.material("sand_gravel_210", b.cells(0, 3, 0, 0));
    b.material("sand_gravel_210", b.cells(0, 0, 1, 2));
    b.material("eps_generic_110", b.cells(1, 1, 1, 5));
    b.material("eps_generic_110", b.cells(2, 3, 1, 1));
    b.material("eps_generic_110", b.cells(3, 3, 3, 3));
    b.material("reinforced_concrete_224", b.cells(2, 3, 2, 2));
    b.material("cement_screed_102", b.cells(3, 3, 4, 4));
    b.material("sand_lime_brick_107", b.cells(2, 2, 3, 5));
    b.initial(10, 80);
    b.outdoor("Outside", 0, VERTICAL, 0.4, false);
    b.outdoor("Ground surface", 0, HORIZONTAL, 0.7, false);
    b.steady("Room", 20, 50, 7.69, 0);
    b.constant("Deep ground temperature", Climate::Temperature, 9.5);
    b.boundary("Deep ground", Law::HeatConduction, Kind::SurfaceValue, {"Deep ground temperature"});
    b.detailed("Below 2 m", {"Deep ground"});
    b.assign(Type::Interface, "Ground surface", Side::Top, b.cells(0, 0, 2, 2));
    b.assign(Type::Interface, "Outside", Side::Left, b.cells(1, 1, 3, 5));
    b.assign(Type::Interface, "Room", Side::Right, b.cells(2, 2, 5, 5), "wall");
    b.assign(Type::Interface, "Room", Side::Top, b.cells(3, 3, 4, 4), "floor");
    b.assign(Type::Interface, "Below 2 m", Side::Bottom, b.cells(0, 3, 0, 0));
    b.outputGrid("Hourly", 1, "h");
    b.outputGrid("Daily", 1, "d");
    b.output("Temperature field", "Temperature", "C", Space::Single, "Daily", Side::Element, b.allCells());
    b.output("Floor surface temperature", "Temperature", "C", Space::Min, "Hourly", Side::Top, b.cells(3, 3, 4, 4));
    b.output("Wall surface temperature", "Temperature", "C", Space::Min, "Hourly", Side::Right, b.cells(2, 2, 5, 5));
    b.output("Heat loss of the floor", "TotalFluxHeat", "W", Space::Integral, "Hourly", Side::Top, b.cells(3, 3, 4, 4),
             OutputFile::time_type_t::Mean);
    return b;
}

ExampleBuilder windowReveal() {
    ExampleBuilder b("Window reveal",
                     "Timber window in an uninsulated brick wall, a horizontal section, in steady winter "
                     "climate. Is the reveal warm enough against mould?");
    b.duration(60, "d");
    // Outside to inside: render, masonry, the depth of the frame with the glazing in its middle, masonry, plaster.
    b.columns({detail(20, Disc::MODE_BOTH, 5, 40), detail(120, Disc::MODE_BOTH, 5, 40),
               detail(26, Disc::MODE_BOTH, 5, 40), undivided(4), detail(20, Disc::MODE_BOTH, 5, 40), undivided(4),
               detail(26, Disc::MODE_BOTH, 5, 40), detail(165, Disc::MODE_BOTH, 5, 40),
               detail(15, Disc::MODE_BOTH, 5, 40)});
    // Along the wall: glazing, frame, joint, masonry.
    b.rows({detail(300, Disc::MODE_END, 5, 100), detail(80, Disc::MODE_BOTH, 5, 40), undivided(10),
            detail(800, Disc::MODE_START, 5, 100)});
    b.material("render_water_repellent_106", b.cells(0, 0, 3, 3));
    b.material("clay_brick_solid_108", b.cells(1, 7, 3, 3));
    b.material("gypsum_plaster_234", b.cells(8, 8, 3, 3));
    b.material("pur_board_251", b.cells(2, 6, 2, 2));
    b.material("timber_softwood_radial_105", b.cells(2, 6, 1, 1));
    b.material("glass_247", b.cells(3, 3, 0, 0));
    b.material("air_layer_vertical_20mm_302", b.cells(4, 4, 0, 0));
    b.material("glass_247", b.cells(5, 5, 0, 0));
    b.initial(10, 70);
    b.steady("Outside", -5, 80, HEAT_OUTSIDE, VAPOR_OUTSIDE);
    b.steady("Inside", 20, 50, HEAT_INSIDE_MOULD, VAPOR_INSIDE);
    struct Surface {
        const char * interface;
        Side side;
        Range range;
        const char * label;
    };
    for (const Surface & surface : {
             Surface{"Outside", Side::Left,   b.cells(0, 0, 3, 3), "wall, outside"  },
             Surface{"Outside", Side::Bottom, b.cells(0, 1, 3, 3), "reveal, outside"},
             Surface{"Outside", Side::Left,   b.cells(2, 2, 1, 2), "frame, outside" },
             Surface{"Outside", Side::Bottom, b.cells(2, 2, 1, 1), "rebate, outside"},
             Surface{"Outside", Side::Left,   b.cells(3, 3, 0, 0), "glass, outside" },
             Surface{"Inside",  Side::Right,  b.cells(8, 8, 3, 3), "wall, inside"   },
             Surface{"Inside",  Side::Bottom, b.cells(7, 8, 3, 3), "reveal, inside" },
             Surface{"Inside",  Side::Right,  b.cells(6, 6, 1, 2), "frame, inside"  },
             Surface{"Inside",  Side::Bottom, b.cells(6, 6, 1, 1), "rebate, inside" },
             Surface{"Inside",  Side::Right,  b.cells(5, 5, 0, 0), "glass, inside"  }
    })
        b.assign(Type::Interface, surface.interface, surface.side, surface.range, surface.label);
    b.outputGrid("Hourly", 1, "h");
    b.outputGrid("Daily", 1, "d");
    b.output("Temperature field", "Temperature", "C", Space::Single, "Daily", Side::Element, b.allCells());
    b.output("Humidity field", "RelativeHumidity", "%", Space::Single, "Daily", Side::Element, b.allCells());
    b.output("Moisture mass", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element, b.allCells());
    b.output("Coldest spot of the reveal", "Temperature", "C", Space::Min, "Hourly", Side::Bottom, b.cells(7, 8, 3, 3));
    b.output("Dampest spot of the reveal", "RelativeHumidity", "%", Space::Max, "Hourly", Side::Bottom,
             b.cells(7, 8, 3, 3));
    b.output("Inner heat flux", "TotalFluxHeat", "W", Space::Integral, "Hourly", Side::Right, b.cells(8, 8, 3, 3),
             OutputFile::time_type_t::Mean);
    return b;
}

// *** Validation ***

ExampleBuilder isothermalDrying() {
    ExampleBuilder b("HAMSTAD benchmark 2",
                     "Isothermal drying of a homogeneous layer from 95 % to 45 % and 65 % relative "
                     "humidity; an exact solution exists. Compared at 100, 300 and 1000 h.");
    b.project().m_init.m_balanceEquationModule = "MoistureTransport";
    b.project().m_init.m_para.set(Init::para_t::IsothermalTRef, 20, "C");
    b.duration(1000, "h");
    b.columns({
        Part{200, Disc::MODE_BOTH, 0.2, 2, 1.05}
    });
    b.material("benchmark_bm2_402", b.allCells());
    b.initial(20, 95);
    b.constant("Temperature", Climate::Temperature, 20);
    struct Air {
        const char * name;
        const char * diffusion;
        const char * humidityName;
        double humidity;
        Side side;
    };
    for (const Air & air : {
             Air{"Outside", "Diffusion outside", "Humidity outside", 45, Side::Left },
             Air{"Inside",  "Diffusion inside",  "Humidity inside",  65, Side::Right}
    }) {
        b.constant(air.humidityName, Climate::RelativeHumidity, air.humidity);
        b.boundary(air.diffusion, Law::VaporDiffusion, Kind::Exchange, {"Temperature", air.humidityName})
            .m_para.set(Coefficient::ExchangeCoefficient, 1e-3, "s/m"); // so large that the surface follows the air
        b.detailed(air.name, {air.diffusion});
        b.assign(Type::Interface, air.name, air.side, b.allCells());
    }
    b.outputGrid("Every 100 h", 100, "h");
    b.output("Moisture content", "MoistureMassDensity", "kg/m3", Space::Single, "Every 100 h", Side::Element,
             b.allCells());
    b.output("Moisture mass", "MoistureMass", "kg", Space::Integral, "Every 100 h", Side::Element, b.allCells());
    return b;
}

ExampleBuilder semiInfiniteUptake() {
    ExampleBuilder b("EN 15026 moisture uptake",
                     "Semi-infinite region at 20 C and 50 % that meets 30 C and 95 % at its "
                     "surface. Compared with the bands of the standard at 7, 30 and 365 d.");
    b.project().m_init.m_para.set(Init::para_t::IsothermalTRef, 20, "C"); // as in the published profile
    b.duration(365, "d");
    b.columns({
        Part{20000, Disc::MODE_START, 0.5, 0, 1.03}
    });
    b.material("benchmark_bm1_load_bearing_118", b.allCells());
    b.initial(20, 50);
    b.constant("Surface temperature", Climate::Temperature, 30);
    b.constant("Surface humidity", Climate::RelativeHumidity, 95);
    b.boundary("Given temperature", Law::HeatConduction, Kind::SurfaceValue, {"Surface temperature"});
    b.boundary("Given humidity", Law::VaporDiffusion, Kind::SurfaceValue, {"Surface temperature", "Surface humidity"});
    b.detailed("Surface", {"Given temperature", "Given humidity"});
    b.assign(Type::Interface, "Surface", Side::Left, b.allCells());
    OutputGrid & grid = b.project().m_outputs.m_outputGrids.emplace_back();
    grid.m_name = "Days of the standard";
    for (const auto & [start, step] : {std::pair(7, 23), std::pair(30, 335)}) {
        Interval & interval = grid.m_intervals.emplace_back();
        interval.m_para.set(Interval::para_t::Start, start, "d");
        interval.m_para.set(Interval::para_t::End, start + step, "d");
        interval.m_para.set(Interval::para_t::StepSize, step * 24, "h");
    }
    b.output("Moisture content", "MoistureMassDensity", "kg/m3", Space::Single, grid.m_name.c_str(), Side::Element,
             b.allCells());
    b.output("Temperature", "Temperature", "C", Space::Single, "Days of the standard", Side::Element, b.allCells());
    return b;
}

ExampleBuilder heatConductionInColumn() {
    ExampleBuilder b("ISO 10211 case 1",
                     "Half of a square column: 20 C on top, 0 C at the side and the bottom, symmetry on "
                     "the right. Steady temperatures, compared at 28 points.");
    b.project().m_init.m_balanceEquationModule = "HeatTransport";
    b.duration(100, "d");
    b.columns({
        Part{1000, Disc::MODE_BOTH, 25, 25, 1.0001}
    });
    b.rows({
        Part{2000, Disc::MODE_BOTH, 25, 25, 1.0001}
    });
    b.material("benchmark_iso10211_column_421", b.allCells());
    b.initial(10, 50);
    struct Wall {
        const char * name;
        const char * boundary;
        const char * climate;
        double temperature;
    };
    for (const Wall & wall : {
             Wall{"Warm", "Warm surface", "Warm temperature", 20},
             Wall{"Cold", "Cold surface", "Cold temperature", 0 }
    }) {
        b.constant(wall.climate, Climate::Temperature, wall.temperature);
        b.boundary(wall.boundary, Law::HeatConduction, Kind::SurfaceValue, {wall.climate});
        b.detailed(wall.name, {wall.boundary});
    }
    b.assign(Type::Interface, "Warm", Side::Top, b.allCells());
    b.assign(Type::Interface, "Cold", Side::Left, b.allCells());
    b.assign(Type::Interface, "Cold", Side::Bottom, b.allCells());
    b.outputGrid("Every 10 d", 10, "d");
    b.output("Temperature field", "Temperature", "C", Space::Single, "Every 10 d", Side::Element, b.allCells());
    return b;
}

ExampleBuilder insulatedRoof() {
    ExampleBuilder b("HAMSTAD benchmark 1",
                     "Insulated roof, sealed outside: condensation within and drying over five years. Contents of "
                     "both layers are compared with the band of the participants at listed hours.");
    b.project().m_init.m_para.set(Init::para_t::IsothermalTRef, 20, "C");
    b.project().m_init.m_solverSettings.m_para.set(SolverSettings::para_t::RelTol, 1e-4, "---");
    b.duration(5 * 365, "d");
    // Fine at the surfaces and on both sides of the joint.
    b.columns({
        Part{100, Disc::MODE_BOTH, 0.2, 0, 1.3 },
        Part{50,  Disc::MODE_BOTH, 0.2, 0, 1.36}
    });
    b.material("benchmark_bm1_load_bearing_118", b.cells(0, 0));
    b.material("benchmark_bm1_insulation_119", b.cells(1, 1));
    b.initial(10, 50);
    b.initialContent("Wet load-bearing layer", 0.145, b.cells(0, 0));
    b.initialContent("Dry insulation", 6.5e-5, b.cells(1, 1));
    b.fromFile("Outside temperature", Climate::Temperature, "HAMSTAD 1 outside temperature.ccd");
    b.fromFile("Inside vapour pressure", Climate::VaporPressure, "HAMSTAD 1 inside vapour pressure.ccd");
    b.constant("Inside temperature", Climate::Temperature, 20);
    b.boundary("Heat outside", Law::HeatConduction, Kind::Exchange, {"Outside temperature"})
        .m_para.set(Coefficient::ExchangeCoefficient, 25, "W/m2K");
    b.boundary("Heat inside", Law::HeatConduction, Kind::Exchange, {"Inside temperature"})
        .m_para.set(Coefficient::ExchangeCoefficient, 7, "W/m2K");
    BoundaryCond & vapor = b.boundary("Vapour inside", Law::VaporDiffusion, Kind::Exchange,
                                      {"Inside temperature", "Inside vapour pressure"});
    vapor.m_para.set(Coefficient::ExchangeCoefficient, 2e-8, "s/m");
    vapor.m_flag.set(BoundaryCond::flag_t::UseVaporPressure, true);
    b.detailed("Outside, sealed", {"Heat outside"});
    b.detailed("Inside", {"Heat inside", "Vapour inside"});
    b.assign(Type::Interface, "Outside, sealed", Side::Left, b.allCells());
    b.assign(Type::Interface, "Inside", Side::Right, b.allCells());
    b.outputGrid("Hourly", 1, "h");
    b.output("Water in load-bearing layer", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element,
             b.cells(0, 0));
    b.output("Water in insulation", "MoistureMass", "kg", Space::Integral, "Hourly", Side::Element, b.cells(1, 1));
    return b;
}

ExampleBuilder ironBarThroughInsulation() {
    ExampleBuilder b("ISO 10211 case 4",
                     "An iron bar through an insulation layer, flush outside, in three dimensions; a quarter of it, "
                     "cut at both planes of symmetry. Heat flow and highest temperature of the outer surface.");
    b.project().m_init.m_balanceEquationModule = "HeatTransport";
    b.project().m_init.m_solverSettings.m_lesSolver = SolverSettings::lesSolver_t::KLU; // steady: long steps
    b.duration(10, "d");
    b.columns({detail(50, Disc::MODE_BOTH, 5, 0), detail(450, Disc::MODE_START, 5, 0)});
    b.rows({detail(25, Disc::MODE_BOTH, 5, 0), detail(475, Disc::MODE_START, 5, 0)});
    b.planes({detail(200, Disc::MODE_BOTH, 4, 0), detail(400, Disc::MODE_START, 4, 0)});
    b.material("benchmark_iso10211_insulation_422", b.cells(0, 1, 0, 1, 0, 0));
    b.material("benchmark_iso10211_iron_423", b.cells(0, 0, 0, 0, 0, 1));
    b.initial(0.5, 50);
    b.steady("outside", 0, 0, 10, 0);
    b.steady("inside", 1, 0, 10, 0);
    b.assign(Type::Interface, "outside", Side::Back, b.cells(0, 1, 0, 1, 0, 0));
    b.assign(Type::Interface, "inside", Side::Front, b.cells(1, 1, 0, 1, 0, 0), "insulation beside the bar");
    b.assign(Type::Interface, "inside", Side::Front, b.cells(0, 0, 1, 1, 0, 0), "insulation above the bar");
    b.assign(Type::Interface, "inside", Side::Right, b.cells(0, 0, 0, 0, 1, 1), "side of the bar");
    b.assign(Type::Interface, "inside", Side::Top, b.cells(0, 0, 0, 0, 1, 1), "top of the bar");
    b.assign(Type::Interface, "inside", Side::Front, b.cells(0, 0, 0, 0, 1, 1), "end of the bar");
    b.outputGrid("Every 10 d", 10, "d");
    b.output("Heat flow outside", "TotalFluxHeat", "W", Space::Integral, "Every 10 d", Side::Back,
             b.cells(0, 1, 0, 1, 0, 0));
    b.output("Highest temperature outside", "Temperature", "C", Space::Max, "Every 10 d", Side::Back,
             b.cells(0, 1, 0, 1, 0, 0));
    b.output("Temperature field", "Temperature", "C", Space::Single, "Every 10 d", Side::Element, b.allCells());
    return b;
}

ExampleBuilder steadyWallOfFourLayers() {
    ExampleBuilder b("Wall of the diffusion benchmark",
                     "Render, mineral wool, masonry and plaster between -5 C and 20 C: temperatures between the layers "
                     "and the heat flux have a closed form.");
    b.project().m_init.m_balanceEquationModule = "HeatTransport";
    b.project().m_init.m_solverSettings.m_para.set(SolverSettings::para_t::RelTol, 1e-8, "---");
    b.duration(200, "d");
    b.columns({undivided(20), Part{80}, Part{175}, undivided(15)});
    b.material("benchmark_glaser_render_414", b.cells(0, 0));
    b.material("benchmark_glaser_wool_413", b.cells(1, 1));
    b.material("benchmark_glaser_masonry_412", b.cells(2, 2));
    b.material("benchmark_glaser_plaster_411", b.cells(3, 3));
    b.initial(10, 50);
    b.steady("outside", -5, 0, 1 / 0.04, 0);
    b.steady("inside", 20, 0, 1 / 0.13, 0);
    b.assign(Type::Interface, "outside", Side::Left, b.allCells());
    b.assign(Type::Interface, "inside", Side::Right, b.allCells());
    b.outputGrid("Every 20 d", 20, "d");
    b.output("Temperature field", "Temperature", "C", Space::Single, "Every 20 d", Side::Element, b.allCells());
    b.output("Heat flux", "TotalFluxHeat", "W/m2", Space::Mean, "Every 20 d", Side::Right, b.allCells());
    b.output("Outer surface", "Temperature", "C", Space::Mean, "Every 20 d", Side::Left, b.allCells());
    b.output("Inner surface", "Temperature", "C", Space::Mean, "Every 20 d", Side::Right, b.allCells());
    return b;
}

struct Example {
    const char * file;
    ExampleBuilder (*make)();
};
constexpr Example EXAMPLES[] = {
    {"Brick wall.h6p",                      brickWall                   },
    {"Interior insulation.h6p",             interiorInsulation          },
    {"Timber-frame wall.h6p",               timberFrameWall             },
    {"Flat roof.h6p",                       flatRoof                    },
    {"Floor slab edge.h6p",                 floorSlabEdge               },
    {"Window reveal.h6p",                   windowReveal                },
    {"Drying of construction moisture.h6p", dryingOfConstructionMoisture},
    {"validation/HAMSTAD 2.h6p",            isothermalDrying            },
    {"validation/EN 15026.h6p",             semiInfiniteUptake          },
    {"validation/HAMSTAD 1.h6p",            insulatedRoof               },
    {"validation/ISO 10211 case 1.h6p",     heatConductionInColumn      },
    {"validation/ISO 10211 case 4.h6p",     ironBarThroughInsulation    },
    {"validation/Steady wall.h6p",          steadyWallOfFourLayers      },
};

} // namespace

int main(int argc, char ** argv) {
    if (argc != 2) {
        std::cerr << "hyg_examples DIRECTORY\n";
        return 2;
    }
    try {
        bool isSound = true;
        for (const Example & example : EXAMPLES)
            isSound = example.make().write(std::string(argv[1]) + '/' + example.file) && isSound;
        return isSound ? 0 : 1;
    } catch (const KOR::Exception & ex) {
        ex.report();
        std::cerr << ex.what() << '\n';
        return 1;
    }
}
