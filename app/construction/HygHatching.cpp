#include "construction/HygHatching.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace {

/// Lines of a hatching in a tile of 32 x 32: "M x y" begins a line, "L x y" goes on, "Q x y x y" bends, "C x y r" is a
/// circle, "D x y" a dot. Lines that leave the tile at one side come in again at the other.
struct HatchRow {
    const char * path;
    double width; ///< of the lines, in pixels
};
// In the order of MM::MaterialIdentification::HatchingType.
constexpr HatchRow HATCHINGS[] = {
    {"M 0 8 L 8 0 M 0 16 L 16 0 M 0 24 L 24 0 M 16 32 L 32 16 M 24 32 L 32 24",                                 1.2}, // Ground
    {"C 7 8 3.5 C 22 5 2.5 C 15 18 4 C 27 22 3 C 6 26 2.5 D 14 8 D 29 13 D 21 29 D 3 16",                       1.0}, // Gravel
    {"D 3 4 D 12 2 D 22 6 D 29 3 D 7 11 D 17 12 D 26 14 D 2 19 D 12 20 D 21 21 D 30 23 D 6 28 D 16 29 D 25 30",
     1.0                                                                                                           }, // Sand
    {"M 0 16 L 16 0 M 16 32 L 32 16 D 8 24 D 24 8 D 11 10 D 27 26",                                             1.0}, // Concrete
    {"M 0 16 L 16 0 M 16 32 L 32 16 M 0 20 L 20 0 M 20 32 L 32 20",                                             1.0}, // Reinforced
    {"M 0 16 L 16 0 M 0 32 L 32 0 M 16 32 L 32 16",                                                             1.0}, // Masonry
    {"M 4 32 Q 16 20 28 32 M 4 0 Q 16 12 28 0 M 0 12 Q 10 16 0 22 M 32 12 Q 22 16 32 22",                       1.0}, // Wood across
    {"M 0 4 Q 8 7 16 4 Q 24 1 32 4 M 0 14 Q 8 11 16 14 Q 24 17 32 14 M 0 25 Q 8 28 16 25 Q 24 22 32 25",
     1.0                                                                                                           }, // Wood along
    {"M 0 16 L 16 0 M 0 24 L 24 0 M 0 32 L 32 0 M 0 8 L 8 0 M 8 32 L 32 8 M 16 32 L 32 16 M 24 32 L 32 24",
     1.4                                                                                                           }, // Metal
    {"D 4 4 D 20 4 D 12 12 D 28 12 D 4 20 D 20 20 D 12 28 D 28 28",                                             1.0}, // Mortar
    {"M 0 16 Q 4 2 8 16 Q 12 30 16 16 Q 20 2 24 16 Q 28 30 32 16",                                              1.2}, // Insulation
    {"M 0 8 L 16 8 M 16 24 L 32 24",                                                                            2.4}, // Foil
    {"M 0 0 L 32 32 M 0 32 L 32 0 M 16 0 L 32 16 M 0 16 L 16 32 M 0 16 L 16 0 M 16 32 L 32 16",                 0.8}, // Sealant
};

void appendPath(QPainterPath & path, QPainterPath & dots, const char * text) {
    const QStringList words = QString::fromLatin1(text).split(QLatin1Char(' '));
    int n = 0;
    const auto number = [&] { return words[n++].toDouble(); };
    while (n < words.size()) {
        const QString & word = words[n++];
        const double x = number();
        const double y = number();
        switch (word[0].toLatin1()) {
        case 'M':
            path.moveTo(x, y);
            break;
        case 'L':
            path.lineTo(x, y);
            break;
        case 'D':
            dots.addEllipse(QPointF(x, y), 1, 1);
            break;
        case 'C': {
            const double radius = number();
            path.addEllipse(QPointF(x, y), radius, radius);
            break;
        }
        default: {
            const double endX = number();
            const double endY = number();
            path.quadTo(x, y, endX, endY);
        }
        }
    }
}

QImage plain(const QColor & colour, double ratio) {
    const int side = qRound(HygHatching::TILE * ratio);
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

} // namespace

QImage HygHatching::tile(const QColor & colour, int code, double ratio) {
    QImage image = plain(QColor(colour.rgb()), ratio);
    if (code < 0 || code >= static_cast<int>(std::size(HATCHINGS)))
        return image;
    const HatchRow & row = HATCHINGS[code];
    QPainterPath lines;
    QPainterPath dots;
    appendPath(lines, dots, row.path);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / static_cast<double>(TILE), image.height() / static_cast<double>(TILE));
    QColor line = contrast(colour);
    line.setAlphaF(0.38);
    painter.setPen(QPen(line, row.width, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(lines);
    painter.fillPath(dots, line);
    return image;
}

QImage HygHatching::emptyTile(const QColor & ground, const QColor & line, double ratio) {
    QImage image = plain(ground, ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / static_cast<double>(TILE), image.height() / static_cast<double>(TILE));
    QColor faint = line;
    faint.setAlphaF(0.35);
    painter.setPen(QPen(faint, 1));
    for (const QPointF & middle : {QPointF(8, 8), QPointF(24, 24)}) {
        painter.drawLine(middle - QPointF(2, 0), middle + QPointF(2, 0));
        painter.drawLine(middle - QPointF(0, 2), middle + QPointF(0, 2));
    }
    return image;
}

QImage HygHatching::unusableTile(const QColor & colour, double ratio) {
    QImage image = plain(QColor(colour.rgb()), ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / static_cast<double>(TILE), image.height() / static_cast<double>(TILE));
    constexpr QRgb RED = 0xd03030;
    for (const auto & [ink, width] : {std::pair(contrast(colour), 6.0), std::pair(QColor(RED), 4.0)}) {
        painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::SquareCap));
        // Once more beside itself, so that the band goes through the corners.
        for (const int shift : {-TILE, 0, TILE})
            painter.drawLine(QPointF(shift - TILE, 2 * TILE), QPointF(shift + 2 * TILE, -TILE));
    }
    return image;
}

QColor HygHatching::contrast(const QColor & ground) {
    // Perceived lightness after the weights of sRGB luminance.
    const double light = 0.2126 * ground.redF() + 0.7152 * ground.greenF() + 0.0722 * ground.blueF();
    return light > 0.45 ? QColor(0x15, 0x1a, 0x21) : QColor(0xf4, 0xf6, 0xf8);
}
