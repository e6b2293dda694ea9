#pragma once

#include <KOR/Keywords.h>

/// Words of the simulation settings, the grid, assignments, assessments and outputs.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace HYGRION {

constexpr KOR::KeywordRow ASSESSMENT_ASSESSMENT_TYPE[] = {
    {"MoistureAccumulation",       "Moisture Accumulation of the total construction", ""},
    {"MoistureAccumulationSingle", "Moisture Accumulation of each single layer",      ""},
    {"MoldGrowth",                 "Mold growth",                                     ""},
    {"IceCriteriaDIN4108",         "Ice criteria according DIN 4108-3 D",             ""},
    {"WoodDegradation68800",       "Wood degradation test according DIN 68800",       ""},
    {"WoodDegradationWTA6_8",      "Wood degradation test according WTA 6.8",         ""},
};

constexpr KOR::KeywordRow ASSESSMENT_ASSIGNMENT_TYPE[] = {
    {"TotalConstruction", "Assignment to total construction",              ""},
    {"InnerSurface",      "Assignment to inner surface",                   ""},
    {"OuterSurface",      "Assignment to outer surface",                   ""},
    {"1DLayer",           "Assignment to each separate 1D material layer", ""},
};

constexpr KOR::KeywordRow ASSIGNMENT_TYPE[] = {
    {"Material",         "Material",                       ""},
    {"Interface",        "Construction Interface/Surface", ""},
    {"InitialCondition", "Initial condition",              ""},
    {"FieldCondition",   "Field condition (Source/Sink)",  ""},
    {"ContactCondition", "Contact condition (Resistance)", ""},
    {"Output",           "Output assignment",              ""},
};

constexpr KOR::KeywordRow ASSIGNMENT_LOCATION[] = {
    {"Element",    "Element",    ""},
    {"Left",       "Left",       ""},
    {"Right",      "Right",      ""},
    {"Bottom",     "Bottom",     ""},
    {"Top",        "Top",        ""},
    {"Back",       "Back",       ""},
    {"Front",      "Front",      ""},
    {"Coordinate", "Coordinate", ""},
};

constexpr KOR::KeywordRow ASSIGNMENT_ANISOTROPY_INIT_TYPE[] = {
    {"UUU",        "UUU",        ""},
    {"VVV",        "VVV",        ""},
    {"WWW",        "WWW",        ""},
    {"UVV",        "UVV",        ""},
    {"UUV",        "UUV",        ""},
    {"UVU",        "UVU",        ""},
    {"VUU",        "VUU",        ""},
    {"VUV",        "VUV",        ""},
    {"VVU",        "VVU",        ""},
    {"UVW",        "UVW",        ""},
    {"UWV",        "UWV",        ""},
    {"VUW",        "VUW",        ""},
    {"VWU",        "VWU",        ""},
    {"WUV",        "WUV",        ""},
    {"WVU",        "WVU",        ""},
    {"UserMatrix", "UserMatrix", ""},
};

constexpr KOR::KeywordRow DISC_GEOMETRY[] = {
    {"2D",   "2D construction (including 1D geometries)",                  ""},
    {"RSym", "rotation symmetric 3D construction (2D with rotation axis)", ""},
    {"3D",   "3D construction",                                            ""},
};

constexpr KOR::KeywordRow INIT_FLAG[] = {
    {"UseKirchhoffPotential",    "Use the Kirchhoff potential function (generated from Kl or Dl).",                      ""},
    {"UseBouyancyLiquid",        "Take gravity into account for liquid flow.",                                           ""},
    {"UseBouyancyGas",           "Take gravity into account for air flow.",                                              ""},
    {"PreventOverfilling",       "This flag prevents physically incorrect state values in all models.",                  ""},
    {"UseIce",                   "Enable equilibrium ice model.",                                                        ""},
    {"UseCustomLocation",
     "If enabled, the location from the weather file is ignored and user-defined latitude/longitude/timezone are used.", ""},
    {"UseStrictMaterialChecks",
     "If enabled, strict consistency checks are applied (strict monotony of transport functions) when material data is "
     "initialized.",                                                                                                     ""},
    {"UseUpperTemperatureLimit", "If enabled a upper temperature limit of 100°C is used for hygrothermal simulations.",
     ""                                                                                                                    },
};

constexpr KOR::KeywordRow INIT_PARA[] = {
    {"IsothermalTRef", "Reference temperature to use for isothermal calculations.", ""   },
    {"Longitude",      "Longitude of a location for a construction.",               "Deg"},
    {"Latitude",       "Latitude of a location for a construction.",                "Deg"},
    {"Height",         "Height of a location for a construction.",                  "m"  },
    {"Albedo",         "Albedo of surrounding ground.",                             "---"},
};

constexpr KOR::KeywordRow INIT_INTPARA[] = {
    {"StartYear", "Starting year of simulation.",                   ""},
    {"TimeZone",  "Time zone for the location for a construction.", ""},
};

constexpr KOR::KeywordRow INIT_DEFAULT_INITIAL_CONDITION[] = {
    {"DefaultTemperature",      "Initial Temperature",       "C"},
    {"DefaultRelativeHumidity", "Initial Relative Humidity", "%"},
};

constexpr KOR::KeywordRow INIT_LAMBDA_SELECTION[] = {
    {"LambdaDry",               "LambdaDry",               ""},
    {"LambdaDesign",            "LambdaDesign",            ""},
    {"LambdaMoistureDependent", "LambdaMoistureDependent", ""},
};

