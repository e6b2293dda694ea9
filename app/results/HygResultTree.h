#pragma once

#include "results/HygResultFile.h"

#include <QHash>
#include <QTreeWidget>

/// Result files by directory: those of the project and of any directory or project beside it.
class HygResultTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit HygResultTree(QWidget * parent = nullptr);

    /// The directory of the project, which stands on top; empty: none.
    void setProjectDirectory(const QString & directory);
    /// Other directories, below the project's. One that holds "results" stands for that.
    void setFurtherDirectories(const QStringList & directories);
    const QStringList & furtherDirectories() const { return m_further; }
    void addDirectory(const QString & directory);
    void removeDirectory(const QString & directory);
    /// Looks for files that came or went.
    void refresh();
    /// Tells how much there is in files that have grown.
    void updateCounts();

    /// Paths of the files that are chosen, in the order of choosing.
    QStringList chosen() const { return m_chosen; }
    void choose(const QStringList & paths);
    /// Whether there is any file to be chosen.
    bool hasFiles() const;
    /// Of the selected line: the directory that was added; empty for the project and its files.
    QString currentFurtherDirectory() const;

signals:
    void chosenChanged();
    void furtherDirectoriesChanged();

protected:
    void changeEvent(QEvent * event) override;

private:
    void addRoot(const QString & directory, const QString & title);
    void findKinds();
    void takeKinds(const QHash<QString, HygResultFile::Format> & formats);
    void setChosen(QTreeWidgetItem * item, bool isChosen);
    void retranslate();

    QString m_project;
    QStringList m_further;
    QStringList m_chosen;
    QStringList m_chosenBefore; ///< when the mouse was pressed
    bool m_isLooking = false;   ///< for the kinds of files
    bool m_isFilling = false;
};
