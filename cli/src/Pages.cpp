#include "Pages.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>

namespace CMD {

namespace {

/// What is shown has a group; hidden options and commands have none.
std::vector<const CLI::Option *> shownOptions(const CLI::App & app) {
    return app.get_options([](const CLI::Option * option) { return !option->get_group().empty(); });
}

std::vector<const CLI::App *> shownCommands(const CLI::App & app) {
    return app.get_subcommands([](const CLI::App * command) { return !command->get_group().empty(); });
}

/// "units convert" for a command of a family; empty for the program.
std::string path(const CLI::App & app) {
    const CLI::App * parent = app.get_parent();
    if (!parent)
        return {};
    const std::string above = path(*parent);
    return above + (above.empty() ? "" : " ") + app.get_name();
}

/// Every shown command below \p app, in the order of the definitions.
void collect(const CLI::App & app, std::vector<const CLI::App *> & commands) {
    for (const CLI::App * command : shownCommands(app)) {
        commands.push_back(command);
        collect(*command, commands);
    }
}

std::string troff(std::string_view line) {
    std::string escaped = KOR::replaced(KOR::replaced(std::string(line), "\\", "\\e"), "-", "\\-");
    if (escaped.starts_with('.') || escaped.starts_with('\''))
        escaped.insert(0, "\\&");
    return escaped;
}

std::string optionList(const CLI::App & app) {
    std::string page;
    for (const CLI::Option * option : shownOptions(app)) {
        const bool isPositional = option->get_positional();
        std::string names = isPositional ? option->get_single_name() : option->get_name(false, true);
        if (!isPositional && option->get_type_size() > 0)
            names += " " + option->get_type_name();
        page += KOR::text(".TP\n\\fB%1\\fR\n%2\n", troff(names), troff(option->get_description()));
    }
    return page;
}

std::string synopsis(const CLI::App & command) {
    std::string line = KOR::text("\\fBhygrion\\-cli %1\\fR", troff(path(command)));
    for (const CLI::Option * option : shownOptions(command)) {
        if (!option->get_positional())
            continue;
        const std::string name = option->get_single_name() + (option->get_items_expected_max() > 1 ? "..." : "");
        line += option->get_required() ? " \\fI" + name + "\\fR" : " [\\fI" + name + "\\fR]";
    }
    return line + " [\\fIoptions\\fR]\n";
}

/// The footer with its heading; the examples themselves as they stand.
std::string examples(const CLI::App & command) {
    const std::string footer = command.get_footer();
    const std::size_t end = footer.find('\n');
    if (end == std::string::npos)
        return {};
    return KOR::text(".PP\n%1\n.PP\n.nf\n%2\n.fi\n", footer.substr(0, end), troff(footer.substr(end + 1)));
}

/// The words that may follow a command.
std::string following(const CLI::App & app) {
    std::string words;
    for (const CLI::App * command : shownCommands(app))
        words += command->get_name() + " ";
    for (const CLI::Option * option : shownOptions(app))
        for (const std::string & name : option->get_lnames())
            words += "--" + name + " ";
    return words.empty() ? words : words.substr(0, words.size() - 1);
}

} // namespace

std::string manPage(const CLI::App & program, const std::string & version) {
    std::vector<const CLI::App *> commands;
    collect(program, commands);

    std::string page = KOR::text(".TH HYGRION\\-CLI 1 \"\" \"%1\" \"Hygrion\"\n", version);
    page += KOR::text(".SH NAME\nhygrion\\-cli \\- %1\n", troff(program.get_description()));
    page += ".SH SYNOPSIS\n.nf\n";
    for (const CLI::App * command : commands)
        if (shownCommands(*command).empty())
            page += synopsis(*command);
    page += ".fi\n.SH OPTIONS\n" + optionList(program) + ".SH COMMANDS\n";
    for (const CLI::App * command : commands) {
        page += KOR::text(".SS %1\n%2\n", troff(path(*command)), troff(command->get_description()));
        if (shownCommands(*command).empty())
            page += optionList(*command) + examples(*command);
    }
    page += ".SH EXIT STATUS\n";
    for (const auto & [status, meaning] :
         {std::pair("0", "What was asked for is done."),
          std::pair("1", "It failed; the error stream tells why, the outermost message first."),
          std::pair("2", "The command line was wrong."),
          std::pair("3", "It was interrupted (Ctrl-C) and can be continued.")})
        page += KOR::text(".TP\n%1\n%2\n", status, meaning);
    return page;
}

std::string bashCompletion(const CLI::App & program) {
    std::vector<const CLI::App *> commands;
    collect(program, commands);
    std::string enter;
    std::string offer = KOR::text("        '') words='%1' ;;\n", following(program));
    for (const CLI::App * command : commands) {
        const CLI::App & parent = *command->get_parent();
        enter += KOR::text("            '%1 %2') command='%3' ;;\n", path(parent), command->get_name(), path(*command));
        offer += KOR::text("        '%1') words='%2' ;;\n", path(*command), following(*command));
    }
    return KOR::text(R"(# bash completion for hygrion-cli; made from the program's own definitions
_hygrion_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} command='' words='' i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case "$command ${COMP_WORDS[i]}" in
%1        esac
    done
    case "$command" in
%2    esac
    COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o bashdefault -o default -F _hygrion_cli hygrion-cli
)",
                     enter, offer);
}

} // namespace CMD
