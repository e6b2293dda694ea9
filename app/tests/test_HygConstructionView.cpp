#include "ConstructionTesting.h"
#include "construction/HygMaterialOffer.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygProjectMaterials.h"
#include "views/HygMessageBar.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>

#include <numeric>
#include <random>

namespace {

using HYGRION::Assignment;
using HYGRION::Project;
using HYGRION::Range;
using testing::ElementsAre;

TEST(HygCellPlane, LastAssignmentWinsAndCoveredOnesAreNamed) {
    Project p;
    p.m_disc.m_xSteps.m_data.assign(4, 0.1);
    p.m_disc.m_ySteps.m_data.assign(3, 0.1);
    p.m_materials.resize(2);
    p.m_materials[0].m_name = "A";
    p.m_materials[1].m_name = "B";
    using enum Assignment::type_t;
    using enum Assignment::location_t;
    p.m_assignments.m_list = {
        {Material, Element, {.right = 3, .top = 1},                         "A"   },
        {Material, Element, {.left = 1, .bottom = 1, .right = 2, .top = 2}, "B"   },
        {Material, Element, {.left = 3, .bottom = 2, .right = 9, .top = 9}, "Gone"}
    };
    HygCellPlane cells;
    cells.update(p, 0);
    std::string drawn;
    for (std::size_t j = 3; j-- > 0; drawn += '\n')
        for (std::size_t i = 0; i < 4; ++i)
            drawn += "?-AB"[cells.material(i, j) + 2];
    EXPECT_EQ(drawn, "-BB?\nABBA\nAAAA\n");
    ASSERT_EQ(cells.overlaps().size(), 1u);
    EXPECT_EQ(cells.overlaps()[0].assignment, 0u);
    EXPECT_EQ(cells.overlaps()[0].cells, 2u);
    EXPECT_THAT(cells.columnBorders(), ElementsAre(0, 1, 3, 4));
    EXPECT_THAT(cells.rowBorders(), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(cells.blocksOf(1, 9), ElementsAre(Range{1, 1, 0, 2, 2, 0}));
    EXPECT_EQ(cells.blocksOf(0, 2).size(), 2u) << "the limit holds";
}

TEST(HygGridAxis, PixelsAndCellsAgree) {
    for (const bool isReversed : {false, true})
        for (const bool isEquidistant : {false, true}) {
            HygGridAxis axis(isReversed);
            axis.setWidths(
                {
                    {1, 30, 0.5, 20},
                    KOR::Unit("mm")
            },
                isEquidistant);
            axis.setView(150 / axis.length(), isReversed ? 170 : 20);
            const std::vector<std::int32_t> cells = axis.cellsOfPixels(200, 1);
            for (int pixel = 0; pixel < 200; ++pixel) {
                const std::ptrdiff_t cell = axis.cellAt(pixel + 0.5);
                const bool isInside = cell >= 0 && cell < 4;
                EXPECT_EQ(cells[static_cast<std::size_t>(pixel)], isInside ? cell : -1) << pixel;
            }
            EXPECT_DOUBLE_EQ(axis.width(1, 2), 0.0305) << "metres, however it is drawn";
        }
}

TEST(HygGridAxis, LayersThinnerThanAPixelStayInSightAndInReach) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> part(0, 1);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        HygGridAxis axis(round % 2 == 0);
        // Walls with foils: single ones, two beside one another, at the ends.
        const std::vector<double> walls[] = {
            {0.2,   365,  0.1, 0.2, 160, 12.5},
            {365,  0.05,  120    },
            {50,0.2,50,0.2, 50, 0.2},
            {0.01,   0.01,      500       }
        };
        const std::vector<double> & wall = walls[round % 4];
        KOR::UnitVector widths{{}, KOR::Unit("mm")};
        std::vector<std::uint32_t> borders{0};
        for (const double layer : wall) {
            const int cells = layer < 1 ? 1 : 3;
            for (int i = 0; i < cells; ++i)
                widths.m_data.push_back(layer / cells);
            borders.push_back(static_cast<std::uint32_t>(widths.size()));
        }
        axis.setWidths(widths, false);
        axis.setLayers(borders);
        const double ratio = 1 + round % 3 * 0.5;
        const double length = 300 + 500 * part(random);
        const double start = 30 * part(random);
        axis.setView(length / axis.length(), round % 2 == 0 ? start + length : start);
        std::vector<std::int32_t> cells = axis.cellsOfPixels(static_cast<int>(900 * ratio), ratio);
        std::vector<int> pixels(wall.size());
        for (std::size_t p = 0; p < cells.size(); ++p) {
            const std::ptrdiff_t cell = axis.cellAt((static_cast<double>(p) + 0.5) / ratio);
            const bool isInside = cell >= 0 && cell < static_cast<std::ptrdiff_t>(axis.count());
            ASSERT_EQ(cells[p], isInside ? cell : -1) << "what is drawn there is selected there, " << p;
            if (isInside)
                ++pixels[static_cast<std::size_t>(std::upper_bound(borders.begin(), borders.end(), cells[p]) -
                                                  borders.begin() - 1)];
        }
        for (const int count : pixels)
            EXPECT_GE(count, static_cast<int>(HygGridAxis::MIN_LAYER * ratio) - 1);
        std::erase(cells, -1);
        if (round % 2 == 0)
            std::reverse(cells.begin(), cells.end());
        EXPECT_TRUE(std::is_sorted(cells.begin(), cells.end()));
    }
    // More layers than pixels: to scale, as there is no room.
    HygGridAxis crowd(false);
    crowd.setWidths({std::vector<double>(1000, 1), KOR::Unit("mm")}, false);
    std::vector<std::uint32_t> all(1001);
    std::iota(all.begin(), all.end(), 0U);
    crowd.setLayers(all);
    crowd.setView(100 / crowd.length(), 0);
    EXPECT_EQ(crowd.cellsOfPixels(100, 1)[50], 505);
}

