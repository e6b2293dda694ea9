#include <HYGRION/ModelSettingsVOC.h>

#include "XmlParts.h"

#include <KOR/Strings.h>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[ModelSettingsVOC::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown element '%1' in 'ModelSettingsVOC' section.",
    .wrapping = {},
    .inChild = "Invalid format of xml element '%1' in section 'ModelSettingsVOC'",
    .inChildCause = "%1\nInvalid format of xml element '%2' in section 'ModelSettingsVOC'",
};

constexpr std::string_view SEPARATOR = "==";

ModelSettingsVOC::MaterialMapping mapping(const std::string & text) {
    const std::size_t at = text.find(SEPARATOR);
    if (at != std::string::npos) {
        const std::string_view all = text;
        const std::string_view material = KOR::trimmed(all.substr(0, at));
        const std::string_view voc = KOR::trimmed(all.substr(at + SEPARATOR.size()));
        if (!material.empty() && !voc.empty())
            return {std::string(material), std::string(voc)};
    }
    throw KOR::Exception(
        KOR::text("Invalid format of value'%1' for 'MaterialMapping' parameter, expected == separator.", text),
        std::string(TEXTS.where));
}

} // namespace

void ModelSettingsVOC::readXML(const TiXmlElement & element) {
    ModelSettingsVOC read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::once("VOCDatabase", xml::into(read.m_vocDatabase)),
            xml::once("VOCID", xml::into(read.m_vocID)),
            xml::any(
                "MaterialMapping",
                [&](const TiXmlElement & child) { read.m_materialMapping.push_back(mapping(KOR::xml::text(child))); }),
        });
    });
    *this = std::move(read);
}

void ModelSettingsVOC::writeXML(TiXmlElement & parent) const {
    if (*this == ModelSettingsVOC())
        return;
    TiXmlElement & element = xml::appendElement(parent, "ModelSettingsVOC");
    xml::appendGiven(element, "VOCDatabase", m_vocDatabase.str());
    xml::appendGiven(element, "VOCID", m_vocID);
    for (const MaterialMapping & row : m_materialMapping)
        xml::appendText(element, "MaterialMapping", row.m_material + std::string(SEPARATOR) + row.m_voc);
}

} // namespace HYGRION
