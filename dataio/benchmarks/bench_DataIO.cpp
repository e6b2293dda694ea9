#include <DATAIO/DataIO.h>
#include <DATAIO/DataWriter.h>

#include <KOR/InputFile.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <numeric>

/// What users wait for when they look at large results: a file of 1 GB, in the disk cache.
namespace {

constexpr std::size_t FILE_SIZE = std::size_t{1} << 30;
constexpr std::size_t PAGE = 4096;

/// A result file of 1 GB whose records have a number of values.
const std::string & largeFile(std::size_t values) {
    static const std::string path = (std::filesystem::temp_directory_path() / "hyg-bench.h6b").string();
    static std::size_t written = 0; // one at a time, so that it stays in the cache
    if (written == values)
        return path;
    written = values;
    DATAIO::DataHeader header;
    header.quantity = "Temperature field";
    header.quantityKeyword = "Temperature";
    header.valueUnit = "C";
    header.timeUnit = "h";
    header.indices.resize(values);
    std::iota(header.indices.begin(), header.indices.end(), 0U);
    DATAIO::DataWriter writer(path, header, true);
    const std::vector<double> record(values, 20);
    for (std::size_t t = 0; t < FILE_SIZE / (sizeof(double) * (1 + values)); ++t)
        writer.append(static_cast<double>(t), record);
    writer.flush();
    std::atexit([] { std::remove((std::filesystem::temp_directory_path() / "hyg-bench.h6b").c_str()); });
    return path;
}

/// Bytes a second of processor time at which the whole file can be read in its order; other programs do not count.
double sequentialSpeed(const std::string & path) {
    KOR::InputFile file;
    file.open(path);
    std::vector<char> chunk(1 << 20);
    double best = 0;
    for (int i = 0; i < 3; ++i) {
        const std::clock_t start = std::clock();
        std::uint64_t offset = 0;
        while (const std::size_t got = file.readAt(offset, chunk))
            offset += got;
        const double time = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        best = std::max(best, static_cast<double>(offset) / time);
    }
    return best;
}

void header(benchmark::State & state) {
    const std::string & path = largeFile(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        DATAIO::DataIO file;
        file.openAndReadHeader(path);
        benchmark::DoNotOptimize(file.timeCount());
    }
}

void oneTimePoint(benchmark::State & state) {
    DATAIO::DataIO file;
    file.openAndReadHeader(largeFile(static_cast<std::size_t>(state.range(0))));
    std::size_t t = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(file.data(t = (t + 7919) % file.timeCount()));
}

/// The course of one cell, with the time points. "ofSequential": bytes of the pages that hold them a second, in parts of
/// the speed at which the file can be read in its order.
void oneCell(benchmark::State & state) {
    const std::string & path = largeFile(static_cast<std::size_t>(state.range(0)));
    const double speed = sequentialSpeed(path);
    std::size_t touched = 0;
    double seconds = 0;
    for (auto _ : state) {
        const std::clock_t start = std::clock();
        DATAIO::DataIO file;
        file.openAndReadHeader(path);
        benchmark::DoNotOptimize(file.dataVector(file.header().valueCount() / 2));
        const double time = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        seconds += time;
        const std::size_t recordSize = sizeof(double) * (1 + file.header().valueCount());
        touched += file.timeCount() * std::min(recordSize, 2 * PAGE);
    }
    state.counters["ofSequential"] = static_cast<double>(touched) / seconds / speed;
}

/// By size, so that each file is written once.
const int REGISTERED = [] {
    for (const int values : {100, 4000, 100'000}) {
        benchmark::RegisterBenchmark("header", header)->Arg(values)->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark("oneTimePoint", oneTimePoint)->Arg(values)->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark("oneCell", oneCell)->Arg(values)->Unit(benchmark::kMillisecond);
    }
    return 0;
}();

} // namespace
