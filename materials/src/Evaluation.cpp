#include <MM/Evaluation.h>

#include <MM/Material.h>

#include <KOR/Exception.h>

#include <algorithm>

namespace MM {

namespace {

using M = const Material &;

constexpr double T_LAMBDA = 283.15; ///< temperature of declared thermal conductivities [K]

/// Diffusivity; a material given by its conductivity has none of its own.
double diffusivity(M material, int direction, double content) {
    const MoistureTransport & transport = material.moistureTransport(direction);
    if (transport.hasLiquid() && transport.prepared(MoistureTransport::Functions::lgDl_Theta_l).empty())
        throw KOR::Exception("The material has no function lgDl(Theta_l).", "[MM::evaluation]");
    return transport.Dl(content);
}

/// Resistance of an adaptive foil with the same humidity on both sides.
double contactResistance(M material, bool positive, double humidity) {
    if (material.m_vaporContactResistance.empty())
        throw KOR::Exception("The material has no vapour contact resistance.", "[MM::evaluation]");
    return material.m_vaporContactResistance.resistance(positive).value(humidity, humidity);
}

// clang-format off
constexpr Evaluation EVALUATIONS[] = {
    {"Theta_l(RH)", "-",     "m3/m3", [](M m, int, double x) { return m.m_moistureStorage.Thetal_RH(x); }},
    {"Theta_l(pC)", "logPa", "m3/m3", [](M m, int, double x) { return m.m_moistureStorage.Thetal_pC(x); }},
    {"RH(Theta_l)", "m3/m3", "-",     [](M m, int, double x) { return m.m_moistureStorage.RH_Thetal(x); }},
    {"pC(Theta_l)", "m3/m3", "logPa", [](M m, int, double x) { return m.m_moistureStorage.pC_Thetal(x); }},
    {"Kl",          "m3/m3", "s",     [](M m, int d, double x) { return m.moistureTransport(d).Kl(x); }},
    {"Dl",          "m3/m3", "m2/s",  diffusivity},
    {"Kv",          "m3/m3", "s",
     [](M m, int d, double x) { return m.moistureTransport(d).Kv(x, m.m_moistureStorage.RH_Thetal(x)); }},
    {"mew(RH)",     "-",     "-",
     [](M m, int d, double x) { return m.moistureTransport(d).mew(m.m_moistureStorage.Thetal_RH(x), x); }},
    {"Kg",          "m3/m3", "s",     [](M m, int d, double x) { return m.airTransport(d).Kg(x); }},
    {"lambda",      "m3/m3", "W/mK",  [](M m, int d, double x) { return m.thermalTransport(d).lambda(x, T_LAMBDA); }},
    {"lambda(T)",   "K",     "W/mK",  [](M m, int d, double x) { return m.thermalTransport(d).lambda(0, x); }},
    {"lambda(Theta_ice)", "m3/m3", "W/mK",
     [](M m, int d, double x) { return m.thermalTransport(d).lambda(0, T_LAMBDA, x); }},
    {"u(T)",        "K",     "J/kg",  [](M m, int, double x) { return m.m_thermalStorage.u(x); }},
    {"T(u)",        "J/kg",  "K",     [](M m, int, double x) { return m.m_thermalStorage.T(x); }},
    {"sd+(rh)",     "-",     "m",     [](M m, int, double x) { return contactResistance(m, true, x); }},
    {"sd-(rh)",     "-",     "m",     [](M m, int, double x) { return contactResistance(m, false, x); }},
};
// clang-format on

} // namespace

std::span<const Evaluation> evaluations() {
    return EVALUATIONS;
}

std::string evaluationNames() {
    std::string all;
    for (const Evaluation & evaluation : EVALUATIONS)
        all += (all.empty() ? "" : " ") + std::string(evaluation.name);
    return all;
}

const Evaluation & evaluation(std::string_view name) {
    const auto * found = std::find_if(std::begin(EVALUATIONS), std::end(EVALUATIONS),
                                      [&](const Evaluation & row) { return row.name == name; });
    if (found == std::end(EVALUATIONS))
        throw KOR::Exception(KOR::text("Unknown function '%1', expected one of: %2.", name, evaluationNames()),
                             "[MM::evaluation]");
    return *found;
}

} // namespace MM
