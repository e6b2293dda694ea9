#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

/// A button of the navigation bar: icon, text below it, and a number of things that wait to be seen. What is dragged
/// within the program and rests on the button opens its view.
class HygNavigationButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit HygNavigationButton(const QString & iconName, QWidget * parent);

    /// 0 shows none.
    void setBadge(int number);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent * event) override;
    void enterEvent(QEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void changeEvent(QEvent * event) override;
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dragLeaveEvent(QDragLeaveEvent * event) override;
    void dropEvent(QDropEvent * event) override;
    void timerEvent(QTimerEvent * event) override;

private:
    QFont labelFont() const;

    int m_badge = 0;
    QBasicTimer m_resting; ///< runs while something is dragged over the button
};
