#pragma once

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>
#include <KOR/Xml.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

/// The exception that \p body throws; a failure of the test when it throws none.
template <typename Body> KOR::Exception caught(Body && body) {
    try {
        body();
    } catch (const KOR::Exception & ex) {
        return ex;
    }
    ADD_FAILURE() << "expected an exception";
    return {"no exception", ""};
}

/// Stands in as process-wide message handler and keeps the messages; silent.
class MessageRecorder : public KOR::MessageHandler {
public:
    struct Entry {
        std::string text;
        int type;
        std::string where;
        int level;
    };
    MessageRecorder() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    ~MessageRecorder() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    void msg(const std::string & text, int type, const std::string & where, int level) override {
        m_entries.push_back({text, type, where, level});
    }
    std::vector<Entry> m_entries;
};

/// The document of a text that must parse.
struct ParsedXml {
    explicit ParsedXml(const std::string & content) {
        const auto error = KOR::xml::parse(content, document);
        EXPECT_FALSE(error) << (error ? error->description : "") << " in " << content;
    }
    const TiXmlElement & root() const { return *document.RootElement(); }
    TiXmlDocument document;
};

/// An empty directory of its own that vanishes with the test.
struct TemporaryDirectory {
    TemporaryDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "hyg-test-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~TemporaryDirectory() { std::filesystem::remove_all(path); }
    TemporaryDirectory(const TemporaryDirectory &) = delete;
    TemporaryDirectory & operator=(const TemporaryDirectory &) = delete;
    std::string file(const std::string & name) const { return (path / name).string(); }
    std::filesystem::path path;
};
