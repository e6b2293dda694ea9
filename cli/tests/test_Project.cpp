#include "Shell.h"

#include <HYGRION/Project.h>
#include <HYGRION/ProjectCheck.h>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace {

using nlohmann::json;
using testing::HasSubstr;
namespace fs = std::filesystem;

const std::string EXAMPLES = HYG_SOURCE_DIR "/examples";

std::vector<std::string> examples() {
    std::vector<std::string> files;
    for (const auto & entry : fs::recursive_directory_iterator(EXAMPLES))
        if (entry.path().extension() == ".h6p")
            files.push_back(fs::relative(entry.path(), HYG_SOURCE_DIR).string());
    std::sort(files.begin(), files.end());
    return files;
}

void replace(std::string & text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
}

/// A directory in the variable $D: an example with four faults, and a variant of it with an unused material.
std::string scratch() {
    std::string directory = testing::TempDir() + "hyg-cli-project-" + std::to_string(::getpid());
    fs::create_directories(directory);
    const std::string roof = KOR::readFile(EXAMPLES + "/Flat roof.h6p", 1 << 20);
    std::string faulty = roof;
    replace(faulty, "type=\"EngineeringOutdoor\"", "type=\"Windy\"");
    replace(faulty, "<Reference>Spruce</Reference>", "<Reference>Oak</Reference>");
    replace(faulty, "13 0 39 0", "13 0 90 0");
    replace(faulty, "pvc_sheet_111.m6", "pvc_sheet_999.m6");
    KOR::writeFile(directory + "/faulty.h6p", faulty);
    KOR::writeFile(directory + "/half.h6p", roof.substr(0, roof.size() / 2));
    std::string variant = roof;
    replace(variant, "</Materials>",
            "  <MaterialReference name=\"Straw\" color=\"#ffffff\" hatchCode=\"0\">straw.m6"
            "</MaterialReference>\n  </Materials>");
    replace(variant, "name=\"Inclination\" unit=\"Deg\">0<", "name=\"Inclination\" unit=\"Deg\">5<");
    KOR::writeFile(directory + "/variant.h6p", variant);
    return directory;
}

Result project(const std::string & arguments) {
    return shell("D='" + scratch() + "'; R='examples/Flat roof.h6p'; hygrion-cli project " + arguments);
}

json projectJson(const std::string & arguments) {
    return json::parse(project(arguments + " --json").out, nullptr, false);
}

} // namespace

TEST(Examples, PassTheCheckWithAllTheirFiles) {
    const auto files = examples();
    ASSERT_GE(files.size(), 8U);
    std::string all;
    for (const std::string & file : files)
        all += " '" + file + '\'';
    const Result result = project("check" + all + " --json");
    EXPECT_EQ(result.exitCode, 0) << result.err << result.out;
    for (const json & one : json::parse(result.out, nullptr, false))
        for (const json & finding :
             one["findings"]) // a detail has open air in its rectangle; nothing else is to be said
            EXPECT_THAT(finding["message"].get<std::string>(), HasSubstr("cells have no material.")) << one["file"];
}

TEST(Examples, AreTheSameBytesWhenWrittenAgain) {
    for (const std::string & file : examples()) {
        EXPECT_EQ(shell("T=$(mktemp) && hygrion-cli project rewrite '" + file +
                        "' $T >/dev/null && hygrion-cli project rewrite $T " + "$T.2 >/dev/null && cmp '" + file +
                        "' $T && cmp '" + file + "' $T.2; E=$?; rm -f $T $T.2; exit $E")
                      .exitCode,
                  0)
            << file;
    }
}

