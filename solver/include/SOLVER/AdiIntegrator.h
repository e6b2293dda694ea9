#pragma once

#include <SOLVER/Integrator.h>

namespace SOLVER {

/// Alternating directions: a linearly implicit method of second order with two stages, whose matrix is the product of its
/// parts along x, y and z, so that a step solves nothing but block-tridiagonal systems and iterates nowhere. It is
/// of second order with any approximation of the Jacobian (Verwer, Spee, Blom, Hundsdorfer, SIAM J. Sci. Comput. 20
/// (1999) 1456), and what cells gain is what comes in, to round-off.
class AdiIntegrator : public Integrator {
public:
    /// Throws ("[AdiIntegrator::AdiIntegrator]") when the state does not fit the model or memory runs out.
    AdiIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                  const std::vector<double> & state);
    ~AdiIntegrator() override;
    AdiIntegrator(const AdiIntegrator &) = delete;
    AdiIntegrator & operator=(const AdiIntegrator &) = delete;

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
