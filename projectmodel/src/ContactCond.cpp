#include <HYGRION/ContactCond.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[ContactCond::readXML]",
    .missingAttr = "Expected '%1' attribute in ContactCondition.",
    .unknownTag = "Unknown XML tag with name '%1' in ContactCondition element.",
    .wrapping = {},
    .inChild = "Error reading ContactCondition element.",
};
constexpr NamedValueTexts PARAMETERS{
    .where = TEXTS.where,
    .unknownName = "Unknown KOR Parameter tag with name '%1' in ContactCondition element.",
};
constexpr NamedValueTexts FLAGS{
    .where = TEXTS.where,
    .unknownName = "Unknown Flag tag with name '%1' in ContactCondition element.",
};

//  parameter                    unit  min  max
constexpr ParaLimit LIMITS[] = {
    {"HeatConductionResistance",   "m2K/W", 0, UNLIMITED},
    {"VaporDiffusionResistance",   "m/s",   0, UNLIMITED},
    {"VaporDiffusionSD",           "m",     0, UNLIMITED},
    {"WaterConductionResistance",  "m/s",   0, UNLIMITED},
    {"AirConvectionResistance",    "",      0, UNLIMITED},
    {"SaltDiffusionResistance",    "",      0, UNLIMITED},
    {"VOCMassTransferCoefficient", "",      0, UNLIMITED},
    {"HeatExchangeCoefficient",    "W/m2K", 0, 1e6      },
    {"VaporExchangeCoefficient",   "s/m",   0, 1        },
};

void readFunction(const TiXmlElement & element, const xml::ElementReader & reader,
                  std::map<ContactCond::function_t, KOR::LinearSpline> & functions) {
    KOR::LinearSpline spline;
    spline.readXML(element);
    if (spline.m_xUnit.base() != KOR::Unit("---") || spline.m_yUnit.base() != KOR::Unit("m"))
        reader.fail(element, "Invalid x or y unit.");
    const auto key = xml::keyword<ContactCond::function_t>(element, spline.m_name);
    if (!functions.emplace(key, std::move(spline)).second)
        detail::throwTwice(element, KeywordList::Keyword(key), PARAMETERS);
}

} // namespace

void ContactCond::setFunction(function_t key, const std::vector<double> & x, std::string_view xUnit,
                              const std::vector<double> & y, std::string_view yUnit) {
    KOR::LinearSpline spline(x, y);
    spline.m_name = KeywordList::Keyword(key);
    spline.m_xUnit = KOR::Unit(xUnit);
    spline.m_yUnit = KOR::Unit(yUnit);
    m_functions.insert_or_assign(key, std::move(spline));
}

void ContactCond::readXML(const TiXmlElement & element) {
    ContactCond read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<condition_t>(reader, "type");
        read.m_kind = xml::keywordAttribute<kind_t>(reader, "kind");
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para, PARAMETERS)),
            xml::any("KOR:Flag", xml::into(read.m_flag, FLAGS)),
            xml::any("KOR:LinearSpline",
                     [&](const TiXmlElement & child) { readFunction(child, reader, read.m_functions); }),
            xml::once("FoilName", xml::into(read.m_foilName)),
        });
    });
    *this = std::move(read);
}

void ContactCond::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "ContactCondition");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    xml::setAttribute(element, "kind", KeywordList::Keyword(m_kind));
    m_para.writeXML(element);
    m_flag.writeXML(element);
    for (const auto & [key, spline] : m_functions)
        spline.writeXML(element);
    xml::appendGiven(element, "FoilName", m_foilName);
}

void ContactCond::checkParameters() const {
    constexpr const char * WHERE = "[ContactCond::checkParameters]";
    const std::string context = KOR::text("Contact condition '%1': ", m_name);
    checkLimits(m_para, LIMITS, context, WHERE);
    if (m_type == condition_t::FoilAdaptive && m_foilName.empty() && m_functions.empty() &&
        !m_para.contains(para_t::SCALING_A_POS))
        throw KOR::Exception(KOR::text("%1An adaptive foil needs a foil name, function '%2' or parameter '%3'.",
                                       context, KeywordList::Keyword(function_t::SdPositive),
                                       KeywordList::Keyword(para_t::SCALING_A_POS)),
                             WHERE);
}

} // namespace HYGRION
