#pragma once

#include "materials/HygMaterialDBTableModel.h"
#include "materials/HygThreadMaterialDBUpdater.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <set>

/// The material database of the program: both directories, kept up to date while anybody uses it. All widgets share one.
class HygMaterialDB : public QObject {
    Q_OBJECT
public:
    HygMaterialDB(const HygThreadMaterialDBUpdater::Places & places, const QString & language,
                  QObject * parent = nullptr);

    /// The one of the settings in force; it lives as long as somebody holds it.
    static std::shared_ptr<HygMaterialDB> shared();

    HygMaterialDBTableModel & model() { return m_model; }
    HygThreadMaterialDBUpdater & updater() { return m_updater; }
    const QString & userDirectory() const { return m_places.user; }
    /// Directories that could not be read at the last scan.
    QStringList problems() const;

    /// Scans at the first call; from then on the directories are watched.
    void start();
    /// Scans again, though only what has changed is read.
    void rescan();
    bool isScanning() const { return m_updater.isRunning(); }

    bool isBuiltIn(const QString & path) const;
    const QStringList & favourites() const { return m_favourites; }
    void setFavourites(const QStringList & fileNames);
    void setFavourite(const QString & path, bool isFavourite);
    /// Shows names and texts in a language.
    void setLanguage(const QString & language) { m_model.setLanguage(language); }

    /// An ID that no file of the database has.
    unsigned int freeId() const;
    /// Copies a material into the user's directory, under a new ID and a name that says so; the window waits for it.
    /// \return its path
    /// Throws ("[HygMaterialDB::copyToUser]") "Cannot copy material '%1'.".
    QString copyToUser(const QString & path);
    /// The ending for the names of a copy, "(copy 2)", with which no material has them. \param isGerman "(Kopie 2)"
    static QString copyEnding(int number, bool isGerman);
    /// Path for a new material in the user's directory, made from its name.
    QString newPath(const QString & name, unsigned int id) const;

signals:
    /// A scan has begun, goes on, or has ended.
    void scanChanged();
    void favouritesChanged();
    /// The file has changed or gone.
    void fileChanged(const QString & path);
    /// The user has chosen the material for what is selected elsewhere.
    void assignRequested(const QString & path);

private:
    void takeOver();
    void watch();

    const HygThreadMaterialDBUpdater::Places m_places;
    HygMaterialDBTableModel m_model;
    HygThreadMaterialDBUpdater m_updater;
    QFileSystemWatcher m_watcher;
    QTimer m_changeTimer; ///< several changes in a row are one
    QStringList m_favourites;
    std::set<QString> m_copied; ///< names of copies that the scan may not have found yet
    bool m_isStarted = false;
};
