#include "XmlTesting.h"

#include <HYGRION/ClimateCond.h>

#include <CCM/ClimateDataLoader.h>

#include <cmath>

using namespace testing_xml;
using namespace HYGRION;
using Kind = ClimateCond::kind_t;
using Para = ClimateCond::para_t;
using Flag = ClimateCond::flag_t;

namespace {

constexpr double YEAR = 31536000;

struct Setting {
    Para key;
    double value;
    const char * unit;
};

ClimateCond condition(Kind kind, std::initializer_list<Setting> settings, std::initializer_list<Flag> flags = {}) {
    ClimateCond result;
    result.m_name = "c";
    result.m_kind = kind;
    for (const Setting & setting : settings)
        result.m_para.set(setting.key, setting.value, setting.unit);
    for (const Flag flag : flags)
        result.m_flag.set(flag, true);
    return result;
}

CCM::CCDFile data(std::vector<double> time, std::vector<double> celsius) {
    return {"Temperature", "C", {}, std::move(time), std::move(celsius)};
}

/// The value in C.
double celsius(const ClimateCond & condition, double t) {
    return condition.calcCurrentValue(t) - 273.15;
}

std::string causeOf(const std::function<void()> & run) {
    return caught(run).message();
}

} // namespace

TEST(ClimateCond, ConstantIsShiftedFirstAndClippedThen) {
    ClimateCond constant = condition(Kind::Constant, {
                                                         {Para::ConstantValue,    20, "C"},
                                                         {Para::ShiftValue,       15, "K"},
                                                         {Para::MaxClippingValue, 30, "C"},
                                                         {Para::MinClippingValue, 0,  "C"}
    });
    constant.prepareCalculation();
    EXPECT_NEAR(celsius(constant, 0), 30, 1e-9);
    constant.m_para.set(Para::ShiftValue, -50, "C"); // a difference, whatever its unit
    constant.prepareCalculation();
    EXPECT_NEAR(celsius(constant, 1e9), 0, 1e-9);
    constant.m_para.erase(Para::MinClippingValue);
    constant.prepareCalculation();
    EXPECT_NEAR(celsius(constant, 1e9), -30, 1e-9);
}

TEST(ClimateCond, SineHasMeanAmplitudePeriodAndPhase) {
    const Setting mean{Para::MeanValue, 10, "C"}, amplitude{Para::Amplitude1, 5, "K"}, period{Para::OscPeriod1, 1, "d"};
    ClimateCond sine = condition(Kind::Sinus, {
                                                  mean, amplitude, period, {Para::PhaseShift1, 6, "h"}
    });
    sine.prepareCalculation();
    for (const auto & [hour, expected] : std::map<double, double>{
             {0,   5 },
             {6,   10},
             {12,  15},
             {18,  10},
             {240, 5 }
    })
        EXPECT_NEAR(celsius(sine, hour * 3600), expected, 1e-9) << hour;
    ClimateCond angle =
        condition(Kind::Sinus, {
                                   mean, amplitude, period, {Para::PhaseShift1, std::acos(0.0), "Rad"}
    });
    angle.prepareCalculation();
    EXPECT_NEAR(celsius(angle, 4000), celsius(sine, 4000), 1e-9);

    ClimateCond two = condition(Kind::DoubleSinus, {
                                                       mean,
                                                       amplitude,
                                                       period,
                                                       {Para::PhaseShift1, 6,  "h"},
                                                       {Para::Amplitude2,  2,  "K"},
                                                       {Para::OscPeriod2,  12, "h"},
                                                       {Para::PhaseShift2, 0,  "h"}
    });
    two.prepareCalculation();
    EXPECT_NEAR(celsius(two, 3 * 3600), celsius(sine, 3 * 3600) + 2, 1e-9);
}

