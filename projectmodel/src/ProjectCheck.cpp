#include <HYGRION/ProjectCheck.h>

#include <KOR/FileIO.h>
#include <KOR/MessageCollector.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>
#include <KOR/Xml.h>

#include <algorithm>
#include <set>

namespace HYGRION {

namespace {

using Finding = ProjectCheck::Finding;
using Findings = std::vector<Finding>;

/// Cells without material are counted in grids up to this size.
constexpr std::size_t MAX_COUNTED_CELLS = 1u << 24;

std::string placeOf(std::string_view word, const std::string & name) {
    return KOR::text("%1 '%2'", word, name);
}

/// A failure as a finding: the line out of its cause, the other messages as context.
Finding findingOf(const KOR::Exception & ex, std::string place = {}) {
    constexpr std::string_view PREFIX = "Error in XML file, line ";
    Finding finding{.place = std::move(place), .message = ex.cause()};
    const std::size_t colon = finding.message.find(": ");
    if (finding.message.starts_with(PREFIX) && colon != std::string::npos) {
        const auto line = KOR::parseInteger<int>(finding.message.substr(PREFIX.size(), colon - PREFIX.size()));
        finding.line = line.value_or(0);
        finding.message.erase(0, colon + 2);
    }
    for (std::size_t i = 1; i < ex.chain().size(); ++i)
        finding.context.push_back(ex.chain()[i].message);
    return finding;
}

void add(Findings & findings, Finding finding) {
    if (findings.size() < ProjectCheck::MAX_FINDINGS &&
        std::find(findings.begin(), findings.end(), finding) == findings.end())
        findings.push_back(std::move(finding));
}

/// A message without the place at its begin.
std::string withoutPlace(const std::string & message, const std::string & place) {
    const bool isNamed = !place.empty() && KOR::lowered(message).starts_with(KOR::lowered(place) + ": ");
    return isNamed ? message.substr(place.size() + 2) : message;
}

template <typename Check> void collect(Findings & findings, const std::string & place, const Check & check) {
    try {
        check();
    } catch (const KOR::Exception & ex) {
        Finding finding = findingOf(ex, place);
        finding.message = withoutPlace(finding.message, place);
        add(findings, std::move(finding));
    }
}

//--- Reading with recovery ---------------------------------------------------------------------------------------

struct Tag {
    const char * element;
    definition_t kind;
};
constexpr Tag TAGS[] = {
    {"MaterialReference",  definition_t::Material          },
    {"Interface",          definition_t::Interface         },
    {"InitialCondition",   definition_t::InitialCondition  },
    {"FieldCondition",     definition_t::FieldCondition    },
    {"ContactCondition",   definition_t::ContactCondition  },
    {"BoundaryCondition",  definition_t::BoundaryCondition },
    {"ClimateCondition",   definition_t::ClimateCondition  },
    {"Schedule",           definition_t::Schedule          },
    {"OutputFile",         definition_t::OutputFile        },
    {"OutputGrid",         definition_t::OutputGrid        },
    {"SolutionDefinition", definition_t::SolutionDefinition},
};

/// The place of a definition's element; empty for any other element.
std::string placeOf(const TiXmlElement & element) {
    const auto * tag = std::find_if(std::begin(TAGS), std::end(TAGS),
                                    [&element](const Tag & row) { return element.ValueStr() == row.element; });
    const auto name = KOR::xml::attribute(element, "name");
    return tag == std::end(TAGS) || !name ? std::string() : placeOf(definitionWord(tag->kind), *name);
}

/// Whether the section holds lists of definitions, not definitions.
bool holdsLists(const TiXmlElement & section) {
    return section.ValueStr() == "Conditions" || section.ValueStr() == "Outputs";
}

int lastLine(const TiXmlElement & element) {
    int last = element.Row();
    for (const TiXmlElement * child = element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement())
        last = std::max(last, lastLine(*child));
    return last;
}

/// The smallest part that can be left out and that covers the line: an entry of a list, a list, a section.
TiXmlElement * partAt(TiXmlElement & parent, int line, int levels) {
    for (TiXmlElement * child = parent.FirstChildElement(); child != nullptr; child = child->NextSiblingElement()) {
        if (child->Row() > line || lastLine(*child) < line)
            continue;
        if (levels > 1)
            if (TiXmlElement * inner = partAt(*child, line, levels == 3 && !holdsLists(*child) ? 1 : levels - 1))
                return inner;
        return child;
    }
    return nullptr;
}

/// Reads what can be read; faulty parts are taken out of the document.
/// \return places of the definitions taken out
std::set<std::string> readRecovering(TiXmlElement & root, Project & project, Findings & findings) {
    std::set<std::string> leftOut;
    for (std::size_t faults = 0;; ++faults) {
        try {
            Project read;
            read.readXMLRoot(root, false);
            project = std::move(read);
            return leftOut;
        } catch (const KOR::Exception & ex) {
            Finding finding = findingOf(ex);
            TiXmlElement * part = finding.line > 0 ? partAt(root, finding.line, 3) : nullptr;
            if (part != nullptr)
                finding.place = placeOf(*part);
            const bool isNew = std::none_of(findings.begin(), findings.end(), [&finding](const Finding & other) {
                return other.line == finding.line && other.message == finding.message;
            });
            if (isNew)
                add(findings, finding);
            if (part == nullptr)
                return leftOut;
            if (faults == ProjectCheck::MAX_READING_FAULTS) {
                add(findings, {.message = "There are too many faults; what follows was not checked."});
                return leftOut;
            }
            leftOut.insert(placeOf(*part));
            part->Parent()->RemoveChild(part);
        }
    }
}

/// The lines of definitions and assignments by their places.
void collectLines(const TiXmlElement & parent, int levels, std::map<std::string, int> & lines,
                  std::size_t & assignments) {
    for (const TiXmlElement * child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        if (child->ValueStr() == "Assignment") {
            const TiXmlElement * name = child->FirstChildElement("AssignmentName");
            ++assignments;
            lines.emplace(
                placeOf("assignment", name != nullptr ? KOR::xml::text(*name) : KOR::text("#%1", assignments)),
                child->Row());
        } else if (const std::string place = placeOf(*child); !place.empty()) {
            lines.emplace(place, child->Row());
        } else if (levels > 1) {
            collectLines(*child, levels - 1, lines, assignments);
        }
    }
}

//--- Checks of what was read -------------------------------------------------------------------------------------

void checkNames(const Project & project, Findings & findings) {
    forEachDefinitionList(project, [&findings](definition_t kind, const auto & list) {
        std::set<std::string> names;
        for (const auto & item : list) {
            const std::string place = placeOf(definitionWord(kind), item.m_name);
            if (item.m_name.empty())
                add(findings, {.place = place, .message = "The identification name is empty."});
            else if (!names.insert(item.m_name).second)
                add(findings, {.place = place, .message = "The identification name is not unique."});
        }
    });
}

void checkDefinitions(const Project & project, Findings & findings) {
    collect(findings, "Init", [&project] { project.m_init.checkParameters(); });
    Outputs settings = project.m_outputs;
    settings.m_outputFiles.clear();
    settings.m_outputGrids.clear();
    collect(findings, "Outputs", [&settings] { settings.checkParameters(); });
    forEachDefinitionList(project, [&findings](definition_t kind, const auto & list) {
        for (const auto & item : list)
            if constexpr (requires { item.checkParameters(); })
                collect(findings, placeOf(definitionWord(kind), item.m_name), [&item] { item.checkParameters(); });
    });
    for (const Assessment & assessment : project.m_assessments)
        collect(findings, placeOf("assessment", assessment.m_name), [&assessment] { assessment.checkParameters(); });
}

/// \return whether all assignments fit to the grid
bool checkAssignments(const Project & project, Findings & findings) {
    const std::size_t before = findings.size();
    collect(findings, "Discretization", [&project] { project.m_disc.checkParameters(); });
    if (findings.size() != before)
        return false;
    for (std::size_t i = 0; i < project.m_assignments.size(); ++i) {
        const Assignment & assignment = project.m_assignments.m_list[i];
        const std::string place = ProjectCheck::assignmentPlace(project, i);
        collect(findings, place, [&] { assignment.checkParameters(project.m_disc); });
        for (const RotationMatrix & matrix : assignment.m_rotationMatrices)
            if (!matrix.isRotation())
                add(findings, {.severity = ProjectCheck::WARNING,
                               .place = place,
                               .message = KOR::text("The matrix of element %1 is no rotation.", matrix.elementID)});
    }
    return findings.size() == before;
}

void checkCoverage(const Project & project, Findings & findings) {
    const Disc & disc = project.m_disc;
    const std::size_t cells = disc.nx() * disc.ny() * disc.nz();
    if (disc.nx() > MAX_COUNTED_CELLS || disc.ny() > MAX_COUNTED_CELLS || disc.nz() > MAX_COUNTED_CELLS ||
        disc.nx() * disc.ny() > MAX_COUNTED_CELLS || cells > MAX_COUNTED_CELLS)
        return;
    Assignments materials;
    for (const Assignment & assignment : project.m_assignments.m_list)
        if (assignment.m_type == Assignment::type_t::Material)
            materials.m_list.push_back(assignment);
    AssignmentGrid grid;
    Discretization::updateDiscAssignmentGrid(disc.nx(), disc.ny(), disc.nz(), materials, grid);
    std::size_t bare = 0;
    for (std::size_t k = 0; k < disc.nz(); ++k)
        for (std::size_t j = 0; j < disc.ny(); ++j)
            for (std::size_t i = 0; i < disc.nx(); ++i)
                bare += grid.elementList(i, j, k) == 0 ? 1 : 0;
    if (bare > 0)
        add(findings, {.severity = ProjectCheck::WARNING,
                       .place = "Assignments",
                       .message = KOR::text("%1 of %2 cells have no material.", bare, cells)});
}

std::string placeOf(const Project & project, const ReferenceSource & source) {
    if (source.place == ReferenceSource::ASSIGNMENT)
        return ProjectCheck::assignmentPlace(project, source.index);
    if (source.place == ReferenceSource::MATERIAL_MAPPING)
        return "Init";
    std::string place;
    forEachDefinitionList(project, [&](definition_t kind, const auto & list) {
        if (kind == *source.kind)
            place = placeOf(definitionWord(kind), list[source.index].m_name);
    });
    return place;
}

/// \param leftOut places of definitions that the file has, though they could not be read
void checkReferences(const Project & project, const std::set<std::string> & leftOut, Findings & findings) {
    for (const Project::DanglingReference & dangling : project.danglingReferences())
        if (!leftOut.contains(placeOf(definitionWord(dangling.target), dangling.name)))
            add(findings, {.place = placeOf(project, dangling.source), .message = dangling.message});
}

void checkFiles(const Project & project, Findings & findings) {
    for (const std::string & name : project.undefinedPlaceholders())
        if (const auto all = project.placeholders(); !all.contains(name))
            add(findings,
                {.severity = ProjectCheck::WARNING,
                 .message = KOR::text("Placeholder '%1' is being used in one or more referenced files, but not "
                                      "defined within the placeholder section",
                                      name)});
    forEachPath(project, [&](const KOR::Path & path, const std::string & name) {
        if (path.empty())
            return;
        const KOR::Path file = project.resolved(path);
        if (!file.placeholder() && !file.isFile())
            add(findings, {.severity = ProjectCheck::WARNING,
                           .message = KOR::text("File '%1' of '%2' does not exist.", file.str(), name)});
    });
}

Findings checked(const Project & project, const std::set<std::string> & leftOut) {
    Findings findings;
    checkNames(project, findings);
    checkDefinitions(project, findings);
    checkReferences(project, leftOut, findings);
    if (checkAssignments(project, findings))
        checkCoverage(project, findings);
    checkFiles(project, findings);
    return findings;
}

} // namespace

std::string ProjectCheck::Finding::text() const {
    std::string result = line > 0 ? KOR::text("line %1: ", line) : std::string();
    if (!place.empty())
        result += place + ": ";
    return result + message;
}

std::vector<Finding> ProjectCheck::checkFile(const std::string & filename, Project & project, const Further & further) {
    Findings findings;
    project = Project();
    TiXmlDocument document;
    try {
        if (const auto error = KOR::xml::parse(KOR::readFile(filename, KOR::xml::MAX_FILE_SIZE), document)) {
            findings.push_back({.line = error->line, .message = error->description});
            return findings;
        }
    } catch (const KOR::Exception & ex) {
        findings.push_back(findingOf(ex));
        return findings;
    }
    TiXmlElement & root = *document.RootElement();
    if (root.ValueStr() != Project::ROOT_ELEMENT) {
        findings.push_back({.line = root.Row(), .message = "Expected HygrionProject as root node in XML file."});
        return findings;
    }
    const std::set<std::string> leftOut = readRecovering(root, project, findings);
    project.m_fileName = filename;
    std::map<std::string, int> lines;
    std::size_t assignments = 0;
    collectLines(root, 3, lines, assignments);
    std::vector<Finding> all = checked(project, leftOut);
    if (further)
        further(project, all);
    for (Finding & finding : all) {
        if (const auto line = lines.find(finding.place); line != lines.end())
            finding.line = line->second;
        add(findings, std::move(finding));
    }
    return findings;
}

std::vector<Finding> ProjectCheck::checkProject(const Project & project) {
    return checked(project, {});
}

void ProjectCheck::collect(std::vector<Finding> & findings, const std::string & place,
                           const std::function<void()> & check) {
    const bool isFaulty = std::any_of(findings.begin(), findings.end(), [&place](const Finding & finding) {
        return finding.severity == FAULT && finding.place == place;
    });
    if (isFaulty)
        return;
    const KOR::MessageCollector collected;
    HYGRION::collect(findings, place, check);
    for (const KOR::MessageCollector::Message & message : collected.messages()) {
        if (message.type != KOR::MSG_WARNING && message.type != KOR::MSG_ERROR)
            continue;
        add(findings, {.severity = WARNING, .place = place, .message = withoutPlace(message.text, place)});
    }
}

std::string ProjectCheck::place(definition_t kind, const std::string & name) {
    return placeOf(definitionWord(kind), name);
}

std::string ProjectCheck::assignmentPlace(const Project & project, std::size_t index) {
    return placeOf("assignment", project.assignmentLabel(index));
}

} // namespace HYGRION
