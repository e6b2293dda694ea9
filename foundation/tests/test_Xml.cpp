#include "TestTools.h"

namespace xml = KOR::xml;
using namespace std::string_literals;

namespace {

std::string repeated(const std::string & text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

std::string nested(std::size_t levels) {
    return repeated("<a>", levels) + repeated("</a>", levels);
}

std::string withAttributes(std::size_t count) {
    std::string result = "<a";
    for (std::size_t i = 0; i < count; ++i)
        result += " x" + std::to_string(i) + "='1'";
    return result + "/>";
}

/// What a document with this name and text looks like after printing and parsing it.
std::pair<std::string, std::string> reread(const std::string & attribute, const std::string & text) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement * root = document.LinkEndChild(new TiXmlElement("root"))->ToElement();
    xml::setAttribute(xml::appendText(*root, "child", text), "name", attribute);
    const ParsedXml again(xml::print(document));
    const TiXmlElement & child = *again.root().FirstChildElement();
    return {xml::attribute(child, "name").value_or("missing"), xml::text(child)};
}

} // namespace

struct Hostile {
    const char * name;
    std::string content;
    int line;
    const char * description;
};
class HostileXml : public testing::TestWithParam<Hostile> {};

TEST_P(HostileXml, IsRefusedWithItsLine) {
    TiXmlDocument document;
    const auto error = xml::parse(GetParam().content, document);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description, GetParam().description);
    EXPECT_EQ(error->line, GetParam().line);
    EXPECT_EQ(document.FirstChild(), nullptr);
    EXPECT_EQ(caught([] { xml::check(GetParam().content); }).message(),
              KOR::text("Error in XML file, line %1: %2", error->line, error->description));
}

constexpr const char * BAD_UTF8 = "The file holds bytes that are not UTF-8, it is damaged or in another encoding.";
constexpr const char * NO_DTD = "Document type definitions are not accepted.";

