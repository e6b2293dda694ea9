#include "HygLogView.h"

#include "HygChipButton.h"
#include "HygIconEngine.h"
#include "HygLogFilter.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr std::array<const char *, HygLogModel::NUM_KINDS> SWITCH_TEXTS = {
    QT_TRANSLATE_NOOP("HygLogView", "Information (%1)"), QT_TRANSLATE_NOOP("HygLogView", "Warnings (%1)"),
    QT_TRANSLATE_NOOP("HygLogView", "Errors (%1)"), QT_TRANSLATE_NOOP("HygLogView", "Debug (%1)")};
constexpr std::array<const char *, HygLogModel::NUM_KINDS> SWITCH_NAMES = {"showInformation", "showWarnings",
                                                                           "showErrors", "showDebug"};

} // namespace

HygLogView::HygLogView(HygLogModel & model, QWidget * parent)
    : QWidget(parent), m_model(model), m_filter(new HygLogFilter(model, this)), m_table(new QTableView(this)),
      m_search(new QLineEdit(this)), m_shown(new QLabel(this)), m_copy(new QToolButton(this)),
      m_clear(new QToolButton(this)) {
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    auto * bar = new QHBoxLayout;
    bar->setSpacing(4);
    layout->addLayout(bar);
    layout->addWidget(m_table);

    setUpTools();
    for (HygChipButton * button : m_kinds)
        bar->addWidget(button);
    bar->addStretch(1);
    bar->addWidget(m_shown);
    bar->addSpacing(6);
    bar->addWidget(m_search, 2);
    bar->addWidget(m_copy);
    bar->addWidget(m_clear);
    setUpTable();

    connect(&m_model, &HygLogModel::countsChanged, this, &HygLogView::updateCounts);
    retranslate();
    updateIcons();
    m_table->scrollToBottom();
}

void HygLogView::setUpTools() {
    for (int kind = 0; kind < HygLogModel::NUM_KINDS; ++kind) {
        auto * button = new HygChipButton(this);
        button->setObjectName(QLatin1String(SWITCH_NAMES[static_cast<std::size_t>(kind)]));
        button->setChecked(true);
        connect(button, &HygChipButton::toggled, this, [this, kind](bool on) {
            m_filter->setShown(static_cast<HygLogModel::kind_t>(kind), on);
            updateCounts();
        });
        m_kinds[static_cast<std::size_t>(kind)] = button;
    }
    m_search->setObjectName(QStringLiteral("logSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumWidth(160);
    m_search->setMaximumWidth(360);
    m_searchAction = m_search->addAction(HygIconEngine::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString & text) {
        m_filter->setSearch(text);
        updateCounts();
    });

    m_shown->setObjectName(QStringLiteral("logShown"));
    m_copy->setObjectName(QStringLiteral("logCopy"));
    m_copy->setAutoRaise(true);
    m_copy->setIcon(HygIconEngine::icon(QStringLiteral("copy")));
    connect(m_copy, &QToolButton::clicked, this, &HygLogView::copy);
    m_clear->setObjectName(QStringLiteral("logClear"));
    m_clear->setAutoRaise(true);
    m_clear->setIcon(HygIconEngine::icon(QStringLiteral("clear")));
    connect(m_clear, &QToolButton::clicked, &m_model, &HygLogModel::clear);
}

void HygLogView::setUpTable() {
    m_table->setObjectName(QStringLiteral("logTable"));
    m_table->setModel(m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->hide(); // time, kind and text speak for themselves
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->installEventFilter(this);

    // The newest message stays in view unless the user has scrolled away from it.
    connect(&m_model, &HygLogModel::rowsAboutToBeInserted, this, [this] {
        const QScrollBar * bar = m_table->verticalScrollBar();
        m_isAtEnd = bar->value() >= bar->maximum();
    });
    connect(&m_model, &HygLogModel::rowsInserted, this, [this] {
        if (m_isAtEnd)
            m_table->scrollToBottom();
    });
}

void HygLogView::startSearch() {
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void HygLogView::copy() {
    QList<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex & index : selected)
        rows << m_filter->mapToSource(index).row();
    if (rows.isEmpty())
        for (int row = 0; row < m_filter->rowCount(); ++row)
            rows << m_filter->mapToSource(m_filter->index(row, 0)).row();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const int row : rows)
        lines << m_model.line(row);
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void HygLogView::updateCounts() {
    for (int kind = 0; kind < HygLogModel::NUM_KINDS; ++kind) {
        const auto i = static_cast<std::size_t>(kind);
        m_kinds[i]->setText(tr(SWITCH_TEXTS[i]).arg(m_model.count(static_cast<HygLogModel::kind_t>(kind))));
        m_kinds[i]->updateGeometry();
    }
    const int shown = m_filter->rowCount();
    const int all = m_model.rowCount();
    m_shown->setText(shown == all ? QString() : tr("%1 of %2 shown").arg(shown).arg(all));
    m_copy->setEnabled(shown > 0);
    m_clear->setEnabled(all > 0);
}

void HygLogView::updateIcons() {
    for (int kind = 0; kind < HygLogModel::NUM_KINDS; ++kind) {
        const auto which = static_cast<HygLogModel::kind_t>(kind);
        m_kinds[static_cast<std::size_t>(kind)]->setIcon(
            HygIconEngine::icon(HygLogModel::iconOf(which), HygLogModel::colourOf(which)));
    }
    // Columns as wide as their words in the font and language in force.
    const QFontMetrics metrics(m_table->font());
    int kindWidth = metrics.horizontalAdvance(m_model.headerData(HygLogModel::TypeColumn, Qt::Horizontal).toString());
    for (int kind = 0; kind < HygLogModel::NUM_KINDS; ++kind)
        kindWidth =
            std::max(kindWidth, metrics.horizontalAdvance(HygLogModel::nameOf(static_cast<HygLogModel::kind_t>(kind))));
    m_table->setColumnWidth(HygLogModel::TimeColumn, metrics.horizontalAdvance(QStringLiteral("00:00:00")) + 24);
    m_table->setColumnWidth(HygLogModel::TypeColumn, kindWidth + 52);
    m_table->verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
}

void HygLogView::retranslate() {
    m_model.retranslate();
    m_search->setPlaceholderText(tr("Search messages"));
    m_search->setAccessibleName(tr("Search messages"));
    m_table->setAccessibleName(tr("Messages"));
    m_copy->setToolTip(tr("Copy the selected messages, or all that are shown"));
    m_copy->setAccessibleName(tr("Copy messages"));
    m_clear->setToolTip(tr("Remove all messages from this view; the log file keeps them"));
    m_clear->setAccessibleName(tr("Clear messages"));
    for (HygChipButton * button : m_kinds)
        button->setToolTip(tr("Show or hide messages of this kind"));
    updateCounts();
}

void HygLogView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::FontChange)
        updateIcons();
}

bool HygLogView::eventFilter(QObject * watched, QEvent * event) {
    if (event->type() == QEvent::KeyPress) {
        const auto * key = static_cast<QKeyEvent *>(event);
        if (watched == m_table && key->matches(QKeySequence::Copy)) {
            copy();
            return true;
        }
        if (watched == m_search && key->key() == Qt::Key_Escape && !m_search->text().isEmpty()) {
            m_search->clear();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
