#pragma once

#include <QString>
#include <QStringList>

namespace SCI {

/// Converts the values of a model to those of an axis. Uses nothing of C++20, so that both sides of the library see it.
class UnitScale {
public:
    UnitScale() = default;
    /// Throws KOR::Exception as KOR::UnitList::relate_units, and for names that are no units.
    UnitScale(const QString & dataUnit, const QString & shownUnit);

    /// NaN where a logarithm or root is not defined.
    double shown(double data) const { return m_isSpecial ? special(data, false) : data * m_factor + m_offset; }
    double data(double shown) const { return m_isSpecial ? special(shown, true) : (shown - m_offset) / m_factor; }
    /// shown = data * factor + offset; not so for logarithms and roots.
    bool isLinear() const { return !m_isSpecial; }
    double factor() const { return m_factor; }
    double offset() const { return m_offset; }

    /// A unit as it is printed: "kg/m2s" with a raised 2, "C" with its degree sign; empty for pure numbers.
    static QString printed(const QString & unit);
    /// A title and its unit in brackets.
    static QString withUnit(const QString & title, const QString & unit);
    /// All units of the same kind, the given one among them.
    static QStringList alternatives(const QString & unit);

private:
    double special(double value, bool isBack) const;

    double m_factor = 1;
    double m_offset = 0;
    bool m_isSpecial = false;
    QString m_dataUnit;
    QString m_shownUnit;
};

} // namespace SCI
