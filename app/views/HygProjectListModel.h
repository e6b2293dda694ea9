#pragma once

#include <QAbstractListModel>
#include <QDateTime>

#include <vector>

/// Project files for the lists of the start page. What a file cannot do is said in its tool tip.
class HygProjectListModel : public QAbstractListModel {
    Q_OBJECT
public:
    enum role_t {
        PathRole = Qt::UserRole,
        FolderRole,
        ModifiedRole, ///< day of the last change, or that the file is missing
        IsMissingRole
    };

    using QAbstractListModel::QAbstractListModel;

    /// Shows these files in this order; what is missing now is shown as such.
    void setFiles(const QStringList & paths);
    QStringList files() const;

    int rowCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;

private:
    enum state_t { Usable, FolderMissing, FileMissing, NoFile, Unreadable };
    struct Entry {
        QString path;
        QString title;
        QString folder;
        QDateTime modified;
        state_t state;
    };
    static Entry entryOf(const QString & path);
    static QString reason(state_t state);

    std::vector<Entry> m_entries;
};
