#include <SOLVER/RunLog.h>

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>
#include <KOR/Time.h>

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace SOLVER {

using KOR::text;
using Json = nlohmann::ordered_json;
using namespace std::chrono_literals;

namespace {

constexpr const char * WHERE = "[RunLog]";
constexpr auto FILE_PERIOD = 500ms;
/// Lines of progress on a console that somebody watches, and elsewhere.
constexpr auto CONSOLE_PERIOD = 1s;
constexpr auto QUIET_PERIOD = 10s;
constexpr int LINES_PER_HEADER = 25;
constexpr const char * HEADER = "    simulated    done   steps     last step       speed     estimated end";

std::int64_t nanoseconds() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

std::string localTime(double secondsFromNow) {
    try {
        return KOR::dateRFC2822("%Y-%m-%d %H:%M:%S", std::time(nullptr) + static_cast<std::time_t>(secondsFromNow));
    } catch (const KOR::Exception &) {
        return {};
    }
}

const char * name(RunLog::status_t status) {
    constexpr const char * NAMES[] = {"finished", "interrupted", "failed"};
    return NAMES[static_cast<int>(status)];
}

Json balance(const RunSummary::Balance & b) {
    return {
        {"gained",        b.gained         },
        {"cameIn",        b.cameIn         },
        {"exchanged",     b.exchanged      },
        {"error",         b.error()        },
        {"relativeError", b.relativeError()}
    };
}

Json document(const RunSummary & s) {
    const IntegratorStatistics & i = s.statistics;
    Json all{
        {"cells",      s.cells    },
        {"start_s",    s.startTime},
        {"time_s",     s.time     },
        {"end_s",      s.endTime  },
        {"wallTime_s", s.wallTime }
    };
    all["integrator"] = {
        {"steps",               i.steps              },
        {"nonlinearIterations", i.nonlinearIterations},
        {"rightHandSides",      i.rightHandSides     },
        {"jacobians",           i.jacobians          },
        {"linearIterations",    i.linearIterations   },
        {"errorTestFailures",   i.errorTestFailures  },
        {"nonlinearFailures",   i.nonlinearFailures  },
        {"linearFailures",      i.linearFailures     },
        {"lastStep_s",          i.lastStep           }
    };
    if (s.energy.isSolved)
        all["energyBalance_J"] = balance(s.energy);
    if (s.moisture.isSolved)
        all["moistureBalance_kg"] = balance(s.moisture);
    all["limitedBy"] = Json::array();
    for (const RunSummary::Limit & limit : s.limits)
        all["limitedBy"].push_back({
            {"place", limit.place},
            {"steps", limit.steps}
        });
    all["layers"] = Json::array();
    for (const RunSummary::Layer & layer : s.layers)
        all["layers"].push_back({
            {"material",         layer.material               },
            {"volume_m3",        layer.volume                 },
            {"minTemperature_C", layer.minTemperature - T_ZERO},
            {"maxTemperature_C", layer.maxTemperature - T_ZERO},
            {"minHumidity_%",    100 * layer.minHumidity      },
            {"maxHumidity_%",    100 * layer.maxHumidity      },
            {"startMoisture_kg", layer.startMoisture          },
            {"endMoisture_kg",   layer.endMoisture            },
            {"maxMoisture_kg",   layer.maxMoisture            }
        });
    return all;
}

} // namespace

RunLog::RunLog(const RunDirectory & directory, const SolverOptions & options)
    : m_directory(directory), m_options(options) {
    KOR::MessageHandler & handler = KOR::MessageHandlerRegistry::instance().messageHandler();
    handler.setConsoleLogLevel(options.verbosityLevel);
    handler.setLogfileLogLevel(std::max(1, options.verbosityLevel));
    std::string reason;
    if (!handler.openLogFile(directory.log("screenlog.txt"), options.restart, reason))
        KOR::message(reason, KOR::MSG_WARNING, WHERE);
}

RunLog::~RunLog() {
    stop();
    KOR::MessageHandlerRegistry::instance().messageHandler().closeLogFile();
}

void RunLog::start(const Simulation & simulation) {
    const auto mode = m_options.restart ? std::ios::app : std::ios::trunc;
    m_progressFile.open(m_directory.log("progress.txt"), mode);
    if (!m_options.restart)
        m_progressFile << "simulated time [s]\twall time [s]\tdone [%]\tspeed [s/s]\tleft [s]\tsteps\n";
    if (m_options.stepStats) {
        m_stepFile.open(m_directory.log("steps.tsv"), mode);
        m_stepFile << "time [s]\tstep [s]\tsteps\tright-hand sides\tnonlinear iterations\terror test failures\t"
                      "nonlinear failures\tlinear iterations\tlimited by\n";
    }
    m_wallStart = nanoseconds();
    m_progress = simulation.progress();
    m_startShare = m_progress.share();
    m_isRunning = true;
    report(m_progress, false);
    m_watcher = std::thread([this] { watch(); });
}

void RunLog::step(const Simulation & simulation) {
    {
        const std::lock_guard lock(m_mutex);
        m_progress = simulation.progress();
    }
    if (!m_options.stepStats)
        return;
    const IntegratorStatistics s = simulation.statistics();
    m_stepFile << KOR::toString(simulation.time());
    for (const double value : {s.lastStep})
        m_stepFile << '\t' << KOR::toString(value);
    for (const long value : {s.steps, s.rightHandSides, s.nonlinearIterations, s.errorTestFailures, s.nonlinearFailures,
                             s.linearIterations})
        m_stepFile << '\t' << value;
    m_stepFile << '\t' << simulation.lastLimit() << '\n';
}

void RunLog::stop() {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_isRunning)
            return;
        m_isRunning = false;
    }
    m_wake.notify_all();
    m_watcher.join();
    report(m_progress, true);
}

