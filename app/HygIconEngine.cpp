#include "HygIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

HygIconEngine::HygIconEngine(QString name, const QColor & colour) : m_name(std::move(name)), m_colour(colour) {}

void HygIconEngine::paint(QPainter * painter, const QRect & rect, QIcon::Mode mode, QIcon::State state) {
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    picture.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, picture);
}

QPixmap HygIconEngine::pixmap(const QSize & size, QIcon::Mode mode, QIcon::State) {
    const QPalette palette = QGuiApplication::palette();
    QColor line = m_colour;
    QColor accent = m_colour;
    if (mode == QIcon::Disabled) {
        line = accent = palette.color(QPalette::Disabled, QPalette::WindowText);
    } else if (mode == QIcon::Selected) {
        line = accent = palette.color(QPalette::HighlightedText);
    } else if (!m_colour.isValid()) {
        line = palette.color(QPalette::WindowText);
        accent = palette.color(QPalette::Link);
    }

    const QString cacheKey = QStringLiteral("HygIcon/%1/%2x%3/%4/%5")
                                 .arg(m_name)
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(line.name(QColor::HexArgb), accent.name(QColor::HexArgb));
    QPixmap picture;
    if (QPixmapCache::find(cacheKey, &picture))
        return picture;

    picture = QPixmap(size);
    picture.fill(Qt::transparent);
    QFile file(QStringLiteral(":/icons/%1.svg").arg(m_name));
    if (file.open(QIODevice::ReadOnly)) {
        QByteArray svg = file.readAll();
        svg.replace("currentColor", line.name().toLatin1());
        svg.replace(ACCENT, accent.name().toLatin1());
        QSvgRenderer renderer(svg);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal side = qMin(size.width(), size.height());
        renderer.render(&painter, QRectF((size.width() - side) / 2, (size.height() - side) / 2, side, side));
    }
    QPixmapCache::insert(cacheKey, picture);
    return picture;
}
