#include <KOR/Color.h>

#include <KOR/Strings.h>

#include <charconv>

namespace KOR {

std::optional<Color> Color::fromHtml(std::string_view text) {
    text = trimmed(text);
    if (!text.starts_with('#') || (text.size() != 7 && text.size() != 4))
        return std::nullopt;
    std::string digits;
    for (const char digit : text.substr(1))
        digits.append(text.size() == 4 ? 2 : 1, digit);
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc{} || end != digits.data() + digits.size())
        return std::nullopt;
    return fromRgb(value);
}

std::string Color::html() const {
    static constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {red, green, blue}) {
        text += DIGITS[part >> 4];
        text += DIGITS[part & 15];
    }
    return text;
}

} // namespace KOR
