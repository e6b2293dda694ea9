#include <HYGRION/Outputs.h>

#include "ParaLimits.h"
#include "XmlParts.h"

#include <KOR/UnitList.h>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[Outputs::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown XML tag with name '%1' in Outputs element.",
    .wrapping = "Error reading Outputs element.",
};
constexpr NamedValueTexts PARAMETERS{
    .where = TEXTS.where,
    .unknownName = "Unknown KOR Parameter tag with name '%1' in Outputs element.",
    .invalidValue = "Invalid parameter value for '%1' property.",
};
constexpr NamedValueTexts FLAGS{
    .where = TEXTS.where,
    .unknownName = "Unknown flag '%1' in 'Outputs' section.",
};

constexpr const char * TIME_UNIT = "TimeUnit";

constexpr ParaLimit LIMITS[] = {
    {"MaximumHygricRH",      "%", ABOVE_ZERO, 100 },
    {"ThermalExpansionTRef", "K", ABOVE_ZERO, 1000},
    {"HygricExpansionRHRef", "%", 0,          100 },
    {"AsciiPrecision",       "",  1,          17  },
};

KOR::Unit readTimeUnit(const xml::ElementReader & reader, const TiXmlElement & child) {
    if (KOR::xml::attribute(child, "name") != TIME_UNIT)
        reader.fail(child, KOR::text("Expected KOR:Unit with name '%1'.", TIME_UNIT));
    const std::string name = KOR::xml::text(child);
    if (KOR::UnitList::instance().find(name) == nullptr)
        reader.fail(child, KOR::text("Unknown unit '%1' in 'Outputs' section.", name));
    const KOR::Unit unit(name);
    if (unit.base() != KOR::Unit("s"))
        reader.fail(child, KOR::text("Unit '%1' in 'Outputs' section is not a time unit.", name));
    return unit;
}

/// Reads a list; chains what was read above a failure.
template <typename Item>
void readItems(const TiXmlElement & element, std::string_view tag, std::vector<Item> & items,
               std::string_view wrapping) {
    const xml::ElementTexts texts{.where = TEXTS.where, .missingAttr = {}, .unknownTag = {}, .wrapping = wrapping};
    xml::readElement(element, texts,
                     [&](const xml::ElementReader &) { xml::readList(element, tag, items, TEXTS.where); });
}

} // namespace

void Outputs::readXML(const TiXmlElement & element) {
    Outputs read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::once("KOR:Unit", [&](const TiXmlElement & child) { read.m_timeUnit = readTimeUnit(reader, child); }),
            xml::any("KOR:Parameter", xml::into(read.m_para, read.m_intPara, PARAMETERS)),
            xml::any("KOR:IntPara", xml::into(read.m_intPara, PARAMETERS)),
            xml::any("KOR:Flag", xml::into(read.m_flag, FLAGS)),
            xml::once("OutputGrids",
                      [&](const TiXmlElement & child) {
                          readItems(child, "OutputGrid", read.m_outputGrids, "Error reading output grids.");
                      }),
            xml::once("OutputFiles",
                      [&](const TiXmlElement & child) {
                          readItems(child, "OutputFile", read.m_outputFiles, "Error reading output files.");
                      }),
        });
    });
    *this = std::move(read);
}

void Outputs::writeXML(TiXmlElement & parent) const {
    if (*this == Outputs())
        return;
    KOR::xml::appendComment(parent, "Contains definitions of output files and schedules for outputs.");
    TiXmlElement & section = xml::appendElement(parent, "Outputs");
    m_timeUnit.writeXML(section, TIME_UNIT);
    m_para.writeXML(section);
    m_intPara.writeXML(section);
    m_flag.writeXML(section);
    xml::writeList(section, "OutputGrids", m_outputGrids);
    xml::writeList(section, "OutputFiles", m_outputFiles);
}

void Outputs::checkParameters() const {
    constexpr const char * WHERE = "[Outputs::checkParameters]";
    checkLimits(m_para, LIMITS, "Outputs: ", WHERE);
    checkLimits(m_intPara, LIMITS, "Outputs: ", WHERE);
    for (const OutputGrid & grid : m_outputGrids)
        grid.checkParameters();
    for (const OutputFile & file : m_outputFiles)
        file.checkParameters();
}

} // namespace HYGRION
