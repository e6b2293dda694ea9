#include "Commands.h"
#include "Models.h"

#include <SCI/Chart.h>

#include <CCM/ClimateDataLoader.h>

#include <KOR/Exception.h>

#include <limits>

namespace PLOT {

namespace {

using CCM::ClimateDataLoader;

struct Arguments {
    std::vector<std::string> files;
    std::vector<std::string> quantities{"Temperature"};
};

constexpr const char * TITLES[] = {
    "Temperature",    "Relative humidity", "Direct normal radiation",     "Diffuse horizontal radiation",
    "Wind direction", "Wind velocity",     "Long-wave counter radiation", "Air pressure",
    "Rain",
};
static_assert(std::size(TITLES) == CCM::NUM_QUANTITIES, "titles and quantities disagree");

CCM::quantity_t quantityOf(const std::string & keyword) {
    if (const auto quantity = CCM::quantityByKeyword(keyword))
        return *quantity;
    std::string known;
    for (const auto & row : CCM::CLIMATE_QUANTITIES)
        known += (known.empty() ? "" : " ") + std::string(row.keyword);
    throw KOR::Exception(KOR::text("Unknown climate quantity '%1', expected one of: %2.", keyword, known),
                         "[PLOT::climate]");
}

/// The values of a climate where they are: in the loader.
class ClimateModel : public SCI::PointModel {
public:
    ClimateModel(std::shared_ptr<const ClimateDataLoader> loader, CCM::quantity_t quantity)
        : m_loader(std::move(loader)), m_quantity(quantity) {}

    std::size_t count() const override {
        return spline().empty() ? m_loader->m_data[m_quantity].size() : spline().size();
    }
    double x(std::size_t i) const override {
        return spline().empty() ? m_loader->timeOf(m_quantity, i) : spline().x()[i];
    }
    double y(std::size_t i) const override {
        const double value = spline().empty() ? m_loader->m_data[m_quantity][i] : spline().y()[i];
        return CCM::isMissing(value) ? std::numeric_limits<double>::quiet_NaN() : value;
    }
    bool isSorted() const override { return true; }

private:
    const KOR::LinearSpline & spline() const { return m_loader->m_splines[m_quantity]; }
    std::shared_ptr<const ClimateDataLoader> m_loader;
    CCM::quantity_t m_quantity;
};

QString unitOf(CCM::quantity_t quantity) {
    return QString::fromStdString(KOR::Unit(CCM::CLIMATE_QUANTITIES[quantity].unit).name());
}

void fill(SCI::Chart & chart, const Common & common, const Arguments & arguments) {
    // One axis for each unit, left first.
    std::vector<CCM::quantity_t> perAxis;
    const auto axisOf = [&](CCM::quantity_t quantity) {
        for (std::size_t i = 0; i < perAxis.size(); ++i)
            if (unitOf(perAxis[i]) == unitOf(quantity))
                return i;
        perAxis.push_back(quantity);
        return perAxis.size() - 1;
    };
    int startYear = 0;
    for (const std::string & path : arguments.files) {
        const auto loader = std::make_shared<ClimateDataLoader>();
        try {
            loader->readClimateData(path);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Error reading '%1'.", path), "[PLOT::climate]");
        }
        if (!loader->isAnnual() && loader->m_startYear != ClimateDataLoader::NO_YEAR)
            startYear = loader->m_startYear;
        for (const std::string & keyword : arguments.quantities) {
            const CCM::quantity_t quantity = quantityOf(keyword);
            const std::size_t axis = axisOf(quantity);
            if (axis > 1)
                throw KOR::Exception("Quantities of more than two units do not fit into one picture.",
                                     "[PLOT::climate]");
            const bool isFirst = perAxis[axis] == quantity;
            SCI::LineStyle style;
            style.yAxis = axis == 0 ? SCI::Y_LEFT : SCI::Y_RIGHT;
            style.title = translated(TITLES[quantity]);
            if (arguments.files.size() > 1)
                style.title = QStringLiteral("%1: %2").arg(QString::fromStdString(stem(path)), style.title);
            style.hasSteps = false;
            const QString shown =
                axis == 0 && !common.yUnit.empty() ? QString::fromStdString(common.yUnit) : unitOf(quantity);
            if (isFirst)
                chart.setAxis(style.yAxis, {translated(TITLES[quantity]), unitOf(quantity), shown,
                                            common.isLogY && axis == 0 ? SCI::LOGARITHMIC : SCI::LINEAR});
            chart.addLine(std::make_shared<ClimateModel>(loader, quantity), style);
        }
        if (arguments.files.size() == 1)
            chart.setTitle(
                QString::fromStdString(loader->m_city + (loader->m_country.empty() ? "" : ", " + loader->m_country)));
    }
    if (common.xUnit.empty())
        chart.setAxis(SCI::X_BOTTOM, {QString(), "s", "s", SCI::DATE, startYear});
    else
        chart.setAxis(SCI::X_BOTTOM, {translated("Time"), "s", QString::fromStdString(common.xUnit)});
}

} // namespace

Command climateCommand(CLI::App & program) {
    CLI::App * app = program.add_subcommand("climate", "Quantities of one or more climate files.");
    const auto arguments = std::make_shared<Arguments>();
    std::string keywords;
    for (const auto & row : CCM::CLIMATE_QUANTITIES)
        keywords += " " + std::string(row.keyword);
    app->add_option("FILE", arguments->files, "Climate files (c6b, epw, wac, dat); more than one are compared.")
        ->required();
    app->add_option("--quantity", arguments->quantities, "One or more, of at most two units:" + keywords + ".")
        ->capture_default_str();
    return {app, [arguments](SCI::Chart & chart, const Common & common) { fill(chart, common, *arguments); }};
}

} // namespace PLOT
