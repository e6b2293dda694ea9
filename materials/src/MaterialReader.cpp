#include <MM/Material.h>

#include "BaseParameters.h"
#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>
#include <KOR/Version.h>

#include <algorithm>

namespace MM {

namespace {

constexpr const char * READ = "[Material::read]";
constexpr const char * READ_ASCII = "[Material::readASCII]";
constexpr const char * READ_LINE = "[Material::readASCIIParameterFromLine]";

constexpr std::string_view MAGIC_ASCII = "H6MA";
constexpr std::string_view MAGIC_BINARY = "H6MB";
constexpr std::size_t HEADER_SIZE = 16;

/// Lines of a section, measured data apart: far more than there are keywords and functions, few enough to be warned
/// about one by one.
constexpr std::size_t MAX_LINES = 10'000;
/// Lines of a file, measured data included.
constexpr std::ptrdiff_t MAX_FILE_LINES = 1'000'000;

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// A version field of the header: the first of four characters is decoration, the rest is a number.
int versionField(std::string_view field) {
    const auto number = KOR::parseInteger<int>(field.substr(1));
    if (!number || field.find_first_not_of("0123456789", 1) != std::string_view::npos)
        throw KOR::Exception(KOR::text("Invalid version '%1' in the header of a material file.", shown(field)), READ);
    return *number;
}

/// Old files were written in the code page of their author: bytes that are no UTF-8 are taken for Latin-1.
std::string toUtf8(std::string content) {
    if (content.find('\0') != std::string::npos)
        throw KOR::Exception("The file holds binary data, not the text of a material.", READ);
    if (KOR::validUtf8Length(content) == content.size())
        return content;
    std::string converted;
    converted.reserve(content.size() + content.size() / 8);
    for (const char c : content) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80)
            converted += static_cast<char>(0xC0 | (byte >> 6));
        converted += byte >= 0x80 ? static_cast<char>(0x80 | (byte & 0x3F)) : c;
    }
    return converted;
}

/// The lines of one section.
template <typename Sections> struct SectionLines {
    Sections section;
    std::span<const std::string_view> lines;
};

constexpr std::string_view MEASURED = "MEASURED_DATA";

/// Cuts the lines at the section lines. What stands before the first one is given back in \p head.
template <typename Sections>
std::vector<SectionLines<Sections>> splitSections(std::span<const std::string_view> lines,
                                                  std::span<const std::string_view> & head) {
    std::vector<SectionLines<Sections>> sections;
    std::size_t begin = 0;
    const auto close = [&](std::size_t end) {
        (sections.empty() ? head : sections.back().lines) = lines.subspan(begin, end - begin);
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view name = bracketed(lines[i]);
        if (name.empty() || !KeywordList::KeywordExists<Sections>(name))
            continue;
        close(i);
        const auto section = KeywordList::Enumeration<Sections>(name);
        for (const auto & known : sections)
            if (known.section == section)
                throw KOR::Exception(KOR::text("Section '%1' is given twice.", name), READ_ASCII);
        sections.push_back({section, {}});
        begin = i + 1;
    }
    close(lines.size());
    for (const auto & [section, content] : sections)
        if (content.size() > MAX_LINES && KeywordList::Keyword(section) != MEASURED)
            throw KOR::Exception(
                KOR::text("Section '%1' has more than %2 lines.", KeywordList::Keyword(section), MAX_LINES),
                READ_ASCII);
    if (head.size() > MAX_LINES)
        throw KOR::Exception(KOR::text("More than %1 lines before the first section.", MAX_LINES), READ_ASCII);
    return sections;
}

bool hasContent(std::span<const std::string_view> lines) {
    return !std::all_of(lines.begin(), lines.end(), isComment);
}

} // namespace

void Material::read(const std::string & path) {
    log(KOR::text("Reading material file '%1'.\n", path), KOR::MSG_PROGRESS, READ, DETAIL);
    clear();
    std::string head;
    try {
        head = KOR::readFileHead(path, HEADER_SIZE);
        if (head.starts_with(MAGIC_BINARY))
            throw KOR::Exception("Binary material files cannot be read.", READ);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Cannot open file: '%1'", path), READ);
    }
    std::string content;
    try {
        content = KOR::readFile(path, MAX_FILE_SIZE);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error opening material file (again) in ASCII mode.", READ);
    }
    readContent(std::move(content), path);
}

