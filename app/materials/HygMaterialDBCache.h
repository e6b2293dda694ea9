#pragma once

#include "materials/HygMaterialDBEntry.h"

#include <unordered_map>

/// What earlier scans have read, kept in one file between two runs of the program. The file may be deleted at any time: a
/// file that is missing, damaged or of another version is an empty cache.
class HygMaterialDBCache {
public:
    /// \param version of the program: another one may read materials differently
    HygMaterialDBCache(QString file, QString version) : m_file(std::move(file)), m_version(std::move(version)) {}

    void read();
    /// Replaces the content. A failure is only a warning.
    void write(const std::vector<HygMaterialDBEntry> & entries);

    std::size_t size() const { return m_entries.size(); }
    /// What is known of the file in the state that \p file describes, or nullptr.
    const HygMaterialDBEntry * find(const HygMaterialDBEntry & file) const;

private:
    struct Hash {
        std::size_t operator()(const QString & text) const { return qHash(text); }
    };
    void take(const std::vector<HygMaterialDBEntry> & entries);

    QString m_file;
    QString m_version;
    std::unordered_map<QString, HygMaterialDBEntry, Hash> m_entries; ///< by path
};
