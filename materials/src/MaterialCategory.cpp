#include <MM/MaterialCategory.h>

#include <MM/KeywordList.h>

#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

namespace MM {

namespace {

constexpr const char * WHERE = "[MaterialCategory::set]  ";

/// Of the second and third item.
constexpr std::string_view FAILED[] = {"Couldn't parse 2nd category. %1", "Couldn't parse 3rd category. %1"};

MaterialCategory::CategoryID parse(std::string_view item) {
    using Category = MaterialCategory::CategoryID;
    if (item.empty() || item.front() < '0' || item.front() > '9')
        return KeywordList::Enumeration<Category>(item);
    const auto number = KOR::parseInteger<int>(item);
    if (!number || *number > static_cast<int>(Category::MISC))
        throw KOR::Exception(
            KOR::text("Expected a category number of 0..%1, got '%2'.", static_cast<int>(Category::MISC), shown(item)),
            WHERE);
    return static_cast<Category>(*number);
}

} // namespace

void MaterialCategory::set(std::string_view text) {
    MaterialCategory read;
    read.m_text = KOR::trimmed(text);
    const auto items =
        read.m_text.find(',') == std::string::npos ? KOR::words(read.m_text) : KOR::split(read.m_text, ',');
    if (items.size() > read.m_ids.size())
        throw KOR::Exception(KOR::text("Expected at most three categories, got '%1'.", shown(text)), WHERE);
    for (std::size_t i = 0; i < std::max<std::size_t>(items.size(), 1); ++i) {
        const std::string_view item = items.empty() ? std::string_view() : KOR::trimmed(items[i]);
        try {
            read.m_ids[i] = parse(item);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, i == 0 ? invalidValue(item, "CATEGORY") : KOR::text(FAILED[i - 1], shown(item)),
                                 WHERE);
        }
    }
    *this = std::move(read);
}

std::string MaterialCategory::description() const {
    return std::string(KeywordList::Description(m_ids[0]));
}

} // namespace MM
