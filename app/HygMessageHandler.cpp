#include "HygMessageHandler.h"

void HygMessageHandler::msg(const std::string & text, int type, const std::string & where, int verbosityLevel) {
    KOR::MessageHandler::msg(text, type, where, verbosityLevel);
    if (verbosityLevel <= consoleLogLevel())
        emit msgReceived(type, QString::fromStdString(text).trimmed());
}
