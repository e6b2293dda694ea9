#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace KOR {

/// The number with the fewest digits that read back to the same value; never depends on the locale.
std::string toString(double value);

/// The number in at most \p digits significant digits, for messages and tables; never depends on the locale.
std::string toString(double value, int digits);

template <typename Integer>
requires std::is_integral_v<Integer> std::string toString(Integer value) {
    return std::to_string(value);
}

/// A finite number that fills the whole text (blanks around it are skipped, a leading "+" is accepted), else nothing.
std::optional<double> parseDouble(std::string_view text);

/// An integer that fills the whole text (blanks around it are skipped) and fits the type, else nothing.
template <typename Integer>
requires std::is_integral_v<Integer> std::optional<Integer> parseInteger(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Integer value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

/// Throws "Could not convert '%1' into value." ("[string2val]").
[[noreturn]] void throwNoValue(std::string_view text);

/// The number that fills the text; throws "Could not convert '%1' into value." ("[string2val]").
template <typename Number> Number string2val(std::string_view text) {
    if constexpr (std::is_integral_v<Number>) {
        if (const auto value = parseInteger<Number>(text))
            return *value;
    } else {
        if (const auto value = parseDouble(text))
            return *value;
    }
    throwNoValue(text);
}

/// Appends the numbers of a list separated by white space (or \p separator) to \p values.
/// \return the position of the first character that is not part of a finite number, npos when the whole text was read.
std::size_t parseDoubles(std::string_view text, std::vector<double> & values, char separator = ' ');

/// The numbers with their shortest digits, separated by single blanks.
std::string joinNumbers(const std::vector<double> & values);

} // namespace KOR
