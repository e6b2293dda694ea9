#include "XmlScanner.h"

#include <KOR/Strings.h>

#include <algorithm>
#include <charconv>

namespace KOR::xml {

namespace {

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (static_cast<unsigned char>(c) & 0x80) != 0;
}

bool isNameCharacter(char c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

/// Memory of a node, as the allocator rounds it [bytes].
constexpr std::size_t ELEMENT_BYTES = sizeof(TiXmlElement) + 8;
constexpr std::size_t ATTRIBUTE_BYTES = sizeof(TiXmlAttribute) + 16;
constexpr std::size_t TEXT_BYTES = sizeof(TiXmlText) + 16;
/// Nodes may take this much per byte of the file, and in any case SMALL_BYTES. Project files take about 12; "<a/>" over
/// and over takes 56.
constexpr std::size_t NODE_BYTES_PER_BYTE = 40;
constexpr std::size_t SMALL_BYTES = 1u << 20;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

std::optional<ParseError> Scanner::scan(const Visitor & visitor) {
    const auto lineAt = [this](std::size_t offset) {
        offset = std::min(offset, m_content.size());
        return 1 + static_cast<int>(std::count(m_content.data(), m_content.data() + offset, '\n'));
    };
    try {
        if (m_content.size() > MAX_FILE_SIZE)
            fail(KOR::text("The file is larger than %1 MiB.", MAX_FILE_SIZE >> 20));
        if (const std::size_t nul = m_content.find('\0'); nul != std::string_view::npos) {
            m_at = nul;
            fail("The file holds a NUL character, it is not a text file in UTF-8.");
        }
        if (!visitor) // a head that is cut anywhere may end inside a character
            if (const std::size_t valid = validUtf8Length(m_content); valid != m_content.size()) {
                m_at = valid;
                fail("The file holds bytes that are not UTF-8, it is damaged or in another encoding.");
            }
        if (startsWith("\xEF\xBB\xBF"))
            m_at = 3;
        if (startsWith("<?"))
            readDeclaration();
        while (m_at < m_content.size())
            if (!step(visitor))
                return std::nullopt;
        if (!m_open.empty())
            fail(KOR::text("The file ends inside of element '%1'.", m_open.back()));
        if (!m_hasRoot)
            fail("The file has no root element.");
        if (m_nodeBytes > SMALL_BYTES + NODE_BYTES_PER_BYTE * m_content.size())
            fail("The file consists of markup almost only and would take too much memory.");
    } catch (const Exception & ex) {
        return ParseError{lineAt(m_at), ex.message()};
    }
    return std::nullopt;
}

bool Scanner::step(const Visitor & visitor) {
    if (m_content[m_at] != '<') {
        readText();
        return true;
    }
    if (startsWith("<!--"))
        skipComment();
    else if (startsWith("<![CDATA["))
        skipCharacterData();
    else if (startsWith("<!"))
        fail("Document type definitions are not accepted.");
    else if (startsWith("<?"))
        fail("Processing instructions are not accepted.");
    else if (startsWith("</"))
        return readEndTag(visitor);
    else
        return readStartTag(visitor);
    return true;
}

void Scanner::readDeclaration() {
    // TinyXML gives up without a word at a declaration that is malformed.
    m_at += 2;
    if (readName() != "xml")
        fail("Processing instructions are not accepted.");
    for (skipBlanks(); !startsWith("?>"); skipBlanks()) {
        const auto [name, value] = readAttribute();
        if (name == "encoding" && lowered(value) != "utf-8" && lowered(value) != "us-ascii")
            fail("The file declares an encoding other than UTF-8.");
        if (name != "version" && name != "encoding" && name != "standalone")
            fail("The XML declaration is malformed.");
    }
    m_at += 2;
}

void Scanner::skipComment() {
    m_at += 4;
    skipPast("-->", "A comment is not closed.");
}

void Scanner::skipCharacterData() {
    if (m_open.empty())
        fail("Character data outside of the root element.");
    m_at += 9;
    skipPast("]]>", "A CDATA section is not closed.");
}

void Scanner::readText() {
    const std::size_t end = std::min(m_content.find('<', m_at), m_content.size());
    if (m_open.empty()) {
        for (; m_at < end; ++m_at)
            if (!isBlank(m_content[m_at]))
                fail("Text outside of the root element.");
        return;
    }
    checkReferences(m_at, end);
    if (!trimmed(m_content.substr(m_at, end - m_at)).empty()) // others make no node
        m_nodeBytes += TEXT_BYTES;
    m_at = end;
}

bool Scanner::readEndTag(const Visitor & visitor) {
    m_at += 2;
    const std::string_view name = readName();
    skipBlanks();
    if (!startsWith(">"))
        fail(KOR::text("The end tag of element '%1' is not closed.", name));
    ++m_at;
    if (m_open.empty() || m_open.back() != name)
        fail(KOR::text("The end tag '%1' does not match the start tag '%2'.", name,
                       m_open.empty() ? std::string_view() : m_open.back()));
    m_open.pop_back();
    return !visitor || visitor({name, m_open.size(), true, m_at});
}

bool Scanner::readStartTag(const Visitor & visitor) {
    const std::size_t start = m_at++;
    const std::string_view name = readName();
    if (m_open.empty() && m_hasRoot) {
        m_at = start;
        fail(KOR::text("A second root element '%1'.", name));
    }
    m_hasRoot = true;
    m_nodeBytes += ELEMENT_BYTES;
    for (std::size_t attributes = 0;; ++attributes) {
        skipBlanks();
        if (startsWith(">") || startsWith("/>"))
            break;
        if (attributes == MAX_ATTRIBUTES)
            fail(KOR::text("Element '%1' has more than %2 attributes.", name, MAX_ATTRIBUTES));
        readAttribute();
        m_nodeBytes += ATTRIBUTE_BYTES;
    }
    const bool isEmpty = m_content[m_at] == '/';
    m_at += isEmpty ? 2 : 1;
    const std::size_t depth = m_open.size();
    if (depth == MAX_DEPTH)
        fail(KOR::text("Elements are nested deeper than %1 levels.", MAX_DEPTH));
    if (visitor && !visitor({name, depth, false, m_at}))
        return false;
    if (!isEmpty)
        m_open.push_back(name);
    else if (visitor)
        return visitor({name, depth, true, m_at});
    return true;
}

Scanner::Attribute Scanner::readAttribute() {
    const std::string_view name = readName();
    skipBlanks();
    if (!startsWith("="))
        fail(KOR::text("Attribute '%1' has no value.", name));
    ++m_at;
    skipBlanks();
    if (!startsWith("\"") && !startsWith("'"))
        fail(KOR::text("The value of attribute '%1' is not quoted.", name));
    const std::size_t end = m_content.find(m_content[m_at], m_at + 1);
    if (end == std::string_view::npos)
        fail(KOR::text("The value of attribute '%1' is not closed.", name));
    const std::size_t start = m_at + 1;
    checkReferences(start, end);
    m_at = end + 1;
    return {name, m_content.substr(start, end - start)};
}

void Scanner::checkReferences(std::size_t start, std::size_t end) {
    // Searched within the text only: a search that runs on to the next '&' of the file costs time quadratic in its size.
    const std::string_view part = m_content.substr(start, end - start);
    for (std::size_t at = part.find('&'); at != std::string_view::npos; at = part.find('&', at + 1))
        checkReference(start + at);
}

void Scanner::checkReference(std::size_t at) {
    const std::string_view rest = m_content.substr(at + 1, 12);
    for (const std::string_view known : {"amp;", "lt;", "gt;", "quot;", "apos;"})
        if (rest.starts_with(known))
            return;
    const bool isHex = rest.starts_with("#x");
    const std::string_view digits = rest.substr(std::min<std::size_t>(isHex ? 2 : 1, rest.size()));
    unsigned long code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    if (!rest.starts_with('#') || error != std::errc{} || end == digits.data() + digits.size() || *end != ';' ||
        code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        m_at = at;
        fail(KOR::text("Malformed character reference '&%1'.", rest.substr(0, validUtf8Length(rest))));
    }
}

std::string_view Scanner::readName() {
    const std::size_t start = m_at;
    if (m_at >= m_content.size() || !isNameStart(m_content[m_at]))
        fail("A name is missing or malformed.");
    while (m_at < m_content.size() && isNameCharacter(m_content[m_at]))
        ++m_at;
    return m_content.substr(start, m_at - start);
}

void Scanner::skipBlanks() {
    while (m_at < m_content.size() && isBlank(m_content[m_at]))
        ++m_at;
}

void Scanner::skipPast(std::string_view mark, const char * description) {
    const std::size_t found = m_content.find(mark, m_at);
    if (found == std::string_view::npos)
        fail(description);
    m_at = found + mark.size();
}

void Scanner::fail(std::string description) const {
    throw Exception(std::move(description), "[KOR::xml::Scanner]");
}

} // namespace KOR::xml
