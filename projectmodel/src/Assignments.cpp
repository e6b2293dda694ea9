#include <HYGRION/Assignments.h>

#include "XmlParts.h"

#include <HYGRION/Disc.h>

namespace HYGRION {

namespace {

using location_t = Assignment::location_t;

constexpr xml::ElementTexts TEXTS{
    .where = "[Assignments::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown XML tag with name '%1' in 'Assignments' section.",
    .wrapping = "Error reading elements in section 'Assignments'.",
};

/// One axis of a range: its ends, and the sides that lie across it.
struct Axis {
    std::uint32_t Range::*first;
    std::uint32_t Range::*last;
    location_t atFirst;
    location_t atLast;
};

Axis axisOf(unsigned int dir) {
    switch (dir) {
    case Disc::X:
        return {&Range::left, &Range::right, location_t::Left, location_t::Right};
    case Disc::Y:
        return {&Range::bottom, &Range::top, location_t::Bottom, location_t::Top};
    case Disc::Z:
        return {&Range::back, &Range::front, location_t::Back, location_t::Front};
    default:
        throw KOR::Exception("Invalid argument for dir.", "[Assignments::followCells]");
    }
}

/// The new border of an old one; borders beyond the old grid keep their distance to its end.
std::uint32_t moved(std::uint64_t border, const std::vector<std::uint32_t> & newEdge) {
    const std::uint64_t last = newEdge.size() - 1;
    if (border <= last)
        return newEdge[border];
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(newEdge[last] + (border - last), UINT32_MAX));
}

/// \return false if none of the cells is left
bool follow(Assignment & assignment, const Axis & axis, const std::vector<std::uint32_t> & newEdge) {
    std::uint32_t & first = assignment.m_range.*axis.first;
    std::uint32_t & last = assignment.m_range.*axis.last;
    const bool isThin = first == last;
    const std::uint32_t start = moved(first, newEdge);
    const std::uint32_t end = moved(std::uint64_t{last} + 1, newEdge);
    if (end <= start)
        return false;
    first = start;
    last = end - 1;
    if (isThin && assignment.m_location == axis.atFirst)
        last = first;
    if (isThin && assignment.m_location == axis.atLast)
        first = last;
    return true;
}

} // namespace

void Assignments::readXML(const TiXmlElement & element) {
    std::vector<Assignment> read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({xml::any("Assignment", xml::into(read))});
    });
    m_list = std::move(read);
}

void Assignments::writeXML(TiXmlElement & parent) const {
    if (m_list.empty())
        return;
    KOR::xml::appendComment(parent, "List of all assignments of materials and conditions");
    xml::writeList(parent, "Assignments", m_list);
}

void Assignments::checkParameters(const Disc & disc) const {
    try {
        for (const Assignment & assignment : m_list)
            assignment.checkParameters(disc);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Assignments have invalid parameters.", "[Assignments::checkParameters]");
    }
}

std::vector<Assignment> Assignments::followCells(unsigned int dir, const std::vector<std::uint32_t> & newEdge) {
    const Axis axis = axisOf(dir);
    std::vector<Assignment> gone;
    std::vector<Assignment> kept;
    kept.reserve(m_list.size());
    for (Assignment & assignment : m_list) {
        Assignment before = assignment;
        if (assignment.m_location == location_t::Coordinate || follow(assignment, axis, newEdge))
            kept.push_back(std::move(assignment));
        else
            gone.push_back(std::move(before));
    }
    m_list = std::move(kept);
    return gone;
}

} // namespace HYGRION
