#include <HYGRION/Project.h>

#include <algorithm>
#include <array>
#include <deque>
#include <set>
#include <unordered_map>

/// What looks across the sections of a project: references, used definitions, cleaning, renaming.
namespace HYGRION {

namespace {

constexpr std::array<std::string_view, DEFINITION_KINDS> WORDS = {
    "material",          "interface",          "initial condition",  "field condition",
    "contact condition", "boundary condition", "climate condition",  "schedule",
    "output file",       "output grid",        "solution definition"};

std::size_t number(definition_t kind) {
    return static_cast<std::size_t>(kind);
}

/// Indices of the definitions of each kind by name.
class Index {
public:
    explicit Index(const Project & project) {
        forEachDefinitionList(project, [this](definition_t kind, const auto & list) {
            for (std::size_t i = 0; i < list.size(); ++i)
                m_byName[number(kind)][list[i].m_name].push_back(i);
        });
    }
    const std::vector<std::size_t> & find(definition_t kind, const std::string & name) const {
        static const std::vector<std::size_t> NONE;
        const auto found = m_byName[number(kind)].find(name);
        return found == m_byName[number(kind)].end() ? NONE : found->second;
    }

private:
    std::array<std::unordered_map<std::string, std::vector<std::size_t>>, DEFINITION_KINDS> m_byName;
};

std::string nameOf(const Project & project, definition_t wanted, std::size_t index) {
    std::string name;
    forEachDefinitionList(project, [&](definition_t kind, const auto & list) {
        if (kind == wanted)
            name = list[index].m_name;
    });
    return name;
}

std::string danglingMessage(const Project & project, const ReferenceSource & source, definition_t target,
                            const std::string & name) {
    if (source.place == ReferenceSource::MATERIAL_MAPPING)
        return KOR::text("Material '%1' in the material mapping of the VOC model is not defined.", name);
    if (source.place == ReferenceSource::ASSIGNMENT && target == definition_t::Material)
        return KOR::text("Invalid material assignment '%1' with name '%2'. Check the ID names of your assignments!",
                         project.assignmentLabel(source.index), name);
    std::string kind(definitionWord(target));
    kind.front() = static_cast<char>(kind.front() - 'a' + 'A');
    if (source.place == ReferenceSource::ASSIGNMENT)
        return KOR::text("%1 with id name '%2' referenced from assignment '%3' is not defined.", kind, name,
                         project.assignmentLabel(source.index));
    const std::string from = nameOf(project, *source.kind, source.index);
    if (target == definition_t::BoundaryCondition)
        return KOR::text("Boundary condition with id name '%1' referenced from interface '%2' is not defined.", name,
                         from);
    if (target == definition_t::OutputGrid)
        return KOR::text("Output grid with id name '%1' referenced from output file '%2' is not defined.", name, from);
    return KOR::text("%1 with id name '%2' referenced from %3 '%4' is not defined.", kind, name,
                     definitionWord(*source.kind), from);
}

/// Whether each definition of each kind is in use.
using Used = std::array<std::vector<bool>, DEFINITION_KINDS>;

/// All definitions that assignments and the model settings reach through references.
Used reachable(const Project & project) {
    struct Target {
        definition_t kind;
        std::string name;
    };
    const Index index(project);
    Used used;
    std::array<std::unordered_map<std::size_t, std::vector<Target>>, DEFINITION_KINDS> targets;
    std::deque<Target> open;
    forEachDefinitionList(project,
                          [&](definition_t kind, const auto & list) { used[number(kind)].resize(list.size()); });
    forEachReference(project, [&](const ReferenceSource & source, definition_t kind, const std::string & name) {
        if (source.place == ReferenceSource::DEFINITION)
            targets[number(*source.kind)][source.index].push_back({kind, name});
        else
            open.push_back({kind, name});
    });
    for (; !open.empty(); open.pop_front()) {
        const Target target = open.front();
        for (const std::size_t i : index.find(target.kind, target.name)) {
            if (used[number(target.kind)][i])
                continue;
            used[number(target.kind)][i] = true;
            const auto & next = targets[number(target.kind)][i];
            open.insert(open.end(), next.begin(), next.end());
        }
    }
    return used;
}

/// A line of the report on cleaning, in its order. Other kinds are not removed.
struct ReportLine {
    definition_t kind;
    const char * text; ///< %1 = kept, %2 = before
};
constexpr ReportLine REPORT[] = {
    {definition_t::Material,          "%1 materials (of %2) used:\n"             },
    {definition_t::Interface,         "%1 interface definitions (of %2) used:\n" },
    {definition_t::InitialCondition,  "%1 initial conditions (of %2) used:\n"    },
    {definition_t::FieldCondition,    "%1 field conditions (of %2) used:\n"      },
    {definition_t::ContactCondition,  "%1 contact conditions (of %2) used:\n"    },
    {definition_t::BoundaryCondition, "%1 boundary conditions (of %2) used:\n"   },
    {definition_t::ClimateCondition,  "%1 climate conditions (of %2) used:\n"    },
    {definition_t::OutputFile,        "%1 output file definition (of %2) used:\n"},
    {definition_t::OutputGrid,        "%1 output grids (of %2) used:\n"          },
};

} // namespace

std::string_view definitionWord(definition_t kind) {
    return WORDS[number(kind)];
}

std::vector<Project::DanglingReference> Project::danglingReferences() const {
    const Index index(*this);
    std::vector<DanglingReference> dangling;
    forEachReference(*this, [&](const ReferenceSource & source, definition_t target, const std::string & name) {
        if (index.find(target, name).empty())
            dangling.push_back({source, target, name, danglingMessage(*this, source, target, name)});
    });
    return dangling;
}

void Project::checkReferences() const {
    if (const auto dangling = danglingReferences(); !dangling.empty())
        throw KOR::Exception(dangling.front().message, "[Project::checkReferences]");
}

std::vector<std::size_t> Project::extractUsedMaterials() const {
    constexpr const char * WHERE = "[Project::extractUsedMaterials]";
    const Index index(*this);
    std::set<std::size_t> used;
    for (std::size_t i = 0; i < m_assignments.size(); ++i) {
        const Assignment & assignment = m_assignments.m_list[i];
        if (assignment.m_type != Assignment::type_t::Material)
            continue;
        const auto & found = index.find(definition_t::Material, assignment.m_reference);
        if (found.empty())
            throw KOR::Exception(danglingMessage(*this, {ReferenceSource::ASSIGNMENT, {}, i}, definition_t::Material,
                                                 assignment.m_reference),
                                 WHERE);
        if (found.size() > 1)
            throw KOR::Exception(KOR::text("Ambiguous material assignment '%1'. Check whether there are multiple "
                                           "materials with the name '%2'!",
                                           assignmentLabel(i), assignment.m_reference),
                                 WHERE);
        used.insert(found.front());
    }
    return {used.begin(), used.end()};
}

std::vector<std::size_t> Project::extractUsedOutputGrids() const {
    const Index index(*this);
    std::set<std::size_t> used;
    for (std::size_t i = 0; i < m_outputs.m_outputFiles.size(); ++i) {
        const std::string & grid = m_outputs.m_outputFiles[i].m_outputGrid;
        const auto & found = index.find(definition_t::OutputGrid, grid);
        if (found.empty())
            throw KOR::Exception(danglingMessage(*this, {ReferenceSource::DEFINITION, definition_t::OutputFile, i},
                                                 definition_t::OutputGrid, grid),
                                 "[Project::extractUsedOutputGrids]");
        used.insert(found.begin(), found.end());
    }
    return {used.begin(), used.end()};
}

std::string Project::removeUnusedDefinitions() {
    Used used;
    try {
        extractUsedMaterials();
        extractUsedOutputGrids();
        checkReferences();
        used = reachable(*this);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error during cleaning Hygrion project structure.",
                             "[Project::removeUnusedDefinitions]");
    }
    std::string report = "Removed unused definitions from project\n";
    for (const ReportLine & line : REPORT)
        forEachDefinitionList(*this, [&](definition_t kind, auto & list) {
            if (kind != line.kind)
                return;
            const std::size_t before = list.size();
            const auto * first = list.data();
            std::erase_if(
                list, [&](const auto & item) { return !used[number(kind)][static_cast<std::size_t>(&item - first)]; });
            report += KOR::text(line.text, list.size(), before);
            for (const auto & item : list)
                report += KOR::text("  %1\n", item.m_name);
        });
    return report;
}

