#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using SCI::Chart;
using SCI::ColorMap;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();

/// Three columns and two rows; the last cell is empty.
struct SmallGrid : SCI::GridModel {
    std::size_t columns() const override { return 3; }
    std::size_t rows() const override { return 2; }
    double xEdge(std::size_t i) const override { return 0.01 * static_cast<double>(i); }
    double yEdge(std::size_t j) const override { return 0.02 * static_cast<double>(j); }
    double value(std::size_t i, std::size_t j) const override {
        return i == 2 && j == 1 ? NONE : 273.15 + 10 * static_cast<double>(i + 3 * j);
    }
};

struct Arrows : SCI::VectorModel {
    std::size_t count() const override { return 2; }
    double x(std::size_t i) const override { return 0.005 + 0.01 * static_cast<double>(i); }
    double y(std::size_t) const override { return 0.01; }
    double xPart(std::size_t i) const override { return i == 0 ? 1e-6 : NONE; }
    double yPart(std::size_t) const override { return 0; }
};

constexpr int BAR = 60; ///< where the colour bar stands, from the right [px]

/// All rectangles of a colour in a picture, as the middle and the number of its pixels.
struct Patch {
    double x = 0, y = 0;
    int count = 0;
};
Patch patch(const QImage & image, QRgb color, int rightEdge = 0) {
    Patch found;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width() - rightEdge; ++x)
            if (image.pixel(x, y) == color) {
                found.x += x;
                found.y += y;
                ++found.count;
            }
    found.x /= found.count;
    found.y /= found.count;
    return found;
}

std::unique_ptr<Chart> gridChart(const SCI::GridStyle & style) {
    auto chart = std::make_unique<Chart>();
    chart->setDark(false);
    chart->setAxis(SCI::X_BOTTOM, {"x", "m", "mm"});
    chart->setAxis(SCI::Y_LEFT, {"y", "m", "mm"});
    chart->setAxis(SCI::Y_RIGHT, {"Temperature", "K", "C"});
    chart->addGrid(std::make_shared<SmallGrid>(), style);
    chart->setRange(SCI::Y_RIGHT, {0, 50});
    return chart;
}

TEST(ColorGrid, CellsHaveTheColourOfTheirValueAndPlace) {
    for (const auto map : {ColorMap::SEQUENCE, ColorMap::WATER}) {
        SCI::GridStyle style;
        style.map = map;
        const QImage image = gridChart(style)->image(QSize(600, 400));
        const ColorMap colors(map);
        const Patch zero = patch(image, colors.rgb(0), BAR);
        const Patch ten = patch(image, colors.rgb(0.2), BAR);
        const Patch thirty = patch(image, colors.rgb(0.6), BAR);
        EXPECT_GT(zero.count, 5000);
        EXPECT_NEAR(ten.count, zero.count, 0.02 * zero.count);
        EXPECT_NEAR(thirty.count, zero.count, 0.02 * zero.count);
        EXPECT_NEAR(zero.y, ten.y, 2);
        EXPECT_GT(ten.x, zero.x + 50);
        EXPECT_NEAR(thirty.x, zero.x, 2);
        EXPECT_LT(thirty.y, zero.y - 50) << "rows go up";
        EXPECT_EQ(image.pixel(int(ten.x * 2 - zero.x), int(thirty.y)), 0xFFFFFFFF) << "NaN is a hole";
    }
}

TEST(ColorGrid, IsolinesAndSmoothColoursLieBetweenTheCentres) {
    SCI::GridStyle style;
    style.isSmooth = true;
    style.map = ColorMap::WATER; // pale where the line is
    style.hasIsolines = true;
    style.isolines = {273.15 + 5};
    const QImage image = gridChart(style)->image(QSize(600, 400));
    // Between the centres of the first two columns of the lower row, where the value is 5 C, the line is dark.
    int darkest = 255;
    for (int x = 150; x < 350; ++x)
        darkest = std::min(darkest, qGray(image.pixel(x, 300)));
    style.hasIsolines = false;
    const QImage plain = gridChart(style)->image(QSize(600, 400));
    EXPECT_GT(patch(plain, ColorMap(style.map).rgb(0.1), BAR).count, 0) << "values between those of the cells";
    EXPECT_LT(darkest, qGray(plain.pixel(250, 300)) - 60);
}

/// Width and height of all pixels of a colour.
QSize extent(const QImage & image, QRgb color, int rightEdge) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width() - rightEdge; ++x)
            if (image.pixel(x, y) == color)
                box |= QRect(x, y, 1, 1);
    return box.size();
}

