#pragma once

#include <HYGRION/NamedSet.h>

#include <optional>

class TiXmlElement;

namespace HYGRION {

/// How the equations are solved: the element "SolverParameter".
/// Only what the user gave is stored; what is missing follows from the table of defaults (HYGRION/Defaults.h).
class SolverSettings {
public:
    enum class para_t {
        MaxTimeStep,
        MinTimeStep,
        InitialTimeStep,
        RelTol,
        AbsTolEnergy,
        AbsTolMoisture,
        AbsTolAir,
        AbsTolSalt,
        AbsTolPollutant,
        NonlinSolverConvCoeff,
        IterativeSolverConvCoeff,
        MaxOrder,
        MaxNonlinIter,
        MaxKrylovDim,
        LESBandWidth,
        PreBandWidth,
        PreILUWidth
    };
    enum class flag_t { UseStabilityLimitDetection };
    enum class integrator_t { CVODE, ExplicitEuler, ImplicitEuler, ADI, RK, Auto };
    enum class lesSolver_t { BTridiag, Band, Dense, KLU, GMRES, BiCGStab, Auto };
    enum class precond_t { BTridiag, Band, ILU, ADI, ADIBoth, ADISparse, None, NoneWithJac, Auto };

    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag;
    std::optional<integrator_t> m_integrator;
    std::optional<lesSolver_t> m_lesSolver;
    std::optional<precond_t> m_precond;

    /// The given value or the default; the default of a time step never exceeds the longest step that was given.
    KOR::Parameter parameter(para_t key) const;
    bool isEnabled(flag_t key) const;
    integrator_t integrator() const;
    lesSolver_t lesSolver() const;
    precond_t preconditioner() const;

    /// Throws ("[SolverSettings::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends "SolverParameter"; nothing when all is left to the defaults.
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[SolverSettings::checkParameters]"), naming the parameter, values out of the table's limits and time
    /// steps that contradict one another.
    void checkParameters() const;

    bool operator==(const SolverSettings &) const = default;
};

} // namespace HYGRION
