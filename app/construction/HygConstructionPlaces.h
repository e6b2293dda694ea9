#pragma once

#include <HYGRION/Project.h>
#include <HYGRION/References.h>

#include <QString>

#include <optional>

/// Where in the construction lies what a check of the project names: "interface 'Outside'", "assignment '#3'".
namespace HygConstructionPlaces {

/// The definition that is named, if it is one.
struct Definition {
    HYGRION::definition_t kind;
    std::string name;
    bool operator==(const Definition &) const = default;
};
/// "interface 'Outside'"
QString placeOf(const Definition & definition);
std::optional<Definition> definitionOf(const HYGRION::Project & project, const QString & place);

/// Indices of the assignments that are concerned, ascending: the one that is named, or all that refer to the definition,
/// also by way of other definitions. A climate condition leads to the surfaces on which it acts.
std::vector<std::size_t> assignmentsOf(const HYGRION::Project & project, const QString & place);

} // namespace HygConstructionPlaces
