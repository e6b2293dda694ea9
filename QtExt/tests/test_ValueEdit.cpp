#include <QtExt/ValueEdit.h>

#include <KOR/UnitList.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

using KOR::Parameter;
using KOR::Unit;

void type(QtExt::ValueEdit & edit, const char * text) {
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    for (const QChar character : QString::fromUtf8(text))
        if (character.unicode() < 128)
            QTest::keyClick(&edit, character.toLatin1());
        else
            edit.insert(character); // no key of QTest
}

/// What is typed into a field that shows a value in \p unit, and what the field then holds and shows.
struct Input {
    const char * unit;
    const char * typed;
    double value; ///< in the base unit
    const char * shown;
};
constexpr Input INPUTS[] = {
    {"mm",       "12,5 mm",               0.0125,   "12.5 mm"         },
    {"mm",       "12.5 mm",               0.0125,   "12.5 mm"         },
    {"mm",       "0.0125 m",              0.0125,   "0.0125 m"        },
    {"mm",       "12.5",                  0.0125,   "12.5 mm"         },
    {"mm",       "12,5",                  0.0125,   "12.5 mm"         },
    {"mm",       "  +1.25cm ",            0.0125,   "1.25 cm"         },
    {"mm",       "1,25E1 mm",             0.0125,   "12.5 mm"         },
    {"mm",       "1e-2m",                 0.01,     "0.01 m"          },
    {"mm",       ",5",                    0.0005,   "0.5 mm"          },
    {"mm",       "5,",                    0.005,    "5 mm"            },
    {"mm",       "12.5 MM",               0.0125,   "12.5 mm"         },
    {"mm",
     "\xE2\x88\x92"
     "5",                                 -0.005,   "-5 mm"           }, // minus sign
    {"mm",
     "5\xC2\xA0"
     "cm",                                0.05,     "5 cm"            }, // blank that does not break
    {"mm",       "0.1",                   0.0001,   "0.1 mm"          },
    {"C",        "20",                    293.15,   "20 °C"          },
    {"C",
     "-5,5 \xC2\xB0"
     "C",                                 267.65,   "-5.5 °C"        },
    {"C",        "300 K",                 300,      "300 K"           },
    {"%",        "45",                    0.45,     "45 %"            },
    {"%",        "45%",                   0.45,     "45 %"            },
    {"---",      "45 %",                  0.45,     "45 %"            },
    {"---",      "0,45",                  0.45,     "0.45"            },
    {"%",        "5 1/10",                0.5,      "5 1/10"          },
    {"g/m3",     "3 \xCE\xBCg/m\xC2\xB3", 3e-9,     "3 \xC2\xB5g/m³" },
    {"kg/m3",    "2 log(kg/m3)",          100,      "2 log(kg/m³)"   },
    {"L/m2h",    "3600 l/m2h",            1,        "3600 L/(m²·h)" },
    {"kg/m2s05", "3 kg/(m²·√h)",      3.0 / 60, "3 kg/(m²·√h)"},
    {"W/mK",     "1 kW/(m K)",            1000,     "1 kW/(m·K)"     },
    {"m3",       "2 m\xC2\xB3",           2,        "2 m³"           },
    {"Rad",      "57,2958\xC2\xB0",       1,        "57.2958°"       },
    {"h",        "1 d",                   86400,    "1 d"             },
    {"d",        "1 h 30 min",            5400,     "1.5 h"           },
    {"d",        "1d 12h",                129600,   "1.5 d"           },
    {"Pa",       "1 hPa",                 100,      "1 hPa"           },
};

TEST(ValueEdit, TakesOverWhatPeopleType) {
    for (const char * locale : {"en_US", "de_DE"}) {
        QLocale::setDefault(QLocale(locale));
        for (const Input & input : INPUTS) {
            SCOPED_TRACE(testing::Message() << locale << ": '" << input.typed << "' in " << input.unit);
            QtExt::ValueEdit edit(Parameter("Name", 1, Unit(input.unit)));
            type(edit, input.typed);
            EXPECT_EQ(edit.errorText(), "");
            QTest::keyClick(&edit, Qt::Key_Return);
            QString shown = input.shown; // with the decimal mark of the language
            EXPECT_EQ(edit.text(), shown.replace('.', QLocale().decimalPoint()));
            EXPECT_NEAR(edit.parameter().value(), input.value, 1e-6 * std::abs(input.value));
            EXPECT_EQ(edit.parameter().name(), "Name");
        }
    }
    QLocale::setDefault(QLocale::c());
}

