#include "materials/HygProjectMaterialFiles.h"

#include "document/HygProjectHandler.h"
#include "materials/HygProjectMaterials.h"
#include "undo/HygModification.h"

#include <MM/Material.h>

#include <QDir>
#include <QFileInfo>

#include <set>

namespace {

constexpr int UPDATE_MS = 100;

} // namespace

HygProjectMaterialFiles & HygProjectMaterialFiles::of(HygProjectHandler & projects) {
    auto * found = projects.findChild<HygProjectMaterialFiles *>(QString(), Qt::FindDirectChildrenOnly);
    return found != nullptr ? *found : *new HygProjectMaterialFiles(projects);
}

HygProjectMaterialFiles::HygProjectMaterialFiles(HygProjectHandler & projects)
    : QObject(&projects), m_projects(projects) {
    m_updateTimer.setSingleShot(true);
    m_updateTimer.setInterval(UPDATE_MS);
    connect(&m_updateTimer, &QTimer::timeout, this, [this] {
        for (const auto & [path, file] : m_files)
            check(path);
    });
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_updateTimer, QOverload<>::of(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_updateTimer, QOverload<>::of(&QTimer::start));
    connect(&m_loader, &HygMaterialLoader::loaded, this, &HygProjectMaterialFiles::takeOver);
    connect(&m_projects, &HygProjectHandler::modified, this, [this](int code) {
        if (code == HygModification::MaterialAdded || code == HygModification::MaterialModified ||
            code == HygModification::MaterialRemoved || code == HygModification::ProjectReplaced)
            update();
    });
    update();
}

QString HygProjectMaterialFiles::absence(const QString & path) {
    if (QFileInfo(path).isFile())
        return {};
    return path.startsWith(QStringLiteral("${"))
               ? tr("The path '%1' begins with a placeholder that the project does not define.").arg(path)
               : tr("The file '%1' does not exist.").arg(QDir::toNativeSeparators(path));
}

HygProjectMaterialFiles::File HygProjectMaterialFiles::file(std::size_t index) const {
    const HYGRION::Project & project = m_projects.project();
    if (index >= project.m_materials.size())
        return {};
    const auto found = m_files.find(HygProjectMaterials::file(project, project.m_materials[index]));
    return found == m_files.end() ? File() : found->second;
}

std::vector<QString> HygProjectMaterialFiles::problems() const {
    std::vector<QString> found;
    for (std::size_t i = 0; i < m_projects.project().m_materials.size(); ++i) {
        const File known = file(i);
        found.push_back(known.state == Missing || known.state == Broken ? known.problem : QString());
    }
    return found;
}

void HygProjectMaterialFiles::accept(std::size_t index) {
    const HYGRION::Project & project = m_projects.project();
    const auto found = m_files.find(HygProjectMaterials::file(project, project.m_materials.at(index)));
    if (found == m_files.end() || found->second.state != Changed)
        return;
    found->second.state = Good;
    found->second.problem.clear();
    emit changed();
}

void HygProjectMaterialFiles::update() {
    const HYGRION::Project & project = m_projects.project();
    if (m_projects.projectFile() != m_projectFile) // of another project nothing is known
        m_files.clear();
    m_projectFile = m_projects.projectFile();
    std::set<QString> wanted;
    for (const HYGRION::MaterialReference & material : project.m_materials)
        wanted.insert(HygProjectMaterials::file(project, material));
    for (auto file = m_files.begin(); file != m_files.end();)
        file = wanted.count(file->first) > 0 ? std::next(file) : m_files.erase(file);
    for (const QString & path : wanted)
        if (m_files.count(path) == 0) {
            m_files[path];
            check(path);
        }
    emit changed();
}

void HygProjectMaterialFiles::check(const QString & path) {
    File & file = m_files[path];
    const QFileInfo info(path);
    // The directory tells when a file that is missing comes back.
    for (const QString & watched : {path, info.absolutePath()})
        if (!m_watcher.files().contains(watched) && !m_watcher.directories().contains(watched) &&
            QFileInfo::exists(watched))
            m_watcher.addPath(watched);
    const QString problem = absence(path);
    if (problem.isEmpty()) {
        m_loader.load(path);
        return;
    }
    if (file.state == Missing && file.problem == problem)
        return;
    file.state = Missing;
    file.problem = problem;
    emit changed();
}

void HygProjectMaterialFiles::takeOver(const QString & path, const HygMaterialLoader::Loaded & result) {
    const auto found = m_files.find(path);
    if (found == m_files.end())
        return;
    File & file = found->second;
    const File before = file;
    const bool isOther = before.material && result.material && !(*before.material == *result.material);
    if (result.material)
        file.material = result.material;
    file.problem = result.problem;
    if (!result.problem.isEmpty()) {
        file.state = Broken;
    } else if (isOther || before.state == Changed) {
        file.state = Changed;
        file.problem =
            tr("The file has changed on the disk since the project was opened. Calculations use it as it is now.");
    } else {
        file.state = Good;
    }
    if (file.state != before.state || file.problem != before.problem || isOther)
        emit changed();
    if (isOther)
        emit changedOnDisk(path);
}