void Material::readContent(std::string content, const std::string & path) {
    clear();
    m_path = path;
    const auto id = idFromPath(path);
    if (!id && !path.ends_with(".mat"))
        log(KOR::text("Invalid format for material file, '<name>_xxx.m6' expected, with xxx as ID number. Filename was "
                      "'%1'.",
                      path),
            KOR::MSG_WARNING, READ);
    m_id = id.value_or(0);
    try {
        if (content.starts_with(BYTE_ORDER_MARK)) // left by a text editor
            content.erase(0, BYTE_ORDER_MARK.size());
        if (content.starts_with(MAGIC_BINARY))
            throw KOR::Exception(KOR::text("Cannot open file: '%1'", path), READ);
        const bool preV6 = !content.starts_with(MAGIC_ASCII);
        m_versionMajor = 5;
        m_versionMinor = 6;
        if (!preV6) {
            if (content.size() < HEADER_SIZE || content.compare(4, KOR::SECOND_MAGIC.size(), KOR::SECOND_MAGIC) != 0)
                throw KOR::Exception("Wrong second magic number in V6 - ASCII material file!", READ);
            m_versionMajor = versionField(std::string_view(content).substr(8, 4));
            m_versionMinor = versionField(std::string_view(content).substr(12, 4));
            content.erase(0, HEADER_SIZE);
        }
        content = toUtf8(std::move(content));
        if (content.find('\n') == std::string::npos) // line ends of long ago
            std::replace(content.begin(), content.end(), '\r', '\n');
        if (std::count(content.begin(), content.end(), '\n') > MAX_FILE_LINES)
            throw KOR::Exception(KOR::text("The file has more than %1 lines.", MAX_FILE_LINES), READ);
        const std::vector<std::string_view> lines = splitLines(content);
        std::span<const std::string_view> rest = lines;
        if (preV6) {
            while (!rest.empty() && isComment(rest.front()))
                rest = rest.subspan(1);
            if (rest.empty())
                throw KOR::Exception("Bad header in material file.", READ);
            if (rest.front().find("[MATERIAL]") != std::string_view::npos)
                rest = rest.subspan(1);
        }
        readASCII(rest, preV6);
    } catch (const KOR::Exception & ex) {
        clear();
        throw KOR::Exception(ex, KOR::text("Error reading material from file '%1'.", path), READ);
    }
}

void Material::readASCII(std::span<const std::string_view> lines, bool preV6) {
    try {
        std::span<const std::string_view> head;
        if (preV6) {
            const auto sections = splitSections<SectionsPreV6>(lines, head);
            readSectionPreV6(SectionsPreV6::MATERIAL, head);
            for (const auto & [section, content] : sections)
                readSectionPreV6(section, content);
            return;
        }
        const auto sections = splitSections<Sections>(lines, head);
        for (const std::string_view line : head)
            if (!isComment(line))
                throw KOR::Exception(KOR::text("Expected a section line, got '%1'!", shown(line)), READ_ASCII);
        bool hasV = false;
        bool hasW = false;
        for (const auto & [section, content] : sections) {
            readSection(section, content);
            if (section >= Sections::MOISTURE_TRANSPORT_V && section <= Sections::AIR_TRANSPORT_V)
                hasV = hasV || hasContent(content);
            if (section >= Sections::MOISTURE_TRANSPORT_W && section <= Sections::AIR_TRANSPORT_W)
                hasW = hasW || hasContent(content);
        }
        if (hasW && !hasV && m_allowWithoutV != 1)
            throw KOR::Exception("Found W-direction parameters but no V-direction parameters are given. Invalid "
                                 "anisotropic material format!",
                                 READ_ASCII);
    } catch (const KOR::Exception & ex) {
        const std::string message = m_path.empty() ? KOR::text("Error reading material '%1'.", name())
                                                   : KOR::text("Error reading material file '%1'.", m_path);
        clear();
        throw KOR::Exception(ex, message, READ_ASCII);
    }
}

