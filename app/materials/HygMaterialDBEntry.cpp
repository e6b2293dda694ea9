#include "materials/HygMaterialDBEntry.h"

#include <MM/Material.h>

#include <KOR/Exception.h>

#include <QDateTime>
#include <QFileInfo>

#include <cmath>
#include <limits>

namespace {

using Storage = MM::Material::ParaStorage;
using Transport = MM::Material::ParaTransport;

constexpr double NOT_GIVEN = std::numeric_limits<double>::quiet_NaN();
constexpr double HUMIDITY_W80 = 0.8;

template <typename Parameter> double valueOf(const MM::Material & material, Parameter which) {
    const KOR::Parameter & parameter = material.parameter(which);
    return parameter.empty()
               ? NOT_GIVEN
               : parameter.get_value(MM::KeywordList::Unit(KOR::enumerationName<Parameter>(), static_cast<int>(which)));
}

/// Moisture content [kg/m3] at 80 % relative humidity: as the file says, else by its storage function.
double contentAt80(const MM::Material & material) {
    if (const double given = valueOf(material, Storage::THETA_80); !std::isnan(given))
        return given * MM::RHO_WATER;
    if (material.hasFlag(MM::MaterialIdentification::Flags::AIR) || material.m_identification.isTight())
        return NOT_GIVEN;
    try {
        MM::MoistureStorage storage = material.m_moistureStorage;
        storage.prepareCalculation(material);
        return storage.Thetal_RH(HUMIDITY_W80) * MM::RHO_WATER;
    } catch (const KOR::Exception &) {
        return NOT_GIVEN; // the check of the material says why
    }
}

} // namespace

HygMaterialDBEntry HygMaterialDBEntry::ofFile(const QString & path, origin_t origin) {
    HygMaterialDBEntry entry;
    entry.path = path;
    entry.origin = origin;
    entry.id = MM::Material::idFromPath(path.toStdString()).value_or(0);
    entry.values.fill(NOT_GIVEN);
    const QFileInfo file(path);
    entry.size = file.exists() ? file.size() : -1;
    if (entry.size >= 0) {
        entry.modified = file.lastModified().toMSecsSinceEpoch();
        entry.changed = file.metadataChangeTime().toMSecsSinceEpoch();
    }
    return entry;
}

void HygMaterialDBEntry::readMaterial() {
    MM::Material material;
    material.read(path.toStdString());
    const MM::MaterialIdentification & identification = material.m_identification;
    id = material.m_id;
    name = identification.m_name;
    producer = identification.m_producer;
    for (std::size_t i = 0; i < categories.size(); ++i)
        categories[i] = static_cast<quint8>(identification.m_category.id(i));
    const double saturation = valueOf(material, Storage::THETA_EFF) * MM::RHO_WATER;
    values = {valueOf(material, Storage::RHO),   valueOf(material, Storage::CE), valueOf(material, Transport::LAMBDA),
              valueOf(material, Transport::MEW), contentAt80(material),          saturation,
              valueOf(material, Transport::AW)};
    if (identification.m_colour)
        color = identification.m_colour->argb();
    if (identification.m_hatching)
        hatching = static_cast<int>(*identification.m_hatching);
}
