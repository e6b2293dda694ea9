#include <KOR/Color.h>

#include <gtest/gtest.h>

namespace {

TEST(Color, ReadsHtmlNotationAndWritesItBack) {
    struct Row {
        const char * text;
        const char * written; ///< nullptr: refused
    };
    for (const Row & row : std::initializer_list<Row>{
             {"#ffe49d",   "#ffe49d"},
             {" #FFE49D ", "#ffe49d"},
             {"#0a8",      "#00aa88"},
             {"#ffe49",    nullptr  },
             {"ffe49d0",   nullptr  },
             {"#-f0000",   nullptr  },
             {"#ggg",      nullptr  },
             {"",          nullptr  }
    }) {
        const auto color = KOR::Color::fromHtml(row.text);
        EXPECT_EQ(color.has_value(), row.written != nullptr) << row.text;
        if (color && row.written != nullptr) {
            EXPECT_EQ(color->html(), row.written);
            EXPECT_EQ(KOR::Color::fromRgb(color->rgb()), *color);
        }
    }
}

} // namespace
