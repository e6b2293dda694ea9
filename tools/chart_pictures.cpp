// chart_pictures DIRECTORY: draws a picture of each kind of chart, in English and German, light and dark.
#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <QApplication>
#include <QDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QMouseEvent>
#include <QTimer>
#include <QTranslator>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>

namespace {

using SCI::Chart;

constexpr QSize SIZE(760, 440);
constexpr double HOUR = 3600;
constexpr double YEAR = 31536000;
constexpr double PI = std::numbers::pi;

enum language_t { English, German };
constexpr const char * LANGUAGES[] = {"en", "de"};

/// A text in both languages.
struct Text {
    const char * texts[2];
};

struct Look {
    language_t language;
    bool isDark;
    QString directory;

    QString operator()(const Text & text) const { return QString::fromUtf8(text.texts[language]); }
    QString file(const char * name) const {
        return QStringLiteral("%1/chart_%2_%3_%4.png")
            .arg(directory, QLatin1String(name), QLatin1String(LANGUAGES[language]), isDark ? "dark" : "light");
    }
};

std::unique_ptr<Chart> newChart(const Look & look, const Text & title) {
    auto chart = std::make_unique<Chart>();
    chart->setLocale(QLocale(QLatin1String(LANGUAGES[look.language])));
    chart->setDark(look.isDark);
    chart->setTitle(look(title));
    chart->resize(SIZE);
    return chart;
}

void save(const QPixmap & picture, const QString & path) {
    if (!picture.save(path))
        qFatal("Cannot write '%s'.", qPrintable(path));
    std::printf("%s\n", qPrintable(path));
}

/// A year of temperature and humidity in a beam end, with days that were not measured, and the cursor on it.
void drawLines(const Look & look) {
    const auto chart = newChart(look, {
                                          {"Beam end, north wall", "Balkenkopf, Nordwand"}
    });
    const Text temperature{
        {"Temperature", "Temperatur"}
    };
    const Text humidity{
        {"Relative humidity", "Relative Luftfeuchte"}
    };
    chart->setAxis(SCI::X_BOTTOM, {QString(), "s", "s", SCI::DATE, 2024});
    chart->setAxis(SCI::Y_LEFT, {look(temperature), "K", "C"});
    chart->setAxis(SCI::Y_RIGHT, {look(humidity), "---", "%"});
    const auto season = [](double t) { return -std::cos(2 * PI * (t / YEAR - 0.05)); };
    const auto weather = [](double t) { return std::sin(t / 4.1e5) + 0.6 * std::sin(t / 1.73e5 + 1); };
    const auto day = [](double t) { return std::sin(2 * PI * t / (24 * HOUR)); };
    SCI::LineStyle line;
    line.title = look(temperature);
    chart->addLine(std::make_shared<SCI::FunctionModel>(
                       [=](double t) { return 284 + 8 * season(t) + 1.5 * weather(t) + 0.8 * day(t); }, 0, YEAR, 8761),
                   line);
    line.title = look(humidity);
    line.yAxis = SCI::Y_RIGHT;
    chart->addLine(std::make_shared<SCI::FunctionModel>(
                       [=](double t) {
                           const bool isLost = t > 0.62 * YEAR && t < 0.66 * YEAR;
                           return isLost ? std::numeric_limits<double>::quiet_NaN()
                                         : 0.78 - 0.11 * season(t) - 0.012 * weather(t);
                       },
                       0, YEAR, 8761),
                   line);
    chart->addThreshold(SCI::Y_RIGHT, 0.85,
                        look({
                            {"Limit 85 %", "Grenzwert 85 %"}
    }));
    chart->show();
    QApplication::processEvents();
    auto * canvas = chart->findChild<QWidget *>(QStringLiteral("canvas"));
    const QPoint place(canvas->width() * 3 / 10, canvas->height() / 2);
    QMouseEvent move(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &move);
    QApplication::processEvents();
    save(chart->grab(), look.file("line"));

    QTimer::singleShot(0, chart.get(), [&chart, &look] {
        auto * dialog = chart->findChild<QDialog *>(QStringLiteral("axisDialog"));
        QApplication::processEvents();
        save(dialog->grab(), look.file("axes"));
        dialog->close();
    });
    chart->editAxes(SCI::X_BOTTOM);
}

/// Water taken up and dried month by month.
void drawBars(const Look & look) {
    const auto chart = newChart(look, {
                                          {"Moisture balance of a roof", "Feuchtebilanz eines Daches"}
    });
    std::vector<double> months, taken, dried;
    for (int i = 0; i < 12; ++i) {
        months.push_back((i + 0.5) * YEAR / 12);
        const double season = -std::cos(2 * PI * i / 12.0);
        taken.push_back(0.16 - 0.12 * season);
        dried.push_back(-(0.15 + 0.13 * season));
    }
    chart->setAxis(SCI::X_BOTTOM, {QString(), "s", "s", SCI::DATE});
    chart->setAxis(SCI::Y_LEFT, {
                                    look({{"Water", "Wasser"}}
                                    ), "kg/m2", "kg/m2"
    });
    SCI::BarStyle bar;
    bar.groupCount = 2;
    bar.title = look({
        {"taken up", "aufgenommen"}
    });
    chart->addBars(std::make_shared<SCI::ArrayModel>(months, taken), bar);
    bar.group = 1;
    bar.title = look({
        {"dried", "abgegeben"}
    });
    chart->addBars(std::make_shared<SCI::ArrayModel>(months, dried), bar);
    chart->addBand(SCI::Y_LEFT, 0.25, std::numeric_limits<double>::infinity(),
                   look({
                       {"too much", "zu viel"}
    }));
    save(QPixmap::fromImage(chart->image(SIZE)), look.file("bar"));
}

/// Temperatures around a cold edge, and the heat that flows there.
struct Corner : SCI::GridModel {
    static constexpr std::size_t N = 60, M = 40;
    std::size_t columns() const override { return N; }
    std::size_t rows() const override { return M; }
    double xEdge(std::size_t i) const override { return 0.6 * static_cast<double>(i) / N; }
    double yEdge(std::size_t j) const override { return 0.4 * static_cast<double>(j) / M; }
    static bool isRoom(double x, double y) { return x > 0.38 && y > 0.22; }
    /// Falls off with the distance from the room [K].
    static double temperature(double x, double y) {
        const double dx = std::max(0.38 - x, 0.0);
        const double dy = std::max(0.22 - y, 0.0);
        return 268.15 + 23 * std::exp(-std::hypot(dx, 1.25 * dy) / 0.16);
    }
    double value(std::size_t i, std::size_t j) const override {
        const double x = (xEdge(i) + xEdge(i + 1)) / 2;
        const double y = (yEdge(j) + yEdge(j + 1)) / 2;
        return isRoom(x, y) ? std::numeric_limits<double>::quiet_NaN() : temperature(x, y);
    }
};
struct HeatFlux : SCI::VectorModel {
    static constexpr double STEP = 1e-4;  ///< [m]
    static constexpr double LAMBDA = 0.8; ///< [W/mK]
    std::size_t count() const override { return 15 * 10; }
    double x(std::size_t i) const override { return 0.02 + 0.04 * static_cast<double>(i % 15); }
    double y(std::size_t i) const override { return 0.02 + 0.04 * static_cast<double>(i / 15); }
    double part(std::size_t i, double dx, double dy) const {
        if (Corner::isRoom(x(i), y(i)))
            return std::numeric_limits<double>::quiet_NaN();
        return -LAMBDA * (Corner::temperature(x(i) + dx, y(i) + dy) - Corner::temperature(x(i) - dx, y(i) - dy)) /
               (2 * STEP);
    }
    double xPart(std::size_t i) const override { return part(i, STEP, 0); }
    double yPart(std::size_t i) const override { return part(i, 0, STEP); }
};

void drawGrid(const Look & look) {
    const auto chart = newChart(look, {
                                          {"Wall corner in January", "Wandecke im Januar"}
    });
    chart->setAxis(SCI::X_BOTTOM, {"x", "m", "mm"});
    chart->setAxis(SCI::Y_LEFT, {"y", "m", "mm"});
    chart->setAxis(SCI::Y_RIGHT, {
                                     look({{"Temperature", "Temperatur"}}
                                     ), "K", "C"
    });
    SCI::GridStyle grid;
    grid.hasIsolines = true;
    chart->addGrid(std::make_shared<Corner>(), grid);
    SCI::VectorStyle arrows;
    arrows.title = look({
        {"Heat flux", "Wärmestrom"}
    });
    arrows.unit = "W/m2";
    chart->addVectors(std::make_shared<HeatFlux>(), arrows);
    save(QPixmap::fromImage(chart->image(SIZE)), look.file("grid"));
}

void drawLogarithms(const Look & look) {
    const auto chart = newChart(look, {
                                          {"Liquid conductivity", "Flüssigwasserleitfähigkeit"}
    });
    chart->setAxis(SCI::X_BOTTOM, {
                                      look({{"Moisture content", "Feuchtegehalt"}}
                                      ), "m3/m3", "Vol%"
    });
    chart->setAxis(SCI::Y_LEFT, {
                                    look({{"Conductivity", "Leitfähigkeit"}}
                                    ), "s", "s", SCI::LOGARITHMIC
    });
    const struct {
        Text name;
        double saturation, exponent, largest;
    } materials[] = {
        {{{"Brick", "Ziegel"}},                    0.35, 6, 3e-8},
        {{{"Lime plaster", "Kalkputz"}},           0.28, 8, 2e-9},
        {{{"Sandstone", "Sandstein"}},             0.21, 5, 4e-9},
        {{{"Calcium silicate", "Kalziumsilikat"}}, 0.9,  9, 1e-7},
    };
    for (const auto & material : materials) {
        SCI::LineStyle line;
        line.title = look(material.name);
        chart->addLine(std::make_shared<SCI::FunctionModel>(
                           [=](double content) {
                               return material.largest * std::pow(content / material.saturation, material.exponent);
                           },
                           0.01, material.saturation),
                       line);
    }
    save(QPixmap::fromImage(chart->image(SIZE)), look.file("log"));
}

} // namespace

