#include "MaterialTexts.h"

#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <filesystem>

namespace MM {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;

std::string identification(const std::string & line) {
    return HEADER + "[IDENTIFICATION]\n" + line + "\n";
}
std::string storage(const std::string & line) {
    return HEADER + "[STORAGE_BASE_PARAMETERS]\n" + line + "\n";
}
std::string section(const std::string & name, const std::string & lines) {
    return HEADER + "[" + name + "]\n" + lines + "\n";
}

} // namespace

TEST(MaterialFile, IdComesFromTheFileName) {
    struct Row {
        const char * path;
        unsigned int id;
        bool warns;
    };
    for (const auto & [path, id, warns] : std::initializer_list<Row>{
             {"brick_123.m6",           123, false},
             {"dir_7/clay_brick_12.m6", 12,  false},
             {"brick.mat",              0,   false},
             {"brick.m6",               0,   true },
             {"dir_7/brick.m6",         0,   true },
             {"brick_12x.m6",           0,   true },
             {"brick_99999999999.m6",   0,   true },
    }) {
        Warnings log;
        EXPECT_EQ(materialFrom(brickText(), path).m_id, id) << path;
        const std::string warning =
            KOR::text("Invalid format for material file, '<name>_xxx.m6' expected, with xxx as ID "
                      "number. Filename was '%1'.",
                      path);
        EXPECT_EQ(log.m_warnings, warns ? std::vector<std::string>{warning} : std::vector<std::string>());
    }
}

TEST(MaterialFile, NameIsChangedToCarryTheId) {
    EXPECT_EQ(Material::pathWithId("a/brick.m6", 7), "a/brick_7.m6");
    EXPECT_EQ(Material::pathWithId("a.b/brick", 7), "a.b/brick_7.m6");
    EXPECT_EQ(Material::pathWithId("a/brick_12.mat", 7), "a/brick_7.m6");
    EXPECT_EQ(Material::pathWithId("a/brick_7.m6", 7), "a/brick_7.m6");
}

TEST(MaterialFile, EveryContentSurvivesWritingAndReading) {
    Warnings log;
    std::string text = brickText() + R"(
[MOISTURE_TRANSPORT_V]
  FUNCTION = lgKv(Theta_l)
      0 0.32
      -10 -30
  [MODEL]
  TYPE = SP_MODEL
  SP_SP                    = 0.5
  SP_pCmax                 = 7
  FUNCTION = f
      0 1
      1 2
[HEAT_TRANSPORT_W]
  FUNCTION = lambda(T)
      0 50
      0 0.1
[AIR_TRANSPORT_W]
  FUNCTION = Kg(Ol)
      0 0.32
      1e-5 1e-6
[MEASURED_DATA]
    [EXPERIMENTS]
; a remark
  SPECIMEN = 1

[VAPOR_CONTACT_RESISTANCE]
  SCALING_A_POS           = 0.5 -
  FUNCTION = sd+(rh)
      0 1
      2 0.1
)";
    text = KOR::replaced(text, "  FLAGS                    = AIR_TIGHT\n", R"(  FLAGS = WOOD AIR_TIGHT
  PRODUCER = all:Works|de:Werk
  COLOR = #12AB34
  HATCHING = 5
  SAMPLING_METHOD = S_CAST_KOR
  DBTYPE = STANDARD, Made at home
  USE_INSTEAD = 4
  QUALITY_FLAGS = 4000000000
  COMMENTS = en:a = b; c
  DATE = 01.02.24
)");
    const Material material = materialFrom(text);
    const std::string written = material.content();
    EXPECT_THAT(written, testing::StartsWith("H6MARLZ! 006.001\n\n[IDENTIFICATION]\n"
                                             "  NAME                     = de:Ziegel|en:Brick\n"));
    EXPECT_THAT(written, HasSubstr("\n  RHO                     = 1800 kg/m3\n"));
    EXPECT_THAT(written, HasSubstr("\n  FLAGS                    = AIR_TIGHT WOOD\n"));
    EXPECT_THAT(written, HasSubstr("\n  CATEGORY                 = BRICK\n  COLOUR                   = #12ab34\n"
                                   "  HATCHING                 = 5\n  COMMENTS"));
    EXPECT_THAT(written, HasSubstr("[MOISTURE_STORAGE]\n  FUNCTION = Theta_l(pC)_de\n      0 4 6 8 11\n"));
    EXPECT_THAT(written, HasSubstr("  [MODEL]\n  TYPE = SERIAL_PARALLEL\n  SP_SP                    = 0.5\n"));
    const Material again = materialFrom(written);
    EXPECT_TRUE(again == material);
    EXPECT_EQ(again.content(), written);
    EXPECT_EQ(again.m_identification.m_dbType, (std::vector<std::string>{"STANDARD", "Made at home"}));
    EXPECT_THAT(again.m_measuredData.m_lines, ElementsAre("    [EXPERIMENTS]", "; a remark", "  SPECIMEN = 1"));
    EXPECT_TRUE(again.m_airTransport[2].has(AirTransport::Functions::Kg_Theta_l));
    EXPECT_THAT(log.m_warnings, Contains("Unknown database edition 'Made at home'."));
}

