#include <MM/MrcGAUSS.h>

#include <KOR/Exception.h>

#include <array>
#include <cmath>

namespace MM {

void MrcGAUSS::setData(const ModelDataContainer & model, double thetaEff) {
    try {
        m_density.setData(model);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "The parameters of the GAUSS model cannot be used.", "[MrcGAUSS::setData]");
    }
    m_thetaEff = thetaEff;
    m_wholes.clear();
    for (const auto & peak : m_density.peaks())
        m_wholes.push_back(integral(peak, std::fmax(0.0, peak.begin()), peak.end()));
}

double MrcGAUSS::value(double pC) const {
    double gone = 0;
    for (std::size_t i = 0; i < m_wholes.size(); ++i) {
        const MrcGAUSS_dpC::Peak & peak = m_density.peaks()[i];
        if (pC > 0)
            gone += pC >= peak.end() ? m_wholes[i] : integral(peak, std::fmax(0.0, peak.begin()), pC);
    }
    return m_thetaEff * std::fmax(0.0, 1 - gone);
}

double MrcGAUSS::integral(const MrcGAUSS_dpC::Peak & peak, double a, double b) const {
    if (!(b > a))
        return 0;
    constexpr std::size_t MIN_HALVINGS = 5;
    constexpr std::size_t MAX_HALVINGS = 16;
    std::array<double, MAX_HALVINGS + 1> table{}; // the last row of the extrapolation scheme
    const auto integrand = [&](double t) {
        const double x = a + (b - a) * (1 + 1.5 * t - 0.5 * t * t * t) / 2;
        return peak.value(x) * (1 - t * t);
    };
    // dx/dt = 3/4 (b - a)(1 - t^2); the ends carry no weight.
    const double scale = 0.75 * (b - a);
    double step = 1;
    double sum = integrand(0);
    double last = scale * step * sum;
    table[0] = last;
    for (std::size_t k = 1; k <= MAX_HALVINGS; ++k) {
        step /= 2;
        for (std::size_t i = 0; i < std::size_t{1} << k; ++i)
            sum += integrand(-1 + (1 + 2 * static_cast<double>(i)) * step);
        double below = table[0];
        table[0] = scale * step * sum;
        double factor = 1;
        for (std::size_t j = 1; j <= k; ++j) {
            factor *= 4;
            const double next = table[j - 1] + (table[j - 1] - below) / (factor - 1);
            below = table[j];
            table[j] = next;
        }
        const double value = table[k];
        if (k >= MIN_HALVINGS && std::abs(value - last) <= 16 * m_tolerance * std::abs(value))
            return value;
        last = value;
    }
    return last;
}

} // namespace MM
