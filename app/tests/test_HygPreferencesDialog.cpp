#include "dialogs/HygPreferencesDialog.h"

#include "HygSettings.h"
#include "dialogs/HygPreferencesTable.h"

#include <QtExt/ColorButton.h>
#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

namespace {

class HygPreferencesDialogTest : public testing::Test {
protected:
    HygPreferencesDialogTest() : m_application(testing::UnitTest::GetInstance()->current_test_info()->name()) {
        settings.setDefaults();
        QtExt::Palette::apply("light");
    }
    ~HygPreferencesDialogTest() override { QApplication::setFont(m_font); }

    void open() {
        dialog = std::make_unique<HygPreferencesDialog>(settings, &languages);
        dialog->show();
        QCoreApplication::processEvents();
    }
    template <typename Widget = QWidget> Widget * field(const char * key) {
        auto * widget = dialog->findChild<Widget *>(QLatin1String(key));
        if (widget == nullptr)
            throw std::runtime_error(std::string("no field ") + key);
        return widget;
    }
    void click(QDialogButtonBox::StandardButton button) {
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
        QCoreApplication::processEvents();
    }
    void choose(const char * key, const char * value) {
        auto * box = field<QComboBox>(key);
        ASSERT_GE(box->findData(value), 0) << key << value;
        box->setCurrentIndex(box->findData(value));
        QCoreApplication::processEvents();
    }
    std::unique_ptr<HygSettings> stored() {
        auto read = std::make_unique<HygSettings>("KOR", m_application);
        read->setDefaults();
        read->read();
        return read;
    }

    QString m_application;
    QFont m_font = QApplication::font();
    HygSettings settings{"KOR", m_application};
    QtExt::LanguageHandler languages{HYG_BINARY_DIR "/translations", "hygrion"};
    std::unique_ptr<HygPreferencesDialog> dialog;
};

/// Kept by the main window, nothing that a user would set.
bool isHidden(const QString & key) {
    return key.startsWith("MainWindow");
}

TEST_F(HygPreferencesDialogTest, EveryKeyHasAField) {
    open();
    for (const auto & row : settings.rows())
        EXPECT_TRUE(isHidden(row.key) || dialog->findChild<QWidget *>(row.key) != nullptr) << row.key.toStdString();
    for (const char * array : {"DoNotShowAgainDialogs", "DoNotShowAgainDialogsAnswer"})
        EXPECT_NE(field(array), nullptr);
    for (const auto & row : HygPreferences::ROWS)
        EXPECT_FALSE(field(row.key)->toolTip().isEmpty()) << row.key;
    EXPECT_LE(dialog->height(), 700);
    EXPECT_LE(dialog->maximumHeight(), 700);
}

TEST_F(HygPreferencesDialogTest, AcceptedEditsAreStored) {
    settings.m_recentProjects = QStringList{"/a.h6p", "/b.h6p"};
    open();
    QSignalSpy changes(dialog.get(), &HygPreferencesDialog::settingsChanged);
    field<QSpinBox>("MaxNumUndoSteps")->setValue(250);
    field<QCheckBox>("ClearResultDirBeforeStart")->click();
    field<QLineEdit>("KurvioExecutable")->setText("/opt/böse/kurvio");
    field<QtExt::ColorButton>("ColorSelectedElements")->setColor(QColor("#123456"));
    field<QPlainTextEdit>("FrequentlyUsedQuantities")->setPlainText(" Temperature \n\nVaporPressure");
    choose("Sketch2DLabelUnit", "cm");
    choose("UserLogLevelLogfile", "2");
    choose("LangID", "de");
    choose("FontPointSize", "11");
    field<QSpinBox>("MaxRecentProjects")->setValue(1);
    const QString before = settings.m_kurvioExecutable;
    EXPECT_EQ(settings.m_maxNumUndoSteps, 100u); // nothing before OK
    click(QDialogButtonBox::Ok);

    const auto read = stored();
    EXPECT_EQ(read->m_maxNumUndoSteps, 250u);
    EXPECT_TRUE(read->m_clearResultDirBeforeStart);
    EXPECT_EQ(read->m_kurvioExecutable, "/opt/böse/kurvio");
    EXPECT_EQ(read->m_colorSelectedElements, QColor("#123456"));
    EXPECT_EQ(read->m_frequentlyUsedQuantities, (QStringList{"Temperature", "VaporPressure"}));
    EXPECT_EQ(read->m_sketch2DLabelUnit, "cm");
    EXPECT_EQ(read->m_userLogLevelLogfile, 2);
    EXPECT_EQ(read->m_langId, "de");
    EXPECT_EQ(read->m_fontPointSize, 11u);
    EXPECT_EQ(read->m_recentProjects, QStringList{"/a.h6p"});
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toStringList().size(), 10); // and nothing that was not touched
}

