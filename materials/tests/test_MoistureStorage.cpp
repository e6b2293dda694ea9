#include "MaterialTexts.h"

#include <MM/MrcGAUSS.h>

#include <cmath>

namespace MM {

namespace {

using Functions = MoistureStorage::Functions;
using Storage = Material::ParaStorage;

/// A material of which only the moisture storage is asked.
Material storing(const std::string & lines, double thetaEff = 0.3, const std::string & flags = "") {
    return materialFrom(
        HEADER + "[IDENTIFICATION]\n" + (flags.empty() ? "" : "FLAGS = " + flags + "\n") +
        (thetaEff == 0 ? "" : "[STORAGE_BASE_PARAMETERS]\nTHETA_EFF = " + KOR::toString(thetaEff) + "\n") +
        "[MOISTURE_STORAGE]\n" + lines);
}
std::string gauss(const std::string & weights, const std::string & radii, const std::string & deviations) {
    return "[MODEL]\nTYPE = GAUSS\nGAUSS_MODALITY = 2\nGAUSS_Wi = " + weights + "\nGAUSS_Ri = " + radii +
           "\nGAUSS_Si = " + deviations + "\n";
}
const std::vector<MrcGAUSS_dpC::Mode> TWO{
    {0.6, 1e-6, 0.3},
    {0.4, 1e-8, 0.6}
};
const std::string TWO_MODES = gauss("0.6 0.4", "1e-6 1e-8", "0.3 0.6");

/// Closed form of the Gauss model with the model's own constants.
double gaussContent(double pC, double thetaEff, const std::vector<MrcGAUSS_dpC::Mode> & modes = TWO) {
    const double scale = std::sqrt(2 * M_PI) / 2.506628;
    const auto phi = [](double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); };
    double gone = 0;
    for (const auto & [weight, radius, sigma] : modes) {
        const double centre = std::log10(0.152 / radius);
        gone += weight * scale * (phi((pC - centre) / sigma) - phi(-centre / sigma));
    }
    return thetaEff * std::fmax(0, 1 - gone);
}

MoistureStorage prepared(const Material & material) {
    MoistureStorage storage = material.m_moistureStorage;
    storage.prepareCalculation(material);
    return storage;
}

} // namespace

TEST(MrcGauss, IntegralAgreesWithTheClosedForm) {
    // Also modes so narrow that they lie between any points, and some that begin outside.
    const std::vector<std::vector<MrcGAUSS_dpC::Mode>> models{
        TWO, {{0.5, 1e-6, 1e-6}, {0.5, 1e-8, 2e-3}},
         { {0.3, 0.1, 0.5}, {0.2, 1e3, 0.1},       {0.5, 1e-20, 1}, {0, 1e-6, 9}}
    };
    for (const auto & modes : models) {
        MrcGAUSS_dpC density;
        density.setData(modes);
        const ModelDataContainer block = density.modelData();
        EXPECT_EQ(block.m_type, "GAUSS");
        EXPECT_EQ(*block.find("GAUSS_MODALITY"), std::to_string(modes.size()));
        MrcGAUSS mrc;
        mrc.setData(block, 0.3);
        EXPECT_EQ(mrc.density().modes(), modes);
        EXPECT_EQ(mrc.value(0), 0.3);
        for (double pC = 0.01; pC <= 12; pC += 0.01)
            EXPECT_NEAR(mrc.value(pC), gaussContent(pC, 0.3, modes), 0.3 * 1e-6) << pC;
    }
    EXPECT_EQ(MrcGAUSS_dpC().value(5), 0);
}

