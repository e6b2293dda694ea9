#include "src/Families.h"
#include "src/Program.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

/// The families of commands, in the order of the help. A new one is a source file, a line in Families.h and an entry here.
constexpr CMD::AddCommands FAMILIES[] = {
    CMD::addClimate, CMD::addMaterial, CMD::addProject, CMD::addRun, CMD::addVary, CMD::addResults, CMD::addUnits,
};

/// Tables are made before main begins; memory that runs out there must end with a message, too.
[[gnu::constructor(101)]] void endCleanly() {
    std::set_terminate([] {
        std::fputs("hygrion-cli: cannot go on, probably out of memory.\n", stderr);
        std::_Exit(1);
    });
}

} // namespace

int main(int argc, char ** argv) {
    try {
        return CMD::run({argv + std::min(argc, 1), argv + argc}, FAMILIES, std::cout, std::cerr);
    } catch (
        const std::exception & ex) { // commands report their own failures; this is memory that ran out before or after
        std::fputs("hygrion-cli: ", stderr);
        std::fputs(ex.what(), stderr);
        std::fputs("\n", stderr);
    }
    return 1;
}
