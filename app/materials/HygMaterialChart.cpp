#include "materials/HygMaterialChart.h"

#include <MM/Material.h>

#include <SCI/Chart.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QStandardItemModel>

using namespace HygMaterialCurves;

HygMaterialChart::HygMaterialChart(QWidget * parent)
    : QWidget(parent), m_choice(new QComboBox(this)), m_chart(new SCI::Chart(this)), m_missing(new QLabel(this)) {
    m_choice->setObjectName(QStringLiteral("materialFunction"));
    m_chart->setObjectName(QStringLiteral("materialChart"));
    m_missing->setObjectName(QStringLiteral("materialMissing"));
    m_missing->setWordWrap(true);
    m_missing->setForegroundRole(QPalette::PlaceholderText);
    for (int curve = 0; curve < NUM_CURVES; ++curve)
        m_choice->addItem(QString());
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_chart->setMinimumSize(220, 160);

    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_choice);
    layout->addWidget(m_chart, 1);
    layout->addWidget(m_missing);
    connect(m_choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index) { setCurve(static_cast<curve_t>(index)); });
    retranslate();
}

void HygMaterialChart::setMaterials(std::vector<Material> materials) {
    if (materials == m_materials)
        return;
    m_materials = std::move(materials);
    m_curve = m_wanted;
    for (int curve = 0; curve < NUM_CURVES && !isThere(m_curve); ++curve)
        m_curve = static_cast<curve_t>(curve);
    if (!isThere(m_curve)) // a material without any
        m_curve = m_wanted;
    updateChoice();
    draw();
}

void HygMaterialChart::setCurve(curve_t curve) {
    m_wanted = curve;
    if (curve == m_curve)
        return;
    m_curve = curve;
    updateChoice();
    draw();
}

bool HygMaterialChart::isThere(curve_t curve) const {
    return m_materials.empty() || std::any_of(m_materials.begin(), m_materials.end(), [&](const Material & shown) {
               return !directions(curve, *shown.material).empty();
           });
}

void HygMaterialChart::updateChoice() {
    auto & items = static_cast<QStandardItemModel &>(*m_choice->model());
    for (int curve = 0; curve < NUM_CURVES; ++curve)
        items.item(curve)->setEnabled(isThere(static_cast<curve_t>(curve)));
    const QSignalBlocker blocker(m_choice);
    m_choice->setCurrentIndex(m_curve);
}

void HygMaterialChart::draw() {
    m_chart->remove(SCI::Chart::ALL);
    m_chart->setAxis(SCI::X_BOTTOM, xAxis(m_curve));
    m_chart->setAxis(SCI::Y_LEFT, yAxis(m_curve));
    static constexpr const char * DIRECTIONS[] = {"u", "v", "w"};
    QStringList missing;
    for (const Material & shown : m_materials) {
        const std::vector<int> found = directions(m_curve, *shown.material);
        if (found.empty())
            missing << shown.title;
        for (const int direction : found) {
            SCI::LineStyle style;
            style.title = found.size() > 1
                              ? tr("%1, direction %2").arg(shown.title, QLatin1String(DIRECTIONS[direction]))
                              : shown.title;
            m_chart->addLine(model(m_curve, shown.material, direction), style);
        }
    }
    m_chart->resetView();
    m_missing->setText(missing.isEmpty() ? QString()
                                         : tr("Without this function: %1").arg(missing.join(QStringLiteral(", "))));
    m_missing->setVisible(!missing.isEmpty());
}

void HygMaterialChart::retranslate() {
    for (int curve = 0; curve < NUM_CURVES; ++curve)
        m_choice->setItemText(curve, title(static_cast<curve_t>(curve)));
    m_choice->setAccessibleName(tr("Function of the material"));
    m_choice->setToolTip(tr("Function that the chart shows; grey ones are not given"));
    m_chart->setAccessibleName(tr("Chart of the function"));
    draw();
}

void HygMaterialChart::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
