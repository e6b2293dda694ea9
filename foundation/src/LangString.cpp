#include <KOR/LangString.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>

namespace KOR {

namespace {

bool isLanguage(std::string_view code) {
    const auto isSmallLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    return code == LangString::ALL || (code.size() == 2 && std::all_of(code.begin(), code.end(), isSmallLetter));
}

/// Length of the language at the beginning of a part, 0 if there is none.
std::size_t languageLength(std::string_view part) {
    const std::size_t colon = part.find(':');
    return colon != std::string_view::npos && isLanguage(part.substr(0, colon)) ? colon : 0;
}

/// The parts between the bars that are not escaped, with their escapes undone.
std::vector<std::string> parts(std::string_view line) {
    std::vector<std::string> result(1);
    std::size_t slashes = 0; // back slashes in a row just read
    for (const char c : line) {
        if (c != '|') {
            result.back() += c;
            slashes = c == '\\' ? slashes + 1 : 0;
            continue;
        }
        std::string & part = result.back();
        part.resize(part.size() - (slashes + 1) / 2);
        if (slashes % 2 == 1)
            part += '|';
        else
            result.emplace_back();
        slashes = 0;
    }
    return result;
}

/// The text with escapes; \p isLast says that no bar follows it.
std::string escaped(std::string_view text, bool isLast) {
    std::string result;
    std::size_t slashes = 0;
    for (const char c : text) {
        if (c == '|')
            result.append(slashes + 1, '\\');
        result += c;
        slashes = c == '\\' ? slashes + 1 : 0;
    }
    return isLast ? result : result.append(slashes, '\\');
}

} // namespace

LangString::LangString(std::string_view line) {
    for (const std::string & part : parts(line)) {
        const std::string_view whole = trimmed(part);
        const std::size_t length = languageLength(whole);
        const std::string_view value = trimmed(whole.substr(length > 0 ? length + 1 : 0));
        if (value.empty())
            continue;
        std::string & known = at(length > 0 ? whole.substr(0, length) : ALL);
        known += known.empty() ? "" : "|";
        known += value;
    }
}

std::string & LangString::at(std::string_view language) {
    for (auto & [code, value] : m_texts)
        if (code == language)
            return value;
    return m_texts.emplace_back(language, std::string()).second;
}

const std::string * LangString::find(std::string_view language) const {
    for (const auto & [code, value] : m_texts)
        if (code == language)
            return &value;
    return nullptr;
}

const std::string & LangString::get(std::string_view language) const {
    static const std::string NOTHING;
    for (const std::string_view wanted : {language, language.substr(0, 2), std::string_view("en"), ALL})
        if (const std::string * value = find(wanted))
            return *value;
    return m_texts.empty() ? NOTHING : m_texts.front().second;
}

void LangString::set(std::string_view language, std::string_view value) {
    if (!isLanguage(language))
        throw Exception(text("'%1' is not a language code.", language), "[LangString::set]");
    std::string line(trimmed(value));
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    if (line.empty())
        std::erase_if(m_texts, [language](const auto & entry) { return entry.first == language; });
    else
        at(language) = std::move(line);
}

std::string LangString::toString() const {
    std::string line;
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        const auto & [code, value] = m_texts[i];
        line += i > 0 ? "|" : "";
        if (code != ALL || languageLength(value) > 0)
            line += code + ":";
        line += escaped(value, i + 1 == m_texts.size());
    }
    return line;
}

} // namespace KOR
