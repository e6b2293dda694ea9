#include "XmlTesting.h"

#include <HYGRION/Interface.h>
#include <HYGRION/StandardClimate.h>

#include <cmath>

using namespace HYGRION;
using testing_xml::caught;

namespace {

constexpr double DAY = 86400;

/// A year of hourly temperatures that a test can foretell.
CCM::ClimateDataLoader location(const std::function<double(double day)> & temperature) {
    CCM::ClimateDataLoader loader;
    for (std::size_t hour = 0; hour < CCM::HOURS_OF_YEAR; ++hour)
        loader.m_data[CCM::Q_TEMPERATURE].push_back(temperature(static_cast<double>(hour) / 24));
    return loader;
}

Interface indoor(Interface::climateTypeIndoor_t type) {
    Interface result;
    result.m_name = "room";
    result.m_type = Interface::type_t::EngineeringIndoor;
    result.m_climateTypeIndoor = type;
    return result;
}

Interface outdoor(Interface::climateTypeOutdoor_t type) {
    Interface result;
    result.m_type = Interface::type_t::EngineeringOutdoor;
    result.m_climateTypeOutdoor = type;
    return result;
}

std::vector<std::string> names(const auto & conditions) {
    std::vector<std::string> result;
    result.reserve(conditions.size());
    for (const auto & condition : conditions)
        result.push_back(condition.m_name);
    return result;
}

/// Temperature [C] and relative humidity [%] at a day of the year.
std::pair<double, double> climateAt(Interface::Generated generated, double day) {
    for (ClimateCond & condition : generated.m_climateConditions)
        condition.prepareCalculation();
    return {generated.m_climateConditions.at(0).calcCurrentValue(day * DAY) - 273.15,
            generated.m_climateConditions.at(1).calcCurrentValue(day * DAY) * 100};
}

using List = std::vector<std::string>;

} // namespace

TEST(StandardClimate, SaturationPressureOfTheStandard) {
    const std::map<double, double> FIGURES{
        {-20,  102.7 },
        {-10,  259.3 },
        {-5,   401.2 },
        {0,    610.5 },
        {10,   1227.3},
        {12,   1401.8},
        {15,   1704.4},
        {17.5, 1998.9},
        {20,   2337.0},
        {25,   3165.9}
    };
    for (const auto & [T, p] : FIGURES) {
        EXPECT_NEAR(saturationPressureISO13788(T), p, 0.06) << T;
        EXPECT_NEAR(saturationTemperatureISO13788(saturationPressureISO13788(T)), T, 1e-9);
    }
}

TEST(StandardClimate, AdaptiveIndoorClimateHasItsCorners) {
    const AdaptiveIndoorClimate high{20, 25, 40, 70};
    for (const double T : {-25.0, -10.0, -4.0, 0.0, 10.0, 13.0, 20.0, 35.0}) {
        EXPECT_NEAR(high.temperature(T), T <= 10 ? 20 : T >= 20 ? 25 : 20 + (T - 10) / 2, 1e-12) << T;
        EXPECT_NEAR(high.relativeHumidity(T), T <= -10 ? 40 : T >= 20 ? 70 : 40 + (T + 10), 1e-12) << T;
    }
}