int main(int argc, char * argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    const QString directory = QCoreApplication::arguments().value(1, QStringLiteral("."));
    for (const language_t language : {English, German}) {
        QTranslator translator;
        if (language == German &&
            !translator.load(QStringLiteral("hygrion_de"),
                             QCoreApplication::applicationDirPath() + QStringLiteral("/translations")))
            qFatal("There is no German translation beside the program.");
        QTranslator toolkit;
        if (language == German)
            toolkit.load(QStringLiteral("qtbase_de"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
        QCoreApplication::installTranslator(&toolkit);
        QCoreApplication::installTranslator(&translator);
        for (const bool isDark : {false, true}) {
            QPalette palette;
            palette.setColor(QPalette::Window, isDark ? QColor(0x23272e) : QColor(0xf4f6f8));
            for (const auto role : {QPalette::Base, QPalette::Button})
                palette.setColor(role, isDark ? QColor(0x31373f) : QColor(0xffffff));
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
                palette.setColor(role, isDark ? QColor(0xe6e9ee) : QColor(0x1d2430));
            QApplication::setPalette(palette);
            const Look look{language, isDark, directory};
            for (const auto & draw : {drawLines, drawBars, drawGrid, drawLogarithms})
                draw(look);
        }
    }
    return 0;
}
