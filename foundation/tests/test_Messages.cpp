#include "TestTools.h"

#include <KOR/FileIO.h>
#include <KOR/MessageCollector.h>

#include <gmock/gmock.h>

#include <regex>
#include <thread>

using KOR::MessageHandler;

namespace {

/// Keeps what goes to the console.
class ConsoleRecorder : public MessageHandler {
public:
    struct Line {
        std::string text;
        int colour;
        bool isError;
    };
    std::vector<Line> m_lines;

protected:
    void writeConsole(const std::string & line, int colour, bool isError) override {
        m_lines.push_back({line, colour, isError});
    }
};

std::string content(const std::string & path) {
    return KOR::readFile(path, 1 << 20);
}

} // namespace

TEST(Messages, LabelsAreElevenWide) {
    const char * const labels[] = {"[Progress]\t", "[Progress]\t", "[Warning ]\t", "[Error   ]\t", "[Debug   ]\t"};
    for (int type = 0; type < 5; ++type)
        EXPECT_EQ(KOR::messageTypeLabel(type), labels[type]);
    EXPECT_EQ(KOR::messageTypeLabel(5), "[Invalid ]\t");
    EXPECT_EQ(KOR::messageTypeLabel(-1), "[Invalid ]\t");
}

struct Passing {
    int type, level, consoleLevel, logfileLevel;
    bool toConsole, toLogFile;
};
class MessagePassing : public testing::TestWithParam<Passing> {};

TEST_P(MessagePassing, FollowsTypeAndLevels) {
    const Passing & row = GetParam();
    const TemporaryDirectory directory;
    ConsoleRecorder handler;
    std::string error;
    ASSERT_TRUE(handler.openLogFile(directory.file("log"), false, error));
    handler.setConsoleLogLevel(row.consoleLevel);
    handler.setLogfileLogLevel(row.logfileLevel);
    handler.msg("text", row.type, "[Some::where]", row.level);
    EXPECT_EQ(!handler.m_lines.empty(), row.toConsole);
    EXPECT_EQ(!content(directory.file("log")).empty(), row.toLogFile);
}
INSTANTIATE_TEST_SUITE_P(
    Levels, MessagePassing,
    testing::Values(Passing{KOR::MSG_PROGRESS, 1, 1, 1, true, true}, Passing{KOR::MSG_PROGRESS, 2, 1, 3, false, true},
                    Passing{KOR::MSG_PROGRESS, 3, 3, 1, true, false}, Passing{KOR::MSG_PROGRESS, 0, 1, 3, true, false},
                    Passing{KOR::MSG_INFORMATION, 0, 0, 3, true, false},
                    Passing{KOR::MSG_INFORMATION, 4, 3, 3, false, false},
                    Passing{KOR::MSG_WARNING, 2, 1, 2, false, true}, Passing{KOR::MSG_WARNING, 2, 2, 1, true, false},
                    Passing{KOR::MSG_WARNING, 2, 1, 1, false, false}, Passing{KOR::MSG_ERROR, 9, 1, 1, true, true},
                    Passing{KOR::MSG_ERROR, 1, 0, 0, true, true}, Passing{KOR::MSG_DEBUG, 9, 1, 1, true, true},
                    Passing{7, 9, 1, 1, false, false}));

TEST(Messages, LinesCarryTimeLabelIndentationAndPlace) {
    const TemporaryDirectory directory;
    ConsoleRecorder handler;
    std::string error;
    ASSERT_TRUE(handler.openLogFile(directory.file("log"), false, error));
    handler.setIndentation(2);
    handler.msg("plain", KOR::MSG_INFORMATION, "[Some::where]");
    handler.msg("careful", KOR::MSG_WARNING, "[Some::where]");
    handler.msg("broken %1", KOR::MSG_ERROR, "[Some::where]");
    handler.msg("seen", KOR::MSG_DEBUG, "[Some::where]");
    handler.msg("odd", 7, "[Some::where]");
    const std::regex expected("plain\n"
                              "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\[Warning \\]\t  \\[Some::where\\]\tcareful\n"
                              ".{19} \\[Error   \\]\t  \\[Some::where\\]\tbroken %1\n"
                              ".{19} \\[Debug   \\]\t  \\[Some::where\\]\tseen\n"
                              ".{19} \\[Invalid \\]\t  \\[Some::where\\]\todd\n");
    EXPECT_TRUE(std::regex_match(content(directory.file("log")), expected)) << content(directory.file("log"));
    ASSERT_EQ(handler.m_lines.size(), 5u);
    const int colours[] = {-1, 14, 12, 13, 12};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(handler.m_lines[i].colour, colours[i]);
    EXPECT_EQ(handler.m_lines[0].text, "plain\n");
    EXPECT_EQ(handler.m_lines[2].text, "[Error   ]\t  [Some::where]\tbroken %1\n");
}

