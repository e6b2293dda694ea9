#pragma once

#include <HYGRION/NamedSet.h>

#include <KOR/LinearSpline.h>
#include <KOR/Path.h>

#include <array>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

class TiXmlElement;
namespace CCM {
struct CCDFile;
}

namespace HYGRION {

/// One climate quantity over time: a constant, a sine, tabulated data or a value from outside.
class ClimateCond {
public:
    enum class condition_t {
        Temperature,
        RelativeHumidity,
        VaporPressure,
        GasPressure,
        RainFluxNormal,
        RainFluxHorizontal,
        WindDirection,
        WindVelocity,
        SWRadiationImposed,
        SWRadiationDirect,
        SWRadiationDiffuse,
        LWRadiationFlux,
        CloudCoverage,
        SkyTemperature,
        LWRadiationSkyEmission,
        LWRadiationGroundEmission,
        PressureHead,
        SolutionConcentration,
        WaterFlux,
        HeatFlux,
        VOCDensity,
        WaterSource,
        EnergySource,
        VOCSource,
        FluidFlowRate,
        MassFlowRate,
        FluidChangeRate,
        Percentage,
        HeatTransferCoefficient,
        Power,
        Velocity
    };
    enum class kind_t { Constant, Sinus, DoubleSinus, TabulatedData, External, CCM };
    enum class para_t {
        ConstantValue,
        MeanValue,
        Amplitude1,
        OscPeriod1,
        PhaseShift1,
        Amplitude2,
        OscPeriod2,
        PhaseShift2,
        ShiftValue,
        MaxClippingValue,
        MinClippingValue
    };
    enum class flag_t { UseInterpolation, ExtendData, Cyclic };
    static constexpr int NO_YEAR = -9999;

    std::string m_name;
    condition_t m_type = condition_t::Temperature;
    std::optional<kind_t> m_kind;
    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag; ///< all off unless set
    KOR::Path m_filename;
    std::string m_species; ///< the pollutant of VOC quantities

    /// The base unit of the quantity, in which values are calculated.
    KOR::Unit baseUnit() const;

    /// Throws ("[ClimateCond::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[ClimateCond::checkParameters]"), naming condition and parameter, what prepareCalculation would refuse as
    /// far as that needs no data, a missing file name and limits that contradict one another.
    void checkParameters() const;

    /// Gives a condition of kind TabulatedData or CCM its data. Their quantity is the keyword of the type or the word
    /// that climate files use for it.
    /// \param startYear the year in whose first second the time points start; needed by data that are not cyclic
    /// Throws ("[ClimateCond::setData]"): wrong quantity, no data, not usable cyclically, no function of time.
    void setData(const CCM::CCDFile & climateData, int startYear = NO_YEAR);
    /// What setData gave: values [base unit] over time [s]; empty without data.
    const KOR::LinearSpline & data() const { return m_calculation.m_data; }
    /// Gives a condition of kind External its value [base unit].
    void setExternalValue(double value) { m_calculation.m_externalValue = value; }
    /// Makes calcCurrentValue possible. Throws ("[ClimateCond::prepareCalculation]"): a missing kind, parameter or data.
    void prepareCalculation();
    /// The value [base unit of the quantity] at \p t [s since the start of the start year].
    ///
    /// Sine: MeanValue + Amplitude sin(2 pi (t - PhaseShift) / OscPeriod), the phase shift as a time; as an angle it is
    /// subtracted from the sine's argument. Tabulated data are step functions unless UseInterpolation is set; cyclic ones
    /// continue from the year's last point to its first. ShiftValue is added first, then the value is clipped.
    /// An amplitude or shift in C is a difference of temperatures.
    /// Throws ("[ClimateCond::calcCurrentValue]") for a time outside the data and without prepareCalculation.
    double calcCurrentValue(double t) const;

    bool operator==(const ClimateCond &) const = default;

private:
    /// What prepareCalculation makes of the definition [base units]. It is no part of the condition's value.
    struct Calculation {
        struct Wave {
            double m_amplitude = 0;
            double m_frequency = 0; ///< [1/s], angular
            double m_phase = 0;     ///< [Rad], subtracted
        };
        bool m_isPrepared = false;
        bool m_interpolates = false;
        bool m_extends = false;
        bool m_isCyclic = false;
        int m_startYear = NO_YEAR;
        double m_constant = 0; ///< constant or mean value
        std::array<Wave, 2> m_waves;
        KOR::LinearSpline m_data;   ///< as given
        KOR::LinearSpline m_series; ///< as evaluated: with the points that close the year, if cyclic
        double m_shift = 0;
        double m_minimum = -std::numeric_limits<double>::infinity();
        double m_maximum = std::numeric_limits<double>::infinity();
        double m_externalValue = std::numeric_limits<double>::quiet_NaN();
        bool operator==(const Calculation &) const { return true; }
    };

    void requireParameters(const char * where) const;
    double baseValue(para_t key, const char * where) const;
    void checkBounds(double low, double high, const char * where) const;
    double difference(para_t key, const char * where) const;
    Calculation::Wave wave(para_t amplitude, para_t period, para_t phase, const char * where) const;
    void closeYear();
    double dataValue(double t) const;

    Calculation m_calculation;
};

/// The climate conditions that supply the quantities of a boundary or field condition, by name.
using ClimateReferences = std::map<ClimateCond::condition_t, std::string>;

} // namespace HYGRION
