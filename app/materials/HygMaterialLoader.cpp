#include "materials/HygMaterialLoader.h"

#include <MM/Material.h>

#include <KOR/Exception.h>

HygMaterialLoader::HygMaterialLoader(QObject * parent) : QObject(parent) {
    m_threads.setMaxThreadCount(1); // in the order in which they are asked for
}

HygMaterialLoader::~HygMaterialLoader() {
    m_threads.clear();
    m_threads.waitForDone();
}

void HygMaterialLoader::load(const QString & path) {
    m_threads.start([this, path] {
        const Loaded result = read(path);
        QMetaObject::invokeMethod(
            this, [this, path, result] { emit loaded(path, result); }, Qt::QueuedConnection);
    });
}

HygMaterialLoader::Loaded HygMaterialLoader::read(const QString & path) {
    auto material = std::make_shared<MM::Material>();
    try {
        material->read(path.toStdString());
    } catch (const KOR::Exception & ex) {
        return {nullptr, QString::fromStdString(ex.cause())};
    }
    try {
        material->prepareCalculation();
    } catch (const KOR::Exception & ex) {
        return {material, QString::fromStdString(ex.cause())};
    }
    return {material, {}};
}
