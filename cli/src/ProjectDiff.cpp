#include "ProjectDiff.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Xml.h>

namespace CMD {

namespace {

using namespace HYGRION;
using Lines = std::vector<std::string>;

/// The lines in which the file holds an item.
template <typename Item> Lines linesOf(const Item & item) {
    TiXmlElement parent("parent");
    item.writeXML(parent);
    Lines lines;
    for (const TiXmlElement * child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        TiXmlPrinter printer;
        printer.SetIndent("  ");
        child->Accept(&printer);
        for (const std::string_view line : KOR::split(printer.Str(), '\n'))
            if (!line.empty())
                lines.emplace_back(line);
    }
    return lines;
}

/// The lines of \p of that \p other does not have, as often as it does not have them.
Lines without(const Lines & of, const Lines & other) {
    std::map<std::string, std::size_t> known;
    for (const std::string & line : other)
        ++known[line];
    Lines rest;
    for (const std::string & line : of) {
        const auto found = known.find(line);
        if (found == known.end() || found->second == 0)
            rest.push_back(line);
        else
            --found->second;
    }
    return rest;
}

class Comparison {
public:
    void lines(const std::string & place, const Lines & first, const Lines & second) {
        if (first == second)
            return;
        Difference found{place, without(first, second), without(second, first)};
        if (found.removed.empty() && found.added.empty())
            found.added.emplace_back("The same in another order.");
        m_found.push_back(std::move(found));
    }
    template <typename Item> void item(const std::string & place, const Item & first, const Item & second) {
        if (!(first == second))
            lines(place, linesOf(first), linesOf(second));
    }
    template <typename Item>
    void list(std::string_view word, const std::vector<Item> & first, const std::vector<Item> & second) {
        const auto byName = [](const std::vector<Item> & items) {
            std::map<std::string, const Item *> named;
            for (const Item & one : items)
                named.emplace(one.m_name, &one);
            return named;
        };
        const auto known = byName(first);
        const auto other = byName(second);
        const auto place = [&word](const std::string & name) { return KOR::text("%1 '%2'", word, name); };
        for (const auto & [name, one] : known)
            if (!other.contains(name))
                lines(place(name), linesOf(*one), {});
            else
                item(place(name), *one, *other.at(name));
        for (const auto & [name, one] : other)
            if (!known.contains(name))
                lines(place(name), {}, linesOf(*one));
    }

    std::vector<Difference> m_found;
};

Lines placeholders(const Project & project) {
    Lines lines;
    for (const auto & [name, directory] : project.m_placeholders)
        lines.push_back(name + " = " + directory);
    return lines;
}

/// An assignment in a line.
Lines assignments(const Project & project) {
    Lines lines;
    for (const Assignment & assignment : project.m_assignments.m_list) {
        std::string line;
        for (const std::string & part : linesOf(assignment))
            line += (line.empty() ? "" : " ") + std::string(KOR::trimmed(part));
        lines.push_back(std::move(line));
    }
    return lines;
}

Outputs settingsOnly(const Project & project) {
    Outputs settings = project.m_outputs;
    settings.m_outputFiles.clear();
    settings.m_outputGrids.clear();
    return settings;
}

/// The information block is written even where the file would leave it out.
Lines information(const Project & project) {
    ProjectInfo info = project.m_projectInfo;
    if (info.m_created.empty())
        info.m_created = " ";
    return linesOf(info);
}

} // namespace

std::vector<Difference> difference(const Project & first, const Project & second) {
    Comparison compare;
    compare.lines("ProjectInfo", information(first), information(second));
    compare.lines("DirectoryPlaceholders", placeholders(first), placeholders(second));
    compare.item("Init", first.m_init, second.m_init);
    compare.item("Discretization", first.m_disc, second.m_disc);
    forEachDefinitionList(first, [&](definition_t kind, const auto & list) {
        forEachDefinitionList(second, [&](definition_t otherKind, const auto & other) {
            if constexpr (std::is_same_v<decltype(list), decltype(other)>)
                if (kind == otherKind)
                    compare.list(definitionWord(kind), list, other);
        });
    });
    compare.item("Outputs", settingsOnly(first), settingsOnly(second));
    compare.lines("Assignments", assignments(first), assignments(second));
    compare.list("assessment", first.m_assessments, second.m_assessments);
    return std::move(compare.m_found);
}

} // namespace CMD
