#include "ParaLimits.h"

#include <KOR/Exception.h>

namespace HYGRION {

namespace {

std::string allowed(const ParaLimit & limit) {
    const std::string unit = limit.unit.empty() ? "" : ' ' + std::string(limit.unit);
    if (limit.min == ABOVE_ZERO)
        return limit.max == UNLIMITED ? "must be positive"
                                      : KOR::text("must be positive, at most %1%2", limit.max, unit);
    if (limit.max == UNLIMITED)
        return limit.min == 0 ? "must not be negative" : KOR::text("must be at least %1%2", limit.min, unit);
    return KOR::text("must lie within %1..%2%3", limit.min, limit.max, unit);
}

void check(const std::string & name, double value, const std::string & valueText, const ParaLimit & limit,
           std::string_view context, const char * where) {
    if (!(value >= limit.min && value <= limit.max))
        throw KOR::Exception(KOR::text("%1Parameter '%2' is %3, it %4.", context, name, valueText, allowed(limit)),
                             where);
}

} // namespace

void checkLimit(const KOR::Parameter & parameter, const ParaLimit & limit, std::string_view context,
                const char * where) {
    double value = 0;
    try {
        value = limit.unit.empty() ? parameter.ioValue() : parameter.get_value(limit.unit);
    } catch (const KOR::Exception &) { // which says less
        throw KOR::Exception(KOR::text("%1Parameter '%2' has an unsuitable unit '%3'.", context, parameter.name(),
                                       parameter.ioUnit().name()),
                             where);
    }
    check(parameter.name(), value, parameter.valueText(), limit, context, where);
}

void checkLimit(const KOR::IntPara & parameter, const ParaLimit & limit, std::string_view context, const char * where) {
    check(parameter.name, parameter.value, KOR::toString(parameter.value), limit, context, where);
}

} // namespace HYGRION
