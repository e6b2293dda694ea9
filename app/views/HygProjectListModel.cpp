#include "HygProjectListModel.h"

#include "HygFormat.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

HygProjectListModel::Entry HygProjectListModel::entryOf(const QString & path) {
    const QFileInfo info(path);
    QString folder = QDir::toNativeSeparators(info.absolutePath());
    const QString home = QDir::toNativeSeparators(QDir::homePath());
    if (home.size() > 1 && (folder == home || folder.startsWith(home + QDir::separator())))
        folder.replace(0, home.size(), QLatin1Char('~'));

    state_t state = Usable;
    if (!QFileInfo::exists(info.absolutePath()))
        state = FolderMissing;
    else if (!info.exists())
        state = FileMissing;
    else if (!info.isFile())
        state = NoFile;
    else if (!info.isReadable())
        state = Unreadable;
    return {path, info.completeBaseName(), folder, state == Usable ? info.lastModified() : QDateTime(), state};
}

QString HygProjectListModel::reason(state_t state) {
    switch (state) {
    case FolderMissing:
        return tr("The folder does not exist any more or is not connected.");
    case FileMissing:
        return tr("The file does not exist any more.");
    case NoFile:
        return tr("This is not a file.");
    case Unreadable:
        return tr("You are not allowed to read this file.");
    case Usable:
        break;
    }
    return {};
}

void HygProjectListModel::setFiles(const QStringList & paths) {
    beginResetModel();
    m_entries.clear();
    std::transform(paths.begin(), paths.end(), std::back_inserter(m_entries), &HygProjectListModel::entryOf);
    endResetModel();
}

QStringList HygProjectListModel::files() const {
    QStringList paths;
    std::transform(m_entries.begin(), m_entries.end(), std::back_inserter(paths),
                   [](const Entry & entry) { return entry.path; });
    return paths;
}

int HygProjectListModel::rowCount(const QModelIndex & parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant HygProjectListModel::data(const QModelIndex & index, int role) const {
    if (!index.isValid())
        return {};
    const Entry & entry = m_entries.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return entry.title;
    case Qt::ToolTipRole: {
        const QString path = QDir::toNativeSeparators(entry.path);
        return entry.state == Usable ? path : path + QLatin1Char('\n') + reason(entry.state);
    }
    case Qt::AccessibleTextRole:
        return entry.state == Usable ? tr("%1, in folder %2").arg(entry.title, entry.folder)
                                     : tr("%1, missing: %2").arg(entry.title, reason(entry.state));
    case PathRole:
        return entry.path;
    case FolderRole:
        return entry.folder;
    case ModifiedRole:
        return entry.state == Usable ? HygFormat::date(entry.modified.date()) : tr("missing");
    case IsMissingRole:
        return entry.state != Usable;
    default:
        return {};
    }
}