struct Gesture {
    const char * name;
    void (*act)(HygConstructionCanvas & canvas, const std::function<QPoint(std::uint32_t)> & at);
    std::vector<Range> selected;
    friend void PrintTo(const Gesture & row, std::ostream * out) { *out << row.name; }
};

constexpr auto press = [](HygConstructionCanvas & canvas, const QPoint & at, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, modifiers, at);
};
constexpr auto type = [](HygConstructionCanvas & canvas, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&canvas, key, modifiers);
};

class Selecting : public ConstructionViewTest, public testing::WithParamInterface<Gesture> {};
TEST_P(Selecting, ByMouseAndKeyboard) {
    open(wall());
    GetParam().act(canvas(), [this](std::uint32_t i) { return middleOf(i); });
    EXPECT_EQ(selected(), GetParam().selected);
}
constexpr Range columns(std::uint32_t first, std::uint32_t last) {
    return {.left = first, .right = last};
}
INSTANTIATE_TEST_SUITE_P(Gestures, Selecting,
                         testing::Values(
                             Gesture{
                                 "Click", [](auto & c, const auto & at) { press(c, at(3));  },
                                         { columns(3, 3)}
},
                             Gesture{"ShiftClick",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         press(c, at(5), Qt::ShiftModifier);
                                     },
                                     {columns(3, 5)}},
                             Gesture{"ControlClick",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         press(c, at(5), Qt::ControlModifier);
                                     },
                                     {columns(3, 3), columns(5, 5)}},
                             Gesture{"Drag",
                                     [](auto & c, const auto & at) {
                                         QTest::mousePress(c.viewport(), Qt::LeftButton, {}, at(2));
                                         QMouseEvent move(QEvent::MouseMove, at(4), Qt::NoButton, Qt::LeftButton, {});
                                         QCoreApplication::sendEvent(c.viewport(), &move);
                                         QTest::mouseRelease(c.viewport(), Qt::LeftButton, {}, at(4));
                                     },
                                     {columns(2, 4)}},
                             Gesture{"Arrows",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_Right);
                                         type(c, Qt::Key_Right, Qt::ShiftModifier);
                                     },
                                     {columns(4, 5)}},
                             Gesture{"NextLayer",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_Right, Qt::ControlModifier);
                                     },
                                     {columns(6, 6)}},
                             Gesture{"LayerBefore",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_Left, Qt::ControlModifier);
                                         type(c, Qt::Key_Left, Qt::ControlModifier);
                                     },
                                     {columns(0, 0)}},
                             Gesture{"HomeEnd",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_Home);
                                         type(c, Qt::Key_End, Qt::ShiftModifier);
                                     },
                                     {columns(0, 7)}},
                             Gesture{"Material",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_M);
                                     },
                                     {columns(2, 5)}},
                             Gesture{"Escape",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         type(c, Qt::Key_Escape);
                                     },
                                     {}},
                             Gesture{"Outside",
                                     [](auto & c, const auto & at) {
                                         press(c, at(3));
                                         press(c, QPoint(2, 2));
                                     },
                                     {}}),
                         [](const auto & row) { return std::string(row.param.name); });

