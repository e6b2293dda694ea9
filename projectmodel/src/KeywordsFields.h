#pragma once

#include <KOR/Keywords.h>

/// Words of contact and field conditions.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace HYGRION {

constexpr KOR::KeywordRow CONTACT_COND_CONDITION[] = {
    {"AirMaterialBoundary",  "Heat conduction and vapor diffusion at air-material interface",                  ""},
    {"Foil",                 "Foil (no liquid flux, no air flow, constant vapor diffusion barrier)",           ""},
    {"FoilAdaptive",         "Foil (no liquid flux, no air flow, moisture-dependent vapor diffusion barrier)", ""},
    {"AdditionalResistance", "Additional resistances between material layers",                                 ""},
    {"VOCMassTransfer",      "Mass transfer coefficient for VOC diffusion at air-material interface",          ""},
};

constexpr KOR::KeywordRow CONTACT_COND_KIND[] = {
    {"Exchange",                  "Exchange coefficient",                                ""},
    {"ExchangeVelocityDependent", "Boundary layer (variable air velocity)",              ""},
    {"DirectionDependent",        "Foil resistance differs depending on flow direction", ""},
    {"DirectionIndependent",      "Foil resistance independent on flow direction",       ""},
};

constexpr KOR::KeywordRow CONTACT_COND_PARA[] = {
    {"HeatConductionResistance",   "Heat conduction resistance",                                                         "m2K/W" },
    {"VaporDiffusionResistance",   "Vapour diffusion resistance",                                                        "m/s"   },
    {"VaporDiffusionSD",           "Vapour diffusion relative thickness",                                                "m"     },
    {"WaterConductionResistance",  "Water conduction resistance",                                                        "m/s"   },
    {"AirConvectionResistance",    "Air convection resistance",                                                          "m/s"   },
    {"SaltDiffusionResistance",    "Salt diffusion resistance",                                                          "m2s/kg"},
    {"VOCMassTransferCoefficient", "VOC mass transfer coefficient w.r.t. gas phase concentration",                       "m/s"   },
    {"HeatExchangeCoefficient",    "Exchange coefficient for heat conduction for still air",                             "W/m2K" },
    {"HeatExchangeSlope",          "Slope for heat exchange for moving air model",                                       "J/m3K" },
    {"HeatExchangeExponent",       "Exponent for heat exchange for moving air model",                                    "---"   },
    {"VaporExchangeCoefficient",   "Exchange coefficient for vapor diffusion for still air",                             "s/m"   },
    {"VaporExchangeSlope",         "Slope for vapor exchange for moving air model",                                      "s2/m2" },
    {"VaporExchangeExponent",      "Exponent for vapor exchange for moving air model",                                   "---"   },
    {"WEIGHT_FACTOR_POS",          "Weighting factor for adaptive foil model positive direction",                        "---"   },
    {"WEIGHT_FACTOR_NEG",          "Weighting factor for adaptive foil model negative direction",                        "---"   },
    {"SCALING_A_POS",              "Parameter a for square scaling function for adaptive foil model positive direction", "---"   },
    {"SCALING_B_POS",              "Parameter b for square scaling function for adaptive foil model positive direction", "---"   },
    {"SCALING_C_POS",              "Parameter c for square scaling function for adaptive foil model positive direction", "---"   },
    {"SCALING_A_NEG",              "Parameter a for square scaling function for adaptive foil model negative direction", "---"   },
    {"SCALING_B_NEG",              "Parameter b for square scaling function for adaptive foil model negative direction", "---"   },
    {"SCALING_C_NEG",              "Parameter c for square scaling function for adaptive foil model negative direction", "---"   },
};

constexpr KOR::KeywordRow CONTACT_COND_FLAG[] = {
    {"SDPositiveDirection", "If true, positive sd-function is applied to positive coordinate direction", ""},
};

constexpr KOR::KeywordRow CONTACT_COND_FUNCTION[] = {
    {"sd+(rh)", "Relative humidity dependent sd-value (bidirectional/positive flow direction)", ""},
    {"sd-(rh)", "Relative humidity dependent sd-value (negative flow direction)",               ""},
};

