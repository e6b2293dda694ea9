#include "ClimateTest.h"

#include <KOR/Binary.h>

#include <algorithm>

using namespace CCM;

namespace {

ClimateDataLoader withTimePoints(std::vector<double> points, std::int32_t startYear) {
    ClimateDataLoader data;
    data.m_startYear = startYear;
    for (std::vector<double> & values : data.m_data)
        for (std::size_t i = 0; i < points.size(); ++i)
            values.push_back(10.0 * static_cast<double>(i + 1));
    data.m_timePoints = std::move(points);
    return data;
}

// *** Evaluation ***

struct AnnualTime {
    double t;
    std::size_t endLower, endUpper;
    double endWeight;
    std::size_t middleLower, middleUpper;
    double middleWeight;
};
class AnnualTimes : public testing::TestWithParam<AnnualTime> {};

TEST_P(AnnualTimes, AreInterpolatedBetweenTheRightValues) {
    const AnnualTime & p = GetParam();
    ClimateDataLoader data = annualClimate();
    data.setTime(2024, p.t);
    const auto mixed = [&](quantity_t q, std::size_t lower, std::size_t upper, double weight) {
        return (1 - weight) * data.m_data[q][lower] + weight * data.m_data[q][upper];
    };
    EXPECT_DOUBLE_EQ(data.value(Q_TEMPERATURE), mixed(Q_TEMPERATURE, p.endLower, p.endUpper, p.endWeight));
    EXPECT_DOUBLE_EQ(data.value(Q_AIR_PRESSURE), mixed(Q_AIR_PRESSURE, p.endLower, p.endUpper, p.endWeight));
    EXPECT_DOUBLE_EQ(data.value(Q_DIRECT_RADIATION),
                     mixed(Q_DIRECT_RADIATION, p.middleLower, p.middleUpper, p.middleWeight));
    EXPECT_DOUBLE_EQ(data.value(Q_RAIN), mixed(Q_RAIN, p.middleLower, p.middleUpper, p.middleWeight));
}

INSTANTIATE_TEST_SUITE_P(Year, AnnualTimes,
                         testing::Values(AnnualTime{0, 8759, 0, 0, 8759, 0, 0.5},
                                         AnnualTime{900, 8759, 0, 0.25, 8759, 0, 0.75},
                                         AnnualTime{1800, 8759, 0, 0.5, 0, 1, 0}, AnnualTime{3600, 0, 1, 0, 0, 1, 0.5},
                                         AnnualTime{9000, 1, 2, 0.5, 2, 3, 0},
                                         AnnualTime{31532400, 8758, 8759, 0, 8758, 8759, 0.5},
                                         AnnualTime{31534200, 8758, 8759, 0.5, 8759, 0, 0},
                                         AnnualTime{31535100, 8758, 8759, 0.75, 8759, 0, 0.25},
                                         AnnualTime{31536000, 8759, 0, 0, 8759, 0, 0.5},
                                         AnnualTime{2 * 31536000.0 + 9000, 1, 2, 0.5, 2, 3, 0},
                                         AnnualTime{-900, 8758, 8759, 0.75, 8759, 0, 0.25}));

TEST(SetTime, TakesTheSubstituteWhereAValueIsMissing) {
    ClimateDataLoader data = annualClimate();
    for (std::vector<double> & values : data.m_data)
        std::fill(values.begin() + 10, values.begin() + 14, -9999.4); // -9999 after truncation
    data.m_data[Q_WIND_VELOCITY].clear();
    data.setTime(0, 12 * 3600);
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        EXPECT_EQ(data.m_currentValues[q], CLIMATE_QUANTITIES[q].whenMissing) << CLIMATE_QUANTITIES[q].caption;
    // Beside a gap the result runs towards the substitute rather than towards -9999.
    data.setTime(0, 10.5 * 3600);
    EXPECT_DOUBLE_EQ(data.value(Q_RELATIVE_HUMIDITY), 0.5 * (data.m_data[Q_RELATIVE_HUMIDITY][9] + 80));
}

TEST(SetTime, PrefersOverrideSplines) {
    ClimateDataLoader data = annualClimate();
    data.m_splines[Q_RAIN].setValues({0, 100}, {1, 3});
    data.setTime(0, SECONDS_OF_YEAR + 50); // annual data: at the wrapped time
    EXPECT_DOUBLE_EQ(data.value(Q_RAIN), 2);

    data = withTimePoints({0, SECONDS_OF_YEAR}, 2000); // absolute data: at the absolute time
    data.m_splines[Q_RAIN].setValues({0, 2 * SECONDS_OF_YEAR}, {0, 2});
    data.setTime(2000, 0.25 * SECONDS_OF_YEAR);
    EXPECT_DOUBLE_EQ(data.value(Q_RAIN), 0.25);
    EXPECT_DOUBLE_EQ(data.value(Q_TEMPERATURE), 12.5);
}

TEST(SetTime, RepeatsCyclicTimePoints) {
    ClimateDataLoader data = withTimePoints({86400, 172800, 300 * 86400.0}, 2000);
    const std::pair<double, double> cases[] = {
        {0,                        10},
        {86400,                    10},
        {129600,                   15},
        {172800,                   20},
        {301 * 86400.0,            30},
        {SECONDS_OF_YEAR + 129600, 15}
    };
    for (const auto & [t, expected] : cases) {
        data.setTime(2017, t);
        EXPECT_DOUBLE_EQ(data.value(Q_TEMPERATURE), expected) << t;
    }
}

TEST(SetTime, UsesOtherTimePointsAsAbsoluteTimes) {
    ClimateDataLoader data = withTimePoints({0, SECONDS_OF_YEAR}, 2000);
    data.setTime(1999, SECONDS_OF_YEAR + 1);
    EXPECT_NEAR(data.value(Q_TEMPERATURE), 10, 1e-6);
    data.setTime(2001, 0);
    EXPECT_EQ(data.value(Q_TEMPERATURE), 20);
    const KOR::Exception ex = caught([&data] { data.setTime(2001, 3600); });
    EXPECT_EQ(
        ex.message(),
        "Time point out of range of time points vector (3600;31539600), data available for interval 0 - 31536000, "
        "start year of simulation 2001, start year of climate data 2000.");
    EXPECT_EQ(ex.chain().front().where, "[ClimateDataLoader::setTime]");
}

TEST(SetTime, RefusesDataItCannotIndex) {
    ClimateDataLoader data = withTimePoints({0, 10, 20}, 2000);
    data.m_data[4].pop_back();
    EXPECT_EQ(caught([&data] { data.setTime(2000, 0); }).message(),
              "Mismatching sizes of time points vector and data vectors.");
    data.m_timePoints.clear();
    EXPECT_THAT(caught([&data] { data.setTime(2000, 0); }).message(), testing::HasSubstr("8760"));
    data = annualClimate();
    EXPECT_THROW(data.setTime(0, std::numeric_limits<double>::quiet_NaN()), KOR::Exception);
    EXPECT_THROW(data.setTime(0, std::numeric_limits<double>::infinity()), KOR::Exception);
}

TEST(CyclicData, IsNamedWhenItCannotBeRepeated) {
    const std::pair<std::vector<double>, std::string> cases[] = {
        {{},                       "Missing data, at least two time points are required."  },
        {{5},                      "Missing data, at least two time points are required."  },
        {{0, SECONDS_OF_YEAR + 1}, "Time points must not exceed 365 d for cyclic use."     },
        {{0, SECONDS_OF_YEAR},     "Must not have time point 0 d and 365 d for cyclic use."}
    };
    for (const auto & [points, message] : cases) {
        const KOR::Exception ex = caught([&points = points] { ClimateDataLoader::checkForValidCyclicData(points); });
        EXPECT_EQ(ex.message(), message);
        EXPECT_EQ(ex.chain().front().where, "[ClimateDataLoader::checkForValidCyclicData]");
    }
    EXPECT_NO_THROW(ClimateDataLoader::checkForValidCyclicData({0, SECONDS_OF_YEAR - 1}));
    EXPECT_NO_THROW(ClimateDataLoader::checkForValidCyclicData({1, SECONDS_OF_YEAR}));
}

TEST(ValueCheck, SetsStatusAndFirstIndices) {
    struct Case {
        std::vector<double> values;
        std::uint32_t status, missing, implausible;
    };
    constexpr std::uint32_t NONE = 0xFFFFFFFF;
    const Case cases[] = {
        {{},                  1, NONE, NONE},
        {{-9999, -9999},      3, 0,    NONE},
        {{0, 0.001, -0.0005}, 5, NONE, 2   },
        {{0, -9999},          3, 1,    NONE},
        {{50, 20},            0, NONE, NONE},
        {{50, -9999, 100.1},  6, 1,    2   },
        {{-1, 50, -2},        4, NONE, 0   },
        {{50, 100, 0},        0, NONE, NONE}
    };
    for (const Case & c : cases) {
        ClimateDataLoader data;
        data.m_data[Q_RELATIVE_HUMIDITY] = c.values;
        data.checkValues();
        EXPECT_EQ(data.m_valueStatus[Q_RELATIVE_HUMIDITY], c.status) << testing::PrintToString(c.values);
        EXPECT_EQ(data.m_firstBad[Q_RELATIVE_HUMIDITY].missing, c.missing);
        EXPECT_EQ(data.m_firstBad[Q_RELATIVE_HUMIDITY].implausible, c.implausible);
    }
}

// *** Container ***

struct Container {
    std::uint32_t magic1 = 0x46444C43, magic2 = 0x215A4C52, version = 1;
    std::vector<std::string> header{"CITY=Testville"};
    std::size_t length = 2;
    std::vector<double> timePoints{0, 10};