TEST(ClimateCond, TabulatedDataAreStepsOrLines) {
    ClimateCond steps = condition(Kind::TabulatedData, {});
    steps.setData(data({100, 200, 400}, {1, 3, 7}), 2001);
    steps.prepareCalculation();
    EXPECT_NEAR(celsius(steps, 199), 1, 1e-9);
    EXPECT_NEAR(celsius(steps, 200), 3, 1e-9);
    EXPECT_NEAR(celsius(steps, 400), 7, 1e-9);

    ClimateCond lines = condition(Kind::TabulatedData, {}, {Flag::UseInterpolation});
    lines.setData(data({100, 200, 400}, {1, 3, 7}), 2001);
    lines.prepareCalculation();
    EXPECT_NEAR(celsius(lines, 300), 5, 1e-9);
    for (const double outside : {99.0, 400.5})
        EXPECT_EQ(
            causeOf([&] { lines.calcCurrentValue(outside); }),
            KOR::text("Time point %1 s out of range 100..400 s of climatic data for climate condition 'c'.", outside));
    lines.m_flag.set(Flag::ExtendData, true);
    lines.prepareCalculation();
    EXPECT_NEAR(celsius(lines, 1e9), 7, 1e-9);
    EXPECT_THROW(lines.calcCurrentValue(0), KOR::Exception);
}

TEST(ClimateCond, CyclicDataCloseTheYear) {
    ClimateCond cyclic = condition(Kind::CCM, {}, {Flag::UseInterpolation, Flag::Cyclic});
    cyclic.setData(data({0.25 * YEAR, 0.75 * YEAR}, {0, 10}));
    cyclic.prepareCalculation();
    for (const auto & [years, expected] : std::map<double, double>{
             {0,     5  },
             {0.125, 2.5},
             {0.25,  0  },
             {0.5,   5  },
             {0.875, 7.5},
             {1,     5  },
             {7.75,  10 },
             {-0.25, 10 }
    })
        EXPECT_NEAR(celsius(cyclic, years * YEAR), expected, 1e-6) << years;
    cyclic.m_flag.set(Flag::UseInterpolation, false);
    cyclic.prepareCalculation();
    EXPECT_NEAR(celsius(cyclic, 0), 10, 1e-9) << "the last value holds over the turn of the year";
    EXPECT_NEAR(celsius(cyclic, 0.5 * YEAR), 0, 1e-9);

    // Hourly data as climate files hold them: the first value one hour after the start, the last at the end.
    ClimateCond one = condition(Kind::TabulatedData, {}, {Flag::UseInterpolation, Flag::Cyclic});
    one.setData(data({3600, YEAR}, {2, 4}));
    one.prepareCalculation();
    EXPECT_NEAR(celsius(one, 1800), 3, 1e-9);
}

TEST(ClimateCond, ExternalValuesComeFromOutside) {
    ClimateCond external = condition(Kind::External, {
                                                         {Para::ShiftValue, 1, "K"}
    });
    external.prepareCalculation();
    EXPECT_THROW(external.calcCurrentValue(0), KOR::Exception);
    external.setExternalValue(280);
    EXPECT_EQ(external.calcCurrentValue(0), 281);
}

TEST(ClimateCond, WhatIsCalculatedIsNoPartOfTheDefinition) {
    ClimateCond a = condition(Kind::TabulatedData, {});
    const ClimateCond b = a;
    a.setData(data({1, 2}, {1, 2}), 2001);
    a.prepareCalculation();
    EXPECT_EQ(a, b);
}

