#pragma once

#include <KOR/Keywords.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

/// Holds a keyword table against its enumeration while compiling: same words in the same order, none missing.
namespace KOR {

/// The enumerator's name from the compiler's own text; empty if the enumeration has none of this value.
template <auto VALUE> consteval std::string_view enumeratorName() {
    constexpr std::string_view LABEL = "VALUE = ";
    std::string_view name = __PRETTY_FUNCTION__; // "... [with auto VALUE = MM::Material::Sections::AIR; ...]"
    name = name.substr(name.find(LABEL) + LABEL.size());
    name = name.substr(0, name.find_first_of(";]"));
    if (name.starts_with('(')) // "(MM::Material::Sections)99"
        return {};
    return name.substr(name.rfind(':') + 1);
}

/// "Material::Sections": the enumeration's name without its namespace.
template <typename Enum> constexpr std::string_view enumerationName() {
    std::string_view name = __PRETTY_FUNCTION__; // "... [with Enum = MM::Material::Sections; ...]"
    name = name.substr(name.find("Enum = ") + 7);
    name = name.substr(0, name.find_first_of(";]"));
    return name.substr(name.find("::") + 2);
}

/// Whether an enumerator stands for a word: letters, digits and "_" are themselves, "(" is "_", ")" is nothing,
/// "+" is "Pos", "-" is "Neg".
constexpr bool enumeratorMatches(std::string_view enumerator, std::string_view word) {
    for (const char c : word) {
        const char self[] = {c == '(' ? '_' : c, '\0'};
        const std::string_view written = c == '+' ? "Pos" : c == '-' ? "Neg" : c == ')' ? "" : std::string_view(self);
        if (!enumerator.starts_with(written))
            return false;
        enumerator.remove_prefix(written.size());
    }
    return enumerator.empty();
}

namespace detail {
template <typename Enum, KeywordIndexing INDEXING, std::size_t... ROW>
consteval std::array<std::string_view, sizeof...(ROW)> enumeratorNames(std::index_sequence<ROW...>) {
    constexpr KeywordCategory NUMBERING{{}, {}, INDEXING};
    return {enumeratorName<static_cast<Enum>(NUMBERING.index(ROW))>()...};
}
} // namespace detail

/// The category of an enumeration; does not compile unless the rows agree with its enumerators.
template <typename Enum, KeywordIndexing INDEXING = KeywordIndexing::FROM_ZERO, std::size_t COUNT>
consteval KeywordCategory tiedKeywords(std::string_view category, const KeywordRow (&rows)[COUNT]) {
    constexpr auto NAMES = detail::enumeratorNames<Enum, INDEXING>(std::make_index_sequence<COUNT + 1>());
    if (category != enumerationName<Enum>())
        throw std::logic_error("category and enumeration disagree");
    if (!NAMES[COUNT].empty())
        throw std::logic_error("a row is missing");
    for (std::size_t i = 0; i < COUNT; ++i)
        if (!enumeratorMatches(NAMES[i], rows[i].words.substr(0, rows[i].words.find_first_of(" \t"))))
            throw std::logic_error("word and enumerator disagree");
    return {category, rows, INDEXING};
}

} // namespace KOR