    std::string bytes() const {
        std::ostringstream out;
        for (const std::uint32_t word : {magic1, magic2, version, 7U, static_cast<std::uint32_t>(header.size())})
            KOR::write_binary(out, word);
        for (const std::string & line : header)
            KOR::write_string_binary(out, line);
        for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
            KOR::write_vector_binary(out, std::vector<double>(length, 1.0 + q));
        KOR::write_vector_binary(out, timePoints);
        return out.str();
    }
};

ClimateDataLoader readContainer(const std::string & bytes, bool headerOnly = false) {
    std::istringstream in(bytes);
    ClimateDataLoader data;
    data.readClimateDataKOR(in, headerOnly);
    return data;
}

TEST(Container, IsWrittenAndReadBackBitByBit) {
    ClimateDataLoader data = annualClimate();
    data.m_country = "Nowhere";
    data.m_wmoCode = "007";
    data.m_source = "made up";
    data.m_comment = "a=b, with = signs=";
    data.m_elevation = 34;
    data.m_startYear = 2015;
    data.m_latitude = 52.39376299999999;
    data.setUtcOffset(-3.5);
    data.m_data[0][1] = 0.1 + 0.2;
    data.checkValues();
    const std::string path = scratchFile("a.C6B");
    data.writeClimateDataKOR(path);
    EXPECT_EQ(fileContent(path).substr(0, 20), std::string("CLDFRLZ!\1\0\0\0\0\0\0\0\x0a\0\0\0", 20));
    ClimateDataLoader copy;
    copy.readClimateData(path);
    EXPECT_EQ(copy, data);
    ClimateDataLoader header;
    header.readClimateData(path, true);
    EXPECT_EQ(header.m_comment, "a=b, with = signs=");
    EXPECT_EQ(header.m_timeZone, -3);
    EXPECT_EQ(header.size(), 0U);
}

TEST(Container, AcceptsEveryMinorVersion) {
    for (const std::uint32_t version : {1U, 0x0101U, 0xFFFFFF01U})
        EXPECT_EQ(readContainer(Container{.version = version}.bytes()).size(), 2U);
    EXPECT_EQ(caught([] { readContainer(Container{.version = 2}.bytes()); }).cause(), "Unsupported file version.");
    EXPECT_EQ(caught([] { readContainer(Container{.version = 0x0100}.bytes()); }).cause(), "Unsupported file version.");
}

TEST(Container, ReadsHeaderLinesAsTheyStand) {
    const ClimateDataLoader data = readContainer(Container{
        .header = {"COMMENT", "UNKNOWN=ignored", "TIMEZONE=-5.9", "ELEVATION=12.7",
                   "CITY="}
    }.bytes());
    EXPECT_EQ(data.m_comment, "");
    EXPECT_EQ(data.m_timeZone, -5);
    EXPECT_EQ(data.m_elevation, 12);
    EXPECT_EQ(data.m_city, "---");
    EXPECT_EQ(readContainer(Container{.header = {"COMMENT=a=b"}}.bytes()).m_comment, "a=b");
}

struct ContainerFault {
    const char * name;
    std::string bytes;
    const char * cause;
    const char * where;
};
class ContainerFaults : public testing::TestWithParam<ContainerFault> {};

TEST_P(ContainerFaults, AreNamed) {
    const std::string path = scratchFile("a.c6b");
    writeText(path, GetParam().bytes);
    ClimateDataLoader data;
    const KOR::Exception ex = caught([&] { data.readClimateData(path); });
    EXPECT_EQ(ex.cause(), GetParam().cause);
    EXPECT_EQ(ex.chain().front().where, GetParam().where);
    EXPECT_EQ(ex.message(), "Error reading climate data file.");
    EXPECT_EQ(ex.chain().back().where, "[ClimateDataLoader::readClimateData]");
}

std::string withLongString() {
    std::string bytes = Container().bytes();
    bytes.replace(20, 4, "\xD1\x07\0\0", 4); // 2001
    return bytes;
}

std::string withUnequalVector() {
    std::string bytes = Container{.length = 2}.bytes();
    const std::size_t second = 20 + 4 + 14 + 4 + 16;
    return bytes.replace(second, 20, std::string("\1\0\0\0\0\0\0\0\0\0\0\0", 12));
}

std::string withForgedCount() {
    std::string bytes = Container().bytes();
    bytes.replace(20 + 4 + 14, 4, "\x81\x96\x98\0", 4); // 10,000,001
    return bytes;
}

std::string withBigCount() {
    std::string bytes = Container().bytes();
    bytes.replace(20 + 4 + 14, 4, "\x80\x96\x98\0", 4); // 10,000,000
    return bytes;
}

constexpr const char * KOR_READER = "[ClimateDataLoader::readClimateDataKOR]";
INSTANTIATE_TEST_SUITE_P(
    C6b, ContainerFaults,
    testing::Values(
        ContainerFault{
            "Empty", "", "Error reading from input stream!", "[read_binary]"
},
        ContainerFault{"FirstMagic", Container{.magic1 = 1}.bytes(), "Wrong first magic number!", KOR_READER},
        ContainerFault{"SecondMagic", Container{.magic2 = 1}.bytes(), "Wrong second magic number!", KOR_READER},
        ContainerFault{"NoEquals", Container{.header = {"CITY"}}.bytes(), "Invalid key-value format.", KOR_READER},
        ContainerFault{"TwoEquals", Container{.header = {"CITY=a=b"}}.bytes(), "Invalid key-value format.", KOR_READER},
        ContainerFault{"NoNumber", Container{.header = {"LATITUDE=north"}}.bytes(),
                       "Could not convert 'north' into value.", "[string2val]"},
        ContainerFault{"LongString", withLongString(), "String length exceeds given maximum!", "[read_string_binary]"},
        ContainerFault{"ForgedCount", withForgedCount(), "Vector length exceeds given maximum!",
                       "[read_vector_binary]"},
        ContainerFault{"BigCount", withBigCount(), "Error reading from input stream!", "[read_vector_binary]"},
        ContainerFault{"Truncated", Container().bytes().substr(0, 90), "Error reading from input stream!",
                       "[read_vector_binary]"},
        ContainerFault{"UnequalVectors", withUnequalVector(),
                       "Error reading data file, data vector #1 has length 1, but should have length 2 as all previous "
                       "vectors.",
                       KOR_READER},
        ContainerFault{"TimesDecrease", Container{.timePoints = {10, 10}}.bytes(),
                       "Time points must increase, but time point 1 (10 s) follows 10 s.", KOR_READER},
        ContainerFault{"TimesMissing", Container{.timePoints = {10}}.bytes(),
                       "Mismatching sizes of time points vector and data vectors.", KOR_READER},
        ContainerFault{"NotAYear", Container{.length = 8759, .timePoints = {}}.bytes(),
                       "Annual climate data must have 8760 hourly values, but data vector #0 has length 8759.",
                       KOR_READER}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(Container, FitsHeaderValuesToTheFormat) {
    ClimateDataLoader data = annualClimate();
    data.m_city = "a=b";
    data.m_comment = std::string(1989, 'x') + "\xC3\xA4\xC3\xA4\xC3\xA4"; // "COMMENT=" and 1991 bytes at most
    const std::string path = scratchFile("a.c6b");
    data.writeClimateDataKOR(path);
    ClimateDataLoader copy;
    copy.readClimateData(path);
    EXPECT_EQ(copy.m_city, "a:b");
    EXPECT_EQ(copy.m_comment, std::string(1989, 'x') + "\xC3\xA4");
}

TEST(Container, KeepsTheFunctionOfOverrideSplines) {
    ClimateDataLoader data = withTimePoints({3600, 7200, 10800}, 2001);
    data.m_data[Q_TEMPERATURE][2] = MISSING;
    data.m_splines[Q_RAIN].setValues({1800, 5400, 9000}, {1, 3, 2});
    data.checkValues();
    const std::string path = scratchFile("a.c6b");
    data.writeClimateDataKOR(path);
    ClimateDataLoader copy;
    copy.readClimateData(path);
    EXPECT_THAT(copy.m_timePoints, testing::ElementsAre(1800, 3600, 5400, 7200, 9000, 10800));
    for (double t = 1800; t <= 10800; t += 450) {
        data.setTime(2001, t);
        copy.setTime(2001, t);
        EXPECT_NEAR(copy.value(Q_RAIN), data.value(Q_RAIN), 1e-12) << t;
        EXPECT_NEAR(copy.value(Q_AIR_PRESSURE), data.value(Q_AIR_PRESSURE), 1e-12) << t;
        if (t <= 7200) {
            EXPECT_NEAR(copy.value(Q_TEMPERATURE), data.value(Q_TEMPERATURE), 1e-12) << t;
        }
    }
}

TEST(ReadClimateData, NamesFilesItCannotRead) {
    ClimateDataLoader data;
    for (const char * name : {"a.txt", "a", "a.ccd"})
        EXPECT_EQ(caught([&] { data.readClimateData(scratchFile(name)); }).message(),
                  "Unknown/unsupported climate data file format.");
    for (const char * name : {"none.epw", "none.c6b", "none.WAC", "none.dat"}) {
        const KOR::Exception ex = caught([&] { data.readClimateData(scratchFile(name)); });
        EXPECT_EQ(ex.cause(), "Climate data file '" + scratchFile(name) + "' does not exist or is not accessible.");
        EXPECT_EQ(ex.message(), "Error reading climate data file.");
    }
    const std::string directory = scratchFile("directory.epw");
    std::filesystem::create_directories(directory);
    EXPECT_THAT(caught([&] { data.readClimateData(directory); }).what(),
                testing::HasSubstr("Error reading file '" + directory + "'."));
}

} // namespace
