#include <HYGRION/MaterialReference.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[MaterialReference::readXML]",
    .missingAttr = "Expected '%1' attribute in MaterialReference.",
    .unknownTag = "Unknown XML tag with name '%1' in MaterialReference element.",
    .wrapping = {},
};

int hatchCode(const TiXmlElement & element, const std::string & text) {
    try {
        return KOR::string2val<int>(text);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(KOR::xml::located(element, ex),
                             KOR::text("Error decoding hatch code from string '%1'.", text), std::string(TEXTS.where));
    }
}

} // namespace

void MaterialReference::readXML(const TiXmlElement & element) {
    MaterialReference read;
    xml::readElement(element, TEXTS, [&](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        if (const auto text = KOR::xml::attribute(element, "color")) {
            const auto color = KOR::Color::fromHtml(*text);
            if (!color)
                reader.fail(KOR::text("Error decoding color from string '%1'.", *text));
            read.m_color = *color;
        }
        if (const auto text = KOR::xml::attribute(element, "hatchCode"))
            read.m_hatchCode = hatchCode(element, *text);
        reader.children({});
        read.m_filename = KOR::Path(reader.text());
    });
    *this = std::move(read);
}

void MaterialReference::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendText(parent, "MaterialReference", m_filename.str());
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "color", m_color.html());
    xml::setAttribute(element, "hatchCode", KOR::toString(m_hatchCode));
}

} // namespace HYGRION
