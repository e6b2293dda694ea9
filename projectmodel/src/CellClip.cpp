#include <HYGRION/CellClip.h>

#include <KOR/Exception.h>
#include <KOR/Xml.h>

#include <filesystem>
#include <set>

namespace HYGRION::edit {

namespace {

using Names = std::set<std::pair<definition_t, std::string>>;

Names namesOf(const Project & project) {
    Names names;
    forEachDefinitionList(project, [&names](definition_t kind, const auto & list) {
        for (const auto & item : list)
            names.emplace(kind, item.m_name);
    });
    return names;
}

std::string nameOf(const Project & project, definition_t kind, std::size_t index) {
    std::string name;
    forEachDefinitionList(project, [&](definition_t listKind, const auto & list) {
        if (listKind == kind)
            name = list[index].m_name;
    });
    return name;
}

/// What assignments refer to, and what these refer to.
Names neededNames(const Project & project) {
    Names needed;
    for (std::size_t size = std::string::npos; size != needed.size();) {
        size = needed.size();
        forEachReference(project, [&](const ReferenceSource & source, definition_t kind, const std::string & name) {
            const bool isNeeded = source.place == ReferenceSource::ASSIGNMENT ||
                                  (source.place == ReferenceSource::DEFINITION &&
                                   needed.contains({*source.kind, nameOf(project, *source.kind, source.index)}));
            if (isNeeded)
                needed.emplace(kind, name);
        });
    }
    return needed;
}

/// A definition with its path, if it has one, as the operating system knows it.
template <typename Item> Item withWholePath(const Project & project, Item item) {
    if constexpr (requires { item.m_filename; })
        if (!item.m_filename.empty())
            item.m_filename = project.resolved(item.m_filename).normalized();
    return item;
}

/// Whether two definitions with whole paths mean the same, whatever their names.
template <typename Item> bool isSame(Item a, const Item & b) {
    if constexpr (std::is_same_v<Item, MaterialReference>)
        return a.m_filename == b.m_filename;
    a.m_name = b.m_name;
    return a == b;
}

/// The name under which the definition can stand in the target: its own if nothing or the same has it there, that of the
/// same under another one, or a free one.
template <typename Item>
std::string nameIn(const Project & target, const std::vector<Item> & list, const Item & item,
                   const std::vector<Item> & others) {
    const auto find = [](const std::vector<Item> & items, const std::string & name) {
        return std::find_if(items.begin(), items.end(), [&](const Item & each) { return each.m_name == name; });
    };
    const auto isSameThere = [&](const Item & there) { return isSame(withWholePath(target, there), item); };
    const auto own = find(list, item.m_name);
    if (own != list.end() && isSameThere(*own))
        return item.m_name;
    for (const Item & there : list) {
        const bool isLikely = std::is_same_v<Item, MaterialReference> || there.m_name.starts_with(item.m_name + " (");
        if (isLikely && isSameThere(there) && find(others, there.m_name) == others.end())
            return there.m_name;
    }
    std::string name = item.m_name;
    for (int n = 2; find(list, name) != list.end() || (name != item.m_name && find(others, name) != others.end()); ++n)
        name = KOR::text("%1 (%2)", item.m_name, n);
    return name;
}

} // namespace

CellClip CellClip::copy(const Project & project, const Range & range) {
    CellClip clip{copyBlock(project.m_assignments, range), {}};
    Project & kept = clip.definitions;
    kept.m_materials = project.m_materials;
    kept.m_conditions = project.m_conditions;
    kept.m_outputs = project.m_outputs;
    clip.dropUnused();
    forEachDefinitionList(kept, [&](definition_t, auto & list) {
        for (auto & item : list)
            item = withWholePath(project, item);
    });
    return clip;
}

void CellClip::dropUnused() {
    definitions.m_assignments = block.assignments;
    const Names needed = neededNames(definitions);
    definitions.m_assignments = {};
    forEachDefinitionList(definitions, [&](definition_t kind, auto & list) {
        std::erase_if(list, [&](const auto & item) { return !needed.contains({kind, item.m_name}); });
    });
}

void CellClip::crop(std::uint32_t nx, std::uint32_t ny, std::uint32_t nz) {
    if (nx >= block.nx && ny >= block.ny && nz >= block.nz)
        return;
    const auto last = [](std::uint32_t wanted, std::uint32_t there) {
        return std::max<std::uint32_t>(std::min(wanted, there), 1) - 1;
    };
    const CellBlock whole = std::move(block);
    block = copyBlock(whole.assignments, {0, 0, 0, last(nx, whole.nx), last(ny, whole.ny), last(nz, whole.nz)});
    dropUnused();
}

std::string CellClip::text() const {
    const std::string written = definitions.text();
    try {
        Project().readText(written);
    } catch (const KOR::Exception &) {
        return block.text(); // something unfinished, which nobody could read; its own project knows it
    }
    TiXmlDocument document;
    TiXmlDocument project;
    KOR::xml::parse(block.text(), document);
    KOR::xml::parse(written, project);
    document.RootElement()->LinkEndChild(project.RootElement()->Clone());
    return KOR::xml::print(document);
}

CellClip CellClip::fromText(const std::string & text) {
    CellClip clip{CellBlock::fromText(text), {}};
    TiXmlDocument document;
    KOR::xml::parse(text, document);
    if (const TiXmlElement * project = document.RootElement()->FirstChildElement(Project::ROOT_ELEMENT)) {
        try {
            clip.definitions.readXMLRoot(*project, false);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, "The text holds no block of cells.", "[CellClip::fromText]");
        }
    }
    return clip;
}

