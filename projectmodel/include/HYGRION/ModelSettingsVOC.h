#pragma once

#include <KOR/Path.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// The pollutant of a simulation with VOC transport.
class ModelSettingsVOC {
public:
    /// Which pollutant data belong to a material; written "material==voc".
    struct MaterialMapping {
        std::string m_material; ///< name of the material
        std::string m_voc;      ///< identifier in the VOC database
        bool operator==(const MaterialMapping &) const = default;
    };

    KOR::Path m_vocDatabase;
    std::string m_vocID;
    std::vector<MaterialMapping> m_materialMapping;

    /// Throws ("[ModelSettingsVOC::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends "ModelSettingsVOC"; nothing when there is nothing to write.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const ModelSettingsVOC &) const = default;
};

} // namespace HYGRION
