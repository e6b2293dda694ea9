// svg2png IN.svg OUT.png WIDTH HEIGHT: draws an SVG with the same renderer that the editor uses.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char * argv[]) {
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fputs("Syntax: svg2png IN.svg OUT.png WIDTH HEIGHT\n", stderr);
        return 2;
    }
    QSvgRenderer renderer(arguments[1]);
    QImage image(arguments[3].toInt(), arguments[4].toInt(), QImage::Format_ARGB32_Premultiplied);
    if (!renderer.isValid() || image.isNull()) {
        std::fprintf(stderr, "svg2png: cannot draw '%s'.\n", qPrintable(arguments[1]));
        return 1;
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    if (!image.save(arguments[2])) {
        std::fprintf(stderr, "svg2png: cannot write '%s'.\n", qPrintable(arguments[2]));
        return 1;
    }
    return 0;
}
