#include <KOR/Exception.h>
#include <KOR/LangString.h>

#include <random>

using KOR::LangString;

TEST(LangString, ReadsAndWritesOneLine) {
    constexpr struct {
        const char * line;
        const char * de;
        const char * fr; ///< in a language that most lines lack
        const char * written;
    } ROWS[] = {
        {"de:Ziegel|en:Brick",         "Ziegel",            "Brick",             "de:Ziegel|en:Brick"        },
        {" de: Ziegel | en:Brick ",    "Ziegel",            "Brick",             "de:Ziegel|en:Brick"        },
        {"Brick",                      "Brick",             "Brick",             "Brick"                     },
        {"all:Brick",                  "Brick",             "Brick",             "Brick"                     },
        {"de:Ziegel|Stone|it:Mattone", "Ziegel",            "Stone",             "de:Ziegel|Stone|it:Mattone"},
        {"de:Ziegel|it:Mattone",       "Ziegel",            "Ziegel",            "de:Ziegel|it:Mattone"      },
        {"fr:Brique|de:Ziegel",        "Ziegel",            "Brique",            "fr:Brique|de:Ziegel"       },
        {"see http://a.b: x",          "see http://a.b: x", "see http://a.b: x", "see http://a.b: x"         },
        {"pH:7",                       "pH:7",              "pH:7",              "pH:7"                      },
        {"DIN: 4108",                  "DIN: 4108",         "DIN: 4108",         "DIN: 4108"                 },
        {"all:de:x",                   "de:x",              "de:x",              "all:de:x"                  },
        {":x",                         ":x",                ":x",                ":x"                        },
        {"de:a:b",                     "a:b",               "a:b",               "de:a:b"                    },
        {"de:|en:Brick||",             "Brick",             "Brick",             "en:Brick"                  },
        {"de:a|de:b",                  "a|b",               "a|b",               "de:a\\|b"                  },
        {"a|b",                        "a|b",               "a|b",               "a\\|b"                     },
        {"de:a\\|b|en:c",              "a|b",               "c",                 "de:a\\|b|en:c"             },
        {"de:C:\\x\\\\|en:\\n",        "C:\\x\\",           "\\n",               "de:C:\\x\\\\|en:\\n"       },
        {"de:x\\",                     "x\\",               "x\\",               "de:x\\"                    },
        {"",                           "",                  "",                  ""                          },
        {"|",                          "",                  "",                  ""                          },
    };
    for (const auto & row : ROWS) {
        const LangString text(row.line);
        EXPECT_EQ(text.get("de"), row.de) << row.line;
        EXPECT_EQ(text.get("de_AT"), row.de) << row.line;
        EXPECT_EQ(text.get("fr"), row.fr) << row.line;
        EXPECT_EQ(text.toString(), row.written) << row.line;
        EXPECT_EQ(LangString(text.toString()), text) << row.line;
    }
}

TEST(LangString, IsSetByLanguage) {
    LangString text("de:Ziegel");
    text.set("en", " Brick\nred ");
    text.set("all", "en:x|y\\");
    text.set("de", "");
    text.set("it", "\\|");
    EXPECT_EQ(text.toString(), "en:Brick red|all:en:x\\|y\\\\|it:\\\\\\|");
    EXPECT_EQ(LangString(text.toString()), text);
    EXPECT_EQ(text.find("de"), nullptr);
    EXPECT_EQ(*text.find("all"), "en:x|y\\");
    for (const char * wrong : {"", "d", "DE", "deu", "d:"})
        EXPECT_THROW(text.set(wrong, "x"), KOR::Exception) << wrong;
}

TEST(LangString, LosesNothingOfAnyText) {
    std::mt19937 random(1);
    const std::string_view letters = "a\\|: de\\|";
    for (int round = 0; round < 5000; ++round) {
        LangString text;
        for (const char * language : {"de", "all", "en"}) {
            std::string value;
            for (unsigned int length = random() % 8; length > 0; --length)
                value += letters[random() % letters.size()];
            text.set(language, value);
        }
        ASSERT_EQ(LangString(text.toString()), text) << text.toString();
    }
}
