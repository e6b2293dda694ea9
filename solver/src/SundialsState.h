#pragma once

#include <SOLVER/Integrator.h>

#include <KOR/Exception.h>

#include <nvector/nvector_serial.h>
#include <sundials/sundials_context.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace SOLVER {

/// The values of a serial vector.
inline std::span<double> vectorValues(N_Vector v) {
    return {N_VGetArrayPointer(v), static_cast<std::size_t>(N_VGetLength(v))};
}

struct FreeVector {
    void operator()(N_Vector v) const { N_VDestroy(v); }
};
using Vector = std::unique_ptr<std::remove_pointer_t<N_Vector>, FreeVector>;

/// What a code of an integrator means to the user.
struct FailureReason {
    int code;
    const char * reason;
    const char * advice;
};

/// A model's state in the form in which the integrators of SUNDIALS carry it: the unknowns, behind them heat and water
/// that came in through each of Model::exchangeRates (see StepMatrix). These weigh nothing in the control of errors.
class SundialsState {
public:
    /// Throws (\p where) when the state does not fit the model or memory runs out.
    SundialsState(Model & model, const IntegratorSettings & settings, double startTime, std::span<const double> state,
                  const char * where);

    Model & model() const { return m_model; }
    SUNContext context() const { return m_context.get(); }
    N_Vector vector() const { return m_vector.get(); }
    N_Vector tolerances() const { return m_tolerances.get(); }
    double relativeTolerance() const { return m_relativeTolerance; }
    std::span<const double> unknowns() const { return vectorValues(vector()).first(m_model.size()); }
    std::vector<Exchange> exchanged() const;
    double time; ///< [s]

    /// The right-hand side of the extended state. \return false when it is not finite
    static bool rightHandSide(Model & model, double t, std::span<const double> y, std::span<double> ydot);

    /// The unknown with the largest of \p errors, which a function of the integrator fills, in units of its tolerance;
    /// the size of the state if there is none.
    template <typename Fill> std::size_t worstUnknown(Fill && fill) const {
        const Vector errors(N_VNew_Serial(N_VGetLength(vector()), context()));
        const Vector weights(N_VNew_Serial(N_VGetLength(vector()), context()));
        if (!errors || !weights || !fill(errors.get(), weights.get()))
            return m_model.size();
        return largest(vectorValues(errors.get()), vectorValues(weights.get()));
    }
    /// Throws (\p where) what is wrong and what the user can change. The unknown at fault is what limitingUnknown says.
    template <std::size_t N>
    [[noreturn]] static void fail(int code, const FailureReason (&reasons)[N], const char * where) {
        for (const FailureReason & known : reasons)
            if (known.code == code)
                throw KOR::Exception(KOR::text("%1 %2", known.reason, known.advice), where);
        throw KOR::Exception(KOR::text("The integrator stopped with code %1.", code), where);
    }

private:
    struct FreeContext {
        void operator()(SUNContext c) const { SUNContext_Free(&c); }
    };
    std::size_t largest(std::span<const double> errors, std::span<const double> weights) const;

    Model & m_model;
    double m_relativeTolerance;
    std::unique_ptr<std::remove_pointer_t<SUNContext>, FreeContext> m_context;
    Vector m_vector, m_tolerances;
};

} // namespace SOLVER
