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

} // namespace
