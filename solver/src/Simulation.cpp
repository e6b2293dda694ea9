#include <SOLVER/Simulation.h>

#include "StepFailure.h"

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numeric>
#include <sstream>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr const char * WHERE = "[Simulation::Simulation]";
/// Layers are looked at with every output, and at least this often [s].
constexpr double LONGEST_BLIND_TIME = 86400;
constexpr std::size_t MAX_LIMITS = 5;
/// Steps from one checkpoint to the next: starting anew costs about ten. Where it starts anew anyway, after a jump, fewer.
constexpr long LONGEST_WAY = 500, SHORTEST_WAY = 100;

/// What is kept of a layer; the order in restart files.
constexpr double NO_HUMIDITY = std::numeric_limits<double>::quiet_NaN(); ///< of layers that hold no water
enum layerValue_t { MIN_T, MAX_T, MIN_PHI, MAX_PHI, START_MASS, MAX_MASS, NUM_LAYER_VALUES };

std::int64_t nanoseconds() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

struct Counter {
    long IntegratorStatistics::*member;
};
constexpr Counter COUNTERS[] = {{&IntegratorStatistics::steps},
                                {&IntegratorStatistics::rightHandSides},
                                {&IntegratorStatistics::jacobians},
                                {&IntegratorStatistics::nonlinearIterations},
                                {&IntegratorStatistics::errorTestFailures},
                                {&IntegratorStatistics::nonlinearFailures},
                                {&IntegratorStatistics::linearIterations},
                                {&IntegratorStatistics::linearFailures}};

IntegratorStatistics sum(IntegratorStatistics a, const IntegratorStatistics & b) {
    for (const Counter & counter : COUNTERS)
        a.*counter.member += b.*counter.member;
    return a;
}

} // namespace

double RunSummary::Balance::relativeError() const {
    return exchanged > 0 ? std::fabs(error()) / exchanged : 0;
}

Simulation::Simulation(Construction construction, const HYGRION::Project & project, const std::string & directory,
                       const RestartFile * restart)
    : m_construction(std::move(construction)), m_wallStart(nanoseconds()) {
    m_model = std::make_unique<Model>(std::move(m_construction.input));
    m_geometryHash = DATAIO::GeoFile::hash(m_construction.geometry.content(true));
    for (const MaterialTable & material : m_model->input().materials)
        m_materialPrints.push_back(material.fingerprint());
    m_state.resize(m_model->size());
    m_derivative.resize(m_model->size());
    m_limiting.assign(m_model->cellCount(), 0);
    m_outputs = std::make_unique<OutputWriter>(project, m_construction, *m_model, directory);
    for (const std::string & warning : m_outputs->warnings())
        KOR::message(warning, KOR::MSG_WARNING, WHERE);
    makeLayers();
    try {
        if (restart != nullptr)
            resume(*restart);
        else
            start();
    } catch (const Exception & ex) {
        throw Exception(ex, restart != nullptr ? "The interrupted run cannot be continued." : "The run cannot start.",
                        WHERE);
    }
    m_nextJump = time();
    m_checkpoint = restartState();
}

void Simulation::start() {
    const std::vector<double> state = m_model->initialState();
    m_integrator = makeIntegrator(*m_model, m_construction.integrator, m_construction.startTime, state);
    m_exchangedBefore.assign(m_model->exchangeRates().size(), {});
    m_startContent = content(state);
    const Snapshot first = evaluate(m_construction.startTime, state);
    for (Layer & layer : m_layers) {
        const auto & cells = m_model->cellStates();
        const double T = cells[layer.cells.front()].temperature;
        layer.statistics = {T, T, NO_HUMIDITY, NO_HUMIDITY, 0, 0};
        for (const std::uint32_t c : layer.cells)
            layer.statistics[START_MASS] += cells[c].moisture * m_model->input().cells[c].volume;
    }
    observeLayers();
    m_lastObserved = m_construction.startTime;
    m_outputs->open({});
    if (m_outputs->nextTime() <= m_construction.startTime) {
        m_outputs->write(m_outputs->nextTime(), first);
        ++m_outputCount;
    }
    m_outputs->flush();
}

