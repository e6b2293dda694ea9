#pragma once

#include <SOLVER/Construction.h>

#include <HYGRION/Project.h>

#include <string>

/// Projects for tests: a wall of brick in still, constant climates, to which each test adds what it is about.
namespace texts {

/// A climate condition that never changes; it is named like its quantity.
inline std::string constant(const std::string & quantity, const std::string & value, const std::string & unit,
                            const std::string & name = {}) {
    return "<ClimateCondition name='" + (name.empty() ? quantity : name) + "' type='" + quantity +
           "' kind='Constant'><KOR:Parameter name='ConstantValue' unit='" + unit + "'>" + value +
           "</KOR:Parameter></ClimateCondition>";
}
inline std::string reference(const std::string & quantity, const std::string & name = {}) {
    return "<CCReference type='" + quantity + "'>" + (name.empty() ? quantity : name) + "</CCReference>";
}
inline std::string parameter(const std::string & name, const std::string & value, const std::string & unit) {
    return "<KOR:Parameter name='" + name + "' unit='" + unit + "'>" + value + "</KOR:Parameter>";
}
inline std::string flag(const std::string & name, bool state = true) {
    return "<KOR:Flag name='" + name + "'>" + (state ? "true" : "false") + "</KOR:Flag>";
}
inline std::string assignment(const std::string & type, const std::string & location, const std::string & name,
                              const std::string & range) {
    return "<Assignment type='" + type + "' location='" + location + "'><Reference>" + name + "</Reference><Range>" +
           range + "</Range></Assignment>";
}

/// What differs from project to project.
struct Parts {
    std::string module = "HeatMoistureTransport";
    std::string settings = {};   ///< further simulation parameters
    std::string duration = "10"; ///< [d]
    std::string grid = "<XSteps unit='m'>0.01 0.01 0.02 0.02</XSteps>";
    std::string interface = "<Interface name='Surface' type='Detailed'><BCReference>Law</BCReference>"
                            "<KOR:Parameter name='Orientation' unit='Deg'>270</KOR:Parameter></Interface>";
    std::string schedules = {}, climate = {}, boundary = {}, initial = {}, field = {}, contact = {}; ///< definitions
    std::string material = "${Install Directory}/DB_materials/clay_brick_solid_108.m6";
    std::string assignments = {}; ///< besides brick everywhere and Surface on the left
    std::string range = "0 0 3 0";
};

inline std::string text(const Parts & p) {
    return "<HygrionProject xmlns='https://hygrion.example/xml/project/6' fileVersion='6.1'>"
           "<Init><SimulationParameter><BalanceEquationModule>" +
           p.module + "</BalanceEquationModule><Interval><KOR:Parameter name='Duration' unit='d'>" + p.duration +
           "</KOR:Parameter></Interval>" + p.settings +
           "<KOR:Parameter name='Longitude' unit='Deg'>13.4</KOR:Parameter>"
           "<KOR:Parameter name='Latitude' unit='Deg'>52.5</KOR:Parameter>"
           "<KOR:Flag name='UseCustomLocation'>true</KOR:Flag></SimulationParameter></Init>"
           "<Materials><MaterialReference name='Brick' color='#b5533c' hatchCode='5'>" +
           p.material + "</MaterialReference></Materials><Discretization>" + p.grid +
           "</Discretization><Conditions><Schedules>" + p.schedules + "</Schedules><Interfaces>" + p.interface +
           "</Interfaces><ClimateConditions>" + constant("Temperature", "10", "C") +
           constant("RelativeHumidity", "80", "%") + constant("VaporPressure", "900", "Pa") +
           constant("HeatFlux", "25", "W/m2") + constant("WaterFlux", "1e-6", "kg/m2s") +
           constant("HeatTransferCoefficient", "12", "W/m2K") + constant("WindVelocity", "3", "m/s") +
           constant("WindDirection", "300", "Deg") + constant("RainFluxNormal", "1", "l/m2h") +
           constant("RainFluxHorizontal", "2", "l/m2h") + constant("SWRadiationImposed", "200", "W/m2") +
           constant("SWRadiationDirect", "300", "W/m2") + constant("SWRadiationDiffuse", "100", "W/m2") +
           constant("LWRadiationFlux", "-40", "W/m2") + constant("LWRadiationSkyEmission", "280", "W/m2") +
           constant("LWRadiationGroundEmission", "330", "W/m2") + constant("SkyTemperature", "-10", "C") +
           constant("CloudCoverage", "50", "%") + constant("PressureHead", "0.8", "m") +
           constant("MassFlowRate", "0.05", "kg/s") + constant("FluidFlowRate", "36", "m3/h") +
           constant("Velocity", "2e-6", "m/s") + constant("EnergySource", "30", "W/m3") + constant("Power", "6", "W") +
           constant("WaterSource", "1e-4", "kg/m3s") + constant("FluidChangeRate", "0.5", "1/h") +
           constant("Percentage", "40", "%") + constant("Temperature", "21", "C", "Indoor") +
           constant("RelativeHumidity", "60", "%", "IndoorHumidity") +
           constant("RelativeHumidity", "100", "%", "Damp") + p.climate + "</ClimateConditions><BoundaryConditions>" +
           p.boundary + "</BoundaryConditions><InitialConditions>" + p.initial +
           "</InitialConditions><FieldConditions>" + p.field + "</FieldConditions><ContactConditions>" + p.contact +
           "</ContactConditions></Conditions><Assignments>" + assignment("Material", "Element", "Brick", p.range) +
           assignment("Interface", "Left", "Surface", p.range) + p.assignments + "</Assignments></HygrionProject>";
}

inline HYGRION::Project project(const Parts & parts) {
    HYGRION::Project project;
    project.readText(text(parts));
    return project;
}

/// A model after its first right-hand side at a time [s].
struct Evaluated {
    explicit Evaluated(const Parts & parts, double time = 0)
        : construction(SOLVER::buildConstruction(project(parts))), model(construction.input) {
        std::vector<double> derivative(model.size());
        EXPECT_TRUE(model.rightHandSide(time, model.initialState(), derivative));
    }
    const SOLVER::SurfaceState & surface() const { return model.surfaceStates()[0]; }
    /// Into the construction by area of the first surface [W/m2].
    double heat() const { return model.exchangeRates()[0].heat / model.input().surfaces[0].area; }
    double water() const { return model.exchangeRates()[0].water / model.input().surfaces[0].area; } ///< [kg/m2s]

    SOLVER::Construction construction;
    SOLVER::Model model;
};

} // namespace texts