TEST(Project, CheckTellsEveryFaultWithItsPlace) {
    const Result result = project("check $D/faulty.h6p $D/half.h6p \"$R\"");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.out, HasSubstr("error: line 35: interface 'Outside': "));
    EXPECT_THAT(result.out, HasSubstr("Oak"));
    EXPECT_THAT(result.out, HasSubstr("Invalid attribute 'right' in Range."));
    EXPECT_THAT(result.out, HasSubstr("warning: File '"));
    EXPECT_THAT(result.out, HasSubstr("pvc_sheet_999.m6' of 'PVC sheet' does not exist.\n"));
    EXPECT_THAT(result.out, HasSubstr("examples/Flat roof.h6p: 0 errors, 0 warnings\n"));
    EXPECT_THAT(result.err, HasSubstr("Errors in 2 of 3 projects.\n"));
    const json document = projectJson("check $D/faulty.h6p");
    EXPECT_EQ(document[0]["errors"], document[0]["findings"].size() - document[0]["warnings"].get<std::size_t>());
    EXPECT_EQ(document[0]["findings"][0]["line"], 35);
    EXPECT_EQ(project("check").exitCode, 2);
}

/// What a run refuses because of what stands in the project, the check tells, too; what is not in use is not looked at.
TEST(Project, CheckTellsWhatTheSolverRefuses) {
    constexpr std::pair<const char *, const char *> EDITS[] = {
        {"s/<Quantity.*MassDensity/<Quantity>MassDensity/",
         ": output file 'Moisture content': Unknown output quantity 'MassDensity'. Did you mean '"                                                         },
        {"s/<Quantity unit=.kg.m3./<Quantity unit='C'/",                                  "Unit 'C' does not fit MoistureMassDensity"                      },
        {"s/unit=.s.m./unit='W\\/m2K'/",                                                  "Parameter 'ExchangeCoefficient' has an unsuitable unit 'W/m2K'."},
        {"s/>0.001</>1e300</",                                                            ": boundary condition 'Diffusion inside': "                      },
        {"s/MoistureTransport/HeatMoistureSaltTransport/",
         "error: Init: Balance equation module 'HeatMoistureSaltTransport' is not available"                                                               },
        {"s/<CCReference type=.RelativeHumidity.*//",                                     "Climate quantity 'RelativeHumidity' is missing"                 },
        {"s/>45</>120</",                                                                 "'RelativeHumidity' goes up to 120 %"                            },
        {"s/type=.VaporDiffusion. kind=.Exchange./type='AirConvection' kind='Exchange'/",
         "The solver cannot calculate type 'AirConvection' of kind 'Exchange'."                                                                            },
    };
    const std::string directory = scratch();
    for (const auto & [edit, said] : EDITS) {
        const std::string file = "'" + directory + "/case.h6p'";
        const Result result = shell("sed -e \"" + std::string(edit) + "\" 'examples/validation/HAMSTAD 2.h6p' >" +
                                    file + "; hygrion-cli project check " + file);
        EXPECT_THAT(result.out, HasSubstr(said)) << edit;
        EXPECT_EQ(result.exitCode, 1) << edit << result.out;
    }
    const Result noPlace = shell("sed 's/<ClimateDataFilePath>.*//; s/<KOR:Parameter name=.Orientation.*//; s/<XSteps "
                                 "unit=.mm.>/&1e300 /' 'examples/Brick wall.h6p' "
                                 ">'" +
                                 directory + "/case.h6p'; hygrion-cli project check '" + directory + "/case.h6p'");
    EXPECT_THAT(noPlace.out, HasSubstr("error: Init: There is no climate data file of the location"));
    EXPECT_THAT(noPlace.out,
                HasSubstr(": interface 'Outside': Parameter 'Orientation' of interface 'Outside' is missing"));
    EXPECT_THAT(noPlace.out, HasSubstr("error: Discretization: Column 1 is 1e+297 m wide; cells must be "));
    const Result unused = shell("sed -e \"s/<BCReference>Diffusion inside.*//\" 'examples/validation/HAMSTAD "
                                "2.h6p' | sed '0,/<BoundaryCondition name=.Diffusion inside. type=.VaporDiffusion/s//"
                                "<BoundaryCondition name=\"Diffusion inside\" type=\"AirConvection/' >'" +
                                directory + "/case.h6p'; hygrion-cli project check '" + directory + "/case.h6p'");
    EXPECT_EQ(unused.exitCode, 0) << unused.out;
}

