#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <optional>

/// The directory into which the solver writes: the project file's path without its extension. Nothing is created here,
/// and nothing outside is ever removed: links are taken away, never what they lead to.
class HygOutputDirectory {
public:
    explicit HygOutputDirectory(QString path) : m_path(std::move(path)) {}
    static HygOutputDirectory ofProject(const QString & projectFile);

    const QString & path() const { return m_path; }
    QString results() const { return m_path + "/results"; }
    QString screenLog() const { return m_path + "/log/screenlog.txt"; }
    QString log(const QString & name) const { return m_path + "/log/" + name; }
    QString restartFile() const { return m_path + "/var/restart.h6r"; }

    /// Whether something that is no directory has the name.
    bool isBlocked() const;
    bool exists() const;
    bool hasResults() const;
    bool canContinue() const;
    /// Whether the solver can write there, or make the directory.
    bool isWritable() const;
    /// Removes "results" with all it holds. False if something of it stays.
    bool clearResults() const;

    /// The process that holds the directory, 0 if none does.
    qint64 owner() const;

    /// What was there before a test of the set-up, so that all the test writes can be taken away again.
    class Snapshot {
    public:
        explicit Snapshot(const HygOutputDirectory & directory);
        /// Removes the files and directories that are new and gives back the logs that were overwritten.
        void restore() const;

    private:
        QString m_path;
        bool m_existed;
        std::map<QString, std::optional<QByteArray>> m_entries; ///< by path below the directory; content of small logs
    };

private:
    QString m_path;
};
