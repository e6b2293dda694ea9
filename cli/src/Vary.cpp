#include "Families.h"
#include "RunTable.h"
#include "Study.h"

#include <DATAIO/DataIO.h>
#include <SOLVER/SolverOptions.h>

#include <KOR/Directories.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <ostream>
#include <spawn.h>
#include <thread>

namespace CMD {

namespace {

using KOR::Exception;
using KOR::text;
using Json = nlohmann::ordered_json;

constexpr const char * WHERE = "[CMD::vary]";

struct Vary {
    std::string study;
    std::string csv;
    unsigned int jobs = 0;
    bool onlyList = false;
};

void define(CLI::App & app, Vary & arguments) {
    app.add_option("STUDY", arguments.study, "The study (json).")->required();
    app.add_option("--csv", arguments.csv, "File of the table instead of that beside the study.")->type_name("OUT");
    app.add_option("--jobs", arguments.jobs, "Processes at a time; without it one for each core.")
        ->check(CLI::Range(1, 1024));
    app.add_flag("--list", arguments.onlyList, "Only tell the variants.");
}

volatile std::sig_atomic_t stopped = 0;
extern "C" void onStudySignal(int) {
    stopped = 1;
}

// *** key results ***

/// A row of the table: the values of the variant and what came out of it, by heading.
using Row = std::vector<std::pair<std::string, Json>>;

/// Mean and extremes of outputs with one value at a time.
void addSeries(Row & row, const std::string & path) {
    DATAIO::DataIO file;
    file.openAndReadHeader(path);
    const DATAIO::DataHeader & header = file.header();
    if (header.valueCount() != 1 || file.timeCount() == 0)
        return;
    std::vector<double> values = file.dataVector(0);
    std::erase_if(values, [](double value) { return std::isnan(value); });
    if (values.empty())
        return;
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    double sum = 0;
    for (const double value : values)
        sum += value;
    const auto heading = [&header](const char * what) {
        return text("%1, %2 [%3]", header.quantity, what, header.valueUnit);
    };
    row.emplace_back(heading("lowest"), *least);
    row.emplace_back(heading("highest"), *most);
    row.emplace_back(heading("mean"), sum / static_cast<double>(values.size()));
    row.emplace_back(heading("last"), values.back());
}

struct LayerColumn {
    const char * key;
    const char * heading;
};
constexpr LayerColumn LAYER_COLUMNS[] = {
    {"minTemperature_C", "lowest temperature [C]"},
    {"maxHumidity_%",    "highest humidity [%]"  },
    {"startMoisture_kg", "water at start [kg]"   },
    {"endMoisture_kg",   "water at end [kg]"     },
    {"maxMoisture_kg",   "most water [kg]"       },
};

Row keyResults(const Json & summary) {
    Row row;
    std::size_t number = 0;
    for (const Json & layer : summary.at("layers")) {
        ++number;
        for (const LayerColumn & column : LAYER_COLUMNS)
            if (const Json & value = layer.at(column.key); !value.is_null()) // glass and metals have no humidity
                row.emplace_back(text("Layer %1, %2", number, column.heading), value);
    }
    for (const Json & path : summary.at("results"))
        addSeries(row, path.get<std::string>());
    return row;
}

// *** variants ***

struct Variant {
    std::size_t number = 0;
    std::string project, directory; ///< paths
    bool isNew = true;              ///< or of another content than the last time: no restart
    pid_t process = 0;
    std::optional<Row> results{}; ///< once finished
};

class Runs {
public:
    Runs(const Vary & arguments, const Study & study, Output & output)
        : m_arguments(arguments), m_study(study), m_output(output),
          m_solver((KOR::directories::install() / "HygrionSolver.exe").str()) {}

    void perform() {
        prepare();
        writeTable(); // a place that cannot be written to is told before hours of calculation
        const unsigned int jobs =
            m_arguments.jobs > 0 ? m_arguments.jobs : std::max(1U, std::thread::hardware_concurrency());
        std::size_t next = 0;
        std::size_t running = 0;
        while (running > 0 || (next < m_waiting.size() && stopped == 0)) {
            while (stopped == 0 && running < jobs && next < m_waiting.size()) {
                start(m_variants[m_waiting[next++]]);
                ++running;
            }
            int status = 0;
            const pid_t process = ::waitpid(-1, &status, 0);
            if (process < 0 && errno == EINTR)
                forwardStop();
            if (process <= 0)
                continue;
            const auto ended = std::find_if(m_variants.begin(), m_variants.end(),
                                            [process](const Variant & v) { return v.process == process; });
            if (ended == m_variants.end())
                continue;
            ended->process = 0;
            --running;
            if (stopped != 0)
                continue;
            m_output.notes() << text("Variant %1 of %2: %3\n", ended->number, m_variants.size(),
                                     finished(*ended) ? "finished" : "failed")
                             << std::flush;
            writeTable();
        }
        writeTable();
        if (stopped != 0)
            throw Interrupted("The study was interrupted; started again it goes on.", WHERE);
    }

