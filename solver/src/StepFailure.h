#pragma once

#include <SOLVER/Simulation.h>

namespace SOLVER {

/// Tells why a simulation stands still: the cell, what goes on there, and what the user can change.
class StepFailure {
public:
    StepFailure(Simulation & simulation, const Integrator & integrator);
    const std::string & text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace SOLVER
