#pragma once

#include <QColor>
#include <QIcon>
#include <QIconEngine>

/// Draws a line icon of our set in the colours of the palette in force, so that it follows light and dark.
/// In the SVG "currentColor" stands for the text colour, ACCENT for the palette's accent.
class HygIconEngine : public QIconEngine {
public:
    static constexpr const char * ACCENT = "#0a7ea4";

    /// The icon of a name in resources/icons; a name that is not there draws nothing.
    /// \param colour draws the whole icon in it; invalid: colours of the palette
    static QIcon icon(const QString & name, const QColor & colour = {}) {
        return QIcon(new HygIconEngine(name, colour));
    }

    explicit HygIconEngine(QString name, const QColor & colour = {});

    void paint(QPainter * painter, const QRect & rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize & size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine * clone() const override { return new HygIconEngine(*this); }
    QString key() const override { return QStringLiteral("HygIconEngine"); }

private:
    QString m_name;
    QColor m_colour;
};
