#include "materials/HygMaterialModelPage.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialChart.h"
#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialModelTable.h"
#include "materials/HygMaterialTable.h"
#include "materials/HygMaterialTexts.h"

#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>

using namespace HygMaterialModels;

HygMaterialModelPage::HygMaterialModelPage(HygMaterialDocument & document, QWidget * parent)
    : QWidget(parent), m_document(document), m_parameters(new HygMaterialModelTable(document, this)),
      m_list(new QListWidget(this)), m_add(new QToolButton(this)), m_menu(new QMenu(this)),
      m_remove(new QToolButton(this)), m_hint(new QLabel(this)), m_problem(new QLabel(this)),
      m_table(new HygMaterialTable(*m_parameters, QStringLiteral("modelTable"), this)),
      m_chart(new HygMaterialChart(this)) {
    m_list->setObjectName(QStringLiteral("modelList"));
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_add->setObjectName(QStringLiteral("modelAdd"));
    m_add->setIcon(HygIconEngine::icon(QStringLiteral("add")));
    m_add->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_add->setPopupMode(QToolButton::InstantPopup);
    m_add->setMenu(m_menu);
    m_remove->setObjectName(QStringLiteral("modelRemove"));
    m_remove->setIcon(HygIconEngine::icon(QStringLiteral("remove")));
    m_hint->setObjectName(QStringLiteral("modelHint"));
    m_problem->setObjectName(QStringLiteral("modelProblem"));
    for (QLabel * label : {m_hint, m_problem})
        label->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    for (QToolButton * button : {m_add, m_remove}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
    }
    m_table->view().horizontalHeader()->setMinimumHeight(4 * fontMetrics().height() + 8);

    auto * left = new QWidget(this);
    auto * tools = new QHBoxLayout;
    tools->addWidget(m_add);
    tools->addWidget(m_remove);
    tools->addStretch(1);
    auto * leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addLayout(tools);
    leftLayout->addWidget(m_list, 1);
    auto * splitter = new QSplitter(this);
    splitter->addWidget(left);
    splitter->addWidget(m_table);
    splitter->addWidget(m_chart);
    splitter->setSizes({250, 330, 320});
    splitter->setStretchFactor(2, 1);
    splitter->setChildrenCollapsible(false);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hint);
    layout->addWidget(m_problem);
    layout->addWidget(splitter, 1);

    connect(m_menu, &QMenu::aboutToShow, this, &HygMaterialModelPage::fillMenu);
    connect(m_remove, &QToolButton::clicked, this, &HygMaterialModelPage::remove);
    connect(m_list, &QListWidget::currentRowChanged, this, &HygMaterialModelPage::choose);
    connect(m_parameters, &HygMaterialModelTable::refused, this, &HygMaterialModelPage::refused);
    connect(m_table, &HygMaterialTable::refused, this, &HygMaterialModelPage::refused);
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialModelPage::updateList);
    connect(&m_document, &HygMaterialDocument::checked, this, &HygMaterialModelPage::showChart);
    retranslate();
    updateList();
    showFirst();
}

void HygMaterialModelPage::showFirst() {
    if (m_list->count() > 0)
        m_list->setCurrentRow(0);
}

void HygMaterialModelPage::fillMenu() {
    m_menu->clear();
    for (const Row & row : rows())
        for (int direction = 0; direction < static_cast<int>(MM::Material::NUM_DIRECTIONS); ++direction)
            if (canAdd(m_document.material(), row, direction)) {
                QAction * action =
                    m_menu->addAction(title(row, direction), this, [this, &row, direction] { add(row, direction); });
                action->setObjectName(QLatin1String(row.type));
            }
    if (m_menu->isEmpty())
        m_menu->addAction(tr("The material has a model of each kind"))->setEnabled(false);
}

void HygMaterialModelPage::add(const Row & row, int direction) {
    Place place;
    m_document.change(tr("Add model"),
                      [&](MM::Material & material) { place = HygMaterialModels::add(material, row, direction); });
    const auto found = std::find(m_places.begin(), m_places.end(), place);
    m_list->setCurrentRow(static_cast<int>(found - m_places.begin()));
}

