#include "Commands.h"
#include "Models.h"

#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <MM/Evaluation.h>
#include <MM/Material.h>

#include <KOR/Exception.h>

#include <QLocale>

#include <cmath>

namespace PLOT {

namespace {

struct Arguments {
    std::vector<std::string> files;
    std::string function = "Theta_l(RH)";
    std::string direction = "u";
};

constexpr std::size_t POINTS = 1000;

/// How a quantity is drawn, by the unit of x and by the function.
struct XRow {
    std::string_view unit;
    const char * title;
    const char * shown;
    double from, to; ///< to 0: the moisture content at saturation
};
constexpr XRow X_ROWS[] = {
    {"-",     "Relative humidity",     "-",     0,      1     },
    {"logPa", "Capillary pressure pC", "logPa", 0,      10    },
    {"m3/m3", "Moisture content",      "m3/m3", 0,      0     },
    {"K",     "Temperature",           "C",     253.15, 353.15},
    {"J/kg",  "Internal energy",       "kJ/kg", -2e4,   8e4   },
};

struct YRow {
    std::string_view function;
    const char * title;
    const char * shown;
    bool isLogarithmic;
};
constexpr YRow Y_ROWS[] = {
    {"Theta_l(RH)", "Moisture content",           "m3/m3", false},
    {"Theta_l(pC)", "Moisture content",           "m3/m3", false},
    {"RH(Theta_l)", "Relative humidity",          "-",     false},
    {"pC(Theta_l)", "Capillary pressure pC",      "logPa", false},
    {"Kl",          "Liquid conductivity",        "s",     true },
    {"Dl",          "Liquid diffusivity",         "m2/s",  true },
    {"Kv",          "Vapour permeability",        "s",     false},
    {"mew(RH)",     "Vapour resistance factor",   "-",     false},
    {"Kg",          "Air permeability",           "s",     true },
    {"lambda",      "Thermal conductivity",       "W/mK",  false},
    {"lambda(T)",   "Thermal conductivity",       "W/mK",  false},
    {"u(T)",        "Internal energy",            "kJ/kg", false},
    {"T(u)",        "Temperature",                "C",     false},
    {"sd+(rh)",     "Vapour diffusion thickness", "m",     false},
    {"sd-(rh)",     "Vapour diffusion thickness", "m",     false},
};

template <typename Row, typename Key>
const Row & rowOf(std::span<const Row> rows, std::string_view key, Key Row::*name) {
    for (const Row & row : rows)
        if (row.*name == key)
            return row;
    throw KOR::Exception(KOR::text("'%1' cannot be drawn.", key), "[PLOT::material]");
}

QString chosen(const std::string & wanted, const char * otherwise) {
    return wanted.empty() ? QString::fromLatin1(otherwise) : QString::fromStdString(wanted);
}

/// Whether any point can be drawn.
bool isAnywhere(const SCI::PointModel & points, bool isLogarithmic) {
    for (std::size_t i = 0; i < points.count(); ++i)
        if (std::isfinite(points.y(i)) && (!isLogarithmic || points.y(i) > 0))
            return true;
    return false;
}

void fill(SCI::Chart & chart, const Common & common, const Arguments & arguments) {
    const MM::Evaluation & function = MM::evaluation(arguments.function);
    const XRow & x = rowOf(std::span<const XRow>(X_ROWS), function.xUnit, &XRow::unit);
    const YRow & y = rowOf(std::span<const YRow>(Y_ROWS), function.name, &YRow::function);
    const auto unit = [](std::string_view name) {
        return QString::fromUtf8(name.data(), static_cast<int>(name.size()));
    };
    chart.setAxis(SCI::X_BOTTOM, {translated(x.title), unit(function.xUnit), chosen(common.xUnit, x.shown),
                                  common.isLogX ? SCI::LOGARITHMIC : SCI::LINEAR});
    chart.setAxis(SCI::Y_LEFT, {translated(y.title), unit(function.yUnit), chosen(common.yUnit, y.shown),
                                common.isLogY || y.isLogarithmic ? SCI::LOGARITHMIC : SCI::LINEAR});
    const bool isLogarithmic = chart.axis(SCI::Y_LEFT).scale == SCI::LOGARITHMIC;
    const int direction = arguments.direction[0] - 'u';
    bool isAny = false;
    std::string reason; // why the first material has nothing to draw
    for (const std::string & path : arguments.files) {
        const auto material = std::make_shared<MM::Material>();
        material->read(path);
        try {
            material->prepareCalculation();
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Error preparing material '%1'.", path), "[PLOT::material]");
        }
        const double to = x.to != 0 ? x.to : material->m_moistureStorage.saturation();
        SCI::LineStyle style;
        style.title = QString::fromStdString(material->name(common.language));
        auto points = std::make_shared<SCI::FunctionModel>(
            [material, direction, value = function.value](double at) { return value(*material, direction, at); },
            x.from, to, POINTS);
        if (to > x.from && isAnywhere(*points, isLogarithmic)) {
            isAny = true;
            chart.addLine(points, style);
            continue;
        }
        // It is named all the same: the reader would look for its line.
        style.title = translated("%1: no such function").arg(style.title);
        style.pen = Qt::NoPen;
        chart.addLine(std::make_shared<Points>(std::vector<double>(), std::vector<double>()), style);
        try {
            function.value(*material, direction, (x.from + to) / 2);
        } catch (const KOR::Exception & ex) {
            reason = reason.empty() ? ex.message() : reason;
        }
    }
    if (!isAny)
        throw KOR::Exception(reason.empty() ? KOR::text("There are no values of '%1' to draw.", arguments.function)
                                            : reason,
                             "[PLOT::material]");
}

} // namespace

Command materialCommand(CLI::App & program) {
    CLI::App * app = program.add_subcommand("material", "A function of one or more materials.");
    const auto arguments = std::make_shared<Arguments>();
    app->add_option("FILE", arguments->files, "Material files (m6); more than one are compared.")->required();
    app->add_option("--function", arguments->function, "One of: " + MM::evaluationNames() + ".")->capture_default_str();
    app->add_option("--direction", arguments->direction, "The material's direction: u, v or w.")
        ->check(CLI::IsMember({"u", "v", "w"}))
        ->capture_default_str();
    return {app, [arguments](SCI::Chart & chart, const Common & common) { fill(chart, common, *arguments); }};
}

} // namespace PLOT
