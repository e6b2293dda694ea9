#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace CCM {

/// The text of a climate file. Throws (\p where) "Climate data file '%1' does not exist or is not accessible." and
/// "Error reading file '%1'.".
/// \param headerOnly reads no more than the first 256 KiB, cut at the end of a line
std::string readText(const std::string & path, bool headerOnly, const char * where);

/// The text as UTF-8: what is not well-formed UTF-8 is taken for Windows-1252.
std::string toUtf8(std::string_view text);

/// The beginning of a line of a file, as UTF-8, for messages; long lines end with "...".
std::string excerpt(std::string_view line);

/// The lines of a text with any kind of line ends; a byte-order mark is skipped.
class LineReader {
public:
    explicit LineReader(std::string_view text);
    /// The next line without its end; false at the end of the text.
    bool next(std::string_view & line);
    /// The next line that holds more than blanks.
    bool nextNonEmpty(std::string_view & line);
    /// Number of the line that was read last, from 1.
    std::size_t number() const { return m_number; }
    std::size_t bytesLeft() const { return m_text.size() - std::min(m_position, m_text.size()); }

private:
    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_number = 0;
    static constexpr std::size_t UNKNOWN = std::string_view::npos;
    std::size_t m_nextReturn = UNKNOWN; ///< position of the next carriage return, the text's size if there is none
    std::size_t m_nextFeed = UNKNOWN;   ///< the same of the next line feed
};

/// Splits at commas; a field may stand in double quotes, which then hide commas. Blanks around fields are dropped.
/// \param maxFields what follows is left out
void splitFields(std::string_view line, std::vector<std::string_view> & fields, std::size_t maxFields);

/// Splits at every comma, as fast as can be: no quotes are looked for, blanks stay.
void splitAtCommas(std::string_view line, std::vector<std::string_view> & fields, std::size_t maxFields);

/// A field with its doubled quotes made single.
std::string unquoted(std::string_view field);

/// The number of a field, MISSING if it is none.
double numberOrMissing(std::string_view field);

} // namespace CCM
