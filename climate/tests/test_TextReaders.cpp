#include "ClimateTest.h"

#include <CCM/SolarRadiationModel.h>

#include "../src/Lambert.h"

#include <KOR/Strings.h>

#include <algorithm>
#include <numbers>

using namespace CCM;

namespace {

std::string lines(std::size_t count, const std::string & line) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += line + '\n';
    return result;
}

/// The text with the line of this number (from 1) replaced.
std::string withLine(const std::string & text, std::size_t number, const std::string & line) {
    auto all = KOR::split(text, '\n');
    std::string result;
    for (std::size_t i = 0; i < all.size(); ++i)
        result += (i ? "\n" : "") + (i + 1 == number ? line : std::string(all[i]));
    return result;
}

// *** Test reference years ***

constexpr const char * TRY_HEADER =
    "Koordinatensystem : Lambert konform konisch\nRechtswert        : 4201500 Meter\n"
    "Hochwert          : 2846500 Meter\nHoehenlage        : 34 Meter ueber NN\n"
    "     RW      HW MM DD HH     t    p  WR   WG N    x  RF    B    D   A    E IL\n*** \n";
constexpr std::size_t TRY_HEADER_LINES = 6;

std::string tryYear(std::size_t hours = HOURS_OF_YEAR) {
    constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::string text = TRY_HEADER;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= DAYS[month - 1]; ++day)
            for (int hour = 1; hour <= 24 && hours > 0; ++hour, --hours)
                text += KOR::text("4201500 2846500 %1 %2  %3  -1.4  999 999  4.3 5  3.5  91  50 20 289 -316  3\n",
                                  month, day, hour);
    return text;
}

ClimateDataLoader parsedDat(const std::string & text, bool headerOnly = false) {
    ClimateDataLoader data;
    data.parseBBSRDat(text, headerOnly);
    return data;
}

TEST(TryReader, ReadsPlaceAndColumns) {
    const ClimateDataLoader data = parsedDat(tryYear());
    EXPECT_EQ(data.m_source, "DWD/BBSR TRY 2017");
    EXPECT_EQ(data.m_country, "Germany");
    EXPECT_EQ(data.m_comment, "Import from BBSR-Data");
    EXPECT_EQ(data.m_wmoCode, "BBSR");
    EXPECT_EQ(data.m_city, "---");
    EXPECT_NEAR(data.m_latitude, 52.393763, 1e-6);
    EXPECT_NEAR(data.m_longitude, 13.065145, 1e-6);
    EXPECT_EQ(data.m_elevation, 34);
    EXPECT_EQ(data.m_timeZone, 1);
    const double expected[] = {-1.4, 91, 0, 20, -9999, 4.3, 289, 99900, -9999};
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        EXPECT_EQ(data.m_data[q].front(), expected[q]) << CLIMATE_QUANTITIES[q].caption;
    SolarRadiationModel model;
    model.m_climate = data;
    const std::size_t noon = 171 * 24 + 12;
    EXPECT_NEAR(data.m_data[Q_DIRECT_RADIATION][noon],
                50 / model.sunAt(static_cast<double>(noon) * 3600 + 1800).sinAltitude, 1e-9);
    EXPECT_NEAR(parsedDat(std::string(TRY_HEADER), true).m_latitude, 52.393763, 1e-6);
    // A header without coordinates: they stand in every data line, too.
    const std::string bare = "TRY\n***\n" + tryYear(1).substr(std::string(TRY_HEADER).size());
    EXPECT_NEAR(parsedDat(bare, true).m_longitude, 13.065145, 1e-6);
}

TEST(Lambert, GivesThePublishedCoordinates) {
    const std::string path = HYG_SHARED_CLIMATE "reference/lambert_epsg3034_points.csv";
    HYG_REQUIRE_SHARED(path);
    CsvTable table(path);
    int count = 0;
    for (; table.next(); ++count) {
        const GeographicPosition place = fromLambertEurope(table.number("easting_RW_m"), table.number("northing_HW_m"));
        EXPECT_NEAR(place.latitude, table.number("lat_inverse_EPSG3034"), 1.1e-6);
        EXPECT_NEAR(place.longitude, table.number("lon_inverse_EPSG3034"), 1.1e-6);
    }
    EXPECT_EQ(count, 15);
}

