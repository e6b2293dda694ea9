#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace KOR {

/// A display colour, eight bits a channel.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255; ///< 255 is opaque

    /// Reads "#rrggbb", "#rgb", "#aarrggbb" or one of the sixteen basic HTML names; case and blanks around do not matter.
    /// Nothing for any other text.
    static std::optional<Color> fromHtml(std::string_view text);
    /// "#rrggbb", or "#aarrggbb" if the colour is not opaque; lower case.
    std::string html() const;

    /// 0x00rrggbb, opaque
    static Color fromRgb(std::uint32_t rgb) { return fromArgb(0xFF000000 | rgb); }
    std::uint32_t rgb() const { return argb() & 0x00FFFFFF; }
    /// 0xaarrggbb
    static Color fromArgb(std::uint32_t argb);
    std::uint32_t argb() const;

    friend auto operator<=>(const Color &, const Color &) = default;
};

} // namespace KOR
