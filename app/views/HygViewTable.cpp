#include "views/HygViewTable.h"

#include "construction/HygConstructionView.h"
#include "materials/HygMaterialView.h"
#include "outputs/HygOutputsView.h"
#include "results/HygResultsView.h"
#include "simulation/HygSimulationView.h"

#include <QString>

using namespace HygViewTable;

namespace {

/// Makes a view that is constructed with the project handler.
template <typename View> QWidget * make(HygProjectHandler * projects) {
    return new View(projects);
}

// clang-format off
//   view           icon            title                                               help page       project  factory
constexpr Row ROWS[] = {
    {Start,        "start",         QT_TRANSLATE_NOOP("HygMainWindow", "Start"),        "projects",      false, nullptr},
    {Construction, "construction",  QT_TRANSLATE_NOOP("HygMainWindow", "Construction"), "construction",  true,  make<HygConstructionView>},
    {Sketch,       "sketch",        QT_TRANSLATE_NOOP("HygMainWindow", "Sketch"),       "construction",  true,  nullptr},
    {Conditions,   "conditions",    QT_TRANSLATE_NOOP("HygMainWindow", "Conditions"),   "conditions",    true,  nullptr},
    {Outputs,      "outputs",       QT_TRANSLATE_NOOP("HygMainWindow", "Outputs"),      "outputs",       true,  make<HygOutputsView>},
    {Materials,    "materials",     QT_TRANSLATE_NOOP("HygMainWindow", "Materials"),    "materials",     false, make<HygMaterialView>},
    {Climate,      "climate",       QT_TRANSLATE_NOOP("HygMainWindow", "Climate"),      "climate",       false, nullptr},
    {Simulation,   "simulation",    QT_TRANSLATE_NOOP("HygMainWindow", "Simulation"),   "simulation",    true,  make<HygSimulationView>},
    {Results,      "results",       QT_TRANSLATE_NOOP("HygMainWindow", "Results"),      "results",       true,  make<HygResultsView>},
    {Reports,      "reports",       QT_TRANSLATE_NOOP("HygMainWindow", "Reports"),      "reports",       true,  nullptr},
};
// clang-format on

/// How places begin that are not edited in the conditions.
struct PlaceRow {
    const char * word;
    view_t view;
};
constexpr PlaceRow PLACES[] = {
    {"material",       Construction},
    {"assignment",     Construction},
    {"Assignments",    Construction},
    {"Discretization", Construction},
    {"output",         Outputs     },
    {"Outputs",        Outputs     },
    {"Init",           Simulation  },
    {"Simulation",     Simulation  },
    {"assessment",     Reports     },
};

} // namespace

view_t HygViewTable::viewOfPlace(const QString & place) {
    for (const PlaceRow & row : PLACES)
        if (place.startsWith(QLatin1String(row.word)))
            return row.view;
    return Conditions;
}

std::span<const Row> HygViewTable::rows() {
    return ROWS;
}

bool HygViewTable::exists(view_t view) {
    return std::any_of(std::begin(ROWS), std::end(ROWS), [view](const Row & row) {
        return row.view == view && (row.create != nullptr || row.view == Start);
    });
}