TEST(MrcGauss, BadParametersAreRefused) {
    struct Row {
        const char *weights, *radii, *deviations, *cause;
    };
    const std::string missing = "Mismatching or missing GAUSS model parameters.";
    for (const auto & [weights, radii, deviations, cause] : std::initializer_list<Row>{
             {"0.6 0.3",     "1e-6 1e-8", "1 1", "Weight factors for MRC Gauss model sum up to 0.9, but sum should be 1."},
             {"0.5 0.50005", "1e-6 1e-8", "1 1", nullptr                                                                 },
             {"1",           "1e-6 1e-8", "1 1", nullptr                                                                 },
             {"1",           "x",         "1",   missing.c_str()                                                         },
             {"1",           "-1e-6",     "1",   "Negative or zero value in log function, x = -1e-06"                    },
             {"1",           "0",         "1",   "Negative or zero value in log function, x = 0"                         },
             {"1",           "1e-6",      "0",   "Expected a standard deviation of at least 1e-06, found 0."             },
             {"1.5 -0.5",    "1e-6 1e-8", "1 1", "Expected a weight of at least 0, found -0.5."                          },
    }) {
        const auto chain = chainOf([&, w = weights, r = radii, d = deviations] { prepared(storing(gauss(w, r, d))); });
        ASSERT_EQ(chain.empty(), cause == nullptr) << weights;
        if (cause != nullptr) {
            EXPECT_EQ(chain.front().message, cause);
            EXPECT_THAT(chain, holds("[MrcGAUSS::setData]"));
            EXPECT_EQ(chain.back().message, "Error initializing moisture storage functionality for calculation.");
        }
    }
}

TEST(MrcVG, IsThePublishedFunction) {
    MrcVG model;
    model.m_modes = {
        {1, 8e-8, 1.6}
    };
    EXPECT_NEAR(model.value(-1e7), std::pow(1 + std::pow(0.8, 1.6), -0.375), 1e-15);
    EXPECT_EQ(model.value(0), 1);
    EXPECT_EQ(chainOf([&] { model.value(1); }).front().message, "Negative base in power function, base = -8e-08");
    model.m_modes[0].n = 51;
    EXPECT_EQ(chainOf([&] { model.value(-1); }).front().message, "Exponent too large in power function, exponent = 51");
}

TEST(MoistureStorage, GaussModelBecomesASplineWithinItsTolerance) {
    const MoistureStorage storage = prepared(storing(TWO_MODES));
    EXPECT_EQ(storage.kind(), MoistureStorage::Kind::PC_MODEL);
    EXPECT_LE(storage.generatedPoints(), 400U);
    const KOR::LinearSpline & spline = storage.prepared(Functions::Theta_l_pC_de);
    EXPECT_EQ(spline.y().front(), 0.3);
    EXPECT_EQ(spline.x().back(), 12);
    EXPECT_EQ(spline.y().back(), 0);
    for (std::size_t i = 1; i + 1 < spline.size(); ++i) // the last interval is stretched to 12
        for (int part = 0; part < 10; ++part) {
            const double pC = std::lerp(spline.x()[i - 1], spline.x()[i], part / 10.0);
            const double exact = gaussContent(pC, 0.3);
            EXPECT_NEAR(spline.value(pC), exact, 1.1 * (1e-5 + 1e-4 * exact)) << pC;
        }
}

/// No derived function may rise or fall by a rounding error on a plateau.
TEST(MoistureStorage, StairsAreFollowed) {
    const std::string stair = "FUNCTION = Theta_l(pC)_de\n0 3.33 3.33522 4.65 4.69419 5.69419 12\n"
                              "0.89 0.89 0.708 0.708 0.6 0.6 0\n";
    EXPECT_EQ(prepared(storing(stair, 0.89)).Thetal_pC(4), 0.708);
    std::string weights, radii, deviations;
    for (int i = 0; i < 100; ++i) {
        weights += "0.01 ";
        radii += KOR::toString(std::pow(10, -4 - i / 20.0)) + ' ';
        deviations += "0.003 ";
    }
    const MoistureStorage storage = prepared(storing(gauss(weights, radii, deviations)));
    for (int i = 0; i < 100; ++i) // halfway between two modes
        EXPECT_NEAR(storage.Thetal_pC(std::log10(0.152) + 4 + (i + 0.5) / 20), 0.3 * (99 - i) / 100, 3e-5) << i;
}

TEST(MoistureStorage, DryEndIsMovedToTwelve) {
    const MoistureStorage storage = prepared(
        storing("FUNCTION = Theta_l(pC)_de\n0 5 11\n0.3 0.1 0\nFUNCTION = Theta_l(pC)_ad\n0 4 11\n0.3 0.1 0\n"));
    EXPECT_EQ(storage.prepared(Functions::Theta_l_pC_de).x().back(), 12);
    EXPECT_EQ(storage.prepared(Functions::Theta_l_pC_ad).x().back(), 12);
    EXPECT_EQ(storage.prepared(Functions::pC_Theta_l_ad).value(0.1), 4);
    EXPECT_EQ(storage.function(Functions::Theta_l_pC_de).x().back(), 11) << "what is stored stays";
}

