#pragma once

#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace KOR {

/// The command line of a program with a window: flags, options and positional arguments.
///
/// Written "--name=value", "--flag", "-n=value" or "-n"; a flag may be given a value too ("--flag=false"). The last of
/// repeated ones holds. What does not begin with a dash is positional, and so are a lone dash, negative numbers ("-5",
/// "-1e-3") and everything behind "--". The flags help, man-page, cmd-line and options-left are always there.
class ArgParser {
public:
    /// What is known about one option or flag.
    struct Definition {
        char shortName = 0; ///< 0 if it has none
        std::string longName;
        std::string description;
        std::string valueDescription;
        std::string defaultValue;
        bool isFlag = false;
        std::optional<std::string> given; ///< as given on the command line
    };

    ArgParser();

    /// The name that stands on the help page and the man page; "<application>" until it is set.
    void setAppName(std::string name) { m_appName = std::move(name); }
    const std::string & appName() const { return m_appName; }
    /// What the positional arguments are, for the end of the help page. \param name such as "[file]"
    void setArguments(std::string name, std::string description) {
        m_arguments = {std::move(name), std::move(description)};
    }

    /// \param shortName a letter, or 0 for none
    /// Throws "Option '%1' is already defined." and "Invalid option name '%1'." ("[ArgParser::addOption]").
    void addOption(char shortName, std::string longName, std::string description, std::string valueDescription,
                   std::string defaultValue);
    /// A flag is "false" unless given. Throws as addOption.
    void addFlag(char shortName, std::string longName, std::string description);

    /// Takes over the arguments, the first of which is the program path; earlier ones are forgotten. Unknown options are
    /// kept apart. An option without its value throws "Option '--%1' needs a value: --%1=<%2>" ("[ArgParser::parse]"), but
    /// only when all other arguments have been taken over, so that a program may go on.
    void parse(std::span<const std::string> arguments);
    void parse(int argc, const char * const * argv);

    /// The value given, else the default. Throws as hasOption.
    const std::string & option(std::string_view longName) const;
    /// True if the value of the flag is exactly "true". Throws as hasOption.
    bool flag(std::string_view longName) const;
    /// True if the option or flag was given on the command line.
    /// Throws "Option '%1' has not been defined with addOption()." ("[ArgParser::hasOption]").
    bool hasOption(std::string_view longName) const;

    /// The positional arguments, the first of which is the program path.
    const std::vector<std::string> & args() const { return m_args; }
    /// Arguments that look like options but are not defined, as given.
    const std::vector<std::string> & optionsLeft() const { return m_optionsLeft; }

    void printHelp(std::ostream & out) const;
    /// The man page as troff source.
    void printManPage(std::ostream & out) const;
    /// "Command line: " and the arguments as understood.
    void printCommandLine(std::ostream & out) const;
    /// "Options left:" and the unknown options, one a line.
    void printOptionsLeft(std::ostream & out) const;
    /// Does what the four built-in flags ask for. True if the program should end now: after a help or man page.
    /// Throws "Exception while processing default command-line arguments." ("[ArgParser::handleDefaultFlags]").
    bool handleDefaultFlags(std::ostream & out) const;

private:
    /// Throws "Option '%1' has not been defined with addOption()." ("[ArgParser::hasOption]").
    const Definition & definition(std::string_view longName) const;
    /// The definition of a written name ("--lang", "-l") or nullptr.
    Definition * match(std::string_view written);
    void add(Definition definition);

    std::string m_appName = "<application>";
    std::pair<std::string, std::string> m_arguments; ///< name and description
    std::vector<Definition> m_definitions;
    std::vector<std::string> m_args;
    std::vector<std::string> m_optionsLeft;
};

} // namespace KOR
