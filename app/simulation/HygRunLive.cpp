#include "HygRunLive.h"

#include "HygFormat.h"
#include "results/HygResultChart.h"
#include "simulation/HygOutputDirectory.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QDirIterator>
#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int PERIOD_MS = 1000;
constexpr int TEXT_LENGTH = 48; ///< characters of the names on the button

QString nameOf(const QString & path) {
    return QFileInfo(path).completeBaseName();
}

} // namespace

HygRunLive::HygRunLive(QWidget * parent)
    : QWidget(parent), m_label(new QLabel(this)), m_files(new QToolButton(this)), m_menu(new QMenu(m_files)),
      m_overTime(new QCheckBox(this)), m_time(new QLabel(this)), m_grid(new QGridLayout), m_empty(new QLabel(this)),
      m_timer(new QTimer(this)) {
    m_files->setObjectName(QStringLiteral("liveFiles"));
    m_files->setMenu(m_menu);
    m_files->setPopupMode(QToolButton::InstantPopup);
    m_files->setFocusPolicy(Qt::StrongFocus);
    m_empty->setObjectName(QStringLiteral("liveEmpty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_overTime->setObjectName(QStringLiteral("liveOverTime"));
    m_time->setObjectName(QStringLiteral("liveTime"));
    m_label->setBuddy(m_files);
    auto * top = new QHBoxLayout;
    top->addWidget(m_label);
    top->addWidget(m_files);
    top->addWidget(m_overTime);
    top->addStretch(1);
    top->addWidget(m_time);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(m_grid, 1);
    layout->addWidget(m_empty, 1);
    m_timer->setInterval(PERIOD_MS);
    connect(m_timer, &QTimer::timeout, this, &HygRunLive::refresh);
    connect(m_menu, &QMenu::aboutToShow, this, &HygRunLive::fillMenu);
    connect(m_overTime, &QCheckBox::toggled, this, [this](bool on) {
        for (const Pane & pane : m_panes) {
            HygResultChart::Options options = pane.chart->options();
            options.isOverTime = on;
            pane.chart->setOptions(options);
        }
        showNewest();
    });
    retranslate();
}

void HygRunLive::setDirectory(const QString & directory) {
    if (directory == m_directory)
        return;
    m_directory = directory;
    m_changed = QDateTime();
    m_paths.clear();
    openFiles();
    refresh();
}

void HygRunLive::choose(const QStringList & names) {
    if (names == m_chosen)
        return;
    m_chosen = names.mid(0, MAX_CHARTS);
    openFiles();
    emit chosenChanged();
}

std::vector<HygResultChart *> HygRunLive::charts() const {
    std::vector<HygResultChart *> charts;
    for (const Pane & pane : m_panes)
        charts.push_back(pane.chart);
    return charts;
}

void HygRunLive::listFiles() {
    const QString results = HygOutputDirectory(m_directory).results();
    const QDateTime changed = QFileInfo(results).lastModified();
    if (changed == m_changed)
        return;
    m_changed = changed;
    m_paths.clear();
    QDirIterator files(results, {QStringLiteral("*.h6b"), QStringLiteral("*.h6o")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        m_paths << files.next();
    m_paths.sort(Qt::CaseInsensitive);
    openFiles(); // a file of the same name may be that of another run
}

void HygRunLive::fillMenu() {
    m_menu->clear();
    for (const QString & path : m_paths) {
        const QString name = nameOf(path);
        QAction * action = m_menu->addAction(name);
        action->setCheckable(true);
        action->setChecked(
            std::any_of(m_panes.begin(), m_panes.end(), [&path](const Pane & pane) { return pane.path == path; }));
        action->setEnabled(action->isChecked() || m_panes.size() < MAX_CHARTS);
        connect(action, &QAction::toggled, this, [this, name](bool on) { setChosen(name, on); });
    }
    if (m_paths.isEmpty())
        m_menu->addAction(tr("no results yet"))->setEnabled(false);
}

void HygRunLive::setChosen(const QString & name, bool on) {
    QStringList names;
    for (const Pane & pane : m_panes)
        names << nameOf(pane.path);
    names.removeAll(name);
    if (on)
        names << name;
    choose(names);
}

void HygRunLive::openFiles() {
    QStringList wanted;
    for (const QString & name : m_chosen)
        for (const QString & path : m_paths)
            if (nameOf(path) == name)
                wanted << path;
    if (wanted.isEmpty() && !m_paths.isEmpty())
        wanted << m_paths.front();
    wanted = wanted.mid(0, MAX_CHARTS);
    for (const Pane & pane : m_panes)
        delete pane.widget;
    m_panes.clear();
    bool hasPlaces = false;
    QStringList names;
    // As many columns as rows, or one more.
    const int columns = static_cast<int>(std::ceil(std::sqrt(wanted.size())));
    for (const QString & path : wanted) {
        HygResultChart::Files files;
        try {
            files.push_back(std::make_shared<HygResultFile>(path));
        } catch (const KOR::Exception &) {
            m_changed = QDateTime(); // its header is being written; looked at again soon
            continue;
        }
        hasPlaces = hasPlaces || files[0]->format() != HygResultFile::Format::SERIES;
        auto * widget = new QWidget(this);
        auto * column = new QVBoxLayout(widget);
        column->setContentsMargins(0, 0, 0, 0);
        auto * title = new QLabel(nameOf(path), widget);
        title->setAlignment(Qt::AlignCenter);
        title->setVisible(wanted.size() > 1);
        auto * chart = new HygResultChart(widget);
        chart->setObjectName(QStringLiteral("liveChart"));
        chart->setAccessibleName(nameOf(path));
        column->addWidget(title);
        column->addWidget(chart, 1);
        const int place = static_cast<int>(m_panes.size());
        m_grid->addWidget(widget, place / columns, place % columns);
        HygResultChart::Options options;
        options.isOverTime = m_overTime->isChecked();
        chart->setOptions(options);
        chart->setFiles(std::move(files));
        m_panes.push_back({path, widget, chart});
        names << nameOf(path);
    }
    m_overTime->setVisible(hasPlaces);
    m_empty->setVisible(m_panes.empty());
    const QString all = names.join(QStringLiteral(", "));
    m_files->setText(all.isEmpty()               ? tr("no results yet")
                     : all.size() <= TEXT_LENGTH ? all
                                                 : tr("%n files", nullptr, names.size()));
    showNewest();
}

void HygRunLive::showNewest() {
    QString text;
    for (const Pane & pane : m_panes) {
        if (pane.chart->timeCount() == 0)
            continue;
        const double seconds = pane.chart->time(pane.chart->timeCount() - 1);
        pane.chart->setTime(seconds);
        if (text.isEmpty())
            text = tr("at %1 d").arg(HygFormat::locale().toString(seconds / KOR::SECONDS_PER_DAY, 'f', 2));
    }
    m_time->setText(text);
}

void HygRunLive::refresh() {
    if (m_directory.isEmpty())
        return;
    listFiles();
    bool isMore = false;
    for (const Pane & pane : m_panes)
        isMore = pane.chart->refresh() || isMore;
    if (isMore)
        showNewest();
}

void HygRunLive::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    refresh();
    m_timer->start();
}

void HygRunLive::hideEvent(QHideEvent * event) {
    m_timer->stop();
    QWidget::hideEvent(event);
}

void HygRunLive::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygRunLive::retranslate() {
    m_label->setText(tr("Shown:"));
    m_files->setToolTip(tr("Result files of the run that are shown as they grow, up to %1 at once").arg(MAX_CHARTS));
    m_files->setAccessibleName(m_files->toolTip());
    m_overTime->setText(tr("over time"));
    m_overTime->setToolTip(tr("The course of the first place instead of all places at the newest time"));
    if (m_panes.empty())
        m_files->setText(tr("no results yet"));
    m_empty->setText(tr("The run has not written any results yet. It writes what the view Outputs defines."));
}
