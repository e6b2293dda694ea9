#pragma once

#include <SOLVER/Construction.h>
#include <SOLVER/OutputWriter.h>
#include <SOLVER/RestartFile.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace SOLVER {

/// What a run knows about itself when it ends; the numbers of summary.json.
struct RunSummary {
    /// Extremes that a layer saw at output times, at least once a day; contents at the start and now.
    struct Layer {
        std::string material;
        double volume = 0;                                          ///< [m3]
        double minTemperature = 0, maxTemperature = 0;              ///< [K]
        double minHumidity = 0, maxHumidity = 0;                    ///< [-], NaN if it holds no water
        double startMoisture = 0, endMoisture = 0, maxMoisture = 0; ///< [kg]
    };
    /// A balance: content gained against what came in.
    struct Balance {
        bool isSolved = false;
        double gained = 0;    ///< [J] or [kg]
        double cameIn = 0;    ///< net [J] or [kg]
        double exchanged = 0; ///< sum of the amounts through all surfaces and from all sources, whatever the sign
        double error() const { return gained - cameIn; }
        /// Of the exchanged amount; 0 when nothing was exchanged.
        double relativeError() const;
    };
    /// The place that limited the most steps.
    struct Limit {
        std::string place; ///< in words
        std::uint64_t steps = 0;
    };
    std::size_t cells = 0;
    double startTime = 0, time = 0, endTime = 0; ///< [s]
    double wallTime = 0;                         ///< [s]
    bool isFinished = false;
    IntegratorStatistics statistics;
    std::vector<Layer> layers;
    Balance energy, moisture;
    std::vector<Limit> limits; ///< at most five, the worst first
};

/// A construction on its way through time: integrator, outputs and restart state. It prints nothing and reads no clock
/// but the one for its own duration; programs, tests and studies all drive it step by step.
class Simulation {
public:
    struct Progress {
        double startTime = 0, time = 0, endTime = 0; ///< [s]
        long steps = 0;
        double step = 0; ///< the last one [s]
        double share() const { return endTime > startTime ? (time - startTime) / (endTime - startTime) : 1; }
    };
    enum class end_t { REACHED, CANCELLED };

    /// \param project of which the outputs and their assignments are used
    /// \param directory for results; empty: none are written
    /// \param restart to go on from, or nullptr for the beginning
    /// Throws what OutputWriter, the integrator and the restart state refuse ("[Simulation::Simulation]").
    Simulation(Construction construction, const HYGRION::Project & project, const std::string & directory,
               const RestartFile * restart = nullptr);
    Simulation(const Simulation &) = delete;
    Simulation & operator=(const Simulation &) = delete;

    /// One step of the integrator, and the outputs that fall into it. \return false at the end of the simulation
    /// Throws ("[Simulation::step]") with place, material, mechanism, time, state and what can be changed.
    bool step() { return step(m_construction.endTime); }
    /// The same, not beyond a time [s].
    bool step(double limit);
    /// Steps until a time [s] (at most the end) is reached or \p cancel, asked before each step, says true.
    end_t run(double until, const std::function<bool()> & cancel = {});

    bool isAtEnd() const { return m_integrator->time() >= m_construction.endTime; }
    double time() const { return m_integrator->time(); }
    std::span<const double> state() const { return m_integrator->state(); }
    Model & model() { return *m_model; }
    const Construction & construction() const { return m_construction; }
    const OutputWriter & outputs() const { return *m_outputs; }
    Progress progress() const;
    /// Counters of this run and the one that it continues.
    IntegratorStatistics statistics() const;
    /// Hands what was written to the system.
    void flush() { m_outputs->flush(); }
    /// Outputs written so far.
    long outputCount() const { return m_outputCount; }
    /// "cell 3, 0, 0 (Clay brick, at x = 12 mm)".
    std::string placeOf(std::size_t cell) const;
    /// The place that limited the last step, empty if that is unknown.
    std::string lastLimit() const;

    /// What a restart needs; results are handed to the system first.
    RestartFile restartState();
    /// The last state at which the integrator was made anew, as one that goes on from there makes it: a run that goes on
    /// from it gives the very results of this one.
    const RestartFile & checkpoint() const { return m_checkpoint; }
    /// The balances, layers and counters up to now.
    RunSummary summary();

private:
    struct Layer {
        std::string material;
        std::vector<std::uint32_t> cells;
        std::vector<double> statistics; ///< the members of LAYER_VALUES
    };

    void makeLayers();
    void start();
    void resume(const RestartFile & restart);
    void startAnew();
    /// The model at a time and state, as outputs see it.
    Snapshot evaluate(double time, std::span<const double> state);
    Snapshot evaluateAt(double time);
    void integrate(double from, double to);
    void doOutputs(double from, double to);
    void observeLayers();
    std::array<double, 2> content(std::span<const double> state) const;

    Construction m_construction;
    std::unique_ptr<Model> m_model;
    std::unique_ptr<OutputWriter> m_outputs;
    std::unique_ptr<Integrator> m_integrator;
    std::vector<std::uint32_t> m_materialPrints; ///< of the model's materials
    std::uint32_t m_geometryHash = 0;
    double m_nextJump = 0;
    double m_lastObserved = 0; ///< [s]
    RestartFile m_checkpoint;
    long m_stepsSinceCheckpoint = 0;
    bool m_isCheckpointDue = false;
    long m_outputCount = 0;
    std::vector<Layer> m_layers;
    std::vector<double> m_state, m_derivative; ///< for evaluate()
    std::array<double, 2> m_startContent{};
    std::vector<Exchange> m_exchangedBefore; ///< by the run that was interrupted
    std::vector<std::uint64_t> m_limiting;   ///< by cell, how often it limited a step
    IntegratorStatistics m_statisticsBefore;
    double m_wallTimeBefore = 0;
    std::int64_t m_wallStart = 0; ///< [ns] of the steady clock
};

} // namespace SOLVER
