#include "TestTools.h"

#include <KOR/LinearSpline.h>
#include <KOR/LinearSplineGenerator.h>

#include <cmath>
#include <numbers>
#include <random>
#include <sstream>

using KOR::LinearSpline;
using KOR::LinearSplineGenerator;
using Values = std::vector<double>;

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// The definition of value() between the ends, by plain search.
double plainValue(const Values & x, const Values & y, double at) {
    const auto i = static_cast<std::size_t>(std::lower_bound(x.begin(), x.end(), at) - x.begin());
    if (i == 0)
        return y[0];
    const double t = (at - x[i - 1]) / (x[i] - x[i - 1]);
    return (1 - t) * y[i - 1] + t * y[i];
}

} // namespace

struct Duplicates {
    const char * name;
    Values x, y, newX, newY;
    std::vector<std::string> messages;
};
class LinearSplineDuplicates : public testing::TestWithParam<Duplicates> {};

TEST_P(LinearSplineDuplicates, AreSkippedWithAWarning) {
    const MessageRecorder recorder;
    const LinearSpline spline(GetParam().x, GetParam().y);
    EXPECT_EQ(spline.x(), GetParam().newX);
    EXPECT_EQ(spline.y(), GetParam().newY);
    std::vector<std::string> messages;
    for (const auto & entry : recorder.m_entries) {
        messages.push_back(entry.text);
        EXPECT_EQ(entry.where, "[LinearSpline::eliminateConsecutive]");
        EXPECT_EQ(entry.type, KOR::MSG_WARNING);
    }
    EXPECT_EQ(messages, GetParam().messages);
}
INSTANTIATE_TEST_SUITE_P(
    Points, LinearSplineDuplicates,
    testing::Values(
        Duplicates{
            "None", {0,  1},
             {2,  4},
             {0,1},
             {2,  4},
             {}
},
        Duplicates{
            "Inside",
            {0, 1, 1, 2},
            {0, 1, 5, 2},
            {0, 1, 2},
            {0, 1, 2},
            {"Duplicate x-value 1 found (and skipped).", "Skipped a total of 1 values because of duplicate x-values."}},
        Duplicates{"AtTheEnd",
                   {0, 1, 1},
                   {0, 1, 7},
                   {0, 1},
                   {0, 7},
                   {"Duplicate x-value found at the end. End y value 7 copied to the new spline (old y value: 1."}},
        Duplicates{"ThreeAtTheEnd",
                   {0, 1, 1, 1},
                   {0, 1, 5, 7},
                   {0, 1},
                   {0, 7},
                   {"Duplicate x-value 1 found (and skipped).",
                    "Duplicate x-value found at the end. End y value 7 copied to the new spline (old y value: 1.",
                    "Skipped a total of 1 values because of duplicate x-values."}},
        Duplicates{"OnlyOnePlace",
                   {3, 3},
                   {1, 2},
                   {3},
                   {2},
                   {"Duplicate x-value found at the end. End y value 2 copied to the new spline (old y value: 1."}}),
    [](const auto & row) { return std::string(row.param.name); });

TEST(LinearSpline, RefusesWhatIsNoFunction) {
    struct Row {
        Values x, y;
        const char * reason;
    };
    const std::string generating = "Error generating spline for linear interpolation: ";
    const Row rows[] = {
        {{0, 1},               {1},       "X and Y vector size mismatch."                                        },
        {{},                   {},        "Input vectors are empty."                                             },
        {{0, 2, 1},            {0, 0, 0}, "X values are not strictly monotonic increasing (at position/index 2)."},
        {{0, NOT_A_NUMBER, 1}, {0, 0, 0}, "X values are not strictly monotonic increasing (at position/index 1)."},
        {{0, INF},             {0, 1},    "X values or their range are not finite."                              },
        {{-1e308, 1e308},      {0, 1},    "X values or their range are not finite."                              },
    };
    for (const Row & row : rows) {
        LinearSpline spline({0, 1}, {0, 1});
        const auto ex = caught([&] { spline.setValues(row.x, row.y); });
        EXPECT_TRUE(ex.message() == row.reason || ex.message() == generating + row.reason) << ex.message();
        EXPECT_EQ(ex.chain().back().where, "[LinearSpline::setValues]");
    }
    LinearSpline spline;
    std::string reason;
    EXPECT_FALSE(spline.makeSpline(reason));
    EXPECT_EQ(reason, "Invalid vector dimensions.");
    spline.setPoints({0, 1}, {0});
    EXPECT_FALSE(spline.makeSpline(reason));
    EXPECT_EQ(reason, "Invalid vector dimensions.");
}

