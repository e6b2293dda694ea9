#pragma once

#include <KOR/MessageHandler.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the readers and writers of the material file's text share.
namespace MM {

inline constexpr std::string_view MODEL_LINE = "[MODEL]";
inline constexpr std::size_t KEYWORD_WIDTH = 24;
inline constexpr std::size_t MODEL_KEYWORD_WIDTH = 25;

/// A line cut at its first equals sign, both parts trimmed; without one the keyword is empty.
struct KeywordLine {
    std::string_view keyword, value;
    explicit KeywordLine(std::string_view line);
};

/// The lines of a text, without line ends.
std::vector<std::string_view> splitLines(std::string_view content);
/// Is empty or begins with ";".
bool isComment(std::string_view line);
/// The lines, trimmed, without comments.
std::vector<std::string_view> withoutComments(std::span<const std::string_view> lines);
/// What stands in the brackets of a "[...]" line, else empty.
std::string_view bracketed(std::string_view line);
/// A text of a file as a message may show it: no longer than a line, without control characters.
std::string shown(std::string_view text);

/// The message about a value that a keyword does not take.
std::string invalidValue(std::string_view value, std::string_view keyword);

/// Blanks before the keyword, the keyword padded to a width.
std::string keywordColumn(std::size_t indent, std::string_view keyword, std::size_t width);

/// Verbosity of messages about each material of a database.
inline constexpr int DETAIL = 3;
/// Hands a message to the process-wide handler; inside a parallel region only the master thread does.
void log(const std::string & text, KOR::msg_t type, const std::string & where, int verbosityLevel = 1);

} // namespace MM
