#include <HYGRION/SolutionDefinition.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[SolutionDefinition::readXML]",
    .missingAttr = "Expected '%1' attribute in SolutionDefinition.",
    .unknownTag = "Unknown XML tag with name '%1' in SolutionDefinition element.",
    .wrapping = {},
    .inChild = "Error reading element '%1' in SolutionDefinition element.",
};

} // namespace

void SolutionDefinition::readXML(const TiXmlElement & element) {
    SolutionDefinition read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para)),
            xml::any("SaltSpecies", xml::into(read.m_saltSpecies)),
        });
    });
    *this = std::move(read);
}

void SolutionDefinition::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "SolutionDefinition");
    xml::setAttribute(element, "name", m_name);
    for (const KOR::Parameter & parameter : m_para)
        parameter.writeXML(element);
    for (const std::string & species : m_saltSpecies)
        xml::appendText(element, "SaltSpecies", species);
}

void SolutionDefinition::checkParameters() const {
    if (m_saltSpecies.empty())
        throw KOR::Exception(KOR::text("Solution definition '%1' has no salt species.", m_name),
                             "[SolutionDefinition::checkParameters]");
}

} // namespace HYGRION
