#include <HYGRION/RotationMatrix.h>

#include "NumberList.h"

namespace HYGRION {

namespace {
constexpr KOR::xml::ElementTexts TEXTS{
    .where = "[RotationMatrix::readXML]",
    .missingAttr = "Expected '%1' attribute in RotationMatrixInstance.",
    .unknownTag = {},
    .wrapping = {},
};
} // namespace

bool RotationMatrix::isRotation(double tolerance) const {
    const auto & v = values;
    for (std::size_t a = 0; a < 3; ++a)
        for (std::size_t b = a; b < 3; ++b) {
            const double dot = v[3 * a] * v[3 * b] + v[3 * a + 1] * v[3 * b + 1] + v[3 * a + 2] * v[3 * b + 2];
            if (!(std::abs(dot - (a == b ? 1 : 0)) <= tolerance))
                return false;
        }
    const double determinant =
        v[0] * (v[4] * v[8] - v[5] * v[7]) - v[1] * (v[3] * v[8] - v[5] * v[6]) + v[2] * (v[3] * v[7] - v[4] * v[6]);
    return determinant > 0;
}

void RotationMatrix::readXML(const TiXmlElement & element) {
    RotationMatrix read;
    KOR::xml::readElement(element, TEXTS, [&](const KOR::xml::ElementReader & reader) {
        read.elementID = KOR::string2val<std::uint32_t>(reader.attribute("elementID"));
        read.values = readNumberList<9>(element, "[RotationMatrix::readXML]");
    });
    *this = read;
}

void RotationMatrix::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = KOR::xml::appendText(parent, "RotationMatrixInstance",
                                                  writeNumberList<9>(values, "[RotationMatrix::writeXML]"));
    KOR::xml::setAttribute(element, "elementID", KOR::toString(elementID));
}

} // namespace HYGRION
