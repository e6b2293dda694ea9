#include <KOR/Directories.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Path.h>

#include <filesystem>

#include <unistd.h>

using KOR::Path;

namespace {

/// The cause and the place of what \p action throws, else its result.
template <typename Action> std::string outcome(Action && action) {
    try {
        return action();
    } catch (const KOR::Exception & ex) {
        return ex.chain().front().where + " " + ex.chain().front().message;
    }
}

const Path::Placeholders PLACES = {
    {"Project Directory", "/home/ann/walls"                },
    {"Install Directory", "/opt/hygrion/"                  },
    {"Climate Database",  "${Install Directory}/DB_climate"},
    {"Materials",         "/home/ann/walls/own/materials"  },
    {"Everything",        "/"                              },
    {"Loop",              "${Pool}/a"                      },
    {"Pool",              "${Loop}/b"                      },
    {"Open",              "${Unknown}/x"                   },
    {"Empty",             ""                               }
};

struct Parts {
    const char * path;
    const char * filename;
    const char * parent;
    const char * extension;
    bool isAbsolute;
};
class PathParts : public testing::TestWithParam<Parts> {};

} // namespace

TEST_P(PathParts, Split) {
    const Path path(GetParam().path);
    const std::string invalid = "[Path::filename] Invalid path: '" + path.str() + "'";
    EXPECT_EQ(outcome([&] { return path.filename(); }), *GetParam().filename ? GetParam().filename : invalid);
    EXPECT_EQ(outcome([&] { return path.parentPath().str(); }),
              *GetParam().parent ? GetParam().parent : "[Path::parentPath] No parent possible.");
    EXPECT_EQ(path.extension(), GetParam().extension);
    EXPECT_EQ(path.isAbsolute(), GetParam().isAbsolute);
}
INSTANTIATE_TEST_SUITE_P(
    , PathParts,
    testing::Values(Parts{"/home/ann/wall.h6p", "wall.h6p", "/home/ann", "h6p", true},
                    Parts{"C:\\Users\\Jürgen\\Wand 1.h6p", "Wand 1.h6p", "C:/Users/Jürgen", "h6p", true},
                    Parts{"//server/share/a.tar.gz", "a.tar.gz", "//server/share", "gz", true},
                    Parts{"wall.h6p", "wall.h6p", ".", "h6p", false}, Parts{"a//b", "b", "a", "", false},
                    Parts{"/a", "a", "/", "", true}, Parts{"C:/a", "a", "C:/", "", true},
                    Parts{"a/b/", "", "a", "", false}, Parts{"/", "", "", "", true}, Parts{"..", "", "", "", false},
                    Parts{"a/..", "", "", "", false}, Parts{".hidden", ".hidden", ".", "", false},
                    Parts{"v1.2/name", "name", "v1.2", "", false},
                    Parts{"${Project Directory}/m/x.m6", "x.m6", "${Project Directory}/m", "m6", false},
                    Parts{"${Project Directory}/x.m6", "x.m6", "${Project Directory}", "m6", false},
                    Parts{"${v1.2}", "", "", "", false}, Parts{"${}/a", "a", "${}", "", false}));

TEST(Path, HasNoPartsWhenEmpty) {
    EXPECT_EQ(outcome([] { return Path().parentPath().str(); }), "[Path::parentPath] Invalid path: ''");
    EXPECT_EQ(outcome([] { return Path().filename(); }), "[Path::filename] Invalid path: ''");
}

TEST(Path, ReplacesTheLeadingPlaceholder) {
    constexpr const char * ROWS[][2] = {
        {"${Project Directory}/materials/brick.m6", "/home/ann/walls/materials/brick.m6"},
        {"${Project Directory}/climate/",           "/home/ann/walls/climate/"          },
        {"${Project Directory}",                    "/home/ann/walls"                   },
        {"${Project Directory}/",                   "/home/ann/walls/"                  },
        {"${Project Directory}brick.m6",            "/home/ann/walls/brick.m6"          },
        {"${Install Directory}//x",                 "/opt/hygrion/x"                    },
        {"${Climate Database}/Essen.c6b",           "/opt/hygrion/DB_climate/Essen.c6b" },
        {"${project directory}/x",                  "${project directory}/x"            },
        {"${Nowhere}/x",                            "${Nowhere}/x"                      },
        {"${Open}/y",                               "${Unknown}/x/y"                    },
        {"${Loop}/y",                               "${Loop}/y"                         },
        {"${Empty}/y",                              "${Empty}/y"                        },
        {"a/${Project Directory}/x",                "a/${Project Directory}/x"          },
        {"${Project Directory",                     "${Project Directory"               },
        {"",                                        ""                                  },
    };
    for (const auto & [written, expected] : ROWS)
        EXPECT_EQ(Path(written).withReplacedPlaceholders(PLACES).str(), expected) << written;
}

