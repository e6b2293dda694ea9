#include "materials/HygMaterialFunctionPage.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialPointModel.h"

#include <QtExt/Palette.h>

#include <SCI/Chart.h>

#include <KOR/Exception.h>

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr double CATCH = 8;           ///< distance [px] within which the mouse catches a point
constexpr int MOST_CANDIDATES = 1000; ///< looked at when many points share a few pixels

} // namespace

struct HygMaterialFunctionPage::ToolRow {
    const char * name;
    const char * icon;
    const char * text;
    const char * toolTip;
    void (HygMaterialFunctionPage::*slot)();
    bool needsFunction;
    bool isEditing;
};

// clang-format off
const HygMaterialFunctionPage::ToolRow HygMaterialFunctionPage::TOOLS[] = {
    {"pointInsert", "add", QT_TR_NOOP("Insert point"), QT_TR_NOOP("Insert a point behind the current one (Ins)"), &HygMaterialFunctionPage::insertPoint, false, true},
    {"pointRemove", "remove", QT_TR_NOOP("Remove points"), QT_TR_NOOP("Remove the selected points (Del)"), &HygMaterialFunctionPage::removePoints, true, true},
    {"pointsCopy", "copy", QT_TR_NOOP("Copy points"), QT_TR_NOOP("Copy all points, for a spreadsheet (Ctrl+C)"), &HygMaterialFunctionPage::copyPoints, true, false},
    {"pointsPaste", "replace", QT_TR_NOOP("Paste points"), QT_TR_NOOP("Replace all points by two columns of numbers out of the clipboard (Ctrl+V)"), &HygMaterialFunctionPage::pastePoints, false, true},
    {"functionRemove", "clear", QT_TR_NOOP("Remove function"), QT_TR_NOOP("Remove all points of the function"), &HygMaterialFunctionPage::removeFunction, true, true},
};
// clang-format on

HygMaterialFunctionPage::HygMaterialFunctionPage(HygMaterialDocument & document, QWidget * parent)
    : QWidget(parent), m_document(document), m_points(new HygMaterialPointModel(document, this)),
      m_list(new QListWidget(this)), m_table(new QTableView(this)), m_chart(new SCI::Chart(this)),
      m_finding(new QLabel(this)) {
    m_list->setObjectName(QStringLiteral("functionList"));
    m_table->setObjectName(QStringLiteral("pointTable"));
    m_table->setModel(m_points);
    m_table->setAlternatingRowColors(true);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_table->horizontalHeader()->setMinimumHeight(3 * fontMetrics().height() + 8);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_table->setTabKeyNavigation(false);
    m_table->installEventFilter(this);
    m_chart->setObjectName(QStringLiteral("functionChart"));
    m_chart->setMinimumSize(220, 160);
    m_chart->canvas().installEventFilter(this);
    m_chart->canvas().setMouseTracking(true);
    m_finding->setObjectName(QStringLiteral("functionFinding"));
    m_finding->setWordWrap(true);

    auto * middle = new QWidget(this);
    auto * middleLayout = new QVBoxLayout(middle);
    middleLayout->setContentsMargins(0, 0, 0, 0);
    auto * tools = new QHBoxLayout;
    tools->setSpacing(2);
    for (const ToolRow & row : TOOLS) {
        auto * button = new QToolButton(middle);
        button->setObjectName(QLatin1String(row.name));
        button->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, row.slot);
        tools->addWidget(button);
        m_tools.push_back(button);
    }
    tools->addStretch(1);
    middleLayout->addLayout(tools);
    middleLayout->addWidget(m_table, 1);
    auto * splitter = new QSplitter(this);
    splitter->addWidget(m_list);
    splitter->addWidget(middle);
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

void HygMaterialFunctionPage::setReadOnly(bool isReadOnly) {
    m_isReadOnly = isReadOnly;
    m_points->setReadOnly(isReadOnly);
    updateList();
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
            m_table->setFocus(Qt::OtherFocusReason);
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
    const bool hasFunction = !m_points->spline().empty();
    for (std::size_t i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setEnabled((hasFunction || !TOOLS[i].needsFunction) && !(m_isReadOnly && TOOLS[i].isEditing));
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

void HygMaterialFunctionPage::insertPoint() {
    const int row = m_table->currentIndex().isValid() ? m_table->currentIndex().row() : m_points->rowCount() - 1;
    m_points->insertAfter(row);
    m_table->setCurrentIndex(m_points->index(std::min(row + 1, m_points->rowCount() - 1), 0));
}

void HygMaterialFunctionPage::removePoints() {
    std::vector<int> rows;
    for (const QModelIndex & index : m_table->selectionModel()->selectedIndexes())
        rows.push_back(index.row());
    if (!rows.empty())
        m_points->removePoints(rows);
}

void HygMaterialFunctionPage::copyPoints() {
    QApplication::clipboard()->setText(m_points->text());
}

void HygMaterialFunctionPage::pastePoints() {
    try {
        m_points->setText(QApplication::clipboard()->text());
    } catch (const KOR::Exception & ex) {
        emit refused(QString::fromStdString(ex.message()));
    }
}

void HygMaterialFunctionPage::removeFunction() {
    m_points->clearPoints();
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
    if (m_isReadOnly)
        return false;
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
        m_table->setCurrentIndex(m_points->index(m_dragged, HygMaterialPointModel::YColumn));
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
            m_points->movePoint(m_dragged, values.x(), values.y(), QStringLiteral("drag%1").arg(m_drags));
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
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto & key = static_cast<QKeyEvent &>(*event);
        if (key.matches(QKeySequence::Copy)) {
            copyPoints();
            return true;
        }
        if (!m_isReadOnly && key.matches(QKeySequence::Paste)) {
            pastePoints();
            return true;
        }
        if (!m_isReadOnly && key.key() == Qt::Key_Insert) {
            insertPoint();
            return true;
        }
        if (!m_isReadOnly && key.key() == Qt::Key_Delete) {
            removePoints();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HygMaterialFunctionPage::retranslate() {
    for (std::size_t i = 0; i < m_tools.size(); ++i) {
        m_tools[i]->setToolTip(tr(TOOLS[i].toolTip));
        m_tools[i]->setAccessibleName(tr(TOOLS[i].text));
    }
    m_list->setAccessibleName(tr("Functions"));
    m_list->setToolTip(tr("Functions that a material can have; bold ones have points"));
    m_table->setAccessibleName(tr("Points of the function"));
    m_chart->setAccessibleName(tr("Chart of the function"));
    m_chart->setToolTip(m_isReadOnly ? QString() : tr("Drag a point to move it"));
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
