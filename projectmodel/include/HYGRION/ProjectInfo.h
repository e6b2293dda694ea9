#pragma once

#include <string>

class TiXmlElement;

namespace HYGRION {

/// Who made the project, when and for what.
struct ProjectInfo {
    std::string m_created;    ///< creation time
    std::string m_lastEdited; ///< time of the last change
    std::string m_comment;
    std::string m_projectName;
    std::string m_constructionID;
    std::string m_userName;
    std::string m_company;
    std::string m_description;
    std::string m_location;
    std::string m_variantBaseProject; ///< project file of which this one is a variant
    std::string m_variantDescription;

    /// Throws "Unknown element '%1' in ProjectInfo section." ("[Project::readProjectInfoXML]") with the line.
    void readXML(const TiXmlElement & element);
    /// Appends "ProjectInfo"; nothing if creation time, time of the last change and comment are all empty.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const ProjectInfo &) const = default;
};

} // namespace HYGRION
