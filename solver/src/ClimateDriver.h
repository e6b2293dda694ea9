#pragma once

#include "BoundaryLaws.h"
#include "ClimateSignals.h"
#include "JumpTable.h"

#include <SOLVER/Model.h>

#include <memory>
#include <vector>

namespace SOLVER {

/// One field condition in numbers: what it adds to the load of a cell at a moment.
struct CellLaw {
    using Apply = void (*)(const CellLaw &, const ClimateMoment &, CellLoad &);

    Apply apply = nullptr;
    QuantitySignals signals;
    ActiveTimes active;
    std::int32_t ambient = QuantitySignals::NONE; ///< signal of the ambient temperature
    double coefficient = 0;                       ///< of the law, see FieldLaws.cpp
    double height = 0;                            ///< [m]
    double pressure = 0;                          ///< [Pa]
    double perVolume = 1;                         ///< turns what is given in total into a density [1/m3], or 1
    CellLoad limits;                              ///< the load that the law adds to
    std::vector<BoundaryLaw> rain;                ///< of the interface whose rain is the source
};

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
    std::uint32_t addCellLaw(CellLaw law);
    /// The next loaded cell has this law.
    void addCell(std::uint32_t law) { m_lawOfCell.push_back(law); }
    /// Connects a law to the sun; position and the two signals of radiation are set.
    void connectSun(BoundaryLaw & law, const CCM::SolarRadiationModel & place);

    Scratch makeScratch() const;
    void evaluate(double time, Scratch & scratch, ModelInput::Loads loads) const;
    /// All times that no step may pass.
    JumpTable jumps() const;

private:
    ClimateSignals m_signals;
    std::vector<std::vector<BoundaryLaw>> m_groups;
    std::vector<std::uint32_t> m_groupOfSurface;
    std::vector<CellLaw> m_cellLaws;
    std::vector<std::uint32_t> m_lawOfCell;
    std::vector<Sky> m_skies;
    std::vector<CCM::SolarRadiationModel> m_suns; ///< one a sky
};

} // namespace SOLVER
