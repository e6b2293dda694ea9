#pragma once

#include <SOLVER/Curve.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace SOLVER {

/// What the balances need to know about a material: functions of pC = log10(suction / Pa), at T_REF.
struct MaterialFunctions {
    using Function = std::function<double(double)>;
    std::string name;
    double heatCapacity = 1e6;    ///< of the dry material [J/m3K]
    Function moisture;            ///< moisture mass density [kg/m3], falling with pC
    Function liquidConductivity;  ///< on the gradient of suction [s]
    Function vaporPermeability;   ///< on the gradient of vapour pressure [s]
    Function thermalConductivity; ///< [W/mK]

    /// Material directions v and w, where they differ from u, which is the above; what is empty is as along u.
    struct Transport {
        Function liquidConductivity, vaporPermeability, thermalConductivity;
    };
    std::array<std::optional<Transport>, 2> otherDirections{};

    Function enthalpy{};                  ///< of the dry material over temperature [K], [J/m3], 0 at T_ZERO; or empty
    Function conductivityByTemperature{}; ///< added to the thermal conductivity over temperature [K]; or empty
    Function conductivityByIce{};         ///< added to it over the volume content of ice [m3/m3]; or empty, then
                                          ///< ice conducts as the water did from which it froze
};

/// A material's functions in the form in which cells evaluate them: piecewise cubics over one common set of nodes,
/// equidistant in pC. One search of the interval, then a few multiplications; no allocation, no virtual call.
///
/// From 1 - 1e-4 of saturation on the suction falls linearly with the moisture content, through zero, and the
/// conductivities keep their values: a wetted cell stays a regular state.
class MaterialTable {
public:
    /// Throws ("[MaterialTable::MaterialTable]") when a function is not finite or a conductivity negative.
    explicit MaterialTable(const MaterialFunctions & functions);

    /// The transport state of a cell.
    struct State {
        double suction;   ///< [Pa]; negative when overfilled
        double potential; ///< integral of the liquid conductivity over suction, from here to the dry end [kg/ms]
        double vapor;     ///< vapour permeability [s]
        double lambda;    ///< thermal conductivity [W/mK]
    };
    /// Integrals over relative humidity at T_REF: their differences give the mean conductivities on the way between two
    /// humidities.
    struct Integrals {
        double vapor;  ///< [s]
        double lambda; ///< [W/mK]
    };
    /// The same at a suction, with derivatives with respect to it.
    struct Slopes {
        double liquid; ///< liquid conductivity [s], minus the derivative of the potential
        double vapor;  ///< [s/Pa]
        double lambda; ///< [W/mKPa]
    };

    /// The state at a moisture mass density [kg/m3]. \param interval where to look first; set to where it was found
    State fromMoisture(double moisture, std::uint32_t & interval) const;
    /// The state at a suction [Pa].
    State fromSuction(double suction, Slopes & slopes) const;
    Integrals integrals(double suction) const;
    /// The moisture mass density [kg/m3] at a suction [Pa]: the exact inverse of fromMoisture.
    double moisture(double suction) const;
    /// The derivative of the above [kg/m3Pa].
    double capacity(double suction) const;

    /// The same material as it conducts along its direction 0 u, 1 v, 2 w. All have one moisture storage.
    const MaterialTable & along(int direction) const {
        return direction == 0 || !m_others[static_cast<std::size_t>(direction - 1)]
                   ? *this
                   : *m_others[static_cast<std::size_t>(direction - 1)];
    }
    bool isAnisotropic() const { return m_others[0] || m_others[1]; }

    const std::string & name() const { return m_name; }
    /// A number that is another one when any value of the material is.
    std::uint32_t fingerprint() const;
    double heatCapacity() const { return m_heatCapacity; } ///< around 20 C [J/m3K]
    /// Enthalpy of the dry material [J/m3] at a temperature [K], 0 at T_ZERO. \param slope of it [J/m3K]
    double enthalpy(double T, double & slope) const;
    /// The temperature [K] at which dry material and water of a heat capacity [J/m3K] hold an energy [J/m3].
    double temperature(double energy, double waterCapacity) const;
    /// What temperature adds to the thermal conductivity [W/mK]. \param slope of it [W/mK2]
    double lambdaByTemperature(double T, double & slope) const { return m_lambdaByTemperature.value(T, slope); }
    bool hasLambdaByTemperature() const { return !m_lambdaByTemperature.isEmpty(); }
    /// What ice [m3/m3] adds to the thermal conductivity; none, if ice conducts as water.
    const Curve & lambdaByIce() const { return m_lambdaByIce; }
    double saturation() const { return m_saturation; }
    bool conductsLiquid() const { return m_conductsLiquid; }
    /// Neither holds water nor lets any through, so that no humidity is defined in it.
    bool isTight() const { return m_isTight; }

private:
    struct Node {
        double moisture;
        double inverseSlope;              ///< dpC / dmoisture
        double potential, potentialSlope; ///< and d/dpC
        double vapor, vaporSlope;
        double lambda, lambdaSlope;
    };
    struct IntegralNode {
        double vapor, vaporSlope;
        double lambda, lambdaSlope;
    };
    State interpolate(std::size_t interval, double t, double suction) const;
    State wetState(double suction) const;
    /// The interval of a suction in which it lies, and where in it (0 to 1).
    std::size_t locate(double suction, double & t) const;

    std::string m_name;
    double m_heatCapacity;
    double m_saturation = 0;   ///< [kg/m3]
    double m_pCStart = 0;      ///< of the first (wettest) node
    double m_suctionStart = 0; ///< [Pa]
    double m_wetSlope = 0;     ///< dsuction / dmoisture of the linear extension, negative
    double m_wetConductivity = 0;
    double m_wetHumidity = 0; ///< relative humidity of the first node at T_REF
    bool m_conductsLiquid = false, m_isTight = true;
    std::vector<Node> m_nodes;
    std::vector<IntegralNode> m_integralNodes;
    std::array<std::shared_ptr<const MaterialTable>, 2> m_others; ///< along v and w; null where it is as along u
    Curve m_enthalpy, m_lambdaByTemperature, m_lambdaByIce;
};

} // namespace SOLVER
