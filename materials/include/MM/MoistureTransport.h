#pragma once

#include <MM/MaterialFunctionBase.h>
#include <MM/Physics.h>

namespace MM {

class Material;

/// Liquid and vapour transport in one material direction. Formulas and sources: docs/material-functions.md.
class MoistureTransport : public MaterialFunctionBase {
public:
    enum class Functions {
        lgKl_Theta_l, ///< log10 of the liquid conductivity [s] over content [m3/m3]
        lgDl_Theta_l, ///< log10 of the liquid diffusivity [m2/s]
        lgKv_Theta_l, ///< log10 of the vapour permeability [s]
        mew_RH        ///< vapour diffusion resistance factor over relative humidity [-]
    };
    enum class ModelTypes { SERIAL_PARALLEL };

    /// Where vapour permeability comes from, by precedence.
    enum class VaporModel { NONE, KV_FUNCTION, MEW_FUNCTION, SERIAL_PARALLEL, CONSTANT };

    /// Tolerance within which a stored function counts as normalised.
    static constexpr double NORMALIZED_TOLERANCE = 0.001;

    MoistureTransport();

    /// Scales the normalised functions. Throws ("[MoistureTransport::denormalize]").
    /// \param direction 0, 1, 2 for u, v, w
    void denormalize(const Material & material, int direction);
    /// Makes the functions ready to evaluate. Throws ("[MoistureTransport::prepareCalculation]").
    void prepareCalculation(const Material & material, int direction);
    /// lgKl and lgDl must not fall. Throws ("[MoistureTransport::checkLiquidFunctionMonotony]").
    void checkLiquidFunctionMonotony(const std::string & materialName) const;
    /// Throws "Invalid material transport direction type!" ("[MoistureTransport::write]").
    void write(std::ostream & out, std::size_t indent, int direction) const;

    bool hasLiquid() const { return m_hasLiquid; }
    VaporModel vaporModel() const { return m_vaporModel; }

    // After prepareCalculation.
    double Kl(double content) const;                  ///< liquid conductivity [s], 0 for water tight materials
    double Dl(double content) const;                  ///< liquid diffusivity [m2/s], 0 where it is not given
    double Kv(double content, double humidity) const; ///< vapour permeability [s], 0 for vapour tight materials
    double mew(double content, double humidity) const { return KV_AIR / Kv(content, humidity); }
    /// Permeability of the dry material by the resistance factor [s].
    double dryKv() const { return m_dryKv; }
    double porosity() const { return m_porosity; }
    double parallelShare() const { return m_parallelShare; }
    /// Share of the dry permeability that is left at a content, by the serial-parallel model.
    double openPoreFactor(double content) const;

    /// The share of parallel pores by a model block SERIAL_PARALLEL. Throws ("[MoistureTransport::prepareCalculation]")
    /// for parameters that are no numbers and for a share that is not above 0 and up to 1.
    static double shareOf(const ModelDataContainer & model);

private:
    void prepareVapor(const Material & material, int direction);
    void deriveConductivity(const Material & material);

    bool m_hasLiquid = false;
    VaporModel m_vaporModel = VaporModel::NONE;
    double m_dryKv = 0;
    double m_porosity = 0;
    double m_parallelShare = 1; ///< SP_SP
};

} // namespace MM
