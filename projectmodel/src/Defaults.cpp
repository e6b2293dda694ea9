#include <HYGRION/Defaults.h>

#include <KOR/Exception.h>

#include <algorithm>

namespace HYGRION {

namespace {

constexpr std::string_view INIT_PARA = "Init::para_t";
constexpr std::string_view INIT_INT = "Init::intpara_t";
constexpr std::string_view INIT_FLAG = "Init::flag_t";
constexpr std::string_view INIT_STATE = "Init::defaultInitialCondition_t";
constexpr std::string_view SOLVER = "SolverSettings::para_t";

// clang-format off
//  category    keyword                     value  unit   min         max        reason
constexpr DefaultRow ROWS[] = {
    {INIT_PARA,  "IsothermalTRef",           20,    "C",   -50,        100,       "laboratory temperature of most material data"},
    {INIT_PARA,  "Longitude",                13.4,  "Deg", -180,       180,       "Central Europe; counts only with UseCustomLocation"},
    {INIT_PARA,  "Latitude",                 52.5,  "Deg", -90,        90,        "Central Europe; counts only with UseCustomLocation"},
    {INIT_PARA,  "Height",                   100,   "m",   -500,       9000,      "lowland; counts only with UseCustomLocation"},
    {INIT_PARA,  "Albedo",                   0.2,   "---", 0,          1,         "grass and mixed ground"},
    {INIT_INT,   "StartYear",                2000,  "",    1,          9999,      "a round number for climates that repeat every year"},
    {INIT_INT,   "TimeZone",                 1,     "",    -12,        14,        "Central European Time, as the default location"},
    {INIT_FLAG,  "UseKirchhoffPotential",    0,     "",    0,          1,         "needs transport functions that can be integrated; the plain form holds for all"},
    {INIT_FLAG,  "UseBouyancyLiquid",        0,     "",    0,          1,         "gravity matters for coarse pores and tall parts only"},
    {INIT_FLAG,  "UseBouyancyGas",           0,     "",    0,          1,         "matters for air flow in cavities only"},
    {INIT_FLAG,  "PreventOverfilling",       1,     "",    0,          1,         "a pore cannot hold more water than its volume"},
    {INIT_FLAG,  "UseIce",                   0,     "",    0,          1,         "costs time; frost questions switch it on"},
    {INIT_FLAG,  "UseCustomLocation",        0,     "",    0,          1,         "the climate file knows its own location"},
    {INIT_FLAG,  "UseStrictMaterialChecks",  0,     "",    0,          1,         "measured functions are seldom strictly monotone"},
    {INIT_FLAG,  "UseUpperTemperatureLimit", 1,     "",    0,          1,         "boiling water is outside of all models"},
    {INIT_STATE, "DefaultTemperature",       20,    "C",   -50,        100,       "heated building"},
    {INIT_STATE, "DefaultRelativeHumidity",  80,    "%",   0,          100,       "equilibrium moisture content of common practice"},
    {SOLVER, "MaxTimeStep",              30,    "min", ABOVE_ZERO, UNLIMITED, "half a step of hourly climate data, so that no shower is stepped over"},
    {SOLVER, "MinTimeStep",              1e-8,  "s",   0,          UNLIMITED, "smaller steps mean that the equations cannot be solved"},
    {SOLVER, "InitialTimeStep",          0.01,  "s",   ABOVE_ZERO, UNLIMITED, "initial states and boundaries rarely agree; the integrator grows the step fast"},
    {SOLVER, "RelTol",                   1e-5,  "---", ABOVE_ZERO, 0.1,       "five digits: below every measuring error of material data"},
    {SOLVER, "AbsTolEnergy",             10,    "J",   ABOVE_ZERO, UNLIMITED, "in a cubic metre about 1e-5 K"},
    {SOLVER, "AbsTolMoisture",           1e-6,  "kg",  ABOVE_ZERO, UNLIMITED, "a thousandth of a gram in a cubic metre, less than dry air holds"},
    {SOLVER, "AbsTolAir",                1e-6,  "kg",  ABOVE_ZERO, UNLIMITED, "in a cubic metre about 0.1 Pa of air pressure"},
    {SOLVER, "AbsTolSalt",               1e-6,  "kg",  ABOVE_ZERO, UNLIMITED, "far below the salt content of a harmless wall"},
    {SOLVER, "AbsTolPollutant",          1e-12, "kg",  ABOVE_ZERO, UNLIMITED, "guideline values of rooms are a few micrograms in a cubic metre"},
    {SOLVER, "NonlinSolverConvCoeff",    0.1,   "---", ABOVE_ZERO, 1,         "the integrator's own choice"},
    {SOLVER, "IterativeSolverConvCoeff", 0.05,  "---", ABOVE_ZERO, 1,         "the integrator's own choice"},
    {SOLVER, "MaxOrder",                 5,     "---", 1,          5,         "highest stable order of backward differentiation"},
    {SOLVER, "MaxNonlinIter",            3,     "---", 1,          1000,      "the integrator's own choice; a smaller step is cheaper than more iterations"},
    {SOLVER, "MaxKrylovDim",             50,    "---", 1,          10000,     "enough for preconditioned grids, little memory"},
    {SOLVER, "LESBandWidth",             0,     "---", 0,          1e6,       "0: the band width of the grid"},
    {SOLVER, "PreBandWidth",             1,     "---", 0,          1e6,       "couples neighbours in the numbering direction"},
    {SOLVER, "PreILUWidth",              1,     "---", 0,          1000,      "one level of fill-in pays for itself on rectangular grids"},
    {"SolverSettings::flag_t", "UseStabilityLimitDetection", 0, "", 0, 1,     "diffusion is not oscillatory; the detection costs order"},
    {"SolverSettings::integrator_t",  "Auto",                    0, "", 0, 0, "the solver knows the size of the problem"},
    {"SolverSettings::lesSolver_t",   "Auto",                    0, "", 0, 0, "depends on size and dimension of the grid"},
    {"SolverSettings::precond_t",     "Auto",                    0, "", 0, 0, "depends on the linear solver"},
    {"Init::lambdaSelection_t",       "LambdaMoistureDependent", 0, "", 0, 0, "moist insulation insulates less"},
    {"Init::balanceEquationModule_t", "HeatMoistureTransport",   0, "", 0, 0, "the common question"},
};
// clang-format on

} // namespace

std::span<const DefaultRow> defaults() {
    return ROWS;
}

const DefaultRow & defaultOf(std::string_view category, std::string_view keyword) {
    const auto row = std::find_if(std::begin(ROWS), std::end(ROWS), [&](const DefaultRow & known) {
        return known.category == category && (keyword.empty() || known.keyword == keyword);
    });
    if (row == std::end(ROWS))
        throw KOR::Exception(KOR::text("No default for '%1' of '%2'.", keyword, category), "[HYGRION::defaultOf]");
    return *row;
}

} // namespace HYGRION
