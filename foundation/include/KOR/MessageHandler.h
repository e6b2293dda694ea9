#pragma once

#include <atomic>
#include <fstream>
#include <mutex>
#include <string>
#include <string_view>

namespace KOR {

/// Kinds of messages, by the numbers that stand in logs and signals.
enum msg_t { MSG_PROGRESS, MSG_INFORMATION, MSG_WARNING, MSG_ERROR, MSG_DEBUG };

/// "[Warning ]\t" and so on: eleven characters, the last a tab; "[Invalid ]" for any other number.
std::string_view messageTypeLabel(int type);

/// Writes messages to the console and to a log file, each with a verbosity level of its own.
/// Errors and debug messages pass whatever their level. Calls from several threads are serialised.
class MessageHandler {
public:
    MessageHandler() = default;
    virtual ~MessageHandler();
    MessageHandler(const MessageHandler &) = delete;
    MessageHandler & operator=(const MessageHandler &) = delete;

    /// \param type one of msg_t
    /// \param where function identifier, "[Class::function]"
    /// \param verbosityLevel 1 for ordinary messages, higher for more detail
    virtual void msg(const std::string & text, int type, const std::string & where, int verbosityLevel = 1);

    /// Opens the log file; an earlier one is closed first. With \p append set the old content stays and a
    /// "continued" line follows it. On failure false, and the reason in \p errorText.
    bool openLogFile(const std::string & path, bool append, std::string & errorText);
    void closeLogFile();

    void setConsoleLogLevel(int level) { m_consoleLevel = level; }
    void setLogfileLogLevel(int level) { m_logfileLevel = level; }
    int consoleLogLevel() const { return m_consoleLevel; }
    int logfileLogLevel() const { return m_logfileLevel; }

    /// Number of blanks before the text of warnings, errors and debug messages.
    void setIndentation(unsigned int blanks) { m_indentation = blanks; }

protected:
    /// Writes one line to the console in one of the sixteen console colours; -1 keeps the colour.
    virtual void writeConsole(const std::string & line, int colour, bool isError);

private:
    std::atomic<int> m_consoleLevel{1};
    std::atomic<int> m_logfileLevel{3};
    std::atomic<unsigned int> m_indentation{0};
    std::ofstream m_logFile;
    std::mutex m_mutex;
};

/// Holds the process-wide message handler: a default one until the application sets its own.
class MessageHandlerRegistry {
public:
    static MessageHandlerRegistry & instance();
    MessageHandler & messageHandler() { return *m_current; }
    /// The handler must outlive its use; nullptr brings the default one back.
    void setMessageHandler(MessageHandler * handler);

private:
    MessageHandlerRegistry();
    MessageHandler m_default;
    std::atomic<MessageHandler *> m_current;
};

/// Hands a message to the process-wide message handler.
void message(const std::string & text, msg_t type, const std::string & where, int verbosityLevel = 1);

} // namespace KOR
