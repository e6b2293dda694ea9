#include "ClimateTest.h"

#include "../src/TextFile.h"

#include <CCM/SolarRadiationModel.h>

#include <KOR/Strings.h>

#include <algorithm>
#include <cmath>

using namespace CCM;

namespace {

constexpr const char * HEADER =
    "LOCATION,\"Testville, North\",,NOW,TMY3,123456,52.50,13.40,5.5,34.0\n"
    "DESIGN CONDITIONS,0\nTYPICAL/EXTREME PERIODS,0\nGROUND TEMPERATURES,0\n"
    "HOLIDAYS/DAYLIGHT SAVING,No,0,0,0\nCOMMENTS 1,first, part\nCOMMENTS 2,\"second \"\"part\"\"\"\n"
    "DATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31\n";

struct Record {
    int year = 2001, month = 1, day = 1, hour = 1, minute = 0;
    std::string temperature = "1.5";
    std::string rain = "999.0", rainPeriod = "99.0";

    std::string line() const {
        std::ostringstream out;
        out << year << ',' << month << ',' << day << ',' << hour << ',' << minute << ",?9?9," << temperature
            << ",-1.0,81,98700,0,0,257,9999,400,100,0,0,0,0,170,2.1,9,9,16.1,3300,9,999999999,89,0.031,0,88,0.33,"
            << rain << ',' << rainPeriod;
        return out.str();
    }
};

/// All hours of the days of some years; temperature is the running number.
std::vector<Record> hours(int firstYear, int lastYear, bool leapDay = false) {
    constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::vector<Record> records;
    int number = 0;
    for (int year = firstYear; year <= lastYear; ++year)
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= DAYS[month - 1] + (leapDay && month == 2 ? 1 : 0); ++day)
                for (int hour = 1; hour <= 24; ++hour) {
                    records.push_back({.year = year, .month = month, .day = day, .hour = hour});
                    if (month != 2 || day != 29)
                        records.back().temperature = KOR::toString((++number % 1000) / 100.0);
                }
    return records;
}

std::string text(const std::vector<Record> & records, const std::string & lineEnd = "\n") {
    std::string result = HEADER;
    for (const Record & record : records)
        result += record.line() + "\n";
    if (lineEnd != "\n") {
        std::string other;
        for (const char c : result)
            other += c == '\n' ? lineEnd : std::string(1, c);
        return other;
    }
    return result;
}

ClimateDataLoader parsed(const std::string & text, bool headerOnly = false) {
    ClimateDataLoader data;
    data.parseEPW(text, headerOnly);
    return data;
}

/// The quick way for short numbers gives the very double that the thorough way gives.
TEST(EpwReader, ReadsNumbersToTheLastBit) {
    for (const char * field : {"0",
                               "-0.00",
                               "+1.5",
                               "1.",
                               ".5",
                               ".",
                               "-",
                               "",
                               " 12.30 ",
                               "1e3",
                               "-1E-2",
                               "0.1",
                               "99999.9",
                               "123456789012345",
                               "1234567890123456",
                               "9007199254740993",
                               "0.123456789012345",
                               "12345678.9012345",
                               "1.2.3",
                               "--1",
                               "+-1",
                               "1 2",
                               "nan",
                               "inf",
                               "0x10",
                               "1e400",
                               "100000",
                               "00000000000000000001",
                               "3.141592653589793",
                               "-273.15",
                               "\t5\v"}) {
        const double expected = KOR::parseDouble(field).value_or(MISSING);
        EXPECT_EQ(numberOrMissing(field), expected) << field;
        EXPECT_EQ(std::signbit(numberOrMissing(field)), std::signbit(expected)) << field;
    }
    std::uint64_t random = 1;
    for (int i = 0; i < 20000; ++i) {
        random = random * 6364136223846793005 + 1442695040888963407;
        const std::string field =
            std::to_string(random >> (20 + i % 40)) + '.' + std::to_string((random & 0xFFFFFFFF) >> (i % 30));
        ASSERT_EQ(numberOrMissing(field), KOR::parseDouble(field).value_or(MISSING)) << field;
    }
}

TEST(EpwReader, SplitsAtEveryComma) {
    std::vector<std::string_view> fields;
    for (const std::string line :
         {"", ",", "a,b", ",,,,,,,,,,", "12345678,2345678,,\x2D\xAC,-", "abcdefgh,", "\x80,\xFF,\x2B"}) {
        splitAtCommas(line, fields, 100);
        EXPECT_EQ(fields, KOR::split(line, ','));
        splitAtCommas(line, fields, 2);
        EXPECT_LE(fields.size(), 2U);
        EXPECT_EQ(fields[0], KOR::split(line, ',')[0]);
    }
}

