#include "HygSettings.h"

#include <KOR/Directories.h>
#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QCoreApplication>
#include <QDir>

namespace {

struct DirectoryRow {
    const char * name;
    const char * below; ///< path below the installation directory, nullptr if it does not lie there
};
constexpr DirectoryRow DIRECTORIES[] = {
    {"Installation",     ""             },
    {"MaterialDatabase", "/DB_materials"},
    {"ClimateDatabase",  "/DB_climate"  },
    {"Examples",         "/examples"    },
    {"Templates",        "/DB_templates"},
    {"UserData",         nullptr        },
};
static_assert(std::size(DIRECTORIES) == HygSettings::NUM_DIRECTORIES, "directory table and enumeration disagree");

struct AddressRow {
    const char * key;
    const char * english;
    const char * german;
};
constexpr AddressRow ADDRESSES[] = {
    {HygSettings::HELP_ADDRESS,          "https://hygrion.example/en/help",          "https://hygrion.example/de/hilfe"      },
    {HygSettings::FORUM_ADDRESS,         "https://hygrion.example/en/forum",         "https://hygrion.example/de/forum"      },
    {HygSettings::CHANGELOG_ADDRESS,     "https://hygrion.example/en/changes",       "https://hygrion.example/de/aenderungen"},
    {HygSettings::DOCUMENTATION_ADDRESS, "https://hygrion.example/en/documentation",
     "https://hygrion.example/de/dokumentation"                                                                              },
};

constexpr const char * KURVIO = "\\KurvioApp.exe";
constexpr const char * KLIMEDIT = "\\Klimedit.exe";

/// Where there is no home directory (a service), the directory for temporary files serves.
QString userDataDirectory() {
#ifdef Q_OS_WIN
    return QDir::homePath() + QStringLiteral("/AppData/Roaming/") + KOR::directories::APPLICATION_NAME;
#else
    try {
        return QString::fromStdString(KOR::directories::userData().str());
    } catch (const KOR::Exception &) {
        return QDir::tempPath() + '/' + KOR::directories::APPLICATION_NAME;
    }
#endif
}

} // namespace

HygSettings::HygSettings(const QString & organisation, const QString & application)
    : QtExt::Settings(organisation, application) {
    bind("ConstructionViewGridLinesVisible", &m_constructionViewGridLinesVisible, true);
    bind("ConstructionViewEquidistantModeEnabled", &m_constructionViewEquidistantModeEnabled, false);
    bind("LastImportDirectory", &m_lastImportDirectory, QString());
    bind("LastFileOpenDirectory", &m_lastFileOpenDirectory, QString());
    bind("UseModernSolver", &m_useModernSolver, false);
    bind("ClearResultDirBeforeStart", &m_clearResultDirBeforeStart, false);
    bind("NumParallelThreads", &m_numParallelThreads, 0, 0, 256);
    bind("NPWizardLastUsedClimateLocation", &m_npWizardLastUsedClimateLocation, QString());
    bind("KurvioExecutable", &m_kurvioExecutable, QString());
    bind("KlimeditExecutable", &m_klimeditExecutable, QString());
    bind("ColorSelectedElements", &m_colorSelectedElements, QColor(0x2f, 0x80, 0xed));
    bind("ColorHighlightedElements", &m_colorHighlightedElements, QColor(0xf2, 0x99, 0x4a));
    bind("FontPointSize", &m_fontPointSize, 0, 0, 32);
    bind("FrequentlyUsedQuantities", &m_frequentlyUsedQuantities,
         QStringList{"Temperature", "RelativeHumidity", "TotalFluxHeat"});
    bind("FavouriteMaterials", &m_favouriteMaterials, QStringList());
    bind("WriteCompleteProject", &m_writeCompleteProject, false);
    bind("Sketch2DGridVisible", &m_sketch2DGridVisible, true);
    bind("Sketch2DGridColor", &m_sketch2DGridColor, QColor(0xd0, 0xd4, 0xda));
    bind("Sketch2DBackgroundColor", &m_sketch2DBackgroundColor, QColor(0xff, 0xff, 0xff));
    bind("Sketch2DLabelFontSize", &m_sketch2DLabelFontSize, 10, 4, 72);
    bind("Sketch2DLabelUnit", &m_sketch2DLabelUnit, QStringLiteral("mm"));
    bind("Sketch2DLineWidth", &m_sketch2DLineWidth, 2, 1, 20);
    bind("BasicLengthUnit", &m_basicLengthUnit, static_cast<unsigned int>(KOR::Unit("mm").index()), 0,
         static_cast<double>(KOR::UnitList::instance().size() - 1));
    bind("MainWindowGeometry", &m_mainWindowGeometry, QByteArray());
    bind("MainWindowState", &m_mainWindowState, QByteArray());
    for (const AddressRow & address : ADDRESSES)
        bindText(address.key, address.english, address.german);
}

HygSettings & HygSettings::instance() {
    return dynamic_cast<HygSettings &>(QtExt::Settings::instance());
}

void HygSettings::setDefaults() {
    m_archiver = QStringLiteral("7z.exe");
    if (directory(DIR_INSTALLATION).isEmpty() && QCoreApplication::instance() != nullptr)
        setInstallationDirectory(QCoreApplication::applicationDirPath());
    QtExt::Settings::setDefaults();
    setDirectory(DIRECTORIES[DIR_USER_DATA].name, userDataDirectory());
}

QVariant HygSettings::defaultValue(const QString & key) const {
    for (const auto & [program, file] : {
             std::pair{"KurvioExecutable",   KURVIO  },
             {"KlimeditExecutable", KLIMEDIT}
    })
        if (key == QLatin1String(program))
            return directory(DIR_INSTALLATION) + file;
    return QtExt::Settings::defaultValue(key);
}

void HygSettings::setInstallationDirectory(const QString & path) {
    const QString before = directory(DIR_INSTALLATION);
    if (m_kurvioExecutable == before + KURVIO)
        m_kurvioExecutable = path + KURVIO;
    if (m_klimeditExecutable == before + KLIMEDIT)
        m_klimeditExecutable = path + KLIMEDIT;
    for (const DirectoryRow & row : DIRECTORIES)
        if (row.below != nullptr)
            setDirectory(row.name, path + row.below);
}

QString HygSettings::directory(directory_t name) const {
    return QtExt::Settings::directory(QLatin1String(DIRECTORIES[name].name));
}
