#pragma once

#include <HYGRION/Project.h>

#include <QIcon>
#include <QObject>
#include <QString>

#include <map>
#include <memory>
#include <vector>

class HygMaterialDB;

/// The materials that a project can use: its own, and those of the database that it does not have yet.
class HygMaterialOffer : public QObject {
    Q_OBJECT
public:
    struct Entry {
        HYGRION::MaterialReference reference; ///< as it would stand in the project
        bool isInProject = false;
        QString category;       ///< of the database, for a tool tip
        bool isSpecial = false; ///< belongs to no kind of building material, such as those of benchmarks
    };

    explicit HygMaterialOffer(QObject * parent = nullptr);
    ~HygMaterialOffer() override;

    /// Reads the database, at the first call of anybody.
    void start();
    /// Shows names in the language of the program.
    void retranslate();
    /// Own materials in their order, then the others by name, special ones last. Each name stands for one file: where
    /// several files have it, their IDs are in it.
    std::vector<Entry> entries(const HYGRION::Project & project) const;
    /// The numbers of the entries whose names or categories hold all words of a search, the best first: words at the
    /// beginning of a name before those of its words before others, then short names before long ones. Without words all
    /// in their order.
    static std::vector<std::size_t> find(const std::vector<Entry> & entries, const QString & search);
    /// A patch of colour with the hatching.
    static QIcon swatch(const HYGRION::MaterialReference & material);
    /// How thick layers of such a material usually are [m], by its hatching.
    static double usualThickness(int hatchCode);

signals:
    /// The database has been read, or read anew.
    void changed();
    /// The user has chosen a file of the database for what is selected.
    void assignRequested(const QString & path);

private:
    /// One name for each file, however it is reached.
    const QString & canonical(const QString & path) const;

    std::shared_ptr<HygMaterialDB> m_database;      ///< the one of all widgets
    mutable std::map<QString, QString> m_canonical; ///< asked of the disk once, until the database changes
};
