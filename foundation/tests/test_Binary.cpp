#include "TestTools.h"

#include <KOR/Binary.h>
#include <KOR/Version.h>

#include <sstream>

#include <sys/resource.h>

using KOR::Version;
using namespace std::string_literals;

TEST(Binary, IsLittleEndianWithLengthInFront) {
    std::ostringstream out;
    KOR::write_binary(out, std::uint16_t{0x0102});
    KOR::write_string_binary(out, "abc");
    KOR::write_vector_binary(out, std::vector<float>{1});
    EXPECT_EQ(out.str(), "\x02\x01\x03\0\0\0abc\x01\0\0\0\0\0\x80\x3f"s);
    std::istringstream in(out.str());
    EXPECT_EQ(KOR::read_binary<std::uint16_t>(in), 0x0102);
    EXPECT_EQ(KOR::read_string_binary(in, 3), "abc");
    EXPECT_EQ(KOR::read_vector_binary<float>(in, 1), std::vector<float>{1});

    std::ostringstream large;
    std::vector<double> values(100000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i) / 7;
    KOR::write_vector_binary(large, values);
    std::istringstream again(large.str());
    EXPECT_EQ(KOR::read_vector_binary<double>(again, 100000), values);
}

TEST(Binary, EveryCutIsNoticed) {
    const std::string text = "\x03\0\0\0abc"s;
    const std::string vector = "\x02\0\0\0"s + std::string(16, 'x');
    for (std::size_t length = 0; length < text.size(); ++length) {
        std::istringstream in(text.substr(0, length));
        const auto ex = caught([&] { KOR::read_string_binary(in, 1000); });
        EXPECT_EQ(ex.message(), "Error reading from input stream!");
        EXPECT_EQ(ex.chain().back().where, "[read_string_binary]");
    }
    for (std::size_t length = 0; length < vector.size(); ++length) {
        std::istringstream in(vector.substr(0, length));
        const auto ex = caught([&] { KOR::read_vector_binary<double>(in, 1000); });
        EXPECT_EQ(ex.message(), "Error reading from input stream!");
        EXPECT_EQ(ex.chain().back().where, "[read_vector_binary]");
    }
    std::istringstream in("123");
    EXPECT_EQ(caught([&] { KOR::read_binary<double>(in); }).chain().back().where, "[read_binary]");
}

TEST(Binary, LengthsAreBoundedBeforeMemoryIsTaken) {
    struct Row {
        const char *message, *where;
        void (*read)(std::istream &);
    };
    const Row rows[] = {
        {"String length exceeds given maximum!", "[read_string_binary]",
         [](std::istream & in) { KOR::read_string_binary(in, 2); }      },
        {"Vector length exceeds given maximum!", "[read_vector_binary]",
         [](std::istream & in) { KOR::read_vector_binary<char>(in, 2); }},
    };
    for (const Row & row : rows)
        for (const std::string & length : {"\x03\0\0\0"s, "\xff\xff\xff\xff"s}) {
            std::istringstream in(length + "abc");
            const auto ex = caught([&] { row.read(in); });
            EXPECT_EQ(ex.message(), row.message);
            EXPECT_EQ(ex.chain().back().where, row.where);
        }

    // A forged count within the bounds: memory grows with the data that is there, not with the count.
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss; // [KiB]
    };
    const std::string forged = "\xff\xff\xff\x7f"s + std::string(1000, 'x');
    const long before = peak();
    std::istringstream vector(forged);
    EXPECT_ANY_THROW(KOR::read_vector_binary<double>(vector, 0xffffffff));
    std::istringstream text(forged);
    EXPECT_ANY_THROW(KOR::read_string_binary(text, 0xffffffff));
    EXPECT_LT(peak() - before, 16 * 1024);
}

TEST(Version, TextsAreReadStrictly) {
    struct Row {
        const char * text;
        std::optional<Version> version;
    };
    const Row rows[] = {
        {" 006.001",  Version{6, 1}  },
        {"x255y000",  Version{255, 0}},
        {" 256.000",  {}             },
        {" 006.01",   {}             },
        {" 006.0010", {}             },
        {"  -6.001",  {}             },
        {" 6 6.001",  {}             },
        {"",          {}             },
    };
    for (const Row & row : rows) {
        Version version{1, 2};
        EXPECT_EQ(version.parse(row.text), row.version.has_value()) << row.text;
        EXPECT_EQ(version, row.version.value_or(Version{1, 2}));
    }
    EXPECT_EQ((Version{6, 1}.text()), " 006.001");
    EXPECT_EQ((Version{6, 1}.word()), 0x0106u);
    EXPECT_EQ(Version::fromWord(0xffff0106), (Version{6, 1}));
    EXPECT_LT((Version{6, 1}), (Version{6, 2}));
    EXPECT_LT((Version{5, 9}), (Version{6, 0}));
}

TEST(Version, HeadsAreRead) {
    constexpr Version::Magic MAGICS[] = {
        {"TSTA", false},
        {"TSTB", true }
    };
    for (std::size_t i = 0; i < 2; ++i) {
        std::stringstream stream;
        Version{6, 1}.write(stream, MAGICS[i]);
        EXPECT_EQ(stream.str(), i == 0 ? "TSTARLZ! 006.001"s : "TSTBRLZ!\x06\x01\0\0"s);
        Version version;
        EXPECT_EQ(version.read(stream, MAGICS), i);
        EXPECT_EQ(version, (Version{6, 1}));
    }
    struct Row {
        std::string head, message;
    };
    const Row rows[] = {
        {"",                    "Invalid magic header or unknown file format."     },
        {"TST",                 "Invalid magic header or unknown file format."     },
        {"tstaRLZ! 006.001",    "Invalid magic header or unknown file format."     },
        {"TSTA",                "Wrong second magic number!"                       },
        {"TSTARLZ? 006.001",    "Wrong second magic number!"                       },
        {"TSTARLZ! 006",        "Invalid version number ' 006' in file header."    },
        {"TSTARLZ! 6.1    ",    "Invalid version number ' 6.1    ' in file header."},
        {"TSTBRLZ!\x06\x01\0"s, "Error reading from input stream!"                 },
    };
    for (const Row & row : rows) {
        std::istringstream in(row.head);
        Version version{1, 2};
        EXPECT_EQ(caught([&] { version.read(in, MAGICS); }).cause(), row.message);
        EXPECT_EQ(version, (Version{1, 2}));
    }
}
