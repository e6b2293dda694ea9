#include "ClimateTest.h"

#include <CCM/ClimateStatistics.h>
#include <CCM/ReferenceYear.h>
#include <CCM/SolarRadiationModel.h>

#include <algorithm>
#include <cmath>
#include <set>

using namespace CCM;

namespace {

const ClimateTable & normalsTable() {
    static const ClimateTable table = readClimateTable(HYG_SOURCE_DIR "/tools/climate/monthly_normals.csv");
    return table;
}

const ClimateTable & standardTable() {
    static const ClimateTable table = readClimateTable(HYG_SOURCE_DIR "/tools/climate/standard_climates.csv");
    return table;
}

double correlation(const std::vector<double> & values, std::size_t lag) {
    double mean = 0;
    for (const double value : values)
        mean += value / static_cast<double>(values.size());
    double product = 0;
    double square = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        product += (values[i] - mean) * (values[(i + lag) % values.size()] - mean);
        square += (values[i] - mean) * (values[i] - mean);
    }
    return product / square;
}

class Places : public testing::TestWithParam<std::size_t> {
protected:
    const MonthlyNormals & normals() const { return normalsTable().places[GetParam()]; }
};

TEST_P(Places, HaveTheNormalsAsMonthlyMeans) {
    const auto months = monthlyStatistics(referenceYear(normals()));
    for (std::size_t month = 0; month < 12; ++month) {
        const MonthlyNormals::Month & wanted = normals().months[month];
        const auto & made = months[month].quantities;
        EXPECT_NEAR(made[Q_TEMPERATURE].mean, wanted.temperature, 0.2);
        EXPECT_NEAR(made[Q_RELATIVE_HUMIDITY].mean, wanted.relativeHumidity, 0.02 * wanted.relativeHumidity);
        EXPECT_NEAR(months[month].globalRadiation, wanted.globalRadiation, 0.02 * wanted.globalRadiation);
        EXPECT_NEAR(made[Q_WIND_VELOCITY].mean, wanted.windVelocity, 0.02 * wanted.windVelocity);
        EXPECT_NEAR(months[month].rainSum, wanted.rain, 0.02 * wanted.rain);
    }
}

TEST_P(Places, AreWeatherThatCanBe) {
    ClimateDataLoader data = referenceYear(normals());
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        EXPECT_EQ(data.m_valueStatus[q], 0U) << CLIMATE_QUANTITIES[q].caption;
    SolarRadiationModel sun;
    sun.m_climate = data;
    int wetHours = 0;
    double wetHumidity = 0;
    double wetRadiation = 0;
    double radiation = 0;
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const double T = data.m_data[Q_TEMPERATURE][i];
        EXPECT_LT(dewPoint(T, data.m_data[Q_RELATIVE_HUMIDITY][i]), T);
        const double t = annualTime(Q_DIRECT_RADIATION, i);
        const double sine = sun.sunAt(t).sinAltitude;
        const double direct = data.m_data[Q_DIRECT_RADIATION][i];
        const double diffuse = data.m_data[Q_DIFFUSE_RADIATION][i];
        EXPECT_LE(direct, sun.clearSkyNormalRadiation(t, sine));
        if (sine <= 0) {
            EXPECT_EQ(direct + diffuse, 0);
        } else {
            EXPECT_LT(diffuse + direct * sine, 1367 * 1.034 * sine + 0.1);
        }
        radiation += diffuse + direct * std::max(0.0, sine);
        if (data.m_data[Q_RAIN][i] > 0) {
            ++wetHours;
            wetHumidity += data.m_data[Q_RELATIVE_HUMIDITY][i];
            wetRadiation += diffuse + direct * std::max(0.0, sine);
        }
    }
    EXPECT_GT(wetHours, 100);
    EXPECT_LT(wetHours, 2000);
    EXPECT_GT(wetHumidity / wetHours, 90);
    EXPECT_LT(wetRadiation / wetHours, 0.5 * radiation / HOURS_OF_YEAR);
    for (const quantity_t q : {Q_TEMPERATURE, Q_RELATIVE_HUMIDITY, Q_WIND_VELOCITY, Q_AIR_PRESSURE})
        EXPECT_GT(correlation(data.m_data[q], 1), 0.85) << CLIMATE_QUANTITIES[q].caption;
    for (std::size_t i = 1; i < HOURS_OF_YEAR; ++i)
        EXPECT_LT(std::abs(data.m_data[Q_TEMPERATURE][i] - data.m_data[Q_TEMPERATURE][i - 1]), 5) << i;
    EXPECT_THAT(data.m_source + data.m_comment, testing::HasSubstr("ynthetic"));
    EXPECT_LT(data.m_comment.size(), 1900U);
}

/// The files of the database are what the tables give; a few values may differ by the last digit of a system's exp().
TEST_P(Places, StandInTheDatabase) {
    const std::string & city = normals().city;
    std::string name = city + '_' + normals().country + ".c6b";
    std::replace(name.begin(), name.end(), ' ', '_');
    ClimateDataLoader stored;
    stored.readClimateData(HYG_SOURCE_DIR "/DB_climate/" + name);
    const ClimateDataLoader made = referenceYear(normals());
    EXPECT_EQ(stored.m_comment, made.m_comment);
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        std::size_t different = 0;
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
            different += std::abs(stored.m_data[q][i] - made.m_data[q][i]) > 1e-9 ? 1U : 0U;
        EXPECT_LT(different, 50U) << CLIMATE_QUANTITIES[q].caption;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Places, testing::Range(std::size_t(0), normalsTable().places.size()),
                         [](const auto & place) {
                             std::string name = normalsTable().places[place.param].city;
                             std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
                             return name;
                         });

