#include <MM/KeywordList.h>

#include <MM/Material.h>

#include "MaterialTexts.h"

#include <functional>

using MM::KeywordList;
using testing::Test;

TEST(KeywordList, TypesAndEntriesHaveTheirNumbers) {
    EXPECT_EQ(KeywordList::table().categories().size(), 34U);
    struct Row {
        const char * category;
        int index;
        const char * keyword;
    };
    for (const auto & [category, index, keyword] : std::initializer_list<Row>{
             {"MaterialIdentification::Flags",           64, "FOILS"              },
             {"MaterialIdentification::SamplingMethods", 1,  "S_CAST_CUT_PRODUCER"},
             {"MeasuredData::Experiments",               16, "SORPTION_ISOTHERM"  },
             {"MoistureStorage::Functions",              0,  "Theta_l(pC)_de"     },
             {"Material::ParaTransport",                 21, "LAMBDA_DESIGN"      },
             {"Foils::Functions",                        1,  "sd-(rh)"            },
    }) {
        EXPECT_EQ(KeywordList::Keyword(category, index), keyword);
        EXPECT_EQ(KeywordList::Enumeration(category, keyword), index);
    }
    EXPECT_EQ(KeywordList::MaxIndex("MaterialIdentification::Flags"), 64);
    EXPECT_EQ(KeywordList::MaxIndex("MaterialIdentification::SamplingMethods"), 4);
    EXPECT_EQ(KeywordList::MaxIndex("Material::Sections"), 16);
}

TEST(KeywordList, OlderSpellingsAreToldApart) {
    bool isDeprecated = false;
    EXPECT_EQ(KeywordList::Enumeration("MoistureStorage::Functions", "Ol(RH)", &isDeprecated), 2);
    EXPECT_TRUE(isDeprecated);
    KeywordList::Enumeration("MoistureStorage::Functions", "Theta_l(RH)", &isDeprecated);
    EXPECT_FALSE(isDeprecated);
}

TEST(KeywordList, EntryWithoutDescriptionGivesItsKeywords) {
    bool exists = true;
    EXPECT_EQ(KeywordList::Description("Material::ParaStorage", 1, &exists), "Specific heat capacity of dry material");
    EXPECT_TRUE(exists);
    EXPECT_EQ(KeywordList::Description("AirTransport::Functions", 0, &exists), "Kg(Theta_l) Kg(Ol)");
    EXPECT_FALSE(exists);
    EXPECT_EQ(KeywordList::Description("MaterialIdentification::HatchingType", 13), "None");
}

TEST(KeywordList, WrongQuestionsAreNamed) {
    struct Row {
        std::function<void()> ask;
        const char *message, *where;
    };
    const Row rows[] = {
  // clang-format off
        {[] { KeywordList::Keyword("MaterialIdentification::Flags", 3); },
         "Cannot determine keyword for enumeration type 'MaterialIdentification::Flags' and index '3'.",
         "[KeywordList::Keyword]"},
        {[] { KeywordList::Description("Material::Sections", 17); },
         "Cannot determine description for enumeration type 'Material::Sections' and index '17'.",
         "[KeywordList::Description]"},
        {[] { KeywordList::Unit("MaterialIdentification::SamplingMethods", 0); },
         "Cannot determine default unit for enumeration type 'MaterialIdentification::SamplingMethods' and index '0'.",
         "[KeywordList::Unit]"},
        {[] { KeywordList::Enumeration("Material::Sections", "identification"); },
         "Cannot determine enumeration value for enumeration type 'Material::Sections' and keyword 'identification'.",
         "[KeywordList::Enumeration]"},
        {[] { KeywordList::MaxIndex("Material::Section"); }, "Invalid enumeration type 'Material::Section'.",
         "[KeywordList::MaxIndex]"},
  // clang-format on
    };
    for (const auto & [ask, message, where] : rows) {
        const auto chain = MM::chainOf(ask);
        ASSERT_EQ(chain.size(), 1U);
        EXPECT_EQ(chain[0].message, message);
        EXPECT_EQ(chain[0].where, where);
    }
}