/// A cell that has no value is hatched, exactly where it is; where there is no cell the ground stays.
TEST(ColorGrid, CellsWithoutAValueAreHatchedAndSaySo) {
    struct Holes : SmallGrid {
        double value(std::size_t i, std::size_t j) const override {
            return i == 0 && j == 1 ? NONE : SmallGrid::value(i, j);
        }
        bool isWithoutValue(std::size_t i, std::size_t j) const override { return i == 0 && j == 1; }
    };
    int sizes[2];
    for (const bool isSmooth : {false, true}) {
        Chart chart;
        chart.setDark(false);
        chart.setAxis(SCI::X_BOTTOM, {"x", "m", "mm"});
        chart.setAxis(SCI::Y_LEFT, {"y", "m", "mm"});
        chart.setAxis(SCI::Y_RIGHT, {"Temperature", "K", "C"});
        SCI::GridStyle style;
        style.isSmooth = isSmooth;
        style.hasIsolines = true;
        style.isolines = {273.15 + 15};
        const auto id = chart.addGrid(std::make_shared<Holes>(), style);
        EXPECT_EQ(chart.range(SCI::Y_RIGHT).from, 0);
        EXPECT_EQ(chart.range(SCI::Y_RIGHT).to, 40);
        EXPECT_EQ(chart.valuesAt(5, 30), QStringList({"x: 5 mm", "y: 30 mm", "Temperature: no value"}));
        EXPECT_EQ(chart.valuesAt(25, 30), QStringList({"x: 25 mm", "y: 30 mm"})) << "no cell";
        EXPECT_EQ(chart.valuesAt(25, 10).value(2), "Temperature: 20 °C");
        const QImage image = chart.image(QSize(600, 400)).copy(0, 0, 600, 250); // without the legend
        const QRgb grey = 0xFFD3D7DC;
        const QSize hole = extent(image, grey, BAR);
        const QImage full = gridChart({})->image(QSize(600, 400)).copy(0, 0, 600, 250);
        EXPECT_NEAR(hole.width(), extent(full, ColorMap().rgb(0.6), 2 * BAR).width(), 3);
        EXPECT_GT(hole.height(), 120);
        sizes[isSmooth] = patch(image, grey, BAR).count;
        EXPECT_GT(sizes[isSmooth], 5000);
        chart.remove(id);
        chart.addGrid(std::make_shared<SmallGrid>(), style);
        EXPECT_EQ(patch(chart.image(QSize(600, 400)), grey).count, 0) << "not in the legend either";
    }
    EXPECT_NEAR(sizes[0], sizes[1], 0.02 * sizes[0]) << "smooth colours leave the hole its shape";
}

TEST(ColorGrid, EqualScalesShowCellsInTheirShape) {
    SCI::GridStyle style;
    const auto chart = gridChart(style);
    EXPECT_TRUE(chart->canHaveEqualScales());
    chart->setEqualScales(true);
    const QRgb zero = ColorMap(style.map).rgb(0);
    for (const QSize size : {QSize(600, 400), QSize(400, 800), QSize(900, 300)}) {
        const QSize cell = extent(chart->image(size), zero, 2 * BAR); // 10 mm x 20 mm
        EXPECT_GT(cell.width(), 30);
        EXPECT_NEAR(cell.height(), 2 * cell.width(), 3) << size.width();
        chart->resize(size);
        chart->show();
        QApplication::processEvents();
        const QPointF origin = chart->toCanvas({0, 0});
        const QPointF corner = chart->toCanvas({0.01, 0.01});
        EXPECT_NEAR(corner.x() - origin.x(), origin.y() - corner.y(), 1.5) << size.width();
    }
    // The range asked for is in view, whatever is around it.
    chart->setRange(SCI::X_BOTTOM, {10, 20});
    EXPECT_LE(chart->range(SCI::X_BOTTOM).from, 10);
    EXPECT_GE(chart->range(SCI::X_BOTTOM).to, 20);
    chart->setEqualScales(false);
    EXPECT_EQ(chart->range(SCI::X_BOTTOM).to, 20);
    chart->setAxis(SCI::X_BOTTOM, {"t", "s", "h"});
    EXPECT_FALSE(chart->canHaveEqualScales()) << "times are no lengths";
}

