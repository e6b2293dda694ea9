#pragma once

#include <KOR/Version.h>

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace DATAIO {

/// The construction's grid as the solver saw it: materials, cell widths, and the tables of elements and sides that
/// the indices of result files point into.
class GeoFile {
public:
    struct Material {
        std::uint32_t id = 0;
        std::uint32_t colour = 0; ///< 0xAARRGGBB
        std::string name;         ///< display name or file reference
        bool operator==(const Material &) const = default;
    };

    struct Element {
        std::uint32_t number = 0;
        double x = 0, y = 0, z = 0; ///< centre [m]
        std::uint32_t i = 0, j = 0, k = 0;
        std::uint32_t materialId = 0;
        bool operator==(const Element &) const = default;
    };

    /// Which face of the cell (i, j, k) a side is; by the numbers of the project's side locations.
    enum location_t : std::uint32_t { LEFT = 1, RIGHT, BOTTOM, TOP, BACK, FRONT };

    struct Side {
        std::uint32_t number = 0;
        double x = 0, y = 0, z = 0; ///< centre of the face [m]
        std::uint32_t i = 0, j = 0, k = 0;
        std::uint32_t location = 0; ///< location_t
        bool operator==(const Side &) const = default;
    };

    /// Reads either kind of file. Throws "Error reading geometry file '%1'." above the cause ("[GeoFile::read]").
    void read(const std::string & path);
    /// Parses the body of an ASCII file: sections "MATERIALS", "GRID", "ELEMENT_GEOMETRY" and "SIDES_GEOMETRY".
    /// Throws "Error on parse geometry data." above the cause ("[GeoFile::parseGeometryData]").
    void parseGeometryData(std::string_view text);
    /// Reads the body of a binary file. Throws "Error on read binary geometry data." above the cause
    /// ("[GeoFile::readBinaryGeometryData]").
    void readBinaryGeometryData(std::istream & in);

    /// Writes the file atomically. Throws "Error writing geometry file '%1'." ("[GeoFile::write]").
    void write(const std::string & path, bool binary) const;
    /// The content of the file that write() makes.
    std::string content(bool binary) const;
    /// CRC-32 of a file's content: what result files keep to notice a geometry that is not theirs.
    static std::uint32_t hash(std::string_view content);
    /// CRC-32 of the file that was read last; 0 before.
    std::uint32_t hash() const { return m_hash; }

    /// Sets the widths [m] per direction and derives the coordinates.
    void setGrid(std::array<std::vector<double>, 3> widths);
    /// Makes elements and sides of the whole grid, numbered i + nx (j + ny k); \p materialIds has one entry an element,
    /// in that order. Sides are the lower face of every cell in each direction, and the upper one of the last.
    void makeTables(const std::vector<std::uint32_t> & materialIds);

    /// Cell widths in x, y, z [m].
    const std::vector<double> & widths(int direction) const { return m_widths[static_cast<std::size_t>(direction)]; }
    /// Coordinates of the element boundaries [m], one more than the widths.
    const std::vector<double> & boundaries(int direction) const {
        return m_boundaries[static_cast<std::size_t>(direction)];
    }
    /// Coordinates of the element centres [m].
    const std::vector<double> & centres(int direction) const { return m_centres[static_cast<std::size_t>(direction)]; }
    /// True if elements and sides have a third dimension.
    bool is3D() const { return m_widths[2].size() > 1; }
    /// The material with this identifier or nullptr.
    const Material * material(std::uint32_t id) const;

    std::vector<Material> m_materials;
    std::vector<Element> m_elements;
    std::vector<Side> m_sides;
    KOR::Version m_version = KOR::FILE_VERSION;

private:
    std::array<std::vector<double>, 3> m_widths;
    std::array<std::vector<double>, 3> m_boundaries;
    std::array<std::vector<double>, 3> m_centres;
    std::uint32_t m_hash = 0;
};

} // namespace DATAIO