TEST(TryReader, LoadsARealFile) {
    const std::string path = HYG_SHARED_CLIMATE "dat/TRY2015_523938130651_Jahr.dat";
    HYG_REQUIRE_SHARED(path);
    ClimateDataLoader data;
    data.readClimateData(path);
    EXPECT_EQ(data.m_elevation, 34);
    for (unsigned int q = 0; q < Q_RAIN; ++q)
        EXPECT_EQ(data.m_valueStatus[q] & ~std::uint32_t(ClimateDataLoader::ST_MISSING), 0U) << q;
    EXPECT_EQ(data.m_data[Q_AIR_PRESSURE].front(), 98400);
    // Direct normal radiation gives the file's sum on the horizontal back, but for the hours in which the clear sky caps.
    SolarRadiationModel model;
    model.m_climate = data;
    double horizontal = 0;
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
        horizontal += data.m_data[Q_DIRECT_RADIATION][i] *
                      std::max(0.0, model.sunAt(annualTime(Q_DIRECT_RADIATION, i)).sinAltitude);
    double inFile = 0;
    std::istringstream in(fileContent(path));
    for (std::string line; std::getline(in, line);)
        if (const auto words = KOR::words(line); words.size() == 17 && words[0] == "4201500")
            inFile += KOR::string2val<double>(words[12]);
    EXPECT_GT(inFile, 300000);
    EXPECT_NEAR(horizontal / inFile, 1, 0.01);
}

// *** WAC ***

struct Wac {
    std::string offset = "10\tLine Offset";
    std::string rows = "8760", step = "1";
    std::string captions = "TA\tHREL\tISDH\tISD\tILAH\tRN\tWD\tWS\tPSTA\tOTHER";
    std::string line = "3.5\t0.81\t20\t30\t300\t0.4\t230\t3\t1013\t7";
    std::size_t count = 8760;

    std::string text() const {
        return "X_WAC_02\n" + offset + "\nTown\nremark \xB0\n13.4\tLongitude\n52.5\tLatitude\n35\tHeight\n1.5\tZone\n" +
               step + "\tStep\n" + rows + "\tRows\n10\tColumns\n" + captions + '\n' + lines(count, line);
    }
};
constexpr std::size_t WAC_HEADER_LINES = 12;

ClimateDataLoader parsedWac(const std::string & text, bool headerOnly = false) {
    ClimateDataLoader data;
    data.parseWAC(text, headerOnly);
    return data;
}

TEST(WacReader, ReadsPlaceAndColumns) {
    const ClimateDataLoader data = parsedWac(Wac().text());
    EXPECT_EQ(data.m_city, "Town");
    EXPECT_EQ(data.m_comment, "remark \xC2\xB0");
    EXPECT_EQ(data.m_longitude, 13.4);
    EXPECT_EQ(data.m_latitude, 52.5);
    EXPECT_EQ(data.m_elevation, 35);
    EXPECT_EQ(data.utcOffset(), 1.5);
    EXPECT_TRUE(data.isAnnual());
    const double expected[] = {3.5, 81, 0, 20, 230, 3, 300, 101300, 0.4};
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        EXPECT_EQ(data.m_data[q].front(), expected[q]) << CLIMATE_QUANTITIES[q].caption;
    EXPECT_EQ(parsedWac(Wac{.count = 0}.text(), true).m_city, "Town");
    const ClimateDataLoader blanks = parsedWac(
        Wac{.captions = "TA HREL ISDH ISD ILAH RN WD WS PSTA OTHER", .line = "3.5 0.81  20 30 300 0.4 230 3 1013 7"}
            .text());
    EXPECT_EQ(blanks.m_data, data.m_data);
}

TEST(WacReader, FindsOutUnitsAndSplitsGlobalRadiation) {
    const ClimateDataLoader data =
        parsedWac(Wac{.captions = "ta\tHrel\tISGH\tISDH\tPSTA\tWV", .line = "1\t55\t120\t100\t98000\t-9999"}.text());
    EXPECT_EQ(data.m_data[Q_RELATIVE_HUMIDITY][0], 55);
    EXPECT_EQ(data.m_data[Q_AIR_PRESSURE][0], 98000);
    EXPECT_EQ(data.m_data[Q_WIND_VELOCITY][0], -9999);
    EXPECT_EQ(data.m_data[Q_RAIN][0], -9999);
    SolarRadiationModel model;
    model.m_climate = data;
    const std::size_t noon = 171 * 24 + 12;
    EXPECT_NEAR(data.m_data[Q_DIRECT_RADIATION][noon],
                20 / model.sunAt(static_cast<double>(noon) * 3600 + 1800).sinAltitude, 1e-9);
}

