#include "Shell.h"

#include <DATAIO/DataIO.h>

#include <KOR/Numbers.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

/// The projects of examples/validation, calculated by the program and compared point by point with what is published.
/// With HYG_VALIDATION set to a file, the long ones are calculated to their end and a table of the deviations is
/// appended to that file.
namespace {

using Json = nlohmann::json;

constexpr double HOURS_PER_YEAR = 8760;

const char * tableFile() {
    return std::getenv("HYG_VALIDATION");
}

/// The results of a project of examples/validation.
class Results {
public:
    Results(const std::string & project, const std::string & options = "")
        : m_directory(testing::TempDir() + "hyg-validation-" + std::to_string(::getpid())) {
        std::filesystem::remove_all(m_directory);
        const Result run = shell("HygrionSolver.exe --output-dir='" + m_directory + "' " + options +
                                 " 'examples/validation/" + project + ".h6p'");
        EXPECT_EQ(run.exitCode, 0) << run.out;
        const Json summary = Json::parse(KOR::readFile(m_directory + "/log/summary.json", 1 << 24));
        for (const char * balance : {"energyBalance_J", "moistureBalance_kg"})
            if (summary.contains(balance)) {
                EXPECT_LT(summary[balance]["relativeError"].get<double>(), 1e-5) << balance;
            }
        m_grid.read(m_directory + "/results/geometry.h6g");
    }

    /// The values of an output at a time [h].
    std::vector<double> at(double hours, const std::string & output) {
        DATAIO::DataIO & file = m_files[output];
        if (file.path().empty())
            file.openAndReadHeader(m_directory + "/results/" + output + ".h6b");
        const std::vector<double> & times = file.timePoints();
        const auto found = std::lower_bound(times.begin(), times.end(), hours - 1e-6);
        if (found == times.end() || *found > hours + 1e-6)
            throw std::runtime_error("no record of " + output);
        return file.data(static_cast<std::size_t>(found - times.begin()));
    }
    /// Of a field along x, between the centres of the cells [m].
    double atPlace(double hours, const std::string & output, double x) {
        const std::vector<double> field = at(hours, output);
        const std::vector<double> & centres = m_grid.centres(0);
        const auto above = std::upper_bound(centres.begin(), centres.end(), x);
        const auto i = static_cast<std::size_t>(
            std::clamp(above - centres.begin(), std::ptrdiff_t{1}, static_cast<std::ptrdiff_t>(centres.size()) - 1));
        const double share = (x - centres[i - 1]) / (centres[i] - centres[i - 1]);
        return (1 - share) * field[i - 1] + share * field[i];
    }
    const DATAIO::GeoFile & grid() const { return m_grid; }

private:
    std::string m_directory;
    DATAIO::GeoFile m_grid;
    std::map<std::string, DATAIO::DataIO> m_files;
};

/// The largest deviation of a group of points; a row of the table.
class Row {
public:
    Row(const char * study, const char * group, const char * unit) : m_case(study), m_group(group), m_unit(unit) {}
    ~Row() {
        if (tableFile() == nullptr || m_points == 0)
            return;
        const auto number = [](double value) { return KOR::toString(value, 2); };
        std::ofstream(tableFile(), std::ios::app)
            << "| " << m_case << " | " << m_group << " | " << m_points << " | " << number(m_worst) << ' ' << m_unit
            << " | " << number(100 * m_used) << " % | "
            << (m_outside == 0 ? "all" : std::to_string(m_points - m_outside)) << " |\n";
    }
    Row(const Row &) = delete;
    Row & operator=(const Row &) = delete;

