#include <DATAIO/DataWriter.h>

#include <KOR/FileIO.h>

#include <QImage>
#include <QProcess>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Result {
    int exitCode;
    std::string err;
    std::string out;
};

/// Files of results in a directory of their own, and the program run there without a screen.
class Plot : public testing::Test {
protected:
    Plot() {
        DATAIO::GeoFile geometry;
        geometry.m_materials = {
            {1, 0xFF808080, "brick"}
        };
        geometry.setGrid({
            std::vector{0.1,  0.2, 0.1},
            std::vector{0.1, 0.1},
            std::vector{1.0 }
        });
        geometry.makeTables({1, 1, 1, 1, 1, 1});
        geometry.write(path("a.h6g"), true);
        const std::uint32_t hash = DATAIO::GeoFile::hash(KOR::readFile(path("a.h6g"), 1 << 20));
        write("course.h6b", {1}, hash, 0);
        write("other.h6b", {1}, hash, 100);
        write("profile.h6o", {0, 1, 2}, hash, 0);
        write("plane.h6b", {0, 1, 2, 3, 4}, hash, 0);
        write("lost.h6b", {0, 1, 2}, hash + 1, 0);
        KOR::writeFile(path("measured.csv"), "time;value\n# h;C\n1;21\n2;22.5\n");
    }
    std::string path(const char * name) const { return directory.filePath(name).toStdString(); }
    /// Two records, after 1 h and 2 h: 20 C + the element's number + 10 C an hour.
    void write(const char * name, const std::vector<std::uint32_t> & elements, std::uint32_t hash, double more) const {
        DATAIO::DataHeader header;
        header.geoFile = "a.h6g";
        header.geoFileHash = hash;
        header.quantity = "Temperature";
        header.quantityKeyword = "Temperature";
        header.valueUnit = "C";
        header.timeUnit = "h";
        header.startYear = 2021;
        header.indices = elements;
        DATAIO::DataWriter writer(path(name), header, std::string(name).ends_with("b"));
        for (const double hour : {1.0, 2.0}) {
            std::vector<double> values;
            for (const std::uint32_t element : elements)
                values.push_back(20 + more + element + 10 * hour);
            writer.append(hour, values);
        }
        writer.flush();
    }
    Result run(const std::string & line) const {
        QProcess process;
        process.setWorkingDirectory(directory.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char * screen : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(screen);
        environment.insert("S", HYG_SOURCE_DIR);
        process.setProcessEnvironment(environment);
        process.start("sh", {"-c", QString::fromStdString("'" HYG_BINARY_DIR "/hygrion-plot' " + line)});
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitCode(), process.readAllStandardError().toStdString(),
                process.readAllStandardOutput().toStdString()};
    }
    const QTemporaryDir directory;
};

struct TableCase {
    const char * name;
    const char * arguments;
    const char * table;
};
/// What is drawn, as a table. A "*" at the end: it begins so.
class PlotTables : public Plot, public testing::WithParamInterface<TableCase> {};

TEST_P(PlotTables, HoldWhatIsDrawn) {
    const Result result = run(std::string(GetParam().arguments) + " -o out.csv");
    EXPECT_EQ(result.err, "");
    ASSERT_EQ(result.exitCode, 0);
    const std::string table = KOR::readFile(path("out.csv"), 1 << 20);
    const std::string expected = GetParam().table;
    if (expected.ends_with('*'))
        EXPECT_THAT(table, StartsWith(expected.substr(0, expected.size() - 1)));
    else
        EXPECT_EQ(table, expected);
}
INSTANTIATE_TEST_SUITE_P(
    Of, PlotTables,
    testing::Values(
        TableCase{"Course", "results course.h6b", "Time [h],\"x = 200 mm, y = 50 mm: Temperature [°C]\"\n1,31\n2,41\n"},
        TableCase{"CourseInOtherUnits", "results course.h6b --x-unit min --y-unit K",
                  "Time [min],\"x = 200 mm, y = 50 mm: Temperature [K]\"\n60,304.15\n120,314.15\n"},
        TableCase{"Comparison", "results course.h6b --compare other.h6b",
                  "Time [h],\"course: x = 200 mm, y = 50 mm: Temperature [°C]\",\"other: x = 200 mm, y = 50 mm: "
                  "Temperature [°C]\"\n1,31,131\n2,41,141\n"},
        TableCase{"Reference", "results course.h6b --reference measured.csv",
                  "Time [h],\"x = 200 mm, y = 50 mm: Temperature [°C]\",measured: Temperature [°C]\n1,31,21\n"
                  "2,41,22.5\n"},
        TableCase{"LastProfile", "results profile.h6o", "x [mm],2 h: Temperature [°C]\n50,40\n200,41\n350,42\n"},
        TableCase{"ProfilesAtTimes", "results profile.h6o --time 61min --time 2.4",
                  "x [mm],1 h: Temperature [°C],2 h: Temperature [°C]\n50,30,40\n200,31,41\n350,32,42\n"},
        TableCase{"CourseOfAnElement", "results profile.h6o --element 2",
                  "Time [h],\"x = 350 mm, y = 50 mm: Temperature [°C]\"\n1,32\n2,42\n"},
        TableCase{"Map", "results profile.h6o --map",
                  "Time [h],x [mm],Temperature [°C]\n1,50,30\n2,50,40\n1,200,31\n2,200,41\n1,350,32\n2,350,42\n"},
        TableCase{"PlaneWithAHole", "results plane.h6b --time 1",
                  "x [mm],y [mm],Temperature [°C]\n50,50,30\n200,50,31\n350,50,32\n50,150,33\n200,150,34\n350,150,\n"},
        TableCase{"WithoutGeometry", "results lost.h6b --element 2 --lang de",
                  "Zeit [h],Element 2: Temperatur [°C]\n1,32\n2,42\n"},
        TableCase{"Climate", "climate $S/DB_climate/DIN_4108-3_2018_outside_winter.c6b --quantity Temperature",
                  "Time [s],Temperature [°C]\n0,-5\n31535999,-5\n"},
        TableCase{"Material", "material $S/DB_materials/spruce_113.m6 --function 'u(T)' --x-unit K --lang de",
                  "Temperatur [K],Fichte: Innere Energie [kJ/kg]\n253.15,-30\n*"}),
    [](const auto & row) { return std::string(row.param.name); });

