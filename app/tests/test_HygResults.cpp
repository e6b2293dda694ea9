#include "ResultTesting.h"

#include "HygSettings.h"
#include "document/HygProjectHandler.h"
#include "results/HygAnimation.h"
#include "results/HygMeasuredData.h"
#include "results/HygResultStatistics.h"
#include "results/HygResultTree.h"
#include "results/HygResultsView.h"
#include "results/HygTimeBar.h"

#include <DATAIO/DataWriter.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

#include <cmath>

namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(HygResultsTest, TellsWhenTheGeometryIsNotTheirs) {
    const QString path = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    EXPECT_TRUE(HygResultFile(path).geometryProblem().isEmpty());
    EXPECT_EQ(HygResultFile(path).format(), HygResultFile::Format::PROFILE_X);
    EXPECT_EQ(HygResultFile(path).placeText(3), "x = 80 mm, Wool");
    makeGeometry("profile.h6g", 5, 1); // another construction in its place
    EXPECT_THAT(HygResultFile(path).geometryProblem().toStdString(), HasSubstr("is not the one"));
    QFile::remove(results("profile.h6g"));
    const HygResultFile lost(path);
    EXPECT_THAT(lost.geometryProblem().toStdString(), HasSubstr("is missing"));
    EXPECT_EQ(lost.format(), HygResultFile::Format::SERIES);
    EXPECT_EQ(lost.valueCount(), 4u);
}

TEST_F(HygResultsTest, FindsTimesAndFollowsAGrowingFile) {
    HygResultFile file(writeProfile("Temperature.h6b", "Temperature", "C", 10));
    EXPECT_EQ(file.indexAt(-5), 0u);
    EXPECT_EQ(file.indexAt(3600 * 3.4), 3u);
    EXPECT_EQ(file.indexAt(3600 * 3.6), 4u);
    EXPECT_EQ(file.indexAt(1e9), 9u);
    EXPECT_THAT(file.values(2),
                ElementsAre(12, DoubleNear(12.1, 1e-12), DoubleNear(12.2, 1e-12), DoubleNear(12.3, 1e-12)));
    auto writer = DATAIO::DataWriter::resume(file.path().toStdString(), file.header(), 9);
    writer.append(10, std::vector<double>(4, 1.0));
    writer.flush();
    EXPECT_TRUE(file.update());
    EXPECT_EQ(file.timeCount(), 11u);
    EXPECT_THROW(file.values(11), KOR::Exception);
}

TEST_F(HygResultsTest, LongSeriesKeepTheirPeaks) {
    makeGeometry("profile.h6g", 4, 1);
    DataHeader h = header("profile.h6g", "Temperature", "C");
    h.indices = {0};
    constexpr int COUNT = 3 * static_cast<int>(HygResultFile::MAX_POINTS);
    const auto peaks = [](int t, double) { return t == 12345 ? 99.0 : t == 100000 ? -99.0 : std::sin(t); };
    for (const bool binary : {true, false}) {
        const QString path = write(binary ? "Long.h6b" : "Long.h6o", h, COUNT, peaks, binary);
        const HygResultFile::Series series = HygResultFile::readSeries(path, 0, false);
        EXPECT_TRUE(series.isReduced);
        EXPECT_LE(series.values.size(), HygResultFile::MAX_POINTS + 2);
        EXPECT_TRUE(std::is_sorted(series.times.begin(), series.times.end()));
        const auto high = std::max_element(series.values.begin(), series.values.end());
        EXPECT_EQ(*high, 99);
        EXPECT_EQ(series.times[static_cast<std::size_t>(high - series.values.begin())], 12345 * 3600.0);
        EXPECT_EQ(*std::min_element(series.values.begin(), series.values.end()), -99);
        EXPECT_LE(HygResultFile::readSeries(path, 0, true).values.size(), 1000u);
    }
    EXPECT_FALSE(HygResultFile::readSeries(results("Long.h6b"), 7, false).problem.isEmpty());
}

TEST(HygResultStatistics, FiguresOfCoursesAndPlaces) {
    // A triangle from 0 to 2 and back in 4 s.
    const std::vector<double> times{0, 2, 4}, values{0, 2, 0};
    const auto s = HygResultStatistics::ofCourse(times, values, 1.0);
    EXPECT_EQ(s.count, 3u);
    EXPECT_DOUBLE_EQ(s.minimum, 0);
    EXPECT_DOUBLE_EQ(s.maximum, 2);
    EXPECT_DOUBLE_EQ(s.atMaximum, 2);
    EXPECT_DOUBLE_EQ(s.mean, 1);
    EXPECT_DOUBLE_EQ(s.deviation, std::sqrt(4.0 / 3 - 1)); // mean square of a triangle of height 2: 4/3
    EXPECT_DOUBLE_EQ(s.above, 2);                          // half of the time
    const auto p =
        HygResultStatistics::ofPlaces(std::vector{1.0, 3.0, std::nan("")}, std::vector{3.0, 1.0, 5.0}, {}, 2);
    EXPECT_DOUBLE_EQ(p.mean, 1.5);
    EXPECT_DOUBLE_EQ(p.above / p.weight, 0.25);
    EXPECT_EQ(p.count, 2u);
    EXPECT_DOUBLE_EQ(p.missing, 5);
    EXPECT_EQ(HygResultStatistics::ofCourse({}, {}, {}).count, 0u);
    const double none = std::nan("");
    const auto gaps = HygResultStatistics::ofCourse(std::vector{0.0, 1.0, 2.0, 3.0, 7.0},
                                                    std::vector{none, 4.0, 2.0, none, none}, 3.0);
    EXPECT_DOUBLE_EQ(gaps.mean, 3);
    EXPECT_DOUBLE_EQ(gaps.above, 0.5);
    EXPECT_DOUBLE_EQ(gaps.missing, 6);
    EXPECT_DOUBLE_EQ(HygResultStatistics::ofCourse(std::vector{0.0, 1.0}, std::vector{none, 4.0}, {}).mean, 4);
}

