#include <SOLVER/SolverOptions.h>

#include <HYGRION/Init.h>
#include <KOR/Exception.h>
#include <KOR/Parameter.h>

#include <charconv>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr const char * WHERE = "[SolverOptions::read]";

struct FlagRow {
    const char * name;
    const char * description;
    bool SolverOptions::*member;
};
constexpr FlagRow FLAGS[] = {
    {"disable-headers",                       "Disable periodic headers.",                                              &SolverOptions::disableHeaders        },
    {"step-stats",                            "Write statistics for each internal solver step (log/steps.tsv).",        &SolverOptions::stepStats             },
    {"close-on-exit",                         "Close solver window on exit.",                                           &SolverOptions::closeOnExit           },
    {"disable-periodic-restart-file-writing",
     "Disable periodic restart file writing (may improve performance); one is still written at the end and on Ctrl-C.", &SolverOptions::disablePeriodicRestart},
    {"restart",                               "Continue simulation from the restart file of an interrupted run.",       &SolverOptions::restart               },
    {"test-init",                             "Set up and check the simulation without running it.",                    &SolverOptions::testInit              },
};

struct OptionRow {
    const char * name;
    const char * description;
    const char * value;
    const char * byDefault;
};
constexpr OptionRow OPTIONS[] = {
    {"verbosity-level",     "Solver message detail: 0 minimum, 1 normal, 2 detailed, 3 very detailed.",                 "0-3",       "1"  },
    {"restart-realtime-dt", "Time period in s for writing restart file. 0 s means writing for each output step.",
     "seconds",                                                                                                                      "300"},
    {"parallel-threads",    "Number of parallel threads, should be less or equal to the number of physical CPU cores.",
     "count",                                                                                                                        ""   },
    {"output-dir",          "Directory for logs, results and restart file instead of the project's own.",               "directory", ""   },
    {"duration",            "Duration of the simulation instead of the project's, as in \"30 d\".",                     "time",      ""   },
};

double number(const KOR::ArgParser & parser, const char * name, double min, double max) {
    const std::string & written = parser.option(name);
    const std::optional<double> value = KOR::parseDouble(written);
    if (!value || *value < min || *value > max)
        throw Exception(text("Option '--%1' takes a number from %2 to %3, not '%4'.", name, min, max, written), WHERE);
    return *value;
}

} // namespace

void SolverOptions::define(KOR::ArgParser & parser) {
    for (const FlagRow & row : FLAGS)
        parser.addFlag(0, row.name, row.description);
    for (const OptionRow & row : OPTIONS)
        parser.addOption(0, row.name, row.description, row.value, row.byDefault);
    parser.addFlag(0, "version", "Print the version and exit.");
}

KOR::Parameter SolverOptions::parseTime(std::string_view written, KOR::Unit defaultUnit) {
    double number = 0;
    const std::from_chars_result read = std::from_chars(written.data(), written.data() + written.size(), number);
    std::string spaced(written); // "30d" as well as "30 d"
    spaced.insert(static_cast<std::size_t>(read.ptr - written.data()), " ");
    KOR::Parameter time("Time", 0, KOR::Unit("s"));
    time.readValue(spaced, defaultUnit);
    return time;
}

double SolverOptions::parseDuration(std::string_view written) {
    const double seconds = parseTime(written, KOR::Unit("d")).get_value("s");
    if (!(seconds > 0 && seconds <= HYGRION::Init::LONGEST_TIME))
        throw Exception("A duration is above 0 and at most 1000 a.", "[SolverOptions::parseDuration]");
    return seconds;
}

SolverOptions SolverOptions::read(const KOR::ArgParser & parser) {
    if (!parser.optionsLeft().empty())
        throw Exception(text("Unknown option '%1'.", parser.optionsLeft().front()), WHERE);
    if (parser.args().size() != 2)
        throw Exception(parser.args().size() < 2
                            ? "The project file is missing."
                            : text("One project file is needed, '%1' is too much.", parser.args()[2]),
                        WHERE);
    SolverOptions options;
    options.project = parser.args()[1];
    options.outputDirectory = parser.option("output-dir");
    for (const FlagRow & row : FLAGS)
        options.*row.member = parser.flag(row.name);
    options.verbosityLevel = static_cast<int>(number(parser, "verbosity-level", 0, 3));
    constexpr double MAX_PERIOD = 1e9;
    options.restartPeriod = number(parser, "restart-realtime-dt", 0, MAX_PERIOD);
    if (constexpr double MAX_THREADS = 1024; !parser.option("parallel-threads").empty())
        options.parallelThreads = static_cast<int>(number(parser, "parallel-threads", 1, MAX_THREADS));
    if (const std::string & written = parser.option("duration"); !written.empty()) {
        try {
            options.duration = parseDuration(written);
        } catch (const Exception & ex) {
            throw Exception(ex, text("Option '--duration' takes a time as in \"30 d\", not '%1'.", written), WHERE);
        }
    }
    return options;
}

} // namespace SOLVER