TEST(WacReader, TakesTimesFromTheTimeColumn) {
    const std::string rest = "\t5\t0\t0\n";
    const std::string records =
        "2011-02-28 23:00" + rest + "2011-02-28 23:30" + rest + "2012-02-29 10:00" + rest + "2012-03-01 00:00" + rest;
    const ClimateDataLoader data =
        parsedWac(Wac{.rows = "4", .step = "0.5", .captions = "TIME\tTA\tISD\tISDH", .count = 0}.text() + records);
    EXPECT_EQ(data.m_startYear, 2011);
    EXPECT_THAT(data.m_timePoints, testing::ElementsAre(58 * 86400 + 82800, 58 * 86400 + 84600, (365 + 59) * 86400));
    EXPECT_EQ(data.size(), 3U);
    // The same with blanks, where a time stamp is two words.
    std::string withBlanks = records;
    std::replace(withBlanks.begin(), withBlanks.end(), '\t', ' ');
    EXPECT_EQ(parsedWac(Wac{.rows = "4", .captions = "TIME TA ISD ISDH", .count = 0}.text() + withBlanks).m_timePoints,
              data.m_timePoints);
}

TEST(WacReader, KnowsTheRealLayout) {
    for (const char * name : {"synthetic_layout_example_utf8.wac", "synthetic_layout_example_cp1252.wac"}) {
        const std::string path = std::string(HYG_SHARED_CLIMATE "wac/") + name;
        HYG_REQUIRE_SHARED(path);
        ClimateDataLoader data;
        data.readClimateData(path, true);
        EXPECT_EQ(data.m_longitude, 13.4);
        EXPECT_EQ(data.m_latitude, 52.5);
        EXPECT_EQ(data.m_elevation, 35);
        EXPECT_EQ(data.m_timeZone, 1);
        // Two days are no year.
        EXPECT_EQ(caught([&] { data.readClimateData(path); }).cause(),
                  "WAC files without time column must be annual climate data files with 8760 values spaced at 1 h time "
                  "difference.");
        // The two days, all year long
        std::string text = fileContent(path);
        const std::size_t data0 = text.find("PMSL\r\n") + 6;
        const std::string twoDays = text.substr(data0);
        for (int i = 0; i < 182; ++i)
            text += twoDays;
        const auto all = KOR::split(text, '\n');
        std::string wholeYear;
        for (std::size_t i = 0; i < 12 + HOURS_OF_YEAR; ++i)
            wholeYear += std::string(i == 9 ? "8760\tRows\r" : all[i]) + '\n';
        const ClimateDataLoader year = parsedWac(wholeYear);
        EXPECT_EQ(year.size(), HOURS_OF_YEAR);
        EXPECT_EQ(year.m_data[Q_TEMPERATURE][0], 3.2);
        EXPECT_EQ(year.m_data[Q_RELATIVE_HUMIDITY][0], 91);
    }
}

// *** CCD ***

TEST(CcdReader, ReadsQuantityUnitCommentsAndValues) {
    const CCDFile file =
        ClimateDataLoader::parseCCD("# first\n#second\nTemperature : K\r\n"
                                    "0 00:30:00 283.15\n\n0\t1:0:0.5 284 \n# third\n364 24:00:00 -1e2\n");
    EXPECT_EQ(file.quantity, "Temperature");
    EXPECT_EQ(file.unit, "K");
    EXPECT_EQ(file.comment, "first\nsecond\nthird");
    EXPECT_THAT(file.timePoints, testing::ElementsAre(1800, 3600.5, SECONDS_OF_YEAR));
    EXPECT_THAT(file.values, testing::ElementsAre(283.15, 284, -100));
    EXPECT_EQ(ClimateDataLoader::parseCCD("QUANTITY : Rain l/m2h\n").quantity, "Rain");
    EXPECT_EQ(ClimateDataLoader::parseCCD("Rain : 1 mm/h\n").quantity, "Rain");

    ClimateDataLoader data;
    data.setQuantity(file);
    data.setTime(0, 1800);
    EXPECT_NEAR(data.value(Q_TEMPERATURE), 10, 1e-9);
    EXPECT_EQ(data.value(Q_RELATIVE_HUMIDITY), 80);
    EXPECT_EQ(caught([] {
                  ClimateDataLoader().setQuantity({"Snow", "C", "", {}, {}});
              }).message(),
              "Unknown climate quantity 'Snow'.");
}

