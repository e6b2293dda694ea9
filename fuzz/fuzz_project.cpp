#include <HYGRION/Project.h>

#include <KOR/MessageHandler.h>

#include <cstdint>
#include <cstdlib>

namespace {

/// Says nothing: warnings would drown the fuzzer's own output.
class Silence : public KOR::MessageHandler {
public:
    void msg(const std::string &, int, const std::string &, int) override {}
};

} // namespace

/// Any bytes are a project or an error; a project is written and read again to the same bytes, and its checks, however
/// they end, neither crash nor take long.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
    static Silence silence;
    KOR::MessageHandlerRegistry::instance().setMessageHandler(&silence);
    const std::string content(reinterpret_cast<const char *>(data), size);
    HYGRION::Project project;
    try {
        project.readText(content, true);
    } catch (const KOR::Exception &) { // an error is fine
    }
    try {
        project.readText(content);
    } catch (const KOR::Exception &) {
        return 0;
    }
    const std::string text = project.text();
    HYGRION::Project again;
    again.readText(text);
    if (again.text() != text)
        std::abort();
    try {
        project.danglingReferences();
        project.m_init.checkParameters();
        project.m_conditions.checkParameters();
        project.m_outputs.checkParameters();
        project.GUISanityChecks();
        project.removeUnusedDefinitions();
    } catch (const KOR::Exception &) { // an error is fine
    }
    return 0;
}
