#include "Families.h"
#include "ProjectDiff.h"
#include "ProjectSummary.h"

#include <HYGRION/Defaults.h>
#include <SOLVER/CheckProject.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace CMD {

namespace {

using HYGRION::Disc;
using HYGRION::Project;
using HYGRION::ProjectCheck;
using Json = nlohmann::ordered_json;

struct File {
    std::string path;
};

struct Files {
    std::vector<std::string> paths;
};

struct TwoFiles {
    std::string first;
    std::string second;
};

void defineFile(CLI::App & app, File & arguments) {
    app.add_option("FILE", arguments.path, "The project file.")->required();
}

void defineFiles(CLI::App & app, Files & arguments) {
    app.add_option("FILE", arguments.paths, "The project files.")->required();
}

void defineInOut(CLI::App & app, TwoFiles & arguments) {
    app.add_option("IN", arguments.first, "The project file to read.")->required();
    app.add_option("OUT", arguments.second, "The project file to write; may be the same one.")->required();
}

void defineTwo(CLI::App & app, TwoFiles & arguments) {
    app.add_option("FIRST", arguments.first, "A project file.")->required();
    app.add_option("SECOND", arguments.second, "The project file to compare it with.")->required();
}

Project read(const std::string & path) {
    Project project;
    project.readXML(path);
    return project;
}

/// A project of which every assignment fits the grid.
Project readSound(const std::string & path) {
    Project project = read(path);
    project.GUISanityChecks();
    return project;
}

void write(const Project & project, const std::string & path) {
    if (!project.writeXML(path)) // has said why
        throw KOR::Exception(KOR::text("Project file '%1' was not written.", path), "[CMD::write]");
}

// *** check ***

void check(const Files & arguments, Output & output) {
    Json document = Json::array();
    std::size_t faulty = 0;
    for (const std::string & path : arguments.paths) {
        Project project;
        std::size_t faults = 0, warnings = 0;
        Json findings = Json::array();
        for (const ProjectCheck::Finding & finding : SOLVER::checkFile(path, project)) {
            const bool isFault = finding.severity == ProjectCheck::FAULT;
            ++(isFault ? faults : warnings);
            if (output.isJson())
                findings.push_back({
                    {"severity", isFault ? "error" : "warning"},
                    {"line",     finding.line                 },
                    {"place",    finding.place                },
                    {"message",  finding.message              },
                    {"context",  finding.context              }
                });
            else
                output.text() << path << ": " << (isFault ? "error: " : "warning: ") << finding.text() << '\n';
        }
        faulty += faults > 0 ? 1 : 0;
        if (output.isJson())
            document.push_back({
                {"file",     path    },
                {"errors",   faults  },
                {"warnings", warnings},
                {"findings", findings}
            });
        else
            output.text() << path << ": " << faults << " errors, " << warnings << " warnings\n";
    }
    if (output.isJson())
        output.json(document);
    if (faulty > 0)
        output.fail(
            KOR::Exception(KOR::text("Errors in %1 of %2 projects.", faulty, arguments.paths.size()), "[CMD::check]"));
}

// *** show, grid ***

void show(const File & arguments, Output & output) {
    const Json document = summary(readSound(arguments.path));
    if (output.isJson())
        output.json(document);
    else
        printSummary(document, output.text());
}

void grid(const File & arguments, Output & output) {
    struct Axis {
        Disc::dir_t dir;
        const char * name;
        const char * caption;
    };
    constexpr Axis AXES[] = {
        {Disc::X, "x", "Columns, from the left"     },
        {Disc::Y, "y", "Rows, from the bottom"      },
        {Disc::Z, "z", "Stack planes, from the back"},
    };
    const Project project = readSound(arguments.path);
    const Disc & disc = project.m_disc;
    Json document;
    document["cells"] = Json::array({disc.nx(), disc.ny(), disc.nz()});
    for (const Axis & axis : AXES) {
        document[axis.name] = Json::array();
        if (axis.dir != Disc::X && disc.steps(axis.dir).size() == 1)
            continue;
        if (!output.isJson())
            output.text() << axis.caption << ": " << disc.steps(axis.dir).size() << " cells\n"
                          << "  cells        from [mm]   width [mm]   smallest    largest  material\n";
        for (const Strip & strip : strips(project, axis.dir)) {
            document[axis.name].push_back({
                {"first",    strip.first   },
                {"last",     strip.last    },
                {"from",     strip.start   },
                {"width",    strip.width   },
                {"smallest", strip.smallest},
                {"largest",  strip.largest },
                {"material", strip.material}
            });
            if (output.isJson())
                continue;
            const std::string cells = KOR::text("%1 (%2..%3)", strip.last - strip.first + 1, strip.first, strip.last);
            output.text() << "  " << std::left << std::setw(13) << cells << std::right << std::setw(9)
                          << shortNumber(strip.start) << std::setw(13) << shortNumber(strip.width) << std::setw(11)
                          << shortNumber(strip.smallest) << std::setw(11) << shortNumber(strip.largest) << "  "
                          << strip.material << '\n';
        }
    }
    if (output.isJson())
        output.json(document);
}

// *** rewrite, clean ***

void rewrite(const TwoFiles & arguments, Output & output) {
    write(read(arguments.first), arguments.second);
    if (output.isJson())
        output.json({
            {"written", arguments.second}
        });
    else
        output.text() << arguments.second << '\n';
}

void clean(const TwoFiles & arguments, Output & output) {
    Project project = read(arguments.first);
    const std::string report = project.removeUnusedDefinitions();
    write(project, arguments.second);
    if (output.isJson())
        output.json({
            {"written", arguments.second},
            {"report",  report          }
        });
    else
        output.text() << report;
}

// *** diff ***

void diff(const TwoFiles & arguments, Output & output) {
    const std::vector<Difference> found = difference(read(arguments.first), read(arguments.second));
    Json document = Json::array();
    for (const Difference & one : found) {
        if (output.isJson()) {
            document.push_back({
                {"place",   one.place  },
                {"removed", one.removed},
                {"added",   one.added  }
            });
            continue;
        }
        output.text() << one.place << '\n';
        for (const std::string & line : one.removed)
            output.text() << "  - " << line << '\n';
        for (const std::string & line : one.added)
            output.text() << "  + " << line << '\n';
    }
    if (output.isJson())
        output.json(document);
    if (!found.empty())
        output.fail(KOR::Exception(KOR::text("The projects differ in %1 places.", found.size()), "[CMD::diff]"));
}

// *** keywords ***

struct Category {
    std::string name;
};

void defineCategory(CLI::App & app, Category & arguments) {
    app.add_option("CATEGORY", arguments.name, "Only this one, as in \"Interface::type_t\".");
}

std::string limitText(const HYGRION::DefaultRow & row) {
    if (row.min == HYGRION::ABOVE_ZERO)
        return row.max == HYGRION::UNLIMITED ? "above 0" : KOR::text("above 0, to %1", row.max);
    return row.max == HYGRION::UNLIMITED ? KOR::text("from %1", row.min) : KOR::text("%1 to %2", row.min, row.max);
}

const HYGRION::DefaultRow * findDefault(std::string_view category, std::string_view keyword) {
    for (const HYGRION::DefaultRow & row : HYGRION::defaults())
        if (row.category == category && row.keyword == keyword)
            return &row;
    return nullptr;
}

void printRow(const std::vector<std::string> & cells, std::ostream & out) {
    out << '|';
    for (const std::string & cell : cells)
        out << (cell.empty() ? "" : " ") << cell << " |";
    out << '\n';
}

/// A table of a category in Markdown; columns without content are left out.
void printCategory(const KOR::KeywordCategory & category, std::ostream & out) {
    const bool isFlag = category.name.ends_with("flag_t");
    std::vector<std::vector<std::string>> table{
        {"keyword", "unit", "default", "allowed", "description", "reason for the default"}
    };
    for (const KOR::KeywordRow & row : category.rows) {
        const auto words = KOR::split(row.words, ' ');
        std::string description(row.description);
        for (std::size_t i = 1; i < words.size(); ++i)
            description += KOR::text("; older files: `%1`", words[i]);
        std::vector<std::string> & cells = table.emplace_back(table.front().size());
        cells = {KOR::text("`%1`", words.front()), std::string(row.unit), "", "", std::move(description), ""};
        if (const HYGRION::DefaultRow * byDefault = findDefault(category.name, words.front())) {
            const bool isChoice = byDefault->min == byDefault->max;
            cells[2] =
                isChoice ? "yes"
                : isFlag
                    ? (byDefault->value != 0 ? "true" : "false")
                    : std::string(KOR::trimmed(KOR::toString(byDefault->value) + ' ' + std::string(byDefault->unit)));
            cells[3] = isChoice || isFlag ? std::string() : limitText(*byDefault);
            cells[5] = byDefault->reason;
        }
    }
    for (std::size_t column = table.front().size(); column-- > 0;)
        if (std::all_of(table.begin() + 1, table.end(), [&](const auto & cells) { return cells[column].empty(); }))
            for (auto & cells : table)
                cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(column));
    out << "\n### " << category.name << "\n\n";
    printRow(table.front(), out);
    out << '|';
    for (std::size_t i = 0; i < table.front().size(); ++i)
        out << "---|";
    out << '\n';
    for (std::size_t i = 1; i < table.size(); ++i)
        printRow(table[i], out);
}

