#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

/// Numbers and times as they are read in the language of the program, whatever the system is set to.
namespace HygFormat {

/// Of the language, without separators of groups.
QLocale locale();
QString number(double value, int digits = 5);
/// "18.5 °C"; \param unit name of a KOR unit
QString value(double value, const QString & unit, int digits = 5);
/// "23.11.2026", "2026-11-23"; as all dates of the program.
QString date(const QDate & date);
/// Date and time of the user's place; empty for an invalid one.
QString dateTime(const QDateTime & time, bool hasSeconds = false);
/// "3 h 20 min"
QString duration(double seconds);

} // namespace HygFormat
