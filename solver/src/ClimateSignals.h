#pragma once

#include <CCM/ClimateDataLoader.h>
#include <HYGRION/ClimateCond.h>

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace HYGRION {
class Project;
}

namespace SOLVER {

class JumpTable;

/// The climate conditions that a calculation uses, each ready to be evaluated at any time of the simulation.
/// Climate files are read once each.
class ClimateSignals {
public:
    using Index = std::uint32_t;
    using Quantity = HYGRION::ClimateCond::condition_t;

    /// \param project outlives the calls of add() \param startTime, endTime [s] that data have to cover
    ClimateSignals(const HYGRION::Project & project, double startTime, double endTime);

    /// The project's climate condition of this name, which supplies a quantity. Throws ("[ClimateSignals::add]") for
    /// conditions that are missing, of another quantity, of kind External, whose file cannot be read or does not cover
    /// the simulation.
    Index add(const std::string & name, Quantity quantity);
    /// Throws ("[ClimateSignals::add]") unless a condition can supply a quantity, whatever lies in its file.
    static void checkUse(const HYGRION::ClimateCond & condition, Quantity quantity);
    /// A condition that an interface generated; \p owner is the interface's name.
    Index addGenerated(const HYGRION::ClimateCond & condition, const std::string & owner);

    /// The climate data of the project's location; without a file they hold no values.
    /// Throws ("[ClimateSignals::location]") above the reader's cause.
    const CCM::ClimateDataLoader & location();
    bool hasLocation() const;

    std::size_t size() const { return m_signals.size(); }
    Quantity quantity(Index signal) const { return m_signals[signal].condition.m_type; }
    const std::string & name(Index signal) const { return m_signals[signal].condition.m_name; }
    /// Whether a signal of direct sun holds the radiation on a plane normal to it, as climate files do.
    bool isNormalRadiation(Index signal) const { return m_signals[signal].isNormalRadiation; }
    /// Whether any signal is tabulated, so that long steps could miss something.
    bool hasData() const;

    /// The values of all signals [base units] at a time [s]. Takes no memory.
    void evaluate(double time, std::span<double> values) const;
    double value(Index signal, double time) const;
    /// The smallest value [base unit] during the simulation; of formulas out of a thousand samples.
    double smallest(Index signal) const;

    /// Forgets the project and the files: nothing can be added any more.
    void finish();

    /// Adds the times at which signals jump; of rain, sources and other events also where they begin, turn and end.
    void addJumps(JumpTable & jumps) const;
    /// Adds the times at which \p temperature crosses \p limit [K] while it rains: rain turns into snow or back.
    void addSnowJumps(JumpTable & jumps, Index rain, Index temperature, double limit) const;

private:
    struct Signal {
        HYGRION::ClimateCond condition; ///< prepared
        double offset = 0;              ///< from the simulation's time to that of the data [s]
        bool isConstant = false;
        bool isCyclic = false;
        bool isStepwise = false;
        bool isNormalRadiation = false;
        std::vector<double> times, values; ///< as tabulated [s], [base unit]; empty for formulas
    };

    Index append(HYGRION::ClimateCond condition, const std::string & key);
    void loadData(Signal & signal);
    CCM::CCDFile fromContainer(Signal & signal, const KOR::Path & path);
    const CCM::ClimateDataLoader & loader(const KOR::Path & path);
    void checkCoverage(const Signal & signal, const std::string & source) const;
    void addJump(JumpTable & jumps, const Signal & signal, double dataTime, bool isContinuous) const;

    const HYGRION::Project * m_project; ///< until finish()
    double m_startTime, m_endTime;
    int m_startYear;
    std::vector<Signal> m_signals;
    std::map<std::string, Index> m_indices;
    std::map<std::string, CCM::ClimateDataLoader> m_loaders;
    CCM::ClimateDataLoader m_noLocation;
};

} // namespace SOLVER