void Simulation::resume(const RestartFile & restart) {
    if (restart.geometryHash != m_geometryHash || restart.state.size() != m_model->size() ||
        restart.module != static_cast<int>(m_model->input().module))
        throw Exception("Grid, materials or balances of the project are no longer those of the interrupted run.",
                        WHERE);
    for (std::size_t m = 0; m < m_materialPrints.size(); ++m)
        if (restart.materials.size() != m_materialPrints.size() || restart.materials[m] != m_materialPrints[m])
            throw Exception(
                text("Material '%1' is no longer what it was in the interrupted run; results before and after "
                     "would not belong together. Calculate from the beginning.",
                     m_model->input().materials[m].name()),
                WHERE);
    if (restart.startTime != m_construction.startTime)
        throw Exception("The simulation starts at another time than the interrupted run.", WHERE);
    if (restart.layerStatistics.size() != m_layers.size() * NUM_LAYER_VALUES ||
        restart.limiting.size() != m_limiting.size() || restart.startContent.size() != m_startContent.size() ||
        restart.exchanged.size() != m_model->exchangeRates().size())
        throw Exception("The surfaces or layers of the project are no longer those of the interrupted run.", WHERE);
    m_integrator = makeIntegrator(*m_model, m_construction.integrator, restart.time, restart.state);
    m_exchangedBefore = restart.exchanged;
    std::copy(restart.startContent.begin(), restart.startContent.end(), m_startContent.begin());
    for (std::size_t l = 0; l < m_layers.size(); ++l) {
        const auto first = restart.layerStatistics.begin() + static_cast<std::ptrdiff_t>(l * NUM_LAYER_VALUES);
        m_layers[l].statistics.assign(first, first + NUM_LAYER_VALUES);
    }
    m_limiting = restart.limiting;
    m_statisticsBefore = restart.statistics;
    m_wallTimeBefore = restart.wallTime;
    m_lastObserved = restart.lastObserved;
    std::istringstream in(restart.outputs, std::ios::binary);
    m_outputs->load(in);
    m_outputs->open(restart.time);
}

/// Makes the integrator anew, as a run does that goes on from here.
void Simulation::startAnew() {
    m_isCheckpointDue = false;
    m_stepsSinceCheckpoint = 0;
    m_checkpoint = restartState();
    m_exchangedBefore = m_checkpoint.exchanged;
    m_statisticsBefore = m_checkpoint.statistics;
    m_integrator = makeIntegrator(*m_model, m_construction.integrator, m_checkpoint.time, m_checkpoint.state);
}

// *** steps ***

bool Simulation::step(double limit) {
    const double from = m_integrator->time();
    limit = std::min(limit, m_construction.endTime);
    if (from >= limit)
        return false;
    if (m_isCheckpointDue)
        startAnew();
    if (m_construction.nextJump && m_nextJump <= from)
        m_nextJump = m_construction.nextJump(from);
    const bool hasJump = m_construction.nextJump && m_nextJump <= limit;
    double to;
    try {
        to = m_integrator->step(hasJump ? m_nextJump : limit);
    } catch (const Exception & ex) {
        const StepFailure failure(*this, *m_integrator);
        throw Exception(ex, failure.text(), "[Simulation::step]");
    }
    if (const std::size_t unknown = m_integrator->limitingUnknown(); unknown < m_model->size())
        ++m_limiting[unknown / m_model->unknowns()];
    doOutputs(from, to);
    const bool isJump = hasJump && to >= m_nextJump && to < m_construction.endTime &&
                        !(m_construction.isContinuousAt && m_construction.isContinuousAt(m_nextJump));
    m_isCheckpointDue = ++m_stepsSinceCheckpoint >= (isJump ? SHORTEST_WAY : LONGEST_WAY);
    if (isJump && !m_isCheckpointDue)
        m_integrator->restart();
    return !isAtEnd();
}

Simulation::end_t Simulation::run(double until, const std::function<bool()> & cancel) {
    until = std::min(until, m_construction.endTime);
    while (time() < until) {
        if (cancel && cancel())
            return end_t::CANCELLED;
        step(until);
    }
    m_outputs->flush();
    return end_t::REACHED;
}

Snapshot Simulation::evaluate(double time, std::span<const double> state) {
    if (!m_model->rightHandSide(time, state, m_derivative))
        throw Exception(text("The balances give values that are not finite at %1 s.", time), "[Simulation::evaluate]");
    return m_outputs->snapshot(time, state);
}

Snapshot Simulation::evaluateAt(double time) {
    if (time == m_integrator->time()) {
        const std::span<const double> now = m_integrator->state();
        std::copy(now.begin(), now.end(), m_state.begin());
    } else {
        m_integrator->interpolate(time, m_state);
    }
    return evaluate(time, m_state);
}

