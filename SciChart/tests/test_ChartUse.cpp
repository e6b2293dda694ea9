#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using SCI::Chart;
using testing::DoubleNear;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();

/// A chart on the screen, from 0 to 100 along both axes.
class ChartUse : public testing::Test {
protected:
    ChartUse() {
        chart.setAxis(SCI::X_BOTTOM, {"Width", "m", "mm"});
        chart.setAxis(SCI::Y_LEFT, {"Temperature", "K", "C"});
        SCI::LineStyle style;
        style.title = "First";
        id = chart.addLine(std::make_shared<SCI::ArrayModel>(x, y), style);
        chart.resize(640, 480);
        chart.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&chart));
        chart.setFocus();
        canvas = chart.findChild<QWidget *>("canvas");
    }
    void expectRange(SCI::axis_t axis, double from, double to, double tolerance = 0.5) const {
        EXPECT_THAT(chart.range(axis).from, DoubleNear(from, tolerance));
        EXPECT_THAT(chart.range(axis).to, DoubleNear(to, tolerance));
    }
    QPoint at(double xShare, double yShare) const {
        return {int(canvas->width() * xShare), int(canvas->height() * yShare)};
    }
    static void wheel(QWidget & widget, const QPoint & place, int clicks, Qt::KeyboardModifiers keys = {}) {
        QWheelEvent event(place, widget.mapToGlobal(place), QPoint(), QPoint(0, 120 * clicks), Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }

    const std::vector<double> x{0, 0.05, 0.1};
    const std::vector<double> y{273.15, 273.15 + 20, 273.15 + 100};
    Chart chart;
    Chart::id_t id;
    QWidget * canvas;
};

TEST_F(ChartUse, SaysWhyNothingIsDrawnAndDrawsNoAxesThen) {
    chart.setPlaceholder("Nothing yet");
    EXPECT_EQ(chart.placeholder(), "");
    const QImage drawn = chart.image({400, 300});
    chart.remove(Chart::ALL);
    chart.addBand(SCI::X_BOTTOM, 0, 0.05, "Layer");
    EXPECT_EQ(chart.placeholder(), "Nothing yet");
    const QImage empty = chart.image({400, 300});
    const auto hasInk = [&empty](const QRect & part) {
        for (int row = part.top(); row <= part.bottom(); ++row)
            for (int column = part.left(); column <= part.right(); ++column)
                if (empty.pixel(column, row) != empty.pixel(0, 0))
                    return true;
        return false;
    };
    EXPECT_FALSE(hasInk({0, 0, 60, 300})); // numbers of the left axis
    EXPECT_TRUE(hasInk({150, 130, 100, 40}));
    chart.setPlaceholder({});
    EXPECT_NE(chart.image({400, 300}), empty);
}

TEST_F(ChartUse, TablesNameColumnsAndWhatHoldsForAllRows) {
    SCI::LineStyle style;
    style.title = "Second";
    style.column = "Dew point of Second";
    chart.addLine(std::make_shared<SCI::ArrayModel>(x, y), style);
    chart.setConstantColumn("Time [d]", 0.25);
    EXPECT_EQ(chart.csv().substr(0, chart.csv().find('\n')),
              "Time [d],Width [mm],First: Temperature [°C],Dew point of Second [°C]");
    EXPECT_THAT(chart.csv(), testing::HasSubstr("\n0.25,50,20,20\n"));
}

TEST_F(ChartUse, UnitsOfLongTitlesAreNotCutOff) {
    chart.resize(300, 160);
    chart.setAxis(SCI::Y_LEFT, {"A quantity with a name that is longer than the chart is high", "K", "C"});
    EXPECT_TRUE(chart.axisText(SCI::Y_LEFT).endsWith("… [°C]"));
    EXPECT_THAT(chart.csv(), testing::HasSubstr("longer than the chart is high [°C]"));
    chart.resize(900, 900);
    EXPECT_TRUE(chart.axisText(SCI::Y_LEFT).endsWith("high [°C]"));
}

TEST_F(ChartUse, WheelZoomsAtItsPlace) {
    wheel(*canvas, at(0, 1), 1);
    expectRange(SCI::X_BOTTOM, 0, 80);
    expectRange(SCI::Y_LEFT, 0, 80);
    wheel(*canvas, at(0, 1), -1);
    expectRange(SCI::X_BOTTOM, 0, 100);
    wheel(*canvas, at(0.5, 0.5), 2, Qt::ControlModifier);
    expectRange(SCI::X_BOTTOM, 18, 82);
    expectRange(SCI::Y_LEFT, 0, 100);
    chart.showAll();
    wheel(*canvas, at(0.5, 0.5), 1, Qt::ShiftModifier);
    expectRange(SCI::X_BOTTOM, 0, 100, 1e-9);
    expectRange(SCI::Y_LEFT, 10, 90);
}

