#include "Calendar.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <QRegularExpression>
#include <QTime>

#include <array>
#include <cmath>

namespace SCI {

namespace {

using KOR::SECONDS_PER_DAY;
using KOR::SECONDS_PER_YEAR;

constexpr double MINUTE = KOR::SECONDS_PER_MINUTE;
constexpr double HOUR = KOR::SECONDS_PER_HOUR;
constexpr double MONTH = SECONDS_PER_YEAR / 12;
constexpr int MONTH_STARTS[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr int MAX_TICKS = 2000; ///< against ranges that were typed by mistake

enum kind_t { SECONDS, MONTHS, YEARS };

struct Step {
    kind_t kind;
    int count;
    int minor; ///< minor steps in a major one
    double length() const { return count * (kind == SECONDS ? 1 : kind == MONTHS ? MONTH : SECONDS_PER_YEAR); }
};
constexpr int H = 3600;
constexpr int D = 86400;
constexpr Step STEPS[] = {
    {SECONDS, 1,      2},
    {SECONDS, 5,      5},
    {SECONDS, 15,     3},
    {SECONDS, 30,     3},
    {SECONDS, 60,     4},
    {SECONDS, 300,    5},
    {SECONDS, 900,    3},
    {SECONDS, 1800,   3},
    {SECONDS, H,      4},
    {SECONDS, 3 * H,  3},
    {SECONDS, 6 * H,  6},
    {SECONDS, 12 * H, 4},
    {SECONDS, D,      4},
    {SECONDS, 2 * D,  2},
    {SECONDS, 7 * D,  7},
    {MONTHS,  1,      1},
    {MONTHS,  2,      2},
    {MONTHS,  3,      3},
    {MONTHS,  6,      6},
    {YEARS,   1,      4},
    {YEARS,   2,      2},
    {YEARS,   5,      5},
    {YEARS,   10,     5},
    {YEARS,   20,     4},
    {YEARS,   50,     5},
    {YEARS,   100,    5},
};

/// A time in parts.
struct Date {
    long long year = 0; ///< counted from 0
    int month = 0;      ///< 0-11
    int day = 0;        ///< 0-30
    double second = 0;  ///< of the day
};

Date dateOf(double time) {
    Date date;
    date.year = static_cast<long long>(std::floor(time / SECONDS_PER_YEAR));
    const double inYear = time - static_cast<double>(date.year) * SECONDS_PER_YEAR;
    const int dayOfYear = std::min(static_cast<int>(inYear / SECONDS_PER_DAY), 364);
    while (MONTH_STARTS[date.month + 1] <= dayOfYear)
        ++date.month;
    date.day = dayOfYear - MONTH_STARTS[date.month];
    date.second = inYear - dayOfYear * SECONDS_PER_DAY;
    return date;
}

double startOfMonth(long long monthsSinceStart) {
    const long long year = monthsSinceStart >= 0 ? monthsSinceStart / 12 : -((11 - monthsSinceStart) / 12);
    const auto month = static_cast<std::size_t>(monthsSinceStart - 12 * year);
    return static_cast<double>(year) * SECONDS_PER_YEAR + MONTH_STARTS[month] * SECONDS_PER_DAY;
}

/// The \p i -th tick of a step counted from time 0.
double tickAt(const Step & step, long long i) {
    switch (step.kind) {
    case SECONDS:
        return static_cast<double>(i) * step.count;
    case MONTHS:
        return startOfMonth(i * step.count);
    default:
        return static_cast<double>(i) * step.count * SECONDS_PER_YEAR;
    }
}

QString clock(double second, const char * pattern) {
    return QTime(0, 0).addSecs(static_cast<int>(std::lround(second))).toString(QLatin1String(pattern));
}

/// "15. Mär" or "15 Mar".
QString dayText(const Date & date, const QLocale & locale) {
    const bool hasPoint = locale.language() == QLocale::German;
    return QString::number(date.day + 1) + (hasPoint ? QStringLiteral(". ") : QStringLiteral(" ")) +
           locale.standaloneMonthName(date.month + 1, QLocale::ShortFormat);
}

/// Rounded to whole seconds: what is left of computing must not move a date to the day before.
Date roundedDate(double time) {
    return dateOf(std::round(time));
}

} // namespace

Calendar::Ticks Calendar::ticks(double from, double to, int maxMajor) {
    Ticks ticks;
    if (!(to > from) || !std::isfinite(to - from) || std::abs(from) > 1e15 || std::abs(to) > 1e15)
        return ticks;
    const Step * step = std::begin(STEPS);
    while (step + 1 != std::end(STEPS) && (to - from) / step->length() > maxMajor)
        ++step;
    ticks.step = step->length();
    Step used = *step;
    while ((to - from) / used.length() > MAX_TICKS)
        used.count *= 10;
    for (auto i = static_cast<long long>(std::floor(from / used.length())) - 1; tickAt(used, i) <= to; ++i) {
        const double tick = tickAt(used, i);
        const double next = tickAt(used, i + 1);
        if (tick >= from)
            ticks.major.push_back(tick);
        for (int k = 1; k < used.minor; ++k)
            if (const double minor = tick + (next - tick) * k / used.minor; minor >= from && minor <= to)
                ticks.minor.push_back(minor);
    }
    return ticks;
}

QString Calendar::label(double time, double step, int startYear, const QLocale & locale) {
    const Date date = roundedDate(time);
    const QString year = startYear == 0 ? QString() : QString::number(startYear + date.year);
    if (step >= SECONDS_PER_YEAR)
        return startYear == 0 ? QString::number(date.year) : year;
    const bool isMidnight = date.second < 0.5;
    const bool beginsYear = isMidnight && date.month == 0 && date.day == 0 && !year.isEmpty();
    QString text;
    if (step < MINUTE)
        text = clock(date.second, "HH:mm:ss");
    else if (step < SECONDS_PER_DAY && !isMidnight)
        text = clock(date.second, "HH:mm");
    else if (step < MONTH)
        text = dayText(date, locale);
    else
        text = locale.standaloneMonthName(date.month + 1, QLocale::ShortFormat);
    return beginsYear ? text + QLatin1Char('\n') + year : text;
}

QString Calendar::text(double time, int startYear, const QLocale & locale) {
    if (!std::isfinite(time) || std::abs(time) > 1e15)
        return QString();
    const Date date = roundedDate(time);
    const QString year = startYear == 0 ? QString() : QLatin1Char(' ') + QString::number(startYear + date.year);
    return dayText(date, locale) + year + QLatin1Char(' ') +
           clock(date.second, std::fmod(date.second, MINUTE) != 0 ? "HH:mm:ss" : "HH:mm");
}

QString Calendar::typed(double time, int startYear) {
    const Date date = roundedDate(time);
    const QChar zero(u'0');
    QString text = QStringLiteral("%1.%2.").arg(date.day + 1, 2, 10, zero).arg(date.month + 1, 2, 10, zero);
    // Without a start year the years are counted from the first one, which is 1.
    text += QString::number(startYear == 0 ? date.year + 1 : startYear + date.year);
    return text + QLatin1Char(' ') + clock(date.second, std::fmod(date.second, MINUTE) != 0 ? "HH:mm:ss" : "HH:mm");
}

std::optional<double> Calendar::fromTyped(const QString & text, int startYear) {
    static const QRegularExpression FORM(
        QStringLiteral("^\\s*(\\d{1,2})\\.(\\d{1,2})\\.(\\d{1,4})?(?:\\s+(\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?\\s*$"));
    const auto match = FORM.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const int firstYear = startYear == 0 ? 1 : startYear;
    const int year = match.captured(3).isEmpty() ? firstYear : match.captured(3).toInt();
    const int month = match.captured(2).toInt();
    const int day = match.captured(1).toInt();
    const int hour = match.captured(4).toInt();
    const int minute = match.captured(5).toInt();
    const int second = match.captured(6).toInt();
    if (month < 1 || month > 12 || day < 1 || day > MONTH_STARTS[month] - MONTH_STARTS[month - 1] || hour > 24 ||
        minute > 59 || second > 59)
        return std::nullopt;
    return (year - firstYear) * SECONDS_PER_YEAR + (MONTH_STARTS[month - 1] + day - 1) * SECONDS_PER_DAY + hour * HOUR +
           minute * MINUTE + second;
}

} // namespace SCI
