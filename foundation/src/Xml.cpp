#include <KOR/Xml.h>

#include "XmlScanner.h"

#include <KOR/Strings.h>

#include <algorithm>
#include <cstdint>

namespace KOR::xml {

namespace {

/// TinyXML's printer passes "&#x" through as if it were a character reference. The ampersand of such a text is held
/// by this private-use character until the document is printed.
constexpr std::string_view REFERENCE_START = "&#x";
constexpr std::string_view HELD_START = "\xEF\x9F\xBF#x"; // U+F7FF
constexpr std::string_view ESCAPED_START = "&amp;#x";

constexpr std::string_view LINE_PREFIX = "Error in XML file, line ";

std::string held(std::string_view text) {
    return replaced(std::string(text), REFERENCE_START, HELD_START);
}

} // namespace

void check(std::string_view content) {
    if (const auto error = Scanner(content).scan())
        throw Exception(KOR::text("Error in XML file, line %1: %2", error->line, error->description),
                        "[KOR::xml::check]");
}

std::optional<ParseError> parse(const std::string & content, TiXmlDocument & document) {
    static const bool keepsWhiteSpace = [] {
        TiXmlBase::SetCondenseWhiteSpace(false);
        return true;
    }();
    static_cast<void>(keepsWhiteSpace);
    document.Clear();
    document.ClearError();
    if (auto error = Scanner(content).scan())
        return error;
    document.Parse(content.c_str(), nullptr, TIXML_ENCODING_UTF8);
    if (!document.Error() && document.RootElement() != nullptr)
        return std::nullopt;
    ParseError error{document.ErrorRow(), document.Error() ? document.ErrorDesc() : "The file cannot be read as XML."};
    document.Clear();
    return error;
}

Head head(std::string_view content, std::string_view section) {
    Head result;
    std::string_view root;
    std::size_t end = 0;
    Scanner(content).scan([&](const Scanner::Tag & tag) {
        if (tag.depth == 0) {
            root = tag.isEnd ? std::string_view() : tag.name; // an empty root needs no end tag
            if (end == 0 || tag.isEnd)
                end = tag.end;
        }
        if (tag.depth == 1 && tag.isEnd && tag.name == section) {
            result.hasSection = true;
            end = tag.end;
        }
        return !result.hasSection;
    });
    result.document = content.substr(0, end);
    if (!root.empty())
        result.document += KOR::text("</%1>", root);
    return result;
}

std::string print(const TiXmlDocument & document) {
    TiXmlPrinter printer;
    printer.SetIndent("  ");
    document.Accept(&printer);
    return replaced(printer.Str(), HELD_START, ESCAPED_START);
}

std::string withLine(const TiXmlElement & element, std::string_view message) {
    return KOR::text("Error in XML file, line %1: %2", element.Row(), message);
}

Exception located(const TiXmlElement & element, const Exception & failure) {
    if (failure.cause().starts_with(LINE_PREFIX))
        return failure;
    const auto & chain = failure.chain();
    Exception result(withLine(element, failure.cause()), chain.front().where);
    for (std::size_t i = 1; i < chain.size(); ++i)
        result = Exception(result, chain[i].message, chain[i].where);
    return result;
}

void throwWrapped(const TiXmlElement & element, const ElementTexts & texts, const Exception & failure) {
    const Exception cause = located(element, failure);
    if (texts.wrapping.empty())
        throw Exception(cause);
    throw Exception(cause, std::string(texts.wrapping), std::string(texts.where));
}

std::string text(const TiXmlElement & element) {
    std::string whole;
    for (const TiXmlNode * node = element.FirstChild(); node != nullptr; node = node->NextSibling())
        if (const TiXmlText * part = node->ToText())
            whole += part->ValueStr();
        else if (const TiXmlElement * child = node->ToElement())
            throw Exception(withLine(*child, KOR::text("Unexpected element '%1' in the text of element '%2'.",
                                                       child->ValueStr(), element.ValueStr())),
                            "[KOR::xml::text]");
    return std::string(trimmed(whole));
}

std::optional<std::string> attribute(const TiXmlElement & element, const char * name) {
    if (const std::string * value = element.Attribute(std::string(name)))
        return *value;
    return std::nullopt;
}

void setAttribute(TiXmlElement & element, const std::string & name, std::string_view value) {
    element.SetAttribute(name, held(value));
}

TiXmlElement & appendElement(TiXmlElement & parent, const std::string & name) {
    // LinkEndChild takes ownership.
    return *parent.LinkEndChild(new TiXmlElement(name))->ToElement();
}

TiXmlElement & appendText(TiXmlElement & parent, const std::string & name, std::string_view text) {
    TiXmlElement & element = appendElement(parent, name);
    if (!text.empty())
        element.LinkEndChild(new TiXmlText(held(text)));
    return element;
}

void appendComment(TiXmlElement & parent, const std::string & text) {
    std::string spaced = " ";
    for (const char c : text) {
        if (c == '-' && spaced.back() == '-') // two dashes would end the comment
            spaced += ' ';
        spaced += c;
    }
    parent.LinkEndChild(new TiXmlComment((spaced + ' ').c_str()));
}

std::string ElementReader::attribute(const char * name) const {
    if (auto value = xml::attribute(m_element, name))
        return *value;
    fail(KOR::text(m_texts.missingAttr, name));
}

void ElementReader::children(std::span<const Child> rows) const {
    std::uint64_t seen = 0; // no element has more than a few dozen kinds of children
    for (const TiXmlElement * child = m_element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [child](const Child & known) { return known.name == child->ValueStr(); });
        if (row == rows.end())
            fail(*child, KOR::text(m_texts.unknownTag, child->ValueStr()));
        const std::uint64_t bit = std::uint64_t{1} << ((row - rows.begin()) % 64);
        if (row->isOnce && (seen & bit) != 0)
            fail(*child, KOR::text("Element '%1' is given more than once.", row->name));
        seen |= bit;
        readChild(*child, *row);
    }
}

void ElementReader::readChild(const TiXmlElement & child, const Child & row) const {
    try {
        row.read(child);
    } catch (const Exception & ex) {
        const Exception cause = located(child, ex);
        const std::string where(m_texts.where);
        if (!m_texts.inChildCause.empty() && !ex.message().empty())
            throw Exception(cause, KOR::text(m_texts.inChildCause, cause.message(), row.name), where);
        if (!m_texts.inChild.empty())
            throw Exception(cause, KOR::text(m_texts.inChild, row.name), where);
        throw Exception(cause);
    }
}

void ElementReader::fail(const TiXmlElement & at, const std::string & message) const {
    throw Exception(withLine(at, message), std::string(m_texts.where));
}

} // namespace KOR::xml
