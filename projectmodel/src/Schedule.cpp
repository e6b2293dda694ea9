#include <HYGRION/Schedule.h>

#include "XmlParts.h"

#include <KOR/Flag.h>

#include <algorithm>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[Schedule::readXML]",
    .missingAttr = "Missing attribute '%1' in 'Schedule' element.",
    .unknownTag = "Expected element 'Interval' in 'Schedule' element.",
    .wrapping = {},
};

} // namespace

bool Schedule::isActive(double t) const {
    return !m_enabled || std::any_of(m_intervals.begin(), m_intervals.end(), [t](const Interval & interval) {
        return t >= interval.start() && t < interval.end();
    });
}

void Schedule::readXML(const TiXmlElement & element) {
    Schedule read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        KOR::Flag enabled;
        enabled.set("enabled", reader.attribute("enabled"));
        read.m_enabled = enabled.isEnabled();
        reader.children({
            xml::any("Interval", xml::into(read.m_intervals)),
        });
    });
    *this = std::move(read);
}

void Schedule::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "Schedule");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "enabled", m_enabled ? "true" : "false");
    for (const Interval & interval : m_intervals)
        interval.writeXML(element);
}

void Schedule::checkParameters() const {
    constexpr const char * WHERE = "[Schedule::checkParameters]";
    if (m_intervals.empty())
        throw KOR::Exception(KOR::text("Schedule '%1' has no interval.", m_name), WHERE);
    for (const Interval & interval : m_intervals) {
        try {
            interval.checkParameters();
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Schedule '%1' has an invalid interval.", m_name), WHERE);
        }
    }
}

} // namespace HYGRION
