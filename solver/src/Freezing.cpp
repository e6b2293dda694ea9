#include "Freezing.h"

#include <SOLVER/Physics.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

double iceContent(const MaterialTable & table, double moisture, double T) {
    if (T >= T_ZERO)
        return 0;
    return std::max(0.0, std::min(moisture, table.moisture(0)) - table.moisture(freezingSuction(T)));
}

double energyOf(const MaterialTable & table, double moisture, double ice, double T) {
    double slope = 0;
    return table.enthalpy(T, slope) + (moisture - ice) * enthalpyOfLiquid(T) + ice * enthalpyOfIce(T);
}

namespace {

/// A temperature from which few iterations lead to that of the equilibrium. \param mostIce that there can be
double estimate(const MaterialTable & table, double energy, double moisture, double mostIce, double iceFree) {
    double capacity = 0;
    table.enthalpy(iceFree, capacity);
    const double frozen =
        T_ZERO + (energy + mostIce * H_FUSION) / (capacity + (moisture - mostIce) * C_WATER + mostIce * C_ICE);
    if (frozen < T_ZERO)
        return std::max(frozen, iceFree);
    // It is freezing: nearly all energy is that of the ice, the water that is left tells the suction.
    const double most = std::min(moisture, table.moisture(0));
    std::uint32_t interval = 0;
    const double left = table.fromMoisture(std::clamp(most + energy / H_FUSION, 0.0, most), interval).suction;
    return std::clamp(T_ZERO + left / freezingSuctionSlope(T_ZERO), iceFree, T_ZERO);
}

} // namespace

Freezing freeze(const MaterialTable & table, double energy, double moisture, double iceFree, double suction) {
    constexpr double ROUND_OFF = 1e-10; ///< [K]
    // Freezing sets heat free: the cell is warmer than without it, and not warmer than 0 C. The energy of the
    // equilibrium grows with temperature throughout.
    double low = iceFree;
    double high = T_ZERO;
    double T = iceFree;
    double ice = iceContent(table, moisture, T);
    if (!(ice > 0))
        return {T, 0, suction};
    T = estimate(table, energy, moisture, ice, iceFree);
    ice = iceContent(table, moisture, T);
    for (int i = 0; i < 100; ++i) {
        double capacity = 0;
        const double error =
            table.enthalpy(T, capacity) + (moisture - ice) * enthalpyOfLiquid(T) + ice * enthalpyOfIce(T) - energy;
        (error > 0 ? high : low) = T;
        const double thaw = ice > 0 ? table.capacity(freezingSuction(T)) * freezingSuctionSlope(T) : 0; // [kg/m3K]
        const double slope =
            capacity + (moisture - ice) * C_WATER + ice * C_ICE + thaw * (enthalpyOfLiquid(T) - enthalpyOfIce(T));
        const double next = T - error / slope;
        const double previous = T;
        // Round-off may lead out of a bracket that is closed: no reason to halve it for long.
        T = next > low - ROUND_OFF && next < high + ROUND_OFF ? std::min(next, T_ZERO) : (low + high) / 2;
        ice = iceContent(table, moisture, T);
        if (std::fabs(T - previous) < ROUND_OFF)
            break;
    }
    if (!(ice > 0))
        return {T, 0, suction};
    // Beyond saturation the pores' pressure adds to it, so that a full cell takes no more.
    return {T, ice, freezingSuction(T) + std::min(suction, 0.0)};
}

} // namespace SOLVER
