#pragma once

#include <KOR/Numbers.h>

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace KOR {

/// The only formatter of messages: replaces %1, %2, ... in one pass, so that an argument may itself hold a "%1".
std::string formatText(std::string_view pattern, std::initializer_list<std::string> arguments);

namespace detail {
inline std::string argument(std::string_view text) {
    return std::string(text);
}
inline std::string argument(const char * text) {
    return text;
}
inline std::string argument(const std::string & text) {
    return text;
}
template <typename Number>
requires std::is_arithmetic_v<Number> std::string argument(Number value) {
    return toString(value);
}
} // namespace detail

/// A message with its placeholders filled: text("Unit '%1' not found.", name).
template <typename... Arguments> std::string text(std::string_view pattern, const Arguments &... arguments) {
    return formatText(pattern, {detail::argument(arguments)...});
}

/// A failure as a story: the innermost frame says what was wrong, each caller adds what it was doing.
class Exception : public std::exception {
public:
    struct Entry {
        std::string message; ///< as the user reads it
        std::string where;   ///< function identifier, "[Class::function]"
        bool operator==(const Entry &) const = default;
    };

    /// The cause.
    Exception(std::string message, std::string where);
    /// The caller's view of it; the cause's chain comes first.
    Exception(const Exception & cause, std::string message, std::string where);

    /// All entries, oldest (the cause) first; never empty.
    const std::vector<Entry> & chain() const noexcept { return m_chain; }
    /// The outermost message.
    const std::string & message() const noexcept { return m_chain.back().message; }
    /// The innermost message: what the user mends.
    const std::string & cause() const noexcept { return m_chain.front().message; }
    /// All messages, outermost first, one a line.
    const char * what() const noexcept override { return m_what.c_str(); }

    /// Hands each entry, oldest first, to the process-wide message handler as an error of level 1.
    /// Inside a parallel region only the master thread writes.
    void report() const;

private:
    std::vector<Entry> m_chain;
    std::string m_what;
};

} // namespace KOR
