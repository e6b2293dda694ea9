#include "HygSimulationChecks.h"

#include "HygCoreMessages.h"
#include "HygIconEngine.h"
#include "document/HygProjectHandler.h"
#include "materials/HygProjectMaterialFiles.h"

#include <QtExt/Palette.h>

#include <CCM/ClimateDataLoader.h>
#include <HYGRION/Defaults.h>
#include <MM/CheckMaterial.h>
#include <MM/Material.h>
#include <SOLVER/CheckProject.h>

#include <KOR/Exception.h>

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QRegularExpression>
#include <QThread>
#include <QTimer>

using Finding = HygSimulationChecks::Finding;
using HYGRION::Project;

namespace {

constexpr int DELAY_MS = 400;
constexpr QLatin1String CLIMATE_FILE("ClimateDataFilePath"); ///< field of the model options
enum role_t { PLACE = Qt::UserRole, SETTING };

/// The parameter that a message of the settings is about: "Parameter 'RelTol' is -1, it must be positive."
QString settingIn(const QString & message) {
    static const QRegularExpression PARAMETER(QStringLiteral("Parameter '(\\w+)'"));
    constexpr std::pair<const char *, const char *> BEGINNINGS[] = {
        {"Flux module",             "FluxModules"          },
        {"Source module",           "SourceModules"        },
        {"Balance equation module", "BalanceEquationModule"},
    };
    for (const auto & [beginning, field] : BEGINNINGS)
        if (message.startsWith(QLatin1String(beginning)))
            return QLatin1String(field);
    return PARAMETER.match(message).captured(1);
}

void checkProject(const Project & project, std::vector<Finding> & findings) {
    for (const auto & found : SOLVER::checkProject(project)) {
        const QString place = QString::fromStdString(found.place), message = QString::fromStdString(found.message);
        findings.push_back({found.severity == HYGRION::ProjectCheck::FAULT ? Finding::ERROR : Finding::WARNING, place,
                            message, place == QLatin1String("Init") ? settingIn(message) : QString()});
    }
}

/// Faults of the materials in use; one that cannot be read stops the run.
void checkMaterials(const Project & project, const std::atomic<bool> & isStopped, std::vector<Finding> & findings) {
    std::vector<std::size_t> used;
    try {
        used = project.extractUsedMaterials();
    } catch (const KOR::Exception &) {
        return; // named by the check of the project
    }
    for (const std::size_t index : used) {
        if (isStopped)
            return;
        const HYGRION::MaterialReference & reference = project.m_materials[index];
        const QString place = QStringLiteral("material '%1'").arg(QString::fromStdString(reference.m_name));
        const KOR::Path path = project.resolved(reference.m_filename);
        if (const QString absence = HygProjectMaterialFiles::absence(QString::fromStdString(path.str()));
            !absence.isEmpty()) {
            findings.push_back({Finding::ERROR, place, absence});
            continue;
        }
        try {
            MM::Material material;
            material.read(path.str());
            for (const MM::Finding & found : MM::checkMaterial(material))
                if (found.isFault)
                    findings.push_back(
                        {Finding::WARNING, place,
                         QString::fromUtf8(found.message.data(), static_cast<int>(found.message.size()))});
        } catch (const KOR::Exception & ex) {
            findings.push_back({Finding::ERROR, place, QString::fromStdString(ex.cause())});
        }
    }
}

bool usesClimateFile(const Project & project) {
    const auto & climates = project.m_conditions.m_climateConditions;
    const bool byCondition = std::any_of(climates.begin(), climates.end(), [](const HYGRION::ClimateCond & condition) {
        return condition.m_kind == HYGRION::ClimateCond::kind_t::CCM && condition.m_filename.empty();
    });
    return byCondition;
}

void checkClimate(const Project & project, std::vector<Finding> & findings) {
    const KOR::Path & given = project.m_init.m_climateDataFilePath;
    if (given.empty()) {
        if (usesClimateFile(project))
            findings.push_back(
                {Finding::ERROR, QStringLiteral("Init"),
                 HygSimulationChecks::tr("There is no climate data file, but conditions take their values from it."),
                 CLIMATE_FILE});
        return;
    }
    const KOR::Path path = project.resolved(given);
    if (path.placeholder() || !path.isFile()) {
        findings.push_back({Finding::ERROR, QStringLiteral("Init"),
                            HygSimulationChecks::tr("The climate data file '%1' does not exist.")
                                .arg(QString::fromStdString(path.str())),
                            CLIMATE_FILE});
        return;
    }
    try {
        CCM::ClimateDataLoader loader;
        loader.readClimateData(path.str());
    } catch (const KOR::Exception & ex) {
        findings.push_back({Finding::ERROR, QStringLiteral("Init"), QString::fromStdString(ex.cause()), CLIMATE_FILE});
    }
}

void checkOutputs(const Project & project, std::vector<Finding> & findings) {
    if (project.m_outputs.m_outputFiles.empty())
        findings.push_back({Finding::WARNING, QStringLiteral("Outputs"),
                            HygSimulationChecks::tr("No outputs are defined; the run would leave no results.")});
    for (const HYGRION::OutputFile & file : project.m_outputs.m_outputFiles) {
        const auto & all = project.m_assignments.m_list;
        const bool isAssigned = std::any_of(all.begin(), all.end(), [&file](const HYGRION::Assignment & assignment) {
            return assignment.m_type == HYGRION::Assignment::type_t::Output && assignment.m_reference == file.m_name;
        });
        if (!isAssigned)
            findings.push_back({Finding::WARNING,
                                QStringLiteral("output file '%1'").arg(QString::fromStdString(file.m_name)),
                                HygSimulationChecks::tr("The output is not assigned to any place.")});
    }
}

void checkInit(const Project & project, std::vector<Finding> & findings) {
    const bool hasEnd = std::isfinite(project.m_init.m_interval.end());
    if (!hasEnd)
        findings.push_back({Finding::ERROR, QStringLiteral("Init"),
                            HygSimulationChecks::tr("The simulation has no end: give a duration or an end."),
                            QStringLiteral("Duration")});
}

} // namespace

