#include <KOR/Xml.h>

#include <gtest/gtest.h>

namespace {

TEST(Xml, HeadOfADocument) {
    struct Row {
        const char * content;
        const char * document;
        bool hasSection;
    };
    for (const Row & row : {
             Row{"<R a='1'><I><X/></I><J>",                  "<R a='1'><I><X/></I></R>",                 true },
             Row{"<R><J/><I/><broken",                       "<R><J/><I/></R>",                          true },
             Row{"<R><J><I/></J><broken",                    "<R></R>",                                  false},
             Row{"<?xml version='1.0'?><!--c--><R><J/></R>", "<?xml version='1.0'?><!--c--><R><J/></R>", false},
             Row{"<R/>",                                     "<R/>",                                     false},
             Row{"<R><I>\xC3",                               "<R></R>",                                  false},
             Row{"no XML",                                   "",                                         false},
             Row{"",                                         "",                                         false}
    }) {
        const KOR::xml::Head head = KOR::xml::head(row.content, "I");
        EXPECT_EQ(head.document, row.document);
        EXPECT_EQ(head.hasSection, row.hasSection);
    }
}

TEST(Xml, RefusesMarkupThatTakesTooMuchMemory) {
    const auto repeated = [](const std::string & part, std::size_t count) {
        std::string content = "<R>";
        for (std::size_t i = 0; i < count; ++i)
            content += part;
        return content + "</R>";
    };
    constexpr std::size_t MANY = 40000;
    EXPECT_NO_THROW(KOR::xml::check(repeated("<a/>", 1000)));
    EXPECT_THROW(KOR::xml::check(repeated("<a/>", MANY)), KOR::Exception);
    EXPECT_THROW(KOR::xml::check(repeated("<a/>x", MANY)), KOR::Exception);
    EXPECT_NO_THROW(KOR::xml::check(repeated("<Range>0 0 0 0</Range>\n  ", MANY)));
    EXPECT_NO_THROW(KOR::xml::check(repeated("<KOR:Flag name='a'>true</KOR:Flag>", MANY)));
}

} // namespace