TEST(ValueEdit, FollowsTheDecimalMarkOfTheLanguage) {
    QtExt::ValueEdit edit(Parameter("Width", 111.88, Unit("mm")));
    const QSignalSpy values(&edit, &QtExt::ValueEdit::valueChanged);
    QtExt::ValueEdit typing(Parameter("Width", 1.5, Unit("mm")));
    type(typing, "2.5");
    QLocale::setDefault(QLocale("de"));
    QEvent change(QEvent::LanguageChange);
    for (QtExt::ValueEdit * each : {&edit, &typing})
        QCoreApplication::sendEvent(each, &change);
    EXPECT_EQ(edit.text(), "111,88 mm");
    EXPECT_EQ(typing.text(), "2.5") << "what is being typed stays";
    EXPECT_EQ(values.count(), 0);
    edit.setMaximum(1.5, Unit("mm"));
    EXPECT_TRUE(edit.errorText().contains("1,5 mm"));
    QLocale::setDefault(QLocale::c());
}

TEST(ValueEdit, RefusesWhatIsNoValueAndKeepsTheOldOne) {
    constexpr const char * NUMBER = "is not a number.";
    constexpr const char * UNIT = "is not a unit of this value; possible: m, mm, cm, dm.";
    const std::pair<const char *, const char *> inputs[] = {
        {"",         "Please enter a value."},
        {"   ",      "Please enter a value."},
        {"abc",      NUMBER                 },
        {"mm",       NUMBER                 },
        {"1.234,5",  NUMBER                 },
        {"1 234 mm", NUMBER                 },
        {"12.5.3",   NUMBER                 },
        {"--5",      NUMBER                 },
        {"nan",      NUMBER                 },
        {"inf mm",   NUMBER                 },
        {"1e999",    NUMBER                 },
        {"0x10",     UNIT                   },
        {"5 s",      UNIT                   },
        {"5 parsec", UNIT                   },
        {"5 e",      UNIT                   },
        {"5 mm mm",  UNIT                   },
    };
    QtExt::ValueEdit edit(Parameter("Width", 12.5, Unit("mm")));
    edit.setToolTip("Width of the layer");
    for (const auto & [typed, message] : inputs) {
        SCOPED_TRACE(typed);
        QSignalSpy messages(&edit, &QtExt::ValueEdit::messageChanged);
        QSignalSpy values(&edit, &QtExt::ValueEdit::valueChanged);
        type(edit, typed);
        EXPECT_FALSE(edit.isValid());
        EXPECT_TRUE(edit.errorText().endsWith(message)) << edit.errorText().toStdString();
        EXPECT_EQ(messages.last().first().toString(), edit.errorText());
        EXPECT_EQ(edit.toolTip(), edit.errorText());
        QTest::keyClick(&edit, Qt::Key_Return);
        EXPECT_EQ(edit.text(), typed); // stays for mending
        EXPECT_EQ(edit.parameter(), Parameter("Width", 12.5, Unit("mm")));
        EXPECT_EQ(values.count(), 0);
        QTest::keyClick(&edit, Qt::Key_Escape);
        EXPECT_EQ(edit.text(), "12.5 mm");
        EXPECT_TRUE(edit.isValid());
        EXPECT_EQ(edit.toolTip(), "Width of the layer");
    }
}

TEST(ValueEdit, ShowsRangeErrorsInTheUnitTyped) {
    struct Case {
        const char * typed;
        const char * message;
    };
    QtExt::ValueEdit edit(Parameter("Width", 12.5, Unit("mm")));
    edit.setMinimum(1, Unit("mm"));
    edit.setMaximum(0.3, Unit("m"));
    for (const Case & c : {
             Case{"0.9",     "The value must lie between 1 mm and 300 mm." },
             Case{"31 cm",   "The value must lie between 0.1 cm and 30 cm."},
             Case{"30 cm",   ""                                            },
             Case{"0.3 m",   ""                                            },
             Case{"300",     ""                                            },
             Case{"1",       ""                                            },
             Case{"0.001 m", ""                                            }
    }) {
        type(edit, c.typed);
        EXPECT_EQ(edit.errorText(), c.message) << c.typed;
    }
    QtExt::ValueEdit temperature(Parameter("T", 20, Unit("C")));
    temperature.setMinimum(0, Unit("K"), true);
    for (const Case & c : {
             Case{"-273.15", "The value must be greater than -273.15 °C."},
             Case{"0 K",     "The value must be greater than 0 K."        },
             Case{"-273",    ""                                           },
             Case{"1e300",   ""                                           }
    }) {
        type(temperature, c.typed);
        EXPECT_EQ(temperature.errorText(), c.message) << c.typed;
    }
    // 0.9 cm is 0.009000000000000001 m: the rounding of the conversion is no reason to refuse it.
    QtExt::ValueEdit thin(Parameter("Width", 1, Unit("mm")));
    thin.setMaximum(0.009, Unit("m"));
    type(thin, "0.9 cm");
    EXPECT_EQ(thin.errorText(), "");
    // A value set by the program is checked too, and a range set later.
    temperature.setParameter(Parameter("T", -300, Unit("C")));
    EXPECT_FALSE(temperature.isValid());
    edit.setParameter(Parameter("Width", 250, Unit("mm")));
    EXPECT_TRUE(edit.isValid());
    edit.setMaximum(200, Unit("mm"), true);
    EXPECT_EQ(edit.errorText(), "The value must be less than 200 mm.");
}

