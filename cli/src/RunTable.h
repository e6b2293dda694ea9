#pragma once

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>
#include <string>

namespace CMD {

/// The summary of a run from its directory. Throws ("[CMD::readRun]") when there is none that can be read.
nlohmann::ordered_json readRun(const std::string & runDirectory);

/// What the layers went through, how well the balances close, what it took.
void printRun(const nlohmann::ordered_json & summary, std::ostream & out);

} // namespace CMD