TEST(MaterialFile, WritesAndReadsFiles) {
    Warnings log;
    const std::string dir = testing::TempDir() + "material_file";
    std::filesystem::create_directories(dir);
    Material material = materialFrom(brickText());
    EXPECT_EQ(material.write(dir + "/brick.m6"), dir + "/brick_123.m6");
    EXPECT_THAT(log.m_messages, Contains(HasSubstr("Renaming material file name")));
    Material again;
    again.read(material.m_path);
    EXPECT_TRUE(again == material);
    EXPECT_EQ(chainOf([&] { material.write(""); }).back().message, "No filename given.");
    EXPECT_THAT(chainOf([&] { material.write("/no/such/dir/brick_123.m6"); }).back().message,
                HasSubstr("Couldn't write material file '/no/such/dir/brick_123.m6'."));
    EXPECT_EQ(chainOf([&] { again.read(dir + "/none_1.m6"); }).back().message,
              "Cannot open file: '" + dir + "/none_1.m6'");
    KOR::writeFile(dir + "/binary_1.m6b", "H6MBRLZ! 006.001");
    EXPECT_EQ(chainOf([&] { again.read(dir + "/binary_1.m6b"); }).back().message,
              "Cannot open file: '" + dir + "/binary_1.m6b'");
    std::filesystem::resize_file(dir + "/binary_1.m6b", 300u << 20);
    KOR::writeFile(dir + "/large_1.m6", brickText());
    std::filesystem::resize_file(dir + "/large_1.m6", 300u << 20);
    EXPECT_EQ(chainOf([&] { again.read(dir + "/large_1.m6"); }).back().message,
              "Error opening material file (again) in ASCII mode.");
    EXPECT_EQ(again.m_path, "");
    std::filesystem::remove_all(dir);
}

TEST(MaterialFile, OldSpellingsAreReadAndWrittenAnew) {
    Warnings log;
    const Material material = materialFrom(storage("CET = 850 J/kgK\nOEFF = 20 Vol%"));
    EXPECT_THAT(log.m_warnings, Contains("Keyword 'CET' is deprecated (new -> 'CE')."));
    EXPECT_EQ(material.parameter(Storage::CE).value(), 850);
    EXPECT_DOUBLE_EQ(material.parameter(Storage::THETA_EFF).value(), 0.2);
    EXPECT_THAT(material.content(), AllOf(HasSubstr("  CE                      = 850 J/kgK\n"),
                                          HasSubstr("  THETA_EFF               = 20 Vol%\n")));
}

TEST(MaterialFile, UnknownIdentificationIsAWarning) {
    Warnings log;
    const Material material = materialFrom(identification("FOO = 1\nNAME = Brick"));
    EXPECT_THAT(log.m_warnings, ElementsAre("Invalid keyword found in identification section 'FOO'."));
    EXPECT_EQ(material.name(), "Brick");
}