TEST(ClimateCond, UnusableDataAreRefused) {
    const auto set = [](const CCM::CCDFile & file, bool isCyclic) {
        ClimateCond one = condition(Kind::TabulatedData, {});
        one.m_flag.set(Flag::Cyclic, isCyclic);
        return [one, file]() mutable { one.setData(file); };
    };
    EXPECT_EQ(causeOf(set({"WindVelocity", "m/s", {}, {0}, {1}}, false)),
              "Quantity of climate data file 'WindVelocity' does not match requested quantity 'Temperature' of climate "
              "condition definition.");
    EXPECT_EQ(causeOf(set(data({}, {}), false)), "Missing data in climate data file.");
    EXPECT_EQ(
        causeOf(set(data({0, YEAR + 1}, {1, 2}), true)),
        "Last time point (=31536001 s) in climate data file is larger than 365 days (= 1 year), which is the maximum "
        "allowed time point for cyclic climate data usage.");
    EXPECT_EQ(
        causeOf(set(data({0, YEAR}, {1, 2}), true)),
        "Climate data file contains time point 0 and 365 d at the same time which is not allowed in cyclic climate "
        "data usage.");
    EXPECT_NO_THROW(set(data({0, YEAR}, {1, 2}), false)());
    EXPECT_EQ(causeOf(set(data({0, 2, 1}, {1, 2, 3}), false)),
              "Error creating linear spline for climate data interpolation.");
    EXPECT_NO_THROW(set(data({0, YEAR - 1}, {1, 2}), true)());
}

TEST(ClimateCond, UnpreparedConditionsAreRefused) {
    const auto prepare = [](ClimateCond one) { return [one]() mutable { one.prepareCalculation(); }; };
    const Setting mean{Para::MeanValue, 1, "C"}, amplitude{Para::Amplitude1, 1, "K"}, period{Para::OscPeriod1, 1, "d"},
        phase{Para::PhaseShift1, 0, "d"}, amplitude2{Para::Amplitude2, 1, "K"}, phase2{Para::PhaseShift2, 0, "d"};
    const std::string missing = "Missing parameter in climate condition 'c'!";
    ClimateCond noKind = condition(Kind::Constant, {});
    noKind.m_kind.reset();
    EXPECT_EQ(causeOf(prepare(noKind)), "Missing kind type in climate condition 'c'!");
    EXPECT_EQ(causeOf(prepare(condition(Kind::Constant, {}))), missing);
    EXPECT_EQ(causeOf(prepare(condition(Kind::Sinus, {mean, amplitude, period}))), missing);
    EXPECT_EQ(causeOf(prepare(condition(Kind::DoubleSinus, {mean, amplitude, period, phase}))), missing);
    EXPECT_EQ(causeOf(prepare(condition(Kind::Sinus,
                                        {
                                            mean, amplitude, {Para::OscPeriod1, 0, "d"},
                                              phase
    }))),
              "Parameter 'OscPeriod1' in climate condition 'c' must not be negative or zero!");
    EXPECT_EQ(causeOf(prepare(
                  condition(Kind::DoubleSinus,
                            {
                                mean, amplitude, period, phase, amplitude2, phase2, {Para::OscPeriod2, -1, "d"}
    }))),
              "Parameter 'OscPeriod2' in climate condition 'c' must not be negative or zero!");
    EXPECT_EQ(causeOf(prepare(condition(Kind::Constant,
                                        {
                                            {Para::ConstantValue, 1, "m"}
    }))),
              "Unit 'm' of parameter 'ConstantValue' in climate condition 'c' does not fit quantity 'Temperature'.");
    EXPECT_EQ(causeOf(prepare(condition(Kind::CCM, {}))),
              "Climate data not loaded. Call setData() before prepareCalculation()!");
    ClimateCond noYear = condition(Kind::TabulatedData, {});
    noYear.setData(data({0, 1}, {1, 2}));
    EXPECT_EQ(causeOf(prepare(noYear)),
              "Missing start year for continuous (non-cyclic) calculation mode. Call setData() "
              "with valid start year before prepareCalculation()!");
    // Data that were set before the condition became cyclic
    noYear.setData(data({0, 2 * YEAR}, {1, 2}));
    noYear.m_flag.set(Flag::Cyclic, true);
    EXPECT_TRUE(
        causeOf(prepare(noYear))
            .starts_with(
                "Initializing of climate data in climate condition 'c' for calculation failed with error message: "));
    EXPECT_THROW(condition(Kind::Constant, {}).calcCurrentValue(0), KOR::Exception);
}

