#include "UnitScale.h"

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <limits>

namespace SCI {

UnitScale::UnitScale(const QString & dataUnit, const QString & shownUnit)
    : m_dataUnit(dataUnit), m_shownUnit(shownUnit) {
    const auto relation =
        KOR::UnitList::instance().relate_units(KOR::Unit(dataUnit.toStdString()), KOR::Unit(shownUnit.toStdString()));
    switch (relation.operation) {
    case KOR::UnitList::OP_ADD:
        m_offset = relation.factor;
        break;
    case KOR::UnitList::OP_MULTIPLY:
        m_factor = relation.factor;
        break;
    case KOR::UnitList::OP_SPECIAL:
        m_isSpecial = true;
        break;
    default:
        break;
    }
}

double UnitScale::special(double value, bool isBack) const {
    const KOR::Unit source((isBack ? m_shownUnit : m_dataUnit).toStdString());
    const KOR::Unit target((isBack ? m_dataUnit : m_shownUnit).toStdString());
    try {
        KOR::UnitList::instance().convert(source, target, value);
        return value;
    } catch (const KOR::Exception &) {
        return std::numeric_limits<double>::quiet_NaN();
    }
}

QString UnitScale::printed(const QString & unit) {
    const KOR::UnitList::Record * known = KOR::UnitList::instance().find(unit.toStdString());
    return known == nullptr ? unit : QString::fromStdString(KOR::Unit(known->index).displayName());
}

QString printedUnit(const QString & unit) {
    return UnitScale::printed(unit);
}

QString UnitScale::withUnit(const QString & title, const QString & unit) {
    const QString name = printed(unit);
    if (name.isEmpty())
        return title;
    return title.isEmpty() ? QStringLiteral("[%1]").arg(name) : QStringLiteral("%1 [%2]").arg(title, name);
}

QStringList UnitScale::alternatives(const QString & unit) {
    const auto & list = KOR::UnitList::instance();
    const std::size_t base = list.retrieve(unit.toStdString()).base;
    QStringList names;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list.retrieve(i).base == base)
            names << QString::fromStdString(list.retrieve(i).name);
    return names;
}

} // namespace SCI
