#pragma once

#include <KOR/LinearSpline.h>

#include <QString>

#include <vector>

namespace MM {
class Material;
}

/// The tabulated functions of a material file, one row a function: as they stand in the file, before anything is made of
/// them.
namespace HygMaterialFunctions {

struct Row {
    const char * keyword; ///< as in the file
    const char * title;
    const char * xTitle;
    const char * xUnit;
    const char * yTitle;
    const char * yUnit;
    bool hasDirections;
    const KOR::LinearSpline & (*get)(const MM::Material & material, int direction);
    void (*set)(MM::Material & material, int direction, const KOR::LinearSpline & spline);
};

/// One function in one direction.
struct Place {
    int row = 0;
    int direction = 0; ///< 0, 1, 2 for u, v, w
    bool operator==(const Place &) const = default;
};

const Row & row(int row);
int numRows();
QString title(const Place & place);
QString xTitle(const Place & place);
QString yTitle(const Place & place);
/// The functions that a material can have: those of directions v and w only if it has these directions.
std::vector<Place> places(const MM::Material & material);

const KOR::LinearSpline & spline(const MM::Material & material, const Place & place);
/// Replaces the points, in any state; none removes the function.
void setPoints(MM::Material & material, const Place & place, std::vector<double> x, std::vector<double> y);

} // namespace HygMaterialFunctions
