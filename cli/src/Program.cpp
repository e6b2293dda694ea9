#include "Program.h"

#include "Pages.h"

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <algorithm>
#include <new>
#include <ostream>

namespace CMD {

namespace {

constexpr const char * NO_OUTPUT = "Cannot write to standard output.";
constexpr const char * VERSION = "hygrion-cli " HYG_VERSION;

/// The command that was chosen, down to the last family member.
const CLI::App & chosen(const CLI::App & app) {
    const std::vector<CLI::App *> commands = app.get_subcommands();
    return commands.empty() ? app : chosen(*commands.back());
}

std::string fullName(const CLI::App & command) {
    const CLI::App * parent = command.get_parent();
    return parent ? fullName(*parent) + " " + command.get_name() : command.get_name();
}

/// What was wrong with the command line; the parser itself does not say which commands there are.
std::string problem(const CLI::App & command, const CLI::ParseError & error) {
    std::string known;
    for (const CLI::App * member : command.get_subcommands([](const CLI::App *) { return true; }))
        known += " " + member->get_name();
    if (known.empty())
        return error.what();
    const std::vector<std::string> rest = command.remaining();
    return (rest.empty() ? "A command is missing." : KOR::text("Unknown command or option '%1'.", rest.front())) +
           " Commands:" + known;
}

/// The parser takes "-5" for a number, but not "-.5".
void spellOutNumbers(std::vector<std::string> & arguments) {
    for (std::string & argument : arguments)
        if (argument.starts_with("-.") && KOR::parseDouble(argument))
            argument.insert(1, "0");
}

/// Messages of the libraries are no results: they go to the error stream.
class Messages : public KOR::MessageHandler {
public:
    explicit Messages(std::ostream & err) : m_err(err) {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(this);
    }
    ~Messages() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

protected:
    void writeConsole(const std::string & line, int, bool) override { m_err << line << std::flush; }

private:
    std::ostream & m_err;
};

exit_t perform(const CLI::App & command, const Actions & actions, std::ostream & out, std::ostream & err) {
    const Messages messages(err);
    Output output(out, err, command.count("--json") > 0);
    try {
        actions.at (&command)(output);
        if (!out.flush())
            throw KOR::Exception(NO_OUTPUT, "[CMD::run]");
    } catch (const Interrupted & ex) {
        output.fail(ex);
        return EXIT_INTERRUPTED;
    } catch (const KOR::Exception & ex) {
        output.fail(ex);
    } catch (const std::bad_alloc &) {
        output.fail(KOR::Exception("Out of memory.", "[CMD::run]"));
    } catch (const std::exception & ex) {
        output.fail(ex);
    }
    return output.hasFailed() ? EXIT_FAILED : EXIT_DONE;
}

} // namespace

exit_t run(std::vector<std::string> arguments, std::span<const AddCommands> families, std::ostream & out,
           std::ostream & err) {
    CLI::App app("Heat and moisture in building components, from the command line.", "hygrion-cli");
    app.require_subcommand(1);
    app.set_help_flag("-h,--help", "Print this help and exit.");
    app.set_version_flag("--version", VERSION, "Print the version and exit.");
    bool wantsManPage = false;
    bool wantsCompletion = false;
    const auto hidden = [&app](const char * name, bool & isWanted) {
        app.add_flag_callback(name,
                              [&isWanted] {
                                  isWanted = true;
                                  throw CLI::Success();
                              })
            ->group("");
    };
    hidden("--man-page", wantsManPage);
    hidden("--bash-completion", wantsCompletion);
    Actions actions;
    Commands program(app, actions);
    for (const AddCommands add : families)
        add(program);

    spellOutNumbers(arguments);
    std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
    try {
        app.parse(std::move(arguments));
        return perform(chosen(app), actions, out, err);
    } catch (const CLI::CallForHelp &) {
        out << app.help();
    } catch (const CLI::CallForVersion &) {
        out << VERSION << '\n';
    } catch (const CLI::Success &) {
        out << (wantsManPage ? manPage(app, VERSION) : bashCompletion(app));
    } catch (const CLI::ParseError & ex) {
        const CLI::App & command = chosen(app);
        err << problem(command, ex) << "\nHelp: " << fullName(command) << " --help\n";
        return EXIT_USAGE;
    }
    if (out.flush())
        return EXIT_DONE;
    err << NO_OUTPUT << '\n';
    return EXIT_FAILED;
}

} // namespace CMD
