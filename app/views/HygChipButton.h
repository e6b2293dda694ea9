#pragma once

#include <QAbstractButton>

/// A switch in the shape of a rounded tag: filled when it is on, an outline when it is off.
class HygChipButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit HygChipButton(QWidget * parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent * event) override;
    bool event(QEvent * event) override;
};
