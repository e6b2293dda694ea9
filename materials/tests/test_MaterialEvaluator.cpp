#include "EvaluatorChecks.h"
#include "MaterialTexts.h"

#include <KOR/Strings.h>

#include <cmath>
#include <numeric>

namespace MM {

namespace {

using Interpolation = FunctionTable::Interpolation;

/// The brick with the functions that the database has none of.
std::string everyFunction() {
    return KOR::replaced(KOR::replaced(brickText(), "FLAGS ", "; "), "  MEW ", "  KG = 1e-6 s\n  MEW ") +
           "  FUNCTION = lambda(T)\n253 273 293 313\n0.5 0.55 0.6 0.7\n"
           "  FUNCTION = lambda(Theta_ice)\n0 0.3\n0.6 0.9\n"
           "[AIR_TRANSPORT]\n  FUNCTION = Kg(Theta_l)\n0 0.1 0.32\n1e-6 4e-7 1e-8\n";
}

Material prepared(const std::string & text) {
    Material material = materialFrom(text);
    material.prepareCalculation();
    return material;
}

} // namespace

TEST(FunctionTable, LinearGivesTheSpline) {
    // Points stand as unevenly as those of a retention curve.
    std::vector<double> x{0};
    std::vector<double> y{0};
    for (int i = 1; i < 200; ++i) {
        x.push_back(x.back() + std::pow(10.0, -5 + i % 7));
        y.push_back(std::sin(i));
    }
    const KOR::LinearSpline spline(x, y);
    const FunctionTable table(spline, Interpolation::LINEAR);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_DOUBLE_EQ(table.value(x[i]), y[i]);
    for (double at = -1; at < x.back() + 1; at += x.back() / 4321) {
        double slope = 0;
        EXPECT_NEAR(table.value(at, slope), spline.value(at), 1e-9);
        if (at > 0 && at < x.back()) {
            EXPECT_NEAR(slope, spline.slope(at), 1e-9 * std::abs(slope));
        }
    }
}

TEST(FunctionTable, MonotoneCubicIsSmoothAndDoesNotOvershoot) {
    const std::vector<double> x{0, 1, 2, 3, 10, 10.1};
    const std::vector<double> y{0, 0, 1, 1.1, 5, 5};
    const FunctionTable table(x, y, Interpolation::MONOTONE_CUBIC);
    double last = 0;
    double lastSlope = 0;
    for (double at = 0.001; at < 10.1; at += 0.001) {
        double slope = 0;
        const double value = table.value(at, slope);
        EXPECT_GE(value, last - 1e-12);
        EXPECT_GE(slope, -1e-12);
        EXPECT_NEAR(slope, lastSlope, 0.05) << at;
        last = value;
        lastSlope = slope;
    }
    EXPECT_LE(last, 5 + 1e-12);
    // On a smooth function the error falls with the third power of the distance at least.
    const auto error = [](int points) {
        std::vector<double> at(static_cast<std::size_t>(points));
        std::vector<double> sine(at.size());
        for (std::size_t i = 0; i < at.size(); ++i) {
            at[i] = static_cast<double>(i) / (points - 1);
            sine[i] = std::sin(at[i]);
        }
        const FunctionTable fine(at, sine, Interpolation::MONOTONE_CUBIC);
        double largest = 0;
        for (double t = 0.2; t < 0.8; t += 0.001)
            largest = std::fmax(largest, std::abs(fine.value(t) - std::sin(t)));
        return largest;
    };
    EXPECT_LT(error(41), error(21) / 7);
}

TEST(MaterialEvaluator, IdentitiesHold) {
    for (const auto interpolation : {Interpolation::LINEAR, Interpolation::MONOTONE_CUBIC})
        checkIdentities(prepared(everyFunction()), interpolation);
}

TEST(MaterialEvaluator, GivesTheMaterialsOwnValues) {
    const Material material = prepared(everyFunction());
    const MaterialEvaluator evaluator(material, Interpolation::LINEAR);
    for (double content = 0.001; content < 0.2999; content += 0.007) {
        const double humidity = material.m_moistureStorage.RH_Thetal(content);
        const auto near = [](double value) { return testing::DoubleNear(value, 1e-10 * std::abs(value)); };
        EXPECT_THAT(evaluator.moisture(content).humidity, near(humidity));
        EXPECT_THAT(evaluator.moisture(content).liquidPressure, near(material.m_moistureStorage.pl_Thetal(content)));
        EXPECT_THAT(evaluator.liquidConductivity(0, content).value, near(material.m_moistureTransport[0].Kl(content)));
        EXPECT_THAT(evaluator.vaporPermeability(0, content, humidity).value,
                    near(material.m_moistureTransport[0].Kv(content, humidity)));
        EXPECT_THAT(evaluator.thermalConductivity(0, content, 290, content).value,
                    near(material.m_thermalTransport[0].lambda(content, 290, content)));
        EXPECT_THAT(evaluator.airPermeability(0, content).value, near(material.m_airTransport[0].Kg(content)));
    }
}

TEST(MaterialEvaluator, ContinuesBeyondSaturation) {
    const MaterialEvaluator evaluator(prepared(brickText()));
    const auto full = evaluator.moisture(0.3);
    EXPECT_NEAR(full.liquidPressure, 0, 1e-6);
    const auto over = evaluator.moisture(0.31);
    EXPECT_GT(over.liquidPressure, 0);
    EXPECT_EQ(over.humidity, 1);
    EXPECT_NEAR(evaluator.content(over.liquidPressure).value, 0.31, 1e-12);
    EXPECT_EQ(evaluator.liquidConductivity(0, 0.31).value, evaluator.liquidConductivity(0, 0.3).value);
}

TEST(MaterialEvaluator, VectorsAgreeWithSingleStates) {
    const MaterialEvaluator evaluator(prepared(brickText()));
    std::vector<double> contents(100), a(100), b(100), c(100), d(100);
    for (std::size_t i = 0; i < contents.size(); ++i)
        contents[i] = 0.003 * static_cast<double>(i);
    evaluator.moisture(contents, a, b, c, {});
    evaluator.liquidConductivity(0, contents, d, {});
    for (std::size_t i = 0; i < contents.size(); ++i) {
        EXPECT_EQ(a[i], evaluator.moisture(contents[i]).liquidPressure);
        EXPECT_EQ(b[i], evaluator.moisture(contents[i]).pressureSlope);
        EXPECT_EQ(c[i], evaluator.moisture(contents[i]).humidity);
        EXPECT_EQ(d[i], evaluator.liquidConductivity(0, contents[i]).value);
    }
    EXPECT_EQ(chainOf([] { MaterialEvaluator(materialFrom(brickText())); }).front().message,
              "Material 'Brick' is not prepared for calculation.");
}

} // namespace MM
