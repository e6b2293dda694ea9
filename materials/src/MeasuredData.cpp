#include <MM/MeasuredData.h>

#include <KOR/Strings.h>

#include <ostream>

namespace MM {

void MeasuredData::read(std::span<const std::string_view> lines) {
    const auto isEmpty = [](std::string_view line) { return KOR::trimmed(line).empty(); };
    while (!lines.empty() && isEmpty(lines.front()))
        lines = lines.subspan(1);
    while (!lines.empty() && isEmpty(lines.back()))
        lines = lines.first(lines.size() - 1);
    m_lines.assign(lines.begin(), lines.end());
}

void MeasuredData::write(std::ostream & out) const {
    for (const std::string & line : m_lines)
        out << line << '\n';
}

} // namespace MM
