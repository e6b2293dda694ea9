#include <SOLVER/SimulationRun.h>

#include <KOR/Exception.h>

#include <atomic>
#include <csignal>
#include <iostream>

/// HygrionSolver.exe: the solver as a console program.
namespace {

std::atomic<bool> stop = false;
static_assert(std::atomic<bool>::is_always_lock_free); // so that a handler may set it

/// The first one ends the run in order, a second one at once.
extern "C" void onSignal(int number) {
    stop = true;
    std::signal(number, SIG_DFL);
}

} // namespace

int main(int argc, char ** argv) {
    using SOLVER::exit_t;
    try {
        KOR::ArgParser parser;
        parser.setAppName("HygrionSolver.exe");
        SOLVER::SolverOptions::define(parser);
        SOLVER::SolverOptions options;
        try {
            parser.parse(argc, argv);
            if (parser.flag("version")) {
                std::cout << "HygrionSolver " HYG_VERSION "\n";
                return 0;
            }
            if (parser.handleDefaultFlags(std::cout))
                return 0;
            options = SOLVER::SolverOptions::read(parser);
        } catch (const KOR::Exception & ex) {
            std::cerr << ex.what() << "\nHelp: HygrionSolver.exe --help\n";
            return static_cast<int>(exit_t::USAGE);
        }
        std::signal(SIGINT, onSignal);
        std::signal(SIGTERM, onSignal);
        std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow further is a failure with a message
        return static_cast<int>(SOLVER::simulate(options, stop));
    } catch (const std::exception & ex) {
        std::cerr << "HygrionSolver.exe: " << ex.what() << '\n';
    }
    return static_cast<int>(exit_t::FAILED);
}
