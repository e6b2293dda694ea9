#include "Families.h"

#include <CCM/ClimateStatistics.h>
#include <CCM/ReferenceYear.h>
#include <CCM/SolarRadiationModel.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Time.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <iomanip>
#include <numbers>
#include <ostream>

namespace CMD {

namespace {

using namespace CCM;
namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr double DEGREE = std::numbers::pi / 180;
constexpr const char * FILE_HELP = "The climate file: c6b, epw, wac, dat or ccd.";

bool hasExtension(const std::string & path, std::string_view extension) {
    return KOR::lowered(fs::path(path).extension().string()) == extension;
}

/// Climate data of any format; a "ccd" file fills only its own quantity.
ClimateDataLoader readAny(const std::string & path, bool headerOnly = false) {
    try {
        ClimateDataLoader data;
        if (hasExtension(path, ".ccd"))
            data.setQuantity(ClimateDataLoader::readCCDFile(path));
        else
            data.readClimateData(path, headerOnly);
        return data;
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Climate data file '%1' cannot be read.", path), "[CMD::readAny]");
    }
}

quantity_t quantityOf(const std::string & keyword) {
    if (const auto quantity = quantityByKeyword(keyword))
        return *quantity;
    std::string known;
    for (const ClimateQuantity & quantity : CLIMATE_QUANTITIES)
        known += (known.empty() ? "" : ", ") + std::string(quantity.keyword);
    throw KOR::Exception(KOR::text("Unknown climate quantity '%1', expected one of %2.", keyword, known),
                         "[CMD::convert]");
}

/// A year that is not given is shown as 2001.
std::string timeText(std::int32_t year, double t) {
    return KOR::Time(year == ClimateDataLoader::NO_YEAR ? 2001 : year, t).toString();
}

std::string timeText(const ClimateDataLoader & data, double t) {
    return timeText(data.m_startYear, t);
}

Json numberOrNull(double value) {
    return isMissing(value) ? Json() : Json(value);
}

std::string cell(double value, int decimals) {
    if (isMissing(value))
        return "-";
    char buffer[400];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::fixed, decimals);
    return {buffer, result.ptr};
}

// *** info ***

struct File {
    std::string path;
};

void defineFile(CLI::App & app, File & arguments) {
    app.add_option("FILE", arguments.path, FILE_HELP)->required();
}

void info(const File & arguments, Output & output) {
    ClimateDataLoader data = readAny(arguments.path, true);
    Json document{
        {"city",      data.m_city     },
        {"country",   data.m_country  },
        {"wmo",       data.m_wmoCode  },
        {"source",    data.m_source   },
        {"latitude",  data.m_latitude },
        {"longitude", data.m_longitude},
        {"timeZone",  data.utcOffset()},
        {"elevation", data.m_elevation},
        {"comment",   data.m_comment  }
    };
    try { // the station is known even if the values cannot be read
        data = readAny(arguments.path);
        document["values"] = data.size();
        document["annual"] = data.isAnnual();
        if (data.m_startYear != ClimateDataLoader::NO_YEAR)
            document["startYear"] = data.m_startYear;
        if (!data.isAnnual()) {
            document["firstTime"] = data.m_timePoints.front();
            document["lastTime"] = data.m_timePoints.back();
        }
    } catch (const KOR::Exception & ex) {
        output.fail(ex);
    }
    if (output.isJson()) {
        output.json(document);
        return;
    }
    std::ostream & out = output.text();
    out << "City:       " << data.m_city << "\nCountry:    " << data.m_country << "\nWMO code:   " << data.m_wmoCode
        << "\nSource:     " << data.m_source << "\nLatitude:   " << KOR::toString(data.m_latitude)
        << " Deg\nLongitude:  " << KOR::toString(data.m_longitude)
        << " Deg\nTime zone:  " << KOR::toString(data.utcOffset())
        << " h\nElevation:  " << KOR::toString(data.m_elevation) << " m\nComment:    " << data.m_comment << '\n';
    if (output.hasFailed())
        return;
    if (data.isAnnual())
        out << "Values:     " << data.size() << (data.size() == 0 ? "" : ", one year of hours") << '\n';
    else
        out << "Values:     " << data.size() << ", from " << timeText(data, data.m_timePoints.front()) << " to "
            << timeText(data, data.m_timePoints.back()) << '\n';
}

// *** check ***

std::string cyclicUse(const ClimateDataLoader & data) {
    if (data.isAnnual())
        return "one year of hours, repeated every year";
    try {
        ClimateDataLoader::checkForValidCyclicData(data.m_timePoints);
        return "time points within a year, repeated every year";
    } catch (const KOR::Exception & ex) {
        return "used once, from " + timeText(data, data.m_timePoints.front()) + " to " +
               timeText(data, data.m_timePoints.back()) + " (" + ex.message() + ")";
    }
}

void check(const File & arguments, Output & output) {
    const ClimateDataLoader data = readAny(arguments.path);
    Json rows = Json::array();
    std::ostream & out = output.text();
    if (!output.isJson())
        out << "Use: " << cyclicUse(data) << '\n';
    bool isPlausible = true;
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const ClimateQuantity & quantity = CLIMATE_QUANTITIES[q];
        const std::vector<double> & values = data.m_data[q];
        const std::uint32_t status = data.m_valueStatus[q];
        const auto missing = static_cast<std::size_t>(std::count_if(values.begin(), values.end(), isMissing));
        const auto implausible = static_cast<std::size_t>(std::count_if(values.begin(), values.end(), [&](double v) {
            return !isMissing(v) && !(v >= quantity.minimum && v <= quantity.maximum);
        }));
        isPlausible = isPlausible && implausible == 0;
        const ClimateDataLoader::FirstBadValues & first = data.m_firstBad[q];
        const auto at = [&](std::uint32_t index) {
            return timeText(data, data.timeOf(static_cast<quantity_t>(q), index));
        };
        if (output.isJson()) {
            Json row{
                {"quantity",    quantity.caption},
                {"status",      status          },
                {"values",      values.size()   },
                {"missing",     missing         },
                {"implausible", implausible     }
            };
            if (missing > 0)
                row["firstMissing"] = first.missing;
            if (implausible > 0)
                row["firstImplausible"] = first.implausible;
            rows.push_back(row);
            continue;
        }
        out << std::left << std::setw(34) << quantity.caption;
        if (!data.m_splines[q].empty())
            out << data.m_splines[q].size() << " values at times of their own. ";
        else if (status & ClimateDataLoader::ST_NOT_PRESENT)
            out << "not present (" << (missing < values.size() ? "all values are zero" : "no values") << "), "
                << KOR::toString(quantity.whenMissing) << ' ' << quantity.unit << " is used. ";
        if (missing > 0 && missing < values.size())
            out << missing << " of " << values.size() << " values missing, the first at " << at(first.missing) << "; "
                << KOR::toString(quantity.whenMissing) << ' ' << quantity.unit << " is used. ";
        if (implausible > 0)
            out << implausible << " values outside " << KOR::toString(quantity.minimum) << " .. "
                << KOR::toString(quantity.maximum) << ", the first at " << at(first.implausible) << ": "
                << KOR::toString(values[first.implausible]) << ". ";
        if (status == 0)
            out << "good";
        out << '\n';
    }
    if (output.isJson())
        output.json({
            {"use",        cyclicUse(data)},
            {"quantities", rows           }
        });
    if (!isPlausible)
        output.fail(KOR::Exception(KOR::text("Climate data file '%1' holds implausible values.", arguments.path),
                                   "[CMD::check]"));
}

