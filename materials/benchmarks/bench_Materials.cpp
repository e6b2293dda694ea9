#include <MM/Material.h>
#include <MM/MaterialEvaluator.h>
#include <MM/MrcGAUSS.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

namespace {

using namespace MM;
namespace fs = std::filesystem;

struct Quiet : KOR::MessageHandler {
    Quiet() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    void msg(const std::string &, int, const std::string &, int) override {}
} QUIET;

/// The database, and 2000 files made of it.
struct Files {
    std::vector<std::string> database, many;
    std::size_t databaseSize = 0, manySize = 0;
    std::string directory;
    Files() {
        for (const auto & entry : fs::directory_iterator(HYG_SOURCE_DIR "/DB_materials")) {
            database.push_back(entry.path());
            databaseSize += entry.file_size();
        }
        std::sort(database.begin(), database.end());
        directory = fs::temp_directory_path() / ("hyg-bench-materials-" + std::to_string(::getpid()));
        fs::create_directories(directory);
        for (std::size_t i = 0; i < 2000; ++i) {
            many.push_back(directory + "/material_" + std::to_string(i) + ".m6");
            fs::copy_file(database[i % database.size()], many.back(), fs::copy_options::overwrite_existing);
            manySize += fs::file_size(many.back());
        }
    }
    ~Files() { fs::remove_all(directory); }
};
const Files & files() {
    static const Files all;
    return all;
}

void readAll(benchmark::State & state, const std::vector<std::string> & paths, std::size_t size) {
    for (auto _ : state)
        for (const std::string & path : paths) {
            Material material;
            material.read(path);
            benchmark::DoNotOptimize(material);
        }
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * static_cast<std::int64_t>(state.iterations()));
    state.SetItemsProcessed(static_cast<std::int64_t>(paths.size()) * static_cast<std::int64_t>(state.iterations()));
}
void BM_ReadDatabase(benchmark::State & state) {
    readAll(state, files().database, files().databaseSize);
}
void BM_Read2000(benchmark::State & state) {
    readAll(state, files().many, files().manySize);
}
BENCHMARK(BM_ReadDatabase)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Read2000)->Unit(benchmark::kMillisecond);

void BM_Prepare2000(benchmark::State & state) {
    std::vector<Material> materials(files().many.size());
    for (std::size_t i = 0; i < materials.size(); ++i)
        materials[i].read(files().many[i]);
    for (auto _ : state)
        for (Material & material : materials)
            material.prepareCalculation();
}
BENCHMARK(BM_Prepare2000)->Unit(benchmark::kMillisecond);

ModelDataContainer twoModes() {
    ModelDataContainer model;
    model.m_type = "GAUSS";
    model.set("GAUSS_MODALITY", "2");
    model.set("GAUSS_Wi", "0.6 0.4");
    model.set("GAUSS_Ri", "1e-6 1e-8");
    model.set("GAUSS_Si", "0.3 0.6");
    return model;
}

/// A material's storage out of a model of two modes, derived functions included. Points of the generated spline and its
/// largest error at ten times denser sampling, in tolerances.
void BM_GaussSpline(benchmark::State & state) {
    Material material;
    material.setParameter(Material::ParaStorage::THETA_EFF, 0.3);
    ModelHandler models;
    models.add(twoModes());
    MoistureStorage storage;
    storage.setModels(models);
    for (auto _ : state)
        storage.prepareCalculation(material);
    MrcGAUSS gauss;
    gauss.setData(twoModes(), 0.3);
    const KOR::LinearSpline & spline = storage.prepared(MoistureStorage::Functions::Theta_l_pC_de);
    double worst = 0;
    for (std::size_t i = 1; i + 1 < spline.size(); ++i) // the last interval is stretched to dryness
        for (int part = 0; part < 10; ++part) {
            const double pC = std::lerp(spline.x()[i - 1], spline.x()[i], part / 10.0);
            const double exact = gauss.value(pC);
            worst = std::fmax(worst, std::abs(spline.value(pC) - exact) / (1e-5 + 1e-4 * exact));
        }
    state.counters["points"] = static_cast<double>(storage.generatedPoints());
    state.counters["error"] = worst;
}
BENCHMARK(BM_GaussSpline)->Unit(benchmark::kMillisecond);

/// 100,000 cells of one material.
struct Cells {
    static constexpr std::size_t COUNT = 100'000;
    std::vector<double> content, humidity, temperature, a, b, c, d;
    explicit Cells(const MaterialEvaluator & evaluator)
        : content(COUNT), humidity(COUNT), temperature(COUNT), a(COUNT), b(COUNT), c(COUNT), d(COUNT) {
        unsigned int random = 1;
        for (std::size_t i = 0; i < COUNT; ++i) {
            random = random * 1664525u + 1013904223u;
            content[i] = evaluator.saturation() * (random >> 8) / (1 << 24);
            humidity[i] = evaluator.moisture(content[i]).humidity;
            temperature[i] = 263.15 + 40.0 * (random >> 16) / (1 << 16);
        }
    }
};

MaterialEvaluator evaluatorOf(const std::string & file, MaterialEvaluator::Interpolation interpolation) {
    Material material;
    material.read(HYG_SOURCE_DIR "/DB_materials/" + file);
    material.prepareCalculation();
    return MaterialEvaluator(material, interpolation);
}

enum Kind { STATE, LIQUID, VAPOR, LAMBDA, ENTHALPY };

/// Values with derivatives. Arguments: what, and the interpolation.
void BM_Evaluate(benchmark::State & state, const char * file) {
    const auto evaluator = evaluatorOf(file, static_cast<MaterialEvaluator::Interpolation>(state.range(1)));
    Cells cells(evaluator);
    for (auto _ : state) {
        switch (state.range(0)) {
        case STATE:
            evaluator.moisture(cells.content, cells.a, cells.b, cells.c, cells.d);
            break;
        case LIQUID:
            evaluator.liquidConductivity(0, cells.content, cells.a, cells.b);
            break;
        case VAPOR:
            evaluator.vaporPermeability(0, cells.content, cells.humidity, cells.a, cells.b, cells.c);
            break;
        case LAMBDA:
            evaluator.thermalConductivity(0, cells.content, cells.temperature, cells.a, cells.b, cells.c);
            break;
        case ENTHALPY:
            evaluator.enthalpy(cells.temperature, cells.a, cells.b);
            break;
        }
        benchmark::DoNotOptimize(cells.a.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(Cells::COUNT) * static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK_CAPTURE(BM_Evaluate, concrete, "benchmark_bm1_load_bearing_118.m6")
    ->ArgsProduct({
        {STATE,   LIQUID,   VAPOR, LAMBDA, ENTHALPY},
        {0, 1}
});
BENCHMARK_CAPTURE(BM_Evaluate, timber, "timber_softwood_radial_105.m6")
    ->ArgsProduct({
        {STATE, LIQUID, VAPOR},
        {0,     1          }
});

} // namespace
