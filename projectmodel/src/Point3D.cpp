#include <HYGRION/Point3D.h>

#include "NumberList.h"

namespace HYGRION {

void Point3D::readXML(const TiXmlElement & element) {
    const auto [px, py, pz] = readNumberList<3>(element, "[Point3D::readXML]");
    *this = {.x = px, .y = py, .z = pz};
}

void Point3D::writeXML(TiXmlElement & parent) const {
    KOR::xml::appendText(parent, "KOR:Point3D", writeNumberList<3>({x, y, z}, "[Point3D::writeXML]"));
}

} // namespace HYGRION
