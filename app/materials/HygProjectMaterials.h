#pragma once

#include <HYGRION/Project.h>

#include <QString>
#include <QStringList>

class HygProjectHandler;

/// What is done with the materials of the project; each function is one step of undo.
namespace HygProjectMaterials {

/// A reference to a material file as the project keeps it: with the material's name, made different from those of the
/// project, its colour and hatching, and a path with a placeholder where one fits. Throws what MM::Material::read throws.
HYGRION::MaterialReference reference(const HYGRION::Project & project, const QString & path);
/// The file for the operating system; placeholders that nobody defines stay in it.
QString file(const HYGRION::Project & project, const HYGRION::MaterialReference & reference);
/// The index of the material with a file, -1 if the project has none.
int find(const HYGRION::Project & project, const QString & path);
/// The assignments of a material, in words.
QStringList uses(const HYGRION::Project & project, const std::string & name);

/// Adds the materials that the project does not have yet. \return the number added. Throws as reference().
int add(HygProjectHandler & projects, const QStringList & paths);
/// Puts another material in the place of one; what was assigned stays assigned. Throws as reference().
void replace(HygProjectHandler & projects, std::size_t index, const QString & path);
/// Removes the materials that nothing refers to. \return their number
int removeUnused(HygProjectHandler & projects);
/// Removes a material with its assignments.
void remove(HygProjectHandler & projects, std::size_t index);

} // namespace HygProjectMaterials