TEST(MoistureStorage, ConversionsUndoEachOther) {
    const std::string functions[] = {
        TWO_MODES,
        "FUNCTION = Theta_l(pC)_de\n0 2 4 6 7 8 10\n0.3 0.3 0.25 0.12 0.05 0.01 0\n",
        "FUNCTION = Theta_l(RH)\n0 0.3 0.6 0.8 0.95 1\n0 0.01 0.02 0.03 0.08 0.3\n",
        "FUNCTION = Theta_l(RH)\n0 0.5 1\n0 0.1 1\n", // normalised
        "FUNCTION = Theta_l(pC)_de\n0 4 10\n1 0.5 0\n",
    };
    for (const std::string & function : functions) {
        const MoistureStorage storage = prepared(storing(function));
        EXPECT_NEAR(storage.saturation(), 0.3, 1e-15);
        EXPECT_NEAR(storage.Thetal_pC(-1), 0.3, 1e-7);
        for (double humidity = 0.01; humidity < 0.9999; humidity += 0.007) {
            const double content = storage.Thetal_RH(humidity);
            EXPECT_NEAR(storage.RH_Thetal(content), humidity, 1e-9) << function;
            EXPECT_NEAR(storage.Thetal_pC(storage.pC_Thetal(content)), content, 1e-9);
            // The derived curves follow the Kelvin law.
            EXPECT_NEAR(storage.prepared(Functions::Theta_l_RH).value(humidity), content, 0.3 * 1.1e-4);
            EXPECT_NEAR(storage.prepared(Functions::Theta_l_pC_de).value(std::log10(-liquidPressure(humidity))),
                        content, 0.3 * 1.1e-4);
        }
        EXPECT_GT(storage.Thetal_pl(1e5), 0.3);
        EXPECT_NEAR(storage.pl_Thetal(storage.Thetal_pl(1e5)), 1e5, 1);
    }
}

TEST(MoistureStorage, HumidityFunctionKnowsTheTemperature) {
    const MoistureStorage storage = prepared(storing("FUNCTION = Theta_l(RH)\n0 1\n0 0.3\n"));
    EXPECT_EQ(storage.mode(), MoistureStorage::MODE_RH);
    const double pressure = -2e7;
    EXPECT_NEAR(storage.Thetal_pl(pressure, 313.15), 0.3 * std::exp(pressure / (1000 * 461.89 * 313.15)), 1e-12);
}

TEST(MoistureStorage, TightMaterialsAndAir) {
    const MoistureStorage tight = prepared(storing("", 0, "VAPOR_TIGHT WATER_TIGHT"));
    EXPECT_EQ(tight.mode(), MoistureStorage::MODE_LINEAR);
    for (const double conversion :
         {tight.Thetal_pC(5), tight.RH_Thetal(0.1), tight.pC_Thetal(0.1), tight.Thetal_pl(-1e5)})
        EXPECT_EQ(conversion, 0);
    const MoistureStorage air = prepared(storing("", 0, "AIR"));
    EXPECT_NEAR(air.saturation(), 1.726e-5, 1e-8) << "17.3 g/m3 of vapour at 20 C";
    EXPECT_NEAR(air.Thetal_RH(0.5), air.saturation() / 2, 1e-15);
    EXPECT_NEAR(air.Thetal_pC(std::log10(-liquidPressure(0.5))), air.saturation() / 2, 1e-15);
    EXPECT_EQ(air.RH_Thetal(1), 1);
    EXPECT_NEAR(air.pC_Thetal(air.saturation() / 2), std::log10(-liquidPressure(0.5)), 1e-12);
    EXPECT_NEAR(air.Thetal_pl(-1e5), air.saturation(), 1e-3 * air.saturation());
}