TEST(Path, IsWrittenWithTheDeepestPlaceholder) {
    constexpr const char * ROWS[][2] = {
        {"/home/ann/walls/brick.m6",               "${Project Directory}/brick.m6"},
        {"/home/ann/walls/own/materials/brick.m6", "${Materials}/brick.m6"        },
        {"/home/ann/walls/own/../brick.m6",        "${Project Directory}/brick.m6"},
        {"/home/ann/walls",                        "${Project Directory}"         },
        {"/home/ann/walls/",                       "${Project Directory}/"        },
        {"/home/ann/walls2/brick.m6",              "/home/ann/walls2/brick.m6"    },
        {"/home/ann/walls/../bob/x",               "/home/ann/walls/../bob/x"     },
        {"/opt/hygrion/DB_climate/Essen.c6b",      "${Climate Database}/Essen.c6b"},
        {"/opt/hygrion/bin",                       "${Install Directory}/bin"     },
        {"brick.m6",                               "brick.m6"                     },
        {"${Nowhere}/x",                           "${Nowhere}/x"                 },
    };
    for (const auto & [written, expected] : ROWS) {
        const Path path = Path(written).withPlaceholder(PLACES);
        EXPECT_EQ(path.str(), expected) << written;
        EXPECT_EQ(path.withReplacedPlaceholders(PLACES).normalized(), Path(written).normalized()) << written;
    }
}

TEST(Path, NamesTheUnknownPlaceholderWhenUsed) {
    const Path path = Path("${My Data}/a.m6").withReplacedPlaceholders(PLACES);
    const char * message = "[Path::systemPath] Unknown placeholder 'My Data' in path '${My Data}/a.m6'.";
    EXPECT_EQ(outcome([&] { return path.systemPath(); }), message);
    EXPECT_EQ(outcome([&] { return path.makePath(), std::string(); }), message);
    EXPECT_FALSE(std::filesystem::exists("${My Data}"));
    const std::vector<Path> paths = {path, Path("/a"), Path("${B}/x"), Path("${B}/y")};
    EXPECT_EQ(Path::usedPlaceholders(paths), (std::set<std::string>{"B", "My Data"}));
}

TEST(Path, Normalizes) {
    constexpr const char * ROWS[][2] = {
        {"a/./b//c/../d/", "a/b/d"     },
        {"../../a",        "../../a"   },
        {"/../a",          "/a"        },
        {"a/..",           "."         },
        {"C:\\a\\..\\b",   "C:/b"      },
        {"//server//x",    "//server/x"},
        {"${X}/a/../b",    "${X}/b"    },
        {"${X}/../b",      "${X}/../b" },
        {"",               ""          },
        {"///a",           "/a"        },
    };
    for (const auto & [written, expected] : ROWS)
        EXPECT_EQ(Path(written).normalized().str(), expected) << written;
    EXPECT_EQ(Path("m/x.m6").absolutePath(Path("/base/")).str(), "/base/m/x.m6");
    EXPECT_EQ(Path("${X}/x.m6").absolutePath(Path("/base")).str(), "${X}/x.m6");
    EXPECT_EQ(Path("/a.b/wall.h6p").withoutExtension().str(), "/a.b/wall");
    EXPECT_EQ(Path("/a.b/wall").withoutExtension().str(), "/a.b/wall");
}

TEST(Path, MakesDirectories) {
    const std::string root = testing::TempDir() + "hyg-path-" + std::to_string(::getpid());
    const Path nested = Path(root) / "Wände" / "außen";
    nested.makePath();
    EXPECT_TRUE(nested.isDirectory());
    nested.makePath();

    const Path file = nested / "file";
    KOR::writeFile(file.str(), "x");
    EXPECT_TRUE(file.isFile());
    for (const Path & blocked : {file, file / "below"}) {
        const std::string problem = outcome([&] { return blocked.makePath(), std::string(); });
        EXPECT_TRUE(problem.starts_with("[KOR_Path::makePath] Cannot create directory '" + blocked.str() + "': "))
            << problem;
        EXPECT_TRUE(problem.ends_with("\nError in CreateDirectoryW().")) << problem;
    }
    for (const std::string_view bad : {std::string_view("/tmp/\xFF"), std::string_view("/tmp/a\0b", 8)})
        EXPECT_EQ(outcome([&] { return Path(bad).makePath(), std::string(); }),
                  "[KOR_Path::makePath] Cannot convert directory '" + std::string(bad) + "', from UTF8 to Unicode!");
    std::filesystem::remove_all(root);
}

TEST(Directories, AreFoundWithoutTheShell) {
    EXPECT_TRUE((KOR::directories::install() / "test_foundation").isFile());
    ::setenv("XDG_DATA_HOME", "/data/ann", 1);
    EXPECT_EQ(KOR::directories::userData().str(), "/data/ann/Hygrion6");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::setenv("HOME", "/home/ann", 1);
    EXPECT_EQ(KOR::directories::userData().str(), "/home/ann/.local/share/Hygrion6");
    const auto places = KOR::directories::placeholders(Path("walls/../a.h6p"));
    EXPECT_EQ(places.at(Path::PROJECT_DIRECTORY), std::filesystem::current_path().string());
    EXPECT_EQ(places.at(Path::USER_CLIMATE_DATABASE), "/home/ann/.local/share/Hygrion6/DB_climate");
}
