#include <QtExt/ColorButton.h>

#include <QtExt/Settings.h>

#include <QColorDialog>
#include <QEvent>
#include <QPainter>

namespace QtExt {

ColorButton::ColorButton(QWidget * parent) : QToolButton(parent) {
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize({32, 16});
    connect(this, &QToolButton::clicked, this, &ColorButton::choose);
    showColor();
}

void ColorButton::setColor(const QColor & color) {
    if (!color.isValid() || color == m_color)
        return;
    m_color = color;
    showColor();
    emit colorChanged(m_color);
}

void ColorButton::changeEvent(QEvent * event) {
    if (event->type() == QEvent::PaletteChange)
        showColor();
    QToolButton::changeEvent(event);
}

void ColorButton::choose() {
    QColorDialog::ColorDialogOptions options;
    options.setFlag(QColorDialog::ShowAlphaChannel, m_isAlphaShown);
    options.setFlag(QColorDialog::DontUseNativeDialog, Settings::instance().m_dontUseNativeDialogs);
    setColor(QColorDialog::getColor(m_color, this, tr("Choose a colour"), options)); // invalid when cancelled
}

void ColorButton::showColor() {
    const qreal ratio = devicePixelRatioF();
    QPixmap swatch((QSizeF(iconSize()) * ratio).toSize());
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(QPointF(), iconSize()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (m_color.alpha() < 255) { // shows through
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(area, 3, 3);
        painter.setBrush(QBrush(Qt::gray, Qt::Dense4Pattern));
        painter.drawRoundedRect(area, 3, 3);
    }
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.setBrush(m_color);
    painter.drawRoundedRect(area, 3, 3);
    painter.end();
    setIcon(swatch);
    setText(m_color.name(m_color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb));
}

} // namespace QtExt
