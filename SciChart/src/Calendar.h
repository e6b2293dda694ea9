#pragma once

#include <QLocale>
#include <QString>

#include <optional>
#include <vector>

namespace SCI {

/// Ticks and texts of a date axis. Times are seconds since the start of a year; every year has 365 days.
class Calendar {
public:
    struct Ticks {
        std::vector<double> major;
        std::vector<double> minor;
        double step = 0; ///< rounded length of a major step [s]
    };
    /// Ticks at whole seconds, minutes, hours, days, months or years; at most \p maxMajor + 1 major ones.
    static Ticks ticks(double from, double to, int maxMajor);

    /// Text of a major tick; two lines where a year begins.
    static QString label(double time, double step, int startYear, const QLocale & locale);
    /// A time in full: "15 Mar 2021 12:00".
    static QString text(double time, int startYear, const QLocale & locale);
    /// A time as it is typed, "15.03.2021 12:00"; without a year when there is no start year.
    static QString typed(double time, int startYear);
    /// Reads what typed() writes; the clock may be left out.
    static std::optional<double> fromTyped(const QString & text, int startYear);
};

} // namespace SCI
