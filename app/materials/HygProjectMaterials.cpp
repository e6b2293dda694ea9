#include "materials/HygProjectMaterials.h"

#include "document/HygBackground.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialTexts.h"
#include "undo/HygEditing.h"
#include "undo/HygUndoDefinitions.h"

#include <MM/Material.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

namespace {

using HYGRION::MaterialReference;
using HYGRION::Project;

QString tr(const char * text) {
    return QCoreApplication::translate("HygProjectMaterials", text);
}

constexpr std::uint32_t DEFAULT_COLOR = 0xb0b4ba;
constexpr qint64 LARGE_FILE = 256 << 10; ///< [bytes] read by another thread from here on

std::string uniqueName(const Project & project, const std::string & wanted, const std::string & own) {
    const auto isTaken = [&](const std::string & name) {
        return name != own && std::any_of(project.m_materials.begin(), project.m_materials.end(),
                                          [&](const MaterialReference & other) { return other.m_name == name; });
    };
    std::string name = wanted;
    for (int i = 2; isTaken(name); ++i)
        name = wanted + " (" + KOR::toString(i) + ')';
    return name;
}

/// \param own name that the new one may have
MaterialReference referenceTo(const Project & project, const QString & path, const std::string & own) {
    const auto read = std::make_shared<MM::Material>();
    const auto work = [read, path] { read->read(path.toStdString()); };
    if (QFileInfo(path).size() > LARGE_FILE)
        HygBackground::run(tr("Reading the material"), work);
    else
        work();
    const MM::Material & material = *read;
    MaterialReference reference;
    reference.m_name = uniqueName(project, material.name(HygMaterialTexts::language().toStdString()), own);
    reference.m_color = material.m_identification.m_colour.value_or(KOR::Color::fromRgb(DEFAULT_COLOR));
    reference.m_hatchCode =
        static_cast<int>(material.m_identification.m_hatching.value_or(MM::MaterialIdentification::HatchingType::None));
    reference.m_filename = KOR::Path(path.toStdString()).withPlaceholder(project.placeholders());
    return reference;
}

} // namespace

MaterialReference HygProjectMaterials::reference(const Project & project, const QString & path) {
    return referenceTo(project, path, {});
}

QString HygProjectMaterials::file(const Project & project, const MaterialReference & reference) {
    return QString::fromStdString(project.resolved(reference.m_filename).str());
}

int HygProjectMaterials::find(const Project & project, const QString & path) {
    // Files that are missing have no canonical path, and are not all the same therefore.
    const auto place = [](const QString & name) {
        const QString canonical = QFileInfo(name).canonicalFilePath();
        return canonical.isEmpty() ? QDir::cleanPath(QFileInfo(name).absoluteFilePath()) : canonical;
    };
    const QString wanted = place(path);
    for (std::size_t i = 0; i < project.m_materials.size(); ++i)
        if (place(file(project, project.m_materials[i])) == wanted)
            return static_cast<int>(i);
    return -1;
}

QStringList HygProjectMaterials::uses(const Project & project, const std::string & name) {
    QStringList found;
    for (std::size_t i = 0; i < project.m_assignments.size(); ++i) {
        const HYGRION::Assignment & assignment = project.m_assignments.m_list[i];
        if (HYGRION::referencedKind(assignment) == HYGRION::definition_t::Material && assignment.m_reference == name)
            found << QString::fromStdString(project.assignmentLabel(i));
    }
    return found;
}

int HygProjectMaterials::add(HygProjectHandler & projects, const QStringList & paths) {
    std::vector<MaterialReference> added;
    Project names; // with those that are added too
    names.m_materials = projects.project().m_materials;
    for (const QString & path : paths) {
        if (find(projects.project(), path) >= 0)
            continue;
        MaterialReference found = reference(projects.project(), path);
        found.m_name = uniqueName(names, found.m_name, {});
        names.m_materials.push_back(found);
        added.push_back(std::move(found));
    }
    QUndoStack & stack = projects.undoStack();
    if (added.size() > 1)
        stack.beginMacro(tr("Add %1 materials").arg(added.size()));
    for (const MaterialReference & material : added)
        stack.push(
            new HygUndoAddMaterial(tr("Add material %1").arg(QString::fromStdString(material.m_name)), material));
    if (added.size() > 1)
        stack.endMacro();
    return static_cast<int>(added.size());
}

void HygProjectMaterials::replace(HygProjectHandler & projects, std::size_t index, const QString & path) {
    const std::string before = projects.project().m_materials.at(index).m_name;
    const MaterialReference after = referenceTo(projects.project(), path, before);
    projects.undoStack().push(new HygUndoModifyMaterial(tr("Replace material %1").arg(QString::fromStdString(before)),
                                                        static_cast<unsigned int>(index), after));
}

int HygProjectMaterials::removeUnused(HygProjectHandler & projects) {
    std::vector<unsigned int> unused;
    const Project & project = projects.project();
    for (std::size_t i = 0; i < project.m_materials.size(); ++i)
        if (project.referencesTo(HYGRION::definition_t::Material, project.m_materials[i].m_name).empty())
            unused.push_back(static_cast<unsigned int>(i));
    if (unused.empty())
        return 0;
    const QString text = tr("Remove unused materials");
    projects.undoStack().beginMacro(text);
    for (auto index = unused.rbegin(); index != unused.rend(); ++index)
        projects.undoStack().push(HygUndoRemoveMaterial::createUndoAction(text, *index).release());
    projects.undoStack().endMacro();
    return static_cast<int>(unused.size());
}

void HygProjectMaterials::remove(HygProjectHandler & projects, std::size_t index) {
    const QString name = QString::fromStdString(projects.project().m_materials.at(index).m_name);
    HygEditing::removeDefinition(projects.undoStack(), tr("Remove material %1").arg(name), projects.project(),
                                 HYGRION::definition_t::Material, static_cast<unsigned int>(index));
}