std::size_t CellClip::addTo(Project & target) {
    constexpr const char * WHERE = "[CellClip::addTo]";
    definitions.m_assignments = block.assignments;
    // A definition that gets another name changes those that refer to it.
    for (bool hasChanged = true; hasChanged;) {
        hasChanged = false;
        forEachDefinitionList(target, [&](definition_t kind, const auto & list) {
            forEachDefinitionList(definitions, [&](definition_t ownKind, auto & own) {
                if constexpr (std::is_same_v<decltype(own), std::remove_cvref_t<decltype(list)> &>) {
                    if (kind != ownKind)
                        return;
                    for (auto & item : own) {
                        const std::string before = item.m_name;
                        const std::string name = nameIn(target, list, item, own);
                        if (name == before)
                            continue;
                        item.m_name = name;
                        definitions.renameReferences(kind, before, name);
                        hasChanged = true;
                    }
                }
            });
        });
    }
    block.assignments = std::exchange(definitions.m_assignments, {});

    std::size_t added = 0;
    const KOR::Path::Placeholders placeholders = target.placeholders();
    const Names known = namesOf(target);
    forEachDefinitionList(target, [&](definition_t kind, auto & list) {
        forEachDefinitionList(definitions, [&](definition_t ownKind, const auto & own) {
            if constexpr (std::is_same_v<decltype(own), const std::remove_cvref_t<decltype(list)> &>) {
                if (kind != ownKind)
                    return;
                for (auto item : own) {
                    if (known.contains({kind, item.m_name}))
                        continue;
                    if constexpr (requires { item.m_filename; }) {
                        std::error_code unused;
                        if (!item.m_filename.empty() && !std::filesystem::exists(item.m_filename.str(), unused))
                            throw KOR::Exception(
                                KOR::text("File '%1' of '%2' does not exist.", item.m_filename.str(), item.m_name),
                                WHERE);
                        item.m_filename = item.m_filename.withPlaceholder(placeholders);
                    }
                    list.push_back(std::move(item));
                    ++added;
                }
            }
        });
    });
    const Names all = namesOf(target);
    for (const Assignment & assignment : block.assignments.m_list)
        if (!all.contains({referencedKind(assignment), assignment.m_reference}))
            throw KOR::Exception(KOR::text("'%1' is defined neither in this project nor among the copied cells.",
                                           assignment.m_reference),
                                 WHERE);
    return added;
}

} // namespace HYGRION::edit
