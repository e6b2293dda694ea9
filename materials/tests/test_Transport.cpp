#include "MaterialTexts.h"

#include <MM/Foils.h>

#include <KOR/Strings.h>

#include <cmath>
#include <functional>

namespace MM {

namespace {

using testing::ElementsAre;
using Flags = MaterialIdentification::Flags;
using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;
using Liquid = MoistureTransport::Functions;

KOR::LinearSpline spline(const std::vector<double> & x, const std::vector<double> & y) {
    return {x, y};
}

} // namespace

TEST(MoistureTransport, NormalisedFunctionsAreScaled) {
    Warnings log;
    Material material = materialFrom(brickText());
    MoistureTransport transport;
    transport.setFunction(Liquid::lgKl_Theta_l, spline({0, 1}, {-8, 0}));
    transport.setFunction(Liquid::lgKv_Theta_l, spline({0, 1}, {0, -6}));
    material.m_moistureTransport[0] = transport;
    transport.denormalize(material, 0);
    EXPECT_THAT(transport.prepared(Liquid::lgKl_Theta_l).x(), ElementsAre(0, 0.3));
    EXPECT_THAT(transport.prepared(Liquid::lgKl_Theta_l).y(), ElementsAre(-16, -8));
    EXPECT_THAT(transport.prepared(Liquid::lgKv_Theta_l).x(), ElementsAre(0, 0.32));
    EXPECT_NEAR(transport.prepared(Liquid::lgKv_Theta_l).y()[0], std::log10(2.662e-5 / (10 * 461.89 * 296.15)), 1e-12);
    EXPECT_THAT(log.m_messages,
                ElementsAre("Denormalizing Kl(Theta_l) spline.\n", "Denormalizing Kv(Theta_l) spline.\n"));
    EXPECT_THAT(transport.function(Liquid::lgKl_Theta_l).x(), ElementsAre(0, 1)) << "what is stored stays";

    // Just outside the tolerance, or not falling far enough: no normalised function.
    for (const auto & absolute :
         {spline({0, 1}, {-8, 0.002}), spline({0, 1}, {-4.9, 0}), spline({0, 0.998}, {-8, 0})}) {
        material.m_moistureTransport[0].setFunction(Liquid::lgKl_Theta_l, absolute);
        transport.denormalize(material, 0);
        EXPECT_EQ(transport.prepared(Liquid::lgKl_Theta_l), absolute);
    }
}

TEST(MoistureTransport, ScalingNeedsItsParameter) {
    struct Row {
        Liquid function;
        KOR::LinearSpline normalised;
        Transport parameter;
        const char *missing, *invalid;
    };
    const Row rows[] = {
  // clang-format off
        {Liquid::lgKl_Theta_l, spline({0, 1}, {-8, 0}), Transport::KLEFF,
         "Require KLEFF parameter for denormalization of Kl_Thetal spline.",
         "Invalid KLEFF value (0 s) for denormalization of Kl_Thetal spline, must be > 0 s."},
        {Liquid::lgDl_Theta_l, spline({0, 1}, {-8, 0}), Transport::DLEFF,
         "Require DLEFF parameter for denormalization of Dl_Thetal spline.",
         "Invalid DLEFF value (0 m2/s) for denormalization of Dl_Thetal spline, must be > 0 m2/s."},
        {Liquid::lgKv_Theta_l, spline({0, 1}, {0, -6}), Transport::MEW,
         "Require MEW parameter for denormalization of Kv_Thetal spline.",
         "Invalid MEW value (0 -) for denormalization of Kv_Thetal spline, must be > 0."},
  // clang-format on
    };
    for (const auto & [function, normalised, parameter, missing, invalid] : rows) {
        Material material = materialFrom(brickText());
        material.m_moistureTransport[0].setFunction(function, normalised);
        material.clearParameter(parameter);
        const auto chain = chainOf([&] { material.prepareCalculation(); });
        ASSERT_FALSE(chain.empty());
        EXPECT_EQ(chain.front().message, missing);
        EXPECT_EQ(chain.front().where, "[MoistureTransport::denormalize]");
        material.setParameter(parameter, 0);
        EXPECT_EQ(chainOf([&] { material.prepareCalculation(); }).front().message, invalid);
    }
}

TEST(Material, PreparationTellsWhatItDoes) {
    Warnings log;
    Material material =
        materialFrom(KOR::replaced(brickText(), "KLEFF", "DLEFF = 1e-8 m2/s\n  KLEFF") +
                     "FUNCTION = lambda(T)\n0 50\n0 1\n[MOISTURE_TRANSPORT_V]\nFUNCTION = lgDl(Theta_l)\n0 1\n-8 0\n");
    using Retention = MoistureStorage::Functions;
    material.m_moistureStorage.setFunction(Retention::Theta_l_pC_de, spline({0, 12}, {1, 0}));
    material.m_moistureStorage.setFunction(Retention::pC_Theta_l_de, spline({0, 1}, {12, 0}));
    material.m_moistureStorage.setFunction(Retention::Theta_l_RH, spline({0, 1}, {0, 1}));
    material.m_thermalTransport[0].setFunction(ThermalTransport::Functions::lambda_Theta_l, spline({0, 1}, {1, 2}));
    material.prepareCalculation();
    const char * const messages[] = {
        "Initializing moisture storage functions.\n", "Denormalizing Theta_l(pC) spline.\n",
        "Denormalizing pC(Theta_l) spline.\n",        "Denormalizing Theta_l(rh) spline.\n",
        "Checking parameter and function limits.\n",  "Initializing moisture transport functions.\n",
        "Denormalizing Dl(Theta_l) spline.\n",        "Initializing thermal transport functions.\n",
        "Denormalizing lambda(Theta_l) spline.\n",    "Denormalizing lambda(T) spline.\n",
        "Initializing air transport functions.\n",
    };
    EXPECT_THAT(log.m_messages, testing::IsSupersetOf(messages));
    log.m_messages.clear();
    material.m_moistureStorage = materialFrom(HEADER + "[MOISTURE_STORAGE]\n[MODEL]\nTYPE = GAUSS\nGAUSS_Wi = 1\n"
                                                       "GAUSS_Ri = 1e-7\nGAUSS_Si = 0.5\n")
                                     .m_moistureStorage;
    material.prepareCalculation();
    const std::string points = std::to_string(material.m_moistureStorage.generatedPoints());
    EXPECT_THAT(log.m_messages, testing::IsSupersetOf({std::string("Generating MRC spline data from GAUSS model.\n"),
                                                       "MRC spline generated with " + points + " points.\n"}));
}

/// What each preparation asks for.
TEST(Material, PreparationNamesWhatIsMissing) {
    struct Row {
        std::function<void(Material &)> spoil;
        const char *cause, *also; // another message of the chain, or who says it
    };
    const auto clear = [](auto which) { return [which](Material & material) { material.clearParameter(which); }; };
    const Row rows[] = {
  // clang-format off
        {[](Material & m) { m.m_moistureTransport[0].clear(); },
         "Material is not water tight and no liquid transport function is given!",
         "[MoistureTransport::prepareCalculation]"},
        {clear(Storage::RHO), "Parameter RHO missing for standard thermal storage.",
         "RHO is necessary for thermal storage."},
        {clear(Storage::CE), "Parameter CE missing for standard thermal storage.", "CE is necessary for thermal storage."},
        {[](Material & m) { m.setParameter(Storage::RHO, 1e6); },
         "Parameter RHO (=1e+06) should be <= 1e+05.", "[ThermalStorage::prepareCalculation]"},
        {clear(Transport::LAMBDA), "Parameter LAMBDA missing for thermal transport model.",
         "[ThermalTransport::prepareCalculation]"},
        {clear(Transport::MEW), "Parameter MEW missing for standard vapor diffusion model.",
         "[MoistureTransport::prepareCalculation]"},
        {[](Material & m) { setFlag(m, Flags::AIR_TIGHT, false); }, "Parameter KG missing for standard airflow model.",
         "KG is necessary for air flow model."},
        {[](Material & m) {
             setFlag(m, Flags::AIR_TIGHT, false);
             m.setParameter(Transport::KG, 1e-6);
             m.m_airTransport[0].setFunction(AirTransport::Functions::Kg_Theta_l, spline({0, 0.3}, {1e-6, 0}));
         }, "Material 'Brick' has an invalid Kg(Theta_l) spline:\nthe Kg spline must be higher than 0!",
         "[AirTransport::checkLimits]"},
        {[](Material & m) {
             m.m_thermalStorage.setFunction(ThermalStorage::Functions::u_T, spline({250, 300, 350}, {0, 2, 1}));
         }, "X values are not strictly monotonic increasing (at position/index 2).",
         "Error generating inverse thermal storage function T(u):\n"
         "X values are not strictly monotonic increasing (at position/index 2)."},
        {[](Material & m) {
             m.m_moistureTransport[0].setFunction(Liquid::lgKl_Theta_l, spline({0, 0.1, 0.2, 0.3}, {-9, -8, -8.5, -8}));
         }, "Check for monotonic liquid conductivity function failed for material 'Brick'. Invalid spline data for "
            "lgKl(Thetal), found negative slope in interval #1.", "[MoistureTransport::checkLiquidFunctionMonotony]"},
        {[](Material & m) {
             m.m_moistureTransport[0].setFunction(Liquid::lgDl_Theta_l, spline({0, 0.1, 0.3}, {-9, -9.5, -8}));
         }, "Check for monotonic liquid conductivity function failed for material 'Brick'. Invalid spline data for "
            "lgDl(Thetal), found negative slope in interval #0.", nullptr},
        {[](Material & m) { m.m_moistureTransport[0].setFunction(Liquid::mew_RH, spline({0, 1}, {1, 0})); },
         "Invalid value 0 in function 'mew(RH)', all values must be above 0.", nullptr},
  // clang-format on
    };
    Warnings log;
    for (const auto & [spoil, cause, also] : rows) {
        Material material = materialFrom(brickText());
        spoil(material);
        const auto chain = chainOf([&] { material.prepareCalculation(); });
        ASSERT_FALSE(chain.empty()) << cause;
        EXPECT_EQ(chain.front().message, cause);
        if (also != nullptr) {
            EXPECT_THAT(chain, holds(also));
        }
        EXPECT_EQ(chain.back().message, "Error preparing material 'Brick' for calculation.");
    }
    Material material = materialFrom(brickText());
    EXPECT_EQ(chainOf([&] { MoistureTransport().prepareCalculation(material, 3); }).front().message,
              "Invalid value for material direction.");
    for (const auto & where : {"[MoistureTransport::write]", "[ThermalTransport::write]", "[AirTransport::write]"}) {
        const auto chain = chainOf([&] {
            where == std::string("[MoistureTransport::write]") ? MoistureTransport().write(std::cout, 0, 3)
            : where == std::string("[AirTransport::write]")    ? AirTransport().write(std::cout, 0, -1)
                                                               : ThermalTransport().write(std::cout, 0, 4);
        });
        ASSERT_FALSE(chain.empty());
        EXPECT_EQ(chain.front().message, "Invalid material transport direction type!");
        EXPECT_EQ(chain.front().where, where);
    }
}

TEST(MoistureTransport, WaterTightMaterialsNeedNoLiquidFunction) {
    Material material = materialFrom(brickText());
    material.m_moistureTransport[0].clear();
    setFlag(material, Flags::WATER_TIGHT);
    material.prepareCalculation();
    EXPECT_EQ(material.m_moistureTransport[0].Kl(0.3), 0);
    EXPECT_EQ(material.m_moistureTransport[0].vaporModel(), MoistureTransport::VaporModel::CONSTANT);
    EXPECT_DOUBLE_EQ(material.m_moistureTransport[0].Kv(0.1, 0.5), KV_AIR / 10);
    setFlag(material, Flags::VAPOR_TIGHT);
    material.prepareCalculation();
    EXPECT_EQ(material.m_moistureTransport[0].Kv(0.1, 0.5), 0);
}

TEST(MoistureTransport, VaporModels) {
    Material material = materialFrom(brickText());
    material.prepareCalculation();
    const MoistureTransport & transport = material.m_moistureTransport[0];
    EXPECT_DOUBLE_EQ(transport.Kv(0.1, 0.25), 2.662e-5 / (461.89 * 296.15) / 9.5);
    EXPECT_NEAR(transport.mew(0.1, 0.75), 7, 1e-12);

    // The open-pore model: dry value, nothing when full, published intermediate value s/((1-p)s^2+p).
    ModelDataContainer model;
    model.m_type = "SERIAL_PARALLEL";
    model.set("SP_SP", "0.497");
    ModelHandler models;
    models.add(model);
    material.m_moistureTransport[0].setFunction(Liquid::mew_RH, {});
    material.m_moistureTransport[0].setModels(models);
    material.prepareCalculation();
    EXPECT_EQ(transport.vaporModel(), MoistureTransport::VaporModel::SERIAL_PARALLEL);
    EXPECT_DOUBLE_EQ(transport.Kv(0, 0), KV_AIR / 10);
    EXPECT_EQ(transport.Kv(0.32, 1), 0);
    EXPECT_DOUBLE_EQ(transport.Kv(0.16, 1), KV_AIR / 10 * 0.5 / (0.503 * 0.25 + 0.497));
    model.set("SP_SP", "0");
    models.clear();
    models.add(model);
    material.m_moistureTransport[0].setModels(models);
    EXPECT_EQ(chainOf([&] { material.prepareCalculation(); }).front().message,
              "Model SERIAL_PARALLEL needs the parameter SP_SP above 0 and not above 1.");
    model.set("SP_SP", "0.5");
    model.set("SP_pCmax", "much");
    models.clear();
    models.add(model);
    material.m_moistureTransport[0].setModels(models);
    EXPECT_EQ(chainOf([&] { material.prepareCalculation(); }).front().message,
              "Expected a number for parameter SP_pCmax of model SERIAL_PARALLEL, got 'much'.");
}

/// Conductivity from diffusivity: the same flux, whatever drives it.
TEST(MoistureTransport, DiffusivityBecomesConductivity) {
    Material material = materialFrom(brickText());
    // w = 116/(1 - ln(phi)/0.118)^0.869, a dense table.
    std::vector<double> humidities;
    std::vector<double> contents;
    for (int i = 0; i <= 2000; ++i) {
        const double humidity = i / 2000.0;
        humidities.push_back(humidity);
        contents.push_back(humidity > 0 ? 0.116 / std::pow(1 - std::log(humidity) / 0.118, 0.869) : 0);
    }
    material.m_moistureStorage.clear();
    material.m_moistureStorage.setFunction(MoistureStorage::Functions::Theta_l_RH, {humidities, contents});
    material.setParameter(Storage::THETA_EFF, 0.116);
    material.m_moistureTransport[0].clear();
    const double diffusivity = 6e-10;
    material.m_moistureTransport[0].setFunction(Liquid::lgDl_Theta_l,
                                                spline({0, 0.116}, {std::log10(diffusivity), std::log10(diffusivity)}));
    material.prepareCalculation();
    for (double humidity = 0.3; humidity < 0.97; humidity += 0.01) {
        const double pressure = -liquidPressure(humidity);
        const double q = 1 + pressure / (kelvinPressure() * 0.118);
        const double slope = 116 * 0.869 * std::pow(q, -1.869) / (kelvinPressure() * 0.118); // -dw/dpc
        const double content = 0.116 * std::pow(q, -0.869);
        EXPECT_NEAR(material.m_moistureTransport[0].Kl(content) / (diffusivity * slope), 1, 2e-3) << humidity;
        EXPECT_NEAR(material.m_moistureTransport[0].Dl(content), diffusivity, 1e-20);
    }
}

TEST(ThermalTransport, ContributionsAdd) {
    Material material = materialFrom(brickText());
    ThermalTransport & transport = material.m_thermalTransport[0];
    transport.setFunction(ThermalTransport::Functions::lambda_T, spline({273.15, 293.15}, {0.55, 0.6}));
    transport.setFunction(ThermalTransport::Functions::lambda_Theta_ice, spline({0, 0.3}, {0.6, 0.9}));
    material.prepareCalculation();
    EXPECT_DOUBLE_EQ(transport.lambda(0, 293.15), 0.6);
    EXPECT_DOUBLE_EQ(transport.lambda(0.15, 273.15, 0.3), 0.6 + 0.3 - 0.05 + 0.3);
    // Each function is positive, their sum is not everywhere.
    transport.setFunction(ThermalTransport::Functions::lambda_T, spline({273.15, 293.15}, {0.2, 0.6}));
    transport.setFunction(ThermalTransport::Functions::lambda_Theta_ice, spline({0, 0.3}, {0.6, 0.1}));
    EXPECT_EQ(chainOf([&] { transport.prepareCalculation(material, 0); }).front().message,
              "The thermal conductivity functions add up to -0.3 W/mK at worst, but must stay above 0.");
}

TEST(ThermalTransport, NormalisedFunctionsAreScaled) {
    struct Row {
        ThermalTransport::Functions which;
        KOR::LinearSpline stored, expected;
    };
    using F = ThermalTransport::Functions;
    const Row rows[] = {
        {F::lambda_Theta_l, spline({0, 1},     {0, 0.5}),   spline({0, 0.3},         {0.6, 0.9})}, // added share
        {F::lambda_Theta_l, spline({0, 1},     {1, 1.5}),   spline({0, 0.3},         {0.6, 0.9})}, // factor
        {F::lambda_Theta_l, spline({0, 0.3},   {0.6, 0.9}), spline({0, 0.3},         {0.6, 0.9})}, // absolute
        {F::lambda_T,       spline({0, 50},    {0, 0.5}),   spline({273.15, 323.15}, {0.6, 0.9})},
        {F::lambda_T,       spline({0, 50},    {1, 1.5}),   spline({273.15, 323.15}, {0.6, 0.9})},
        {F::lambda_T,       spline({273, 323}, {0.6, 0.9}), spline({273, 323},       {0.6, 0.9})},
    };
    for (const auto & [which, stored, expected] : rows) {
        Material material = materialFrom(brickText());
        ThermalTransport & transport = material.m_thermalTransport[0];
        transport.clear();
        transport.setFunction(which, stored);
        material.prepareCalculation();
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_NEAR(transport.prepared(which).x()[i], expected.x()[i], 1e-12);
            EXPECT_NEAR(transport.prepared(which).y()[i], expected.y()[i], 1e-12);
        }
    }
    Material material = materialFrom(brickText());
    material.clearParameter(Transport::LAMBDA);
    ThermalTransport transport;
    transport.setFunction(F::lambda_T, spline({0, 50}, {0, 0.5}));
    material.m_thermalTransport[0] = transport;
    EXPECT_EQ(chainOf([&] { transport.denormalize(material, 0); }).back().message,
              "Error creating denormalized lambda(T) spline.");
}

