#include <MM/MoistureStorage.h>

#include <MM/Material.h>
#include <MM/MrcGAUSS.h>

#include "BaseParameters.h"
#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>
#include <KOR/LinearSplineGenerator.h>

#include <algorithm>
#include <cmath>

namespace MM {

namespace {

using Functions = MoistureStorage::Functions;

constexpr const char * PREPARE = "[MoistureStorage::prepareCalculation]";
constexpr const char * CHECK = "[MoistureStorage::checkLimits]";

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "MoistureStorage::Functions",
    .parameters = {},
    .models = "MoistureStorage::ModelTypes",
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading moisture storage material data!",
    .where = "[MoistureStorage::read]",
    .whereWrite = "[MoistureStorage::write]",
};

/// Of the spline generated from a Gauss model.
constexpr double PC_GENERATED = 10;
constexpr double ABSOLUTE_TOLERANCE = 1e-05;
constexpr double RELATIVE_TOLERANCE = 0.0001;
constexpr std::size_t MAX_GENERATED = 10000;
/// What a Gauss model may leave at its dry end, in parts of the saturated content: its weights are given to 0.0001, and
/// the tails beyond the range are cut off.
constexpr double DRY_REMAINDER = 2e-4;

constexpr double NORMALIZED_TOLERANCE = 0.001;
/// Difference between the largest content and THETA_EFF that the digits of a file explain.
constexpr double SATURATION_TOLERANCE = 1e-6;

double capillaryPressure(double pC) {
    return std::pow(10.0, pC);
}
double humidityAt(double pC) {
    return relativeHumidity(-capillaryPressure(pC));
}
/// log10 of the capillary pressure; at and above saturation that of 1 Pa, where the curves begin.
double pCOf(double liquidPressure) {
    return liquidPressure < -1 ? std::log10(-liquidPressure) : 0;
}
double pCAt(double humidity) {
    return pCOf(liquidPressure(humidity));
}

/// The Gauss model as a spline. It is generated from mode to mode: stairs of narrow modes look straight at few samples.
KOR::LinearSpline generated(const MrcGAUSS & gauss) {
    std::vector<double> borders{0, PC_GENERATED};
    for (const auto & peak : gauss.density().peaks())
        if (peak.centre > 0 && peak.centre < PC_GENERATED)
            borders.push_back(peak.centre);
    borders = merged(std::move(borders), 1e-6);
    borders.back() = PC_GENERATED;
    std::vector<double> x{0};
    std::vector<double> y{gauss.value(0)};
    for (std::size_t i = 1; i < borders.size(); ++i) {
        KOR::LinearSpline part;
        const std::size_t forTheOthers = 2 * (borders.size() - 1 - i);
        KOR::LinearSplineGenerator::generate([&gauss](double pC) { return gauss.value(pC); }, borders[i - 1],
                                             borders[i], ABSOLUTE_TOLERANCE, RELATIVE_TOLERANCE,
                                             MAX_GENERATED - x.size() - forTheOthers, part);
        x.insert(x.end(), part.x().begin() + 1, part.x().end());
        y.insert(y.end(), part.y().begin() + 1, part.y().end());
    }
    return {x, y};
}

bool isNear(double value, double target) {
    return std::abs(value - target) <= NORMALIZED_TOLERANCE;
}

} // namespace

MoistureStorage::MoistureStorage() : MaterialFunctionBase(TEXTS) {}

