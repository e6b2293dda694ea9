#include "RunTable.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace CMD {

using Json = nlohmann::ordered_json;
using KOR::text;

Json readRun(const std::string & runDirectory) {
    constexpr std::size_t MAX_SIZE = 64 << 20;
    const std::string path = runDirectory + "/log/summary.json";
    try {
        return Json::parse(KOR::readFile(path, MAX_SIZE));
    } catch (const std::exception & ex) {
        throw KOR::Exception(text("The summary of the run cannot be read: %1", ex.what()), "[CMD::readRun]");
    }
}

namespace {

struct Column {
    const char * key;
    const char * group; ///< heading above those of the columns, empty if it is that of the column before
    const char * heading;
    int decimals;
};
constexpr Column COLUMNS[] = {
    {"minTemperature_C", "Temperature [C]", "lowest",  1},
    {"maxTemperature_C", "",                "highest", 1},
    {"minHumidity_%",    "Humidity [%]",    "lowest",  1},
    {"maxHumidity_%",    "",                "highest", 1},
    {"startMoisture_kg", "Water [kg]",      "start",   4},
    {"endMoisture_kg",   "",                "end",     4},
    {"maxMoisture_kg",   "",                "highest", 4},
};
constexpr std::size_t NAME_WIDTH = 34;
constexpr int WIDTH = 11;

/// At most NAME_WIDTH bytes, whole characters.
std::string shortened(std::string name) {
    if (name.size() > NAME_WIDTH) {
        name.resize(NAME_WIDTH - 3);
        name.resize(KOR::validUtf8Length(name));
        name += "...";
    }
    return name;
}

} // namespace

void printRun(const Json & summary, std::ostream & out) {
    const bool hasMoisture = summary.contains("moistureBalance_kg");
    const auto columns = std::span(COLUMNS).first(hasMoisture ? std::size(COLUMNS) : 2);
    if (const Json & layers = summary.at("layers"); !layers.empty()) {
        out << std::left << std::setw(NAME_WIDTH) << "Layer" << std::right;
        for (std::size_t c = 0; c < columns.size(); ++c)
            if (columns[c].group[0] != '\0') {
                std::size_t count = 1;
                while (c + count < columns.size() && columns[c + count].group[0] == '\0')
                    ++count;
                out << std::setw(static_cast<int>(count) * WIDTH) << columns[c].group;
            }
        out << '\n' << std::setw(NAME_WIDTH) << "";
        for (const Column & column : columns)
            out << std::setw(WIDTH) << column.heading;
        out << '\n';
        for (const Json & layer : layers) {
            out << std::left << std::setw(NAME_WIDTH) << shortened(layer.at("material").get<std::string>())
                << std::right << std::fixed;
            for (const Column & column : columns)
                if (const Json & value = layer.at(column.key); value.is_number())
                    out << std::setw(WIDTH) << std::setprecision(column.decimals) << value.get<double>();
                else // what holds no water has no humidity
                    out << std::setw(WIDTH) << '-';
            out << '\n';
        }
        out << std::defaultfloat;
    }
    constexpr double DAY = 86400;
    const auto number = [](const Json & value, int digits) { return KOR::toString(value.get<double>(), digits); };
    out << text("Simulated:      %1 d in %2 s, %3 steps\n",
                KOR::toString((summary.at("time_s").get<double>() - summary.at("start_s").get<double>()) / DAY, 8),
                number(summary.at("wallTime_s"), 3), summary.at("integrator").at("steps").get<long>());
    for (const auto & [key, name] : {std::pair("energyBalance_J", "energy"), std::pair("moistureBalance_kg", "water")})
        if (summary.contains(key))
            out << std::left << std::setw(16) << text("Balance error:", "") << std::right
                << text("%1 of the %2 exchanged\n", number(summary[key].at("relativeError"), 2), name);
}

} // namespace CMD
