#pragma once

#include <HYGRION/KeywordList.h>

#include <KOR/KeywordTie.h>

#include <array>
#include <stdexcept>
#include <utility>

/// Holds a keyword table against its enumeration while compiling: same words in the same order, none missing.
namespace HYGRION {

/// Words that are no identifiers, and the enumerators that stand for them.
struct EnumeratorAlias {
    std::string_view word, enumerator;
};
inline constexpr EnumeratorAlias ENUMERATOR_ALIASES[] = {
    {"1DLayer", "Layer1D"   },
    {"2D",      "Geometry2D"},
    {"3D",      "Geometry3D"},
    {"sd+(rh)", "SdPositive"},
    {"sd-(rh)", "SdNegative"},
};

using KOR::enumeratorName;

template <typename Enum, std::size_t... INDEX>
consteval std::array<std::string_view, sizeof...(INDEX)> enumeratorNames(std::index_sequence<INDEX...>) {
    return {enumeratorName<static_cast<Enum>(INDEX)>()...};
}

consteval std::string_view enumeratorOf(std::string_view words) {
    const std::string_view word = words.substr(0, words.find(' '));
    for (const EnumeratorAlias & alias : ENUMERATOR_ALIASES)
        if (alias.word == word)
            return alias.enumerator;
    return word;
}

/// The category of an enumeration; does not compile unless the table agrees with it.
template <typename Enum, std::size_t COUNT>
consteval KOR::KeywordCategory tied(std::string_view category, const KOR::KeywordRow (&rows)[COUNT]) {
    constexpr auto NAMES = enumeratorNames<Enum>(std::make_index_sequence<COUNT + 1>());
    if (category != KeywordList::category<Enum>())
        throw std::logic_error("category and enumeration disagree");
    if (!NAMES[COUNT].empty())
        throw std::logic_error("a row is missing");
    for (std::size_t i = 0; i < COUNT; ++i)
        if (NAMES[i] != enumeratorOf(rows[i].words))
            throw std::logic_error("word and enumerator disagree");
    return {category, rows};
}

} // namespace HYGRION