const Hostile HOSTILE[] = {
    {"Empty",                                              "",                                                                  1,       "The file has no root element."                                                                },
    {"Blank",                                              " \n\n",                                                             3,       "The file has no root element."                                                                },
    {"OnlyDeclaration",                                    "<?xml version='1.0'?>\n",                                           2,       "The file has no root element."                                                                },
    {"OnlyComment",                                        "<!-- a -->",                                                        1,       "The file has no root element."                                                                },
    {"Binary",                                             "PK\x03\x04\n",                                                      1,       "Text outside of the root element."                                                            },
    {"Nul",                                                "<a>\n\0</a>"s,                                                      2,       "The file holds a NUL character, it is not a text file in UTF-8."                              },
    {"Latin1",                                             "<a>\n\n\xfc</a>",                                                   3,       BAD_UTF8                                                                                       },
    {"EndsInsideCharacter",                                "<a>\xe2\x82",                                                       1,       BAD_UTF8                                                                                       },
    {"Overlong",                                           "<a>\xc0\xbc</a>",                                                   1,       BAD_UTF8                                                                                       },
    {"Surrogate",                                          "<a>\xed\xa0\x80</a>",                                               1,       BAD_UTF8                                                                                       },
    {"BeyondUnicode",                                      "<a>\xf4\x90\x80\x80</a>",                                           1,       BAD_UTF8                                                                                       },
    {"Utf16",                                              "\xff\xfe<\0a\0/\0>\0"s,                                             1,       "The file holds a NUL character, it is not a text file in UTF-8."                              },
    {"OtherEncoding",                                      "<?xml version='1.0' encoding='ISO-8859-1'?><a/>",                   1,
     "The file declares an encoding other than UTF-8."                                                                                                                                                                                  },
    {"Doctype",                                            "<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY b 'c'>]>\n<a>&b;</a>", 2,       NO_DTD                                                                                         },
    {"LateDoctype",                                        "<a>\n<!DOCTYPE a></a>",                                             2,       NO_DTD                                                                                         },
    {"Instruction",                                        "<a>\n<?php echo ?></a>",                                            2,       "Processing instructions are not accepted."                                                    },
    {"TwoRoots",                                           "<a/>\n<b/>",                                                        2,       "A second root element 'b'."                                                                   },
    {"TextBehindRoot",                                     "<a/>\nb",                                                           2,       "Text outside of the root element."                                                            },
    {"CdataBehindRoot",                                    "<a/><![CDATA[b]]>",                                                 1,       "Character data outside of the root element."                                                  },
    {"TooDeep",                                            nested(101),                                                         1,       "Elements are nested deeper than 100 levels."                                                  },
    {"MuchTooDeep",                                        "<a>\n" + repeated("<b>",                                            100000), 2,                                                                                               "Elements are nested deeper than 100 levels."},
    {"TooManyAttributes",                                                    withAttributes(257),                                                                                                     1,                                      "Element 'a' has more than 256 attributes."                               },
    {"MuchTooManyAttributes",                                                    withAttributes(40000),                                                                                                 1,                                "Element 'a' has more than 256 attributes."},
    {"TooLarge",                                                    "<a>" + std::string(xml::MAX_FILE_SIZE,                                                                                                              ' ') + "</a>",                            1,   "The file is larger than 64 MiB."},
    {"OpenComment",                   "<a>\n<!-- b </a>",                                                                                      2,                                                                                 "A comment is not closed."                                                                                                                                         },
    {"OpenCdata",                          "<a><![CDATA[b]]</a>",                                                                                             1,          "A CDATA section is not closed."},
    {"OpenDeclaration",                    "<?xml version='1.0'>\n<a/>",                                                                                       1,                                                                     "A name is missing or malformed."                                                                                                                                                                                                   },
    {"OpenElement",                   "<a>\n<b>\n</b>\n",                                                                                      4,             "The file ends inside of element 'a'."},
    {"OpenTag",              "<a",                                                                                 1,                                                                    "A name is missing or malformed."                                                                                                                                                                                                                                                                             },
    {"OpenAttribute",                   "<a\nb='c></a>",                                                                                      2,            "The value of attribute 'b' is not closed."},
    {"BareAttribute",         "<a b=c/>",                                                                            1,                                                          "The value of attribute 'b' is not quoted."                                                                                                                                                                                                                                                                                                                                          },
    {"NoValue",         "<a b/>",                                                                            1,                  "Attribute 'b' has no value."},
    {"WrongEnd",                       "<a>\n<b></a></b>",                                                                                          2,                                                                       "The end tag 'a' does not match the start tag 'b'."                                                                                                                                                                                                                                                                                                                                                                       },
    {"EndOnly", "</a>",                                                                    1,"The end tag 'a' does not match the start tag ''."},
    {"DigitName",  "<1a/>",                                                                     1,                                                                      "A name is missing or malformed."                                                                                                                                                                                                                                                                                                                                                                                                                                              },
    {"BareLess",                   "<a>1 < 2</a>",                                                                                      1,               "A name is missing or malformed."},
    {"BareAmpersand",                   "<a>\nb & c</a>",                                                                                      2,                                                                 "Malformed character reference '& c</a>'."                                                                                                                                                                                                                                                                                                                                                                                                                                                                                              },
    {"UnknownEntity",          "<a>&nbsp;</a>",                                                                             1,      "Malformed character reference '&nbsp;</a>'."},
    {"NulReference",       "<a>&#0;</a>",                                                                          1,                                                               "Malformed character reference '&#0;</a>'."                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                            },
    {"HugeReference",         "<a>&#x110000;</a>",                                                                            1,       "Malformed character reference '&#x110000;</a'."},
    {"SurrogateReference",    "<a b='&#xD800;'/>",                                                                       1,                                                     "Malformed character reference '&#xD800;'/>'."                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                               },
    {"CutReference",      "<a>&#x4",                                                                         1,               "Malformed character reference '&#x4'."},
};
INSTANTIATE_TEST_SUITE_P(Check, HostileXml, testing::ValuesIn(HOSTILE),
                         [](const auto & row) { return std::string(row.param.name); });

