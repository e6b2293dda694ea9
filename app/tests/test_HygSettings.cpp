#include "HygSettings.h"

#include <KOR/Unit.h>

#include <QCoreApplication>

namespace {

TEST(HygSettings, FreshUserGetsTheDefaults) {
    HygSettings settings("KOR", "fresh");
    settings.setDefaults();
    settings.setInstallationDirectory("/opt/hygrion");
    settings.read();
    EXPECT_EQ(settings.m_kurvioExecutable, "/opt/hygrion\\KurvioApp.exe");
    EXPECT_EQ(settings.m_klimeditExecutable, "/opt/hygrion\\Klimedit.exe");
    EXPECT_EQ(settings.m_fontPointSize, 0u);
    EXPECT_EQ(settings.m_numParallelThreads, 0);
    EXPECT_EQ(settings.m_frequentlyUsedQuantities, (QStringList{"Temperature", "RelativeHumidity", "TotalFluxHeat"}));
    EXPECT_EQ(KOR::Unit(std::size_t{settings.m_basicLengthUnit}).base(), KOR::Unit("m"));
    for (const auto & row : settings.rows())
        EXPECT_TRUE(settings.value(row.key).isValid()) << row.key.toStdString();

    EXPECT_EQ(settings.directory(HygSettings::DIR_INSTALLATION), "/opt/hygrion");
    EXPECT_EQ(settings.directory(HygSettings::DIR_MATERIALS), "/opt/hygrion/DB_materials");
    EXPECT_EQ(settings.directory(HygSettings::DIR_TEMPLATES), "/opt/hygrion/DB_templates");
    EXPECT_TRUE(settings.directory(HygSettings::DIR_USER_DATA).endsWith("/Hygrion6"));
}

TEST(HygSettings, EveryKeyIsStoredAndReadBack) {
    HygSettings settings("KOR", "round trip");
    settings.setDefaults();
    settings.m_colorSelectedElements = QColor(1, 2, 3);
    settings.m_sketch2DGridColor = QColor(1, 2, 3, 4);
    settings.m_frequentlyUsedQuantities.clear();
    settings.m_kurvioExecutable = "C:\\Tools\\KurvioApp.exe";
    settings.m_basicLengthUnit = static_cast<unsigned int>(KOR::Unit("cm").index());
    settings.m_constructionViewGridLinesVisible = false;
    settings.m_mainWindowState = QByteArray("\0\xff@Invalid()", 12);
    settings.write();

    HygSettings read("KOR", "round trip");
    read.setDefaults();
    read.read();
    for (const auto & row : settings.rows())
        EXPECT_EQ(read.value(row.key), settings.value(row.key)) << row.key.toStdString();
    read.setInstallationDirectory("/elsewhere"); // a program chosen by the user stays
    EXPECT_EQ(read.m_kurvioExecutable, settings.m_kurvioExecutable);
    EXPECT_EQ(read.m_klimeditExecutable, "/elsewhere\\Klimedit.exe");
}

TEST(HygSettings, AddressesFollowTheLanguage) {
    HygSettings settings("KOR", "addresses");
    settings.setDefaults();
    const char * keys[] = {HygSettings::HELP_ADDRESS, HygSettings::FORUM_ADDRESS, HygSettings::CHANGELOG_ADDRESS,
                           HygSettings::DOCUMENTATION_ADDRESS};
    for (const char * key : keys) {
        settings.m_langId = "fr"; // not translated: English
        const QString english = settings.textOf(key);
        EXPECT_TRUE(english.startsWith("https://hygrion.example/en/")) << key;
        settings.m_langId = "de";
        EXPECT_TRUE(settings.textOf(key).startsWith("https://hygrion.example/de/")) << key;
    }
}

} // namespace
