#include <KOR/Unit.h>

#include <KOR/UnitList.h>
#include <KOR/Xml.h>

namespace KOR {

namespace {

std::uint16_t indexOf(std::string_view name, const char * where) {
    const UnitList::Record * record = UnitList::instance().find(name);
    if (record == nullptr)
        throw Exception(text("Unit '%1' not found.", name), where);
    return static_cast<std::uint16_t>(record->index);
}

std::uint16_t checkedIndex(std::size_t index, const char * where) {
    const std::size_t count = UnitList::instance().size();
    if (index >= count)
        throw Exception(text("Unit index %1 out of range 0..%2.", index, count - 1), where);
    return static_cast<std::uint16_t>(index);
}

} // namespace

Unit::Unit(std::string_view name) : m_index(indexOf(name, "[Unit::Unit]")) {}

Unit::Unit(std::size_t index) : m_index(checkedIndex(index, "[Unit::Unit]")) {}

void Unit::set(std::string_view name) {
    m_index = indexOf(name, "[Unit::set]");
}

void Unit::set(std::size_t index) {
    m_index = checkedIndex(index, "[Unit::set]");
}

const std::string & Unit::name() const {
    return UnitList::instance().retrieve(m_index).name;
}

Unit Unit::base() const {
    Unit unit;
    unit.m_index = static_cast<std::uint16_t>(UnitList::instance().retrieve(m_index).base);
    return unit;
}

void Unit::readXML(const TiXmlElement & element) {
    try {
        set(xml::text(element));
    } catch (const Exception & ex) {
        throw Exception(xml::withLine(element, ex.message()), "[Unit::readXML]");
    }
}

void Unit::writeXML(TiXmlElement & parent, const std::string & elementName) const {
    xml::setAttribute(xml::appendText(parent, "KOR:Unit", name()), "name", elementName);
}

} // namespace KOR
