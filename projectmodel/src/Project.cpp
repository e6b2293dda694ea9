#include <HYGRION/Project.h>

#include "XmlParts.h"

#include <KOR/Directories.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

#include <set>

namespace HYGRION {

namespace {

constexpr const char * ROOT = Project::ROOT_ELEMENT;
constexpr const char * INFO = "ProjectInfo";
/// The project information of nearly every file ends within this many bytes.
constexpr std::size_t HEAD_SIZE = 64u << 10;

constexpr xml::ElementTexts PLACEHOLDERS{
    .where = "[Project::readXMLRoot]",
    .missingAttr = "Missing '%1' attribute in Placeholder element.",
    .unknownTag = "Unknown element '%1' in DirectoryPlaceholders section.",
    .wrapping = {},
};
constexpr xml::ElementTexts MATERIALS{
    .where = "[Project::readXMLRoot]",
    .missingAttr = {},
    .unknownTag = "Unknown XML tag with name '%1' in 'Materials' section.",
    .wrapping = "Error reading elements in section 'Materials'.",
};

/// The sections in the order in which they are read and written.
struct Section {
    const char * element;
    void (*read)(Project &, const TiXmlElement &);
    void (*write)(const Project &, TiXmlElement &);
};

bool isBuiltIn(const std::string & placeholder) {
    return placeholder == KOR::Path::PROJECT_DIRECTORY || placeholder == KOR::Path::INSTALL_DIRECTORY;
}

void readPlaceholder(Project & project, const TiXmlElement & element) {
    const xml::ElementReader reader(element, PLACEHOLDERS);
    const std::string name = reader.attribute("name");
    if (isBuiltIn(name))
        KOR::message(KOR::text("Placeholder '%1' is built in, its definition in the project is ignored.", name),
                     KOR::MSG_WARNING, "[Project::readXMLRoot]");
    else if (!project.m_placeholders.emplace(name, reader.text()).second)
        reader.fail(KOR::text("Placeholder '%1' is defined more than once.", name));
}

void readPlaceholders(Project & project, const TiXmlElement & element) {
    const auto readOne = [&project](const TiXmlElement & child) { readPlaceholder(project, child); };
    xml::readElement(element, PLACEHOLDERS, [&readOne](const xml::ElementReader & reader) {
        reader.children({xml::any("Placeholder", readOne)});
    });
}

void writePlaceholders(const Project & project, TiXmlElement & root) {
    if (project.m_placeholders.empty())
        return;
    KOR::xml::appendComment(root, "DirectoryPlaceholders section defines strings to be substituted with directories");
    TiXmlElement & section = xml::appendElement(root, "DirectoryPlaceholders");
    for (const auto & [name, directory] : project.m_placeholders)
        if (!isBuiltIn(name))
            xml::setAttribute(xml::appendText(section, "Placeholder", directory), "name", name);
}

void readMaterials(Project & project, const TiXmlElement & element) {
    xml::readElement(element, MATERIALS, [&project](const xml::ElementReader & reader) {
        reader.children({xml::any("MaterialReference", xml::into(project.m_materials))});
    });
}

void writeMaterials(const Project & project, TiXmlElement & root) {
    xml::writeList(root, "Materials", project.m_materials);
}

void readAssessments(Project & project, const TiXmlElement & element) {
    xml::readList(element, "Assessment", project.m_assessments, "[Project::readXMLRoot]");
}

void writeAssessments(const Project & project, TiXmlElement & root) {
    xml::writeList(root, "Assessments", project.m_assessments);
}

template <auto MEMBER> void readMember(Project & project, const TiXmlElement & element) {
    (project.*MEMBER).readXML(element);
}

template <auto MEMBER> void writeMember(const Project & project, TiXmlElement & root) {
    (project.*MEMBER).writeXML(root);
}

constexpr Section SECTIONS[] = {
    {INFO,                    &readMember<&Project::m_projectInfo>, &writeMember<&Project::m_projectInfo>},
    {"DirectoryPlaceholders", &readPlaceholders,                    &writePlaceholders                   },
    {"Init",                  &readMember<&Project::m_init>,        &writeMember<&Project::m_init>       },
    {"Materials",             &readMaterials,                       &writeMaterials                      },
    {"Discretization",        &readMember<&Project::m_disc>,        &writeMember<&Project::m_disc>       },
    {"Conditions",            &readMember<&Project::m_conditions>,  &writeMember<&Project::m_conditions> },
    {"Outputs",               &readMember<&Project::m_outputs>,     &writeMember<&Project::m_outputs>    },
    {"Assignments",           &readMember<&Project::m_assignments>, &writeMember<&Project::m_assignments>},
    {"Assessments",           &readAssessments,                     &writeAssessments                    },
};

/// "6.1"
std::string versionText(const KOR::Version & version) {
    return KOR::text("%1.%2", int{version.major}, int{version.minor});
}

KOR::Version parseVersion(const TiXmlElement & root, const std::string & text) {
    const auto parts = KOR::split(text, '.');
    const auto major = KOR::parseInteger<std::uint8_t>(parts.front());
    const auto minor = KOR::parseInteger<std::uint8_t>(parts.back());
    if (parts.size() != 2 || !major || !minor)
        throw KOR::Exception(KOR::xml::withLine(root, "Error reading version string from project file."),
                             "[Project::readXMLRoot]");
    return {.major = *major, .minor = *minor};
}

/// Refuses what would be lost when the project is written again.
void checkSections(const TiXmlElement & root) {
    std::set<std::string> seen;
    for (const TiXmlElement * child = root.FirstChildElement(); child != nullptr; child = child->NextSiblingElement()) {
        const std::string & name = child->ValueStr();
        if (std::none_of(std::begin(SECTIONS), std::end(SECTIONS),
                         [&name](const Section & section) { return name == section.element; }))
            throw KOR::Exception(KOR::xml::withLine(*child, KOR::text("Unknown element '%1' in %2.", name, ROOT)),
                                 "[Project::readXMLRoot]");
        if (!seen.insert(name).second)
            throw KOR::Exception(KOR::xml::withLine(*child, KOR::text("Section '%1' is given more than once.", name)),
                                 "[Project::readXMLRoot]");
    }
}

/// The content of the file as far as it is wanted.
std::string contentOf(const std::string & filename, bool headerOnly) {
    if (!headerOnly)
        return KOR::readFile(filename, KOR::xml::MAX_FILE_SIZE);
    std::string content = KOR::readFileHead(filename, HEAD_SIZE);
    if (content.size() == HEAD_SIZE && !KOR::xml::head(content, INFO).hasSection)
        content = KOR::readFileHead(filename, KOR::xml::MAX_FILE_SIZE);
    return content;
}

} // namespace

void Project::readXML(const std::string & filename, bool headerOnly) {
    std::string content;
    try {
        content = contentOf(filename, headerOnly);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error in line %1 of project file:\n%2", 0, ex.message()),
                             "[Project::readXML]");
    }
    Project read;
    read.readText(content, headerOnly);
    read.m_fileName = filename;
    *this = std::move(read);
}

