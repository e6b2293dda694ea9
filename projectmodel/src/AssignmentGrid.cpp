#include <HYGRION/AssignmentGrid.h>

#include <algorithm>

namespace HYGRION {

std::vector<std::uint32_t> AssignmentGrid::list(ListId id) const {
    std::vector<std::uint32_t> assignments;
    for (; id != 0; id = m_lists[id].parent)
        assignments.push_back(m_lists[id].assignment);
    std::reverse(assignments.begin(), assignments.end());
    return assignments;
}

std::vector<std::uint32_t> AssignmentGrid::sides(std::size_t i, std::size_t j, std::size_t k,
                                                 Assignment::location_t side) const {
    using enum Assignment::location_t;
    switch (side) {
    case Left:
        return i == 0 ? list(faceList(X, i, j, k)) : std::vector<std::uint32_t>();
    case Right:
        return i + 1 == nx() ? list(faceList(X, i + 1, j, k)) : std::vector<std::uint32_t>();
    case Bottom:
        return j == 0 ? list(faceList(Y, i, j, k)) : std::vector<std::uint32_t>();
    case Top:
        return j + 1 == ny() ? list(faceList(Y, i, j + 1, k)) : std::vector<std::uint32_t>();
    case Back:
        return k == 0 ? list(faceList(Z, i, j, k)) : std::vector<std::uint32_t>();
    case Front:
        return k + 1 == nz() ? list(faceList(Z, i, j, k + 1)) : std::vector<std::uint32_t>();
    case Element:
    case Coordinate:
        break;
    }
    return {};
}

std::uint32_t AssignmentGrid::flags(std::size_t i, std::size_t j, std::size_t k) const {
    std::uint32_t bits = 0;
    if (i > 0 && faceList(X, i, j, k) != 0)
        bits |= INNER_LEFT;
    if (j > 0 && faceList(Y, i, j, k) != 0)
        bits |= INNER_BOTTOM;
    if (k > 0 && faceList(Z, i, j, k) != 0)
        bits |= INNER_BACK;
    return bits;
}

void AssignmentGrid::reset(std::size_t nx, std::size_t ny, std::size_t nz) {
    m_size = {nx, ny, nz};
    m_cells.assign(nx * ny * nz, 0);
    for (auto & faces : m_faces)
        faces.clear();
    m_lists.assign(1, List());
}

AssignmentGrid::ListId AssignmentGrid::extended(ListId id, std::uint32_t assignment) {
    const ListId latest = m_lists[id].latestChild;
    if (latest != 0 && m_lists[latest].assignment == assignment)
        return latest;
    const auto child = static_cast<ListId>(m_lists.size());
    m_lists.push_back({.parent = id, .assignment = assignment, .latestChild = 0});
    m_lists[id].latestChild = child;
    return child;
}

void AssignmentGrid::addElement(std::uint32_t assignment, const Range & range) {
    for (std::size_t k = range.back; k <= range.front; ++k)
        for (std::size_t j = range.bottom; j <= range.top; ++j) {
            ListId * cell = &m_cells[cellIndex(range.left, j, k)];
            for (std::size_t i = range.left; i <= range.right; ++i, ++cell)
                *cell = extended(*cell, assignment);
        }
}

void AssignmentGrid::addFaces(std::uint32_t assignment, axis_t axis, Range faces) {
    if (m_faces[axis].empty())
        m_faces[axis].assign((nx() + (axis == X)) * (ny() + (axis == Y)) * (nz() + (axis == Z)), 0);
    for (std::size_t k = faces.back; k <= faces.front; ++k)
        for (std::size_t j = faces.bottom; j <= faces.top; ++j)
            for (std::size_t i = faces.left; i <= faces.right; ++i) {
                ListId & face = m_faces[axis][faceIndex(axis, i, j, k)];
                face = extended(face, assignment);
            }
}

} // namespace HYGRION
