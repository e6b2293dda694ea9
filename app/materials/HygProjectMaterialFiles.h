#pragma once

#include "materials/HygMaterialLoader.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <map>
#include <vector>

class HygProjectHandler;

/// The files of the project's materials: whether they are there and can be used, and whether they have changed since the
/// project was opened. Whoever shows a material asks here.
class HygProjectMaterialFiles : public QObject {
    Q_OBJECT
public:
    enum state_t {
        Unknown, ///< not read yet
        Good,
        Changed, ///< on the disk, since it was read first
        Missing,
        Broken ///< cannot be read or prepared
    };
    struct File {
        state_t state = Unknown;
        QString problem; ///< for the user; empty if there is none
        HygMaterialLoader::MaterialPtr material;
    };

    /// The one of a project handler, which owns it.
    static HygProjectMaterialFiles & of(HygProjectHandler & projects);

    /// Why there is no file of a material at a path; empty if there is one.
    static QString absence(const QString & path);

    /// By the index of the material in the project.
    File file(std::size_t index) const;
    /// By the index of the material in the project: why its file cannot be used; empty if it can or is not read yet.
    std::vector<QString> problems() const;
    /// Takes a changed file for what it is now.
    void accept(std::size_t index);

signals:
    void changed();
    /// For a notice: the files that have just changed.
    void changedOnDisk(const QString & path);

private:
    explicit HygProjectMaterialFiles(HygProjectHandler & projects);

    void update();
    void check(const QString & path);
    void takeOver(const QString & path, const HygMaterialLoader::Loaded & result);

    HygProjectHandler & m_projects;
    HygMaterialLoader m_loader;
    QFileSystemWatcher m_watcher;
    QTimer m_updateTimer;
    QString m_projectFile;
    std::map<QString, File> m_files; ///< by path
};
