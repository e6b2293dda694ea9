#include <HYGRION/Interval.h>

#include "XmlParts.h"

#include <limits>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[Interval::readXML]",
    .missingAttr = {},
    .unknownTag = "Expected element 'KOR:Parameter' in 'Interval' element.",
    .wrapping = {},
    .inChildCause = "%1\nError reading KOR:Parameter element in 'Interval' element.",
};
constexpr NamedValueTexts VALUES{.where = TEXTS.where};

[[noreturn]] void refuse(std::string message) {
    throw KOR::Exception(std::move(message), "[Interval::checkParameters]");
}

} // namespace

double Interval::start() const {
    return m_para.value(para_t::Start, "s").value_or(0);
}

double Interval::end() const {
    if (const auto duration = m_para.value(para_t::Duration, "s"))
        return start() + *duration;
    return m_para.value(para_t::End, "s").value_or(std::numeric_limits<double>::infinity());
}

double Interval::stepSize() const {
    return m_para.value(para_t::StepSize, "s").value_or(0);
}

void Interval::readXML(const TiXmlElement & element) {
    Interval read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::any("KOR:Parameter", xml::into(read.m_para, VALUES)),
        });
    });
    *this = std::move(read);
}

void Interval::writeXML(TiXmlElement & parent) const {
    m_para.writeXML(xml::appendElement(parent, "Interval"));
}

void Interval::checkParameters() const {
    if (start() < 0)
        refuse("Parameter 'Start' of the interval must not be negative.");
    if (m_para.contains(para_t::End) && m_para.contains(para_t::Duration))
        refuse("Parameters 'End' and 'Duration' of the interval exclude one another.");
    if (end() <= start())
        refuse(KOR::text("Parameter '%1' of the interval must lie after its start.",
                         m_para.contains(para_t::Duration) ? "Duration" : "End"));
    if (m_para.contains(para_t::StepSize) && stepSize() <= 0)
        refuse("Parameter 'StepSize' of the interval must be positive.");
}

} // namespace HYGRION
