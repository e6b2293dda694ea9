#include "NumberText.h"

#include <algorithm>
#include <cmath>

namespace SCI {

namespace {
constexpr double LARGE = 1e6;
constexpr double SMALL = 1e-4;
constexpr int MAX_DIGITS = 15;
} // namespace

QString numberText(double value, int digits, const QLocale & locale) {
    if (!std::isfinite(value))
        return QStringLiteral("–");
    QLocale form = locale;
    form.setNumberOptions(QLocale::OmitGroupSeparator);
    const double size = std::abs(value);
    digits = std::clamp(digits, 1, MAX_DIGITS);
    if (value == 0)
        return form.toString(0);
    if (size >= SMALL && size < LARGE) {
        const int before = static_cast<int>(std::floor(std::log10(size))) + 1;
        QString text = form.toString(value, 'f', std::max(digits - before, 0));
        if (text.contains(form.decimalPoint())) {
            while (text.endsWith(QLatin1Char('0')))
                text.chop(1);
            if (text.endsWith(form.decimalPoint()))
                text.chop(1);
        }
        return text;
    }
    const QString text = QString::number(value, 'e', digits - 1);
    const int e = text.indexOf(QLatin1Char('e'));
    const double mantissa = text.left(e).toDouble();
    const QString power = QString::number(text.mid(e + 1).toInt());
    static const QString RAISED = QStringLiteral("⁰¹²³⁴⁵⁶⁷⁸⁹");
    QString raised;
    for (const QChar c : power)
        raised += c == QLatin1Char('-') ? QChar(u'⁻') : RAISED.at(c.digitValue());
    const QString ten = QStringLiteral("10") + raised;
    if (mantissa == 1)
        return ten;
    if (mantissa == -1)
        return QLatin1Char('-') + ten;
    return form.toString(mantissa, 'g', digits) + QChar(u'·') + ten;
}

int digitsFor(double largest, double step) {
    if (!(step > 0) || !std::isfinite(largest) || largest == 0)
        return 1;
    const double digits = std::floor(std::log10(std::abs(largest))) - std::floor(std::log10(step) + 1e-9) + 1;
    // One more, since a step of 0.25 or 2.5 has two digits of its own.
    return static_cast<int>(std::clamp(digits + 1, 1.0, double(MAX_DIGITS)));
}

} // namespace SCI
