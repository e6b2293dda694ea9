#include "construction/HygConstructionPlaces.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <set>

namespace HygConstructionPlaces {

QString placeOf(const Definition & definition) {
    return QString::fromStdString(KOR::text("%1 '%2'", HYGRION::definitionWord(definition.kind), definition.name));
}

std::optional<Definition> definitionOf(const HYGRION::Project & project, const QString & place) {
    std::optional<Definition> found;
    HYGRION::forEachDefinitionList(project, [&](HYGRION::definition_t kind, const auto & list) {
        for (const auto & item : list)
            if (!found && placeOf({kind, item.m_name}) == place)
                found = Definition{kind, item.m_name};
    });
    return found;
}

std::vector<std::size_t> assignmentsOf(const HYGRION::Project & project, const QString & place) {
    const std::string wanted = place.toStdString();
    for (std::size_t i = 0; i < project.m_assignments.size(); ++i)
        if (KOR::text("assignment '%1'", project.assignmentLabel(i)) == wanted)
            return {i};
    const std::optional<Definition> start = definitionOf(project, place);
    if (!start)
        return {};
    std::set<std::size_t> found;
    std::vector<Definition> reached{*start};
    for (std::size_t next = 0; next < reached.size(); ++next) {
        const Definition target = reached[next]; // the list grows
        HYGRION::forEachReference(project, [&](const HYGRION::ReferenceSource & source, HYGRION::definition_t kind,
                                               const std::string & name) {
            if (kind != target.kind || name != target.name)
                return;
            if (source.place == HYGRION::ReferenceSource::ASSIGNMENT)
                found.insert(source.index);
            if (source.place != HYGRION::ReferenceSource::DEFINITION)
                return;
            HYGRION::forEachDefinitionList(project, [&](HYGRION::definition_t listKind, const auto & list) {
                if (listKind != *source.kind)
                    return;
                Definition user{listKind, list[source.index].m_name};
                if (std::find(reached.begin(), reached.end(), user) == reached.end())
                    reached.push_back(std::move(user));
            });
        });
    }
    return {found.begin(), found.end()};
}

} // namespace HygConstructionPlaces
