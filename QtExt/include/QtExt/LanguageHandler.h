#pragma once

#include <QString>
#include <QTranslator>

namespace QtExt {

class Settings;

/// Installs the translators of the application and of Qt, and exchanges them at run time: every widget gets a
/// QEvent::LanguageChange. A file that is missing is logged; the program goes on untranslated.
class LanguageHandler {
public:
    /// \param directory holds the application's translation files
    /// \param prefix of their names: "hygrion" for "hygrion_de.qm"
    LanguageHandler(QString directory, QString prefix);
    ~LanguageHandler();
    LanguageHandler(const LanguageHandler &) = delete;
    LanguageHandler & operator=(const LanguageHandler &) = delete;

    /// Two letters; "en" where the system names no language.
    static QString systemLanguage();
    /// The language to be used: the one of the settings, else that of the system. Logs both locales.
    static QString requiredLanguage(const Settings & settings);

    /// Logs the language and installs its translators: for a language that was given on the command line.
    void installForCommandLine(const QString & langId);
    /// Installs the translators of a two-letter language in place of the present ones.
    void installTranslator(const QString & langId);

    /// Chooses the language as requiredLanguage() does, or the command line's, and installs it.
    void install(const Settings & settings);

    /// The language that is installed, empty before the first.
    const QString & langId() const { return m_langId; }

private:
    QString m_directory;
    QString m_prefix;
    QString m_langId;
    QTranslator m_appTranslator;
    QTranslator m_qtTranslator;
};

} // namespace QtExt
