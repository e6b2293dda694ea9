#include "MaterialTexts.h"

#include <MM/CheckMaterial.h>

#include <functional>

namespace MM {

namespace {

using Flags = MaterialIdentification::Flags;
using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;
using Retention = MoistureStorage::Functions;
using Moist = MoistureTransport::Functions;
using Heat = ThermalTransport::Functions;
using Air = AirTransport::Functions;

KOR::LinearSpline line(double x0, double x1, double y0, double y1) {
    return {
        {x0, x1},
        {y0, y1}
    };
}

void withModels(Material & material, std::initializer_list<const char *> types) {
    ModelHandler models;
    for (const char * type : types) {
        ModelDataContainer model;
        model.m_type = type;
        models.add(model);
    }
    material.m_moistureStorage.clear();
    material.m_moistureStorage.setModels(models);
}

void tight(Material & material) {
    material.clearParameter(Storage::THETA_EFF);
    material.clearParameter(Storage::THETA_POR);
    material.clearParameter(Transport::MEW);
    material.clearParameter(Transport::KLEFF);
    material.clearParameter(Transport::AW);
    material.m_moistureStorage.clear();
    material.m_moistureTransport[0].clear();
    material.m_thermalTransport[0].clear();
    setFlag(material, Flags::VAPOR_TIGHT);
    setFlag(material, Flags::WATER_TIGHT);
}

void gas(Material & material) {
    tight(material);
    material.setParameter(Transport::MEW, 1);
    setFlag(material, Flags::VAPOR_TIGHT, false);
    setFlag(material, Flags::AIR);
}

void breathing(Material & material) {
    setFlag(material, Flags::AIR_TIGHT, false);
    material.setParameter(Transport::KG, 1e-6);
}

} // namespace

/// A sound material, one change, and what is found then.
TEST(CheckMaterial, EveryFaultIsFound) {
    struct Row {
        const char * message;
        std::function<void(Material &)> spoil;
    };
    const auto heat = [](Material & m, Heat f, const KOR::LinearSpline & s) {
        m.m_thermalTransport[0].setFunction(f, s);
    };
    const auto moist = [](Material & m, Moist f, const KOR::LinearSpline & s) {
        m.m_moistureTransport[0].setFunction(f, s);
    };
    const auto hold = [](Material & m, Retention f, const KOR::LinearSpline & s) {
        m.m_moistureStorage.setFunction(f, s);
    };
    const auto kg = [](Material & m, const KOR::LinearSpline & s) {
        breathing(m);
        m.m_airTransport[0].setFunction(Air::Kg_Theta_l, s);
    };
    const auto dl = [](Material & m, const KOR::LinearSpline & s) {
        m.m_moistureTransport[0].setFunction(Moist::lgKl_Theta_l, {});
        m.clearParameter(Transport::KLEFF);
        m.setParameter(Transport::DLEFF, 1e-7);
        m.m_moistureTransport[0].setFunction(Moist::lgDl_Theta_l, s);
    };
    const Row rows[] = {
  // clang-format off
        {"LambdaDry is smaller than 1e-20", [](Material & m) { m.clearParameter(Transport::LAMBDA); }},
        {"The minimum Theta_l value should be zero!",
         [&](Material & m) { heat(m, Heat::lambda_Theta_l, line(0.1, 0.3, 0.6, 1)); }},
        {"The maximum Thetal value should be equal to THETA_EFF!",
         [&](Material & m) { heat(m, Heat::lambda_Theta_l, line(0, 0.4, 0.6, 1)); }},
        {"The lambda-value at zero must match LAMBDA!",
         [&](Material & m) { heat(m, Heat::lambda_Theta_l, line(0, 0.3, 0.7, 1)); }},
        {"Data for Lambda(ThetaIce) exist but function is not valid.!",
         [&](Material & m) { heat(m, Heat::lambda_Theta_ice, line(0, 0.3, 0, 1)); }},
        {"No data for thermal storage given (no parameter ce and no U(T) function)!",
         [](Material & m) { m.clearParameter(Storage::CE); m.m_thermalStorage.clear(); }},
        {"U(T) function given but no parameter ce!", [](Material & m) { m.clearParameter(Storage::CE); }},
        {"Material is air and Theta_Eff exist.", [](Material & m) { gas(m); m.setParameter(Storage::THETA_EFF, 1); }},
        {"Material is air and Theta_Por exist.", [](Material & m) { gas(m); m.setParameter(Storage::THETA_POR, 1); }},
        {"Material is water and vapor tight and Theta_Eff exist.",
         [](Material & m) { tight(m); m.setParameter(Storage::THETA_EFF, 0.1); }},
        {"Material is water and vapor tight and Theta_Por exist.",
         [](Material & m) { tight(m); m.setParameter(Storage::THETA_POR, 0.1); }},
        {"Theta_Eff not given! It is necessary for moisture storage",
         [](Material & m) { m.clearParameter(Storage::THETA_EFF); }},
        {"Theta_Por is smaller than Theta_Eff!", [](Material & m) { m.setParameter(Storage::THETA_POR, 0.2); }},
        {"Theta_Por not given!", [](Material & m) { m.clearParameter(Storage::THETA_POR); }},
        {"Cannot create reverse function of Thetal(RH) function", [&](Material & m) {
             m.m_moistureStorage.clear();
             hold(m, Retention::Theta_l_RH, line(0, 1, 0.3, 0.3)); }},
        {"Only GAUSS model for moisture storage is currently supported",
         [](Material & m) { withModels(m, {"VAN_GENUCHTEN"}); }},
        {"Unknown model for moisture storage given", [](Material & m) { withModels(m, {"FOO"}); }},
        {"Moisture storage function is created from GAUSS model", [](Material & m) { withModels(m, {"GAUSS"}); }},
        {"More than one model for moisture storage given",
         [](Material & m) { withModels(m, {"GAUSS", "VAN_GENUCHTEN"}); }},
        {"No moisture storage function or model given", [](Material & m) { m.m_moistureStorage.clear(); }},
        {"First value of Thetal(pc) is not Theta_Eff.",
         [&](Material & m) { hold(m, Retention::Theta_l_pC_de, line(0, 12, 0.2, 0)); }},
        {"Thetal(pc) exist but not Theta_Eff.", [](Material & m) { m.clearParameter(Storage::THETA_EFF); }},
        {"Last value of Thetal(pc) is not 0.",
         [&](Material & m) { hold(m, Retention::Theta_l_pC_de, line(0, 12, 0.3, 0.1)); }},
        {"First x value of Thetal(pc) is not 0.",
         [&](Material & m) { hold(m, Retention::Theta_l_pC_de, line(1, 12, 0.3, 0)); }},
        {"Last x value of pc(Thetal) is not Theta_Eff.",
         [&](Material & m) { hold(m, Retention::pC_Theta_l_de, line(0, 0.2, 12, 0)); }},
        {"pc(Thetal) exist but not Theta_Eff.", [&](Material & m) {
             m.clearParameter(Storage::THETA_EFF);
             hold(m, Retention::pC_Theta_l_de, line(0, 0.3, 12, 0)); }},
        {"First x value of pc(Thetal) is not 0.",
         [&](Material & m) { hold(m, Retention::pC_Theta_l_de, line(0.1, 0.3, 12, 0)); }},
        {"Last value of pc(Thetal) is not 0.",
         [&](Material & m) { hold(m, Retention::pC_Theta_l_de, line(0, 0.3, 12, 1)); }},
        {"Current moisture storage function doesn't allow to create a correct mwu(T) function.", [&](Material & m) {
             hold(m, Retention::mwu_T, line(273, 293, 0.1, 0.2));
             hold(m, Retention::Theta_l_pC_de, line(0, 12, 0.3, 0.1)); }},
        {"Material is water and vapor tight and moisture retention exist.",
         [&](Material & m) { tight(m); hold(m, Retention::Theta_l_pC_de, line(0, 12, 0.3, 0)); }},
        {"Material is water and vapor tight and sorption isotherm exist.",
         [&](Material & m) { tight(m); hold(m, Retention::Theta_l_RH, line(0, 1, 0, 0.3)); }},
        {"Material is not water tight and no liquid transport function exist.",
         [](Material & m) { m.m_moistureTransport[0].clear(); }},
        {"Kl(Thetal) exist but Kleff not given!", [](Material & m) { m.clearParameter(Transport::KLEFF); }},
        {"Kl_eff exist but Aw doesn't exist. Scaling of Kl(Thetal) by using Aw not possible.",
         [](Material & m) { m.clearParameter(Transport::AW); }},
        {"First Thetal value in Kl(Thetal) must be 0.",
         [&](Material & m) { moist(m, Moist::lgKl_Theta_l, line(0.1, 0.3, -12, -8)); }},
        {"Last Thetal value in Kl(Thetal) must be ThetaEff.",
         [&](Material & m) { moist(m, Moist::lgKl_Theta_l, line(0, 0.2, -12, -8)); }},
        {"Last Kl value in Kl(Thetal) must be KlEff.",
         [&](Material & m) { moist(m, Moist::lgKl_Theta_l, line(0, 0.3, -12, -9)); }},
        {"Kl(Thetal) function must be monotonic increasing.",
         [&](Material & m) { moist(m, Moist::lgKl_Theta_l, line(0, 0.3, -7, -8)); }},
        {"Dl(Thetal) exist but Kleff not given!", [&](Material & m) {
             dl(m, line(0, 0.3, -9, -7));
             m.clearParameter(Transport::DLEFF); }},
        {"Dl_eff exist but Aw doesn't exist. Scaling of Dl(Thetal) by using Aw not possible.", [&](Material & m) {
             dl(m, line(0, 0.3, -9, -7));
             m.clearParameter(Transport::AW); }},
        {"Dl(Thetal) and Kl(Thetal) exist! Only Kl(Thetal) will be used.",
         [&](Material & m) { moist(m, Moist::lgDl_Theta_l, line(0, 0.3, -9, -7)); }},
        {"First Thetal value in Dl(Thetal) must be 0.", [&](Material & m) { dl(m, line(0.1, 0.3, -9, -7)); }},
        {"Last Dl value in Dl(Thetal) must be DlEff.", [&](Material & m) { dl(m, line(0, 0.3, -9, -6)); }},
        {"Dl(Thetal) function must be monotonic increasing.", [&](Material & m) { dl(m, line(0, 0.3, -6, -7)); }},
        {"Material is water tight and Kl_Eff exist.",
         [](Material & m) { tight(m); m.setParameter(Transport::KLEFF, 1e-8); }},
        {"Material is water tight and Dl_Eff exist.",
         [](Material & m) { tight(m); m.setParameter(Transport::DLEFF, 1e-8); }},
        {"Material is water tight and Aw exist.", [](Material & m) { tight(m); m.setParameter(Transport::AW, 0.1); }},
        {"Material is water atight and Kl(Thetal) function exist.",
         [&](Material & m) { tight(m); moist(m, Moist::lgKl_Theta_l, line(0, 0.3, -12, -8)); }},
        {"Material is water tight and Dl(Thetal) function exist.",
         [&](Material & m) { tight(m); moist(m, Moist::lgDl_Theta_l, line(0, 0.3, -12, -8)); }},
        {"Material is vapor tight and myDry exist.", [](Material & m) { tight(m); m.setParameter(Transport::MEW, 9); }},
        {"Material is not vapor tight and Theta_Por doesn't exist.",
         [](Material & m) { m.clearParameter(Storage::THETA_POR); }},
        {"Material is not vapor tight and no vapor transport model exist (no myDry and no Kv(Thetal)).",
         [](Material & m) { m.clearParameter(Transport::MEW); }},
        {"First Thetal value in Kv(Thetal) must be 0.",
         [&](Material & m) { moist(m, Moist::lgKv_Theta_l, line(0.1, 0.32, -10.71, -20)); }},
        {"Last Thetal value in Kv(Thetal) must be ThetaPor.",
         [&](Material & m) { moist(m, Moist::lgKv_Theta_l, line(0, 0.3, -10.71, -20)); }},
        {"Thirst Kv value in Kv(Thetal) must correspond to myDry.",
         [&](Material & m) { moist(m, Moist::lgKv_Theta_l, line(0, 0.32, -11.71, -20)); }},
        {"Material is air tight and Kg exist.", [](Material & m) { m.setParameter(Transport::KG, 1e-6); }},
        {"Material is not air tight and Kg is smaller than 1e-20s.",
         [](Material & m) { breathing(m); m.setParameter(Transport::KG, 1e-21); }},
        {"Material is not air tight and Kg doesn't exist.", [](Material & m) { setFlag(m, Flags::AIR_TIGHT, false); }},
        {"Material is not air tight and transport function is given (no Kg(Thetal) and no Para Kg).",
         [](Material & m) { setFlag(m, Flags::AIR_TIGHT, false); }},
        {"First Thetal value in Kg(Thetal) must be 0.", [&](Material & m) { kg(m, line(0.1, 0.32, 1e-6, 1e-7)); }},
        {"Last Thetal value in Kg(Thetal) must be ThetaPor.", [&](Material & m) { kg(m, line(0, 0.3, 1e-6, 1e-7)); }},
        {"First y value in Kg(Thetal) must be Kg_dry.", [&](Material & m) { kg(m, line(0, 0.32, 2e-6, 1e-7)); }},
        {"All y values in Kg(Thetal) must be greater than 0.", [&](Material & m) { kg(m, line(0, 0.32, 1e-6, 0)); }},
  // clang-format on
    };
    for (const auto & change : {tight, gas, breathing}) {
        Material sound = materialFrom(brickText());
        change(sound);
        EXPECT_THAT(checkMaterial(sound), testing::IsEmpty());
    }
    for (const auto & [message, spoil] : rows) {
        Material material = materialFrom(brickText());
        spoil(material);
        const auto found = checkMaterial(material);
        EXPECT_THAT(found, testing::Contains(testing::Field(&Finding::message, message)));
        EXPECT_LE(found.size(), 3U) << message << ": one fault causes a handful of findings at most";
        for (const Finding & finding : found)
            EXPECT_EQ(finding.isFault, finding.message != "Moisture storage function is created from GAUSS model");
    }
}

TEST(CheckMaterial, FindingsAreReported) {
    Warnings log;
    Material material = materialFrom(brickText());
    material.clearParameter(Transport::KLEFF);
    reportFindings(checkMaterial(material));
    EXPECT_THAT(log.m_warnings, testing::ElementsAre("Kl(Thetal) exist but Kleff not given!"));
}

} // namespace MM
