#include <CCM/ReferenceYear.h>

#include "TextFile.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <cmath>

namespace CCM {

namespace {

constexpr const char * WHERE = "[CCM::parseClimateTable]";
constexpr std::size_t MAX_COLUMNS = 100;
constexpr std::size_t MAX_TABLE_SIZE = std::size_t(16) << 20;

/// Cells by the captions of their columns.
class Table {
public:
    explicit Table(std::string_view text) : m_lines(text) {
        std::string_view line;
        if (!m_lines.nextNonEmpty(line))
            fail("The table is empty.");
        splitFields(line, m_captions, MAX_COLUMNS);
    }
    bool nextRow() {
        std::string_view line;
        do
            if (!m_lines.nextNonEmpty(line))
                return false;
        while (line.starts_with('#'));
        splitFields(line, m_cells, MAX_COLUMNS);
        return true;
    }
    bool hasColumn(std::string_view caption) const {
        return std::find(m_captions.begin(), m_captions.end(), caption) != m_captions.end();
    }
    /// Empty where there is no such column or cell.
    std::string_view cell(std::string_view caption) const {
        const auto column =
            static_cast<std::size_t>(std::find(m_captions.begin(), m_captions.end(), caption) - m_captions.begin());
        return column < m_captions.size() && column < m_cells.size() ? m_cells[column] : std::string_view();
    }
    std::string text(std::string_view caption) const { return unquoted(cell(caption)); }
    double number(std::string_view caption) const {
        const auto value = KOR::parseDouble(cell(caption));
        if (!value)
            fail(KOR::text("'%1' in column %2 is not a number.", excerpt(cell(caption)), caption));
        return *value;
    }
    [[noreturn]] void fail(const std::string & reason) const {
        throw KOR::Exception(KOR::text("Error in line %1 of the table: %2", m_lines.number(), reason), WHERE);
    }

private:
    LineReader m_lines;
    std::vector<std::string_view> m_captions;
    std::vector<std::string_view> m_cells;
};

SineClimate sineOf(const Table & row) {
    return {row.text("name"),
            row.text("comment"),
            row.number("T_mean_C"),
            row.number("T_amplitude_K"),
            row.number("warmest_day"),
            row.number("RH_mean_pct"),
            row.number("RH_amplitude_pct"),
            row.number("dampest_day")};
}

MonthlyNormals placeOf(const Table & row) {
    MonthlyNormals place;
    place.city = row.text("city");
    place.country = row.text("country");
    place.latitude = row.number("lat_deg_N");
    place.longitude = row.number("lon_deg_E");
    place.elevation = row.number("elevation_m");
    place.timeZone = row.hasColumn("timezone_h") ? row.number("timezone_h") : std::round(row.number("lon_deg_E") / 15);
    return place;
}

/// "temperature D1, relative humidity D3" from the columns of sources.
std::string originOf(const Table & row) {
    constexpr std::pair<std::string_view, std::string_view> SOURCES[] = {
        {"temperature", "T_source"   },
        {"humidity",    "RH_source"  },
        {"radiation",   "GHI_source" },
        {"wind",        "wind_source"},
        {"rain",        "rain_source"}
    };
    std::string origin;
    for (const auto & [what, column] : SOURCES)
        if (!row.cell(column).empty())
            origin += (origin.empty() ? "" : ", ") + std::string(what) + ' ' + row.text(column);
    return KOR::replaced(origin, "=", ":");
}

} // namespace

ClimateTable parseClimateTable(std::string_view text) {
    Table row(text);
    ClimateTable table;
    if (row.hasColumn("T_amplitude_K")) {
        while (row.nextRow())
            table.sines.push_back(sineOf(row));
        return table;
    }
    std::size_t month = 12;
    while (row.nextRow()) {
        if (month == 12) {
            table.places.push_back(placeOf(row));
            table.places.back().origin = originOf(row);
            month = 0;
        }
        MonthlyNormals & place = table.places.back();
        if (row.text("city") != place.city || row.number("month") != static_cast<double>(month + 1))
            row.fail(KOR::text("expected month %1 of '%2'.", month + 1, place.city));
        MonthlyNormals::Month & normals = place.months[month++];
        normals = {row.number("T_mean_C"), row.number("RH_mean_pct"), row.number("GHI_mean_W_m2"),
                   row.number("wind_mean_m_s"), ASSUMED_RAIN};
        if (!row.cell("rain_mm_month").empty())
            normals.rain = row.number("rain_mm_month");
        else if (place.assumptions.empty())
            place.assumptions = KOR::text("%1 mm of rain a month where none is published", ASSUMED_RAIN);
    }
    if (month != 12)
        row.fail(KOR::text("'%1' has only %2 months.", table.places.back().city, month));
    return table;
}

ClimateTable readClimateTable(const std::string & path) {
    try {
        return parseClimateTable(KOR::readFile(path, MAX_TABLE_SIZE));
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error reading table of climates '%1'.", path), "[CCM::readClimateTable]");
    }
}

} // namespace CCM