TEST(ColorGrid, ValuesOfIsolinesStandAboveArrows) {
    struct Crowd : SCI::VectorModel {
        std::size_t count() const override { return 900; }
        double x(std::size_t i) const override { return 0.001 * static_cast<double>(i % 30); }
        double y(std::size_t i) const override { return 0.04 / 30 * static_cast<double>(i / 30); }
        double xPart(std::size_t) const override { return 1; }
        double yPart(std::size_t) const override { return 1; }
    };
    SCI::GridStyle style;
    style.map = ColorMap::WATER;
    style.hasIsolines = true;
    style.isolines = {273.15 + 5, 273.15 + 15};
    const auto chart = gridChart(style);
    const QImage plain = chart->image(QSize(600, 400));
    SCI::VectorStyle arrows;
    arrows.color = Qt::red;
    chart->addVectors(std::make_shared<Crowd>(), arrows);
    const QImage crowded = chart->image(QSize(600, 400));
    int ink = 0;
    int covered = 0;
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x)
            if (plain.pixel(x, y) == 0xFF000000) { // texts alone are as black as this
                ++ink;
                covered += crowded.pixel(x, y) != 0xFF000000;
            }
    EXPECT_GT(ink, 10);
    EXPECT_EQ(covered, 0);
    EXPECT_GT(patch(crowded, QColor(Qt::red).rgb()).count, 500) << "arrows are there";
}

TEST(ColorGrid, LogarithmicColoursFollowTheDecades) {
    struct Decades : SmallGrid {
        double value(std::size_t i, std::size_t j) const override {
            return i == 2 && j == 1 ? 0 : std::pow(10, -12.0 + static_cast<double>(i + 3 * j));
        }
    };
    Chart chart;
    chart.setDark(false);
    chart.setAxis(SCI::Y_RIGHT, {"K", "s", "s", SCI::LOGARITHMIC});
    chart.addGrid(std::make_shared<Decades>());
    EXPECT_NEAR(chart.range(SCI::Y_RIGHT).from, 1e-12, 1e-20);
    EXPECT_NEAR(chart.range(SCI::Y_RIGHT).to, 1e-8, 1e-14);
    const QImage image = chart.image(QSize(600, 400));
    for (const double share : {0.25, 0.5, 0.75, 1.0})
        EXPECT_GT(patch(image, ColorMap().rgb(share - 0.001), BAR).count +
                      patch(image, ColorMap().rgb(share + 0.001), BAR).count,
                  5000)
            << share;
}

TEST(Bars, StandOnTheirBaselineSideBySide) {
    const std::vector<double> x{1, 2, 3}, y{5, NONE, -5};
    Chart chart;
    chart.setDark(false);
    SCI::BarStyle style;
    style.groupCount = 2;
    style.color = Qt::red;
    chart.addBars(std::make_shared<SCI::ArrayModel>(x, y), style);
    style.group = 1;
    style.color = Qt::blue;
    chart.addBars(std::make_shared<SCI::ArrayModel>(x, y), style);
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).from, 0.5);
    EXPECT_EQ(chart.range(SCI::X_BOTTOM).to, 3.5);
    const QImage image = chart.image(QSize(600, 400));
    const Patch red = patch(image, 0xFFFF0000);
    const Patch blue = patch(image, 0xFF0000FF);
    EXPECT_NEAR(red.count, blue.count, 0.03 * blue.count);
    EXPECT_GT(red.count, 10000);
    EXPECT_LT(red.x, blue.x);
    EXPECT_NEAR(red.y, image.height() / 2.0, 25) << "one up, one down";
}

TEST(Marks, ThresholdsAndBandsAreDrawn) {
    const std::vector<double> x{0, 10}, y{0, 10};
    const auto picture = [&](double band, double threshold) {
        Chart chart;
        chart.setDark(false);
        chart.addLine(std::make_shared<SCI::ArrayModel>(x, y));
        if (band != 0)
            chart.addBand(SCI::Y_LEFT, band, std::numeric_limits<double>::infinity());
        if (threshold != 0)
            chart.addThreshold(SCI::X_BOTTOM, threshold, "limit");
        return chart.image(QSize(600, 400));
    };
    const QRgb white = 0xFFFFFFFF;
    const int ground = patch(picture(0, 0), white).count;
    EXPECT_LT(patch(picture(8, 0), white).count, ground - 25000);
    EXPECT_LT(patch(picture(4, 0), white).count, patch(picture(8, 0), white).count - 50000);
    EXPECT_LT(patch(picture(0, 5), white).count, ground - 150);
    EXPECT_EQ(patch(picture(50, 50), white).count, ground) << "out of sight";
}

