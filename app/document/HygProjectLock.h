#pragma once

#include <QCoreApplication>
#include <QString>

#include <memory>

class QLockFile;
class QTimer;

/// The right to write a project file, held by one editor at a time: a hidden file ".<name>.lock" beside it that names the
/// holder. What a killed editor left is cleared away, also that of another computer when it was not renewed for minutes.
class HygProjectLock {
    Q_DECLARE_TR_FUNCTIONS(HygProjectLock)
public:
    /// Links are followed: all names of a file share one lock.
    explicit HygProjectLock(const QString & projectFile);
    ~HygProjectLock();
    HygProjectLock(const HygProjectLock &) = delete;
    HygProjectLock & operator=(const HygProjectLock &) = delete;

    /// Tries to take the lock, without waiting.
    bool acquire();
    bool isHeld() const;
    /// Why it could not be taken: who holds it and since when, or that the folder cannot be written. Empty if it was.
    const QString & problem() const { return m_problem; }

    static QString lockPath(const QString & projectFile);

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    std::unique_ptr<QTimer> m_renewal;
    QString m_problem;
};
