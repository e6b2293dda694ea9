#include "materials/HygMaterialFunctionPage.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialPointModel.h"
#include "materials/HygMaterialTable.h"

#include <QtExt/Palette.h>

#include <SCI/Chart.h>

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QSplitter>
#include <QToolButton>

namespace {

constexpr double CATCH = 8;           ///< distance [px] within which the mouse catches a point
constexpr int MOST_CANDIDATES = 1000; ///< looked at when many points share a few pixels

} // namespace

HygMaterialFunctionPage::HygMaterialFunctionPage(HygMaterialDocument & document, QWidget * parent)
    : QWidget(parent), m_document(document), m_points(new HygMaterialPointModel(document, this)),
      m_list(new QListWidget(this)), m_table(new HygMaterialTable(*m_points, QStringLiteral("pointTable"), this)),
      m_remove(new QToolButton(this)), m_chart(new SCI::Chart(this)), m_finding(new QLabel(this)) {
    m_list->setObjectName(QStringLiteral("functionList"));
    m_table->view().horizontalHeader()->setMinimumHeight(3 * fontMetrics().height() + 8);
    m_remove->setObjectName(QStringLiteral("functionRemove"));
    m_remove->setIcon(HygIconEngine::icon(QStringLiteral("clear")));
    connect(m_remove, &QToolButton::clicked, m_points, &HygMaterialPointModel::clearPoints);
    m_table->addTool(m_remove);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_chart->setObjectName(QStringLiteral("functionChart"));
    m_chart->setMinimumSize(220, 160);
    m_chart->canvas().installEventFilter(this);
    m_chart->canvas().setMouseTracking(true);
    m_finding->setObjectName(QStringLiteral("functionFinding"));
    m_finding->setWordWrap(true);

    auto * splitter = new QSplitter(this);
    splitter->addWidget(m_list);
    splitter->addWidget(m_table);
    splitter->addWidget(m_chart);
    splitter->setSizes({250, 270, 380});
    splitter->setStretchFactor(2, 1);
    splitter->setChildrenCollapsible(false);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_finding);
    layout->addWidget(splitter, 1);

    connect(m_list, &QListWidget::currentRowChanged, this, &HygMaterialFunctionPage::choose);
    connect(m_points, &HygMaterialPointModel::refused, this, &HygMaterialFunctionPage::refused);
    connect(m_table, &HygMaterialTable::refused, this, &HygMaterialFunctionPage::refused);
    connect(&m_document, &HygMaterialDocument::changed, this, [this] {
        updateList();
        m_chart->dataChanged();
    });
    updateList();
    retranslate();
    // Begin with a function that is there.
    int first = 0;
    while (first < static_cast<int>(m_places.size()) - 1 &&
           HygMaterialFunctions::spline(m_document.material(), m_places[static_cast<std::size_t>(first)]).empty())
        ++first;
    const bool isAny =
        !HygMaterialFunctions::spline(m_document.material(), m_places[static_cast<std::size_t>(first)]).empty();
    m_list->setCurrentRow(isAny ? first : 0);
}

bool HygMaterialFunctionPage::hasFunction(const QString & keyword) const {
    return std::any_of(m_places.begin(), m_places.end(), [&](const auto & place) {
        return keyword == QLatin1String(HygMaterialFunctions::row(place.row).keyword);
    });
}

void HygMaterialFunctionPage::showFunction(const QString & keyword) {
    for (std::size_t i = 0; i < m_places.size(); ++i)
        if (keyword == QLatin1String(HygMaterialFunctions::row(m_places[i].row).keyword)) {
            m_list->setCurrentRow(static_cast<int>(i));
            m_table->view().setFocus(Qt::OtherFocusReason);
            return;
        }
}

void HygMaterialFunctionPage::choose(int index) {
    if (index < 0 || index >= static_cast<int>(m_places.size()))
        return;
    m_points->setPlace(m_places[static_cast<std::size_t>(index)]);
    updateChart();
    updateList();
    updateFinding();
}

void HygMaterialFunctionPage::updateList() {
    const std::vector<HygMaterialFunctions::Place> places = HygMaterialFunctions::places(m_document.material());
    if (places != m_places) {
        const HygMaterialFunctions::Place current = m_points->place();
        m_places = places;
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (std::size_t i = 0; i < m_places.size(); ++i)
            m_list->addItem(QString());
        const auto found = std::find(m_places.begin(), m_places.end(), current);
        m_list->setCurrentRow(found == m_places.end() ? 0 : static_cast<int>(found - m_places.begin()));
        if (found == m_places.end())
            m_points->setPlace(m_places.front());
    }
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        QListWidgetItem & item = *m_list->item(static_cast<int>(i));
        const std::size_t points = HygMaterialFunctions::spline(m_document.material(), m_places[i]).size();
        const QString title = HygMaterialFunctions::title(m_places[i]);
        item.setText(points == 0 ? title : tr("%1 (%2)").arg(title).arg(points));
        const QString keyword = QLatin1String(HygMaterialFunctions::row(m_places[i].row).keyword);
        item.setToolTip(QStringLiteral("%1: %2").arg(keyword, title));
        QFont font = m_list->font();
        font.setBold(points > 0);
        item.setFont(font);
        const bool hasFinding = m_findings.count(keyword) > 0;
        item.setIcon(hasFinding ? HygIconEngine::icon(QStringLiteral("warning"),
                                                      QtExt::Palette::color(QtExt::Palette::WARNING_TEXT))
                                : QIcon());
    }
    m_remove->setEnabled(!m_points->spline().empty());
    m_table->updateTools();
}