TEST(StandardClimate, PeriodsOfDIN4108) {
    // Winter and summer of both editions, inside and outside; psat of the plane and vapour pressures as published.
    using enum Interface::climateTypeIndoor_t;
    for (const auto type : {IndoorDIN4108_2001Downwards, IndoorDIN4108_2001Horizontal}) {
        const auto generated = indoor(type).generateConditions({});
        EXPECT_NEAR(climateAt(generated, 15).first, 20, 1e-9);
        EXPECT_NEAR(climateAt(generated, 15).second, 50, 1e-9);
        EXPECT_NEAR(climateAt(generated, 196).first, 12, 1e-9);
        EXPECT_NEAR(climateAt(generated, 196).second, 70, 1e-9);
    }
    const auto inside = indoor(IndoorDIN4108_2014).generateConditions({});
    const auto outside = outdoor(Interface::climateTypeOutdoor_t::OutdoorDIN4108).generateConditions({});
    for (const double day : {0.0, 15.0, 59.9, 335.1, 364.9}) { // 90 days around the middle of January
        EXPECT_NEAR(climateAt(inside, day).first, 20, 1e-9) << day;
        EXPECT_NEAR(climateAt(inside, day).second, 50, 1e-9) << day;
        EXPECT_NEAR(climateAt(outside, day).first, -5, 1e-9) << day;
        EXPECT_NEAR(climateAt(outside, day).second, 80, 1e-9) << day;
    }
    EXPECT_NEAR(0.5 * saturationPressureISO13788(20), 1168, 1);
    EXPECT_NEAR(0.8 * saturationPressureISO13788(-5), 321, 1);
    for (const double day : {151.1, 196.0, 240.9}) {
        for (const auto & generated : {inside, outside}) {
            const auto [T, humidity] = climateAt(generated, day);
            EXPECT_NEAR(saturationPressureISO13788(T), 1700, 0.01) << day;
            EXPECT_NEAR(humidity / 100 * saturationPressureISO13788(T), 1200, 0.01) << day;
        }
    }
    EXPECT_GT(climateAt(outside, 70).first, -5);
    EXPECT_LT(climateAt(outside, 145).first, 14.9);
}

TEST(StandardClimate, DailyMeansLookBackOneDay) {
    const CCM::CCDFile file = location([](double day) { return day < 1 ? 24 : 0; }).quantityAsCCD(CCM::Q_TEMPERATURE);
    const std::vector<double> means = dailyMeans(file.timePoints, file.values);
    EXPECT_NEAR(means[0], 1, 1e-9) << "23 hours of the old year count";
    EXPECT_NEAR(means[23], 24, 1e-9);
    EXPECT_NEAR(means[24], 23, 1e-9);
    EXPECT_NEAR(means[47], 0, 1e-9);
    EXPECT_NEAR(means.back(), 0, 1e-9);
    EXPECT_TRUE(dailyMeans({}, {}).empty());
    const double twoYears = 2 * CCM::SECONDS_OF_YEAR;
    EXPECT_EQ(dailyMeans({0, 3600, twoYears}, {2, 4, 8}), (std::vector<double>{2, 3, 8}));
}

TEST(StandardClimate, WTAFollowsTheOutdoorTemperature) {
    using Load = Interface::indoorWTAType_t;
    struct Row {
        Load load;
        double outdoor, temperature, humidity;
    };
    const Row ROWS[] = {
        {Load::IndoorWTALowLoad,      -15, 20,   25  },
        {Load::IndoorWTANormalLoad,   5,   20,   45  },
        {Load::IndoorWTANormalp5Load, 15,  22.5, 60  },
        {Load::IndoorWTAHighLoad,     25,  25,   70  },
        {Load::IndoorWTAUserData,     15,  21,   52.5},
    };
    for (const Row & row : ROWS) {
        Interface room = indoor(Interface::climateTypeIndoor_t::IndoorWTA);
        room.m_indoorWTAType = row.load;
        room.m_para.set(Interface::para_t::WTALowTemperature, 18, "C");
        room.m_para.set(Interface::para_t::WTAHighTemperature, 24, "C");
        room.m_para.set(Interface::para_t::WTALowRelativeHumidity, 40, "%");
        room.m_para.set(Interface::para_t::WTAHighRelativeHumidity, 55, "%");
        const auto generated = room.generateConditions(location([&](double) { return row.outdoor; }));
        EXPECT_EQ(names(generated.m_climateConditions), (List{":IndoorTemperatureWTA", ":IndoorRelativeHumidityWTA"}));
        EXPECT_EQ(names(generated.m_boundaryConditions),
                  (List{":IndoorHeatConductionWTA", ":IndoorVaporDiffusionWTA"}));
        const auto [T, humidity] = climateAt(generated, 100.3);
        EXPECT_NEAR(T, row.temperature, 1e-9) << row.outdoor;
        EXPECT_NEAR(humidity, row.humidity, 1e-9) << row.outdoor;
    }
    const auto ex = caught([] { indoor(Interface::climateTypeIndoor_t::IndoorWTA).generateConditions({}); });
    EXPECT_EQ(ex.cause(),
              "Interface 'room' need proper location climate data. The currently selected data are not valid.");
    EXPECT_EQ(ex.chain().front().where, "[Interface::generateWTAIndoorClimateData]");
    EXPECT_THROW(indoor(Interface::climateTypeIndoor_t::IndoorWTA).generateConditions(location([](double day) {
        return day > 300 ? NAN : 5;
    })),
                 KOR::Exception);
}

