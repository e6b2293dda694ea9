#include <QtExt/ColorButton.h>
#include <QtExt/LanguageHandler.h>
#include <QtExt/MessageBox.h>
#include <QtExt/Palette.h>
#include <QtExt/Settings.h>

#include <KOR/MessageHandler.h>

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

// --- Message boxes -----------------------------------------------------------------------------------------------

struct Answer {
    QMessageBox::StandardButton button; ///< clicked; NoButton for Escape
    bool isChecked;
    bool isRemembered;
};

TEST(MessageBox, RemembersAnswersButNeverCancel) {
    const Answer answers[] = {
        {QMessageBox::Yes,      false, false},
        {QMessageBox::Yes,      true,  true },
        {QMessageBox::No,       true,  true },
        {QMessageBox::Cancel,   true,  false},
        {QMessageBox::NoButton, true,  false},
    };
    for (const Answer & answer : answers) {
        SCOPED_TRACE(testing::Message() << answer.button << answer.isChecked);
        QtExt::Settings settings("KOR", "answers");
        settings.setDefaults();
        settings.write(); // forgets the answers of the row before
        int shown = 0;
        const auto ask = [&] {
            QTimer::singleShot(0, [&] {
                auto * box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                if (box == nullptr)
                    return;
                ++shown;
                box->findChild<QCheckBox *>("doNotShowAgain")->setChecked(answer.isChecked);
                if (answer.button == QMessageBox::NoButton)
                    QTest::keyClick(box, Qt::Key_Escape);
                else
                    box->button(answer.button)->click();
            });
            const auto result =
                QtExt::MessageBox::ask(nullptr, {.id = "overwrite",
                                                 .title = "Overwrite",
                                                 .text = "Really?",
                                                 .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel});
            QCoreApplication::processEvents(); // the timer of a box that was not shown
            return result;
        };
        const auto first = ask();
        EXPECT_EQ(first, answer.button == QMessageBox::NoButton ? QMessageBox::Cancel : answer.button);
        EXPECT_EQ(ask(), first);
        EXPECT_EQ(shown, answer.isRemembered ? 1 : 2);

        QtExt::Settings next("KOR", "answers"); // the next start
        next.setDefaults();
        next.read();
        EXPECT_EQ(next.rememberedAnswer("overwrite"), answer.isRemembered ? answer.button : 0);
        EXPECT_EQ(next.rememberedAnswer("another"), 0);
    }
}

TEST(MessageBox, AsksWhenTheRememberedAnswerIsNotOffered) {
    QtExt::Settings settings("KOR", "not offered");
    settings.rememberAnswer("id", QMessageBox::Save);
    QTimer::singleShot(
        0, [] { qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->button(QMessageBox::No)->click(); });
    EXPECT_EQ(QtExt::MessageBox::ask(nullptr, {.id = "id", .title = "t", .text = "x"}), QMessageBox::No);
}

// --- Palettes ----------------------------------------------------------------------------------------------------

/// Relative luminance and contrast after WCAG 2.1; 4.5 is its limit for text.
double luminance(const QColor & color) {
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}
double contrast(const QColor & a, const QColor & b) {
    const auto [low, high] = std::minmax({luminance(a), luminance(b)}); // by value
    return (high + 0.05) / (low + 0.05);
}

TEST(Palette, TextsAreReadableInLightAndDark) {
    using P = QPalette;
    constexpr std::pair<P::ColorRole, P::ColorRole> PAIRS[] = {
        {P::WindowText,      P::Window       },
        {P::Text,            P::Base         },
        {P::Text,            P::AlternateBase},
        {P::ButtonText,      P::Button       },
        {P::HighlightedText, P::Highlight    },
        {P::ToolTipText,     P::ToolTipBase  },
        {P::Link,            P::Base         },
        {P::Link,            P::Window       },
        {P::LinkVisited,     P::Base         },
        {P::PlaceholderText, P::Base         },
    };
    for (const bool dark : {false, true}) {
        const QPalette palette = QtExt::Palette::palette(dark);
        for (const auto & [text, base] : PAIRS)
            EXPECT_GE(contrast(palette.color(text), palette.color(base)), 4.5) << dark << " role " << text;
        using C = QtExt::Palette;
        for (const auto color : {C::ERROR_TEXT, C::WARNING_TEXT, C::SUCCESS_TEXT, C::MUTED_TEXT})
            for (const auto base : {P::Base, P::Window})
                EXPECT_GE(contrast(C::color(color, dark), palette.color(base)), 4.5) << dark << " color " << color;
        for (const auto base : {C::ERROR_BASE, C::FOUND_BASE})
            EXPECT_GE(contrast(palette.color(P::Text), C::color(base, dark)), 4.5) << dark << " base " << base;
        EXPECT_GE(contrast(palette.color(P::Disabled, P::Text), palette.color(P::Disabled, P::Base)), 2.5);
    }
}

