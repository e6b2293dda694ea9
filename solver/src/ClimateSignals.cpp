#include "ClimateSignals.h"

#include "JumpTable.h"

#include <HYGRION/Project.h>
#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Time.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

using HYGRION::ClimateCond;
using HYGRION::KeywordList;
using KOR::Exception;
using KOR::SECONDS_PER_YEAR;
using KOR::text;

namespace {

constexpr const char * WHERE = "[ClimateSignals::add]";
constexpr double HALF_AN_HOUR = 1800; ///< [s]

using Quantity = ClimateCond::condition_t;
using Kind = ClimateCond::kind_t;
using Flag = ClimateCond::flag_t;

/// What climate containers supply for a quantity of the project.
struct Supply {
    Quantity quantity;
    CCM::quantity_t supplied;
};
constexpr Supply SUPPLIES[] = {
    {Quantity::Temperature,            CCM::Q_TEMPERATURE        },
    {Quantity::RelativeHumidity,       CCM::Q_RELATIVE_HUMIDITY  },
    {Quantity::SWRadiationDirect,      CCM::Q_DIRECT_RADIATION   },
    {Quantity::SWRadiationDiffuse,     CCM::Q_DIFFUSE_RADIATION  },
    {Quantity::WindDirection,          CCM::Q_WIND_DIRECTION     },
    {Quantity::WindVelocity,           CCM::Q_WIND_VELOCITY      },
    {Quantity::LWRadiationSkyEmission, CCM::Q_LONG_WAVE_RADIATION},
    {Quantity::GasPressure,            CCM::Q_AIR_PRESSURE       },
    {Quantity::RainFluxHorizontal,     CCM::Q_RAIN               },
};

/// Directions that follow one another by the shorter way around, so that the mean of 350 and 10 Deg is north.
void unwrapDirections(std::vector<double> & degrees) {
    for (std::size_t i = 1; i < degrees.size(); ++i)
        degrees[i] -= 360 * std::round((degrees[i] - degrees[i - 1]) / 360);
}

/// Quantities that may be nothing for a long time and then come for an hour.
constexpr Quantity EVENTS[] = {
    Quantity::RainFluxHorizontal, Quantity::RainFluxNormal, Quantity::WaterFlux, Quantity::WaterSource,
    Quantity::MassFlowRate,       Quantity::HeatFlux,       Quantity::Power,     Quantity::EnergySource,
    Quantity::FluidChangeRate,    Quantity::FluidFlowRate,
};
bool isEvent(Quantity quantity) {
    return std::find(std::begin(EVENTS), std::end(EVENTS), quantity) != std::end(EVENTS);
}

std::string days(double seconds) {
    return KOR::toString(seconds / KOR::SECONDS_PER_DAY, 6);
}

} // namespace

ClimateSignals::ClimateSignals(const HYGRION::Project & project, double startTime, double endTime)
    : m_project(&project), m_startTime(startTime), m_endTime(endTime),
      m_startYear(project.m_init.intParameter(HYGRION::Init::intpara_t::StartYear)) {}

ClimateSignals::Index ClimateSignals::add(const std::string & name, Quantity quantity) {
    const auto & known = m_project->m_conditions.m_climateConditions;
    const auto found = std::find_if(known.begin(), known.end(),
                                    [&](const ClimateCond & condition) { return condition.m_name == name; });
    if (found == known.end())
        throw Exception(text("Climate condition '%1' is not defined.", name), WHERE);
    checkUse(*found, quantity);
    found->checkParameters();
    return append(*found, name);
}

void ClimateSignals::checkUse(const ClimateCond & condition, Quantity quantity) {
    if (condition.m_type != quantity)
        throw Exception(text("Climate condition '%1' is of quantity '%2', but '%3' is asked for.", condition.m_name,
                             KeywordList::Keyword(condition.m_type), KeywordList::Keyword(quantity)),
                        WHERE);
    if (condition.m_kind == Kind::External)
        throw Exception(text("Climate condition '%1': kind 'External' needs an external model, which the solver cannot "
                             "run with.",
                             condition.m_name),
                        WHERE);
}

ClimateSignals::Index ClimateSignals::addGenerated(const ClimateCond & condition, const std::string & owner) {
    return append(condition, owner + '\n' + condition.m_name);
}