TEST(Messages, LogFileIsContinuedOrBegunAnew) {
    const TemporaryDirectory directory;
    const std::string path = directory.file("log");
    const std::string line = "\n----------- continued -------------\n";
    ConsoleRecorder handler;
    std::string error;
    ASSERT_TRUE(handler.openLogFile(path, true, error));
    handler.msg("one", KOR::MSG_PROGRESS, "");
    ASSERT_TRUE(handler.openLogFile(path, true, error));
    handler.msg("two", KOR::MSG_PROGRESS, "");
    EXPECT_EQ(content(path), line + "one\n" + line + "two\n");
    ASSERT_TRUE(handler.openLogFile(path, false, error));
    EXPECT_EQ(content(path), "");

    EXPECT_FALSE(handler.openLogFile(directory.file("no/log"), true, error));
    EXPECT_EQ(error, "Cannot open/create logfile '" + directory.file("no/log") + "'.");
    handler.msg("still alive", KOR::MSG_ERROR, "");
    EXPECT_EQ(handler.m_lines.back().text, "[Error   ]\t\tstill alive\n");
    EXPECT_EQ(content(path), "");
}

TEST(Messages, LinesOfSeveralThreadsDoNotMix) {
    const TemporaryDirectory directory;
    ConsoleRecorder handler;
    std::string error;
    ASSERT_TRUE(handler.openLogFile(directory.file("log"), false, error));
    const std::string longText(300, 'x');
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 50; ++k)
                handler.msg(longText, KOR::MSG_PROGRESS, "");
        });
    for (std::thread & thread : threads)
        thread.join();
    EXPECT_EQ(handler.m_lines.size(), 200u);
    std::string expected;
    for (int i = 0; i < 200; ++i)
        expected += longText + '\n';
    EXPECT_EQ(content(directory.file("log")), expected);
}

TEST(Messages, RegistryFallsBackToTheDefaultHandler) {
    auto & registry = KOR::MessageHandlerRegistry::instance();
    MessageHandler * const standard = &registry.messageHandler();
    {
        MessageRecorder recorder;
        EXPECT_EQ(&registry.messageHandler(), &recorder);
        KOR::message("text", KOR::MSG_WARNING, "[Some::where]", 2);
        ASSERT_EQ(recorder.m_entries.size(), 1u);
        EXPECT_EQ(recorder.m_entries[0].level, 2);
    }
    EXPECT_EQ(&registry.messageHandler(), standard);
}

TEST(Messages, AreCollectedForTheThreadThatAsksForIt) {
    using namespace KOR;
    const auto texts = [](const MessageCollector & collector) {
        std::vector<std::string> all;
        for (const MessageCollector::Message & message : collector.messages())
            all.push_back(message.text);
        return all;
    };
    const MessageCollector outer;
    message("first", MSG_WARNING, "[here]");
    std::vector<std::string> others;
    std::thread([&] {
        const MessageCollector own;
        message("other", MSG_WARNING, "[there]");
        others = texts(own);
    }).join();
    {
        const MessageCollector inner;
        message("second", MSG_ERROR, "[here]");
        EXPECT_EQ(texts(inner), std::vector<std::string>{"second"});
    }
    message("third", MSG_PROGRESS, "[here]");
    EXPECT_EQ(texts(outer), (std::vector<std::string>{"first", "third"}));
    EXPECT_EQ(others, std::vector<std::string>{"other"});
    EXPECT_EQ(outer.messages().front().where, "[here]");
}

TEST(Exception, ChainsFromTheCauseToTheCaller) {
    const KOR::Exception cause("File not found", "[A::a]");
    const KOR::Exception middle(cause, "Cannot read material", "[B::b]");
    const KOR::Exception outer(middle, "Cannot open project", "[C::c]");
    const KOR::Exception::Entry expected[] = {
        {"File not found",       "[A::a]"},
        {"Cannot read material", "[B::b]"},
        {"Cannot open project",  "[C::c]"}
    };
    EXPECT_THAT(outer.chain(), testing::ElementsAreArray(expected));
    EXPECT_EQ(outer.cause(), "File not found");
    EXPECT_EQ(outer.message(), "Cannot open project");
    EXPECT_STREQ(outer.what(), "Cannot open project\nCannot read material\nFile not found");
    EXPECT_EQ(cause.chain().size(), 1u);

    const MessageRecorder recorder;
    outer.report();
    ASSERT_EQ(recorder.m_entries.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(recorder.m_entries[i].text, outer.chain()[i].message);
        EXPECT_EQ(recorder.m_entries[i].where, outer.chain()[i].where);
        EXPECT_EQ(recorder.m_entries[i].type, KOR::MSG_ERROR);
        EXPECT_EQ(recorder.m_entries[i].level, 1);
    }
}

TEST(Exception, IsReportedByTheMasterThreadOnly) {
    const MessageRecorder recorder;
    const KOR::Exception ex("text", "[A::a]");
#pragma omp parallel num_threads(4)
    ex.report();
    EXPECT_EQ(recorder.m_entries.size(), 1u);
}

TEST(Text, FillsItsPlaceholdersOnce) {
    EXPECT_EQ(KOR::text("a %1 b %2 c %1", "x", 2), "a x b 2 c x");
    EXPECT_EQ(KOR::text("%1 %2", "%2", "%1"), "%2 %1");
    EXPECT_EQ(KOR::text("%3 %1", "x"), "%3 x");
    EXPECT_EQ(KOR::text("100 %% of %1", 0.1), "100 %% of 0.1");
    EXPECT_EQ(KOR::text("%10", "x"), "x0");
    EXPECT_EQ(KOR::text("%", "x"), "%");
}