void Material::readSection(Sections section, std::span<const std::string_view> lines) {
    switch (section) {
    case Sections::IDENTIFICATION:
        m_identification.read(lines);
        break;
    case Sections::STORAGE_BASE_PARAMETERS:
    case Sections::TRANSPORT_BASE_PARAMETERS:
    case Sections::MECHANICAL_BASE_PARAMETERS:
        for (const std::string_view line : withoutComments(lines))
            readASCIIParameterFromLine(line);
        break;
    case Sections::THERMAL_STORAGE:
        m_thermalStorage.read(lines);
        break;
    case Sections::MOISTURE_STORAGE:
        m_moistureStorage.read(lines);
        break;
    case Sections::MEASURED_DATA:
        m_measuredData.read(lines);
        break;
    case Sections::VAPOR_CONTACT_RESISTANCE:
        try {
            m_vaporContactResistance.read(lines);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, "Error reading material vapor transport resistance section!", READ_ASCII);
        }
        break;
    default: {
        // Moisture, heat and air for direction u, then the same for v and w.
        const std::size_t row = indexOf(section) - indexOf(Sections::MOISTURE_TRANSPORT);
        const std::size_t direction = row / 3;
        if (row % 3 == 0)
            m_moistureTransport[direction].read(lines);
        else if (row % 3 == 1)
            m_thermalTransport[direction].read(lines);
        else
            m_airTransport[direction].read(lines);
    }
    }
}

void Material::readSectionPreV6(SectionsPreV6 section, std::span<const std::string_view> lines) {
    switch (section) {
    case SectionsPreV6::IDENTIFICATION:
        m_identification.read(lines, true);
        break;
    case SectionsPreV6::MRC:
        m_moistureStorage.read(lines);
        break;
    case SectionsPreV6::MOISTTRANS:
        m_moistureTransport[0].read(lines);
        break;
    case SectionsPreV6::HEATTRANS:
        m_thermalTransport[0].read(lines);
        break;
    case SectionsPreV6::AIRTRANS:
        m_airTransport[0].read(lines);
        break;
    case SectionsPreV6::PCMMATERIAL:
        m_thermalStorage.read(lines);
        break;
    case SectionsPreV6::MATERIAL:
    case SectionsPreV6::GENERAL:
    case SectionsPreV6::PARAMETER:
        for (const std::string_view line : withoutComments(lines))
            readASCIIParameterFromLine(line);
        break;
    }
}

void Material::readASCIIParameterFromLine(std::string_view line) {
    try {
        const std::size_t equals = line.find('=');
        const auto [keyword, value] = KeywordLine(line);
        if (equals == std::string_view::npos || keyword.empty())
            throw KOR::Exception(KOR::text("Expected keyword, got '%1'!", shown(line)), READ_LINE);
        if (value.empty())
            throw KOR::Exception(KOR::text("Missing value to parameter %1.", shown(keyword)), READ_LINE);
        if (keyword == "NAME")
            m_identification.m_name.set("en", value);
        else if (keyword == "FLAGS")
            m_identification.setFlagsPreV6(value);
        else
            setParameterFromText(keyword, value);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error reading material base parameter section!", READ_LINE);
    }
}

void Material::setParameterFromText(std::string_view keyword, std::string_view value) {
    struct Table {
        std::string_view category;
        std::span<KOR::Parameter> parameters;
    };
    const Table tables[] = {
        {KOR::enumerationName<ParaTransport>(),  m_paraTransport },
        {KOR::enumerationName<ParaStorage>(),    m_paraStorage   },
        {KOR::enumerationName<ParaMechanical>(), m_paraMechanical},
    };
    for (const auto & [category, parameters] : tables) {
        if (!KeywordList::KeywordExists(category, keyword))
            continue;
        bool isDeprecated = false;
        const int index = KeywordList::Enumeration(category, keyword, &isDeprecated);
        if (isDeprecated)
            log(KOR::text("Keyword '%1' is deprecated (new -> '%2').", keyword, KeywordList::Keyword(category, index)),
                KOR::MSG_WARNING, READ_LINE);
        parameters[static_cast<std::size_t>(index)] = parameterFromText(category, index, value);
        return;
    }
    throw KOR::Exception(KOR::text("Invalid or deprecated keyword '%1'.", shown(keyword)), READ_LINE);
}

std::optional<unsigned int> Material::idFromPath(std::string_view path) {
    std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    name = name.substr(0, name.rfind('.'));
    const std::size_t underscore = name.rfind('_');
    if (underscore == std::string_view::npos)
        return std::nullopt;
    name.remove_prefix(underscore + 1);
    if (name.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    return KOR::parseInteger<unsigned int>(name);
}

} // namespace MM
