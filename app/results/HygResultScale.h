#pragma once

#include "results/HygResultFile.h"

#include <QObject>

#include <atomic>
#include <set>

/// The range of all values of all times, so that what moves is the result and not its scale. Known in part at once from a
/// few records; another thread looks through the rest and widens it once.
class HygResultScale : public QObject {
    Q_OBJECT
public:
    explicit HygResultScale(QObject * parent = nullptr);
    ~HygResultScale() override;

    /// Forgets all: for other files.
    void clear();
    /// Takes in some records of the file, spread over its times; no more than is read in a moment.
    /// \param isAmount of fluxes their amounts count
    void sample(HygResultFile & file, bool isAmount);
    /// Has all records looked through, once; of large files by another thread.
    /// \param humidity of the same places: dew points are meant; empty: the values
    /// \param unit in which the range is told
    void scan(const HygResultFile & file, const QString & humidity, KOR::Unit unit, bool isRight);
    /// \param isRight of the right axis
    void include(double value, bool isRight = false);
    /// Of the left and the right axis, in their units; NOTHING_SEEN.
    const SCI::Range & seen(bool isRight) const { return m_seen[isRight ? 1 : 0]; }
    /// Whether all records have been looked through.
    bool isComplete() const { return m_pending == 0; }

signals:
    /// A scan in another thread is done; the range may be another.
    void scanned();

private:
    SCI::Range m_seen[2] = {HygResultFile::NOTHING_SEEN, HygResultFile::NOTHING_SEEN};
    std::set<QString> m_known; ///< what has been scanned or is being scanned
    int m_pending = 0;
    /// Answers to earlier questions are dropped. The readers look at it too, whatever has become of the scale.
    std::shared_ptr<std::atomic<int>> m_generation = std::make_shared<std::atomic<int>>(0);
};
