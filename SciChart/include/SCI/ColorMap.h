#pragma once

#include <QColor>

#include <vector>

namespace SCI {

/// Colours for values: lightness rises or falls steadily and equal steps look equal, for colour-blind readers too.
class ColorMap {
public:
    enum map_t {
        SEQUENCE,  ///< dark violet over green to yellow
        HEAT,      ///< black over red to pale yellow
        WATER,     ///< pale to deep blue
        DIVERGING, ///< blue over white to brown: for values around a middle
        GREY,
        NUM_MAPS
    };
    static constexpr int SIZE = 512;

    explicit ColorMap(map_t map = SEQUENCE);
    /// For a share 0 to 1 of the range; beyond it the end's colour, transparent for NaN.
    QRgb rgb(double share) const {
        if (!(share > 0))
            return share != share ? 0 : m_table[0];
        return m_table[share >= 1 ? SIZE - 1 : static_cast<int>(share * SIZE)];
    }

private:
    const QRgb * m_table;
};

} // namespace SCI
