#pragma once

#include <KOR/Xml.h>

#include <functional>
#include <string_view>
#include <vector>

namespace KOR::xml {

/// Walks a document once, tag by tag, without recursion and without building anything. Stricter than TinyXML, so that
/// whatever passes is read by both in the same way.
class Scanner {
public:
    struct Tag {
        std::string_view name;
        std::size_t depth; ///< of the element: 0 is the root
        bool isEnd;        ///< an empty element gives a start and an end
        std::size_t end;   ///< offset just behind the tag
    };
    /// Called for every tag; false ends the scan without error.
    using Visitor = std::function<bool(const Tag &)>;

    explicit Scanner(std::string_view content) : m_content(content) {}

    std::optional<ParseError> scan(const Visitor & visitor = {});

private:
    struct Attribute {
        std::string_view name, value;
    };

    bool step(const Visitor & visitor); ///< false: stop
    bool readEndTag(const Visitor & visitor);
    bool readStartTag(const Visitor & visitor);
    void readDeclaration();
    void skipComment();
    void skipCharacterData();
    void readText();
    Attribute readAttribute();
    void checkReferences(std::size_t start, std::size_t end);
    void checkReference(std::size_t at);
    std::string_view readName();
    void skipBlanks();
    /// Moves behind the next \p mark; fails with \p description when there is none.
    void skipPast(std::string_view mark, const char * description);
    bool startsWith(std::string_view mark) const { return m_content.substr(m_at).starts_with(mark); }
    [[noreturn]] void fail(std::string description) const;

    std::string_view m_content;
    std::size_t m_at = 0;
    std::vector<std::string_view> m_open; ///< names of the open elements, outermost first
    bool m_hasRoot = false;
    std::size_t m_nodeBytes = 0; ///< that the document will take for its nodes, without their texts
};

} // namespace KOR::xml
