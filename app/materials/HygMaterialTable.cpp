#include "materials/HygMaterialTable.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialRowModel.h"

#include <KOR/Exception.h>

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QToolButton>

#include <algorithm>

struct HygMaterialTable::ToolRow {
    const char * name;
    const char * icon;
    const char * text;
    const char * toolTip;
    QKeySequence::StandardKey standardKey; ///< UnknownKey: key
    int key;
    void (HygMaterialTable::*slot)();
    bool needsRows;
    bool isFree; ///< only where rows can be inserted and removed
};

// clang-format off
const HygMaterialTable::ToolRow HygMaterialTable::TOOLS[] = {
    {"rowInsert", "add", QT_TR_NOOP("Insert row"), QT_TR_NOOP("Insert a row behind the current one (Ins)"), QKeySequence::UnknownKey, Qt::Key_Insert, &HygMaterialTable::insertRow, false, true},
    {"rowRemove", "remove", QT_TR_NOOP("Remove rows"), QT_TR_NOOP("Remove the selected rows (Del)"), QKeySequence::UnknownKey, Qt::Key_Delete, &HygMaterialTable::removeRows, true, true},
    {"rowsCopy", "copy", QT_TR_NOOP("Copy rows"), QT_TR_NOOP("Copy all rows, for a spreadsheet (Ctrl+C)"), QKeySequence::Copy, 0, &HygMaterialTable::copyRows, true, false},
    {"rowsPaste", "replace", QT_TR_NOOP("Paste rows"), QT_TR_NOOP("Replace all rows by those in the clipboard (Ctrl+V)"), QKeySequence::Paste, 0, &HygMaterialTable::pasteRows, false, true},
};
// clang-format on

HygMaterialTable::HygMaterialTable(HygMaterialRowModel & rows, const QString & name, QWidget * parent)
    : QWidget(parent), m_rows(rows), m_view(new QTableView(this)), m_bar(new QHBoxLayout) {
    m_view->setObjectName(name);
    m_view->setModel(&m_rows);
    m_view->setAlternatingRowColors(true);
    m_view->setTabKeyNavigation(false);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_view->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_view->installEventFilter(this);
    m_bar->setSpacing(2);
    for (const ToolRow & row : TOOLS) {
        auto * button = new QToolButton(this);
        button->setObjectName(QLatin1String(row.name));
        button->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        connect(button, &QToolButton::clicked, this, row.slot);
        addTool(button);
        m_tools.push_back(button);
    }
    m_bar->addStretch(1);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_bar);
    layout->addWidget(m_view, 1);
    connect(&m_rows, &QAbstractItemModel::modelReset, this, &HygMaterialTable::updateTools);
    retranslate();
    updateTools();
}

void HygMaterialTable::addTool(QToolButton * button) {
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    m_bar->insertWidget(m_bar->count() - (m_tools.size() == std::size(TOOLS) ? 1 : 0), button);
}

void HygMaterialTable::updateTools() {
    const bool hasRows = m_rows.rowCount() > 0;
    for (std::size_t i = 0; i < m_tools.size(); ++i)
        m_tools[i]->setEnabled((hasRows || !TOOLS[i].needsRows) && (m_rows.hasFreeRows() || !TOOLS[i].isFree));
}

void HygMaterialTable::insertRow() {
    const int column = m_view->currentIndex().isValid() ? m_view->currentIndex().column() : 0;
    const int row = m_view->currentIndex().isValid() ? m_view->currentIndex().row() : m_rows.rowCount() - 1;
    m_rows.insertAfter(row);
    m_view->setCurrentIndex(m_rows.index(std::min(row + 1, m_rows.rowCount() - 1), column));
}

void HygMaterialTable::removeRows() {
    std::vector<int> rows;
    // By ranges: a whole long table is one.
    for (const QItemSelectionRange & range : m_view->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.empty())
        m_rows.removeEntries(rows);
}

void HygMaterialTable::copyRows() {
    QApplication::clipboard()->setText(m_rows.text());
}

void HygMaterialTable::pasteRows() {
    try {
        m_rows.setText(QApplication::clipboard()->text());
    } catch (const KOR::Exception & ex) {
        emit refused(QString::fromStdString(ex.message()));
    }
}

bool HygMaterialTable::eventFilter(QObject * watched, QEvent * event) {
    if (watched == m_view && event->type() == QEvent::KeyPress) {
        auto & key = static_cast<QKeyEvent &>(*event);
        for (std::size_t i = 0; i < m_tools.size(); ++i) {
            const bool isPressed = TOOLS[i].standardKey == QKeySequence::UnknownKey
                                       ? key.key() == TOOLS[i].key && key.modifiers() == Qt::NoModifier
                                       : key.matches(TOOLS[i].standardKey);
            if (isPressed && m_tools[i]->isEnabled()) {
                const auto slot = TOOLS[i].slot; // by itself: the sanitizers' build takes the index for unset otherwise
                (this->*slot)();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HygMaterialTable::retranslate() {
    for (std::size_t i = 0; i < m_tools.size(); ++i) {
        m_tools[i]->setToolTip(tr(TOOLS[i].toolTip));
        m_tools[i]->setAccessibleName(tr(TOOLS[i].text));
    }
}

void HygMaterialTable::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