TEST(EpwReader, ReadsLocationAndColumns) {
    const ClimateDataLoader data = parsed(text(hours(2001, 2001)));
    EXPECT_EQ(data.m_city, "Testville, North");
    EXPECT_EQ(data.m_country, "NOW");
    EXPECT_EQ(data.m_source, "TMY3");
    EXPECT_EQ(data.m_wmoCode, "123456");
    EXPECT_EQ(data.m_comment, "first, partsecond \"part\"");
    EXPECT_EQ(data.m_latitude, 52.5);
    EXPECT_EQ(data.m_longitude, 13.4);
    EXPECT_EQ(data.m_timeZone, 5);
    EXPECT_EQ(data.utcOffset(), 5.5);
    EXPECT_EQ(data.m_elevation, 34);
    EXPECT_EQ(data.m_startYear, 2001);
    EXPECT_TRUE(data.isAnnual());
    const double expected[] = {0.01, 81, 400, 100, 170, 2.1, 257, 98700, -9999};
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        EXPECT_EQ(data.m_data[q].front(), expected[q]) << CLIMATE_QUANTITIES[q].caption;
    EXPECT_EQ(data.m_data[0].back(), 7.6);
    EXPECT_EQ(data.m_valueStatus[Q_RAIN], 3U);
    EXPECT_EQ(data.m_valueStatus[Q_TEMPERATURE], 0U);
    EXPECT_EQ(parsed(HEADER, true).m_city, "Testville, North");
}

TEST(EpwReader, AcceptsTheLayoutsOfRealFiles) {
    std::vector<Record> year = hours(2001, 2001);
    for (Record & record : year) { // a typical year has months of several years, minutes 60 and padded fields
        record.year = 1990 + record.month * 7 % 12;
        record.minute = 60;
    }
    const ClimateDataLoader expected = parsed(text(hours(2001, 2001)));
    ClimateDataLoader typical = parsed(text(year));
    EXPECT_EQ(typical.m_startYear, 1997);
    typical.m_startYear = 2001;
    EXPECT_EQ(typical, expected);

    const std::vector<Record> plain = hours(2001, 2001);
    EXPECT_EQ(parsed(text(plain, "\r\n")), expected);
    EXPECT_EQ(parsed(text(plain, "\r")), expected);
    EXPECT_EQ(parsed("\xEF\xBB\xBF" + text(plain, " \t\r\n") + "\n\n"), expected);
    EXPECT_EQ(parsed(text(hours(2001, 2001, true))), expected); // 29 February is dropped
    std::string latin = text(plain);
    latin.replace(latin.find("Testville"), 9, "Z\xFCrich \x96");
    EXPECT_EQ(parsed(latin).m_city, "Z\xC3\xBCrich \xE2\x80\x93, North");
}

TEST(EpwReader, TakesMissingCodesColumnByColumn) {
    std::vector<Record> year = hours(2001, 2001);
    year[0].temperature = "99.9";
    year[1].temperature = "cold";
    year[2].temperature = "";
    year[3].temperature = "-0.00";
    const ClimateDataLoader data = parsed(text(year));
    EXPECT_EQ(data.m_data[0][0], -9999);
    EXPECT_EQ(data.m_data[0][1], -9999);
    EXPECT_EQ(data.m_data[0][2], -9999);
    EXPECT_EQ(data.m_data[0][3], 0);
    EXPECT_EQ(data.m_data[Q_DIRECT_RADIATION][0], 400); // more than the code of the temperature
    EXPECT_EQ(data.m_firstBad[0].missing, 0U);
}

TEST(EpwReader, PutsRainIntoTheHoursOfItsPeriod) {
    std::vector<Record> year = hours(2001, 2001);
    const auto rain = [&year](std::size_t row, const char * depth, const char * period) {
        year[row].rain = depth;
        year[row].rainPeriod = period;
    };
    rain(0, "2.0", "1.0");
    rain(9, "6.0", "6.0"); // of the six hours until here two are known already
    rain(8, "1.0", "1.0");
    rain(7, "0.0", "1.0");
    rain(20, "0.5", "99");  // period unknown: the record's own hour
    rain(30, "1.0", "3.0"); // less than what the hours say
    rain(29, "2.0", "1.0");
    const std::vector<double> data = parsed(text(year)).m_data[Q_RAIN];
    EXPECT_THAT(std::vector<double>(data.begin(), data.begin() + 11),
                testing::ElementsAre(2, -9999, -9999, -9999, 1.25, 1.25, 1.25, 0, 1, 1.25, -9999));
    EXPECT_EQ(data[20], 0.5);
    EXPECT_EQ(data[28], 0);
    EXPECT_EQ(data[29], 2);
    EXPECT_EQ(data[30], 0);
}

