#include <SCI/ColorMap.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace SCI {

namespace {

/// A colour in the space OKLab (B. Ottosson, 2020), in which equal distances look about equal.
struct Lab {
    double lightness, a, b;
};

double linearOf(int channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

int channelOf(double linear) {
    const double c = std::clamp(linear, 0.0, 1.0);
    return static_cast<int>(std::lround(255 * (c <= 0.0031308 ? 12.92 * c : 1.055 * std::pow(c, 1 / 2.4) - 0.055)));
}

Lab labOf(QRgb rgb) {
    const double r = linearOf(qRed(rgb)), g = linearOf(qGreen(rgb)), b = linearOf(qBlue(rgb));
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

QRgb rgbOf(const Lab & lab) {
    const double l = std::pow(lab.lightness + 0.3963377774 * lab.a + 0.2158037573 * lab.b, 3);
    const double m = std::pow(lab.lightness - 0.1055613458 * lab.a - 0.0638541728 * lab.b, 3);
    const double s = std::pow(lab.lightness - 0.0894841775 * lab.a - 1.2914855480 * lab.b, 3);
    return qRgb(channelOf(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
                channelOf(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
                channelOf(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s));
}

// Colours that a map leads through. SEQUENCE and HEAT follow the maps "viridis" and "inferno" of S. van der Walt and
// N. Smith (2015, CC0), the others are our own.
constexpr QRgb SEQUENCE_COLORS[] = {0x440154, 0x482878, 0x3e4989, 0x31688e, 0x26828e,
                                    0x1f9e89, 0x35b779, 0x6ece58, 0xb5de2b, 0xfde725};
constexpr QRgb HEAT_COLORS[] = {0x000004, 0x1b0c41, 0x4a0c6b, 0x781c6d, 0xa52c60,
                                0xcf4446, 0xed6925, 0xfb9b06, 0xf7d13d, 0xfcffa4};
constexpr QRgb WATER_COLORS[] = {0xf4f9ff, 0xb9d7f2, 0x6faadb, 0x2f78b7, 0x12498a, 0x061f4f};
constexpr QRgb DIVERGING_COLORS[] = {0x0b3c7d, 0x4f8fc9, 0xb3d3ea, 0xf6f6f6, 0xecc79c, 0xc07f35, 0x6b3a08};
constexpr QRgb GREY_COLORS[] = {0x101010, 0xf8f8f8};

struct Row {
    const QRgb * colors;
    std::size_t count;
};
constexpr Row MAPS[] = {
    {SEQUENCE_COLORS,  std::size(SEQUENCE_COLORS) },
    {HEAT_COLORS,      std::size(HEAT_COLORS)     },
    {WATER_COLORS,     std::size(WATER_COLORS)    },
    {DIVERGING_COLORS, std::size(DIVERGING_COLORS)},
    {GREY_COLORS,      std::size(GREY_COLORS)     },
};
static_assert(std::size(MAPS) == ColorMap::NUM_MAPS, "colour maps and enumeration disagree");

using Table = std::array<QRgb, ColorMap::SIZE>;

/// Walks along straight lines in OKLab with the same distance between any two entries.
Table evenTable(const Row & row) {
    std::vector<Lab> points;
    std::vector<double> lengths{0};
    for (std::size_t i = 0; i < row.count; ++i) {
        points.push_back(labOf(row.colors[i]));
        if (i > 0) {
            const Lab & p = points[i - 1];
            const Lab & q = points[i];
            lengths.push_back(lengths.back() + std::hypot(q.lightness - p.lightness, q.a - p.a, q.b - p.b));
        }
    }
    Table table;
    std::size_t k = 1;
    for (int i = 0; i < ColorMap::SIZE; ++i) {
        const double length = lengths.back() * i / (ColorMap::SIZE - 1);
        while (k + 1 < lengths.size() && lengths[k] < length)
            ++k;
        const double t = (length - lengths[k - 1]) / (lengths[k] - lengths[k - 1]);
        const auto mix = [t](double p, double q) { return p + (q - p) * t; };
        const Lab & p = points[k - 1];
        const Lab & q = points[k];
        table[static_cast<std::size_t>(i)] = rgbOf({mix(p.lightness, q.lightness), mix(p.a, q.a), mix(p.b, q.b)});
    }
    return table;
}

} // namespace

ColorMap::ColorMap(map_t map) {
    static const auto tables = [] {
        std::array<Table, NUM_MAPS> all;
        for (std::size_t i = 0; i < NUM_MAPS; ++i)
            all[i] = evenTable(MAPS[i]);
        return all;
    }();
    m_table = tables[map].data();
}

} // namespace SCI
