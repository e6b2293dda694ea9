#include "Theme.h"

#include <iterator>

namespace SCI {

namespace {

struct Pair {
    QRgb light, dark;
};

// The hues of the palette that Okabe and Ito published for colour-blind readers (2008), each made darker or lighter
// until it stands out from its ground.
constexpr Pair SERIES[] = {
    {0x0072b2, 0x56b4e9}, // blue
    {0xd55e00, 0xff8c42}, // vermilion
    {0x00805c, 0x3ddbaa}, // green
    {0xb0568a, 0xe69ac4}, // purple
    {0x9a6f00, 0xf0c74a}, // ochre
    {0x1d2430, 0xe6e9ee}, // ink
    {0x2b8fc4, 0xa5d8f7}, // sky
};

constexpr Pair GROUND = {0xffffff, 0x1a1d22};
constexpr Pair TEXT = {0x1d2430, 0xe6e9ee};
constexpr Pair GRID = {0xdde2e8, 0x363c45};
constexpr Pair MUTED = {0x5a6572, 0xa3acb8};
constexpr Pair THRESHOLD = {0xb3261e, 0xff9c94};
constexpr Pair HATCHING = {0xd3d7dc, 0x3f4650};
constexpr Pair BAND = {0xe69f00, 0xf0c74a};
constexpr int BAND_ALPHA = 56;

} // namespace

Theme Theme::of(bool isDark) {
    const auto pick = [isDark](const Pair & pair) { return QColor(isDark ? pair.dark : pair.light); };
    Theme theme;
    theme.isDark = isDark;
    theme.ground = pick(GROUND);
    theme.text = pick(TEXT);
    theme.grid = pick(GRID);
    theme.mutedText = pick(MUTED);
    theme.threshold = pick(THRESHOLD);
    theme.hatching = pick(HATCHING);
    theme.band = pick(BAND);
    theme.band.setAlpha(BAND_ALPHA);
    return theme;
}

Theme Theme::of(const QPalette & palette) {
    return of(palette.color(QPalette::Window).lightness() < 128);
}

int Theme::seriesCount() {
    return static_cast<int>(std::size(SERIES));
}

QColor Theme::series(int i) const {
    const Pair & pair = SERIES[i % seriesCount()];
    return QColor(isDark ? pair.dark : pair.light);
}

Qt::PenStyle Theme::pen(int i, Qt::PenStyle wanted) {
    constexpr Qt::PenStyle PENS[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
    return wanted == Qt::SolidLine ? PENS[(i / seriesCount()) % static_cast<int>(std::size(PENS))] : wanted;
}

} // namespace SCI
