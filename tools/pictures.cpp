// pictures DIRECTORY: draws the pictures of the documentation, each in English and German, light and dark.
#include "HygDebugApplication.h"
#include "HygMainWindow.h"
#include "HygSettings.h"
#include "dialogs/HygPreferencesDialog.h"
#include "views/HygLogModel.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDir>
#include <QDockWidget>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

constexpr QSize WINDOW(1280, 800);

// What an engineer may have worked on; the last one has been deleted since.
constexpr const char * PROJECTS[] = {
    "Projects/Town hall/South facade, interior insulation.h6p",
    "Projects/Town hall/Beam end in the south facade.h6p",
    "Projects/Kindergarten/Timber-frame wall.h6p",
    "Projects/Kindergarten/Flat roof with drying reserve.h6p",
    "Projects/School/Window reveal.h6p",
    "Projects/Old studies/Cellar wall.h6p",
};
constexpr std::size_t NUM_EXISTING = 5;

struct MessageRow {
    int type;
    const char * text;
};
constexpr MessageRow MESSAGES[] = {
    {KOR::MSG_PROGRESS, "Material database: 214 materials read in 41 ms."                                    },
    {KOR::MSG_PROGRESS, "Reading project file 'South facade, interior insulation.h6p'."                      },
    {KOR::MSG_WARNING,
     "Material 'Lime plaster': no vapour permeability below 30 % relative humidity, the value there is kept."},
    {KOR::MSG_PROGRESS, "Climate data: 8760 hourly values, year 2024, 51.05° N 13.74° E."                  },
    {KOR::MSG_ERROR,    "Error in XML file, line 118: Missing 'unit' attribute in KOR:Parameter element."    },
    {KOR::MSG_DEBUG,    "Grid: 64 columns, 1 row; largest ratio of neighbouring widths 1.6."                 },
    {KOR::MSG_PROGRESS, "Project saved."                                                                     },
};

void save(QWidget & widget, const QString & path) {
    QTest::qWait(50); // layouts and collected messages
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[pictures]");
    std::printf("%s\n", qPrintable(path));
}

void draw(const QString & target, const QString & home, const QString & language, const QString & theme) {
    HygSettings settings(QStringLiteral("KOR"), QStringLiteral("Hygrion pictures"));
    settings.setDefaults();
    settings.m_theme = theme;
    settings.m_langId = language;
    for (auto project = std::rbegin(PROJECTS); project != std::rend(PROJECTS); ++project)
        settings.addRecentProject(home + QLatin1Char('/') + QLatin1String(*project));
    QtExt::Palette::apply(theme);
    QtExt::LanguageHandler languages(settings.directory(HygSettings::DIR_INSTALLATION) + "/translations", "hygrion");
    languages.install(settings);

    const QString suffix = QStringLiteral("_%1_%2.png").arg(language, theme);
    HygLogModel messages;
    HygMainWindow window(settings, languages, messages);
    window.resize(WINDOW);
    window.show();
    for (const MessageRow & row : MESSAGES)
        messages.append(row.type, QString::fromUtf8(row.text));
    messages.flush();
    auto * dock = window.findChild<QDockWidget *>(QStringLiteral("logDock"));
    save(window, target + QStringLiteral("/start") + suffix);
    save(*dock, target + QStringLiteral("/log") + suffix);

    HygPreferencesDialog preferences(settings, &languages, &window);
    preferences.show();
    save(preferences, target + QStringLiteral("/preferences") + suffix);
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
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    const QString target = QCoreApplication::arguments().value(1, QStringLiteral("."));
    try {
        for (std::size_t i = 0; i < NUM_EXISTING; ++i) {
            const QString path = home.path() + QLatin1Char('/') + QLatin1String(PROJECTS[i]);
            QDir().mkpath(QFileInfo(path).path());
            KOR::writeFile(path.toStdString(), "<HygrionProject/>\n");
        }
        for (const char * language : {"en", "de"})
            for (const char * theme : {QtExt::Palette::LIGHT, QtExt::Palette::DARK})
                draw(target, home.path(), QLatin1String(language), QLatin1String(theme));
    } catch (const KOR::Exception & ex) {
        ex.report();
        return 1;
    }
    return 0;
}
