#include <HYGRION/BoundaryCond.h>

#include "ParaLimits.h"
#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[BoundaryCond::readXML]",
    .missingAttr = "Expected '%1' attribute in BoundaryCondition.",
    .unknownTag = "Unknown XML tag with name '%1' in BoundaryCondition element.",
    .wrapping = {},
    .inChild = "Error reading BoundaryCondition element.",
};
constexpr NamedValueTexts VALUES{
    .where = TEXTS.where,
    .invalidValue = "Invalid parameter value for '%1' property.",
};

//  parameter                          unit   min         max
constexpr ParaLimit LIMITS[] = {
    {"ExchangeExponent",                 "---",   0,          10       },
    {"ExposureCoefficient",              "---",   0,          10       },
    {"MinRainTemperature",               "C",     -50,        100      },
    {"SurfaceAbsorptionCoefficient",     "---",   0,          1        },
    {"SurfaceEmissionCoefficient",       "---",   0,          1        },
    {"SDValue",                          "m",     0,          UNLIMITED},
    {"PipeCollectorDiameter",            "m",     ABOVE_ZERO, UNLIMITED},
    {"PipeCollectorThickness",           "m",     ABOVE_ZERO, UNLIMITED},
    {"PipeCollectorLength",              "m",     ABOVE_ZERO, UNLIMITED},
    {"PipeCollectorThermalConductivity", "W/mK",  ABOVE_ZERO, UNLIMITED},
    {"PipeCollectorFluidHeatCapacity",   "J/kgK", ABOVE_ZERO, UNLIMITED},
    {"PipeCollectorModelFraction",       "---",   0,          1        },
    {"PipeCollectorGlycolContent",       "",      0,          100      },
    {"FlowCoefficient",                  "",      0,          UNLIMITED},
    {"SurfaceLiquidFraction",            "---",   0,          1        },
    {"HeatingCooling",                   "",      0,          2        },
    {"HP_GlycolKind",                    "",      0,          2        },
};

/// A coefficient of exchange is one of heat or of vapour, by the type.
struct Coefficient {
    BoundaryCond::condition_t type;
    ParaLimit limit;
};
constexpr Coefficient COEFFICIENTS[] = {
    {BoundaryCond::condition_t::HeatConduction, {"ExchangeCoefficient", "W/m2K", 0, 1e6}   },
    {BoundaryCond::condition_t::HeatConduction, {"ExchangeSlope", "J/m3K", -UNLIMITED, 1e6}},
    {BoundaryCond::condition_t::VaporDiffusion, {"ExchangeCoefficient", "s/m", 0, 1}       },
    {BoundaryCond::condition_t::VaporDiffusion, {"ExchangeSlope", "s2/m2", -UNLIMITED, 1}  },
    {BoundaryCond::condition_t::VOCDiffusion,   {"ExchangeCoefficient", "", 0, UNLIMITED}  },
    {BoundaryCond::condition_t::AirConvection,  {"ExchangeCoefficient", "", 0, UNLIMITED}  },
};

/// What a kind cannot do without.
struct Required {
    BoundaryCond::kind_t kind;
    BoundaryCond::para_t para;
};
using Kind = BoundaryCond::kind_t;
using Para = BoundaryCond::para_t;
constexpr Required REQUIRED[] = {
    {Kind::Exchange,               Para::ExchangeCoefficient             },
    {Kind::ExchangeVelocity,       Para::ExchangeCoefficient             },
    {Kind::ExchangeVelocity,       Para::ExchangeSlope                   },
    {Kind::ExchangeVelocity,       Para::ExchangeExponent                },
    {Kind::PipeCollectorModel,     Para::PipeCollectorDiameter           },
    {Kind::PipeCollectorModel,     Para::PipeCollectorThickness          },
    {Kind::PipeCollectorModel,     Para::PipeCollectorLength             },
    {Kind::PipeCollectorModel,     Para::PipeCollectorThermalConductivity},
    {Kind::StandardRadiationModel, Para::SurfaceAbsorptionCoefficient    },
    {Kind::LongWaveComponents,     Para::SurfaceEmissionCoefficient      },
    {Kind::FlowCoefficientModel,   Para::FlowCoefficient                 },
};

/// A coefficient may come from the climate, and only short waves are absorbed.
bool isRequired(const BoundaryCond & condition, Para para) {
    if (para == Para::ExchangeCoefficient && condition.m_kind == Kind::Exchange)
        return !condition.m_ccReferences.contains(ClimateCond::condition_t::HeatTransferCoefficient);
    return para != Para::SurfaceAbsorptionCoefficient ||
           condition.m_type != BoundaryCond::condition_t::LongWaveRadiation;
}

} // namespace

void BoundaryCond::readXML(const TiXmlElement & element) {
    BoundaryCond read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        read.m_type = xml::keywordAttribute<condition_t>(reader, "type");
        read.m_kind = xml::keywordAttribute<kind_t>(reader, "kind");
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para, read.m_intPara, VALUES)),
            xml::any("KOR:Flag", xml::into(read.m_flag, VALUES)),
            xml::any("KOR:IntPara", xml::into(read.m_intPara, VALUES)),
            xml::any("CCReference", xml::into(read.m_ccReferences)),
            xml::once("Schedule", xml::into(read.m_schedule)),
            xml::once("OtherInterfaceReference", xml::into(read.m_otherInterfaceReference)),
            xml::once("ContactConditionName", xml::into(read.m_contactConditionName)),
        });
    });
    *this = std::move(read);
}

void BoundaryCond::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "BoundaryCondition");
    xml::setAttribute(element, "name", m_name);
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    xml::setAttribute(element, "kind", KeywordList::Keyword(m_kind));
    m_para.writeXML(element);
    m_flag.writeXML(element);
    m_intPara.writeXML(element);
    xml::writeReferences(element, m_ccReferences);
    xml::appendGiven(element, "Schedule", m_schedule);
    xml::appendGiven(element, "OtherInterfaceReference", m_otherInterfaceReference);
    xml::appendGiven(element, "ContactConditionName", m_contactConditionName);
}

void BoundaryCond::checkParameters() const {
    constexpr const char * WHERE = "[BoundaryCond::checkParameters]";
    const std::string context = KOR::text("Boundary condition '%1': ", m_name);
    for (const Required & required : REQUIRED)
        if (required.kind == m_kind && !m_para.contains(required.para) && isRequired(*this, required.para))
            throw KOR::Exception(KOR::text("%1Parameter '%2' is missing for kind '%3'.", context,
                                           KeywordList::Keyword(required.para), KeywordList::Keyword(m_kind)),
                                 WHERE);
    checkLimits(m_para, LIMITS, context, WHERE);
    for (const Coefficient & row : COEFFICIENTS)
        if (row.type == m_type)
            checkLimits(m_para, std::span(&row.limit, 1), context, WHERE);
    checkLimits(m_intPara, LIMITS, context, WHERE);
}

} // namespace HYGRION