TEST_F(HygResultsTest, WhatHasNoValueIsToldAsSuch) {
    // Humidity in a plane of 3 x 2 cells, of which the middle one below holds no water, and the last from 5 h on.
    const auto humidity = [](double t, double i) { return i == 1 || (i == 5 && t >= 5) ? std::nan("") : 40 + t + i; };
    makeGeometry("plane.h6g", 3, 2);
    DataHeader plane = header("plane.h6g", "RelativeHumidity", "%");
    plane.indices = {0, 1, 2, 3, 4, 5};
    makeGeometry("profile.h6g", 3, 1);
    DataHeader profile = header("profile.h6g", "RelativeHumidity", "%"), temperature = profile;
    profile.indices = temperature.indices = {0, 1, 2};
    temperature.quantityKeyword = "Temperature";
    temperature.valueUnit = "C";
    const QString air = write("T.h6b", temperature, 10, [](double, double) { return 20; });
    HygResultsView view(&m_projects);
    view.resize(1000, 700);
    view.show();
    HygResultChart & chart = view.chart();
    const QLabel & figures = *view.findChild<QLabel *>("statistics");
    const auto table = [&] { return chart.csv() + figures.text().toStdString() + chart.problems().toStdString(); };
    for (const bool binary : {true, false}) {
        const QString field = write(binary ? "Plane.h6b" : "Plane.h6o", plane, 10, humidity, binary);
        const QString line = write(binary ? "Line.h6b" : "Line.h6o", profile, 10, humidity, binary);
        view.tree().refresh();
        view.tree().choose({field});
        ASSERT_TRUE(chart.isField());
        view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::AlongX);
        view.findChild<QSlider *>("cutPlace")->setValue(0);
        for (const char * flag : {"smooth", "isolines"})
            view.findChild<QCheckBox *>(flag)->setChecked(true);
        view.findChild<QLineEdit *>("threshold")->setText("47.5");
        view.timeBar().setIndex(9);
        // Areas in cm2: 1, 2, 3, 2, 4, 6.
        EXPECT_THAT(figures.text().toStdString(),
                    HasSubstr("49 % to 53 %, mean 51.8 %, above 47.5 % in 100 % of the extent, no value in 44.44 %"));
        EXPECT_EQ(chart.chart().range(SCI::Y_RIGHT).from, 40);
        EXPECT_EQ(chart.chart().range(SCI::Y_RIGHT).to, 53); // 9 h, (1, 1)
        EXPECT_EQ(chart.chart().valuesAt(20, 5).value(2), "Relative humidity: no value");
        EXPECT_EQ(chart.cutChart().valuesAt(20).value(1), "Relative humidity: no value");
        EXPECT_THAT(table(), HasSubstr("\n0.375,20,5,\n0.375,45,5,51\n"));
        EXPECT_THAT(table(), HasSubstr("\"Plane, y = 0 mm [%]\"\n0.375,5,49\n0.375,20,\n0.375,45,51\n"));
        EXPECT_THAT(table(), Not(HasSubstr("nan")));
        EXPECT_FALSE(chart.image({400, 300}).isNull());
        view.findChild<QLineEdit *>("threshold")->clear();
        view.findChild<QComboBox *>("chartMode")->setCurrentIndex(1);
        view.findChild<QSpinBox *>("place")->setValue(6);
        EXPECT_THAT(figures.text().toStdString(),
                    HasSubstr("45 % to 49 %, mean 47 %, no value for 55.56 % of the time"));
        view.findChild<QSpinBox *>("place")->setValue(2);
        EXPECT_THAT(figures.text().toStdString(), HasSubstr("Brick: no value"));
        EXPECT_EQ(chart.chart().placeholder(), "The file holds no values that could be drawn.");
        view.findChild<QComboBox *>("chartMode")->setCurrentIndex(0);

        view.tree().choose({line, air});
        view.findChild<QCheckBox *>("dewPoint")->setChecked(true);
        view.timeBar().setIndex(0);
        EXPECT_EQ(chart.problems(), "");
        EXPECT_THAT(table(), HasSubstr("\n0,5,40,20,5.98")); // 20 C and 40 %: 5.98 C by the Magnus formula
        EXPECT_THAT(table(), HasSubstr("\n0,20,,20,\n"));
        EXPECT_THAT(table(), Not(HasSubstr("nan")));
        EXPECT_EQ(chart.chart().valuesAt(20).value(1), "Line: no value");
        QFile::remove(line);
        QFile::remove(field);
    }
    // Reduced series keep their gaps and what is between them.
    DataHeader one = profile;
    one.indices = {0};
    constexpr int COUNT = 3 * static_cast<int>(HygResultFile::MAX_POINTS);
    const auto values =
        HygResultFile::readSeries(
            write("Long.h6b", one, COUNT,
                  [](int t, double) {
                      return t % 7 == 0 ? std::nan("") : t == 12346 ? 99.0 : t == 100000 ? -99.0 : std::sin(t);
                  }),
            0, false)
            .values;
    EXPECT_EQ(std::count(values.begin(), values.end(), 99), 1);
    EXPECT_EQ(std::count(values.begin(), values.end(), -99), 1);
    EXPECT_GT(std::count_if(values.begin(), values.end(), [](double v) { return std::isnan(v); }), 1000);
}

