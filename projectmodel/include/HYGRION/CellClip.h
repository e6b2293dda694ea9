#pragma once

#include <HYGRION/GridEdit.h>
#include <HYGRION/Project.h>

namespace HYGRION::edit {

/// A block of cells with all the definitions that it needs, so that it can be put into any project.
struct CellClip {
    CellBlock block;
    Project definitions; ///< these alone; paths are absolute

    /// What is assigned to the cells of a range, which must be normalised.
    static CellClip copy(const Project & project, const Range & range);
    /// Leaves the first cells of each direction, and of the definitions those that these need.
    void crop(std::uint32_t nx, std::uint32_t ny, std::uint32_t nz);

    /// As XML, for the clipboard: a CellBlock with one element more.
    std::string text() const;
    /// Throws as CellBlock::fromText().
    static CellClip fromText(const std::string & text);

    /// Adds the definitions that \p target lacks to the ends of its lists, with paths as it writes them. What means the
    /// same there (a material: the same file) is used instead; where the name means something else, the definition gets
    /// a name of its own, and the block follows. \return the number of definitions added.
    /// Throws ("[CellClip::addTo]") "File '%1' of '%2' does not exist." and "'%1' is defined neither in this project nor
    /// among the copied cells."; the target may hold a part then.
    std::size_t addTo(Project & target);

private:
    void dropUnused();
};

} // namespace HYGRION::edit
