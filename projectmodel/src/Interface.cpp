#include <HYGRION/Interface.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[Interface::readXML]",
    .missingAttr = "Expected '%1' attribute in element 'Interface'.",
    .unknownTag = "Unknown XML tag with name '%1' in 'Interface' element.",
    .wrapping = {},
    .inChild = "Error reading element '%1' in 'Interface' element.",
};
constexpr NamedValueTexts VALUES{.where = TEXTS.where};

//  parameter                                unit     min         max
constexpr ParaLimit LIMITS[] = {
    {"Orientation",                              "Deg",   -360,       360      },
    {"Inclination",                              "Deg",   -180,       180      },
    {"Area",                                     "m2",    ABOVE_ZERO, UNLIMITED},
    {"CustomIndoorTemperature",                  "C",     -50,        100      },
    {"CustomIndoorRelativeHumidity",             "%",     0,          100      },
    {"CustomIndoorHeatTransferCoefficient",      "W/m2K", 0,          UNLIMITED},
    {"CustomIndoorVaporTransferCoefficient",     "s/m",   0,          UNLIMITED},
    {"OutdoorHeatTransferCoefficient",           "W/m2K", 0,          UNLIMITED},
    {"OutdoorConvectiveHeatTransferCoefficient", "W/m2K", 0,          UNLIMITED},
    {"OutdoorRadiantHeatTransferCoefficient",    "W/m2K", 0,          UNLIMITED},
    {"OutdoorVaporTransferCoefficient",          "s/m",   0,          UNLIMITED},
    {"OutdoorSdValue",                           "m",     0,          UNLIMITED},
    {"OutdoorAdsorptionCoefficient",             "---",   0,          1        },
    {"OutdoorEmissionCoefficient",               "---",   0,          1        },
    {"OutdoorRainShelteringCoefficient",         "---",   0,          10       },
    {"WTALowTemperature",                        "C",     -50,        100      },
    {"WTAHighTemperature",                       "C",     -50,        100      },
    {"WTALowRelativeHumidity",                   "%",     0,          100      },
    {"WTAHighRelativeHumidity",                  "%",     0,          100      },
};

} // namespace

void Interface::readXML(const TiXmlElement & element) {
    Interface read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<type_t>(reader, "type");
        reader.children({
            xml::any("BCReference", xml::into(read.m_bcReferences)),
            xml::any("KOR:Parameter", xml::into(read.m_para, VALUES)),
            xml::any("KOR:Flag", xml::into(read.m_flag, VALUES)),
            xml::once("ClimateTypeIndoor", xml::into(read.m_climateTypeIndoor)),
            xml::once("IndoorWTAType", xml::into(read.m_indoorWTAType)),
            xml::once("ClimateTypeOutdoor", xml::into(read.m_climateTypeOutdoor)),
            xml::once("FMUInterfaceType", xml::into(read.m_fmuInterfaceType)),
            xml::once("OtherSideType", xml::into(read.m_otherSideType)),
        });
    });
    *this = std::move(read);
}

void Interface::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "Interface");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    for (const std::string & name : m_bcReferences)
        xml::appendText(element, "BCReference", name);
    m_para.writeXML(element);
    m_flag.writeXML(element);
    xml::appendKeyword(element, "ClimateTypeIndoor", m_climateTypeIndoor);
    xml::appendKeyword(element, "IndoorWTAType", m_indoorWTAType);
    xml::appendKeyword(element, "ClimateTypeOutdoor", m_climateTypeOutdoor);
    xml::appendKeyword(element, "FMUInterfaceType", m_fmuInterfaceType);
    xml::appendKeyword(element, "OtherSideType", m_otherSideType);
}

void Interface::checkParameters() const {
    constexpr const char * WHERE = "[Interface::checkParameters]";
    const std::string context = KOR::text("Interface '%1': ", m_name);
    checkLimits(m_para, LIMITS, context, WHERE);
    const auto require = [&](bool isGiven, std::string_view what) {
        if (!isGiven)
            throw KOR::Exception(KOR::text("%1'%2' is missing.", context, what), WHERE);
    };
    const auto requireParameters = [&](std::initializer_list<para_t> keys) {
        for (const para_t key : keys)
            require(m_para.contains(key), KeywordList::Keyword(key));
    };
    if (m_type == type_t::EngineeringOutdoor)
        require(m_climateTypeOutdoor.has_value(), "ClimateTypeOutdoor");
    if (m_type == type_t::External)
        require(m_fmuInterfaceType.has_value(), "FMUInterfaceType");
    if (m_type != type_t::EngineeringIndoor)
        return;
    require(m_climateTypeIndoor.has_value(), "ClimateTypeIndoor");
    if (m_climateTypeIndoor == climateTypeIndoor_t::IndoorUserData)
        requireParameters({para_t::CustomIndoorTemperature, para_t::CustomIndoorRelativeHumidity});
    if (m_climateTypeIndoor == climateTypeIndoor_t::IndoorWTA) {
        require(m_indoorWTAType.has_value(), "IndoorWTAType");
        if (m_indoorWTAType == indoorWTAType_t::IndoorWTAUserData)
            requireParameters({para_t::WTALowTemperature, para_t::WTAHighTemperature, para_t::WTALowRelativeHumidity,
                               para_t::WTAHighRelativeHumidity});
    }
}

} // namespace HYGRION