TEST(Palette, ThemeReachesOpenWidgets) {
    QWidget widget;
    QtExt::Palette::apply("dark");
    EXPECT_TRUE(QtExt::Palette::isDark());
    EXPECT_LT(widget.palette().color(QPalette::Window).lightness(), 128);
    QtExt::Palette::apply("light");
    EXPECT_FALSE(QtExt::Palette::isDark());
    EXPECT_GT(widget.palette().color(QPalette::Window).lightness(), 128);
    QtExt::Palette::apply("dark");
    QtExt::Palette::apply("system"); // offscreen: no desktop asks for dark
    EXPECT_FALSE(QtExt::Palette::isDark());
}

/// Largest contrast of a pixel to the corner's colour, which is the window's.
double strongestContrast(QWidget & widget) {
    widget.ensurePolished();
    const QImage image = widget.grab().toImage();
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, contrast(image.pixelColor(x, y), image.pixelColor(0, 0)));
    return strongest;
}

TEST(Palette, EmptyBoxesAreSeenInLightAndDark) {
    for (const char * theme : {"light", "dark"}) {
        QtExt::Palette::apply(theme);
        QCheckBox checkBox;
        QRadioButton radioButton;
        for (QWidget * box : {static_cast<QWidget *>(&checkBox), static_cast<QWidget *>(&radioButton)}) {
            box->resize(30, 30);
            EXPECT_GE(strongestContrast(*box), 1.5) << theme << ' ' << box->metaObject()->className();
        }
    }
    QtExt::Palette::apply("light");
}

TEST(ColorButton, ShowsAndAnnouncesItsColor) {
    QtExt::ColorButton button;
    QSignalSpy changes(&button, &QtExt::ColorButton::colorChanged);
    button.setColor(QColor("#102030"));
    button.setColor(QColor("#102030"));
    button.setColor(QColor()); // a cancelled choice
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(button.text(), "#102030");
    EXPECT_EQ(button.grab().toImage().pixelColor(button.width() / 5, button.height() / 2), QColor("#102030"));
}

// --- Languages ---------------------------------------------------------------------------------------------------

class Recorder : public KOR::MessageHandler {
public:
    Recorder() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    ~Recorder() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    void msg(const std::string & text, int, const std::string & where, int) override {
        texts.push_back(text);
        wheres.push_back(where);
    }
    std::vector<std::string> texts, wheres;
};

TEST(LanguageHandler, LogsWhatItInstalls) {
    const QTemporaryDir empty;
    const std::string path = empty.path().toStdString();
    Recorder recorder;
    QtExt::LanguageHandler handler(empty.path(), "none");
    QtExt::Settings settings("KOR", "languages");
    settings.setDefaults();
    settings.m_langId = "de";
    settings.setLangIdOfRun("xx");
    handler.install(settings);
    ASSERT_EQ(recorder.texts.size(), 5u);
    EXPECT_EQ(recorder.texts[0], "Installing translator for language: 'xx'.\n");
    EXPECT_EQ(recorder.wheres[0], "[main]");
    EXPECT_EQ(recorder.texts[1], "App translation file path = '" + path + "'.\n");
    EXPECT_EQ(recorder.texts[2].find("Qt translation file path  = '"), 0u);
    EXPECT_EQ(recorder.texts[3], "Could not load system translator file: 'qt_xx'.\n");
    EXPECT_EQ(recorder.texts[4], "Could not load application translator file: 'none_xx'.\n");

    recorder.texts.clear();
    settings.setLangIdOfRun({});
    handler.install(settings);
    ASSERT_GE(recorder.texts.size(), 2u);
    EXPECT_EQ(recorder.texts[0].find("System locale: '"), 0u);
    EXPECT_EQ(recorder.texts[1], "Translation required for locale: 'de'.\n");
    EXPECT_EQ(handler.langId(), "de");
    settings.m_langId.clear();
    EXPECT_EQ(QtExt::LanguageHandler::requiredLanguage(settings), QtExt::LanguageHandler::systemLanguage());
}

} // namespace
