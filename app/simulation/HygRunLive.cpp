#include "HygRunLive.h"

#include "results/HygResultChart.h"
#include "simulation/HygOutputDirectory.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QTimer>

namespace {
constexpr int PERIOD_MS = 1000;
} // namespace

HygRunLive::HygRunLive(QWidget * parent)
    : QWidget(parent), m_label(new QLabel(this)), m_file(new QComboBox(this)), m_overTime(new QCheckBox(this)),
      m_time(new QLabel(this)), m_chart(new HygResultChart(this)), m_timer(new QTimer(this)) {
    m_file->setObjectName(QStringLiteral("liveFile"));
    m_file->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_overTime->setObjectName(QStringLiteral("liveOverTime"));
    m_time->setObjectName(QStringLiteral("liveTime"));
    m_label->setBuddy(m_file);
    auto * top = new QHBoxLayout;
    top->addWidget(m_label);
    top->addWidget(m_file);
    top->addWidget(m_overTime);
    top->addStretch(1);
    top->addWidget(m_time);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(m_chart, 1);
    m_timer->setInterval(PERIOD_MS);
    connect(m_timer, &QTimer::timeout, this, &HygRunLive::refresh);
    connect(m_file, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygRunLive::openFile);
    connect(m_overTime, &QCheckBox::toggled, this, [this](bool on) {
        HygResultChart::Options options = m_chart->options();
        options.isOverTime = on;
        m_chart->setOptions(options);
        showNewest();
    });
    retranslate();
}

void HygRunLive::setDirectory(const QString & directory) {
    if (directory == m_directory)
        return;
    m_directory = directory;
    m_changed = QDateTime();
    m_file->clear();
    m_chart->setFiles({});
    refresh();
}

void HygRunLive::listFiles() {
    const QString results = HygOutputDirectory(m_directory).results();
    const QDateTime changed = QFileInfo(results).lastModified();
    if (changed == m_changed)
        return;
    m_changed = changed;
    const QString chosen = m_file->currentData().toString();
    QStringList paths;
    QDirIterator files(results, {QStringLiteral("*.h6b"), QStringLiteral("*.h6o")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        paths << files.next();
    paths.sort(Qt::CaseInsensitive);
    const QSignalBlocker blocker(m_file);
    m_file->clear();
    for (const QString & path : paths)
        m_file->addItem(QFileInfo(path).completeBaseName(), path);
    m_file->setCurrentIndex(std::max(0, m_file->findData(chosen)));
    openFile(); // a file of the same name may be that of another run
}

void HygRunLive::openFile() {
    const QString path = m_file->currentData().toString();
    HygResultChart::Files files;
    if (!path.isEmpty()) {
        try {
            files.push_back(std::make_shared<HygResultFile>(path));
        } catch (const KOR::Exception &) {
            m_changed = QDateTime(); // its header is being written; looked at again soon
        }
    }
    const bool hasPlaces = !files.empty() && files[0]->format() != HygResultFile::Format::SERIES;
    m_overTime->setVisible(hasPlaces);
    m_chart->setFiles(std::move(files));
    showNewest();
}

void HygRunLive::showNewest() {
    if (m_chart->timeCount() == 0)
        return m_time->setText({});
    const double seconds = m_chart->time(m_chart->timeCount() - 1);
    m_chart->setTime(seconds);
    m_time->setText(tr("at %1 d").arg(seconds / KOR::SECONDS_PER_DAY, 0, 'f', 2));
}

void HygRunLive::refresh() {
    if (m_directory.isEmpty())
        return;
    listFiles();
    if (m_chart->refresh())
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
    m_file->setToolTip(tr("Result file of the run that is shown as it grows"));
    m_file->setAccessibleName(m_file->toolTip());
    m_overTime->setText(tr("over time"));
    m_overTime->setToolTip(tr("The course of the first place instead of all places at the newest time"));
}
