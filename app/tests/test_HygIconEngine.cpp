#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <QApplication>
#include <QDir>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

/// Mean colour of what is drawn, invalid if nothing is.
QColor drawn(const QPixmap & picture) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    double red = 0, green = 0, blue = 0, alpha = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            red += colour.redF() * colour.alphaF();
            green += colour.greenF() * colour.alphaF();
            blue += colour.blueF() * colour.alphaF();
            alpha += colour.alphaF();
        }
    }
    return alpha < 10 ? QColor() : QColor::fromRgbF(red / alpha, green / alpha, blue / alpha);
}

TEST(HygIconEngine, EveryIconStandsOutOnLightAndDark) {
    const QStringList names = QDir(":/icons").entryList({"*.svg"});
    ASSERT_GT(names.size(), 20);
    const QPalette before = QApplication::palette();
    for (const bool isDark : {false, true}) {
        const QPalette palette = QtExt::Palette::palette(isDark);
        QApplication::setPalette(palette);
        for (const QString & file : names) {
            const QIcon icon = HygIconEngine::icon(QString(file).remove(".svg"));
            const QColor normal = drawn(icon.pixmap(24, 24));
            const QColor disabled = drawn(icon.pixmap(24, 24, QIcon::Disabled));
            const QColor selected = drawn(icon.pixmap(24, 24, QIcon::Selected));
            ASSERT_TRUE(normal.isValid() && disabled.isValid() && selected.isValid()) << file.toStdString();
            const double ground = palette.color(QPalette::Window).lightnessF();
            EXPECT_GT(std::abs(normal.lightnessF() - ground), 0.4)
                << file.toStdString() << (isDark ? " dark" : " light");
            EXPECT_LT(std::abs(disabled.lightnessF() - ground), std::abs(normal.lightnessF() - ground))
                << file.toStdString();
            EXPECT_GT(std::abs(selected.lightnessF() - palette.color(QPalette::Highlight).lightnessF()), 0.3)
                << file.toStdString();
        }
    }
    QApplication::setPalette(before);
}

TEST(HygIconEngine, OneColourColoursTheWholeIconAndUnknownNamesDrawNothing) {
    const QColor colour = drawn(HygIconEngine::icon("open", Qt::red).pixmap(48, 48));
    EXPECT_GT(colour.redF(), 0.95);
    EXPECT_LT(colour.greenF() + colour.blueF(), 0.1);
    EXPECT_FALSE(drawn(HygIconEngine::icon("no such icon").pixmap(24, 24)).isValid());
}

} // namespace
