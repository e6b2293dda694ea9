#include "ModelBuilder.h"

#include <SOLVER/Physics.h>

#include <KOR/MessageHandler.h>
#include <KOR/Time.h>

#include <cmath>
#include <numbers>

namespace SOLVER {

using HYGRION::Init;
using HYGRION::KeywordList;
using HYGRION::SolverSettings;
using KOR::text;

namespace {

/// Times the model's scale of energy, 1 K: what a cubic metre of a mineral material stores in it [J/m3K].
constexpr double TYPICAL_HEAT_CAPACITY = 1e6;

template <typename From, typename To> struct Choice {
    From from;
    To to;
};
template <typename From, typename To, std::size_t N> To translated(const Choice<From, To> (&table)[N], From from) {
    for (const auto & row : table)
        if (row.from == from)
            return row.to;
    refuse("Unknown solver setting.");
}

constexpr Choice<SolverSettings::integrator_t, integrator_t> INTEGRATORS[] = {
    {SolverSettings::integrator_t::CVODE,         integrator_t::cvode        },
    {SolverSettings::integrator_t::ExplicitEuler, integrator_t::explicitEuler},
    {SolverSettings::integrator_t::ImplicitEuler, integrator_t::implicitEuler},
    {SolverSettings::integrator_t::ADI,           integrator_t::adi          },
    {SolverSettings::integrator_t::RK,            integrator_t::rungeKutta   },
    {SolverSettings::integrator_t::Auto,          integrator_t::automatic    },
};
constexpr Choice<SolverSettings::lesSolver_t, linearSolver_t> LINEAR_SOLVERS[] = {
    {SolverSettings::lesSolver_t::BTridiag, linearSolver_t::blockTridiagonal},
    {SolverSettings::lesSolver_t::Band,     linearSolver_t::band            },
    {SolverSettings::lesSolver_t::Dense,    linearSolver_t::dense           },
    {SolverSettings::lesSolver_t::KLU,      linearSolver_t::sparse          },
    {SolverSettings::lesSolver_t::GMRES,    linearSolver_t::gmres           },
    {SolverSettings::lesSolver_t::BiCGStab, linearSolver_t::bicgstab        },
    {SolverSettings::lesSolver_t::Auto,     linearSolver_t::automatic       },
};
constexpr Choice<SolverSettings::precond_t, preconditioner_t> PRECONDITIONERS[] = {
    {SolverSettings::precond_t::BTridiag,    preconditioner_t::blockTridiagonal},
    {SolverSettings::precond_t::Band,        preconditioner_t::band            },
    {SolverSettings::precond_t::ILU,         preconditioner_t::ilu             },
    {SolverSettings::precond_t::ADI,         preconditioner_t::adi             },
    {SolverSettings::precond_t::ADIBoth,     preconditioner_t::adi             },
    {SolverSettings::precond_t::ADISparse,   preconditioner_t::adi             },
    {SolverSettings::precond_t::None,        preconditioner_t::none            },
    {SolverSettings::precond_t::NoneWithJac, preconditioner_t::noneWithJacobian},
    {SolverSettings::precond_t::Auto,        preconditioner_t::automatic       },
};

} // namespace

Construction buildConstruction(const HYGRION::Project & project) {
    return inContext("The project cannot be calculated.", [&] { return ModelBuilder(project).build(); });
}

Construction ModelBuilder::build() {
    m_project.checkReferences();
    m_project.GUISanityChecks();
    for (std::size_t a = 0; a < m_project.m_assignments.size(); ++a)
        checkAssignment(m_project.m_assignments.m_list[a], m_project.assignmentLabel(a));
    readSettings();
    m_driver = std::make_unique<ClimateDriver>(ClimateSignals(m_project, m_result.startTime, m_result.endTime));
    readGrid();
    makeCells();
    readContacts();
    makeFaces();
    makeSurfaces();
    coupleInterfaces();
    makeFieldConditions();
    makeGeometry();
    readIntegratorSettings();
    finishClimate();
    return std::move(m_result);
}

/// What would have no effect where it lies.
void ModelBuilder::checkAssignment(const HYGRION::Assignment & assignment, const std::string & label) {
    using HYGRION::Assignment;
    using Type = Assignment::type_t;
    const bool needsSide = assignment.m_type == Type::Interface || assignment.m_type == Type::ContactCondition;
    const bool hasSide = assignment.m_location != Assignment::location_t::Element &&
                         assignment.m_location != Assignment::location_t::Coordinate;
    const bool fits = needsSide ? hasSide : assignment.m_location == Assignment::location_t::Element;
    if (!fits && assignment.m_type != Type::Output)
        refuse(text("Assignment %1: type '%2' cannot be used with location '%3'; it needs %4.", label,
                    KeywordList::Keyword(assignment.m_type), KeywordList::Keyword(assignment.m_location),
                    needsSide ? "a side of cells" : "'Element'"));
}

module_t ModelBuilder::moduleOf(const Init & init) {
    const auto refuseModules = [](const std::vector<Init::Module> & modules, const char * kind) {
        for (const Init::Module & module : modules)
            refuse(text("%1 module '%2' is not known to the solver.", kind, module.m_name));
    };
    refuseModules(init.m_fluxModules, "Flux");
    refuseModules(init.m_sourceModules, "Source");
    using Module = Init::balanceEquationModule_t;
    switch (const Module module = init.balanceEquationModule()) {
    case Module::HeatTransport:
        return module_t::heat;
    case Module::MoistureTransport:
        return module_t::moisture;
    case Module::HeatMoistureTransport:
        break;
    case Module::HeatAirMoistureTransport:
    case Module::HeatMoistureVOCTransport:
    case Module::HeatMoistureSaltTransport:
        refuse(text("Balance equation module '%1' is not available: the solver does not yet calculate the transport of "
                    "air, pollutants (VOC) and salt.",
                    KeywordList::Keyword(module)));
    }
    return module_t::heatAndMoisture;
}

void ModelBuilder::checkInterval(const Init & init) {
    if (!std::isfinite(init.m_interval.end()))
        refuse("The simulation interval has no end: parameter 'Duration' or 'End' is missing.");
}

void ModelBuilder::warnOfSettings(const Init & init) {
    const auto warn = [](const std::string & message) {
        KOR::message(message, KOR::MSG_WARNING, "[SOLVER::buildConstruction]");
    };
    if (init.isEnabled(Init::flag_t::UseBouyancyGas))
        warn("Flag 'UseBouyancyGas' has no effect: the flow of air is not calculated.");
    using Para = SolverSettings::para_t;
    if (init.m_solverSettings.m_para.contains(Para::LESBandWidth))
        warn(text("Parameter '%1' has no effect: band matrices are as wide as the grid asks for.",
                  KeywordList::Keyword(Para::LESBandWidth)));
}

void ModelBuilder::readSettings() {
    const Init & init = m_project.m_init;
    init.checkParameters();
    m_result.input.module = moduleOf(init);
    checkInterval(init);
    warnOfSettings(init);
    m_materialOptions = {m_result.input.module, init.lambdaSelection(),
                         init.isEnabled(Init::flag_t::UseStrictMaterialChecks)};

    m_result.startYear = init.intParameter(Init::intpara_t::StartYear);
    m_result.startTime = init.m_interval.start();
    m_result.endTime = init.m_interval.end();

    m_result.input.useGravity = init.isEnabled(Init::flag_t::UseBouyancyLiquid);
    m_result.input.useIce = init.isEnabled(Init::flag_t::UseIce);
    const double reference = init.parameter(Init::para_t::IsothermalTRef).get_value("K");
    if (m_result.input.module == module_t::moisture)
        m_isothermalTemperature = reference;
    else if (init.m_para.contains(Init::para_t::IsothermalTRef) && m_result.input.module == module_t::heatAndMoisture) {
        if (std::fabs(reference - T_REF) > 1e-6)
            refuse("Parameter 'IsothermalTRef' lets the Kelvin relation and the vapour permeability refer to 20 C in "
                   "calculations of heat and moisture; other temperatures are not available.");
        m_result.input.useReferenceTemperature = true;
    }
}

void ModelBuilder::readIntegratorSettings() {
    using Para = SolverSettings::para_t;
    const SolverSettings & given = m_project.m_init.m_solverSettings;
    const auto number = [&](Para key) { return given.parameter(key).value(); };
    const auto count = [&](Para key) { return static_cast<int>(std::lround(number(key))); };
    IntegratorSettings & settings = m_result.integrator;
    settings.integrator = translated(INTEGRATORS, given.integrator());
    settings.linearSolver = translated(LINEAR_SOLVERS, given.lesSolver());
    settings.preconditioner = translated(PRECONDITIONERS, given.preconditioner());
    settings.relativeTolerance = number(Para::RelTol);
    settings.absoluteToleranceHeat = number(Para::AbsTolEnergy) / TYPICAL_HEAT_CAPACITY;
    settings.absoluteToleranceMoisture = number(Para::AbsTolMoisture);
    // Where nothing is tabulated the error control alone finds the step.
    if (given.m_para.contains(Para::MaxTimeStep) || m_driver->signals().hasData())
        settings.maxStep = number(Para::MaxTimeStep);
    settings.minStep = number(Para::MinTimeStep);
    settings.initialStep = number(Para::InitialTimeStep);
    settings.maxOrder = count(Para::MaxOrder);
    settings.maxNonlinearIterations = count(Para::MaxNonlinIter);
    settings.nonlinearCoefficient = number(Para::NonlinSolverConvCoeff);
    if (given.m_para.contains(Para::PreBandWidth))
        settings.preconditionerBandWidth = count(Para::PreBandWidth);
    settings.preconditionerFill = count(Para::PreILUWidth);
    settings.maxKrylovDimension = count(Para::MaxKrylovDim);
    settings.iterativeCoefficient = number(Para::IterativeSolverConvCoeff);
    settings.useStabilityLimitDetection = given.isEnabled(SolverSettings::flag_t::UseStabilityLimitDetection);
}

void ModelBuilder::finishClimate() {
    m_driver->signals().finish();
    const std::shared_ptr<const ClimateDriver> driver = std::move(m_driver);
    m_result.input.climate = [driver, scratch = driver->makeScratch()](double time, ModelInput::Loads loads) mutable {
        driver->evaluate(time, scratch, loads);
    };
    m_result.pipeFlow = [driver, scratch = driver->makeScratch()](double time, std::size_t surface) mutable {
        return driver->pipeFlow(time, surface, scratch);
    };
    const auto jumps = std::make_shared<const JumpTable>(driver->jumps());
    m_result.nextJump = [jumps](double time) { return jumps->next(time); };
    m_result.isContinuousAt = [jumps](double time) { return jumps->isContinuousAt(time); };
}

} // namespace SOLVER
