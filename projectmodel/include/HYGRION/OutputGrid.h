#pragma once

#include <HYGRION/Interval.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// A named time schedule: when output files are written.
class OutputGrid {
public:
    std::string m_name;
    std::vector<Interval> m_intervals; ///< in time order

    /// Throws ("[OutputGrid::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[OutputGrid::checkParameters]") no interval, an interval without a step or before the end of the last.
    void checkParameters() const;

    bool operator==(const OutputGrid &) const = default;
};

} // namespace HYGRION