TEST(Marks, TextsKeepTheirSizeInFinePicturesAndTheirPlaceInBands) {
    const std::vector<double> x{0, 10}, y{0, 10};
    Chart chart;
    chart.setDark(false);
    SCI::LineStyle style;
    style.color = Qt::red;
    chart.addLine(std::make_shared<SCI::ArrayModel>(x, y), style);
    chart.setRange(SCI::X_BOTTOM, {0, 10});
    // What the texts add to the picture.
    const auto box = [&](const QImage & plain, const QImage & texted) {
        QRect found;
        for (int j = 0; j < plain.height(); ++j)
            for (int i = 0; i < plain.width(); ++i)
                if (plain.pixel(i, j) != texted.pixel(i, j))
                    found |= QRect(i, j, 1, 1);
        return found;
    };
    const QSize size(600, 400);
    const QImage plain = chart.image(size);
    const QImage finePlain = chart.image(size, 2);
    const auto whole = chart.addBand(SCI::X_BOTTOM, 2, 8, "render", false);
    const QRect flat = box(plain, chart.image(size));
    const QRect fine = box(finePlain, chart.image(size, 2));
    EXPECT_GT(flat.width(), flat.height());
    EXPECT_NEAR(flat.center().x(), size.width() / 2 + 15, 20) << "in the middle of the band";
    EXPECT_NEAR(fine.width(), 2 * flat.width(), 6) << "as large as all other texts";
    EXPECT_NEAR(fine.height(), 2 * flat.height(), 4);
    chart.remove(whole);
    chart.addBand(SCI::X_BOTTOM, 2, 2.5, "render", false);
    const QRect turned = box(plain, chart.image(size));
    EXPECT_NEAR(turned.height(), flat.width(), 3);
    EXPECT_LE(turned.width(), 30) << "it stays in its band";
    chart.addBand(SCI::X_BOTTOM, 7, 7.1, "render", false);
    EXPECT_EQ(box(plain, chart.image(size)), turned) << "no room at all";
}

