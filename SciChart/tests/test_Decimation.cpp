#include <SCI/Decimation.h>
#include <SCI/PointModels.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using SCI::Decimation;
constexpr std::size_t GAP = Decimation::GAP;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
using Indices = std::vector<std::size_t>;

/// Points at 0, 1, 2, ... in columns that end at 4 and 8.
struct Case {
    const char * name;
    std::vector<double> y;
    double lowest;
    Indices picked;
};
class DecimationCases : public testing::TestWithParam<Case> {};

TEST_P(DecimationCases, KeepFirstExtremesLastAndGaps) {
    const std::vector<double> & y = GetParam().y;
    std::vector<double> x(y.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = static_cast<double>(i);
    const SCI::ArrayModel model(x, y);
    EXPECT_EQ(Decimation::sorted(model, 0, y.size(), {4, 8}, GetParam().lowest), GetParam().picked);
    EXPECT_EQ(Decimation::unsorted(model, GetParam().lowest, [](double v) { return std::floor(std::min(v, 8.0) / 4); }),
              GetParam().picked);
}
constexpr double LEAST = -std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(
    , DecimationCases,
    testing::Values(
        Case{
            "Nothing", {},
             LEAST, { }
},
        Case{"OnePoint", {3}, LEAST, {0}},
        Case{"PeakAndDip", {5, 9, 1, 5, 5, 2, 7, 5}, LEAST, {0, 1, 2, 3, 4, 5, 6, 7}},
        Case{"Flat", {5, 5, 5, 5, 5, 5, 5, 5}, LEAST, {0, 3, 4, 7}},
        Case{"Rising", {0, 1, 2, 3, 4, 5, 6, 7}, LEAST, {0, 3, 4, 7}},
        Case{"BehindTheLastColumn", {0, 0, 0, 0, 0, 0, 0, 0, 1, 3, 2}, LEAST, {0, 3, 4, 7, 8, 9, 10}},
        Case{"GapInAColumn", {5, NONE, 6, 7}, LEAST, {0, GAP, 2, 3}},
        Case{"GapsAtTheEnds", {NONE, NONE, 6, 7, NONE}, LEAST, {2, 3}},
        Case{"InfinityIsAGap", {1, -LEAST, 2, LEAST, 3}, LEAST, {0, GAP, 2, GAP, 4}},
        Case{"ZeroOnALogarithmicAxis", {1, 0, 2, -1, 3}, 0, {0, GAP, 2, GAP, 4}},
        Case{"OnlyGaps", {NONE, NONE}, LEAST, {}}),
    [](const auto & row) { return std::string(row.param.name); });

TEST(Decimation, LosesNoPeakAmongAMillionPoints) {
    std::vector<double> x, y;
    for (int i = 0; i < 1000000; ++i) {
        x.push_back(i);
        y.push_back(std::sin(i * 0.01));
    }
    y[123456] = 50;
    y[777777] = -50;
    std::vector<double> ends;
    for (int i = 1; i <= 800; ++i)
        ends.push_back(i * 1250.0);
    const Indices picked = Decimation::sorted(SCI::ArrayModel(x, y), 0, x.size(), ends);
    EXPECT_LE(picked.size(), 3200u);
    EXPECT_THAT(picked, testing::IsSupersetOf(Indices{0, 123456, 777777, 999999}));
    EXPECT_TRUE(std::is_sorted(picked.begin(), picked.end()));
}

} // namespace
