#pragma once

#include <span>
#include <string>
#include <string_view>

namespace MM {

class Material;

/// A function of a material as charts, command line and solver evaluate it. Values are in base units.
struct Evaluation {
    std::string_view name; ///< "Theta_l(RH)"; "Kl", "Dl", "Kv", "Kg" and "lambda" are over the moisture content
    std::string_view xUnit, yUnit;
    /// \param direction 0, 1, 2 for u, v, w. Throws KOR::Exception where the material has no such function.
    double (*value)(const Material & material, int direction, double x);
};

/// All that can be evaluated.
std::span<const Evaluation> evaluations();
/// Throws "Unknown function '%1', expected one of: %2." ("[MM::evaluation]").
const Evaluation & evaluation(std::string_view name);
/// The names of all, separated by blanks.
std::string evaluationNames();

} // namespace MM
