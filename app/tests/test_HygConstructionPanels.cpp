#include "ConstructionTesting.h"

#include "construction/HygAssignPanel.h"
#include "construction/HygLayerModel.h"
#include "construction/HygLayerPanel.h"
#include "construction/HygMaterialOffer.h"
#include "construction/HygNewLayerDialog.h"
#include "materials/HygMaterialDBTableModel.h"
#include "simulation/HygSimulationView.h"
#include "undo/HygUndoSections.h"

#include <KOR/FileIO.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include <clocale>
#include <regex>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using HYGRION::Assignment;
using HYGRION::BoundaryCond;
using HYGRION::ClimateCond;
using HYGRION::Project;
using HYGRION::Range;
using testing::Contains;
using testing::ElementsAre;

class HygConstructionPanels : public ConstructionViewTest {
protected:
    QStringList layers() {
        QStringList texts;
        const QAbstractItemModel & model = *find<QTableView>("layerTable").model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, 0).data().toString() + ' ' + model.index(row, 1).data(Qt::EditRole).toString();
        return texts;
    }
    QTreeWidgetItem * entry(const char * name) {
        auto & tree = find<QTreeWidget>("assignTree");
        for (QTreeWidgetItem * item : tree.findItems(name, Qt::MatchEndsWith | Qt::MatchRecursive))
            if (item->parent() != nullptr)
                return item;
        return nullptr;
    }
    const Assignment * assignmentOf(const char * reference) const {
        for (const Assignment & assignment : project().m_assignments.m_list)
            if (assignment.m_reference == reference)
                return &assignment;
        return nullptr;
    }
};