Json entries(const KOR::KeywordCategory & category) {
    Json all = Json::array();
    for (const KOR::KeywordRow & row : category.rows) {
        const std::string_view keyword = KOR::split(row.words, ' ').front();
        Json entry{
            {"category",    category.name  },
            {"keyword",     keyword        },
            {"unit",        row.unit       },
            {"description", row.description}
        };
        if (const HYGRION::DefaultRow * byDefault = findDefault(category.name, keyword)) {
            entry["default"] = byDefault->value;
            entry["defaultUnit"] = byDefault->unit;
            if (byDefault->min == byDefault->max)
                entry["default"] = true;
        }
        all.push_back(std::move(entry));
    }
    return all;
}

void keywords(const Category & arguments, Output & output) {
    Json document = Json::array();
    bool isFound = false;
    for (const KOR::KeywordTable * table : {&HYGRION::KeywordList::table(), &HYGRION::KeywordList::furtherTable()})
        for (const KOR::KeywordCategory & category : table->categories())
            if (arguments.name.empty() || category.name == arguments.name) {
                if (output.isJson())
                    for (Json & entry : entries(category))
                        document.push_back(std::move(entry));
                else
                    printCategory(category, output.text());
                isFound = true;
            }
    if (!isFound)
        throw KOR::Exception(KOR::text("Unknown category '%1'.", arguments.name), "[CMD::keywords]");
    if (output.isJson()) {
        output.json(document);
        return;
    }
    if (!arguments.name.empty())
        return;
    output.text()
        << "\n### Limits of assessments\n\n| assessment | limit | default | description |\n|---|---|---|---|\n";
    for (const HYGRION::Assessment::Limit & limit : HYGRION::Assessment::limits())
        output.text() << "| `" << HYGRION::KeywordList::Keyword(limit.type) << "` | `" << limit.name << "` | "
                      << KOR::toString(limit.value) << ' ' << limit.unit << " | " << limit.description << " |\n";
}

} // namespace

