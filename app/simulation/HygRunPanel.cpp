#include "HygRunPanel.h"

#include "HygFormat.h"
#include "HygIconEngine.h"
#include "HygRunList.h"

#include <KOR/Time.h>

#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr int VISIBLE_ROWS = 2; ///< at least

/// Draws a share as a bar with its number.
class BarDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter * painter, const QStyleOptionViewItem & option, const QModelIndex & index) const override {
        QStyleOptionViewItem own = option;
        initStyleOption(&own, index);
        own.text.clear();
        option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &own, painter, option.widget);
        const QRect bar = option.rect.adjusted(4, 5, -4, -5);
        QColor ground = option.palette.color(QPalette::Text);
        ground.setAlphaF(0.12);
        painter->fillRect(bar, ground);
        QRect done = bar;
        done.setWidth(static_cast<int>(bar.width() * index.data(HygRunList::PercentRole).toDouble() / 100));
        QColor accent = option.palette.color(QPalette::Highlight);
        accent.setAlphaF(0.55);
        painter->fillRect(done, accent);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect, Qt::AlignCenter, index.data().toString());
    }
};

} // namespace

HygRunPanel::HygRunPanel(HygRunList & runs, QWidget * parent)
    : QWidget(parent), m_runs(runs), m_heading(new QLabel(this)), m_table(new QTableView(this)),
      m_story(new QLabel(this)), m_pause(new QToolButton(this)), m_stop(new QToolButton(this)),
      m_log(new QToolButton(this)), m_remove(new QToolButton(this)) {
    m_table->setObjectName(QStringLiteral("runs"));
    m_table->setModel(&m_runs);
    m_table->setItemDelegateForColumn(HygRunList::Progress, new BarDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(HygRunList::Project, QHeaderView::Stretch);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->setMinimumHeight(m_table->fontMetrics().lineSpacing() * 2 * (VISIBLE_ROWS + 1));
    m_heading->setBuddy(m_table);
    m_story->setObjectName(QStringLiteral("runStory"));
    m_story->setWordWrap(true);
    m_story->setTextInteractionFlags(Qt::TextSelectableByMouse);

    struct ButtonRow {
        QToolButton * button;
        const char * objectName;
        const char * icon;
        void (*act)(HygRunPanel &);
    };
    const ButtonRow rows[] = {
        {m_pause,  "pauseRun",   "pause",   [](HygRunPanel & panel) { panel.togglePause(); }                 },
        {m_stop,   "stopRun",    "stop",    [](HygRunPanel & panel) { panel.stop(); }                        },
        {m_log,    "showRunLog", "logfile",
         [](HygRunPanel & panel) { emit panel.screenLogRequested(panel.current()->directory().screenLog()); }},
        {m_remove, "removeRun",  "remove",
         [](HygRunPanel & panel) { panel.m_runs.remove(panel.m_table->currentIndex().row()); }               },
    };
    auto * top = new QHBoxLayout;
    top->addWidget(m_heading, 1);
    for (const ButtonRow & row : rows) {
        row.button->setObjectName(QLatin1String(row.objectName));
        row.button->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        row.button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        row.button->setAutoRaise(true);
        top->addWidget(row.button);
        connect(row.button, &QToolButton::clicked, this, [this, act = row.act] {
            if (current() != nullptr)
                act(*this);
        });
    }
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_story);

    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        update();
        emit currentChanged(current());
    });
    connect(&m_runs, &HygRunList::dataChanged, this, &HygRunPanel::update);
    connect(&m_runs, &HygRunList::rowsRemoved, this, [this] {
        update();
        emit currentChanged(current());
    });
    retranslate();
}

HygRunMonitor * HygRunPanel::current() const {
    return m_runs.at(m_table->currentIndex().row());
}

void HygRunPanel::select(int row) {
    m_table->selectRow(row);
}

void HygRunPanel::togglePause() {
    if (current()->state() == HygRunMonitor::Paused)
        current()->resume();
    else
        current()->pause();
}

void HygRunPanel::stop() {
    if (!current()->isStopping())
        return current()->stop();
    // It was asked already and does not react.
    if (QMessageBox::question(this, tr("End the solver"),
                              tr("The solver has been asked to stop and is still busy. End it at once? What it has "
                                 "calculated since the last restart file is lost then.")) == QMessageBox::Yes)
        current()->kill();
}

void HygRunPanel::update() {
    const HygRunMonitor * run = current();
    const bool isActive = run != nullptr && run->isActive();
    const bool isPaused = isActive && run->state() == HygRunMonitor::Paused;
    m_pause->setEnabled(isActive && run->state() != HygRunMonitor::Starting);
    m_pause->setText(isPaused ? tr("Go on") : tr("Pause"));
    m_pause->setIcon(HygIconEngine::icon(isPaused ? QStringLiteral("simulation") : QStringLiteral("pause")));
    m_stop->setEnabled(isActive);
    m_stop->setText(isActive && run->isStopping() ? tr("End at once…") : tr("Stop"));
    m_log->setEnabled(run != nullptr && !run->run().isTest);
    m_remove->setEnabled(run != nullptr && !isActive);
    QString story;
    if (run == nullptr)
        story = m_runs.rowCount() == 0 ? tr("No run has been started yet.") : QString();
    else if (!run->problem().isEmpty())
        story = run->problem();
    else if (run->state() == HygRunMonitor::Interrupted)
        story = tr("Stopped after %1 d; \"Start Simulation\" offers to continue it.")
                    .arg(HygFormat::locale().toString(run->progress().time / KOR::SECONDS_PER_DAY, 'f', 2));
    else if (run->state() == HygRunMonitor::Finished && run->run().isTest)
        story = tr("The solver has read and checked everything; the simulation can be started.");
    m_story->setText(story);
    m_story->setVisible(!story.isEmpty());
}

void HygRunPanel::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygRunPanel::retranslate() {
    m_heading->setText(tr("Runs"));
    m_table->setAccessibleName(tr("Runs"));
    m_pause->setToolTip(tr("Holds the solver where it is; it keeps its memory and takes no processor time."));
    m_stop->setToolTip(tr("Lets the solver write a restart file and end; the run can be continued later."));
    m_log->setText(tr("Log"));
    m_log->setToolTip(tr("What the solver has to say about this run."));
    m_remove->setText(tr("Remove"));
    m_remove->setToolTip(tr("Takes the run out of this list. Its results stay."));
    update();
}
