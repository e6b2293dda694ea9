#include "ConstructionTesting.h"

#include "construction/HygDiscretizationDialog.h"
#include "construction/HygHintBar.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>

#include <numeric>
#include <random>

namespace {

using HYGRION::Assignment;
using HYGRION::Project;
using HYGRION::Range;
using testing::Contains;
using testing::ElementsAre;
using Hint = HygConstructionHint;

class HygConstructionChecks : public ConstructionViewTest {
protected:
    const std::vector<Hint> & hints() {
        auto & bar = find<HygHintBar>("hintBar"); // a thread looks for them when the changes have ended
        EXPECT_TRUE(QTest::qWaitFor([&] { return !bar.isLooking(); }));
        return bar.hints();
    }
    void follow(std::size_t index, const QString & target) {
        emit find<QLabel>(qPrintable(QString("hint%1").arg(index)))
            .linkActivated(QString("%1:%2").arg(target).arg(index));
    }
};

TEST_F(HygConstructionChecks, AWholeWallHasNoHints) {
    open(wall());
    EXPECT_TRUE(hints().empty());
    EXPECT_TRUE(find<HygHintBar>("hintBar").findChild<QLabel *>()->text().contains("Nothing is missing"));
}

TEST_F(HygConstructionChecks, HintsShowAndMend) {
    Project broken = wall();
    auto & list = broken.m_assignments.m_list;
    std::erase_if(list,
                  [](const Assignment & a) { return a.m_reference == "Plaster" || a.m_type == type_t::Interface; });
    list.emplace_back(type_t::Material, location_t::Element, Range{.left = 5, .right = 5}, "Render");
    list.emplace_back(type_t::Material, location_t::Element, Range{.left = 7, .right = 7}, "Gone");
    open(broken);
    std::map<Hint::kind_t, std::size_t> place;
    for (std::size_t n = 0; n < hints().size(); ++n)
        place.emplace(hints()[n].kind, n);
    ASSERT_EQ(place.size(), 4u);
    EXPECT_THAT(hints()[place[Hint::UnknownMaterial]].ranges, ElementsAre(Range{.left = 7, .right = 7}));
    EXPECT_THAT(hints()[place[Hint::NoMaterial]].ranges, ElementsAre(Range{.left = 6, .right = 6}));
    EXPECT_EQ(hints()[place[Hint::Overlap]].count, 1u);

    follow(place[Hint::NoMaterial], "show");
    EXPECT_THAT(selected(), ElementsAre(Range{.left = 6, .right = 6}));
    follow(place[Hint::Overlap], "resolve");
    EXPECT_THAT(project().m_assignments.m_list,
                Contains(Assignment(type_t::Material, location_t::Element, Range{.left = 2, .right = 4}, "Brick")));
    const auto & rest = hints();
    EXPECT_TRUE(std::none_of(rest.begin(), rest.end(), [](const Hint & hint) { return hint.kind == Hint::Overlap; }));
    // The left surface gets an interface of the project, the right one the standard climate.
    for (const auto side : {location_t::Left, location_t::Right}) {
        const auto & now = hints();
        const auto hint = std::find_if(now.begin(), now.end(), [&](const Hint & h) { return h.side == side; });
        ASSERT_NE(hint, now.end());
        if (side == location_t::Left)
            follow(static_cast<std::size_t>(hint - now.begin()), "assign.0");
        else
            m_view.editor().addStandardInterface(false, hint->ranges, hint->side);
    }
    EXPECT_THAT(project().m_assignments.m_list,
                Contains(Assignment(type_t::Interface, location_t::Left, Range{}, "Outside")));
    EXPECT_EQ(project().m_conditions.m_interfaces.back().m_name, "Inside 2") << "a name of its own";
    EXPECT_NO_THROW(project().m_conditions.m_interfaces.back().checkParameters());
    for (const Hint & hint : hints())
        EXPECT_NE(hint.kind, Hint::NoInterface);
    while (stack().canUndo())
        stack().undo();
    EXPECT_EQ(project().m_assignments, broken.m_assignments);
}

TEST_F(HygConstructionChecks, AMissingMaterialFileIsToldWhereItIsUsed) {
    Project moved = wall();
    moved.m_materials[1].m_filename = KOR::Path("${Project Directory}/gone.m6");
    open(moved);
    ASSERT_EQ(hints().size(), 1u);
    EXPECT_EQ(hints()[0].kind, Hint::NoFile);
    EXPECT_THAT(hints()[0].ranges, ElementsAre(Range{.left = 2, .right = 5}));
    EXPECT_TRUE(find<HygHintBar>("hintBar").textOf(0).contains("'Brick'"));
    EXPECT_TRUE(find<HygHintBar>("hintBar").textOf(0).contains("gone.m6' does not exist"));
    // A file that is there and cannot be used is told in the same way, as soon as it has been read.
    QFile::copy(m_directory.filePath("a.m6"), m_directory.filePath("gone.m6"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene().problemOf(1).isEmpty() && hints().empty(); }, 3000));
    QFile broken(m_directory.filePath("gone.m6"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly | QIODevice::Truncate));
    broken.write("no material");
    broken.close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !hints().empty(); }, 3000));
    EXPECT_EQ(hints()[0].kind, Hint::NoFile);
    EXPECT_EQ(hints()[0].problem, scene().problemOf(1));
    ASSERT_EQ(scene().marks.size(), 1u);
    EXPECT_TRUE(scene().marks[0].text.contains(scene().problemOf(1)));
}