TEST_F(HygConstructionPanels, LayersAreMovedAndTheSurfacesStay) {
    open(wall());
    ASSERT_EQ(layers(), (QStringList{"Render 0.015", "Brick 0.24", "Plaster 0.015"}));
    const Project before = project();
    auto & table = find<QTableView>("layerTable");
    auto & model = static_cast<HygLayerModel &>(*table.model());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(2, 0)}));
    model.dropMimeData(dragged.get(), Qt::MoveAction, 0, 0, {});
    EXPECT_EQ(layers(), (QStringList{"Plaster 0.015", "Render 0.015", "Brick 0.24"}));
    EXPECT_EQ(assignmentOf("Outside")->m_range, (Range{}));
    EXPECT_EQ(assignmentOf("Inside")->m_range, (Range{.left = 7, .right = 7}));
    EXPECT_THAT(selected(), ElementsAre(Range{.right = 1})) << "the layer stays selected";
    stack().undo();
    EXPECT_EQ(project(), before);
    // What is not one of our layers is refused.
    QMimeData foreign;
    foreign.setData(HygLayerModel::MIME_TYPE, "17");
    EXPECT_FALSE(model.dropMimeData(&foreign, Qt::MoveAction, 0, 0, {}));
    EXPECT_EQ(project(), before);

    table.setCurrentIndex(model.index(0, 0));
    QTest::keyClick(&table, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(layers(), (QStringList{"Brick 0.24", "Render 0.015", "Plaster 0.015"}));
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(layers(), (QStringList{"Brick 0.24", "Plaster 0.015"}));
    EXPECT_EQ(assignmentOf("Inside")->m_range.right + 1, project().m_disc.nx());
    while (stack().canUndo())
        stack().undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygConstructionPanels, ThicknessAndMaterialAreTypedInPlace) {
    open(wall());
    auto & table = find<QTableView>("layerTable");
    m_view.findChild<QTabWidget *>("constructionPanels")->setCurrentWidget(&find<QWidget>("layerPanel"));
    const auto edit = [&](int row, int column) {
        table.setCurrentIndex(table.model()->index(row, column));
        table.edit(table.currentIndex());
    };
    edit(1, HygLayerModel::ThicknessColumn);
    auto & thickness = find<QLineEdit>("thicknessEdit");
    EXPECT_EQ(thickness.text(), "240 mm");
    QTest::keyClicks(&thickness, "0");
    QTest::keyClick(&thickness, Qt::Key_Return);
    QCoreApplication::processEvents();
    ASSERT_EQ(m_view.findChild<QLineEdit *>("thicknessEdit"), &thickness) << "it stays and says why";
    thickness.selectAll();
    QTest::keyClicks(&thickness, "36,5 cm");
    QTest::keyClick(&thickness, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_NEAR(scene().x.width(2, 5), 0.365, 1e-12);
    EXPECT_EQ(stack().count(), 1);
    edit(1, HygLayerModel::MaterialColumn);
    auto & material = find<QComboBox>("materialEdit");
    material.setCurrentText("Plaster");
    emit material.activated(material.currentIndex());
    EXPECT_EQ(layers().size(), 2) << "brick became plaster, one layer with its neighbour";
    EXPECT_EQ(stack().count(), 2);
}

TEST_F(HygConstructionPanels, AThicknessTypedAgainAndAgainIsOneStep) {
    open(wall());
    const Project before = project();
    const auto width = [](double millimetres) { return KOR::Parameter("Width", millimetres, KOR::Unit("mm")); };
    for (const double value : {300.0, 310.0, 365.0})
        m_view.editor().setThickness(HYGRION::Disc::X, 2, 5, width(value));
    EXPECT_EQ(stack().count(), 1);
    m_view.editor().setThickness(HYGRION::Disc::X, 0, 1, width(20)); // another field
    m_view.editor().setWidth(HYGRION::Disc::X, 7, 7, width(6));
    m_view.editor().setWidth(HYGRION::Disc::X, 7, 7, width(7));
    EXPECT_EQ(stack().count(), 3);
    EXPECT_NEAR(scene().x.width(0, 7), 0.02 + 0.365 + 0.017, 1e-12);
    stack().undo();
    EXPECT_NEAR(scene().x.width(7, 7), 0.005, 1e-12);
    stack().setIndex(0);
    EXPECT_EQ(project(), before);
    // Back where it was: there is nothing to undo.
    m_view.editor().setThickness(HYGRION::Disc::X, 2, 5, width(300));
    m_view.editor().setThickness(HYGRION::Disc::X, 2, 5, width(240));
    EXPECT_EQ(project(), before);
    EXPECT_FALSE(stack().canUndo());
    // The forms of the simulation do so too.
    HygSimulationView form(&m_projects);
    form.show();
    const auto type = [&form](const char * field, const char * text) {
        auto & edit = *form.findChild<QLineEdit *>(field);
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    };
    type("DefaultTemperature", "15 C");
    type("DefaultTemperature", "16 C");
    EXPECT_EQ(stack().count(), 1);
    type("DefaultRelativeHumidity", "70 %");
    EXPECT_EQ(stack().count(), 2);
    stack().undo();
    stack().undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygConstructionPanels, FilesAreTheSameUnderAComma) {
    const auto drawn = [this] {
        open(wall());
        m_view.editor().addLayer({
            {"Cork", KOR::Color::fromRgb(0xc09060), 10, KOR::Path("cork.m6")},
            KOR::Parameter("Thickness", 4.25, KOR::Unit("cm")),
            true,
            8
        });
        auto & table = find<QTableView>("layerTable");
        table.setCurrentIndex(table.model()->index(1, HygLayerModel::ThicknessColumn));
        table.edit(table.currentIndex());
        QTest::keyClicks(&find<QLineEdit>("thicknessEdit"), "36,55 cm");
        QTest::keyClick(&find<QLineEdit>("thicknessEdit"), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        canvas().select({
            Range{.left = 0, .right = 1}
        });
        trigger("copyCells");
        canvas().select({
            Range{.left = 4, .right = 4}
        });
        trigger("pasteCells");
        m_view.editor().addStandardInterface(true, {Range{}}, location_t::Left);
        EXPECT_TRUE(m_projects.save());
        const std::string text = KOR::readFile(m_directory.filePath("wall.h6p").toStdString(), 1 << 20);
        return std::regex_replace(text, std::regex("lastEdited=\"[^\"]*\""), "");
    };
    const std::string expected = drawn();
    EXPECT_THAT(expected, testing::HasSubstr("91.375"));
    const QByteArray place = m_directory.filePath("locales").toLocal8Bit();
    QDir().mkpath(QString::fromLocal8Bit(place));
    const std::string command = "localedef -i de_DE -f UTF-8 " + place.toStdString() + "/de_DE.UTF-8 2>/dev/null";
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool isGerman = false;
    if (std::system(command.c_str()) == 0) {
#ifdef __SANITIZE_ADDRESS__
        const __lsan::ScopedDisabler notOurLeak; // the C library never gives back what it notes of LOCPATH
#endif
        qputenv("LOCPATH", place);
        isGerman = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    }
    if (!isGerman)
        GTEST_SKIP() << "NOT TESTED: no German locale, the package 'locales' is missing";
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    const std::string german = drawn();
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_ALL, before.c_str());
    qunsetenv("LOCPATH");
    EXPECT_EQ(german, expected);
}

TEST_F(HygConstructionPanels, EntriesAreAssignedAndTakenOff) {
    open(wall());
    click(3);
    auto & tree = find<QTreeWidget>("assignTree");
    ASSERT_NE(entry("Brick"), nullptr);
    EXPECT_EQ(entry("Brick")->text(0), "✓ Brick");
    EXPECT_EQ(entry("Render")->text(0), "Render");
    tree.setCurrentItem(entry("Start"));
    QTest::keyClick(&tree, Qt::Key_Return);
    ASSERT_NE(assignmentOf("Start"), nullptr);
    EXPECT_EQ(assignmentOf("Start")->m_range, (Range{.left = 3, .right = 3}));
    canvas().select({
        Range{.left = 2, .right = 4}
    });
    EXPECT_EQ(entry("Start")->text(0), "– Start") << "on a part of the selection";
    QTest::keyClick(&tree, Qt::Key_Delete);
    EXPECT_EQ(assignmentOf("Start"), nullptr);

    // Interfaces need a surface, on the side that lies there.
    tree.setCurrentItem(entry("Inside"));
    EXPECT_FALSE(find<QToolButton>("assignButton").isEnabled());
    click(0);
    EXPECT_TRUE(find<QToolButton>("sideLeft").isChecked());
    emit tree.itemDoubleClicked(entry("Inside"), 0);
    EXPECT_THAT(project().m_assignments.m_list,
                Contains(Assignment(type_t::Interface, location_t::Left, Range{}, "Inside")));
    EXPECT_EQ(assignmentOf("Outside"), nullptr) << "one surface has one interface";
}

TEST_F(HygConstructionPanels, AWordFindsWhatIsMeant) {
    std::vector<HygMaterialOffer::Entry> entries;
    const auto add = [&](const char * name, const char * category, bool isInProject, bool isSpecial) {
        entries.push_back({
            {name, {}, 5, KOR::Path("a.m6")},
            isInProject, category, isSpecial
        });
    };
    add("Mortar", "Plaster", true, false);
    add("Clinker", "Bricks", false, false);
    add("Handformed brick of the old town", "Bricks", false, false);
    add("Solid clay brick", "Bricks", false, false);
    add("Brickwork", "Bricks", false, false);
    add("Brick of a benchmark", "Others", false, true);
    const auto found = [&](const char * words) {
        std::string names;
        for (const std::size_t n : HygMaterialOffer::find(entries, words))
            names += std::to_string(n);
        return names;
    };
    EXPECT_EQ(found(""), "012345");
    EXPECT_EQ(found("brick"), "43215") << "beginnings, words, categories, and what is special last";
    EXPECT_EQ(found("BRICK clay"), "3");
    EXPECT_EQ(found("mort"), "0");
    EXPECT_EQ(found("granite"), "");

    // The keys of the search field choose in the tree, and what the search hides is not assigned.
    open(wall());
    click(3);
    auto & search = find<QLineEdit>("assignSearch");
    auto & tree = find<QTreeWidget>("assignTree");
    tree.setCurrentItem(entry("Render"));
    search.setText("plas");
    ASSERT_EQ(tree.currentItem(), entry("Plaster"));
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_EQ(scene().cells.material(3, 0), 2);
    search.setText("r"); // Render, Brick, Plaster
    QTest::keyClick(&search, Qt::Key_Up);
    QTest::keyClick(&search, Qt::Key_Up);
    EXPECT_EQ(tree.currentItem(), entry("Render"));
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_EQ(tree.currentItem(), entry("Brick"));
    search.setText("nothing of that name");
    EXPECT_FALSE(find<QToolButton>("assignButton").isEnabled());
}

TEST_F(HygConstructionPanels, MaterialsOfOneNameAreToldApartByTheirIds) {
    for (const char * name : {"a_10000.m6", "a_10001.m6"})
        ASSERT_TRUE(QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/clay_brick_solid_108.m6"),
                                m_directory.filePath(QStringLiteral("DB_materials/") + name)));
    open(wall());
    HygMaterialOffer offer;
    ASSERT_TRUE(QTest::qWaitFor([&] { return offer.entries(project()).size() == 5; }))
        << offer.entries(project()).size();
    const auto entries = offer.entries(project());
    EXPECT_EQ(entries[3].reference.m_name, "Solid clay brick (10000)");
    EXPECT_EQ(entries[4].reference.m_name, "Solid clay brick (10001)");
    // The second of them is what comes into the project.
    m_view.editor().assignMaterial(entries[4].reference, {
                                                             Range{.left = 2, .right = 5}
    });
    ASSERT_EQ(project().m_materials.size(), 4u);
    EXPECT_TRUE(project().m_materials[3].m_filename.str().ends_with("a_10001.m6"));
    const auto rest = offer.entries(project());
    ASSERT_EQ(rest.size(), 5u);
    EXPECT_TRUE(rest[4].reference.m_filename.str().ends_with("a_10000.m6")) << "the other one is still offered";
}