TEST(CcdReader, ReadsWhatIsWritten) {
    ClimateDataLoader data = annualClimate();
    data.m_data[Q_WIND_VELOCITY][5] = 0.1 + 0.2;
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const std::string path = scratchFile("a.ccd");
        ClimateDataLoader::writeCCDFile(path, data.quantityAsCCD(static_cast<quantity_t>(q)));
        ClimateDataLoader copy;
        copy.setQuantity(ClimateDataLoader::readCCDFile(path));
        EXPECT_EQ(copy.m_data[q], data.m_data[q]);
    }
    const CCDFile odd{
        "Rain", "l/m2h", "one\ntwo", {0.1 + 0.2, 86399.7, 86400 * 400.5},
           {1,         2,       3            }
    };
    const std::string path = scratchFile("b.ccd");
    ClimateDataLoader::writeCCDFile(path, odd);
    const CCDFile copy = ClimateDataLoader::readCCDFile(path);
    EXPECT_EQ(copy.comment, odd.comment);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(copy.timePoints[i], odd.timePoints[i], 1e-8);
}

TEST(HeaderLine, HasKeywordValueAndUnit) {
    const auto line = ClimateDataLoader::valueFromParaString(" HEIGHT above ground:  10.5\tm ");
    EXPECT_EQ(line.keyword, "HEIGHT above ground");
    EXPECT_EQ(line.value, "10.5");
    EXPECT_EQ(line.unit, "m");
    for (const char * bad : {"", "HEIGHT 10 m", "HEIGHT : 10", " : 10 m", "HEIGHT : 10 m s"}) {
        const KOR::Exception ex = caught([bad] { ClimateDataLoader::valueFromParaString(bad); });
        EXPECT_EQ(ex.message(), "Invalid header.\n");
        EXPECT_EQ(ex.cause(),
                  std::string("Invalid header line '") + bad + "', expected format <keyword> : <value> <unit>.");
        EXPECT_EQ(ex.chain().front().where, "[CCM::ClimateDataLoader::valueFromParaString]");
    }
}

// *** Faults of all three ***

struct TextFault {
    const char * name;
    const char * extension;
    std::string text;
    std::string message;
};
class TextFaults : public testing::TestWithParam<TextFault> {};

TEST_P(TextFaults, AreNamedWithTheirLine) {
    const std::string extension = GetParam().extension;
    const std::string path = scratchFile("a." + extension);
    writeText(path, GetParam().text);
    ClimateDataLoader data;
    if (extension == "ccd") {
        const KOR::Exception ex = caught([&] { ClimateDataLoader::readCCDFile(path); });
        EXPECT_EQ(ex.message(), GetParam().message);
        EXPECT_EQ(ex.chain().back().where, "[ClimateDataLoader::readCCDFile]");
        return;
    }
    const KOR::Exception ex = caught([&] { data.readClimateData(path); });
    EXPECT_EQ(ex.cause(), GetParam().message);
    EXPECT_EQ(ex.chain().front().where, extension == "wac" ? "[ClimateDataLoader::readClimateDataWAC]"
                                                           : "[ClimateDataLoader::readClimateDataBBSRDat]");
    EXPECT_EQ(ex.message(), "Error reading climate data file.");
}

constexpr const char * NOT_ANNUAL = "WAC files without time column must be annual climate data files with 8760 values "
                                    "spaced at 1 h time difference.";
const std::string TIMED = "TIME\tTA\tISD\tISDH";