void HygMaterialFunctionPage::updateChart() {
    const HygMaterialFunctions::Place & place = m_points->place();
    const HygMaterialFunctions::Row & row = HygMaterialFunctions::row(place.row);
    m_chart->remove(SCI::Chart::ALL);
    m_chart->setAxis(
        SCI::X_BOTTOM,
        {.title = HygMaterialFunctions::xTitle(place), .dataUnit = QLatin1String(row.xUnit), .shownUnit = {}});
    m_chart->setAxis(
        SCI::Y_LEFT,
        {.title = HygMaterialFunctions::yTitle(place), .dataUnit = QLatin1String(row.yUnit), .shownUnit = {}});
    SCI::LineStyle style;
    style.hasPoints = true;
    m_series = m_chart->addLine(std::make_shared<HygMaterialPointModel::Series>(*m_points), style);
    m_chart->showAll();
}

void HygMaterialFunctionPage::setFindings(const std::map<QString, QString> & findings) {
    m_findings = findings;
    updateList();
    updateFinding();
}

void HygMaterialFunctionPage::updateFinding() {
    const auto found = m_findings.find(QLatin1String(HygMaterialFunctions::row(m_points->place().row).keyword));
    m_finding->setText(found == m_findings.end() ? QString() : found->second);
    m_finding->setVisible(found != m_findings.end());
    QPalette warning;
    warning.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
    m_finding->setPalette(warning);
}

int HygMaterialFunctionPage::pointAt(const QPointF & place) const {
    const KOR::LinearSpline & spline = m_points->spline();
    if (!spline.valid())
        return -1;
    // Of a long table only the points within reach are looked at.
    const std::vector<double> & x = spline.x();
    const auto first = std::lower_bound(x.begin(), x.end(), m_chart->fromCanvas({place.x() - CATCH, place.y()}).x());
    const auto last = std::upper_bound(first, x.end(), m_chart->fromCanvas({place.x() + CATCH, place.y()}).x());
    int nearest = -1;
    double distance = CATCH;
    for (auto point = first; point != last && point - first < MOST_CANDIDATES; ++point) {
        const auto i = static_cast<std::size_t>(point - x.begin());
        const QPointF offset = m_chart->toCanvas({x[i], spline.y()[i]}) - place;
        if (const double length = std::hypot(offset.x(), offset.y()); length < distance) {
            distance = length;
            nearest = static_cast<int>(i);
        }
    }
    return nearest;
}

bool HygMaterialFunctionPage::dragPoint(QObject *, QEvent * event) {
    const auto & mouse = static_cast<const QMouseEvent &>(*event);
    QWidget & canvas = m_chart->canvas();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse.button() != Qt::LeftButton)
            return false;
        m_dragged = pointAt(mouse.localPos());
        if (m_dragged < 0)
            return false;
        ++m_drags;
        m_table->view().setCurrentIndex(m_points->index(m_dragged, HygMaterialPointModel::YColumn));
        // The axes stand still while a point is moved.
        for (const SCI::axis_t axis : {SCI::X_BOTTOM, SCI::Y_LEFT})
            m_chart->setRange(axis, m_chart->range(axis));
        return true;
    case QEvent::MouseMove:
        if (m_dragged < 0) {
            canvas.setCursor(pointAt(mouse.localPos()) >= 0 ? Qt::SizeAllCursor : Qt::CrossCursor);
            return false;
        }
        {
            const QPointF values = m_chart->fromCanvas(mouse.localPos());
            const QPointF beside = m_chart->fromCanvas(mouse.localPos() + QPointF(1, 1));
            m_points->movePoint(m_dragged, values.x(), values.y(), std::abs(beside.x() - values.x()),
                                std::abs(beside.y() - values.y()), QStringLiteral("drag%1").arg(m_drags));
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (m_dragged < 0)
            return false;
        m_dragged = -1;
        m_chart->showAll();
        return true;
    default:
        return false;
    }
}

bool HygMaterialFunctionPage::eventFilter(QObject * watched, QEvent * event) {
    if (watched == &m_chart->canvas() && dragPoint(watched, event))
        return true;
    return QWidget::eventFilter(watched, event);
}

void HygMaterialFunctionPage::retranslate() {
    m_remove->setToolTip(tr("Remove all points of the function"));
    m_remove->setAccessibleName(tr("Remove function"));
    m_list->setAccessibleName(tr("Functions"));
    m_list->setToolTip(tr("Functions that a material can have; bold ones have points"));
    m_table->view().setAccessibleName(tr("Points of the function"));
    m_chart->setAccessibleName(tr("Chart of the function"));
    m_chart->setToolTip(tr("Drag a point to move it"));
    updateList();
    updateChart();
    m_points->retranslate();
}

void HygMaterialFunctionPage::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        updateFinding();
}