TEST_F(HygConstructionPanels, AWallIsDrawnFromNothing) {
    Project blank;
    blank.m_projectInfo.m_created = "2026-01-01";
    for (const char * name : {"Brick", "Wool"})
        blank.m_materials.push_back({name, {}, name[0] == 'B' ? 5 : 10, KOR::Path("a.m6")});
    open(blank);
    EXPECT_TRUE(find<QWidget>("constructionStart").isVisible());
    bool isDone = false;
    QTimer::singleShot(0, &m_view, [&] {
        auto * dialog = m_view.findChild<HygNewLayerDialog *>();
        ASSERT_NE(dialog, nullptr);
        EXPECT_LE(dialog->height(), 700);
        auto & thickness = *dialog->findChild<QLineEdit *>("layerThickness");
        EXPECT_EQ(thickness.text(), "240 mm") << "as masonry usually is";
        QTest::mouseClick(dialog->findChild<QPushButton *>("layerAddNext"), Qt::LeftButton);
        auto & search = *dialog->findChild<QLineEdit *>("layerSearch");
        QTest::keyClick(&search, Qt::Key_Down);
        EXPECT_EQ(dialog->findChild<QListWidget *>("layerMaterials")->currentRow(), 1)
            << "chosen from the search field";
        QTest::keyClicks(&search, "wool");
        EXPECT_EQ(dialog->findChild<QListWidget *>("layerMaterials")->count(), 1);
        EXPECT_EQ(thickness.text(), "160 mm");
        thickness.selectAll();
        QTest::keyClicks(&thickness, "0");
        EXPECT_FALSE(dialog->findChild<QPushButton *>("layerAdd")->isEnabled());
        thickness.selectAll();
        QTest::keyClicks(&thickness, "12 cm");
        dialog->findChild<QPushButton *>("layerAdd")->click();
        isDone = true;
    });
    QTest::mouseClick(&find<QPushButton>("startLayer"), Qt::LeftButton);
    ASSERT_TRUE(isDone);
    EXPECT_FALSE(find<QWidget>("constructionStart").isVisible());
    EXPECT_EQ(layers(), (QStringList{"Brick 0.24", "Wool 0.12"}));
    EXPECT_GT(project().m_disc.nx(), 20u) << "divided into cells";
    EXPECT_NO_THROW(project().GUISanityChecks());
    EXPECT_EQ(stack().count(), 2) << "a layer is one step of undo";
}

