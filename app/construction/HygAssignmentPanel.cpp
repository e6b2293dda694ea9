#include "construction/HygAssignmentPanel.h"

#include "HygIconEngine.h"
#include "construction/HygAssignmentModel.h"
#include "construction/HygConstructionCanvas.h"

#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QToolButton>

HygAssignmentPanel::HygAssignmentPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, QWidget * parent)
    : QWidget(parent), m_editor(editor), m_canvas(canvas), m_model(new HygAssignmentModel(canvas.scene(), this)),
      m_proxy(new QSortFilterProxyModel(this)), m_search(new QLineEdit(this)), m_table(new QTableView(this)),
      m_find(new QToolButton(this)), m_remove(new QToolButton(this)) {
    setObjectName(QStringLiteral("assignmentPanel"));
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    auto * bar = new QHBoxLayout;
    layout->addLayout(bar);
    m_search->setObjectName(QStringLiteral("assignmentSearch"));
    m_search->setClearButtonEnabled(true);
    bar->addWidget(m_search, 1);
    m_find->setObjectName(QStringLiteral("findAssignment"));
    m_find->setIcon(HygIconEngine::icon(QStringLiteral("zoom_selection")));
    m_remove->setObjectName(QStringLiteral("removeAssignment"));
    m_remove->setIcon(HygIconEngine::icon(QStringLiteral("remove")));
    bar->addWidget(m_find);
    bar->addWidget(m_remove);
    layout->addWidget(m_table, 1);

    m_proxy->setSourceModel(m_model);
    m_proxy->setFilterKeyColumn(-1);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_table->setObjectName(QStringLiteral("assignmentTable"));
    m_table->setModel(m_proxy);
    m_table->setSortingEnabled(true);
    m_proxy->sort(-1); // the order of the list, in which later ones win
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->installEventFilter(this);

    connect(m_search, &QLineEdit::textChanged, m_proxy, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_model, &HygAssignmentModel::changeRequested, this, [this](int row, const HYGRION::Assignment & changed) {
        m_editor.changeAssignment(static_cast<std::size_t>(row), changed);
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &HygAssignmentPanel::highlight);
    connect(m_find, &QToolButton::clicked, this, &HygAssignmentPanel::find);
    connect(m_remove, &QToolButton::clicked, this, &HygAssignmentPanel::remove);
    connect(m_table, &QTableView::doubleClicked, this, [this](const QModelIndex & index) {
        const auto unusable = index.column() == HygAssignmentModel::DefinitionColumn
                                  ? m_model->unusableMaterial(m_proxy->mapToSource(index).row())
                                  : std::nullopt;
        if (unusable)
            emit replaceRequested(*unusable);
        else if ((m_proxy->flags(index) & Qt::ItemIsEditable) == 0)
            find();
    });
    retranslate();
}

void HygAssignmentPanel::retranslate() {
    m_search->setPlaceholderText(tr("Search assignments"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_table->setAccessibleName(tr("Assignments"));
    m_find->setToolTip(tr("Select the cells in the drawing and go there (Enter)"));
    m_find->setAccessibleName(tr("Find in the drawing"));
    m_remove->setToolTip(tr("Remove the chosen assignments (Delete)"));
    m_remove->setAccessibleName(tr("Remove assignments"));
    updateAssignments();
}

void HygAssignmentPanel::updateAssignments() {
    m_model->update();
    const HygConstructionScene & scene = m_canvas.scene();
    const bool hasRows = scene.project != nullptr && scene.project->m_disc.ny() > 1;
    const bool hasPlanes = scene.project != nullptr && scene.project->m_disc.nz() > 1;
    for (const int column : {HygAssignmentModel::FirstRow, HygAssignmentModel::LastRow})
        m_table->setColumnHidden(column, !hasRows);
    for (const int column : {HygAssignmentModel::FirstPlane, HygAssignmentModel::LastPlane})
        m_table->setColumnHidden(column, !hasPlanes);
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = HygAssignmentModel::FirstColumn; column <= HygAssignmentModel::LastPlane; ++column)
        m_table->setColumnWidth(column, 10 * digit);
    m_table->setColumnWidth(HygAssignmentModel::TypeColumn, 15 * digit);
    m_table->setColumnWidth(HygAssignmentModel::DefinitionColumn, 26 * digit);
    m_table->setColumnWidth(HygAssignmentModel::PlaceColumn, 11 * digit);
    highlight();
}

std::vector<std::size_t> HygAssignmentPanel::chosen() const {
    std::vector<std::size_t> rows;
    for (const QModelIndex & index : m_table->selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(m_proxy->mapToSource(index).row()));
    return rows;
}

void HygAssignmentPanel::choose(const std::vector<std::size_t> & indices) {
    m_search->clear(); // which may hide them
    QItemSelection rows;
    for (const std::size_t index : indices) {
        const QModelIndex row = m_proxy->mapFromSource(m_model->index(static_cast<int>(index), 0));
        rows.select(row, row);
    }
    m_table->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!rows.isEmpty()) {
        m_table->scrollTo(rows.first().topLeft());
        m_table->setFocus();
    }
    find();
}

void HygAssignmentPanel::highlight() {
    std::vector<HYGRION::Range> ranges;
    const HygConstructionScene & scene = m_canvas.scene();
    for (const std::size_t row : chosen()) {
        HYGRION::Range range;
        if (scene.project != nullptr && row < scene.project->m_assignments.size() &&
            scene.showsIn(scene.project->m_assignments.m_list[row], range))
            ranges.push_back(range);
    }
    m_find->setEnabled(!chosen().empty());
    m_remove->setEnabled(!chosen().empty());
    m_canvas.highlight(std::move(ranges));
}

void HygAssignmentPanel::find() {
    const std::vector<std::size_t> rows = chosen();
    if (rows.empty())
        return;
    const auto & list = m_canvas.scene().project->m_assignments.m_list;
    const HYGRION::Range first = list[rows.front()].m_range;
    if (m_canvas.scene().plane < first.back || m_canvas.scene().plane > first.front)
        emit planeRequested(static_cast<int>(first.back));
    std::vector<HYGRION::Range> ranges;
    for (const std::size_t row : rows) {
        HYGRION::Range range;
        if (m_canvas.scene().showsIn(list[row], range))
            ranges.push_back(range);
    }
    if (ranges.empty())
        return;
    m_canvas.highlight({});
    m_canvas.select(ranges);
    m_canvas.ensureVisible(ranges.front());
}

void HygAssignmentPanel::remove() {
    if (const std::vector<std::size_t> rows = chosen(); !rows.empty())
        m_editor.removeAssignments(rows);
}

bool HygAssignmentPanel::eventFilter(QObject * watched, QEvent * event) {
    if (watched == m_table && (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const bool isOurs = key == Qt::Key_Delete || key == Qt::Key_Return || key == Qt::Key_Enter;
        if (event->type() == QEvent::ShortcutOverride && (isOurs || key == Qt::Key_F2)) {
            event->accept();
            return true;
        }
        if (event->type() == QEvent::KeyPress && isOurs) {
            if (key == Qt::Key_Delete)
                remove();
            else
                find();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HygAssignmentPanel::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
