#include <SOLVER/RestartFile.h>

#include <DATAIO/GeoFile.h>

#include <KOR/Binary.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <sstream>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr std::string_view MAGIC = "H6RS0003";
constexpr std::size_t MAX_SIZE = std::size_t{4} << 30;
constexpr std::uint32_t MAX_COUNT = 200'000'000;
constexpr std::uint32_t MAX_OUTPUTS = 1u << 31;

constexpr long IntegratorStatistics::*COUNTERS[] = {
    &IntegratorStatistics::steps,
    &IntegratorStatistics::rightHandSides,
    &IntegratorStatistics::jacobians,
    &IntegratorStatistics::nonlinearIterations,
    &IntegratorStatistics::errorTestFailures,
    &IntegratorStatistics::nonlinearFailures,
    &IntegratorStatistics::linearIterations,
    &IntegratorStatistics::linearFailures,
};

} // namespace

void RestartFile::write(const std::string & path) const {
    std::ostringstream out(std::ios::binary);
    KOR::write_binary(out, geometryHash);
    KOR::write_binary(out, module);
    KOR::write_vector_binary(out, materials);
    for (const double value : {startTime, time, wallTime, lastObserved})
        KOR::write_binary(out, value);
    KOR::write_vector_binary(out, state);
    KOR::write_vector_binary(out, exchanged);
    KOR::write_vector_binary(out, startContent);
    KOR::write_vector_binary(out, layerStatistics);
    KOR::write_vector_binary(out, limiting);
    for (const auto counter : COUNTERS)
        KOR::write_binary(out, static_cast<std::int64_t>(statistics.*counter));
    KOR::write_string_binary(out, outputs);
    const std::string body = out.str();
    std::ostringstream whole(std::ios::binary);
    whole << MAGIC;
    KOR::write_binary(whole, DATAIO::GeoFile::hash(body));
    whole << body;
    try {
        KOR::writeFile(path, whole.str());
    } catch (const Exception & ex) {
        throw Exception(ex, text("Cannot write restart file '%1'.", path), "[RestartFile::write]");
    }
}

RestartFile RestartFile::read(const std::string & path) {
    constexpr const char * WHERE = "[RestartFile::read]";
    try {
        const std::string content = KOR::readFile(path, MAX_SIZE);
        if (!content.starts_with(MAGIC))
            throw Exception("It is no restart file of this version.", WHERE);
        std::istringstream in(content.substr(MAGIC.size()), std::ios::binary);
        const auto checksum = KOR::read_binary<std::uint32_t>(in);
        if (checksum != DATAIO::GeoFile::hash(std::string_view(content).substr(MAGIC.size() + sizeof(checksum))))
            throw Exception("Its checksum is wrong, the file is damaged.", WHERE);
        RestartFile file;
        file.geometryHash = KOR::read_binary<std::uint32_t>(in);
        file.module = KOR::read_binary<std::int32_t>(in);
        file.materials = KOR::read_vector_binary<std::uint32_t>(in, MAX_COUNT);
        for (double * value : {&file.startTime, &file.time, &file.wallTime, &file.lastObserved})
            *value = KOR::read_binary<double>(in);
        file.state = KOR::read_vector_binary<double>(in, MAX_COUNT);
        file.exchanged = KOR::read_vector_binary<Exchange>(in, MAX_COUNT);
        file.startContent = KOR::read_vector_binary<double>(in, MAX_COUNT);
        file.layerStatistics = KOR::read_vector_binary<double>(in, MAX_COUNT);
        file.limiting = KOR::read_vector_binary<std::uint64_t>(in, MAX_COUNT);
        for (const auto counter : COUNTERS)
            file.statistics.*counter = static_cast<long>(KOR::read_binary<std::int64_t>(in));
        file.outputs = KOR::read_string_binary(in, MAX_OUTPUTS);
        return file;
    } catch (const Exception & ex) {
        throw Exception(ex, text("Restart file '%1' cannot be used.", path), WHERE);
    }
}

} // namespace SOLVER
