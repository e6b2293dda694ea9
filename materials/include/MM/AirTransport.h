#pragma once

#include <MM/MaterialFunctionBase.h>

namespace MM {

class Material;

/// Air permeability in one material direction.
class AirTransport : public MaterialFunctionBase {
public:
    enum class Functions { Kg_Theta_l }; ///< permeability [s] over content [m3/m3]

    AirTransport();

    /// Throws "KG is necessary for air flow model." ("[AirTransport::prepareCalculation]").
    void prepareCalculation(const Material & material, int direction);
    /// Throws ("[AirTransport::checkLimits]") when a permeability is not above 0.
    void checkLimits(const std::string & materialName) const;
    void write(std::ostream & out, std::size_t indent, int direction) const;

    /// [s]: the function where there is one, else the parameter KG; 0 for air tight materials.
    double Kg(double content) const;

private:
    double m_dry = 0;
};

} // namespace MM
