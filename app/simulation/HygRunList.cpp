#include "HygRunList.h"

#include "HygFormat.h"
#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Time.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr std::size_t MAX_RUNS = 50;
constexpr std::size_t MAX_FILE = 1 << 20; ///< [bytes]
constexpr double HANGS_AFTER = 60;        ///< [s] without simulated time; a slow step takes that long, few take longer

struct StateRow {
    const char * text;
    const char * icon;
};
constexpr StateRow STATES[] = {
    {QT_TRANSLATE_NOOP("HygRunList", "starting"),    "recent"    },
    {QT_TRANSLATE_NOOP("HygRunList", "running"),     "simulation"},
    {QT_TRANSLATE_NOOP("HygRunList", "paused"),      "pause"     },
    {QT_TRANSLATE_NOOP("HygRunList", "finished"),    "progress"  },
    {QT_TRANSLATE_NOOP("HygRunList", "interrupted"), "stop"      },
    {QT_TRANSLATE_NOOP("HygRunList", "failed"),      "error"     },
    {QT_TRANSLATE_NOOP("HygRunList", "lost"),        "warning"   },
};
static_assert(std::size(STATES) == HygRunMonitor::NUM_STATES, "state table and enumeration disagree");

constexpr const char * COLUMNS[] = {
    QT_TRANSLATE_NOOP("HygRunList", "Project"),  QT_TRANSLATE_NOOP("HygRunList", "State"),
    QT_TRANSLATE_NOOP("HygRunList", "Progress"), QT_TRANSLATE_NOOP("HygRunList", "Simulated"),
    QT_TRANSLATE_NOOP("HygRunList", "Speed"),    QT_TRANSLATE_NOOP("HygRunList", "Ends at"),
};
static_assert(std::size(COLUMNS) == HygRunList::NUM_COLUMNS, "column table and enumeration disagree");

QString days(double seconds) {
    return HygFormat::locale().toString(seconds / KOR::SECONDS_PER_DAY, 'f', 1) + " d";
}

} // namespace

HygRunList::HygRunList(QString storePath, QObject * parent)
    : QAbstractTableModel(parent), m_storePath(std::move(storePath)) {
    read();
}

QString HygRunList::stateText(HygRunMonitor::state_t state) {
    return tr(STATES[state].text);
}

void HygRunList::insert(HygRunMonitor::Run run) {
    auto monitor = std::make_unique<HygRunMonitor>(std::move(run));
    HygRunMonitor * added = monitor.get();
    connect(added, &HygRunMonitor::changed, this, [this, added] {
        if (const int row = rowOf(added->run().directory, added->run().isTest); row >= 0)
            emit dataChanged(index(row, 0), index(row, NUM_COLUMNS - 1));
        emit runChanged(added);
    });
    connect(added, &HygRunMonitor::ended, this, [this, added] { emit runEnded(added); });
    m_runs.insert(m_runs.begin(), std::move(monitor));
}

int HygRunList::add(HygRunMonitor::Run run) {
    if (const int old = rowOf(run.directory, run.isTest); old >= 0)
        remove(old);
    beginInsertRows({}, 0, 0);
    insert(std::move(run));
    endInsertRows();
    while (m_runs.size() > MAX_RUNS)
        remove(static_cast<int>(m_runs.size()) - 1);
    write();
    return 0;
}

void HygRunList::attach(const QString & projectFile) {
    if (projectFile.isEmpty())
        return;
    const auto directory = HygOutputDirectory::ofProject(projectFile);
    const int known = rowOf(directory.path());
    if (directory.owner() == 0 || (known >= 0 && at(known)->isActive()))
        return;
    const QFileInfo lock(directory.path() + "/var/lock"); // written when the run begins
    add({projectFile, directory.path(), lock.lastModified(), false, directory.owner()});
}

void HygRunList::remove(int row) {
    beginRemoveRows({}, row, row);
    m_runs.erase(m_runs.begin() + row);
    endRemoveRows();
    write();
}

