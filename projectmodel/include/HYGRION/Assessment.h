#pragma once

#include <HYGRION/Range.h>

#include <KOR/Parameter.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// The settings of one assessment of the results: what is judged, where, by which criteria. In the project file:
///
///     <Assessment name="Mould" type="MoldGrowth" assignment="1DLayer">
///       <CriteriaSet>sensitive</CriteriaSet>          name of a set of criteria, may be missing
///       <Layer>2</Layer>                              or <Range> of cells, both may be missing
///       <KOR:Parameter name="MaxMouldIndex" unit="---">1</KOR:Parameter>   any of limits() of the type
///     </Assessment>
class Assessment {
public:
    enum class AssessmentType {
        MoistureAccumulation,
        MoistureAccumulationSingle,
        MoldGrowth,
        IceCriteriaDIN4108,
        WoodDegradation68800,
        WoodDegradationWTA6_8
    };
    enum class AssignmentType { TotalConstruction, InnerSurface, OuterSurface, Layer1D };

    /// A limit that an assessment knows, with the value that it takes when the project gives none.
    struct Limit {
        AssessmentType type;
        std::string_view name;
        double value; ///< in unit
        std::string_view unit;
        std::string_view description;
    };

    std::string m_name; ///< identification name
    AssessmentType m_type = AssessmentType::MoistureAccumulation;
    AssignmentType m_assignmentType = AssignmentType::TotalConstruction;
    std::optional<Range> m_range;         ///< only these cells, if given
    std::optional<std::uint32_t> m_layer; ///< only this layer, counted from 0 at the left, if given
    std::string m_criteriaSet;            ///< name of a set of criteria (standard, sensitivity class); may be empty
    std::vector<KOR::Parameter> m_limits; ///< limits that differ from their defaults

    /// All limits of all types.
    static std::span<const Limit> limits();
    /// The value of a limit in \p unitName: the one set here, else the default.
    /// Throws "Assessment '%1' has no limit '%2'." ("[Assessment::limit]").
    double limit(std::string_view name, std::string_view unitName) const;

    /// Throws with "[Assessment::readXML]" and the line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses, with "[Assessment::checkParameters]", a missing name, a layer beside a range, a limit that the type does
    /// not know or that has another kind of unit.
    void checkParameters() const;

    bool operator==(const Assessment &) const = default;

private:
    const Limit * find(std::string_view name) const;
};

} // namespace HYGRION
