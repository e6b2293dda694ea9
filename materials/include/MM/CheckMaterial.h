#pragma once

#include <string_view>
#include <vector>

namespace MM {

class Material;

/// What the check of a material found.
struct Finding {
    enum class Topic {
        THERMAL_CONDUCTIVITY,
        CONDUCTIVITY_FUNCTIONS,
        THERMAL_STORAGE,
        STORAGE_PARAMETERS,
        MOISTURE_STORAGE,
        LIQUID_TRANSPORT,
        VAPOR_TRANSPORT,
        AIR_TRANSPORT
    };
    Topic topic;
    std::string_view message;
    bool isFault = true; ///< false for a mere information
    bool operator==(const Finding &) const = default;
};

/// Checks parameters, flags and functions of a material against each other. No finding appears twice.
std::vector<Finding> checkMaterial(const Material & material);

/// Hands findings to the message handler, with the identifier "[checkMaterial]".
void reportFindings(const std::vector<Finding> & findings);

} // namespace MM
