#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace KOR {

/// One text in several languages, written in one line: "de:Ziegel|en:Brick".
///
/// A part begins with its language, two small letters or "all", and a colon. A part without such a beginning belongs to
/// "all" as a whole, so that "pH: 7" and "http://..." stay what they are. Two parts of one language are one text with a
/// bar between them. A bar inside a text is written as "\|"; back slashes before a bar are doubled, others stay single.
class LangString {
public:
    static constexpr std::string_view ALL = "all";

    LangString() = default;
    /// Reads the line; every line is a valid one.
    explicit LangString(std::string_view line);

    /// The text in a language ("de", "de_AT"); else the English one, else the one for all, else the first, else empty.
    const std::string & get(std::string_view language) const;
    /// The text in just this language, or nullptr.
    const std::string * find(std::string_view language) const;
    /// Line breaks become blanks, blanks at the ends go; an empty text takes the language out.
    /// Throws "'%1' is not a language code." ("[LangString::set]").
    void set(std::string_view language, std::string_view text);

    bool empty() const { return m_texts.empty(); }
    /// Languages with their texts, in the order in which they were read or set.
    const std::vector<std::pair<std::string, std::string>> & texts() const { return m_texts; }
    /// The line that reads back to the same texts.
    std::string toString() const;

    bool operator==(const LangString &) const = default;

private:
    std::string & at(std::string_view language);

    std::vector<std::pair<std::string, std::string>> m_texts;
};

} // namespace KOR