TEST_F(HygResultsTest, WhatAQuantityHasNotIsNotOffered) {
    makeGeometry("profile.h6g", 4, 1);
    DataHeader h = header("profile.h6g", "Temperature", "C");
    h.indices = {3};
    const QString temperature = write("T.h6b", h, 10, [](double, double) { return 20; });
    h.quantityKeyword = "MoistureMass";
    h.valueUnit = "kg";
    const QString mass = write("Mass.h6b", h, 10, [](double t, double) { return t; });
    HygResultsView view(&m_projects);
    const auto & dewPoint = *view.findChild<QCheckBox *>("dewPoint");
    const auto & mould = *view.findChild<QCheckBox *>("mouldLimit");
    const auto offers = [&](const QStringList & files) {
        view.tree().choose(files);
        return std::pair(dewPoint.isEnabled(), mould.isEnabled());
    };
    EXPECT_EQ(offers({mass}), std::pair(false, false));
    EXPECT_THAT(dewPoint.toolTip().toStdString(), HasSubstr("belongs to temperatures"));
    EXPECT_THAT(mould.toolTip().toStdString(), HasSubstr("belongs to relative humidities"));
    EXPECT_EQ(offers({temperature}), std::pair(false, false));
    EXPECT_THAT(dewPoint.toolTip().toStdString(), HasSubstr("of the same places"));
    // The mean of the same place, some records behind or ahead; not of another place, an extreme or another time.
    h.quantityKeyword = "RelativeHumidity";
    h.valueUnit = "%";
    h.spaceType = DataHeader::SPACE_MEAN;
    const auto humidity = [](double, double) { return 50; };
    DataHeader others[] = {h, h, h};
    others[0].indices = {2};
    others[1].timeType = DataHeader::TIME_MAX;
    others[2].indices = {3, 2};
    others[2].spaceType = DataHeader::SPACE_MAX;
    for (const DataHeader & other : others) {
        const QString path = write("Other.h6b", other, 10, humidity);
        view.tree().refresh();
        EXPECT_EQ(offers({path}), std::pair(false, true));
        EXPECT_EQ(offers({temperature}), std::pair(false, false));
        QFile::remove(path);
    }
    const QString same = write("Same.h6b", h, 8, humidity);
    view.tree().refresh();
    EXPECT_EQ(offers({temperature}), std::pair(true, false));
    view.findChild<QCheckBox *>("dewPoint")->setChecked(true);
    EXPECT_THAT(view.chart().csv(), HasSubstr("\n0,20,0,9.2")); // 20 C and 50 %: 9.27 C
    EXPECT_EQ(view.chart().problems(), "");
}

TEST_F(HygResultsTest, MeasuredTablesOfManyKinds) {
    struct Row {
        const char * text;
        std::vector<double> times; ///< [s]
        double firstValue;
        const char * unit;
        const char * failure; ///< part of the message
    };
    constexpr double H = 3600, D = 86400;
    const Row rows[] = {
        {"Time [h];Inside [C]\n0;20\n1;21\n",                                    {0, H},               20,   "C", nullptr                    },
        {"Time [d];Inside [C]\n0,5;20,5\n1;21\n",                                {D / 2, D},           20.5, "C", nullptr                    },
        {"# logger 7\n2,5\n3,6\n",                                               {2 * H, 3 * H},       5,    "",  nullptr                    },
        {"Date\tT [C]\n2000-03-01 12:00\t7\n2001-01-01 00:00\t8\n",              {59.5 * D, 365 * D},  7,    "C", nullptr                    },
        {"Datum;T\n01.01.2000 01:00;1\n01.01.2000 02:00;\n",                     {H, 2 * H},           1,    "",  nullptr                    },
        {"Date;T\n28.02.2000 23:00;1\n29.02.2000 12:00;9\n2000-03-01 00:00;2\n", {59 * D - H, 59 * D}, 1,    "",  nullptr                    },
        {"Time [h];T [C]\n1;20\n0;21\n",                                         {},                   0,    "",  "Line 3: time goes back"   },
        {"Time [h];T [C]\n1;20\nsoon;21\n",                                      {},                   0,    "",  "Line 3: 'soon' is no time"},
        {"Time [h];T [C]\n",                                                     {},                   0,    "",  "no values"                },
        {"1\n2\n",                                                               {},                   0,    "",  "one column"               },
        {"Time [light years];T\n1;2\n",                                          {},                   0,    "",  "light years"              },
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(row.text);
        KOR::writeFile(results("measured.csv").toStdString(), row.text);
        try {
            const HygMeasuredData data = HygMeasuredData::read(results("measured.csv"), 2000);
            EXPECT_EQ(row.failure, nullptr);
            EXPECT_EQ(data.times, row.times);
            EXPECT_EQ(data.columns.at(0).values.at(0), row.firstValue);
            EXPECT_EQ(data.columns.at(0).unit, row.unit);
        } catch (const KOR::Exception & ex) {
            EXPECT_THAT(ex.what(), HasSubstr(row.failure == nullptr ? "nothing" : row.failure));
        }
    }
}

