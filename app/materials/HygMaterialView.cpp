#include "materials/HygMaterialView.h"

#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDBWidget.h"
#include "materials/HygProjectMaterials.h"
#include "materials/HygProjectMaterialsWidget.h"

#include <QAction>
#include <QBoxLayout>
#include <QSplitter>

HygMaterialView::HygMaterialView(HygProjectHandler * projects, QWidget * parent)
    : QWidget(parent), m_projects(*projects) {}

void HygMaterialView::showEvent(QShowEvent * event) {
    if (m_database == nullptr)
        setUp();
    QWidget::showEvent(event);
}

void HygMaterialView::showMaterial(const QString & path) {
    if (m_database == nullptr)
        setUp();
    m_database->setCurrentPath(path);
}

void HygMaterialView::setUp() {
    const std::shared_ptr<HygMaterialDB> database = HygMaterialDB::shared();
    auto * splitter = new QSplitter(this);
    m_project = new HygProjectMaterialsWidget(m_projects, *database, splitter);
    m_database = new HygMaterialDBWidget(database, splitter);
    splitter->addWidget(m_project);
    splitter->addWidget(m_database);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({300, 900});
    splitter->setChildrenCollapsible(false);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    for (QAction * action : m_database->actions())
        addAction(action);

    connect(m_database, &HygMaterialDBWidget::activated, this, &HygMaterialView::activate);
    connect(m_project, &HygProjectMaterialsWidget::currentChanged, m_database, &HygMaterialDBWidget::setCurrentPath);
    connect(m_project, &HygProjectMaterialsWidget::problem, m_database, &HygMaterialDBWidget::showProblem);
    const auto update = [this] { m_project->setVisible(m_projects.hasProject()); };
    connect(&m_projects, &HygProjectHandler::modified, m_project, update);
    update();
}

void HygMaterialView::activate(const QString & path) {
    if (!m_projects.hasProject()) {
        m_database->edit();
        return;
    }
    // Whoever has a selection takes the material for it; otherwise the project only gets it.
    emit HygMaterialDB::shared()->assignRequested(path);
    if (HygProjectMaterials::find(m_projects.project(), path) < 0)
        m_project->add({path});
}