    Json rows() const {
        Json all = Json::array();
        for (const Row & row : m_rows) {
            Json & object = all.emplace_back(Json::object());
            for (const auto & [key, value] : row)
                object[key] = value;
        }
        return all;
    }
    bool hasFailures() const { return m_failures > 0; }
    std::string tablePath() const { return m_arguments.csv.empty() ? m_study.directory() + ".csv" : m_arguments.csv; }

private:
    /// All projects are made and checked before the first is calculated.
    void prepare() {
        KOR::Path(m_study.directory()).makePath();
        m_lock = ::open(m_study.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_lock >= 0 && ::flock(m_lock, LOCK_EX | LOCK_NB) != 0)
            throw Exception(text("The study in '%1' is being calculated by another process.", m_study.directory()),
                            WHERE);
        constexpr std::size_t MAX_SIZE = std::size_t{1} << 30;
        std::vector<std::string> contents;
        for (std::size_t v = 0; v < m_study.variantCount(); ++v) {
            std::string name = std::to_string(v + 1);
            name.insert(0, name.size() < 4 ? 4 - name.size() : 0, '0');
            const std::string directory = m_study.directory() + '/' + name;
            m_variants.push_back({v + 1, directory + ".h6p", directory});
            contents.push_back(m_study.project(v).text());
        }
        for (std::size_t v = 0; v < m_variants.size(); ++v) {
            Variant & variant = m_variants[v];
            variant.isNew =
                !KOR::Path(variant.project).isFile() || KOR::readFile(variant.project, MAX_SIZE) != contents[v];
            if (!variant.isNew && finished(variant))
                continue;
            variant.isNew = variant.isNew || hasGoneTooFar(variant);
            if (variant.isNew)
                KOR::writeFile(variant.project, contents[v]);
            m_waiting.push_back(v);
        }
        if (m_waiting.size() < m_variants.size())
            m_output.notes() << text("%1 of %2 variants are finished already.\n", m_variants.size() - m_waiting.size(),
                                     m_variants.size());
    }

    /// How far a run went beyond what the study asks for [s]. The study's duration may have been changed since.
    double beyondEnd(const Json & summary) const {
        const double wanted = m_study.duration() ? summary.at("start_s").get<double>() +
                                                       SOLVER::SolverOptions::parseDuration(*m_study.duration())
                                                 : summary.at("end_s").get<double>();
        return summary.at("time_s").get<double>() - wanted;
    }

    /// A variant's summary if it has been finished.
    std::optional<Json> finished(const Variant & variant) const {
        try {
            Json summary = readRun(variant.directory);
            if (summary.at("status") == "finished" && std::fabs(beyondEnd(summary)) < TIME_TOLERANCE)
                return summary;
        } catch (const std::exception &) {
            return {};
        }
        return {};
    }

    bool hasGoneTooFar(const Variant & variant) const {
        try {
            return beyondEnd(readRun(variant.directory)) > TIME_TOLERANCE;
        } catch (const std::exception &) {
            return false;
        }
    }

    void start(Variant & variant) {
        std::vector<std::string> words{m_solver, "--parallel-threads=1", "--verbosity-level=0"};
        if (!variant.isNew)
            words.emplace_back("--restart");
        if (m_study.duration())
            words.push_back("--duration=" + *m_study.duration());
        words.push_back(variant.project);
        std::vector<char *> argv;
        argv.reserve(words.size() + 1);
        for (std::string & word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        posix_spawn_file_actions_t files;
        posix_spawnattr_t attributes;
        posix_spawn_file_actions_init(&files);
        posix_spawnattr_init(&attributes);
        for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) // screenlog.txt holds it
            posix_spawn_file_actions_addopen(&files, descriptor, "/dev/null", O_WRONLY, 0);
        // Ctrl-C reaches this program alone, which tells the others once.
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
        const int error = ::posix_spawn(&variant.process, m_solver.c_str(), &files, &attributes, argv.data(), environ);
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
        if (error != 0)
            throw Exception(text("Cannot start '%1': %2", m_solver, std::generic_category().message(error)), WHERE);
    }

    void forwardStop() {
        for (const Variant & variant : m_variants)
            if (variant.process > 0 && stopped == 1)
                ::kill(variant.process, SIGINT);
        stopped = 2;
    }