// *** convert ***

struct Convert {
    std::string in;
    std::string out;
    std::string quantity;
};

void defineConvert(CLI::App & app, Convert & arguments) {
    app.add_option("IN", arguments.in, FILE_HELP)->required();
    app.add_option("OUT", arguments.out, "The file to write: c6b or ccd.")->required();
    app.add_option("--quantity", arguments.quantity, "The quantity of a ccd file, such as Temperature.");
}

void convert(const Convert & arguments, Output & output) {
    const ClimateDataLoader data = readAny(arguments.in);
    if (hasExtension(arguments.out, ".c6b")) {
        data.writeClimateDataKOR(arguments.out);
    } else if (hasExtension(arguments.out, ".ccd")) {
        if (arguments.quantity.empty())
            throw KOR::Exception("A ccd file holds one quantity; name it with --quantity.", "[CMD::convert]");
        const CCDFile file = data.quantityAsCCD(quantityOf(arguments.quantity));
        ClimateDataLoader::writeCCDFile(arguments.out, file);
        if (data.isAnnual() && !file.timePoints.empty())
            output.notes() << KOR::text("The first value stands at %1 h, as in all years of hours; a climate condition "
                                        "with the flag Cyclic covers the time before it.\n",
                                        file.timePoints.front() / 3600);
    } else {
        throw KOR::Exception(KOR::text("Cannot write '%1': c6b and ccd files can be written.", arguments.out),
                             "[CMD::convert]");
    }
    if (output.isJson())
        output.json({
            {"written", arguments.out},
            {"values",  data.size()  }
        });
}

