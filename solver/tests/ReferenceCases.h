#pragma once

#include <SOLVER/CvodeIntegrator.h>
#include <SOLVER/Model.h>
#include <SOLVER/Physics.h>

#include <cmath>
#include <functional>

/// Materials and set-ups of published cases, as formulas.
namespace reference {

inline const double KELVIN = SOLVER::kelvinPressure(SOLVER::T_REF);
inline double suctionAt(double humidity) {
    return -KELVIN * std::log(humidity);
}
inline double pascal(double pC) {
    return std::pow(10.0, pC);
}

/// Vapour permeability [s] of a material with the resistance factor \p mu, falling with saturation (EN 15026 Annex A).
inline double permeability(double mu, double moisture, double saturation) {
    const double s = 1 - moisture / saturation;
    return 26.1e-6 / mu * s / (0.503 * s * s + 0.497) / (SOLVER::R_VAPOR * SOLVER::T_REF);
}

/// EN 15026:2007 Annex A; also the load-bearing layer of the insulated roof.
inline SOLVER::MaterialFunctions loadBearing() {
    const auto w = [](double pC) { return 146 / std::pow(1 + std::pow(8e-8 * pascal(pC), 1.6), 0.375); };
    return {"load-bearing",
            1.824e6,
            w,
            [w](double pC) {
                const double z = w(pC) - 73;
                return std::exp(-39.2619 +
                                z * (0.0704 + z * (-1.742e-4 + z * (-2.7953e-6 + z * (-1.1566e-7 + z * 2.5969e-9)))));
            },
            [w](double pC) { return permeability(200, w(pC), 146); },
            [w](double pC) { return 1.5 + 0.0158 * w(pC); }};
}

/// Insulation of the insulated roof: no liquid transport.
inline SOLVER::MaterialFunctions insulation() {
    const auto w = [](double pC) { return 900 / std::sqrt(1 + std::pow(2e-4 * pascal(pC), 2)); };
    return {"insulation",
            73900,
            w,
            [](double) { return 0.0; },
            [w](double pC) { return permeability(9.6, w(pC), 900); },
            [w](double pC) { return 0.033 + 5.9e-4 * w(pC); }};
}

/// Isothermal drying with a constant diffusivity of 6e-10 m2/s.
inline SOLVER::MaterialFunctions constantDiffusivity() {
    return {"drying",
            525.0 * 800,
            [](double pC) { return 116 / std::pow(1 + pascal(pC) / KELVIN / 0.118, 0.869); },
            [](double pC) {
                return 6e-10 * 116 * 0.869 * std::pow(1 + pascal(pC) / KELVIN / 0.118, -1.869) / (KELVIN * 0.118);
            },
            [](double) { return 1e-15; },
            [](double) { return 0.15; }};
}

/// A plain conductor of heat that takes no part in moisture.
inline SOLVER::MaterialFunctions conductor(double lambda) {
    return {"conductor",
            1e6,
            [](double pC) { return std::max(1.0, 12 - pC); },
            nullptr,
            [](double) { return 2e-12; },
            [lambda](double) { return lambda; }};
}

/// A wall of unit area: cells of the given widths [m], a surface at either end.
inline SOLVER::ModelInput wall(const std::vector<double> & widths,
                               const std::vector<SOLVER::MaterialFunctions> & materials,
                               const std::function<std::uint32_t(double)> & materialAt, double temperature,
                               const std::function<double(std::uint32_t)> & suction) {
    SOLVER::ModelInput input;
    for (const SOLVER::MaterialFunctions & functions : materials)
        input.materials.emplace_back(functions);
    double x = 0;
    for (std::uint32_t i = 0; i < widths.size(); ++i) {
        const std::uint32_t material = materialAt(x + widths[i] / 2);
        input.cells.push_back({widths[i], material, temperature, suction(material)});
        if (i > 0)
            input.faces.push_back({i - 1, i, 1, widths[i - 1] / 2, widths[i] / 2, 0, {}, 0});
        x += widths[i];
    }
    input.surfaces.push_back({0, 1, widths.front() / 2, 0});
    input.surfaces.push_back({static_cast<std::uint32_t>(widths.size() - 1), 1, widths.back() / 2, 0});
    return input;
}

/// The value at \p x, interpolated between cell centres.
inline double at(double x, const std::vector<double> & widths, const std::function<double(std::size_t)> & value) {
    double centre = widths[0] / 2;
    for (std::size_t i = 0; i + 1 < widths.size(); ++i) {
        const double next = centre + (widths[i] + widths[i + 1]) / 2;
        if (x <= next) {
            const double share = (x - centre) / (next - centre);
            return (1 - share) * value(i) + share * value(i + 1);
        }
        centre = next;
    }
    return value(widths.size() - 1);
}

inline double total(const SOLVER::Model & model, std::span<const double> state, std::size_t unknown) {
    double sum = 0;
    for (std::size_t c = 0; c < model.cellCount(); ++c)
        sum += state[model.unknowns() * c + unknown] * model.input().cells[c].volume;
    return sum;
}

} // namespace reference