TEST(StandardClimate, GeneratedLawsFollowStandardAndUser) {
    using enum Interface::climateTypeIndoor_t;
    const auto heat = [](const Interface::Generated & generated) {
        return *generated.m_boundaryConditions.at(0).m_para.value(BoundaryCond::para_t::ExchangeCoefficient, "W/m2K");
    };
    EXPECT_NEAR(1 / heat(indoor(IndoorDIN4108_2001Downwards).generateConditions({})), 0.17, 1e-12);
    EXPECT_NEAR(1 / heat(indoor(IndoorDIN4108_2001Horizontal).generateConditions({})), 0.13, 1e-12);
    EXPECT_NEAR(1 / heat(indoor(IndoorDIN4108_2014).generateConditions({})), 0.25, 1e-12);

    Interface user = indoor(IndoorUserData);
    user.m_para.set(Interface::para_t::CustomIndoorTemperature, 295.15, "K");
    user.m_para.set(Interface::para_t::CustomIndoorRelativeHumidity, 0.4, "---");
    user.m_para.set(Interface::para_t::CustomIndoorHeatTransferCoefficient, 6, "W/m2K");
    user.m_flag.set(Interface::flag_t::UseVapDiff, false);
    const auto generated = user.generateConditions({});
    EXPECT_EQ(names(generated.m_climateConditions), (List{":IndoorTemperatureUser", ":IndoorRelativeHumidityUser"}));
    EXPECT_EQ(names(generated.m_boundaryConditions), (List{":IndoorHeatConduction"}));
    EXPECT_EQ(heat(generated), 6);
    EXPECT_NEAR(climateAt(generated, 1).first, 22, 1e-9);
    EXPECT_NEAR(climateAt(generated, 1).second, 40, 1e-9);

    Interface din = outdoor(Interface::climateTypeOutdoor_t::OutdoorDIN4108);
    din.m_flag.set(Interface::flag_t::UseStandardRain, true);
    EXPECT_EQ(names(din.generateConditions({}).m_boundaryConditions),
              (List{":OutdoorHeatConduction", ":OutdoorVaporDiffusion"}));
    EXPECT_NEAR(heat(din.generateConditions({})), 25, 1e-12);

    Interface weather = outdoor(Interface::climateTypeOutdoor_t::OutdoorUserData);
    for (int i = 0; i < KeywordList::count<Interface::flag_t>(); ++i)
        weather.m_flag.set(static_cast<Interface::flag_t>(i), true);
    const auto all = weather.generateConditions({});
    EXPECT_EQ(names(all.m_boundaryConditions),
              (List{":OutdoorHeatConduction", ":OutdoorVaporDiffusion", ":OutdoorShortWaveRadiation",
                    ":OutdoorLongWaveRadiation", ":OutdoorWindDrivenRain"}));
    EXPECT_NEAR(heat(all), 20, 1e-12) << "the radiant part is modelled on its own";
    // Every reference names a generated climate condition of its quantity; every law has what its kind needs.
    for (const BoundaryCond & law : all.m_boundaryConditions) {
        EXPECT_NO_THROW(law.checkParameters());
        for (const auto & [quantity, name] : law.m_ccReferences) {
            const auto & known = all.m_climateConditions;
            EXPECT_TRUE(std::any_of(known.begin(), known.end(), [&, wanted = quantity](const ClimateCond & one) {
                return one.m_name.starts_with(":Outdoor") && one.m_type == wanted;
            })) << name;
        }
    }
    Interface detailed;
    EXPECT_TRUE(detailed.generateConditions({}).m_climateConditions.empty());
}
