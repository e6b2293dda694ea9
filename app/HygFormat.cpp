#include "HygFormat.h"

#include <SCI/Axis.h>

#include <KOR/Time.h>

#include <QCoreApplication>

QLocale HygFormat::locale() {
    //: two letters of the language, by which numbers and dates are written
    QLocale locale(QCoreApplication::translate("HygFormat", "en"));
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

QString HygFormat::number(double value, int digits) {
    return locale().toString(value, 'g', digits);
}

QString HygFormat::value(double value, const QString & unit, int digits) {
    const QString printed = SCI::printedUnit(unit);
    return printed.isEmpty() ? number(value, digits) : number(value, digits) + ' ' + printed;
}

QString HygFormat::date(const QDate & date) {
    //: pattern of a date
    return date.toString(QCoreApplication::translate("HygFormat", "yyyy-MM-dd"));
}

QString HygFormat::dateTime(const QDateTime & time, bool hasSeconds) {
    if (!time.isValid())
        return {};
    const QDateTime here = time.toLocalTime();
    return date(here.date()) + ' ' + here.toString(hasSeconds ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
}

QString HygFormat::duration(double seconds) {
    return QString::fromStdString(KOR::formatDuration(seconds))
        .trimmed()
        .replace(QLatin1Char('.'), locale().decimalPoint());
}
