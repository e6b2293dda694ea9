#pragma once

#include <HYGRION/Project.h>

#include <QIcon>
#include <QObject>
#include <QString>

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
        QString category; ///< of the database, for a tool tip
    };

    explicit HygMaterialOffer(QObject * parent = nullptr);
    ~HygMaterialOffer() override;

    /// Reads the database, at the first call of anybody.
    void start();
    /// Shows names in the language of the program.
    void retranslate();
    /// Own materials in their order, then the others by name.
    std::vector<Entry> entries(const HYGRION::Project & project) const;
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
    std::shared_ptr<HygMaterialDB> m_database; ///< the one of all widgets
};