TEST_F(HygConstructionChecks, OutputsAreOfferedToWhoHasNone) {
    Project silent = wall();
    silent.m_outputs = {};
    std::erase_if(silent.m_assignments.m_list, [](const Assignment & a) { return a.m_type == type_t::Output; });
    silent.m_conditions.m_interfaces[1].m_type = HYGRION::Interface::type_t::EngineeringIndoor;
    silent.m_conditions.m_interfaces[1].m_climateTypeIndoor =
        HYGRION::Interface::climateTypeIndoor_t::IndoorDIN4108_2014;
    silent.m_outputs.m_outputGrids.emplace_back().m_name = "Daily"; // of the user, another one
    silent.m_outputs.m_outputGrids[0].m_intervals.emplace_back().m_para.set(HYGRION::Interval::para_t::StepSize, 2,
                                                                            "d");
    open(silent);
    const Project before = project();
    ASSERT_EQ(hints().size(), 1u);
    ASSERT_EQ(hints()[0].kind, Hint::NoOutput);
    follow(0, "outputs");
    EXPECT_TRUE(hints().empty());
    EXPECT_EQ(stack().count(), 1);
    const HYGRION::Outputs & outputs = project().m_outputs;
    EXPECT_NO_THROW(outputs.checkParameters());
    EXPECT_NO_THROW(project().GUISanityChecks());
    EXPECT_FALSE(outputs.m_outputFiles.empty());
    stack().undo();
    EXPECT_EQ(project(), before);
}

