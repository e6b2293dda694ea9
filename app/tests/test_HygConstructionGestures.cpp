// What hands do to the drawing of a detail: pan, zoom, drag, menus, rulers, keys.
#include "ConstructionTesting.h"

#include "construction/HygGridRuler.h"
#include "views/HygMessageBar.h"

#include <HYGRION/CellClip.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>
#include <QTreeWidget>
#include <QWheelEvent>

namespace {

using HYGRION::Assignment;
using HYGRION::Project;
using HYGRION::Range;
using testing::ElementsAre;

class HygConstructionGestures : public ConstructionViewTest {
protected:
    /// The wall with four rows of 50, 100, 100 and 50 mm; the upper two of the brick are open air.
    static Project detail() {
        Project p = wall();
        p.m_disc.m_ySteps = {
            {50, 100, 100, 50},
            KOR::Unit("mm")
        };
        for (Assignment & assignment : p.m_assignments.m_list)
            assignment.m_range.top = assignment.m_reference == "Brick" ? 1 : 3;
        return p;
    }
    void SetUp() override { open(detail()); }

    QWidget * viewport() { return canvas().viewport(); }
    void wheel(const QPointF & at, int delta, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event(at, viewport()->mapToGlobal(at.toPoint()), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport(), &event);
    }
    void move(const QPoint & to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(QEvent::MouseMove, to, viewport()->mapToGlobal(to), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(viewport(), &event);
    }
    void drag(const QPoint & from, const QPoint & to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(viewport(), button, modifiers, from);
        move((from + to) / 2, button, modifiers);
        move(to, button, modifiers);
        QTest::mouseRelease(viewport(), button, modifiers, to);
    }
    /// The entries of the menu that an action opens; the one of a name is chosen.
    QStringList menuOf(const std::function<void()> & action, const char * chosen = nullptr) {
        QStringList entries;
        QTimer::singleShot(0, &m_view, [&] {
            auto * menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction * entry : menu->actions()) {
                if (entry->isEnabled() && !entry->isSeparator())
                    entries << entry->text();
                if (chosen != nullptr && entry->text().endsWith(chosen))
                    menu->setActiveAction(entry);
            }
            if (chosen != nullptr && menu->activeAction() != nullptr)
                QTest::keyClick(menu, Qt::Key_Return);
            menu->close();
        });
        action();
        return entries;
    }
    std::size_t rows() const { return project().m_disc.ny(); }
};

TEST_F(HygConstructionGestures, TheWheelZoomsAtThePointerAndModifiersScroll) {
    const double scale = scene().x.scale();
    for (int n = 0; n < 8; ++n) // until it is larger than the window; before it stands in its middle
        wheel(middleOf(4, 2), 120);
    const QPointF at(150, 100);
    const double x = scene().x.toDrawn(at.x());
    const double y = scene().y.toDrawn(at.y());
    for (int n = 0; n < 4; ++n)
        wheel(at, 120);
    EXPECT_NEAR(scene().x.scale() / scale, std::pow(1.25, 12), 1e-6);
    EXPECT_EQ(scene().x.scale(), scene().y.scale());
    EXPECT_NEAR(scene().x.toDrawn(at.x()), x, 5 / scene().x.scale());
    EXPECT_NEAR(scene().y.toDrawn(at.y()), y, 5 / scene().x.scale());
    const int h = canvas().horizontalScrollBar()->value();
    const int v = canvas().verticalScrollBar()->value();
    wheel(at, -120, Qt::ShiftModifier);
    EXPECT_EQ(canvas().horizontalScrollBar()->value(), h + 120);
    wheel(at, -120, Qt::AltModifier);
    EXPECT_EQ(canvas().verticalScrollBar()->value(), v + 120);
    EXPECT_NEAR(scene().x.scale() / scale, std::pow(1.25, 12), 1e-6) << "scrolling does not zoom";
    for (int n = 0; n < 60; ++n)
        wheel(at, 240);
    const double largest = scene().x.scale();
    wheel(at, 240);
    EXPECT_EQ(scene().x.scale(), largest) << "there is an end";
    EXPECT_LE(scene().x.smallest() * largest, 401);
    for (int n = 0; n < 120; ++n)
        wheel(at, -240);
    EXPECT_GT(scene().rectangle({0, 0, 0, 7, 3, 0}).width(), 50) << "it never gets lost";
    key(Qt::Key_0, Qt::ControlModifier);
    trigger("zoomFit");
    EXPECT_NEAR(scene().x.scale(), scale, 1e-9);
}

TEST_F(HygConstructionGestures, TheMiddleButtonOrAltMovesTheDrawing) {
    for (int n = 0; n < 12; ++n)
        wheel(middleOf(4, 2), 120);
    for (const auto & [button, modifiers] :
         {std::pair(Qt::MiddleButton, Qt::NoModifier), std::pair(Qt::LeftButton, Qt::AltModifier)}) {
        const QPointF before = scene().rectangle({4, 2, 0, 4, 2, 0}).topLeft();
        const QPoint from(300, 200);
        drag(from, from + QPoint(-60, 35), button, modifiers);
        EXPECT_EQ((scene().rectangle({4, 2, 0, 4, 2, 0}).topLeft() - before).toPoint(), QPoint(-60, 35));
        EXPECT_TRUE(selected().empty());
        EXPECT_EQ(viewport()->cursor().shape(), Qt::ArrowCursor) << "the hand is gone";
        // Moves without a button do nothing.
        const int h = canvas().horizontalScrollBar()->value();
        move(QPoint(100, 100), Qt::NoButton);
        EXPECT_EQ(canvas().horizontalScrollBar()->value(), h);
    }
}

TEST_F(HygConstructionGestures, RectanglesAreDraggedAddedAndExtended) {
    drag(middleOf(2, 0), middleOf(4, 2));
    EXPECT_THAT(selected(), ElementsAre(Range{2, 0, 0, 4, 2, 0}));
    drag(middleOf(6, 3), middleOf(5, 3), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre(Range{2, 0, 0, 4, 2, 0}, Range{5, 3, 0, 6, 3, 0}));
    click(3, 1, Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre(Range{2, 0, 0, 4, 2, 0}, Range{3, 1, 0, 6, 3, 0})) << "the last one follows";
    EXPECT_TRUE(find<QLabel>("selectionSummary").text().contains("columns 3 to 7"));
    // Beyond the edge the nearest cells are taken, and the drawing follows.
    canvas().select({});
    for (int n = 0; n < 12; ++n)
        wheel(middleOf(4, 2), 120);
    const QPoint inside(viewport()->width() / 2, viewport()->height() / 2);
    QTest::mousePress(viewport(), Qt::LeftButton, {}, inside);
    move(QPoint(viewport()->width() + 4000, viewport()->height() + 4000), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return selected()[0].right == 7 && selected()[0].bottom == 0; }))
        << "it goes on while the pointer is held there";
    QTest::qWait(300);
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, inside);
    ASSERT_EQ(selected().size(), 1u);
    EXPECT_TRUE(QRectF(viewport()->rect()).intersects(scene().rectangle({7, 0, 0, 7, 0, 0})));
}