TEST(ValueEdit, SwitchesUnitsWithoutLosingTheValue) {
    QtExt::ValueEdit edit(Parameter("Width", 12.3, Unit("mm")));
    QSignalSpy values(&edit, &QtExt::ValueEdit::valueChanged);
    const double value = edit.parameter().value();
    for (const auto & [unit, shown] : {
             std::pair{"m",  "0.0123 m"},
             {"cm", "1.23 cm" },
             {"dm", "0.123 dm"},
             {"mm", "12.3 mm" }
    }) {
        edit.setUnit(Unit(unit));
        EXPECT_EQ(edit.text(), shown);
        EXPECT_EQ(edit.parameter().value(), value);
        EXPECT_EQ(edit.parameter().ioUnit(), Unit(unit));
    }
    EXPECT_EQ(values.count(), 4);
    QtExt::ValueEdit temperature(Parameter("T", 273.25, Unit("K")));
    temperature.setUnit(Unit("C"));
    EXPECT_EQ(temperature.text(), "0.1 °C"); // not 0.10000000000002274 °C
    type(edit, "7");                         // a bare number is in the unit shown
    EXPECT_DOUBLE_EQ(edit.parameter().value(), 0.007);
}

TEST(ValueEdit, MenuOffersTheUnitsOfTheKind) {
    QtExt::ValueEdit edit(Parameter("Width", 12.5, Unit("mm")));
    edit.show();
    QTimer::singleShot(0, [] {
        auto * menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QStringList labels;
        for (const QAction * action : menu->actions())
            labels << action->text();
        EXPECT_EQ(labels, (QStringList{"0.0125 m", "12.5 mm", "1.25 cm", "0.125 dm"}));
        menu->findChild<QAction *>("cm")->trigger();
        menu->close();
    });
    QTest::keyClick(&edit, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(edit.text(), "1.25 cm");
}

TEST(ValueEdit, EnterAndEscapeReachTheDialogOnlyWhenNothingIsPending) {
    QDialog dialog;
    auto * layout = new QVBoxLayout(&dialog);
    auto * edit = new QtExt::ValueEdit(Parameter("Width", 12.5, Unit("mm")));
    auto * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    layout->addWidget(edit);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QSignalSpy values(edit, &QtExt::ValueEdit::valueChanged);
    dialog.show();

    type(*edit, "3 cm");
    QTest::keyClick(edit, Qt::Key_Enter);
    EXPECT_EQ(values.count(), 1);
    EXPECT_EQ(accepted.count(), 0);
    type(*edit, "4 cm");
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(edit->text(), "3 cm");
    EXPECT_EQ(rejected.count(), 0);
    type(*edit, "wrong");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(accepted.count(), 0);
    QTest::keyClick(edit, Qt::Key_Escape);
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(values.count(), 1);

    dialog.show();
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(rejected.count(), 1);
}

TEST(ValueEdit, LeavingTakesOverAndEmptyMayBeAllowed) {
    QtExt::ValueEdit edit(Parameter("Width", 12.5, Unit("mm")));
    QSignalSpy values(&edit, &QtExt::ValueEdit::valueChanged);
    type(edit, "2,5cm");
    QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&edit, &leave);
    EXPECT_EQ(edit.text(), "2.5 cm");
    EXPECT_EQ(values.count(), 1);

    edit.setEmptyAllowed(true);
    type(edit, "");
    EXPECT_TRUE(edit.isValid());
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_TRUE(edit.parameter().empty());
    EXPECT_EQ(values.count(), 2);
    type(edit, "3"); // the unit is remembered
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(edit.parameter(), Parameter("Width", 3, Unit("cm")));
}

/// No unit of the registry may be unreadable by the field that shows it.
TEST(ValueEdit, EveryUnitReadsItsOwnText) {
    const KOR::UnitList & list = KOR::UnitList::instance();
    for (std::size_t i = 1; i < list.size(); ++i) {
        const Parameter expected("Name", 2.5, Unit(i));
        QtExt::ValueEdit edit(Parameter("Name", 1, Unit(i)));
        edit.setText("2,5 " + QString::fromStdString(Unit(i).name()));
        EXPECT_EQ(edit.parameter(), expected) << Unit(i).name();
    }
}

} // namespace
