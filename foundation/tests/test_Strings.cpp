#include <KOR/Strings.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(Strings, MalformedUtf8IsFoundAtEveryPlace) {
    const std::string good[] = {
        "", "a", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"};
    const std::string bad[] = {"\x80",
                               "\xC0\x80",
                               "\xC1\xBF",
                               "\xC3",
                               "\xC3(",
                               "\xE0\x9F\xBF",
                               "\xE2\x82",
                               "\xED\xA0\x80",
                               "\xF0\x8F\xBF\xBF",
                               "\xF4\x90\x80\x80",
                               "\xF0\x90\x80",
                               "\xF5\x80\x80\x80",
                               "\xFF"};
    for (std::size_t before = 0; before < 20; ++before)
        for (const std::string & start : good) {
            const std::string whole = std::string(before, 'x') + start;
            for (const char * rest : {"", "y", "yyyyyyyyyyyyyyyy"})
                EXPECT_EQ(KOR::validUtf8Length(whole + rest), (whole + rest).size());
            for (const std::string & fault : bad) {
                EXPECT_EQ(KOR::validUtf8Length(whole + fault), whole.size());
                EXPECT_EQ(KOR::validUtf8Length(whole + fault + "yyyyyyyyyyyyyyyy"), whole.size());
            }
        }
}

TEST(Strings, AreTakenApart) {
    using Parts = std::vector<std::string_view>;
    EXPECT_EQ(KOR::split("a,,b,", ','), (Parts{"a", "", "b", ""}));
    EXPECT_EQ(KOR::split("", ','), (Parts{""}));
    EXPECT_EQ(KOR::words("  a\tb\r\n c "), (Parts{"a", "b", "c"}));
    EXPECT_TRUE(KOR::words(" \n").empty());
    EXPECT_EQ(KOR::trimmed("\t a b\n"), "a b");
    EXPECT_EQ(KOR::trimmed(" \n"), "");
    EXPECT_EQ(KOR::lowered("ÄbC1"), "Äbc1");
    EXPECT_EQ(KOR::replaced("aXXXb", "XX", "X"), "aXXb");
    EXPECT_EQ(KOR::replaced("aa", "a", "aa"), "aaaa");
}
