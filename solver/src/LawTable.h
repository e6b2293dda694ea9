#pragma once

#include <HYGRION/ClimateCond.h>
#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

/// What the tables of boundary and field conditions have in common: each row names the climate and the parameters that
/// a condition needs and those that count where they are given.
namespace SOLVER {

/// Up to six names; the rest are left empty.
template <typename Name> struct Names {
    std::array<Name, 6> names{};
    std::size_t count = 0;
    constexpr Names(std::initializer_list<Name> list) {
        for (const Name name : list)
            names[count++] = name;
    }
    const Name * begin() const { return names.data(); }
    const Name * end() const { return names.data() + count; }
    bool contains(Name name) const { return std::find(begin(), end(), name) != end(); }
};
using Quantities = Names<HYGRION::ClimateCond::condition_t>;

/// Throws "Climate quantity '%1' is missing%2." where the condition has no reference for it.
template <typename Condition>
void requireQuantity(const Condition & condition, HYGRION::ClimateCond::condition_t quantity, std::string_view reason,
                     const char * where) {
    if (!condition.m_ccReferences.contains(quantity))
        throw KOR::Exception(
            KOR::text("Climate quantity '%1' is missing%2.", HYGRION::KeywordList::Keyword(quantity), reason), where);
}

/// Requires one of several quantities.
template <typename Condition>
void requireOneOf(const Condition & condition, const Quantities & quantities, const char * where) {
    if (std::any_of(quantities.begin(), quantities.end(),
                    [&](auto quantity) { return condition.m_ccReferences.contains(quantity); }))
        return;
    std::string words;
    for (const auto quantity : quantities)
        words += KOR::text("%1'%2'", words.empty() ? "" : ", ", HYGRION::KeywordList::Keyword(quantity));
    throw KOR::Exception(KOR::text("A climate quantity is missing, one of %1.", words), where);
}

/// Requires the parameters of a row; warns of parameters, quantities and flags that have no effect.
/// \param what the condition in words: "Boundary condition 'Rain'" \param kind "type 'A' of kind 'B'"
/// \param flags those that count
template <typename Row, typename Condition, typename Flags>
void checkUse(const Row & row, const Condition & condition, const Flags & flags, const std::string & what,
              const std::string & kind, const char * where) {
    using HYGRION::KeywordList;
    for (const auto key : row.needed)
        if (!condition.m_para.contains(key))
            throw KOR::Exception(KOR::text("Parameter '%1' is missing.", KeywordList::Keyword(key)), where);
    const auto warn = [&](const char * word, const std::string & keyword) {
        KOR::message(KOR::text("%1: %2 '%3' has no effect in %4.", what, word, keyword, kind), KOR::MSG_WARNING, where);
    };
    for (const auto & [key, value] : condition.m_para)
        if (!row.needed.contains(key) && !row.used.contains(key))
            warn("parameter", KeywordList::Keyword(key));
    for (const auto & [quantity, name] : condition.m_ccReferences)
        if (!row.required.contains(quantity) && !row.optional.contains(quantity))
            warn("climate quantity", KeywordList::Keyword(quantity));
    for (const auto & [key, flag] : condition.m_flag)
        if (flag.isEnabled() && !flags.contains(key))
            warn("flag", KeywordList::Keyword(key));
}

} // namespace SOLVER