TEST_F(HygConstructionGestures, KeysGoThroughRowsColumnsLayersAndEnds) {
    click(3, 1);
    const auto expect = [&](int which, Qt::KeyboardModifiers modifiers, const Range & range) {
        key(which, modifiers);
        EXPECT_THAT(selected(), ElementsAre(range)) << which << ' ' << static_cast<int>(modifiers);
    };
    expect(Qt::Key_Up, {}, {3, 2, 0, 3, 2, 0});
    expect(Qt::Key_Up, Qt::ShiftModifier, {3, 2, 0, 3, 3, 0});
    expect(Qt::Key_Up, Qt::ShiftModifier, {3, 2, 0, 3, 3, 0});     // the end
    expect(Qt::Key_Down, Qt::ControlModifier, {3, 2, 0, 3, 2, 0}); // the first row of the upper part
    expect(Qt::Key_Down, Qt::ControlModifier, {3, 0, 0, 3, 0, 0});
    expect(Qt::Key_Home, Qt::ControlModifier, {0, 3, 0, 0, 3, 0});
    expect(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier, {0, 0, 0, 7, 3, 0});
    click(3, 1);
    expect(Qt::Key_Space, Qt::ShiftModifier, {0, 1, 0, 7, 1, 0});
    click(3, 1);
    expect(Qt::Key_Space, Qt::ControlModifier, {3, 0, 0, 3, 3, 0});
    click(3, 1);
    expect(Qt::Key_M, {}, {2, 0, 0, 5, 1, 0}); // the brick
    key(Qt::Key_Escape);
    EXPECT_TRUE(selected().empty());
    key(Qt::Key_Right);
    EXPECT_EQ(selected().size(), 1u) << "the keyboard alone begins somewhere";
    const double scale = scene().x.scale();
    key(Qt::Key_Plus);
    EXPECT_GT(scene().x.scale(), scale);
    key(Qt::Key_Minus);
    EXPECT_NEAR(scene().x.scale(), scale, 1e-9);
}

