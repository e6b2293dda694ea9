#include <HYGRION/OutputFile.h>

#include "XmlParts.h"

#include <KOR/MessageHandler.h>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[OutputFile::readXML]",
    .missingAttr = "Missing name attribute in OutputFile definition.",
    .unknownTag = "Unknown XML tag with name '%1' in OutputFile.",
    .wrapping = "Error reading OutputFile data.",
};

constexpr std::string_view OLD_QUANTITY = "ThermalLoadMediaFlow";
constexpr const char * RENAMING = "Renaming output quantity 'ThermalLoadMediaFlow' -> 'ThermalLoadGroundWaterFlow'.";
constexpr const char * NEW_QUANTITY = "ThermalLoadGroundWaterFlow";

} // namespace

void OutputFile::readXML(const TiXmlElement & element) {
    OutputFile read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        read.m_name = reader.attribute("name");
        std::optional<time_type_t> timeType;
        std::optional<space_type_t> spaceType;
        std::optional<std::string> outputGrid;
        reader.children({
            xml::once("Quantity",
                      [&](const TiXmlElement & child) {
                          read.m_quantity = KOR::xml::text(child);
                          if (read.m_quantity == OLD_QUANTITY) {
                              KOR::message(RENAMING, KOR::MSG_INFORMATION, std::string(TEXTS.where), 1);
                              read.m_quantity = NEW_QUANTITY;
                          }
                          if (const auto unit = KOR::xml::attribute(child, "unit"))
                              read.m_outputUnit.set(*unit);
                      }),
            xml::once("TimeType", xml::into(timeType)),
            xml::once("SpaceType", xml::into(spaceType)),
            xml::once("OutputGrid", xml::into(outputGrid)),
        });
        const auto require = [&](bool isGiven, std::string_view message) {
            if (!isGiven)
                reader.fail(KOR::text(message, read.m_name));
        };
        require(timeType.has_value(), "Missing TimeType element in output definition '%1'.");
        require(spaceType.has_value(), "Missing SpaceType element in output definition '%1'.");
        require(outputGrid.has_value(), "Missing OutputGrid element in output definition '%1'.");
        read.m_timeType = *timeType;
        read.m_spaceType = *spaceType;
        read.m_outputGrid = *outputGrid;
    });
    *this = std::move(read);
}

void OutputFile::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "OutputFile");
    xml::setAttribute(element, "name", m_name);
    TiXmlElement & quantity = xml::appendText(element, "Quantity", m_quantity);
    if (m_outputUnit != KOR::Unit())
        xml::setAttribute(quantity, "unit", m_outputUnit.name());
    xml::appendKeyword(element, "TimeType", m_timeType);
    xml::appendKeyword(element, "SpaceType", m_spaceType);
    xml::appendText(element, "OutputGrid", m_outputGrid);
}

void OutputFile::checkParameters() const {
    const auto require = [this](const std::string & text, std::string_view message) {
        if (text.empty())
            throw KOR::Exception(KOR::text(message, m_name), "[OutputFile::checkParameters]");
    };
    require(m_quantity, "Output file '%1' has no quantity.");
    require(m_outputGrid, "Output file '%1' has no output grid.");
}

} // namespace HYGRION