HygSimulationChecks::HygSimulationChecks(HygProjectHandler & projects, QWidget * parent)
    : QWidget(parent), m_projects(projects), m_heading(new QLabel(this)), m_list(new QListWidget(this)),
      m_delay(new QTimer(this)) {
    m_list->setObjectName(QStringLiteral("checks"));
    m_list->setWordWrap(true);
    m_list->setTextElideMode(Qt::ElideNone);
    m_list->setMinimumHeight(m_list->fontMetrics().lineSpacing() * 3);
    m_heading->setObjectName(QStringLiteral("checksHeading"));
    m_heading->setBuddy(m_list);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_heading);
    layout->addWidget(m_list, 1);
    m_delay->setSingleShot(true);
    m_delay->setInterval(DELAY_MS);
    connect(m_delay, &QTimer::timeout, this, &HygSimulationChecks::start);
    const auto changed = [this] {
        m_isStale = true;
        if (isVisible())
            m_delay->start();
    };
    connect(&m_projects, &HygProjectHandler::modified, this, changed);
    connect(&m_projects, &HygProjectHandler::projectFileChanged, this, changed);
    const auto open = [this](const QListWidgetItem * item) {
        if (item->flags() != Qt::NoItemFlags)
            emit placeRequested(item->data(PLACE).toString(), item->data(SETTING).toString());
    };
    connect(m_list, &QListWidget::itemClicked, this, open);
    connect(m_list, &QListWidget::itemActivated, this, open);
    retranslate();
}

HygSimulationChecks::~HygSimulationChecks() {
    m_isStopped = true;
    if (m_thread != nullptr)
        m_thread->wait();
}