TEST_F(ChartUse, PreviousViewTakesBackWheelAndKeysInOneStep) {
    EXPECT_FALSE(chart.hasPrevious());
    QTest::keyClick(&chart, Qt::Key_Home); // shows what is shown
    EXPECT_FALSE(chart.hasPrevious());
    for (int i = 0; i < 3; ++i)
        wheel(*canvas, at(0, 1), 1);
    expectRange(SCI::X_BOTTOM, 0, 51.2);
    chart.setRange(SCI::X_BOTTOM, {10, 20});
    QTest::mousePress(canvas, Qt::MiddleButton, {}, at(0.5, 0.5)); // ends what belongs together
    QTest::mouseRelease(canvas, Qt::MiddleButton, {}, at(0.5, 0.5));
    QTest::keyClick(&chart, Qt::Key_Right);
    QTest::keyClick(&chart, Qt::Key_Plus);
    expectRange(SCI::X_BOTTOM, 12, 20);
    QTest::keyClick(&chart, Qt::Key_Backspace);
    expectRange(SCI::X_BOTTOM, 10, 20, 1e-9);
    QTest::keyClick(&chart, Qt::Key_Backspace);
    expectRange(SCI::X_BOTTOM, 0, 100, 1e-9);
    EXPECT_FALSE(chart.hasPrevious());
}

TEST_F(ChartUse, DraggingZoomsAndMoves) {
    const auto drag = [this](QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(canvas, button, keys, from);
        QTest::mouseMove(canvas, (from + to) / 2);
        QMouseEvent move(QEvent::MouseMove, to, canvas->mapToGlobal(to), Qt::NoButton, button, keys);
        QApplication::sendEvent(canvas, &move);
        QTest::mouseRelease(canvas, button, keys, to);
    };
    drag(at(0.2, 0.9), at(0.6, 0.5), Qt::LeftButton);
    expectRange(SCI::X_BOTTOM, 20, 60);
    expectRange(SCI::Y_LEFT, 10, 50);
    drag(at(0.25, 0.5), at(0.75, 0.5), Qt::LeftButton); // flat: along x alone
    expectRange(SCI::X_BOTTOM, 30, 50);
    expectRange(SCI::Y_LEFT, 10, 50);
    QTest::keyClick(&chart, Qt::Key_Backspace);
    expectRange(SCI::X_BOTTOM, 20, 60);
    drag(at(0.5, 0.5), at(0.75, 0.25), Qt::MiddleButton);
    expectRange(SCI::X_BOTTOM, 10, 50);
    expectRange(SCI::Y_LEFT, 0, 40);
    drag(at(0.5, 0.5), at(0.25, 0.5), Qt::LeftButton, Qt::ShiftModifier);
    expectRange(SCI::X_BOTTOM, 20, 60);
    QTest::mouseDClick(canvas, Qt::LeftButton, {}, at(0.5, 0.5));
    expectRange(SCI::X_BOTTOM, 0, 100, 1e-9);
    EXPECT_TRUE(chart.isAutoRange(SCI::X_BOTTOM));
    while (chart.hasPrevious())
        chart.showPrevious();
    expectRange(SCI::X_BOTTOM, 0, 100, 1e-9);
}

