#include "HygSettings.h"
#include "dialogs/HygPreferencesDialog.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>

#include <QApplication>
#include <QDir>
#include <QFormLayout>
#include <QListWidget>
#include <QMessageBox>

namespace {

/// Draws the pictures of the manual into the directory that HYG_PICTURES names:
///     HYG_PICTURES=docs/images test_hygapp --gtest_filter='Pictures.*'
TEST(Pictures, PreferencesAndValueFields) {
    const QString directory = qEnvironmentVariable("HYG_PICTURES");
    if (directory.isEmpty())
        GTEST_SKIP() << "HYG_PICTURES names no directory";
    HygSettings settings("KOR", "pictures");
    settings.setDefaults();
    settings.setInstallationDirectory("/opt/hygrion");
    settings.rememberAnswer("SaveBeforeStart", QMessageBox::Yes);
    settings.rememberAnswer("OverwriteResults", QMessageBox::Discard);
    QtExt::LanguageHandler languages(HYG_BINARY_DIR "/translations", "hygrion");
    QApplication::setFont(QFont("DejaVu Sans", 9));
    for (const char * language : {"en", "de"})
        for (const char * theme : {"light", "dark"}) {
            languages.installTranslator(language);
            QtExt::Palette::apply(theme);
            const auto save = [&](QWidget & widget, const QString & name) {
                widget.show();
                QCoreApplication::processEvents();
                const QString file = QStringLiteral("%1/%2_%3_%4.png").arg(directory, name, language, theme);
                EXPECT_TRUE(widget.grab().save(file)) << file.toStdString();
            };
            HygPreferencesDialog dialog(settings, &languages);
            auto * groups = dialog.findChild<QListWidget *>("groups");
            for (int group = 0; group < groups->count(); ++group) {
                groups->setCurrentRow(group);
                save(dialog, QStringLiteral("preferences%1").arg(group));
            }
            dialog.setFilter(QLatin1String(language) == QLatin1String("de") ? "farbe" : "colour");
            save(dialog, QStringLiteral("preferences_search"));

            QWidget values;
            auto * form = new QFormLayout(&values);
            const auto add = [&](const char * name, double value, const char * unit, const QString & typed) {
                auto * edit = new QtExt::ValueEdit(KOR::Parameter(name, value, KOR::Unit(unit)));
                edit->setMinimum(0, KOR::Unit(unit).base());
                form->addRow(name, edit);
                if (!typed.isEmpty())
                    edit->setText(typed);
                return edit;
            };
            add("Width", 12.5, "mm", "");
            add("Width 2", 12.5, "mm", "-3 cm");
            add("Temperature", 20, "C", "");
            add("Humidity", 80, "%", "")->setEnabled(false);
            add("Density", 0.0001, "kg/m2s05", "12 Kilo");
            save(values, QStringLiteral("values"));
        }
}

} // namespace