HygRunMonitor * HygRunList::at(int row) const {
    return row >= 0 && row < rowCount() ? m_runs[static_cast<std::size_t>(row)].get() : nullptr;
}

int HygRunList::rowOf(const QString & directory, bool isTest) const {
    for (int row = 0; row < rowCount(); ++row)
        if (at(row)->run().directory == directory && at(row)->run().isTest == isTest)
            return row;
    return -1;
}

void HygRunList::read() {
    if (m_storePath.isEmpty() || !QFileInfo(m_storePath).isFile())
        return;
    try {
        const std::string text = KOR::readFile(m_storePath.toStdString(), MAX_FILE);
        const QJsonArray runs = QJsonDocument::fromJson(QByteArray::fromStdString(text)).array();
        for (int i = std::min<int>(runs.size(), MAX_RUNS) - 1; i >= 0; --i) {
            const QJsonObject run = runs[i].toObject();
            const QString directory = run["directory"].toString();
            const QDateTime started = QDateTime::fromString(run["started"].toString(), Qt::ISODateWithMs);
            if (!QFileInfo(directory).isDir() || !started.isValid() || rowOf(directory) >= 0)
                continue;
            insert({run["project"].toString(), directory, started, false, 0});
            m_runs.front()->poll();
        }
    } catch (const KOR::Exception & ex) {
        ex.report();
    }
}

void HygRunList::write() const {
    if (m_storePath.isEmpty())
        return;
    QJsonArray runs;
    for (const auto & monitor : m_runs)
        if (const HygRunMonitor::Run & run = monitor->run(); !run.isTest)
            runs.append(QJsonObject{
                {"project",   run.projectFile                        },
                {"directory", run.directory                          },
                {"started",   run.started.toString(Qt::ISODateWithMs)}
            });
    try {
        KOR::writeFile(m_storePath.toStdString(), QJsonDocument(runs).toJson().toStdString());
    } catch (const KOR::Exception & ex) {
        ex.report();
    }
}

int HygRunList::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_runs.size());
}

int HygRunList::columnCount(const QModelIndex &) const {
    return NUM_COLUMNS;
}

QVariant HygRunList::data(const QModelIndex & index, int role) const {
    const HygRunMonitor * run = at(index.row());
    if (run == nullptr)
        return {};
    const HygRunMonitor::Progress & progress = run->progress();
    const bool hangs = run->idleSeconds() > HANGS_AFTER;
    if (role == PercentRole)
        return progress.percent;
    if (role == Qt::ToolTipRole)
        return index.column() == Project ? QDir::toNativeSeparators(run->run().projectFile) : run->problem();
    if (role == Qt::DecorationRole && index.column() == State)
        return HygIconEngine::icon(QLatin1String(STATES[run->state()].icon));
    if (role == Qt::ForegroundRole && index.column() == State && (hangs || run->state() >= HygRunMonitor::Failed))
        return QtExt::Palette::color(hangs ? QtExt::Palette::WARNING_TEXT : QtExt::Palette::ERROR_TEXT);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Project: {
        const QString name = QFileInfo(run->run().projectFile).completeBaseName();
        return run->run().isTest ? tr("%1 (test)").arg(name) : name;
    }
    case State:
        if (run->isStopping())
            return tr("stopping");
        return hangs ? tr("running, no step for %1 s").arg(run->idleSeconds(), 0, 'f', 0) : stateText(run->state());
    case Progress:
        return HygFormat::locale().toString(progress.percent, 'f', 1) + " %";
    case Simulated:
        return days(progress.time);
    case Speed:
        return progress.speed > 0 ? tr("%1 per s").arg(HygFormat::duration(progress.speed)) : QString();
    default:
        return run->state() == HygRunMonitor::Running && progress.speed > 0
                   ? HygFormat::dateTime(QDateTime::currentDateTime().addSecs(static_cast<qint64>(progress.left)))
                   : QString();
    }
}

QVariant HygRunList::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(tr(COLUMNS[section])) : QVariant();
}
