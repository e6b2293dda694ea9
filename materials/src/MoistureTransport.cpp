#include <MM/MoistureTransport.h>

#include <MM/FunctionTable.h>
#include <MM/Material.h>

#include "BaseParameters.h"
#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace MM {

namespace {

using Functions = MoistureTransport::Functions;
using Flags = MaterialIdentification::Flags;
using ParaStorage = Material::ParaStorage;
using ParaTransport = Material::ParaTransport;

constexpr const char * PREPARE = "[MoistureTransport::prepareCalculation]";
constexpr const char * DENORMALIZE = "[MoistureTransport::denormalize]";

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "MoistureTransport::Functions",
    .parameters = {},
    .models = "MoistureTransport::ModelTypes",
    .fewLines = "Error reading data for function '%1' because too less lines left.",
    .wrapping = "Error reading moisture transport material data!",
    .where = "[MoistureTransport::read]",
    .whereWrite = "[MoistureTransport::write]",
};

/// Logarithms below this stand for "nothing".
constexpr double LG_NOTHING = -40;
/// A normalised conductivity falls at least to this.
constexpr double LG_NORMALIZED = -5;

bool isNear(double value, double target) {
    return std::abs(value - target) <= MoistureTransport::NORMALIZED_TOLERANCE;
}

/// The texts of a normalised function.
struct Normalized {
    Functions which;
    ParaStorage xReference;
    ParaTransport yReference;
    std::string_view progress, missing, invalid;
};
constexpr Normalized NORMALIZED[] = {
    {Functions::lgKl_Theta_l, ParaStorage::THETA_EFF, ParaTransport::KLEFF, "Denormalizing Kl(Theta_l) spline.\n",
     "Require KLEFF parameter for denormalization of Kl_Thetal spline.", "Invalid KLEFF value (%1 s) for denormalization of Kl_Thetal spline, must be > 0 s."      },
    {Functions::lgDl_Theta_l, ParaStorage::THETA_EFF, ParaTransport::DLEFF, "Denormalizing Dl(Theta_l) spline.\n",
     "Require DLEFF parameter for denormalization of Dl_Thetal spline.", "Invalid DLEFF value (%1 m2/s) for denormalization of Dl_Thetal spline, must be > 0 m2/s."},
    {Functions::lgKv_Theta_l, ParaStorage::THETA_POR, ParaTransport::MEW,   "Denormalizing Kv(Theta_l) spline.\n",
     "Require MEW parameter for denormalization of Kv_Thetal spline.",   "Invalid MEW value (%1 -) for denormalization of Kv_Thetal spline, must be > 0."          },
};

/// Of these only SP_SP is calculated with.
constexpr std::string_view SERIAL_PARALLEL_PARAMETERS[] = {
    "SP_Kl", "SP_KScale", "SP_SP", "SP_UNSAT", "SP_UseAdsorption", "SP_pCmax", "SP_ThetaLAdditional"};

/// Liquid functions rise to 0 at x = 1, the vapour function falls from 0 at x = 0.
bool isNormalized(const KOR::LinearSpline & spline, bool isVapor) {
    if (spline.size() < 2 || !isNear(spline.x().front(), 0) || !isNear(spline.x().back(), 1))
        return false;
    const double high = isVapor ? spline.y().front() : spline.y().back();
    const double low = isVapor ? spline.y().back() : spline.y().front();
    return isNear(high, 0) && low <= LG_NORMALIZED;
}

} // namespace

MoistureTransport::MoistureTransport() : MaterialFunctionBase(TEXTS) {}

void MoistureTransport::denormalize(const Material & material, int direction) {
    resetPrepared(effective(material.m_moistureTransport, direction));
    for (const Normalized & rule : NORMALIZED) {
        KOR::LinearSpline & spline = preparedFunction(rule.which);
        const bool isVapor = rule.which == Functions::lgKv_Theta_l;
        if (!isNormalized(spline, isVapor))
            continue;
        log(std::string(rule.progress), KOR::MSG_PROGRESS, DENORMALIZE, DETAIL);
        const KOR::Parameter & reference = material.parameter(rule.yReference, direction);
        if (reference.empty())
            throw KOR::Exception(std::string(rule.missing), DENORMALIZE);
        if (!(reference.value() > 0))
            throw KOR::Exception(KOR::text(rule.invalid, reference.value()), DENORMALIZE);
        const KOR::Parameter & width = material.parameter(rule.xReference);
        if (width.empty() || !(width.value() > 0))
            throw KOR::Exception(KOR::text("Require %1 parameter above 0 for denormalization of function '%2'.",
                                           KeywordList::Keyword(rule.xReference), KeywordList::Keyword(rule.which)),
                                 DENORMALIZE);
        const double y = isVapor ? KV_AIR / reference.value() : reference.value();
        spline = transformed(spline, width.value(), 0, 1, std::log10(y));
    }
}

