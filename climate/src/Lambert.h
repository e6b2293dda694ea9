#pragma once

namespace CCM {

struct GeographicPosition {
    double latitude = 0;  ///< [Deg] north positive
    double longitude = 0; ///< [Deg] east positive
};

/// The place of coordinates [m] in the Lambert conformal conic projection of Europe: ellipsoid GRS80, parallels 35 and
/// 65 N, origin 52 N 10 E at easting 4,000,000 and northing 2,800,000. Formulas of Snyder, Map Projections, 1987, p. 107.
GeographicPosition fromLambertEurope(double easting, double northing);

} // namespace CCM
