#include <HYGRION/Interface.h>

#include <HYGRION/StandardClimate.h>

#include <KOR/Exception.h>

#include <algorithm>

/// What engineering interfaces stand for: the climate and boundary conditions that the solver needs.
namespace HYGRION {

namespace {

using Condition = ClimateCond::condition_t;
using Law = BoundaryCond::condition_t;
using Kind = BoundaryCond::kind_t;
using Coefficient = BoundaryCond::para_t;

//  Surface resistances [m2K/W] as transfer coefficients [W/m2K].
constexpr double INDOOR_HEAT_DOWNWARDS = 1 / 0.17;  ///< ISO 6946, heat flow downwards
constexpr double INDOOR_HEAT_HORIZONTAL = 1 / 0.13; ///< ISO 6946, heat flow horizontal
constexpr double INDOOR_HEAT_DIN2014 = 1 / 0.25;    ///< DIN 4108-3:2014, moisture protection
constexpr double OUTDOOR_HEAT = 1 / 0.04;           ///< ISO 6946 and DIN 4108-3
constexpr double OUTDOOR_HEAT_CONVECTIVE = 20;      ///< ISO 6946: 4 + 4 v at a wind velocity v of 4 m/s
//  Vapour transfer [s/m]: customary in hygrothermal simulation; as sd-values about 8 mm and 3 mm of air.
constexpr double INDOOR_VAPOR = 2.5e-8;
constexpr double OUTDOOR_VAPOR = 7.5e-8;
constexpr double SHORT_WAVE_ADSORPTION = 0.6; ///< mid-tone render
constexpr double LONG_WAVE_EMISSION = 0.9;    ///< mineral surfaces
constexpr double RAIN_ADHERING = 0.7;         ///< what of the rain stays on a wall

/// The limits of the adaptive indoor climate by moisture load, in the order of indoorWTAType_t.
/// High load: EN 15026 class B; normal load: class A; low load: 5 points below; the design set of WTA 6-2: 5 above.
constexpr AdaptiveIndoorClimate WTA_LOADS[] = {
    {20, 25, 25, 55},
    {20, 25, 30, 60},
    {20, 25, 35, 65},
    {20, 25, 40, 70},
};

ClimateCond tabulated(std::string name, const CCM::CCDFile & series, int startYear = ClimateCond::NO_YEAR) {
    ClimateCond condition;
    condition.m_name = std::move(name);
    condition.m_type = KeywordList::Enumeration<Condition>(series.quantity);
    condition.m_kind = ClimateCond::kind_t::TabulatedData;
    condition.m_flag.set(ClimateCond::flag_t::UseInterpolation, true);
    condition.m_flag.set(ClimateCond::flag_t::Cyclic, series.timePoints.back() <= CCM::SECONDS_OF_YEAR);
    condition.setData(series, startYear);
    return condition;
}

ClimateCond constant(std::string name, Condition type, double value, std::string_view unit) {
    ClimateCond condition;
    condition.m_name = std::move(name);
    condition.m_type = type;
    condition.m_kind = ClimateCond::kind_t::Constant;
    condition.m_para.set(ClimateCond::para_t::ConstantValue, value, unit);
    return condition;
}

/// A quantity of the location's climate data.
ClimateCond ofLocation(std::string name, Condition type) {
    ClimateCond condition;
    condition.m_name = std::move(name);
    condition.m_type = type;
    condition.m_kind = ClimateCond::kind_t::CCM;
    condition.m_flag.set(ClimateCond::flag_t::UseInterpolation, true);
    return condition;
}

/// The name of the generated condition of a quantity.
std::string nameOf(const Interface::Generated & generated, Condition type) {
    const auto & conditions = generated.m_climateConditions;
    return std::find_if(conditions.begin(), conditions.end(), [type](const auto & one) { return one.m_type == type; })
        ->m_name;
}

BoundaryCond boundary(const Interface::Generated & generated, std::string name, Law law, Kind kind,
                      std::initializer_list<Condition> quantities) {
    BoundaryCond condition;
    condition.m_name = std::move(name);
    condition.m_type = law;
    condition.m_kind = kind;
    for (const Condition quantity : quantities)
        condition.m_ccReferences.emplace(quantity, nameOf(generated, quantity));
    return condition;
}

void addPeriods(Interface::Generated & generated, const PeriodClimate & climate, const char * temperatureName,
                const char * humidityName) {
    const auto [temperature, humidity] = climate.year();
    generated.m_climateConditions.push_back(tabulated(temperatureName, temperature));
    generated.m_climateConditions.push_back(tabulated(humidityName, humidity));
}

double indoorHeatTransfer(Interface::climateTypeIndoor_t type) {
    if (type == Interface::climateTypeIndoor_t::IndoorDIN4108_2001Downwards)
        return INDOOR_HEAT_DOWNWARDS;
    return type == Interface::climateTypeIndoor_t::IndoorDIN4108_2014 ? INDOOR_HEAT_DIN2014 : INDOOR_HEAT_HORIZONTAL;
}

} // namespace

void Interface::generateWTAIndoorClimateData(const CCM::ClimateDataLoader & location, CCM::CCDFile & temperature,
                                             CCM::CCDFile & relativeHumidity) const {
    const CCM::CCDFile outdoor = location.quantityAsCCD(CCM::Q_TEMPERATURE);
    const auto isPlausible = [](double T) {
        const CCM::ClimateQuantity & limits = CCM::CLIMATE_QUANTITIES[CCM::Q_TEMPERATURE];
        return T >= limits.minimum && T <= limits.maximum;
    };
    if (outdoor.values.empty() || !std::all_of(outdoor.values.begin(), outdoor.values.end(), isPlausible))
        throw KOR::Exception(
            KOR::text("Interface '%1' need proper location climate data. The currently selected data are "
                      "not valid.",
                      m_name),
            "[Interface::generateWTAIndoorClimateData]");

    const indoorWTAType_t load = m_indoorWTAType.value_or(indoorWTAType_t::IndoorWTANormalLoad);
    AdaptiveIndoorClimate climate;
    if (load != indoorWTAType_t::IndoorWTAUserData) {
        climate = WTA_LOADS[static_cast<std::size_t>(load)];
    } else {
        climate.m_lowTemperature = m_para.value(para_t::WTALowTemperature, "C").value_or(climate.m_lowTemperature);
        climate.m_highTemperature = m_para.value(para_t::WTAHighTemperature, "C").value_or(climate.m_highTemperature);
        climate.m_lowHumidity = m_para.value(para_t::WTALowRelativeHumidity, "%").value_or(climate.m_lowHumidity);
        climate.m_highHumidity = m_para.value(para_t::WTAHighRelativeHumidity, "%").value_or(climate.m_highHumidity);
    }
    temperature = {"Temperature", "C", outdoor.comment, outdoor.timePoints, {}};
    relativeHumidity = {"RelativeHumidity", "%", outdoor.comment, outdoor.timePoints, {}};
    for (const double mean : dailyMeans(outdoor.timePoints, outdoor.values)) {
        temperature.values.push_back(climate.temperature(mean));
        relativeHumidity.values.push_back(climate.relativeHumidity(mean));
    }
}

void Interface::generateIndoorClimate(Generated & generated, const CCM::ClimateDataLoader & location) const {
    switch (m_climateTypeIndoor.value_or(climateTypeIndoor_t::IndoorDIN4108_2014)) {
    case climateTypeIndoor_t::IndoorDIN4108_2001Downwards:
    case climateTypeIndoor_t::IndoorDIN4108_2001Horizontal:
        addPeriods(generated, DIN4108_2001_INDOOR, ":IndoorTemperaturDIN4108_2001",
                   ":IndoorRelativeHumidityDIN4108_2001");
        break;
    case climateTypeIndoor_t::IndoorDIN4108_2014:
        addPeriods(generated, DIN4108_2014_INDOOR, ":IndoorTemperaturDIN4108_2014",
                   ":IndoorRelativeHumidityDIN4108_2014");
        break;
    case climateTypeIndoor_t::IndoorWTA: {
        CCM::CCDFile temperature, humidity;
        generateWTAIndoorClimateData(location, temperature, humidity);
        generated.m_climateConditions.push_back(tabulated(":IndoorTemperatureWTA", temperature, location.m_startYear));
        generated.m_climateConditions.push_back(
            tabulated(":IndoorRelativeHumidityWTA", humidity, location.m_startYear));
        break;
    }
    case climateTypeIndoor_t::IndoorUserData:
        generated.m_climateConditions.push_back(
            constant(":IndoorTemperatureUser", Condition::Temperature,
                     m_para.value(para_t::CustomIndoorTemperature, "C").value_or(20), "C"));
        generated.m_climateConditions.push_back(
            constant(":IndoorRelativeHumidityUser", Condition::RelativeHumidity,
                     m_para.value(para_t::CustomIndoorRelativeHumidity, "%").value_or(50), "%"));
        break;
    }
}

void Interface::generateIndoorBoundary(Generated & generated) const {
    const auto climate = m_climateTypeIndoor.value_or(climateTypeIndoor_t::IndoorDIN4108_2014);
    const bool isWTA = climate == climateTypeIndoor_t::IndoorWTA;
    if (m_flag.isEnabled(flag_t::UseHeatCond, true)) {
        BoundaryCond heat = boundary(generated, isWTA ? ":IndoorHeatConductionWTA" : ":IndoorHeatConduction",
                                     Law::HeatConduction, Kind::Exchange, {Condition::Temperature});
        heat.m_para.set(
            Coefficient::ExchangeCoefficient,
            m_para.value(para_t::CustomIndoorHeatTransferCoefficient, "W/m2K").value_or(indoorHeatTransfer(climate)),
            "W/m2K");
        generated.m_boundaryConditions.push_back(std::move(heat));
    }
    if (m_flag.isEnabled(flag_t::UseVapDiff, true)) {
        BoundaryCond vapor =
            boundary(generated, isWTA ? ":IndoorVaporDiffusionWTA" : ":IndoorVaporDiffusion", Law::VaporDiffusion,
                     Kind::Exchange, {Condition::Temperature, Condition::RelativeHumidity});
        vapor.m_para.set(Coefficient::ExchangeCoefficient,
                         m_para.value(para_t::CustomIndoorVaporTransferCoefficient, "s/m").value_or(INDOOR_VAPOR),
                         "s/m");
        generated.m_boundaryConditions.push_back(std::move(vapor));
    }
}

void Interface::generateOutdoorClimate(Generated & generated) const {
    if (m_climateTypeOutdoor.value_or(climateTypeOutdoor_t::OutdoorDIN4108) == climateTypeOutdoor_t::OutdoorDIN4108) {
        addPeriods(generated, DIN4108_2014_OUTDOOR, ":OutdoorTemperaturDIN4108", ":OutdoorRelativeHumidityDIN4108");
        return;
    }
    const auto add = [&generated](bool isUsed, std::initializer_list<Condition> types) {
        for (const Condition type : types)
            if (isUsed)
                generated.m_climateConditions.push_back(ofLocation(":Outdoor" + KeywordList::Keyword(type), type));
    };
    add(true, {Condition::Temperature, Condition::RelativeHumidity});
    add(m_flag.isEnabled(flag_t::UseShortWaveRadiation), {Condition::SWRadiationDirect, Condition::SWRadiationDiffuse});
    add(m_flag.isEnabled(flag_t::UseLongWaveRadiation), {Condition::LWRadiationSkyEmission});
    add(m_flag.isEnabled(flag_t::UseStandardRain),
        {Condition::RainFluxHorizontal, Condition::WindDirection, Condition::WindVelocity});
}

void Interface::generateOutdoorBoundary(Generated & generated) const {
    // The climate of DIN 4108-3 knows neither sun nor sky nor rain.
    const bool hasWeather = m_climateTypeOutdoor == climateTypeOutdoor_t::OutdoorUserData;
    const bool usesLongWave = hasWeather && m_flag.isEnabled(flag_t::UseLongWaveRadiation);
    const auto add = [&](const char * name, Law law, Kind kind, std::initializer_list<Condition> quantities) -> auto & {
        return generated.m_boundaryConditions.emplace_back(boundary(generated, name, law, kind, quantities)).m_para;
    };
    const auto given = [this](para_t key, std::string_view unit, double byDefault) {
        return m_para.value(key, unit).value_or(byDefault);
    };
    if (m_flag.isEnabled(flag_t::UseHeatCond, true)) {
        // With long-wave exchange the radiant part of the transfer coefficient is modelled on its own.
        const double convective =
            given(para_t::OutdoorConvectiveHeatTransferCoefficient, "W/m2K", OUTDOOR_HEAT_CONVECTIVE);
        const double radiant =
            given(para_t::OutdoorRadiantHeatTransferCoefficient, "W/m2K", OUTDOOR_HEAT - OUTDOOR_HEAT_CONVECTIVE);
        add(":OutdoorHeatConduction", Law::HeatConduction, Kind::Exchange, {Condition::Temperature})
            .set(Coefficient::ExchangeCoefficient,
                 usesLongWave ? convective
                              : given(para_t::OutdoorHeatTransferCoefficient, "W/m2K", convective + radiant),
                 "W/m2K");
    }
    if (m_flag.isEnabled(flag_t::UseVapDiff, true)) {
        auto & para = add(":OutdoorVaporDiffusion", Law::VaporDiffusion, Kind::Exchange,
                          {Condition::Temperature, Condition::RelativeHumidity});
        para.set(Coefficient::ExchangeCoefficient, given(para_t::OutdoorVaporTransferCoefficient, "s/m", OUTDOOR_VAPOR),
                 "s/m");
        if (m_para.contains(para_t::OutdoorSdValue))
            para.set(Coefficient::SDValue, given(para_t::OutdoorSdValue, "m", 0), "m");
    }
    if (hasWeather && m_flag.isEnabled(flag_t::UseShortWaveRadiation))
        add(":OutdoorShortWaveRadiation", Law::ShortWaveRadiation, Kind::StandardRadiationModel,
            {Condition::SWRadiationDirect, Condition::SWRadiationDiffuse})
            .set(Coefficient::SurfaceAbsorptionCoefficient,
                 given(para_t::OutdoorAdsorptionCoefficient, "---", SHORT_WAVE_ADSORPTION), "---");
    if (usesLongWave)
        add(":OutdoorLongWaveRadiation", Law::LongWaveRadiation, Kind::LongWaveComponents,
            {Condition::LWRadiationSkyEmission})
            .set(Coefficient::SurfaceEmissionCoefficient,
                 given(para_t::OutdoorEmissionCoefficient, "---", LONG_WAVE_EMISSION), "---");
    if (hasWeather && m_flag.isEnabled(flag_t::UseStandardRain))
        add(":OutdoorWindDrivenRain", Law::WindDrivenRain, Kind::StandardRainModel,
            {Condition::RainFluxHorizontal, Condition::WindDirection, Condition::WindVelocity, Condition::Temperature})
            .set(Coefficient::ExposureCoefficient,
                 given(para_t::OutdoorRainShelteringCoefficient, "---", RAIN_ADHERING), "---");
}

Interface::Generated Interface::generateConditions(const CCM::ClimateDataLoader & location) const {
    Generated generated;
    if (m_type == type_t::EngineeringIndoor) {
        generateIndoorClimate(generated, location);
        generateIndoorBoundary(generated);
    } else if (m_type == type_t::EngineeringOutdoor) {
        generateOutdoorClimate(generated);
        generateOutdoorBoundary(generated);
    }
    return generated;
}

} // namespace HYGRION