void MoistureStorage::prepareCalculation(const Material & material) {
    using Flags = MaterialIdentification::Flags;
    log("Initializing moisture storage functions.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    m_kind = Kind::NONE;
    m_mode = MODE_NONE;
    m_c0 = m_c1 = m_c2 = m_c3 = 0;
    m_isTight = material.m_identification.isTight();
    m_isAir = material.hasFlag(Flags::AIR);
    m_generatedPoints = 0;
    resetPrepared(*this);
    m_humidity = KOR::LinearSpline();
    try {
        if (m_isTight) {
            m_mode = MODE_LINEAR;
        } else if (m_isAir) {
            m_mode = MODE_LINEAR;
            m_c0 = material.parameter(Material::ParaStorage::THETA_EFF).empty()
                       ? THETA_AIR
                       : requireParameter(material, Need::MOISTURE_STORAGE, 0, PREPARE);
            m_c1 = m_c0 / kelvinPressure();
            m_c3 = -kelvinPressure();
        } else {
            prepareFunctions(requireParameter(material, Need::MOISTURE_STORAGE, 0, PREPARE));
        }
    } catch (const KOR::Exception & ex) {
        m_mode = MODE_NONE;
        throw KOR::Exception(ex, "Error initializing moisture storage functionality for calculation.", PREPARE);
    }
}

void MoistureStorage::prepareFunctions(double thetaEff) {
    denormalize(thetaEff);
    if (has(Functions::Theta_l_pC_de)) {
        m_kind = Kind::PC_DATA;
    } else if (has(Functions::Theta_l_RH)) {
        m_kind = Kind::RH_DATA;
        deriveFromRH(thetaEff);
    } else if (!m_models.empty()) {
        generateFromModel(thetaEff);
        m_kind = Kind::PC_MODEL;
    }
    if (m_kind == Kind::PC_DATA || m_kind == Kind::PC_MODEL)
        deriveFromPC(thetaEff);
    log("Checking parameter and function limits.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    checkLimits(thetaEff);
    m_mode = m_kind == Kind::RH_DATA ? MODE_RH : MODE_PC;
    setSlopeAtSaturation(thetaEff);
}

void MoistureStorage::denormalize(double thetaEff) {
    if (isNear(thetaEff, 1))
        return;
    struct Rule {
        Functions which;
        std::string_view message;
    };
    constexpr Rule RULES[] = {
        {Functions::Theta_l_pC_de, "Denormalizing Theta_l(pC) spline.\n"},
        {Functions::Theta_l_pC_ad, "Denormalizing Theta_l(pC) spline.\n"},
        {Functions::pC_Theta_l_de, "Denormalizing pC(Theta_l) spline.\n"},
        {Functions::pC_Theta_l_ad, "Denormalizing pC(Theta_l) spline.\n"},
        {Functions::Theta_l_RH,    "Denormalizing Theta_l(rh) spline.\n"},
    };
    for (const auto & [which, message] : RULES) {
        KOR::LinearSpline & spline = preparedFunction(which);
        if (spline.empty())
            continue;
        const bool isInverse = which == Functions::pC_Theta_l_de || which == Functions::pC_Theta_l_ad;
        const auto & contents = isInverse ? spline.x() : spline.y();
        const bool isFalling = contents.front() > contents.back();
        if (!isNear(isFalling ? contents.front() : contents.back(), 1) ||
            !isNear(isFalling ? contents.back() : contents.front(), 0))
            continue;
        log(std::string(message), KOR::MSG_PROGRESS, PREPARE, DETAIL);
        spline = transformed(spline, isInverse ? thetaEff : 1, 0, isInverse ? 1 : thetaEff, 0);
    }
}

void MoistureStorage::extendToDry(KOR::LinearSpline & overPC) {
    if (overPC.y().back() != 0 || overPC.x().back() >= PC_DRY)
        return;
    std::vector<double> x = overPC.x();
    x.back() = PC_DRY;
    overPC = KOR::LinearSpline(x, overPC.y());
}

void MoistureStorage::generateFromModel(double thetaEff) {
    const auto & models = m_models.models();
    if (models.size() > 1)
        throw KOR::Exception("There must not be more than one moisture storage model parameter section.", PREPARE);
    const ModelDataContainer & model = models.front();
    if (!KeywordList::KeywordExists<ModelTypes>(model.m_type))
        throw KOR::Exception(KOR::text("Unknown MRC model type '%1'.", shown(model.m_type)), PREPARE);
    if (KeywordList::Enumeration<ModelTypes>(model.m_type) == ModelTypes::VAN_GENUCHTEN) {
        const KOR::Exception cause("VAN GENUCHTEN Model is recognized, but not supported yet.", PREPARE);
        throw KOR::Exception(
            cause, KOR::text("MRC Model type '%1' is recognized, but not supported yet.", model.m_type), PREPARE);
    }
    log("Generating MRC spline data from GAUSS model.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    MrcGAUSS gauss;
    gauss.setData(model, thetaEff);
    const KOR::LinearSpline spline = generated(gauss);
    // The integration is good to its tolerance, which could let neighbours on the plateau rise.
    std::vector<double> contents = monotone(spline, true).y();
    std::vector<double> pressures = spline.x();
    if (contents.back() > DRY_REMAINDER * thetaEff) {
        // Pores so fine that they empty beyond the range.
        pressures.push_back(PC_DRY);
        contents.push_back(0);
    }
    contents.back() = 0;
    preparedFunction(Functions::Theta_l_pC_de) = KOR::LinearSpline(pressures, contents);
    m_generatedPoints = spline.size();
    log(KOR::text("MRC spline generated with %1 points.\n", spline.size()), KOR::MSG_PROGRESS, PREPARE, DETAIL);
}

void MoistureStorage::deriveFromPC(double thetaEff) {
    const double smallest = SAME_CONTENT * thetaEff;
    KOR::LinearSpline & overPC = preparedFunction(Functions::Theta_l_pC_de);
    extendToDry(overPC);
    // Faults are told by the number of the interval in the stored function, so before anything is derived from it.
    if (const auto interval = wrongSlope(overPC, true))
        throw KOR::Exception(
            KOR::text("Invalid spline data for Theta_l(pC), found positive slope in interval #%1.", *interval), CHECK);
    preparedFunction(Functions::pC_Theta_l_de) = inverted(overPC, smallest);

    KOR::LinearSpline & adsorption = preparedFunction(Functions::Theta_l_pC_ad);
    if (!adsorption.empty()) {
        extendToDry(adsorption);
        preparedFunction(Functions::pC_Theta_l_ad) = inverted(adsorption, smallest);
    }

    KOR::LinearSpline & isotherm = preparedFunction(Functions::Theta_l_RH);
    std::vector<double> humidities = isotherm.x();
    std::erase_if(humidities, [](double humidity) { return !(humidity > 0 && humidity < 1); });
    for (const double pC : overPC.x())
        humidities.push_back(humidityAt(pC));
    humidities.push_back(0);
    humidities.push_back(1);
    const auto content = [&overPC](double humidity) {
        return humidity <= 0 ? overPC.y().back() : humidity >= 1 ? overPC.y().front() : overPC.value(pCAt(humidity));
    };
    isotherm = monotone(refined(content, merged(std::move(humidities), 1e-15), DERIVED_TOLERANCE * thetaEff), false);
    m_humidity = inverted(isotherm, smallest);
}

void MoistureStorage::deriveFromRH(double thetaEff) {
    const double smallest = SAME_CONTENT * thetaEff;
    const KOR::LinearSpline & isotherm = prepared(Functions::Theta_l_RH);
    if (const auto interval = wrongSlope(isotherm, false))
        throw KOR::Exception(
            KOR::text("Invalid spline data for Theta_l(rh), found negative slope in interval #%1.", *interval), CHECK);
    try {
        m_humidity = inverted(isotherm, smallest);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Cannot create reverse function of Thetal(RH) function.", PREPARE);
    }
    std::vector<double> knots{0, PC_DRY};
    for (const double humidity : isotherm.x())
        if (humidity > 0 && humidity < humidityAt(0))
            knots.push_back(std::min(PC_DRY, std::max(0.0, pCAt(humidity))));
    const auto content = [&](double pC) { return pC <= 0 ? isotherm.value(1) : isotherm.value(humidityAt(pC)); };
    preparedFunction(Functions::Theta_l_pC_de) =
        monotone(refined(content, merged(std::move(knots), 1e-12), DERIVED_TOLERANCE * thetaEff), true);
    preparedFunction(Functions::pC_Theta_l_de) = inverted(prepared(Functions::Theta_l_pC_de), smallest);
}

void MoistureStorage::setSlopeAtSaturation(double thetaEff) {
    m_c0 = thetaEff;
    m_c2 = NEARLY_SATURATED * thetaEff;
    m_c3 = m_mode == MODE_RH ? liquidPressure(m_humidity.value(m_c2))
                             : -capillaryPressure(prepared(Functions::pC_Theta_l_de).value(m_c2));
    m_c1 = (m_c0 - m_c2) / -m_c3;
}

void MoistureStorage::useVanGenuchten(MrcVG model, double thetaEff) {
    m_vanGenuchten = std::move(model);
    m_isTight = m_isAir = false;
    m_mode = MODE_MODEL;
    m_c0 = thetaEff;
    // The threshold by bisection in pC: the content falls there from saturation to nothing.
    double wet = -5;
    double dry = PC_DRY;
    for (int i = 0; i < 100; ++i) {
        const double middle = (wet + dry) / 2;
        (m_vanGenuchten.value(-capillaryPressure(middle)) > NEARLY_SATURATED ? wet : dry) = middle;
    }
    m_c3 = -capillaryPressure(wet);
    m_c2 = m_c0 * m_vanGenuchten.value(m_c3);
    m_c1 = (m_c0 - m_c2) / -m_c3;
}

void MoistureStorage::checkLimits(double thetaEff) const {
    const auto fail = [](const std::string & message) { throw KOR::Exception(message, CHECK); };
    if (m_kind == Kind::NONE)
        fail("Invalid model for moisture storage.");
    struct Slope {
        const KOR::LinearSpline & spline;
        bool falling;
        std::string_view message;
    };
    const KOR::LinearSpline & overPC = prepared(Functions::Theta_l_pC_de);
    const KOR::LinearSpline & inverse = prepared(Functions::pC_Theta_l_de);
    const Slope slopes[] = {
        {prepared(Functions::Theta_l_RH),    false,
         "Invalid spline data for Theta_l(rh), found negative slope in interval #%1."                                           },
        {m_humidity,                         false, "Invalid spline data for rh(Theta_l), found negative slope in interval #%1."},
        {overPC,                             true,  "Invalid spline data for Theta_l(pC), found positive slope in interval #%1."},
        {inverse,                            true,  "Invalid spline data for pC(Theta_l), found positive slope in interval #%1."},
        {prepared(Functions::Theta_l_pC_ad), true,
         "Invalid spline data for Theta_l(pC), found positive slope in interval #%1."                                           },
    };
    for (const auto & [spline, falling, message] : slopes)
        if (const auto interval = wrongSlope(spline, falling))
            fail(KOR::text(message, *interval));
    if (overPC.x().front() != 0)
        fail(KOR::text("Material has an invalid Theta_l(pC) spline: the minimum pC value (%1 logPa) must be zero!",
                       overPC.x().front()));
    if (overPC.y().back() != 0)
        fail(KOR::text("Material has an invalid Theta_l(pC) spline: the minimum Thetal value (%1 m3/m3) must be zero!",
                       overPC.y().back()));
    if (std::abs(overPC.y().front() - thetaEff) > SATURATION_TOLERANCE * thetaEff)
        fail(KOR::text("Material has an invalid Theta_l(pC) spline: the maximum Theta_l value (%1 m3/m3) must be equal "
                       "to 'THETA_EFF' (%1 m3/m3)!",
                       overPC.y().front()));
    if (inverse.x().front() != 0)
        fail(KOR::text("Material has an invalid pC(Theta_l) spline: the minimum Thetal value (%1 m3/m3) must be zero!",
                       inverse.x().front()));
    if (inverse.y().back() != 0)
        fail(KOR::text("Material has an invalid pC(Theta_l) spline: the minimum pC value (%1 logPa) must be zero!",
                       inverse.y().back()));
}

double MoistureStorage::Thetal_pl(double liquidPressure, double temperature) const {
    if (liquidPressure == 0 && m_mode != MODE_NONE)
        return m_c0;
    switch (m_mode) {
    case MODE_PC:
        if (liquidPressure >= 0)
            return liquidPressure * m_c1 + m_c0;
        return prepared(Functions::Theta_l_pC_de).value(std::log10(-liquidPressure));
    case MODE_MODEL:
        if (liquidPressure < m_c3)
            return m_vanGenuchten.m_modes.empty() ? 0 : m_c0 * m_vanGenuchten.value(liquidPressure);
        return (liquidPressure - m_c3) * m_c1 + m_c2;
    case MODE_RH:
        if (liquidPressure >= 0)
            return liquidPressure * m_c1 + m_c0;
        return prepared(Functions::Theta_l_RH).value(relativeHumidity(liquidPressure, temperature));
    case MODE_LINEAR:
        return liquidPressure < m_c3 ? m_c2 : (liquidPressure - m_c3) * m_c1 + m_c2;
    case MODE_NONE:
        break;
    }
    throw KOR::Exception("Unsupported type of moisture storage function or missing initialisation.",
                         "[MoistureStorage::Thetal_pl]");
}

double MoistureStorage::pl_Thetal(double content) const {
    if (m_mode == MODE_LINEAR || m_mode == MODE_NONE)
        return m_c1 > 0 ? (std::max(content, m_c2) - m_c2) / m_c1 + m_c3 : 0;
    if (content > m_c0)
        return (content - m_c0) / m_c1;
    if (m_mode == MODE_RH)
        return liquidPressure(m_humidity.value(content));
    if (m_mode == MODE_PC)
        return content >= m_c0 ? 0 : -capillaryPressure(prepared(Functions::pC_Theta_l_de).value(content));
    if (content >= m_c2)
        return (content - m_c2) / m_c1 + m_c3;
    double wet = std::log10(-m_c3);
    double dry = PC_DRY;
    for (int i = 0; i < 100; ++i) {
        const double middle = (wet + dry) / 2;
        (m_c0 * m_vanGenuchten.value(-capillaryPressure(middle)) > content ? wet : dry) = middle;
    }
    return -capillaryPressure((wet + dry) / 2);
}

double MoistureStorage::Thetal_pC(double pC) const {
    if (m_isTight)
        return 0;
    return m_isAir ? humidityAt(pC) * m_c0 : Thetal_pl(-capillaryPressure(pC));
}

double MoistureStorage::RH_Thetal(double content) const {
    if (m_isTight)
        return 0;
    return m_isAir ? std::min(content / m_c0, 1.0) : std::exp(pl_Thetal(content) / kelvinPressure());
}

double MoistureStorage::pC_Thetal(double content) const {
    if (m_isTight)
        return 0;
    return m_isAir ? pCAt(std::min(content / m_c0, 1.0)) : pCOf(pl_Thetal(content));
}

double MoistureStorage::Thetal_RH(double humidity) const {
    if (m_isTight)
        return 0;
    return m_isAir ? humidity * m_c0 : Thetal_pl(liquidPressure(humidity));
}

} // namespace MM