TEST_F(HygResultsTest, FluxesAtSidesBecomeArrowsInCells) {
    const DATAIO::GeoFile geometry = makeGeometry("plane.h6g", 3, 2);
    DataHeader h = header("plane.h6g", "TotalFluxHeat", "W/m2");
    h.type = DataHeader::FLUX;
    for (std::uint32_t i = 0; i < geometry.m_sides.size(); ++i)
        if (geometry.m_sides[i].location <= DATAIO::GeoFile::TOP)
            h.indices.push_back(i);
    // 3 W/m2 to the right, 4 W/m2 upwards.
    const QString path = write("Flux.h6b", h, 1, [&](int, double i) {
        return geometry.m_sides[h.indices[static_cast<std::size_t>(i)]].location <= DATAIO::GeoFile::RIGHT ? 3.0 : 4.0;
    });
    HygResultFile file(path);
    EXPECT_EQ(file.format(), HygResultFile::Format::PLANE_XY);
    HygResultModels::Arrows arrows(file);
    arrows.setValues(file.values(0));
    HygResultModels::Field field(file);
    field.setValues(file.values(0));
    ASSERT_EQ(arrows.count(), 6u);
    for (std::size_t i = 0; i < arrows.count(); ++i) {
        EXPECT_EQ(arrows.xPart(i), 3);
        EXPECT_EQ(arrows.yPart(i), 4);
        EXPECT_EQ(field.values[i], 5);
    }
}

TEST_F(HygResultsTest, PlanesOfAVolumeAreChosen) {
    DATAIO::GeoFile geometry;
    geometry.m_materials = {
        {1, 0xff336699, "Brick"}
    };
    geometry.setGrid({
        {{0.1, 0.2, 0.3}, {0.1, 0.2}, {0.1, 0.1, 0.1, 0.1}}
    });
    geometry.makeTables(std::vector<std::uint32_t>(24, 1));
    geometry.write(results("volume.h6g").toStdString(), true);
    DataHeader h = header("volume.h6g", "Temperature", "C");
    for (std::uint32_t i = 0; i < 24; ++i)
        h.indices.push_back(i);
    // 100 k + 10 j + i
    const QString path = write("Volume.h6b", h, 3, [](int t, double n) {
        const int i = static_cast<int>(n);
        return 100.0 * (i / 6) + 10 * (i / 3 % 2) + i % 3 + 0.1 * t;
    });
    HygResultsView view(&m_projects);
    view.tree().choose({path});
    ASSERT_TRUE(view.chart().isField());
    auto & across = *view.findChild<QComboBox *>("planeAcross");
    auto & plane = *view.findChild<QSlider *>("planeSlider");
    const QLabel & figures = *view.findChild<QLabel *>("statistics");
    EXPECT_FALSE(across.isHidden());
    EXPECT_EQ(across.currentIndex(), 2);
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("0.2 °C to 12.2 °C"));
    plane.setValue(3);
    EXPECT_EQ(view.findChild<QLabel *>("planeText")->text(), "z = 350 mm");
    view.timeBar().setIndex(1);
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("300.1 °C to 312.1 °C"));
    across.setCurrentIndex(1); // of two planes only
    EXPECT_EQ(plane.maximum(), 1);
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("10.1 °C to 312.1 °C"));
    across.setCurrentIndex(0);
    plane.setValue(2);
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("2.1 °C to 312.1 °C"));
    EXPECT_EQ(HygResultLayout::fromJson(view.layoutOf("Plane").toJson()).options, view.chart().options());
    view.tree().choose({writeField()});
    EXPECT_TRUE(across.isHidden());
}

TEST_F(HygResultsTest, ViewShowsProfilesCoursesAndTheirFigures) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    const QString humidity = writeProfile("Humidity.h6b", "RelativeHumidity", "%", 60);
    HygResultsView view(&m_projects);
    QLabel & figures = *view.findChild<QLabel *>("statistics");
    view.tree().choose({temperature});
    EXPECT_FALSE(view.chart().isOverTime());
    view.timeBar().setIndex(5);
    // Widths 10, 20, 30, 40 mm: the mean is weighted by them.
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("15 °C to 15.3 °C, mean 15.2 °C"));
    view.findChild<QComboBox *>("unit")->setCurrentText("K");
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("288.15 K to 288.45 K"));
    view.findChild<QComboBox *>("unit")->setCurrentText("°C");
    view.findChild<QLineEdit *>("threshold")->setText("15,15");
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("above 15.15 °C in 70 % of the extent"));

    view.findChild<QCheckBox *>("dewPoint")->click();
    EXPECT_THAT(view.chart().chart().csv(), HasSubstr("Dew point of Temperature"));
    view.timeBar().setIndex(0);
    // 10 C and 60 %: 2.58 C by the Magnus formula.
    EXPECT_THAT(view.chart().chart().csv(), HasSubstr(",2.58"));
    view.tree().choose({temperature, humidity}); // on two axes
    EXPECT_THAT(view.chart().chart().csv(), HasSubstr("Humidity"));
    EXPECT_TRUE(view.chart().problems().isEmpty()) << view.chart().problems().toStdString();

    view.findChild<QComboBox *>("chartMode")->setCurrentIndex(1);
    view.findChild<QSpinBox *>("place")->setValue(4);
    EXPECT_TRUE(view.chart().isComplete());
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("Temperature, x = 80 mm, Wool: 10.3 °C to 19.3 °C"));
    EXPECT_EQ(view.findChild<QLabel *>("placeText")->text(), "x = 80 mm, Wool");
    KOR::writeFile(results("measured.csv").toStdString(), "Time [h];Sensor [K];Wind [m/s]\n0;283.15;1\n5;290.15;2\n");
    view.loadMeasured(results("measured.csv"));
    EXPECT_THAT(view.chart().chart().csv(), HasSubstr("Sensor (measured)"));
    EXPECT_THAT(view.chart().problems().toStdString(), HasSubstr("'Wind' has the unit 'm/s'"));
    view.findChild<QAction *>("removeMeasured")->trigger();
    EXPECT_THAT(view.chart().chart().csv(), Not(HasSubstr("Sensor")));
}