void MoistureTransport::prepareCalculation(const Material & material, int direction) {
    log("Initializing moisture transport functions.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    if (direction < 0 || direction >= static_cast<int>(Material::NUM_DIRECTIONS))
        throw KOR::Exception("Invalid value for material direction.", PREPARE);
    denormalize(material, direction);
    m_hasLiquid = false;
    if (!material.hasFlag(Flags::WATER_TIGHT)) {
        if (prepared(Functions::lgKl_Theta_l).empty() && prepared(Functions::lgDl_Theta_l).empty())
            throw KOR::Exception("Material is not water tight and no liquid transport function is given!", PREPARE);
        checkLiquidFunctionMonotony(material.name());
        m_hasLiquid = true;
        if (prepared(Functions::lgKl_Theta_l).empty())
            deriveConductivity(material);
    }
    prepareVapor(material, direction);
}

double MoistureTransport::shareOf(const ModelDataContainer & model) {
    for (const std::string_view keyword : SERIAL_PARALLEL_PARAMETERS)
        if (model.find(keyword) != nullptr && model.values(keyword).size() != 1)
            throw KOR::Exception(KOR::text("Expected a number for parameter %1 of model SERIAL_PARALLEL, got '%2'.",
                                           keyword, shown(*model.find(keyword))),
                                 PREPARE);
    const std::vector<double> share = model.values("SP_SP");
    if (share.size() != 1 || !(share[0] > 0 && share[0] <= 1))
        throw KOR::Exception("Model SERIAL_PARALLEL needs the parameter SP_SP above 0 and not above 1.", PREPARE);
    return share[0];
}

void MoistureTransport::prepareVapor(const Material & material, int direction) {
    m_vaporModel = VaporModel::NONE;
    m_dryKv = 0;
    m_parallelShare = 1;
    if (material.hasFlag(Flags::VAPOR_TIGHT))
        return;
    const KOR::Parameter & porosity = material.parameter(ParaStorage::THETA_POR);
    m_porosity = porosity.empty() ? 1 : porosity.value();
    const bool hasKv = !prepared(Functions::lgKv_Theta_l).empty();
    if (!hasKv || !material.parameter(ParaTransport::MEW, direction).empty())
        m_dryKv = KV_AIR / requireParameter(material, Need::VAPOR_DIFFUSION, direction, PREPARE);
    const ModelDataContainer * model = effective(material.m_moistureTransport, direction)
                                           .models()
                                           .find(KeywordList::Keyword(ModelTypes::SERIAL_PARALLEL));
    if (hasKv) {
        m_vaporModel = VaporModel::KV_FUNCTION;
        m_dryKv = Kv(0, 0);
    } else if (const KOR::LinearSpline & mewSpline = prepared(Functions::mew_RH); !mewSpline.empty()) {
        for (const double factor : mewSpline.y())
            if (!(factor > 0))
                throw KOR::Exception(
                    KOR::text("Invalid value %1 in function 'mew(RH)', all values must be above 0.", factor), PREPARE);
        m_vaporModel = VaporModel::MEW_FUNCTION;
    } else if (model != nullptr) {
        const double share = shareOf(*model);
        if (porosity.empty() || !(m_porosity > 0))
            throw KOR::Exception("Model SERIAL_PARALLEL needs the parameter THETA_POR above 0.", PREPARE);
        m_parallelShare = share;
        m_vaporModel = VaporModel::SERIAL_PARALLEL;
    } else {
        m_vaporModel = VaporModel::CONSTANT;
    }
}

void MoistureTransport::deriveConductivity(const Material & material) {
    using Storage = MoistureStorage::Functions;
    const MoistureStorage & storage = material.m_moistureStorage;
    if (storage.mode() != MoistureStorage::MODE_PC && storage.mode() != MoistureStorage::MODE_RH)
        throw KOR::Exception("Liquid diffusivity needs a moisture storage function.", PREPARE);
    const KOR::LinearSpline & diffusivity = prepared(Functions::lgDl_Theta_l);
    const bool overRH = storage.mode() == MoistureStorage::MODE_RH;
    const KOR::LinearSpline & inverse = overRH ? storage.humidity() : storage.prepared(Storage::pC_Theta_l_de);
    const FunctionTable table(inverse, FunctionTable::Interpolation::MONOTONE_CUBIC);
    const double saturated = MoistureStorage::NEARLY_SATURATED * storage.saturation();
    const double slopeAtSaturation = storage.slopeAtSaturation();
    // Kl = Dl rho dTheta/dpc: the same flux, driven by capillary pressure instead of content.
    const auto logarithm = [&](double content) {
        double slope = 0;
        const double state = table.value(content, slope);
        const double dContent = content >= saturated ? slopeAtSaturation
                                : overRH             ? state / (slope * kelvinPressure())
                                                     : -1 / (slope * std::pow(10.0, state) * std::numbers::ln10);
        const double lg = diffusivity.value(content) + std::log10(RHO_WATER * dContent);
        return lg > LG_NOTHING ? lg : LG_NOTHING; // also for what is no number
    };
    std::vector<double> knots = inverse.x();
    for (const double content : diffusivity.x())
        if (content > 0 && content < storage.saturation())
            knots.push_back(content);
    knots = merged(std::move(knots), 1e-9 * storage.saturation());
    knots.back() = storage.saturation();
    std::vector<double> values;
    values.reserve(knots.size());
    for (const double content : knots)
        values.push_back(std::max(logarithm(content), values.empty() ? LG_NOTHING : values.back()));
    preparedFunction(Functions::lgKl_Theta_l) = KOR::LinearSpline(knots, values);
}

void MoistureTransport::checkLiquidFunctionMonotony(const std::string & materialName) const {
    struct Check {
        Functions which;
        std::string_view message;
    };
    constexpr Check CHECKS[] = {
        {Functions::lgKl_Theta_l, "Check for monotonic liquid conductivity function failed for material '%1'. Invalid "
                                  "spline data for lgKl(Thetal), found negative slope in interval #%2."},
        {Functions::lgDl_Theta_l, "Check for monotonic liquid conductivity function failed for material '%1'. Invalid "
                                  "spline data for lgDl(Thetal), found negative slope in interval #%2."},
    };
    for (const auto & [which, message] : CHECKS)
        if (const auto interval = wrongSlope(has(which) ? function(which) : prepared(which), false))
            throw KOR::Exception(KOR::text(message, materialName, *interval),
                                 "[MoistureTransport::checkLiquidFunctionMonotony]");
}

void MoistureTransport::write(std::ostream & out, std::size_t indent, int direction) const {
    checkDirection(direction, "[MoistureTransport::write]");
    MaterialFunctionBase::write(out, indent);
}

double MoistureTransport::Kl(double content) const {
    return m_hasLiquid ? std::pow(10.0, prepared(Functions::lgKl_Theta_l).value(content)) : 0;
}

double MoistureTransport::Dl(double content) const {
    const KOR::LinearSpline & spline = prepared(Functions::lgDl_Theta_l);
    return m_hasLiquid && !spline.empty() ? std::pow(10.0, spline.value(content)) : 0;
}

double MoistureTransport::Kv(double content, double humidity) const {
    switch (m_vaporModel) {
    case VaporModel::NONE:
        return 0;
    case VaporModel::CONSTANT:
        return m_dryKv;
    case VaporModel::KV_FUNCTION:
        return std::pow(10.0, prepared(Functions::lgKv_Theta_l).value(content));
    case VaporModel::MEW_FUNCTION:
        return KV_AIR / prepared(Functions::mew_RH).value(humidity);
    case VaporModel::SERIAL_PARALLEL:
        break;
    }
    return m_dryKv * openPoreFactor(content);
}

double MoistureTransport::openPoreFactor(double content) const {
    const double open = std::clamp(1 - content / m_porosity, 0.0, 1.0);
    return open / ((1 - m_parallelShare) * open * open + m_parallelShare);
}

} // namespace MM
