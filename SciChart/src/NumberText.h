#pragma once

#include <QLocale>
#include <QString>

namespace SCI {

/// A number for readers, in the locale's form, without trailing zeros; very large and small ones as "1.5·10⁻¹²".
QString numberText(double value, int digits, const QLocale & locale);
/// The digits that tell apart numbers a step away from each other.
int digitsFor(double largest, double step);

} // namespace SCI