void RunLog::watch() {
    const auto period = ::isatty(STDOUT_FILENO) ? std::chrono::milliseconds(CONSOLE_PERIOD) : QUIET_PERIOD;
    auto lastLine = std::chrono::steady_clock::now();
    std::unique_lock lock(m_mutex);
    while (m_isRunning) {
        m_wake.wait_for(lock, FILE_PERIOD);
        if (!m_isRunning)
            return;
        const Simulation::Progress now = m_progress;
        lock.unlock();
        const bool toConsole = std::chrono::steady_clock::now() - lastLine >= period;
        if (toConsole)
            lastLine = std::chrono::steady_clock::now();
        report(now, toConsole);
        lock.lock();
    }
}

void RunLog::report(const Simulation::Progress & progress, bool toConsole) {
    const double wall = 1e-9 * static_cast<double>(nanoseconds() - m_wallStart);
    const double done = progress.share() - m_startShare;
    const double simulated = done * (progress.endTime - progress.startTime);
    const double speed = wall > 0 ? simulated / wall : 0;
    const double left = done > 0 ? (1 - progress.share()) / done * wall : 0;
    if (m_progressFile.is_open())
        m_progressFile << KOR::toString(progress.time) << '\t' << KOR::toString(wall, 6) << '\t'
                       << KOR::toString(100 * progress.share(), 6) << '\t' << KOR::toString(speed, 6) << '\t'
                       << KOR::toString(left, 6) << '\t' << progress.steps << '\n'
                       << std::flush;
    if (!toConsole)
        return;
    if (m_lines == 0 || (!m_options.disableHeaders && m_lines % LINES_PER_HEADER == 0))
        KOR::message(HEADER, KOR::MSG_PROGRESS, WHERE);
    ++m_lines;
    std::ostringstream line;
    line << std::fixed << std::setprecision(2) << std::setw(11) << progress.time / KOR::SECONDS_PER_DAY << " d"
         << std::setprecision(1) << std::setw(7) << 100 * progress.share() << '%' << std::setw(8) << progress.steps
         << "  " << std::setw(12) << KOR::formatDuration(progress.step) << std::setw(10)
         << KOR::toString(speed / KOR::SECONDS_PER_DAY, 3) << " d/s  " << localTime(left);
    KOR::message(line.str(), KOR::MSG_PROGRESS, WHERE);
}

void RunLog::writeSummary(status_t status, const RunSummary * summary, const std::vector<std::string> & results,
                          const std::string & error) noexcept {
    try {
        Json all{
            {"project", m_options.project},
            {"status",  name(status)     }
        };
        if (!error.empty())
            all["error"] = error;
        if (summary != nullptr)
            all.update(document(*summary));
        all["results"] = results;
        KOR::writeFile(m_directory.log("summary.json"), all.dump(2, ' ', false, Json::error_handler_t::replace) + '\n');
    } catch (const std::exception & ex) {
        KOR::message(text("The summary was not written: %1", ex.what()), KOR::MSG_WARNING, WHERE);
    }
}

} // namespace SOLVER
