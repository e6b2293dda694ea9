#pragma once

#include <HYGRION/KeywordList.h>

#include <KOR/Exception.h>
#include <KOR/Flag.h>
#include <KOR/IntPara.h>
#include <KOR/Parameter.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

class TiXmlElement;

namespace HYGRION {

/// The texts in which the readers of named values differ; an empty one gives way to the inner message.
struct NamedValueTexts {
    std::string_view where;             ///< function identifier of the reader
    std::string_view unknownName = {};  ///< %1 = the name that is no keyword
    std::string_view invalidValue = {}; ///< %1 = the keyword whose value cannot be read
};

namespace detail {
/// The element's attribute "name"; an element outside "KOR:" that has none is named by its tag.
/// Throws with the line when there is no name.
std::string readName(const TiXmlElement & element);
/// Chains texts.unknownName above the failure of finding the name's entry.
[[noreturn]] void throwUnknownName(const TiXmlElement & element, const NamedValueTexts & texts,
                                   const KOR::Exception & failure);
[[noreturn]] void throwTwice(const TiXmlElement & element, const std::string & name, const NamedValueTexts & texts);
/// Reads name and value; chains texts.invalidValue above a failure.
void readValue(const TiXmlElement & element, KOR::Parameter & value, const NamedValueTexts & texts);
void readValue(const TiXmlElement & element, KOR::Flag & value, const NamedValueTexts & texts);
void readValue(const TiXmlElement & element, KOR::IntPara & value, const NamedValueTexts & texts);
} // namespace detail

/// Those values of an enumeration's entries that are set, in the enumeration's order. The keyword is the value's name.
template <typename Enum, typename Value> class NamedSet {
public:
    const Value * find(Enum key) const {
        const auto found = m_values.find(key);
        return found == m_values.end() ? nullptr : &found->second;
    }
    bool contains(Enum key) const { return m_values.contains(key); }
    bool empty() const { return m_values.empty(); }
    std::size_t size() const { return m_values.size(); }
    void erase(Enum key) { m_values.erase(key); }
    /// Takes over a value of another set.
    void insert(Enum key, const Value & value) { m_values.insert_or_assign(key, value); }
    void clear() { m_values.clear(); }
    auto begin() const { return m_values.begin(); }
    auto end() const { return m_values.end(); }

    /// Reads one named element and stores it under its name. Throws with the line: a name that is no keyword, a name
    /// that was read before, a value that cannot be read.
    void readXML(const TiXmlElement & element, const NamedValueTexts & texts) {
        const Enum key = readKey(element, texts);
        Value value;
        detail::readValue(element, value, texts);
        if (!m_values.emplace(key, std::move(value)).second)
            detail::throwTwice(element, KeywordList::Keyword(key), texts);
    }
    void writeXML(TiXmlElement & parent) const {
        for (const auto & [key, value] : m_values)
            value.writeXML(parent);
    }

    bool operator==(const NamedSet &) const = default;

protected:
    std::map<Enum, Value> m_values;

private:
    static Enum readKey(const TiXmlElement & element, const NamedValueTexts & texts) {
        const std::string name = detail::readName(element);
        try {
            return KeywordList::Enumeration<Enum>(name);
        } catch (const KOR::Exception & ex) {
            detail::throwUnknownName(element, texts, ex);
        }
    }
};

/// Parameters named by the keywords of an enumeration.
template <typename Enum> class ParaSet : public NamedSet<Enum, KOR::Parameter> {
public:
    /// \param value in \p unit
    void set(Enum key, double value, KOR::Unit unit) {
        this->m_values.insert_or_assign(key, KOR::Parameter(KeywordList::Keyword(key), value, unit));
    }
    void set(Enum key, double value, std::string_view unitName) { set(key, value, KOR::Unit(unitName)); }
    /// In the keyword's default unit; throws where the keyword has none.
    void set(Enum key, double value) { set(key, value, KeywordList::Unit(key)); }

    /// The value in \p unitName, or nothing if it is not set. Throws as KOR::Parameter::get_value.
    std::optional<double> value(Enum key, std::string_view unitName) const {
        const KOR::Parameter * found = this->find(key);
        return found == nullptr ? std::nullopt : std::optional(found->get_value(unitName));
    }
    bool operator==(const ParaSet &) const = default;
};

/// Integers named by the keywords of an enumeration.
template <typename Enum> class IntParaSet : public NamedSet<Enum, KOR::IntPara> {
public:
    void set(Enum key, int value) {
        this->m_values.insert_or_assign(key, KOR::IntPara{KeywordList::Keyword(key), value});
    }
    std::optional<int> value(Enum key) const {
        const KOR::IntPara * found = this->find(key);
        return found == nullptr ? std::nullopt : std::optional(found->value);
    }
    bool operator==(const IntParaSet &) const = default;
};

/// Switches named by the keywords of an enumeration.
template <typename Enum> class FlagSet : public NamedSet<Enum, KOR::Flag> {
public:
    void set(Enum key, bool state) {
        this->m_values.insert_or_assign(key, KOR::Flag(KeywordList::Keyword(key), state));
    }
    /// The state, \p byDefault if it is not set.
    bool isEnabled(Enum key, bool byDefault = false) const {
        const KOR::Flag * found = this->find(key);
        return found == nullptr ? byDefault : found->isEnabled();
    }
    bool operator==(const FlagSet &) const = default;
};

} // namespace HYGRION
