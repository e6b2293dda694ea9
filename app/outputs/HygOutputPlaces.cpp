#include "outputs/HygOutputPlaces.h"

#include "construction/HygConstructionScene.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

using HYGRION::Assignment;
using HYGRION::Project;
using type_t = Assignment::type_t;
using location_t = Assignment::location_t;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(HygOutputPlaces)
};

bool isOutput(const Assignment & assignment, const std::string & output) {
    return assignment.m_type == type_t::Output && assignment.m_reference == output;
}

/// What decides which cells or sides are meant, for comparing without regard to order.
auto spot(const Assignment & a) {
    return std::tuple(a.m_location, a.m_range.left, a.m_range.bottom, a.m_range.back, a.m_range.right, a.m_range.top,
                      a.m_range.front, a.m_coordinates.x, a.m_coordinates.y, a.m_coordinates.z);
}

bool isSamePlace(const std::vector<Assignment> & a, const std::vector<Assignment> & b) {
    if (a.size() != b.size())
        return false;
    const auto sorted = [](const std::vector<Assignment> & list) {
        std::vector<decltype(spot(list.front()))> spots;
        for (const Assignment & assignment : list)
            spots.push_back(spot(assignment));
        std::sort(spots.begin(), spots.end());
        return spots;
    };
    return sorted(a) == sorted(b);
}

} // namespace

std::vector<HygOutputPlaces::Place> HygOutputPlaces::offered(const Project & project) {
    const auto last = [](std::size_t count) { return static_cast<std::uint32_t>(std::max<std::size_t>(count, 1) - 1); };
    const HYGRION::Range whole{
        .right = last(project.m_disc.nx()), .top = last(project.m_disc.ny()), .front = last(project.m_disc.nz())};
    std::vector<Place> places{
        {Text::tr("all cells"), {Assignment(type_t::Output, location_t::Element, whole, {})}, false}
    };
    std::map<std::pair<std::string, location_t>, Place> surfaces;
    std::map<std::string, Place> materials;
    for (const Assignment & assignment : project.m_assignments.m_list) {
        const QString name = QString::fromStdString(assignment.m_reference);
        Place * place = nullptr;
        if (assignment.m_type == type_t::Interface && assignment.isOnSide()) {
            place = &surfaces[{assignment.m_reference, assignment.m_location}];
            place->text =
                Text::tr("surface %1 (%2)").arg(name, HygConstructionScene::locationName(assignment.m_location));
            place->isOnSide = true;
        } else if (assignment.m_type == type_t::Material && assignment.m_location == location_t::Element) {
            place = &materials[assignment.m_reference];
            place->text = Text::tr("material %1").arg(name);
        }
        if (place != nullptr)
            place->assignments.emplace_back(type_t::Output, assignment.m_location, assignment.m_range, std::string());
    }
    for (auto & [key, place] : surfaces)
        places.push_back(std::move(place));
    for (auto & [key, place] : materials)
        places.push_back(std::move(place));
    return places;
}

HygOutputPlaces::Place HygOutputPlaces::of(const Project & project, const std::string & output) {
    Place place;
    for (const Assignment & assignment : project.m_assignments.m_list)
        if (isOutput(assignment, output)) {
            place.isOnSide = place.isOnSide || assignment.isOnSide();
            place.assignments.push_back(assignment);
        }
    if (place.assignments.empty())
        return place;
    for (const Place & known : offered(project))
        if (isSamePlace(known.assignments, place.assignments)) {
            place.text = known.text;
            return place;
        }
    place.text = Text::tr("%n places in the drawing", nullptr, static_cast<int>(place.assignments.size()));
    return place;
}

void HygOutputPlaces::set(HYGRION::Assignments & assignments, const std::string & output, const Place & place) {
    std::erase_if(assignments.m_list, [&output](const Assignment & a) { return isOutput(a, output); });
    for (Assignment assignment : place.assignments) {
        assignment.m_reference = output;
        assignments.m_list.push_back(std::move(assignment));
    }
}
