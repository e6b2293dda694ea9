#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

/// Lets the keys Up, Down, Page Up and Page Down of a search field choose in the list that it filters.
class HygListKeys : public QObject {
    Q_OBJECT
public:
    HygListKeys(QWidget & field, QAbstractItemView & list) : QObject(&field), m_list(list) {
        field.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * watched, QEvent * event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
                QApplication::sendEvent(&m_list, event);
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QAbstractItemView & m_list;
};