void Project::readText(const std::string & content, bool headerOnly) {
    TiXmlDocument document;
    std::optional<KOR::xml::ParseError> error;
    if (headerOnly) {
        const KOR::xml::Head head = KOR::xml::head(content, INFO);
        error = KOR::xml::parse(head.document.empty() ? content : head.document, document);
    } else {
        error = KOR::xml::parse(content, document);
    }
    if (error)
        throw KOR::Exception(KOR::text("Error in line %1 of project file:\n%2", error->line, error->description),
                             "[Project::readXML]");
    const TiXmlElement * root = document.RootElement();
    if (root == nullptr || root->ValueStr() != ROOT)
        throw KOR::Exception("Expected HygrionProject as root node in XML file.", "[Project::readXML]");
    Project read;
    read.m_fileName = m_fileName;
    read.readXMLRoot(*root, headerOnly);
    *this = std::move(read);
}

void Project::readXMLRoot(const TiXmlElement & root, bool headerOnly) {
    if (const auto version = KOR::xml::attribute(root, "fileVersion"))
        m_fileVersion = parseVersion(root, *version);
    if (!headerOnly)
        checkSections(root);
    for (const Section & section : SECTIONS)
        if (const TiXmlElement * element = root.FirstChildElement(section.element))
            if (!headerOnly || section.element == INFO)
                section.read(*this, *element);
}

void Project::readProjectInfoXML(const TiXmlElement & element) {
    m_projectInfo.readXML(element);
}

bool Project::writeXML(const std::string & filename) const {
    constexpr const char * WHERE = "[Project::writeXML]";
    for (const std::string & name : undefinedPlaceholders())
        KOR::message(KOR::text("Placeholder '%1' is being used in one or more referenced files, but not defined within "
                               "the placeholder section",
                               name),
                     KOR::MSG_WARNING, WHERE);
    try {
        KOR::writeFile(filename, text());
        return true;
    } catch (const KOR::Exception & ex) {
        KOR::Exception(ex, KOR::text("Error writing project file '%1'", filename), WHERE).report();
        return false;
    }
}

std::string Project::text() const {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement & root = *document.LinkEndChild(new TiXmlElement(ROOT))->ToElement();
    xml::setAttribute(root, "xmlns", XML_NAMESPACE);
    xml::setAttribute(root, "fileVersion", versionText(KOR::FILE_VERSION));
    for (const Section & section : SECTIONS)
        section.write(*this, root);
    return KOR::xml::print(document);
}

KOR::Path::Placeholders Project::placeholders() const {
    KOR::Path::Placeholders all = KOR::directories::placeholders(KOR::Path(m_fileName));
    for (const auto & [name, directory] : m_placeholders)
        if (!isBuiltIn(name))
            all.insert_or_assign(name, directory);
    return all;
}

KOR::Path Project::resolved(const KOR::Path & path) const {
    const KOR::Path::Placeholders all = placeholders();
    const KOR::Path replaced = path.withReplacedPlaceholders(all);
    const auto base = all.find(KOR::Path::PROJECT_DIRECTORY);
    return base == all.end() ? replaced : replaced.absolutePath(KOR::Path(base->second));
}

std::vector<std::string> Project::undefinedPlaceholders() const {
    std::vector<KOR::Path> paths;
    forEachPath(*this, [&paths](const KOR::Path & path, const std::string &) { paths.push_back(path); });
    std::vector<std::string> names;
    for (const std::string & name : KOR::Path::usedPlaceholders(paths))
        if (!isBuiltIn(name) && !m_placeholders.contains(name))
            names.push_back(name);
    return names;
}

void Project::GUISanityChecks() const {
    try {
        m_disc.checkParameters();
        m_assignments.checkParameters(m_disc);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Project has invalid/missing parameters.", "[Project::GUISanityChecks]");
    }
}

std::string Project::assignmentLabel(std::size_t index) const {
    const std::string & name = m_assignments.m_list[index].m_name;
    return name.empty() ? KOR::text("#%1", index + 1) : name;
}

} // namespace HYGRION