    void writeTable() {
        m_rows.clear();
        m_failures = 0;
        const std::vector<std::string> labels = m_study.labels();
        std::vector<std::string> columns;
        for (Variant & variant : m_variants) {
            Row & row = m_rows.emplace_back();
            row.emplace_back("Variant", variant.number);
            const std::vector<std::string> values = m_study.valuesOf(variant.number - 1);
            for (std::size_t i = 0; i < labels.size(); ++i)
                row.emplace_back(labels[i], values[i]);
            const bool isOpen = variant.process > 0 || (variant.isNew && !KOR::Path(variant.directory).isDirectory());
            if (!variant.results && !isOpen)
                if (const std::optional<Json> summary = finished(variant))
                    variant.results = keyResults(*summary);
            std::string status = variant.results ? "finished" : isOpen ? "open" : statusOf(variant);
            m_failures += status.starts_with("failed") ? 1 : 0;
            row.emplace_back("Status", std::move(status));
            if (variant.results)
                row.insert(row.end(), variant.results->begin(), variant.results->end());
            for (const auto & [heading, value] : row)
                if (std::find(columns.begin(), columns.end(), heading) == columns.end())
                    columns.push_back(heading);
        }
        const auto quoted = [](const std::string & cell) {
            return cell.find_first_of(",\"\n") == std::string::npos ? cell
                                                                    : '"' + KOR::replaced(cell, "\"", "\"\"") + '"';
        };
        std::string table;
        for (const std::string & column : columns)
            table += (&column == &columns.front() ? "" : ",") + quoted(column);
        table += '\n';
        for (const Row & row : m_rows) {
            for (const std::string & column : columns) {
                if (&column != &columns.front())
                    table += ',';
                const auto cell = std::find_if(row.begin(), row.end(),
                                               [&column](const auto & entry) { return entry.first == column; });
                if (cell != row.end())
                    table += cell->second.is_string() ? quoted(cell->second.get<std::string>()) : cell->second.dump();
            }
            table += '\n';
        }
        Output::writeTable(tablePath(), table, {m_arguments.study});
    }

    static std::string statusOf(const Variant & variant) {
        try {
            const Json summary = readRun(variant.directory);
            const std::string status = summary.at("status").get<std::string>();
            if (status == "finished") // of another duration
                return "open";
            return summary.contains("error") ? status + ": " + summary["error"].get<std::string>() : status;
        } catch (const std::exception &) {
            return "open";
        }
    }

    static constexpr double TIME_TOLERANCE = 1; ///< [s]

    const Vary & m_arguments;
    const Study & m_study;
    Output & m_output;
    std::string m_solver;
    std::vector<Variant> m_variants;
    std::vector<std::size_t> m_waiting;
    std::vector<Row> m_rows;
    std::size_t m_failures = 0;
    int m_lock = -1; ///< on the directory of the variants, until the program ends
};

void tellVariants(const Study & study, Output & output) {
    const std::vector<std::string> labels = study.labels();
    Json all = Json::array();
    for (std::size_t v = 0; v < study.variantCount(); ++v) {
        const std::vector<std::string> values = study.valuesOf(v);
        Json & one = all.emplace_back(Json::object());
        if (!output.isJson())
            output.text() << v + 1;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            one[labels[i]] = values[i];
            if (!output.isJson())
                output.text() << (i == 0 ? "  " : ", ") << labels[i] << " = " << values[i];
        }
        if (!output.isJson())
            output.text() << '\n';
        study.project(v); // tells what is wrong with it
    }
    if (output.isJson())
        output.json(all);
}

void perform(const Vary & arguments, Output & output) {
    const Study study(arguments.study);
    if (arguments.onlyList) {
        tellVariants(study, output);
        return;
    }
    struct sigaction action {};
    action.sa_handler = onStudySignal; // without SA_RESTART: it ends the waiting
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    Runs runs(arguments, study, output);
    runs.perform();
    if (output.isJson())
        output.json(runs.rows());
    else
        output.text() << text("%1: %2 variants\n", runs.tablePath(), study.variantCount());
    if (runs.hasFailures())
        throw Exception("Some variants failed; the table tells which, and why.", WHERE);
}

} // namespace

void addVary(Commands & program) {
    program.command<Vary>(
        {
            "vary",
            "Calculates all combinations of a study's values, several at a time, and makes a table of the key results.",
            {"vary study.json# variants in \"study\", the table in study.csv",
              "vary study.json --list# what would be calculated"}
    },
        define, perform);
}

} // namespace CMD
