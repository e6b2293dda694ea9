#include <QtExt/Palette.h>

#include "OutlineStyle.h"
#include "SystemTheme.h"

#include <QApplication>
#include <QPointer>
#include <QToolTip>

namespace QtExt {

namespace {

struct RoleRow {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};
constexpr RoleRow ROLES[] = {
    {QPalette::Window,          0xf4f6f8, 0x23272e},
    {QPalette::WindowText,      0x1d2430, 0xe6e9ee},
    {QPalette::Base,            0xffffff, 0x1a1d22},
    {QPalette::AlternateBase,   0xeff3f7, 0x21252b},
    {QPalette::Text,            0x1d2430, 0xe6e9ee},
    {QPalette::Button,          0xe9edf2, 0x31373f},
    {QPalette::ButtonText,      0x1d2430, 0xe6e9ee},
    {QPalette::BrightText,      0xffffff, 0xffffff},
    {QPalette::ToolTipBase,     0x1d2430, 0x3a414b},
    {QPalette::ToolTipText,     0xf4f6f8, 0xf2f4f7},
    {QPalette::Highlight,       0x1a66d6, 0x2563c9},
    {QPalette::HighlightedText, 0xffffff, 0xffffff},
    {QPalette::Link,            0x1558b0, 0x7ab4ff},
    {QPalette::LinkVisited,     0x6b3fa0, 0xc3a6ff},
    {QPalette::PlaceholderText, 0x667080, 0x8f98a5},
    {QPalette::Light,           0xffffff, 0x3d444e},
    {QPalette::Midlight,        0xf0f3f6, 0x363c45},
    {QPalette::Mid,             0xb9c2cc, 0x14161a},
    {QPalette::Dark,            0x9aa5b1, 0x101215},
    {QPalette::Shadow,          0x5a6572, 0x000000},
};
constexpr RoleRow DISABLED_ROLES[] = {
    {QPalette::WindowText, 0x8b95a1, 0x79828e},
    {QPalette::Text,       0x8b95a1, 0x79828e},
    {QPalette::ButtonText, 0x8b95a1, 0x79828e},
    {QPalette::Base,       0xf4f6f8, 0x23272e},
    {QPalette::Highlight,  0x9aa5b1, 0x4a525d},
};

struct ColorRow {
    QRgb light;
    QRgb dark;
};
constexpr ColorRow COLORS[] = {
    {0xb3261e, 0xff9c94}, // ERROR_TEXT
    {0xffe4e1, 0x4a2323}, // ERROR_BASE
    {0x8a5200, 0xf5c168}, // WARNING_TEXT
    {0x1b6e3a, 0x7fd79b}, // SUCCESS_TEXT
    {0x5a6572, 0xa3acb8}, // MUTED_TEXT
    {0xffe08a, 0x6b5414}, // FOUND_BASE
};
static_assert(std::size(COLORS) == Palette::NUM_COLORS, "colour table and enumeration disagree");

bool followsSystem = false;

void applyPalette(bool dark) {
    static QPointer<OutlineStyle> style; // the application owns it
    if (style.isNull()) {
        style = new OutlineStyle;
        QApplication::setStyle(style);
    }
    const QPalette palette = Palette::palette(dark);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace

void Palette::apply(const QString & theme) {
    SystemTheme & system = SystemTheme::instance(); // looks at the platform's palette before ours hides it
    followsSystem = theme != QLatin1String(LIGHT) && theme != QLatin1String(DARK);
    static QMetaObject::Connection following;
    if (!following)
        following = QObject::connect(&system, &SystemTheme::changed, &system, [] {
            if (followsSystem)
                applyPalette(SystemTheme::instance().isDark());
        });
    applyPalette(followsSystem ? system.isDark() : theme == QLatin1String(DARK));
}

bool Palette::isDark() {
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

QColor Palette::color(color_t color) {
    return Palette::color(color, isDark());
}

QColor Palette::color(color_t color, bool dark) {
    return QColor(dark ? COLORS[color].dark : COLORS[color].light);
}

QPalette Palette::palette(bool dark) {
    QPalette palette;
    for (const RoleRow & row : ROLES)
        palette.setColor(row.role, QColor(dark ? row.dark : row.light));
    for (const RoleRow & row : DISABLED_ROLES)
        palette.setColor(QPalette::Disabled, row.role, QColor(dark ? row.dark : row.light));
    return palette;
}

} // namespace QtExt