TEST(ThermalStorage, EnergyAndTemperatureUndoEachOther) {
    Material material = materialFrom(brickText());
    material.prepareCalculation();
    const ThermalStorage & storage = material.m_thermalStorage;
    EXPECT_DOUBLE_EQ(storage.u(325), 65000);
    EXPECT_DOUBLE_EQ(storage.u(360), 90000 + 8500) << "CE beyond the end";
    for (const double temperature : {200., 260., 300., 340., 400.})
        EXPECT_NEAR(storage.T(storage.u(temperature)), temperature, 1e-9);
    material.m_thermalStorage.clear();
    material.prepareCalculation();
    EXPECT_DOUBLE_EQ(storage.u(283.15), 8500);
    EXPECT_DOUBLE_EQ(storage.T(8500), 283.15);
}

TEST(VaporContactResistance, WeighsAndScalesByDirection) {
    VaporContactResistanceModel model;
    using Param = VaporContactResistanceModel::Param;
    using F = VaporContactResistanceModel::Functions;
    model.setFunction(F::sdPos_rh, spline({0, 1}, {10, 0}));
    EXPECT_DOUBLE_EQ(model.resistance(true).value(0.4, 0.8), 4) << "mean humidity 0.6";
    EXPECT_DOUBLE_EQ(model.resistance(false).value(0.4, 0.8), 4) << "one function for both directions";
    model.setFunction(F::sdNeg_rh, spline({0, 1}, {1, 1}));
    model.setParameter(Param::WEIGHT_FACTOR_POS, 1);
    model.setParameter(Param::SCALING_A_POS, 1);
    model.setParameter(Param::SCALING_B_POS, 2);
    model.setParameter(Param::SCALING_C_POS, 3);
    model.setParameter(Param::SCALING_C_NEG, 7);
    EXPECT_DOUBLE_EQ(model.resistance(true).value(0.5, 0), 5 * (0.25 + 1 + 3));
    EXPECT_DOUBLE_EQ(model.resistance(false).value(0.5, 0), 7);
}

