#pragma once

#include <HYGRION/Project.h>

#include <QString>

#include <string>
#include <vector>

/// Where outputs are taken: the assignments that tie an output to cells and sides, in words.
namespace HygOutputPlaces {

struct Place {
    QString text;                                 ///< "all cells", "surface Inside (right)", "material Brick"
    std::vector<HYGRION::Assignment> assignments; ///< of type Output, without a reference
    bool isOnSide = false;                        ///< sides, not cells
};

/// All that an output can be tied to by one word: all cells, the surfaces of each interface by side, the cells of each
/// material.
std::vector<Place> offered(const HYGRION::Project & project);

/// The assignments of an output as one place; its text is that of the offered place with the same assignments, else it
/// counts them. Without assignments the text is empty.
Place of(const HYGRION::Project & project, const std::string & output);

/// Ties an output to a place, in place of what it was tied to.
void set(HYGRION::Assignments & assignments, const std::string & output, const Place & place);

} // namespace HygOutputPlaces
