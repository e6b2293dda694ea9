#pragma once

#include <MM/MrcGAUSS_dpC.h>

namespace MM {

/// Moisture retention of the multi-modal Gauss model: content over pC = log10(pc / Pa).
class MrcGAUSS {
public:
    /// Relative tolerance of the integration: a hundredth of the tightest tolerance of the splines made from it.
    static constexpr double TOLERANCE = 1e-7;

    /// \param thetaEff content at saturation [m3/m3]. Throws ("[MrcGAUSS::setData]") above the errors of MrcGAUSS_dpC.
    void setData(const ModelDataContainer & model, double thetaEff);

    const MrcGAUSS_dpC & density() const { return m_density; }
    /// Content [m3/m3]: the saturated one times what the density leaves of 1 up to pC.
    double value(double pC) const;

private:
    /// Integral of a peak from \p a to \p b: Romberg's extrapolation of the trapezoidal rule over t = -1..1 with
    /// x = a + (b - a)(1 + 1.5t - 0.5t^3)/2, whose weight 1 - t^2 takes the ends out. Each mode is integrated where it
    /// is, so that a narrow one cannot lie between the points.
    double integral(const MrcGAUSS_dpC::Peak & peak, double a, double b) const;

    MrcGAUSS_dpC m_density;
    std::vector<double> m_wholes; ///< integrals of the peaks from pC 0 to their ends
    double m_thetaEff = 0;
    double m_tolerance = TOLERANCE;
};

} // namespace MM