constexpr KOR::KeywordRow INTERVAL_PARA[] = {
    {"Start",    "Start time point.",              "d"},
    {"End",      "End time point.",                "d"},
    {"Duration", "Duration (alternative to End).", "d"},
    {"StepSize", "StepSize.",                      "h"},
};

constexpr KOR::KeywordRow OUTPUT_FILE_SPACE_TYPE[] = {
    {"Single",   "Individual values of each selected element or side", ""},
    {"Mean",     "Volume/area weighted average",                       ""},
    {"Integral", "Volume/area weighted integral",                      ""},
    {"Min",      "Minimum value in range",                             ""},
    {"Max",      "Maximum value in range",                             ""},
};

constexpr KOR::KeywordRow OUTPUT_FILE_TIME_TYPE[] = {
    {"None",     "Write values as calculated at output times",                                     ""},
    {"Mean",     "Average values in time (mean value of all values computed in last output step)", ""},
    {"Integral", "Integrate values in time",                                                       ""},
    {"Min",      "Minimum value in simulation interval",                                           ""},
    {"Max",      "Maximum value in simulation interval",                                           ""},
};

constexpr KOR::KeywordRow OUTPUTS_PARA[] = {
    {"MaximumHygricRH",      "The maximum hygroscopic relative humidity, used for overhygroscopic moisture outputs formats.",
     ""                                                                                                                         },
    {"ThermalExpansionTRef", "The reference temperature for thermal expansion calculation.",                                  ""},
    {"HygricExpansionRHRef", "The reference relative humidity for hygric expansion calculation.",                             ""},
};

constexpr KOR::KeywordRow OUTPUTS_INTPARA[] = {
    {"AsciiPrecision", "The number precision to use for ASCII output files.", ""},
};

constexpr KOR::KeywordRow SOLVER_SETTINGS_PARA[] = {
    {"MaxTimeStep",              "Maximum permitted time step for integration.",                      "min"},
    {"MinTimeStep",              "Minimum accepted time step, before solver aborts with error.",      "s"  },
    {"InitialTimeStep",          "Initial time step",                                                 "s"  },
    {"RelTol",                   "Relative tolerance",                                                "---"},
    {"AbsTolEnergy",             "Absolute tolerance used for energy balance equation",               "J"  },
    {"AbsTolMoisture",           "Absolute tolerance used for moisture balance equation",             "kg" },
    {"AbsTolAir",                "Absolute tolerance used for air balance equation",                  "kg" },
    {"AbsTolSalt",               "Absolute tolerance used for salt balance equations",                "kg" },
    {"AbsTolPollutant",          "Absolute tolerance used for VOC balance equations",                 "kg" },
    {"NonlinSolverConvCoeff",    "Coefficient reducing nonlinear equation solver convergence limit.", "---"},
    {"IterativeSolverConvCoeff", "Coefficient reducing iterative equation solver convergence limit.", "---"},
    {"MaxOrder",                 "Maximum order allowed for multi-step solver.",                      "---"},
    {"MaxNonlinIter",            "Maximum number of nonlinear iterations.",                           "---"},
    {"MaxKrylovDim",             "Maximum dimension of Krylov subspace.",                             "---"},
    {"LESBandWidth",             "Maximum band width to be used for band LES solver.",                "---"},
    {"PreBandWidth",             "Maximum band width to be used for banded preconditioner.",          "---"},
    {"PreILUWidth",              "Maximum level of fill-in to be used for ILU preconditioner.",       "---"},
};

constexpr KOR::KeywordRow SOLVER_SETTINGS_FLAG[] = {
    {"UseStabilityLimitDetection", "UseStabilityLimitDetection", ""},
};

constexpr KOR::KeywordRow SOLVER_SETTINGS_INTEGRATOR[] = {
    {"CVODE",         "CVODE",                                 ""},
    {"ExplicitEuler", "Explicit Euler Method",                 ""},
    {"ImplicitEuler", "Implicit Euler Method",                 ""},
    {"ADI",           "Alternating-Direction-Implicit Method", ""},
    {"RK",            "Runge-Kutta DOPRI 4(7)",                ""},
    {"Auto",          "Automatic selection",                   ""},
};

constexpr KOR::KeywordRow SOLVER_SETTINGS_LES_SOLVER[] = {
    {"BTridiag", "Block-Tridiagonal direct solver", ""},
    {"Band",     "Band direct solver",              ""},
    {"Dense",    "Dense direct solver",             ""},
    {"KLU",      "Sparse direct solver (KLU)",      ""},
    {"GMRES",    "GMRES iterative solver",          ""},
    {"BiCGStab", "BICGSTAB iterative solver",       ""},
    {"Auto",     "Automatic selection",             ""},
};

constexpr KOR::KeywordRow SOLVER_SETTINGS_PRECOND[] = {
    {"BTridiag",    "Block-Tridiagonal preconditioner",                 ""},
    {"Band",        "Banded preconditioner",                            ""},
    {"ILU",         "Incomplete LU preconditioner",                     ""},
    {"ADI",         "ADI preconditioner",                               ""},
    {"ADIBoth",     "Left and right side ADI preconditioner",           ""},
    {"ADISparse",   "ADI preconditioner (without reordering)",          ""},
    {"None",        "No preconditioner and no sparse Jacobian",         ""},
    {"NoneWithJac", "No preconditioner but with sparse Jacobian (EID)", ""},
    {"Auto",        "Automatic selection",                              ""},
};

} // namespace HYGRION
