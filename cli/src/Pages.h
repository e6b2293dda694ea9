#pragma once

#include <CLI/App.hpp>

#include <string>

/// Pages that are made of the definitions of the commands.
namespace CMD {

/// The man page of the whole program as troff source.
std::string manPage(const CLI::App & program, const std::string & version);

/// A bash script that completes commands, options and file names.
std::string bashCompletion(const CLI::App & program);

} // namespace CMD
