#include <KOR/Time.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/UnitList.h>

#include <locale.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>
#include <optional>

namespace KOR {

namespace {

constexpr std::array<double, 12> MONTH_LENGTHS = {2678400, 2419200, 2678400, 2592000, 2678400, 2592000,
                                                  2678400, 2678400, 2592000, 2678400, 2592000, 2678400};
constexpr std::array<double, 12> MONTH_OFFSETS = [] {
    std::array<double, 12> offsets{};
    std::partial_sum(MONTH_LENGTHS.begin(), MONTH_LENGTHS.end() - 1, offsets.begin() + 1);
    return offsets;
}();
static_assert(MONTH_OFFSETS[11] == 28857600 && MONTH_OFFSETS[11] + MONTH_LENGTHS[11] == SECONDS_PER_YEAR);

constexpr std::size_t RFC2822_LENGTH = 80;
constexpr double ROUND_OFF = 1e-6; ///< [s]

bool isLeapYear(std::int32_t year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

bool isYear(double year) {
    return year > std::numeric_limits<std::int32_t>::min() && year < std::numeric_limits<std::int32_t>::max();
}

/// The text right-aligned in \p width characters.
std::string aligned(std::string text, std::size_t width, char fill = ' ') {
    if (text.size() < width)
        text.insert(0, width - text.size(), fill);
    return text;
}

std::string decimal(double value, int decimals) {
    char buffer[400]; // the largest double has 309 digits before the point
    return {buffer, std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::fixed, decimals).ptr};
}

std::string padded(std::int64_t number, std::size_t width, char fill = '0') {
    std::string sign;
    if (number < 0)
        sign = '-';
    return sign + aligned(std::to_string(std::abs(number)), width, fill);
}

/// Unsigned digits that fill the text.
std::optional<int> digitsOnly(std::string_view text) {
    if (text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    return parseInteger<int>(text);
}

/// The C locale, so that days and months are English whatever the user's language.
locale_t cLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// A duration below the limit is shown in the unit.
struct DurationRow {
    double limit; ///< [s]
    double unit;  ///< [s]
    int decimals;
    std::string_view suffix;
};
constexpr double NO_LIMIT = std::numeric_limits<double>::infinity();
constexpr DurationRow DURATION_ROWS[] = {
    {1,                  1e-3,               0, " ms" },
    {SECONDS_PER_MINUTE, 1,                  3, " s"  },
    {SECONDS_PER_HOUR,   SECONDS_PER_MINUTE, 3, " min"},
    {SECONDS_PER_DAY,    SECONDS_PER_HOUR,   3, " h"  },
    {SECONDS_PER_YEAR,   SECONDS_PER_DAY,    3, " d"  },
    {NO_LIMIT,           SECONDS_PER_YEAR,   3, " a"  },
};

/// A duration above the limit is shown best in the unit.
struct DurationUnitRow {
    double limit; ///< [s]
    std::string_view unit;
};
constexpr DurationUnitRow DURATION_UNITS[] = {
    {15552000, "a"  },
    {43200,    "d"  },
    {1800,     "h"  },
    {180,      "min"},
    {1,        "s"  },
};

} // namespace

TimePattern::TimePattern(std::string_view pattern) {
    static constexpr std::string_view LETTERS = "yMdhms";
    static_assert(LETTERS.size() == NUM_FIELDS);
    for (std::size_t i = 0; i < LETTERS.size(); ++i) {
        const std::size_t position = pattern.find(LETTERS[i]);
        if (position == std::string_view::npos)
            continue;
        const std::size_t length = std::min(pattern.find_first_not_of(LETTERS[i], position), pattern.size()) - position;
        if (length == 2 || (length == 4 && i == YEAR))
            m_fields[i] = {position, length};
    }
}

void Time::set(std::int32_t year, int month, int day, double seconds) {
    if (month < 0 || month > 11)
        throw Exception("Invalid month", "[Time::set]");
    if (day < 0 || day > 31)
        throw Exception("Invalid day", "[Time::set]");
    if (!(seconds >= 0 && seconds < SECONDS_PER_DAY))
        throw Exception("Invalid seconds", "[Time::set]");
    m_year = year;
    m_seconds = MONTH_OFFSETS[static_cast<std::size_t>(month)] + day * SECONDS_PER_DAY + seconds;
}

double Time::secondsSinceYearOf(const Time & other) const {
    return m_seconds + (static_cast<double>(m_year) - other.m_year) * SECONDS_PER_YEAR;
}

Time Time::operator-(const Time & other) const {
    if (!valid() || !other.valid())
        return {};
    const double seconds = secondsSinceYearOf(other) - other.m_seconds;
    // A whole year stays in the seconds.
    const double years = std::max(0.0, std::ceil(seconds / SECONDS_PER_YEAR) - 1);
    if (!(seconds >= 0) || !isYear(years))
        return {};
    return {static_cast<std::int32_t>(years), seconds - years * SECONDS_PER_YEAR};
}

Time Time::fromString(std::string_view text) {
    std::string blanked(text);
    std::replace_if(
        blanked.begin(), blanked.end(), [](char c) { return c == ':' || c == '.'; }, ' ');
    const auto parts = words(blanked);
    std::array<int, 6> numbers{};
    if (parts.size() < numbers.size())
        return {};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = parseInteger<int>(parts[i]);
        if (!number)
            return {};
        numbers[i] = *number;
    }
    const auto [day, month, year, hour, minute, second] = numbers;
    Time time;
    // Computed in floating point: extreme integers do not overflow but are refused as out of range.
    time.set(year, static_cast<int>(std::clamp(month - 1.0, -1.0, 12.0)),
             static_cast<int>(std::clamp(day - 1.0, -1.0, 32.0)), (hour * 60.0 + minute) * 60.0 + second);
    return time;
}

Time Time::fromString(std::string_view text, const TimePattern & pattern, bool observeLeapYears) {
    std::array<int, TimePattern::NUM_FIELDS> numbers = {0, 1, 1, 0, 0, 0};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const TimePattern::Field & field = pattern.m_fields[i];
        if (field.length == 0)
            continue;
        if (field.position + field.length > text.size())
            return {};
        const auto number = digitsOnly(text.substr(field.position, field.length));
        if (!number)
            return {};
        numbers[i] = *number + (i == TimePattern::YEAR && field.length == 2 ? 2000 : 0);
    }
    const auto [year, month, day, hour, minute, second] = numbers;
    // Hour 24 is how many weather files write the end of a day.
    if (month < 1 || month > 12 || day < 1 || day > 31 || hour > 24 || minute > 59 || second > 59)
        return {};
    Time time(year, MONTH_OFFSETS[static_cast<std::size_t>(month - 1)] + (day - 1) * SECONDS_PER_DAY +
                        hour * SECONDS_PER_HOUR + minute * SECONDS_PER_MINUTE + second);
    if (observeLeapYears && isLeapYear(year) && month > 2)
        time.m_seconds += SECONDS_PER_DAY;
    return time;
}

