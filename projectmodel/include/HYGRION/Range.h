#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class TiXmlElement;

namespace HYGRION {

/// A block of grid cells: zero-based, inclusive indices of its first and last column, row and stack plane.
/// A normalised range has left <= right, bottom <= top, back <= front.
struct Range {
    std::uint32_t left = 0;   ///< first column
    std::uint32_t bottom = 0; ///< first row
    std::uint32_t back = 0;   ///< first stack plane
    std::uint32_t right = 0;  ///< last column
    std::uint32_t top = 0;    ///< last row
    std::uint32_t front = 0;  ///< last stack plane

    bool isNormalised() const { return left <= right && bottom <= top && back <= front; }
    /// Exchanges a start with its end where it is greater.
    void normalise();
    /// Number of columns, rows, planes: 0 unless the range is normalised.
    std::uint64_t cellCount() const;
    bool contains(std::uint32_t i, std::uint32_t j, std::uint32_t k) const {
        return i >= left && i <= right && j >= bottom && j <= top && k >= back && k <= front;
    }

    /// Reads "left bottom right top" or "left bottom back right top front" and normalises the range. What follows four
    /// numbers without being two further ones is passed over.
    /// Throws "Invalid or unsupported range format '%1'" ("[Range::fromString]").
    static Range fromString(std::string_view text);
    /// The form for messages, "[1, 0, 0] - [3, 0, 0]".
    std::string toString() const;

    /// Throws "Error reading range '%1'." ("[Range::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends \<Range\>: four numbers if back and front are 0, else six.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const Range &) const = default;
};

} // namespace HYGRION
