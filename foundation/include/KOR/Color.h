#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace KOR {

/// An opaque colour for display, in HTML notation "#rrggbb".
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    /// Reads "#rrggbb" or "#rgb" with digits of either case; nothing for any other text.
    static std::optional<Color> fromHtml(std::string_view text);
    /// "#rrggbb", lower case.
    std::string html() const;

    /// 0x00rrggbb
    std::uint32_t rgb() const {
        return static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 | blue;
    }
    static Color fromRgb(std::uint32_t rgb) {
        return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                static_cast<std::uint8_t>(rgb)};
    }

    friend auto operator<=>(const Color &, const Color &) = default;
};

} // namespace KOR
