#pragma once

#include "Output.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace CMD {

/// What a command does, by the command.
using Actions = std::unordered_map<const CLI::App *, std::function<void(Output &)>>;

/// What stands in the help, the man page and the completion.
struct Description {
    const char * name;
    const char * text; ///< a sentence
    /// Command lines without the program's name, each with what it does or gives behind a "#".
    std::initializer_list<std::string_view> examples = {};
};

/// A place for commands: the program itself or a family of commands ("units").
class Commands {
public:
    Commands(CLI::App & app, Actions & actions) : m_app(app), m_actions(actions) {}

    /// A named place for related commands.
    Commands family(const Description & description);

    /// A command: \p define ties the members of its arguments to the command line, \p run does the work.
    /// \p run throws, or calls Output::fail, when it cannot do what was asked.
    template <typename Arguments>
    void command(const Description & description, void (*define)(CLI::App &, Arguments &),
                 void (*run)(const Arguments &, Output &)) {
        CLI::App & app = add(description);
        const auto arguments = std::make_shared<Arguments>();
        define(app, *arguments);
        app.add_flag("--json")->description("Write the result as JSON.");
        m_actions[&app] = [arguments, run](Output & output) { run(*arguments, output); };
    }

private:
    CLI::App & add(const Description & description);

    CLI::App & m_app;
    Actions & m_actions;
};

/// An option ("--albedo") or a positional argument ("VALUE") that takes a number, written as everywhere in our files:
/// with a point, independent of the locale. Anything else is wrong usage.
CLI::Option * addNumber(CLI::App & app, const std::string & name, double & value, const std::string & description);

/// The same for an option that may be given more than once.
CLI::Option * addNumbers(CLI::App & app, const std::string & name, std::vector<double> & values,
                         const std::string & description);

} // namespace CMD