    void point(double found, double low, double high) {
        ++m_points;
        const double deviation = std::fabs(found - (low + high) / 2);
        m_worst = std::max(m_worst, deviation);
        m_used = std::max(m_used, deviation / ((high - low) / 2));
        const bool isInside = found >= low && found <= high;
        m_outside += isInside ? 0 : 1;
        EXPECT_TRUE(isInside) << m_case << ", " << m_group << ", point " << m_points << ": " << found << " is not in "
                              << low << " .. " << high;
    }
    void pointWithin(double found, double expected, double tolerance) {
        point(found, expected - tolerance, expected + tolerance);
    }

private:
    std::string m_case, m_group, m_unit;
    int m_points = 0, m_outside = 0;
    double m_worst = 0, m_used = 0;
};

class Validation : public testing::Test {
protected:
    /// The published values of a case; they are not part of the product.
    Json reference(const std::string & name) {
        const std::string path = HYG_SOURCE_DIR "/../shared/benchmarks/" + name + ".json";
        return std::filesystem::exists(path) ? Json::parse(KOR::readFile(path, 1 << 24)) : Json();
    }
};

#define REFERENCE(variable, name)                                                                                      \
    const Json variable = reference(name);                                                                             \
    if ((variable).is_null())                                                                                          \
    GTEST_SKIP() << "NOT VALIDATED: the published values of " name " do not lie beside the repository"

TEST_F(Validation, UptakeInAHalfSpace) {
    REFERENCE(published, "en15026");
    Results results("EN 15026");
    const auto check = [&](const char * table, const char * output, const char * unit, double allowed) {
        Row band("EN 15026", unit[0] == 'K' ? "temperature, bands" : "moisture, bands", unit);
        Row exact("EN 15026", unit[0] == 'K' ? "temperature, converged profile" : "moisture, converged profile", unit);
        for (const Json & point : published["reference"][table]) {
            const double found = results.atPlace(24 * point["day"].get<double>(), output, point["x_m"]);
            band.point(found, point["low"], point["high"]);
            exact.pointWithin(found, point["computed_Tref"], allowed);
        }
    };
    check("table_A1_water_content", "Moisture content", "kg/m3", 0.15);
    check("table_A2_temperature", "Temperature", "K", 0.02);
}

TEST_F(Validation, IsothermalDrying) {
    REFERENCE(published, "hamstad_bm2");
    Results results("HAMSTAD 2");
    const Json & series = published["reference"]["w_computed_series"];
    const Json & places = published["reference"]["x_m"];
    for (const auto & [hours, values] : series.items()) {
        Row row("HAMSTAD 2", ("moisture at " + hours + " h").c_str(), "kg/m3");
        for (std::size_t i = 1; i + 1 < places.size(); ++i) // both ends are given
            row.pointWithin(results.atPlace(std::stod(hours), "Moisture content", places[i]), values[i], 0.1);
    }
}

TEST_F(Validation, InsulatedRoof) {
    REFERENCE(published, "hamstad_bm1");
    const bool isLong = tableFile() != nullptr;
    Results results("HAMSTAD 1", isLong ? "" : "--duration='365 d'");
    for (const char * year : {"band_year1", "band_year5"}) {
        if (!isLong && std::string_view(year) == "band_year5")
            continue;
        Row layers[] = {
            {"HAMSTAD 1", (std::string("water in load-bearing layer, year ") + year[9]).c_str(), "kg/m2"},
            {"HAMSTAD 1", (std::string("water in insulation, year ") + year[9]).c_str(),         "kg/m2"}
        };
        for (const Json & point : published["reference"][year]) {
            const bool isInsulation = point["layer"] == "B";
            const double hours = HOURS_PER_YEAR * (point["year"].get<double>() - 1) + point["hour"].get<double>();
            const double found =
                results.at(hours, isInsulation ? "Water in insulation" : "Water in load-bearing layer").front();
            layers[isInsulation ? 1 : 0].point(found, point["low"], point["high"]);
        }
    }
}

TEST_F(Validation, HeatInASquareColumn) {
    REFERENCE(published, "iso10211");
    Results results("ISO 10211 case 1");
    const std::vector<double> field = results.at(2400, "Temperature field");
    const std::size_t nx = results.grid().widths(0).size();
    const std::size_t ny = results.grid().widths(1).size();
    Row row("ISO 10211 case 1", "temperatures", "K");
    const Json & table = published["case1"]["reference_published"];
    for (std::size_t line = 0; line < 7; ++line)
        for (std::size_t k = 0; k < 4; ++k) {
            // The points are corners of cells, from the top; the last column is the line of symmetry.
            const std::size_t i = nx * (k + 1) / 4;
            const std::size_t j = ny - ny * (line + 1) / 8;
            double sum = 0;
            for (const std::size_t column : {i - 1, std::min(i, nx - 1)})
                for (const std::size_t cell : {j - 1, j})
                    sum += field[column + nx * cell];
            row.pointWithin(sum / 4, table[line][k], 0.1);
        }
}

TEST_F(Validation, IronBarThroughInsulation) {
    REFERENCE(published, "iso10211");
    Results results("ISO 10211 case 4");
    const Json & expected = published["case4"]["reference_published"];
    Row flow("ISO 10211 case 4", "heat flow", "W");
    const double heat = expected["heat_flow_W"];
    flow.pointWithin(-4 * results.at(240, "Heat flow outside").front(), heat, 0.01 * heat);
    Row temperature("ISO 10211 case 4", "highest temperature outside", "K");
    temperature.pointWithin(results.at(240, "Highest temperature outside").front(),
                            expected["T_max_external_surface_C"], 0.005);
}

TEST_F(Validation, SteadyWallOfFourLayers) {
    REFERENCE(published, "glaser_simple");
    Results results("Steady wall");
    const Json & layers = published["definition"]["layers_inside_to_outside"];
    const Json & expected = published["reference"];
    constexpr double TOLERANCE = 1e-6;
    Row row("Steady wall", "temperatures", "K");
    const std::vector<double> field = results.at(4800, "Temperature field");
    // Straight lines between the temperatures of the joints; the outside is on the left.
    double left = 0;
    std::size_t cell = 0;
    for (std::size_t layer = layers.size(); layer-- > 0;) {
        const double thickness = layers[layer]["d_m"];
        const double outer = expected["T_interfaces_C"][layer + 1];
        const double inner = expected["T_interfaces_C"][layer];
        const std::vector<double> & centres = results.grid().centres(0);
        for (; cell < centres.size() && centres[cell] < left + thickness; ++cell)
            row.pointWithin(field[cell], outer + (inner - outer) * (centres[cell] - left) / thickness,
                            TOLERANCE * 25); // of the difference between inside and outside
        left += thickness;
    }
    EXPECT_EQ(cell, field.size());
    row.pointWithin(results.at(4800, "Outer surface").front(), expected["T_interfaces_C"][4], TOLERANCE * 25);
    row.pointWithin(results.at(4800, "Inner surface").front(), expected["T_interfaces_C"][0], TOLERANCE * 25);
    Row flux("Steady wall", "heat flux", "W/m2");
    const double heat = 25 * expected["U"].get<double>();
    flux.pointWithin(results.at(4800, "Heat flux").front(), heat, TOLERANCE * heat);
}

} // namespace
