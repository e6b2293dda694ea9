#pragma once

#include <KOR/Keywords.h>

#include <optional>
#include <string>
#include <string_view>

namespace HYGRION {

/// Ties every enumeration of the project to the words that project files and the user interface use for it.
/// A category is the enumeration's name with its class, "Interface::type_t". Static data; failures throw
/// KOR::Exception as KOR::KeywordTable does.
class KeywordList {
public:
    /// The whole table: 53 categories.
    static const KOR::KeywordTable & table();
    /// Enumerations of the project that the table does not hold; the functions of an enumeration know both.
    static const KOR::KeywordTable & furtherTable();

    static std::string Keyword(std::string_view category, int index) { return table().Keyword(category, index); }
    static std::string_view Description(std::string_view category, int index) {
        return table().Description(category, index);
    }
    static std::string_view Unit(std::string_view category, int index) { return table().Unit(category, index); }
    /// \param deprecated set to whether the match was an alternative word; may be nullptr
    static int Enumeration(std::string_view category, std::string_view keyword, bool * deprecated = nullptr) {
        return table().Enumeration(category, keyword, deprecated);
    }
    static int MaxIndex(std::string_view category) { return table().MaxIndex(category); }
    static bool KeywordExists(std::string_view category, std::string_view keyword) {
        return table().KeywordExists(category, keyword);
    }

    /// The category of an enumeration, from the compiler's own name of the type. The table in KeywordList.cpp refuses
    /// to compile when that is not what the table says.
    template <typename Enum> static constexpr std::string_view category() {
        constexpr std::string_view OWNER = "HYGRION::";
        const std::string_view function = __PRETTY_FUNCTION__; // "... [with Enum = HYGRION::Interface::type_t; ..."
        const std::string_view type = function.substr(function.find(OWNER, function.find("Enum = ")) + OWNER.size());
        return type.substr(0, type.find_first_of(";]"));
    }

    template <typename Enum> static std::string Keyword(Enum value) {
        return tableOf<Enum>().Keyword(category<Enum>(), static_cast<int>(value));
    }
    template <typename Enum> static std::string_view Description(Enum value) {
        return tableOf<Enum>().Description(category<Enum>(), static_cast<int>(value));
    }
    template <typename Enum> static std::string_view Unit(Enum value) {
        return tableOf<Enum>().Unit(category<Enum>(), static_cast<int>(value));
    }
    /// Throws as Enumeration of the category.
    template <typename Enum> static Enum Enumeration(std::string_view keyword) {
        return static_cast<Enum>(tableOf<Enum>().Enumeration(category<Enum>(), keyword));
    }
    template <typename Enum> static bool KeywordExists(std::string_view keyword) {
        return tableOf<Enum>().KeywordExists(category<Enum>(), keyword);
    }
    /// Number of entries.
    template <typename Enum> static int count() { return tableOf<Enum>().MaxIndex(category<Enum>()) + 1; }

private:
    template <typename Enum> static const KOR::KeywordTable & tableOf() {
        return furtherTable().find(category<Enum>()) != nullptr ? furtherTable() : table();
    }
};

} // namespace HYGRION