TEST(EpwReader, KeepsTheTimesOfOtherRecords) {
    // Several years
    const ClimateDataLoader years = parsed(text(hours(2003, 2005, true)));
    ASSERT_EQ(years.m_timePoints.size(), 3 * HOURS_OF_YEAR + 1);
    EXPECT_EQ(years.m_startYear, 2003);
    EXPECT_EQ(years.m_timePoints[0], 0); // so that a simulation can start with the year
    EXPECT_EQ(years.m_data[0][0], years.m_data[0][1]);
    EXPECT_EQ(years.m_timePoints[1], 3600);
    EXPECT_EQ(years.m_timePoints.back(), 3 * SECONDS_OF_YEAR);
    // Within the hour: minutes 15 to 60, or 0 to 45
    for (const int first : {15, 0}) {
        std::vector<Record> records;
        for (int hour = 1; hour <= 3; ++hour)
            for (int quarter = 0; quarter < 4; ++quarter)
                records.push_back({.month = 3, .hour = hour, .minute = first + 15 * quarter});
        const ClimateDataLoader quarters = parsed(text(records));
        ASSERT_EQ(quarters.m_timePoints.size(), 12U);
        for (std::size_t i = 0; i < 12; ++i)
            EXPECT_EQ(quarters.m_timePoints[i], 59 * 86400 + 60 * first + 900.0 * static_cast<double>(i));
    }
    // Part of a year
    std::vector<Record> part = hours(2001, 2001);
    part.resize(4000);
    EXPECT_EQ(parsed(text(part)).m_timePoints.size(), 4000U);
}

TEST(EpwReader, PutsMeansAtTheMiddleOfTheirRecord) {
    std::vector<Record> records = hours(2003, 2004);
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i].rain = i % 2 ? "4" : "2";
    ClimateDataLoader data = parsed(text(records));
    data.setTime(2003, 1800);
    EXPECT_DOUBLE_EQ(data.value(Q_RAIN), 2);
    data.setTime(2003, 5400);
    EXPECT_DOUBLE_EQ(data.value(Q_RAIN), 4);
    EXPECT_DOUBLE_EQ(data.value(Q_TEMPERATURE), 0.015);
    const std::string path = scratchFile("a.c6b");
    data.writeClimateDataKOR(path);
    ClimateDataLoader copy;
    copy.readClimateData(path);
    for (double t = 3600; t < 86400; t += 700) {
        data.setTime(2004, t);
        copy.setTime(2004, t);
        for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
            EXPECT_NEAR(copy.m_currentValues[q], data.m_currentValues[q], 1e-9) << t;
    }
}

struct EpwFault {
    const char * name;
    std::string text;
    std::string message;
};
class EpwFaults : public testing::TestWithParam<EpwFault> {};

TEST_P(EpwFaults, AreNamedWithTheirLine) {
    const KOR::Exception ex = caught([] { parsed(GetParam().text); });
    EXPECT_EQ(ex.message(), GetParam().message);
    EXPECT_EQ(ex.chain().front().where, "[ClimateDataLoader::readClimateDataEPW]");
}

std::string withRecords(void (*change)(std::vector<Record> & records)) {
    std::vector<Record> records = hours(2001, 2001);
    change(records);
    return text(records);
}

