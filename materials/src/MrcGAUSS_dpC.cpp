#include <MM/MrcGAUSS_dpC.h>

#include <MM/KeywordList.h>
#include <MM/ModelHandler.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/UnitList.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace MM {

namespace {

constexpr const char * WHERE = "[MrcGAUSS_dpC::setData]";
constexpr double SQRT_2PI = 2.506628;   ///< as the model fixes it
constexpr double TWICE_TENSION = 0.152; ///< twice the surface tension of water [N/m], as the model fixes it
constexpr double WEIGHT_TOLERANCE = 0.0001;
constexpr std::size_t MAX_MODES = 100;
constexpr double MIN_SIGMA = 1e-6;                ///< [decades], far below that of any material
constexpr double REACH = 8 / std::numbers::sqrt2; ///< of a peak, in parts of 1 / narrowness

} // namespace

void MrcGAUSS_dpC::setData(const ModelDataContainer & model) {
    const std::vector<double> weights = model.values("GAUSS_Wi");
    const std::vector<double> radii = model.values("GAUSS_Ri");
    const std::vector<double> deviations = model.values("GAUSS_Si");
    const std::size_t count = std::min({weights.size(), radii.size(), deviations.size()});
    if (count == 0)
        throw KOR::Exception("Mismatching or missing GAUSS model parameters.", WHERE);
    std::vector<Mode> modes(count);
    for (std::size_t i = 0; i < count; ++i)
        modes[i] = {weights[i], radii[i], deviations[i]};
    setData(std::move(modes));
}

void MrcGAUSS_dpC::setData(std::vector<Mode> modes) {
    double sum = 0;
    std::vector<Peak> peaks;
    if (modes.size() > MAX_MODES)
        throw KOR::Exception(KOR::text("Expected at most %1 modes, found %2.", MAX_MODES, modes.size()), WHERE);
    for (const Mode & mode : modes) {
        if (!(mode.sigma >= MIN_SIGMA))
            throw KOR::Exception(
                KOR::text("Expected a standard deviation of at least %1, found %2.", MIN_SIGMA, mode.sigma), WHERE);
        if (!(mode.weight >= 0))
            throw KOR::Exception(KOR::text("Expected a weight of at least 0, found %1.", mode.weight), WHERE);
        sum += mode.weight;
        try {
            peaks.push_back({std::log10(TWICE_TENSION) - KOR::f_log10(mode.radius),
                             mode.weight / (mode.sigma * SQRT_2PI), 1 / (std::sqrt(2.0) * mode.sigma)});
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Expected a positive pore radius, found %1.", mode.radius), WHERE);
        }
    }
    if (std::abs(sum - 1) > WEIGHT_TOLERANCE)
        throw KOR::Exception(
            KOR::text("Weight factors for MRC Gauss model sum up to %1, but sum should be 1.", KOR::toString(sum, 6)),
            WHERE);
    m_modes = std::move(modes);
    m_peaks = std::move(peaks);
}

ModelDataContainer MrcGAUSS_dpC::modelData() const {
    std::vector<double> weights;
    std::vector<double> radii;
    std::vector<double> deviations;
    for (const Mode & mode : m_modes) {
        weights.push_back(mode.weight);
        radii.push_back(mode.radius);
        deviations.push_back(mode.sigma);
    }
    ModelDataContainer model;
    model.m_type = KeywordList::Keyword(ModelHandler::ModelIdentifier::GAUSS);
    model.set("GAUSS_MODALITY", KOR::toString(m_modes.size()));
    model.set("GAUSS_Wi", KOR::joinNumbers(weights));
    model.set("GAUSS_Ri", KOR::joinNumbers(radii));
    model.set("GAUSS_Si", KOR::joinNumbers(deviations));
    return model;
}

double MrcGAUSS_dpC::Peak::value(double pC) const {
    const double t = (pC - centre) * narrowness;
    return t * t < 700 ? height * std::exp(-t * t) : 0; // else below the smallest number
}

double MrcGAUSS_dpC::Peak::begin() const {
    return centre - REACH / narrowness;
}

double MrcGAUSS_dpC::Peak::end() const {
    return centre + REACH / narrowness;
}

double MrcGAUSS_dpC::value(double pC) const {
    double sum = 0;
    for (const Peak & peak : m_peaks)
        sum += peak.value(pC);
    return sum;
}

} // namespace MM
