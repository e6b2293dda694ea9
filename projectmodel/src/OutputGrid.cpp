#include <HYGRION/OutputGrid.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[OutputGrid::readXML]",
    .missingAttr = "Missing name attribute in OutputGrid definition.",
    .unknownTag = "Unknown XML tag with name '%1' in OutputGrid.",
    .wrapping = "Error reading OutputGrid data.",
};

} // namespace

void OutputGrid::readXML(const TiXmlElement & element) {
    OutputGrid read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        reader.children({
            xml::any("Interval", xml::into(read.m_intervals)),
        });
    });
    *this = std::move(read);
}

void OutputGrid::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "OutputGrid");
    xml::setAttribute(element, "name", m_name);
    for (const Interval & interval : m_intervals)
        interval.writeXML(element);
}

void OutputGrid::checkParameters() const {
    const auto refuse = [this](std::string_view message, std::size_t number) {
        throw KOR::Exception(KOR::text(message, m_name, number), "[OutputGrid::checkParameters]");
    };
    if (m_intervals.empty())
        refuse("Output grid '%1' has no interval.", 0);
    for (std::size_t i = 0; i < m_intervals.size(); ++i) {
        try {
            m_intervals[i].checkParameters();
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Output grid '%1' has an invalid interval (no. %2).", m_name, i + 1),
                                 "[OutputGrid::checkParameters]");
        }
        if (m_intervals[i].stepSize() <= 0)
            refuse("Output grid '%1': parameter 'StepSize' is missing in interval no. %2.", i + 1);
        if (i > 0 && m_intervals[i].start() < m_intervals[i - 1].end())
            refuse("Output grid '%1': interval no. %2 starts before the end of the previous one.", i + 1);
    }
}

} // namespace HYGRION
