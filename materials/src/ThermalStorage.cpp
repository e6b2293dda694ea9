#include <MM/ThermalStorage.h>

#include <MM/Material.h>
#include <MM/Physics.h>

#include "BaseParameters.h"
#include "Lines.h"

#include <KOR/Exception.h>

namespace MM {

namespace {

constexpr const char * PREPARE = "[ThermalStorage::prepareCalculation]";

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "ThermalStorage::Functions",
    .parameters = {},
    .models = {},
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading moisture storage material data!",
    .where = "[ThermalStorage::read]",
    .whereWrite = "[ThermalStorage::write]",
};

double require(const Material & material, Need need, const char * message) {
    try {
        return requireParameter(material, need, 0, PREPARE);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, message, PREPARE);
    }
}

/// Value with the slope \p outside beyond the ends.
double continued(const KOR::LinearSpline & spline, double x, double outside) {
    const double beyond = x < spline.x().front()  ? x - spline.x().front()
                          : x > spline.x().back() ? x - spline.x().back()
                                                  : 0;
    return spline.value(x) + outside * beyond;
}

} // namespace

ThermalStorage::ThermalStorage() : MaterialFunctionBase(TEXTS) {}

void ThermalStorage::prepareCalculation(const Material & material) {
    m_density = require(material, Need::THERMAL_DENSITY, "RHO is necessary for thermal storage.");
    m_slope = require(material, Need::THERMAL_CAPACITY, "CE is necessary for thermal storage.");
    resetPrepared(*this);
    m_inverse = KOR::LinearSpline();
    const KOR::LinearSpline & energy = prepared(Functions::u_T);
    if (energy.empty())
        return;
    try {
        m_inverse = KOR::LinearSpline();
        std::string error;
        m_inverse.setPoints(energy.y(), energy.x());
        if (!m_inverse.makeSpline(error))
            throw KOR::Exception(error, PREPARE);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error generating inverse thermal storage function T(u):\n" + ex.message(), PREPARE);
    }
}

double ThermalStorage::u(double temperature) const {
    const KOR::LinearSpline & energy = prepared(Functions::u_T);
    return energy.empty() ? m_slope * (temperature - T_ZERO) : continued(energy, temperature, m_slope);
}

double ThermalStorage::T(double energy) const {
    return m_inverse.empty() ? T_ZERO + energy / m_slope : continued(m_inverse, energy, 1 / m_slope);
}

} // namespace MM
