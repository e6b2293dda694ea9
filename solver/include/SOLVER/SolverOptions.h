#pragma once

#include <KOR/ArgParser.h>
#include <KOR/Parameter.h>

#include <optional>
#include <string>

namespace SOLVER {

/// The command line of the solver programs.
struct SolverOptions {
    std::string project;                 ///< project file
    std::string outputDirectory;         ///< empty: the project file's path without its extension
    std::optional<double> duration;      ///< [s], instead of the project's
    bool disableHeaders = false;         ///< no headers between the lines of progress
    bool stepStats = false;              ///< a line for each step in log/steps.tsv
    bool closeOnExit = false;            ///< of a window; a console closes by itself
    bool disablePeriodicRestart = false; ///< the restart file is written at the end and on signals only
    int verbosityLevel = 1;              ///< 0 to 3
    double restartPeriod = 300;          ///< [s] of real time, 0 for each output
    int parallelThreads = 0;             ///< 0: OMP_NUM_THREADS or all cores
    bool restart = false;                ///< go on from the restart file
    bool testInit = false;               ///< set up and check, calculate nothing

    /// "30 d" in seconds; a number alone is days. Throws when it is no time above 0 ("[SolverOptions::parseDuration]").
    static double parseDuration(std::string_view written);
    /// A value with or without a unit. Throws as KOR::Parameter::readValue.
    static KOR::Parameter parseTime(std::string_view written, KOR::Unit defaultUnit);
    /// Defines options and flags; \p parser keeps what its help needs.
    static void define(KOR::ArgParser & parser);
    /// Takes the values over. Throws ("[SolverOptions::read]") on unknown options, values that cannot be read and a
    /// missing project file.
    static SolverOptions read(const KOR::ArgParser & parser);
};

} // namespace SOLVER