TEST_F(ConstructionViewTest, RulerSelectsLayersAndColumns) {
    open(wall());
    auto & ruler = find<QWidget>("columnRuler");
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, QPoint(middleOf(3).x(), 5));
    EXPECT_THAT(selected(), ElementsAre(columns(2, 5)));
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, QPoint(middleOf(3).x(), ruler.height() - 4));
    EXPECT_THAT(selected(), ElementsAre(columns(3, 3)));
    QTest::mouseClick(&ruler, Qt::LeftButton, Qt::ControlModifier, QPoint(middleOf(6).x(), ruler.height() - 4));
    EXPECT_THAT(selected(), ElementsAre(columns(3, 3), columns(6, 6)));
}

/// An action on a selection; undo leads back to what was before.
struct Edit {
    const char * action;
    Range selection;
    std::vector<double> widths; ///< of the columns afterwards [mm]
    Range brick;                ///< the cells of the brick afterwards
    Range selected;             ///< afterwards
    friend void PrintTo(const Edit & row, std::ostream * out) { *out << row.action; }
};
class Editing : public ConstructionViewTest, public testing::WithParamInterface<Edit> {};
TEST_P(Editing, IsOneCommandThatCanBeUndone) {
    open(wall());
    const Project before = project();
    canvas().select({GetParam().selection});
    trigger(GetParam().action);
    EXPECT_EQ(project().m_disc.m_xSteps.m_data, GetParam().widths);
    const auto & list = project().m_assignments.m_list;
    const auto brick =
        std::find_if(list.begin(), list.end(), [](const Assignment & a) { return a.m_reference == "Brick"; });
    ASSERT_NE(brick, list.end());
    EXPECT_EQ(brick->m_range, GetParam().brick);
    EXPECT_NO_THROW(project().GUISanityChecks());
    const auto inside =
        std::find_if(list.begin(), list.end(), [](const Assignment & a) { return a.m_reference == "Inside"; });
    if (inside != list.end() && inside->m_location == location_t::Right) {
        EXPECT_EQ(inside->m_range.right + 1, project().m_disc.nx()) << "the surface stays at the end";
    }
    EXPECT_EQ(stack().count(), 1);
    EXPECT_THAT(selected(), ElementsAre(GetParam().selected));
    canvas().select({});
    stack().undo();
    EXPECT_EQ(project(), before);
    EXPECT_THAT(selected(), ElementsAre(GetParam().selection));
}
INSTANTIATE_TEST_SUITE_P(
    Actions, Editing,
    testing::Values(
        Edit{
            "insertLeft", columns(2, 2), {5, 10, 10, 60, 60, 60, 60, 10, 5},
               columns(3, 6), columns(2, 2)
},
        Edit{"insertRight", columns(7, 7), {5, 10, 60, 60, 60, 60, 10, 5, 5}, columns(2, 5), columns(8, 8)},
        Edit{"splitColumns", columns(2, 3), {5, 10, 30, 30, 30, 30, 60, 60, 10, 5}, columns(2, 7), columns(2, 5)},
        Edit{"mergeColumns", columns(2, 5), {5, 10, 240, 10, 5}, columns(2, 2), columns(2, 2)},
        Edit{"deleteColumns", columns(6, 7), {5, 10, 60, 60, 60, 60}, columns(2, 5), columns(5, 5)},
        Edit{"mirrorColumns", columns(0, 7), {5, 10, 60, 60, 60, 60, 10, 5}, columns(2, 5), columns(0, 7)}),
    [](const auto & row) { return std::string(row.param.action); });

