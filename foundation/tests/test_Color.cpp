#include <KOR/Color.h>

using KOR::Color;

TEST(Color, ReadsTheNotationsOfHtml) {
    constexpr struct {
        const char * written;
        const char * html; ///< as written again; empty if refused
        std::uint32_t argb;
    } ROWS[] = {
        {"#ffe49d",    "#ffe49d",   0xFFFFE49D},
        {" #FFE49D ",  "#ffe49d",   0xFFFFE49D},
        {"#1a0",       "#11aa00",   0xFF11AA00},
        {"#80102030",  "#80102030", 0x80102030},
        {"#ff102030",  "#102030",   0xFF102030},
        {"#00000000",  "#00000000", 0         },
        {"Silver",     "#c0c0c0",   0xFFC0C0C0},
        {"aqua",       "#00ffff",   0xFF00FFFF},
        {"yellow",     "#ffff00",   0xFFFFFF00},
        {"",           "",          0         },
        {"#",          "",          0         },
        {"#12",        "",          0         },
        {"#12345",     "",          0         },
        {"#1234567",   "",          0         },
        {"#123456789", "",          0         },
        {"#-12345",    "",          0         },
        {"#12345g",    "",          0         },
        {"#0x1234",    "",          0         },
        {"ffe49d",     "",          0         },
        {"silver2",    "",          0         },
    };
    for (const auto & row : ROWS) {
        const auto color = Color::fromHtml(row.written);
        EXPECT_EQ(color.has_value(), *row.html != 0) << row.written;
        if (color) {
            EXPECT_EQ(color->html(), row.html);
            EXPECT_EQ(color->argb(), row.argb) << row.written;
            EXPECT_EQ(color->rgb(), row.argb & 0xFFFFFF);
            EXPECT_EQ(Color::fromArgb(row.argb), *color);
            EXPECT_EQ(Color::fromHtml(color->html()), color);
        }
    }
}
