#pragma once

#include <MM/MaterialFunctionBase.h>

namespace MM {

class Material;

/// Heat stored in the dry material.
class ThermalStorage : public MaterialFunctionBase {
public:
    enum class Functions { u_T }; ///< specific internal energy [J/kg] over temperature [K]

    ThermalStorage();

    /// Throws ("[ThermalStorage::prepareCalculation]").
    void prepareCalculation(const Material & material);

    double density() const { return m_density; }    ///< [kg/m3]
    double heatCapacity() const { return m_slope; } ///< CE [J/kgK]
    /// Specific energy [J/kg] at a temperature [K]: the function, continued with the slope CE beyond its ends; without
    /// one CE (T - 273.15 K).
    double u(double temperature) const;
    double T(double energy) const; ///< the inverse
    const KOR::LinearSpline & inverse() const { return m_inverse; }

private:
    double m_density = 0;
    double m_slope = 0;
    KOR::LinearSpline m_inverse;
};

} // namespace MM
