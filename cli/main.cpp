#include "src/Families.h"
#include "src/Program.h"

#include <algorithm>
#include <iostream>

namespace {

/// The families of commands, in the order of the help. A new one is a source file, a line in Families.h and a line here.
constexpr CMD::AddCommands FAMILIES[] = {
    CMD::addClimate,
    CMD::addMaterial,
    CMD::addProject,
    CMD::addUnits,
};

} // namespace

int main(int argc, char ** argv) {
    return CMD::run({argv + std::min(argc, 1), argv + argc}, FAMILIES, std::cout, std::cerr);
}
