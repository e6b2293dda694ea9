#pragma once

#include <HYGRION/Assignments.h>
#include <HYGRION/Disc.h>

#include <string>
#include <vector>

namespace HYGRION {

class Project;

/// What an editor does to a grid and its assignments in one stroke. Directions are bits of Disc::dir_t, indices count from
/// 0, ranges of indices hold both ends. Assignments follow their cells. Whatever throws has changed nothing.
namespace edit {

/// Inserts \p count cells before cell \p before (or behind the last); each is as wide as the cell that it follows (as the
/// first, at the start) and has that cell's assignments. Throws as Disc::modifySteps.
void insertSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t before, std::size_t count = 1);
/// Divides a cell into \p count equal ones. Throws as Disc::modifySteps.
void splitStep(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t index, std::size_t count = 2);
/// Makes one cell out of several; it has the assignments of the larger part. \return assignments that are gone.
/// Throws as Disc::modifySteps.
std::vector<Assignment> mergeSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first,
                                   std::size_t last);
/// Takes cells out. \return assignments that are gone. Throws as Disc::modifySteps.
std::vector<Assignment> removeSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first,
                                    std::size_t last);
/// Moves the cells first..last so that the first of them comes to stand before cell \p before of the grid as it was.
/// What is assigned across the ends of the run is divided. Throws ("[edit::moveSteps]") for indices outside of the grid.
void moveSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first, std::size_t last,
               std::size_t before);
/// Reverses the order of the cells first..last with what is assigned to them. What is on the outer surfaces of the
/// construction stays there unless all cells are mirrored. Throws ("[edit::mirrorSteps]") for indices outside of the grid.
void mirrorSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first, std::size_t last);
/// Gives the cells first..last a width [unit of the direction's list]. Throws as Disc::modifySteps.
void setWidths(Disc & disc, unsigned int dir, std::size_t first, std::size_t last, double width);

/// The cells that an assignment really concerns: its range, or for one on a side the layer of cells along that side.
Range effectiveRange(const Assignment & assignment);
/// The cells that both have; not normalised if there is none.
Range intersection(const Range & a, const Range & b);
/// At most six blocks that together hold the cells of \p range that are not in \p hole.
std::vector<Range> difference(const Range & range, const Range & hole);

/// Appends an assignment. What cannot stand beside it gives way in its range: another material, another interface on the
/// same side, another initial condition for the same quantity, the same definition once more. Where both together are one
/// block, one assignment is made of them.
void assign(const Project & project, Assignments & assignments, Assignment added);
/// Takes the definitions of a type off the cells of a range.
/// \param location Element, or the side for what sits on sides
/// \param reference only this definition; all of the type if empty
/// \return whether anything has changed
bool unassign(Assignments & assignments, Assignment::type_t type, Assignment::location_t location, const Range & range,
              const std::string & reference = {});

/// What is assigned to a block of cells, with indices that count from its first cell.
struct CellBlock {
    std::uint32_t nx = 0;
    std::uint32_t ny = 0;
    std::uint32_t nz = 0;
    Assignments assignments;

    static constexpr const char * ROOT_ELEMENT = "HygrionCells";
    /// As XML, for the clipboard.
    std::string text() const;
    /// Throws ("[CellBlock::fromText]") "The text holds no block of cells.".
    static CellBlock fromText(const std::string & text);
    bool operator==(const CellBlock &) const = default;
};

/// \param range must be normalised
CellBlock copyBlock(const Assignments & assignments, const Range & range);
/// Replaces all that is assigned to the cells from (left, bottom, back) on by the block; what lies beyond the grid is cut
/// off. \return names of definitions that the project does not have; their assignments are left out
std::vector<std::string> pasteBlock(const Project & project, Assignments & assignments, const CellBlock & block,
                                    std::uint32_t left, std::uint32_t bottom, std::uint32_t back = 0);

} // namespace edit

} // namespace HYGRION
