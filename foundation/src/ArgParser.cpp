#include <KOR/ArgParser.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace KOR {

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isOption(std::string_view argument) {
    return argument.size() > 1 && argument[0] == '-' && !parseDouble(argument);
}

/// Troff takes a back slash as an escape, and a dot or a quote at the beginning of a line as a request.
std::string troff(std::string_view line) {
    const std::string escaped = replaced(std::string(line), "\\", "\\e");
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

/// A row of the help page: "  -h, --help      Prints the help page."
void printRow(std::ostream & out, const ArgParser::Definition & row, std::size_t width) {
    std::string names = row.shortName ? std::string("  -") + row.shortName + ", " : "      ";
    names += "--" + row.longName + (row.isFlag ? "" : "=<" + row.valueDescription + ">");
    names.resize(std::max(width, names.size()), ' ');
    out << names << "  " << row.description;
    if (!row.isFlag && !row.defaultValue.empty())
        out << " (default: " << row.defaultValue << ")";
    out << '\n';
}

} // namespace

ArgParser::ArgParser() {
    addFlag('h', "help", "Prints the help page.");
    addFlag(0, "man-page", "Prints the man page (source version) to std output.");
    addFlag(0, "cmd-line", "Prints the command line as it was understood by the command line parser.");
    addFlag(0, "options-left", "Prints all options that are unknown to the command line parser.");
}

void ArgParser::add(Definition row) {
    constexpr const char * WHERE = "[ArgParser::addOption]";
    if (row.longName.empty() || !isLetter(row.longName[0]) || row.longName.find('=') != std::string::npos ||
        (row.shortName && !isLetter(row.shortName)))
        throw Exception(text("Invalid option name '%1'.", row.longName), WHERE);
    for (const Definition & other : m_definitions)
        if (other.longName == row.longName || (row.shortName && other.shortName == row.shortName))
            throw Exception(text("Option '%1' is already defined.", row.longName), WHERE);
    m_definitions.push_back(std::move(row));
}

void ArgParser::addOption(char shortName, std::string longName, std::string description, std::string valueDescription,
                          std::string defaultValue) {
    add({shortName, std::move(longName), std::move(description), std::move(valueDescription), std::move(defaultValue),
         false, std::nullopt});
}

void ArgParser::addFlag(char shortName, std::string longName, std::string description) {
    add({shortName, std::move(longName), std::move(description), "true|false", "false", true, std::nullopt});
}

ArgParser::Definition * ArgParser::match(std::string_view written) {
    const auto isIt = [written](const Definition & row) {
        if (written.starts_with("--"))
            return row.longName == written.substr(2);
        return written.size() == 2 && row.shortName == written[1];
    };
    const auto found = std::find_if(m_definitions.begin(), m_definitions.end(), isIt);
    return found == m_definitions.end() ? nullptr : &*found;
}

void ArgParser::parse(std::span<const std::string> arguments) {
    m_args.clear();
    m_optionsLeft.clear();
    for (Definition & row : m_definitions)
        row.given.reset();

    const Definition * withoutValue = nullptr;
    bool hasEnded = false; // "--" was read
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string & argument = arguments[i];
        if (i == 0 || hasEnded || !isOption(argument)) {
            m_args.push_back(argument);
            continue;
        }
        if (argument == "--") {
            hasEnded = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        Definition * row = match(std::string_view(argument).substr(0, equals));
        if (!row)
            m_optionsLeft.push_back(argument);
        else if (equals != std::string::npos && (row->isFlag || equals + 1 < argument.size()))
            row->given = argument.substr(equals + 1);
        else if (row->isFlag)
            row->given = "true";
        else
            withoutValue = row;
    }
    if (withoutValue)
        throw Exception(
            text("Option '--%1' needs a value: --%1=<%2>", withoutValue->longName, withoutValue->valueDescription),
            "[ArgParser::parse]");
}

void ArgParser::parse(int argc, const char * const * argv) {
    parse(std::vector<std::string>(argv, argv + argc));
}

const ArgParser::Definition & ArgParser::definition(std::string_view longName) const {
    for (const Definition & row : m_definitions)
        if (row.longName == longName)
            return row;
    throw Exception(text("Option '%1' has not been defined with addOption().", longName), "[ArgParser::hasOption]");
}

const std::string & ArgParser::option(std::string_view longName) const {
    const Definition & row = definition(longName);
    return row.given ? *row.given : row.defaultValue;
}

bool ArgParser::flag(std::string_view longName) const {
    return option(longName) == "true";
}

bool ArgParser::hasOption(std::string_view longName) const {
    return definition(longName).given.has_value();
}

void ArgParser::printHelp(std::ostream & out) const {
    constexpr std::size_t WIDTH = 24;
    out << "Syntax: " << m_appName << " [flags] [options] arg1 arg2 ...\n\nFlags:\n";
    for (const Definition & row : m_definitions)
        if (row.isFlag)
            printRow(out, row, WIDTH);
    out << "\nOptions:\n";
    for (const Definition & row : m_definitions)
        if (!row.isFlag)
            printRow(out, row, WIDTH);
    if (!m_arguments.first.empty()) {
        std::string name = "  " + m_arguments.first;
        name.resize(std::max(WIDTH, name.size()), ' ');
        out << "\nArguments:\n" << name << "  " << m_arguments.second << '\n';
    }
}

void ArgParser::printManPage(std::ostream & out) const {
    const auto print = [this, &out](bool flags) {
        for (const Definition & row : m_definitions) {
            if (row.isFlag != flags)
                continue;
            out << ".TP\n.B ";
            if (row.shortName)
                out << '-' << row.shortName << ", ";
            out << "--" << troff(row.longName) << "=<...>\n" << troff(row.description) << '\n';
            out << ".br\n" << troff("Value: " + row.valueDescription + ", default: " + row.defaultValue) << '\n';
        }
    };
    out << ".TH \"" << replaced(troff(m_appName), "\"", "") << "\" 1\n";
    out << ".SH NAME\n" << troff(m_appName) << '\n';
    out << ".SH SYNOPSIS\n.B " << troff(m_appName) << "\n[flags] [options] arg1 arg2 ...\n";
    out << ".SH DESCRIPTION\nFlags and options may stand in any order; of repeated ones the last holds. A flag that is "
           "given without a value is true.\n";
    out << ".SH FLAGS\n";
    print(true);
    out << ".SH OPTIONS\n";
    print(false);
}

void ArgParser::printCommandLine(std::ostream & out) const {
    out << "Command line:";
    for (const std::string & argument : m_args)
        out << ' ' << argument;
    for (const Definition & row : m_definitions)
        if (row.given)
            out << " --" << row.longName << '=' << *row.given;
    out << '\n';
}

void ArgParser::printOptionsLeft(std::ostream & out) const {
    out << "Options left:\n";
    for (const std::string & argument : m_optionsLeft)
        out << argument << '\n';
}

bool ArgParser::handleDefaultFlags(std::ostream & out) const {
    try {
        if (flag("help"))
            printHelp(out);
        if (flag("man-page"))
            printManPage(out);
        if (flag("cmd-line"))
            printCommandLine(out);
        if (flag("options-left"))
            printOptionsLeft(out);
        if (!out.flush())
            throw Exception("Cannot write to standard output.", "[ArgParser::handleDefaultFlags]");
        return flag("help") || flag("man-page");
    } catch (const Exception & ex) {
        throw Exception(ex, "Exception while processing default command-line arguments.",
                        "[ArgParser::handleDefaultFlags]");
    }
}

} // namespace KOR
