#pragma once

#include <KOR/Exception.h>

#include <tinyxml.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

/// What all readers and writers of XML share. Input is hostile until checked; TinyXML sees only what passed.
namespace KOR::xml {

/// Bounds within which TinyXML is safe: it recurses per level and is quadratic in depth and attributes.
inline constexpr std::size_t MAX_FILE_SIZE = 64u << 20;
inline constexpr std::size_t MAX_DEPTH = 100;
inline constexpr std::size_t MAX_ATTRIBUTES = 256;

/// Refuses what TinyXML must not see: invalid UTF-8, NUL characters, a document type definition, more than one root,
/// too deep, too many attributes, unterminated tags and comments, more than MAX_FILE_SIZE bytes.
/// Throws "Error in XML file, line %1: ..." ("[KOR::xml::check]").
void check(std::string_view content);

/// The line (from 1) and the reason of a failed parse.
struct ParseError {
    int line = 0;
    std::string description;
};

/// Checks and parses \p content. On failure nothing is in \p document and the error is returned.
std::optional<ParseError> parse(const std::string & content, TiXmlDocument & document);

/// The beginning of a document, made a document of its own.
struct Head {
    std::string document;    ///< up to the end of the section, then the end tag of the root; empty if no root was found
    bool hasSection = false; ///< whether the section was found
};
/// Cuts the document behind the first element \p section below the root, or behind the root's start tag if there is
/// none. What follows is not looked at, so \p content may be the first part of a large file.
Head head(std::string_view content, std::string_view section);

/// The document as text, with declaration, indented by two blanks, character references intact.
std::string print(const TiXmlDocument & document);

/// "Error in XML file, line 14: " and the message.
std::string withLine(const TiXmlElement & element, std::string_view message);

/// The failure with the element's line in its innermost message, unless that names a line already.
Exception located(const TiXmlElement & element, const Exception & failure);

/// The element's text, trimmed; empty if there is none. Throws, with the line, when there are elements in it.
std::string text(const TiXmlElement & element);

/// The attribute's value or nothing.
std::optional<std::string> attribute(const TiXmlElement & element, const char * name);

/// Sets an attribute to a UTF-8 text of any content.
void setAttribute(TiXmlElement & element, const std::string & name, std::string_view value);
/// Appends \<name\>text\</name\> and returns it.
TiXmlElement & appendText(TiXmlElement & parent, const std::string & name, std::string_view text);
TiXmlElement & appendElement(TiXmlElement & parent, const std::string & name);
void appendComment(TiXmlElement & parent, const std::string & text);

/// The texts of one element's reader, the system's own. An empty one is not used.
struct ElementTexts {
    std::string_view where;             ///< function identifier of the reader
    std::string_view missingAttr;       ///< %1 = the attribute
    std::string_view unknownTag;        ///< %1 = the child's name
    std::string_view wrapping;          ///< chained above every fault in the element
    std::string_view inChild = {};      ///< chained above every fault in a child; %1 = the child's name
    std::string_view inChildCause = {}; ///< the same with the cause in front; %1 = its message, %2 = the child's name
};

/// Reads one element: its attributes, its text, its children by name. Faults carry the element's line.
class ElementReader {
public:
    struct Child {
        std::string_view name;
        std::function<void(const TiXmlElement &)> read;
        bool isOnce = false; ///< a second one is refused, so that none is dropped silently
    };

    ElementReader(const TiXmlElement & element, const ElementTexts & texts) : m_element(element), m_texts(texts) {}

    const TiXmlElement & element() const { return m_element; }
    /// The attribute's value. Throws missingAttr.
    std::string attribute(const char * name) const;
    /// The element's text, trimmed.
    std::string text() const { return xml::text(m_element); }
    /// Hands each child element to the row of its name; chains inChild above what fails there.
    /// Throws unknownTag for a child that has no row, "Element '%1' is given more than once." for one that stands again.
    void children(std::span<const Child> rows) const;
    void children(std::initializer_list<Child> rows) const { children(std::span(rows.begin(), rows.size())); }
    /// Throws the message with the element's line and the reader's identifier.
    [[noreturn]] void fail(const std::string & message) const { fail(m_element, message); }
    [[noreturn]] void fail(const TiXmlElement & at, const std::string & message) const;

private:
    void readChild(const TiXmlElement & child, const Child & row) const;

    const TiXmlElement & m_element;
    const ElementTexts & m_texts;
};

/// The row of a child that may stand any number of times.
inline ElementReader::Child any(std::string_view name, std::function<void(const TiXmlElement &)> read) {
    return {name, std::move(read)};
}
/// The row of a child that may stand only once.
inline ElementReader::Child once(std::string_view name, std::function<void(const TiXmlElement &)> read) {
    return {name, std::move(read), true};
}

/// Throws the failure of an element's reader: located, with the element's wrapping text chained above.
[[noreturn]] void throwWrapped(const TiXmlElement & element, const ElementTexts & texts, const Exception & failure);

/// Runs \p body with a reader for the element; a fault gets the element's line and its wrapping text.
template <typename Body> void readElement(const TiXmlElement & element, const ElementTexts & texts, Body && body) {
    try {
        body(ElementReader(element, texts));
    } catch (const Exception & ex) {
        throwWrapped(element, texts, ex);
    }
}

} // namespace KOR::xml
