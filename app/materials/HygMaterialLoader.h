#pragma once

#include <QObject>
#include <QString>
#include <QThreadPool>

#include <memory>

namespace MM {
class Material;
}

/// Reads materials in threads of its own and makes them ready to evaluate, so that no window waits for a file.
class HygMaterialLoader : public QObject {
    Q_OBJECT
public:
    using MaterialPtr = std::shared_ptr<const MM::Material>;
    struct Loaded {
        MaterialPtr material; ///< nullptr if the file cannot be read
        QString problem;      ///< why it cannot be read, or why its functions cannot be used
    };

    explicit HygMaterialLoader(QObject * parent = nullptr);
    /// Waits for what is being read.
    ~HygMaterialLoader() override;

    /// Answers by loaded().
    void load(const QString & path);
    /// Reads at once, in the thread of the caller.
    static Loaded read(const QString & path);

signals:
    void loaded(const QString & path, const HygMaterialLoader::Loaded & result);

private:
    QThreadPool m_threads;
};
