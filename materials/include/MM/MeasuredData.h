#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace MM {

/// Results of laboratory experiments: kept as read and written back.
class MeasuredData {
public:
    enum class Sections { GEOMETRY, EXPERIMENTS };
    enum class WaterRetentionValues { NON_LOG_PC, TEMPERATURE, THETA_L, STD_DEVIATION, MINIMUM, MAXIMUM };
    enum class WaterVapourPermeabilityValues { PHI_INSIDE, PHI_OUTSIDE, MEW, STD_DEVIATION, MINIMUM, MAXIMUM };
    enum class LiquidWaterConductivityValues { STD_DEVIATION, MINIMUM, MAXIMUM };
    enum class WaterUptakeValues { MASS };
    enum class DryingValues0 { WEIGHT, WIDTH_0, LENGTH_0, HEIGHT_0, WIDTH_1, LENGTH_1, HEIGHT_1 };
    enum class DryingValues1 {
        BC_TEMPERATURE_0,
        BC_RH_0,
        BC_TEMPERATURE_1,
        BC_RH_1,
        SAMPLE_TEMPERATURE_0,
        SAMPLE_TEMPERATURE_1,
        SAMPLE_TEMPERATURE_2,
        SAMPLE_TEMPERATURE_3,
        SAMPLE_TEMPERATURE_4,
        SAMPLE_TEMPERATURE_5
    };
    enum class GeometryKeys {
        SPECIMEN,
        CYLINDRIC,
        WIDTH_0,
        WIDTH_1,
        WIDTH_2,
        WIDTH_3,
        LENGTH_0,
        LENGTH_1,
        LENGTH_2,
        LENGTH_3,
        HEIGHT_0,
        HEIGHT_1,
        HEIGHT_2,
        HEIGHT_3
    };
    enum class ExperimentKeys {
        SPECIMEN,
        EXPERIMENT,
        X_VALUES,
        NON_LOG_PC,
        TEMPERATURE,
        THETA_L,
        PHI_INSIDE,
        PHI_OUTSIDE,
        MEW,
        MINIMUM,
        MAXIMUM,
        STD_DEVIATION,
        WEIGHT,
        WIDTH_0,
        LENGTH_0,
        HEIGHT_0,
        WIDTH_1,
        LENGTH_1,
        HEIGHT_1,
        DATE_BC,
        BC_TEMPERATURE_0,
        BC_RH_0,
        BC_TEMPERATURE_1,
        BC_RH_1,
        SAMPLE_TEMPERATURE_0,
        SAMPLE_TEMPERATURE_1,
        SAMPLE_TEMPERATURE_2,
        SAMPLE_TEMPERATURE_3,
        SAMPLE_TEMPERATURE_4,
        SAMPLE_TEMPERATURE_5
    };
    enum class Experiments {
        WET_CUP = 1,
        MED_CUP = 2,
        DRY_CUP = 4,
        WATER_RETENTION = 8,
        SORPTION_ISOTHERM = 16,
        WATER_UPTAKE = 32,
        DRYING_0 = 64,
        DRYING_1 = 128
    };

    std::vector<std::string> m_lines; ///< the section's lines, without empty ones at its ends

    bool empty() const { return m_lines.empty(); }
    void read(std::span<const std::string_view> lines);
    void write(std::ostream & out) const;
    bool operator==(const MeasuredData &) const = default;
};

} // namespace MM
