#include <HYGRION/FieldCond.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[FieldCond::readXML]",
    .missingAttr = "Expected '%1' attribute in FieldCondition.",
    .unknownTag = "Unknown XML tag with name '%1' in FieldCondition element.",
    .wrapping = {},
    .inChild = "Error reading FieldCondition element.",
};
constexpr NamedValueTexts VALUES{.where = TEXTS.where};

//  parameter                   unit        min         max
constexpr ParaLimit LIMITS[] = {
    {"LeftEmissionCoefficient",   "---",      0,          1        },
    {"RightEmissionCoefficient",  "---",      0,          1        },
    {"TopEmissionCoefficient",    "---",      0,          1        },
    {"BottomEmissionCoefficient", "---",      0,          1        },
    {"BackEmissionCoefficient",   "---",      0,          1        },
    {"FrontEmissionCoefficient",  "---",      0,          1        },
    {"AirPressure",               "Pa",       ABOVE_ZERO, UNLIMITED},
    {"MaxWaterContent",           "m3/m3",    0,          1        },
    {"MinWaterContent",           "m3/m3",    0,          1        },
    {"GasConvectionProportion",   "%",        0,          100      },
    {"ConvectiveSourcekCL",       "m3/m2hPa", 0,          UNLIMITED},
    {"ConvectiveSourceHeight",    "m",        0,          UNLIMITED},
    {"LimitDeltaT",               "K",        0,          UNLIMITED},
    {"RainFraction",              "---",      0,          1        },
    {"HeatTransferCoefficient",   "W/K",      0,          UNLIMITED},
    {"FlowDirection",             "",         0,          5        },
    {"HeatingCooling",            "",         0,          2        },
};

} // namespace

void FieldCond::readXML(const TiXmlElement & element) {
    FieldCond read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<condition_t>(reader, "type");
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para, read.m_intPara, VALUES)),
            xml::any("KOR:Flag", xml::into(read.m_flag, VALUES)),
            xml::any("KOR:IntPara", xml::into(read.m_intPara, VALUES)),
            xml::any("CCReference",
                     [&](const TiXmlElement & child) {
                         const auto type = KOR::xml::attribute(child, "type");
                         if (type && KeywordList::KeywordExists<additionalClimate_t>(*type))
                             xml::readReference(child, read.m_additionalReferences);
                         else
                             xml::readReference(child, read.m_ccReferences);
                     }),
            xml::once("Schedule", xml::into(read.m_schedule)),
            xml::once("OtherInterfaceReference", xml::into(read.m_otherInterfaceReference)),
        });
    });
    *this = std::move(read);
}

void FieldCond::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "FieldCondition");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    m_para.writeXML(element);
    m_flag.writeXML(element);
    m_intPara.writeXML(element);
    xml::writeReferences(element, m_ccReferences);
    xml::writeReferences(element, m_additionalReferences);
    xml::appendGiven(element, "Schedule", m_schedule);
    xml::appendGiven(element, "OtherInterfaceReference", m_otherInterfaceReference);
}

void FieldCond::checkParameters() const {
    constexpr const char * WHERE = "[FieldCond::checkParameters]";
    const std::string context = KOR::text("Field condition '%1': ", m_name);
    checkLimits(m_para, LIMITS, context, WHERE);
    checkLimits(m_intPara, LIMITS, context, WHERE);
}

} // namespace HYGRION
