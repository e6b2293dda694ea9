#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <omp.h>

#include <algorithm>

namespace MM {

KeywordLine::KeywordLine(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return;
    keyword = KOR::trimmed(line.substr(0, equals));
    value = KOR::trimmed(line.substr(equals + 1));
}

std::vector<std::string_view> splitLines(std::string_view content) {
    std::vector<std::string_view> lines;
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        std::string_view line = content.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        content.remove_prefix(std::min(end + 1, content.size()));
    }
    return lines;
}

bool isComment(std::string_view line) {
    line = KOR::trimmed(line);
    return line.empty() || line.front() == ';';
}

std::vector<std::string_view> withoutComments(std::span<const std::string_view> lines) {
    std::vector<std::string_view> kept;
    kept.reserve(lines.size());
    for (const std::string_view line : lines)
        if (!isComment(line))
            kept.push_back(KOR::trimmed(line));
    return kept;
}

std::string_view bracketed(std::string_view line) {
    line = KOR::trimmed(line);
    if (line.size() < 3 || line.front() != '[' || line.back() != ']')
        return {};
    return KOR::trimmed(line.substr(1, line.size() - 2));
}

std::string shown(std::string_view text) {
    constexpr std::size_t LONGEST = 80;
    std::string result(text.substr(0, LONGEST));
    result.resize(KOR::validUtf8Length(result));
    for (char & c : result)
        if (static_cast<unsigned char>(c) < ' ')
            c = ' ';
    if (result.size() < text.size())
        result += "...";
    return result;
}

std::string invalidValue(std::string_view value, std::string_view keyword) {
    // The message names both places %1, as it always did: the value comes first, the keyword second.
    std::string pattern = "Invalid parameter value '%1' for keyword '%1'!";
    pattern.replace(pattern.rfind("%1"), 2, "%2");
    return KOR::text(pattern, shown(value), keyword);
}

std::string keywordColumn(std::size_t indent, std::string_view keyword, std::size_t width) {
    std::string column(indent, ' ');
    column += keyword;
    column.append(keyword.size() < width ? width - keyword.size() : 0, ' ');
    return column;
}

void log(const std::string & text, KOR::msg_t type, const std::string & where, int verbosityLevel) {
    if (omp_in_parallel() == 0 || omp_get_thread_num() == 0)
        KOR::message(text, type, where, verbosityLevel);
}

} // namespace MM
