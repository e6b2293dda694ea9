#include "TestTools.h"

#include <KOR/LinearSpline.h>
#include <KOR/Parameter.h>
#include <KOR/Time.h>
#include <KOR/UnitVector.h>
#include <KOR/Version.h>

#include <clocale>
#include <locale>
#include <sstream>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

/// Takes a locale from a directory of ours. The C library never gives back what it notes of LOCPATH.
bool takeLocaleFrom(const std::filesystem::path & directory, const char * name) {
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler notOurLeak;
#endif
    setenv("LOCPATH", directory.c_str(), 1);
    if (std::setlocale(LC_ALL, name) == nullptr)
        return false;
    std::locale::global(std::locale(name));
    return true;
}

/// As Qt programs do, the test program takes the user's locale: all its tests must hold in any.
class UsersLocale : public testing::Environment {
    void SetUp() override {
        std::setlocale(LC_ALL, "");
        try {
            std::locale::global(std::locale(""));
        } catch (const std::runtime_error &) {
            std::locale::global(std::locale::classic()); // the environment names a locale that is not installed
        }
    }
};
const testing::Environment * const USERS_LOCALE = testing::AddGlobalTestEnvironment(new UsersLocale);

/// All ways in which numbers are written, one a line.
std::string everythingWritten() {
    std::ostringstream out;
    KOR::LinearSpline spline({0.5, 1234567.25}, {-1.5e-7, 1e22});
    spline.m_xUnit = KOR::Unit("mm");
    spline.write(out);
    TiXmlDocument document;
    TiXmlElement * root = document.LinkEndChild(new TiXmlElement("root"))->ToElement();
    spline.writeXML(*root);
    KOR::Parameter("p", 1234.5, KOR::Unit("mm")).writeXML(*root);
    KOR::UnitVector({1000000.5, 0.1}, KOR::Unit("C")).writeXML(*root, "KOR:UnitVector", "v");
    out << KOR::xml::print(document) << KOR::text("%1 %2\n", 0.5, 1234567) << KOR::toString(12345.678, 6) << '\n'
        << KOR::formatDuration(59.9) << KOR::formatDuration(1e6, KOR::Unit("h")) << '\n'
        << KOR::Time(2019, 31535999).toString() << ' ' << KOR::FILE_VERSION.text() << '\n'
        << KOR::dateRFC2822("%a %b", 0);
    return out.str();
}

} // namespace

TEST(Locale, NumbersAndNamesDoNotDependOnIt) {
    struct Restore {
        ~Restore() {
            std::setlocale(LC_ALL, before.c_str());
            std::locale::global(global);
            unsetenv("LOCPATH");
        }
        std::string before = std::setlocale(LC_ALL, nullptr);
        std::locale global;
    } const restore;
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
    const std::string expected = everythingWritten();

    const TemporaryDirectory directory;
    const std::string command = "localedef -i de_DE -f UTF-8 " + directory.file("de_DE.UTF-8") + " 2>/dev/null";
    if (std::system(command.c_str()) != 0 || !takeLocaleFrom(directory.path, "de_DE.UTF-8"))
        GTEST_SKIP() << "no German locale: the package 'locales' is missing";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");

    EXPECT_EQ(everythingWritten(), expected);
    KOR::UnitVector vector;
    vector.read("1.5 2e-3", "mm");
    EXPECT_EQ(vector.m_data, (std::vector<double>{1.5, 2e-3}));
    EXPECT_ANY_THROW(vector.read("1,5", "mm"));
    EXPECT_EQ(KOR::parseDouble("1.5"), 1.5);
    EXPECT_EQ(KOR::parseDouble("1,5"), std::nullopt);
    KOR::LinearSpline spline;
    spline.read("0.5 1.5", "1 2");
    EXPECT_EQ(spline.x(), (std::vector<double>{0.5, 1.5}));
}
