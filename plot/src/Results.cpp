#include "Commands.h"
#include "Models.h"

#include <SCI/Chart.h>

#include <DATAIO/DataIO.h>
#include <DATAIO/Geometry.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Time.h>
#include <KOR/UnitList.h>

#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>

namespace PLOT {

namespace {

using DATAIO::DataHeader;
using DATAIO::DataIO;
using DATAIO::GeoFile;
using KOR::Exception;
using KOR::text;

constexpr const char * WHERE = "[PLOT::results]";
constexpr std::size_t MAX_LINES = 10;  ///< in one picture, when nobody has chosen
constexpr std::size_t MAX_MARKED = 60; ///< points of a profile that are marked
constexpr std::size_t MAX_CELLS = 50'000'000;

struct Arguments {
    std::string file;
    std::string compare;
    std::vector<unsigned int> elements;
    std::vector<std::string> times;
    bool isMap = false;
    bool isPlain = false;
    bool isEqual = false;
};

/// A result file with its grid.
struct Results {
    DataIO file;
    DATAIO::Geometry geometry;
    const GeoFile * grid = nullptr; ///< none unless it is that of the results
    DataIO::dataFormat_t format = DataIO::SERIES;
    std::string name;

    explicit Results(const std::string & path) : name(stem(path)) {
        file.read(path);
        if (file.timeCount() == 0)
            throw Exception(text("There are no values in '%1' yet.", path), WHERE);
        geometry = DATAIO::geometryOf(file);
        grid = geometry.trusted();
        if (grid != nullptr && header().valueCount() == header().indices.size())
            format = file.determineDataFormat(grid);
    }
    const DataHeader & header() const { return file.header(); }
    bool isProfile() const {
        return format == DataIO::PROFILE_X || format == DataIO::PROFILE_Y || format == DataIO::PROFILE_Z;
    }
    bool isPlane() const {
        return format == DataIO::PLANE_XY || format == DataIO::PLANE_XZ || format == DataIO::PLANE_YZ;
    }
    /// Centre [m] of the k-th place.
    std::array<double, 3> place(std::size_t k) const {
        const std::uint32_t index = header().indices[k];
        if (header().type == DataHeader::FLUX) {
            const GeoFile::Side & side = grid->m_sides.at(index);
            return {side.x, side.y, side.z};
        }
        const GeoFile::Element & element = grid->m_elements.at(index);
        return {element.x, element.y, element.z};
    }
};

QString number(double value) {
    QLocale form;
    form.setNumberOptions(QLocale::OmitGroupSeparator);
    return form.toString(value, 'g', 6);
}

/// "x = 12.5 mm", or the number of the element when the grid is not there.
QString placeName(const Results & results, std::size_t k) {
    const DataHeader & header = results.header();
    if (results.grid == nullptr || header.valueCount() != header.indices.size()) {
        if (header.valueCount() == 1)
            return QString::fromStdString(header.quantity);
        return translated(header.type == DataHeader::FLUX ? "Side %1" : "Element %1").arg(header.indices[k]);
    }
    const auto at = results.place(k);
    QStringList parts;
    for (int d = 0; d < 3; ++d)
        if (d == 0 || results.grid->widths(d).size() > 1)
            parts
                << QStringLiteral("%1 = %2 mm").arg(QChar('x' + d)).arg(number(1000 * at[static_cast<std::size_t>(d)]));
    return parts.join(QStringLiteral(", "));
}

/// The position of an element's or side's number among those of the file.
std::size_t positionOf(const Results & results, unsigned int element) {
    const auto & indices = results.header().indices;
    const auto found = std::find(indices.begin(), indices.end(), element);
    if (results.header().valueCount() == indices.size() && found != indices.end())
        return static_cast<std::size_t>(found - indices.begin());
    std::string known;
    for (std::size_t i = 0; i < std::min<std::size_t>(indices.size(), 20); ++i)
        known += (i == 0 ? "" : " ") + KOR::toString(indices[i]);
    throw Exception(text("There is no element or side %1 in '%2', expected one of: %3%4", element, results.file.path(),
                         known, indices.size() > 20 ? " ..." : "."),
                    WHERE);
}

/// The record nearest to a time: "30 d", or a number in the unit of the file.
std::size_t recordAt(Results & results, const std::string & wanted) {
    std::string spaced = wanted; // "30d" as well as "30 d"
    double number = 0;
    const std::from_chars_result read = std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
    spaced.insert(static_cast<std::size_t>(read.ptr - wanted.data()), " ");
    const auto words = KOR::words(spaced);
    const auto value = words.empty() ? std::nullopt : KOR::parseDouble(words[0]);
    if (!value || words.size() > 2)
        throw Exception(text("'%1' is no time, expected a number and a unit as in '30 d'.", wanted), WHERE);
    double time = *value;
    const KOR::Unit unit(results.header().timeUnit);
    if (words.size() == 2)
        KOR::UnitList::instance().convert(KOR::Unit(words[1]), unit, time);
    const auto & times = results.file.timePoints();
    // Between two records the nearer one is meant; beyond them it would be another time.
    const double room = times.size() > 1 ? (times.back() - times.front()) / static_cast<double>(times.size() - 1) : 0;
    if (time < times.front() - room || time > times.back() + room)
        throw Exception(text("The time '%1' lies outside of '%2', which reaches from %3 to %4 %5.", wanted,
                             results.file.path(), KOR::toString(times.front(), 6), KOR::toString(times.back(), 6),
                             unit.name()),
                        WHERE);
    const auto nearest = std::min_element(
        times.begin(), times.end(), [time](double a, double b) { return std::abs(a - time) < std::abs(b - time); });
    return static_cast<std::size_t>(nearest - times.begin());
}

QString timeName(Results & results, std::size_t record) {
    const double time = results.file.timePoints()[record];
    const KOR::Unit own(results.header().timeUnit);
    const auto inUnit = [&](KOR::Unit unit) {
        double value = time;
        KOR::UnitList::instance().convert(own, unit, value);
        return QStringLiteral("%1 %2").arg(number(value), QString::fromStdString(unit.name()));
    };
    double seconds = time;
    KOR::UnitList::instance().convert(own, KOR::Unit("s"), seconds);
    const QString usual = inUnit(KOR::durationUnit(seconds));
    const QString asWritten = inUnit(own);
    return usual.size() <= asWritten.size() ? usual : asWritten; // "1 a" for 8760 h, but 100 h as they are
}

QString shownUnit(const std::string & wanted, const QString & unit) {
    if (!wanted.empty())
        return QString::fromStdString(wanted);
    return unit == QLatin1String("K") ? QStringLiteral("C") : unit;
}

SCI::Axis valueAxis(const Results & results, const Common & common) {
    const QString unit = QString::fromStdString(KOR::Unit(results.header().valueUnit).name());
    return {translated(results.header().quantity), unit, shownUnit(common.yUnit, unit),
            common.isLogY ? SCI::LOGARITHMIC : SCI::LINEAR};
}

SCI::Axis timeAxis(const Results & results, const Common & common) {
    const QString unit = QString::fromStdString(KOR::Unit(results.header().timeUnit).name());
    if (common.xUnit.empty() && !common.isLogX)
        return {QString(), unit, unit, SCI::DATE, results.header().startYear};
    return {translated("Time"), unit, common.xUnit.empty() ? unit : QString::fromStdString(common.xUnit),
            common.isLogX ? SCI::LOGARITHMIC : SCI::LINEAR};
}

SCI::Axis placeAxis(int direction, const std::string & unit) {
    return {QString(QChar('x' + direction)), "m", unit.empty() ? QStringLiteral("mm") : QString::fromStdString(unit)};
}

int profileDirection(const Results & results) {
    return results.format - DataIO::PROFILE_X;
}

/// Where the places are along a direction [m], each once, rising.
std::vector<double> coordinates(const Results & results, int direction) {
    std::vector<double> all;
    for (std::size_t k = 0; k < results.header().indices.size(); ++k)
        all.push_back(results.place(k)[static_cast<std::size_t>(direction)]);
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

/// Edges between centres; of a direction of the grid its own, else halfway.
std::vector<double> edges(const std::vector<double> & centres, const std::vector<double> & ofGrid) {
    if (ofGrid.size() == centres.size() + 1)
        return ofGrid;
    std::vector<double> result(centres.size() + 1);
    for (std::size_t i = 1; i < centres.size(); ++i)
        result[i] = (centres[i - 1] + centres[i]) / 2;
    const double half = centres.size() > 1 ? (centres[1] - centres[0]) / 2 : 0.5;
    const double last = centres.size() > 1 ? (centres.back() - centres[centres.size() - 2]) / 2 : 0.5;
    result.front() = centres.front() - half;
    result.back() = centres.back() + last;
    return result;
}

const std::vector<double> & gridEdges(const Results & results, int direction) {
    static const std::vector<double> NONE;
    return results.header().type == DataHeader::FLUX ? NONE : results.grid->boundaries(direction);
}

QString lineName(const Results & results, const QString & name, bool isCompared) {
    return isCompared ? QStringLiteral("%1: %2").arg(QString::fromStdString(results.name), name) : name;
}

/// Values over time.
void addCourses(SCI::Chart & chart, Results & results, const Arguments & arguments, bool isCompared) {
    std::vector<std::size_t> positions;
    for (const unsigned int element : arguments.elements)
        positions.push_back(positionOf(results, element));
    const std::size_t count = results.header().valueCount();
    for (std::size_t k = 0; arguments.elements.empty() && k < std::min(count, MAX_LINES); ++k)
        positions.push_back(count <= MAX_LINES ? k : k * (count - 1) / (MAX_LINES - 1)); // spread evenly
    for (const std::size_t k : positions) {
        SCI::LineStyle style;
        style.title = lineName(results, placeName(results, k), isCompared);
        chart.addLine(std::make_shared<Points>(results.file.timePoints(), results.file.dataVector(k)), style);
    }
}

/// Values over a coordinate at some times.
void addProfiles(SCI::Chart & chart, Results & results, const Arguments & arguments, bool isCompared) {
    const auto direction = static_cast<std::size_t>(profileDirection(results));
    std::vector<std::size_t> records;
    for (const std::string & time : arguments.times)
        records.push_back(recordAt(results, time));
    if (records.empty())
        records.push_back(results.file.timeCount() - 1);
    for (const std::size_t record : records) {
        std::vector<std::pair<double, double>> points;
        const std::vector<double> values = results.file.data(record);
        for (std::size_t k = 0; k < values.size(); ++k)
            points.emplace_back(results.place(k)[direction], values[k]);
        std::sort(points.begin(), points.end());
        std::vector<double> x, y;
        for (const auto & [at, value] : points) {
            x.push_back(at);
            y.push_back(value);
        }
        SCI::LineStyle style;
        style.title = lineName(results, timeName(results, record), isCompared);
        style.hasPoints = values.size() <= MAX_MARKED;
        chart.addLine(std::make_shared<Points>(std::move(x), std::move(y)), style);
    }
}

void addMap(SCI::Chart & chart, std::vector<double> xEdges, std::vector<double> yEdges, std::vector<double> values,
            std::vector<bool> isThere, const Arguments & arguments) {
    SCI::GridStyle style;
    style.hasIsolines = !arguments.isPlain;
    chart.addGrid(std::make_shared<Cells>(std::move(xEdges), std::move(yEdges), std::move(values), std::move(isThere)),
                  style);
}

void checkCells(std::size_t columns, std::size_t rows) {
    if (rows != 0 && columns > MAX_CELLS / rows)
        throw Exception(
            text("A picture of %1 x %2 cells is too large, at most %3 are drawn.", columns, rows, MAX_CELLS), WHERE);
}

/// A profile over time.
void addTimeMap(SCI::Chart & chart, Results & results, const Arguments & arguments) {
    const int direction = profileDirection(results);
    const std::vector<double> centres = coordinates(results, direction);
    const std::vector<double> & times = results.file.timePoints();
    checkCells(times.size(), centres.size());
    std::vector<double> values(times.size() * centres.size(), std::numeric_limits<double>::quiet_NaN());
    std::vector<bool> isThere(values.size(), false);
    std::vector<std::size_t> rows;
    for (std::size_t k = 0; k < results.header().indices.size(); ++k)
        rows.push_back(static_cast<std::size_t>(
            std::lower_bound(centres.begin(), centres.end(), results.place(k)[static_cast<std::size_t>(direction)]) -
            centres.begin()));
    for (std::size_t i = 0; i < times.size(); ++i) {
        const std::vector<double> record = results.file.data(i);
        for (std::size_t k = 0; k < record.size(); ++k) {
            values[rows[k] * times.size() + i] = record[k];
            isThere[rows[k] * times.size() + i] = true;
        }
    }
    addMap(chart, edges(times, {}), edges(centres, gridEdges(results, direction)), std::move(values),
           std::move(isThere), arguments);
}

/// A plane at one time.
void addPlane(SCI::Chart & chart, Results & results, const Arguments & arguments) {
    const int first = results.format == DataIO::PLANE_YZ ? 1 : 0;
    const int second = results.format == DataIO::PLANE_XY ? 1 : 2;
    const std::vector<double> xs = coordinates(results, first);
    const std::vector<double> ys = coordinates(results, second);
    checkCells(xs.size(), ys.size());
    const std::size_t record =
        arguments.times.empty() ? results.file.timeCount() - 1 : recordAt(results, arguments.times.front());
    const std::vector<double> data = results.file.data(record);
    std::vector<double> values(xs.size() * ys.size(), std::numeric_limits<double>::quiet_NaN());
    std::vector<bool> isThere(values.size(), false);
    const auto index = [](const std::vector<double> & all, double value) {
        return static_cast<std::size_t>(std::lower_bound(all.begin(), all.end(), value) - all.begin());
    };
    for (std::size_t k = 0; k < data.size(); ++k) {
        const auto at = results.place(k);
        const std::size_t cell = index(ys, at[static_cast<std::size_t>(second)]) * xs.size() +
                                 index(xs, at[static_cast<std::size_t>(first)]);
        values[cell] = data[k];
        isThere[cell] = true;
    }
    addMap(chart, edges(xs, gridEdges(results, first)), edges(ys, gridEdges(results, second)), std::move(values),
           std::move(isThere), arguments);
    chart.setTitle(QStringLiteral("%1, %2").arg(translated(results.header().quantity), timeName(results, record)));
}

void fill(SCI::Chart & chart, const Common & common, const Arguments & arguments) {
    Results results(arguments.file);
    const bool isCompared = !arguments.compare.empty();
    const bool wantsCourse = !arguments.elements.empty();
    if (results.format == DataIO::VOLUME && !wantsCourse)
        throw Exception("Values in a volume cannot be drawn whole; choose elements.", WHERE);
    chart.setTitle(translated(results.header().quantity));
    // Draws both files the same way.
    const auto both = [&](const auto & add) {
        add(chart, results, arguments, isCompared);
        if (!isCompared)
            return;
        Results other(arguments.compare);
        if (other.header().valueUnit != results.header().valueUnit ||
            other.header().timeUnit != results.header().timeUnit)
            throw Exception(
                text("'%1' and '%2' are in different units and cannot be compared.", arguments.file, arguments.compare),
                WHERE);
        if (other.isProfile() != results.isProfile() && !wantsCourse)
            throw Exception(text("'%1' and '%2' are no profiles both.", arguments.file, arguments.compare), WHERE);
        add(chart, other, arguments, isCompared);
    };
    if (results.isPlane() && !wantsCourse) {
        chart.setAxis(SCI::X_BOTTOM, placeAxis(results.format == DataIO::PLANE_YZ ? 1 : 0, common.xUnit));
        chart.setAxis(SCI::Y_LEFT, placeAxis(results.format == DataIO::PLANE_XY ? 1 : 2, common.xUnit));
        chart.setAxis(SCI::Y_RIGHT, valueAxis(results, common));
        addPlane(chart, results, arguments);
        chart.setEqualScales(arguments.isEqual);
    } else if (results.isProfile() && !wantsCourse && arguments.isMap) {
        chart.setAxis(SCI::X_BOTTOM, timeAxis(results, common));
        chart.setAxis(SCI::Y_LEFT, placeAxis(profileDirection(results), {}));
        chart.setAxis(SCI::Y_RIGHT, valueAxis(results, common));
        addTimeMap(chart, results, arguments);
    } else if (results.isProfile() && !wantsCourse) {
        chart.setAxis(SCI::X_BOTTOM, placeAxis(profileDirection(results), common.xUnit));
        chart.setAxis(SCI::Y_LEFT, valueAxis(results, common));
        both(addProfiles);
    } else {
        chart.setAxis(SCI::X_BOTTOM, timeAxis(results, common));
        chart.setAxis(SCI::Y_LEFT, valueAxis(results, common));
        both(addCourses);
    }
}

} // namespace

Command resultsCommand(CLI::App & program) {
    CLI::App * app = program.add_subcommand(
        "results", "A result file: courses over time, profiles and planes at a time, as its values lie.");
    const auto arguments = std::make_shared<Arguments>();
    app->add_option("FILE", arguments->file, "The result file (h6b, h6o).")->required();
    app->add_option("--element", arguments->elements, "Draw the course of this element or side; may be repeated.");
    app->add_option("--time", arguments->times,
                    "Draw what is nearest to this time, as '30 d' or in the unit of the file; may be repeated for "
                    "profiles. Otherwise the last time.")
        ->allow_extra_args(false);
    app->add_flag("--map", arguments->isMap, "Draw a profile as colours over time and place.");
    app->add_flag("--no-isolines", arguments->isPlain, "Colours without lines of equal value.");
    app->add_flag("--equal", arguments->isEqual, "A plane as it is: a length is as long along y as along x.");
    app->add_option("--compare", arguments->compare, "A second result file, drawn into the same picture.");
    return {app, [arguments](SCI::Chart & chart, const Common & common) { fill(chart, common, *arguments); }};
}

} // namespace PLOT