TEST_F(HygResultsTest, AThresholdBelongsToItsQuantity) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    const QString humidity = writeProfile("Humidity.h6b", "RelativeHumidity", "%", 60);
    HygResultsView view(&m_projects);
    view.tree().choose({temperature});
    auto & unit = *view.findChild<QComboBox *>("unit");
    auto & threshold = *view.findChild<QLineEdit *>("threshold");
    const QLabel & figures = *view.findChild<QLabel *>("statistics");
    view.timeBar().setIndex(5);
    threshold.setText("15.15");
    unit.setCurrentText("K");
    EXPECT_EQ(threshold.text(), "288.3");
    EXPECT_THAT(figures.text().toStdString(), HasSubstr("above 288.3 K in 70 % of the extent"));
    unit.setCurrentText("°C");
    EXPECT_EQ(threshold.text(), "15.15");
    threshold.setText("1e999");
    EXPECT_FALSE(view.chart().options().threshold);
    EXPECT_THAT(threshold.toolTip().toStdString(), HasSubstr("'1e999' is not a number"));
    EXPECT_NE(threshold.palette().color(QPalette::Base), QPalette().color(QPalette::Base));
    threshold.setText("15.15");
    EXPECT_EQ(threshold.palette().color(QPalette::Base), QPalette().color(QPalette::Base));
    view.tree().choose({humidity});
    EXPECT_EQ(threshold.text(), "");
    EXPECT_FALSE(view.chart().options().threshold);
    threshold.setText("abc"); // goes with the file
    view.tree().choose({temperature});
    EXPECT_EQ(threshold.text(), "");
    EXPECT_EQ(threshold.palette().color(QPalette::Base), QPalette().color(QPalette::Base));
}

TEST_F(HygResultsTest, LimitsBesideTheValuesAreSeenOrTold) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    HygResultsView view(&m_projects);
    view.tree().choose({temperature});
    auto & threshold = *view.findChild<QLineEdit *>("threshold");
    SCI::Chart & chart = view.chart().chart();
    for (const int mode : {0, 1}) {
        view.findChild<QComboBox *>("chartMode")->setCurrentIndex(mode);
        const SCI::Range before = chart.range(SCI::Y_LEFT);
        for (const double limit : {25.0, -5.0}) {
            threshold.setText(QString::number(limit));
            EXPECT_LT(chart.range(SCI::Y_LEFT).from, std::min(before.from + 1, limit));
            EXPECT_GT(chart.range(SCI::Y_LEFT).to, std::max(before.to - 1, limit));
            EXPECT_EQ(view.chart().problems(), "");
        }
        threshold.setText("5000");
        EXPECT_EQ(chart.range(SCI::Y_LEFT), before);
        EXPECT_THAT(view.chart().problems().toStdString(), HasSubstr("5000 °C lies far from the values"));
        threshold.setText("25");
        view.findChild<QComboBox *>("unit")->setCurrentText("K");
        EXPECT_GT(chart.range(SCI::Y_LEFT).to, 298.15);
        chart.setRange(SCI::Y_LEFT, {285, 286}); // a look at a part stays
        view.chart().refresh();
        threshold.setText("299");
        view.findChild<QComboBox *>("unit")->setCurrentText("°C");
        threshold.clear();
        chart.showAll();
        EXPECT_NEAR(chart.range(SCI::Y_LEFT).to, before.to, 1);
    }
    // Of another project neither unit nor threshold are kept.
    view.findChild<QComboBox *>("unit")->setCurrentText("K");
    threshold.setText("291.5");
    ASSERT_TRUE(m_projects.createProject(m_directory.filePath("other.h6p")));
    EXPECT_EQ(threshold.text(), "");
    EXPECT_EQ(view.chart().options().unit, "");
}

TEST_F(HygResultsTest, TheScaleIsTheSameAtAllTimes) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    const QString humidity = writeProfile("Humidity.h6b", "RelativeHumidity", "%", 60);
    const QString field = writeField();
    HygResultsView view(&m_projects);
    SCI::Chart & chart = view.chart().chart();
    for (const QStringList & files : {
             QStringList{temperature, humidity},
             QStringList{field          }
    }) {
        view.tree().choose(files);
        view.findChild<QCheckBox *>("dewPoint")->setChecked(files.size() > 1);
        const SCI::axis_t axes[] = {SCI::Y_LEFT, SCI::Y_RIGHT};
        std::vector<std::pair<double, double>> seen;
        for (const std::size_t index : {9u, 0u, 5u}) {
            view.timeBar().setIndex(index);
            for (const SCI::axis_t axis : axes)
                seen.emplace_back(chart.range(axis).from, chart.range(axis).to);
            EXPECT_EQ(seen.back(), seen[1]);
            EXPECT_EQ(seen[seen.size() - 2], seen[0]);
        }
        // All values lie within: 10 to 19.3 °C, 60 to 69.3 %; 0 to 14 °C.
        EXPECT_LE(seen[1].first, files.size() > 1 ? 60 : 0);
        EXPECT_GE(seen[1].second, files.size() > 1 ? 69.3 : 14);
        EXPECT_THAT(chart.title().toStdString(), HasSubstr("0.21 d"));
    }
}

