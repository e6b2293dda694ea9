#include "TestTools.h"

#include <KOR/Keywords.h>

using KOR::KeywordCategory;
using KOR::KeywordIndexing;
using KOR::KeywordRow;

namespace {

constexpr KeywordRow SHAPE[] = {
    {"Round",            "A round one.",  ""  },
    {"Square Box Crate", "A square one.", "m2"},
    {"Box2",             "",              "m" },
};
constexpr KeywordRow BITS[] = {
    {"Fast",  "Quick.",   ""},
    {"Safe",  "Careful.", ""},
    {"Round", "Again.",   ""}
};
constexpr KeywordCategory CATEGORIES[] = {
    {"Thing::shape_t",           SHAPE},
    {"Thing::mode_t",            BITS,  KeywordIndexing::BITS},
    {"Thing::step_t",                          BITS,                 KeywordIndexing::FROM_ONE},
    {"Thing::none_t", {}},
};
const KOR::KeywordTable TABLE(CATEGORIES);

} // namespace

TEST(Keywords, AreFoundByIndexAndByWord) {
    struct Row {
        const char * category;
        int index;
        const char *keyword, *description, *unit;
    };
    const Row rows[] = {
        {"Thing::shape_t", 0, "Round",  "A round one.",  ""  },
        {"Thing::shape_t", 1, "Square", "A square one.", "m2"},
        {"Thing::shape_t", 2, "Box2",   "",              "m" },
        {"Thing::mode_t",  1, "Fast",   "Quick.",        ""  },
        {"Thing::mode_t",  4, "Round",  "Again.",        ""  },
        {"Thing::step_t",  3, "Round",  "Again.",        ""  },
    };
    for (const Row & row : rows) {
        EXPECT_EQ(TABLE.Keyword(row.category, row.index), row.keyword);
        EXPECT_EQ(TABLE.Description(row.category, row.index), row.description);
        EXPECT_EQ(TABLE.Unit(row.category, row.index), row.unit);
        bool deprecated = true;
        EXPECT_EQ(TABLE.Enumeration(row.category, row.keyword, &deprecated), row.index);
        EXPECT_FALSE(deprecated);
        EXPECT_TRUE(TABLE.KeywordExists(row.category, row.keyword));
    }
    for (const char * alternative : {"Box", "Crate"}) {
        bool deprecated = false;
        EXPECT_EQ(TABLE.Enumeration("Thing::shape_t", alternative, &deprecated), 1);
        EXPECT_TRUE(deprecated);
        EXPECT_EQ(TABLE.Enumeration("Thing::shape_t", alternative), 1);
    }
    EXPECT_EQ(TABLE.MaxIndex("Thing::shape_t"), 2);
    EXPECT_EQ(TABLE.MaxIndex("Thing::mode_t"), 4);
    EXPECT_EQ(TABLE.MaxIndex("Thing::step_t"), 3);
}

TEST(Keywords, UnknownOnesAreNamed) {
    struct Row {
        const char *message, *where;
        void (*action)();
    };
    const Row rows[] = {
        {"Cannot determine keyword for enumeration type 'Thing::shape_t' and index '3'.",                      "[KeywordList::Keyword]",
         [] { TABLE.Keyword("Thing::shape_t", 3); }                                                                                                                                               },
        {"Cannot determine keyword for enumeration type 'Thing::mode_t' and index '3'.",                       "[KeywordList::Keyword]",
         [] { TABLE.Keyword("Thing::mode_t", 3); }                                                                                                                                                },
        {"Cannot determine keyword for enumeration type 'Thing::step_t' and index '0'.",                       "[KeywordList::Keyword]",
         [] { TABLE.Keyword("Thing::step_t", 0); }                                                                                                                                                },
        {"Cannot determine description for enumeration type 'Thing::shape_t' and index '-1'.",
         "[KeywordList::Description]",                                                                                                   [] { TABLE.Description("Thing::shape_t", -1); }          },
        {"Cannot determine default unit for enumeration type 'Thing::Shape_t' and index '0'.",                 "[KeywordList::Unit]",
         [] { TABLE.Unit("Thing::Shape_t", 0); }                                                                                                                                                  },
        {"Cannot determine enumeration value for enumeration type 'Thing::shape_t' and keyword 'round'.",
         "[KeywordList::Enumeration]",                                                                                                   [] { TABLE.Enumeration("Thing::shape_t", "round"); }     },
        {"Cannot determine enumeration value for enumeration type 'Thing::shape_t' and keyword 'Square Box'.",
         "[KeywordList::Enumeration]",                                                                                                   [] { TABLE.Enumeration("Thing::shape_t", "Square Box"); }},
    };
    for (const Row & row : rows) {
        const auto ex = caught(row.action);
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, row.where);
    }
    EXPECT_ANY_THROW(TABLE.Enumeration("Thing::shape", "Round"));
    EXPECT_ANY_THROW(TABLE.MaxIndex(""));
    EXPECT_ANY_THROW(TABLE.KeywordExists("Thing::sape_t", "Round"));
    for (const char * word : {"", "round", "Box ", "Boxx", "Squ", " "})
        EXPECT_FALSE(TABLE.KeywordExists("Thing::shape_t", word)) << word;
    EXPECT_FALSE(TABLE.KeywordExists("Thing::none_t", ""));
}
