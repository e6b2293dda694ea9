#pragma once

#include <QColor>
#include <QImage>

/// Hatchings of building materials after the hatching types of the material library, drawn as tiles.
namespace HygHatching {

constexpr int TILE = 32; ///< logical pixels; a tile may be set beside itself without a seam

/// A tile of the material's colour with its hatching; a code without one gives the plain colour.
/// \param code MM::MaterialIdentification::HatchingType
QImage tile(const QColor & colour, int code, double ratio);

/// The tile of cells without material: light crosses on the ground of the drawing.
QImage emptyTile(const QColor & ground, const QColor & line, double ratio);

/// The tile of a material whose file cannot be used: bands in the colour of errors across its own colour.
QImage unusableTile(const QColor & colour, double ratio);

/// A colour for lines and text that can be read on another one.
QColor contrast(const QColor & ground);

} // namespace HygHatching