constexpr KOR::KeywordRow FIELD_COND_CONDITION[] = {
    {"EnergySource",              "Simple energy source",                                      ""},
    {"WaterSource",               "Simple liquid water source",                                ""},
    {"LongWaveRadiation",         "Long wave radiation exchange in cavity",                    ""},
    {"AirChange",                 "Air exchange with ambient air for a given air change rate", ""},
    {"ConvectiveSource",          "Moisture source due to air flow through leakages WTA 6.2",  ""},
    {"GroundWaterFlow MediaFlow", "Water flow in one direction through the construction",      ""},
    {"VOCSource",                 "Simple VOC/pollutant source",                               ""},
    {"RainSource",                "A fraction of rain flow is set as source ISO 15026 E.4",    ""},
    {"HeatExchanger",             "Heat transfer from a heat exchanger to surrounding",        ""},
};

constexpr KOR::KeywordRow FIELD_COND_PARA[] = {
    {"LeftEmissionCoefficient",   "Left emission coefficient",                                                                      "---"     },
    {"RightEmissionCoefficient",  "Right emission coefficient",                                                                     "---"     },
    {"TopEmissionCoefficient",    "Top emission coefficient",                                                                       "---"     },
    {"BottomEmissionCoefficient", "Bottom emission coefficient",                                                                    "---"     },
    {"BackEmissionCoefficient",   "Back emission coefficient",                                                                      "---"     },
    {"FrontEmissionCoefficient",  "Front emission coefficient",                                                                     "---"     },
    {"AirPressure",               "Reference air pressure",                                                                         "Pa"      },
    {"MaxWaterContent",           "Maximum water content for water source",                                                         "m3/m3"   },
    {"MinWaterContent",           "Minimum water content for water source",                                                         "m3/m3"   },
    {"GasConvectionGastype",      "Gas type for gap convection",                                                                    "-"       },
    {"GasConvectionProportion",   "Proportion of filling gas for gap convection",                                                   "%"       },
    {"GasConvectionInclination",  "Inclination of gap for gap convection",                                                          "Deg"     },
    {"ConvectiveSourcekCL",       "Convective source: kCL value of structure",                                                      "m3/m2hPa"},
    {"ConvectiveSourceHeight",    "Convective source: maximum air space height",                                                    "m"       },
    {"ConvectiveSourcePressure",  "Convective source: Pressure difference due to mechanical ventilation",                           "Pa"      },
    {"LimitT",                    "Temperature limit to use for clipped energy source",                                             "C"       },
    {"LimitDeltaT",               "Temperature range to use for ramping clipped energy source when approaching sensor temperature",
     "K"                                                                                                                                      },
    {"RainFraction",              "Fraction of normal rain flow used as source",                                                    "---"     },
    {"HeatTransferCoefficient",   "Heat transfer coefficient for calculating heat exchanger",                                       "W/K"     },
};

constexpr KOR::KeywordRow FIELD_COND_INTPARA[] = {
    {"FlowDirection",  "Direction of flow (0-to left, 1-to right, 2-to bottom, 3-to top, 4-to back, 5-to front)", ""},
    {"HeatingCooling", "Heating and/or cooling for heat source (0-heating, 1-cooling, 2-heating and cooling)",    ""},
};

constexpr KOR::KeywordRow FIELD_COND_FLAG[] = {
    {"UseFlowRate",        "Use air flow rate",                    ""},
    {"LongWaveRadiationX", "Radiation in x-direction",             ""},
    {"LongWaveRadiationY", "Radiation in y-direction",             ""},
    {"LongWaveRadiationZ", "Radiation in z-direction",             ""},
    {"UseSource",          "Use source instead of source density", ""},
};

constexpr KOR::KeywordRow FIELD_COND_ADDITIONAL_CLIMATE[] = {
    {"AmbientTemperature", "Ambient temperature for use in WTAConvectionModel.", ""},
};

} // namespace HYGRION