/// Answers the questions that come while something is done; their texts.
template <typename Action> QStringList answered(QMessageBox::StandardButton answer, const Action & action) {
    QStringList seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto * box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            seen << box->text();
            box->button(answer)->click();
        }
    });
    timer.start(20);
    action();
    return seen;
}

TEST_F(HygResultsTest, LayoutsAreReplacedAndRemovedAfterAQuestionAndComeBack) {
    HygResultsView view(&m_projects);
    view.tree().choose({writeProfile("Temperature.h6b", "Temperature", "C", 10)});
    view.findChild<QLineEdit *>("threshold")->setText("12");
    ASSERT_TRUE(view.saveLayout("A"));
    auto & story = *view.findChild<QLabel *>("layoutStory");
    EXPECT_TRUE(story.isHidden());
    const auto menuAction = [&](const char * text) -> QAction * {
        QMenu & menu = *view.findChild<QToolButton *>("layouts")->menu();
        emit menu.aboutToShow();
        for (QAction * action : menu.findChildren<QAction *>())
            if (action->text() == QLatin1String(text) && action->menu() == nullptr && action->parent() != &menu)
                return action;
        return nullptr;
    };
    const auto thresholds = [&] {
        std::vector<double> all;
        for (const HygResultLayout & layout : view.layouts())
            all.push_back(layout.options.threshold.value_or(0));
        return all;
    };
    view.findChild<QLineEdit *>("threshold")->setText("13");
    ASSERT_TRUE(view.saveLayout("A"));
    EXPECT_THAT(thresholds(), ElementsAre(13));
    EXPECT_FALSE(story.isHidden());
    emit story.linkActivated("undo");
    EXPECT_THAT(thresholds(), ElementsAre(12));
    EXPECT_TRUE(story.isHidden());

    ASSERT_NE(menuAction("A"), nullptr);
    EXPECT_EQ(answered(QMessageBox::No, [&] { menuAction("A")->trigger(); }), QStringList("Remove the layout 'A'?"));
    EXPECT_THAT(thresholds(), ElementsAre(12));
    answered(QMessageBox::Yes, [&] { menuAction("A")->trigger(); });
    EXPECT_TRUE(view.layouts().empty());
    emit story.linkActivated("undo");
    EXPECT_THAT(thresholds(), ElementsAre(12));
}

TEST_F(HygResultsTest, CoursesTellTheirPlaces) {
    makeGeometry("profile.h6g", 4, 1);
    DataHeader h = header("profile.h6g", "Temperature", "C");
    h.indices = {3};
    const QString single = write("Surface.h6b", h, 10, [](double t, double) { return t; });
    const QString profile = writeProfile("Profile.h6b", "RelativeHumidity", "%", 60);
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    const QString field = writeField();
    HygResultsView view(&m_projects);
    auto & place = *view.findChild<QSpinBox *>("place");
    const auto csv = [&] { return view.chart().chart().csv(); };
    view.tree().choose({single});
    EXPECT_TRUE(place.isHidden());
    view.tree().choose({single, profile}); // the first alone needs no place
    EXPECT_FALSE(place.isHidden());
    EXPECT_EQ(view.chart().chart().title(), "");
    place.setValue(2);
    EXPECT_THAT(csv(), HasSubstr("Time [d],Surface [°C],\"Profile, x = 20 mm, Brick [%]\"\n0,0,60.1\n"));
    EXPECT_EQ(view.findChild<QLabel *>("placeText")->text(), "x = 20 mm, Brick");

    // Profiles and fields tell their time, and dew points what they are.
    view.findChild<QCheckBox *>("dewPoint")->setChecked(true);
    view.tree().choose({temperature});
    view.timeBar().setIndex(6);
    EXPECT_THAT(csv(), HasSubstr("Time [d],x [mm],Temperature [°C],Dew point of Temperature [°C]\n0.25,5,16,"));
    view.tree().choose({field});
    EXPECT_THAT(csv(), HasSubstr("Time [d],x [mm],y [mm],Field [°C]\n0.25,5,5,6\n"));
}

TEST_F(HygResultsTest, EmptyChartsSayWhy) {
    HygResultsView view(&m_projects);
    SCI::Chart & chart = view.chart().chart();
    EXPECT_EQ(chart.placeholder(), "There are no results yet: the view Simulation calculates them.");
    const QString field = writeField();
    makeGeometry("profile.h6g", 4, 1);
    DataHeader h = header("profile.h6g", "Temperature", "C");
    h.indices = {0, 1, 2, 3};
    const QString empty = write("Empty.h6b", h, 0, [](double, double) { return 0; });
    const QString gaps = write("Gaps.h6b", h, 3, [](double, double) { return std::nan(""); });
    view.show();
    EXPECT_EQ(chart.placeholder(), "Choose a result file in the list.");
    view.tree().choose({empty});
    EXPECT_EQ(chart.placeholder(), "Nothing has been written into this file yet.");
    view.tree().choose({gaps});
    EXPECT_EQ(chart.placeholder(), "The file holds no values that could be drawn.");
    view.tree().choose({field});
    EXPECT_EQ(chart.placeholder(), "");
    view.tree().choose({});
    EXPECT_EQ(chart.placeholder(), "Choose a result file in the list.");
}

