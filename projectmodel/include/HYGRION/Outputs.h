#pragma once

#include <HYGRION/NamedSet.h>
#include <HYGRION/OutputFile.h>
#include <HYGRION/OutputGrid.h>

#include <KOR/Unit.h>

#include <vector>

class TiXmlElement;

namespace HYGRION {

/// What the solver writes and when: the section "Outputs" of the project file.
class Outputs {
public:
    enum class para_t { MaximumHygricRH, ThermalExpansionTRef, HygricExpansionRHRef };
    enum class intpara_t { AsciiPrecision };
    enum class flag_t {
        BinaryFormat,          ///< result files are binary (h6b), else text (h6o); on unless the project says otherwise
        CreateDirectoryPerGrid ///< the files of each output grid get a directory of their own
    };

    KOR::Unit m_timeUnit = KOR::Unit("h"); ///< of the times in result files
    ParaSet<para_t> m_para;
    IntParaSet<intpara_t> m_intPara;
    FlagSet<flag_t> m_flag;
    std::vector<OutputGrid> m_outputGrids;
    std::vector<OutputFile> m_outputFiles;

    bool isBinary() const { return m_flag.isEnabled(flag_t::BinaryFormat, true); }
    /// Significant digits in text files, 6 unless the project says otherwise.
    int asciiPrecision() const { return m_intPara.value(intpara_t::AsciiPrecision).value_or(6); }

    /// Throws ("[Outputs::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends the section with its comment; nothing when there is nothing to write.
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[Outputs::checkParameters]"), naming the parameter, digits outside 1..17 and parameters out of their
    /// limits, and what output grids and files refuse.
    void checkParameters() const;

    bool operator==(const Outputs &) const = default;
};

} // namespace HYGRION
