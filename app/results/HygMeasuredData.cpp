#include "HygMeasuredData.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>
#include <KOR/Time.h>
#include <KOR/UnitList.h>

#include <QDateTime>
#include <QRegularExpression>
#include <QStringList>

#include <limits>
#include <optional>

namespace {

constexpr std::size_t MAX_SIZE = 64 << 20; ///< [bytes]
constexpr int MAX_COLUMNS = 256;
constexpr const char * WHERE = "[HygMeasuredData::read]";

/// The separator that the first line of data has most of.
QChar separatorOf(const QString & line) {
    for (const QChar mark : {QChar(';'), QChar('\t'), QChar(',')})
        if (line.contains(mark))
            return mark;
    return '\t';
}

std::optional<double> number(QString text, QChar separator) {
    if (separator != ',')
        text.replace(',', '.');
    return KOR::parseDouble(text.toStdString());
}

/// Day and time of "2024-03-31 14:00" or "31.03.2024 14:00"; taken apart, since a time zone may know no such hour.
std::optional<std::pair<QDate, QTime>> dateOf(const QString & text) {
    const QStringList words = text.trimmed().replace('T', ' ').split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.size() > 2)
        return std::nullopt;
    QDate day = QDate::fromString(words[0], QStringLiteral("yyyy-MM-dd"));
    if (!day.isValid())
        day = QDate::fromString(words[0], QStringLiteral("dd.MM.yyyy"));
    QTime time(0, 0);
    if (words.size() == 2) {
        time = QTime::fromString(words[1], QStringLiteral("hh:mm:ss"));
        if (!time.isValid())
            time = QTime::fromString(words[1], QStringLiteral("hh:mm"));
    }
    if (!day.isValid() || !time.isValid())
        return std::nullopt;
    return std::pair(day, time);
}

bool isLeapDay(const QString & text) {
    const auto date = dateOf(text);
    return date && date->first.month() == 2 && date->first.day() == 29;
}

/// A date as seconds since the start of \p startYear.
std::optional<double> date(const QString & text, int startYear) {
    const auto found = dateOf(text);
    if (!found)
        return std::nullopt;
    const auto & [day, clock] = *found;
    KOR::Time time;
    time.set(day.year(), day.month() - 1, day.day() - 1, clock.msecsSinceStartOfDay() / 1000.0);
    return (day.year() - startYear) * KOR::SECONDS_PER_YEAR + time.m_seconds;
}

/// Splits "Temperature [C]".
std::pair<QString, QString> heading(const QString & text) {
    static const QRegularExpression FORM(QStringLiteral("^(.*?)\\s*[\\[(]([^\\])]*)[\\])]\\s*$"));
    const auto match = FORM.match(text.trimmed());
    return match.hasMatch() ? std::pair(match.captured(1), match.captured(2)) : std::pair(text.trimmed(), QString());
}

[[noreturn]] void refuse(const QString & story) {
    throw KOR::Exception(story.toStdString(), WHERE);
}

} // namespace

HygMeasuredData HygMeasuredData::read(const QString & path, int startYear) {
    const std::string content = KOR::readFile(path.toStdString(), MAX_SIZE);
    HygMeasuredData data;
    const QStringList lines = QString::fromStdString(content).remove(QChar(0xfeff)).split('\n');
    double secondsPerUnit = KOR::SECONDS_PER_HOUR;
    QChar separator;
    int lineNumber = 0;
    for (const QString & raw : lines) {
        ++lineNumber;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const bool isFirst = separator.isNull();
        if (isFirst)
            separator = separatorOf(line);
        const QStringList cells = line.split(separator);
        if (isFirst && cells.size() > MAX_COLUMNS)
            refuse(tr("Line %1 has more than %2 columns.").arg(lineNumber).arg(MAX_COLUMNS));
        if (isLeapDay(cells[0]))
            continue; // years have 365 days here
        std::optional<double> time = number(cells[0], separator);
        const bool isNumber = time.has_value();
        if (!isNumber)
            time = date(cells[0], startYear);
        if (data.columns.empty()) {
            for (int i = 1; i < cells.size(); ++i)
                data.columns.push_back({time ? QString::number(i) : heading(cells[i]).first,
                                        time ? QString() : heading(cells[i]).second,
                                        {}});
            if (data.columns.empty())
                refuse(tr("Line %1 has one column only.").arg(lineNumber));
            if (!time) {
                if (const QString unit = heading(cells[0]).second; !unit.isEmpty()) {
                    secondsPerUnit = 1;
                    KOR::UnitList::instance().convert(KOR::Unit(unit.toStdString()), KOR::Unit("s"), secondsPerUnit);
                }
                continue;
            }
        }
        if (!time)
            refuse(tr("Line %1: '%2' is no time.").arg(lineNumber).arg(cells[0]));
        const double seconds = isNumber ? *time * secondsPerUnit : *time;
        if (!data.times.empty() && seconds < data.times.back())
            refuse(tr("Line %1: time goes back.").arg(lineNumber));
        data.times.push_back(seconds);
        for (std::size_t i = 0; i < data.columns.size(); ++i)
            data.columns[i].values.push_back(number(cells.value(static_cast<int>(i) + 1), separator)
                                                 .value_or(std::numeric_limits<double>::quiet_NaN()));
    }
    if (data.times.empty())
        refuse(tr("The file holds no values."));
    return data;
}