TEST(Project, ShowSpeaksOfLayers) {
    const json roof = projectJson("show \"$R\"");
    ASSERT_EQ(roof["layers"].size(), 4U);
    EXPECT_EQ(roof["layers"][1]["material"], "Spruce");
    EXPECT_NEAR(roof["layers"][1]["thickness"].get<double>(), 24, 1e-9);
    EXPECT_EQ(roof["duration"], "Start 0 a, Duration 3 a");
    EXPECT_EQ(roof["contactConditions"][0]["places"][0],
              "Right, x 25.5 to 265.5 mm (between cellulose and plasterboard)");
    const Result text = project("show \"$R\"");
    EXPECT_THAT(text.out, HasSubstr("        24 mm  Spruce; 12 cells\n"));
    EXPECT_THAT(text.out, HasSubstr("       278 mm  in all\n"));
    EXPECT_THAT(project("show 'examples/Brick wall.h6p'").out,
                HasSubstr("      Driving rain: WindDrivenRain, StandardRainModel; "));
    EXPECT_EQ(projectJson("show 'examples/Floor slab edge.h6p'")["materials"][0]["places"].size(), 2U);
    EXPECT_THAT(project("show $D/half.h6p").err, HasSubstr("Error in line "));
}

TEST(Project, GridCountsTheCellsOfALayer) {
    const json grid = projectJson("grid \"$R\"");
    ASSERT_EQ(grid["x"].size(), 4U);
    EXPECT_EQ(grid["x"][0]["last"], 0);
    EXPECT_EQ(grid["x"][3]["last"], grid["cells"][0].get<int>() - 1);
    EXPECT_TRUE(grid["y"].empty());
    const json detail = projectJson("grid 'examples/Window reveal.h6p'");
    EXPECT_EQ(detail["x"].size(), 9U);
    EXPECT_EQ(detail["y"].size(), 4U);
    EXPECT_NEAR(detail["y"][3]["from"].get<double>(), 390, 1e-6);
}

TEST(Project, CleanReportsAndDiffAgrees) {
    const Result clean = project("clean $D/variant.h6p $D/clean.h6p");
    EXPECT_EQ(clean.exitCode, 0);
    EXPECT_TRUE(agrees(clean.out, "Removed unused definitions from project\n4 materials (of 5) used:\n*"));
    EXPECT_THAT(project("diff $D/variant.h6p $D/clean.h6p").out,
                HasSubstr("material 'Straw'\n  - <MaterialReference "));
    const Result diff = project("diff \"$R\" $D/clean.h6p");
    EXPECT_EQ(diff.exitCode, 1);
    EXPECT_EQ(diff.out,
              "interface 'Outside'\n  -   <KOR:Parameter name=\"Inclination\" unit=\"Deg\">0</KOR:Parameter>\n"
              "  +   <KOR:Parameter name=\"Inclination\" unit=\"Deg\">5</KOR:Parameter>\n");
    EXPECT_EQ(project("diff \"$R\" \"$R\"").exitCode, 0);
    EXPECT_EQ(project("rewrite \"$R\" $D/none/x.h6p").exitCode, 1);
}

TEST(Project, ManualHoldsTheTablesOfTheProgram) {
    const std::string manual = KOR::readFile(HYG_SOURCE_DIR "/docs/project-file.md", 1 << 20);
    constexpr std::string_view MARK = "<!-- from here: hygrion-cli project keywords -->\n";
    const std::size_t at = manual.find(MARK);
    ASSERT_NE(at, std::string::npos);
    EXPECT_TRUE(manual.substr(at + MARK.size()) == project("keywords").out)
        << "The tables are out of date: put the output of \"hygrion-cli project keywords\" behind the mark.";
    EXPECT_EQ(project("keywords Nothing::type_t").err, "Unknown category 'Nothing::type_t'.\n");
    EXPECT_EQ(projectJson("keywords Interval::para_t").size(), 4U);
}
