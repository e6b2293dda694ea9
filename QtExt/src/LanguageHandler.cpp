#include <QtExt/LanguageHandler.h>

#include <QtExt/Settings.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace QtExt {

namespace {

constexpr const char * INSTALL = "[LanguageHandler::installTranslator]";

/// For the log file; what went well is no news to the user.
void log(const char * pattern, const QString & argument, KOR::msg_t type, const char * where, int verbosity = 2) {
    KOR::message(KOR::text(pattern, argument.toStdString()), type, where, verbosity);
}

} // namespace

LanguageHandler::LanguageHandler(QString directory, QString prefix)
    : m_directory(std::move(directory)), m_prefix(std::move(prefix)) {}

LanguageHandler::~LanguageHandler() {
    QCoreApplication::removeTranslator(&m_appTranslator);
    QCoreApplication::removeTranslator(&m_qtTranslator);
}

QString LanguageHandler::systemLanguage() {
    const QLocale system = QLocale::system();
    return system.language() == QLocale::C ? QStringLiteral("en") : system.name().left(2);
}

QString LanguageHandler::requiredLanguage(const Settings & settings) {
    QString required = settings.langId().isEmpty() ? systemLanguage() : settings.langId();
    log("System locale: '%1'.\n", QLocale::system().name(), KOR::MSG_PROGRESS, "[LanguageHandler::requiredLanguage]");
    log("Translation required for locale: '%1'.\n", required, KOR::MSG_PROGRESS, "[LanguageHandler::requiredLanguage]");
    return required;
}

void LanguageHandler::installForCommandLine(const QString & langId) {
    log("Installing translator for language: '%1'.\n", langId, KOR::MSG_PROGRESS, "[main]", 1);
    installTranslator(langId);
}

void LanguageHandler::install(const Settings & settings) {
    if (settings.hasLangIdOfRun())
        installForCommandLine(settings.langId());
    else
        installTranslator(requiredLanguage(settings));
}

void LanguageHandler::installTranslator(const QString & langId) {
    QCoreApplication::removeTranslator(&m_appTranslator);
    QCoreApplication::removeTranslator(&m_qtTranslator);
    m_langId = langId;
    // Numbers and dates in the language that the user reads, whatever the system is set to.
    QLocale numbers(langId == QLatin1String("en") ? QStringLiteral("C") : langId);
    numbers.setNumberOptions(QLocale::OmitGroupSeparator);
    QLocale::setDefault(numbers);

    const QString qtDirectory = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const QString appFile = m_prefix + '_' + langId;
    log("App translation file path = '%1'.\n", m_directory, KOR::MSG_PROGRESS, INSTALL);
    log("Qt translation file path  = '%1'.\n", qtDirectory, KOR::MSG_PROGRESS, INSTALL);

    const QString qtFile = QStringLiteral("qt_") + langId;
    if (m_qtTranslator.load(qtFile, qtDirectory)) {
        QCoreApplication::installTranslator(&m_qtTranslator);
        log("Qt translation file loaded successfully\n", {}, KOR::MSG_PROGRESS, INSTALL);
    } else {
        // English is what the texts are in.
        log("Could not load system translator file: 'qt_%1'.\n", langId, KOR::MSG_WARNING, INSTALL,
            langId == QLatin1String("en") ? 2 : 1);
    }
    if (m_appTranslator.load(appFile, m_directory)) {
        QCoreApplication::installTranslator(&m_appTranslator);
        log("Application translator loaded successfully\n", {}, KOR::MSG_PROGRESS, INSTALL);
    } else {
        log("Could not load application translator file: '%1'.\n", appFile, KOR::MSG_WARNING, INSTALL, 1);
    }
}

} // namespace QtExt
