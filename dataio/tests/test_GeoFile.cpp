#include <DATAIO/DataIO.h>
#include <DATAIO/GeoFile.h>

#include <KOR/Binary.h>
#include <KOR/Exception.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace DATAIO;
using KOR::Exception;

namespace {

namespace fs = std::filesystem;

/// nx x ny x nz cells of different widths, two materials.
GeoFile sample(std::size_t nx, std::size_t ny, std::size_t nz) {
    GeoFile geometry;
    geometry.m_materials = {
        {7, 0xff336699u, "Brick, old"                       },
        {8, 0x80ffffffu, "${Project Directory}/plaster_8.m6"}
    };
    std::array<std::vector<double>, 3> widths;
    const std::array<std::size_t, 3> counts{nx, ny, nz};
    for (std::size_t d = 0; d < 3; ++d)
        for (std::size_t i = 0; i < counts[d]; ++i)
            widths[d].push_back(0.01 * static_cast<double>(i + 1) / 3);
    geometry.setGrid(std::move(widths));
    std::vector<std::uint32_t> ids;
    for (std::size_t n = 0; n < nx * ny * nz; ++n)
        ids.push_back(n % 2 == 0 ? 7 : 8);
    geometry.makeTables(ids);
    return geometry;
}

fs::path temporary() {
    return fs::temp_directory_path() / ("hyg_geo_" + std::to_string(::getpid()));
}

TEST(GeoFile, GivesBackWhatWasWritten) {
    for (const bool binary : {true, false})
        for (const std::size_t nz : {1u, 3u}) {
            const GeoFile geometry = sample(4, 3, nz);
            geometry.write(temporary().string(), binary);
            GeoFile read;
            read.read(temporary().string());
            EXPECT_EQ(read.m_materials, geometry.m_materials);
            EXPECT_EQ(read.m_elements, geometry.m_elements) << "binary " << binary << " nz " << nz;
            EXPECT_EQ(read.m_sides, geometry.m_sides) << "binary " << binary << " nz " << nz;
            EXPECT_EQ(read.boundaries(0), geometry.boundaries(0));
            EXPECT_EQ(read.hash(), GeoFile::hash(geometry.content(binary)));
            EXPECT_EQ(read.content(!binary), geometry.content(!binary));
        }
    fs::remove(temporary());
}

TEST(GeoFile, HasEveryFaceOnceInItsTables) {
    const GeoFile geometry = sample(4, 3, 2);
    EXPECT_EQ(geometry.m_elements.size(), 24u);
    EXPECT_EQ(geometry.m_sides.size(), 5u * 3 * 2 + 4 * 4 * 2 + 4 * 3 * 3);
    for (const GeoFile::Side & side : geometry.m_sides) {
        const GeoFile::Element & cell = geometry.m_elements[side.i + 4 * (side.j + 3 * side.k)];
        const double offsets[] = {side.x - cell.x, side.y - cell.y, side.z - cell.z};
        const std::size_t d = (side.location - 1) / 2;
        const double sign = side.location % 2 == 1 ? -0.5 : 0.5;
        const std::uint32_t index[] = {side.i, side.j, side.k};
        EXPECT_NEAR(offsets[d], sign * geometry.widths(static_cast<int>(d))[index[d]], 1e-15);
        EXPECT_EQ(offsets[(d + 1) % 3], 0);
    }
}

struct Fault {
    const char * name;
    std::string content;
    const char * cause;
};

std::string binary(std::uint32_t major, std::uint32_t materials, double width = 1, int direction = 1) {
    std::ostringstream out;
    out << "H6GBRLZ!";
    KOR::write_binary(out, major);
    KOR::write_binary(out, materials);
    for (int d = 0; d < 3; ++d)
        KOR::write_vector_binary(out, std::vector<double>{d == direction ? width : 1.0});
    KOR::write_binary(out, std::uint32_t(10'000'001));
    return out.str();
}

std::string ascii(const std::string & body) {
    return "H6GARLZ! 006.001\n" + body;
}

class GeoFaults : public testing::TestWithParam<Fault> {};

TEST_P(GeoFaults, AreNamed) {
    std::ofstream(temporary(), std::ios::binary) << GetParam().content;
    try {
        GeoFile().read(temporary().string());
        ADD_FAILURE() << "was read";
    } catch (const Exception & ex) {
        EXPECT_EQ(ex.cause(), GetParam().cause);
        EXPECT_EQ(ex.message(), "Error reading geometry file '" + temporary().string() + "'.");
    }
    fs::remove(temporary());
}

const std::string GRID_2D = "GRID\nX = 1 2\nY = 1\nZ = 1\n";

INSTANTIATE_TEST_SUITE_P(
    GeoFile, GeoFaults,
    testing::Values(
        Fault{"OldMajor", binary(5, 0), "Unknown major file version, not able to read this format!"},
        Fault{"Materials", binary(6, 100'001),
              "Number of materials in materials table > 100000, binary file probably corrupt!"},
        Fault{"Width", binary(6, 0, 0), "Zero or negative element width in y direction"},
        Fault{"WidthX", binary(6, 0, -1, 0), "Zero or negative element width in x direction"},
        Fault{"WidthZ", binary(6, 0, -1, 2), "Zero or negative element width in z direction"},
        Fault{"NotANumberWidth", binary(6, 0, std::nan("")), "Zero or negative element width in y direction"},
        Fault{"Elements", binary(6, 0), "Vector length exceeds given maximum!"},
        Fault{"NoX", ascii("GRID\nY = 1\nZ = 1\n"), "Missing element widths in x direction!"},
        Fault{"ZeroX", ascii("GRID\nX = 0\nY = 1\nZ = 1\n"), "Zero element width in x direction"},
        Fault{"ZeroY", ascii("GRID\nX = 1\nY = 1 0\nZ = 1\n"), "Zero element width in y direction"},
        Fault{"ZeroZ", ascii("GRID\nX = 1\nY = 1\nZ = 0\n"), "Zero element width in z direction!"},
        Fault{"FiveNumbers", ascii(GRID_2D + "ELEMENT_GEOMETRY\n0 0.5 0.5 0 0\n"), "Currupt element table!"},
        Fault{"NegativeIndex", ascii(GRID_2D + "ELEMENT_GEOMETRY\n0 0.5 0.5 -1 0 1\n"), "Currupt element table!"},
        Fault{"SideText", ascii(GRID_2D + "SIDES_GEOMETRY\n0 0.5 left 0 0 1\n"), "Currupt sides table!"}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(GeoFile, SurvivesEveryPrefixAndFlippedBits) {
    std::mt19937 random(11);
    for (const bool isBinary : {true, false}) {
        const std::string content = sample(3, 2, 1).content(isBinary);
        const auto probe = [](const std::string & bytes) {
            std::ofstream(temporary(), std::ios::binary) << bytes;
            try {
                GeoFile().read(temporary().string());
            } catch (const Exception &) {
            }
        };
        for (std::size_t length = 0; length < content.size(); length += 3)
            probe(content.substr(0, length));
        for (int n = 0; n < 3000; ++n) {
            std::string damaged = content;
            damaged[random() % damaged.size()] ^= static_cast<char>(1 << (random() % 8));
            probe(damaged);
        }
    }
    fs::remove(temporary());
}

TEST(DataFormat, FollowsTheIndicesInTheGrid) {
    struct Case {
        std::vector<std::uint32_t> indices;
        DataIO::dataFormat_t expected;
    };
    const GeoFile geometry = sample(3, 3, 3);
    const fs::path path = temporary();
    for (const Case & c : {
             Case{{5},          DataIO::SERIES   },
             Case{{0, 1, 2},    DataIO::PROFILE_X},
             Case{{0, 3, 6},    DataIO::PROFILE_Y},
             Case{{0, 9},       DataIO::PROFILE_Z},
             Case{{0, 1, 3, 4}, DataIO::PLANE_XY },
             Case{{0, 13},      DataIO::VOLUME   }
    }) {
        std::ofstream out(path);
        out << "H6OARLZ! 006.001\nTYPE = FIELD\nSPACE_TYPE = SINGLE\nINDICES =";
        for (const std::uint32_t index : c.indices)
            out << ' ' << index;
        out << "\nTABLE\n";
        out.close();
        DataIO file;
        file.openAndReadHeader(path.string());
        EXPECT_EQ(file.determineDataFormat(&geometry), c.expected) << c.indices.size() << " indices";
        const auto causeOf = [&file](const GeoFile * given) {
            try {
                file.determineDataFormat(given);
            } catch (const Exception & ex) {
                return ex.cause();
            }
            return std::string("none");
        };
        EXPECT_EQ(causeOf(nullptr), "Empty/uninitialized geometry data.");
        GeoFile small;
        small.setGrid({std::vector<double>{1.0}, {1.0}, {1.0}});
        EXPECT_EQ(causeOf(&small), "Missing/empty elements vector in Geometry file.");
    }
    fs::remove(path);
}

} // namespace
