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

Freezing freeze(const MaterialTable & table, double energy, double moisture, double iceFree, double suction) {
    // Freezing sets heat free: the cell is warmer than without it, and not warmer than 0 C. The energy of the
    // equilibrium grows with temperature throughout.
    double low = iceFree;
    double high = T_ZERO;
    double T = iceFree;
    double ice = iceContent(table, moisture, T);
    if (!(ice > 0))
        return {T, 0, suction};
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
        T = next > low && next < high ? next : (low + high) / 2;
        ice = iceContent(table, moisture, T);
        if (std::fabs(T - previous) < 1e-12 * T_ZERO)
            break;
    }
    if (!(ice > 0))
        return {T, 0, suction};
    // Beyond saturation the pores' pressure adds to it, so that a full cell takes no more.
    return {T, ice, freezingSuction(T) + std::min(suction, 0.0)};
}

} // namespace SOLVER