TEST(HygConstructionHint, SurfacesToOpenAirNeedAnInterface) {
    // A reveal: the lower right quarter of 4 x 4 cells is open air.
    Project p;
    p.m_disc.m_xSteps.m_data.assign(4, 0.1);
    p.m_disc.m_ySteps.m_data.assign(4, 0.1);
    p.m_materials.emplace_back().m_name = "A";
    using enum Assignment::type_t;
    using enum Assignment::location_t;
    p.m_assignments.m_list = {
        {Material, Element, {.right = 1, .top = 3},                         "A"},
        {Material, Element, {.left = 2, .bottom = 2, .right = 3, .top = 3}, "A"}
    };
    HygConstructionScene scene;
    scene.project = &p;
    bool isWarning = false;
    const auto open = [&](Hint::kind_t kind = Hint::NoInterface) {
        scene.update();
        std::vector<std::pair<Assignment::location_t, Range>> found;
        for (const Hint & hint : Hint::find(Hint::snapshot(scene)))
            if (hint.kind == kind) {
                isWarning = hint.isWarning;
                for (const Range & range : hint.ranges)
                    found.emplace_back(hint.side, range);
            }
        return found;
    };
    // Its edges matter as long as nothing passes anywhere; later they may be cuts through the building.
    const auto edges = open(Hint::OpenEdge);
    EXPECT_THAT(edges, ElementsAre(std::pair(Left, Range{.top = 3}),
                                   std::pair(Right, Range{.left = 3, .bottom = 2, .right = 3, .top = 3}),
                                   std::pair(Bottom, Range{.right = 1}),
                                   std::pair(Top, Range{.bottom = 3, .right = 3, .top = 3})));
    EXPECT_TRUE(isWarning);
    EXPECT_THAT(open(), ElementsAre(std::pair(Right, Range{.left = 1, .right = 1, .top = 1}),
                                    std::pair(Bottom, Range{.left = 2, .bottom = 2, .right = 3, .top = 2})));
    // One of them assigned from the side of the air.
    p.m_assignments.m_list.push_back({
        Interface, Left, {.left = 2, .right = 2, .top = 1},
          "S"
    });
    p.m_assignments.m_list.push_back({
        Interface, Bottom, {.left = 2, .bottom = 2, .right = 2, .top = 2},
          "S"
    });
    EXPECT_THAT(open(), ElementsAre(std::pair(Bottom, Range{.left = 3, .bottom = 2, .right = 3, .top = 2})));
    EXPECT_EQ(open(Hint::OpenEdge), edges);
    EXPECT_FALSE(isWarning);
    // In another plane nothing of it counts.
    p.m_disc.m_zSteps.m_data.assign(2, 0.1);
    for (Assignment & assignment : p.m_assignments.m_list)
        if (assignment.m_type == Material)
            assignment.m_range.front = 1;
    scene.plane = 1;
    EXPECT_EQ(open().size(), 2u);
}

