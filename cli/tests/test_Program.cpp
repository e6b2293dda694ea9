#include "Shell.h"

#include <KOR/Strings.h>

namespace {

struct Line {
    const char * arguments;
    int exitCode;
    const char * out; ///< a "*" at the end stands for any rest
    const char * err;
};
class ProgramLines : public testing::TestWithParam<Line> {};

} // namespace

TEST_P(ProgramLines, GiveOutputAndExitCode) {
    const Result result = shell(std::string("hygrion-cli ") + GetParam().arguments);
    EXPECT_EQ(result.exitCode, GetParam().exitCode);
    EXPECT_TRUE(agrees(result.out, GetParam().out));
    EXPECT_TRUE(agrees(result.err, GetParam().err));
}

INSTANTIATE_TEST_SUITE_P(
    Usage, ProgramLines,
    testing::Values(
        Line{"--version", 0, "hygrion-cli 6.1.0\n", ""},
        Line{"--help", 0, "Heat and moisture in building components, from the command line.\nUsage: hygrion-cli *", ""},
        Line{"units convert --help", 0, "Converts a value from one unit to another of the same kind.\n*", ""},
        Line{"", 2, "", "A command is missing. Commands: *"},
        Line{"units", 2, "", "A command is missing. Commands: convert list\nHelp: hygrion-cli units --help\n"},
        Line{"unts list", 2, "", "Unknown command or option 'unts'. Commands: *"},
        Line{"units --bogus", 2, "", "Unknown command or option '--bogus'. Commands: convert list\n*"},
        Line{"units convert 1 m", 2, "", "TO is required\nHelp: hygrion-cli units convert --help\n"},
        Line{"units convert 1 m mm cm", 2, "", "The following argument was not expected: cm\n*"},
        Line{"units convert --bogus 1 m mm", 2, "", "The following argument was not expected: --bogus\n*"},
        Line{"units convert 1,5 m mm", 2, "", "VALUE: Could not convert '1,5' into value.\n*"},
        Line{"units convert 0x10 m mm", 2, "", "VALUE: Could not convert '0x10' into value.\n*"},
        Line{"units convert nan m mm", 2, "", "VALUE: Could not convert 'nan' into value.\n*"},
        Line{"units convert '' m mm", 2, "", "VALUE: Could not convert '' into value.\n*"},
        Line{"units list >/dev/full", 1, "", "Cannot write to standard output.\n"},
        Line{"--help >/dev/full", 1, "", "Cannot write to standard output.\n"}));

INSTANTIATE_TEST_SUITE_P(
    Units, ProgramLines,
    testing::Values(
        Line{"units convert 20 C K", 0, "293.15 K\n", ""}, Line{"units convert -5 C K", 0, "268.15 K\n", ""},
        Line{"units convert -- -5 C K", 0, "268.15 K\n", ""}, Line{"units convert -.5e1 C K", 0, "268.15 K\n", ""},
        Line{"units convert 1e3 mm m", 0, "1 m\n", ""}, Line{"units convert 3 µg/m3 kg/m3", 0, "3e-09 kg/m3\n", ""},
        Line{"units convert 1 m nope", 1, "", "Cannot convert 1 from 'm' to 'nope'.\nUnit 'nope' not found.\n"},
        Line{"units convert -1 s 'sqrt(s)'", 1, "",
             "Cannot convert -1 from 's' to 'sqrt(s)'.\nConversion error (square-root of negative number)!\n"},
        Line{"units convert 1e308 m mm", 1, "",
             "Cannot convert 1e+308 from 'm' to 'mm'.\nThe result is too large for a number.\n"},
        Line{"units list", 0, "undefined\nm mm cm dm\n*", ""},
        Line{"units list nope", 1, "", "Unit 'nope' not found.\n"}, Line{"units list C", 0, "K\n1 K = -272.15 C\n", ""},
        Line{"units list cm --json", 0,
             "[\n  {\n    \"base\": \"m\",\n    \"units\": [\n      {\n        \"name\": \"mm\",\n*", ""}));

// The lines behind "    $ " in the manual give what the manual says; a line "..." stands for any rest.
TEST(Manual, SaysWhatTheProgramDoes) {
    const std::string manual = KOR::readFile(HYG_SOURCE_DIR "/docs/command-line.md", 1 << 20);
    std::string command;
    std::string expected;
    int count = 0;
    const auto check = [&] {
        if (command.empty())
            return;
        const Result result = shell(command);
        if (expected.ends_with("...\n"))
            expected.replace(expected.size() - 4, 4, "*");
        EXPECT_TRUE(agrees(result.out + result.err, expected)) << command;
        command.clear();
        expected.clear();
        ++count;
    };
    for (const std::string_view line : KOR::split(manual, '\n')) {
        if (!line.starts_with("    ")) {
            check();
        } else if (line.starts_with("    $ ")) {
            check();
            command = line.substr(6);
        } else if (!command.empty()) {
            expected += std::string(line.substr(4)) + "\n";
        }
    }
    EXPECT_GE(count, 5);
}

TEST(Manual, HoldsTheQuantitiesThatTheProgramKnows) {
    const std::string manual = KOR::readFile(HYG_SOURCE_DIR "/docs/solver/outputs.md", 1 << 20);
    const Result known = shell("hygrion-cli results quantities");
    ASSERT_GT(known.out.size(), 1000U);
    EXPECT_NE(manual.find("\n" + known.out + "\n"), std::string::npos) << known.out;
}

// Whatever has become of the files that an example names: its command line is a right one.
TEST(Pages, HoldExamplesThatTheParserTakes) {
    const Result page = shell("hygrion-cli --man-page");
    ASSERT_EQ(page.exitCode, 0);
    int count = 0;
    for (const std::string_view line : KOR::split(page.out, '\n')) {
        if (!line.starts_with("  hygrion\\-cli "))
            continue;
        const std::string command = KOR::replaced(std::string(line), "\\-", "-");
        EXPECT_NE(shell("cd '" + testing::TempDir() + "' && timeout 20 " + command).exitCode, 2) << command;
        ++count;
    }
    EXPECT_GE(count, 5);
    EXPECT_NE(page.out.find("\n\\fBhygrion\\-cli units list\\fR [\\fIBASE\\fR] [\\fIoptions\\fR]\n"),
              std::string::npos);
    EXPECT_EQ(page.out.find("bash\\-completion"), std::string::npos); // hidden options stay hidden
}

TEST(Pages, CompleteCommandsAndOptions) {
    constexpr const char * ROWS[][2] = {
        {"uni",                   "units"              },
        {"units ''",              "convert list --help"},
        {"units con",             "convert"            },
        {"units convert 20 --js", "--json"             },
        {"units bogus --js",      ""                   },
    };
    for (const auto & [words, expected] : ROWS) {
        const Result result =
            shell(std::string("bash -c 'eval \"$(hygrion-cli --bash-completion)\"; COMP_WORDS=(\"$@\"); "
                              "COMP_CWORD=$(($# - 1)); _hygrion_cli; echo \"${COMPREPLY[*]}\"' "
                              "bash hygrion-cli ") +
                  words);
        EXPECT_EQ(result.out, std::string(expected) + "\n") << words << result.err;
    }
}