// *** sample ***

struct Sample {
    std::string path;
    double year = 2001;
    std::vector<double> times;
};

void defineTimes(CLI::App & app, double & year, std::vector<double> & times) {
    addNumber(app, "--year", year, "The year of the simulation; without it the first year of the file.");
    addNumbers(app, "--time", times, "A time in seconds since the start of the year; may be given more than once.")
        ->required();
}

void defineSample(CLI::App & app, Sample & arguments) {
    app.add_option("FILE", arguments.path, FILE_HELP)->required();
    arguments.year = ClimateDataLoader::NO_YEAR;
    defineTimes(app, arguments.year, arguments.times);
}

int yearOf(double year, const ClimateDataLoader & data) {
    if (year == ClimateDataLoader::NO_YEAR)
        return data.m_startYear;
    if (!(std::abs(year) <= 1e6) || year != std::floor(year))
        throw KOR::Exception(KOR::text("Invalid year %1.", year), "[CMD::yearOf]");
    return static_cast<int>(year);
}

void sample(const Sample & arguments, Output & output) {
    ClimateDataLoader data = readAny(arguments.path);
    const int year = yearOf(arguments.year, data);
    Json rows = Json::array();
    for (const double t : arguments.times) {
        data.setTime(year, t);
        Json values;
        if (!output.isJson())
            output.text() << std::left << std::setw(34) << TIME_CAPTION << timeText(year, t) << '\n';
        for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
            const ClimateQuantity & quantity = CLIMATE_QUANTITIES[q];
            const double value = data.m_currentValues[q];
            values[std::string(quantity.keyword)] = {
                {"value", value        },
                {"unit",  quantity.unit}
            };
            if (!output.isJson())
                output.text() << std::left << std::setw(34) << quantity.caption << KOR::toString(value) << '\n';
        }
        rows.push_back({
            {"time",   t     },
            {"values", values}
        });
    }
    if (output.isJson())
        output.json({
            {"year",    year},
            {"samples", rows}
        });
}

// *** radiation ***

struct Radiation {
    std::string path;
    double inclination = 0;
    double orientation = 0;
    double albedo = 0.2;
    double year = 2001;
    bool isPerez = false;
    std::vector<double> times;
};

void defineRadiation(CLI::App & app, Radiation & arguments) {
    app.add_option("FILE", arguments.path, FILE_HELP)->required();
    addNumber(app, "--inclination", arguments.inclination, "In degrees: 0 facing up, 90 vertical, 180 facing down.")
        ->required();
    addNumber(app, "--orientation", arguments.orientation, "In degrees from north, clockwise.")->required();
    addNumber(app, "--albedo", arguments.albedo, "Reflectance of the ground, 0.2 unless given.");
    app.add_flag("--perez", arguments.isPerez, "With the anisotropic sky of Perez.");
    arguments.year = ClimateDataLoader::NO_YEAR;
    defineTimes(app, arguments.year, arguments.times);
}

