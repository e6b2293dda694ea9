#pragma once

#include <QAbstractButton>

/// A switch in the shape of a rounded tag: filled when it is on, an outline when it is off.
class HygChipButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit HygChipButton(QWidget * parent = nullptr);

    /// Only the icon; the text stays its name for those who read the screen by ear.
    void setCompact(bool isCompact);
    QSize sizeHint() const override { return sizeHint(m_isCompact); }
    QSize sizeHint(bool isCompact) const;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent * event) override;
    bool event(QEvent * event) override;

private:
    bool m_isCompact = false;
};
