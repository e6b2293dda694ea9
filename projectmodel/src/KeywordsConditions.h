#pragma once

#include <KOR/Keywords.h>

/// Words of climate, boundary and initial conditions and of interfaces.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace HYGRION {

constexpr KOR::KeywordRow BOUNDARY_COND_CONDITION[] = {
    {"HeatConduction",     "Heat conduction",                     ""},
    {"VaporDiffusion",     "Vapor diffusion",                     ""},
    {"WindDrivenRain",     "Wind-driven rain",                    ""},
    {"ShortWaveRadiation", "Short wave radiation",                ""},
    {"LongWaveRadiation",  "Long wave radiation",                 ""},
    {"WaterContact",       "Water contact",                       ""},
    {"AirConvection",      "Air convection (complete gas phase)", ""},
    {"VOCDiffusion",       "VOC diffusion",                       ""},
    {"SolutionContact",    "Solution contact",                    ""},
};

constexpr KOR::KeywordRow BOUNDARY_COND_KIND[] = {
    {"SurfaceValue",           "Surface value",                                            ""},
    {"ImposedFlux",            "Imposed flux",                                             ""},
    {"Exchange",               "Exchange coefficient",                                     ""},
    {"ExchangeVelocity",       "Boundary layer (variable air velocity)",                   ""},
    {"PipeCollectorModel",     "Heat transfer from pipe with flowing fluid in a material", ""},
    {"StandardRainModel",      "Wind driven rain model (DIN EN ISO 15927-3)",              ""},
    {"StandardRadiationModel", "Standard direct and diffuse sun radiation model (CCM)",    ""},
    {"LongWaveComponents",     "Long-wave radiation components",                           ""},
    {"HydrostaticProfile",     "Hydrostatic pressure profile",                             ""},
    {"FlowCoefficientModel",   "Flow coefficient model",                                   ""},
};

constexpr KOR::KeywordRow BOUNDARY_COND_PARA[] = {
    {"ExchangeCoefficient",              "Exchange coefficient for still air",                                      ""},
    {"ExchangeSlope",                    "Slope coefficient for moving air",                                        ""},
    {"ExchangeExponent",                 "Exponent for moving air",                                                 ""},
    {"ExposureCoefficient",              "Rain exposure coefficient (accounts for sheltering)",                     ""},
    {"MinRainTemperature",               "Minimum rain temperature (below rain falls as snow)",                     ""},
    {"SurfaceAbsorptionCoefficient",     "Absorption coefficient of the building surface for short wave radiation", ""},
    {"SurfaceEmissionCoefficient",       "Emission coefficient of the building surface for long wave radiation",    ""},
    {"SDValue",                          "sd-value of painting / surface coating",                                  ""},
    {"PipeCollectorDiameter",            "Pipe collector model: outer diameter of pipe",                            ""},
    {"PipeCollectorThickness",           "Pipe collector model: pipe wall thickness",                               ""},
    {"PipeCollectorLength",              "Pipe collector model: pipe length",                                       ""},
    {"PipeCollectorThermalConductivity", "Pipe collector model: thermal conductivity of pipe",                      ""},
    {"PipeCollectorFluidHeatCapacity",   "Pipe collector model: heat capacity of fluid",                            ""},
    {"PipeCollectorModelFraction",       "Pipe collector model: fraction of pipe included in model",                ""},
    {"PipeCollectorGlycolContent",       "Pipe collector model: content of glycol in the water as volume fraction", ""},
    {"FlowCoefficient",                  "Flow coefficient for air inlet and outlet",                               ""},
    {"SurfaceLiquidFraction",            "Decrease liquid transport of surface by given value",                     ""},
};

constexpr KOR::KeywordRow BOUNDARY_COND_FLAG[] = {
    {"UseVaporPressure",      "Use vapour pressure",                                                               ""},
    {"IncludeRHandClouds",    "Account for influence of humidity and cloudiness on atmospheric counter radiation", ""},
    {"IncludeGround",         "Include long wave radiation interchange with surrounding ground",                   ""},
    {"FluidSettingsHeatPipe",
     "Use temperature dependent fluid properties in order to determine heat exchange and transport",               ""},
};