std::string Time::toString(char separator) const {
    // 5.3 days are 457919.99999999994 s: what is missing to the full second is round-off.
    const double whole = std::ceil(m_seconds) - m_seconds < ROUND_OFF ? std::ceil(m_seconds) : m_seconds;
    const double years = std::floor(whole / SECONDS_PER_YEAR);
    if (!valid() || !isYear(m_year + years))
        return "invalid";
    double seconds = whole - years * SECONDS_PER_YEAR;
    std::size_t month = 0;
    while (month < 11 && seconds >= MONTH_LENGTHS[month])
        seconds -= MONTH_LENGTHS[month++];
    const auto day = static_cast<std::int64_t>(seconds / SECONDS_PER_DAY);
    const auto clock = static_cast<std::int64_t>(seconds - static_cast<double>(day) * SECONDS_PER_DAY);
    return padded(day + 1, 2) + separator + padded(static_cast<std::int64_t>(month) + 1, 2) + separator +
           padded(m_year + static_cast<std::int64_t>(years), 4) + ' ' + padded(clock / 3600, 2, ' ') + ':' +
           padded(clock / 60 % 60, 2) + ':' + padded(clock % 60, 2);
}

std::string dateRFC2822(const std::string & format) {
    return dateRFC2822(format, std::time(nullptr));
}

std::string dateRFC2822(const std::string & format, std::time_t time) {
    std::tm local{};
    if (localtime_r(&time, &local) == nullptr)
        throw Exception("Time is out of range, error calling std::localtime().", "[Time::dateRFC2822]");
    char buffer[RFC2822_LENGTH + 1] = "";
    const std::size_t length = strftime_l(buffer, sizeof(buffer), format.c_str(), &local, cLocale());
    return {buffer, length};
}

std::string formatDuration(double seconds) {
    for (const DurationRow & row : DURATION_ROWS)
        if (seconds < row.limit)
            return aligned(decimal(seconds / row.unit, row.decimals), 6).append(row.suffix);
    return aligned(decimal(seconds, 0), 6); // not a number, or infinite
}

std::string formatDuration(double seconds, Unit unit) {
    UnitList::instance().convert(Unit("s"), unit, seconds);
    const std::string & name = unit.name();
    std::string result = aligned(decimal(seconds, name == "ms" ? 0 : 3), 7) + ' ' + name;
    if (name.size() <= 2)
        result.append(4 - name.size(), ' ');
    return result;
}

Unit durationUnit(double seconds) {
    for (const DurationUnitRow & row : DURATION_UNITS)
        if (seconds > row.limit)
            return Unit(row.unit);
    return Unit("ms");
}

} // namespace KOR