ClimateSignals::Index ClimateSignals::append(ClimateCond condition, const std::string & key) {
    if (const auto known = m_indices.find(key); known != m_indices.end())
        return known->second;
    Signal signal;
    signal.condition = std::move(condition);
    try {
        if (!signal.condition.m_kind)
            throw Exception(text("Missing kind type in climate condition '%1'!", signal.condition.m_name), WHERE);
        checkUse(signal.condition, signal.condition.m_type);
        if (signal.condition.m_kind == Kind::TabulatedData || signal.condition.m_kind == Kind::CCM)
            loadData(signal);
        else
            signal.isConstant = signal.condition.m_kind == Kind::Constant;
        signal.condition.prepareCalculation();
    } catch (const Exception & ex) {
        throw Exception(ex, text("Climate condition '%1' cannot be used.", signal.condition.m_name), WHERE);
    }
    m_signals.push_back(std::move(signal));
    const auto index = static_cast<Index>(m_signals.size() - 1);
    m_indices.emplace(key, index);
    return index;
}

const CCM::ClimateDataLoader & ClimateSignals::loader(const KOR::Path & path) {
    const std::string file = m_project->resolved(path).systemPath();
    const auto known = m_loaders.find(file);
    if (known != m_loaders.end())
        return known->second;
    CCM::ClimateDataLoader data;
    try {
        data.readClimateData(file);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Climate data file '%1' cannot be read.", file), WHERE);
    }
    return m_loaders.emplace(file, std::move(data)).first->second;
}

bool ClimateSignals::hasLocation() const {
    return !m_project->m_init.m_climateDataFilePath.empty();
}

const CCM::ClimateDataLoader & ClimateSignals::location() {
    return hasLocation() ? loader(m_project->m_init.m_climateDataFilePath) : m_noLocation;
}

/// The quantity out of a climate container; decides how it continues beyond its data.
CCM::CCDFile ClimateSignals::fromContainer(Signal & signal, const KOR::Path & path) {
    ClimateCond & condition = signal.condition;
    const auto supply = std::find_if(std::begin(SUPPLIES), std::end(SUPPLIES),
                                     [&](const Supply & row) { return row.quantity == condition.m_type; });
    if (supply == std::end(SUPPLIES))
        throw Exception(text("Climate data files hold no quantity '%1'.", KeywordList::Keyword(condition.m_type)),
                        WHERE);
    const CCM::ClimateDataLoader & data = loader(path);
    CCM::CCDFile file = data.quantityAsCCD(supply->supplied);
    // A year without rain or wind may be meant, one without humidity, sky or pressure is not.
    const bool isAbsurd = (data.m_valueStatus[supply->supplied] & CCM::ClimateDataLoader::ST_NOT_PRESENT) != 0 &&
                          (supply->supplied == CCM::Q_RELATIVE_HUMIDITY ||
                           supply->supplied == CCM::Q_LONG_WAVE_RADIATION || supply->supplied == CCM::Q_AIR_PRESSURE);
    if (file.values.empty() || isAbsurd)
        throw Exception(text("Climate data file '%1' holds no values of quantity '%2'.", path.str(), file.quantity),
                        WHERE);
    file.quantity = KeywordList::Keyword(condition.m_type);
    signal.isNormalRadiation = condition.m_type == Quantity::SWRadiationDirect;
    if (!condition.m_flag.contains(Flag::UseInterpolation))
        condition.m_flag.set(Flag::UseInterpolation, true);
    // A mean over the hour stands at its middle; as a step it holds from the hour's begin.
    if (!condition.m_flag.isEnabled(Flag::UseInterpolation) && data.isAnnual() &&
        CCM::CLIMATE_QUANTITIES[supply->supplied].middleOfHour)
        for (double & time : file.timePoints)
            time -= HALF_AN_HOUR;
    bool canRepeat = true;
    try {
        CCM::ClimateDataLoader::checkForValidCyclicData(file.timePoints);
    } catch (const Exception &) {
        canRepeat = false;
    }
    if (data.isAnnual() || !condition.m_flag.contains(Flag::Cyclic))
        condition.m_flag.set(Flag::Cyclic, data.isAnnual() || canRepeat);
    if (!condition.m_flag.isEnabled(Flag::Cyclic) && data.m_startYear != CCM::ClimateDataLoader::NO_YEAR)
        signal.offset = (m_startYear - data.m_startYear) * SECONDS_PER_YEAR;
    return file;
}

void ClimateSignals::loadData(Signal & signal) {
    ClimateCond & condition = signal.condition;
    const KOR::Path path = condition.m_filename.empty() && condition.m_kind == Kind::CCM
                               ? m_project->m_init.m_climateDataFilePath
                               : condition.m_filename;
    if (!condition.data().empty()) {
        // Conditions that interfaces generate from tables bring their data with them.
        if (!condition.m_flag.isEnabled(Flag::Cyclic))
            signal.offset = (m_startYear - location().m_startYear) * SECONDS_PER_YEAR;
    } else if (path.empty()) {
        throw Exception(condition.m_kind == Kind::CCM ? "The project names no climate data file of its location."
                                                      : "It names no climate data file.",
                        WHERE);
    } else {
        CCM::CCDFile file = KOR::lowered(path.extension()) == "ccd"
                                ? CCM::ClimateDataLoader::readCCDFile(m_project->resolved(path).systemPath())
                                : fromContainer(signal, path);
        if (condition.m_type == Quantity::WindDirection && file.unit == "Deg")
            unwrapDirections(file.values);
        condition.setData(file, m_startYear);
    }
    signal.isCyclic = condition.m_flag.isEnabled(Flag::Cyclic);
    signal.isStepwise = !condition.m_flag.isEnabled(Flag::UseInterpolation);
    signal.times = condition.data().x();
    signal.values = condition.data().y();
    checkCoverage(signal, path.empty() ? "generated" : path.str());
}