constexpr KOR::KeywordRow BOUNDARY_COND_OUTPUT[] = {
    {"PipeCollectorTr",   "Return temperature from pipe collector",  "C"    },
    {"PipeCollectorQdot", "Total energy loss/gain from entire pipe", "W"    },
    {"PipeCollectorT0",   "Inlet temperature of pipe collector",     "C"    },
    {"PipeCollectorHP",   "Inner heat exchange coefficient",         "W/m2K"},
};

constexpr KOR::KeywordRow BOUNDARY_COND_INTPARA[] = {
    {"HeatingCooling", "Heating, cooling or nothing for surface temperature (0-normal, 1-heating, 2-cooling)", ""},
    {"HP_GlycolKind",  "Glycol kind according KOR::FluidPhysics (0-Water, 1-EthylenGlycol, 2-PropylenGlycol)", ""},
};

constexpr KOR::KeywordRow CLIMATE_COND_CONDITION[] = {
    {"Temperature",               "Temperature",                                                       "C"     },
    {"RelativeHumidity",          "Relative humidity",                                                 "%"     },
    {"VaporPressure",             "Water vapor pressure",                                              "Pa"    },
    {"GasPressure",               "Air pressure",                                                      "Pa"    },
    {"RainFluxNormal",            "Rain flux density normal to the wall surface",                      "l/m2s" },
    {"RainFluxHorizontal",        "Rain flux density on a horizontal plane",                           "l/m2s" },
    {"WindDirection",             "Wind direction, North=0 Deg, East=90 Deg, ...",                     "Deg"   },
    {"WindVelocity",              "Wind velocity",                                                     "m/s"   },
    {"SWRadiationImposed",        "Short wave radiation (global, oriented to wall)",                   "W/m2"  },
    {"SWRadiationDirect",         "Direct sun radiation on horizontal surface (short wave component)", "W/m2"  },
    {"SWRadiationDiffuse",        "Diffuse sun radiation (short wave component)",                      "W/m2"  },
    {"LWRadiationFlux",           "Long wave radiation imposed flux density",                          "W/m2"  },
    {"CloudCoverage",             "Cloud coverage",                                                    "%"     },
    {"SkyTemperature",            "Temperature of the sky",                                            "C"     },
    {"LWRadiationSkyEmission",    "Atmospheric counter radiation",                                     "W/m2"  },
    {"LWRadiationGroundEmission", "Heat emission/counter radiation from surrounding ground",           "W/m2"  },
    {"PressureHead",              "Pressure head",                                                     "m"     },
    {"SolutionConcentration",     "Solution concentration (molality)",                                 "mol/kg"},
    {"WaterFlux",                 "Imposed moisture flux",                                             "kg/m2s"},
    {"HeatFlux",                  "Imposed heat flux",                                                 "W/m2"  },
    {"VOCDensity",                "VOC density (concentration) in gas phase",                          "µg/m3"},
    {"WaterSource",               "Liquid water production rate",                                      "kg/m3s"},
    {"EnergySource",              "Energie production rate",                                           "J/m3s" },
    {"VOCSource",                 "Pollutant production rate",                                         "mg/m3s"},
    {"FluidFlowRate",             "Air/gas/fluid flow rate",                                           "m3/s"  },
    {"MassFlowRate",              "Mass flow rate",                                                    "kg/s"  },
    {"FluidChangeRate",           "Air/gas/fluid change rate",                                         "1/h"   },
    {"Percentage",                "A percentage, that can be used to scale parameters",                "%"     },
    {"HeatTransferCoefficient",   "Heat transfer coefficient",                                         "W/m2K" },
    {"Power",                     "Heat load/power",                                                   "W"     },
    {"Velocity",                  "Velocity (fluid/media)",                                            "m/s"   },
};

constexpr KOR::KeywordRow CLIMATE_COND_KIND[] = {
    {"Constant",      "Constant value",                          ""},
    {"Sinus",         "Sinus wave",                              ""},
    {"DoubleSinus",   "Double sinus wave",                       ""},
    {"TabulatedData", "Data points",                             ""},
    {"External",      "Generated by external model (FMI)",       ""},
    {"CCM",           "Generated by Climate-Calculation-Module", ""},
};

constexpr KOR::KeywordRow CLIMATE_COND_PARA[] = {
    {"ConstantValue",    "Constant value", ""},
    {"MeanValue",        "Mean value",     ""},
    {"Amplitude1",       "Amplitude",      ""},
    {"OscPeriod1",       "Period",         ""},
    {"PhaseShift1",      "Phase shift",    ""},
    {"Amplitude2",       "Amplitude 2",    ""},
    {"OscPeriod2",       "Period 2",       ""},
    {"PhaseShift2",      "Phase shift 2",  ""},
    {"ShiftValue",       "Shifting value", ""},
    {"MaxClippingValue", "Maximum value",  ""},
    {"MinClippingValue", "Minimum value",  ""},
};

