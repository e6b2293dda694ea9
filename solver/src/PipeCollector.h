#pragma once

#include <HYGRION/BoundaryCond.h>

namespace SOLVER {

/// A pipe in which water flows through the construction. Along it the water takes the temperature of the surroundings,
/// so that of the difference between inlet and surroundings a share is left at the end.
struct PipeCollector {
    double diameter = 0;             ///< outer [m]
    double wall = 0;                 ///< thickness [m]
    double length = 0;               ///< [m]
    double conductivity = 0;         ///< of the wall [W/mK]
    double heatCapacity = 0;         ///< of the fluid [J/kgK], 0: of water
    bool followsTemperature = false; ///< properties of water at the inlet's temperature, else at 20 C
    double perArea = 0;              ///< share of the pipe that lies in the model, by the area of its surfaces [1/m2]

    /// The pipe of a condition. Throws ("[PipeCollector::fromCondition]") for glycol of which the properties are missing.
    static PipeCollector fromCondition(const HYGRION::BoundaryCond & condition);

    double innerArea() const;       ///< of the cross-section [m2]
    double density(double T) const; ///< of the fluid [kg/m3]
    double specificHeat() const;    ///< [J/kgK]
    /// Transfer coefficient between fluid and wall [W/m2K]: laminar flow at a wall of constant temperature, turbulent flow
    /// after Gnielinski, between Reynolds numbers of 2300 and 4000 linear (VDI Heat Atlas, G1).
    double innerCoefficient(double T, double massFlow) const;
    /// Heat of the whole pipe by the difference of the temperatures of inlet and surroundings [W/K].
    /// \param massFlow [kg/s] \param inner transfer coefficient between fluid and wall [W/m2K]
    double conductance(double massFlow, double inner) const;
};

} // namespace SOLVER