TEST(MaterialFile, CategoriesAreSplitAtCommasOrBlanks) {
    using Id = MaterialCategory::CategoryID;
    MaterialCategory category;
    category.set("BRICK, 5");
    EXPECT_EQ(category.id(0), Id::BRICK);
    EXPECT_EQ(category.id(1), Id::CONCRETE);
    EXPECT_EQ(category.text(), "BRICK, 5");
    category.set("BRICK INSULATION MISC");
    EXPECT_EQ(category.id(2), Id::MISC);
    const MaterialCategory before = category;
    for (const auto & [text, message] : std::initializer_list<std::pair<const char *, const char *>>{
             {"FOO",            "Invalid parameter value 'FOO' for keyword 'CATEGORY'!"},
             {"14",             "Invalid parameter value '14' for keyword 'CATEGORY'!" },
             {"",               "Invalid parameter value '' for keyword 'CATEGORY'!"   },
             {"BRICK, FOO",     "Couldn't parse 2nd category. FOO"                     },
             {"BRICK BRICK 1x", "Couldn't parse 3rd category. 1x"                      },
             {"1 2 3 4",        "Expected at most three categories, got '1 2 3 4'."    },
    }) {
        const auto chain = chainOf([&, line = text] { category.set(line); });
        ASSERT_FALSE(chain.empty()) << text;
        EXPECT_EQ(chain.back().message, message);
        EXPECT_EQ(chain.back().where, "[MaterialCategory::set]  ");
    }
    EXPECT_EQ(category, before);
}

/// Files before version 6: no header, other section names.
TEST(MaterialFile, ReadsSectionedFilesBeforeVersionSix) {
    Warnings log;
    const Material material = materialFrom(R"(
; from long ago
[MATERIAL]
  NAME  = Brick
  FLAGS = AIRTIGHT ONLY_HYGROSCOPIC SHINY WOODBASED
  RHO = 1800 kg/m3
[IDENTIFICATION]
  PRODUCER = Works
  SAMPLINGMETHOD = 3
  CLASSIFICATION =
  MASTERFORMAT2 = 1
  DEPRICATED_STATE = 1
  COLOR = #ff0000
  UNIQUE_ID = A7
[PARAMETER]
  CET = 850 J/kgK
[MRC]
  FUNCTION = Ol(pC)
    0 5 10
    0.3 0.1 0
[MOISTTRANS]
  FUNCTION = My(Phi)
    0 1
    10 5
[HEATTRANS]
[AIRTRANS]
)",
                                           "old.mat");
    EXPECT_EQ(material.m_versionMajor, 5);
    EXPECT_EQ(material.m_versionMinor, 6);
    EXPECT_EQ(material.name(), "Brick");
    EXPECT_EQ(*material.m_identification.m_name.find("en"), "Brick");
    EXPECT_EQ(material.m_identification.m_flags, 2U | 32U);
    EXPECT_EQ(material.m_identification.m_samplingMethod, MaterialIdentification::SamplingMethods::S_CAST_CUT_KOR);
    EXPECT_EQ(material.parameter(Storage::CE).value(), 850);
    EXPECT_TRUE(material.m_moistureStorage.has(MoistureStorage::Functions::Theta_l_pC_de));
    EXPECT_TRUE(material.m_moistureTransport[0].has(MoistureTransport::Functions::mew_RH));
    EXPECT_THAT(log.m_warnings, testing::IsSupersetOf({"Flag ONLY_HYGROSCOPIC is no longer supported! Skipping it now.",
                                                       "Unknown flag found! Skipping it for now...",
                                                       "CLASSIFICATION is obsolete!", "MASTERFORMAT2N is obsolete!"}));
    const Material converted = materialFrom(material.content());
    EXPECT_EQ(converted.m_versionMajor, 6);
    EXPECT_EQ(converted.content(), material.content());
}

