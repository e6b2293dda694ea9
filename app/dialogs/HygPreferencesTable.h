#pragma once

#include "views/HygViewTable.h"

#include <QtGlobal>

#include <optional>

/// What the preferences dialog shows: one row a key; its range and default are those of the settings.
namespace HygPreferences {

enum group_t {
    GROUP_GENERAL,
    GROUP_PROJECTS,
    GROUP_CONSTRUCTION,
    GROUP_SKETCH,
    GROUP_SIMULATION,
    GROUP_PROGRAMS,
    GROUP_MESSAGES,
    NUM_GROUPS
};

struct GroupRow {
    const char * title;
    const char * icon;
    std::optional<HygViewTable::view_t> view = {}; ///< whose settings these are; shown once there is such a view
};

/// The kind of a key's field.
enum kind_t {
    KIND_FLAG,       ///< check box
    KIND_COUNT,      ///< spin box
    KIND_TEXT,       ///< one line
    KIND_LINES,      ///< a text a line
    KIND_FILE,       ///< line with a file dialog
    KIND_DIRECTORY,  ///< line with a directory dialog
    KIND_COLOR,      ///< color button
    KIND_CHOICE,     ///< combo box with the rows of CHOICES
    KIND_FONT_SIZE,  ///< combo box with sizes
    KIND_UNIT_INDEX, ///< combo box with length units, the value is the index
    KIND_UNIT_NAME,  ///< combo box with length units, the value is the name
    KIND_QUESTIONS,  ///< list of the questions that are not asked any more
    KIND_FORGET_ALL  ///< button that empties this list
};

struct Row {
    const char * key;
    group_t group;
    kind_t kind;
    const char * label;
    const char * toolTip;
    const char * zeroText = nullptr; ///< shown in place of 0
};

/// An item of a combo box.
struct Choice {
    const char * key;
    const char * value; ///< as stored
    const char * label;
};

// clang-format off
inline constexpr GroupRow GROUPS[] = {
    {QT_TR_NOOP("General"),                "preferences"},
    {QT_TR_NOOP("Projects and files"),     "recent"},
    {QT_TR_NOOP("Construction"),           "construction"},
    {QT_TR_NOOP("Sketch editor"),          "project", HygViewTable::Sketch},
    {QT_TR_NOOP("Simulation and outputs"), "simulation"},
    {QT_TR_NOOP("External programs"),      "open"},
    {QT_TR_NOOP("Messages and questions"), "log"},
};
static_assert(std::size(GROUPS) == NUM_GROUPS, "group table and enumeration disagree");

inline constexpr Row ROWS[] = {
    {"LangID", GROUP_GENERAL, KIND_CHOICE, QT_TR_NOOP("Language"),
     QT_TR_NOOP("Language of the program. Changes at once.")},
    {"Theme", GROUP_GENERAL, KIND_CHOICE, QT_TR_NOOP("Appearance"),
     QT_TR_NOOP("Light or dark colours, or those of the system. Changes at once.")},
    {"FontPointSize", GROUP_GENERAL, KIND_FONT_SIZE, QT_TR_NOOP("Font size"),
     QT_TR_NOOP("Size of all texts in points. Changes at once."), QT_TR_NOOP("System")},
    {"MaxNumUndoSteps", GROUP_GENERAL, KIND_COUNT, QT_TR_NOOP("Undo steps"),
     QT_TR_NOOP("Number of edits that can be undone. Takes effect with the next project that is opened.")},
    {"BasicLengthUnit", GROUP_GENERAL, KIND_UNIT_INDEX, QT_TR_NOOP("Unit of lengths"),
     QT_TR_NOOP("Unit in which widths of layers and cells are entered and shown.")},
    {"DontUseNativeDialogs", GROUP_GENERAL, KIND_FLAG, QT_TR_NOOP("Use the program's own file dialogs"),
     QT_TR_NOOP("Replaces the file dialogs of the desktop; helps where these are slow or lack folders.")},

    {"MaxRecentProjects", GROUP_PROJECTS, KIND_COUNT, QT_TR_NOOP("Number of recent projects"),
     QT_TR_NOOP("Length of the list of recently used projects."), QT_TR_NOOP("None")},
    {"RecentProjects", GROUP_PROJECTS, KIND_LINES, QT_TR_NOOP("Recent projects"),
     QT_TR_NOOP("Recently used projects, one a line, newest first.")},
    {"LastProjectFile", GROUP_PROJECTS, KIND_FILE, QT_TR_NOOP("Last project"),
     QT_TR_NOOP("The project that was open last.")},
    {"LastFileOpenDirectory", GROUP_PROJECTS, KIND_DIRECTORY, QT_TR_NOOP("Folder for opening"),
     QT_TR_NOOP("Folder in which file dialogs start.")},
    {"LastImportDirectory", GROUP_PROJECTS, KIND_DIRECTORY, QT_TR_NOOP("Folder for imports"),
     QT_TR_NOOP("Folder in which the dialogs for imports start.")},
    {"WriteCompleteProject", GROUP_PROJECTS, KIND_FLAG, QT_TR_NOOP("Write complete project files"),
     QT_TR_NOOP("Writes values that equal their defaults too.")},
    {"NPWizardLastUsedClimateLocation", GROUP_PROJECTS, KIND_TEXT, QT_TR_NOOP("Climate location of new projects"),
     QT_TR_NOOP("The location that the wizard for new projects offers first.")},
    {"FavouriteMaterials", GROUP_PROJECTS, KIND_LINES, QT_TR_NOOP("Favourite materials"),
     QT_TR_NOOP("Files of the materials that are marked as favourites, one a line.")},

    {"ConstructionViewGridLinesVisible", GROUP_CONSTRUCTION, KIND_FLAG, QT_TR_NOOP("Show grid lines"),
     QT_TR_NOOP("Draws the lines of the grid in the construction view.")},
    {"ConstructionViewEquidistantModeEnabled", GROUP_CONSTRUCTION, KIND_FLAG, QT_TR_NOOP("Draw all cells equally wide"),
     QT_TR_NOOP("Makes thin cells visible; widths are then not to scale.")},
    {"ColorSelectedElements", GROUP_CONSTRUCTION, KIND_COLOR, QT_TR_NOOP("Selected cells"),
     QT_TR_NOOP("Colour of the selected cells in the construction view.")},
    {"ColorHighlightedElements", GROUP_CONSTRUCTION, KIND_COLOR, QT_TR_NOOP("Highlighted cells"),
     QT_TR_NOOP("Colour of the cells that belong to the entry under the mouse.")},

    {"Sketch2DGridVisible", GROUP_SKETCH, KIND_FLAG, QT_TR_NOOP("Show grid in the sketch"),
     QT_TR_NOOP("Draws a grid behind the two-dimensional sketch.")},
    {"Sketch2DGridColor", GROUP_SKETCH, KIND_COLOR, QT_TR_NOOP("Grid"), QT_TR_NOOP("Colour of the grid behind the sketch.")},
    {"Sketch2DBackgroundColor", GROUP_SKETCH, KIND_COLOR, QT_TR_NOOP("Background"), QT_TR_NOOP("Colour of the paper of the sketch.")},
    {"Sketch2DLabelFontSize", GROUP_SKETCH, KIND_COUNT, QT_TR_NOOP("Size of labels"),
     QT_TR_NOOP("Font size of the labels of the sketch in points.")},
    {"Sketch2DLabelUnit", GROUP_SKETCH, KIND_UNIT_NAME, QT_TR_NOOP("Unit of labels"),
     QT_TR_NOOP("Length unit of the labels of the sketch.")},
    {"Sketch2DLineWidth", GROUP_SKETCH, KIND_COUNT, QT_TR_NOOP("Width of lines"),
     QT_TR_NOOP("Width of the lines of the sketch in pixels.")},

    {"NumParallelThreads", GROUP_SIMULATION, KIND_COUNT, QT_TR_NOOP("Parallel threads"),
     QT_TR_NOOP("Number of processor cores that the solver uses."), QT_TR_NOOP("Automatic")},
    {"UseModernSolver", GROUP_SIMULATION, KIND_FLAG, QT_TR_NOOP("Run the solver in its own window"),
     QT_TR_NOOP("Starts the solver with a window that shows its progress instead of a console.")},
    {"ClearResultDirBeforeStart", GROUP_SIMULATION, KIND_FLAG, QT_TR_NOOP("Clear results before a new run"),
     QT_TR_NOOP("Removes the results of the run before when a simulation starts from the beginning.")},
    {"FrequentlyUsedQuantities", GROUP_SIMULATION, KIND_LINES, QT_TR_NOOP("Quantities offered first"),
     QT_TR_NOOP("Output quantities that head the list when an output is defined, one a line.")},

    {"TextEditorExecutable", GROUP_PROGRAMS, KIND_FILE, QT_TR_NOOP("Text editor"),
     QT_TR_NOOP("Program that opens text files such as the log of the solver; empty for that of the desktop.")},
    {"KurvioExecutable", GROUP_PROGRAMS, KIND_FILE, QT_TR_NOOP("Post-processing"),
     QT_TR_NOOP("Program that shows and compares results.")},
    {"KlimeditExecutable", GROUP_PROGRAMS, KIND_FILE, QT_TR_NOOP("Climate editor"),
     QT_TR_NOOP("Program that edits climate data.")},

    {"UserLogLevelConsole", GROUP_MESSAGES, KIND_CHOICE, QT_TR_NOOP("Messages on the console"),
     QT_TR_NOOP("How much is written to the console and the log view. Errors are always written.")},
    {"UserLogLevelLogfile", GROUP_MESSAGES, KIND_CHOICE, QT_TR_NOOP("Messages in the log file"),
     QT_TR_NOOP("How much is written to the log file. Errors are always written.")},
    {"DoNotShowAgainDialogs", GROUP_MESSAGES, KIND_QUESTIONS, QT_TR_NOOP("Questions not asked any more"),
     QT_TR_NOOP("Untick a question to be asked again.")},
    {"DoNotShowAgainDialogsAnswer", GROUP_MESSAGES, KIND_FORGET_ALL, QT_TR_NOOP("Remembered answers"),
     QT_TR_NOOP("Forgets all answers, so that every question is asked again.")},
};

inline constexpr Choice CHOICES[] = {
    {"LangID", "",                QT_TR_NOOP("System language")},
    {"LangID", "en",              "English"},
    {"LangID", "de",              "Deutsch"},
    {"Theme",  "system",          QT_TR_NOOP("As the system")},
    {"Theme",  "light",           QT_TR_NOOP("Light")},
    {"Theme",  "dark",            QT_TR_NOOP("Dark")},
    {"UserLogLevelConsole", "0",  QT_TR_NOOP("Errors only")},
    {"UserLogLevelConsole", "1",  QT_TR_NOOP("Normal")},
    {"UserLogLevelConsole", "2",  QT_TR_NOOP("More")},
    {"UserLogLevelConsole", "3",  QT_TR_NOOP("Detailed")},
    {"UserLogLevelConsole", "4",  QT_TR_NOOP("Everything")},
    {"UserLogLevelLogfile", "0",  QT_TR_NOOP("Errors only")},
    {"UserLogLevelLogfile", "1",  QT_TR_NOOP("Normal")},
    {"UserLogLevelLogfile", "2",  QT_TR_NOOP("More")},
    {"UserLogLevelLogfile", "3",  QT_TR_NOOP("Detailed")},
    {"UserLogLevelLogfile", "4",  QT_TR_NOOP("Everything")},
};
// clang-format on

} // namespace HygPreferences
