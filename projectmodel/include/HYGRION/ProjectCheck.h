#pragma once

#include <HYGRION/Project.h>

#include <functional>
#include <string>
#include <vector>

namespace HYGRION {

/// Collects all faults of a project, where reading and checking stop at the first.
class ProjectCheck {
public:
    enum severity_t { FAULT, WARNING };

    struct Finding {
        severity_t severity = FAULT;
        int line = 0;                          ///< in the file, 0 if unknown
        std::string place = {};                ///< the definition, "interface 'Outside'"; may be empty
        std::string message = {};              ///< what is wrong
        std::vector<std::string> context = {}; ///< what was being done, from the inside out; may be empty

        /// "line 12: interface 'Outside': message"
        std::string text() const;
        bool operator==(const Finding &) const = default;
    };

    /// No more findings are collected.
    static constexpr std::size_t MAX_FINDINGS = 1000;
    /// No more faults of reading are collected; each costs another reading of the file.
    static constexpr std::size_t MAX_READING_FAULTS = 50;

    /// Adds to the findings what others have to say about a project.
    using Further = std::function<void(const Project & project, std::vector<Finding> & findings)>;

    /// Reads a file and checks it. A definition that cannot be read is a finding and left out; so the others are checked
    /// all the same. \param project holds what could be read \param further checks what was read
    static std::vector<Finding> checkFile(const std::string & filename, Project & project,
                                          const Further & further = {});

    /// Checks every parameter, name, reference and range; files that are missing on the disk are warnings.
    static std::vector<Finding> checkProject(const Project & project);

    /// Runs a check; its failure is a fault of the place, its warnings are warnings. A place with a fault is left alone.
    static void collect(std::vector<Finding> & findings, const std::string & place,
                        const std::function<void()> & check);
    /// The places of definitions and assignments in findings.
    static std::string place(definition_t kind, const std::string & name);
    static std::string assignmentPlace(const Project & project, std::size_t index);
};

} // namespace HYGRION
