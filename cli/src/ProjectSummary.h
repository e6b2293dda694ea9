#pragma once

#include <HYGRION/Project.h>

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>

/// A project as an engineer speaks of it. Lengths are in mm.
namespace CMD {

/// Cells between two borders of materials along one axis.
struct Strip {
    std::size_t first = 0, last = 0;  ///< cells, ends included
    double start = 0, width = 0;      ///< [mm]
    double smallest = 0, largest = 0; ///< cell widths [mm]
    std::string material = {};        ///< of a layer in a construction that is one-dimensional along this axis
};

/// The strips along an axis. The assignments must fit the grid.
std::vector<Strip> strips(const HYGRION::Project & project, HYGRION::Disc::dir_t axis);

/// The axis of a one-dimensional construction.
std::optional<HYGRION::Disc::dir_t> onlyAxis(const HYGRION::Disc & disc);

/// Everything that "show" tells. The assignments must fit the grid.
nlohmann::ordered_json summary(const HYGRION::Project & project);
/// A summary as text.
void printSummary(const nlohmann::ordered_json & summary, std::ostream & out);

/// A length or the like with as many digits as help a reader.
std::string shortNumber(double value);

} // namespace CMD
