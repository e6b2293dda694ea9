#include <HYGRION/Conditions.h>

#include "XmlParts.h"

namespace HYGRION {

namespace {

constexpr xml::ElementTexts SECTION{
    .where = "[Conditions::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown XML tag '%1' in 'Conditions' section.",
    .wrapping = {},
    .inChild = "Error reading elements in section '%1'.",
};
constexpr xml::ElementTexts LIST{
    .where = SECTION.where,
    .missingAttr = {},
    .unknownTag = SECTION.unknownTag,
    .wrapping = {},
};

/// Calls \p body with list name, element name and list of every kind, in the order of conditionList_t.
template <typename Section, typename Body> void forEachList(Section & section, Body && body) {
    body("Schedules", "Schedule", section.m_schedules);
    body("Interfaces", "Interface", section.m_interfaces);
    body("ClimateConditions", "ClimateCondition", section.m_climateConditions);
    body("BoundaryConditions", "BoundaryCondition", section.m_boundaryConditions);
    body("InitialConditions", "InitialCondition", section.m_initialConditions);
    body("FieldConditions", "FieldCondition", section.m_fieldConditions);
    body("ContactConditions", "ContactCondition", section.m_contactConditions);
    body("SolutionDefinitions", "SolutionDefinition", section.m_solutionDefinitions);
}

template <typename Item> void readItems(const TiXmlElement & element, std::string_view tag, std::vector<Item> & items) {
    xml::UniqueNames names;
    for (const Item & item : items)
        names.insert(element, item.m_name);
    xml::readElement(element, LIST, [&](const xml::ElementReader & reader) {
        reader.children({
            xml::any(tag,
                     [&](const TiXmlElement & child) {
                         items.emplace_back().readXML(child);
                         names.insert(child, items.back().m_name);
                     }),
        });
    });
}

} // namespace

void Conditions::readXML(const TiXmlElement & element) {
    Conditions read;
    xml::readElement(element, SECTION, [&read](const xml::ElementReader & reader) {
        std::vector<xml::ElementReader::Child> rows;
        forEachList(read, [&rows](std::string_view listName, std::string_view tag, auto & items) {
            rows.push_back({listName, [tag, &items](const TiXmlElement & child) { readItems(child, tag, items); }});
        });
        reader.children(rows);
    });
    *this = std::move(read);
}

void Conditions::writeXML(TiXmlElement & parent) const {
    if (*this == Conditions())
        return;
    TiXmlElement & section = xml::appendElement(parent, "Conditions");
    forEachList(*this, [&section](const char * listName, std::string_view, const auto & items) {
        xml::writeList(section, listName, items);
    });
}

void Conditions::checkParameters() const {
    forEachList(*this, [](std::string_view, std::string_view, const auto & items) {
        for (const auto & item : items)
            item.checkParameters();
    });
}

} // namespace HYGRION
