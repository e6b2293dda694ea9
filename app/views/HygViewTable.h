#pragma once

#include <span>

class HygProjectHandler;
class QString;
class QWidget;

/// The views of the main window, one row a view: a view that is made enters its factory in HygViewTable.cpp, and that is
/// all that is to be done for it.
///
/// A view follows HygProjectHandler::modified(); ProjectReplaced is also announced when a project is opened or closed.
/// What it adds to itself by addAction() stands in the menu of its name while it is in view, and in the command search.
namespace HygViewTable {

enum view_t { Start, Construction, Sketch, Conditions, Outputs, Materials, Climate, Simulation, Results, Reports };

struct Row {
    view_t view;       ///< order in the navigation bar
    const char * icon; ///< in resources/icons; also the name of the view on the command line
    const char * title;
    const char * helpPage; ///< page of the user guide without suffix, for the F1 key
    bool needsProject;     ///< without a project it cannot be chosen
    /// The main window takes the widget over. nullptr: there is no such view (the start page the window makes itself).
    QWidget * (*create)(HygProjectHandler * projects);
};

std::span<const Row> rows();

/// Whether the program has this view.
bool exists(view_t view);

/// The view where a definition is edited. \param place its kind and name as checks give them, "interface 'Outside'", or a
/// section of the project, "Outputs"
view_t viewOfPlace(const QString & place);

} // namespace HygViewTable
