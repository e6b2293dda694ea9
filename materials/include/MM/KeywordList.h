#pragma once

#include <KOR/KeywordTie.h>

#include <string>
#include <string_view>

namespace MM {

/// The index of an enumerator in arrays and tables.
template <typename Enum> constexpr std::size_t indexOf(Enum value) {
    return static_cast<std::size_t>(value);
}

/// Words, descriptions and default units of all enumerations of the material model, each told by its name, such as
/// "Material::Sections". Bit sets ("MaterialIdentification::Flags", "MeasuredData::Experiments") are indexed by their
/// bit values. Static data; failures throw KOR::Exception as KOR::KeywordTable does.
class KeywordList {
public:
    /// The whole table: 34 enumerations.
    static const KOR::KeywordTable & table();

    static std::string Keyword(std::string_view enumtype, int index) { return table().Keyword(enumtype, index); }
    /// An entry without a description of its own gives its keyword string.
    /// \param exists set to whether there is a description; may be nullptr
    static std::string_view Description(std::string_view enumtype, int index, bool * exists = nullptr);
    static std::string_view Unit(std::string_view enumtype, int index) { return table().Unit(enumtype, index); }
    /// \param deprecated set to whether the match was an older spelling; may be nullptr
    static int Enumeration(std::string_view enumtype, std::string_view keyword, bool * deprecated = nullptr) {
        return table().Enumeration(enumtype, keyword, deprecated);
    }
    static bool KeywordExists(std::string_view enumtype, std::string_view keyword) {
        return table().KeywordExists(enumtype, keyword);
    }
    static int MaxIndex(std::string_view enumtype) { return table().MaxIndex(enumtype); }

    template <typename Enum> static std::string Keyword(Enum value) {
        return Keyword(KOR::enumerationName<Enum>(), static_cast<int>(value));
    }
    template <typename Enum> static std::string_view Description(Enum value) {
        return Description(KOR::enumerationName<Enum>(), static_cast<int>(value));
    }
    template <typename Enum> static Enum Enumeration(std::string_view keyword) {
        return static_cast<Enum>(Enumeration(KOR::enumerationName<Enum>(), keyword));
    }
    template <typename Enum> static bool KeywordExists(std::string_view keyword) {
        return KeywordExists(KOR::enumerationName<Enum>(), keyword);
    }
};

} // namespace MM
