#pragma once

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace SCI {
class Chart;
}

namespace PLOT {

/// What all pictures have in common.
struct Common {
    std::string output;
    int width = 800;
    int height = 500;
    double scale = 1;
    bool isDark = false;
    std::string language = "en";
    std::string title;
    std::string xUnit;
    std::string yUnit;
    std::vector<double> xRange; ///< empty or from and to, in the unit of the axis
    std::vector<double> yRange;
    bool isLogX = false;
    bool isLogY = false;
    std::string reference;
    std::vector<int> referenceColumns{1, 2};
};

/// Fills a chart by what its command was told.
using Fill = std::function<void(SCI::Chart &, const Common &)>;

/// A command that draws.
struct Command {
    CLI::App * app;
    Fill fill;
};

Command materialCommand(CLI::App & program);
Command climateCommand(CLI::App & program);
Command resultsCommand(CLI::App & program);

/// A text of the table of quantities and places, in the language of the picture; others stay as they are.
QString translated(const std::string & text);
/// The last component of a path without its extension.
std::string stem(const std::string & path);

} // namespace PLOT