INSTANTIATE_TEST_SUITE_P(
    Dat, TextFaults,
    testing::Values(
        TextFault{"Empty", "dat", "", "Missing header lines.\n"},
        TextFault{"NoAsterisks", "dat", "a\nb\nc\n", "Error reading last header line with ***."},
        TextFault{"NoData", "dat", TRY_HEADER, "Missing data, only got 0 values, expected 8760 hourly values."},
        TextFault{"OneShort", "dat", tryYear(8759), "Missing data, only got 8759 values, expected 8760 hourly values."},
        TextFault{"OneMore", "dat", tryYear() + "x\n",
                  "Invalid data line: 8767, expected no more than 8760 hourly values."},
        TextFault{"Nineteen", "dat", TRY_HEADER + lines(1, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19"),
                  "Invalid data line: 7, invalid number of columns (expected 17)."},
        TextFault{
            "Text", "dat",
            withLine(tryYear(), TRY_HEADER_LINES + 1, "4201500 2846500 1 1 1 cold 999 1 4.3 5 3.5 91 50 20 289 -316 3"),
            "Invalid data line: 7, 'cold' in column 6 is not a number."},
        TextFault{
            "Order", "dat",
            withLine(tryYear(), TRY_HEADER_LINES + 2, "4201500 2846500 1 1 1 1 999 1 4.3 5 3.5 91 50 20 289 -316 3"),
            "Invalid data line: 8, expected hour 2 of the year, 8760 hours without gaps."}),
    [](const auto & fault) { return std::string(fault.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Wac, TextFaults,
    testing::Values(
        TextFault{
            "Empty", "wac", "", "Invalid file format, expected WAC in line 1."
},
        TextFault{"NotWac", "wac", "EPW\n10\n", "Invalid file format, expected WAC in line 1."},
        TextFault{"NoOffset", "wac", "WAC\nten\n", "Error reading number of header lines from line 2."},
        TextFault{"NoLine2", "wac", "WAC", "Error reading number of header lines from line 2."},
        TextFault{"FewLines", "wac", "WAC\n8\n", "Missing header lines, expected at least 9 lines."},
        TextFault{"HeaderEnds", "wac", "WAC\n12\na\nb\nc\n",
                  "Expected header lines (offset) 12, but got an error reading line #6."},
        TextFault{"HugeOffset", "wac", "WAC\n18446744073709551615\na\n",
                  "Expected header lines (offset) 18446744073709551615, but got an error reading line #4."},
        TextFault{"NoNumber", "wac", withLine(Wac().text(), 6, "north"),
                  "Expected header lines (offset) 10, but found no number in line #6."},
        TextFault{"NoCaptions", "wac", Wac().text().substr(0, Wac().text().find("TA\t")),
                  "Error reading last header line with table captions."},
        TextFault{"NoRadiation", "wac", Wac{.captions = "TA", .line = "1"}.text(),
                  "Missing direct radiation or global radiation, either must be present!"},
        TextFault{"NoDiffuse", "wac", Wac{.captions = "TA\tISGH", .line = "1\t2"}.text(),
                  "Diffuse radiation is required to split global radiation into direct radiation component!"},
        TextFault{"GlobalBelowDiffuse", "wac", Wac{.captions = "ISGH\tISDH", .line = "1\t2"}.text(),
                  "Error in line #1 (total line #13): global radiation intensity must not be smaller than diffuse "
                  "radiation intensity!"},
        TextFault{"OneShort", "wac", Wac{.count = 8759}.text(),
                  "Error reading data line #8760 (total line #8772), last successfully read line was "
                  "'3.5\t0.81\t20\t30\t300\t0.4\t230\t3\t1013\t7'."},
        TextFault{"Rows8759", "wac", Wac{.rows = "8759", .count = 8759}.text(), NOT_ANNUAL},
        TextFault{"HalfHours", "wac", Wac{.step = "0.5"}.text(), NOT_ANNUAL},
        TextFault{"OneMore", "wac", Wac{.count = 8761}.text(),
                  "Unexpected data line #8761 (total line #8773), the header announces 8760 lines of data."},
        TextFault{
            "EmptyLine", "wac", withLine(Wac().text(), WAC_HEADER_LINES + 3, " "),
            "Missing data, empty line encountered in data line #3 (total line #15), expected 8760 lines of data."},
        TextFault{"FewColumns", "wac", withLine(Wac().text(), WAC_HEADER_LINES + 3, "1\t2"),
                  "Error reading data line #3 (total line #15); not enough columns (expected 10 columns, got 2 "
                  "columns)!"},
        TextFault{"Text", "wac",
                  withLine(Wac().text(), WAC_HEADER_LINES + 2, "3.5\t0.81\tdark\t30\t300\t0.4\t230\t3\t1013\t7"),
                  "Error reading data line #2 (total line #14): 'dark' in column ISDH is not a number."},
        TextFault{"BadTime", "wac", Wac{.rows = "1", .captions = TIMED, .line = "01.02.2011 00:00\t1\t2\t3"}.text(),
                  "Error parsing date/time entry in line #1 (total line #13)"},
        TextFault{"TimeStands", "wac", Wac{.rows = "2", .captions = TIMED, .line = "2011-01-01 00:00\t1\t2\t3"}.text(),
                  "Error parsing date/time entry in line #2 (total line #14): times must increase from line to line."}),
    [](const auto & fault) { return std::string(fault.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Ccd, TextFaults,
    testing::Values(TextFault{"Empty", "ccd", "", "#1: Bad header format in line 1"},
                    TextFault{"Header", "ccd", "# x\nTemperature C\n", "#2: Bad header format in line 2"},
                    TextFault{"TimeStands", "ccd", "T : C\n0 1:0:0 2\n0 1:0:0 2\n",
                              "#3: Invalid time point (non monotonic increasing or duplicate time point in line 3"},
                    TextFault{"Text", "ccd", "T : C\n0 1:0:0 cold\n", "#2: Invalid format of line 2"},
                    TextFault{"FewFields", "ccd", "T : C\n1:0:0 2\n", "#2: Invalid format of line 2"},
                    TextFault{"Minutes", "ccd", "T : C\n0 1:61:0 2\n", "#2: Invalid format of line 2"},
                    TextFault{"Commas", "ccd", "T : C\n,,,,,,,,\n", "#2: Invalid format of line 2"}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(Messages, QuoteNoMoreThanTheBeginningOfALongLine) {
    const std::string line = std::string(199, 'x') + "\xC3\xA4" + std::string(1000, 'y');
    EXPECT_EQ(caught([&] { ClimateDataLoader::valueFromParaString(line); }).cause(),
              "Invalid header line '" + std::string(199, 'x') + "...', expected format <keyword> : <value> <unit>.");
}

TEST(CcdReader, NamesTheFileItCannotOpen) {
    EXPECT_EQ(caught([] { ClimateDataLoader::readCCDFile("/none/a.ccd"); }).message(),
              "#0: Cannot open file '/none/a.ccd'.");
}

/// Every beginning of a file and thousands of changed bytes give data or an error, never anything else.
TEST(AllReaders, SurviveDamagedFiles) {
    const std::string texts[] = {
        Wac{.rows = "2", .captions = TIMED, .count = 0}
        .text() +
            "2011-01-01 00:00\t1\t2\t3\n2011-01-01 01:00\t1\t2\t3\n",
        tryYear(3), "# x\nTemperature : C\n0 01:00:00 3\n1 02:00:00 4\n",
        std::string("LOCATION,a,,b,c,d,1,2,3,4\n2\n3\n4\n5\n6,\"x\"\n7\n8\n") +
            "2001,1,1,1,0,?,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17\n"
    };
    std::uint32_t random = 12345;
    int good = 0;
    for (std::size_t kind = 0; kind < std::size(texts); ++kind) {
        const auto read = [kind, &good](const std::string & text) {
            ClimateDataLoader data;
            try {
                if (kind == 0)
                    data.parseWAC(text);
                else if (kind == 1)
                    data.parseBBSRDat(text);
                else if (kind == 2)
                    ClimateDataLoader::parseCCD(text);
                else
                    data.parseEPW(text);
                ++good;
            } catch (const KOR::Exception &) {
            }
        };
        for (std::size_t size = 0; size <= texts[kind].size(); ++size)
            read(texts[kind].substr(0, size));
        for (int i = 0; i < 10000; ++i) {
            std::string text = texts[kind];
            for (int change = 0; change <= i % 4; ++change) {
                random = random * 1664525 + 1013904223;
                text[(random >> 8) % text.size()] = static_cast<char>(random >> 24);
            }
            read(text);
        }
    }
    EXPECT_GT(good, 1000);
}

} // namespace
