#include <HYGRION/KeywordList.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>

using HYGRION::KeywordList;

TEST(KeywordList, IsCompleteAndUsable) {
    std::size_t entries = 0;
    std::set<std::string_view> names;
    for (const KOR::KeywordCategory & category : KeywordList::table().categories()) {
        EXPECT_TRUE(names.insert(category.name).second) << category.name;
        entries += category.rows.size();
        std::set<std::string> words;
        for (int i = 0; i <= KeywordList::MaxIndex(category.name); ++i) {
            const std::string word = KeywordList::Keyword(category.name, i);
            EXPECT_TRUE(words.insert(word).second) << category.name << ' ' << word;
            EXPECT_EQ(KeywordList::Enumeration(category.name, word), i);
            EXPECT_FALSE(KeywordList::Description(category.name, i).empty());
            if (const auto unit = KeywordList::Unit(category.name, i); !unit.empty()) {
                EXPECT_NE(KOR::UnitList::instance().find(unit), nullptr) << unit;
            }
        }
    }
    EXPECT_EQ(names.size(), 53u);
    EXPECT_EQ(entries, 363u);
}

TEST(KeywordList, AlternativesAreReadAndTold) {
    bool deprecated = false;
    EXPECT_EQ(KeywordList::Keyword("FieldCond::condition_t", 5), "GroundWaterFlow");
    EXPECT_EQ(KeywordList::Enumeration("FieldCond::condition_t", "MediaFlow", &deprecated), 5);
    EXPECT_TRUE(deprecated);
    EXPECT_EQ(KeywordList::Enumeration("FieldCond::condition_t", "GroundWaterFlow", &deprecated), 5);
    EXPECT_FALSE(deprecated);
    EXPECT_TRUE(KeywordList::KeywordExists("FieldCond::condition_t", "MediaFlow"));
    EXPECT_FALSE(KeywordList::KeywordExists("FieldCond::condition_t", "GroundWaterFlow MediaFlow"));
}

TEST(KeywordList, BoundsAndUnits) {
    EXPECT_EQ(KeywordList::MaxIndex("ContactCond::flag_t"), 0);
    EXPECT_EQ(KeywordList::MaxIndex("ClimateCond::condition_t"), 30);
    EXPECT_EQ(KeywordList::Unit("BoundaryCond::para_t", 0), "");
    EXPECT_EQ(KeywordList::Unit("ContactCond::para_t", 0), "m2K/W");
    EXPECT_EQ(KeywordList::Unit("Interval::para_t", 3), "h");
    EXPECT_FALSE(KeywordList::KeywordExists("ClimateCond::condition_t", "temperature"));
}

struct KeywordFault {
    const char * name;
    std::function<void()> call;
    const char * message;
    const char * where;
};
class KeywordListFaults : public testing::TestWithParam<KeywordFault> {};

TEST_P(KeywordListFaults, NameCategoryAndEntry) {
    try {
        GetParam().call();
        FAIL() << "nothing thrown";
    } catch (const KOR::Exception & ex) {
        EXPECT_EQ(ex.cause(), GetParam().message);
        EXPECT_EQ(ex.chain().front().where, GetParam().where);
    }
}
INSTANTIATE_TEST_SUITE_P(
    Lookups, KeywordListFaults,
    testing::Values(
        KeywordFault{"IndexAbove", [] { KeywordList::Keyword("Assignment::type_t", 6); },
                     "Cannot determine keyword for enumeration type 'Assignment::type_t' and index '6'.",
                     "[KeywordList::Keyword]"},
        KeywordFault{"IndexBelow", [] { KeywordList::Description("Assignment::type_t", -1); },
                     "Cannot determine description for enumeration type 'Assignment::type_t' and index '-1'.",
                     "[KeywordList::Description]"},
        KeywordFault{"UnitOfUnknown", [] { KeywordList::Unit("BoudaryCond::flag_t", 0); },
                     "Cannot determine default unit for enumeration type 'BoudaryCond::flag_t' and index '0'.",
                     "[KeywordList::Unit]"},
        KeywordFault{"WrongCase", [] { KeywordList::Enumeration("ClimateCond::condition_t", "temperature"); },
                     "Cannot determine enumeration value for enumeration type 'ClimateCond::condition_t' and keyword "
                     "'temperature'.",
                     "[KeywordList::Enumeration]"},
        KeywordFault{"ExistsInUnknown", [] { KeywordList::KeywordExists("BoudaryCond::flag_t", "x"); },
                     "Invalid enumeration type 'BoudaryCond::flag_t'.", "[KeywordList::MaxIndex]"},
        KeywordFault{"EnumerationInUnknown", [] { KeywordList::Enumeration("BoudaryCond::flag_t", "x"); },
                     "Invalid enumeration type 'BoudaryCond::flag_t'.", "[KeywordList::MaxIndex]"}),
    [](const auto & fault) { return std::string(fault.param.name); });
