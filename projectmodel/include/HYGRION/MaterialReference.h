#pragma once

#include <KOR/Color.h>
#include <KOR/Path.h>

#include <string>

class TiXmlElement;

namespace HYGRION {

/// A material of the project: its name there, how it is drawn, and the file that defines it.
class MaterialReference {
public:
    std::string m_name;   ///< identification name
    KOR::Color m_color;   ///< of the material in views
    int m_hatchCode = 0;  ///< index into the hatchings of the material library
    KOR::Path m_filename; ///< material file; may begin with a placeholder

    /// Throws with "[MaterialReference::readXML]" and the line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const MaterialReference &) const = default;
};

} // namespace HYGRION
