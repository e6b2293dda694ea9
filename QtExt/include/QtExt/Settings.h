#pragma once

#include <QByteArray>
#include <QColor>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <limits>
#include <variant>
#include <vector>

namespace KOR {
class ArgParser;
}

namespace QtExt {

/// The per-user settings, one object for the life of the process. A key is a row that binds it to a member with its
/// default and range; reading, writing, defaults and the preferences dialog walk the rows. A derived class binds its
/// own members in its constructor.
class Settings {
public:
    using Target = std::variant<QString *, QStringList *, QByteArray *, unsigned int *, int *, bool *, QColor *>;

    struct Row {
        QString key;
        Target target;
        QVariant defaultValue;
        double min = 0; ///< numbers outside the range are brought to its ends
        double max = 0;
    };

    /// An answer to a question that is not to be asked again.
    struct RememberedAnswer {
        bool checked = false; ///< the question is not shown
        int answer = 0;       ///< QMessageBox::StandardButton
        bool operator==(const RememberedAnswer &) const = default;
    };

    /// Removes the lock file that a killed process left beside the store.
    Settings(const QString & organisation, const QString & application);
    virtual ~Settings();
    Settings(const Settings &) = delete;
    Settings & operator=(const Settings &) = delete;

    /// The settings constructed last. Throws "No settings object exists." ("[Settings::instance]").
    static Settings & instance();

    /// Gives every member its default.
    virtual void setDefaults();
    /// Reads every key with the member's value as fallback; what cannot be used keeps that value. Never fails.
    void read();
    /// Stores every key. Throws "Cannot write settings to '%1'." ("[Settings::write]").
    void write() const;
    /// As write(), but a failure is only logged.
    void writeOrLog() const noexcept;

    /// The file (or registry path) of the store.
    QString storePath() const;

    /// All keys but the arrays of remembered answers and the texts per language, in the order of reading.
    const std::vector<Row> & rows() const { return m_rows; }
    /// The row or nullptr.
    const Row * find(const QString & key) const;
    /// The value of a key, invalid when there is no such key. Colours are QColor.
    QVariant value(const QString & key) const;
    /// The default of a key.
    virtual QVariant defaultValue(const QString & key) const;
    /// False when there is no such key or the value cannot be used; the member then stays as it was.
    bool setValue(const QString & key, const QVariant & value);

    /// Adds the options no-splash and lang.
    static void addOptions(KOR::ArgParser & parser);
    /// Takes over no-splash, an explicit lang (for this run only) and the project file.
    void applyCommandLine(const KOR::ArgParser & parser);

    /// Two-letter language of this run: the command line's, else the stored one, else empty (the system decides).
    QString langId() const { return m_langIdOfRun.isEmpty() ? m_langId : m_langIdOfRun; }
    /// True when the language came with the command line.
    bool hasLangIdOfRun() const { return !m_langIdOfRun.isEmpty(); }
    /// A language for this run that is never stored; empty ends it.
    void setLangIdOfRun(const QString & langId) { m_langIdOfRun = langId; }

    /// Puts a file on top of the list of recent projects, once, and makes it the last project.
    void addRecentProject(const QString & path);
    void removeRecentProject(const QString & path);

    /// A directory of the directory table, empty if it is not known.
    QString directory(const QString & name) const { return m_directories.value(name); }
    void setDirectory(const QString & name, const QString & path) { m_directories[name] = path; }

    /// The text in the language of this run, else in English.
    QString textOf(const QString & key) const;

    /// The answer that is to be used without asking, 0 if the question is to be asked.
    int rememberedAnswer(const QString & dialogId) const;
    void rememberAnswer(const QString & dialogId, int answer);

    // Plain values, by the names of their keys.
    QString m_lastProjectFile;
    QStringList m_recentProjects; ///< newest first, no doubles
    unsigned int m_maxRecentProjects = 0;
    unsigned int m_maxNumUndoSteps = 0;
    QString m_textEditorExecutable;
    QString m_langId; ///< as stored; see langId()
    int m_userLogLevelConsole = 0;
    int m_userLogLevelLogfile = 0;
    bool m_dontUseNativeDialogs = false;
    QString m_theme; ///< "system", "light" or "dark"
    QMap<QString, RememberedAnswer> m_rememberedAnswers;

    // Of this run only.
    bool m_noSplash = false;
    QString m_initialProjectFile;

protected:
    /// Binds a key to a member of a derived class; \p min and \p max hold for numbers.
    void bind(const QString & key, Target target, const QVariant & defaultValue, double min = 0,
              double max = std::numeric_limits<int>::max());
    /// Gives a text per language, stored as the key with "_EN" and "_DE" behind it.
    void bindText(const QString & key, const QString & english, const QString & german);

private:
    void tidyRecentProjects();

    QString m_organisation;
    QString m_application;
    QString m_langIdOfRun;
    std::vector<Row> m_rows;
    QMap<QString, QString> m_directories;
    QMap<QString, QString> m_defaultTexts; ///< by key with language suffix
    QMap<QString, QString> m_texts;
    Settings * m_previous; ///< instance() before this one
};

} // namespace QtExt