std::size_t Project::rename(definition_t kind, const std::string & oldName, const std::string & newName) {
    constexpr const char * WHERE = "[Project::rename]";
    const std::string word(definitionWord(kind));
    const Index index(*this);
    if (newName.empty())
        throw KOR::Exception(KOR::text("The %1 '%2' needs a name.", word, oldName), WHERE);
    if (index.find(kind, oldName).size() != 1)
        throw KOR::Exception(KOR::text("There are %1 definitions of kind %2 with the name '%3', expected one.",
                                       index.find(kind, oldName).size(), word, oldName),
                             WHERE);
    if (newName == oldName)
        return 0;
    if (!index.find(kind, newName).empty())
        throw KOR::Exception(KOR::text("There is another %1 with the name '%2'.", word, newName), WHERE);
    forEachDefinitionList(*this, [&](definition_t listKind, auto & list) {
        if (listKind == kind)
            list[index.find(kind, oldName).front()].m_name = newName;
    });
    return renameReferences(kind, oldName, newName);
}

std::size_t Project::renameReferences(definition_t kind, const std::string & oldName, const std::string & newName) {
    const std::vector<std::size_t> references = referencesTo(kind, oldName);
    setReferences(references, newName);
    return references.size();
}

std::vector<std::size_t> Project::referencesTo(definition_t kind, const std::string & name) const {
    std::vector<std::size_t> found;
    std::size_t place = 0;
    forEachReference(*this, [&](const ReferenceSource &, definition_t target, const std::string & reference) {
        if (target == kind && reference == name)
            found.push_back(place);
        ++place;
    });
    return found;
}

void Project::setReferences(const std::vector<std::size_t> & references, const std::string & name) {
    std::size_t place = 0;
    auto next = references.begin();
    forEachReference(*this, [&](const ReferenceSource &, definition_t, std::string & reference) {
        if (next != references.end() && *next == place) {
            reference = name;
            ++next;
        }
        ++place;
    });
}

} // namespace HYGRION
