#include "Reference.h"

#include "Models.h"

#include <SCI/Chart.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>
#include <KOR/UnitList.h>

#include <limits>

namespace PLOT {

namespace {

constexpr std::size_t MAX_SIZE = std::size_t(64) << 20;
constexpr const char * WHERE = "[PLOT::reference]";

std::vector<std::string_view> cells(std::string_view line) {
    std::vector<std::string_view> all;
    while (true) {
        const std::size_t end = line.find_first_of(",;\t");
        all.push_back(line.substr(0, end));
        if (end == std::string_view::npos)
            return all;
        line.remove_prefix(end + 1);
    }
}

/// From what the axis shows to what its models give.
double dataValue(const SCI::Axis & axis, double value) {
    KOR::UnitList::instance().convert(KOR::Unit(axis.unit().toStdString()), KOR::Unit(axis.dataUnit.toStdString()),
                                      value);
    return value;
}

} // namespace

void addReference(SCI::Chart & chart, const Common & common) {
    const std::string text = KOR::readFile(common.reference, MAX_SIZE);
    const auto column = [&](std::size_t i) { return static_cast<std::size_t>(common.referenceColumns.at(i)) - 1; };
    std::vector<double> x;
    std::vector<double> y;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const auto row = cells(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (row.size() <= std::max(column(0), column(1)))
            continue;
        const auto xValue = KOR::parseDouble(row[column(0)]);
        const auto yValue = KOR::parseDouble(row[column(1)]);
        if (!xValue || !yValue)
            continue;
        x.push_back(dataValue(chart.axis(SCI::X_BOTTOM), *xValue));
        y.push_back(dataValue(chart.axis(SCI::Y_LEFT), *yValue));
    }
    if (x.empty())
        throw KOR::Exception(KOR::text("There are no rows with numbers in columns %1 and %2 of '%3'.", column(0) + 1,
                                       column(1) + 1, common.reference),
                             WHERE);
    SCI::LineStyle style;
    style.title = QString::fromStdString(stem(common.reference));
    style.pen = Qt::NoPen;
    style.hasPoints = true;
    chart.addLine(std::make_shared<Points>(std::move(x), std::move(y), false), style);
}

} // namespace PLOT
