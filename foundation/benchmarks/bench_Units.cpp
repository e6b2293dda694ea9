#include <KOR/Numbers.h>
#include <KOR/UnitList.h>
#include <KOR/UnitVector.h>

#include <benchmark/benchmark.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

/// A million numbers: read against a stream, converted against a plain loop.
namespace {

constexpr std::size_t COUNT = 1000000;

std::vector<double> numbers() {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> unit(-1000, 1000);
    std::vector<double> values(COUNT);
    for (double & value : values)
        value = unit(random);
    return values;
}

/// Seventeen digits as computed values have them, or five as people write them.
std::string written(bool asComputed) {
    std::string text;
    for (const double value : numbers())
        text += (asComputed ? KOR::toString(value) : KOR::toString(value, 5)) + ' ';
    return text;
}

void readUnitVector(benchmark::State & state) {
    const std::string text = written(state.range(0) != 0);
    for (auto _ : state) {
        KOR::UnitVector vector;
        vector.read(text, "mm");
        benchmark::DoNotOptimize(vector.m_data.data());
    }
}

void readStream(benchmark::State & state) {
    const std::string text = written(state.range(0) != 0);
    for (auto _ : state) {
        std::istringstream stream(text);
        std::vector<double> values;
        for (double value = 0; stream >> value;)
            values.push_back(value);
        benchmark::DoNotOptimize(values.data());
    }
}

void writeUnitVector(benchmark::State & state) {
    const KOR::UnitVector vector(numbers(), KOR::Unit("mm"));
    for (auto _ : state)
        benchmark::DoNotOptimize(vector.write().size());
}

void convert(benchmark::State & state, const char * one, const char * other) {
    KOR::UnitVector vector(numbers(), KOR::Unit(one));
    const KOR::Unit units[] = {KOR::Unit(other), KOR::Unit(one)};
    std::size_t i = 0;
    for (auto _ : state) {
        vector.convert(units[i++ % 2]);
        benchmark::ClobberMemory();
    }
}

void multiply(benchmark::State & state) {
    std::vector<double> values = numbers();
    const double factors[] = {1000, 0.001};
    std::size_t i = 0;
    for (auto _ : state) {
        const double factor = factors[i++ % 2];
        for (double & value : values)
            value *= factor;
        benchmark::ClobberMemory();
    }
}

void convertScaled(benchmark::State & state) {
    convert(state, "m", "mm");
}
void convertOffset(benchmark::State & state) {
    convert(state, "K", "C");
}
void convertLogarithm(benchmark::State & state) {
    convert(state, "kg/m3", "log(g/m3)");
}

} // namespace

BENCHMARK(readUnitVector)->ArgName("computed")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(readStream)->ArgName("computed")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(writeUnitVector)->Unit(benchmark::kMillisecond);
BENCHMARK(multiply)->Unit(benchmark::kMicrosecond);
BENCHMARK(convertScaled)->Unit(benchmark::kMicrosecond);
BENCHMARK(convertOffset)->Unit(benchmark::kMicrosecond);
BENCHMARK(convertLogarithm)->Unit(benchmark::kMicrosecond);
