#include <KOR/UnitVector.h>

#include <KOR/UnitList.h>
#include <KOR/Xml.h>

#include <algorithm>
#include <cmath>

namespace KOR {

namespace {
constexpr xml::ElementTexts UNIT_VECTOR{
    .where = "[UnitVector::readXML]",
    .missingAttr = "Missing '%1' attribute in KOR:UnitVector element.",
    .unknownTag = {},
    .wrapping = {},
};
} // namespace

void UnitVector::convert(Unit unit) {
    UnitList::instance().convert(m_unit, unit, m_data);
    m_unit = unit;
}

std::vector<double> UnitVector::baseValues() const {
    std::vector<double> values = m_data;
    UnitList::instance().convert(m_unit, m_unit.base(), values);
    return values;
}

double UnitVector::convert_special(Unit source, Unit target, double value) {
    return convertSpecial(source, target, value);
}

void UnitVector::read(std::string_view values, std::string_view unitName) {
    UnitVector read;
    try {
        read.m_unit = Unit(unitName);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Invalid vector unit '%1'!", unitName), "[UnitVector::read]");
    }
    const std::size_t badAt = parseDoubles(values, read.m_data);
    if (read.m_data.empty())
        throw Exception(
            "Error reading vector data. String was empty or did not contain any values (started with string "
            "or similar)!",
            "[UnitVector::read]");
    if (badAt != std::string_view::npos) {
        const std::string_view rest = values.substr(badAt);
        throw Exception(text("Error reading vector data, value #%1 '%2' is not a finite number.",
                             read.m_data.size() + 1,
                             rest.substr(0, std::min<std::size_t>(rest.find_first_of(" \t\r\n"), 40))),
                        "[UnitVector::read]");
    }
    *this = std::move(read);
}

std::string UnitVector::write() const {
    if (!std::all_of(m_data.begin(), m_data.end(), [](double value) { return std::isfinite(value); }))
        throw Exception("Error writing unit vector!", "[UnitVector::write]");
    return joinNumbers(m_data);
}

void UnitVector::readXML(const TiXmlElement & element) {
    const xml::ElementReader reader(element, UNIT_VECTOR);
    const std::string unitName = reader.attribute("unit");
    try {
        read(reader.text(), unitName);
    } catch (const Exception & ex) {
        throw Exception(xml::withLine(element, ex.message()), "[UnitVector::read]");
    }
}

void UnitVector::readXML(const TiXmlElement & element, std::string & name) {
    std::string newName = xml::ElementReader(element, UNIT_VECTOR).attribute("name");
    readXML(element);
    name = std::move(newName);
}

void UnitVector::writeXML(TiXmlElement & parent, const std::string & elementName, const std::string & name) const {
    TiXmlElement & element = xml::appendText(parent, elementName, write());
    if (!name.empty())
        xml::setAttribute(element, "name", name);
    xml::setAttribute(element, "unit", m_unit.name());
}

} // namespace KOR