TEST(MaterialFile, TextsOfOtherSystemsAreRead) {
    EXPECT_EQ(materialFrom("[MATERIAL]\nNAME = Geb\xE4ude\n", "a.mat").name(), "Gebäude");
    const Material material = materialFrom(brickText());
    EXPECT_TRUE(materialFrom("\xEF\xBB\xBF" + brickText()) == material) << "byte order mark";
    for (const char * lineEnd : {"\r\n", "\r"})
        EXPECT_TRUE(materialFrom(KOR::replaced(brickText(), "\n", lineEnd)) == material);
}

/// What is wrong with a file, and what the user is told: the cause, and one message further up where it matters.
TEST(MaterialFile, BrokenFilesAreRefused) {
    const std::string function = "  FUNCTION = Theta_l(RH)\n";
    struct Row {
        std::string content, cause, above;
    };
    const Row rows[] = {
  // clang-format off
        {"H6MAXXXX 006.001\n", "Wrong second magic number in V6 - ASCII material file!", ""},
        {"H6MA", "Wrong second magic number in V6 - ASCII material file!", ""},
        {"H6MARLZ! 0x6.001\n", "Invalid version ' 0x6' in the header of a material file.", ""},
        {"H6MARLZ! -06.001\n", "Invalid version ' -06' in the header of a material file.", ""},
        {"H6MBRLZ! 006.001\n", "Cannot open file: 'brick_123.m6'", ""},
        {"", "Bad header in material file.", ""},
        {"; only\n\n ;remarks\n", "Bad header in material file.", ""},
        {"\x7F\x45LF\x02\x01\x01\x03", "Expected keyword, got '\x7F" "ELF    '!",
         "Error reading material base parameter section!"},
        {std::string("H6MARLZ! 006.001\n\0\1\2", 20), "The file holds binary data, not the text of a material.", ""},
        {HEADER + "RHO = 1\n", "Expected a section line, got 'RHO = 1'!", ""},
        {HEADER + "[IDENTIFICATION]\n[IDENTIFICATION]\n", "Section 'IDENTIFICATION' is given twice.", ""},
        {identification("NAME"), "Expected keyword, got 'NAME'!", "Error reading material identification section!"},
        {identification("NAME ="), "Missing value for keyword 'NAME'!", ""},
        {identification("COLOUR = #12"), "Invalid parameter value '#12' for keyword 'COLOUR'!", ""},
        {identification("FLAGS = WET"), "Invalid parameter value 'WET' for keyword 'FLAGS'!", ""},
        {identification("HATCHING = 14"), "Invalid parameter value '14' for keyword 'HATCHING'!", ""},
        {identification("SAMPLING_METHOD = 1"), "Invalid parameter value '1' for keyword 'SAMPLING_METHOD'!", ""},
        {"[IDENTIFICATION]\nSAMPLINGMETHOD = -1\n",
         "An unsigned int must be selected for sampling method! Please check Hygrion 6 material file specification!", ""},
        {storage("RHO"), "Expected keyword, got 'RHO'!", "Error reading material base parameter section!"},
        {storage("RHO ="), "Missing value to parameter RHO.", ""},
        {storage("RHOO = 1 kg/m3"), "Invalid or deprecated keyword 'RHOO'.", ""},
        {storage("RHO = nan kg/m3"), "Could not convert 'nan' into value.",
         "Invalid format of argument 'nan kg/m3' to keyword 'RHO'."},
        {storage("RHO = 1 W/mK"), "Unit 'W/mK' cannot be converted to 'kg/m3'.",
         "Invalid format of argument '1 W/mK' to keyword 'RHO'."},
        {section("MOISTURE_STORAGE", function + "0 1"), "Error reading data for function 'Theta_l(RH)'.",
         "Error reading moisture storage material data!"},
        {section("MOISTURE_TRANSPORT", "FUNCTION = mew(RH)\n0 1"),
         "Error reading data for function 'mew(RH)' because too less lines left.",
         "Error reading moisture transport material data!"},
        {section("AIR_TRANSPORT", "FUNCTION = lambda(T)\n0 1\n0 1"), "Unknown function type 'lambda(T)'.",
         "Error reading air transport data!"},
        {section("HEAT_TRANSPORT", "LAMBDA = 1 W/mK"), "Invalid or deprecated keyword 'LAMBDA' in this section!",
         "Error reading thermal transport data!"},
        {section("THERMAL_STORAGE", "u(T)"), "Expected keyword, got 'u(T)'!",
         "Error reading moisture storage material data!"},
        {section("VAPOR_CONTACT_RESISTANCE", "SD = 1"), "Invalid or deprecated keyword 'SD' in this section!",
         "Error reading material vapor transport resistance section!"},
        {section("VAPOR_CONTACT_RESISTANCE", "SD = 1"), "Invalid or deprecated keyword 'SD' in this section!",
         "Error reading vapor transport resistance section!"},
        {section("MOISTURE_STORAGE", function + "0 0.5 0.4\n0 1 2"), "",
         "Error reading data for function 'Theta_l(RH)'."},
        {section("MOISTURE_STORAGE", function + "0 nan\n0 1"), "", "Error reading data for function 'Theta_l(RH)'."},
        {section("MOISTURE_STORAGE", function + "0 1 2\n0 1"), "Number of x [3] and y [2] values differs!", ""},
        {section("MOISTURE_STORAGE", "[MODEL]\nTYPE = GAUSS\n[MODEL]\nTYPE = GAUSS"),
         "Multiple definitions of model identifier 'GAUSS'!", ""},
        {section("MOISTURE_STORAGE", "[MODEL]\nTYPE = GAUSS\nGAUSS_Wi"),
         "Expected a keyword and a value, got 'GAUSS_Wi'.", "Error reading model parameter #1."},
        {section("MOISTURE_STORAGE", "[MODEL]\nGAUSS_Wi = 1"), "Expected a line 'TYPE = ' with the model's identifier.",
         "Error reading model data!"},
        {section("HEAT_TRANSPORT_W", "FUNCTION = lambda(T)\n0 50\n1 2"),
         "Found W-direction parameters but no V-direction parameters are given. Invalid anisotropic material format!", ""},
  // clang-format on
    };
    Warnings log;
    for (const auto & [content, cause, above] : rows) {
        Material material = materialFrom(brickText());
        const auto chain = chainOf([&, &file = content] { material.readContent(file, "brick_123.m6"); });
        ASSERT_FALSE(chain.empty()) << content;
        if (!cause.empty()) {
            EXPECT_EQ(chain.front().message, cause) << content;
        }
        if (!above.empty()) {
            EXPECT_THAT(chain, holds(above)) << content;
            EXPECT_EQ(chain[chain.size() - 2].message, "Error reading material file 'brick_123.m6'.");
            EXPECT_EQ(chain[chain.size() - 2].where, "[Material::readASCII]");
        }
        EXPECT_EQ(chain.back().message, "Error reading material from file 'brick_123.m6'.");
        EXPECT_TRUE(material == Material()) << "not cleared: " << content;
    }
}

