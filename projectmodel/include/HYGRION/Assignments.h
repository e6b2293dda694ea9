#pragma once

#include <HYGRION/Assignment.h>

namespace HYGRION {

/// All assignments. The order counts: the grid of assignments is built in it.
class Assignments {
public:
    std::vector<Assignment> m_list;

    bool empty() const { return m_list.empty(); }
    std::size_t size() const { return m_list.size(); }

    /// Throws with "[Assignments::readXML]" and the line.
    void readXML(const TiXmlElement & element);
    /// Appends a comment and the element; nothing for an empty list.
    void writeXML(TiXmlElement & parent) const;

    /// Checks each in order; throws "Assignments have invalid parameters." ("[Assignments::checkParameters]") chained
    /// above the first fault.
    void checkParameters(const Disc & disc) const;

    /// Moves every range along one axis after the cells of that axis changed, so that assignments follow their cells.
    /// \param dir direction bit of Disc: 1 = x, 2 = y, 4 = z
    /// \param newEdge for each old cell border 0..n the number of the new border that took its place, ascending
    /// A side one cell thick stays on the one cell that bears the side. \return assignments whose cells are all gone,
    /// taken out of the list.
    std::vector<Assignment> followCells(unsigned int dir, const std::vector<std::uint32_t> & newEdge);

    bool operator==(const Assignments &) const = default;
};

} // namespace HYGRION