TEST_F(ConstructionViewTest, WidthIsTypedOverTheRuler) {
    open(wall());
    auto & ruler = find<QWidget>("columnRuler");
    QTest::mouseDClick(&ruler, Qt::LeftButton, {}, QPoint(middleOf(3).x(), 5));
    auto & edit = find<QLineEdit>("widthEdit");
    EXPECT_EQ(edit.text(), "240 mm");
    QTest::keyClicks(&edit, "0,12 m");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(project().m_disc.m_xSteps.m_data, (std::vector<double>{5, 10, 30, 30, 30, 30, 10, 5})) << "in proportion";
    EXPECT_EQ(stack().count(), 1);
}

TEST_F(ConstructionViewTest, BlocksAreCopiedWithAllTheirAssignments) {
    open(wall());
    canvas().select({columns(0, 1)});
    trigger("copyCells");
    canvas().select({columns(6, 6)});
    trigger("pasteCells");
    EXPECT_EQ(scene().cells.material(6, 0), 0);
    EXPECT_EQ(scene().cells.material(7, 0), 0);
    EXPECT_THAT(project().m_assignments.m_list,
                testing::Contains(Assignment(type_t::Interface, location_t::Left, columns(6, 6), "Outside")));
    stack().undo();
    QGuiApplication::clipboard()->setText("no cells");
    trigger("pasteCells");
    EXPECT_EQ(stack().index(), 0) << "what is no block of cells changes nothing";
}

TEST_F(ConstructionViewTest, DropGoesToTheBlockOrTheNearestSide) {
    open(wall());
    const auto material = canvas().targetAt(middleOf(3), type_t::Material);
    ASSERT_TRUE(material);
    EXPECT_THAT(material->ranges, ElementsAre(columns(2, 5)));
    const QRectF brick = scene().rectangle(columns(2, 5));
    const auto side = canvas().targetAt(brick.center() + QPointF(brick.width() / 3, 0), type_t::ContactCondition);
    ASSERT_TRUE(side);
    EXPECT_EQ(side->side, location_t::Right);
    const QRectF whole = scene().rectangle(columns(0, 7));
    const auto outside = canvas().targetAt({whole.left() - 10, whole.center().y()}, type_t::Interface);
    ASSERT_TRUE(outside) << "a surface may be aimed at from outside";
    EXPECT_EQ(outside->side, location_t::Left);
    EXPECT_FALSE(canvas().targetAt({whole.left() - 10, whole.center().y()}, type_t::Material));

    canvas().select({columns(3, 3)});
    EXPECT_THAT(canvas().targetAt(middleOf(3), type_t::Material)->ranges, ElementsAre(columns(3, 3)));
    emit canvas().dropped(static_cast<int>(type_t::Material), "Plaster",
                          *canvas().targetAt(middleOf(3), type_t::Material));
    EXPECT_EQ(scene().cells.material(3, 0), 2);
}