TEST(Xml, ReadsWhatIsWellFormed) {
    struct Row {
        std::string content, name, text;
    };
    const Row rows[] = {
        {"<a name='n'>t</a>",                                                                                "n",                "t"                },
        {"\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\n<!-- - -->\n<a name=\"n\" >t</a >\n<!---->\n", "n",                "t"                },
        {"<a\tname\n=\n'it''s'/>",                                                                           "",                 ""                 },
        {"<a name='&quot;&#246;&#xF6;&lt;'>&amp;amp; &gt;</a>",                                              "\"öö<",          "&amp; >"          },
        {"<a name='>'><![CDATA[<b>&amp;]]> c</a>",                                                           ">",                "<b>&amp; c"       },
        {"<a name=''>  one\n\n two <!-- not this -->three\t</a>",                                            "",                 "one\n\n two three"},
        {"<a name='\xF0\x9F\x98\x80'>日本</a>",                                                            "\xF0\x9F\x98\x80", "日本"           },
    };
    for (const Row & row : rows) {
        TiXmlDocument document;
        const auto error = xml::parse(row.content, document);
        if (row.name.empty() && row.text.empty()) {
            EXPECT_TRUE(error);
            continue;
        }
        ASSERT_FALSE(error) << error->description << " in " << row.content;
        EXPECT_EQ(xml::attribute(*document.RootElement(), "name"), row.name);
        EXPECT_EQ(xml::text(*document.RootElement()), row.text);
    }
    for (const std::string & limit : {nested(100), withAttributes(256)}) {
        TiXmlDocument document;
        EXPECT_FALSE(xml::parse(limit, document));
    }
}

TEST(Xml, EveryPrefixIsRefusedOrReadAlike) {
    const std::string whole = "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\n<r a='&#x41;'>\n<!-- ü -->"
                              "<b c=\"d\"/>é<![CDATA[<]]>&lt;\n</r>\n";
    const std::size_t end = whole.rfind('>') + 1;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        // A buffer without a terminator: reading beyond the end is seen by the sanitizer.
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const bool isRefused = [&] {
            try {
                xml::check({cut.data(), cut.size()});
                return false;
            } catch (const KOR::Exception &) {
                return true;
            }
        }();
        EXPECT_EQ(isRefused, length < end) << length;
    }
    for (std::size_t i = 0; i < whole.size(); ++i)
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = whole;
            flipped[i] = static_cast<char>(flipped[i] ^ (1 << bit));
            TiXmlDocument document;
            const auto error = xml::parse(flipped, document);
            EXPECT_EQ(document.RootElement() == nullptr, error.has_value()) << flipped;
        }
}

TEST(Xml, PrintsWhatParsesToTheSame) {
    for (const std::string & text : {
             "plain"s,
             "&#x41;"s,
             "&#65;"s,
             "&amp;#x41;"s,
             "a &#x b &#xZZ; &#x"s,
             "<b> & \"c\" 'd' ]]>"s,
             "two\nlines\r\nthree\ttabs"s,
             "Würfel µg/m³ 日本 \xF0\x9F\x98\x80"s,
             "\xEF\x9F\xBF"s,
             "\xEF\x9F\xBF#x"s + "41;",
             "a  b   c"s,
             "--> <!-- --"s,
             "\x01\x1f"s,
             "100 %1 %%"s,
         }) {
        if (text == "\xEF\x9F\xBF#x41;") // the one text that is given up for the sake of "&#x41;"
            continue;
        const auto [attribute, content] = reread(text, text);
        EXPECT_EQ(attribute, text);
        EXPECT_EQ(content, text);
    }
    // White space around an element's text is layout, in an attribute it is content.
    EXPECT_EQ(reread(" a\n", " a\n"), std::pair(" a\n"s, "a"s));
    EXPECT_EQ(reread("", ""), std::pair(""s, ""s));
}

