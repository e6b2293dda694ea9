// pictures DIRECTORY [PART]: draws the pictures of the documentation, each in English and German, light and dark; of the
// part "start", "materials", "project", "construction", "outputs" or "simulation" alone, if one is named.
#include "ConstructionPictures.h"
#include "MaterialPictures.h"
#include "OutputPictures.h"
#include "ProjectPictures.h"
#include "SimulationPictures.h"

#include "HygDebugApplication.h"
#include "HygMainWindow.h"
#include "HygMessageHandler.h"
#include "HygSettings.h"
#include "dialogs/HygPreferencesDialog.h"
#include "views/HygLogModel.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Parameter.h>
#include <KOR/Xml.h>

#include <QDir>
#include <QDockWidget>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

constexpr QSize WINDOW(1280, 800);
constexpr int LOG_HEIGHT = 340;

enum language_t { English, German, NUM_LANGUAGES };
constexpr const char * LANGUAGES[NUM_LANGUAGES] = {"en", "de"};

// What an engineer may have worked on; the last one has been deleted since.
constexpr const char * PROJECTS[][NUM_LANGUAGES] = {
    {"Projects/Town hall/South facade, interior insulation", "Projekte/Rathaus/Südfassade mit Innendämmung"       },
    {"Projects/Town hall/Beam end in the south facade",      "Projekte/Rathaus/Balkenkopf in der Südfassade"       },
    {"Projects/Kindergarten/Timber-frame wall",              "Projekte/Kindergarten/Holzrahmenwand"                 },
    {"Projects/Kindergarten/Flat roof with drying reserve",  "Projekte/Kindergarten/Flachdach mit Trocknungsreserve"},
    {"Projects/School/Window reveal",                        "Projekte/Schule/Fensterlaibung"                       },
    {"Projects/Old studies/Cellar wall",                     "Projekte/Alte Studien/Kellerwand"                     },
};
constexpr std::size_t NUM_EXISTING = 5;

QString projectPath(const QString & home, std::size_t i, language_t language) {
    return home + QLatin1Char('/') + QString::fromUtf8(PROJECTS[i][language]) + QStringLiteral(".h6p");
}

/// What a reader says of a value without its unit.
void readBrokenValue() {
    TiXmlDocument document;
    KOR::xml::parse("<InitialCondition>\n  <KOR:Parameter name='Temperature'>20</KOR:Parameter>\n</InitialCondition>",
                    document);
    try {
        KOR::Parameter().readXML(*document.RootElement()->FirstChildElement());
    } catch (const KOR::Exception & ex) {
        KOR::Exception(ex, "Error reading InitialCondition element.", "[InitialCond::readXML]").report();
    }
}

void save(QWidget & widget, const QString & path) {
    QTest::qWait(80); // layouts and collected messages
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[pictures]");
    std::printf("%s\n", qPrintable(path));
}

/// The font of all pictures, whatever the system has.
void useFont() {
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

/// The messages of a program in which something went wrong, and the preferences.
void drawMessages(HygMainWindow & window, HygSettings & settings, QtExt::LanguageHandler & languages,
                  language_t language, const QString & target, const QString & suffix) {
    languages.installTranslator(QStringLiteral("nl")); // not there
    languages.installTranslator(settings.m_langId);
    window.openProject(QString::fromUtf8(PROJECTS[NUM_EXISTING][language]) + ".h6p");
    readBrokenValue();
    auto * log = window.findChild<QDockWidget *>(QStringLiteral("logDock"));
    window.resizeDocks({log}, {LOG_HEIGHT}, Qt::Vertical);
    save(*log, target + QStringLiteral("/log") + suffix);

    HygPreferencesDialog preferences(settings, &languages, &window);
    preferences.show();
    save(preferences, target + QStringLiteral("/preferences") + suffix);
    preferences.close();
    useFont(); // which the dialog has set to that of the system
}

void draw(const QString & target, const QString & part, const QString & home, language_t language,
          const QString & theme) {
    const auto isWanted = [&](const char * name) { return part.isEmpty() || part == QLatin1String(name); };
    HygSettings settings(QStringLiteral("KOR"), QStringLiteral("Hygrion pictures"));
    settings.setDefaults();
    settings.m_theme = theme;
    settings.m_langId = QLatin1String(LANGUAGES[language]);
    for (std::size_t i = std::size(PROJECTS); i-- > 0;)
        settings.addRecentProject(projectPath(home, i, language));
    QtExt::Palette::apply(theme);

    HygLogModel messages;
    HygMessageHandler handler;
    QObject::connect(&handler, &HygMessageHandler::msgReceived, &messages, &HygLogModel::append);
    KOR::MessageHandlerRegistry::instance().setMessageHandler(&handler);
    QtExt::LanguageHandler languages("translations", "hygrion");
    languages.install(settings);

    const QString suffix = QStringLiteral("_%1_%2.png").arg(settings.m_langId, theme);
    HygMainWindow window(settings, languages, messages);
    window.resize(WINDOW);
    window.show();
    if (isWanted("start"))
        save(window, target + QStringLiteral("/start") + suffix);
    if (isWanted("materials"))
        drawMaterialPictures(window, target, suffix);
    if (isWanted("start"))
        drawMessages(window, settings, languages, language, target, suffix);
    if (isWanted("project"))
        drawProjectPictures(window, projectPath(home, 0, language), target, suffix);
    if (isWanted("construction"))
        drawConstructionPictures(target, suffix);
    if (isWanted("outputs"))
        drawOutputPictures(target, suffix);
    if (isWanted("simulation"))
        drawSimulationPictures(target, suffix);
    KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr);
}

} // namespace

int main(int argc, char * argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    HygDebugApplication app(argc, argv);
    HygDebugApplication::initResources();
    QCoreApplication::setApplicationName(QStringLiteral("Hygrion 6.1"));
    useFont();
    const QString target = QDir(QCoreApplication::arguments().value(1)).absolutePath();
    const QString part = QCoreApplication::arguments().value(2);
    QDir::setCurrent(QCoreApplication::applicationDirPath()); // the pictures hold no path of this computer
    try {
        for (const language_t language : {English, German}) {
            for (std::size_t i = 0; i < NUM_EXISTING; ++i) {
                const QString path = projectPath(home.path(), i, language);
                QDir().mkpath(QFileInfo(path).path());
                KOR::writeFile(path.toStdString(), "<HygrionProject/>\n");
            }
            for (const char * theme : {QtExt::Palette::LIGHT, QtExt::Palette::DARK})
                draw(target, part, home.path(), language, QLatin1String(theme));
        }
    } catch (const KOR::Exception & ex) {
        ex.report();
        return 1;
    }
    return 0;
}