TEST_F(HygPreferencesDialogTest, CancelTakesBackLanguageThemeAndFont) {
    languages.installTranslator("en");
    open();
    const int pointSize = QApplication::font().pointSize();
    const QString title = dialog->windowTitle();
    choose("LangID", "de");
    choose("Theme", "dark");
    choose("FontPointSize", "14");
    field<QSpinBox>("MaxNumUndoSteps")->setValue(5);
    EXPECT_EQ(languages.langId(), "de");
    EXPECT_EQ(dialog->windowTitle(), "Einstellungen");
    EXPECT_TRUE(QtExt::Palette::isDark());
    EXPECT_EQ(QApplication::font().pointSize(), 14);
    click(QDialogButtonBox::Cancel);
    EXPECT_EQ(languages.langId(), "en");
    EXPECT_EQ(dialog->windowTitle(), title);
    EXPECT_FALSE(QtExt::Palette::isDark());
    EXPECT_EQ(QApplication::font().pointSize(), pointSize);
    EXPECT_EQ(settings.m_maxNumUndoSteps, 100u);
    EXPECT_EQ(settings.langId(), "");
}

TEST_F(HygPreferencesDialogTest, LanguageOfTheRunStaysUnlessAnotherIsChosen) {
    settings.m_langId = "de";
    settings.setLangIdOfRun("en");
    languages.install(settings);
    open();
    field<QSpinBox>("MaxNumUndoSteps")->setValue(5);
    click(QDialogButtonBox::Ok);
    EXPECT_EQ(settings.langId(), "en");
    EXPECT_EQ(languages.langId(), "en");
    EXPECT_EQ(stored()->m_langId, "de");
    open();
    choose("LangID", "");
    choose("LangID", "de"); // the stored one again: no change to be stored
    click(QDialogButtonBox::Apply);
    EXPECT_EQ(stored()->m_langId, "de");
    choose("LangID", "");
    click(QDialogButtonBox::Ok);
    EXPECT_EQ(settings.langId(), "");
    EXPECT_EQ(languages.langId(), QtExt::LanguageHandler::systemLanguage());
}

TEST_F(HygPreferencesDialogTest, OtherChangesLeaveTheLanguageOfTheRun) {
    settings.setLangIdOfRun("de");
    languages.install(settings);
    open();
    choose("Theme", "dark");
    choose("FontPointSize", "12");
    EXPECT_EQ(languages.langId(), "de");
    click(QDialogButtonBox::Ok);
    EXPECT_EQ(languages.langId(), "de");
    EXPECT_EQ(stored()->m_langId, "");
}

TEST_F(HygPreferencesDialogTest, LargeFontsCutNothing) {
    for (const char * language : {"en", "de"})
        for (const char * size : {"0", "11", "14"}) {
            SCOPED_TRACE(testing::Message() << language << ' ' << size);
            languages.installTranslator(language);
            open();
            choose("FontPointSize", size);
            auto * groups = field<QListWidget>("groups");
            for (int group = 0; group < groups->count(); ++group) {
                groups->setCurrentRow(group);
                QCoreApplication::processEvents();
                const auto * scroll = dialog->findChild<QScrollArea *>();
                EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width()) << "group " << group;
            }
            EXPECT_LE(dialog->height(), 700);
            click(QDialogButtonBox::Cancel);
        }
}

