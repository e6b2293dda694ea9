#pragma once

#include <HYGRION/Defaults.h>
#include <HYGRION/NamedSet.h>

#include <cmath>
#include <span>
#include <string>
#include <string_view>

/// The limits of parameters as rows of data, checked in one place.
namespace HYGRION {

/// What a parameter must keep, in a unit; without one in the unit in which the parameter was given.
struct ParaLimit {
    std::string_view keyword;
    std::string_view unit;
    double min = -UNLIMITED; ///< smallest allowed value
    double max = UNLIMITED;  ///< largest allowed value
};

/// Throws, naming the parameter, its value and what is allowed, unless min <= value <= max.
/// \param context put in front, "Boundary condition 'rain': "; may be empty
void checkLimit(const KOR::Parameter & parameter, const ParaLimit & limit, std::string_view context,
                const char * where);
void checkLimit(const KOR::IntPara & parameter, const ParaLimit & limit, std::string_view context, const char * where);

/// Checks the parameters that are set against the rows of their names.
template <typename Enum, typename Value>
void checkLimits(const NamedSet<Enum, Value> & values, std::span<const ParaLimit> limits, std::string_view context,
                 const char * where) {
    for (const auto & [key, value] : values) {
        const std::string keyword = KeywordList::Keyword(key);
        for (const ParaLimit & limit : limits)
            if (limit.keyword == keyword)
                checkLimit(value, limit, context, where);
    }
}

/// Checks the parameters that are set against the table of defaults.
template <typename Enum, typename Value>
void checkDefaultLimits(const NamedSet<Enum, Value> & values, const char * where) {
    for (const auto & [key, value] : values) {
        const DefaultRow & row = defaultOf(KeywordList::category<Enum>(), KeywordList::Keyword(key));
        checkLimit(value, {row.keyword, row.unit, row.min, row.max}, {}, where);
    }
}

} // namespace HYGRION
