#pragma once

#include <KOR/MessageHandler.h>

#include <QObject>

/// The process-wide message handler of the editor: console and log file, and the log view by a signal.
/// Messages may come from any thread; the signal is emitted in the thread that sends the message.
class HygMessageHandler : public QObject, public KOR::MessageHandler {
    Q_OBJECT
public:
    void msg(const std::string & text, int type, const std::string & where, int verbosityLevel = 1) override;

signals:
    /// \param type one of KOR::msg_t
    /// \param text the message without surrounding white space
    void msgReceived(int type, const QString & text);
};
