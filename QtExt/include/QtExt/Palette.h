#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

namespace QtExt {

/// The look of the program: our own light and dark palettes, either chosen or following the system.
class Palette {
public:
    /// Colours with a meaning, readable on the base colour of the theme in force.
    enum color_t {
        ERROR_TEXT,
        ERROR_BASE, ///< background of a field with an error
        WARNING_TEXT,
        SUCCESS_TEXT,
        MUTED_TEXT,
        FOUND_BASE, ///< background of what a search has found
        NUM_COLORS
    };

    static constexpr const char * SYSTEM = "system";
    static constexpr const char * LIGHT = "light";
    static constexpr const char * DARK = "dark";

    /// Makes a theme the application's ("light", "dark"; anything else follows the system, at run time too).
    static void apply(const QString & theme);
    /// Whether the palette in force is dark.
    static bool isDark();
    static QColor color(color_t color);

    /// The palettes themselves.
    static QPalette palette(bool dark);
    static QColor color(color_t color, bool dark);
};

} // namespace QtExt