void radiation(const Radiation & arguments, Output & output) {
    if (!(arguments.albedo >= 0 && arguments.albedo <= 1))
        throw KOR::Exception(KOR::text("The albedo lies between 0 and 1, not at %1.", arguments.albedo),
                             "[CMD::radiation]");
    if (!(arguments.inclination >= 0 && arguments.inclination <= 180))
        throw KOR::Exception(KOR::text("The inclination lies between 0 Deg (facing up) and 180 Deg (facing down), not "
                                       "at %1 Deg.",
                                       arguments.inclination),
                             "[CMD::radiation]");
    SolarRadiationModel model;
    model.m_climate = readAny(arguments.path);
    model.m_albedo = arguments.albedo;
    model.m_anisotropicSky = arguments.isPerez;
    const unsigned int surface = model.addSurface(arguments.inclination * DEGREE, arguments.orientation * DEGREE);
    const int year = yearOf(arguments.year, model.m_climate);
    Json rows = Json::array();
    if (!output.isJson())
        output.text() << "Date/Time            Direct [W/m2]  Diffuse [W/m2]  Incidence [Deg]  Altitude [Deg]  "
                         "Azimuth [Deg]\n";
    for (const double t : arguments.times) {
        model.setTime(year, t);
        const SolarRadiationModel::RadiationLoad & load = model.radiationLoad(surface);
        const SunPosition & sun = model.sun();
        rows.push_back({
            {"time",           t                           },
            {"direct",         load.direct                 },
            {"diffuse",        load.diffuse                },
            {"incidenceAngle", load.incidenceAngle / DEGREE},
            {"sunAltitude",    sun.altitude / DEGREE       },
            {"sunAzimuth",     sun.azimuth / DEGREE        }
        });
        if (output.isJson())
            continue;
        output.text() << std::left << std::setw(21) << timeText(year, t) << std::right << std::setw(13)
                      << KOR::toString(load.direct, 6) << std::setw(16) << KOR::toString(load.diffuse, 6)
                      << std::setw(17) << KOR::toString(load.incidenceAngle / DEGREE, 6) << std::setw(16)
                      << KOR::toString(sun.altitude / DEGREE, 6) << std::setw(15)
                      << KOR::toString(sun.azimuth / DEGREE, 6) << '\n';
    }
    if (output.isJson())
        output.json({
            {"units", {{"radiation", "W/m2"}, {"angles", "Deg"}}},
            {"times", rows                                      }
        });
}

// *** stats ***

void stats(const File & arguments, Output & output) {
    const ClimateDataLoader data = readAny(arguments.path);
    if (data.size() == 0)
        throw KOR::Exception(
            KOR::text("Climate data file '%1' has no common values of all quantities.", arguments.path),
            "[CMD::stats]");
    const auto months = monthlyStatistics(data);
    if (output.isJson()) {
        Json rows = Json::array();
        for (std::size_t month = 0; month < 12; ++month) {
            Json row{
                {"month", month + 1}
            };
            for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
                const MonthStatistics::Quantity & quantity = months[month].quantities[q];
                row[std::string(CLIMATE_QUANTITIES[q].keyword)] = {
                    {"mean",    numberOrNull(quantity.mean)   },
                    {"minimum", numberOrNull(quantity.minimum)},
                    {"maximum", numberOrNull(quantity.maximum)},
                    {"missing", quantity.missing              }
                };
            }
            row["GlobalRadiationHorizontal"] = numberOrNull(months[month].globalRadiation);
            row["RainSum"] = numberOrNull(months[month].rainSum);
            rows.push_back(row);
        }
        output.json(rows);
        return;
    }
    constexpr struct {
        const char * caption;
        const char * unit;
        int decimals;
    } COLUMNS[] = {
        {"T mean",   "C",    2},
        {"T min",    "C",    1},
        {"T max",    "C",    1},
        {"RH",       "%",    1},
        {"Direct",   "W/m2", 1},
        {"Diffuse",  "W/m2", 1},
        {"Global",   "W/m2", 1},
        {"Wind",     "m/s",  2},
        {"LongWave", "W/m2", 1},
        {"Pressure", "Pa",   0},
        {"Rain sum", "mm",   1}
    };
    std::ostream & out = output.text();
    out << std::right << "Month";
    for (const auto & column : COLUMNS)
        out << std::setw(10) << column.caption;
    out << "\n     ";
    for (const auto & column : COLUMNS)
        out << std::setw(10) << column.unit;
    out << '\n';
    for (std::size_t month = 0; month < 12; ++month) {
        const auto & q = months[month].quantities;
        const double values[] = {
            q[Q_TEMPERATURE].mean,         q[Q_TEMPERATURE].minimum,   q[Q_TEMPERATURE].maximum,
            q[Q_RELATIVE_HUMIDITY].mean,   q[Q_DIRECT_RADIATION].mean, q[Q_DIFFUSE_RADIATION].mean,
            months[month].globalRadiation, q[Q_WIND_VELOCITY].mean,    q[Q_LONG_WAVE_RADIATION].mean,
            q[Q_AIR_PRESSURE].mean,        months[month].rainSum};
        out << std::setw(5) << month + 1;
        for (std::size_t i = 0; i < std::size(COLUMNS); ++i)
            out << std::setw(10) << cell(values[i], COLUMNS[i].decimals);
        out << '\n';
    }
}

