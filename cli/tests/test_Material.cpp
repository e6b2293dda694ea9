#include "Shell.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace {

using nlohmann::json;
using testing::HasSubstr;

/// A directory in the variable $D of the shell: an old material, a broken one and a sound one.
std::string scratch() {
    std::string directory = testing::TempDir() + "hyg-cli-material-" + std::to_string(::getpid());
    std::filesystem::create_directories(directory);
    KOR::writeFile(directory + "/old_3.mat", "[MATERIAL]\nNAME = Old\nCET = 850 J/kgK\n");
    KOR::writeFile(directory + "/broken_4.m6", "H6MARLZ! 006.001\n[STORAGE_BASE_PARAMETERS]\nRHO = heavy\n");
    std::filesystem::copy_file(HYG_SOURCE_DIR "/DB_materials/spruce_113.m6", directory + "/spruce_113.m6",
                               std::filesystem::copy_options::overwrite_existing);
    return directory;
}

Result material(const std::string & arguments) {
    return shell("D='" + scratch() + "'; hygrion-cli material " + arguments);
}

} // namespace

TEST(Material, CheckFindsFaultsAndGoesOn) {
    const Result all = material("check $D");
    EXPECT_EQ(all.exitCode, 1);
    EXPECT_THAT(all.out, HasSubstr("broken_4.m6\n  Could not convert 'heavy' into value.\n"));
    EXPECT_THAT(all.out, HasSubstr("old_3.mat\n  LambdaDry is smaller than 1e-20\n"));
    EXPECT_THAT(all.out, HasSubstr("3 materials, 2 with findings\n"));
    EXPECT_THAT(all.err, HasSubstr("Keyword 'CET' is deprecated (new -> 'CE')."));
    EXPECT_THAT(all.err, HasSubstr("Findings in 2 of 3 materials.\n"));
    EXPECT_EQ(material("check $D/spruce_113.m6").exitCode, 0);
    const json document = json::parse(material("check $D --json").out, nullptr, false);
    ASSERT_EQ(document.size(), 3U);
    EXPECT_EQ(document[0]["findings"].back(), "Error reading material from file '" + scratch() + "/broken_4.m6'.");
    EXPECT_TRUE(document[2]["findings"].empty());
}

TEST(Material, ListSkipsWhatCannotBeRead) {
    const Result all = material("list $D");
    EXPECT_EQ(all.exitCode, 1);
    EXPECT_THAT(all.out, HasSubstr("   113      455    1500     0.09       130"));
    EXPECT_THAT(all.err, HasSubstr("broken_4.m6"));
    EXPECT_EQ(material("list $D/none").exitCode, 1);
    const std::string directory = scratch();
    const Result empty = shell("D='" + directory + "'; mkdir -p $D/empty; hygrion-cli material check $D/empty");
    EXPECT_EQ(empty.exitCode, 1);
    EXPECT_EQ(empty.err, "There are no material files (m6, mat) in directory '" + directory + "/empty'.\n");
}

TEST(Material, ShowsParametersAndFunctions) {
    const json document = json::parse(material("show $D/spruce_113.m6 --json").out, nullptr, false);
    EXPECT_EQ(document["name"]["de"], "Fichte");
    EXPECT_EQ(document["parameters"]["RHO"]["value"], 455);
    EXPECT_EQ(document["parameters"]["RHO"]["unit"], "kg/m3");
    EXPECT_EQ(document["functions"]["Theta_l(RH)"]["y"].back(), 0.6);
    EXPECT_EQ(document["functions"]["lgDl(Theta_l)"]["yUnit"], "log(m2/s)");
    const std::string text = material("show $D/spruce_113.m6").out;
    EXPECT_THAT(text, HasSubstr("Flags:      AIR_TIGHT WOOD\n"));
    EXPECT_THAT(text, HasSubstr("points, x 0 to 1, y 0 to 0.6 m3/m3\n"));
}

TEST(Material, EvaluatesInManyPlaces) {
    EXPECT_EQ(material("eval $D/spruce_113.m6 lambda 0 0.6").out, "0 m3/m3\t0.09 W/mK\n0.6 m3/m3\t0.2445205 W/mK\n");
    EXPECT_EQ(material("eval $D/spruce_113.m6 'u(T)' 283.15 --direction w").out, "283.15 K\t15000 J/kg\n");
    struct Row {
        const char *arguments, *message;
    };
    for (const auto & [arguments, message] : std::initializer_list<Row>{
             {"nothing 1",            "Unknown function 'nothing', expected one of: Theta_l(RH) Theta_l(pC) "},
             {"'Theta_l(RH)' 0.5 50", "Theta_l(RH) takes values from 0 to 1, got 50."                        },
             {"'u(T)' 20",            "u(T) takes values from 100 to 2000 K, got 20."                        },
             {"'sd+(rh)' 0.5",        "The material has no vapour contact resistance."                       },
    }) {
        const Result refused = material("eval $D/spruce_113.m6 " + std::string(arguments));
        EXPECT_THAT(refused.err, HasSubstr(message));
        EXPECT_EQ(refused.out, "");
    }
    EXPECT_EQ(material("eval $D/spruce_113.m6 lambda").exitCode, 2);
    EXPECT_EQ(material("eval $D/spruce_113.m6 lambda 1 --direction x").exitCode, 2);
    EXPECT_THAT(material("eval $D/old_3.mat lambda 1").err,
                HasSubstr("Parameter THETA_EFF missing for moisture storage models.\n"));
}

TEST(Material, ConvertsOldFiles) {
    EXPECT_EQ(material("convert $D/old_3.mat $D/new_7.m6 && cat $D/new_7.m6").out,
              scratch() + "/new_7.m6\nH6MARLZ! 006.001\n\n[IDENTIFICATION]\n  NAME                     = en:Old\n\n"
                          "[STORAGE_BASE_PARAMETERS]\n  CE                      = 850 J/kgK\n");
    EXPECT_EQ(material("convert $D/old_3.mat $D").out, scratch() + "/old_3.m6\n");
    const Result renamed = material("convert $D/old_3.mat $D/new.m6");
    EXPECT_EQ(renamed.out, scratch() + "/new_3.m6\n");
    EXPECT_THAT(renamed.err, HasSubstr("Renaming material file name"));
}
