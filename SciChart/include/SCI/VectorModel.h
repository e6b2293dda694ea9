#pragma once

#include <cstddef>

namespace SCI {

/// Arrows at points, read where they are. Called from the GUI thread only.
class VectorModel {
public:
    virtual ~VectorModel() = default;

    virtual std::size_t count() const = 0;
    virtual double x(std::size_t i) const = 0; ///< in the data unit of the x axis
    virtual double y(std::size_t i) const = 0; ///< in the data unit of the y axis
    /// Parts along x and y, both in VectorStyle::unit; no arrow where one is no number.
    virtual double xPart(std::size_t i) const = 0;
    virtual double yPart(std::size_t i) const = 0;
};

} // namespace SCI
