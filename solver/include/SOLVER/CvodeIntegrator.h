#pragma once

#include <SOLVER/Integrator.h>

namespace SOLVER {

/// Variable-order BDF with adaptive steps (CVODE) on a model. The Jacobian comes from differences over a colouring of
/// its true sparsity.
class CvodeIntegrator : public Integrator {
public:
    /// Throws ("[CvodeIntegrator::CvodeIntegrator]") when the integrator cannot be set up.
    CvodeIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                    const std::vector<double> & state);
    ~CvodeIntegrator() override;
    CvodeIntegrator(const CvodeIntegrator &) = delete;
    CvodeIntegrator & operator=(const CvodeIntegrator &) = delete;

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
