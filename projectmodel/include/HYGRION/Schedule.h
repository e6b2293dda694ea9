#pragma once

#include <HYGRION/Interval.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// Says when the boundary and field conditions that refer to it are active.
class Schedule {
public:
    std::string m_name;
    bool m_enabled = true; ///< a schedule that is off is ignored: its conditions are always active
    std::vector<Interval> m_intervals;

    /// \param t [s] since the start of the start year
    bool isActive(double t) const;

    /// Throws ("[Schedule::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[Schedule::checkParameters]") a schedule without intervals, and what its intervals refuse.
    void checkParameters() const;

    bool operator==(const Schedule &) const = default;
};

} // namespace HYGRION
