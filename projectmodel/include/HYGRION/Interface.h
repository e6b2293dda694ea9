#pragma once

#include <HYGRION/BoundaryCond.h>
#include <HYGRION/ClimateCond.h>
#include <HYGRION/NamedSet.h>

#include <optional>
#include <string>
#include <vector>

class TiXmlElement;
namespace CCM {
class ClimateDataLoader;
struct CCDFile;
} // namespace CCM

namespace HYGRION {

/// A surface of the construction and the climate that it faces.
class Interface {
public:
    enum class type_t { EngineeringIndoor, EngineeringOutdoor, Detailed, External };
    enum class climateTypeIndoor_t {
        IndoorDIN4108_2001Downwards,
        IndoorDIN4108_2001Horizontal,
        IndoorDIN4108_2014,
        IndoorWTA,
        IndoorUserData
    };
    enum class indoorWTAType_t {
        IndoorWTALowLoad,
        IndoorWTANormalLoad,
        IndoorWTANormalp5Load,
        IndoorWTAHighLoad,
        IndoorWTAUserData
    };
    enum class climateTypeOutdoor_t { OutdoorDIN4108, OutdoorUserData };
    enum class fmuInterface_t { FMUThermal, FMUHygrothermal };
    enum class otherSideType_t { SideIndoor, SideOutdoor, SideGround, SideWater, SideOther };
    enum class fmuInputVariables_t {
        FMIInputTemperature,
        FMIInputRelativeHumidity,
        FMIInputWaterFlux,
        FMIInputWaterFluxTemperature
    };
    enum class para_t {
        Orientation,
        Inclination,
        Area,
        CustomIndoorTemperature,
        CustomIndoorRelativeHumidity,
        CustomIndoorHeatTransferCoefficient,
        CustomIndoorVaporTransferCoefficient,
        OutdoorHeatTransferCoefficient,
        OutdoorConvectiveHeatTransferCoefficient,
        OutdoorRadiantHeatTransferCoefficient,
        OutdoorVaporTransferCoefficient,
        OutdoorSdValue,
        OutdoorAdsorptionCoefficient,
        OutdoorEmissionCoefficient,
        OutdoorRainShelteringCoefficient,
        WTALowTemperature,
        WTAHighTemperature,
        WTALowRelativeHumidity,
        WTAHighRelativeHumidity
    };
    enum class flag_t { UseHeatCond, UseVapDiff, UseShortWaveRadiation, UseLongWaveRadiation, UseStandardRain };

    /// What an engineering interface stands for; all names begin with a colon.
    struct Generated {
        std::vector<ClimateCond> m_climateConditions; ///< with their data, ready for prepareCalculation
        std::vector<BoundaryCond> m_boundaryConditions;
    };

    std::string m_name;
    type_t m_type = type_t::Detailed;
    std::vector<std::string> m_bcReferences; ///< names of boundary conditions
    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag;
    std::optional<climateTypeIndoor_t> m_climateTypeIndoor;
    std::optional<indoorWTAType_t> m_indoorWTAType;
    std::optional<climateTypeOutdoor_t> m_climateTypeOutdoor;
    std::optional<fmuInterface_t> m_fmuInterfaceType;
    std::optional<otherSideType_t> m_otherSideType;

    /// Throws ("[Interface::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[Interface::checkParameters]"), naming interface and parameter, values out of their limits and an
    /// engineering interface of which the climate, or the user's data for it, is missing.
    void checkParameters() const;

    /// Indoor temperature [C] and relative humidity [%] of the WTA model at the time points of the location's temperature.
    /// Throws ("[Interface::generateWTAIndoorClimateData]") without valid data of the location.
    void generateWTAIndoorClimateData(const CCM::ClimateDataLoader & location, CCM::CCDFile & temperature,
                                      CCM::CCDFile & relativeHumidity) const;
    /// The climate and boundary conditions of an engineering interface; nothing for other types. Coefficients that the
    /// interface does not give are those of its standard.
    /// \param location needed by the WTA model only
    Generated generateConditions(const CCM::ClimateDataLoader & location) const;

    bool operator==(const Interface &) const = default;

private:
    void generateIndoorClimate(Generated & generated, const CCM::ClimateDataLoader & location) const;
    void generateOutdoorClimate(Generated & generated) const;
    void generateIndoorBoundary(Generated & generated) const;
    void generateOutdoorBoundary(Generated & generated) const;
};

} // namespace HYGRION
