#pragma once

#include <QColor>
#include <QToolButton>

namespace QtExt {

/// Shows a colour and lets the user choose another.
class ColorButton : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged USER true)
public:
    explicit ColorButton(QWidget * parent = nullptr);

    const QColor & color() const { return m_color; }
    void setColor(const QColor & color);
    /// Offers the alpha channel too.
    void setAlphaShown(bool shown) { m_isAlphaShown = shown; }

signals:
    void colorChanged(const QColor & color);

protected:
    void changeEvent(QEvent * event) override;

private:
    void choose();
    void showColor();

    QColor m_color{Qt::white};
    bool m_isAlphaShown = false;
};

} // namespace QtExt
