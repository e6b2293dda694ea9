#include <HYGRION/SolverSettings.h>

#include <HYGRION/Defaults.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[SolverSettings::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown element '%1' in 'SolverParameter' section.",
    .wrapping = {},
    .inChild = "Invalid format of xml element '%1' in section 'SolverParameter'",
    .inChildCause = "%1\nInvalid format of xml element '%2' in section 'SolverParameter'",
};
constexpr NamedValueTexts VALUES{.where = TEXTS.where};

} // namespace

KOR::Parameter SolverSettings::parameter(para_t key) const {
    KOR::Parameter result = parameterOrDefault(m_para, key);
    const bool isBounded = key == para_t::MinTimeStep || key == para_t::InitialTimeStep;
    const KOR::Parameter * longest = m_para.find(para_t::MaxTimeStep);
    if (isBounded && !m_para.contains(key) && longest != nullptr && result.value() > longest->value())
        result.set_value(longest->ioValue(), longest->ioUnit());
    return result;
}
bool SolverSettings::isEnabled(flag_t key) const {
    return isEnabledOrDefault(m_flag, key);
}
SolverSettings::integrator_t SolverSettings::integrator() const {
    return m_integrator.value_or(defaultChoice<integrator_t>());
}
SolverSettings::lesSolver_t SolverSettings::lesSolver() const {
    return m_lesSolver.value_or(defaultChoice<lesSolver_t>());
}
SolverSettings::precond_t SolverSettings::preconditioner() const {
    return m_precond.value_or(defaultChoice<precond_t>());
}

void SolverSettings::readXML(const TiXmlElement & element) {
    SolverSettings read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::once("Integrator",
                      xml::into(read.m_integrator, "Invalid keyword for Integrator attribute", TEXTS.where)),
            xml::once("LESSolver", xml::into(read.m_lesSolver, "Invalid keyword for LESSolver attribute", TEXTS.where)),
            xml::once("Preconditioner",
                      xml::into(read.m_precond, "Invalid keyword for Preconditioner attribute", TEXTS.where)),
            xml::any("KOR:Parameter", xml::into(read.m_para, VALUES)),
            xml::any("KOR:Flag", xml::into(read.m_flag, VALUES)),
        });
    });
    *this = std::move(read);
}

void SolverSettings::writeXML(TiXmlElement & parent) const {
    if (*this == SolverSettings())
        return;
    TiXmlElement & element = xml::appendElement(parent, "SolverParameter");
    xml::appendKeyword(element, "Integrator", m_integrator);
    xml::appendKeyword(element, "LESSolver", m_lesSolver);
    xml::appendKeyword(element, "Preconditioner", m_precond);
    m_para.writeXML(element);
    m_flag.writeXML(element);
}

void SolverSettings::checkParameters() const {
    constexpr const char * WHERE = "[SolverSettings::checkParameters]";
    checkDefaultLimits(m_para, WHERE);
    const auto seconds = [this](para_t key) { return parameter(key).get_value("s"); };
    const auto checkOrder = [&](para_t smaller, para_t larger) {
        if (m_para.contains(smaller) && seconds(smaller) > seconds(larger))
            throw KOR::Exception(KOR::text("Parameter '%1' (%2) must not exceed '%3' (%4).",
                                           KeywordList::Keyword(smaller), parameter(smaller).valueText(),
                                           KeywordList::Keyword(larger), parameter(larger).valueText()),
                                 WHERE);
    };
    checkOrder(para_t::MinTimeStep, para_t::MaxTimeStep);
    checkOrder(para_t::InitialTimeStep, para_t::MaxTimeStep);
    checkOrder(para_t::MinTimeStep, para_t::InitialTimeStep);
}

} // namespace HYGRION
