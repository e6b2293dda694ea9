#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace KOR {

/// One entry of an enumeration: the word that is written, then the alternatives still read, separated by blanks.
struct KeywordRow {
    std::string_view words;
    std::string_view description; ///< as the user reads it
    std::string_view unit;        ///< default unit, empty if none
};

/// How the entries of an enumeration are numbered.
enum class KeywordIndexing {
    FROM_ZERO, ///< 0, 1, 2, ...
    FROM_ONE,  ///< 1, 2, 3, ...
    BITS       ///< 1, 2, 4, ...
};

/// All entries of one enumeration, in index order.
struct KeywordCategory {
    std::string_view name; ///< "Class::type_t"
    std::span<const KeywordRow> rows;
    KeywordIndexing indexing = KeywordIndexing::FROM_ZERO;

    /// The index of a row.
    constexpr int index(std::size_t row) const {
        return indexing == KeywordIndexing::BITS       ? 1 << row
               : indexing == KeywordIndexing::FROM_ONE ? static_cast<int>(row) + 1
                                                       : static_cast<int>(row);
    }
};

inline constexpr std::string_view KEYWORD_ERROR_STRING = "KEYWORD_ERROR_STRING: Invalid type index";

/// Lookups that walk the tables; written once for every keyword list. Linear searches over static data.
/// Failures throw KOR::Exception with "[KeywordList::Keyword]", "[KeywordList::Description]",
/// "[KeywordList::Unit]", "[KeywordList::Enumeration]", "[KeywordList::MaxIndex]", "[KeywordList::KeywordExists]".
class KeywordTable {
public:
    constexpr explicit KeywordTable(std::span<const KeywordCategory> categories) : m_categories(categories) {}

    std::span<const KeywordCategory> categories() const { return m_categories; }
    /// The category or nullptr.
    const KeywordCategory * find(std::string_view category) const;

    /// The word that is written.
    std::string Keyword(std::string_view category, int index) const;
    std::string_view Description(std::string_view category, int index) const;
    std::string_view Unit(std::string_view category, int index) const;
    /// \param deprecated set to whether the match was an alternative word; may be nullptr
    int Enumeration(std::string_view category, std::string_view keyword, bool * deprecated = nullptr) const;
    bool KeywordExists(std::string_view category, std::string_view keyword) const;
    /// The highest valid index; the last bit's value of a bit set.
    int MaxIndex(std::string_view category) const;

private:
    using Column = std::string_view KeywordRow::*;
    std::string_view raw(std::string_view category, int index, Column column) const;
    std::optional<int> match(const KeywordCategory & category, std::string_view keyword, bool * deprecated) const;

    std::span<const KeywordCategory> m_categories;
};

} // namespace KOR
