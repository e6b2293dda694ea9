#include "MaterialTesting.h"

#include "materials/HygMaterialChart.h"
#include "materials/HygMaterialDBDialog.h"
#include "materials/HygMaterialDBWidget.h"
#include "materials/HygMaterialFindings.h"
#include "materials/HygMaterialFunctionPage.h"
#include "materials/HygMaterialPointModel.h"

#include <QtExt/ColorButton.h>
#include <QtExt/ValueEdit.h>

#include <SCI/Chart.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Numbers.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <set>

namespace {

using MM::Material;

constexpr const char * COPY_QUESTION = "The material is located in the built-in material database. Would you like to "
                                       "create a copy and edit the duplicated material instead?";
constexpr const char * PROTECTED =
    "The selected material file is write-protected, since it is part of the built-in "
    "material database. While you can inspect and even change properties of the material "
    "in the dialog, you may not save the changes. If you intend to create a modified "
    "version of the material, duplicate the material first!";

TEST_F(HygMaterialEditorTest, BuiltInMaterialsAreCopiedOrProtected) {
    HygMaterialDBWidget widget(m_database);
    widget.show();
    waitForScan();
    widget.setCurrentPath(path(QStringLiteral("built in/") + BRICK));
    auto & edit = *widget.findChild<QAction *>("materialEdit");

    // Yes: the duplicate is edited, and can be saved.
    answer<Reply>({press(QMessageBox::Yes), [](QWidget & window) {
                       auto & editor = static_cast<HygMaterialEditor &>(window);
                       EXPECT_FALSE(editor.isReadOnly());
                       editor.findChild<QLineEdit *>("NAME_en")->setText("My brick");
                       editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
                       editor.reject();
                   }});
    edit.trigger();
    EXPECT_EQ(m_asked, (QStringList{COPY_QUESTION, "materialEditor"}));
    waitForScan();
    const QStringList copies = QDir(path("user")).entryList(QDir::Files);
    ASSERT_EQ(copies.size(), 1);
    EXPECT_TRUE(copies[0].startsWith("clay_brick_solid_1"));
    const Material duplicate = read(path("user/" + copies[0]));
    EXPECT_GE(duplicate.m_id, 10000u);
    EXPECT_EQ(duplicate.name("de"), "Vollziegel (Kopie)");
    EXPECT_EQ(widget.currentPath(), path("user/" + copies[0]));
    EXPECT_EQ(read(path(QStringLiteral("built in/") + BRICK)),
              read(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/") + BRICK));

    // No: the material itself is opened, with the word that it is protected; nothing can be saved.
    m_asked.clear();
    qDeleteAll(m_timers.children());
    widget.setCurrentPath(path(QStringLiteral("built in/") + BRICK));
    answer<Reply>({press(QMessageBox::No), press(QMessageBox::Ok), [](QWidget & window) {
                       auto & editor = static_cast<HygMaterialEditor &>(window);
                       EXPECT_TRUE(editor.isReadOnly());
                       EXPECT_TRUE(editor.findChild<QLabel *>("materialLock")->isVisible());
                       editor.document().change("x", [](Material & m) { m.m_identification.m_country = "x"; });
                       EXPECT_FALSE(
                           editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->isEnabled());
                       editor.reject(); // without a question: it could not be saved
                   }});
    edit.trigger();
    EXPECT_EQ(m_asked, (QStringList{COPY_QUESTION, PROTECTED, "materialEditor"}));

    // Cancel: nothing happens.
    m_asked.clear();
    qDeleteAll(m_timers.children());
    answer<Reply>({press(QMessageBox::Cancel)});
    edit.trigger();
    EXPECT_EQ(m_asked, QStringList{COPY_QUESTION});
    EXPECT_EQ(QDir(path("user")).entryList(QDir::Files).size(), 1);
}

TEST_F(HygMaterialEditorTest, EveryFieldIsEditedUndoneAndSaved) {
    const QString file = copy();
    const Material before = read(file);
    auto editor = editorOf(file);
    EXPECT_LE(editor->height(), 700);
    const auto line = [&](const char * name, const QString & text) {
        auto & field = *editor->findChild<QLineEdit *>(name);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    };
    editor->findChild<QTabWidget *>()->setCurrentIndex(0);
    line("NAME_de", "Ziegel \"neu\" | alt");
    line("PRODUCER", "Kiln");
    line("DATA_SHEET_SOURCE", "sheet 7");
    editor->findChild<QCheckBox *>("WOOD")->click();
    auto & category = *editor->findChild<QComboBox *>("CATEGORY2");
    category.setCurrentIndex(4);
    emit category.activated(4);
    editor->findChild<QtExt::ColorButton *>("COLOUR")->setColor(QColor("#123456"));
    editor->findChild<QTabWidget *>()->setCurrentIndex(1);
    line("RHO", "1.7 kg/dm3");
    auto & uptake = *editor->findChild<QLineEdit *>("AW");
    uptake.selectAll();
    QTest::keyClick(&uptake, Qt::Key_Delete);
    QTest::keyClick(&uptake, Qt::Key_Return);
    auto & capillary = *editor->findChild<QLineEdit *>("THETA_CAP");
    ASSERT_TRUE(capillary.text().isEmpty());
    EXPECT_FALSE(capillary.isUndoAvailable()) << "no value that was never there";
    line("THETA_CAP", "0"); // is a value too
    line("MEW", "9,75");
    editor->findChild<QTabWidget *>()->setCurrentIndex(2);
    auto & functions = *editor->findChild<HygMaterialFunctionPage *>();
    functions.showFunction("mew(RH)");
    auto & points = *editor->findChild<QTableView *>("pointTable")->model();
    EXPECT_TRUE(points.setData(points.index(0, 1), "9,75"));
    EXPECT_FALSE(points.setData(points.index(0, 1), "much"));

    QUndoStack & stack = editor->document().undoStack();
    EXPECT_EQ(stack.count(), 11);
    const Material edited = editor->document().material();
    EXPECT_EQ(edited.m_identification.m_producer.get("en"), "Kiln");
    EXPECT_EQ(edited.m_identification.m_category.text(), "BRICK, NATURAL_STONES");
    EXPECT_EQ(edited.parameter(Material::ParaStorage::RHO).valueText(), "1.7 kg/dm3");
    EXPECT_TRUE(edited.parameter(Material::ParaTransport::AW).empty());
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(editor->document().material(), before);
    EXPECT_EQ(editor->findChild<QLineEdit *>("PRODUCER")->text(), "");
    EXPECT_EQ(editor->findChild<QLineEdit *>("RHO")->text(), "1650 kg/m³");
    while (stack.canRedo())
        stack.redo();
    EXPECT_EQ(editor->document().material(), edited);

    editor->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    EXPECT_EQ(editor->savedPath(), file);
    EXPECT_EQ(read(file), edited);
    EXPECT_FALSE(editor->isWindowModified());
}

/// The keys of undo go to the material wherever the cursor is, but to a text while it is being typed.
TEST_F(HygMaterialEditorTest, UndoKeysWorkFromWithinTheFields) {
    auto editor = editorOf(copy());
    editor->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    QUndoStack & stack = editor->document().undoStack();
    const struct {
        int page;
        const char * field;
        const char * before;
        const char * text;
    } rows[] = {
        {1, "LAMBDA",     "0.6 W/(m·K)", "6"   },
        {0, "PRODUCT_ID", "",             "B 12"},
    };
    for (const auto & row : rows) {
        editor->findChild<QTabWidget *>()->setCurrentIndex(row.page);
        auto & field = *editor->findChild<QLineEdit *>(row.field);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, row.text);
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(stack.count(), 0) << "the text alone is taken back";
        field.selectAll();
        QTest::keyClicks(&field, row.text);
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(stack.index(), 1);
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(stack.index(), 0) << row.field;
        EXPECT_EQ(field.text(), row.before);
        const int redo = QKeySequence(QKeySequence::Redo)[0];
        QTest::keyClick(&field, static_cast<Qt::Key>(redo & ~int(Qt::KeyboardModifierMask)),
                        Qt::KeyboardModifiers(redo & int(Qt::KeyboardModifierMask)));
        EXPECT_EQ(stack.index(), 1) << row.field;
        stack.undo();
        stack.clear();
    }
}

TEST_F(HygMaterialEditorTest, CopiesCanBeToldApart) {
    const QString first = copy();
    const QString second = copy(); // before the scan has found the first
    waitForScan();
    const QString third = m_database->copyToUser(first);
    EXPECT_EQ(read(first).name("en"), "Solid clay brick (copy)");
    EXPECT_EQ(read(second).name("en"), "Solid clay brick (copy 2)");
    EXPECT_EQ(read(second).name("de"), "Vollziegel (Kopie 2)");
    EXPECT_EQ(read(third).name("en"), "Solid clay brick (copy 3)") << "a copy of a copy";
    EXPECT_NE(read(second).m_id, read(third).m_id);
}

/// Choosing in the dialog without the mouse.
TEST_F(HygMaterialEditorTest, MaterialsAreChosenByKeys) {
    HygMaterialDBDialog dialog(m_database, "Replace");
    dialog.show();
    waitForScan();
    auto & search = *dialog.findChild<QLineEdit *>("materialSearch");
    auto & ok = *dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    const QString lime = path("built in/sand_lime_brick_107.m6");
    QTest::keyClicks(&search, "lime");
    EXPECT_TRUE(dialog.path().endsWith("sand_lime_brick_107.m6")) << "the first hit is chosen";
    EXPECT_TRUE(ok.isEnabled());
    QTest::keyClicks(&search, " nothing");
    EXPECT_EQ(dialog.path(), "");
    EXPECT_FALSE(ok.isEnabled());
    auto & table = dialog.findChild<HygMaterialDBWidget *>()->table();
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "nothing to choose";
    search.clear();
    QTest::keyClick(&search, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Home);
    QTest::keyClick(&table, Qt::Key_Down);
    const QString chosen = dialog.path();
    EXPECT_NE(chosen, "");
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.path(), chosen);

    HygMaterialDBWidget widget(m_database);
    widget.setSearch("Brick of a former project");
    widget.show();
    waitForScan();
    EXPECT_EQ(widget.table().model()->rowCount(), 2) << "words that find nothing are dropped";
    EXPECT_EQ(widget.findChild<QLineEdit *>("materialSearch")->text(), "");
}

TEST_F(HygMaterialEditorTest, PointsAreInsertedPastedRemovedAndDragged) {
    auto editor = editorOf(copy());
    editor->findChild<QTabWidget *>()->setCurrentIndex(2);
    auto & page = *editor->findChild<HygMaterialFunctionPage *>();
    page.showFunction("mew(RH)");
    auto & table = *editor->findChild<QTableView *>("pointTable");
    const auto points = [&] {
        QStringList texts;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            texts << table.model()->index(row, 0).data().toString() + ':' +
                         table.model()->index(row, 1).data().toString();
        return texts.join(' ');
    };
    EXPECT_EQ(points(), "0:9.5 0.25:9.5 0.75:9 1:9");
    table.setCurrentIndex(table.model()->index(1, 0));
    QTest::keyClick(&table, Qt::Key_Insert);
    EXPECT_EQ(points(), "0:9.5 0.25:9.5 0.5:9.25 0.75:9 1:9");
    table.selectionModel()->select(table.model()->index(0, 0), QItemSelectionModel::Select);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(points(), "0.25:9.5 0.75:9 1:9");
    QGuiApplication::clipboard()->setText("0\t10\n0,5;8\r\n\n1 7\n");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(points(), "0:10 0.5:8 1:7");
    QGuiApplication::clipboard()->setText("0\t10\nx\t8");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(points(), "0:10 0.5:8 1:7");

    QString lines;
    for (int i = 0; i <= 100'000; ++i)
        lines += QString("%1 1\n").arg(i);
    QGuiApplication::clipboard()->setText(lines);
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(points(), "0:10 0.5:8 1:7") << "more than a function may have";

    // A drag is one step; the point stays between its neighbours.
    SCI::Chart & chart = page.chart();
    QTest::qWait(50);
    const int steps = editor->document().undoStack().count();
    const auto mouse = [&](QEvent::Type type, const QPointF & place) {
        QMouseEvent event(type, place, Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&chart.canvas(), &event);
    };
    mouse(QEvent::MouseButtonPress, chart.toCanvas({0.5, 8}));
    mouse(QEvent::MouseMove, chart.toCanvas({0.6, 9}));
    mouse(QEvent::MouseMove, chart.toCanvas({1.7, 9}));
    mouse(QEvent::MouseButtonRelease, chart.toCanvas({1.7, 9}));
    const KOR::LinearSpline & dragged =
        editor->document().material().m_moistureTransport[0].function(MM::MoistureTransport::Functions::mew_RH);
    EXPECT_TRUE(dragged.valid());
    EXPECT_LT(dragged.x()[1], 1);
    EXPECT_GT(dragged.x()[1], 0.9);
    EXPECT_NEAR(dragged.y()[1], 9, 0.05);
    for (const double value : {dragged.x()[1], dragged.y()[1]})
        EXPECT_LE(KOR::toString(value).size(), 7u) << value << " has digits that no pixel means";
    EXPECT_EQ(editor->document().undoStack().count(), steps + 1);
    editor->document().undoStack().undo();
    EXPECT_EQ(points(), "0:10 0.5:8 1:7");
    editor->document().undoStack().setClean();
}

TEST_F(HygMaterialEditorTest, FindingsStandAtTheirFieldsAndNothingUnreadableIsSaved) {
    const QString file = copy();
    const std::string content = KOR::readFile(file.toStdString(), 1 << 20);
    auto editor = editorOf(file);
    HygMaterialDocument & document = editor->document();
    document.change("no porosity", [](Material & m) {
        m.clearParameter(Material::ParaStorage::THETA_POR);
        m.setParameter(Material::ParaTransport::LAMBDA, 0);
    });
    document.checkNow();
    for (const char * keyword : {"THETA_POR", "LAMBDA"})
        EXPECT_FALSE(editor->findChild<QLabel *>(QString("finding_") + keyword)->text().isEmpty()) << keyword;
    EXPECT_TRUE(editor->findChild<QLabel *>("finding_RHO")->text().isEmpty());
    auto & list = *editor->findChild<QListWidget *>("materialFindings");
    ASSERT_GT(list.count(), 1);
    EXPECT_TRUE(list.item(0)->text().contains("LambdaDry"));
    emit list.itemClicked(list.item(0));
    EXPECT_EQ(editor->findChild<QTabWidget *>()->currentIndex(), 1);

    auto & save = *editor->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save);
    EXPECT_TRUE(save.isEnabled()) << "findings do not hinder";
    const auto setIsotherm = [&](std::vector<double> x, std::vector<double> y) {
        document.change("points", [&](Material & m) { HygMaterialFunctions::setPoints(m, {0, 0}, x, y); });
        document.checkNow();
    };
    for (const auto & [x, y] : std::vector<std::pair<std::vector<double>, std::vector<double>>>{
             {{0, 0.8, 0.5, 1}, {0, 0.1, 0.2, 0.3}},
             {{0, 0.5, 0.5},    {0, 0.1, 0.2}     },
             {{0, 1},           {0, std::nan("")} }
    }) {
        setIsotherm(x, y);
        EXPECT_FALSE(document.refusal().isEmpty());
        EXPECT_FALSE(save.isEnabled());
        EXPECT_THROW(document.save(file), KOR::Exception);
        EXPECT_EQ(KOR::readFile(file.toStdString(), 1 << 20), content);
    }
    setIsotherm({0, 0.8, 1}, {0, 0.1, 0.05});
    EXPECT_TRUE(save.isEnabled());
    bool isNamed = false;
    for (int row = 0; row < list.count(); ++row)
        isNamed = isNamed || list.item(row)->text().contains("as it does in row 3");
    EXPECT_TRUE(isNamed) << "in words that say what to mend";
    setIsotherm({0, 0.8, 1}, {0, 0.1, 0.37});
    EXPECT_TRUE(save.isEnabled());
    document.undoStack().setClean();
}

TEST_F(HygMaterialEditorTest, EveryMessageOfTheCheckHasItsField) {
    // All messages of the check stand in its source in quotes; those of the table carry a field.
    const std::string source = KOR::readFile(HYG_SOURCE_DIR "/materials/src/CheckMaterial.cpp", 1 << 20);
    std::set<std::string> fields;
    int count = 0;
    for (std::size_t begin = source.find("TOPIC,"); begin != std::string::npos; begin = source.find("TOPIC,", begin)) {
        begin = source.find('"', begin) + 1;
        const std::size_t end = source.find('"', begin);
        const std::string message = source.substr(begin, end - begin);
        const QString field = HygMaterialFindings::field({MM::Finding::Topic::AIR_TRANSPORT, message});
        EXPECT_FALSE(field.isEmpty()) << message;
        fields.insert(field.toStdString());
        ++count;
    }
    EXPECT_GT(count, 50);
    HygMaterialEditor editor(*m_database, Material());
    for (const std::string & field : fields)
        EXPECT_TRUE(editor.findChild<QtExt::ValueEdit *>(QString::fromStdString(field)) != nullptr ||
                    editor.findChild<HygMaterialFunctionPage *>()->hasFunction(QString::fromStdString(field)))
            << field;
}

TEST_F(HygMaterialEditorTest, NewMaterialsGetAFileOfTheirName) {
    Material material;
    material.m_id = m_database->freeId();
    HygMaterialEditor editor(*m_database, material);
    editor.show();
    editor.document().change("name", [](Material & m) { m.m_identification.m_name.set("en", "Lehmputz Ä/1"); });
    editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    EXPECT_EQ(editor.savedPath(), path("user/lehmputz_a_1_10000.m6"));
    EXPECT_EQ(m_database->freeId(), 10001u);

    // Somebody else writes the file: it is not replaced without a question.
    QTest::qWait(20);
    KOR::writeFile(editor.savedPath().toStdString(), "other");
    editor.document().change("name", [](Material & m) { m.m_identification.m_country = "DE"; });
    answer<Reply>({press(QMessageBox::No), press(QMessageBox::Discard)});
    editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    EXPECT_EQ(KOR::readFile(editor.savedPath().toStdString(), 100), "other");
    editor.reject();
    EXPECT_EQ(m_asked.size(), 2);
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(HygMaterialEditorTest, ComparedMaterialsShareOneChart) {
    HygMaterialDBWidget widget(m_database);
    widget.resize(1200, 700);
    widget.show();
    waitForScan();
    for (const char * file : {BRICK, "sand_lime_brick_107.m6"}) {
        widget.setCurrentPath(path(QStringLiteral("built in/") + file));
        widget.findChild<QAction *>("materialCompare")->trigger();
    }
    EXPECT_EQ(widget.comparedPaths().size(), 2);
    auto & chart = *widget.findChild<HygMaterialChart *>();
    const auto header = [&] { return QString::fromStdString(chart.chart().csv()).section('\n', 0, 0); };
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return header().contains("Solid clay brick") && header().contains("Sand-lime"); }, 10000))
        << header().toStdString();
    EXPECT_EQ(widget.table().model()->index(0, 0).data(Qt::BackgroundRole), QColor("#ffe49d"));

    // What the chart shows is what the material evaluates.
    const HygMaterialLoader::Loaded brick = HygMaterialLoader::read(path(QStringLiteral("built in/") + BRICK));
    ASSERT_TRUE(brick.material && brick.problem.isEmpty());
    for (int curve = 0; curve < HygMaterialCurves::NUM_CURVES; ++curve) {
        const auto which = static_cast<HygMaterialCurves::curve_t>(curve);
        const bool exists = !HygMaterialCurves::directions(which, *brick.material).empty();
        const bool expected = which != HygMaterialCurves::ConductivityTemperature &&
                              which != HygMaterialCurves::ConductivityIce &&
                              which != HygMaterialCurves::AirPermeability && which != HygMaterialCurves::FoilForward &&
                              which != HygMaterialCurves::FoilBackward;
        EXPECT_EQ(exists, expected) << curve;
    }
    const auto isotherm = HygMaterialCurves::model(HygMaterialCurves::StorageRH, brick.material, 0);
    EXPECT_EQ(isotherm->y(isotherm->count() / 2),
              brick.material->m_moistureStorage.Thetal_RH(isotherm->x(isotherm->count() / 2)));
    const auto resistance = HygMaterialCurves::model(HygMaterialCurves::VaporResistance, brick.material, 0);
    EXPECT_NEAR(resistance->y(0), 9.5, 1e-9);

    widget.findChild<QAction *>("materialEndComparison")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !header().contains("Solid clay brick"); }, 10000));
    widget.findChild<QAction *>("materialFavourite")->trigger();
    EXPECT_EQ(m_database->favourites(), QStringList{"sand_lime_brick_107.m6"});
    widget.findChild<QAction *>("materialFavourite")->trigger();
    EXPECT_TRUE(m_database->favourites().isEmpty());
}

} // namespace
