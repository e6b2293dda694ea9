#pragma once

#include <SOLVER/Integrator.h>

namespace SOLVER {

/// Explicit one-step methods (ARKODE): Dormand and Prince 5(4), or Euler's. The error of a step, which an unstable step
/// makes large, controls its size. For small models and short times: stability binds the step to the square of the cells.
class ExplicitIntegrator : public Integrator {
public:
    /// Throws ("[ExplicitIntegrator::ExplicitIntegrator]") when the integrator cannot be set up.
    ExplicitIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                       const std::vector<double> & state);
    ~ExplicitIntegrator() override;
    ExplicitIntegrator(const ExplicitIntegrator &) = delete;
    ExplicitIntegrator & operator=(const ExplicitIntegrator &) = delete;

    double time() const override;
    std::span<const double> state() const override;
    double step(double limit) override;
    void interpolate(double time, std::span<double> state) const override;
    void restart() override;
    IntegratorStatistics statistics() const override;
    std::size_t limitingUnknown() const override;
    std::vector<Exchange> exchanged() const override;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

} // namespace SOLVER