TEST(LinearSpline, IsNotEvaluatedBeforeItIsMade) {
    LinearSpline changed({0, 1, 2}, {2, 4, 5});
    changed.setPoints({0, 1, 2}, {3, 4, 5});
    for (const LinearSpline & spline : {LinearSpline(), changed}) {
        EXPECT_FALSE(spline.valid());
        for (const auto evaluate : {&LinearSpline::value, &LinearSpline::nonInterpolatedValue, &LinearSpline::slope}) {
            const auto ex = caught([&] { (spline.*evaluate)(0.5); });
            EXPECT_EQ(ex.message(), "Linear spline not properly initialized!");
            EXPECT_EQ(ex.chain().back().where, "[LinearSpline::value]");
        }
    }
    std::string reason;
    EXPECT_TRUE(changed.makeSpline(reason));
    EXPECT_EQ(changed.value(0.5), 3.5);
}

TEST(LinearSpline, EvaluatesAtInsideAndBeyondThePoints) {
    struct Row {
        double x, constant, linear, step, slope;
    };
    const Row rows[] = {
        {-5,   2, -8,   2, 2 },
        {0,    2, 2,    2, 2 },
        {0.5,  3, 3,    2, 2 },
        {1,    4, 4,    4, 2 },
        {2,    3, 3,    4, -1},
        {3,    2, 2,    2, -1},
        {3.25, 3, 3,    2, 4 },
        {3.5,  4, 4,    4, 4 },
        {10,   4, 30,   4, 4 },
        {INF,  4, INF,  4, 4 },
        {-INF, 2, -INF, 2, 2 },
    };
    LinearSpline spline({0, 1, 3, 3.5}, {2, 4, 2, 4});
    for (const Row & row : rows) {
        spline.setExtrapolation(LinearSpline::EP_CONSTANT);
        EXPECT_EQ(spline.value(row.x), row.constant) << row.x;
        spline.setExtrapolation(LinearSpline::EP_LINEAR);
        EXPECT_EQ(spline.value(row.x), row.linear) << row.x;
        EXPECT_EQ(spline.nonInterpolatedValue(row.x), row.step) << row.x;
        EXPECT_EQ(spline.slope(row.x), row.slope) << row.x;
    }
    EXPECT_TRUE(std::isnan(spline.value(NOT_A_NUMBER)));
    EXPECT_TRUE(std::isnan(spline.nonInterpolatedValue(NOT_A_NUMBER)));

    const LinearSpline point({1}, {7});
    for (const double x : {-1.0, 1.0, 2.0, NOT_A_NUMBER}) {
        EXPECT_EQ(point.value(x), 7);
        EXPECT_EQ(point.nonInterpolatedValue(x), 7);
        EXPECT_EQ(point.slope(x), 0);
    }
}

TEST(LinearSpline, FindsTheIntervalForEverySpacing) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0, 1);
    const std::function<double(double)> spacings[] = {
        [](double s) { return s; },                                         // even
        [](double s) { return std::pow(10.0, 30 * s); },                    // dense at the start
        [](double s) { return -std::pow(10.0, -12 * s); },                  // dense at the end
        [](double s) { return s < 0.5 ? s * 1e-9 : 1e9 + s; },              // two crowds far apart
        [](double s) { return 1e15 + std::floor(4e4 * s); },                // neighbouring doubles
        [](double s) { return (2 * s - 1) * 8e307; },                       // as wide as can be
        [](double s) { return s * std::numeric_limits<double>::min() / 8; } // denormal
    };
    for (std::size_t kind = 0; kind < std::size(spacings); ++kind)
        for (const std::size_t count : {2u, 3u, 10u, 100u, 3000u}) {
            Values x = {spacings[kind](0), spacings[kind](1)};
            while (x.size() < count)
                x.push_back(spacings[kind](unit(random)));
            std::sort(x.begin(), x.end());
            x.erase(std::unique(x.begin(), x.end()), x.end());
            Values y;
            for (std::size_t i = 0; i < x.size(); ++i)
                y.push_back(unit(random));
            const LinearSpline spline(x, y);
            Values places = x;
            for (std::size_t i = 0; i < x.size(); ++i) {
                places.push_back(std::nextafter(x[i], INF));
                places.push_back(std::nextafter(x[i], -INF));
                places.push_back(spacings[kind](unit(random)));
            }
            for (const double at : places)
                if (at >= x.front() && at <= x.back()) {
                    ASSERT_EQ(spline.value(at), plainValue(x, y, at)) << "spacing " << kind << ", x = " << at;
                }
        }
}