TEST_F(ConstructionViewTest, MaterialFilesAreDroppedAndRequestedInOneStep) {
    const QString path = m_directory.filePath("DB_materials/clay_brick_solid_108.m6");
    ASSERT_TRUE(QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/clay_brick_solid_108.m6"), path));
    open(wall());
    const Project before = project();
    const auto drop = [&](const QString & file, std::uint32_t column) {
        QMimeData data;
        data.setData(HygMaterialDBTableModel::MIME_TYPE, file.toUtf8());
        QDragEnterEvent enter(middleOf(column), Qt::CopyAction, &data, Qt::LeftButton, {});
        QDropEvent event(middleOf(column), Qt::CopyAction, &data, Qt::LeftButton, {});
        for (QDropEvent * sent : {static_cast<QDropEvent *>(&enter), &event}) {
            sent->setAccepted(false);
            QApplication::sendEvent(canvas().viewport(), sent);
            EXPECT_TRUE(sent->isAccepted());
        }
    };
    drop(path, 3);
    ASSERT_EQ(project().m_materials.size(), 4u);
    EXPECT_EQ(stack().index(), 1);
    EXPECT_EQ(HygProjectMaterials::find(project(), path), 3);
    for (std::uint32_t column = 0; column < 8; ++column)
        EXPECT_EQ(scene().cells.material(column, 0) == 3, column >= 2 && column <= 5) << column;
    drop(path, 0);
    EXPECT_EQ(project().m_materials.size(), 4u) << "it is there already";
    EXPECT_EQ(scene().cells.material(0, 0), 3);
    drop(m_directory.filePath("gone.m6"), 0);
    EXPECT_TRUE(find<HygMessageBar>("messageBar").text().contains("gone.m6"));
    EXPECT_EQ(stack().index(), 2);
    stack().setIndex(0);
    EXPECT_TRUE(project() == before);

    // The lists offer what the database of all widgets holds, unless the project has the file.
    const auto database = HygMaterialDB::shared();
    HygMaterialOffer offer;
    const auto count = [&] { return offer.entries(project()).size(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return count() == 4; }));
    emit database->assignRequested(path);
    EXPECT_EQ(stack().index(), 0) << "nothing is selected";
    canvas().select({columns(6, 7)});
    emit database->assignRequested(path);
    EXPECT_EQ(stack().index(), 1);
    EXPECT_EQ(scene().cells.material(7, 0), 3);
    EXPECT_EQ(count(), 4u);
}

TEST_F(ConstructionViewTest, ZoomKeepsThePointUnderThePointer) {
    open(wall());
    const QPointF at = middleOf(3);
    const double before = scene().x.toDrawn(at.x());
    canvas().zoomBy(6, at);
    EXPECT_FALSE(canvas().isFitted());
    EXPECT_NEAR(scene().x.toDrawn(at.x()), before, 1.5 / scene().x.scale());
    canvas().select({columns(6, 7)});
    trigger("zoomSelection");
    const QRectF shown = scene().rectangle(columns(6, 7));
    EXPECT_TRUE(QRectF(canvas().viewport()->rect()).adjusted(-1, -1, 1, 1).contains(shown));
    EXPECT_GT(shown.width(), canvas().viewport()->width() * 0.8);
    trigger("zoomFit");
    EXPECT_GE(scene().rectangle(columns(0, 7)).left(), 0);
    trigger("equidistant");
    EXPECT_NEAR(scene().rectangle(columns(0, 0)).width(), scene().rectangle(columns(3, 3)).width(), 1e-6);
}

TEST_F(ConstructionViewTest, CardTellsAllThatAppliesToACell) {
    open(wall());
    const QString card = scene().cardOf(0, 0);
    for (const char * part : {"Column 1", "Render", "Outside", "Left side", "Field"})
        EXPECT_TRUE(card.contains(part)) << part << card.toStdString();
    EXPECT_FALSE(card.contains("Brick"));
    EXPECT_FALSE(card.contains("Foil"));
    EXPECT_TRUE(scene().cardOf(1, 0).contains("Foil"));
}

} // namespace
