#include <DATAIO/GeoFile.h>

#include "GeoText.h"

#include <KOR/Binary.h>
#include <KOR/FileIO.h>

#include <zlib.h>

#include <sstream>

namespace DATAIO {

using KOR::Exception;
using KOR::text;

namespace {

constexpr std::size_t MAX_FILE_SIZE = std::size_t(2) << 30;
constexpr std::uint32_t MAX_MATERIALS = 100'000;
constexpr std::uint32_t MAX_NAME_LENGTH = 10'000;
constexpr std::uint32_t MAX_WIDTHS = 10'000;
constexpr std::uint32_t MAX_RECORDS = 10'000'000;

constexpr KOR::Version::Magic MAGICS[] = {
    {"H6GB", true },
    {"H6GA", false},
};

constexpr char DIRECTION_NAMES[] = {'x', 'y', 'z'};

void readRecord(std::istream & in, GeoFile::Element & element) {
    element.number = KOR::read_binary<std::uint32_t>(in);
    for (double * coordinate : {&element.x, &element.y, &element.z})
        *coordinate = KOR::read_binary<double>(in);
    for (std::uint32_t * index : {&element.i, &element.j, &element.k, &element.materialId})
        *index = KOR::read_binary<std::uint32_t>(in);
}

void readRecord(std::istream & in, GeoFile::Side & side) {
    GeoFile::Element element;
    readRecord(in, element);
    side = {element.number, element.x, element.y, element.z, element.i, element.j, element.k, element.materialId};
}

template <typename Record> std::vector<Record> readTable(std::istream & in) {
    const auto count = KOR::read_binary<std::uint32_t>(in);
    if (count > MAX_RECORDS)
        throw Exception("Vector length exceeds given maximum!", "[read_vector_binary]");
    std::vector<Record> records; // grows with what really arrives
    for (std::uint32_t n = 0; n < count; ++n)
        readRecord(in, records.emplace_back());
    return records;
}

template <typename Record>
void writeTable(std::ostream & out, const std::vector<Record> & records, std::uint32_t Record::*last) {
    KOR::write_binary(out, static_cast<std::uint32_t>(records.size()));
    for (const Record & record : records) {
        KOR::write_binary(out, record.number);
        for (const double coordinate : {record.x, record.y, record.z})
            KOR::write_binary(out, coordinate);
        for (const std::uint32_t index : {record.i, record.j, record.k, record.*last})
            KOR::write_binary(out, index);
    }
}

} // namespace

void GeoFile::read(const std::string & path) {
    try {
        std::string content;
        try {
            content = KOR::readFile(path, MAX_FILE_SIZE);
        } catch (const Exception & ex) {
            throw Exception(ex, text("Couldn't open geometry file '%1'.", path), "[GeoFile::read]");
        }
        *this = GeoFile();
        m_hash = hash(content);
        std::istringstream in(content);
        std::size_t kind = 0;
        try {
            kind = m_version.read(in, MAGICS);
        } catch (const Exception & ex) {
            throw Exception(ex, "Couldn't read magic file header, invalid or unrecognized file format.",
                            "[GeoFile::read]");
        }
        if (m_version.major != 6 && m_version.major != 7)
            throw Exception("Unknown major file version, not able to read this format!", "[GeoFile::read]");
        // Minor versions add to the format within the range that a header can print.
        if (m_version.minor > 99)
            throw Exception("Unknown file version, not able to read this format!", "[GeoFile::read]");
        const bool binary = MAGICS[kind].isBinary;
        try {
            if (binary)
                readBinaryGeometryData(in);
            else
                parseGeometryData(std::string_view(content).substr(static_cast<std::size_t>(in.tellg())));
        } catch (const Exception & ex) {
            throw Exception(ex, binary ? "Error reading binary geometry data." : "Error reading ASCII geometry file!",
                            "[GeoFile::read]");
        }
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error reading geometry file '%1'.", path), "[GeoFile::read]");
    }
}

void GeoFile::readBinaryGeometryData(std::istream & in) {
    try {
        const auto materials = KOR::read_binary<std::uint32_t>(in);
        if (materials > MAX_MATERIALS)
            throw Exception("Number of materials in materials table > 100000, binary file probably corrupt!",
                            "[GeoFile::readBinaryGeometryData]");
        m_materials.clear();
        for (std::uint32_t n = 0; n < materials; ++n) {
            Material & material = m_materials.emplace_back();
            material.id = KOR::read_binary<std::uint32_t>(in);
            material.colour = KOR::read_binary<std::uint32_t>(in);
            material.name = KOR::read_string_binary(in, MAX_NAME_LENGTH);
        }
        std::array<std::vector<double>, 3> widths;
        for (std::size_t d = 0; d < 3; ++d) {
            widths[d] = KOR::read_vector_binary<double>(in, MAX_WIDTHS);
            for (const double width : widths[d])
                if (!(width > 0))
                    throw Exception(
                        text("Zero or negative element width in %1 direction", std::string(1, DIRECTION_NAMES[d])),
                        "[GeoFile::readBinaryGeometryData]");
        }
        setGrid(std::move(widths));
        m_elements = readTable<Element>(in);
        m_sides = readTable<Side>(in);
    } catch (const Exception & ex) {
        throw Exception(ex, "Error on read binary geometry data.", "[GeoFile::readBinaryGeometryData]");
    }
}

void GeoFile::parseGeometryData(std::string_view body) {
    try {
        GeoText parsed = parseGeoText(body);
        m_materials = std::move(parsed.materials);
        setGrid(std::move(parsed.widths));
        m_elements = std::move(parsed.elements);
        m_sides = std::move(parsed.sides);
    } catch (const Exception & ex) {
        throw Exception(ex, "Error on parse geometry data.", "[GeoFile::parseGeometryData]");
    }
}

std::string GeoFile::content(bool binary) const {
    std::ostringstream out;
    KOR::FILE_VERSION.write(out, MAGICS[binary ? 0 : 1]);
    if (!binary) {
        out << '\n' << printGeoText({m_materials, m_widths, m_elements, m_sides});
        return out.str();
    }
    KOR::write_binary(out, static_cast<std::uint32_t>(m_materials.size()));
    for (const Material & material : m_materials) {
        KOR::write_binary(out, material.id);
        KOR::write_binary(out, material.colour);
        KOR::write_string_binary(out, material.name);
    }
    for (const auto & widths : m_widths)
        KOR::write_vector_binary(out, widths);
    writeTable(out, m_elements, &Element::materialId);
    writeTable(out, m_sides, &Side::location);
    return out.str();
}

void GeoFile::write(const std::string & path, bool binary) const {
    try {
        KOR::writeFile(path, content(binary));
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error writing geometry file '%1'.", path), "[GeoFile::write]");
    }
}

std::uint32_t GeoFile::hash(std::string_view content) {
    return static_cast<std::uint32_t>(
        ::crc32_z(::crc32_z(0, nullptr, 0), reinterpret_cast<const Bytef *>(content.data()), content.size()));
}

void GeoFile::setGrid(std::array<std::vector<double>, 3> widths) {
    m_widths = std::move(widths);
    for (std::size_t d = 0; d < 3; ++d) {
        m_boundaries[d].assign(1, 0.0);
        m_centres[d].clear();
        for (const double width : m_widths[d]) {
            m_centres[d].push_back(m_boundaries[d].back() + width / 2);
            m_boundaries[d].push_back(m_boundaries[d].back() + width);
        }
    }
}

void GeoFile::makeTables(const std::vector<std::uint32_t> & materialIds) {
    const auto count = [this](std::size_t d) { return static_cast<std::uint32_t>(m_widths[d].size()); };
    const std::array<std::uint32_t, 3> n{count(0), count(1), count(2)};
    m_elements.clear();
    m_elements.reserve(materialIds.size());
    m_sides.clear();
    for (std::uint32_t k = 0; k < n[2]; ++k)
        for (std::uint32_t j = 0; j < n[1]; ++j)
            for (std::uint32_t i = 0; i < n[0]; ++i) {
                const auto number = static_cast<std::uint32_t>(m_elements.size());
                const std::array<double, 3> centre{m_centres[0][i], m_centres[1][j], m_centres[2][k]};
                m_elements.push_back({number, centre[0], centre[1], centre[2], i, j, k, materialIds.at(number)});
                const std::array<std::uint32_t, 3> index{i, j, k};
                for (std::uint32_t d = 0; d < 3; ++d) {
                    const auto addSide = [&](bool upper) {
                        std::array<double, 3> face = centre;
                        face[d] = m_boundaries[d][index[d] + (upper ? 1 : 0)];
                        m_sides.push_back({static_cast<std::uint32_t>(m_sides.size()), face[0], face[1], face[2], i, j,
                                           k, 2 * d + (upper ? RIGHT : LEFT)});
                    };
                    addSide(false);
                    if (index[d] + 1 == n[d])
                        addSide(true);
                }
            }
}

const GeoFile::Material * GeoFile::material(std::uint32_t id) const {
    for (const Material & known : m_materials)
        if (known.id == id)
            return &known;
    return nullptr;
}

} // namespace DATAIO