TEST(Foils, SurviveWritingAndReading) {
    const std::string text = "NAME                    = Membrane\nID_PLUS                 = 7\n"
                             "SD_VALUE                = 2 m\nSCALING_C_POS           = 3 -\n"
                             "FUNCTION = sd+(rh)\n    0 1\n    10 0\n";
    Foils foil;
    const auto read = [&foil](const std::string & content) {
        std::vector<std::string_view> lines;
        for (std::string_view rest = content; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1))
            lines.push_back(rest.substr(0, rest.find('\n')));
        foil.read(lines);
    };
    read(text);
    std::ostringstream written;
    foil.write(written, 0);
    EXPECT_EQ(written.str(), text);
    EXPECT_EQ(foil.ident(Foils::Ident::ID_PLUS), "7");
    EXPECT_DOUBLE_EQ(foil.sd(true, 0.5, 0.5), 15);
    read("SD_VALUE = 2 m\n");
    EXPECT_DOUBLE_EQ(foil.sd(false, 0.5, 0.5), 2);
}

/// Directions without functions of their own take those of the direction before.
TEST(Material, DirectionsInherit) {
    Material material = materialFrom(brickText());
    EXPECT_FALSE(material.isAnisotropic());
    material.setParameter(Transport::MEW_V, 50);
    material.setParameter(Transport::LAMBDA_V, 0.3);
    material.m_moistureTransport[0].setFunction(Liquid::mew_RH, {});
    material.m_thermalTransport[0].clear();
    material.prepareCalculation();
    EXPECT_EQ(material.effectiveDirection(2), 1);
    EXPECT_DOUBLE_EQ(material.moistureTransport(0).mew(0.1, 0.5), 10);
    EXPECT_DOUBLE_EQ(material.moistureTransport(2).mew(0.1, 0.5), 50);
    EXPECT_DOUBLE_EQ(material.thermalTransport(2).lambda(0, 293.15), 0.3);
    EXPECT_EQ(material.moistureTransport(2).Kl(0.3), material.moistureTransport(0).Kl(0.3));
}

} // namespace MM
