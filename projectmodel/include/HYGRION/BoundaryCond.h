#pragma once

#include <HYGRION/ClimateCond.h>
#include <HYGRION/NamedSet.h>

#include <map>
#include <string>

class TiXmlElement;

namespace HYGRION {

/// An exchange law at a surface: which balance, which model, its coefficients and the climate that drives it.
class BoundaryCond {
public:
    enum class condition_t {
        HeatConduction,
        VaporDiffusion,
        WindDrivenRain,
        ShortWaveRadiation,
        LongWaveRadiation,
        WaterContact,
        AirConvection,
        VOCDiffusion,
        SolutionContact
    };
    enum class kind_t {
        SurfaceValue,
        ImposedFlux,
        Exchange,
        ExchangeVelocity,
        PipeCollectorModel,
        StandardRainModel,
        StandardRadiationModel,
        LongWaveComponents,
        HydrostaticProfile,
        FlowCoefficientModel
    };
    enum class para_t {
        ExchangeCoefficient,
        ExchangeSlope,
        ExchangeExponent,
        ExposureCoefficient,
        MinRainTemperature,
        SurfaceAbsorptionCoefficient,
        SurfaceEmissionCoefficient,
        SDValue,
        PipeCollectorDiameter,
        PipeCollectorThickness,
        PipeCollectorLength,
        PipeCollectorThermalConductivity,
        PipeCollectorFluidHeatCapacity,
        PipeCollectorModelFraction,
        PipeCollectorGlycolContent,
        FlowCoefficient,
        SurfaceLiquidFraction
    };
    enum class flag_t { UseVaporPressure, IncludeRHandClouds, IncludeGround, FluidSettingsHeatPipe };
    enum class output_t { PipeCollectorTr, PipeCollectorQdot, PipeCollectorT0, PipeCollectorHP };
    enum class intpara_t { HeatingCooling, HP_GlycolKind };

    std::string m_name;
    condition_t m_type = condition_t::HeatConduction;
    kind_t m_kind = kind_t::Exchange;
    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag;
    IntParaSet<intpara_t> m_intPara;
    ClimateReferences m_ccReferences;
    std::string m_schedule;
    std::string m_otherInterfaceReference;
    std::string m_contactConditionName;

    /// Throws ("[BoundaryCond::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[BoundaryCond::checkParameters]"), naming condition and parameter, missing parameters of the kind and
    /// values out of their limits.
    void checkParameters() const;

    bool operator==(const BoundaryCond &) const = default;
};

} // namespace HYGRION