TEST_F(ChartUse, KeysMoveZoomAndGoBack) {
    QTest::keyClick(&chart, Qt::Key_Right);
    expectRange(SCI::X_BOTTOM, 10, 110);
    QTest::keyClick(&chart, Qt::Key_Up);
    expectRange(SCI::Y_LEFT, 10, 110);
    QTest::keyClick(&chart, Qt::Key_Plus);
    expectRange(SCI::X_BOTTOM, 20, 100);
    QTest::keyClick(&chart, Qt::Key_Home);
    expectRange(SCI::X_BOTTOM, 0, 100, 1e-9);
    QSignalSpy moved(&chart, &Chart::cursorMoved);
    QTest::keyClick(&chart, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(moved.size(), 1);
    EXPECT_NEAR(moved[0][0].toDouble(), 50 + 1000.0 / canvas->width(), 0.5);
    QTest::keyClick(&chart, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    // the table is in the clipboard; that it is whole is another test
}

TEST_F(ChartUse, CursorTellsTheDrawnValues) {
    EXPECT_EQ(chart.valuesAt(50), (QStringList{"Width: 50 mm", "First: 20 °C"}));
    EXPECT_EQ(chart.valuesAt(75), (QStringList{"Width: 75 mm", "First: 60 °C"}));
    EXPECT_EQ(chart.valuesAt(101), QStringList{"Width: 101 mm"}) << "beside the series";
    const std::vector<double> logarithms{0.01, 1, NONE};
    chart.setAxis(SCI::Y_RIGHT, {"K", "s", "s", SCI::LOGARITHMIC});
    SCI::LineStyle style;
    style.yAxis = SCI::Y_RIGHT;
    chart.addLine(std::make_shared<SCI::ArrayModel>(x, logarithms), style);
    EXPECT_EQ(chart.valuesAt(25).value(2), "K: 0.1 s") << "halfway on the line that is drawn";
    EXPECT_EQ(chart.valuesAt(75).value(2), "K: no value") << "a gap";
    chart.setSeriesVisible(id, false);
    EXPECT_EQ(chart.valuesAt(25), (QStringList{"Width: 25 mm", "K: 0.1 s"}));
}

TEST_F(ChartUse, ClickInTheLegendHides) {
    QSignalSpy changed(&chart, &Chart::seriesVisibilityChanged);
    QWidget * label = nullptr;
    for (QWidget * widget : chart.findChild<QWidget *>("legend")->findChildren<QWidget *>())
        if (widget->inherits("QwtLegendLabel"))
            label = widget;
    ASSERT_NE(label, nullptr);
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_FALSE(chart.isSeriesVisible(id));
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Space);
    EXPECT_TRUE(chart.isSeriesVisible(id));
    EXPECT_EQ(changed.size(), 2);
}

/// Opens the dialog and works on it before it blocks.
void inDialog(Chart & chart, const std::function<void(QDialog &)> & work) {
    bool hasRun = false;
    QTimer::singleShot(0, &chart, [&] {
        auto * dialog = chart.findChild<QDialog *>("axisDialog");
        ASSERT_NE(dialog, nullptr);
        EXPECT_LE(dialog->sizeHint().height(), 700);
        work(*dialog);
        hasRun = true;
        dialog->close();
    });
    chart.editAxes(SCI::X_BOTTOM);
    EXPECT_TRUE(hasRun);
}
void type(QDialog & dialog, const char * name, const char * text) {
    auto * edit = dialog.findChild<QLineEdit *>(name);
    ASSERT_NE(edit, nullptr) << name;
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

TEST_F(ChartUse, RangesAreTypedInAnyUnit) {
    inDialog(chart, [](QDialog & dialog) {
        const auto * message = dialog.findChild<QLabel *>("message");
        auto * ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        const struct {
            const char *from, *to, *message;
        } faults[] = {
            {"x", "5", "'x' is no number."                  },
            {"7", "5", "The range must begin below its end."},
        };
        for (const auto & fault : faults) {
            type(dialog, "xBottomFrom", fault.from);
            type(dialog, "xBottomTo", fault.to);
            EXPECT_EQ(message->text(), fault.message);
            EXPECT_FALSE(ok->isEnabled());
        }
        type(dialog, "xBottomFrom", "2,5");
        type(dialog, "xBottomTo", "50");
        EXPECT_FALSE(dialog.findChild<QCheckBox *>("xBottomAuto")->isChecked());
        auto * unit = dialog.findChild<QComboBox *>("xBottomUnit");
        unit->setCurrentIndex(unit->findData("cm"));
        EXPECT_EQ(dialog.findChild<QLineEdit *>("xBottomFrom")->text(), "0.25");
        type(dialog, "yLeftFrom", "0");
        auto * scale = dialog.findChild<QComboBox *>("yLeftScale");
        EXPECT_EQ(scale->count(), 2) << "temperatures are no dates";
        scale->setCurrentIndex(SCI::LOGARITHMIC);
        EXPECT_EQ(message->text(), "A logarithmic axis begins above 0.");
        scale->setCurrentIndex(SCI::LINEAR);
        ok->click();
    });
    EXPECT_EQ(chart.axis(SCI::X_BOTTOM).shownUnit, "cm");
    expectRange(SCI::X_BOTTOM, 0.25, 5, 1e-9);
    chart.setAxis(SCI::X_BOTTOM, {"Width", "m", "m"});
    expectRange(SCI::X_BOTTOM, 0.0025, 0.05, 1e-9);
}

TEST_F(ChartUse, DatesAreTyped) {
    chart.setAxis(SCI::X_BOTTOM, {"", "s", "h", SCI::DATE, 2021});
    inDialog(chart, [](QDialog & dialog) {
        type(dialog, "xBottomFrom", "29.02.2021");
        EXPECT_EQ(dialog.findChild<QLabel *>("message")->text(), "'29.02.2021' is no date, expected 15.03.2021 12:00.");
        type(dialog, "xBottomFrom", "1.3.2021");
        type(dialog, "xBottomTo", "01.01.2022 12:30");
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    expectRange(SCI::X_BOTTOM, 59 * 24, 365 * 24 + 12.5, 1e-6);
    EXPECT_EQ(chart.valuesAt(59 * 24 + 1).value(0), "1 Mar 2021 01:00");
}

TEST_F(ChartUse, MenuOffersAndPrintingIsLight) {
    QMenu menu;
    chart.fillMenu(menu);
    QStringList names;
    for (const QAction * action : menu.actions())
        if (!action->isSeparator())
            names << action->objectName();
    EXPECT_EQ(names, (QStringList{"showAll", "back", "axes", "copyPicture", "copySvg", "copyCsv", "savePicture",
                                  "saveCsv", "print"}));
    const QTemporaryDir directory;
    QPrinter printer;
    printer.setOutputFileName(directory.filePath("a.pdf"));
    chart.setDark(true);
    chart.print(printer);
    QFile file(directory.filePath("a.pdf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("/Count 1\n"));
    EXPECT_LT(chart.image(QSize(200, 150)).pixelColor(1, 1).lightness(), 128) << "the chart itself stays dark";
}

} // namespace
