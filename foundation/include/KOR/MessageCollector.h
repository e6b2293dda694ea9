#pragma once

#include <KOR/MessageHandler.h>

#include <string>
#include <vector>

namespace KOR {

/// While it lives, messages of its thread are kept in it instead of being handed to the message handler.
class MessageCollector {
public:
    struct Message {
        std::string text;
        msg_t type;
        std::string where;
    };
    MessageCollector();
    ~MessageCollector();
    MessageCollector(const MessageCollector &) = delete;
    MessageCollector & operator=(const MessageCollector &) = delete;

    const std::vector<Message> & messages() const { return m_messages; }

    /// That of this thread, the innermost one; or nullptr.
    static MessageCollector * current();
    void add(const std::string & text, msg_t type, const std::string & where) {
        m_messages.push_back({text, type, where});
    }

private:
    MessageCollector * m_outer; ///< that was collecting before
    std::vector<Message> m_messages;
};

} // namespace KOR
