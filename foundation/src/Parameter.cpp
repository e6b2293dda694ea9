#include <KOR/Parameter.h>

#include <KOR/Strings.h>
#include <KOR/UnitList.h>
#include <KOR/Xml.h>

namespace KOR {

namespace {

constexpr xml::ElementTexts PARAMETER{
    .where = "[Parameter::readXML]",
    .missingAttr = "Missing '%1' attribute in KOR:Parameter element.",
    .unknownTag = {},
    .wrapping = {},
};

double toBase(double value, Unit unit) {
    UnitList::instance().convert(unit, unit.base(), value);
    return value;
}

} // namespace

Parameter::Parameter(std::string name, double value, Unit unit) {
    set(std::move(name), value, unit);
}

void Parameter::set(std::string name, double value, Unit unit) {
    set_value(value, unit);
    m_name = std::move(name);
}

void Parameter::set_value(double value, Unit unit) {
    m_value = toBase(value, unit);
    m_ioValue = value;
    m_ioUnit = unit;
}

double Parameter::get_value(Unit unit) const {
    if (unit == m_ioUnit)
        return m_ioValue;
    double value = m_value;
    try {
        UnitList::instance().convert(m_ioUnit.base(), unit, value);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error converting unit in parameter '%1'.", m_name), "[Parameter::get_value]");
    }
    return value;
}

void Parameter::set_ioUnit(Unit unit) {
    m_ioValue = get_value(unit);
    m_ioUnit = unit;
}

std::string Parameter::valueText() const {
    return toString(m_ioValue) + ' ' + m_ioUnit.name();
}

void Parameter::readValue(std::string_view valueText, Unit defaultUnit) {
    try {
        const auto parts = words(valueText);
        if (parts.empty() || parts.size() > 2 || (parts.size() == 1 && defaultUnit == Unit()))
            throw Exception(text("Expected a value and a unit, got '%1'.", valueText), "[Parameter::readValue]");
        set_value(string2val<double>(parts[0]), parts.size() == 2 ? Unit(parts[1]) : defaultUnit);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error reading parameter from string '%1'.", valueText), "[Parameter::readValue]");
    }
}

void Parameter::read(std::string_view line) {
    const std::string_view whole = trimmed(line);
    const std::size_t nameEnd = std::min(whole.find_first_of(" \t="), whole.size());
    std::string_view rest = trimmed(whole.substr(nameEnd));
    if (rest.starts_with('='))
        rest.remove_prefix(1);
    Parameter read;
    try {
        if (nameEnd == 0)
            throw Exception("Expected a name.", "[Parameter::read]");
        read.m_name = whole.substr(0, nameEnd);
        read.readValue(rest);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error reading parameter from string '%1'.", line), "[Parameter::read]");
    }
    *this = std::move(read);
}

void Parameter::readXML(const TiXmlElement & element) {
    const xml::ElementReader reader(element, PARAMETER);
    std::string name = reader.attribute("name");
    const std::string unitName = reader.attribute("unit");
    const auto value = parseDouble(reader.text());
    if (!value)
        reader.fail("Cannot read value in KOR:Parameter element.");
    try {
        set(std::move(name), *value, Unit(unitName));
    } catch (const Exception & ex) {
        reader.fail(ex.message());
    }
}

void Parameter::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendText(parent, "KOR:Parameter", toString(m_ioValue));
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "unit", m_ioUnit.name());
}

} // namespace KOR
