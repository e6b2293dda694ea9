#include <MM/Material.h>

#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>

#include <sstream>

namespace MM {

namespace {

constexpr const char * WHERE = "[Material::write]";
constexpr std::string_view HEADER = "H6MARLZ! 006.001";
constexpr std::size_t INDENT = 2;

void writeParameters(std::ostream & out, std::size_t indent, std::span<const KOR::Parameter> parameters) {
    for (const KOR::Parameter & parameter : parameters)
        if (!parameter.empty())
            out << keywordColumn(indent, parameter.name(), KEYWORD_WIDTH) << "= " << parameter.valueText() << '\n';
}

void writeSectionLine(std::ostream & out, Material::Sections section) {
    out << "\n[" << KeywordList::Keyword(section) << "]\n";
}

} // namespace

void Material::writeSection(std::ostream & out, Sections section) const {
    switch (section) {
    case Sections::IDENTIFICATION:
        m_identification.write(out, INDENT);
        break;
    case Sections::STORAGE_BASE_PARAMETERS:
        writeParameters(out, INDENT, m_paraStorage);
        break;
    case Sections::TRANSPORT_BASE_PARAMETERS:
        writeParameters(out, INDENT, m_paraTransport);
        break;
    case Sections::MECHANICAL_BASE_PARAMETERS:
        writeParameters(out, INDENT, m_paraMechanical);
        break;
    case Sections::THERMAL_STORAGE:
        m_thermalStorage.write(out, INDENT);
        break;
    case Sections::MOISTURE_STORAGE:
        m_moistureStorage.write(out, INDENT);
        break;
    case Sections::MEASURED_DATA:
        m_measuredData.write(out);
        break;
    case Sections::VAPOR_CONTACT_RESISTANCE:
        m_vaporContactResistance.write(out, INDENT);
        break;
    default: {
        const std::size_t row = indexOf(section) - indexOf(Sections::MOISTURE_TRANSPORT);
        const std::size_t direction = row / 3;
        if (row % 3 == 0)
            m_moistureTransport[direction].write(out, INDENT, static_cast<int>(direction));
        else if (row % 3 == 1)
            m_thermalTransport[direction].write(out, INDENT, static_cast<int>(direction));
        else
            m_airTransport[direction].write(out, INDENT, static_cast<int>(direction));
    }
    }
}

void Material::writeASCIIParameters(std::ostream & out, std::size_t indent) const {
    const std::span<const KOR::Parameter> parameters[] = {m_paraStorage, m_paraTransport, m_paraMechanical};
    Sections section = Sections::STORAGE_BASE_PARAMETERS;
    for (const auto & list : parameters) {
        std::ostringstream lines;
        writeParameters(lines, indent, list);
        if (!lines.view().empty()) {
            writeSectionLine(out, section);
            out << lines.view();
        }
        section = static_cast<Sections>(indexOf(section) + 1);
    }
}

std::string Material::content() const {
    std::ostringstream out;
    out << HEADER << '\n';
    writeSectionLine(out, Sections::IDENTIFICATION);
    m_identification.write(out, INDENT);
    writeASCIIParameters(out, INDENT);
    // Sections without content are left out, so that directions v and w stand in files of anisotropic materials only.
    for (auto i = indexOf(Sections::THERMAL_STORAGE); i <= indexOf(Sections::VAPOR_CONTACT_RESISTANCE); ++i) {
        const auto section = static_cast<Sections>(i);
        std::ostringstream lines;
        writeSection(lines, section);
        if (!lines.view().empty()) {
            writeSectionLine(out, section);
            out << lines.view();
        }
    }
    return std::move(out).str();
}

std::string Material::pathWithId(const std::string & path, unsigned int id) {
    if (idFromPath(path) == id && path.ends_with(".m6"))
        return path;
    const std::size_t start = path.find_last_of("/\\") + 1;
    const std::size_t point = path.rfind('.');
    std::string stem = path.substr(0, point == std::string::npos || point <= start ? path.size() : point);
    if (idFromPath(path))
        stem.erase(stem.rfind('_'));
    return stem + '_' + KOR::toString(id) + ".m6";
}

std::string Material::write(const std::string & path) {
    if (path.empty() || path.back() == '/')
        throw KOR::Exception("No filename given.", WHERE);
    std::string target = pathWithId(path, m_id);
    if (target != path)
        log(KOR::text("Renaming material file name '%1' to '%2'.\n", path, target), KOR::MSG_INFORMATION, WHERE);
    try {
        KOR::writeFile(target, content());
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Couldn't write material file '%1'.", target), WHERE);
    }
    m_path = target;
    m_versionMajor = 6;
    m_versionMinor = 1;
    return target;
}

} // namespace MM
