#include "GeoText.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <cmath>

namespace DATAIO {

using KOR::Exception;
using KOR::text;

namespace {

constexpr const char * WHERE = "[GeoFile::parseGeometryData]";

/// A direction of the grid, with the texts of its faults.
struct Direction {
    std::string_view keyword, missing, zero;
};
constexpr Direction DIRECTIONS[] = {
    {"X", "Missing element widths in x direction!", "Zero element width in x direction" },
    {"Y", "Missing element widths in y direction!", "Zero element width in y direction" },
    {"Z", "Missing element widths in z direction!", "Zero element width in z direction!"},
};

bool isSection(std::string_view line) {
    return std::find(std::begin(GEO_SECTIONS), std::end(GEO_SECTIONS), line) != std::end(GEO_SECTIONS);
}

/// "id colour name", the colour as #aarrggbb.
GeoFile::Material parseMaterial(std::string_view line) {
    const auto parts = KOR::words(line);
    GeoFile::Material material;
    if (parts.size() < 2 || parts[1].size() != 9 || parts[1][0] != '#')
        throw Exception(text("Invalid material line '%1'.", line), WHERE);
    material.id = KOR::string2val<std::uint32_t>(parts[0]);
    const auto [end, error] =
        std::from_chars(parts[1].data() + 1, parts[1].data() + parts[1].size(), material.colour, 16);
    if (error != std::errc{} || end != parts[1].data() + parts[1].size())
        throw Exception(text("Invalid material line '%1'.", line), WHERE);
    material.name = KOR::trimmed(line.substr(static_cast<std::size_t>(parts[1].data() - line.data()) + 9));
    return material;
}

/// "X = 0.1 0.2 ..."
void parseWidths(std::string_view line, std::array<std::vector<double>, 3> & widths) {
    const std::size_t equals = line.find('=');
    const std::string_view keyword = KOR::trimmed(line.substr(0, equals));
    for (std::size_t d = 0; d < 3; ++d) {
        if (DIRECTIONS[d].keyword != keyword || equals == std::string_view::npos)
            continue;
        widths[d].clear();
        if (KOR::parseDoubles(line.substr(equals + 1), widths[d]) != std::string_view::npos)
            throw Exception(text("Invalid element widths '%1'.", line), WHERE);
        if (std::any_of(widths[d].begin(), widths[d].end(), [](double width) { return !(width > 0); }))
            throw Exception(std::string(DIRECTIONS[d].zero), WHERE);
        return;
    }
    throw Exception(text("Invalid grid line '%1'.", line), WHERE);
}

/// Number, coordinates, grid indices (each three in three dimensions, else two), and one more integer.
GeoFile::Element parseRecord(std::string_view line, bool is3D, const char * fault) {
    const std::size_t dimensions = is3D ? 3 : 2;
    std::vector<double> numbers;
    const std::size_t bad = KOR::parseDoubles(line, numbers);
    const auto index = [&](std::size_t at) {
        const double value = numbers[at];
        if (value < 0 || value > 4294967295.0 || value != std::floor(value))
            throw Exception(fault, WHERE);
        return static_cast<std::uint32_t>(value);
    };
    if (bad != std::string_view::npos || numbers.size() != 2 + 2 * dimensions)
        throw Exception(fault, WHERE);
    GeoFile::Element element;
    element.number = index(0);
    element.x = numbers[1];
    element.y = numbers[2];
    element.z = is3D ? numbers[3] : 0;
    element.i = index(1 + dimensions);
    element.j = index(2 + dimensions);
    element.k = is3D ? index(3 + dimensions) : 0;
    element.materialId = index(1 + 2 * dimensions);
    return element;
}

template <typename Record>
void printRecords(std::string & out, const std::vector<Record> & records, std::uint32_t Record::*last, bool is3D) {
    for (const Record & record : records) {
        const auto add = [&out](const std::string & number) { out.append(number).append(1, ' '); };
        add(KOR::toString(record.number));
        add(KOR::toString(record.x));
        add(KOR::toString(record.y));
        if (is3D)
            add(KOR::toString(record.z));
        add(KOR::toString(record.i));
        add(KOR::toString(record.j));
        if (is3D)
            add(KOR::toString(record.k));
        out.append(KOR::toString(record.*last)).append(1, '\n');
    }
}

} // namespace

GeoText parseGeoText(std::string_view body) {
    GeoText geometry;
    std::string_view section;
    bool is3D = false;
    while (!body.empty()) {
        const std::size_t end = std::min(body.find('\n'), body.size());
        const std::string_view line = KOR::trimmed(body.substr(0, end));
        body.remove_prefix(std::min(end + 1, body.size()));
        if (line.empty())
            continue;
        if (isSection(line)) {
            section = line;
            is3D = geometry.widths[2].size() > 1;
        } else if (section == "MATERIALS") {
            geometry.materials.push_back(parseMaterial(line));
        } else if (section == "GRID") {
            parseWidths(line, geometry.widths);
        } else if (section == "ELEMENT_GEOMETRY") {
            geometry.elements.push_back(parseRecord(line, is3D, "Currupt element table!"));
        } else if (section == "SIDES_GEOMETRY") {
            const GeoFile::Element e = parseRecord(line, is3D, "Currupt sides table!");
            geometry.sides.push_back({e.number, e.x, e.y, e.z, e.i, e.j, e.k, e.materialId});
        } else {
            throw Exception(text("Unexpected line '%1' in geometry data.", line.substr(0, 80)), WHERE);
        }
    }
    for (std::size_t d = 0; d < 3; ++d)
        if (geometry.widths[d].empty())
            throw Exception(std::string(DIRECTIONS[d].missing), WHERE);
    // Two-dimensional tables leave z out; it is the middle of the only plane.
    if (geometry.widths[2].size() == 1) {
        for (GeoFile::Element & element : geometry.elements)
            element.z = geometry.widths[2][0] / 2;
        for (GeoFile::Side & side : geometry.sides)
            side.z = side.location == GeoFile::BACK    ? 0
                     : side.location == GeoFile::FRONT ? geometry.widths[2][0]
                                                       : geometry.widths[2][0] / 2;
    }
    return geometry;
}

std::string printGeoText(const GeoText & geometry) {
    static constexpr char HEX[] = "0123456789abcdef";
    const bool is3D = geometry.widths[2].size() > 1;
    std::string out = "\nMATERIALS\n";
    for (const GeoFile::Material & material : geometry.materials) {
        std::string colour = "#";
        for (int shift = 28; shift >= 0; shift -= 4)
            colour += HEX[(material.colour >> shift) & 0xF];
        std::string name = material.name;
        std::replace(name.begin(), name.end(), '\n', ' ');
        out.append(KOR::toString(material.id))
            .append(1, ' ')
            .append(colour)
            .append(1, ' ')
            .append(name)
            .append(1, '\n');
    }
    out += "\nGRID\n";
    for (std::size_t d = 0; d < 3; ++d)
        out += std::string(DIRECTIONS[d].keyword) + " = " + KOR::joinNumbers(geometry.widths[d]) + '\n';
    out += "\nELEMENT_GEOMETRY\n";
    printRecords(out, geometry.elements, &GeoFile::Element::materialId, is3D);
    out += "\nSIDES_GEOMETRY\n";
    printRecords(out, geometry.sides, &GeoFile::Side::location, is3D);
    return out;
}

} // namespace DATAIO