void Simulation::integrate(double from, double to) {
    if (!m_outputs->needsQuadrature() || !(to > from))
        return;
    // Two nodes of Gauss and Legendre: of fourth order, and never at an end, where loads may jump.
    const double middle = (from + to) / 2;
    const double half = (to - from) / 2;
    for (const double node : {-1 / std::sqrt(3.0), 1 / std::sqrt(3.0)})
        m_outputs->accumulate(evaluateAt(middle + node * half), half);
}

void Simulation::doOutputs(double from, double to) {
    bool isObserved = false;
    for (double due = m_outputs->nextTime(); due <= to; due = m_outputs->nextTime()) {
        integrate(from, due);
        from = std::max(from, due);
        const Snapshot snapshot = evaluateAt(std::max(due, from));
        if (m_outputs->needsExtremes())
            m_outputs->observe(snapshot);
        m_outputs->write(due, snapshot);
        ++m_outputCount;
        observeLayers();
        m_lastObserved = due;
        isObserved = due == to;
    }
    integrate(from, to);
    const bool isBlind = to - m_lastObserved >= LONGEST_BLIND_TIME || to >= m_construction.endTime;
    if ((m_outputs->needsExtremes() || isBlind) && !isObserved) {
        const Snapshot snapshot = evaluateAt(to);
        m_outputs->observe(snapshot);
        observeLayers();
        m_lastObserved = to;
    }
}

// *** what the run knows about itself ***

void Simulation::makeLayers() {
    // In a wall each run of one material is a layer; in a detail all cells of a material are one.
    const DATAIO::GeoFile & geometry = m_construction.geometry;
    int axes = 0;
    for (int d = 0; d < 3; ++d)
        axes += geometry.widths(d).size() > 1 ? 1 : 0;
    std::map<std::uint32_t, std::size_t> ofMaterial;
    std::uint32_t last = 0;
    for (std::uint32_t c = 0; c < m_model->cellCount(); ++c) {
        const std::uint32_t material = m_construction.cellPlaces.at(c).material;
        const auto known = ofMaterial.find(material);
        const bool isNew = axes > 1 ? known == ofMaterial.end() : c == 0 || material != last;
        if (isNew) {
            ofMaterial[material] = m_layers.size();
            const auto & materials = geometry.m_materials;
            m_layers.push_back(
                {material < materials.size() ? materials[material].name : std::to_string(material), {}, {}});
        }
        m_layers[axes > 1 ? ofMaterial[material] : m_layers.size() - 1].cells.push_back(c);
        last = material;
    }
    for (Layer & layer : m_layers)
        layer.statistics.assign(NUM_LAYER_VALUES, 0.0);
}

void Simulation::observeLayers() {
    const std::span<const Model::CellState> cells = m_model->cellStates();
    for (Layer & layer : m_layers) {
        double mass = 0;
        std::vector<double> & s = layer.statistics;
        for (const std::uint32_t c : layer.cells) {
            s[MIN_T] = std::min(s[MIN_T], cells[c].temperature);
            s[MAX_T] = std::max(s[MAX_T], cells[c].temperature);
            if (const auto & input = m_model->input(); !input.materials[input.cells[c].material].isTight()) {
                s[MIN_PHI] = std::fmin(s[MIN_PHI], cells[c].humidity);
                s[MAX_PHI] = std::fmax(s[MAX_PHI], cells[c].humidity);
            }
            mass += cells[c].moisture * m_model->input().cells[c].volume;
        }
        s[MAX_MASS] = std::max(s[MAX_MASS], mass);
    }
}

std::array<double, 2> Simulation::content(std::span<const double> state) const {
    std::array<double, 2> sums{};
    const std::size_t n = m_model->unknowns();
    const std::size_t first = m_model->input().module == module_t::moisture ? 1 : 0;
    for (std::size_t c = 0; c < m_model->cellCount(); ++c)
        for (std::size_t u = 0; u < n; ++u)
            sums[first + u] += state[n * c + u] * m_model->input().cells[c].volume;
    return sums;
}

std::string Simulation::placeOf(std::size_t cell) const {
    const Construction::CellPlace & place = m_construction.cellPlaces.at(cell);
    const DATAIO::GeoFile & geometry = m_construction.geometry;
    const std::string material =
        place.material < geometry.m_materials.size() ? geometry.m_materials[place.material].name : "?";
    constexpr const char * AXES[] = {"x", "y", "z"};
    std::string number;
    std::string coordinates;
    for (int d = 0; d < 3; ++d)
        if (const auto & centres = geometry.centres(d); d == 0 || centres.size() > 1) {
            const std::size_t i = place.index[static_cast<std::size_t>(d)];
            number += text(d == 0 ? "%1" : ", %1", i + 1); // the first is 1, as in the editor
            coordinates +=
                text(d == 0 ? "%1 = %2 mm" : ", %1 = %2 mm", AXES[d], KOR::toString(1000 * centres.at(i), 6));
        }
    return text("cell %1 (%2, at %3)", number, material, coordinates);
}