TEST(Xml, PrintsIndentedWithDeclaration) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement * root = document.LinkEndChild(new TiXmlElement("root"))->ToElement();
    xml::appendComment(*root, "a -- b --- c-");
    xml::setAttribute(xml::appendElement(*root, "b"), "c", "1");
    xml::appendText(*root, "d", "e");
    const std::string printed = xml::print(document);
    EXPECT_EQ(printed, "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<root>\n  <!-- a - - b - - - c- -->\n"
                       "  <b c=\"1\" />\n  <d>e</d>\n</root>\n");
    EXPECT_EQ(xml::print(ParsedXml(printed).document), printed);
}

TEST(Xml, CutsTheHeadOfAFile) {
    struct Row {
        std::string content, document;
        bool hasSection;
    };
    const std::string upToInfo = "<?xml version='1.0'?>\n<r v='1'>\n<!-- <Info/> --><a><Info/></a>\n<Info><b/></Info>";
    const Row rows[] = {
        {upToInfo + "<c>",                upToInfo + "</r>", true },
        {upToInfo + "<c>\xe2\x82",        upToInfo + "</r>", true }, // cut inside a character
        {upToInfo + "<c & <<< malformed", upToInfo + "</r>", true },
        {"<r><Info/>",                    "<r><Info/></r>",  true },
        {"<r><Inf",                       "<r></r>",         false},
        {"<r><Info>",                     "<r></r>",         false},
        {"<r><a/></r>",                   "<r><a/></r>",     false},
        {"<r/>",                          "<r/>",            false},
        {"<Info/>",                       "<Info/>",         false},
        {"<r v='1",                       "",                false},
        {"no xml",                        "",                false},
    };
    for (const Row & row : rows) {
        const xml::Head head = xml::head(row.content, "Info");
        EXPECT_EQ(head.document, row.document);
        EXPECT_EQ(head.hasSection, row.hasSection) << row.content;
    }
}

TEST(Xml, ReadersNameLineAttributeAndChild) {
    constexpr xml::ElementTexts TEXTS{
        .where = "[Thing::readXML]",
        .missingAttr = "Expected '%1' attribute in Thing.",
        .unknownTag = "Unknown element '%1' in Thing.",
        .wrapping = "Error reading Thing.",
    };
    struct Row {
        const char *content, *cause;
    };
    const Row rows[] = {
        {"<Things>\n<Thing/></Things>",                                   "Error in XML file, line 2: Expected 'name' attribute in Thing."},
        {"<Things>\n<Thing name='a'>\n<b/></Thing></Things>",
         "Error in XML file, line 3: Unknown element 'b' in Thing."                                                                       },
        {"<Things>\n<Thing name='a'>\n<Size>big</Size></Thing></Things>",
         "Error in XML file, line 3: Could not convert 'big' into value."                                                                 },
        {"<Things><Thing name='a'>\n<Size><b/></Size></Thing></Things>",
         "Error in XML file, line 2: Unexpected element 'b' in the text of element 'Size'."                                               },
    };
    int size = 0;
    const auto read = [&](const TiXmlElement & element) {
        xml::readElement(element, TEXTS, [&](const xml::ElementReader & reader) {
            reader.attribute("name");
            reader.children({
                {"Size", [&](const auto & child) { size = KOR::string2val<int>(xml::text(child)); }}
            });
        });
    };
    for (const Row & row : rows) {
        const ParsedXml parsed(row.content);
        const auto ex = caught([&] { read(*parsed.root().FirstChildElement()); });
        EXPECT_EQ(ex.cause(), row.cause);
        EXPECT_EQ(ex.message(), "Error reading Thing.");
        EXPECT_EQ(ex.chain().back().where, "[Thing::readXML]");
    }
    read(ParsedXml("<Thing name='a'> <!-- c --> <Size> 3 </Size> </Thing>").root());
    EXPECT_EQ(size, 3);
}