TEST(ClimateCond, KeepsToWhatAClimateCanBe) {
    using Type = ClimateCond::condition_t;
    struct Row {
        Type type;
        Kind kind;
        std::initializer_list<Setting> settings;
        const char * message; ///< behind the name; empty: accepted
    };
    const Row ROWS[] = {
        {Type::RelativeHumidity,        Kind::Constant, {{Para::ConstantValue, 100, "%"}},                             ""},
        {Type::RelativeHumidity,
         Kind::Constant,
         {{Para::ConstantValue, 120, "%"}},
         "'RelativeHumidity' goes up to 120 %, it must lie within 0..100 %."                                             },
        {Type::RelativeHumidity,
         Kind::Constant,
         {{Para::ConstantValue, -0.05, "---"}},
         "'RelativeHumidity' goes down to -5 %, it must lie within 0..100 %."                                            },
        {Type::RelativeHumidity,
         Kind::Constant,
         {{Para::ConstantValue, 120, "%"}, {Para::MaxClippingValue, 95, "%"}},
         ""                                                                                                              },
        {Type::RelativeHumidity,
         Kind::Sinus,
         {{Para::MeanValue, 90, "%"},
          {Para::Amplitude1, 20, "%"},
          {Para::OscPeriod1, 1, "d"},
          {Para::PhaseShift1, 0, "d"}},
         "'RelativeHumidity' goes up to 110 %, it must lie within 0..100 %."                                             },
        {Type::Temperature,
         Kind::Constant,
         {{Para::ConstantValue, 293.15, "C"}},
         "'Temperature' goes up to 293.15 C, it must lie within -100..200 C."                                            },
        {Type::Temperature,             Kind::Constant, {{Para::ConstantValue, 15, "C"}, {Para::ShiftValue, 10, "C"}}, ""},
        {Type::Temperature,
         Kind::Sinus,
         {{Para::MeanValue, 20, "C"},
          {Para::Amplitude1, 5, "K"},
          {Para::OscPeriod1, 9, "K"},
          {Para::PhaseShift1, 0, "d"}},
         "Unit 'K' of parameter 'OscPeriod1' in climate condition 'c' is not a time."                                    },
        {Type::HeatTransferCoefficient,
         Kind::Constant,
         {{Para::ConstantValue, 1e300, "W/m2K"}},
         "'HeatTransferCoefficient' goes up to 1e+300 W/m2K, it must lie within 0..1e+06 W/m2K."                         },
        {Type::FluidChangeRate,
         Kind::Constant,
         {{Para::ConstantValue, -1, "1/h"}},
         "'FluidChangeRate' goes down to -1 1/h, it must be at least 0 1/h."                                             },
    };
    for (const Row & row : ROWS) {
        ClimateCond climate = condition(row.kind, row.settings);
        climate.m_type = row.type;
        std::string said;
        try {
            climate.checkParameters();
        } catch (const KOR::Exception & ex) {
            said = ex.cause();
        }
        EXPECT_TRUE(said.ends_with(row.message)) << said;
        EXPECT_EQ(said.empty(), *row.message == 0) << said;
    }
    // Tables may be off by an error of measurement, and be cut off.
    ClimateCond table = condition(Kind::TabulatedData, {}, {Flag::Cyclic});
    table.m_type = Type::RelativeHumidity;
    table.setData(
        {
            "RelativeHumidity", "%", {     },
              {  0,  3600},
              { 80, 100.5}
    },
        2000);
    EXPECT_NO_THROW(table.prepareCalculation());
    table.setData(
        {
            "RelativeHumidity", "%", {    },
              {  0, 3600},
              { 80,  120}
    },
        2000);
    EXPECT_EQ(causeOf([&] { table.prepareCalculation(); }),
              "Climate condition 'c': 'RelativeHumidity' goes up to 120 %, it must lie within 0..100 %; "
              "'MinClippingValue' and 'MaxClippingValue' cut the data off.");
    table.m_para.set(Para::MaxClippingValue, 100, "%");
    EXPECT_NO_THROW(table.prepareCalculation());
}
