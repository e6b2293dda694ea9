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

/// A date as seconds since the start of \p startYear; 29 February counts as the 28th.
std::optional<double> date(const QString & text, int startYear) {
    for (const char * pattern : {"yyyy-MM-dd hh:mm:ss", "yyyy-MM-dd hh:mm", "yyyy-MM-ddThh:mm:ss", "yyyy-MM-ddThh:mm",
                                 "yyyy-MM-dd", "dd.MM.yyyy hh:mm:ss", "dd.MM.yyyy hh:mm", "dd.MM.yyyy"}) {
        const QDateTime found = QDateTime::fromString(text.trimmed(), QLatin1String(pattern));
        if (!found.isValid())
            continue;
        const QDate day = found.date();
        KOR::Time time;
        time.set(day.year(), day.month() - 1, (day.month() == 2 && day.day() == 29 ? 28 : day.day()) - 1,
                 found.time().msecsSinceStartOfDay() / 1000.0);
        return (day.year() - startYear) * KOR::SECONDS_PER_YEAR + time.m_seconds;
    }
    return std::nullopt;
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
