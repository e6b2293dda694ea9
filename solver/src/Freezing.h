#pragma once

#include <SOLVER/MaterialTable.h>

namespace SOLVER {

/// Pore water with ice in equilibrium: the liquid that is left has the suction of ice at its temperature. The narrower
/// the pores, the colder they freeze.
struct Freezing {
    double temperature; ///< [K]
    double ice;         ///< [kg/m3]
    double suction;     ///< of the liquid [Pa]
};

/// The ice [kg/m3] out of a moisture content at a temperature. What a cell holds beyond saturation stays liquid.
double iceContent(const MaterialTable & table, double moisture, double T);

/// Energy [J/m3] of material, liquid and ice at a temperature.
double energyOf(const MaterialTable & table, double moisture, double ice, double T);

/// Finds temperature and ice of a cell from its energy and moisture contents.
/// \param iceFree temperature [K] that the cell had if all of its water were liquid, below T_ZERO
/// \param suction [Pa] that it had then
Freezing freeze(const MaterialTable & table, double energy, double moisture, double iceFree, double suction);

} // namespace SOLVER
