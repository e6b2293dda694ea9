#pragma once

#include "materials/HygMaterialDBCache.h"

#include <QStringList>
#include <QThread>

#include <atomic>
#include <mutex>
#include <set>

/// Scans the built-in and the user's material directory in a thread of its own. Its functions are called from the thread
/// that made it, where the signals arrive too.
class HygThreadMaterialDBUpdater : public QThread {
    Q_OBJECT
public:
    struct Places {
        QString builtIn; ///< directory
        QString user;    ///< directory, made if it is not there
        QString cache;   ///< file
    };

    HygThreadMaterialDBUpdater(Places places, QString version, QObject * parent = nullptr);
    /// Cancels and waits.
    ~HygThreadMaterialDBUpdater() override;

    /// Starts a scan; one that is running will be followed by another.
    void update();
    /// Ends a running scan with what it has found so far.
    void cancel() { m_isCancelled = true; }

    /// The result of the latest scan, nullptr before the first.
    HygMaterialDBScanPtr result() const;
    /// Files done and to be done of the running scan.
    int done() const { return m_done; }
    int total() const { return m_total; }

    /// The files of a database directory.
    static const QStringList & nameFilters();

signals:
    /// At most every 50 ms: done() and total() have changed.
    void progressed();
    /// result() is a new one.
    void updated();

protected:
    void run() override;

private:
    /// The directories and then their files.
    std::shared_ptr<HygMaterialDBScan> fetch();
    /// The files of a directory; what is wrong with it is logged and noted.
    void list(const QString & directory, HygMaterialDBEntry::origin_t origin, HygMaterialDBScan & scan);
    /// Takes what is known of a file, else reads it. False if the file has vanished.
    bool store(HygMaterialDBEntry & entry, HygMaterialDBScan & scan);
    static void problem(HygMaterialDBScan & scan, const std::string & text);
    void finish();

    const Places m_places;
    std::atomic<bool> m_isCancelled{false};
    std::atomic<int> m_done{0};
    std::atomic<int> m_total{0};
    bool m_isWanted = false; ///< once more, when the running scan is done
    mutable std::mutex m_mutex;
    HygMaterialDBScanPtr m_result; ///< under m_mutex

    // Of the thread.
    HygMaterialDBCache m_cache;
    bool m_isCacheRead = false;
    std::set<QString> m_reported; ///< problems that stand in the log
};