void addProject(Commands & program) {
    Commands project = program.family({"project", "Projects: checked, shown, cleaned and compared."});
    project.command<Files>(
        {"check",
         "Checks projects and tells every fault; missing files are warnings. Ends with 1 after errors.",
         {"project check wall.h6p# every fault, with line and definition"}},
        defineFiles, check);
    project.command<File>(
        {
            "show",
            "Shows what a project is: layers, surfaces, climate, outputs, duration.",
            {"project show wall.h6p", "project show wall.h6p --json# as a JSON document"}
    },
        defineFile, show);
    project.command<TwoFiles>({"rewrite",
                               "Reads a project and writes it in today's form. Paths stay as they are written.",
                               {"project rewrite wall.h6p wall.h6p# in place"}},
                              defineInOut, rewrite);
    project.command<TwoFiles>({"clean",
                               "Removes definitions that nothing refers to, and reports what is left.",
                               {"project clean wall.h6p lean.h6p"}},
                              defineInOut, clean);
    project.command<File>({"grid", "Shows the cells of each layer.", {"project grid wall.h6p"}}, defineFile, grid);
    project.command<TwoFiles>({"diff",
                               "Compares two projects, definition by definition. Ends with 1 if they differ.",
                               {"project diff wall.h6p variant.h6p"}},
                              defineTwo, diff);
    project.command<Category>(
        {
            "keywords",
            "Lists the words of project files with units, defaults and meaning, as tables in Markdown.",
            {"project keywords Init::flag_t# one category", "project keywords --json# all of them as a JSON document"}
    },
        defineCategory, keywords);
}

} // namespace CMD