TEST_F(HygResultsTest, TheTreeTellsQuantityKindAndTimes) {
    writeProfile("Humidity.h6b", "RelativeHumidity", "%", 60);
    writeField();
    HygResultsView view(&m_projects);
    const auto text = [&](const char * name) {
        const QTreeWidgetItem * row = view.tree().findItems(name, Qt::MatchRecursive).value(0);
        return row == nullptr ? QString() : row->text(1) + ", " + row->text(2);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return text("Field") == "Temperature [°C], field × 10"; }));
    EXPECT_EQ(text("Humidity"), "Relative humidity [%], profile × 10");
    EXPECT_EQ(view.tree().findItems("Humidity", Qt::MatchRecursive)[0]->toolTip(2),
              "Relative humidity [%]\nprofile, 10 time(s)");
    // A file that grows, as the run does.
    view.show();
    const DataHeader written = HygResultFile(results("Humidity.h6b")).header();
    auto writer = DATAIO::DataWriter::resume(results("Humidity.h6b").toStdString(), written, 9);
    writer.append(10, std::vector<double>(4, 1.0));
    writer.flush();
    EXPECT_TRUE(QTest::qWaitFor([&] { return text("Humidity") == "Relative humidity [%], profile × 11"; }));
}

TEST_F(HygResultsTest, ACutStandsBelowTheFieldWithItsLayers) {
    const QString path = writeField();
    HygResultsView view(&m_projects);
    view.resize(1000, 700);
    view.show();
    view.tree().choose({path});
    view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::AlongX);
    QCoreApplication::processEvents();
    SCI::Chart & field = view.chart().chart();
    SCI::Chart & cut = view.chart().cutChart();
    const auto ends = [&](const SCI::Chart & chart) {
        const int left = chart.canvas().mapTo(&view, QPoint(0, 0)).x();
        return std::pair(left, left + chart.canvas().width());
    };
    EXPECT_EQ(ends(field), ends(cut));
    EXPECT_EQ(field.range(SCI::X_BOTTOM), cut.range(SCI::X_BOTTOM));
    field.setRange(SCI::X_BOTTOM, {10, 30}); // a look at a part
    EXPECT_EQ(field.range(SCI::X_BOTTOM), cut.range(SCI::X_BOTTOM));
    EXPECT_EQ(view.findChild<QLabel *>("cutText")->text(), "y = 15 mm");
    // A vertical one shows the height of the field and no more.
    field.showAll();
    view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::AlongY);
    QCoreApplication::processEvents();
    EXPECT_NEAR(cut.range(SCI::X_BOTTOM).from, 0, 1e-9);
    EXPECT_NEAR(cut.range(SCI::X_BOTTOM).to, 30, 1e-9);
    EXPECT_EQ(cut.range(SCI::Y_LEFT), field.range(SCI::Y_RIGHT));
    EXPECT_EQ(view.findChild<QLabel *>("cutText")->text(), "x = 30 mm");
}

TEST_F(HygResultsTest, LargeFilesShowSomeAtOnceAndAllOfTheirRange) {
    makeGeometry("plane.h6g", 60, 60);
    DataHeader h = header("plane.h6g", "Temperature", "C");
    for (std::uint32_t i = 0; i < 3600; ++i)
        h.indices.push_back(i);
    // 60 records of 29 kB; the peak lies between those that are looked at first.
    const QString path = write("Large.h6b", h, 60, [](int t, double i) { return t == 17 && i == 1800 ? 99 : 0.1 * t; });
    HygResultsView view(&m_projects);
    view.tree().choose({path});
    EXPECT_NEAR(view.chart().chart().range(SCI::Y_RIGHT).to, 5.9, 1e-9);
    EXPECT_FALSE(view.chart().isComplete());
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.chart().isComplete(); }));
    EXPECT_EQ(view.chart().chart().range(SCI::Y_RIGHT).to, 99);
    // Course of a place, and of another one before the first has been read.
    view.findChild<QComboBox *>("chartMode")->setCurrentIndex(1);
    view.findChild<QSpinBox *>("place")->setValue(7);
    view.findChild<QSpinBox *>("place")->setValue(1801);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.chart().isComplete(); }));
    EXPECT_THAT(view.chart().chart().csv(), HasSubstr(",99\n"));
}

TEST_F(HygResultsTest, AClickShowsOneFileABoxAddsIt) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    const QString humidity = writeProfile("Humidity.h6b", "RelativeHumidity", "%", 60);
    HygResultsView view(&m_projects);
    HygResultTree & tree = view.tree();
    tree.refresh();
    EXPECT_EQ(view.chart().chart().placeholder(), "Choose a result file in the list.");
    view.resize(900, 500);
    view.show();
    QTreeWidgetItem * rows[] = {tree.topLevelItem(0)->child(0), tree.topLevelItem(0)->child(1)};
    const auto click = [&](const QTreeWidgetItem * item) {
        const QRect place = tree.visualItemRect(item);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, QPoint(place.left() + 60, place.center().y()));
    };
    click(rows[0]);
    EXPECT_EQ(tree.chosen(), QStringList(humidity));
    rows[1]->setCheckState(0, Qt::Checked);
    EXPECT_EQ(tree.chosen(), QStringList({humidity, temperature}));
    click(rows[1]); // one alone again
    EXPECT_EQ(tree.chosen(), QStringList(temperature));
    rows[1]->setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(tree.chosen().isEmpty());
    click(rows[1]); // which is the current one already
    EXPECT_EQ(tree.chosen(), QStringList(temperature));
}

TEST_F(HygResultsTest, ViewShowsFieldsWithACut) {
    HygResultsView view(&m_projects);
    const QString field = writeField();
    view.tree().refresh();
    view.tree().choose({field});
    ASSERT_TRUE(view.chart().isField());
    view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::AlongX);
    view.timeBar().setIndex(2);
    EXPECT_THAT(view.chart().cutChart().csv(), HasSubstr("45,7")); // second row: 2 + 3, 4, 5
    EXPECT_FALSE(view.chart().image({400, 300}).isNull());
    view.timeBar().setPlaying(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.timeBar().index() == 9; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.timeBar().isPlaying(); }));
    EXPECT_THAT(view.findChild<QLabel *>("timeText")->text().toStdString(), HasSubstr("0.38 d"));
}