TEST(MaterialFile, DirectionWWithoutVPassesOnDemand) {
    Material material;
    material.m_allowWithoutV = 1;
    material.readContent(section("HEAT_TRANSPORT_W", "FUNCTION = lambda(T)\n0 50\n1 2"), "brick_1.m6");
    EXPECT_TRUE(material.isAnisotropic());
}

TEST(MaterialFile, LaterDefinitionsWinInAModelBlock) {
    Warnings log;
    const Material material =
        materialFrom(section("MOISTURE_STORAGE", "[MODEL]\nTYPE = GAUSS\nA = 1\nA = 2\nFUNCTION = f\n0 1\n0 1\n"
                                                 "FUNCTION = f\n0 2\n0 3"));
    const ModelDataContainer & model = material.m_moistureStorage.models().models().front();
    EXPECT_EQ(*model.find("A"), "2");
    EXPECT_EQ(model.m_functions.front().second.y(), (std::vector<double>{0, 3}));
    EXPECT_THAT(log.m_warnings, ElementsAre("Duplicate definition of parameter 'A' within model data block. "
                                            "Overwriting previous definition.\n",
                                            "Duplicate definition of function 'f' within model data block. "
                                            "Overwriting previous definition.\n"));
}

TEST(MaterialFile, FunctionsThatCouldNotBeReadAreNotWritten) {
    Material material = materialFrom(brickText());
    KOR::LinearSpline spline;
    spline.setPoints({0, 2, 1}, {0, 0, 0});
    material.m_moistureStorage.setFunction(MoistureStorage::Functions::Theta_l_RH, spline);
    const auto chain = chainOf([&] { material.content(); });
    ASSERT_FALSE(chain.empty());
    EXPECT_EQ(chain[0].message, "Function 'Theta_l(RH)' holds points that could not be read again.");
    EXPECT_EQ(chain[0].where, "[MoistureStorage::write]");
}

