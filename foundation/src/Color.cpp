#include <KOR/Color.h>

#include <KOR/Strings.h>

#include <charconv>

namespace KOR {

namespace {

struct NamedColor {
    std::string_view name;
    std::uint32_t rgb;
};

/// The sixteen basic colour keywords of HTML 4.01, section 6.5.
constexpr NamedColor NAMED_COLORS[] = {
    {"aqua",    0x00FFFF},
    {"black",   0x000000},
    {"blue",    0x0000FF},
    {"fuchsia", 0xFF00FF},
    {"gray",    0x808080},
    {"green",   0x008000},
    {"lime",    0x00FF00},
    {"maroon",  0x800000},
    {"navy",    0x000080},
    {"olive",   0x808000},
    {"purple",  0x800080},
    {"red",     0xFF0000},
    {"silver",  0xC0C0C0},
    {"teal",    0x008080},
    {"white",   0xFFFFFF},
    {"yellow",  0xFFFF00},
};

} // namespace

Color Color::fromArgb(std::uint32_t argb) {
    const auto byte = [argb](int shift) { return static_cast<std::uint8_t>(argb >> shift); };
    return {byte(16), byte(8), byte(0), byte(24)};
}

std::uint32_t Color::argb() const {
    return std::uint32_t{alpha} << 24 | std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | std::uint32_t{blue};
}

std::optional<Color> Color::fromHtml(std::string_view text) {
    text = trimmed(text);
    if (!text.starts_with('#')) {
        const std::string name = lowered(text);
        for (const NamedColor & color : NAMED_COLORS)
            if (color.name == name)
                return fromRgb(color.rgb);
        return std::nullopt;
    }
    text.remove_prefix(1);
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    switch (text.size()) {
    case 3: // each digit stands for two of it
        return fromRgb(((value & 0xF00) << 8 | (value & 0x0F0) << 4 | (value & 0x00F)) * 0x11);
    case 6:
        return fromRgb(value);
    case 8:
        return fromArgb(value);
    default:
        return std::nullopt;
    }
}

std::string Color::html() const {
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = alpha == 255 ? 20 : 28; shift >= 0; shift -= 4)
        text += DIGITS[argb() >> shift & 0xF];
    return text;
}

} // namespace KOR