TEST_F(HygResultsTest, LayoutsBringBackWhatWasShown) {
    const QString temperature = writeProfile("Temperature.h6b", "Temperature", "C", 10);
    QDir(m_directory.path()).mkpath("other/results");
    {
        HygResultsView view(&m_projects);
        view.tree().addDirectory(m_directory.filePath("other"));
        view.tree().choose({temperature});
        view.findChild<QLineEdit *>("threshold")->setText("12");
        view.timeBar().setIndex(7);
        ASSERT_TRUE(view.saveLayout("Façade"));
        ASSERT_TRUE(view.saveLayout("Façade")); // in its place
    }
    HygResultsView view(&m_projects);
    ASSERT_EQ(view.layouts().size(), 1u);
    EXPECT_EQ(view.layouts()[0].files, QStringList("results/Temperature.h6b")); // so that the project can move
    view.apply(view.layouts()[0]);
    EXPECT_EQ(view.tree().chosen(), QStringList(temperature));
    EXPECT_EQ(view.tree().furtherDirectories(), QStringList(m_directory.filePath("other")));
    EXPECT_EQ(view.chart().options().threshold, 12);
    EXPECT_EQ(view.timeBar().index(), 7u);
    KOR::writeFile(m_directory.filePath("wall/charts.json").toStdString(), "[{\"name\":5},{]");
    EXPECT_TRUE(view.layouts().empty());
}

TEST_F(HygResultsTest, ExportsPicturesTablesAndAnimations) {
    HygResultsView view(&m_projects);
    const QString field = writeField();
    view.tree().refresh();
    view.tree().choose({field});
    view.timeBar().setIndex(4);
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.png")));
    const QImage alone(m_directory.filePath("chart.png"));
    EXPECT_FALSE(alone.isNull());
    view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::AlongX);
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.png")));
    const QImage withCut(m_directory.filePath("chart.png"));
    EXPECT_EQ(withCut.size(), alone.size());
    const QRect lower(0, alone.height() * 7 / 10, alone.width(), alone.height() / 5);
    EXPECT_NE(withCut.copy(lower), alone.copy(lower)); // where the cut stands
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.svg")));
    const std::string svg = KOR::readFile(m_directory.filePath("chart.svg").toStdString(), 1 << 24);
    const auto first = svg.find(">x [mm]<");
    EXPECT_NE(first, std::string::npos);
    EXPECT_NE(svg.find(">x [mm]<", first + 1), std::string::npos);
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.pdf")));
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.csv")));
    EXPECT_THAT(KOR::readFile(m_directory.filePath("chart.csv").toStdString(), 1 << 20),
                HasSubstr("\n\nTime [d],x [mm],\"Field, y = 15 mm [°C]\"\n0.166666666666667,5,7\n"));
    view.findChild<QComboBox *>("cut")->setCurrentIndex(HygResultChart::NoCut);
    EXPECT_TRUE(view.exportChart(m_directory.filePath("chart.csv")));
    for (const QString & format : HygAnimation::formats()) {
        HygAnimation animation(view.chart(), m_directory.filePath("run") + format.mid(1), {320, 200}, 4);
        QSignalSpy finished(&animation, &HygAnimation::finished);
        ASSERT_TRUE(finished.wait(20000)) << format.toStdString();
        EXPECT_EQ(finished[0][0].toString(), "");
    }
    EXPECT_TRUE(QFile::exists(m_directory.filePath("run_00003.png")));
    EXPECT_FALSE(QFile::exists(m_directory.filePath("run_00004.png")));
    EXPECT_NE(QImage(m_directory.filePath("run_00000.png")), QImage(m_directory.filePath("run_00003.png")));
    EXPECT_EQ(QFile::exists(m_directory.filePath("run.gif")), HygAnimation::formats().contains("*.gif"));
    EXPECT_EQ(view.chart().timeIndex(), 4u); // as before
}

TEST_F(HygResultsTest, FilesThatCannotBeReadAreShownAsSuch) {
    const QString good = writeProfile("Good.h6b", "Temperature", "C", 10);
    std::string bytes = KOR::readFile(good.toStdString(), 1 << 20);
    KOR::writeFile(results("Half.h6b").toStdString(), bytes.substr(0, bytes.size() - 20)); // loses its last record
    KOR::writeFile(results("Nonsense.h6b").toStdString(), "not a result");
    bytes[8] = 99; // another version
    KOR::writeFile(results("Later.h6b").toStdString(), bytes);
    HygResultsView view(&m_projects);
    view.tree().choose({good, results("Half.h6b"), results("Nonsense.h6b"), results("Later.h6b")});
    EXPECT_EQ(view.tree().chosen(), QStringList({good, results("Half.h6b")}));
    EXPECT_EQ(view.chart().files()[1]->timeCount(), 9u);
    // The row says it in short, its tool tip in the words of the editor and those of the library.
    const QTreeWidgetItem * row = view.tree().findItems("Nonsense", Qt::MatchRecursive).value(0);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(1), "cannot be read");
    EXPECT_THAT(row->toolTip(1).toStdString(), HasSubstr("no result file at all.\nInvalid magic header"));
    QFile::remove(results("Half.h6b"));
    view.tree().refresh();
    EXPECT_EQ(view.tree().chosen(), QStringList(good));
}

} // namespace