TEST(ColorMaps, AreEvenAndKeepTheirOrderForColourBlindReaders) {
    // CIELAB (CIE 15:2004, D65), and red-green blindness after Machado, Oliveira and Fernandes (2009).
    struct Lab {
        double l, a, b;
    };
    const auto lab = [](QRgb color, bool isBlind) {
        const auto linear = [](int c) {
            return c / 255.0 <= 0.04045 ? c / 255.0 / 12.92 : std::pow((c / 255.0 + 0.055) / 1.055, 2.4);
        };
        double r = linear(qRed(color)), g = linear(qGreen(color)), b = linear(qBlue(color));
        if (isBlind) {
            const double r2 = 0.367322 * r + 0.860646 * g - 0.227968 * b;
            const double g2 = 0.280085 * r + 0.672501 * g + 0.047413 * b;
            const double b2 = -0.011820 * r + 0.042940 * g + 0.968881 * b;
            r = r2, g = g2, b = b2;
        }
        const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
        const double x = f((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047);
        const double y = f(0.2126729 * r + 0.7151522 * g + 0.0721750 * b);
        const double z = f((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883);
        return Lab{116 * y - 16, 500 * (x - y), 200 * (y - z)};
    };
    constexpr int STEPS = 16;
    for (int map = 0; map < ColorMap::NUM_MAPS; ++map)
        for (const bool isBlind : {false, true}) {
            SCOPED_TRACE(testing::Message() << "map " << map << (isBlind ? ", red-green blind" : ""));
            const ColorMap colors(static_cast<ColorMap::map_t>(map));
            double smallest = 1e9;
            double largest = 0;
            int turns = 0;
            double before = 0;
            for (int i = 0; i < STEPS; ++i) {
                const Lab p = lab(colors.rgb(double(i) / STEPS), isBlind);
                const Lab q = lab(colors.rgb(double(i + 1) / STEPS), isBlind);
                const double distance = std::hypot(q.l - p.l, q.a - p.a, q.b - p.b);
                smallest = std::min(smallest, distance);
                largest = std::max(largest, distance);
                turns += (q.l - p.l) * before < 0;
                before = q.l - p.l;
            }
            EXPECT_GT(smallest, 1.5);
            EXPECT_LT(largest / smallest, isBlind ? 4 : 3);
            EXPECT_EQ(turns, map == ColorMap::DIVERGING ? 1 : 0) << "lightness rises or falls steadily";
        }
    EXPECT_EQ(ColorMap().rgb(-1), ColorMap().rgb(0));
    EXPECT_EQ(ColorMap().rgb(2), ColorMap().rgb(1));
    EXPECT_EQ(ColorMap().rgb(NONE), 0u);
}

/// A chart with a line, a grid and arrows, so that every branch of an export is walked.
std::unique_ptr<Chart> fullChart() {
    auto chart = gridChart({});
    chart->setTitle("All \"kinds\", äöü");
    static const std::vector<double> x{0, 0.01, 0.03}, y{0, NONE, 0.04};
    SCI::LineStyle line;
    line.title = "Path; first, second";
    chart->addLine(std::make_shared<SCI::ArrayModel>(x, y), line);
    line.title = "Again";
    chart->addLine(std::make_shared<SCI::ArrayModel>(x, x), line);
    SCI::VectorStyle arrows;
    arrows.title = "Flux";
    arrows.unit = "kg/m2s";
    chart->addVectors(std::make_shared<Arrows>(), arrows);
    return chart;
}

TEST(Export, PicturesAreReadBack) {
    const QTemporaryDir directory;
    const auto chart = fullChart();
    const QSize before = chart->size();
    chart->writePicture(directory.filePath("a.png"), QSize(400, 300), 2);
    const QImage image(directory.filePath("a.png"));
    EXPECT_EQ(image.size(), QSize(800, 600));
    EXPECT_EQ(image.pixel(2, 2), 0xFFFFFFFF);

    chart->writePicture(directory.filePath("a.svg"), QSize(400, 300));
    QSvgRenderer svg(directory.filePath("a.svg"));
    EXPECT_TRUE(svg.isValid());
    EXPECT_EQ(svg.viewBox(), QRect(0, 0, 400, 300));
    const std::string text = KOR::readFile(directory.filePath("a.svg").toStdString(), 1 << 24);
    EXPECT_THAT(text, testing::HasSubstr("äöü"));
    EXPECT_THAT(text, testing::HasSubstr("x [mm]"));

    chart->writePicture(directory.filePath("a.PDF"), QSize(400, 300));
    const std::string pdf = KOR::readFile(directory.filePath("a.PDF").toStdString(), 1 << 24);
    EXPECT_TRUE(pdf.starts_with("%PDF-"));
    for (const char * part : {"/Count 1\n", "/MediaBox [0 0 300", "/FontDescriptor"})
        EXPECT_NE(pdf.find(part), std::string::npos) << part;
    EXPECT_EQ(chart->size(), before);
}

TEST(Export, TablesHoldTheShownValues) {
    const auto chart = fullChart();
    constexpr const char * POINTS = "x [mm],\"Path; first, second: y [mm]\",Again: y [mm]\n"
                                    "0,0,0\n"
                                    "10,,10\n"
                                    "30,40,30\n"
                                    "\n";
    EXPECT_EQ(chart->csv(), std::string(POINTS) + "x [mm],y [mm],Temperature [°C]\n"
                                                  "5,10,0\n"
                                                  "15,10,10\n"
                                                  "25,10,20\n"
                                                  "5,30,30\n"
                                                  "15,30,40\n"
                                                  "25,30,\n"
                                                  "\n"
                                                  "x [mm],y [mm],Flux: [kg/(m²·s)] (x),Flux: [kg/(m²·s)] (y)\n"
                                                  "5,10,1e-06,0\n"
                                                  "15,10,,0\n");
    chart->copyCsv();
    const QMimeData & data = *QApplication::clipboard()->mimeData();
    EXPECT_EQ(data.data("text/csv").toStdString(), chart->csv());
    EXPECT_TRUE(data.text().startsWith("x [mm]\tPath; first, second: y [mm]\tAgain: y [mm]\n0\t0\t0\n"));
    chart->copyPicture();
    EXPECT_EQ(QApplication::clipboard()->image().size(), chart->size());
    chart->copySvg();
    EXPECT_TRUE(QSvgRenderer(QApplication::clipboard()->mimeData()->data("image/svg+xml")).isValid());
}

TEST(Export, SaysWhatCannotBeWritten) {
    const auto chart = fullChart();
    struct Fault {
        const char * path;
        QSize size;
        const char * message;
    };
    const Fault faults[] = {
        {"/nowhere/a.png", {400, 300}, "Error writing '/nowhere/a.png'."                                                },
        {"/tmp/a.gif",
         {400, 300},
         "Cannot write a picture to '/tmp/a.gif', expected a name that ends in png, svg "
         "or pdf."                                                                                                      },
        {"/tmp/a.png",
         {40000, 1},
         "A picture of 40000 x 1 pixels cannot be drawn, the sides must be from 60 to "
         "20000."                                                                                                       },
        {"/tmp/a.png",     {0, 10},    "A picture of 0 x 10 pixels cannot be drawn, the sides must be from 60 to 20000."},
    };
    for (const Fault & fault : faults)
        try {
            chart->writePicture(fault.path, fault.size);
            ADD_FAILURE() << fault.message;
        } catch (const KOR::Exception & ex) {
            EXPECT_EQ(ex.message(), fault.message);
        }
}

} // namespace
