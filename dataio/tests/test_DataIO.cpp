#include <DATAIO/DataIO.h>
#include <DATAIO/DataWriter.h>
#include <DATAIO/Geometry.h>

#include <KOR/Binary.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace DATAIO;
using KOR::Exception;

namespace {

namespace fs = std::filesystem;

DataHeader fieldHeader() {
    DataHeader header;
    header.type = DataHeader::FIELD;
    header.projectFile = "/projects/wall = north.h6p";
    header.created = "2026-02-03 04:05:06";
    header.geoFile = "geometry.h6gb";
    header.geoFileHash = 4000000000u;
    header.quantity = "Relative humidity in |all| cells";
    header.quantityKeyword = "RelativeHumidity";
    header.valueUnit = "%";
    header.timeUnit = "h";
    header.startYear = -5;
    header.indices = {4, 0, 7};
    return header;
}

class ResultFile : public testing::TestWithParam<bool> {
protected:
    void SetUp() override { fs::create_directories(m_dir); }
    void TearDown() override { fs::remove_all(m_dir); }

    std::string path(const std::string & name) const { return (m_dir / name).string(); }
    std::string write(const DataHeader & header, const std::vector<std::vector<double>> & records) const {
        DataWriter writer(path("out"), header, GetParam());
        for (const auto & record : records)
            writer.append(record[0], std::span(record).subspan(1));
        writer.flush();
        return path("out");
    }
    static Exception failureOf(const std::function<void()> & action) {
        try {
            action();
        } catch (const Exception & ex) {
            return ex;
        }
        return {"no failure", ""};
    }

