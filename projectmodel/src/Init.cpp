#include <HYGRION/Init.h>

#include <HYGRION/Defaults.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr std::string_view UNKNOWN_ELEMENT = "Unknown element '%1' in 'Init' section.";
constexpr std::string_view IN_CHILD = "Invalid format of xml element '%1' in section 'Init'";
constexpr std::string_view IN_CHILD_CAUSE = "%1\nInvalid format of xml element '%2' in section 'Init'";

constexpr xml::ElementTexts SECTION{
    .where = "[Init::readXML]",
    .missingAttr = {},
    .unknownTag = UNKNOWN_ELEMENT,
    .wrapping = {},
    .inChild = IN_CHILD,
    .inChildCause = IN_CHILD_CAUSE,
};
constexpr xml::ElementTexts GENERAL{
    .where = "[Init::readGeneralParametersXML]",
    .missingAttr = {},
    .unknownTag = UNKNOWN_ELEMENT,
    .wrapping = {},
    .inChild = IN_CHILD,
    .inChildCause = IN_CHILD_CAUSE,
};
constexpr xml::ElementTexts FLUX_MODULES{
    .where = GENERAL.where,
    .missingAttr = {},
    .unknownTag = "Expected child element 'Module'in element 'FluxModules'.",
    .wrapping = {},
};
constexpr xml::ElementTexts SOURCE_MODULES{
    .where = GENERAL.where,
    .missingAttr = {},
    .unknownTag = "Expected child element 'Module'in element 'SourceModules'.",
    .wrapping = {},
};
constexpr NamedValueTexts VALUES{.where = GENERAL.where};
constexpr NamedValueTexts INTEGERS{
    .where = GENERAL.where,
    .invalidValue = "Invalid parameter value for '%1' property.",
};

std::vector<Init::Module> readModules(const TiXmlElement & element, const xml::ElementTexts & texts) {
    std::vector<Init::Module> modules;
    xml::readElement(element, texts, [&modules](const xml::ElementReader & reader) {
        reader.children({
            xml::any("Module",
                     [&](const TiXmlElement & child) {
                         modules.push_back({KOR::xml::text(child), KOR::xml::attribute(child, "overrides")});
                     }),
        });
    });
    return modules;
}

void writeModules(TiXmlElement & parent, const std::string & name, const std::vector<Init::Module> & modules) {
    if (modules.empty())
        return;
    TiXmlElement & element = xml::appendElement(parent, name);
    for (const Init::Module & module : modules) {
        TiXmlElement & child = xml::appendText(element, "Module", module.m_name);
        if (module.m_overrides)
            xml::setAttribute(child, "overrides", *module.m_overrides);
    }
}

} // namespace

KOR::Parameter Init::parameter(para_t key) const {
    return parameterOrDefault(m_para, key);
}
KOR::Parameter Init::parameter(defaultInitialCondition_t key) const {
    return parameterOrDefault(m_defaultInitialCondition, key);
}
int Init::intParameter(intpara_t key) const {
    return m_intPara.value(key).value_or(
        static_cast<int>(defaultOf(KeywordList::category<intpara_t>(), KeywordList::Keyword(key)).value));
}
bool Init::isEnabled(flag_t key) const {
    return isEnabledOrDefault(m_flag, key);
}
Init::lambdaSelection_t Init::lambdaSelection() const {
    return m_lambdaSelection.value_or(defaultChoice<lambdaSelection_t>());
}

Init::balanceEquationModule_t Init::balanceEquationModule() const {
    if (m_balanceEquationModule.empty())
        return defaultChoice<balanceEquationModule_t>();
    try {
        return KeywordList::Enumeration<balanceEquationModule_t>(m_balanceEquationModule);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Unknown balance equation module '%1'.", m_balanceEquationModule),
                             "[Init::balanceEquationModule]");
    }
}

void Init::readXML(const TiXmlElement & element) {
    Init read;
    xml::readElement(element, SECTION, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::once("SimulationParameter", [&](const TiXmlElement & child) { read.readGeneralParametersXML(child); }),
            xml::once("SolverParameter", xml::into(read.m_solverSettings)),
            xml::once("ModelSettingsSalt", xml::into(read.m_modelSettingsSalt)),
            xml::once("ModelSettingsVOC", xml::into(read.m_modelSettingsVOC)),
        });
    });
    *this = std::move(read);
}

void Init::readGeneralParametersXML(const TiXmlElement & element) {
    const auto readInteger = [this](const TiXmlElement & child) { m_intPara.readXML(child, INTEGERS); };
    xml::readElement(element, GENERAL, [&](const xml::ElementReader & reader) {
        reader.children({
            xml::once("BalanceEquationModule", xml::into(m_balanceEquationModule)),
            xml::once("FluxModules",
                      [&](const TiXmlElement & child) { m_fluxModules = readModules(child, FLUX_MODULES); }),
            xml::once("SourceModules",
                      [&](const TiXmlElement & child) { m_sourceModules = readModules(child, SOURCE_MODULES); }),
            xml::once("Interval", xml::into(m_interval)),
            xml::once("ClimateDataFilePath", xml::into(m_climateDataFilePath)),
            xml::any("KOR:Parameter", xml::into(m_para, m_intPara, VALUES)),
            xml::any("KOR:Flag", xml::into(m_flag, VALUES)),
            xml::any("KOR:IntPara", readInteger),
            xml::any("StartYear", readInteger),
            xml::any("TimeZone", readInteger),
            xml::any("DefaultInitialCondition", xml::into(m_defaultInitialCondition, VALUES)),
            xml::once(
                "LambdaSelection",
                xml::into(m_lambdaSelection, "Invalid parameter value for LambdaSelection property.", GENERAL.where)),
        });
    });
}

void Init::writeXML(TiXmlElement & parent) const {
    if (*this == Init())
        return;
    KOR::xml::appendComment(parent, "Model data, solver settings, general parameters");
    TiXmlElement & section = xml::appendElement(parent, "Init");
    TiXmlElement & general = xml::appendElement(section, "SimulationParameter");
    xml::appendGiven(general, "BalanceEquationModule", m_balanceEquationModule);
    writeModules(general, "FluxModules", m_fluxModules);
    writeModules(general, "SourceModules", m_sourceModules);
    if (m_interval != Interval())
        m_interval.writeXML(general);
    xml::appendGiven(general, "ClimateDataFilePath", m_climateDataFilePath.str());
    m_para.writeXML(general);
    m_intPara.writeXML(general);
    m_flag.writeXML(general);
    for (const auto & [key, value] : m_defaultInitialCondition)
        xml::appendParameter(general, "DefaultInitialCondition", value);
    xml::appendKeyword(general, "LambdaSelection", m_lambdaSelection);
    m_solverSettings.writeXML(section);
    m_modelSettingsSalt.writeXML(section);
    m_modelSettingsVOC.writeXML(section);
}

void Init::checkParameters() const {
    constexpr const char * WHERE = "[Init::checkParameters]";
    static_cast<void>(balanceEquationModule());
    m_interval.checkParameters();
    const bool hasEnd =
        m_interval.m_para.contains(Interval::para_t::End) || m_interval.m_para.contains(Interval::para_t::Duration);
    if (m_interval.start() > LONGEST_TIME || (hasEnd && m_interval.end() > LONGEST_TIME))
        throw KOR::Exception("The simulation lasts beyond 1000 a.", WHERE);
    checkDefaultLimits(m_para, WHERE);
    checkDefaultLimits(m_intPara, WHERE);
    checkDefaultLimits(m_defaultInitialCondition, WHERE);
    m_solverSettings.checkParameters();
}

} // namespace HYGRION
