#pragma once

#include <HYGRION/NamedSet.h>

class TiXmlElement;

namespace HYGRION {

/// A span of time with a step: every StepSize from Start until End (or Start + Duration).
/// Without Start it begins at 0, without End and Duration it never ends.
class Interval {
public:
    enum class para_t { Start, End, Duration, StepSize };

    ParaSet<para_t> m_para;

    double start() const; ///< [s]
    double end() const;   ///< [s], infinite if neither End nor Duration is set
    /// [s], 0 if it is not set
    double stepSize() const;

    /// Throws with "[Interval::readXML]" and the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses, with "[Interval::checkParameters]" and the parameter's name, negative times, an end that is not after the
    /// start, an end beside a duration, a step that is not positive.
    void checkParameters() const;

    bool operator==(const Interval &) const = default;
};

} // namespace HYGRION
