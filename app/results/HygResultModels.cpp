#include "HygResultModels.h"

#include <algorithm>
#include <cmath>

namespace HygResultModels {

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
enum face_t { X_LOWER, X_UPPER, Y_LOWER, Y_UPPER };

/// Mean of the values at two faces; of one if the other is not there or has no value.
double between(const std::vector<double> & record, std::size_t lower, std::size_t upper) {
    double sum = 0;
    int count = 0;
    for (const std::size_t face : {lower, upper})
        if (face < record.size() && !std::isnan(record[face])) {
            sum += record[face];
            ++count;
        }
    return count == 0 ? NaN : sum / count;
}

} // namespace

Plane::Plane(const HygResultFile & file, int normal, std::size_t plane) {
    using Format = DATAIO::DataIO::dataFormat_t;
    const bool isVolume = file.format() == Format::VOLUME;
    const int depth = isVolume                            ? std::clamp(normal, 0, 2)
                      : file.format() == Format::PLANE_XZ ? 1
                      : file.format() == Format::PLANE_YZ ? 0
                                                          : 2;
    horizontal = depth == 0 ? 1 : 0;
    vertical = depth == 2 ? 1 : 2;
    const DATAIO::GeoFile & geometry = *file.geometry();
    xEdges = geometry.boundaries(horizontal);
    yEdges = geometry.boundaries(vertical);
    xCentres = geometry.centres(horizontal);
    yCentres = geometry.centres(vertical);
    const std::size_t size = columns() * rows();
    const bool isFlux = file.header().type == DATAIO::DataHeader::FLUX;
    if (isFlux)
        for (auto & faces : ofFace)
            faces.assign(size, NOTHING);
    else
        ofCell.assign(size, NOTHING);
    const auto shown =
        isVolume ? std::min(plane, geometry.centres(depth).size() - 1) : file.cell(0)[static_cast<std::size_t>(depth)];
    for (std::size_t i = 0; i < file.valueCount(); ++i) {
        const auto cell = file.cell(i);
        if (cell[static_cast<std::size_t>(depth)] != shown)
            continue;
        const std::size_t column = cell[static_cast<std::size_t>(horizontal)];
        const std::size_t row = cell[static_cast<std::size_t>(vertical)];
        if (column >= columns() || row >= rows())
            continue;
        const std::size_t place = row * columns() + column;
        if (!isFlux) {
            ofCell[place] = i;
            continue;
        }
        // Locations come in pairs: left and right, bottom and top, back and front.
        const std::uint32_t location = file.location(i);
        if (location == 0)
            continue;
        const int direction = static_cast<int>(location - 1) / 2;
        const bool isUpper = location % 2 == 0;
        if (direction == horizontal) {
            ofFace[isUpper ? X_UPPER : X_LOWER][place] = i;
            if (!isUpper && column > 0)
                ofFace[X_UPPER][place - 1] = i;
        } else if (direction == vertical) {
            ofFace[isUpper ? Y_UPPER : Y_LOWER][place] = i;
            if (!isUpper && row > 0)
                ofFace[Y_UPPER][place - columns()] = i;
        }
    }
}

bool Plane::covers(std::size_t place) const {
    if (!ofCell.empty())
        return ofCell[place] != NOTHING;
    return std::any_of(std::begin(ofFace), std::end(ofFace),
                       [place](const auto & faces) { return faces[place] != NOTHING; });
}

bool Field::isWithoutValue(std::size_t column, std::size_t row) const {
    const std::size_t cell = row * columns() + column;
    return !std::isfinite(values[cell]) && plane.covers(cell);
}

void Field::setValues(const std::vector<double> & record) {
    const std::size_t size = columns() * rows();
    values.assign(size, NaN);
    for (std::size_t i = 0; i < size; ++i) {
        if (!plane.ofCell.empty()) {
            if (plane.ofCell[i] < record.size())
                values[i] = record[plane.ofCell[i]];
            continue;
        }
        const double x = between(record, plane.ofFace[X_LOWER][i], plane.ofFace[X_UPPER][i]);
        const double y = between(record, plane.ofFace[Y_LOWER][i], plane.ofFace[Y_UPPER][i]);
        values[i] = std::isnan(x) ? std::abs(y) : std::isnan(y) ? std::abs(x) : std::hypot(x, y);
    }
}

void Arrows::setValues(const std::vector<double> & record) {
    const std::size_t size = plane.columns() * plane.rows();
    xParts.assign(size, NaN);
    yParts.assign(size, NaN);
    if (!plane.ofCell.empty())
        return;
    for (std::size_t i = 0; i < size; ++i) {
        const double x = between(record, plane.ofFace[X_LOWER][i], plane.ofFace[X_UPPER][i]);
        const double y = between(record, plane.ofFace[Y_LOWER][i], plane.ofFace[Y_UPPER][i]);
        if (std::isnan(x) && std::isnan(y))
            continue;
        xParts[i] = std::isnan(x) ? 0 : x;
        yParts[i] = std::isnan(y) ? 0 : y;
    }
}

} // namespace HygResultModels
