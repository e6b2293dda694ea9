#pragma once

#include <HYGRION/Init.h>

#include <optional>

namespace HYGRION {

/// Where the construction stands and which climate file holds there: the part of the Init section that is edited as one.
/// What is not set follows from the defaults.
struct LocationParameter {
    KOR::Path m_climateDataFilePath;
    ParaSet<Init::para_t> m_para; ///< Longitude, Latitude, Height, Albedo; others are passed over
    std::optional<int> m_timeZone;
    std::optional<bool> m_useCustomLocation;

    static LocationParameter of(const Init & init);
    void applyTo(Init & init) const;

    bool operator==(const LocationParameter &) const = default;
};

} // namespace HYGRION
