#pragma once

#include <HYGRION/Project.h>

#include <QCoreApplication>
#include <QString>

#include <functional>

/// A project with the material and climate files that it refers to, in one zip file (*.h6pp) that can be opened on another
/// computer. Packages may come from anywhere: nothing of what they say is believed before it is counted.
class HygProjectPackage {
    Q_DECLARE_TR_FUNCTIONS(HygProjectPackage)
public:
    static constexpr const char * FILE_EXTENSION = "h6pp";
    static constexpr quint64 MAX_SIZE = 256u << 20; ///< of all files unpacked [bytes]
    static constexpr int MAX_ENTRIES = 10'000;

    /// Asked now and then; when it says true the work ends without a result.
    using IsStopped = std::function<bool()>;

    /// Writes a package. The project in it refers to the files in it by "${Project Directory}/...".
    /// Throws ("[HygProjectPackage::write]") when a file that the project refers to is missing or cannot be read, naming
    /// all of them, when they are too large together, or when the package cannot be written.
    static void write(const HYGRION::Project & project, const QString & package, const IsStopped & isStopped = {});

    /// Unpacks a package into a new folder below \p folder, named like the package. Either all of it is there afterwards or
    /// nothing. \return the project file; empty if it was stopped
    /// Throws ("[HygProjectPackage::extract]") and names the entry: links and other special files; absolute names and those
    /// that lead out of the folder; encrypted, doubled and damaged entries; more than MAX_ENTRIES or MAX_SIZE, counted while
    /// unpacking; sizes that are not true; no project file or several at the top.
    static QString extract(const QString & package, const QString & folder, const IsStopped & isStopped = {});
};
