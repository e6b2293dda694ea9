#include <HYGRION/Project.h>

#include <KOR/FileIO.h>

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>

namespace {

using namespace HYGRION;

constexpr std::size_t CELLS = 1000; ///< of columns and of rows

/// A grid of 1000 x 1000 cells, tiled by blocks of 5 x 10 cells; a twentieth of the assignments are interfaces.
Project project(std::int64_t assignments) {
    Project p;
    p.m_projectInfo.m_created = "2026-01-01";
    std::vector<double> widths(CELLS);
    for (std::size_t i = 0; i < CELLS; ++i)
        widths[i] = 0.001 * (1 + static_cast<double>(i) / 7);
    p.m_disc.m_xSteps.m_data = widths;
    p.m_disc.m_ySteps.m_data = widths;
    for (int i = 0; i < 100; ++i)
        p.m_materials.push_back(
            {"Material " + std::to_string(i), {}, 0, KOR::Path("${Project Directory}/materials/a.m6")});
    for (std::uint32_t n = 0; n < assignments; ++n) {
        const std::uint32_t left = n % 200 * 5;
        const std::uint32_t bottom = n / 200 * 10;
        const Range range{left, bottom, 0, left + 4, bottom + 9, 0};
        const bool isSide = n % 20 == 0;
        p.m_assignments.m_list.emplace_back(isSide ? Assignment::type_t::Interface : Assignment::type_t::Material,
                                            isSide ? Assignment::location_t::Left : Assignment::location_t::Element,
                                            range, "Material " + std::to_string(n % 100));
    }
    return p;
}

/// A file that is gone when the benchmark is over.
class File {
public:
    explicit File(const std::string & content)
        : m_path((std::filesystem::temp_directory_path() / ("bench_" + std::to_string(::getpid()) + ".h6p")).string()) {
        KOR::writeFile(m_path, content);
    }
    ~File() { std::filesystem::remove(m_path); }
    const std::string & path() const { return m_path; }

private:
    std::string m_path;
};

void readFile(benchmark::State & state, bool headerOnly) {
    const File file(project(state.range(0)).text());
    for (auto _ : state) {
        Project read;
        read.readXML(file.path(), headerOnly);
        benchmark::DoNotOptimize(read);
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(file.path()));
    state.SetComplexityN(state.range(0));
}

void readWhole(benchmark::State & state) {
    readFile(state, false);
}

void readHeader(benchmark::State & state) {
    readFile(state, true);
}

void writeWhole(benchmark::State & state) {
    const Project p = project(state.range(0));
    const File file("");
    for (auto _ : state)
        if (!p.writeXML(file.path()))
            state.SkipWithError("not written");
    state.SetComplexityN(state.range(0));
}

void assignmentGrid(benchmark::State & state) {
    const Project p = project(state.range(0));
    AssignmentGrid grid;
    for (auto _ : state) {
        Discretization::updateDiscAssignmentGrid(CELLS, CELLS, 1, p.m_assignments, grid);
        benchmark::DoNotOptimize(grid);
    }
    state.SetComplexityN(state.range(0));
}

void boundaryIDGrid(benchmark::State & state) {
    const Project p = project(state.range(0));
    BoundaryIDGrid grid;
    for (auto _ : state) {
        Discretization::updateBoundaryIDGrid(CELLS, CELLS, 1, p.m_assignments, grid);
        benchmark::DoNotOptimize(grid);
    }
    state.SetComplexityN(state.range(0));
}

void copy(benchmark::State & state) {
    const Project p = project(state.range(0));
    for (auto _ : state) {
        Project other = p;
        benchmark::DoNotOptimize(other);
    }
}

void checks(benchmark::State & state) {
    const Project p = project(state.range(0));
    for (auto _ : state) {
        p.GUISanityChecks();
        benchmark::DoNotOptimize(p.danglingReferences());
    }
    state.SetComplexityN(state.range(0));
}

void removeUnused(benchmark::State & state) {
    Project p = project(state.range(0));
    for (Assignment & assignment : p.m_assignments.m_list)
        assignment.m_type = Assignment::type_t::Material;
    for (auto _ : state)
        benchmark::DoNotOptimize(Project(p).removeUnusedDefinitions());
}

} // namespace

BENCHMARK(readWhole)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Arg(20000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(writeWhole)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(20000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(readHeader)->Arg(10)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(assignmentGrid)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(20000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(boundaryIDGrid)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(20000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copy)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(checks)->Arg(10)->Arg(1000)->Arg(20000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(removeUnused)->Arg(20000)->Unit(benchmark::kMillisecond);
