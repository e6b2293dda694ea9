#pragma once

#include <MM/MaterialFunctionBase.h>
#include <MM/MrcVG.h>
#include <MM/Physics.h>

namespace MM {

class Material;

/// Moisture retention: liquid content Theta_l [m3/m3] over pC = log10(capillary pressure / Pa), over liquid pressure
/// pl = -10^pC [Pa] and, by the Kelvin law at T_REF, over relative humidity.
class MoistureStorage : public MaterialFunctionBase {
public:
    enum class Functions {
        Theta_l_pC_de, ///< desorption: content over pC
        pC_Theta_l_de, ///< its inverse
        Theta_l_RH,    ///< sorption isotherm: content over relative humidity [-]
        Theta_l_pC_ad, ///< adsorption branch
        pC_Theta_l_ad, ///< its inverse
        mwu_T,         ///< read and written only
        DE_pC          ///< read and written only
    };
    enum class ModelTypes { GAUSS, VAN_GENUCHTEN };

    /// Where the functions in use come from.
    enum class Kind { NONE, PC_DATA, PC_MODEL, RH_DATA };

    /// How Thetal_pl evaluates.
    enum Mode {
        MODE_NONE = -1, ///< not prepared
        MODE_PC,        ///< spline over pC
        MODE_MODEL,     ///< van Genuchten function
        MODE_RH,        ///< spline over relative humidity
        MODE_LINEAR     ///< straight line: air and materials that hold no moisture
    };

    /// Share of the saturated content from which on contents continue linearly to and beyond saturation.
    static constexpr double NEARLY_SATURATED = 1 - 1e-4;
    /// Driest state of a desorption curve [log10(Pa)].
    static constexpr double PC_DRY = 12;
    /// Largest deviation of derived functions from the Kelvin law, in parts of the saturated content.
    static constexpr double DERIVED_TOLERANCE = 1e-4;

    /// Contents closer together than this, in parts of the saturated one, are the same.
    static constexpr double SAME_CONTENT = 1e-12;

    MoistureStorage();

    /// Makes the functions ready to evaluate. Throws "Error initializing moisture storage functionality for
    /// calculation." ("[MoistureStorage::prepareCalculation]").
    void prepareCalculation(const Material & material);
    /// Evaluates a van Genuchten function directly (mode 1), without splines.
    /// \param thetaEff content at saturation [m3/m3]
    void useVanGenuchten(MrcVG model, double thetaEff);
    /// Checks the prepared functions. Throws ("[MoistureStorage::checkLimits]").
    void checkLimits(double thetaEff) const;

    Kind kind() const { return m_kind; }
    Mode mode() const { return m_mode; }
    bool isAir() const { return m_isAir; }
    /// Content at saturation [m3/m3]; for air that of saturated vapour at T_REF.
    double saturation() const { return m_c0; }
    /// c1 of Thetal_pl [1/Pa].
    double slopeAtSaturation() const { return m_c1; }
    /// c3 of Thetal_pl [Pa].
    double thresholdPressure() const { return m_c3; }

    /// Content [m3/m3] at a liquid pressure [Pa] and a temperature [K]. Throws "Unsupported type of moisture storage
    /// function or missing initialisation." ("[MoistureStorage::Thetal_pl]").
    ///
    /// By the mode, with the coefficients
    /// c0 = content at pl = 0 (the saturated content),
    /// c3 = the liquid pressure at NEARLY_SATURATED, c2 = the content there,
    /// c1 = (c0 - c2) / -c3, the slope [1/Pa] that leads from there to saturation and beyond.
    /// For air c0 is the saturated vapour and the line is the tangent to the Kelvin law at saturation: c1 = c0 / p,
    /// c2 = 0, c3 = -p with p = kelvinPressure(). All are 0 where nothing is held.
    double Thetal_pl(double liquidPressure, double temperature = T_REF) const;
    /// Liquid pressure [Pa] at a content [m3/m3]; for contents above saturation on the line of c1.
    double pl_Thetal(double content) const;

    // Conversions at T_REF. 0 for a material that is vapour tight and water tight.
    double Thetal_pC(double pC) const;       ///< content [m3/m3] at log10(pc / Pa)
    double RH_Thetal(double content) const;  ///< relative humidity [-]
    double pC_Thetal(double content) const;  ///< log10(pc / Pa)
    double Thetal_RH(double humidity) const; ///< content [m3/m3] at a relative humidity [-]

    /// Relative humidity over content, the inverse of Theta_l_RH.
    const KOR::LinearSpline & humidity() const { return m_humidity; }
    /// Number of points of the spline that a model generated, else 0.
    std::size_t generatedPoints() const { return m_generatedPoints; }

private:
    void prepareFunctions(double thetaEff);
    void denormalize(double thetaEff);
    static void extendToDry(KOR::LinearSpline & overPC);
    void generateFromModel(double thetaEff);
    void deriveFromPC(double thetaEff);
    void deriveFromRH(double thetaEff);
    void setSlopeAtSaturation(double thetaEff);

    Kind m_kind = Kind::NONE;
    Mode m_mode = MODE_NONE;
    bool m_isTight = false;
    bool m_isAir = false;
    double m_c0 = 0, m_c1 = 0, m_c2 = 0, m_c3 = 0;
    MrcVG m_vanGenuchten;
    KOR::LinearSpline m_humidity;
    std::size_t m_generatedPoints = 0;
};

} // namespace MM
