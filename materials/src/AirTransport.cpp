#include <MM/AirTransport.h>

#include <MM/Material.h>

#include "BaseParameters.h"
#include "Lines.h"

#include <KOR/Exception.h>

#include <algorithm>

namespace MM {

namespace {

constexpr const char * PREPARE = "[AirTransport::prepareCalculation]";

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "AirTransport::Functions",
    .parameters = {},
    .models = {},
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading air transport data!",
    .where = "[AirTransport::read]",
    .whereWrite = "[AirTransport::write]",
};

} // namespace

AirTransport::AirTransport() : MaterialFunctionBase(TEXTS) {}

void AirTransport::prepareCalculation(const Material & material, int direction) {
    log("Initializing air transport functions.\n", KOR::MSG_PROGRESS, PREPARE, DETAIL);
    m_dry = 0;
    resetPrepared(effective(material.m_airTransport, direction));
    if (material.hasFlag(MaterialIdentification::Flags::AIR_TIGHT))
        return;
    try {
        m_dry = requireParameter(material, Need::AIR_FLOW, direction, PREPARE);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "KG is necessary for air flow model.", PREPARE);
    }
    checkLimits(material.name());
}

void AirTransport::checkLimits(const std::string & materialName) const {
    const auto & values =
        has(Functions::Kg_Theta_l) ? function(Functions::Kg_Theta_l).y() : prepared(Functions::Kg_Theta_l).y();
    if (!std::all_of(values.begin(), values.end(), [](double value) { return value > 0; }))
        throw KOR::Exception(KOR::text("Material '%1' has an invalid Kg(Theta_l) spline:\nthe Kg spline must be higher "
                                       "than 0!",
                                       materialName),
                             "[AirTransport::checkLimits]");
}

void AirTransport::write(std::ostream & out, std::size_t indent, int direction) const {
    checkDirection(direction, "[AirTransport::write]");
    MaterialFunctionBase::write(out, indent);
}

double AirTransport::Kg(double content) const {
    const KOR::LinearSpline & spline = prepared(Functions::Kg_Theta_l);
    return m_dry == 0 || spline.empty() ? m_dry : spline.value(content);
}

} // namespace MM
