#pragma once

#include <MM/ModelDataContainer.h>

#include <vector>

namespace MM {

/// Density of the multi-modal Gauss retention model over pC = log10(pc / Pa): the share of the saturated content that
/// leaves a material per decade of capillary pressure.
class MrcGAUSS_dpC {
public:
    struct Mode {
        double weight = 0; ///< the modes' weights sum up to 1
        double radius = 0; ///< pore radius [m]
        double sigma = 0;  ///< standard deviation in decades of pC
        bool operator==(const Mode &) const = default;
    };

    /// Takes GAUSS_Wi, GAUSS_Ri and GAUSS_Si of a model block. Throws ("[MrcGAUSS_dpC::setData]")
    /// "Mismatching or missing GAUSS model parameters." and "Weight factors for MRC Gauss model sum up to %1, but sum
    /// should be 1."
    void setData(const ModelDataContainer & model);
    /// Throws the latter, and for a negative weight, a radius that is not above 0 and a deviation below 1e-6.
    void setData(std::vector<Mode> modes);

    /// The model block that setData takes.
    ModelDataContainer modelData() const;

    /// What one mode adds to the density. Beyond eight standard deviations nothing is left of it (7e-16).
    struct Peak {
        double centre = 0, height = 0, narrowness = 1; ///< height * exp(-((x - centre) * narrowness)^2)
        double value(double pC) const;
        double begin() const;
        double end() const;
    };

    const std::vector<Mode> & modes() const { return m_modes; }
    const std::vector<Peak> & peaks() const { return m_peaks; }
    /// [1/decade]
    double value(double pC) const;

private:
    std::vector<Mode> m_modes;
    std::vector<Peak> m_peaks;
};

} // namespace MM