std::string Simulation::lastLimit() const {
    const std::size_t unknown = m_integrator->limitingUnknown();
    return unknown < m_model->size() ? placeOf(unknown / m_model->unknowns()) : std::string();
}

IntegratorStatistics Simulation::statistics() const {
    return sum(m_integrator->statistics(), m_statisticsBefore);
}

Simulation::Progress Simulation::progress() const {
    const IntegratorStatistics now = statistics();
    return {m_construction.startTime, time(), m_construction.endTime, now.steps, now.lastStep};
}

RestartFile Simulation::restartState() {
    m_outputs->flush();
    RestartFile file;
    file.geometryHash = m_geometryHash;
    file.materials = m_materialPrints;
    file.module = static_cast<int>(m_model->input().module);
    file.startTime = m_construction.startTime;
    file.time = time();
    file.state.assign(state().begin(), state().end());
    file.exchanged = m_integrator->exchanged();
    file.exchanged.resize(m_exchangedBefore.size()); // before the first step it may be empty
    for (std::size_t i = 0; i < file.exchanged.size(); ++i) {
        file.exchanged[i].heat += m_exchangedBefore.at(i).heat;
        file.exchanged[i].water += m_exchangedBefore[i].water;
    }
    file.startContent.assign(m_startContent.begin(), m_startContent.end());
    for (const Layer & layer : m_layers)
        file.layerStatistics.insert(file.layerStatistics.end(), layer.statistics.begin(), layer.statistics.end());
    file.limiting = m_limiting;
    file.statistics = statistics();
    file.wallTime = m_wallTimeBefore + 1e-9 * static_cast<double>(nanoseconds() - m_wallStart);
    file.lastObserved = m_lastObserved;
    std::ostringstream out(std::ios::binary);
    m_outputs->save(out);
    file.outputs = out.str();
    return file;
}

RunSummary Simulation::summary() {
    evaluateAt(time());
    RunSummary all;
    all.cells = m_model->cellCount();
    all.startTime = m_construction.startTime;
    all.time = time();
    all.endTime = m_construction.endTime;
    all.wallTime = m_wallTimeBefore + 1e-9 * static_cast<double>(nanoseconds() - m_wallStart);
    all.isFinished = isAtEnd();
    all.statistics = statistics();
    for (const Layer & layer : m_layers) {
        const std::vector<double> & s = layer.statistics;
        RunSummary::Layer one{layer.material, 0, s[MIN_T],   s[MAX_T], s[MIN_PHI], s[MAX_PHI],
                              s[START_MASS],  0, s[MAX_MASS]};
        for (const std::uint32_t c : layer.cells) {
            one.volume += m_model->input().cells[c].volume;
            one.endMoisture += m_model->cellStates()[c].moisture * m_model->input().cells[c].volume;
        }
        all.layers.push_back(std::move(one));
    }
    const std::array<double, 2> now = content(state());
    const std::vector<Exchange> exchanged = m_integrator->exchanged();
    const auto balance = [&](RunSummary::Balance & result, std::size_t which, double Exchange::*member) {
        result.isSolved = m_model->input().module == module_t::heatAndMoisture ||
                          (m_model->input().module == module_t::heat) == (which == 0);
        if (!result.isSolved)
            return;
        result.gained = now[which] - m_startContent[which];
        for (std::size_t i = 0; i < exchanged.size(); ++i) {
            const double amount = exchanged[i].*member + m_exchangedBefore.at(i).*member;
            result.cameIn += amount;
            result.exchanged += std::fabs(amount);
        }
    };
    balance(all.energy, 0, &Exchange::heat);
    balance(all.moisture, 1, &Exchange::water);

    std::vector<std::size_t> order(m_limiting.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t shown = std::min(order.size(), MAX_LIMITS);
    std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(shown), order.end(),
                      [this](std::size_t a, std::size_t b) { return m_limiting[a] > m_limiting[b]; });
    for (std::size_t i = 0; i < shown && m_limiting[order[i]] > 0; ++i)
        all.limits.push_back({placeOf(order[i]), m_limiting[order[i]]});
    return all;
}

} // namespace SOLVER