TEST(LinearSpline, EquidistantPointsNeedNoSearch) {
    LinearSpline spline({0, 0.1, 0.2, 0.30000000000000004}, {1, 2, 4, 3});
    std::string reason;
    ASSERT_TRUE(spline.setEquidistant(reason)) << reason;
    EXPECT_EQ(spline.equidistantStart(), 0);
    const double step = spline.equidistantStep();
    EXPECT_DOUBLE_EQ(step, 0.1);
    EXPECT_EQ(spline.value(0.15), (0.15 - 1 * step) * spline.slopes()[1] + 2);
    EXPECT_EQ(spline.value(-1), 1);
    EXPECT_EQ(spline.value(0.5), 3);
    EXPECT_TRUE(std::isnan(spline.value(NOT_A_NUMBER)));
    EXPECT_EQ(spline.slope(0.15), spline.slopes()[1]);
    EXPECT_TRUE(spline.makeSpline(reason));
    EXPECT_EQ(spline.equidistantStep(), step);

    for (const Values & x : {
             Values{0,    1, 2.1},
             Values{1, 2, 3},
             Values{0   }
    }) {
        spline.setValues(x, Values(x.size()));
        EXPECT_EQ(spline.equidistantStep(), 0);
        EXPECT_FALSE(spline.setEquidistant(reason));
    }
}

TEST(LinearSpline, TextFormReadsWhatItWrites) {
    const LinearSpline spline({-0.1, 1e-300, 1.0 / 3, 1e22}, {-1, 2.5, 1e-17, 123456789.123456789});
    std::ostringstream out;
    spline.write(out, 4);
    EXPECT_EQ(out.str(), "    -0.1 1e-300 0.3333333333333333 1e+22\n    -1 2.5 1e-17 123456789.12345679\n");
    LinearSpline read;
    read.read(out.str());
    EXPECT_EQ(read, spline);
    EXPECT_TRUE(read.valid());
    EXPECT_EQ(read.equidistantStep(), 0);
}

TEST(LinearSpline, TextFormNamesItsFaults) {
    struct Row {
        const char *x, *y, *message;
    };
    const Row rows[] = {
        {"",       "1 2",   "Missing data to read!"                         },
        {"1 2",    " ",     "Missing data to read!"                         },
        {"1 2 3",  "1 2",   "Number of x [3] and y [2] values differs!"     },
        {"1 2x 3", "1 2 3", "Cannot read x value #2 '2x' of linear spline." },
        {"1 2",    "1 nan", "Cannot read y value #2 'nan' of linear spline."},
        {"1 2,5",  "1 2",   "Cannot read x value #2 '2,5' of linear spline."},
    };
    const LinearSpline before({0, 1}, {2, 4});
    LinearSpline spline = before;
    for (const Row & row : rows) {
        const auto ex = caught([&] { spline.read(row.x, row.y); });
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, "[LinearSpline::read]");
    }
    EXPECT_EQ(caught([&] { spline.read("1 2 3\n"); }).message(), "Missing data to read!");
    EXPECT_ANY_THROW(spline.read("1 2\n1 2\n1 2\n"));
    EXPECT_ANY_THROW(spline.read("2 1", "0 0"));
    EXPECT_EQ(spline, before);
    EXPECT_TRUE(spline.valid());
}

TEST(LinearSpline, XmlFormKeepsAllThatStandsInIt) {
    for (const char * content : {
             "<a><KOR:LinearSpline name=\"sd+(rh)\" interpolation=\"linear\"><X unit=\"%\">0 50 100</X>"
             "<Y unit=\"m\">0.1 0.25 10</Y></KOR:LinearSpline></a>",
             "<a><KOR:LinearSpline name=\"f\"><X>0 1</X><Y>3 4</Y></KOR:LinearSpline></a>",
         }) {
        const ParsedXml xml(content);
        LinearSpline spline;
        spline.readXML(*xml.root().FirstChildElement());
        EXPECT_TRUE(spline.valid());
        TiXmlElement parent("a");
        spline.writeXML(parent);
        TiXmlPrinter printer;
        printer.SetStreamPrinting();
        parent.Accept(&printer);
        EXPECT_EQ(printer.Str(), content);
    }
}

struct SplineFault {
    const char *name, *inner, *cause, *message;
};
class LinearSplineXmlFaults : public testing::TestWithParam<SplineFault> {};

