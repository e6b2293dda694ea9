#include "Shell.h"

#include <CCM/ClimateDataLoader.h>

#include <nlohmann/json.hpp>

#include <filesystem>

namespace {

using nlohmann::json;

/// A scratch directory in the variable $D of the shell.
std::string scratch() {
    std::string directory = testing::TempDir() + "hyg-cli-climate-" + std::to_string(::getpid());
    std::filesystem::create_directories(directory);
    return directory;
}

Result climate(const std::string & arguments) {
    return shell("D='" + scratch() + "'; hygrion-cli climate " + arguments);
}

json climateJson(const std::string & arguments) {
    const Result result = climate(arguments + " --json");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return json::parse(result.out, nullptr, false);
}

constexpr const char * POTSDAM = "DB_climate/Potsdam_Germany.c6b";

} // namespace

TEST(Climate, InfoAndCheckTellWhatAFileHolds) {
    const json info = climateJson(std::string("info ") + POTSDAM);
    EXPECT_EQ(info["city"], "Potsdam");
    EXPECT_EQ(info["timeZone"], 1);
    EXPECT_EQ(info["values"], 8760);
    EXPECT_EQ(info["annual"], true);
    const Result check = climate(std::string("check ") + POTSDAM);
    EXPECT_EQ(check.exitCode, 0);
    EXPECT_TRUE(agrees(check.out, "Use: one year of hours, repeated every year\nTemperature [C]*"));
    EXPECT_TRUE(agrees(climate("info nothing.epw").err, "Climate data file 'nothing.epw' cannot be read.\n"
                                                        "Error reading climate data file.\nClimate data file "
                                                        "'nothing.epw' does not exist or is not accessible.\n"));
    EXPECT_EQ(climate("info nothing.epw").exitCode, 1);
}

TEST(Climate, CheckEndsWithOneForImplausibleValues) {
    CCM::ClimateDataLoader data;
    for (std::vector<double> & values : data.m_data)
        values.assign(CCM::HOURS_OF_YEAR, 20);
    data.m_data[CCM::Q_RELATIVE_HUMIDITY][30] = 101;
    data.m_data[CCM::Q_AIR_PRESSURE][2] = CCM::MISSING;
    data.m_data[CCM::Q_RAIN].assign(CCM::HOURS_OF_YEAR, 0);
    data.writeClimateDataKOR(scratch() + "/bad.c6b");
    const Result result = climate("check $D/bad.c6b");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find("1 values outside 0 .. 100, the first at 02.01.2001  7:00:00: 101."), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("1 of 8760 values missing, the first at 01.01.2001  3:00:00; 101325 Pa is used."),
              std::string::npos);
    EXPECT_NE(result.out.find("not present (all values are zero), 0 l/m2h is used."), std::string::npos);
    const Result document = climate("check $D/bad.c6b --json");
    EXPECT_EQ(document.exitCode, 1);
    EXPECT_EQ(json::parse(document.out)["quantities"][1]["firstImplausible"], 30);
}

TEST(Climate, ConvertKeepsEveryBitOfTheSamples) {
    const std::string epw = "../shared/climate/epw/USA_CO_Golden-NREL.724666_TMY3.epw";
    if (!std::filesystem::exists(HYG_SOURCE_DIR "/" + epw))
        GTEST_SKIP() << "reference data not found: " << epw;
    const std::string times = " --year 2021 --time 0 --time 1234.5 --time 15552000 --time 31535999";
    EXPECT_EQ(climate("convert " + epw + " $D/golden.c6b").exitCode, 0);
    const json before = climateJson("sample " + epw + times);
    EXPECT_EQ(before, climateJson("sample $D/golden.c6b" + times));
    EXPECT_EQ(before["samples"].size(), 4U);
    EXPECT_EQ(before["samples"][0]["values"].size(), 9U);
    EXPECT_EQ(before["samples"][0]["values"]["AirPressure"]["unit"], "Pa");
}

TEST(Climate, ConvertWritesSingleQuantities) {
    EXPECT_EQ(climate(std::string("convert ") + POTSDAM + " $D/t.ccd --quantity temperature").exitCode, 0);
    const json whole = climateJson(std::string("sample ") + POTSDAM + " --time 5000");
    const json single = climateJson("sample $D/t.ccd --time 5000");
    EXPECT_EQ(single["samples"][0]["values"]["Temperature"], whole["samples"][0]["values"]["Temperature"]);
    EXPECT_EQ(single["samples"][0]["values"]["RelativeHumidity"]["value"], 80);
    EXPECT_EQ(climate(std::string("convert ") + POTSDAM + " $D/t.ccd").exitCode, 1);
    EXPECT_EQ(climate(std::string("convert ") + POTSDAM + " $D/t.epw").exitCode, 1);
    EXPECT_TRUE(agrees(climate(std::string("convert ") + POTSDAM + " $D/t.ccd --quantity Snow").err,
                       "Unknown climate quantity 'Snow', expected one of Temperature, *"));
}

TEST(Climate, RadiationGivesLoadsAndSun) {
    const std::string surface = std::string("radiation ") + POTSDAM + " --inclination 90 --orientation 180";
    const json noon = climateJson(surface + " --time 14817600");
    const json & row = noon["times"][0];
    EXPECT_NEAR(row["sunAltitude"].get<double>(), 61, 0.5);
    EXPECT_NEAR(row["incidenceAngle"].get<double>(), 61, 1);
    EXPECT_NEAR(row["sunAzimuth"].get<double>(), 176, 2);
    const json bright = climateJson(surface + " --albedo 0.6 --time 14817600");
    EXPECT_GT(bright["times"][0]["diffuse"].get<double>(), row["diffuse"].get<double>());
    EXPECT_EQ(bright["times"][0]["direct"], row["direct"]);
    const json perez = climateJson(surface + " --perez --time 14817600");
    EXPECT_NE(perez["times"][0]["diffuse"], row["diffuse"]);
    EXPECT_EQ(climate(surface + " --albedo 1.5 --time 0").exitCode, 1);
    EXPECT_EQ(climate(std::string("radiation ") + POTSDAM + " --inclination 400 --orientation 180 --time 0").exitCode,
              1);
    EXPECT_EQ(climate(std::string("radiation ") + POTSDAM + " --inclination 90 --time 0").exitCode, 2);
}

TEST(Climate, GenerateMakesWhatTheDatabaseHolds) {
    EXPECT_EQ(climate("generate tools/climate/monthly_normals.csv $D/p.c6b --name Potsdam").exitCode, 0);
    const json stats = climateJson("stats $D/p.c6b");
    ASSERT_EQ(stats.size(), 12U);
    EXPECT_NEAR(stats[0]["Temperature"]["mean"].get<double>(), 0.7, 0.2);
    EXPECT_NEAR(stats[6]["GlobalRadiationHorizontal"].get<double>(), 222, 4.4);
    EXPECT_EQ(stats, climateJson(std::string("stats ") + POTSDAM));
    EXPECT_EQ(climate("generate tools/climate/standard_climates.csv $D").exitCode, 0);
    EXPECT_TRUE(std::filesystem::exists(scratch() + "/DIN_4108-3_2018_inside_winter.c6b"));
    EXPECT_EQ(climate("generate tools/climate/monthly_normals.csv $D/p.c6b").exitCode, 1);
    EXPECT_EQ(climate("generate tools/climate/monthly_normals.csv $D --name Atlantis").exitCode, 1);
}
