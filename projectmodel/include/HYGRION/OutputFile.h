#pragma once

#include <KOR/Unit.h>

#include <string>

class TiXmlElement;

namespace HYGRION {

/// What is written into one result file, how it is aggregated and on which output grid.
class OutputFile {
public:
    enum class space_type_t { Single, Mean, Integral, Min, Max };
    enum class time_type_t { None, Mean, Integral, Min, Max };

    std::string m_name;
    std::string m_quantity; ///< output quantity of the solver
    KOR::Unit m_outputUnit; ///< undefined: the quantity's own
    time_type_t m_timeType = time_type_t::None;
    space_type_t m_spaceType = space_type_t::Single;
    std::string m_outputGrid; ///< name of the output grid

    /// Throws ("[OutputFile::readXML]") with the element's line. Renames quantities of older files, with a message.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[OutputFile::checkParameters]") a missing quantity or output grid.
    void checkParameters() const;

    bool operator==(const OutputFile &) const = default;
};

} // namespace HYGRION
