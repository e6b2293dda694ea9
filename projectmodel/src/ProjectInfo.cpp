#include <HYGRION/ProjectInfo.h>

#include <KOR/Xml.h>

#include <vector>

namespace HYGRION {

namespace {

constexpr KOR::xml::ElementTexts TEXTS{
    .where = "[Project::readProjectInfoXML]",
    .missingAttr = {},
    .unknownTag = "Unknown element '%1' in ProjectInfo section.",
    .wrapping = {},
};

struct Line {
    const char * element;
    std::string ProjectInfo::*text;
};

/// In the order of writing; the last two belong to variants only.
constexpr Line LINES[] = {
    {"Comment",            &ProjectInfo::m_comment           },
    {"ProjectName",        &ProjectInfo::m_projectName       },
    {"ConstructionID",     &ProjectInfo::m_constructionID    },
    {"UserName",           &ProjectInfo::m_userName          },
    {"Company",            &ProjectInfo::m_company           },
    {"Description",        &ProjectInfo::m_description       },
    {"Location",           &ProjectInfo::m_location          },
    {"VariantBaseProject", &ProjectInfo::m_variantBaseProject},
    {"VariantDescription", &ProjectInfo::m_variantDescription},
};
constexpr std::size_t VARIANT_LINES = 2;

} // namespace

void ProjectInfo::readXML(const TiXmlElement & element) {
    ProjectInfo read;
    read.m_created = KOR::xml::attribute(element, "created").value_or("");
    read.m_lastEdited = KOR::xml::attribute(element, "lastEdited").value_or("");
    std::vector<KOR::xml::ElementReader::Child> rows;
    for (const Line & line : LINES)
        rows.push_back(KOR::xml::once(
            line.element, [&read, &line](const TiXmlElement & child) { read.*line.text = KOR::xml::text(child); }));
    KOR::xml::ElementReader(element, TEXTS).children(rows);
    *this = std::move(read);
}

void ProjectInfo::writeXML(TiXmlElement & parent) const {
    if (m_created.empty() && m_lastEdited.empty() && m_comment.empty())
        return;
    TiXmlElement & element = KOR::xml::appendElement(parent, "ProjectInfo");
    if (!m_created.empty())
        KOR::xml::setAttribute(element, "created", m_created);
    if (!m_lastEdited.empty())
        KOR::xml::setAttribute(element, "lastEdited", m_lastEdited);
    const auto * end = std::end(LINES) - (m_variantBaseProject.empty() ? VARIANT_LINES : 0);
    for (const auto * line = std::begin(LINES); line != end; ++line)
        KOR::xml::appendText(element, line->element, this->*line->text);
}

} // namespace HYGRION
