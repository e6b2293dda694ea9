#include "HygNavigationButton.h"

#include "HygIconEngine.h"

#include <QDropEvent>
#include <QEvent>
#include <QMimeData>
#include <QPainter>

namespace {
constexpr int ICON = 28;
constexpr int MARGIN = 9;
constexpr int MIN_MARGIN = 2;
constexpr int GAP = 4;
constexpr int MIN_WIDTH = 84;
constexpr int REST_MS = 500;
} // namespace

HygNavigationButton::HygNavigationButton(const QString & iconName, QWidget * parent) : QAbstractButton(parent) {
    setIcon(HygIconEngine::icon(iconName));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum); // gives way in low windows
    setAcceptDrops(true);
}

void HygNavigationButton::setBadge(int number) {
    m_badge = number;
    update();
}

QFont HygNavigationButton::labelFont() const {
    QFont smaller = font();
    smaller.setPointSizeF(font().pointSizeF() * 0.92);
    return smaller;
}

QSize HygNavigationButton::sizeHint() const {
    const QFontMetrics metrics(labelFont());
    return {std::max(MIN_WIDTH, metrics.horizontalAdvance(text()) + 16), 2 * MARGIN + ICON + GAP + metrics.height()};
}

QSize HygNavigationButton::minimumSizeHint() const {
    return sizeHint() - QSize(0, 2 * (MARGIN - MIN_MARGIN));
}

void HygNavigationButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    QColor ground = palette().color(QPalette::WindowText);
    ground.setAlphaF(isDown() ? 0.14 : underMouse() ? 0.07 : 0.0);
    if (isChecked()) {
        ground = accent;
        ground.setAlphaF(0.18);
    }
    const QRectF frame = QRectF(rect()).adjusted(4, 2, -4, -2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(frame, 7, 7);
    if (isChecked()) {
        painter.setBrush(accent);
        painter.drawRoundedRect(QRectF(0, frame.top() + 10, 4, frame.height() - 20), 2, 2);
    }
    if (hasFocus()) {
        painter.setPen(QPen(accent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame.adjusted(0.75, 0.75, -0.75, -0.75), 7, 7);
    }

    const int margin = std::clamp((height() - sizeHint().height()) / 2 + MARGIN, MIN_MARGIN, MARGIN);
    const QRect iconRect((width() - ICON) / 2, margin, ICON, ICON);
    icon().paint(&painter, iconRect, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setFont(labelFont());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, iconRect.bottom() + GAP, width(), height() - iconRect.bottom() - GAP),
                     Qt::AlignHCenter | Qt::AlignTop, text());

    if (m_badge > 0) {
        const QString number = m_badge > 99 ? QStringLiteral("99+") : QString::number(m_badge);
        QFont badgeFont = font();
        badgeFont.setPointSizeF(font().pointSizeF() * 0.8);
        badgeFont.setBold(true);
        const QFontMetrics metrics(badgeFont);
        const int badgeWidth = std::max(metrics.height() + 2, metrics.horizontalAdvance(number) + 8);
        const QRect badge(iconRect.right() - 6, iconRect.top() - 5, badgeWidth, metrics.height() + 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xb3, 0x26, 0x1e));
        painter.drawRoundedRect(badge, badge.height() / 2.0, badge.height() / 2.0);
        painter.setFont(badgeFont);
        painter.setPen(Qt::white);
        painter.drawText(badge, Qt::AlignCenter, number);
    }
}

void HygNavigationButton::enterEvent(QEvent * event) {
    QAbstractButton::enterEvent(event);
    update();
}

void HygNavigationButton::leaveEvent(QEvent * event) {
    QAbstractButton::leaveEvent(event);
    update();
}

void HygNavigationButton::changeEvent(QEvent * event) {
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void HygNavigationButton::dragEnterEvent(QDragEnterEvent * event) {
    const QStringList formats = event->mimeData()->formats();
    const bool isOurs = std::any_of(formats.begin(), formats.end(), [](const QString & format) {
        return format.startsWith(QLatin1String("application/x-hygrion-"));
    });
    event->setAccepted(isOurs);
    if (isOurs && isEnabled())
        m_resting.start(REST_MS, this);
}

void HygNavigationButton::dragLeaveEvent(QDragLeaveEvent *) {
    m_resting.stop();
}

void HygNavigationButton::dropEvent(QDropEvent * event) {
    m_resting.stop();
    event->ignore(); // a button takes nothing
}

void HygNavigationButton::timerEvent(QTimerEvent * event) {
    if (event->timerId() != m_resting.timerId())
        return QAbstractButton::timerEvent(event);
    m_resting.stop();
    click();
}