TEST_F(HygConstructionChecks, SignsInTheDrawingOfferWhatMends) {
    Project open2 = wall();
    std::erase_if(open2.m_assignments.m_list, [](const Assignment & a) { return a.m_reference == "Inside"; });
    open(open2);
    ASSERT_EQ(hints().size(), 1u);
    const auto badges = scene().badges(canvas().viewport()->rect());
    ASSERT_EQ(badges.size(), 1u);
    const QPoint sign = badges[0].middle.toPoint();
    EXPECT_GT(sign.x(), scene().rectangle(Range{.left = 7, .right = 7}).right()) << "beside the open surface";
    QStringList offers;
    QTimer::singleShot(0, &m_view, [&] {
        auto * menu = m_view.findChild<QMenu *>("hintMenu");
        ASSERT_NE(menu, nullptr);
        const auto * title = menu->findChild<QLabel *>("hintTitle");
        ASSERT_NE(title, nullptr);
        EXPECT_GE(title->height(), title->heightForWidth(title->width())) << "nothing is cut";
        for (QAction * action : menu->actions()) {
            offers << action->text();
            if (action->text() == "Inside")
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTest::mouseClick(canvas().viewport(), Qt::LeftButton, {}, sign);
    EXPECT_TRUE(offers.contains("show"));
    EXPECT_TRUE(offers.front().contains("Right side")) << offers.front().toStdString();
    EXPECT_EQ(project().m_assignments.m_list.back().m_reference, "Inside");
    EXPECT_TRUE(selected().empty()) << "a click on the sign selects nothing";
    EXPECT_TRUE(hints().empty());
    EXPECT_TRUE(scene().marks.empty());
}

TEST_F(HygConstructionChecks, TheMissingClimateIsOfferedFirst) {
    Project bare = wall();
    std::erase_if(bare.m_assignments.m_list, [](const Assignment & a) { return a.m_reference == "Inside"; });
    std::erase_if(bare.m_conditions.m_interfaces, [](const auto & i) { return i.m_name == "Inside"; });
    open(bare);
    ASSERT_EQ(hints().size(), 1u);
    QStringList offers;
    QTimer::singleShot(0, &m_view, [&] {
        auto * menu = m_view.findChild<QMenu *>("hintMenu");
        ASSERT_NE(menu, nullptr);
        for (const QAction * action : menu->actions())
            offers << action->text();
        menu->close();
    });
    const auto badges = scene().badges(canvas().viewport()->rect());
    ASSERT_EQ(badges.size(), 1u);
    QTest::mouseClick(canvas().viewport(), Qt::LeftButton, {}, badges[0].middle.toPoint());
    EXPECT_TRUE(offers.contains("Outside"));
    EXPECT_LT(offers.indexOf("standard indoor climate"), offers.indexOf("Outside")) << "two alike are the exception";
    EXPECT_GT(offers.indexOf("standard outdoor climate"), offers.indexOf("Outside"));
}

TEST_F(HygConstructionChecks, OverlapsAreCutSoThatNothingLooksDifferent) {
    // Blocks at random in three dimensions; the drawing is the same afterwards, and nothing covers anything.
    std::mt19937 random(3);
    const auto below = [&](std::uint32_t n) { return std::uniform_int_distribution<std::uint32_t>(0, n - 1)(random); };
    Project pile = wall();
    pile.m_assignments.m_list.resize(3); // the materials
    pile.m_disc.m_ySteps.m_data.assign(7, 0.1);
    pile.m_disc.m_zSteps.m_data.assign(3, 0.1);
    for (int n = 0; n < 60; ++n) {
        Range range{below(8), below(7), below(3), below(12), below(7), below(3)};
        range.normalise();
        pile.m_assignments.m_list.emplace_back(type_t::Material, location_t::Element, range,
                                               n % 7 == 0 ? "Gone" : pile.m_materials[below(3)].m_name);
    }
    pile.m_assignments.m_list.emplace_back(type_t::Interface, location_t::Left, Range{}, "Outside");
    HygCellPlane before[3];
    for (std::uint32_t plane = 0; plane < 3; ++plane)
        before[plane].update(pile, plane);
    const HygCellPlane::Parts parts = HygCellPlane::seenParts(pile);
    ASSERT_FALSE(parts.empty());
    std::vector<Assignment> & list = pile.m_assignments.m_list;
    const std::string last = list.back().m_reference;
    const std::size_t count = list.size();
    for (std::size_t n = count; n-- > 0;)
        if (const auto place = parts.find(static_cast<std::uint32_t>(n)); place != parts.end()) {
            const Assignment cut = list[n];
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(n));
            for (const Range & part : place->second) {
                Assignment & piece = *list.insert(list.begin() + static_cast<std::ptrdiff_t>(n), cut);
                piece.m_range = part;
            }
        }
    EXPECT_EQ(list.back().m_reference, last);
    for (std::uint32_t plane = 0; plane < 3; ++plane) {
        HygCellPlane after;
        after.update(pile, plane);
        EXPECT_TRUE(after.overlaps().empty());
        for (std::size_t j = 0; j < after.ny(); ++j)
            for (std::size_t i = 0; i < after.nx(); ++i)
                EXPECT_EQ(after.material(i, j), before[plane].material(i, j)) << i << ' ' << j << ' ' << plane;
    }
}

TEST_F(HygConstructionChecks, PointsAreDrawnToldAndFound) {
    Project probed = wall();
    Assignment & probe =
        probed.m_assignments.m_list.emplace_back(type_t::Output, location_t::Coordinate, Range{}, "Field");
    probe.m_coordinates = {0.1, 0.5, 0}; // in the brick, in column 4
    open(probed);
    const QPointF at = scene().pointOf(project().m_assignments.m_list.back());
    const QRectF cell = scene().rectangle(Range{.left = 3, .right = 3});
    EXPECT_TRUE(cell.contains(at));
    EXPECT_NEAR((at.x() - cell.left()) / cell.width(), 25.0 / 60, 0.01);
    const auto colourAt = [&](bool isShown) {
        find<QAbstractButton>("showOutputs").setChecked(isShown);
        return canvas().viewport()->grab().toImage().pixelColor(at.toPoint() + QPoint(0, -5));
    };
    EXPECT_NE(colourAt(false), colourAt(true));
    EXPECT_EQ(colourAt(true), scene().colourOf(type_t::Output, "Field"));
    EXPECT_TRUE(scene().cardOf(3, 0).contains("Point"));
    EXPECT_FALSE(scene().cardOf(2, 0).contains("Point"));
    find<QLineEdit>("assignmentSearch").setText("point");
    auto & table = find<QTableView>("assignmentTable");
    ASSERT_EQ(table.model()->rowCount(), 1);
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_THAT(selected(), ElementsAre(Range{.left = 3, .right = 3}));
}

TEST_F(HygConstructionChecks, MaterialsWithoutAUsableFileAreMarkedAndReplaced) {
    Project p = wall();
    p.m_materials[1].m_filename = KOR::Path("${Project Directory}/lost.m6");
    const QString other = m_directory.filePath("DB_materials/glass_247.m6");
    open(p);
    QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/glass_247.m6"), other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !scene().problemOf(1).isEmpty(); }, 10000));
    EXPECT_TRUE(scene().problemOf(0).isEmpty());
    EXPECT_TRUE(scene().cardOf(3, 0).contains("lost.m6"));
    EXPECT_FALSE(scene().cardOf(0, 0).contains("a.m6"));
    const auto & layers = *find<QTableView>("layerTable").model();
    EXPECT_TRUE(layers.index(1, 0).data(Qt::ToolTipRole).toString().contains("lost.m6"));
    EXPECT_FALSE(layers.index(0, 0).data(Qt::ToolTipRole).toString().contains("a.m6"));
    auto & table = find<QTableView>("assignmentTable");
    EXPECT_TRUE(table.model()->index(1, 1).data(Qt::ToolTipRole).toString().contains("lost.m6"));
    EXPECT_FALSE(table.model()->index(2, 1).data(Qt::ToolTipRole).isValid());

    // A double click in the table leads to the database.
    int asked = 0;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&] {
        auto * dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog->objectName() == "backgroundWork")
            return;
        ++asked;
        dialog->reject();
    });
    answers.start(20);
    emit table.doubleClicked(table.model()->index(1, 1));
    EXPECT_EQ(asked, 1);
    answers.stop();
    EXPECT_EQ(stack().count(), 0) << "nothing was chosen";

    // The file comes back: all is well again.
    QFile::copy(other, m_directory.filePath("lost.m6"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene().problemOf(1).isEmpty(); }, 10000));
    EXPECT_FALSE(table.model()->index(1, 1).data(Qt::ToolTipRole).isValid());
}

