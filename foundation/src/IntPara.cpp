#include <KOR/IntPara.h>

#include <KOR/Xml.h>

namespace KOR {

namespace {
constexpr xml::ElementTexts INT_PARA{
    .where = "[IntPara::readXML]",
    .missingAttr = "Missing '%1' attribute in KOR:IntPara element.",
    .unknownTag = {},
    .wrapping = {},
};
} // namespace

void IntPara::readXML(const TiXmlElement & element) {
    const xml::ElementReader reader(element, INT_PARA);
    std::string newName = reader.attribute("name");
    const auto newValue = parseInteger<int>(reader.text());
    if (!newValue)
        reader.fail("Cannot read value in KOR:IntPara element.");
    name = std::move(newName);
    value = *newValue;
}

void IntPara::writeXML(TiXmlElement & parent) const {
    xml::setAttribute(xml::appendText(parent, "KOR:IntPara", toString(value)), "name", name);
}

} // namespace KOR
