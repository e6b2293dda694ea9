#pragma once

#include <KOR/UnitVector.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// One direction of the drawn grid: where the borders of its cells lie on the screen. Pixels are logical ones.
class HygGridAxis {
public:
    /// \param isReversed cells count against the pixels, as rows do from the bottom
    explicit HygGridAxis(bool isReversed) : m_isReversed(isReversed) {}

    static constexpr double MIN_LAYER = 2; ///< pixels; a thinner layer is drawn as wide as that, were it a foil

    /// \param widths of the cells; \param isEquidistant draws all cells alike
    void setWidths(const KOR::UnitVector & widths, bool isEquidistant);
    /// Where layers begin, and the number of cells: 0, ..., count().
    void setLayers(std::vector<std::uint32_t> borders);

    std::size_t count() const { return m_edges.size() - 1; }
    /// Border in front of cell \p i, 0..count(), in drawn units: metres, or cells where all are alike.
    double edge(std::size_t i) const { return m_edges[i]; }
    double length() const { return m_edges.back(); }
    /// Border in front of cell \p i [m].
    double position(std::size_t i) const { return m_positions[i]; }
    /// Width of cells together [m]; rounded as far as to hide the rounding of the sum.
    double width(std::size_t first, std::size_t last) const;
    /// The narrowest cell in drawn units.
    double smallest() const { return m_smallest; }

    double scale() const { return m_scale; } ///< pixels per drawn unit
    /// \param origin pixel of the drawn unit 0
    void setView(double scale, double origin);
    double origin() const { return m_origin; }

    double toPixel(double drawn) const {
        return m_isReversed ? m_origin - drawn * m_scale : m_origin + drawn * m_scale;
    }
    double toDrawn(double pixel) const { return (m_isReversed ? m_origin - pixel : pixel - m_origin) / m_scale; }
    double pixel(std::size_t border) const { return toPixel(m_edges[border]); }
    /// The pixel of a place [m] in the construction.
    double pixelOfPosition(double metres) const;
    /// The cell at a place [m]; the nearest one outside of the grid.
    std::size_t cellAtPosition(double metres) const;
    /// First and last pixel that the cells first..last cover, ascending.
    std::pair<double, double> span(std::size_t first, std::size_t last) const;

    /// The cell drawn at a pixel, -1 before the first, count() behind the last one.
    std::ptrdiff_t cellAt(double pixel) const;
    /// The cell at a pixel, the nearest one outside of the grid.
    std::size_t nearestCell(double pixel) const;
    /// The cells of which something lies between two pixels; an empty pair (1, 0) for none.
    std::pair<std::size_t, std::size_t> cellsBetween(double pixel, double otherPixel) const;
    /// The cell drawn at the middle of each of \p count device pixels, -1 outside.
    std::vector<std::int32_t> cellsOfPixels(int count, double ratio) const;

private:
    /// Neighbouring thin layers that share a place alike; it takes the room that it lacks from the layers beside.
    struct Slot {
        double from = 0; ///< drawn units
        double to = 0;
        std::size_t layer = 0;
        std::size_t count = 0;
    };
    std::ptrdiff_t cellToScale(double drawn) const;
    std::size_t cellInSlot(const Slot & slot, double drawn) const;
    void makeSlots();

    bool m_isReversed;
    std::vector<double> m_edges{0, 1};
    std::vector<double> m_positions{0, 1};
    std::vector<double> m_widths{1}; ///< [m]
    std::vector<std::uint32_t> m_layers{0, 1};
    std::vector<Slot> m_slots; ///< ascending
    double m_smallest = 1;
    double m_scale = 1;
    double m_origin = 0;
};