TEST_P(LinearSplineXmlFaults, AreNamedWithTheirLine) {
    const ParsedXml xml("<a>\n" + std::string(GetParam().inner) + "</a>");
    const LinearSpline before({0, 1}, {2, 4});
    LinearSpline spline = before;
    const auto ex = caught([&] { spline.readXML(*xml.root().FirstChildElement()); });
    EXPECT_EQ(ex.message(), std::string("Error in XML file, line ") + GetParam().message);
    EXPECT_EQ(ex.chain().back().where, "[LinearSpline::readXML]");
    if (*GetParam().cause) {
        EXPECT_EQ(ex.cause(), std::string("Error in XML file, line ") + GetParam().cause);
    }
    EXPECT_EQ(spline, before);
}
INSTANTIATE_TEST_SUITE_P(
    Xml, LinearSplineXmlFaults,
    testing::Values(SplineFault{"NoName", "<KOR:LinearSpline><X>0</X><Y>1</Y></KOR:LinearSpline>", "",
                                "2: Missing 'name' attribute in KOR:LinearSpline element."},
                    SplineFault{"OtherChild", "<KOR:LinearSpline name='f'>\n<X>0</X>\n<Z>1</Z></KOR:LinearSpline>", "",
                                "4: Undefined child element 'Z' in KOR:LinearSpline element, should be either X or Y."},
                    SplineFault{"SecondX", "<KOR:LinearSpline name='f'><X>0</X>\n<X>1</X><Y>2 3</Y></KOR:LinearSpline>",
                                "", "3: A second 'X' in KOR:LinearSpline element."},
                    SplineFault{"NoY", "<KOR:LinearSpline name='f'><X>0 1</X></KOR:LinearSpline>",
                                "2: Missing data to read!", "2: Invalid data in KOR::LinearSpline element."},
                    SplineFault{"NoNumber", "<KOR:LinearSpline name='f'><X>0 one</X><Y>1 2</Y></KOR:LinearSpline>",
                                "2: Cannot read x value #2 'one' of linear spline.",
                                "2: Invalid data in KOR::LinearSpline element."},
                    SplineFault{"Falling", "<KOR:LinearSpline name='f'><X>1 0</X><Y>1 2</Y></KOR:LinearSpline>", "",
                                "2: Invalid data in KOR::LinearSpline element."},
                    SplineFault{"BadUnit",
                                "<KOR:LinearSpline name='f'><X>0 1</X>\n<Y unit='furlong'>1 2</Y></KOR:LinearSpline>",
                                "3: Unit 'furlong' not found.", "3: Invalid x or y unit."}),
    [](const auto & row) { return std::string(row.param.name); });

TEST(LinearSpline, ConvertsItsUnitsOrStaysAsItIs) {
    LinearSpline spline({0, 50, 100}, {20, 25, 10});
    spline.m_name = "T(rh)";
    spline.m_xUnit = KOR::Unit("%");
    spline.m_yUnit = KOR::Unit("C");
    spline.setExtrapolation(LinearSpline::EP_LINEAR);
    const LinearSpline before = spline;
    EXPECT_ANY_THROW(spline.convert(KOR::Unit("---"), KOR::Unit("m")));
    EXPECT_EQ(spline, before);
    spline.convert(KOR::Unit("---"), KOR::Unit("K"));
    EXPECT_DOUBLE_EQ(spline.value(0.25), 295.65);
    EXPECT_EQ(spline.m_name, "T(rh)");
    EXPECT_EQ(spline.extrapolation(), LinearSpline::EP_LINEAR);
}

TEST(LinearSplineGenerator, KeepsTheToleranceAtMiddleAndQuartersOfEveryInterval) {
    struct Row {
        const char * name;
        std::function<double(double)> function;
        double xmin, xmax, absTol, relTol;
        std::size_t mostPoints;
    };
    const Row rows[] = {
        {"line",        [](double x) { return 3 * x - 1; },                                 -2,  5,  1e-9, 0,    2   },
        {"kink",        [](double x) { return std::abs(x - 0.3); },                         0,   1,  1e-9, 0,    40  },
        {"retention",   [](double pC) { return 0.3 / (1 + std::exp(4 * (pC - 4.5))); },     0,   10, 1e-5, 1e-4, 1000},
        {"wave",        [](double x) { return std::sin(32 * std::numbers::pi * x); },       0,   1,  1e-3, 0,    2000},
        {"bump",        [](double x) { return std::exp(-std::pow((x - 0.62) / 0.02, 2)); }, 0,   1,  1e-4, 0,    250 },
        {"exponential", [](double x) { return std::exp(x); },                               -20, 20, 0,    1e-3, 1500},
    };
    const MessageRecorder recorder;
    for (const Row & row : rows) {
        LinearSpline spline;
        const auto result =
            LinearSplineGenerator::generate(row.function, row.xmin, row.xmax, row.absTol, row.relTol, 10000, spline);
        EXPECT_TRUE(result.isWithinTolerance) << row.name;
        EXPECT_EQ(result.points, spline.size());
        EXPECT_LE(spline.size(), row.mostPoints) << row.name;
        EXPECT_EQ(spline.x().front(), row.xmin);
        EXPECT_EQ(spline.x().back(), row.xmax);
        for (std::size_t i = 1; i < spline.size(); ++i)
            for (const double part : {0.25, 0.5, 0.75}) {
                const double x = spline.x()[i - 1] + part * (spline.x()[i] - spline.x()[i - 1]);
                const double y = row.function(x);
                // A thousandth for the place's own round-off.
                ASSERT_NEAR(spline.value(x), y, 1.001 * (row.absTol + row.relTol * std::abs(y))) << row.name;
            }
    }
    for (const auto & entry : recorder.m_entries)
        EXPECT_NE(entry.type, KOR::MSG_WARNING) << entry.text;
}

