#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

#include <cmath>

namespace KOR {

std::string toString(double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    return {buffer, result.ptr};
}

std::string toString(double value, int digits) {
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::general, digits);
    return {buffer, result.ptr};
}

std::optional<double> parseDouble(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

void throwNoValue(std::string_view value) {
    throw Exception(text("Could not convert '%1' into value.", value), "[string2val]");
}

std::size_t parseDoubles(std::string_view text, std::vector<double> & values, char separator) {
    const auto isBlank = [separator](char c) {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == separator;
    };
    const char * position = text.data();
    const char * const end = position + text.size();
    while (true) {
        while (position != end && isBlank(*position))
            ++position;
        if (position == end)
            return std::string_view::npos;
        const char * start = position;
        if (*start == '+' && end - start > 1 && start[1] != '-')
            ++start;
        double value = 0;
        const auto result = std::from_chars(start, end, value);
        if (result.ec != std::errc{} || !std::isfinite(value) || (result.ptr != end && !isBlank(*result.ptr)))
            return static_cast<std::size_t>(position - text.data());
        values.push_back(value);
        position = result.ptr;
    }
}

std::string joinNumbers(const std::vector<double> & values) {
    std::string line;
    line.reserve(values.size() * 8);
    char buffer[32];
    for (const double value : values) {
        if (!line.empty())
            line += ' ';
        line.append(buffer, std::to_chars(buffer, buffer + sizeof(buffer), value).ptr);
    }
    return line;
}

} // namespace KOR