TEST_F(HygConstructionPanels, AMaterialDroppedOnAnEmptyProjectIsItsFirstLayer) {
    const QString path = m_directory.filePath("DB_materials/clay_brick_solid_108.m6");
    ASSERT_TRUE(QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/clay_brick_solid_108.m6"), path));
    Project blank;
    blank.m_projectInfo.m_created = "2026-01-01";
    open(blank);
    const Project before = project();
    auto & card = find<QWidget>("constructionStart");
    const auto send = [&](QMimeData & data) {
        const QPoint at = card.rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        for (QDropEvent * event : {static_cast<QDropEvent *>(&enter), &drop}) {
            event->setAccepted(false);
            QApplication::sendEvent(&card, event);
            if (!event->isAccepted())
                return false;
        }
        return true;
    };
    QMimeData project6;
    project6.setUrls({QUrl::fromLocalFile(m_directory.filePath("other.h6p"))});
    EXPECT_FALSE(send(project6)) << "left to the window";
    QMimeData material;
    material.setData(HygMaterialDBTableModel::MIME_TYPE, path.toUtf8());
    EXPECT_TRUE(send(material));
    ASSERT_EQ(layers().size(), 1);
    EXPECT_TRUE(layers()[0].endsWith("0.24")) << layers()[0].toStdString();
    EXPECT_FALSE(card.isVisible());
    EXPECT_EQ(stack().count(), 1);
    stack().undo();
    EXPECT_EQ(project(), before);
    EXPECT_TRUE(card.isVisible());
}

TEST_F(HygConstructionPanels, ADatabaseMaterialComesIntoTheProjectWithItsLayer) {
    open(wall());
    const Project before = project();
    m_view.editor().addLayer({
        {"Cork", KOR::Color::fromRgb(0xc09060), 10, KOR::Path("cork.m6")},
        KOR::Parameter("Thickness", 4, KOR::Unit("cm")),
        true,
        8
    });
    EXPECT_EQ(project().m_materials.back().m_name, "Cork");
    EXPECT_EQ(layers().back(), "Cork 0.04");
    EXPECT_EQ(assignmentOf("Inside")->m_range.left + 1, project().m_disc.nx());
    EXPECT_EQ(assignmentOf("Plaster")->m_range, (Range{.left = 6, .right = 7}));
    stack().undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygConstructionPanels, APlaceThatACheckNamesIsShown) {
    Project spoilt = wall();
    ClimateCond & climate = spoilt.m_conditions.m_climateConditions.emplace_back();
    climate.m_name = "Rain";
    BoundaryCond & driving = spoilt.m_conditions.m_boundaryConditions.emplace_back();
    driving.m_name = "Driving rain";
    driving.m_ccReferences[ClimateCond::condition_t::RainFluxHorizontal] = "Rain";
    spoilt.m_conditions.m_interfaces[0].m_bcReferences.push_back("Driving rain");
    spoilt.m_conditions.m_interfaces.emplace_back().m_name = "Cellar";
    spoilt.m_assignments.m_list[4].m_name = "Inner surface";
    spoilt.m_assignments.m_list.erase(spoilt.m_assignments.m_list.begin() + 1); // of the brick
    open(wall());
    stack().push(new HygUndoProject("spoil", spoilt));
    struct Row {
        const char * place;
        Range bounds;
        const char * panel;
    };
    const Row rows[] = {
        {"material 'Plaster'",         {.left = 6, .right = 7}, "assignmentPanel"},
        {"interface 'Outside'",        {},                      "assignmentPanel"},
        {"climate condition 'Rain'",   {},                      "assignmentPanel"}, // by way of two definitions
        {"assignment 'Inner surface'", {.left = 7, .right = 7}, "assignmentPanel"},
        {"assignment '#1'",            {.right = 1},            "assignmentPanel"},
        {"output grid 'Hourly'",       {.right = 7},            "assignmentPanel"},
        {"Assignments",                {.left = 2, .right = 5}, "assignPanel"    }, // cells without material
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(row.place);
        canvas().select({});
        m_view.showPlace(row.place);
        ASSERT_FALSE(scene().selection.empty());
        EXPECT_EQ(scene().selection.bounds(), row.bounds);
        EXPECT_EQ(find<QTabWidget>("constructionPanels").currentWidget()->objectName(), row.panel);
    }
    // What is nowhere yet waits in the panel to be assigned.
    m_view.showPlace("interface 'Cellar'");
    EXPECT_EQ(find<QTabWidget>("constructionPanels").currentWidget()->objectName(), "assignPanel");
    EXPECT_EQ(find<QTreeWidget>("assignTree").currentItem()->text(0), "Cellar");
    m_view.showPlace("interface 'Nobody'"); // is gone since
}

} // namespace
