#pragma once

#include <KOR/Unit.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace KOR {

inline constexpr double SECONDS_PER_MINUTE = 60;
inline constexpr double SECONDS_PER_HOUR = 3600;
inline constexpr double SECONDS_PER_DAY = 86400;
inline constexpr double SECONDS_PER_YEAR = 31536000; ///< every year has 365 days

/// Where year, month, day and clock stand in a date text: "dd.MM.yyyy hh:mm", "yyyy-MM-dd hh:mm" and the like.
/// Scanned once for the first run of each letter: y (four, or two: 2000 and the two digits), M, d, h, m, s (two each).
/// What a pattern does not name counts as its first: year 0, January, the 1st, 0 o'clock.
class TimePattern {
public:
    explicit TimePattern(std::string_view pattern);

private:
    friend class Time;
    enum field_t { YEAR, MONTH, DAY, HOUR, MINUTE, SECOND, NUM_FIELDS };
    struct Field {
        std::size_t position = 0;
        std::size_t length = 0; ///< 0: not in the pattern
    };
    Field m_fields[NUM_FIELDS];
};

/// A point in time, or a duration in years and seconds, in a calendar without leap days: February has 28 days
/// whatever the year.
class Time {
public:
    static constexpr std::int32_t INVALID_YEAR = -1000000;

    std::int32_t m_year = INVALID_YEAR;
    double m_seconds = 0; ///< [s] since 1 January, 00:00 of the year

    Time() = default; ///< the invalid time
    Time(std::int32_t year, double seconds) : m_year(year), m_seconds(seconds) {}

    bool valid() const { return m_year != INVALID_YEAR; }

    /// \param month 0-11, \param day 0-31 (the 32nd day counts on into the next month), \param seconds within the day
    /// Throws ("[Time::set]") "Invalid month", "Invalid day", "Invalid seconds"; the time stays as it was.
    void set(std::int32_t year, int month, int day, double seconds);

    /// The time from \p other to this in years and seconds (at most a year's); invalid when it is negative.
    Time operator-(const Time & other) const;
    /// Seconds from the start of the year of \p other to this.
    double secondsSinceYearOf(const Time & other) const;

    /// Reads "dd.MM.yyyy hh:mm:ss". Invalid when these are no six integers; throws as set when they are no time.
    static Time fromString(std::string_view text);
    /// Reads \p text by a pattern. Invalid when a field does not hold digits or is beyond its range.
    /// \param observeLeapYears dates from March on in a leap year come one day later
    static Time fromString(std::string_view text, const TimePattern & pattern, bool observeLeapYears = false);
    /// "28.02.2019  9:05:07" with the separator '.'; the hour is padded with a blank. "invalid" for the invalid time.
    std::string toString(char separator = '.') const;

    friend bool operator==(const Time &, const Time &) = default;
};

/// The local date and time in a pattern of strftime, in English; empty when it takes more than 80 characters.
/// Throws "Time is out of range, error calling std::localtime()." ("[Time::dateRFC2822]").
std::string dateRFC2822(const std::string & format = "%a, %d %b %Y %H:%M:%S %z");
std::string dateRFC2822(const std::string & format, std::time_t time);

/// A duration [s] as the user likes to read it, "   500 ms", "59.900 s", " 1.000 min"; six wide without the unit.
std::string formatDuration(double seconds);
/// A duration [s] in a unit of time, seven wide, short unit names padded to four: " 90.000 s   ".
/// Throws as UnitList::convert.
std::string formatDuration(double seconds, Unit unit);
/// The unit in which a duration [s] is shown best: ms, s, min, h, d or a.
Unit durationUnit(double seconds);

} // namespace KOR
