#pragma once

#include <algorithm>

namespace SOLVER {

/// What acts on one surface of the construction at one moment. Heat and moisture towards the construction are positive.
struct SurfaceLoad {
    double heatTransfer = 0;     ///< convective (and linearised radiative) coefficient [W/m2K]
    double airTemperature = 0;   ///< [K]; 0: there is no air that exchanges heat
    double heatFlux = 0;         ///< imposed [W/m2]
    double shortWave = 0;        ///< absorbed short-wave radiation [W/m2]
    double longWave = 0;         ///< absorbed long-wave radiation [W/m2]
    double emissivity = 0;       ///< of the surface, for long-wave emission after Stefan and Boltzmann [-]
    double vaporTransfer = 0;    ///< coefficient on vapour pressure [s/m]
    double vaporPressure = 0;    ///< of the air [Pa]
    double vaporFlux = 0;        ///< imposed [kg/m2s]
    double liquidFlux = 0;       ///< imposed liquid water, all of it taken up [kg/m2s]
    double rain = 0;             ///< liquid water offered; what the surface cannot take runs off [kg/m2s]
    double waterTemperature = 0; ///< of rain and imposed water [K]; 0: as warm as the surface
    bool hasTemperature = false; ///< the surface has airTemperature, whatever flows
    bool hasSuction = false;     ///< the surface has \p suction, whatever flows
    double suction = 0;          ///< [Pa], negative under a head of water
    double openToLiquid = 1;     ///< share of the surface through which liquid passes [-]
    int heatDirection = 0; ///< the air, or the fixed temperature, only heats (1), only cools (-1) or does both (0)

    /// Temperature of rain and imposed water at a surface at T [K].
    double temperatureOfWater(double T) const { return waterTemperature > 0 ? waterTemperature : T; }
};

/// What flows in a pipe behind a surface, at one moment.
struct PipeFlow {
    double inlet = 0;            ///< temperature [K]
    double capacity = 0;         ///< mass flow times specific heat [W/K]
    double innerCoefficient = 0; ///< between fluid and pipe [W/m2K]
    double conductance = 0;      ///< of the whole pipe, by the difference of inlet and surroundings [W/K]
};

/// What acts on one cell of the inside at one moment, per volume of the cell. How it depends on the cell's state is told
/// by plain numbers, so that nobody but the model needs to know the state.
struct CellLoad {
    double heat = 0;               ///< [W/m3]
    double heatLimit = 293;        ///< a thermostat's temperature [K]
    double heatRange = 0;          ///< over which \p heat fades towards heatLimit [K]; 0: there is no thermostat
    bool canHeat = true;           ///< thermostat and fluid give heat below their temperature
    bool canCool = true;           ///< and take it above
    double water = 0;              ///< liquid [kg/m3s]
    double waterTemperature = 0;   ///< of it [K]; 0: as warm as the cell
    double maxMoisture = 1e30;     ///< no water is added above this moisture mass density [kg/m3]
    double minMoisture = 0;        ///< and none taken away below this [kg/m3]
    double heatTransfer = 0;       ///< to a fluid [W/m3K]
    double fluidTemperature = 293; ///< of the fluid [K]
    double airFlow = 0;            ///< volume of outer air that passes the cell [m3/m3s]
    double airTemperature = 293;   ///< of it [K]
    double airVaporPressure = 0;   ///< of it [Pa]
    double airPressure = 101325;   ///< [Pa]
    double leakFlow = 0;           ///< volume of inner air that leaves the vapour it cannot hold in the cell [m3/m3s]
    double leakTemperature = 293;  ///< of it [K]
    double leakVaporPressure = 0;  ///< of it [Pa]

    /// Heat that a source brings to a cell at T [K], under its thermostat [W/m3].
    double imposedHeat(double T) const {
        if (heatRange == 0)
            return heat;
        return heat * std::clamp((heatLimit - T) / heatRange, canCool ? -1.0 : 0.0, canHeat ? 1.0 : 0.0);
    }
    /// Heat that the fluid brings to a cell at T [K], [W/m3].
    double fluidHeat(double T) const {
        const double heatFromFluid = heatTransfer * (fluidTemperature - T);
        return heatFromFluid > 0 ? (canHeat ? heatFromFluid : 0) : (canCool ? heatFromFluid : 0);
    }
};

/// What the surface answers. Densities of flux towards the construction.
struct SurfaceState {
    double temperature = 293; ///< [K]
    double suction = 0;       ///< [Pa]
    double vaporPressure = 0; ///< [Pa]
    // What goes into the construction.
    double conduction = 0;   ///< heat [W/m2]
    double vaporFlux = 0;    ///< [kg/m2s]
    double liquidFlux = 0;   ///< [kg/m2s]
    double enthalpyFlux = 0; ///< carried by vapour and liquid [W/m2]
    // What the outside brings.
    double convection = 0;     ///< heat from the air [W/m2]
    double longWave = 0;       ///< absorbed less emitted [W/m2]
    double vaporArrival = 0;   ///< vapour from the air [kg/m2s]
    double vaporEnthalpy = 0;  ///< carried by it [W/m2]
    double liquidArrival = 0;  ///< rain and imposed water that was taken [kg/m2s]
    double liquidEnthalpy = 0; ///< carried by rain and imposed water, less what the runoff takes along [W/m2]
    double runoff = 0;         ///< rain and condensate that was not taken [kg/m2s]
};

/// Heat and water that come into the construction.
struct Exchange {
    double heat = 0;  ///< [W]; [J] of an integral
    double water = 0; ///< [kg/s]; [kg] of an integral
};

/// Resistances at a face between two cells; all zero is perfect contact.
struct ContactResistance {
    double heat = 0;           ///< [m2K/W]
    double vapor = 0;          ///< on vapour pressure [m/s]
    double liquid = 0;         ///< on suction [m/s]
    bool blocksLiquid = false; ///< no liquid passes (foil, air gap)
    int foil = -1;             ///< index of an adaptive foil whose resistance is added to vapor, or none
    bool isPerfect() const { return heat == 0 && vapor == 0 && liquid == 0 && !blocksLiquid && foil < 0; }
};

} // namespace SOLVER
