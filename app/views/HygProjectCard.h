#pragma once

#include <QFrame>
#include <QStringList>

class HygProjectListModel;
class QLabel;
class QListView;

/// A framed list of project files with a heading; an explaining text stands in for an empty list.
class HygProjectCard : public QFrame {
    Q_OBJECT
public:
    enum kind_t { Recent, Examples };

    HygProjectCard(kind_t kind, QWidget * parent);

    void setFiles(const QStringList & paths);
    QStringList files() const;
    /// Files can be opened by a click, the return key and the context menu.
    void setOpenable(bool isOpenable);
    void setTexts(const QString & heading, const QString & emptyText);
    QListView & list() { return *m_list; }

signals:
    void openRequested(const QString & path);
    void removeRequested(const QString & path);
    void removeMissingRequested();

protected:
    void paintEvent(QPaintEvent * event) override;
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void open(const QModelIndex & index);
    void showMenu(const QPoint & position);
    void updateHeading();

    kind_t m_kind;
    bool m_isOpenable = false;
    HygProjectListModel * m_model;
    QLabel * m_icon;
    QLabel * m_heading;
    QLabel * m_empty;
    QListView * m_list;
};
