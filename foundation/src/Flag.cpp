#include <KOR/Flag.h>

#include <KOR/Strings.h>
#include <KOR/Xml.h>

namespace KOR {

namespace {
constexpr xml::ElementTexts FLAG{
    .where = "[Flag::readXML]",
    .missingAttr = "Missing '%1' attribute in KOR:Flag element.",
    .unknownTag = {},
    .wrapping = {},
};
} // namespace

void Flag::set(std::string name, std::string_view stateText) {
    const std::string state = lowered(stateText);
    const bool isOn = state == "1" || state == "yes" || state == "true";
    if (!isOn && state != "0" && state != "no" && state != "false")
        throw Exception(text("Invalid value '%2' for flag '%1'!", name, stateText), "[Flag::set]");
    m_name = std::move(name);
    m_state = isOn;
}

void Flag::readXML(const TiXmlElement & element) {
    const xml::ElementReader reader(element, FLAG);
    std::string name = reader.attribute("name");
    try {
        set(std::move(name), reader.text());
    } catch (const Exception & ex) {
        throw Exception(xml::withLine(element, ex.message()), "[Flag::set]");
    }
}

void Flag::writeXML(TiXmlElement & parent) const {
    xml::setAttribute(xml::appendText(parent, "KOR:Flag", m_state ? "true" : "false"), "name", m_name);
}

} // namespace KOR
