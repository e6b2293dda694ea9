#include <MM/ThermalTransport.h>

#include <MM/Material.h>
#include <MM/MoistureTransport.h>

#include "BaseParameters.h"
#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace MM {

namespace {

using Functions = ThermalTransport::Functions;

constexpr const char * PREPARE = "[ThermalTransport::prepareCalculation]";
constexpr const char * DENORMALIZE = "[ThermalTransport::denormalize]";

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "ThermalTransport::Functions",
    .parameters = {},
    .models = {},
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading thermal transport data!",
    .where = "[ThermalTransport::read]",
    .whereWrite = "[ThermalTransport::write]",
};

bool isNear(double value, double target) {
    return std::abs(value - target) <= MoistureTransport::NORMALIZED_TOLERANCE;
}

struct Normalized {
    Functions which;
    std::string_view progress, failure;
};
constexpr Normalized NORMALIZED[] = {
    {Functions::lambda_Theta_l, "Denormalizing lambda(Theta_l) spline.\n",
     "Error creating denormalized lambda(Theta_l) spline."                                                                },
    {Functions::lambda_T,       "Denormalizing lambda(T) spline.\n",       "Error creating denormalized lambda(T) spline."},
};

} // namespace

ThermalTransport::ThermalTransport() : MaterialFunctionBase(TEXTS) {}

void ThermalTransport::denormalize(const Material & material, int direction) {
    resetPrepared(effective(material.m_thermalTransport, direction));
    for (const auto & [which, progress, failure] : NORMALIZED) {
        KOR::LinearSpline & spline = preparedFunction(which);
        if (spline.size() < 2 || !isNear(spline.x().front(), 0))
            continue;
        const bool overContent = which == Functions::lambda_Theta_l;
        const bool isShare = isNear(spline.y().front(), 0);
        if ((overContent && !isNear(spline.x().back(), 1)) || (!isShare && !isNear(spline.y().front(), 1)))
            continue;
        log(std::string(progress), KOR::MSG_PROGRESS, DENORMALIZE, DETAIL);
        try {
            const double lambda = requireParameter(material, Need::THERMAL_TRANSPORT, direction, DENORMALIZE);
            const double width =
                overContent ? requireParameter(material, Need::MOISTURE_STORAGE, direction, DENORMALIZE) : 1;
            spline = transformed(spline, width, overContent ? 0 : 273.15, lambda, isShare ? lambda : 0);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, std::string(failure), DENORMALIZE);
        }
    }
}

void ThermalTransport::prepareCalculation(const Material & material, int direction) {
    log("Initializing thermal transport functions.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    m_dry = requireParameter(material, Need::THERMAL_TRANSPORT, direction, PREPARE);
    denormalize(material, direction);
    double least = m_dry;
    for (std::size_t i = 0; i < m_prepared.size(); ++i) {
        if (m_prepared[i].empty())
            continue;
        const std::vector<double> & values = m_prepared[i].y();
        const double smallest = *std::min_element(values.begin(), values.end());
        if (!(smallest > 0))
            throw KOR::Exception(KOR::text("Invalid value %1 W/mK in function '%2', all values must be above 0.",
                                           smallest, KeywordList::Keyword(static_cast<Functions>(i))),
                                 PREPARE);
        least += smallest - m_dry;
    }
    if (!(least > 0))
        throw KOR::Exception(KOR::text("The thermal conductivity functions add up to %1 W/mK at worst, but must stay "
                                       "above 0.",
                                       least),
                             PREPARE);
}

void ThermalTransport::write(std::ostream & out, std::size_t indent, int direction) const {
    checkDirection(direction, "[ThermalTransport::write]");
    MaterialFunctionBase::write(out, indent);
}

double ThermalTransport::lambda(double content, double temperature, double iceContent) const {
    const auto added = [this](Functions which, double state) {
        const KOR::LinearSpline & spline = prepared(which);
        return spline.empty() ? 0 : spline.value(state) - m_dry;
    };
    return m_dry + added(Functions::lambda_Theta_l, content) + added(Functions::lambda_T, temperature) +
           added(Functions::lambda_Theta_ice, iceContent);
}

} // namespace MM