void HygMaterialModelPage::remove() {
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    const Place place = m_places[static_cast<std::size_t>(row)];
    m_document.change(tr("Remove model"), [&](MM::Material & material) { HygMaterialModels::remove(material, place); });
}

void HygMaterialModelPage::choose(int index) {
    const bool isAny = index >= 0 && index < static_cast<int>(m_places.size());
    const auto place = isAny ? std::optional(m_places[static_cast<std::size_t>(index)]) : std::nullopt;
    m_parameters->setPlace(place);
    if (isAny)
        m_chart->setCurve(place->section == MoistureTransport ? HygMaterialCurves::VaporResistance
                                                              : HygMaterialCurves::StoragePC);
    updateState();
    showChart();
}

void HygMaterialModelPage::updateList() {
    const std::vector<Place> places = HygMaterialModels::places(m_document.material());
    const int before = m_list->currentRow();
    const bool isOther = places != m_places;
    m_places = places;
    {
        const QSignalBlocker blocker(m_list);
        while (m_list->count() > static_cast<int>(m_places.size()))
            delete m_list->takeItem(m_list->count() - 1);
        while (m_list->count() < static_cast<int>(m_places.size()))
            m_list->addItem(QString());
        for (std::size_t i = 0; i < m_places.size(); ++i) {
            const MM::ModelDataContainer & held = model(m_document.material(), m_places[i]);
            QListWidgetItem & item = *m_list->item(static_cast<int>(i));
            item.setText(title(m_places[i], held));
            item.setToolTip(QString::fromStdString(held.m_type));
            item.setIcon(problem(m_places[i], held).isEmpty()
                             ? QIcon()
                             : HygIconEngine::icon(QStringLiteral("warning"),
                                                   QtExt::Palette::color(QtExt::Palette::WARNING_TEXT)));
        }
        if (isOther)
            m_list->setCurrentRow(std::min(std::max(before, 0), m_list->count() - 1));
    }
    if (isOther)
        choose(m_list->currentRow());
    updateState();
}

void HygMaterialModelPage::updateState() {
    const int row = m_list->currentRow();
    const bool isAny = row >= 0 && row < static_cast<int>(m_places.size());
    QString text;
    QString hint =
        tr("The material has no models. A model makes a function out of a few parameters; it counts where the "
           "function itself is not given as points.");
    if (isAny) {
        const Place & place = m_places[static_cast<std::size_t>(row)];
        const MM::ModelDataContainer & held = model(m_document.material(), place);
        text = problem(place, held);
        hint.clear();
        if (!held.m_functions.empty())
            hint = tr("The model has %n tabulated functions of its own, which are kept as they stand.", nullptr,
                      static_cast<int>(held.m_functions.size()));
    }
    m_hint->setText(hint);
    m_hint->setVisible(!hint.isEmpty());
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
    QPalette warning = palette();
    warning.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
    m_problem->setPalette(warning);
    m_remove->setEnabled(isAny);
    m_table->setEnabled(isAny);
    m_table->updateTools();
}

void HygMaterialModelPage::showChart() {
    if (!m_document.prepared())
        return;
    const QString name = QString::fromStdString(m_document.material().name(HygMaterialTexts::language().toStdString()));
    m_chart->setMaterials(m_places.empty() ? std::vector<HygMaterialChart::Material>()
                                           : std::vector<HygMaterialChart::Material>{
                                                 {m_document.prepared(), name}
    });
}

void HygMaterialModelPage::retranslate() {
    m_add->setText(tr("Add model"));
    m_add->setToolTip(tr("Add a model to the material"));
    m_remove->setToolTip(tr("Remove the chosen model"));
    m_remove->setAccessibleName(tr("Remove model"));
    m_list->setAccessibleName(tr("Models"));
    m_list->setToolTip(tr("Models of the material"));
    m_table->view().setAccessibleName(tr("Parameters of the model"));
    updateList();
}

void HygMaterialModelPage::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        updateState();
}
