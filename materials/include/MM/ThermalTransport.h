#pragma once

#include <MM/MaterialFunctionBase.h>

namespace MM {

class Material;

/// Heat conduction in one material direction.
class ThermalTransport : public MaterialFunctionBase {
public:
    enum class Functions {
        lambda_Theta_l,  ///< conductivity [W/mK] over content [m3/m3]
        lambda_T,        ///< over temperature [K]
        lambda_Theta_ice ///< over ice content [m3/m3]
    };

    ThermalTransport();

    /// Scales the normalised functions. lambda(Theta_l) is normalised when its x runs from 0 to 1 and its first y is 0
    /// (share added to LAMBDA) or 1 (factor on LAMBDA); x is then scaled with THETA_EFF. lambda(T) is normalised when its
    /// x starts at 0 (C) and its first y is 0 or 1. Tolerance 0.001. Throws ("[ThermalTransport::denormalize]").
    void denormalize(const Material & material, int direction);
    /// Throws ("[ThermalTransport::prepareCalculation]").
    void prepareCalculation(const Material & material, int direction);
    void write(std::ostream & out, std::size_t indent, int direction) const;

    double lambdaDry() const { return m_dry; } ///< [W/mK]
    /// Conductivity [W/mK]: LAMBDA and what each function that is given adds to it.
    double lambda(double content, double temperature, double iceContent = 0) const;

private:
    double m_dry = 0;
};

} // namespace MM
