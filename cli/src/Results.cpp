#include "Families.h"

#include <DATAIO/DataIO.h>
#include <DATAIO/Geometry.h>
#include <SOLVER/OutputQuantities.h>
#include <SOLVER/SolverOptions.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>
#include <KOR/Strings.h>
#include <KOR/UnitList.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iomanip>
#include <sstream>

namespace CMD {

namespace {

using DATAIO::DataHeader;
using DATAIO::DataIO;
using DATAIO::GeoFile;
using DATAIO::Geometry;
using KOR::Exception;
using KOR::text;
using Json = nlohmann::ordered_json;

constexpr const char * WHERE = "[CMD::results]";

// *** geometry ***

/// "x = 12.5 mm; y = 3 mm"; empty without a place in the grid.
std::string placeOf(const GeoFile & grid, const DataHeader & header, std::uint32_t index) {
    std::array<double, 3> at{};
    if (header.type == DataHeader::FLUX) {
        if (index >= grid.m_sides.size())
            return {};
        at = {grid.m_sides[index].x, grid.m_sides[index].y, grid.m_sides[index].z};
    } else {
        if (index >= grid.m_elements.size())
            return {};
        at = {grid.m_elements[index].x, grid.m_elements[index].y, grid.m_elements[index].z};
    }
    std::string place;
    constexpr std::string_view AXES[] = {"x", "y", "z"};
    constexpr double MM = 1000;
    for (int d = 0; d < 3; ++d)
        if (d == 0 || grid.widths(d).size() > 1)
            place += text("%1%2 = %3 mm", place.empty() ? "" : "; ", AXES[d],
                          KOR::toString(MM * at[static_cast<std::size_t>(d)], 7));
    return place;
}

/// Where the grid is, or why there is none.
std::string noteOf(const Geometry & geometry, const DataHeader & header) {
    switch (geometry.state) {
    case Geometry::WITHIN:
        return "within the file";
    case Geometry::BESIDE:
        return header.geoFile;
    case Geometry::CHANGED:
        return header.geoFile + ", which has been changed since";
    case Geometry::UNNAMED:
        return "none";
    case Geometry::MISSING:
        return header.geoFile + ", which is missing";
    default:
        return header.geoFile + ", which cannot be read";
    }
}

const char * placeName(const DataHeader & header) {
    return header.type == DataHeader::FLUX ? "side" : "element";
}

std::string kindOf(const DataHeader & header) {
    std::string space = KOR::lowered(DATAIO::keyword(header.spaceType));
    std::string time = KOR::lowered(DATAIO::keyword(header.timeType));
    return space + (time == "none" ? "" : ", " + time + " over time");
}

// *** info, list ***

struct Files {
    std::vector<std::string> paths;
};

void defineInfo(CLI::App & app, Files & arguments) {
    app.add_option("FILE", arguments.paths, "Result files (h6b, h6o).")->required();
}

void defineList(CLI::App & app, Files & arguments) {
    app.add_option("PATH", arguments.paths, "Result files, or directories with result files in or below them.")
        ->required();
}

Json description(DataIO & file) {
    const DataHeader & header = file.header();
    Json all{
        {"file",      file.path()                      },
        {"name",      header.quantity                  },
        {"quantity",  header.quantityKeyword           },
        {"unit",      header.valueUnit                 },
        {"type",      DATAIO::keyword(header.type)     },
        {"spaceType", DATAIO::keyword(header.spaceType)},
        {"timeType",  DATAIO::keyword(header.timeType) },
        {"indices",   header.indices                   },
        {"values",    header.valueCount()              },
        {"records",   file.timeCount()                 },
        {"timeUnit",  header.timeUnit                  },
        {"startYear", header.startYear                 },
        {"project",   header.projectFile               },
        {"created",   header.created                   }
    };
    if (const std::vector<double> & times = file.timePoints(); !times.empty()) {
        all["firstTime"] = times.front();
        all["lastTime"] = times.back();
    }
    return all;
}

constexpr const char * FORMS[] = {"a series",        "a profile in x",  "a profile in y",  "a profile in z",
                                  "a plane in x, y", "a plane in x, z", "a plane in y, z", "a volume"};

void info(const Files & arguments, Output & output) {
    Json document = Json::array();
    for (const std::string & path : arguments.paths) {
        try {
            DataIO file;
            file.openAndReadHeader(path);
            const DataHeader & header = file.header();
            const Geometry geometry = geometryOf(file);
            std::string form;
            try {
                if (geometry.trusted() != nullptr)
                    form = FORMS[file.determineDataFormat(geometry.trusted())];
            } catch (const Exception & ex) {
                form = ex.message();
            }
            if (output.isJson()) {
                Json & all = document.emplace_back(description(file));
                all["geometry"] = noteOf(geometry, header);
                all["form"] = form;
                continue;
            }
            const std::vector<double> & times = file.timePoints();
            const auto time = [&](double value) { return KOR::toString(value, 9) + ' ' + header.timeUnit; };
            output.text() << text("File:      %1 (%2, version %3)\n", path, file.isBinary() ? "binary" : "text",
                                  KOR::trimmed(file.version().text()))
                          << text("Name:      %1\n", header.quantity)
                          << text("Quantity:  %1 [%2], %3\n", header.quantityKeyword, header.valueUnit, kindOf(header))
                          << text("Values:    %1 of %2 %3s%4\n", header.valueCount(), header.indices.size(),
                                  placeName(header), form.empty() ? "" : ", " + form)
                          << text("Records:   %1", file.timeCount());
            if (!times.empty())
                output.text() << text(", from %1 to %2", time(times.front()), time(times.back()));
            output.text() << text("\nYear:      %1\n", header.startYear) << text("Project:   %1\n", header.projectFile)
                          << text("Created:   %1\n", header.created)
                          << text("Geometry:  %1\n", noteOf(geometry, header));
        } catch (const Exception & ex) {
            output.fail(ex);
        }
    }
    if (output.isJson())
        output.json(document);
}

/// The files themselves, and the result files in and below directories, in the order of their names.
std::vector<std::string> resultFiles(const std::vector<std::string> & paths) {
    std::vector<std::string> found;
    for (const std::string & path : paths) {
        if (!std::filesystem::is_directory(path)) {
            found.push_back(path);
            continue;
        }
        const auto first = static_cast<std::ptrdiff_t>(found.size());
        for (const auto & entry : std::filesystem::recursive_directory_iterator(path)) {
            const std::string extension = entry.path().extension();
            if (extension == ".h6b" || extension == ".h6o")
                found.push_back(entry.path());
        }
        std::sort(found.begin() + first, found.end());
    }
    return found;
}

void list(const Files & arguments, Output & output) {
    Json document = Json::array();
    const std::vector<std::string> files = resultFiles(arguments.paths);
    if (files.empty())
        throw Exception("There are no result files.", WHERE);
    if (!output.isJson())
        output.text() << "Records       to            Values  Quantity                          File\n";
    for (const std::string & path : files) {
        try {
            DataIO file;
            file.openAndReadHeader(path);
            if (output.isJson()) {
                document.push_back(description(file));
                continue;
            }
            const DataHeader & header = file.header();
            const std::vector<double> & times = file.timePoints();
            const std::string last = times.empty() ? "" : KOR::toString(times.back(), 7) + ' ' + header.timeUnit;
            output.text() << std::setw(7) << file.timeCount() << "  " << std::setw(13) << last << std::setw(8)
                          << header.valueCount() << "  " << std::left << std::setw(32)
                          << header.quantityKeyword + " [" + header.valueUnit + "]" << std::right << "  " << path
                          << '\n';
        } catch (const Exception & ex) {
            output.fail(ex);
        }
    }
    if (output.isJson())
        output.json(document);
}

// *** quantities ***

struct Nothing {};

void defineNothing(CLI::App &, Nothing &) {}

/// Where a quantity has values.
std::string placesOf(const SOLVER::OutputQuantity & quantity) {
    std::string places;
    const auto add = [&places](bool has, const char * name) {
        if (has)
            places += (places.empty() ? "" : ", ") + std::string(name);
    };
    add(quantity.ofCell != nullptr, quantity.kind == SOLVER::OutputQuantity::STATE ? "blocks" : "elements");
    add(quantity.ofFace != nullptr, "sides inside");
    add(quantity.ofSurface != nullptr, "surfaces");
    return places;
}

void listQuantities(const Nothing &, Output & output) {
    Json document = Json::array();
    for (const SOLVER::OutputQuantity & quantity : SOLVER::outputQuantities()) {
        const std::string integral =
            quantity.isAmount ? std::string(quantity.unit) : std::string(quantity.integralUnit);
        if (output.isJson())
            document.push_back({
                {"keyword",      quantity.keyword    },
                {"unit",         quantity.unit       },
                {"integralUnit", integral            },
                {"places",       placesOf(quantity)  },
                {"description",  quantity.description}
            });
        else
            output.text() << text("| `%1` | %2 | %3 | %4 | %5 |\n", quantity.keyword, quantity.unit, integral,
                                  placesOf(quantity), quantity.description);
    }
    if (output.isJson())
        output.json(document);
}

// *** export ***

struct Export {
    std::string path;
    std::string csv;
    std::vector<std::string> times;
    std::vector<std::string> elements;
};

void defineExport(CLI::App & app, Export & arguments) {
    app.add_option("FILE", arguments.path, "The result file.")->required();
    app.add_option("--csv", arguments.csv, "File to write instead of the standard output.")->type_name("OUT");
    const auto several = [](CLI::Option * option) {
        option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    };
    several(app.add_option("--time", arguments.times,
                           "Only the record at this time, or those of a span as in \"10 d:20 d\"; the unit is that of "
                           "the file unless it is given. May be repeated.")
                ->type_name("TIME"));
    several(app.add_option("--element", arguments.elements,
                           "Only the value of this element or side, by its number, or those of a span as in 0:5. May "
                           "be repeated.")
                ->type_name("NUMBER"));
}

double timeValue(std::string_view written, const DataHeader & header) {
    try {
        const KOR::Unit unit(header.timeUnit);
        return SOLVER::SolverOptions::parseTime(written, unit).get_value(unit);
    } catch (const Exception & ex) {
        throw Exception(ex, text("'%1' is no time.", written), WHERE);
    }
}

std::vector<std::size_t> chosenRecords(const std::vector<std::string> & wanted, DataIO & file) {
    const std::vector<double> & times = file.timePoints();
    std::vector<std::size_t> chosen;
    if (wanted.empty()) {
        chosen.resize(times.size());
        for (std::size_t i = 0; i < chosen.size(); ++i)
            chosen[i] = i;
        return chosen;
    }
    constexpr double TOLERANCE = 1e-6;
    for (const std::string & one : wanted) {
        const std::size_t colon = one.find(':');
        const double from = timeValue(std::string_view(one).substr(0, colon), file.header());
        const double to =
            colon == std::string::npos ? from : timeValue(std::string_view(one).substr(colon + 1), file.header());
        if (to < from)
            throw Exception(text("The span '%1' ends before it begins.", one), WHERE);
        const double slack = TOLERANCE * std::max(1.0, std::fabs(to));
        const std::size_t before = chosen.size();
        for (std::size_t i = 0; i < times.size(); ++i)
            if (times[i] >= from - slack && times[i] <= to + slack)
                chosen.push_back(i);
        if (chosen.size() == before) {
            const auto next = std::lower_bound(times.begin(), times.end(), from);
            std::string near;
            if (next != times.begin())
                near += KOR::toString(*(next - 1), 9);
            if (next != times.end())
                near += (near.empty() ? "" : " and ") + KOR::toString(*next, 9);
            throw Exception(text("There is no record at '%1'; the nearest %2 at %3 %4.", one,
                                 near.find(' ') == std::string::npos ? "is" : "are", near, file.header().timeUnit),
                            WHERE);
        }
    }
    std::sort(chosen.begin(), chosen.end());
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    return chosen;
}

/// Positions in the records, in the order asked for.
std::vector<std::size_t> chosenValues(const std::vector<std::string> & wanted, const DataHeader & header) {
    std::vector<std::size_t> chosen;
    const std::size_t count = header.valueCount();
    if (wanted.empty()) {
        chosen.resize(count);
        for (std::size_t i = 0; i < count; ++i)
            chosen[i] = i;
        return chosen;
    }
    if (count != header.indices.size())
        throw Exception(text("The file holds one value for all %1s together.", placeName(header)), WHERE);
    for (const std::string & one : wanted) {
        const std::size_t colon = one.find(':');
        const auto number = [&](std::string_view written) {
            const auto value = KOR::parseInteger<std::uint32_t>(written);
            if (!value)
                throw Exception(text("'%1' is no number of an element or side.", written), WHERE);
            return *value;
        };
        const std::uint32_t from = number(std::string_view(one).substr(0, colon));
        const std::uint32_t to = colon == std::string::npos ? from : number(std::string_view(one).substr(colon + 1));
        const std::size_t before = chosen.size();
        for (std::size_t i = 0; i < count; ++i)
            if (header.indices[i] >= from && header.indices[i] <= to)
                chosen.push_back(i);
        if (chosen.size() == before)
            throw Exception(text("The file holds no %1 %2.", placeName(header), one), WHERE);
    }
    return chosen;
}

void writeTable(DataIO & file, const std::vector<std::size_t> & records, const std::vector<std::size_t> & values,
                std::ostream & out) {
    const DataHeader & header = file.header();
    const Geometry geometry = geometryOf(file);
    out << "Time [" << header.timeUnit << ']';
    for (const std::size_t value : values) {
        std::string name = header.quantity;
        if (header.valueCount() == header.indices.size() && header.indices.size() > 1) {
            const GeoFile * grid = geometry.trusted();
            const std::string place = grid != nullptr ? placeOf(*grid, header, header.indices[value]) : "";
            name = text("%1 %2", placeName(header), header.indices[value]) + (place.empty() ? "" : " (" + place + ")");
        }
        name += " [" + header.valueUnit + "]";
        out << (name.find_first_of(",\"") == std::string::npos ? "," + name
                                                               : ",\"" + KOR::replaced(name, "\"", "\"\"") + "\"");
    }
    out << '\n';
    const std::vector<double> times = file.timePoints();
    const auto line = [&](double time, const auto & valueAt) {
        out << KOR::toString(time);
        for (std::size_t i = 0; i < values.size(); ++i)
            out << ',' << (std::isnan(valueAt(i)) ? "" : KOR::toString(valueAt(i)));
        out << '\n';
    };
    if (values.size() == 1 && records.size() == times.size()) { // one course needs no whole records
        const std::vector<double> course = file.dataVector(values.front());
        for (const std::size_t record : records)
            line(times[record], [&](std::size_t) { return course[record]; });
        return;
    }
    for (const std::size_t record : records) {
        const std::vector<double> all = file.data(record);
        line(times[record], [&](std::size_t i) { return all[values[i]]; });
    }
}

void exportFile(const Export & arguments, Output & output) {
    DataIO file;
    file.openAndReadHeader(arguments.path);
    const std::vector<std::size_t> records = chosenRecords(arguments.times, file);
    const std::vector<std::size_t> values = chosenValues(arguments.elements, file.header());
    if (output.isJson()) {
        Json document = description(file);
        document["indices"] = Json::array();
        if (file.header().valueCount() == file.header().indices.size())
            for (const std::size_t value : values)
                document["indices"].push_back(file.header().indices[value]);
        document["times"] = Json::array();
        document["data"] = Json::array();
        for (const std::size_t record : records) {
            const std::vector<double> all = file.data(record);
            document["times"].push_back(file.timePoints()[record]);
            Json & row = document["data"].emplace_back(Json::array());
            for (const std::size_t value : values)
                row.push_back(all[value]);
        }
        output.json(document);
        return;
    }
    if (arguments.csv.empty()) {
        writeTable(file, records, values, output.text());
        return;
    }
    std::ostringstream table;
    writeTable(file, records, values, table);
    Output::writeTable(arguments.csv, table.view(), {arguments.path});
    output.text() << text("%1: %2 records of %3 values\n", arguments.csv, records.size(), values.size());
}

} // namespace

void addResults(Commands & program) {
    Commands results = program.family({"results", "Result files."});
    results.command<Files>(
        {"info", "Tells what is in a result file.", {"results info \"Brick wall/results/Moisture mass.h6b\""}},
        defineInfo, info);
    results.command<Files>({"list",
                            "Lists the result files of directories, with records and quantities.",
                            {"results list \"Brick wall\"# all results of a run"}},
                           defineList, list);
    results.command<Nothing>(
        {"quantities",
         "Lists the quantities that a project can ask for: keyword, unit, unit of the sum over space, places.",
         {"results quantities --json# as a JSON document"}},
        defineNothing, listQuantities);
    results.command<Export>(
        {
            "export",
            "Writes a result file as a table, a line a record, the values separated by commas.",
            {"results export T.h6b --csv T.csv", "results export T.h6b --time 30d --time 365d# two profiles",
              "results export T.h6b --element 0 --element 10:12# some courses"}
    },
        defineExport, exportFile);
}

} // namespace CMD
