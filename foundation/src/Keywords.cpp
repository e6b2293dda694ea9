#include <KOR/Keywords.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

namespace KOR {

const KeywordCategory * KeywordTable::find(std::string_view category) const {
    for (const KeywordCategory & known : m_categories)
        if (known.name == category)
            return &known;
    return nullptr;
}

std::string_view KeywordTable::raw(std::string_view category, int index, Column column) const {
    const KeywordCategory * found = find(category);
    for (std::size_t row = 0; found != nullptr && row < found->rows.size(); ++row)
        if (found->index(row) == index)
            return found->rows[row].*column;
    return KEYWORD_ERROR_STRING;
}

std::string KeywordTable::Keyword(std::string_view category, int index) const {
    const std::string_view found = raw(category, index, &KeywordRow::words);
    if (found == KEYWORD_ERROR_STRING)
        throw Exception(text("Cannot determine keyword for enumeration type '%1' and index '%2'.", category, index),
                        "[KeywordList::Keyword]");
    return std::string(found.substr(0, found.find_first_of(" \t")));
}

std::string_view KeywordTable::Description(std::string_view category, int index) const {
    const std::string_view found = raw(category, index, &KeywordRow::description);
    if (found == KEYWORD_ERROR_STRING)
        throw Exception(text("Cannot determine description for enumeration type '%1' and index '%2'.", category, index),
                        "[KeywordList::Description]");
    return found;
}

std::string_view KeywordTable::Unit(std::string_view category, int index) const {
    const std::string_view found = raw(category, index, &KeywordRow::unit);
    if (found == KEYWORD_ERROR_STRING)
        throw Exception(
            text("Cannot determine default unit for enumeration type '%1' and index '%2'.", category, index),
            "[KeywordList::Unit]");
    return found;
}

std::optional<int> KeywordTable::match(const KeywordCategory & category, std::string_view keyword,
                                       bool * deprecated) const {
    for (std::size_t i = 0; i < category.rows.size(); ++i) {
        std::string_view rest = category.rows[i].words;
        for (std::size_t j = 0; !rest.empty(); ++j) {
            const std::string_view word = rest.substr(0, rest.find_first_of(" \t"));
            if (word == keyword) {
                if (deprecated != nullptr)
                    *deprecated = j != 0;
                return category.index(i);
            }
            rest.remove_prefix(std::min(word.size() + 1, rest.size()));
        }
    }
    return std::nullopt;
}

int KeywordTable::Enumeration(std::string_view category, std::string_view keyword, bool * deprecated) const {
    MaxIndex(category);
    if (const auto index = match(*find(category), keyword, deprecated))
        return *index;
    throw Exception(
        text("Cannot determine enumeration value for enumeration type '%1' and keyword '%2'.", category, keyword),
        "[KeywordList::Enumeration]");
}

bool KeywordTable::KeywordExists(std::string_view category, std::string_view keyword) const {
    MaxIndex(category);
    return match(*find(category), keyword, nullptr).has_value();
}

int KeywordTable::MaxIndex(std::string_view category) const {
    const KeywordCategory * found = find(category);
    if (found == nullptr)
        throw Exception(text("Invalid enumeration type '%1'.", category), "[KeywordList::MaxIndex]");
    return found->rows.empty() ? -1 : found->index(found->rows.size() - 1);
}

} // namespace KOR
