#pragma once

#include <HYGRION/NamedSet.h>

#include <limits>
#include <span>
#include <string_view>

namespace HYGRION {

inline constexpr double UNLIMITED = std::numeric_limits<double>::infinity();
/// Lower limit of what must be above zero.
inline constexpr double ABOVE_ZERO = std::numeric_limits<double>::min();

/// What a setting is when the project does not give it, and the limits that it must keep.
/// A flag is 0 or 1; the one row of a choice names its keyword.
struct DefaultRow {
    std::string_view category; ///< of the keyword list
    std::string_view keyword;
    double value; ///< in unit
    std::string_view unit;
    double min; ///< in unit, smallest allowed value
    double max; ///< in unit, largest allowed value
    std::string_view reason;
};

/// The defaults of the Init section and of the solver, one row for every parameter, flag and choice.
std::span<const DefaultRow> defaults();

/// The row of an entry; without a keyword the one row of a choice. Throws "No default for '%1' of '%2'." ("[HYGRION::defaultOf]").
const DefaultRow & defaultOf(std::string_view category, std::string_view keyword);

/// The given parameter or the default.
template <typename Enum> KOR::Parameter parameterOrDefault(const ParaSet<Enum> & given, Enum key) {
    if (const KOR::Parameter * found = given.find(key))
        return *found;
    const DefaultRow & row = defaultOf(KeywordList::category<Enum>(), KeywordList::Keyword(key));
    return KOR::Parameter(std::string(row.keyword), row.value, KOR::Unit(row.unit));
}

/// The given state or the default.
template <typename Enum> bool isEnabledOrDefault(const FlagSet<Enum> & given, Enum key) {
    return given.isEnabled(key, defaultOf(KeywordList::category<Enum>(), KeywordList::Keyword(key)).value != 0);
}

/// The default of a choice.
template <typename Enum> Enum defaultChoice() {
    return KeywordList::Enumeration<Enum>(defaultOf(KeywordList::category<Enum>(), {}).keyword);
}

} // namespace HYGRION