TEST(MoistureStorage, VanGenuchtenIsEvaluatedDirectly) {
    MrcVG model;
    model.m_modes = {
        {1, 8e-8, 1.6}
    };
    MoistureStorage storage;
    storage.useVanGenuchten(model, 0.146);
    EXPECT_EQ(storage.mode(), MoistureStorage::MODE_MODEL);
    EXPECT_EQ(storage.Thetal_pl(0), 0.146);
    EXPECT_NEAR(storage.Thetal_pl(-1e7), 0.146 * model.value(-1e7), 1e-15);
    // Linear from the threshold to saturation and on.
    const double threshold = storage.thresholdPressure();
    EXPECT_NEAR(storage.Thetal_pl(threshold), MoistureStorage::NEARLY_SATURATED * 0.146, 1e-9);
    EXPECT_NEAR(storage.Thetal_pl(threshold / 2), (storage.Thetal_pl(threshold) + 0.146) / 2, 1e-12);
    EXPECT_NEAR(storage.Thetal_pl(-threshold), 0.146 * (2 - MoistureStorage::NEARLY_SATURATED), 1e-9);
    for (const double content : {0.01, 0.1, 0.145, 0.14599, 0.147})
        EXPECT_NEAR(storage.Thetal_pl(storage.pl_Thetal(content)), content, 1e-10);
}

TEST(MoistureStorage, UnusableFunctionsAreNamed) {
    const std::string desorption = "FUNCTION = Theta_l(pC)_de\n";
    const std::string sorption = "FUNCTION = Theta_l(RH)\n";
    const std::string invalid = "Material has an invalid Theta_l(pC) spline: ";
    struct Row {
        std::string lines;
        double thetaEff;
        std::string cause, also; // another message of the chain, or who says it
    };
    const Row rows[] = {
  // clang-format off
        {TWO_MODES, 0, "Parameter THETA_EFF missing for moisture storage models.", ""},
        {TWO_MODES, -1, "Parameter THETA_EFF (=-1) should be >= 1e-20.", ""},
        {"", 0.3, "Invalid model for moisture storage.", "[MoistureStorage::checkLimits]"},
        {sorption + "0 0.5 0.7 1\n0 0.1 0.05 0.3", 0.3,
         "Invalid spline data for Theta_l(rh), found negative slope in interval #1.", "[MoistureStorage::checkLimits]"},
        {desorption + "0 2 4 10\n0.3 0.1 0.2 0", 0.3,
         "Invalid spline data for Theta_l(pC), found positive slope in interval #1.", "[MoistureStorage::checkLimits]"},
        {desorption + "1 4 10\n0.3 0.1 0", 0.3, invalid + "the minimum pC value (1 logPa) must be zero!", ""},
        {desorption + "0 4 10\n0.3 0.1 0.01", 0.3, invalid + "the minimum Thetal value (0.01 m3/m3) must be zero!", ""},
        {desorption + "0 4 10\n0.29 0.1 0", 0.3,
         invalid + "the maximum Theta_l value (0.29 m3/m3) must be equal to 'THETA_EFF' (0.29 m3/m3)!", ""},
        {sorption + "0 1\n0.3 0.3", 0.3, "The function is constant and has no inverse.",
         "Cannot create reverse function of Thetal(RH) function."},
        {sorption + "0.2 1\n0.1 0.3", 0.3, invalid + "the minimum Thetal value (0.1 m3/m3) must be zero!", ""},
        {TWO_MODES + "[MODEL]\nTYPE = OTHER\n", 0.3,
         "There must not be more than one moisture storage model parameter section.", ""},
        {"[MODEL]\nTYPE = OTHER\n", 0.3, "Unknown MRC model type 'OTHER'.", "[MoistureStorage::prepareCalculation]"},
        {"[MODEL]\nTYPE = VAN_GENUCHTEN\n", 0.3, "VAN GENUCHTEN Model is recognized, but not supported yet.",
         "MRC Model type 'VAN_GENUCHTEN' is recognized, but not supported yet."},
  // clang-format on
    };
    for (const auto & [lines, thetaEff, cause, also] : rows) {
        const auto chain = chainOf([&, l = lines, t = thetaEff] { prepared(storing(l, t)); });
        ASSERT_FALSE(chain.empty()) << lines;
        EXPECT_EQ(chain.front().message, cause);
        if (!also.empty()) {
            EXPECT_THAT(chain, holds(also));
        }
        EXPECT_EQ(chain.back().message, "Error initializing moisture storage functionality for calculation.");
    }
    EXPECT_EQ(chainOf([] { MoistureStorage().Thetal_pl(-1); }).front().message,
              "Unsupported type of moisture storage function or missing initialisation.");
}

} // namespace MM