TEST_F(HygConstructionGestures, RulersSelectExtendAndAskForWidths) {
    auto & columns = find<QWidget>("columnRuler");
    auto & rows = find<QWidget>("rowRuler");
    const auto column = [&](std::uint32_t i, int band) {
        return QPoint(middleOf(i).x(), band == 0 ? 5 : columns.height() - 4);
    };
    const auto row = [&](std::uint32_t j, int band) {
        return QPoint(band == 0 ? 5 : rows.width() - 4, middleOf(0, j).y());
    };
    QTest::mouseClick(&rows, Qt::LeftButton, {}, row(1, 1));
    EXPECT_THAT(selected(), ElementsAre(Range{0, 1, 0, 7, 1, 0}));
    QTest::mouseClick(&rows, Qt::LeftButton, {}, row(3, 0)); // the outer band: what looks alike
    EXPECT_THAT(selected(), ElementsAre(Range{0, 2, 0, 7, 3, 0}));
    QTest::mouseClick(&columns, Qt::LeftButton, {}, column(2, 1));
    QTest::mouseClick(&columns, Qt::LeftButton, Qt::ShiftModifier, column(4, 1));
    EXPECT_THAT(selected(), ElementsAre(Range{2, 0, 0, 4, 3, 0}));
    QTest::mousePress(&columns, Qt::LeftButton, {}, column(3, 1));
    QMouseEvent across(QEvent::MouseMove, column(5, 1), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&columns, &across);
    QTest::mouseRelease(&columns, Qt::LeftButton, {}, column(5, 1));
    EXPECT_THAT(selected(), ElementsAre(Range{3, 0, 0, 5, 3, 0}));
    QTest::mouseClick(&columns, Qt::LeftButton, {}, QPoint(1, 5)); // beside the construction
    EXPECT_THAT(selected(), ElementsAre(Range{3, 0, 0, 5, 3, 0}));

    QTest::mouseDClick(&rows, Qt::LeftButton, {}, row(1, 1));
    auto * edit = m_view.findChild<QLineEdit *>("widthEdit");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "100 mm");
    QTest::keyClicks(edit, "0");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(stack().count(), 0) << "a row without height is refused";
    ASSERT_EQ(m_view.findChild<QLineEdit *>("widthEdit"), edit) << "the field says why";
    QTest::keyClick(edit, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(m_view.findChild<QLineEdit *>("widthEdit"), nullptr);
    canvas().select({
        Range{2, 1, 0, 2, 1, 0}
    });
    trigger("rowHeight");
    edit = m_view.findChild<QLineEdit *>("widthEdit");
    ASSERT_NE(edit, nullptr);
    QTest::keyClicks(edit, "20 cm");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(project().m_disc.m_ySteps.m_data, (std::vector<double>{50, 200, 100, 50}));
    EXPECT_EQ(stack().count(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_view.findChild<QLineEdit *>("widthEdit"), nullptr) << "the field is gone";
}

TEST_F(HygConstructionGestures, MenusBelongToTheCellUnderThePointer) {
    click(0, 0);
    const QPoint at = middleOf(3, 1);
    const auto request = [&](QContextMenuEvent::Reason reason, const QPoint & place) {
        QContextMenuEvent event(reason, place, viewport()->mapToGlobal(place));
        QApplication::sendEvent(viewport(), &event);
    };
    const QStringList entries = menuOf([&] { request(QContextMenuEvent::Mouse, at); });
    EXPECT_THAT(selected(), ElementsAre(Range{3, 1, 0, 3, 1, 0})) << "what the menu is about is selected";
    for (const char * needed : {"Split rows", "Delete columns", "Row height ...", "Clear cells"})
        EXPECT_TRUE(entries.contains(needed)) << needed;
    EXPECT_FALSE(entries.contains("Merge columns")) << "there is only one";
    canvas().select({
        Range{2, 0, 0, 4, 1, 0}
    });
    menuOf([&] { request(QContextMenuEvent::Keyboard, {}); });
    EXPECT_THAT(selected(), ElementsAre(Range{2, 0, 0, 4, 1, 0})) << "a selection around the pointer stays";
    // Enter or a double click: what can be assigned.
    menuOf([&] { key(Qt::Key_Return); }, "Plaster");
    EXPECT_EQ(scene().cells.material(3, 1), 2);
    EXPECT_EQ(scene().cells.material(3, 2), HygCellPlane::NO_MATERIAL);
    EXPECT_EQ(stack().count(), 1);
    click(3, 2);
    menuOf([&] { QTest::mouseDClick(viewport(), Qt::LeftButton, {}, middleOf(3, 2)); }, "Render");
    EXPECT_EQ(scene().cells.material(3, 2), 0);
}

/// An action on rows; undo leads back to what was before.
struct RowEdit {
    const char * action;
    Range selection;
    std::vector<double> heights; ///< afterwards [mm]
    Range brick;
    Range selected; ///< afterwards
};
TEST_F(HygConstructionGestures, RowsAreEditedLikeColumns) {
    const RowEdit edits[] = {
        {"insertAbove", {3, 1, 0, 3, 1, 0}, {50, 100, 100, 100, 50},  {2, 0, 0, 5, 2, 0}, {3, 2, 0, 3, 2, 0}},
        {"insertBelow", {3, 1, 0, 3, 1, 0}, {50, 50, 100, 100, 50},   {2, 0, 0, 5, 2, 0}, {3, 1, 0, 3, 1, 0}},
        {"splitRows",   {3, 1, 0, 3, 2, 0}, {50, 50, 50, 50, 50, 50}, {2, 0, 0, 5, 2, 0}, {3, 1, 0, 3, 4, 0}},
        {"mergeRows",   {3, 0, 0, 3, 1, 0}, {150, 100, 50},           {2, 0, 0, 5, 0, 0}, {3, 0, 0, 3, 0, 0}},
        {"deleteRows",  {3, 1, 0, 3, 2, 0}, {50, 50},                 {2, 0, 0, 5, 0, 0}, {3, 1, 0, 3, 1, 0}},
        {"mirrorRows",  {3, 1, 0, 3, 3, 0}, {50, 50, 100, 100},       {2, 0, 0, 5, 0, 0}, {3, 1, 0, 3, 3, 0}},
    };
    const Project before = project();
    for (const RowEdit & edit : edits) {
        SCOPED_TRACE(edit.action);
        canvas().select({edit.selection});
        trigger(edit.action);
        EXPECT_EQ(project().m_disc.m_ySteps.m_data, edit.heights);
        EXPECT_EQ(project().m_assignments.m_list[1].m_range, edit.brick);
        EXPECT_NO_THROW(project().GUISanityChecks());
        EXPECT_THAT(selected(), ElementsAre(edit.selected));
        click(7, 0);
        stack().undo();
        EXPECT_EQ(project(), before);
        EXPECT_THAT(selected(), ElementsAre(edit.selection)) << "as it was before";
        stack().redo();
        EXPECT_THAT(selected(), ElementsAre(edit.selected));
        stack().undo();
    }
}

TEST_F(HygConstructionGestures, CellsAreCutPastedAndCleared) {
    canvas().select({
        Range{2, 0, 0, 3, 1, 0}
    });
    trigger("cutCells");
    EXPECT_EQ(scene().cells.material(2, 0), HygCellPlane::NO_MATERIAL);
    EXPECT_EQ(scene().cells.material(4, 0), 1);
    canvas().select({
        Range{4, 2, 0, 4, 2, 0}
    });
    trigger("pasteCells");
    for (const auto & [i, j] : {std::pair(4, 2), std::pair(5, 2), std::pair(4, 3), std::pair(5, 3)})
        EXPECT_EQ(scene().cells.material(static_cast<std::size_t>(i), static_cast<std::size_t>(j)), 1) << i << j;
    EXPECT_EQ(scene().cells.material(6, 2), 2) << "not further than the block";
    canvas().select({
        Range{7, 3, 0, 7, 3, 0}
    });
    trigger("pasteCells");
    EXPECT_EQ(scene().cells.material(7, 3), 1) << "what lies beyond the edge is left out";
    trigger("clearCells");
    EXPECT_EQ(scene().cells.material(7, 3), HygCellPlane::NO_MATERIAL);
    EXPECT_EQ(stack().count(), 4);
    stack().setIndex(0);
    EXPECT_EQ(project().m_assignments, detail().m_assignments);
    // What is known nowhere does not empty the cells.
    QString foreign = QGuiApplication::clipboard()->text();
    QGuiApplication::clipboard()->setText(foreign.replace(">Brick<", ">Granite<"));
    trigger("pasteCells");
    EXPECT_EQ(stack().index(), 0);
    EXPECT_TRUE(find<HygMessageBar>("messageBar").text().contains("Granite"));
    click(0, 0);
    trigger("clearCells");
    EXPECT_EQ(find<HygMessageBar>("messageBar").text(), "") << "gone with the next change";
}

TEST_F(HygConstructionGestures, CellsOfAnotherProjectBringTheirDefinitionsInOneStep) {
    QDir().mkpath(m_directory.filePath("other"));
    const QString stone = m_directory.filePath("other/stone.m6");
    QFile::copy(m_directory.filePath("a.m6"), stone);
    Project other = detail();
    other.m_fileName = m_directory.filePath("other/other.h6p").toStdString();
    for (HYGRION::MaterialReference & material : other.m_materials)
        material.m_filename = KOR::Path("../a.m6");
    other.m_materials[1] = {"Brick", {}, 3, KOR::Path("stone.m6")}; // another one of the same name
    other.m_conditions.m_interfaces[0].m_name = "Street";
    other.m_assignments.m_list[3].m_reference = "Street";
    const auto copied = HYGRION::edit::CellClip::copy(other, {.left = 0, .right = 5, .top = 3});
    QGuiApplication::clipboard()->setText(QString::fromStdString(copied.text()));
    const Project before = project();
    click(4, 2);
    trigger("pasteCells");
    EXPECT_EQ(stack().count(), 1);
    EXPECT_EQ(project().m_materials.size(), 4u);
    EXPECT_EQ(project().m_materials.back().m_name, "Brick (2)");
    EXPECT_EQ(project().resolved(project().m_materials.back().m_filename).str(), stone.toStdString());
    EXPECT_EQ(project().m_conditions.m_interfaces.back().m_name, "Street");
    EXPECT_TRUE(project().danglingReferences().empty());
    EXPECT_EQ(scene().cells.material(6, 2), 3);
    EXPECT_THAT(selected(), ElementsAre(Range{4, 2, 0, 7, 3, 0})) << "what was pasted";
    EXPECT_TRUE(find<HygMessageBar>("messageBar").text().contains("16 cells of the block")) << "of 24";
    stack().undo();
    EXPECT_EQ(project(), before);
    EXPECT_THAT(selected(), ElementsAre(Range{4, 2, 0, 4, 2, 0}));
    // A file that is gone cannot come along.
    QFile::remove(stone);
    trigger("pasteCells");
    EXPECT_EQ(project(), before);
    EXPECT_TRUE(find<HygMessageBar>("messageBar").text().contains("stone.m6' of 'Brick (2)' does not exist"));
}

TEST_F(HygConstructionGestures, CardsAndSwitchesFollowWhatIsThere) {
    click(3, 1);
    key(Qt::Key_I);
    EXPECT_TRUE(QToolTip::text().contains("Column 4, row 2"));
    EXPECT_TRUE(QToolTip::text().contains("Brick"));
    QHelpEvent over(QEvent::ToolTip, middleOf(3, 3), viewport()->mapToGlobal(middleOf(3, 3)));
    QApplication::sendEvent(viewport(), &over);
    EXPECT_TRUE(QToolTip::text().contains("none"));
    // Each switch changes the picture: the interfaces, the foil, the output, the names.
    for (const char * name : {"showInterfaces", "showContacts", "showOutputs", "showNames"}) {
        auto & chip = find<QAbstractButton>(name);
        const QImage before = viewport()->grab().toImage();
        chip.click();
        EXPECT_NE(viewport()->grab().toImage(), before) << name;
        chip.click();
        EXPECT_EQ(viewport()->grab().toImage(), before) << name;
    }
    const QImage lines = viewport()->grab().toImage();
    trigger("gridLines");
    EXPECT_NE(viewport()->grab().toImage(), lines);
}

} // namespace