TEST(MaterialFile, EndlessSectionsAreRefusedBeforeTheyAreRead) {
    Warnings log;
    std::string lines;
    for (int i = 0; i < 10'001; ++i)
        lines += "FOO = 1\n";
    EXPECT_EQ(chainOf([&] { materialFrom(identification(lines)); }).front().message,
              "Section 'IDENTIFICATION' has more than 10000 lines.");
    EXPECT_EQ(chainOf([&] { materialFrom("NAME = x\n" + lines, "a.mat"); }).front().message,
              "More than 10000 lines before the first section.");
    EXPECT_THAT(log.m_warnings, IsEmpty());
    EXPECT_EQ(materialFrom(section("MEASURED_DATA", lines)).m_measuredData.m_lines.size(), 10'001U);
    EXPECT_EQ(chainOf([&] { materialFrom(section("MEASURED_DATA", std::string(1'000'001, '\n'))); }).front().message,
              "The file has more than 1000000 lines.");
}

TEST(MaterialFile, TooManyValuesAreRefusedBeforeTheyAreRead) {
    std::string line;
    for (int i = 0; i < 10'000'000; ++i)
        line += "1 ";
    for (const char * begin : {"", "[MODEL]\nTYPE = A\n"}) {
        const auto chain = chainOf([&, b = std::string(begin)] {
            materialFrom(section("HEAT_TRANSPORT", b + "FUNCTION = lambda(T)\n" + line + "\n" + line));
        });
        ASSERT_FALSE(chain.empty());
        EXPECT_EQ(chain.front().message, "Function 'lambda(T)' has too many values, expected at most 100000.");
    }
    EXPECT_EQ(chainOf([&] { materialFrom(section("HEAT_TRANSPORT", "[MODEL]\nTYPE = A\nGAUSS_Wi = " + line)); })
                  .front()
                  .message,
              "The value of keyword 'GAUSS_Wi' is too long.");
}

/// Every prefix of a file and flips of its bytes: read or refused, never worse.
TEST(MaterialFile, DamagedFilesAreReadOrRefused) {
    Warnings log;
    const std::string whole = materialFrom(brickText()).content();
    Material material;
    const auto tryRead = [&](const std::string & content) {
        try {
            material.readContent(content, "brick_1.m6");
        } catch (const KOR::Exception &) {
            EXPECT_TRUE(material == Material());
        }
    };
    for (std::size_t size = 0; size < whole.size(); ++size)
        tryRead(whole.substr(0, size));
    unsigned int random = 1;
    for (int i = 0; i < 10'000; ++i) {
        std::string damaged = whole;
        random = random * 1664525u + 1013904223u;
        char & byte = damaged[(random >> 8) % damaged.size()];
        byte = static_cast<char>(byte ^ (1 << (random >> 29)));
        tryRead(damaged);
    }
}

} // namespace MM