TEST(LinearSplineGenerator, PutsItsPointsWhereTheFunctionBends) {
    LinearSpline spline;
    LinearSplineGenerator::generate([](double x) { return x < 9 ? 0.0 : (x - 9) * (x - 9); }, 0, 10, 1e-4, 0, 1000,
                                    spline);
    const auto bend = std::lower_bound(spline.x().begin(), spline.x().end(), 8.9);
    EXPECT_LT(bend - spline.x().begin(), 4);
    EXPECT_GT(spline.x().end() - bend, 30);
}

TEST(LinearSplineGenerator, StopsAtTheMostPointsWithAWarning) {
    const auto wave = [](double x) { return std::sin(x); };
    for (const std::size_t most : {2u, 3u, 10u, 100u}) {
        const MessageRecorder recorder;
        LinearSpline spline;
        const auto result = LinearSplineGenerator::generate(wave, 0, 100, 1e-12, 0, most, spline);
        EXPECT_FALSE(result.isWithinTolerance);
        EXPECT_LE(spline.size(), most);
        EXPECT_GE(spline.size(), most / 2);
        EXPECT_EQ(recorder.m_entries.front().type, KOR::MSG_WARNING);
    }
    LinearSpline step; // no spacing of doubles makes a jump straight
    const auto result =
        LinearSplineGenerator::generate([](double x) { return x < 0.3 ? 0.0 : 1.0; }, 0, 1, 1e-6, 0, 10000, step);
    EXPECT_LT(result.points, 100u);
    EXPECT_EQ(step.value(0.29), 0);
    EXPECT_EQ(step.value(0.31), 1);
}

TEST(LinearSplineGenerator, TakesTheRangeOfAnExistingSpline) {
    const MessageRecorder recorder;
    LinearSpline spline({2, 3, 8}, {0, 0, 0});
    spline.m_name = "kept";
    LinearSplineGenerator::generate([](double x) { return x; }, 0, 10, 1e-5, 0, 100, spline);
    EXPECT_EQ(spline.x(), (Values{2, 8}));
    EXPECT_EQ(spline.m_name, "kept");
    EXPECT_EQ(recorder.m_entries.front().text, "Spline data already existing in generator, using min/max values: 2/8");
    EXPECT_EQ(recorder.m_entries.front().where, "[LinearSplineGenerator::generate]");
}

TEST(LinearSplineGenerator, RefusesWhatCannotBeSampled) {
    struct Row {
        double xmin, xmax, absTol, relTol;
        std::size_t maxPoints;
        const char * message;
    };
    const Row rows[] = {
        {1,  1,   1e-5, 0, 100, "Expected a range of x values, found 1..1."                          },
        {0,  INF, 1e-5, 0, 100, "Expected a range of x values, found 0..inf."                        },
        {0,  1,   0,    0, 100, "Expected positive tolerances, found 0 (absolute) and 0 (relative)." },
        {0,  1,   -1,   1, 100, "Expected positive tolerances, found -1 (absolute) and 1 (relative)."},
        {0,  1,   1,    1, 1,   "Expected at least 2 as maximum number of points, found 1."          },
        {-1, 1,   1e-5, 0, 100, "The function is not finite at x = -1."                              },
    };
    for (const Row & row : rows) {
        LinearSpline spline;
        const auto ex = caught([&] {
            LinearSplineGenerator::generate([](double x) { return std::log(x + 1); }, row.xmin, row.xmax, row.absTol,
                                            row.relTol, row.maxPoints, spline);
        });
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, "[LinearSplineGenerator::generate]");
        EXPECT_TRUE(spline.empty());
    }
}