TEST_F(HygPreferencesDialogTest, SearchShowsWhatHoldsAllWords) {
    struct Case {
        const char * words;
        std::vector<const char *> found; ///< empty: a message instead
    };
    const Case cases[] = {
        {"undo",                {"MaxNumUndoSteps"}                 },
        {"  GRID lines ",       {"ConstructionViewGridLinesVisible"}},
        {"sketch",              {}                                  }, // as long as there is no view of that
        {"kurvio",              {"KurvioExecutable"}                },
        {"LastImportDirectory", {"LastImportDirectory"}             },
        {"threads",             {"NumParallelThreads"}              },
        {"no such thing",       {}                                  },
    };
    open();
    auto * search = field<QLineEdit>("search");
    for (const Case & c : cases) {
        SCOPED_TRACE(c.words);
        search->clear();
        QTest::keyClicks(search, c.words);
        for (const auto & row : HygPreferences::ROWS) {
            const bool isExpected = std::any_of(c.found.begin(), c.found.end(),
                                                [&](const char * key) { return qstrcmp(key, row.key) == 0; });
            EXPECT_EQ(field(row.key)->isVisible(), isExpected) << row.key;
        }
        EXPECT_EQ(field<QLabel>("nothingFound")->isVisible(), c.found.empty());
    }
    search->setText("cells"); // the first group found becomes the chosen one
    auto * groups = field<QListWidget>("groups");
    EXPECT_EQ(groups->currentRow(), HygPreferences::GROUP_GENERAL);
    EXPECT_TRUE(groups->item(HygPreferences::GROUP_SKETCH)->isHidden());
    QTest::keyClick(search, Qt::Key_Return); // does not close
    QTest::keyClick(search, Qt::Key_Escape); // clears first
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(search->text().isEmpty());

    for (int group = 0; group < groups->count(); ++group) { // without a search: one group at a time
        EXPECT_EQ(groups->item(group)->isHidden(), group == HygPreferences::GROUP_SKETCH);
        if (groups->item(group)->isHidden())
            continue;
        groups->setCurrentRow(group);
        for (const auto & row : HygPreferences::ROWS)
            EXPECT_EQ(field(row.key)->isVisible(), row.group == group) << row.key;
    }
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(HygPreferencesDialogTest, SearchWorksInBothLanguages) {
    languages.installTranslator("de");
    open();
    for (const char * word : {"rückgängig", "undo"}) {
        dialog->setFilter(QString::fromUtf8(word));
        EXPECT_TRUE(field("MaxNumUndoSteps")->isVisible()) << word;
        EXPECT_FALSE(field("LangID")->isVisible()) << word;
    }
}

TEST_F(HygPreferencesDialogTest, QuestionsCanBeAskedAgain) {
    settings.rememberAnswer("one", QMessageBox::Yes);
    settings.rememberAnswer("two", QMessageBox::No);
    settings.rememberAnswer("three", QMessageBox::No);
    open();
    auto * list = field<QListWidget>("DoNotShowAgainDialogs");
    ASSERT_EQ(list->count(), 3);
    list->item(0)->setCheckState(Qt::Unchecked);
    click(QDialogButtonBox::Apply);
    EXPECT_EQ(stored()->m_rememberedAnswers.keys(), (QStringList{"three", "two"}));
    field<QPushButton>("DoNotShowAgainDialogsAnswer")->click();
    EXPECT_EQ(settings.m_rememberedAnswers.size(), 2); // until OK
    click(QDialogButtonBox::Ok);
    EXPECT_TRUE(stored()->m_rememberedAnswers.isEmpty());
}

TEST_F(HygPreferencesDialogTest, DefaultsComeBackWithOk) {
    settings.m_maxNumUndoSteps = 5;
    settings.m_kurvioExecutable = "/other";
    settings.m_fontPointSize = 30; // not among the sizes offered
    open();
    EXPECT_EQ(field<QComboBox>("FontPointSize")->currentText(), "30");
    click(QDialogButtonBox::RestoreDefaults);
    EXPECT_EQ(settings.m_maxNumUndoSteps, 5u);
    click(QDialogButtonBox::Ok);
    EXPECT_EQ(settings.m_maxNumUndoSteps, 100u);
    EXPECT_EQ(settings.m_kurvioExecutable, settings.defaultValue("KurvioExecutable").toString());
    EXPECT_EQ(settings.m_fontPointSize, 0u);
}

} // namespace
