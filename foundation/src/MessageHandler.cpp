#include <KOR/MessageHandler.h>

#include <KOR/Exception.h>
#include <KOR/MessageCollector.h>

#include <unistd.h>

#include <array>
#include <ctime>
#include <iostream>

namespace KOR {

namespace {

/// Number of the colour in the sixteen-colour console palette, and the terminal sequence for it.
struct ConsoleColour {
    int number;
    const char * sequence;
};
constexpr ConsoleColour CONSOLE_COLOURS[] = {
    {12, "\033[91m"}, // light red
    {13, "\033[95m"}, // light magenta
    {14, "\033[93m"}, // yellow
};
constexpr const char * RESET_SEQUENCE = "\033[0m";

std::string timeStamp() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr)
        return "(no local time)";
    std::array<char, 32> buffer{};
    const std::size_t length = std::strftime(buffer.data(), buffer.size(), "%Y-%m-%d %H:%M:%S", &local);
    return {buffer.data(), length};
}

} // namespace

std::string_view messageTypeLabel(int type) {
    static constexpr std::string_view LABELS[] = {"[Progress]\t", "[Progress]\t", "[Warning ]\t", "[Error   ]\t",
                                                  "[Debug   ]\t"};
    return type >= 0 && type < static_cast<int>(std::size(LABELS)) ? LABELS[type] : "[Invalid ]\t";
}

MessageHandler::~MessageHandler() = default;

void MessageHandler::msg(const std::string & text, int type, const std::string & where, int verbosityLevel) {
    const bool isAlwaysWritten = type == MSG_ERROR || type == MSG_DEBUG;
    const bool toConsole = isAlwaysWritten || verbosityLevel <= m_consoleLevel;
    const bool toLogFile = isAlwaysWritten || verbosityLevel <= m_logfileLevel;
    if (!toConsole && !toLogFile)
        return;

    const std::lock_guard lock(m_mutex);
    if (type == MSG_PROGRESS || type == MSG_INFORMATION) {
        const std::string line = text.ends_with('\n') ? text : text + '\n';
        if (toLogFile && verbosityLevel != 0 && m_logFile.is_open())
            m_logFile << line << std::flush;
        if (toConsole)
            writeConsole(line, -1, false);
        return;
    }

    const std::string label(messageTypeLabel(type));
    const std::string line = label + std::string(m_indentation, ' ') + where + '\t' + text;
    if (toLogFile && m_logFile.is_open())
        m_logFile << timeStamp() << ' ' << line << '\n' << std::flush;
    if (toConsole) {
        const int colour = type == MSG_WARNING ? 14 : type == MSG_DEBUG ? 13 : 12;
        writeConsole(line + '\n', colour, type != MSG_WARNING);
    }
}

void MessageHandler::writeConsole(const std::string & line, int colour, bool isError) {
    const char * sequence = nullptr;
    for (const ConsoleColour & known : CONSOLE_COLOURS)
        if (known.number == colour && isatty(STDOUT_FILENO))
            sequence = known.sequence;
    if (sequence)
        std::cout << sequence << line << RESET_SEQUENCE << std::flush;
    else
        std::cout << line << std::flush;
    if (isError)
        std::cerr << std::flush;
}

bool MessageHandler::openLogFile(const std::string & path, bool append, std::string & errorText) {
    const std::lock_guard lock(m_mutex);
    m_logFile.close();
    m_logFile.clear();
    m_logFile.open(path, append ? std::ios::app : std::ios::trunc);
    if (!m_logFile.is_open()) {
        errorText = "Cannot open/create logfile '" + path + "'.";
        return false;
    }
    if (append)
        m_logFile << "\n----------- continued -------------\n" << std::flush;
    return true;
}

void MessageHandler::closeLogFile() {
    const std::lock_guard lock(m_mutex);
    m_logFile.close();
}

MessageHandlerRegistry & MessageHandlerRegistry::instance() {
    static MessageHandlerRegistry registry;
    return registry;
}

MessageHandlerRegistry::MessageHandlerRegistry() : m_current(&m_default) {}

void MessageHandlerRegistry::setMessageHandler(MessageHandler * handler) {
    m_current = handler != nullptr ? handler : &m_default;
}

namespace {
thread_local MessageCollector * collector = nullptr;
} // namespace

MessageCollector::MessageCollector() : m_outer(collector) {
    collector = this;
}

MessageCollector::~MessageCollector() {
    collector = m_outer;
}

MessageCollector * MessageCollector::current() {
    return collector;
}

void message(const std::string & text, msg_t type, const std::string & where, int verbosityLevel) {
    if (collector != nullptr)
        return collector->add(text, type, where);
    MessageHandlerRegistry::instance().messageHandler().msg(text, type, where, verbosityLevel);
}

} // namespace KOR
