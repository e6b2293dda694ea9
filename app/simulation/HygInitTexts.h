#pragma once

#include "HygInitForm.h"

/// What the option tabs show: one row a setting. Indices are those of the project's enumerations.
namespace HygInitTexts {

/// An item of a choice, by its keyword in the project file.
struct ChoiceRow {
    std::string_view keyword;
    const char * label;
};

using Form = HygInitForm;
using HYGRION::Init;
using Solver = HYGRION::SolverSettings;
using Interval = HYGRION::Interval;

template <typename Enum> constexpr int at(Enum value) {
    return static_cast<int>(value);
}

// clang-format off
inline constexpr Form::Row MODEL_OPTIONS[] = {
    {Form::HEADING, 0, QT_TR_NOOP("Balances"), nullptr},
    {Form::BALANCES, 0, QT_TR_NOOP("Balance equations:"),
     QT_TR_NOOP("Which balances are solved. Air, pollutants and salt can be stored in projects; the solver calculates heat and moisture.")},
    {Form::CONDUCTIVITY, 0, QT_TR_NOOP("Thermal conductivity:"),
     QT_TR_NOOP("The conductivity of the materials that counts: of the dry material, the design value, or growing with the water in it.")},
    {Form::PARAMETER, at(Init::para_t::IsothermalTRef), QT_TR_NOOP("Temperature of isothermal runs:"),
     QT_TR_NOOP("Temperature of the whole construction when moisture alone is calculated, usually 20 °C to 25 °C.")},
    {Form::TEXT, Form::FLUX_MODULES, QT_TR_NOOP("Flux modules:"),
     QT_TR_NOOP("Modules of transport, separated by commas; \"name = other\" stands in for another module. Usually empty.")},
    {Form::TEXT, Form::SOURCE_MODULES, QT_TR_NOOP("Source modules:"),
     QT_TR_NOOP("Modules of sources, separated by commas; \"name = other\" stands in for another module. Usually empty.")},

    {Form::HEADING, 0, QT_TR_NOOP("Simulated time"), nullptr},
    {Form::INTERVAL, at(Interval::para_t::Start), QT_TR_NOOP("Start:"),
     QT_TR_NOOP("Time since 1 January of the start year at which the simulation begins; empty for 0. With 273 d it begins on 1 October.")},
    {Form::INTERVAL, at(Interval::para_t::Duration), QT_TR_NOOP("Duration:"),
     QT_TR_NOOP("How long is simulated, usually 1 to 10 years (\"3 a\"). Give either this or the end.")},
    {Form::INTERVAL, at(Interval::para_t::End), QT_TR_NOOP("End:"),
     QT_TR_NOOP("Time since 1 January of the start year at which the simulation ends. Give either this or the duration.")},
    {Form::INTEGER, at(Init::intpara_t::StartYear), QT_TR_NOOP("Start year:"),
     QT_TR_NOOP("Year of the calendar in which the simulation starts. Climates that repeat every year fit to any.")},

    {Form::HEADING, 0, QT_TR_NOOP("Initial state"), nullptr},
    {Form::INITIAL_STATE, at(Init::defaultInitialCondition_t::DefaultTemperature), QT_TR_NOOP("Initial temperature:"),
     QT_TR_NOOP("Where no initial condition is assigned; usually 10 °C to 20 °C.")},
    {Form::INITIAL_STATE, at(Init::defaultInitialCondition_t::DefaultRelativeHumidity), QT_TR_NOOP("Initial relative humidity:"),
     QT_TR_NOOP("Where no initial condition is assigned; usually 50 % to 80 %, more in wet masonry.")},

    {Form::HEADING, 0, QT_TR_NOOP("Climate and place"), nullptr},
    {Form::FILE_PATH, Form::CLIMATE_FILE, QT_TR_NOOP("Climate data file:"),
     QT_TR_NOOP("The weather of the place (c6b, epw, wac, dat), from which all climate conditions of the kind CCM are taken.")},
    {Form::FLAG, at(Init::flag_t::UseCustomLocation), QT_TR_NOOP("Use a place of its own instead of the climate file's"),
     QT_TR_NOOP("The sun is calculated for the place given below.")},
    {Form::PARAMETER, at(Init::para_t::Latitude), QT_TR_NOOP("Latitude:"),
     QT_TR_NOOP("Latitude of the place, north is positive. Counts only with a place of its own.")},
    {Form::PARAMETER, at(Init::para_t::Longitude), QT_TR_NOOP("Longitude:"),
     QT_TR_NOOP("Longitude of the place, east is positive. Counts only with a place of its own.")},
    {Form::PARAMETER, at(Init::para_t::Height), QT_TR_NOOP("Height above sea level:"),
     QT_TR_NOOP("Height of the place. Counts only with a place of its own.")},
    {Form::INTEGER, at(Init::intpara_t::TimeZone), QT_TR_NOOP("Time zone:"),
     QT_TR_NOOP("Hours before Greenwich, 1 for Central Europe. Counts only with a place of its own.")},
    {Form::PARAMETER, at(Init::para_t::Albedo), QT_TR_NOOP("Albedo of the ground:"),
     QT_TR_NOOP("Share of the sun that the surroundings reflect: about 0.2 for grass, 0.7 for fresh snow.")},

    {Form::HEADING, 0, QT_TR_NOOP("Physics"), nullptr},
    {Form::FLAG, at(Init::flag_t::UseIce), QT_TR_NOOP("Water may freeze"),
     QT_TR_NOOP("Ice in equilibrium with the water of the pores. Needed for frost questions; makes runs slower.")},
    {Form::FLAG, at(Init::flag_t::PreventOverfilling), QT_TR_NOOP("Pores cannot be overfilled"),
     QT_TR_NOOP("Keeps states that the equations alone would allow within the volume of the pores.")},
    {Form::FLAG, at(Init::flag_t::UseUpperTemperatureLimit), QT_TR_NOOP("Stop at 100 °C"),
     QT_TR_NOOP("A run that heats a part above 100 °C ends with an error, since boiling is outside of the model.")},
    {Form::FLAG, at(Init::flag_t::UseBouyancyLiquid), QT_TR_NOOP("Gravity acts on water"),
     QT_TR_NOOP("Matters in coarse pores and tall parts only.")},
    {Form::FLAG, at(Init::flag_t::UseBouyancyGas), QT_TR_NOOP("Gravity acts on air"),
     QT_TR_NOOP("Matters for air flow in cavities only.")},
    {Form::FLAG, at(Init::flag_t::UseKirchhoffPotential), QT_TR_NOOP("Use the Kirchhoff potential"),
     QT_TR_NOOP("Liquid transport by the integral of the conductivity; helps where it changes by powers of ten within a cell.")},
    {Form::FLAG, at(Init::flag_t::UseStrictMaterialChecks), QT_TR_NOOP("Strict checks of materials"),
     QT_TR_NOOP("Transport functions that are not strictly monotone are refused. Measured ones seldom are.")},

    {Form::HEADING, 0, QT_TR_NOOP("Salt"), nullptr},
    {Form::FILE_PATH, Form::SALT_DATABASE, QT_TR_NOOP("Salt database:"), QT_TR_NOOP("File with the data of the salts.")},
    {Form::TEXT, Form::SALT_SPECIES, QT_TR_NOOP("Salts:"), QT_TR_NOOP("Identifiers of the salts in the database, separated by blanks.")},

    {Form::HEADING, 0, QT_TR_NOOP("Pollutant (VOC)"), nullptr},
    {Form::FILE_PATH, Form::VOC_DATABASE, QT_TR_NOOP("VOC database:"), QT_TR_NOOP("File with the data of the pollutants.")},
    {Form::TEXT, Form::VOC_ID, QT_TR_NOOP("Pollutant:"), QT_TR_NOOP("Identifier of the pollutant in the database.")},
    {Form::TEXT, Form::VOC_MAPPING, QT_TR_NOOP("Pollutant data of materials:"),
     QT_TR_NOOP("Pairs \"material==data\", separated by commas: the name of a material and the identifier of its data.")},
};

inline constexpr Form::Row SOLVER_OPTIONS[] = {
    {Form::HEADING, 0, QT_TR_NOOP("Method"), nullptr},
    {Form::INTEGRATOR, 0, QT_TR_NOOP("Integrator:"),
     QT_TR_NOOP("How the equations are carried through time. \"Automatic\" is right unless methods are to be compared.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::MaxOrder), QT_TR_NOOP("Highest order:"),
     QT_TR_NOOP("Of the multi-step method (CVODE). Lower orders are more robust and need more steps.")},
    {Form::SOLVER_FLAG, at(Solver::flag_t::UseStabilityLimitDetection), QT_TR_NOOP("Detect limits of stability"),
     QT_TR_NOOP("Lowers the order where the multi-step method might swing. Rarely of use.")},

    {Form::HEADING, 0, QT_TR_NOOP("Time steps"), nullptr},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::MaxTimeStep), QT_TR_NOOP("Longest step:"),
     QT_TR_NOOP("So that no shower is stepped over; 30 min to 1 h with hourly climate data, more in steady climates.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::InitialTimeStep), QT_TR_NOOP("First step:"),
     QT_TR_NOOP("Also after jumps of the climate. Grows by itself.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::MinTimeStep), QT_TR_NOOP("Shortest step:"),
     QT_TR_NOOP("A run that needs shorter steps ends with an error.")},

    {Form::HEADING, 0, QT_TR_NOOP("Accuracy"), nullptr},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::RelTol), QT_TR_NOOP("Relative tolerance:"),
     QT_TR_NOOP("Error of a step relative to the content of a cell; usually 1e-4 (fast) to 1e-7 (exact).")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::AbsTolEnergy), QT_TR_NOOP("Tolerance of energy:"),
     QT_TR_NOOP("Error of a step in a cubic metre that does not matter however small the content.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::AbsTolMoisture), QT_TR_NOOP("Tolerance of moisture:"),
     QT_TR_NOOP("Error of a step in a cubic metre that does not matter however small the content; usually 1e-7 kg to 1e-4 kg.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::AbsTolAir), QT_TR_NOOP("Tolerance of air:"),
     QT_TR_NOOP("Counts only where air is balanced.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::AbsTolSalt), QT_TR_NOOP("Tolerance of salt:"),
     QT_TR_NOOP("Counts only where salt is balanced.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::AbsTolPollutant), QT_TR_NOOP("Tolerance of the pollutant:"),
     QT_TR_NOOP("Counts only where a pollutant is balanced.")},

    {Form::HEADING, 0, QT_TR_NOOP("Iterations within a step"), nullptr},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::MaxNonlinIter), QT_TR_NOOP("Most iterations:"),
     QT_TR_NOOP("A step that needs more is taken again, shorter.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::NonlinSolverConvCoeff), QT_TR_NOOP("Convergence limit:"),
     QT_TR_NOOP("Share of the tolerance that the iterations may leave.")},
};

inline constexpr Form::Row PERFORMANCE_OPTIONS[] = {
    {Form::HEADING, 0, QT_TR_NOOP("Linear equations"), nullptr},
    {Form::LINEAR_SOLVER, 0, QT_TR_NOOP("Solver of the linear equations:"),
     QT_TR_NOOP("\"Automatic\" knows the size of the problem: block-tridiagonal in one dimension, sparse in two, iterative for the largest.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::LESBandWidth), QT_TR_NOOP("Width of the band:"),
     QT_TR_NOOP("Of the band solver; 0 takes what the grid needs.")},

    {Form::HEADING, 0, QT_TR_NOOP("Iterative solvers"), nullptr},
    {Form::PRECONDITIONER, 0, QT_TR_NOOP("Preconditioner:"),
     QT_TR_NOOP("What makes the iterative solvers converge. Counts only with GMRES and BiCGStab.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::MaxKrylovDim), QT_TR_NOOP("Most iterations (Krylov dimension):"),
     QT_TR_NOOP("Usually 20 to 100; more takes memory.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::IterativeSolverConvCoeff), QT_TR_NOOP("Convergence limit (linear):"),
     QT_TR_NOOP("Share of the nonlinear tolerance that the linear iterations may leave.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::PreBandWidth), QT_TR_NOOP("Width of the band preconditioner:"),
     QT_TR_NOOP("To either side of the diagonal; wider ones converge in fewer iterations that take longer.")},
    {Form::SOLVER_PARAMETER, at(Solver::para_t::PreILUWidth), QT_TR_NOOP("Fill-in of the incomplete factors:"),
     QT_TR_NOOP("Levels of fill-in of the ILU preconditioner; usually 0 to 2.")},
};

inline constexpr ChoiceRow CHOICES[] = {
    {"HeatTransport",            QT_TR_NOOP("Heat")},
    {"MoistureTransport",        QT_TR_NOOP("Moisture at constant temperature")},
    {"HeatMoistureTransport",    QT_TR_NOOP("Heat and moisture")},
    {"HeatAirMoistureTransport", QT_TR_NOOP("Heat, air and moisture")},
    {"HeatMoistureVOCTransport", QT_TR_NOOP("Heat, moisture and a pollutant")},
    {"HeatMoistureSaltTransport", QT_TR_NOOP("Heat, moisture and salt")},
    {"LambdaDry",                QT_TR_NOOP("Of the dry material")},
    {"LambdaDesign",             QT_TR_NOOP("Design value")},
    {"LambdaMoistureDependent",  QT_TR_NOOP("Growing with moisture")},
    {"CVODE",                    QT_TR_NOOP("Multi-step method (CVODE)")},
    {"ExplicitEuler",            QT_TR_NOOP("Explicit Euler")},
    {"ImplicitEuler",            QT_TR_NOOP("Implicit Euler")},
    {"ADI",                      QT_TR_NOOP("Alternating directions (ADI)")},
    {"RK",                       QT_TR_NOOP("Runge-Kutta")},
    {"Auto",                     QT_TR_NOOP("Automatic")},
    {"BTridiag",                 QT_TR_NOOP("Block-tridiagonal")},
    {"Band",                     QT_TR_NOOP("Band")},
    {"Dense",                    QT_TR_NOOP("Dense")},
    {"KLU",                      QT_TR_NOOP("Sparse (KLU)")},
    {"GMRES",                    QT_TR_NOOP("Iterative (GMRES)")},
    {"BiCGStab",                 QT_TR_NOOP("Iterative (BiCGStab)")},
    {"ILU",                      QT_TR_NOOP("Incomplete factors (ILU)")},
    {"ADIBoth",                  QT_TR_NOOP("Alternating directions, from both sides")},
    {"ADISparse",                QT_TR_NOOP("Alternating directions, without reordering")},
    {"None",                     QT_TR_NOOP("None, without matrix")},
    {"NoneWithJac",              QT_TR_NOOP("None, with sparse matrix")},
};
// clang-format on

} // namespace HygInitTexts
