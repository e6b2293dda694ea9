#pragma once

#include <KOR/LangString.h>

#include <QColor>
#include <QString>

#include <array>
#include <memory>
#include <vector>

/// What the database knows of one material file without holding its functions.
struct HygMaterialDBEntry {
    enum origin_t : quint8 { BuiltIn, User };
    /// By the columns of the table, in their units.
    enum value_t { Rho, Ce, Lambda, Mew, W80, WSat, Aw, NUM_VALUES };
    static constexpr int NUM_CATEGORIES = 3;

    QString path; ///< absolute
    origin_t origin = BuiltIn;
    // By these three a file that has not changed is recognised.
    qint64 size = 0;
    qint64 modified = 0; ///< [ms since 1970]
    qint64 changed = 0;  ///< of the directory's entry for the file [ms since 1970]

    unsigned int id = 0; ///< 0 if the file's name holds none
    KOR::LangString name;
    KOR::LangString producer;
    std::array<quint8, NUM_CATEGORIES> categories{}; ///< MM::MaterialCategory::CategoryID
    std::array<double, NUM_VALUES> values{};         ///< NaN where the file gives none
    QRgb color = 0;                                  ///< 0 if the file gives none
    int hatching = -1;                               ///< index of MM::MaterialIdentification::HatchingType, -1 for none
    QString problem;                                 ///< why the file cannot be read; name and values are empty then

    bool isReadable() const { return problem.isEmpty(); }
    QString fileName() const { return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1); }
    bool isSameFile(const HygMaterialDBEntry & other) const {
        return size == other.size && modified == other.modified && changed == other.changed;
    }

    /// Identification and state of a file; nothing of its content. Its size is -1 if it is not there.
    static HygMaterialDBEntry ofFile(const QString & path, origin_t origin);
    /// Reads name, categories and values. Throws what MM::Material::read throws.
    void readMaterial();
};

/// What a scan found. It is never changed once it has been handed out.
struct HygMaterialDBScan {
    std::vector<HygMaterialDBEntry> entries; ///< built-in ones first, by path
    std::vector<QString> problems;           ///< of directories
    int numRead = 0;                         ///< files that were read, the others were known
    bool isComplete = true;                  ///< false after a cancellation
};

using HygMaterialDBScanPtr = std::shared_ptr<const HygMaterialDBScan>;
