#pragma once

#include <HYGRION/ClimateCond.h>
#include <HYGRION/NamedSet.h>

#include <map>
#include <string>

class TiXmlElement;

namespace HYGRION {

/// A source or sink inside the construction.
class FieldCond {
public:
    enum class condition_t {
        EnergySource,
        WaterSource,
        LongWaveRadiation,
        AirChange,
        ConvectiveSource,
        GroundWaterFlow,
        VOCSource,
        RainSource,
        HeatExchanger
    };
    enum class para_t {
        LeftEmissionCoefficient,
        RightEmissionCoefficient,
        TopEmissionCoefficient,
        BottomEmissionCoefficient,
        BackEmissionCoefficient,
        FrontEmissionCoefficient,
        AirPressure,
        MaxWaterContent,
        MinWaterContent,
        GasConvectionGastype,
        GasConvectionProportion,
        GasConvectionInclination,
        ConvectiveSourcekCL,
        ConvectiveSourceHeight,
        ConvectiveSourcePressure,
        LimitT,
        LimitDeltaT,
        RainFraction,
        HeatTransferCoefficient
    };
    enum class intpara_t { FlowDirection, HeatingCooling };
    enum class flag_t { UseFlowRate, LongWaveRadiationX, LongWaveRadiationY, LongWaveRadiationZ, UseSource };
    enum class additionalClimate_t { AmbientTemperature };

    std::string m_name;
    condition_t m_type = condition_t::EnergySource;
    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag;
    IntParaSet<intpara_t> m_intPara;
    ClimateReferences m_ccReferences;
    std::map<additionalClimate_t, std::string> m_additionalReferences; ///< names of climate conditions
    std::string m_schedule;
    std::string m_otherInterfaceReference;

    /// Throws ("[FieldCond::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[FieldCond::checkParameters]"), naming condition and parameter, values out of their limits.
    void checkParameters() const;

    bool operator==(const FieldCond &) const = default;
};

} // namespace HYGRION