TEST_F(HygConstructionChecks, AssignmentsAreFoundChangedAndRemoved) {
    open(wall());
    auto & table = find<QTableView>("assignmentTable");
    find<QLineEdit>("assignmentSearch").setText("interface");
    ASSERT_EQ(table.model()->rowCount(), 2);
    table.sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(table.model()->index(0, 1).data().toString(), "Inside");
    table.selectRow(0);
    EXPECT_THAT(scene().highlighted, ElementsAre(Range{.left = 7, .right = 7}));
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_THAT(selected(), ElementsAre(Range{.left = 7, .right = 7}));

    find<QLineEdit>("assignmentSearch").setText("brick");
    EXPECT_TRUE(table.model()->setData(table.model()->index(0, 4), 7)); // up to column 7
    EXPECT_THAT(project().m_assignments.m_list,
                Contains(Assignment(type_t::Material, location_t::Element, Range{.left = 2, .right = 6}, "Brick")));
    table.model()->setData(table.model()->index(0, 4), 99);
    EXPECT_EQ(stack().count(), 1) << "beyond the grid is refused";
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(project().m_assignments.size(), 6u);
    stack().undo();
    stack().undo();
    EXPECT_EQ(project().m_assignments, wall().m_assignments);
}

TEST_F(HygConstructionChecks, LayersAreDividedAsThePreviewShows) {
    open(wall());
    const Project before = project();
    HygDiscretizationDialog dialog(scene());
    dialog.show();
    EXPECT_LE(dialog.height(), 700);
    const auto field = [&dialog](const char * name) { return dialog.findChild<QWidget *>(name); };
    auto & table = static_cast<QTableWidget &>(*field("discLayers"));
    ASSERT_EQ(table.rowCount(), 3);
    table.selectRow(1);
    auto & step = static_cast<QLineEdit &>(*field("discMinStep"));
    step.selectAll();
    QTest::keyClicks(&step, "20 mm");
    static_cast<QComboBox *>(field("discMode"))->setCurrentIndex(1);
    emit static_cast<QComboBox *>(field("discMode"))->activated(1);
    const auto & layers = dialog.layers(HYGRION::Disc::X);
    EXPECT_EQ(layers[0].settings->minStep, 0.001) << "of the other layers nothing changed";
    ASSERT_EQ(layers[1].settings->minStep, 0.02);
    EXPECT_EQ(layers[1].settings->mode, HYGRION::Disc::MODE_START);
    step.selectAll();
    QTest::keyClicks(&step, "-1 mm");
    EXPECT_FALSE(field("discApply")->isEnabled());
    step.selectAll();
    QTest::keyClicks(&step, "20 mm");
    EXPECT_TRUE(field("discApply")->isEnabled());

    const std::size_t expected = dialog.cellCount();
    m_view.editor().discretize(HYGRION::Disc::X, layers);
    EXPECT_EQ(project().m_disc.nx(), expected);
    EXPECT_EQ(scene().cells.columnBorders().size(), 4u) << "three layers as before";
    EXPECT_NEAR(scene().x.width(0, expected - 1), 0.27, 1e-9);
    EXPECT_NO_THROW(project().GUISanityChecks());
    EXPECT_THAT(project().m_assignments.m_list, testing::SizeIs(before.m_assignments.size()));
    stack().undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygConstructionChecks, PlanesAreDividedToo) {
    Project deep = wall();
    deep.m_disc.m_zSteps = {
        {100, 50, 100},
        KOR::Unit("mm")
    };
    for (Assignment & assignment : deep.m_assignments.m_list)
        assignment.m_range.front = 2;
    deep.m_assignments.m_list[1].m_range.back = 1; // no brick in the first plane
    open(deep);
    const Project before = project();
    HygDiscretizationDialog dialog(scene());
    auto & direction = *dialog.findChild<QComboBox *>("discDirection");
    EXPECT_EQ(direction.count(), 2) << "columns and planes, as there is one row";
    direction.setCurrentIndex(1);
    auto & table = *dialog.findChild<QTableWidget *>("discLayers");
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.item(1, 0)->text(), "Planes 2 to 3");
    EXPECT_EQ(table.item(1, 1)->text().remove(QChar(0x202f)), "150mm");
    table.selectRow(1);
    QTest::mouseClick(dialog.findChild<QAbstractButton *>("discDivided"), Qt::LeftButton);
    ASSERT_TRUE(dialog.isChanged(HYGRION::Disc::Z));
    EXPECT_FALSE(dialog.isChanged(HYGRION::Disc::X));
    const std::size_t planes = dialog.cellCount() / 8;
    m_view.editor().discretize(HYGRION::Disc::Z, dialog.layers(HYGRION::Disc::Z));
    EXPECT_EQ(project().m_disc.nz(), planes);
    EXPECT_GT(planes, 10u);
    EXPECT_NEAR(std::accumulate(project().m_disc.m_zSteps.m_data.begin(), project().m_disc.m_zSteps.m_data.end(), 0.0),
                250, 1e-9);
    EXPECT_EQ(project().m_disc.m_zSteps.m_data[0], 100) << "the first plane stays";
    EXPECT_THAT(project().m_assignments.m_list[1].m_range,
                (Range{2, 0, 1, 5, 0, static_cast<std::uint32_t>(planes) - 1}));
    stack().undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygConstructionChecks, ASliderGoesThroughThePlanes) {
    Project deep = wall();
    deep.m_disc.m_zSteps = {
        {100, 100, 100},
        KOR::Unit("mm")
    };
    for (Assignment & assignment : deep.m_assignments.m_list)
        assignment.m_range.front = 2;
    deep.m_assignments.m_list[1].m_range.back = 1; // no brick in the first plane
    open(deep);
    auto & slider = find<QSlider>("planeSlider");
    ASSERT_TRUE(slider.isVisible());
    EXPECT_EQ(scene().cells.material(3, 0), HygCellPlane::NO_MATERIAL);
    key(Qt::Key_PageUp);
    EXPECT_EQ(slider.value(), 1);
    EXPECT_EQ(scene().cells.material(3, 0), 1);
    click(3);
    EXPECT_THAT(selected(), ElementsAre(Range{3, 0, 1, 3, 0, 1})) << "in this plane only";
}

} // namespace
