#pragma once

#include <HYGRION/KeywordList.h>
#include <HYGRION/NamedSet.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>
#include <KOR/Xml.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// What the readers and writers of the project's elements share beyond KOR::xml.
namespace HYGRION::xml {

using KOR::xml::any;
using KOR::xml::appendElement;
using KOR::xml::appendText;
using KOR::xml::ElementReader;
using KOR::xml::ElementTexts;
using KOR::xml::once;
using KOR::xml::readElement;
using KOR::xml::setAttribute;

/// The enumerator of a keyword. Throws \p message (the keyword list's own when empty) with the identifier \p where.
template <typename Enum>
Enum keyword(const TiXmlElement & at, std::string_view word, std::string_view message = {},
             std::string_view where = {}) {
    try {
        return KeywordList::Enumeration<Enum>(word);
    } catch (const KOR::Exception & ex) {
        const KOR::Exception cause = KOR::xml::located(at, ex);
        if (message.empty())
            throw KOR::Exception(cause);
        throw KOR::Exception(cause, KOR::text(message, word), std::string(where));
    }
}

/// The enumerator of a required attribute.
template <typename Enum> Enum keywordAttribute(const ElementReader & reader, const char * name) {
    return keyword<Enum>(reader.element(), reader.attribute(name));
}

/// The enumerator of an element's text. Throws as keyword.
template <typename Enum>
Enum keywordText(const TiXmlElement & element, std::string_view message = {}, std::string_view where = {}) {
    return keyword<Enum>(element, KOR::xml::text(element), message, where);
}

template <typename Enum> void appendKeyword(TiXmlElement & parent, const std::string & name, Enum value) {
    appendText(parent, name, KeywordList::Keyword(value));
}

template <typename Enum>
void appendKeyword(TiXmlElement & parent, const std::string & name, std::optional<Enum> value) {
    if (value)
        appendKeyword(parent, name, *value);
}

/// Appends a parameter under another tag than "KOR:Parameter".
inline void appendParameter(TiXmlElement & parent, const std::string & tag, const KOR::Parameter & parameter) {
    TiXmlElement & element = appendText(parent, tag, KOR::toString(parameter.ioValue()));
    setAttribute(element, "name", parameter.name());
    setAttribute(element, "unit", parameter.ioUnit().name());
}

/// Appends an element with a text unless that is empty.
inline void appendGiven(TiXmlElement & parent, const std::string & name, std::string_view text) {
    if (!text.empty())
        appendText(parent, name, text);
}

/// Reads a "KOR:Parameter" element that names a parameter or an integer parameter.
template <typename Enum, typename IntEnum>
void readParameter(const TiXmlElement & element, ParaSet<Enum> & parameters, IntParaSet<IntEnum> & integers,
                   const NamedValueTexts & texts) {
    const auto name = KOR::xml::attribute(element, "name");
    if (name && KeywordList::KeywordExists<IntEnum>(*name))
        integers.readXML(element, texts);
    else
        parameters.readXML(element, texts);
}

/// Reads a "CCReference": the attribute "type" says which quantity the named climate condition supplies.
template <typename Enum> void readReference(const TiXmlElement & element, std::map<Enum, std::string> & references) {
    constexpr ElementTexts TEXTS{
        .where = "[CCReference::readXML]",
        .missingAttr = "Expected '%1' attribute in CCReference.",
        .unknownTag = {},
        .wrapping = {},
    };
    const ElementReader reader(element, TEXTS);
    const Enum type = keywordAttribute<Enum>(reader, "type");
    std::string name = reader.text();
    if (name.empty())
        reader.fail("Missing name of a climate condition in CCReference.");
    if (!references.emplace(type, std::move(name)).second)
        detail::throwTwice(element, KeywordList::Keyword(type), {.where = TEXTS.where});
}

template <typename Enum> void writeReferences(TiXmlElement & parent, const std::map<Enum, std::string> & references) {
    for (const auto & [type, name] : references)
        setAttribute(appendText(parent, "CCReference", name), "type", KeywordList::Keyword(type));
}

// *** What becomes of a child: the rows of a reader name the members ***

/// An element that reads itself.
template <typename Item>
requires std::is_class_v<Item>
auto into(Item & item) {
    return [&item](const TiXmlElement & child) { item.readXML(child); };
}
/// One more of several elements that read themselves.
template <typename Item> auto into(std::vector<Item> & items) {
    return [&items](const TiXmlElement & child) { items.emplace_back().readXML(child); };
}
inline auto into(std::string & text) {
    return [&text](const TiXmlElement & child) { text = KOR::xml::text(child); };
}
inline auto into(std::vector<std::string> & texts) {
    return [&texts](const TiXmlElement & child) { texts.push_back(KOR::xml::text(child)); };
}
inline auto into(KOR::Path & path) {
    return [&path](const TiXmlElement & child) { path = KOR::Path(KOR::xml::text(child)); };
}
inline auto into(std::optional<std::string> & text) {
    return [&text](const TiXmlElement & child) { text = KOR::xml::text(child); };
}
/// A keyword as text. Throws as keyword.
template <typename Enum>
requires std::is_enum_v<Enum>
auto into(Enum & choice) {
    return [&choice](const TiXmlElement & child) { choice = keywordText<Enum>(child); };
}
template <typename Enum>
requires std::is_enum_v<Enum>
auto into(std::optional<Enum> & choice, std::string_view message = {}, std::string_view where = {}) {
    return [&choice, message, where](const TiXmlElement & child) { choice = keywordText<Enum>(child, message, where); };
}
/// Values named by keywords.
template <typename Enum, typename Value> auto into(NamedSet<Enum, Value> & values, const NamedValueTexts & texts) {
    return [&values, &texts](const TiXmlElement & child) { values.readXML(child, texts); };
}
/// "KOR:Parameter" elements among which integers may stand.
template <typename Enum, typename IntEnum>
auto into(ParaSet<Enum> & parameters, IntParaSet<IntEnum> & integers, const NamedValueTexts & texts) {
    return [&](const TiXmlElement & child) { readParameter(child, parameters, integers, texts); };
}
/// The climate condition of each quantity.
template <typename Enum> auto into(std::map<Enum, std::string> & references) {
    return [&references](const TiXmlElement & child) { readReference(child, references); };
}

/// Refuses a second definition with the same identification name, in linear time.
class UniqueNames {
public:
    void insert(const TiXmlElement & element, const std::string & name) {
        if (!m_names.insert(name).second)
            throw KOR::Exception(KOR::xml::withLine(element, KOR::text("Duplicate identification name '%1' in %2.",
                                                                       name, element.Parent()->ValueStr())),
                                 "[UniqueNames::insert]");
    }

private:
    std::unordered_set<std::string> m_names;
};

/// Reads the children \p tag of a list element into \p items, each by its readXML.
/// Throws "Error reading entry %1: %2 Please check line: %3." (entry number from 1, cause, line).
template <typename Item>
void readList(const TiXmlElement & element, std::string_view tag, std::vector<Item> & items, std::string_view where) {
    UniqueNames names;
    std::size_t number = 0;
    for (const TiXmlElement * child = element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        ++number;
        try {
            if (child->ValueStr() != tag)
                throw KOR::Exception(KOR::xml::withLine(*child, KOR::text("Expected element '%1' in '%2', found '%3'.",
                                                                          tag, element.ValueStr(), child->ValueStr())),
                                     std::string(where));
            Item item;
            item.readXML(*child);
            if constexpr (requires { item.m_name; })
                names.insert(*child, item.m_name);
            items.push_back(std::move(item));
        } catch (const KOR::Exception & failure) {
            const KOR::Exception cause = KOR::xml::located(*child, failure);
            throw KOR::Exception(cause,
                                 cause.message().empty()
                                     ? KOR::text("Error reading entry %1! Please check line: %2.", number, child->Row())
                                     : KOR::text("Error reading entry %1: %2 Please check line: %3.", number,
                                                 cause.message(), child->Row()),
                                 std::string(where));
        }
    }
}

/// Appends a list element with all items; nothing for an empty list.
template <typename Item>
void writeList(TiXmlElement & parent, const std::string & listName, const std::vector<Item> & items) {
    if (items.empty())
        return;
    TiXmlElement & list = appendElement(parent, listName);
    for (const Item & item : items)
        item.writeXML(list);
}

} // namespace HYGRION::xml
