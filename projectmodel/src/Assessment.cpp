#include <HYGRION/Assessment.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

using enum Assessment::AssessmentType;

constexpr xml::ElementTexts TEXTS{
    .where = "[Assessment::readXML]",
    .missingAttr = "Expected '%1' attribute in Assessment.",
    .unknownTag = "Unknown XML tag with name '%1' in Assessment element.",
    .wrapping = "Error reading Assessment element.",
};

// The limits are those that the named rules state; where a rule leaves the figure to the assessor, it is the customary
// one. A project may set each of them.
constexpr Assessment::Limit LIMITS[] = {
    {MoistureAccumulation,       "MaxYearlyChange",   1,   "%",
     "Change of the water content from year to year that counts as settled"                                                },
    {MoistureAccumulation,       "MaxCondensate",     1,   "kg/m2", "Water above the content at 80 % relative humidity"    },
    {MoistureAccumulationSingle, "MaxYearlyChange",   1,   "%",
     "Change of the water content from year to year that counts as settled"                                                },
    {MoistureAccumulationSingle, "MaxCondensate",     0.5, "kg/m2",
     "Water above the content at 80 % relative humidity, at a layer that takes up no water"                                },
    {MoldGrowth,                 "MaxMouldIndex",     3,   "---",   "Largest mould index, 0 to 6"                          },
    {MoldGrowth,                 "DeclineFactor",     1,   "---",   "Share of the decline of the mould index in dry times" },
    {IceCriteriaDIN4108,         "MaxPoreSaturation", 30,  "%",     "Share of the pores filled with water where it freezes"},
    {IceCriteriaDIN4108,         "FreezeTemperature", -2,  "C",     "Temperature below which pore water freezes"           },
    {IceCriteriaDIN4108,         "ThawTemperature",   0,   "C",     "Temperature above which ice has thawed"               },
    {WoodDegradation68800,       "MaxWoodMoisture",   20,  "%",     "Moisture of solid wood, by mass"                      },
    {WoodDegradation68800,       "MaxPanelMoisture",  18,  "%",     "Moisture of wood-based panels, by mass"               },
    {WoodDegradation68800,       "AveragingDepth",    10,  "mm",    "Depth over which the moisture is averaged"            },
    {WoodDegradationWTA6_8,      "MaxHumidityAt0C",   95,  "%",     "Relative humidity of the pore air at 0 C"             },
    {WoodDegradationWTA6_8,      "MaxHumidityAt30C",  86,  "%",     "Relative humidity of the pore air at 30 C"            },
    {WoodDegradationWTA6_8,      "AveragingDepth",    10,  "mm",    "Depth over which the humidity is averaged"            },
};

[[noreturn]] void refuse(std::string message) {
    throw KOR::Exception(std::move(message), "[Assessment::checkParameters]");
}

} // namespace

std::span<const Assessment::Limit> Assessment::limits() {
    return LIMITS;
}

const Assessment::Limit * Assessment::find(std::string_view name) const {
    const auto * row = std::find_if(std::begin(LIMITS), std::end(LIMITS), [this, name](const Limit & limit) {
        return limit.type == m_type && limit.name == name;
    });
    return row == std::end(LIMITS) ? nullptr : row;
}

double Assessment::limit(std::string_view name, std::string_view unitName) const {
    for (const KOR::Parameter & own : m_limits)
        if (own.name() == name)
            return own.get_value(unitName);
    const Limit * row = find(name);
    if (row == nullptr)
        throw KOR::Exception(KOR::text("Assessment '%1' has no limit '%2'.", m_name, name), "[Assessment::limit]");
    return KOR::Parameter(std::string(name), row->value, KOR::Unit(row->unit)).get_value(unitName);
}

void Assessment::readXML(const TiXmlElement & element) {
    Assessment read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<AssessmentType>(reader, "type");
        read.m_assignmentType = xml::keywordAttribute<AssignmentType>(reader, "assignment");
        const auto readLayer = [&read](const TiXmlElement & child) {
            read.m_layer = KOR::string2val<std::uint32_t>(KOR::xml::text(child));
        };
        reader.children({
            xml::once("CriteriaSet", xml::into(read.m_criteriaSet)),
            xml::once("Layer", readLayer),
            xml::once("Range", [&](const TiXmlElement & child) { read.m_range.emplace().readXML(child); }),
            xml::any("KOR:Parameter", xml::into(read.m_limits)),
        });
        read.checkParameters();
    });
    *this = std::move(read);
}

void Assessment::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "Assessment");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    xml::setAttribute(element, "assignment", KeywordList::Keyword(m_assignmentType));
    if (!m_criteriaSet.empty())
        xml::appendText(element, "CriteriaSet", m_criteriaSet);
    if (m_layer)
        xml::appendText(element, "Layer", KOR::toString(*m_layer));
    if (m_range)
        m_range->writeXML(element);
    for (const KOR::Parameter & limit : m_limits)
        limit.writeXML(element);
}

void Assessment::checkParameters() const {
    if (m_name.empty())
        refuse("An assessment has no name.");
    if (m_layer && m_range)
        refuse(KOR::text("Assessment '%1' names both a layer and a range.", m_name));
    for (auto limit = m_limits.begin(); limit != m_limits.end(); ++limit) {
        const Limit * row = find(limit->name());
        if (row == nullptr)
            refuse(KOR::text("Assessment '%1' has no limit '%2'.", m_name, limit->name()));
        if (limit->ioUnit().base() != KOR::Unit(row->unit).base())
            refuse(KOR::text("Limit '%1' of assessment '%2' needs a unit like '%3', found '%4'.", limit->name(), m_name,
                             row->unit, limit->ioUnit().name()));
        if (std::any_of(m_limits.begin(), limit,
                        [limit](const KOR::Parameter & other) { return other.name() == limit->name(); }))
            refuse(KOR::text("Limit '%1' of assessment '%2' is given more than once.", limit->name(), m_name));
    }
}

} // namespace HYGRION
