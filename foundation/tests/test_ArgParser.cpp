#include <KOR/ArgParser.h>
#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <sstream>

namespace {

KOR::ArgParser parserOfProgram() {
    KOR::ArgParser parser;
    parser.setAppName("Hygrion 6.1");
    parser.addFlag(0, "no-splash", "Disables splash screen.");
    parser.addOption('l', "lang", "Specify the program language using a 2 character language ID.", "en;de;it;...",
                     "en");
    return parser;
}

struct Line {
    const char * name;
    const char * arguments; ///< behind the program path, separated by blanks
    const char * lang;
    bool noSplash;
    const char * positional;
    const char * left;
};
std::vector<std::string> listed(std::string_view line) {
    const auto found = KOR::words(line);
    return {found.begin(), found.end()};
}

class ArgParserLines : public testing::TestWithParam<Line> {};

std::string output(std::initializer_list<std::string> arguments, bool expectEnd) {
    KOR::ArgParser parser = parserOfProgram();
    std::vector<std::string> all = {"prog"};
    all.insert(all.end(), arguments);
    parser.parse(all);
    std::ostringstream out;
    EXPECT_EQ(parser.handleDefaultFlags(out), expectEnd);
    return out.str();
}

} // namespace

TEST_P(ArgParserLines, AreUnderstood) {
    const Line & line = GetParam();
    KOR::ArgParser parser = parserOfProgram();
    parser.parse(std::vector<std::string>{"prog", "--lang=xx", "--no-splash", "gone", "--gone"});
    parser.parse(
        listed(KOR::text("-prog %1", line.arguments))); // the program path is positional whatever it looks like
    EXPECT_EQ(parser.option("lang"), line.lang);
    EXPECT_EQ(parser.flag("no-splash"), line.noSplash);
    EXPECT_EQ(parser.args(), listed(KOR::text("-prog %1", line.positional)));
    EXPECT_EQ(parser.optionsLeft(), listed(line.left));
}
INSTANTIATE_TEST_SUITE_P(
    , ArgParserLines,
    testing::Values(Line{"Nothing", "", "en", false, "", ""},
                    Line{"Everything", "--lang=de a.h6p --no-splash b", "de", true, "a.h6p b", ""},
                    Line{"ShortName", "-l=it", "it", false, "", ""},
                    Line{"ValueWithEquals", "--lang=a=b", "a=b", false, "", ""},
                    Line{"LastWins", "--lang=de --no-splash --no-splash=false -l=fr", "fr", false, "", ""},
                    Line{"OnlyTrueIsTrue", "--no-splash=True", "en", false, "", ""},
                    Line{"EmptyFlagValue", "--no-splash=", "en", false, "", ""},
                    Line{"NegativeNumbers", "-5 -1.5e-3 -.5 -", "en", false, "-5 -1.5e-3 -.5 -", ""},
                    Line{"BehindTheEnd", "-- --lang=de -x --", "en", false, "--lang=de -x --", ""},
                    Line{"Unknown", "--language=de --Lang=de -lang=de -x --=y -5a", "en", false, "",
                         "--language=de --Lang=de -lang=de -x --=y -5a"}),
    [](const auto & line) { return std::string(line.param.name); });

TEST(ArgParser, NamesWhatIsWrong) {
    KOR::ArgParser parser = parserOfProgram();
    const auto failure = [](auto && action) -> std::string {
        try {
            action();
        } catch (const KOR::Exception & ex) {
            return ex.chain().back().where + " " + ex.message();
        }
        return {};
    };
    const char * needsValue = "[ArgParser::parse] Option '--lang' needs a value: --lang=<en;de;it;...>";
    for (const char * written : {"--lang", "--lang=", "-l"})
        EXPECT_EQ(failure([&] {
                      parser.parse(std::vector<std::string>{"prog", written, "a.h6p", "--no-splash"});
                  }),
                  needsValue);
    EXPECT_EQ(parser.args().back(), "a.h6p"); // the rest was taken over all the same
    EXPECT_TRUE(parser.flag("no-splash"));
    EXPECT_FALSE(parser.hasOption("lang"));
    const char * undefined = "[ArgParser::hasOption] Option 'nope' has not been defined with addOption().";
    EXPECT_EQ(failure([&] { parser.hasOption("nope"); }), undefined);
    EXPECT_EQ(failure([&] { parser.option("nope"); }), undefined);
    EXPECT_EQ(failure([&] { parser.flag("nope"); }), undefined);
    EXPECT_EQ(failure([&] { parser.addFlag(0, "help", ""); }),
              "[ArgParser::addOption] Option 'help' is already defined.");
    EXPECT_EQ(failure([&] { parser.addFlag('l', "list", ""); }),
              "[ArgParser::addOption] Option 'list' is already defined.");
    EXPECT_EQ(failure([&] { parser.addFlag('5', "five", ""); }), "[ArgParser::addOption] Invalid option name 'five'.");
    parser.parse(0, nullptr);
    EXPECT_TRUE(parser.args().empty());
}

TEST(ArgParser, PrintsItsPages) {
    EXPECT_EQ(output({"a.h6p", "--no-splash=false"}, false), "");
    EXPECT_EQ(output({"--cmd-line", "a.h6p", "-l=de"}, false), "Command line: prog a.h6p --cmd-line=true --lang=de\n");
    EXPECT_EQ(output({"--options-left", "--a", "-b=c"}, false), "Options left:\n--a\n-b=c\n");

    const std::string help = output({"-h"}, true);
    EXPECT_TRUE(help.starts_with("Syntax: Hygrion 6.1 [flags] [options] arg1 arg2 ...\n")) << help;
    EXPECT_NE(help.find("Flags:\n  -h, --help "), std::string::npos) << help;
    EXPECT_NE(help.find("Options:\n  -l, --lang=<en;de;it;...>  Specify the program language"), std::string::npos)
        << help;

    const std::string page = output({"--man-page"}, true);
    std::size_t at = 0;
    for (const char * section : {".SH NAME\n", ".SH SYNOPSIS\n", ".SH DESCRIPTION\n", ".SH FLAGS\n",
                                 ".B -h, --help=<...>\n", ".SH OPTIONS\n", ".B -l, --lang=<...>\n"}) {
        at = page.find(section, at);
        EXPECT_NE(at, std::string::npos) << section << page;
    }
}

TEST(ArgParser, ReportsAnOutputThatTakesNothing) {
    KOR::ArgParser parser = parserOfProgram();
    parser.parse(std::vector<std::string>{"prog", "--help"});
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    try {
        parser.handleDefaultFlags(out);
        FAIL();
    } catch (const KOR::Exception & ex) {
        EXPECT_EQ(ex.message(), "Exception while processing default command-line arguments.");
        EXPECT_EQ(ex.cause(), "Cannot write to standard output.");
    }
}
