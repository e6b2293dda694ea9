#include <CCM/SolarRadiationModel.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <numbers>

using namespace CCM;

namespace {
std::size_t allocations = 0;
} // namespace

// Counts every request for memory, to show that setTime makes none. When both are inlined, g++ 12 no longer sees that
// they belong together.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void * operator new(std::size_t size) {
    ++allocations;
    if (void * memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void * memory) noexcept {
    std::free(memory);
}
void operator delete(void * memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

/// A year of records as wide as those of real files.
std::string epwText() {
    std::string text = "LOCATION,Testville,ST,NOW,TMY3,123456,52.50,13.40,1.0,34.0\nDESIGN CONDITIONS,0\n"
                       "TYPICAL/EXTREME PERIODS,0\nGROUND TEMPERATURES,0\nHOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0\n"
                       "COMMENTS 1,none\nCOMMENTS 2,none\nDATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31\n";
    constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int number = 0;
    for (int month = 0; month < 12; ++month)
        for (int day = 1; day <= DAYS[month]; ++day)
            for (int hour = 1; hour <= 24; ++hour, ++number)
                text +=
                    KOR::text("1999,%1,%2,%3,0,?9?9?9?9E0?9?9?9?9?9?9?9?9?9?9?9?9?9?9?9*9*9?9*9*9,%4.%5,-4.0,92,80600,"
                              "1321,1415,257,%6,%6,%7,0,0,0,0,170,2.%5,9,8,16.1,3300,9,999999999,89,0.0310,0,88,"
                              "0.330,999.0,99.0\n",
                              month + 1, day, hour, number % 23, number % 10, number % 700, number % 120);
    return text;
}

std::string epwFile() {
    static const std::string path = [] {
        std::string name = (std::filesystem::temp_directory_path() / "hygrion_bench.epw").string();
        KOR::writeFile(name, epwText());
        return name;
    }();
    return path;
}

void readEpw(benchmark::State & state) {
    const std::string path = epwFile();
    for ([[maybe_unused]] auto _ : state) {
        ClimateDataLoader data;
        data.readClimateData(path);
        benchmark::DoNotOptimize(data.m_data[0].back());
    }
}
BENCHMARK(readEpw)->Unit(benchmark::kMillisecond);

void readEpwHeader(benchmark::State & state) {
    const std::string path = epwFile();
    for ([[maybe_unused]] auto _ : state) {
        ClimateDataLoader data;
        data.readClimateData(path, true);
        benchmark::DoNotOptimize(data.m_latitude);
    }
}
BENCHMARK(readEpwHeader)->Unit(benchmark::kMillisecond);

/// The same file, read by a reader that is common in Python; the script says how long the best of its reads took.
void readEpwInPython(benchmark::State & state) {
    const std::string command =
        "/usr/bin/python3 '" HYG_SOURCE_DIR "/climate/benchmarks/read_epw.py' '" + epwFile() + "'";
    for ([[maybe_unused]] auto _ : state) {
        FILE * pipe = ::popen(command.c_str(), "r");
        double seconds = 0;
        char reader[100] = "";
        if (!pipe || std::fscanf(pipe, "%lf %99[^\n]", &seconds, reader) < 1)
            state.SkipWithError("no Python");
        if (pipe)
            ::pclose(pipe);
        state.SetIterationTime(seconds);
        state.SetLabel(reader);
    }
}
BENCHMARK(readEpwInPython)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

void readC6b(benchmark::State & state) {
    const std::string path = (std::filesystem::temp_directory_path() / "hygrion_bench.c6b").string();
    ClimateDataLoader source;
    source.readClimateData(epwFile());
    source.writeClimateDataKOR(path);
    for ([[maybe_unused]] auto _ : state) {
        ClimateDataLoader data;
        data.readClimateData(path);
        benchmark::DoNotOptimize(data.m_data[0].back());
    }
}
BENCHMARK(readC6b)->Unit(benchmark::kMillisecond);

void setTimeOfClimate(benchmark::State & state) {
    ClimateDataLoader data;
    data.readClimateData(epwFile());
    double t = 0;
    for ([[maybe_unused]] auto _ : state) {
        data.setTime(2021, t);
        t += 137.5;
        benchmark::DoNotOptimize(data.m_currentValues);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(setTimeOfClimate);

/// range 0: even sky, 1: anisotropic sky; by day and night as the year has them.
void setTimeOfTenSurfaces(benchmark::State & state) {
    SolarRadiationModel model;
    model.m_climate.readClimateData(epwFile());
    model.m_anisotropicSky = state.range(0) == 1;
    for (int i = 0; i < 10; ++i)
        model.addSurface(0.15 * i, 0.7 * i);
    double t = 0;
    std::size_t requests = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::size_t before = allocations;
        model.setTime(2021, t);
        requests += allocations - before;
        t += 137.5;
        if (t > SECONDS_OF_YEAR)
            t -= SECONDS_OF_YEAR;
        benchmark::DoNotOptimize(model.surfaces().data());
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["allocations"] = static_cast<double>(requests);
}
BENCHMARK(setTimeOfTenSurfaces)->Arg(0)->Arg(1);

} // namespace