constexpr KOR::KeywordRow CLIMATE_COND_FLAG[] = {
    {"UseInterpolation", "Interpolate liniearly between tabulated values",                       ""},
    {"ExtendData",       "Extend data beyond last tabulated point using constant extrapolation", ""},
    {"Cyclic",           "Treat input data as cyclic data with annual cycle",                    ""},
};

constexpr KOR::KeywordRow CONDITIONS_CONDITION_LIST[] = {
    {"Schedules",           "Schedules",           ""},
    {"Interfaces",          "Interfaces",          ""},
    {"ClimateConditions",   "ClimateConditions",   ""},
    {"BoundaryConditions",  "BoundaryConditions",  ""},
    {"InitialConditions",   "InitialConditions",   ""},
    {"FieldConditions",     "FieldConditions",     ""},
    {"ContactConditions",   "ContactConditions",   ""},
    {"SolutionDefinitions", "SolutionDefinitions", ""},
};

constexpr KOR::KeywordRow CONDITIONS_CONDITION_TYPE[] = {
    {"ClimateCondition",   "ClimateCondition",   ""},
    {"BoundaryCondition",  "BoundaryCondition",  ""},
    {"InitialCondition",   "InitialCondition",   ""},
    {"FieldCondition",     "FieldCondition",     ""},
    {"ContactCondition",   "ContactCondition",   ""},
    {"Interface",          "Interface",          ""},
    {"SolutionDefinition", "SolutionDefinition", ""},
};

constexpr KOR::KeywordRow INITIAL_COND_CONDITION[] = {
    {"Temperature",        "Temperature",                                                         "C"    },
    {"MoistureContent",    "Volumetric liquid moisture content",                                  "m3/m3"},
    {"MoistureMass",       "Total moisture mass density",                                         "kg/m3"},
    {"MoistureMassByMass", "Total moisture mass content",                                         "kg/kg"},
    {"RelativeHumidity",   "Relative humidity",                                                   "%"    },
    {"CapillaryPressure",  "Capillary pressure",                                                  "Pa"   },
    {"VOCMass",            "VOC mass density in the material (assumed to be in the solid phase)", "mg/m3"},
    {"SolutionMass",       "Solution mass density",                                               "kg/m3"},
    {"SolutionContent",    "Volumetric solution content",                                         "m3/m3"},
    {"SaltMass",           "Salt mass density",                                                   "kg/m3"},
};

constexpr KOR::KeywordRow INTERFACE_TYPE[] = {
    {"EngineeringIndoor",  "Standard interface for indoor climate",                                                 ""},
    {"EngineeringOutdoor", "Standard interface for outdoor climate",                                                ""},
    {"Detailed",           "Detailed/scientific interface defined by several boundary conditions",                  ""},
    {"External",           "Functional Mockup Interface (FMI) for quantity exchange to external simulation models", ""},
};

constexpr KOR::KeywordRow INTERFACE_CLIMATE_TYPE_INDOOR[] = {
    {"IndoorDIN4108_2001Downwards",  "German Standard DIN 4108-3 from 2001, heat flow direction downwards",              ""},
    {"IndoorDIN4108_2001Horizontal", "German Standard DIN 4108-3 from 2001, heat flow direction horizontal and upwards",
     ""                                                                                                                    },
    {"IndoorDIN4108_2014",           "German Standard DIN 4108-3 from 2014",                                             ""},
    {"IndoorWTA",                    "DIN EN 15026/WTA adaptive indoor climate model",                                   ""},
    {"IndoorUserData",               "User-defined indoor climate",                                                      ""},
};

constexpr KOR::KeywordRow INTERFACE_INDOOR_WTATYPE[] = {
    {"IndoorWTALowLoad",      "WTA 6.2 indoor climate model for low moisture load",                 ""},
    {"IndoorWTANormalLoad",   "WTA 6.2 indoor climate model for normal moisture load",              ""},
    {"IndoorWTANormalp5Load", "WTA 6.2 indoor climate model for increased moisture load (plus 5%)", ""},
    {"IndoorWTAHighLoad",     "WTA 6.2 indoor climate model for high moisture load",                ""},
    {"IndoorWTAUserData",     "User-defined values for WTA 6.2 model",                              ""},
};

