#include <SOLVER/AdiIntegrator.h>
#include <SOLVER/CvodeIntegrator.h>
#include <SOLVER/ExplicitIntegrator.h>

#include <KOR/Exception.h>

namespace SOLVER {

void Integrator::advance(double end) {
    while (time() < end)
        step(end);
}

std::unique_ptr<Integrator> makeIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                                           const std::vector<double> & state) {
    switch (settings.integrator) {
    case integrator_t::automatic:
    case integrator_t::cvode:
    case integrator_t::implicitEuler: // the method of order one
        return std::make_unique<CvodeIntegrator>(model, settings, startTime, state);
    case integrator_t::explicitEuler:
    case integrator_t::rungeKutta:
        return std::make_unique<ExplicitIntegrator>(model, settings, startTime, state);
    case integrator_t::adi:
        return std::make_unique<AdiIntegrator>(model, settings, startTime, state);
    }
    throw KOR::Exception("Unknown integrator.", "[SOLVER::makeIntegrator]");
}

} // namespace SOLVER
