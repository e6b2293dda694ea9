#pragma once

#include <DATAIO/DataIO.h>

#include <memory>

namespace DATAIO {

/// The grid that a result file points into, as far as it is there.
struct Geometry {
    enum state_t {
        WITHIN,     ///< carried by the result file itself
        BESIDE,     ///< in the file that the results were written with
        CHANGED,    ///< in a file of that name whose content is another one
        UNNAMED,    ///< the result file names none
        MISSING,    ///< there is no such file
        UNREADABLE, ///< see problem
    };
    state_t state = UNNAMED;
    std::string path;                    ///< of the file that was found
    std::string problem;                 ///< why it cannot be read
    std::shared_ptr<const GeoFile> grid; ///< shared by the files of a run; also one that is CHANGED

    /// The grid unless it is another one than that of the results; nullptr without.
    const GeoFile * trusted() const { return state == CHANGED ? nullptr : grid.get(); }
};

/// Looks within the file, then where the file says, then beside it and one directory above, since directories are moved and
/// copied. Never throws for a geometry that cannot be read. From any thread.
Geometry geometryOf(const DataIO & file);

} // namespace DATAIO
