#pragma once

#include <HYGRION/Assessment.h>
#include <HYGRION/Assignments.h>
#include <HYGRION/Conditions.h>
#include <HYGRION/Disc.h>
#include <HYGRION/Init.h>
#include <HYGRION/MaterialReference.h>
#include <HYGRION/Outputs.h>
#include <HYGRION/ProjectInfo.h>
#include <HYGRION/References.h>

#include <KOR/Path.h>
#include <KOR/Version.h>

#include <string>
#include <vector>

namespace HYGRION {

/// One simulation project: the document of the editor, the input of the solver, and its XML file.
/// A plain value; definitions refer to one another by identification name, see HYGRION/References.h.
class Project {
public:
    /// Of the file format, in "xmlns" of the root element.
    static constexpr const char * XML_NAMESPACE = "https://hygrion.example/xml/project/6";
    static constexpr const char * ROOT_ELEMENT = "HygrionProject";
    static constexpr const char * FILE_EXTENSION = "h6p";

    /// A name that leads nowhere.
    struct DanglingReference {
        ReferenceSource source;
        definition_t target = definition_t::Material;
        std::string name; ///< that no definition of kind target has
        std::string message;
    };

    std::string m_fileName;                         ///< the file last read; empty for a project without file
    KOR::Version m_fileVersion = KOR::FILE_VERSION; ///< of the file last read
    ProjectInfo m_projectInfo;
    KOR::Path::Placeholders m_placeholders; ///< the project's own, without those that are built in
    Init m_init;
    std::vector<MaterialReference> m_materials;
    Disc m_disc;
    Conditions m_conditions;
    Outputs m_outputs;
    Assignments m_assignments;
    std::vector<Assessment> m_assessments;

    /// Reads a file; with \p headerOnly the root's attributes and the project information only, without looking at the
    /// rest of the file. A failure leaves the project as it was. Throws ("[Project::readXML]")
    /// "Error in line %1 of project file:\n%2", "Expected HygrionProject as root node in XML file.", and what the sections
    /// throw.
    void readXML(const std::string & filename, bool headerOnly = false);
    /// The same from the content of a file.
    void readText(const std::string & content, bool headerOnly = false);
    /// Reads the root element's attributes and sections. Throws with "[Project::readXMLRoot]" and the line.
    void readXMLRoot(const TiXmlElement & root, bool headerOnly);
    void readProjectInfoXML(const TiXmlElement & element);

    /// Writes the file atomically, after warnings about placeholders that nobody defines. On failure reports
    /// "Error writing project file '%1'" ("[Project::writeXML]") and returns false; an old file is still whole then.
    [[nodiscard]] bool writeXML(const std::string & filename) const;
    /// The content of the file.
    std::string text() const;

    /// All placeholders: built in, of the climate databases, and the project's own.
    KOR::Path::Placeholders placeholders() const;
    /// The path for the operating system: placeholders replaced, relative ones taken from the project's directory.
    KOR::Path resolved(const KOR::Path & path) const;
    /// Names of placeholders in referenced paths that the project does not define, without the built-in ones.
    std::vector<std::string> undefinedPlaceholders() const;

    /// Checks the grid and the assignments against it.
    /// Throws "Project has invalid/missing parameters." ("[Project::GUISanityChecks]") above the fault.
    void GUISanityChecks() const;

    /// Every reference to a definition that does not exist.
    std::vector<DanglingReference> danglingReferences() const;
    /// Throws the first of them ("[Project::checkReferences]").
    void checkReferences() const;
    /// Indices of the materials that assignments name, ascending. Throws ("[Project::extractUsedMaterials]")
    /// "Invalid material assignment '%1' with name '%2'. ..." and "Ambiguous material assignment '%1'. ...".
    std::vector<std::size_t> extractUsedMaterials() const;
    /// Indices of the output grids that output files name, ascending. Throws ("[Project::extractUsedOutputGrids]")
    /// "Output grid with id name '%1' referenced from output file '%2' is not defined.".
    std::vector<std::size_t> extractUsedOutputGrids() const;

    /// Drops the materials, interfaces, conditions, output files and output grids that neither an assignment nor a
    /// definition in use refers to. \return a report. Throws "Error during cleaning Hygrion project structure."
    /// ("[Project::removeUnusedDefinitions]"); the project is unchanged then.
    std::string removeUnusedDefinitions();

    /// Renames a definition and every reference to it. \return the number of references changed.
    /// Throws ("[Project::rename]") when there is no such definition, or the new name is empty or taken.
    std::size_t rename(definition_t kind, const std::string & oldName, const std::string & newName);
    /// Changes the references only, for a definition that has its new name already.
    std::size_t renameReferences(definition_t kind, const std::string & oldName, const std::string & newName);
    /// The references to a definition, as ascending numbers in the walk of forEachReference.
    std::vector<std::size_t> referencesTo(definition_t kind, const std::string & name) const;
    /// Lets just these references name another definition.
    void setReferences(const std::vector<std::size_t> & references, const std::string & name);

    /// The assignment in words for messages: its label, or "#" and its number from 1.
    std::string assignmentLabel(std::size_t index) const;

    bool operator==(const Project &) const = default;
};

} // namespace HYGRION
