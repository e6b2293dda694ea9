#pragma once

#include <SOLVER/Integrator.h>

#include <cstdint>
#include <string>
#include <vector>

namespace SOLVER {

/// From where an interrupted run goes on. The file is replaced atomically and carries its checksum.
struct RestartFile {
    std::uint32_t geometryHash = 0;       ///< of the grid and materials that the state belongs to
    std::int32_t module = 0;              ///< module_t
    std::vector<std::uint32_t> materials; ///< MaterialTable::fingerprint of each of the model's
    double startTime = 0;                 ///< of the simulation [s]
    double time = 0;                      ///< of the state [s]
    std::vector<double> state;
    std::vector<Exchange> exchanged;     ///< since the start, in the order of Model::exchangeRates
    std::vector<double> startContent;    ///< energy [J] and moisture [kg] at the start
    std::vector<double> layerStatistics; ///< see Simulation
    std::vector<std::uint64_t> limiting; ///< how often each cell limited a step
    IntegratorStatistics statistics;
    double wallTime = 0;     ///< [s]
    double lastObserved = 0; ///< when the layers were looked at [s]
    std::string outputs;     ///< see OutputWriter::save

    /// Throws ("[RestartFile::write]") when the file cannot be written; an earlier one is whole then.
    void write(const std::string & path) const;
    /// Throws "Restart file '%1' cannot be used." above the reason ("[RestartFile::read]").
    static RestartFile read(const std::string & path);
};

} // namespace SOLVER
