#pragma once

#include "ClimateSignals.h"
#include "FieldLaws.h"
#include "JumpTable.h"

#include <SOLVER/Model.h>

#include <memory>
#include <optional>
#include <vector>

namespace SOLVER {

/// Makes the loads of a moment out of the climate: all that the project says about boundaries and fields, in numbers.
/// It never changes once it is made; what changes with time lies in Scratch, of which every thread has its own.
class ClimateDriver {
public:
    struct Scratch {
        double time = std::numeric_limits<double>::quiet_NaN(); ///< of what follows [s]
        std::vector<double> values;
        std::vector<CCM::SolarRadiationModel> suns;
        std::vector<SurfaceLoad> surfaces; ///< one a group
        std::vector<CellLoad> cells;       ///< one a law
    };
    /// A sky for solar models: its radiation.
    struct Sky {
        std::uint32_t direct, diffuse; ///< signals
    };

    explicit ClimateDriver(ClimateSignals signals) : m_signals(std::move(signals)) {}

    ClimateSignals & signals() { return m_signals; }
    const ClimateSignals & signals() const { return m_signals; }

    /// A set of laws that hold on surfaces alike. \return its number
    std::uint32_t addGroup(std::vector<BoundaryLaw> laws);
    /// The next surface belongs to a group.
    void addSurface(std::uint32_t group) { m_groupOfSurface.push_back(group); }
    /// A loaded cell: what its law gives times a factor, and the moisture [kg/m3] above which it takes no water.
    struct LoadedCell {
        std::uint32_t law;
        double factor;
        double maxMoisture;
    };
    std::uint32_t addFieldLaw(FieldLaw law);
    /// The next loaded cell.
    void addCell(const LoadedCell & cell) { m_cells.push_back(cell); }
    /// Connects a law to the sun; position and the two signals of radiation are set.
    void connectSun(BoundaryLaw & law, const CCM::SolarRadiationModel & place);

    Scratch makeScratch() const;
    void evaluate(double time, Scratch & scratch, ModelInput::Loads loads) const;
    /// The flow in the pipe behind a surface; nothing where there is none, or more than one.
    /// \param scratch of this function alone
    std::optional<PipeFlow> pipeFlow(double time, std::size_t surface, Scratch & scratch) const;
    /// All times that no step may pass.
    JumpTable jumps() const;

private:
    ClimateSignals m_signals;
    std::vector<std::vector<BoundaryLaw>> m_groups;
    std::vector<std::uint32_t> m_groupOfSurface;
    std::vector<FieldLaw> m_fieldLaws;
    std::vector<LoadedCell> m_cells;
    std::vector<Sky> m_skies;
    std::vector<CCM::SolarRadiationModel> m_suns; ///< one a sky
};

} // namespace SOLVER
