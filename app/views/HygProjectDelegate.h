#pragma once

#include <QStyledItemDelegate>

/// Draws a project file in two lines: name and date, then its folder. Missing files are greyed.
class HygProjectDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// \param iconName icon of a file that can be read
    HygProjectDelegate(QString iconName, bool showsFolder, QObject * parent);

    void paint(QPainter * painter, const QStyleOptionViewItem & option, const QModelIndex & index) const override;
    QSize sizeHint(const QStyleOptionViewItem & option, const QModelIndex & index) const override;

private:
    QString m_iconName;
    bool m_showsFolder;
};
