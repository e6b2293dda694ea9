#pragma once

#include <vector>

namespace MM {

/// Relative content of the multi-modal retention model of van Genuchten (Soil Sci. Soc. Am. J. 44, 1980).
class MrcVG {
public:
    struct Mode {
        double weight = 0; ///< the modes' weights sum up to 1
        double alpha = 0;  ///< [1/Pa]
        double n = 0;      ///< exponent, above 1
        bool operator==(const Mode &) const = default;
    };
    std::vector<Mode> m_modes;

    /// Content over saturated content at a liquid pressure [Pa], not above 0: the sum of
    /// w (1 + (-alpha pl)^n)^((1 - n)/n). Throws "Negative base in power function, base = %1" and
    /// "Exponent too large in power function, exponent = %1" ("[KOR::f_pow]").
    double value(double liquidPressure) const;

    bool operator==(const MrcVG &) const = default;
};

} // namespace MM
