#include "EvaluatorChecks.h"
#include "MaterialTexts.h"

#include <MM/CheckMaterial.h>

#include <KOR/FileIO.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

namespace MM {

namespace {

const std::filesystem::path DATABASE = std::filesystem::path(HYG_SOURCE_DIR) / "DB_materials";

std::vector<std::string> files() {
    std::vector<std::string> paths;
    for (const auto & entry : std::filesystem::directory_iterator(DATABASE))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

Material prepared(const std::string & file) {
    Material material;
    material.read(DATABASE / file);
    material.prepareCalculation();
    return material;
}

} // namespace

TEST(Database, IsComplete) {
    EXPECT_GE(files().size(), 60U);
    std::set<unsigned int> ids;
    for (const std::string & path : files()) {
        Warnings log;
        Material material;
        material.read(path);
        EXPECT_THAT(log.m_warnings, testing::IsEmpty()) << path;
        EXPECT_TRUE(ids.insert(material.m_id).second) << path;
        const MaterialIdentification & who = material.m_identification;
        EXPECT_TRUE(who.m_name.find("en") != nullptr && who.m_name.find("de") != nullptr) << path;
        EXPECT_TRUE(who.m_colour && who.m_hatching) << path;
        EXPECT_NE(who.m_category.id(0), MaterialCategory::CategoryID::INVALID) << path;
        EXPECT_FALSE(who.m_dataSheetSource.empty()) << path;
        EXPECT_THAT(checkMaterial(material), testing::IsEmpty()) << path;
        EXPECT_EQ(material.content(), KOR::readFile(path, Material::MAX_FILE_SIZE)) << path;
    }
}

TEST(Database, PhysicalIdentitiesHold) {
    using Interpolation = MaterialEvaluator::Interpolation;
    for (const std::string & path : files()) {
        const Material material = prepared(std::filesystem::path(path).filename());
        for (const auto interpolation : {Interpolation::LINEAR, Interpolation::MONOTONE_CUBIC})
            checkIdentities(material, interpolation);
        const MoistureStorage & storage = material.m_moistureStorage;
        if (storage.mode() == MoistureStorage::MODE_LINEAR)
            continue;
        for (double humidity = 0.01; humidity < 0.9995; humidity += 0.01) {
            const double content = storage.Thetal_RH(humidity);
            EXPECT_NEAR(storage.RH_Thetal(content), humidity, 1e-8) << path;
            EXPECT_NEAR(storage.prepared(MoistureStorage::Functions::Theta_l_RH).value(humidity), content,
                        1.1e-4 * storage.saturation())
                << path;
        }
    }
}

/// The tables of the benchmark materials are no source of error: published formulas against what is evaluated.
TEST(Database, BenchmarkTablesFollowTheirFormulas) {
    const Material concrete = prepared("benchmark_bm1_load_bearing_118.m6");
    const Material insulation = prepared("benchmark_bm1_insulation_119.m6");
    const Material layer = prepared("benchmark_bm2_402.m6");
    const double c[] = {-39.2619, 0.0704, -1.7420e-4, -2.7953e-6, -1.1566e-7, 2.5969e-9};
    for (const auto interpolation :
         {MaterialEvaluator::Interpolation::LINEAR, MaterialEvaluator::Interpolation::MONOTONE_CUBIC}) {
        const MaterialEvaluator first(concrete, interpolation);
        const MaterialEvaluator second(insulation, interpolation);
        const MaterialEvaluator third(layer, interpolation);
        for (double pC = 0; pC <= 9.5; pC += 0.013) {
            const double pc = std::pow(10.0, pC);
            const double w = 146 / std::pow(1 + std::pow(8e-8 * pc, 1.6), 0.375);
            EXPECT_NEAR(first.content(-pc).value * 1000, w, 0.004) << pC;
            const double v = 900 / std::sqrt(1 + 4e-8 * pc * pc);
            EXPECT_NEAR(second.content(-pc).value * 1000, v, std::fmax(2e-3 * v, 1e-4)) << pC;
            EXPECT_NEAR(third.content(-pc).value * 1000, 116 * std::pow(1 + pc / (kelvinPressure() * 0.118), -0.869),
                        0.004);
        }
        for (double w = 1; w < 146; w += 0.7) {
            double lnK = 0;
            for (int i = 5; i >= 0; --i)
                lnK = lnK * (w - 73) + c[i];
            EXPECT_NEAR(first.liquidConductivity(0, w / 1000).value / std::exp(lnK), 1, 5e-4) << w;
            const double s = 1 - w / 146;
            const double permeability = 0.018 / (8.314 * 293.15) * 26.1e-6 / 200 * s / (0.503 * s * s + 0.497);
            EXPECT_NEAR(first.vaporPermeability(0, w / 1000, 0.5).value / permeability, 1, 1e-5) << w;
            EXPECT_NEAR(first.thermalConductivity(0, w / 1000, 293.15).value, 1.5 + 15.8e-3 * w, 1e-9);
            // Suction: 0.125e8 ((146/w)^(1/0.375) - 1)^0.625
            const double suction = 0.125e8 * std::pow(std::pow(146 / w, 1 / 0.375) - 1, 0.625);
            EXPECT_NEAR(-first.moisture(w / 1000).liquidPressure / suction, 1, 3e-3) << w;
        }
        for (double w = 1; w < 115; w += 1.3) {
            const auto state = third.moisture(w / 1000);
            EXPECT_NEAR(third.liquidDiffusivity(0, w / 1000).value, 6e-10, 1e-15);
            EXPECT_NEAR(state.humidity, std::exp(0.118 * (1 - std::pow(116 / w, 1 / 0.869))), 2e-4);
            // Conductivity times the slope of suction is the diffusivity.
            EXPECT_NEAR(third.liquidConductivity(0, w / 1000).value * state.pressureSlope / 1000 / 6e-10, 1,
                        interpolation == MaterialEvaluator::Interpolation::LINEAR ? 0.05 : 5e-3)
                << w;
        }
        EXPECT_NEAR(third.vaporPermeability(0, 0.05, 0.5).value, 1e-15, 1e-20);
    }
}

} // namespace MM
