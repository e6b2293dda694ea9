#include "HygChipButton.h"

#include <QEvent>
#include <QPainter>

namespace {
constexpr int ICON = 16;
constexpr int SIDE = 10;
constexpr int GAP = 5;
} // namespace

HygChipButton::HygChipButton(QWidget * parent) : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize HygChipButton::sizeHint(bool isCompact) const {
    const QFontMetrics metrics(font());
    const int words = isCompact ? 0 : GAP + metrics.horizontalAdvance(text());
    return {2 * SIDE + ICON + words, std::max(metrics.height(), ICON) + 8};
}

void HygChipButton::setCompact(bool isCompact) {
    if (m_isCompact == isCompact)
        return;
    m_isCompact = isCompact;
    updateGeometry();
    update();
}

void HygChipButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor text = palette().color(QPalette::WindowText);
    QColor ground = isChecked() ? accent : text;
    ground.setAlphaF(isChecked() ? 0.16 : underMouse() ? 0.07 : 0.0);
    QColor edge = hasFocus() ? accent : text;
    edge.setAlphaF(hasFocus() ? 1.0 : isChecked() ? 0.0 : 0.25);
    painter.setPen(QPen(edge, hasFocus() ? 1.5 : 1.0));
    painter.setBrush(ground);
    const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.drawRoundedRect(frame, frame.height() / 2, frame.height() / 2);

    painter.setOpacity(isChecked() ? 1.0 : 0.6);
    icon().paint(&painter, QRect(SIDE, (height() - ICON) / 2, ICON, ICON));
    if (m_isCompact)
        return;
    painter.setPen(text);
    painter.drawText(QRect(SIDE + ICON + GAP, 0, width(), height()), Qt::AlignLeft | Qt::AlignVCenter, this->text());
}

bool HygChipButton::event(QEvent * event) {
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}
