#pragma once

#include "PipeCollector.h"

#include <SOLVER/SurfaceLoad.h>

#include <CCM/SolarRadiationModel.h>
#include <HYGRION/BoundaryCond.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace SOLVER {

class ClimateSignals;

/// The climate at one moment.
struct ClimateMoment {
    double time = 0;                                ///< [s]
    std::span<const double> values;                 ///< of all signals [base units]
    std::span<const CCM::SolarRadiationModel> suns; ///< set to this time
};

/// The indices of the signals that supply a condition's quantities.
class QuantitySignals {
public:
    using Quantity = HYGRION::ClimateCond::condition_t;
    static constexpr std::int32_t NONE = -1;

    QuantitySignals() { m_signals.fill(NONE); }
    void set(Quantity quantity, std::uint32_t signal) {
        m_signals[index(quantity)] = static_cast<std::int32_t>(signal);
    }
    bool has(Quantity quantity) const { return m_signals[index(quantity)] != NONE; }
    std::uint32_t signal(Quantity quantity) const { return static_cast<std::uint32_t>(m_signals[index(quantity)]); }
    /// [base unit]; for quantities that are supplied
    double value(const ClimateMoment & moment, Quantity quantity) const { return moment.values[signal(quantity)]; }

private:
    static std::size_t index(Quantity quantity) { return static_cast<std::size_t>(quantity); }
    std::array<std::int32_t, static_cast<std::size_t>(Quantity::Velocity) + 1> m_signals;
};

/// When a schedule lets a condition act: from the first to the second time [s]; always, without any.
class ActiveTimes {
public:
    void add(double start, double end) { m_intervals.push_back({start, end}); }
    bool empty() const { return m_intervals.empty(); }
    bool contains(double time) const;
    const std::vector<std::array<double, 2>> & intervals() const { return m_intervals; }

private:
    std::vector<std::array<double, 2>> m_intervals;
};

/// How a surface stands.
struct SurfacePosition {
    double orientation = 0; ///< of the outward normal from north, clockwise [Rad]
    double inclination = 0; ///< [Rad] 0 faces up, pi/2 is a wall
    double height = 0;      ///< of the surface's centre above the bottom of the construction [m]
};

/// One boundary condition in numbers: what it adds to the load of a surface at a moment.
struct BoundaryLaw {
    using Apply = void (*)(const BoundaryLaw &, const ClimateMoment &, SurfaceLoad &);

    Apply apply = nullptr;
    QuantitySignals signals;
    ActiveTimes active;
    double coefficient = 0; ///< exchange coefficient in still air [W/m2K or s/m]
    double slope = 0;       ///< its growth with the wind velocity
    double exponent = 1;
    double resistance = 0;   ///< of a coating [m/s]
    double factor = 1;       ///< absorption, emission or exposure coefficient [-]
    double minimum = 0;      ///< temperature of rain [K]
    bool hasMinimum = false; ///< snow below it
    bool useHumidityAndClouds = false;
    bool includeGround = false;
    int heatDirection = 0; ///< see SurfaceLoad
    PipeCollector pipe;
    SurfacePosition position;
    double skyView = 1;           ///< (1 + cos(inclination)) / 2
    std::uint32_t sun = 0;        ///< index into ClimateMoment::suns
    unsigned int sunSurface = 0;  ///< of the solar model
    double kelvinTemperature = 0; ///< [K] for the Kelvin relation; 0 the surface's own

    /// The law of a condition, whose signals have yet to be set. Parameters and quantities that have no effect are warned of.
    /// Throws ("[BoundaryLaw::fromCondition]") for what is missing and for conditions that the solver cannot calculate.
    static BoundaryLaw fromCondition(const HYGRION::BoundaryCond & condition);
    bool needsSun() const;
    bool isRain() const;
    /// Sun and driving rain come from somewhere.
    bool needsOrientation() const;
    /// Depends on the height of the surface.
    bool isHydrostatic() const;
    bool isPipe() const;
    /// Of a pipe; nothing flows while the schedule switches it off.
    PipeFlow pipeFlow(const ClimateMoment & moment) const;
    /// Brings heat by a difference of temperatures.
    bool isHeatExchange() const;
};

/// Driving rain on a wall [kg/m2s] after ISO 15927-3: two ninths of wind velocity [m/s] and the power 8/9 of the rain
/// on the horizontal [mm/h], times the cosine between wind and outward normal; on inclined surfaces its part normal to
/// them and that of the falling rain.
/// \param rain on the horizontal [kg/m2s] \param windDirection where the wind comes from, from north, clockwise [Rad]
double drivingRain(double rain, double windVelocity, double windDirection, const SurfacePosition & surface);

/// Emission of the clear or clouded sky [W/m2] (Clark and Allen 1978, clouds after Walton 1983).
/// \param T air temperature [K] \param humidity relative [-] \param clouds cover [0..1]
double skyEmission(double T, double humidity, double clouds);

} // namespace SOLVER