INSTANTIATE_TEST_SUITE_P(
    Epw, EpwFaults,
    testing::Values(
        EpwFault{"Empty", "", "Error reading line 1."},
        EpwFault{"FewFields", "LOCATION,a,b,c,d,e,1,2,3\n", "Error reading line 1, bad format."},
        EpwFault{"Commas", std::string(40, ','), "Error reading line 1, bad format."},
        EpwFault{"NoLatitude", "LOCATION,a,b,c,d,e,north,2,3,4\n", "Error reading line 1, bad format."},
        EpwFault{"ShortHeader", "LOCATION,a,b,c,d,e,1,2,3,4\nDESIGN\n", "Error reading line 3."},
        EpwFault{"NoRecords", HEADER, "Missing data, the file holds no records."},
        EpwFault{"CommasInData", HEADER + std::string(40, ',') + "\n", "Error reading line 9, bad year."},
        EpwFault{"CutLine", HEADER + Record().line() + "\n2001,1,1,2,0,?9,1.5", "Error reading line 10, bad format."},
        EpwFault{"BadHour", HEADER + Record{.hour = 25}.line(), "Error reading line 9, bad date or time."},
        EpwFault{"BadMonth", HEADER + Record{.month = 13}.line(), "Error reading line 9, bad date or time."},
        EpwFault{"OneHourMissing", withRecords([](auto & records) { records.erase(records.begin() + 100); }),
                 "Missing data, only got 8759 values, expected 8760 hourly values; the first gap is before line 109."},
        EpwFault{"CutAtTheEnd", withRecords([](auto & records) { records.pop_back(); }),
                 "Missing data, only got 8759 values, expected 8760 hourly values; the first gap is before line 8768."},
        EpwFault{"TimeStands", withRecords([](auto & records) { records[5].hour = 5; }),
                 "Error reading line 14, times must increase from record to record."},
        EpwFault{"TimeGoesBack", withRecords([](auto & records) { std::swap(records[5], records[6]); }),
                 "Error reading line 15, times must increase from record to record."}),
    [](const auto & fault) { return std::string(fault.param.name); });

// *** Real files ***

class RealEpwFiles : public testing::TestWithParam<const char *> {};

TEST_P(RealEpwFiles, LoadAndSurviveConversionToTheLastBit) {
    const std::string path = std::string(HYG_SHARED_CLIMATE "epw/") + GetParam();
    HYG_REQUIRE_SHARED(path);
    ClimateDataLoader data;
    data.readClimateData(path);
    EXPECT_TRUE(data.isAnnual());
    EXPECT_EQ(data.size(), HOURS_OF_YEAR);
    for (unsigned int q = 0; q < Q_RAIN; ++q)
        EXPECT_EQ(data.m_valueStatus[q], 0U) << CLIMATE_QUANTITIES[q].caption;
    EXPECT_EQ(data.m_valueStatus[Q_RAIN], ClimateDataLoader::ST_MISSING);
    const std::string copyPath = scratchFile("a.c6b");
    data.writeClimateDataKOR(copyPath);
    ClimateDataLoader copy;
    copy.readClimateData(copyPath);
    EXPECT_EQ(copy, data);
    for (double t = 0; t < SECONDS_OF_YEAR; t += 12345.678) {
        data.setTime(2021, t);
        copy.setTime(2021, t);
        ASSERT_EQ(copy.m_currentValues, data.m_currentValues) << t;
    }
}

/// Global radiation of the file is the sum of its parts when the sun is taken at the middle of the hour.
TEST_P(RealEpwFiles, HaveRadiationAtTheMiddleOfTheHour) {
    const std::string path = std::string(HYG_SHARED_CLIMATE "epw/") + GetParam();
    HYG_REQUIRE_SHARED(path);
    SolarRadiationModel model;
    model.m_climate.readClimateData(path);
    std::ifstream in(path);
    std::string line;
    for (int i = 0; i < 8; ++i)
        std::getline(in, line);
    double squares = 0;
    std::size_t i = 0;
    while (std::getline(in, line)) {
        const auto fields = KOR::split(line, ',');
        if (fields[1] == "2" && fields[2] == "29")
            continue;
        const double global = KOR::string2val<double>(fields[13]);
        const double sine = std::max(0.0, model.sunAt(annualTime(Q_DIRECT_RADIATION, i)).sinAltitude);
        const double sum =
            model.m_climate.m_data[Q_DIFFUSE_RADIATION][i] + model.m_climate.m_data[Q_DIRECT_RADIATION][i] * sine;
        squares += (sum - global) * (sum - global);
        ++i;
    }
    EXPECT_LT(std::sqrt(squares / static_cast<double>(i)), 8) << "W/m2 rms";
}

INSTANTIATE_TEST_SUITE_P(Files, RealEpwFiles,
                         testing::Values("USA_CO_Golden-NREL.724666_TMY3.epw",
                                         "USA_IL_Chicago-OHare_2012_leapyear_8784rows.epw",
                                         "USA_TX_Houston-Bush.Intercontinental.AP.722430_TMY3.epw"),
                         [](const auto & file) { return std::string(file.param).substr(4, 2); });

} // namespace