// *** generate ***

struct Generate {
    std::string table;
    std::string out;
    std::string name;
};

void defineGenerate(CLI::App & app, Generate & arguments) {
    app.add_option("MONTHLY", arguments.table, "A table of monthly normals or of standard climates (csv).")->required();
    app.add_option("OUT", arguments.out, "A c6b file, or a directory for one file each.")->required();
    app.add_option("--name", arguments.name, "Only the place or climate of this name.");
}

/// "New York Central Park", "US" -> "New_York_Central_Park_US.c6b"
std::string fileName(const std::string & city, const std::string & country) {
    std::string title = city;
    if (!country.empty())
        title.append("_").append(country);
    std::string name;
    for (const char c : title) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
        if (isPlain || (!name.empty() && name.back() != '_'))
            name += isPlain ? c : '_';
    }
    return name + ".c6b";
}

void generate(const Generate & arguments, Output & output) {
    ClimateTable table = readClimateTable(arguments.table);
    if (!arguments.name.empty()) {
        std::erase_if(table.places, [&](const MonthlyNormals & place) { return place.city != arguments.name; });
        std::erase_if(table.sines, [&](const SineClimate & climate) { return climate.name != arguments.name; });
    }
    const std::size_t count = table.places.size() + table.sines.size();
    if (count == 0)
        throw KOR::Exception(KOR::text("The table '%1' holds no such climate.", arguments.table), "[CMD::generate]");
    const bool isFile = hasExtension(arguments.out, ".c6b");
    if (isFile && count > 1)
        throw KOR::Exception(KOR::text("The table '%1' holds %2 climates: name one with --name, or a directory.",
                                       arguments.table, count),
                             "[CMD::generate]");
    Json written = Json::array();
    const auto write = [&](const ClimateDataLoader & data, const std::string & name) {
        const std::string path = isFile ? arguments.out : (fs::path(arguments.out) / name).string();
        data.writeClimateDataKOR(path);
        written.push_back(path);
        if (!output.isJson())
            output.text() << path << '\n';
    };
    for (const MonthlyNormals & place : table.places)
        write(referenceYear(place), fileName(place.city, place.country));
    for (const SineClimate & climate : table.sines)
        write(sineClimate(climate), fileName(climate.name, ""));
    if (output.isJson())
        output.json({
            {"written", written}
        });
}

} // namespace

void addClimate(Commands & program) {
    Commands climate = program.family({"climate", "Climate data: read, checked, converted, evaluated and made."});
    climate.command<File>({"info",
                           "Shows where a climate file comes from.",
                           {"climate info Potsdam.epw# place, source and number of values"}},
                          defineFile, info);
    climate.command<File>({"check",
                           "Shows missing and implausible values; ends with 1 if there are implausible ones.",
                           {"climate check Potsdam.epw# one line a quantity"}},
                          defineFile, check);
    climate.command<Convert>(
        {
            "convert",
            "Writes climate data in another format.",
            {"climate convert Potsdam.epw Potsdam.c6b# all quantities",
              "climate convert Potsdam.epw T.ccd --quantity Temperature# one quantity as text"}
    },
        defineConvert, convert);
    climate.command<Sample>(
        {
            "sample",
            "Shows the nine quantities at times of the year.",
            {"climate sample Potsdam.c6b --time 43200# at noon of 1 January",
              "climate sample Potsdam.c6b --year 2003 --time 0 --time 1800 --json# as JSON"}
    },
        defineSample, sample);
    climate.command<Radiation>(
        {
            "radiation",
            "Shows the radiation that falls on a surface, and where the sun stands.",
            {"climate radiation Potsdam.c6b --inclination 90 --orientation 180 --time 14860800# a wall facing south",
              "climate radiation Potsdam.c6b --inclination 30 --orientation 90 --perez --time 14860800# a roof facing "
             "east"}
    },
        defineRadiation, radiation);
    climate.command<File>(
        {"stats", "Shows means and sums of each month.", {"climate stats Potsdam.c6b# a table of twelve months"}},
        defineFile, stats);
    climate.command<Generate>(
        {
            "generate",
            "Makes synthetic years of hours from monthly normals, and climates of standards.",
            {"climate generate normals.csv DB_climate# a file for each place of the table",
              "climate generate normals.csv Potsdam.c6b --name Potsdam# one place"}
    },
        defineGenerate, generate);
}

} // namespace CMD