std::vector<Finding> HygSimulationChecks::check(const Project & project, const std::atomic<bool> & isStopped) {
    std::vector<Finding> findings;
    try {
        checkProject(project, findings);
        checkInit(project, findings);
        checkClimate(project, findings);
        checkMaterials(project, isStopped, findings);
        checkOutputs(project, findings);
    } catch (const std::exception & ex) {
        findings.push_back({Finding::ERROR, {}, QString::fromUtf8(ex.what())});
    }
    // A missing file of a material or of the climate is a warning of the project's check; it is named better above. In a
    // detail what is left without material is air.
    const bool isStack = project.m_disc.ny() <= 1 && project.m_disc.nz() <= 1;
    std::erase_if(findings, [isStack](const Finding & found) {
        return (found.place.isEmpty() && found.message.startsWith(QLatin1String("File '"))) ||
               (!isStack && found.message.endsWith(QLatin1String(" cells have no material.")));
    });
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding & a, const Finding & b) { return a.severity < b.severity; });
    return findings;
}

QString HygSimulationChecks::text(const Finding & finding) {
    const QString message = HygCoreMessages::translated(finding.message);
    return finding.place.isEmpty() ? message : HygCoreMessages::translatedPlace(finding.place) + ": " + message;
}

void HygSimulationChecks::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    if (m_isStale)
        m_delay->start();
}

void HygSimulationChecks::start() {
    if (!m_projects.hasProject()) {
        m_findings.clear();
        return showFindings();
    }
    if (m_thread != nullptr) // the change came while the one before was being checked
        return;
    m_isStale = false;
    m_result = std::make_shared<std::vector<Finding>>();
    m_thread = QThread::create(
        [this, result = m_result, project = m_projects.project()] { *result = check(project, m_isStopped); });
    m_thread->setParent(this);
    connect(m_thread, &QThread::finished, this, &HygSimulationChecks::finish);
    m_thread->start(QThread::LowPriority);
    showFindings();
}

void HygSimulationChecks::finish() {
    m_thread->deleteLater();
    m_thread = nullptr;
    m_findings = std::move(*m_result);
    showFindings();
    if (m_isStale)
        m_delay->start();
    emit checked();
}

void HygSimulationChecks::showFindings() {
    constexpr const char * ICONS[] = {"error", "warning"};
    m_list->clear();
    for (const Finding & found : m_findings) {
        auto * item = new QListWidgetItem(
            HygIconEngine::icon(QLatin1String(ICONS[found.severity]),
                                QtExt::Palette::color(found.severity == Finding::ERROR ? QtExt::Palette::ERROR_TEXT
                                                                                       : QtExt::Palette::WARNING_TEXT)),
            text(found), m_list);
        item->setData(PLACE, found.place);
        item->setData(SETTING, found.setting);
        item->setToolTip(item->text() + '\n' + tr("Click to go to the place."));
    }
    const auto errors = std::count_if(m_findings.begin(), m_findings.end(),
                                      [](const Finding & found) { return found.severity == Finding::ERROR; });
    if (m_findings.empty()) {
        auto * item = new QListWidgetItem(m_list);
        item->setFlags(Qt::NoItemFlags);
        if (!m_projects.hasProject())
            item->setText(tr("No project is open."));
        else if (isBusy())
            item->setText(tr("Checking…"));
        else
            item->setText(tr("Nothing stands in the way of a run."));
    }
    QString heading = tr("Checks");
    if (errors > 0)
        heading = tr("Checks: %n error(s) would stop the run", nullptr, static_cast<int>(errors));
    else if (!m_findings.empty())
        heading = tr("Checks: %n warning(s)", nullptr, static_cast<int>(m_findings.size()));
    m_heading->setText(heading);
}

void HygSimulationChecks::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        showFindings();
}

void HygSimulationChecks::retranslate() {
    m_list->setAccessibleName(tr("What would stop or spoil the run"));
    showFindings();
}
