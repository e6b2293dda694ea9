#include "ModelBuilder.h"

/// Field conditions of the project become loads of cells.
namespace SOLVER {

using HYGRION::Assignment;
using HYGRION::FieldCond;
using HYGRION::KeywordList;
using KOR::text;

void ModelBuilder::makeFieldConditions() {
    const auto & assignments = m_project.m_assignments.m_list;
    for (std::size_t a = 0; a < assignments.size(); ++a) {
        const Assignment & assignment = assignments[a];
        if (assignment.m_type != Assignment::type_t::FieldCondition)
            continue;
        inContext(
            text("Assignment %1 (%2) cannot be calculated.", m_project.assignmentLabel(a), assignment.description()),
            [&] {
                for (const FieldCond & condition : m_project.m_conditions.m_fieldConditions)
                    if (condition.m_name == assignment.m_reference)
                        refuse(text("Field condition type '%1' is not available.",
                                    KeywordList::Keyword(condition.m_type)));
            });
    }
}

} // namespace SOLVER
