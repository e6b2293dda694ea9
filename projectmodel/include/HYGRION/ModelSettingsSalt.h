#pragma once

#include <KOR/Path.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// The salts of a simulation with salt transport.
class ModelSettingsSalt {
public:
    KOR::Path m_saltDatabase;
    std::vector<std::string> m_saltSpeciesIDs; ///< identifiers in the salt database, without blanks

    /// Throws ("[ModelSettingsSalt::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends "ModelSettingsSalt"; nothing when there is nothing to write.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const ModelSettingsSalt &) const = default;
};

} // namespace HYGRION
