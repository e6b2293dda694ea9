#include <HYGRION/Assignment.h>

#include "XmlParts.h"

#include <HYGRION/Disc.h>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[Assignment::readXML]",
    .missingAttr = "Expected '%1' attribute in Assignment.",
    .unknownTag = "Unknown XML tag with name '%1' in Assignment element.",
    .wrapping = {},
    .inChild = "Error reading element '%1' in Assignment element.",
    .inChildCause = "%1\nError reading element '%2 in Assignment element.", // the quote is missing in every version
};

constexpr xml::ElementTexts MATRICES{
    .where = "[Assignment::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown XML tag with name '%1' in DirectionRotationMatrix element.",
    .wrapping = {},
};

[[noreturn]] void refuse(const char * message) {
    throw KOR::Exception(message, "[Assignment::checkParameters]");
}

} // namespace

std::string Assignment::description() const {
    const std::string words = KeywordList::Keyword(m_type) + ' ' + m_reference;
    return m_name.empty() ? words : KOR::text("%1 (%2)", words, m_name);
}

void Assignment::readXML(const TiXmlElement & element) {
    Assignment read;
    xml::readElement(element, TEXTS, [&read, &element](const xml::ElementReader & reader) {
        read.m_type = xml::keyword<type_t>(element, reader.attribute("type"),
                                           "Invalid value for 'type' attribute in Assignment.", TEXTS.where);
        read.m_location =
            xml::keyword<location_t>(element, reader.attribute("location"),
                                     "Invalid value for 'location' attribute in Assignment.", TEXTS.where);
        const bool needsSide = read.m_type == type_t::Interface || read.m_type == type_t::ContactCondition;
        if (needsSide && read.m_location == location_t::Element)
            reader.fail(KOR::text("Invalid location for assignment of type '%1'.", KeywordList::Keyword(read.m_type)));
        const auto readMatrices = [&read](const TiXmlElement & child) {
            xml::ElementReader(child, MATRICES)
                .children({xml::any("RotationMatrixInstance", xml::into(read.m_rotationMatrices))});
        };
        reader.children({
            xml::once("Reference", xml::into(read.m_reference)),
            xml::once("AssignmentName", xml::into(read.m_name)),
            xml::once("Range", xml::into(read.m_range)),
            xml::once("KOR:Point3D", xml::into(read.m_coordinates)),
            xml::once("Mapping", xml::into(read.m_anisotropy)),
            xml::once("DirectionRotationMatrix", readMatrices),
        });
    });
    *this = std::move(read);
}

void Assignment::writeXML(TiXmlElement & parent, bool writeDefaults) const {
    TiXmlElement & element = xml::appendElement(parent, "Assignment");
    xml::setAttribute(element, "type", KeywordList::Keyword(m_type));
    xml::setAttribute(element, "location", KeywordList::Keyword(m_location));
    xml::appendText(element, "Reference", m_reference);
    if (!m_name.empty())
        xml::appendText(element, "AssignmentName", m_name);
    if (m_type == type_t::Material && (writeDefaults || m_anisotropy != AnisotropyInitType::UUU))
        xml::appendKeyword(element, "Mapping", m_anisotropy);
    if (m_anisotropy == AnisotropyInitType::UserMatrix && !m_rotationMatrices.empty()) {
        TiXmlElement & matrices = xml::appendElement(element, "DirectionRotationMatrix");
        for (const RotationMatrix & matrix : m_rotationMatrices)
            matrix.writeXML(matrices);
    }
    if (m_location == location_t::Coordinate)
        m_coordinates.writeXML(element);
    else
        m_range.writeXML(element);
}

void Assignment::checkParameters(const Disc & disc) const {
    if (m_location == location_t::Coordinate) {
        if (!(m_coordinates.x >= 0))
            refuse("Invalid x-coordinate.");
        if (!(m_coordinates.y >= 0))
            refuse("Invalid y-coordinate.");
        if (!(m_coordinates.z >= 0))
            refuse("Invalid z-coordinate.");
        return;
    }
    if (m_range.left >= disc.nx())
        refuse("Invalid attribute 'left' in Range.");
    if (m_range.right >= disc.nx())
        refuse("Invalid attribute 'right' in Range.");
    if (m_range.bottom >= disc.ny())
        refuse("Invalid attribute 'bottom' in Range.");
    if (m_range.top >= disc.ny())
        refuse("Invalid attribute 'top' in Range.");
    if (m_range.back >= disc.nz())
        refuse("Invalid attribute 'back' in Range.");
    if (m_range.front >= disc.nz())
        refuse("Invalid attribute 'front' in Range.");
}

} // namespace HYGRION
