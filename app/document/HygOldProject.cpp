#include "document/HygOldProject.h"

#include <KOR/Exception.h>

#include <QRegularExpression>
#include <QVersionNumber>

namespace {

constexpr const char * WHERE = "[HygOldProject::refuse]";
/// Any of them marks the format; not every file has all.
constexpr const char * SECTIONS =
    "FILE_VERSION|PROJECT_INFO|DIRECTORIES|INIT|MATERIALS|CONDITIONS|DISCRETISATION|OUTPUTS|ASSIGNMENTS";

} // namespace

void HygOldProject::refuse(const std::string & head) {
    const QString text = QString::fromUtf8(head.data(), static_cast<int>(head.size()));
    if (text.trimmed().startsWith(QLatin1Char('<')))
        return;
    // A section's name stands alone on its line, in brackets or with a colon or without.
    static const QRegularExpression SECTION(QStringLiteral("^[ \\t]*\\[?(?:%1)\\]?[ \\t]*:?[ \\t]*\\r?$").arg(SECTIONS),
                                            QRegularExpression::MultilineOption);
    if (!SECTION.match(text).hasMatch())
        return;
    static const QRegularExpression VERSION(
        QStringLiteral("^[ \\t]*\\[?FILE_VERSION\\]?[^0-9\\[]{0,200}?([0-9]{1,4}(?:\\.[0-9]{1,4}){0,3})"),
        QRegularExpression::MultilineOption);
    const QString version = VERSION.match(text).captured(1);
    const std::string shown = version.isEmpty() ? std::string("?") : version.toStdString();
    if (version.isEmpty() || QVersionNumber::fromString(version) < QVersionNumber(5, 8)) {
        const KOR::Exception cause(
            KOR::text("Minimum supported project version number is 5.8.x (current %1).\n", shown), WHERE);
        throw KOR::Exception(cause, "Please use HYGRION 5 to upgrade older projects to at least version 5.8", WHERE);
    }
    throw KOR::Exception(
        KOR::text("The project has the sectioned format of version %1, which this program does not convert.", shown),
        WHERE);
}