constexpr KOR::KeywordRow INTERFACE_CLIMATE_TYPE_OUTDOOR[] = {
    {"OutdoorDIN4108",  "Standard DIN 4108-3 outdoor climate, vertical wall", ""},
    {"OutdoorUserData", "User-defined outdoor climate",                       ""},
};

constexpr KOR::KeywordRow INTERFACE_FMU_INTERFACE[] = {
    {"FMUThermal",      "Thermal interface",      ""},
    {"FMUHygrothermal", "Hygrothermal interface", ""},
};

constexpr KOR::KeywordRow INTERFACE_OTHER_SIDE_TYPE[] = {
    {"SideIndoor",  "Interface to indoor area",  ""},
    {"SideOutdoor", "Interface to outdoor area", ""},
    {"SideGround",  "Interface to ground",       ""},
    {"SideWater",   "Interface to liquid water", ""},
    {"SideOther",   "Interface to unknown",      ""},
};

constexpr KOR::KeywordRow INTERFACE_FMU_INPUT_VARIABLES[] = {
    {"FMIInputTemperature",          "Temperature",      ""},
    {"FMIInputRelativeHumidity",     "RelativeHumidity", ""},
    {"FMIInputWaterFlux",            "WaterFlux",        ""},
    {"FMIInputWaterFluxTemperature", "Temperature",      ""},
};

constexpr KOR::KeywordRow INTERFACE_PARA[] = {
    {"Orientation",                              "Orientation of the building element",                                     ""},
    {"Inclination",                              "Inclination of the building element",                                     ""},
    {"Area",                                     "Area of the building element",                                            ""},
    {"CustomIndoorTemperature",                  "User-defined indoor temperature (for Engineering model)",                 ""},
    {"CustomIndoorRelativeHumidity",             "User-defined indoor relative humidity (for Engineering model)",           ""},
    {"CustomIndoorHeatTransferCoefficient",      "User-defined indoor heat transfer coefficient (for Engineering model)",
     ""                                                                                                                       },
    {"CustomIndoorVaporTransferCoefficient",
     "User-defined indoor water vapor diffusion exchange coefficient (for Engineering model)",                              ""},
    {"OutdoorHeatTransferCoefficient",           "Heat transfer coefficient (for Engineering model)",                       ""},
    {"OutdoorConvectiveHeatTransferCoefficient", "Convective outdoor heat transfer coefficient (for Engineering model)",
     ""                                                                                                                       },
    {"OutdoorRadiantHeatTransferCoefficient",    "Radiant outdoor heat transfer coefficient (for Engineering model)",       ""},
    {"OutdoorVaporTransferCoefficient",          "Water vapor diffusion exchange coefficient (for Engineering model)",      ""},
    {"OutdoorSdValue",                           "Sd-value of surface coating layer (for Engineering model)",               ""},
    {"OutdoorAdsorptionCoefficient",             "Adsorption coefficient for short wave radiation (for Engineering model)", ""},
    {"OutdoorEmissionCoefficient",               "Emission coefficient for long-wave radiation (for Engineering model)",    ""},
    {"OutdoorRainShelteringCoefficient",
     "Sheltering coefficient for wind-driven-rain calculation (for Engineering model)",                                     ""},
    {"WTALowTemperature",                        "Low indoor temperature for model curve (for WTA indoor model)",           ""},
    {"WTAHighTemperature",                       "High indoor temperature for model curve (for WTA indoor model)",          ""},
    {"WTALowRelativeHumidity",                   "Low indoor relative humidity for model curve (for WTA indoor model)",     ""},
    {"WTAHighRelativeHumidity",                  "High indoor relative humidity for model curve (for WTA indoor model)",    ""},
};

constexpr KOR::KeywordRow INTERFACE_FLAG[] = {
    {"UseHeatCond",           "Use heat conduction model",              ""},
    {"UseVapDiff",            "Use vapor diffusion exchange model",     ""},
    {"UseShortWaveRadiation", "Use short-wave solar radiation model",   ""},
    {"UseLongWaveRadiation",  "Use long-wave radiation exchange model", ""},
    {"UseStandardRain",       "Use wind-driven-rain",                   ""},
};

} // namespace HYGRION