    fs::path m_dir = fs::temp_directory_path() / ("hyg_dataio_" + std::to_string(::getpid()));
};

const std::vector<std::vector<double>> RECORDS = {
    {0,   50.1, 1.0 / 3, -0.0             },
    {1,   51,   1e-300,  80               },
    {2.5, 52,   1e300,   79.99999999999999}
};

TEST_P(ResultFile, GivesBackEveryBitOfHeaderAndValues) {
    DataIO file;
    file.openAndReadHeader(write(fieldHeader(), RECORDS));
    EXPECT_EQ(file.header(), fieldHeader());
    EXPECT_EQ(file.isBinary(), GetParam());
    EXPECT_EQ(file.timePoints(), (std::vector<double>{0, 1, 2.5}));
    for (std::size_t t = 0; t < RECORDS.size(); ++t)
        EXPECT_EQ(file.data(t), std::vector<double>(RECORDS[t].begin() + 1, RECORDS[t].end()));
    EXPECT_EQ(file.dataVector(1), (std::vector<double>{1.0 / 3, 1e-300, 1e300}));

    DataIO inMemory;
    inMemory.read(path("out"));
    EXPECT_EQ(inMemory.dataVector(2), file.dataVector(2));
    EXPECT_EQ(inMemory.data(1), file.data(1));
}

TEST_P(ResultFile, HasOneValuePerTimeUnlessSingleOrState) {
    DataHeader header = fieldHeader();
    header.indices.assign(10, 3);
    header.spaceType = DataHeader::SPACE_MEAN;
    EXPECT_EQ(header.valueCount(), 1u);
    DataIO file;
    file.openAndReadHeader(write(header, {
                                             {0, 7}
    }));
    EXPECT_EQ(file.data(0), (std::vector<double>{7}));
    header.type = DataHeader::STATE;
    EXPECT_EQ(header.valueCount(), 10u);
}

TEST_P(ResultFile, RefusesTimePointsThatDoNotIncrease) {
    DataIO file;
    file.openAndReadHeader(write(fieldHeader(), {
                                                    {0, 1, 1, 1},
                                                    {5, 1, 1, 1},
                                                    {5, 1, 1, 1}
    }));
    EXPECT_EQ(failureOf([&] { file.dataVector(0); }).message(),
              "Time value 5 follows 5, not monotonically increasing time points found.");
    EXPECT_EQ(failureOf([&] { file.data(3); }).chain().back().where, "[DataIO::data]");
    file.openAndReadHeader(write(fieldHeader(), {}));
    EXPECT_EQ(failureOf([&] { file.dataVector(0); }).message(), "No data in output file.");
}

TEST_P(ResultFile, IsReadableUpToTheLastCompleteRecordWhileItGrows) {
    write(fieldHeader(), RECORDS);
    DataIO file;
    file.openAndReadHeader(path("out"));
    const auto whole = fs::file_size(path("out"));
    fs::resize_file(path("out"), whole - 3);
    file.openAndReadHeader(path("out"));
    EXPECT_EQ(file.timeCount(), 2u);
    EXPECT_EQ(file.data(1)[0], 51);

    DataWriter writer = DataWriter::resume(path("out"), fieldHeader(), 0.5);
    writer.append(0.75, std::vector<double>{1, 2, 3});
    writer.append(0.8, std::vector<double>{4, 5, 6});
    writer.flush();
    file.openAndReadHeader(path("out"));
    EXPECT_EQ(file.timePoints(), (std::vector<double>{0, 0.75, 0.8}));
    writer.append(0.9, std::vector<double>{7, 8, 9});
    writer.flush();
    EXPECT_TRUE(file.update());
    EXPECT_EQ(file.dataVector(2), (std::vector<double>{-0.0, 3, 6, 9}));
    file.openAndReadHeader(path("out")); // knows no times yet
    EXPECT_EQ(file.timePoint(3), 0.9);

    DataHeader other = fieldHeader();
    other.quantityKeyword = "Temperature";
    EXPECT_THROW(DataWriter::resume(path("out"), other, 1), Exception);
}

TEST_P(ResultFile, SurvivesEveryPrefixAndFlippedBits) {
    const std::string content = KOR::readFile(write(fieldHeader(), RECORDS), 1 << 20);
    std::mt19937 random(7);
    const auto probe = [this](const std::string & bytes) {
        std::ofstream(path("probe"), std::ios::binary) << bytes;
        try {
            DataIO file;
            file.read(path("probe"));
            for (std::size_t t = 0; t < file.timeCount(); ++t)
                EXPECT_EQ(file.data(t).size(), file.header().valueCount());
        } catch (const Exception & ex) {
            EXPECT_FALSE(ex.chain().front().where.empty());
        }
    };
    for (std::size_t length = 0; length < content.size(); ++length)
        probe(content.substr(0, length));
    for (int n = 0; n < 3000; ++n) {
        std::string damaged = content;
        damaged[random() % damaged.size()] ^= static_cast<char>(1 << (random() % 8));
        probe(damaged);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ResultFile, testing::Values(true, false),
                         [](const auto & kind) { return kind.param ? "Binary" : "Ascii"; });

/// Columns long enough to be streamed and wide enough to be picked give the same numbers.
TEST(ResultColumns, AgreeForNarrowAndWideRecords) {
    for (const std::uint32_t width : {3u, 2000u}) {
        const fs::path path = fs::temp_directory_path() / ("hyg_columns_" + std::to_string(::getpid()));
        DataHeader header = fieldHeader();
        header.indices.resize(width);
        DataWriter writer(path.string(), header, true);
        std::vector<double> values(width);
        constexpr int TIMES = 40'000;
        const int times = width == 3 ? TIMES : TIMES / 1000;
        for (int t = 0; t < times; ++t) {
            std::fill(values.begin(), values.end(), t * 2.0);
            values.back() = t;
            writer.append(t, values);
        }
        writer.flush();
        DataIO file;
        file.openAndReadHeader(path.string());
        const std::vector<double> course = file.dataVector(width - 1);
        ASSERT_EQ(course.size(), static_cast<std::size_t>(times));
        for (int t = 0; t < times; ++t)
            ASSERT_EQ(course[static_cast<std::size_t>(t)], t);
        // A few of them, and times without values.
        const std::vector<std::size_t> few{0, 7, 39};
        DataIO again;
        again.openAndReadHeader(path.string());
        const DataIO::Course part = again.course(width - 1, few);
        EXPECT_EQ(part.times, (std::vector<double>{0, 7, 39}));
        EXPECT_EQ(part.values, part.times);
        EXPECT_EQ(again.timePoint(11), 11);
        const std::vector<std::size_t> beyond{static_cast<std::size_t>(times)};
        EXPECT_THROW(again.course(0, beyond), KOR::Exception);
        EXPECT_THROW(again.course(width, few), KOR::Exception);
        EXPECT_THROW(again.timePoint(beyond[0]), KOR::Exception);
        fs::remove(path);
    }
}

// ---- faults of headers -------------------------------------------------------------------------------------------

struct HeaderFault {
    const char * name;
    std::string content;
    const char * cause;
    const char * outer;
};

std::string binaryFile(std::uint32_t offsetChange, std::uint32_t countChange, std::uint32_t kind,
                       const std::string & body) {
    std::ostringstream out;
    out << "H6OBRLZ!";
    KOR::write_binary(out, std::uint32_t(6 | 1 << 8));
    KOR::write_binary(out, static_cast<std::uint32_t>(24 + body.size() + offsetChange));
    KOR::write_binary(out, 1 + countChange);
    KOR::write_binary(out, kind);
    out << body;
    return out.str();
}

std::string fields(std::uint32_t forgedProjectLength = 0, std::uint32_t forgedIndices = 0) {
    std::ostringstream out;
    KOR::write_binary(out, forgedProjectLength);
    KOR::write_string_binary(out, "geo");
    KOR::write_binary(out, std::uint32_t(1));
    KOR::write_binary(out, std::int64_t(0));
    KOR::write_string_binary(out, "Q");
    KOR::write_string_binary(out, "Q");
    KOR::write_binary(out, std::int32_t(1));
    KOR::write_binary(out, std::int32_t(0));
    KOR::write_string_binary(out, "C");
    KOR::write_string_binary(out, "h");
    KOR::write_binary(out, std::int32_t(2020));
    KOR::write_binary(out, forgedIndices);
    return out.str();
}

class HeaderFaults : public testing::TestWithParam<HeaderFault> {};

TEST_P(HeaderFaults, AreNamedFromTheCauseToTheFile) {
    const fs::path path = fs::temp_directory_path() / ("hyg_fault_" + std::to_string(::getpid()));
    std::ofstream(path, std::ios::binary) << GetParam().content;
    DataIO file;
    try {
        file.openAndReadHeader(path.string());
        ADD_FAILURE() << "was read";
    } catch (const Exception & ex) {
        EXPECT_EQ(ex.cause(), GetParam().cause);
        ASSERT_GE(ex.chain().size(), 2u);
        EXPECT_EQ(ex.chain()[ex.chain().size() - 2].message, GetParam().outer);
        EXPECT_EQ(ex.message(), "Error reading DataIO file '" + path.string() + "'");
    }
    fs::remove(path);
}

constexpr const char * BINARY = "Error on reading binary header from file.";
constexpr const char * ASCII = "Error on reading ASCII header from file.";

INSTANTIATE_TEST_SUITE_P(
    DataIO, HeaderFaults,
    testing::Values(
        HeaderFault{"Unknown", "H6XBRLZ!", "Invalid magic header or unknown file format.",
                    "File format not recognized!"},
        HeaderFault{"SecondMagic", "H6OBRLZ?", "Wrong second magic number!", "File format not recognized!"},
        HeaderFault{"Offset", binaryFile(1, 0, 0, fields()),
                    "Data section offset defined at header start does not match file offset after reading header "
                    "section.",
                    BINARY},
        HeaderFault{"Count", binaryFile(0, 1, 0, fields()),
                    "Number of values in data section 2  defined at header start does not match number of values "
                    "computed from INDICES and SPACE_TYPE = 1.",
                    BINARY},
        HeaderFault{"Kind", binaryFile(0, 0, 3, fields()), "Enumeration code 3 is out of range 0..2.", BINARY},
        HeaderFault{"PathLength", binaryFile(0, 0, 0, fields(10'001)), "String length exceeds given maximum!", BINARY},
        HeaderFault{"IndexCount", binaryFile(0, 0, 0, fields(0, 1'000'001)), "Vector length exceeds given maximum!",
                    BINARY},
        HeaderFault{"Truncated", binaryFile(0, 0, 0, fields(0, 5)), "Error reading from input stream!", BINARY},
        HeaderFault{"MissingHash", "H6OARLZ! 006.001\nGEO_FILE_HASH =\nTABLE\n",
                    "Missing value for GEO_FILE_HASH keyword.", ASCII},
        HeaderFault{"BadYear", "H6OARLZ! 006.001\nSTART_YEAR = soon\nTABLE\n", "Could not convert 'soon' into value.",
                    ASCII},
        HeaderFault{"NoIndices", "H6OARLZ! 006.001\nSIDES = \nTABLE\n",
                    "Missing value for ELEMENTS|SIDES|INDICES keyword.", ASCII},
        HeaderFault{"NoTable", "H6OARLZ! 006.001\nSTART_YEAR = 2000\n", "The header does not end with a line 'TABLE'.",
                    ASCII},
        HeaderFault{"OpenGeometry", "Hygrion 5 Output file\nMATERIALS\n1 #ff00ff00 brick\n",
                    "Missing = character in last line of geometry header.", ASCII}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(DataIOOpening, NamesTheKeywordOfAValueThatCannotBeRead) {
    const fs::path path = fs::temp_directory_path() / ("hyg_value_" + std::to_string(::getpid()));
    for (const auto & [line, expected] : {
             std::pair("GEO_FILE_HASH = x", "Invalid value for GEO_FILE_HASH keyword."),
             std::pair("GEO_FILE_HASH =", "Missing value for GEO_FILE_HASH keyword."),
             std::pair("START_YEAR = soon", "Invalid value for START_YEAR keyword."),
             std::pair("START_YEAR =", "Missing value for START_YEAR keyword."),
             std::pair("INDICES = 1 two", "Invalid value for ELEMENTS|SIDES|INDICES keyword."),
             std::pair("ELEMENTS =", "Missing value for ELEMENTS|SIDES|INDICES keyword."),
         }) {
        std::ofstream(path) << "H6OARLZ! 006.001\n" << line << "\nTABLE\n";
        std::vector<std::string> said;
        try {
            DataIO().openAndReadHeader(path.string());
        } catch (const Exception & ex) {
            for (const auto & entry : ex.chain())
                said.push_back(entry.message);
        }
        EXPECT_EQ(std::count(said.begin(), said.end(), expected), 1) << line;
    }
    fs::remove(path);
}

TEST(DataIOOpening, NamesWhatIsMissing) {
    DataIO file;
    EXPECT_THROW(
        try { file.openAndReadHeader(""); } catch (const Exception & ex) {
            EXPECT_EQ(ex.cause(), "No filename or invalid file path given.");
            throw;
        },
        Exception);
    EXPECT_THROW(
        try { file.openAndReadHeader("/nowhere/x.h6b"); } catch (const Exception & ex) {
            EXPECT_EQ(ex.cause(), "File '/nowhere/x.h6b' doesn't exist.");
            throw;
        },
        Exception);
}

TEST(DataIOOlderFiles, AsciiCarriesItsGeometry) {
    const fs::path path = fs::temp_directory_path() / ("hyg_old_" + std::to_string(::getpid()));
    std::ofstream(path) << "Hygrion 5 Output file\nQUANTITY = Temperature\nMATERIALS\n1 #ff00ff00 red brick\nGRID\n"
                           "X = 0.1 0.2\nY = 1\nZ = 1\nELEMENT_GEOMETRY\n0 0.05 0.5 0 0 1\n1 0.2 0.5 1 0 9\n"
                           "SPACE_TYPE = SINGLE\nELEMENTS = 0 1\nTABLE\n0 20 21\n1 x 22\n";
    DataIO file;
    file.openAndReadHeader(path.string());
    EXPECT_EQ(file.version().major, 5);
    EXPECT_EQ(file.header().quantity, "Temperature");
    ASSERT_TRUE(file.embeddedGeometry());
    EXPECT_EQ(file.determineDataFormat(&*file.embeddedGeometry()), DataIO::PROFILE_X);
    EXPECT_EQ(file.data(0), (std::vector<double>{20, 21}));
    EXPECT_THROW(file.read(path.string()), Exception); // a value that is none
    fs::remove(path);
}

TEST(GeometryOfResults, IsFoundWhereverTheFilesHaveGone) {
    const fs::path root = fs::temp_directory_path() / ("hyg_geometry_" + std::to_string(::getpid()));
    GeoFile geometry;
    geometry.m_materials = {
        {1, 0xff336699, "Brick"}
    };
    geometry.setGrid({
        {{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8}, {1}, {1}}
    });
    geometry.makeTables(std::vector<std::uint32_t>(8, 1));
    const std::string bytes = geometry.content(true);
    struct Row {
        const char * named;   ///< in the header
        const char * written; ///< where the geometry lies, below the folder; nullptr: nowhere
        const char * content; ///< of the file; nullptr: the geometry
        Geometry::state_t state;
    };
    const Row rows[] = {
        {"grid.h6g",                "run/results/grid.h6g",     nullptr,   Geometry::BESIDE    },
        {"sub/grid.h6g",            "run/results/sub/grid.h6g", nullptr,   Geometry::BESIDE    },
        {"/elsewhere/run/grid.h6g", "run/results/grid.h6g",     nullptr,   Geometry::BESIDE    },
        {"grid.h6g",                "run/grid.h6g",             nullptr,   Geometry::BESIDE    },
        {"",                        "run/results/grid.h6g",     nullptr,   Geometry::UNNAMED   },
        {"grid.h6g",                nullptr,                    nullptr,   Geometry::MISSING   },
        {"grid.h6g",                "run/results/grid.h6g",     "no grid", Geometry::UNREADABLE},
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(row.named);
        fs::create_directories(root / "run/results/sub");
        if (row.written != nullptr)
            KOR::writeFile((root / row.written).string(), row.content != nullptr ? row.content : bytes);
        DataHeader header = fieldHeader();
        header.geoFile = row.named;
        header.geoFileHash = GeoFile::hash(bytes);
        { DataWriter((root / "run/results/T.h6b").string(), header, true).flush(); }
        DataIO file;
        file.openAndReadHeader((root / "run/results/T.h6b").string());
        const Geometry found = geometryOf(file);
        EXPECT_EQ(found.state, row.state);
        EXPECT_EQ(found.trusted() != nullptr, row.state == Geometry::BESIDE);
        EXPECT_EQ(found.problem.empty(), row.state != Geometry::UNREADABLE);
        if (row.state == Geometry::BESIDE) {
            EXPECT_EQ(geometryOf(file).grid, found.grid); // one for all files of a run
            header.geoFileHash += 1;
            { DataWriter((root / "run/results/T.h6b").string(), header, true).flush(); }
            file.openAndReadHeader((root / "run/results/T.h6b").string());
            const Geometry other = geometryOf(file);
            EXPECT_EQ(other.state, Geometry::CHANGED);
            EXPECT_EQ(other.trusted(), nullptr);
            EXPECT_EQ(other.grid, found.grid);
        }
        fs::remove_all(root);
    }
}

} // namespace
