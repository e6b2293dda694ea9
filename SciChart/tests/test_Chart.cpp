#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <KOR/Exception.h>

#include <QImage>
#include <QLocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using SCI::Chart;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double HOUR = 3600;
constexpr double DAY = 86400;
constexpr double YEAR = 31536000;

std::shared_ptr<SCI::PointModel> points(const std::vector<double> & x, const std::vector<double> & y) {
    struct Points : SCI::PointModel {
        std::vector<double> m_x, m_y;
        std::size_t count() const override { return m_x.size(); }
        double x(std::size_t i) const override { return m_x[i]; }
        double y(std::size_t i) const override { return m_y[i]; }
    };
    const auto model = std::make_shared<Points>();
    model->m_x = x;
    model->m_y = y;
    return model;
}

struct AxisCase {
    const char * name;
    SCI::Axis axis;
    double from, to; ///< of the data
    const char * language;
    std::vector<const char *> labels;
};
class ChartAxes : public testing::TestWithParam<AxisCase> {};

/// The labels of the x axis of a chart that is 640 pixels wide.
TEST_P(ChartAxes, AreLabelled) {
    const AxisCase & given = GetParam();
    Chart chart;
    chart.setLocale(QLocale(QString::fromLatin1(given.language)));
    chart.setAxis(SCI::X_BOTTOM, given.axis);
    chart.addLine(points({given.from, given.to}, {0, 1}));
    std::vector<std::string> labels;
    for (const QString & label : chart.tickLabels(SCI::X_BOTTOM))
        labels.push_back(label.toStdString());
    EXPECT_THAT(labels, testing::ElementsAreArray(given.labels));
}
INSTANTIATE_TEST_SUITE_P(
    , ChartAxes,
    testing::Values(
        AxisCase{
            "Plain", {"",     "m",   "m"},
             0, 1, "en", { "0", "0.2", "0.4", "0.6", "0.8", "1"}
},
        AxisCase{"GermanCommaAndUnit", {"", "m", "mm"}, 0, 0.001, "de", {"0", "0,2", "0,4", "0,6", "0,8", "1"}},
        AxisCase{"OffsetUnit", {"", "K", "C"}, 263.15, 303.15, "en", {"-10", "0", "10", "20", "30"}},
        AxisCase{"LargeNumbers", {"", "Pa", "Pa"}, 0, 1e9, "en", {"0", "2·10⁸", "4·10⁸", "6·10⁸", "8·10⁸", "10⁹"}},
        AxisCase{"Logarithmic",
                 {"", "s", "s", SCI::LOGARITHMIC},
                 1e-12,
                 1e-8,
                 "en",
                 {"10⁻¹²", "10⁻¹¹", "10⁻¹⁰", "10⁻⁹", "10⁻⁸"}},
        AxisCase{"YearOfMonths",
                 {"", "s", "h", SCI::DATE, 2021},
                 0,
                 YEAR,
                 "en",
                 {"Jan\n2021", "Mar", "May", "Jul", "Sep", "Nov", "Jan\n2022"}},
        AxisCase{"MonthsWithoutYear",
                 {"", "s", "s", SCI::DATE},
                 0,
                 YEAR,
                 "de",
                 {"Jan", "Mär", "Mai", "Jul", "Sep", "Nov", "Jan"}},
        AxisCase{"NoLeapDay",
                 {"", "s", "s", SCI::DATE, 2020},
                 57 * DAY,
                 61 * DAY,
                 "de",
                 {"27. Feb", "28. Feb", "1. Mär", "2. Mär", "3. Mär"}},
        AxisCase{"Hours",
                 {"", "s", "s", SCI::DATE, 2020},
                 21 * HOUR,
                 33 * HOUR,
                 "en",
                 {"21:00", "2 Jan", "03:00", "06:00", "09:00"}},
        AxisCase{"YearsFromDays",
                 {"", "d", "d", SCI::DATE, 2000},
                 0,
                 365 * 40,
                 "en",
                 {"2000", "2010", "2020", "2030", "2040"}}),
    [](const auto & row) { return std::string(row.param.name); });

TEST(Chart, RangesFollowVisibleSeriesAndLeaveGapsOut) {
    Chart chart;
    const auto small = chart.addLine(points({0, 1, 2}, {0, NONE, 1}));
    const auto large = chart.addLine(points({-5, 20}, {0, 1000}));
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).from, -5);
    EXPECT_EQ(chart.range(SCI::Y_LEFT).to, 1000);
    chart.setSeriesVisible(large, false);
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 2);
    EXPECT_EQ(chart.range(SCI::Y_LEFT).to, 1);
    chart.setRange(SCI::X_BOTTOM, {7, 3});
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).from, 3);
    chart.setRange(SCI::X_BOTTOM, {4, 4}); // cannot be shown
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 7);
    chart.showAll();
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 2);
    chart.remove(small);
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 20) << "hidden series count when no other is there";
    chart.remove(Chart::ALL);
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 1);
}

TEST(Chart, LogarithmicAxisStartsAtTheSmallestPositiveValue) {
    Chart chart;
    chart.setAxis(SCI::Y_LEFT, {"", "s", "s", SCI::LOGARITHMIC});
    chart.addLine(points({0, 1, 2, 3}, {-1, 0, 2e-12, 5e-9}));
    EXPECT_NEAR(chart.range(SCI::Y_LEFT).from, 1e-12, 1e-18);
    EXPECT_NEAR(chart.range(SCI::Y_LEFT).to, 1e-8, 1e-14);
    chart.setRange(SCI::Y_LEFT, {-1, 1});
    EXPECT_GT(chart.range(SCI::Y_LEFT).from, 0);
}

TEST(Chart, UnitsThatDoNotFitAreRefused) {
    Chart chart;
    chart.setAxis(SCI::Y_LEFT, {"T", "K", "C"});
    EXPECT_THROW(chart.setAxis(SCI::Y_LEFT, {"T", "K", "m"}), KOR::Exception);
    EXPECT_THROW(chart.setAxis(SCI::Y_LEFT, {"T", "nonsense", ""}), KOR::Exception);
    EXPECT_THROW(chart.setAxis(SCI::X_BOTTOM, {"T", "m", "m", SCI::DATE}), KOR::Exception);
    EXPECT_EQ(chart.axis(SCI::Y_LEFT).shownUnit, "C");
}

/// A line from corner to corner goes through the middle; where there is a gap, there is only ground.
TEST(Chart, LinesAreDrawnWhereTheirValuesAre) {
    for (const bool isDark : {false, true}) {
        Chart chart;
        chart.setDark(isDark);
        SCI::LineStyle style;
        style.color = Qt::red;
        style.width = 5;
        chart.addLine(points({0, 4, 4, 6, 6, 10}, {5, 5, NONE, NONE, 5, 5}), style);
        chart.setRange(SCI::Y_LEFT, {0, 10.001});
        const QImage image = chart.image(QSize(400, 300));
        ASSERT_EQ(image.size(), QSize(400, 300));
        int red = 0;
        int width = 0;
        for (int x = 0; x < image.width(); ++x) {
            bool isRed = false;
            for (int y = 0; y < image.height(); ++y)
                isRed |= image.pixelColor(x, y) == QColor(Qt::red);
            red += isRed;
            width += x > 40; // about
        }
        EXPECT_NEAR(red, 0.8 * width, 0.1 * width);
        EXPECT_EQ(image.pixelColor(2, 2).lightness() < 128, isDark);
    }
}

} // namespace
