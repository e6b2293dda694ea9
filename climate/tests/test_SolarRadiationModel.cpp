#include "ClimateTest.h"

#include <CCM/SolarRadiationModel.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <numbers>

using namespace CCM;

namespace {

constexpr double PI = std::numbers::pi;
constexpr double DEGREE = PI / 180;

/// Constant sky: the same radiation all year.
SolarRadiationModel modelWith(double direct, double diffuse) {
    SolarRadiationModel model;
    model.m_climate = annualClimate();
    model.m_climate.m_data[Q_DIRECT_RADIATION].assign(HOURS_OF_YEAR, direct);
    model.m_climate.m_data[Q_DIFFUSE_RADIATION].assign(HOURS_OF_YEAR, diffuse);
    model.m_climate.m_data[Q_AIR_PRESSURE].assign(HOURS_OF_YEAR, MISSING);
    return model;
}

constexpr double JUNE_NOON = 171.5 * 86400;
constexpr double JUNE_MIDNIGHT = 171.0 * 86400;

// *** The sun ***

TEST(SunPosition, StandsNearTheExactPositions) {
    const std::string path = HYG_SHARED_CLIMATE "reference/sun_position.csv";
    HYG_REQUIRE_SHARED(path);
    CsvTable table(path);
    double largestAltitude = 0;
    double largestAzimuth = 0;
    while (table.next()) {
        const double t = (table.number("day_of_year") - 1) * 86400 + table.number("hour") * 3600;
        const SunPosition sun = sunPosition(t, table.number("lat_deg_N") * DEGREE, table.number("lon_deg_E") * DEGREE,
                                            table.number("tz_h_E_of_UTC"));
        const double exactAltitude = table.number("spa_altitude_deg");
        const double altitude = std::abs(sun.altitude / DEGREE - exactAltitude);
        const double azimuth =
            std::abs(std::remainder(sun.azimuth / DEGREE - table.number("spa_azimuth_deg_from_N_cw"), 360));
        EXPECT_LT(altitude, 0.8) << table.text("location") << table.text("local_standard_time");
        largestAltitude = std::max(largestAltitude, altitude);
        if (exactAltitude < 80) {
            EXPECT_LT(azimuth, 0.8) << table.text("location") << table.text("local_standard_time");
            largestAzimuth = std::max(largestAzimuth, azimuth);
        }
        EXPECT_NEAR(std::hypot(sun.north, sun.east, sun.sinAltitude), 1, 1e-12);
        EXPECT_NEAR(std::cos(sun.azimuth) * std::cos(sun.altitude), sun.north, 1e-12);
        EXPECT_NEAR(std::sin(sun.azimuth) * std::cos(sun.altitude), sun.east, 1e-12);
    }
    RecordProperty("largest_altitude_deviation_deg", KOR::toString(largestAltitude, 4));
    RecordProperty("largest_azimuth_deviation_deg", KOR::toString(largestAzimuth, 4));
    std::cout << "largest deviation: altitude " << largestAltitude << ", azimuth " << largestAzimuth << " degrees\n";
}

TEST(SunPosition, RisesAndSetsInTime) {
    const std::string path = HYG_SHARED_CLIMATE "reference/sun_rise_set_geometric.csv";
    HYG_REQUIRE_SHARED(path);
    struct Place {
        double latitude, longitude, timeZone;
    };
    const std::map<std::string, Place> places{
        {"Berlin", {52.5, 13.4, 1}     },
        {"Golden", {39.74, -105.18, -7}},
        {"Quito",  {-0.18, -78.47, -5} }
    };
    CsvTable table(path);
    int count = 0;
    while (table.next()) {
        const auto place = places.find(table.text("location"));
        if (place == places.end() || !table.text("state").empty())
            continue;
        const std::string date = table.text("date");
        constexpr int DAYS_BEFORE[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
        const double day = DAYS_BEFORE[std::stoi(date.substr(5, 2)) - 1] + std::stoi(date.substr(8, 2)) - 1;
        for (const char * column : {"sunrise_h_LST", "sunset_h_LST"}) {
            const double t = day * 86400 + table.number(column) * 3600;
            const SunPosition sun = sunPosition(t, place->second.latitude * DEGREE, place->second.longitude * DEGREE,
                                                place->second.timeZone);
            EXPECT_NEAR(sun.altitude / DEGREE, 0, 0.6) << date << ' ' << column;
            ++count;
        }
    }
    EXPECT_GT(count, 40);
}

TEST(SolarTime, IsCorrectedByLongitudeAndEquationOfTime) {
    struct Case {
        double t, longitude, timeZone, expected;
    };
    const Case cases[] = {
        {43200,                15,   1,   43200                 },
        {43200,                0,    1,   43200 - 3600          },
        {0,                    0,    1,   SECONDS_OF_YEAR - 3600},
        {SECONDS_OF_YEAR - 10, 16,   1,   230                   },
        {43200,                -179, 12,  43200 + 240           }, // east of the date line
        {43200,                179,  -12, 43200 - 240           }
    }; // west of it
    for (const Case & c : cases)
        EXPECT_NEAR(meanSolarTime(c.t, c.longitude * 0.01745329252, c.timeZone), c.expected, 1e-3) << c.longitude;
    // x = 0: the correction is -7.53 minutes
    EXPECT_NEAR(apparentSolarTime(81 * 86400.0) - 81 * 86400.0, -7.53 * 60, 1e-6);
    EXPECT_GE(apparentSolarTime(0), 0);
}

TEST(SunriseFactor, IsSmoothAndDoneAtTwoDegrees) {
    EXPECT_EQ(sunriseFactor(-0.1), 0);
    EXPECT_EQ(sunriseFactor(0), 0);
    EXPECT_LT(sunriseFactor(1e-6), 1e-6);
    for (double a = 2 * DEGREE; a < PI / 2; a += 0.01)
        EXPECT_NEAR(sunriseFactor(a), 1, 1e-4);
    for (double a = 0; a < 0.1; a += 1e-4) {
        EXPECT_LE(sunriseFactor(a), sunriseFactor(a + 1e-4));
        EXPECT_LT(sunriseFactor(a + 1e-4) - sunriseFactor(a), 0.01);
    }
}

// *** Radiation ***

TEST(Surfaces, AreTheSameWithinTheTolerance) {
    SolarRadiationModel model;
    EXPECT_EQ(model.addSurface(0.3, 1.0), 0U);
    EXPECT_EQ(model.addSurface(0.3, 1.1), 1U);
    EXPECT_EQ(model.addSurface(0.3, 1.0), 0U);
    EXPECT_EQ(model.addSurface(0.3 + 9e-6, 1.1 - 9e-6), 1U);
    EXPECT_EQ(model.addSurface(0.3 + 2e-5, 1.0), 2U);
    const KOR::Exception ex = caught([&model] { model.radiationLoad(3); });
    EXPECT_EQ(ex.message(), "Invalid surface ID 3.");
    EXPECT_EQ(ex.chain().front().where, "[SolarRadiationModel::radiationLoad]");
}

TEST(EvenSky, FollowsTheFormulasExactly) {
    SolarRadiationModel model = modelWith(700, 120);
    model.m_albedo = 0.35;
    for (const double inclination : {0.0, 5e-5, 0.3, PI / 2, 2.5, PI})
        for (const double orientation : {0.0, 1.0, PI / 2, PI, 4.0})
            model.addSurface(inclination, orientation);
    for (const double t : {JUNE_NOON, JUNE_NOON + 20000, JUNE_NOON - 25000, 3.0e6, JUNE_MIDNIGHT}) {
        model.setTime(2021, t);
        const SunPosition sun = sunPosition(t, 52.5 * DEGREE, 13.4 * DEGREE, 1);
        const double a = sun.altitude;
        const double direct = a > 0 ? 700 * (1 - std::exp(-a * a / 0.0001)) : 0;
        for (std::size_t i = 0; i < model.surfaces().size(); ++i) {
            const double b = model.surfaces()[i].inclination;
            const double g = model.surfaces()[i].orientation;
            const SolarRadiationModel::RadiationLoad & load = model.radiationLoad(static_cast<unsigned int>(i));
            const double view = std::cos(b / 2) * std::cos(b / 2);
            if (std::abs(b) < 1e-4) {
                EXPECT_NEAR(load.direct, a > 0 ? direct * std::sin(a) : 0, 1e-9);
                EXPECT_NEAR(load.diffuse, 120, 1e-9);
                EXPECT_NEAR(load.incidenceAngle, a > 0 ? PI / 2 - a : PI / 2, 1e-12);
                continue;
            }
            const double cosq =
                std::min(1.0, std::sin(b) * std::cos(sun.azimuth - g) * std::cos(a) + std::cos(b) * std::sin(a));
            const bool isReached = a > 0 && cosq >= 0;
            EXPECT_NEAR(load.direct, isReached ? direct * cosq : 0, 1e-9);
            EXPECT_NEAR(load.incidenceAngle, isReached ? std::acos(cosq) : PI / 2, 1e-9);
            const double ground = 0.35 * (120 + (a > 0 ? direct * std::sin(a) : 0));
            EXPECT_NEAR(load.diffuse, view * 120 + (1 - view) * ground, 1e-9);
        }
    }
}

TEST(Night, HasNoDirectRadiation) {
    for (const bool anisotropic : {false, true}) {
        SolarRadiationModel model = modelWith(500, 80);
        model.m_anisotropicSky = anisotropic;
        const unsigned int horizontal = model.addSurface(0, 0);
        const unsigned int wall = model.addSurface(PI / 2, PI);
        model.setTime(2021, JUNE_MIDNIGHT);
        for (const unsigned int id : {horizontal, wall}) {
            double direct = -1;
            double diffuse = -1;
            double angle = -1;
            model.radiationLoad(id, direct, diffuse, angle);
            EXPECT_EQ(direct, 0);
            EXPECT_EQ(angle, PI / 2);
            EXPECT_NEAR(diffuse, anisotropic ? 0 : (id == wall ? 0.5 * 80 + 0.5 * 0.2 * 80 : 80), 1e-12);
        }
    }
}

TEST(Walls, TurnedAwayFromTheSunGetNothingDirect) {
    SolarRadiationModel model = modelWith(800, 100);
    const unsigned int north = model.addSurface(PI / 2, 0);
    const unsigned int south = model.addSurface(PI / 2, PI);
    model.setTime(2021, JUNE_NOON);
    EXPECT_EQ(model.radiationLoad(north).direct, 0);
    EXPECT_EQ(model.radiationLoad(north).incidenceAngle, PI / 2);
    EXPECT_GT(model.radiationLoad(south).direct, 300);
}

TEST(AnisotropicSky, AgreesWithPublishedFormulasCaseByCase) {
    const std::string path = HYG_SHARED_CLIMATE "reference/perez_tilted.csv";
    HYG_REQUIRE_SHARED(path);
    CsvTable table(path);
    int count = 0;
    while (table.next()) {
        const double zenith = table.number("zenith_deg") * DEGREE;
        const double tilt = table.number("tilt_deg") * DEGREE;
        const double airMass = relativeAirMass(zenith, 101325);
        EXPECT_NEAR(airMass, table.number("airmass_kasten_young_1989"), 1e-5);
        const PerezSky sky(table.number("dni_W_m2"), table.number("dhi_W_m2"), zenith, airMass, 1367);
        const double diffuse =
            sky.onSurface((1 + std::cos(tilt)) / 2, std::sin(tilt), table.number("a_max0_cos_incidence"));
        EXPECT_NEAR(diffuse, table.number("perez_sky_diffuse"), 0.2) << "case " << table.text("case");
        if (sky.diffuse > 0) {
            EXPECT_NEAR(sky.F1, table.number("F1"), 0.002) << "case " << table.text("case");
            EXPECT_NEAR(sky.F2, table.number("F2"), 0.002) << "case " << table.text("case");
        }
        ++count;
    }
    EXPECT_EQ(count, 21);
}

TEST(AnisotropicSky, TakesThePiecesOfTheModel) {
    SolarRadiationModel model = modelWith(650, 150);
    model.m_anisotropicSky = true;
    const unsigned int roof = model.addSurface(0.6, PI);
    const unsigned int flat = model.addSurface(0, 0);
    model.setTime(2021, JUNE_NOON);
    const SunPosition & sun = model.sun();
    const double zenith = PI / 2 - sun.altitude;
    const PerezSky sky(650, 150, zenith, relativeAirMass(zenith, 101325), extraterrestrialRadiation(172));
    const double cosq = std::cos(model.radiationLoad(roof).incidenceAngle);
    const double view = std::cos(0.3) * std::cos(0.3);
    EXPECT_NEAR(model.radiationLoad(roof).diffuse,
                sky.onSurface(view, std::sin(0.6), cosq) + (1 - view) * 0.2 * (150 + 650 * sun.sinAltitude), 1e-6);
    EXPECT_EQ(model.radiationLoad(flat).diffuse, 150);
    // The periodic terms carry no solar constant.
    EXPECT_NEAR(extraterrestrialRadiation(1), 1367.15037 + 0.034221 + 0.000719, 1e-4);
    EXPECT_NEAR(extraterrestrialRadiation(182.5), 1367.15037 - 0.034221 + 0.000719, 1e-6);
}

TEST(AnisotropicSky, IsEvenBelowClearnessOneAndDarkWithoutDiffuse) {
    const PerezSky dull(-10, 100, 1.0, 2, 1367); // clearness below 1
    EXPECT_EQ(dull.F1, 0);
    EXPECT_EQ(dull.F2, 0);
    EXPECT_EQ(dull.onSurface(0.75, 0.8, 0.5), 75);
    EXPECT_EQ(PerezSky(800, 0, 1.0, 2, 1367).onSurface(0.75, 0.8, 0.5), 0);
    EXPECT_EQ(PerezSky(0, 0, 1.0, 2, 1367).onSurface(0.75, 0.8, 0.5), 0);
}

// *** Conversion from horizontal ***

TEST(HorizontalToNormal, IsLimitedByTheClearSky) {
    SolarRadiationModel model;
    model.m_climate.m_latitude = 52.5;
    model.m_climate.m_longitude = 13.4;
    model.m_climate.m_timeZone = 1;
    const double t = 20 * 86400.0 + 43200; // noon of 21 January
    const double sine = model.sunAt(t).sinAltitude;
    EXPECT_NEAR(model.convertHorizontalToNormalRadiation(t, 50), 50 / sine, 1e-9);
    const double tau = 0.142 + 0.5 / 31 * (0.144 - 0.142);
    const double limit = 1366.1 * (1 + 0.033 * std::cos(2 * PI * 20.5 / 365)) * std::exp(-tau / sine);
    EXPECT_NEAR(model.convertHorizontalToNormalRadiation(t, 900), limit, 1e-6);
    EXPECT_EQ(model.convertHorizontalToNormalRadiation(t + 43200, 10), 0);
    EXPECT_EQ(model.convertHorizontalToNormalRadiation(t, -9999), -9999);
    EXPECT_EQ(model.clearSkyNormalRadiation(t, 0.00099), 0);
    EXPECT_GT(model.clearSkyNormalRadiation(t, 0.01), 0);
}

} // namespace