TEST_F(Plot, PicturesHaveTheSizeGroundAndLanguageAskedFor) {
    ASSERT_EQ(run("results plane.h6b -o a.png --width 300 --height 200 --scale 2 --dark").exitCode, 0);
    const QImage image(directory.filePath("a.png"));
    EXPECT_EQ(image.size(), QSize(600, 400));
    EXPECT_LT(image.pixelColor(1, 1).lightness(), 128);
    ASSERT_EQ(run("results profile.h6o --x-range 0,123 --y-range=-40,40 -o r.svg").exitCode, 0);
    const std::string ranges = KOR::readFile(path("r.svg"), 1 << 26);
    EXPECT_THAT(ranges, HasSubstr(">120<"));
    EXPECT_THAT(ranges, HasSubstr(">-40<"));
    ASSERT_EQ(run("climate $S/DB_climate/Potsdam_Germany.c6b --quantity Temperature --quantity RelativeHumidity "
                  "--lang de --title 'Ein \"Jahr\"' -o a.svg")
                  .exitCode,
              0);
    EXPECT_TRUE(QSvgRenderer(directory.filePath("a.svg")).isValid());
    const std::string svg = KOR::readFile(path("a.svg"), 1 << 26);
    for (const char * text : {"Relative Luftfeuchte [%]", "Mär", "Ein &quot;Jahr&quot;"})
        EXPECT_THAT(svg, HasSubstr(text));
    ASSERT_EQ(run("material $S/DB_materials/spruce_113.m6 --function Kl -o a.pdf").exitCode, 0);
    EXPECT_THAT(KOR::readFile(path("a.pdf"), 1 << 26), StartsWith("%PDF-"));
    ASSERT_EQ(
        run("material $S/DB_materials/spruce_113.m6 $S/DB_materials/glass_247.m6 --function Kl --lang de -o b.svg")
            .exitCode,
        0);
    EXPECT_THAT(KOR::readFile(path("b.svg"), 1 << 26), HasSubstr(": keine solche Funktion<"));
    ASSERT_EQ(run("results plane.h6b --equal -o e.svg --width 400 --height 900").exitCode, 0);
    EXPECT_THAT(KOR::readFile(path("e.svg"), 1 << 26), HasSubstr(">-100<")) << "higher than the plane of 200 mm";
}

TEST_F(Plot, SaysWhatIsWrong) {
    const struct {
        const char * arguments;
        int exitCode;
        const char * message;
    } faults[] = {
        {"",                                                             2, "A subcommand is required"                       },
        {"material a.m6",                                                2, "--output is required"                           },
        {"results course.h6b -o a.png --width 5",                        2, "--width"                                        },
        {"results course.h6b -o a.gif",                                  1, "or in csv for a table."                         },
        {"results nothing.h6b -o a.png",                                 1, "nothing.h6b"                                    },
        {"results course.h6b --element 7 -o a.png",                      1,
         "There is no element or side 7 in 'course.h6b', "
         "expected one of: 1."                                                                                               },
        {"results profile.h6o --time soon -o a.png",                     1, "'soon' is no time, expected a number and a unit"},
        {"results profile.h6o --time='-3 d' -o a.png",                   1,
         "lies outside of 'profile.h6o', which reaches from 1 to 2 h."                                                       },
        {"results profile.h6o --time '1 kg' -o a.png",                   1, "kg"                                             },
        {"results course.h6b --y-unit kg -o a.png",                      1, "kg"                                             },
        {"results course.h6b --reference measured.csv "
         "--reference-columns 1,7 -o a.png",                    1,
         "There are no rows with numbers in columns 1 and "
         "7 of 'measured.csv'."                                                                                              },
        {"results profile.h6o --compare course.h6b -o a.png",            1, "are no profiles both."                          },
        {"material $S/DB_materials/spruce_113.m6 --function X -o a.png", 1,
         "Unknown function 'X', expected one of: Theta_l"                                                                    },
        {"material $S/DB_materials/glass_247.m6 --function Kl -o a.png", 1, "There are no values of 'Kl' to draw."           },
        {"climate $S/DB_climate/Potsdam_Germany.c6b --quantity X -o b",  1,
         "Unknown climate quantity 'X', expected one of: "                                                                   },
        {"climate nothing.epw -o a.png",                                 1, "Error reading 'nothing.epw'."                   },
    };
    for (const auto & fault : faults) {
        const Result result = run(fault.arguments);
        EXPECT_EQ(result.exitCode, fault.exitCode) << fault.arguments;
        EXPECT_THAT(result.err, HasSubstr(fault.message)) << fault.arguments;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_THAT(run("--help").out, HasSubstr("results"));
    EXPECT_THAT(run("--version").out, StartsWith("hygrion-plot 6."));
}

} // namespace
