#include <MM/Material.h>

#include "Lines.h"

#include <KOR/Exception.h>

#include <algorithm>

namespace MM {

const KOR::Parameter & Material::parameter(ParaTransport which, int direction) const {
    constexpr std::size_t STRIDE = indexOf(ParaTransport::LAMBDA_V);
    for (auto back = static_cast<std::size_t>(direction); back > 0; --back)
        if (const KOR::Parameter & own = m_paraTransport[indexOf(which) + back * STRIDE]; !own.empty())
            return own;
    return parameter(which);
}

std::string Material::name(std::string_view language) const {
    const std::string & given = m_identification.m_name.get(language);
    if (!given.empty())
        return given;
    const std::size_t start = m_path.find_last_of("/\\") + 1;
    return m_path.substr(start, m_path.rfind('.') - start);
}

bool Material::hasDirection(int direction) const {
    const auto d = static_cast<std::size_t>(direction);
    if (!m_moistureTransport[d].empty() || !m_thermalTransport[d].empty() || !m_airTransport[d].empty())
        return true;
    const auto first = m_paraTransport.begin() + static_cast<std::ptrdiff_t>(d * indexOf(ParaTransport::LAMBDA_V));
    return std::any_of(first, first + indexOf(ParaTransport::LAMBDA_V),
                       [](const auto & para) { return !para.empty(); });
}

int Material::effectiveDirection(int direction) const {
    while (direction > 0 && !hasDirection(direction))
        --direction;
    return direction;
}

void Material::clear() {
    const int allowWithoutV = m_allowWithoutV;
    *this = Material();
    m_allowWithoutV = allowWithoutV;
}

void Material::prepareCalculation() {
    try {
        m_moistureStorage.prepareCalculation(*this);
        m_thermalStorage.prepareCalculation(*this);
        for (int direction = 0; direction < static_cast<int>(NUM_DIRECTIONS); ++direction) {
            const auto d = static_cast<std::size_t>(direction);
            if (effectiveDirection(direction) != direction)
                continue;
            m_moistureTransport[d].prepareCalculation(*this, direction);
            m_thermalTransport[d].prepareCalculation(*this, direction);
            m_airTransport[d].prepareCalculation(*this, direction);
        }
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error preparing material '%1' for calculation.", name()),
                             "[Material::prepareCalculation]");
    }
}

bool Material::operator==(const Material & other) const {
    return m_id == other.m_id && m_identification == other.m_identification && m_paraStorage == other.m_paraStorage &&
           m_paraTransport == other.m_paraTransport && m_paraMechanical == other.m_paraMechanical &&
           m_moistureStorage == other.m_moistureStorage && m_thermalStorage == other.m_thermalStorage &&
           m_moistureTransport == other.m_moistureTransport && m_thermalTransport == other.m_thermalTransport &&
           m_airTransport == other.m_airTransport && m_vaporContactResistance == other.m_vaporContactResistance &&
           m_measuredData == other.m_measuredData;
}

} // namespace MM
