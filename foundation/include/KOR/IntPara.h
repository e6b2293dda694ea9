#pragma once

#include <string>

class TiXmlElement;

namespace KOR {

/// A named integer. Without a name it is not set.
struct IntPara {
    std::string name;
    int value = 0;

    bool empty() const { return name.empty(); }
    /// Reads a "KOR:IntPara" element; throws with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:IntPara name=\>value\</KOR:IntPara\>.
    void writeXML(TiXmlElement & parent) const;
    bool operator==(const IntPara &) const = default;
};

} // namespace KOR
