#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace KOR {

inline constexpr std::string_view WHITE_SPACE = " \t\r\n\v\f";

/// The text without the characters of \p blanks at both ends.
std::string_view trimmed(std::string_view text, std::string_view blanks = WHITE_SPACE);

/// The parts between the separators; empty parts are kept. An empty text has one empty part.
std::vector<std::string_view> split(std::string_view text, char separator);

/// The words between runs of white space; no empty ones.
std::vector<std::string_view> words(std::string_view text, std::string_view blanks = WHITE_SPACE);

/// ASCII letters in lower case; other bytes as they are.
std::string lowered(std::string_view text);

/// The text with every \p what replaced by \p with.
std::string replaced(std::string text, std::string_view what, std::string_view with);

/// The length of the leading well-formed UTF-8 part; the text's size when all of it is.
/// Overlong forms, surrogates and values above U+10FFFF are malformed.
std::size_t validUtf8Length(std::string_view text);

} // namespace KOR