void ClimateSignals::checkCoverage(const Signal & signal, const std::string & source) const {
    if (signal.isCyclic)
        return;
    const double first = signal.times.front() - signal.offset;
    const double last = signal.times.back() - signal.offset;
    const bool endsEarly = last < m_endTime && !signal.condition.m_flag.isEnabled(Flag::ExtendData);
    if (first > m_startTime || endsEarly)
        throw Exception(text("Climate data '%1' hold from %2 d to %3 d, but the simulation goes from %4 d to %5 d.",
                             source, days(first), days(last), days(m_startTime), days(m_endTime)),
                        WHERE);
}

void ClimateSignals::finish() {
    m_project = nullptr;
    m_loaders.clear();
    m_indices.clear();
}

bool ClimateSignals::hasData() const {
    return std::any_of(m_signals.begin(), m_signals.end(), [](const Signal & signal) { return !signal.times.empty(); });
}

double ClimateSignals::value(Index signal, double time) const {
    return m_signals[signal].condition.calcCurrentValue(time + m_signals[signal].offset);
}

double ClimateSignals::smallest(Index index) const {
    const Signal & signal = m_signals[index];
    double result = value(index, m_startTime);
    for (const double time : signal.times)
        if (signal.isCyclic || (time - signal.offset >= m_startTime && time - signal.offset <= m_endTime))
            result = std::min(result, value(index, time - signal.offset));
    constexpr int SAMPLES = 1000;
    for (int i = 1; i <= SAMPLES && signal.times.empty() && !signal.isConstant; ++i)
        result = std::min(result, value(index, m_startTime + (m_endTime - m_startTime) * i / SAMPLES));
    return result;
}

void ClimateSignals::evaluate(double time, std::span<double> values) const {
    for (std::size_t i = 0; i < m_signals.size(); ++i)
        values[i] = m_signals[i].condition.calcCurrentValue(time + m_signals[i].offset);
}

void ClimateSignals::addJump(JumpTable & jumps, const Signal & signal, double dataTime, bool isContinuous) const {
    if (signal.isCyclic)
        jumps.addYearly(dataTime, isContinuous);
    else
        jumps.add(dataTime - signal.offset, isContinuous);
}

void ClimateSignals::addJumps(JumpTable & jumps) const {
    for (const Signal & signal : m_signals) {
        const std::size_t count = signal.times.size();
        const auto valueAt = [&](std::size_t i) { return signal.values[(i + count) % count]; };
        for (std::size_t i = 0; i < count; ++i) {
            if (signal.isStepwise && valueAt(i) != valueAt(i + count - 1))
                addJump(jumps, signal, signal.times[i], false);
            else if (isEvent(signal.condition.m_type) &&
                     (valueAt(i) != 0 || valueAt(i + count - 1) != 0 || valueAt(i + 1) != 0))
                addJump(jumps, signal, signal.times[i], true);
        }
    }
}

void ClimateSignals::addSnowJumps(JumpTable & jumps, Index rain, Index temperature, double limit) const {
    const Signal & T = m_signals[temperature];
    if (T.isStepwise)
        return; // its steps are jumps already
    for (std::size_t i = 0; i + 1 < T.times.size(); ++i) {
        const double before = value(temperature, T.times[i] - T.offset) - limit;
        const double after = value(temperature, T.times[i + 1] - T.offset) - limit;
        if ((before < 0) == (after < 0))
            continue;
        const double time = T.times[i] + (T.times[i + 1] - T.times[i]) * before / (before - after);
        const double simulationTime = time - T.offset;
        if (T.isCyclic || (simulationTime >= m_startTime && simulationTime <= m_endTime)) {
            // Rain that is not cyclic may not hold for every year; then the year of the start tells.
            const double at = std::clamp(simulationTime, m_startTime, std::max(m_startTime, m_endTime));
            if (m_signals[rain].isCyclic ? value(rain, simulationTime) > 0 : value(rain, at) > 0 || T.isCyclic)
                addJump(jumps, T, time, false);
        }
    }
}

} // namespace SOLVER
