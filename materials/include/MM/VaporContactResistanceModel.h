#pragma once

#include <MM/MaterialFunctionBase.h>

#include <array>

namespace MM {

/// Vapour resistance of a foil that depends on humidity: a function for each direction of the vapour flow.
struct AdaptiveResistance {
    KOR::LinearSpline sd;                 ///< air layer thickness [m] over relative humidity [-]
    double weight = 0.5;                  ///< share of the upstream side in the humidity that counts
    std::array<double, 3> scale{0, 0, 1}; ///< a, b, c of the factor a phi^2 + b phi + c

    /// Equivalent air layer thickness [m] between two relative humidities [-], not below 0.
    double value(double upstream, double downstream) const;
    bool operator==(const AdaptiveResistance &) const = default;
};

/// Humidity-dependent vapour resistance of thin layers and foils, for vapour that flows in positive and negative
/// direction.
class VaporContactResistanceModel : public MaterialFunctionBase {
public:
    enum class Param {
        WEIGHT_FACTOR_POS,
        WEIGHT_FACTOR_NEG,
        SCALING_A_POS,
        SCALING_B_POS,
        SCALING_C_POS,
        SCALING_A_NEG,
        SCALING_B_NEG,
        SCALING_C_NEG
    };
    enum class Functions { sdPos_rh, sdNeg_rh };

    VaporContactResistanceModel();

    const KOR::Parameter & parameter(Param which) const { return m_parameters[indexOf(which)]; }
    void setParameter(Param which, double value);
    void clearParameter(Param which) { m_parameters[indexOf(which)].clear(); }

    /// The resistance for flow in positive direction or against it; that of the other direction where only one is given.
    AdaptiveResistance resistance(bool positive) const;
};

} // namespace MM
