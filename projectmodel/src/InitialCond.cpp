#include <HYGRION/InitialCond.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[InitialCond::readXML]",
    .missingAttr = "Expected '%1' attribute in InitialCondition.",
    .unknownTag = "Unknown XML tag with name '%1' in InitialCondition element.",
    .wrapping = {},
    .inChild = "Error reading InitialCondition element '%1'.",
};

constexpr const char * VALUE = "Value";

/// A value that is refused: at or beyond (or only beyond) a limit.
struct Limit {
    InitialCond::condition_t type;
    bool isUpper;    ///< refuses values above, else below
    bool isIncluded; ///< refuses the limit itself as well
    double limit;    ///< in unit
    std::string_view unit;
    std::string_view message;

    bool refuses(double value) const {
        if (value == limit)
            return isIncluded;
        return isUpper ? value > limit : value < limit;
    }
};

using enum InitialCond::condition_t;
// clang-format off
//   type                upper  incl.  limit unit   message
constexpr Limit LIMITS[] = {
    {Temperature,        false, true,  -50, "C",     "Initial condition '%1' has probably an invalid temperature (<= -50 C)."},
    {Temperature,        true,  true,  100, "C",     "Initial condition '%1' has probably an invalid temperature (>= 100 C)."},
    {MoistureContent,    false, false, 0,   "m3/m3", "Initial condition '%1' has an invalid volumetric content (< 0 m3/m3)."},
    {MoistureMass,       false, false, 0,   "kg/m3", "Initial condition '%1' has an invalid mass density (< 0 kg/m3)."},
    {MoistureMassByMass, false, false, 0,   "kg/kg", "Initial condition '%1' has an invalid mass content (< 0 kg/kg)."},
    {RelativeHumidity,   false, false, 0,   "%",     "Initial condition '%1' has an invalid relative humidity (< 0 %%)."},
    {RelativeHumidity,   true,  false, 100, "%",     "Initial condition '%1' has an invalid relative humidity (> 100 %%)."},
    {CapillaryPressure,  true,  true,  0,   "Pa",    "Initial condition '%1' has an invalid capillary pressure (>= 0 Pa)."},
};
// clang-format on

} // namespace

void InitialCond::readXML(const TiXmlElement & element) {
    InitialCond read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<condition_t>(reader, "type");
        reader.children({
            xml::once("KOR:Parameter",
                      [&](const TiXmlElement & child) {
                          read.m_value.readXML(child);
                          if (read.m_value.name() != VALUE)
                              reader.fail(
                                  child,
                                  KOR::text(
                                      "Expected KOR:Parameter with name '%1' in InitialCondition element, found '%2'.",
                                      VALUE, read.m_value.name()));
                      }),
            xml::once("Reference", xml::into(read.m_reference)),
        });
    });
    *this = std::move(read);
}

void InitialCond::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "InitialCondition");
    xml::setAttribute(element, "name", m_name);
    if (m_type)
        xml::setAttribute(element, "type", KeywordList::Keyword(*m_type));
    if (!m_value.empty())
        m_value.writeXML(element);
    xml::appendGiven(element, "Reference", m_reference);
}

void InitialCond::checkParameters() const {
    const auto refuse = [this](std::string_view message) {
        throw KOR::Exception(KOR::text(message, m_name), "[InitialCond::checkParameters]");
    };
    if (!m_type)
        refuse("Initial condition '%1' does not have a valid condition type.");
    if (m_value.empty() && m_reference.empty())
        refuse("Initial condition '%1' does not have a value.");
    if (m_value.empty())
        return;
    for (const Limit & limit : LIMITS)
        if (limit.type == *m_type && limit.refuses(m_value.get_value(limit.unit)))
            refuse(limit.message);
}

} // namespace HYGRION