TEST(NormalsTable, HoldsEnoughPlaces) {
    std::set<std::string> names;
    for (const MonthlyNormals & place : normalsTable().places)
        names.insert(place.city);
    EXPECT_GE(names.size(), 10U);
    EXPECT_EQ(names.size(), normalsTable().places.size());
}

TEST(StandardClimates, FollowTheirCosine) {
    ASSERT_FALSE(standardTable().sines.empty());
    for (const SineClimate & climate : standardTable().sines) {
        ClimateDataLoader data = sineClimate(climate);
        data.setTime(2020, climate.warmestDay * 86400);
        EXPECT_NEAR(data.value(Q_TEMPERATURE), climate.temperature + climate.temperatureAmplitude, 1e-3);
        data.setTime(2021, (climate.dampestDay + 182.5) * 86400);
        EXPECT_NEAR(data.value(Q_RELATIVE_HUMIDITY), climate.relativeHumidity - climate.humidityAmplitude, 1e-2);
        EXPECT_EQ(data.value(Q_DIRECT_RADIATION), 0);
        // The end of the year meets its beginning.
        data.setTime(2021, SECONDS_OF_YEAR - 0.5);
        const double end = data.value(Q_TEMPERATURE);
        data.setTime(2022, 0);
        EXPECT_NEAR(data.value(Q_TEMPERATURE), end, 1e-3);
    }
}

TEST(ClimateTables, NameTheLineOfAFault) {
    const std::string captions = "city,country,lat_deg_N,lon_deg_E,elevation_m,month,T_mean_C,RH_mean_pct,GHI_mean_W_"
                                 "m2,wind_mean_m_s,rain_mm_month\n";
    const std::pair<std::string, std::string> faults[] = {
        {"",                                                                    "Error in line 0 of the table: The table is empty."     },
        {captions + "A,B,50,10,0,1,warm,70,30,3,50\n",
         "Error in line 2 of the table: 'warm' in column T_mean_C is not a number."                                                     },
        {captions + "A,B,50,10,0,2,1,70,30,3,50\n",                             "Error in line 2 of the table: expected month 1 of 'A'."},
        {captions + "A,B,50,10,0,1,1,70,30,3,50\nB,B,50,10,0,2,1,70,30,3,50\n",
         "Error in line 3 of the table: expected month 2 of 'A'."                                                                       },
        {captions + "A,B,50,10,0,1,1,70,30,3,50\n",                             "Error in line 2 of the table: 'A' has only 1 months."  }
    };
    for (const auto & [text, message] : faults)
        EXPECT_EQ(caught([&text = text] { parseClimateTable(text); }).message(), message);
}

TEST(ReferenceYear, RefusesNormalsThatCannotBe) {
    MonthlyNormals normals = normalsTable().places.front();
    normals.months[5].globalRadiation = 900; // more than a clear sky lets through
    EXPECT_THAT(caught([&] { referenceYear(normals); }).cause(), testing::HasSubstr("Global radiation: no weather"));
    normals = normalsTable().places.front();
    normals.months[5].relativeHumidity = 120;
    EXPECT_THAT(caught([&] { referenceYear(normals); }).cause(), testing::HasSubstr("not plausible"));
}

TEST(Statistics, CountMonthsAndRain) {
    ClimateDataLoader data = annualClimate();
    data.m_data[Q_RAIN].assign(HOURS_OF_YEAR, 0.5);
    data.m_data[Q_RAIN][0] = MISSING;
    data.m_data[Q_TEMPERATURE].assign(HOURS_OF_YEAR, 3);
    data.m_data[Q_TEMPERATURE][31 * 24 - 1] = 1000; // the hour that ends with January
    const auto months = monthlyStatistics(data);
    EXPECT_EQ(months[0].quantities[Q_TEMPERATURE].maximum, 1000);
    EXPECT_EQ(months[1].quantities[Q_TEMPERATURE].maximum, 3);
    EXPECT_EQ(months[0].quantities[Q_TEMPERATURE].count, 744U);
    EXPECT_EQ(months[0].quantities[Q_RAIN].missing, 1U);
    EXPECT_NEAR(months[0].rainSum, 743 * 0.5, 1e-9);
    EXPECT_NEAR(months[1].rainSum, 28 * 12, 1e-9);
    // Two years of quarters of an hour: the rain of one year
    ClimateDataLoader quarters;
    quarters.m_startYear = 2000;
    for (std::size_t i = 1; i <= 2 * 4 * HOURS_OF_YEAR; ++i)
        quarters.m_timePoints.push_back(900.0 * static_cast<double>(i));
    for (std::vector<double> & values : quarters.m_data)
        values.assign(quarters.m_timePoints.size(), 1);
    EXPECT_NEAR(monthlyStatistics(quarters)[3].rainSum, 720, 1);
}

} // namespace
