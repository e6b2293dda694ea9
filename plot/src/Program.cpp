#include "Program.h"

#include "Commands.h"
#include "Reference.h"

#include <SCI/Chart.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QApplication>
#include <QFileInfo>
#include <QFont>
#include <QLocale>
#include <QTranslator>

#include <filesystem>
#include <iostream>
#include <new>
#include <tuple>

namespace PLOT {

namespace {

constexpr const char * VERSION = "hygrion-plot " HYG_VERSION;
constexpr int FONT_SIZE = 10; ///< [pt]

void addCommon(CLI::App & app, Common & common) {
    app.add_option("-o,--output", common.output,
                   "The file to write: png, svg, pdf, or csv for a table of what is drawn.")
        ->required();
    app.add_option("--width", common.width, "Width of the picture [px].")
        ->check(CLI::Range(60, 20000))
        ->capture_default_str();
    app.add_option("--height", common.height, "Height of the picture [px].")
        ->check(CLI::Range(60, 20000))
        ->capture_default_str();
    app.add_option("--scale", common.scale, "Pixels of a png for each of these: 2 for twice as fine.")
        ->check(CLI::Range(0.1, 10.0))
        ->capture_default_str();
    app.add_flag("--dark", common.isDark, "Draw on dark ground.");
    app.add_option("--lang", common.language, "Language of the texts.")
        ->check(CLI::IsMember({"en", "de"}))
        ->capture_default_str();
    app.add_option("--title", common.title, "Text above the picture.");
    app.add_option("--x-unit", common.xUnit, "Unit of the lower axis; for dates a unit of time shows durations.");
    app.add_option("--y-unit", common.yUnit, "Unit of the values.");
    for (const auto & [name, range, text] :
         {std::tuple("--x-range", &common.xRange, "What is shown of the lower axis, in its unit: 0,200."),
          std::tuple("--y-range", &common.yRange, "What is shown of the left axis.")})
        app.add_option(name, *range, text)->delimiter(',')->expected(2);
    app.add_flag("--log-x", common.isLogX, "Logarithmic lower axis.");
    app.add_flag("--log-y", common.isLogY, "Logarithmic axis of the values.");
    app.add_option("--reference", common.reference,
                   "A table (csv) drawn as points, in the units of the axes; lines without numbers are skipped.");
    app.add_option("--reference-columns", common.referenceColumns, "Its columns for x and y, counted from 1.")
        ->delimiter(',')
        ->expected(2)
        ->check(CLI::Range(1, 1000));
}

std::string directoryOfProgram() {
    return QCoreApplication::applicationDirPath().toStdString();
}

void setLanguage(QTranslator & translator, const std::string & language) {
    QLocale::setDefault(QLocale(QString::fromStdString(language)));
    if (language == "en")
        return;
    const QString file = QStringLiteral("hygrion_") + QString::fromStdString(language);
    if (!translator.load(file, QString::fromStdString(directoryOfProgram()) + QStringLiteral("/translations")))
        throw KOR::Exception(
            KOR::text("The texts of language '%1' are not at '%2/translations'.", language, directoryOfProgram()),
            "[PLOT::run]");
    QCoreApplication::installTranslator(&translator);
}

void draw(const Command & command, const Common & common) {
    QTranslator translator;
    setLanguage(translator, common.language);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), FONT_SIZE));
    SCI::Chart chart;
    chart.setLocale(QLocale());
    chart.setDark(common.isDark);
    command.fill(chart, common);
    if (!common.title.empty())
        chart.setTitle(QString::fromStdString(common.title));
    if (!common.reference.empty())
        addReference(chart, common);
    for (const auto & [axis, range] : {std::pair(SCI::X_BOTTOM, common.xRange), std::pair(SCI::Y_LEFT, common.yRange)})
        if (range.size() == 2)
            chart.setRange(axis, {range[0], range[1]});
    const QString path = QString::fromStdString(common.output);
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("csv"))
        return chart.writeCsv(path);
    if (const QStringList pictures{"png", "svg", "pdf"}; !pictures.contains(suffix))
        throw KOR::Exception(KOR::text("Cannot write a picture to '%1', expected a name that ends in png, svg or pdf, "
                                       "or in csv for a table.",
                                       common.output),
                             "[PLOT::run]");
    chart.writePicture(path, QSize(common.width, common.height), common.scale);
}

} // namespace

std::string stem(const std::string & path) {
    return std::filesystem::path(path).stem().string();
}

exit_t run(std::vector<std::string> arguments) {
    CLI::App app("Pictures of materials, climates and results, from the command line. Needs no screen.",
                 "hygrion-plot");
    app.require_subcommand(1);
    app.set_help_flag("-h,--help", "Print this help and exit.");
    app.set_version_flag("--version", VERSION, "Print the version and exit.");
    Common common;
    const Command commands[] = {materialCommand(app), climateCommand(app), resultsCommand(app)};
    for (const Command & command : commands)
        addCommon(*command.app, common);
    std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success & ex) { // help and version
        app.exit(ex, std::cout, std::cerr);
        return EXIT_DONE;
    } catch (const CLI::ParseError & ex) {
        std::cerr << ex.what() << "\nHelp: hygrion-plot --help\n";
        return EXIT_USAGE;
    }
    try {
        for (const Command & command : commands)
            if (command.app->parsed())
                draw(command, common);
        return EXIT_DONE;
    } catch (const std::bad_alloc &) {
        std::cerr << "Out of memory.\n";
    } catch (const std::exception & ex) {
        std::cerr << ex.what() << '\n';
    }
    return EXIT_FAILED;
}

} // namespace PLOT
