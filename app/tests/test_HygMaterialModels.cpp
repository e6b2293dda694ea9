#include "MaterialTesting.h"

#include "materials/HygMaterialChart.h"
#include "materials/HygMaterialCurves.h"
#include "materials/HygMaterialFunctions.h"
#include "materials/HygMaterialMeasuredTable.h"
#include "materials/HygMaterialModelPage.h"
#include "materials/HygMaterialTable.h"

#include <QtExt/ValueEdit.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>

namespace {

using MM::Material;

/// What the pages of the editor behind its tables do, with a material in a file of the user's.
class HygMaterialModelsTest : public HygMaterialEditorTest {
protected:
    /// A copy of the brick whose text was changed.
    QString file(const std::function<void(std::string &)> & change) {
        const QString path = copy();
        std::string content = KOR::readFile(path.toStdString(), 1 << 20);
        change(content);
        KOR::writeFile(path.toStdString(), content);
        return path;
    }
    static void removeSection(std::string & content, const std::string & name) {
        const std::size_t begin = content.find('[' + name + ']');
        if (begin != std::string::npos)
            content.erase(begin, content.find("\n[", begin) - begin + 1);
    }
    /// All cells of a table, rows by "|".
    static QString cells(const QTableView & table) {
        QStringList rows;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            QStringList values;
            for (int column = 0; column < table.model()->columnCount(); ++column)
                values << table.model()->index(row, column).data().toString();
            rows << values.join(',');
        }
        return rows.join('|');
    }
    static bool type(const QTableView & table, int row, int column, const char * text) {
        return table.model()->setData(table.model()->index(row, column), text);
    }
    static void save(HygMaterialEditor & editor) {
        editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
        EXPECT_FALSE(editor.isWindowModified());
    }
};

TEST_F(HygMaterialModelsTest, AGaussModelIsMadeEditedAndCalculatedWith) {
    const QString path = file([](std::string & content) { removeSection(content, "MOISTURE_STORAGE"); });
    const Material before = read(path);
    auto editor = editorOf(path);
    editor->findChild<QTabWidget *>()->setCurrentIndex(3);
    HygMaterialDocument & document = editor->document();
    const auto contentAt = [&](double pC) {
        document.checkNow();
        return document.prepared()->m_moistureStorage.Thetal_pC(pC);
    };
    auto & menu = *editor->findChild<QToolButton *>("modelAdd")->menu();
    emit menu.aboutToShow();
    ASSERT_NE(menu.findChild<QAction *>("GAUSS"), nullptr);
    menu.findChild<QAction *>("GAUSS")->trigger();
    auto & table = *editor->findChild<QTableView *>("modelTable");
    EXPECT_EQ(cells(table), "1,1e-07,0.5");
    EXPECT_TRUE(table.model()->headerData(1, Qt::Horizontal).toString().endsWith("[m]"));
    const double saturation = before.parameter(Material::ParaStorage::THETA_EFF).value();
    EXPECT_NEAR(contentAt(0), saturation, 1e-9);
    // Half of the pores are empty at the pressure of their middle radius, 0.152 N/m / 1e-7 m.
    EXPECT_NEAR(contentAt(std::log10(0.152 / 1e-7)), saturation / 2, 1e-3);

    auto & problem = *editor->findChild<QLabel *>("modelProblem");
    EXPECT_FALSE(problem.isVisible());
    table.setCurrentIndex(table.model()->index(0, 0));
    QTest::keyClick(&table, Qt::Key_Insert);
    EXPECT_EQ(cells(table), "1,1e-07,0.5|0,1e-07,0.5");
    EXPECT_TRUE(type(table, 1, 0, "0,4"));
    EXPECT_TRUE(problem.text().contains("sum up to 1.4")) << problem.text().toStdString();
    document.checkNow();
    EXPECT_TRUE(document.unusable().contains("sum up to 1.4"));
    EXPECT_TRUE(document.refusal().isEmpty()) << "the reader takes it";
    EXPECT_FALSE(type(table, 1, 1, "thin"));
    EXPECT_TRUE(type(table, 0, 0, "0.6"));
    EXPECT_TRUE(type(table, 1, 1, "1e-5"));
    EXPECT_FALSE(problem.isVisible());
    const double two = contentAt(5.18); // the coarse pores are empty, the fine ones full
    EXPECT_NEAR(two, 0.6 * saturation, 0.03 * saturation);

    QGuiApplication::clipboard()->setText("0.5\t1e-7\n");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(table.model()->rowCount(), 2) << "a line of too few numbers is refused";
    QGuiApplication::clipboard()->setText("0,5\t1e-7\t0,4\n0,3\t1e-6\t0,4\n0,2\t1e-5\t0,4\n");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells(table), "0.5,1e-07,0.4|0.3,1e-06,0.4|0.2,1e-05,0.4");
    save(*editor);
    const Material saved = read(path);
    ASSERT_EQ(saved.m_moistureStorage.models().models().size(), 1u);
    EXPECT_EQ(*saved.m_moistureStorage.models().models()[0].find("GAUSS_MODALITY"), "3");
    EXPECT_EQ(saved, document.material());

    // The chart beside it shows what is calculated.
    EXPECT_EQ(editor->findChild<HygMaterialModelPage *>()->chart().curve(), HygMaterialCurves::StoragePC);
    while (document.undoStack().canUndo())
        document.undoStack().undo();
    EXPECT_EQ(document.material(), before);
    EXPECT_EQ(table.model()->rowCount(), 0);
    document.undoStack().setClean();
}

TEST_F(HygMaterialModelsTest, OtherModelsAreKeptAndEditedByTheirParameters) {
    const QString path = file([](std::string & content) {
        removeSection(content, "MOISTURE_TRANSPORT");
        content += "\n[MOISTURE_TRANSPORT]\n  FUNCTION = lgKl(Theta_l)\n    0 0.37\n    -16 -8\n  [MODEL]\n  TYPE = "
                   "SERIAL_PARALLEL\n  SP_SP = 0.4\n  SP_OWN = text\n"
                   "\n[AIR_TRANSPORT]\n  [MODEL]\n  TYPE = MINE\n  A = 1\n  FUNCTION = f\n    0 1\n    2 3\n";
    });
    auto editor = editorOf(path);
    auto & list = *editor->findChild<QListWidget *>("modelList");
    auto & table = *editor->findChild<QTableView *>("modelTable");
    auto & problem = *editor->findChild<QLabel *>("modelProblem");
    editor->findChild<QTabWidget *>()->setCurrentIndex(3);
    ASSERT_EQ(list.count(), 2);
    list.setCurrentRow(0);
    EXPECT_EQ(table.model()->index(0, 1).data(), "0.4");
    EXPECT_EQ(table.model()->index(table.model()->rowCount() - 1, 0).data(), "SP_OWN");
    EXPECT_TRUE(type(table, 0, 1, "0,25"));
    EXPECT_FALSE(problem.isVisible());
    editor->document().checkNow();
    EXPECT_EQ(editor->document().prepared()->m_moistureTransport[0].parallelShare(), 0.25);
    EXPECT_TRUE(type(table, 0, 1, "1.5"));
    EXPECT_TRUE(problem.text().contains("SP_SP"));
    EXPECT_TRUE(type(table, 0, 1, ""));
    EXPECT_TRUE(problem.text().contains("SP_SP"));
    EXPECT_TRUE(type(table, 0, 1, "0.5"));
    EXPECT_FALSE(type(table, 0, 1, "1\n[HEAT_TRANSPORT]")) << "no line may slip into the file";

    list.setCurrentRow(1);
    EXPECT_EQ(cells(table), "A,1,|(new parameter),,");
    EXPECT_TRUE(problem.isVisible());
    EXPECT_FALSE(type(table, 1, 0, "FUNCTION"));
    EXPECT_FALSE(type(table, 1, 0, "B = 2"));
    EXPECT_FALSE(type(table, 1, 0, "A"));
    EXPECT_TRUE(type(table, 1, 0, "B"));
    EXPECT_TRUE(type(table, 1, 1, "two words"));
    save(*editor);
    const Material saved = read(path);
    EXPECT_EQ(saved, editor->document().material());
    const MM::ModelDataContainer & own = saved.m_airTransport[0].models().models().at(0);
    EXPECT_EQ(*own.find("B"), "two words");
    EXPECT_EQ(own.m_functions.size(), 1u) << "what is not shown is kept";
    EXPECT_EQ(*saved.m_moistureTransport[0].models().models().at(0).find("SP_OWN"), "text");
    editor->findChild<QToolButton *>("modelRemove")->click();
    EXPECT_TRUE(editor->document().material().m_airTransport[0].models().empty());
    EXPECT_EQ(list.count(), 1);
    editor->document().undoStack().setClean();
}

TEST_F(HygMaterialModelsTest, AdaptiveFoilsHaveTheirParameters) {
    const QString path = file([](std::string & content) {
        content +=
            "\n[VAPOR_CONTACT_RESISTANCE]\n  WEIGHT_FACTOR_POS = 0.25 -\n  FUNCTION = sd+(rh)\n    0 1\n    4 4\n";
    });
    auto editor = editorOf(path);
    editor->findChild<QTabWidget *>()->setCurrentIndex(1);
    const auto edit = [&](const char * keyword, const char * text) -> QtExt::ValueEdit & {
        auto & field = *editor->findChild<QtExt::ValueEdit *>(keyword);
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        return field;
    };
    EXPECT_EQ(editor->findChild<QtExt::ValueEdit *>("WEIGHT_FACTOR_POS")->parameter().value(), 0.25);
    EXPECT_FALSE(edit("WEIGHT_FACTOR_POS", "1.5").isValid());
    edit("WEIGHT_FACTOR_POS", "");
    edit("SCALING_A_POS", "-2");
    const auto sd = [&](double humidity) {
        editor->document().checkNow();
        return HygMaterialCurves::model(HygMaterialCurves::FoilForward, editor->document().prepared(), 0)
            ->y(static_cast<std::size_t>(humidity * 599));
    };
    // sd (a phi^2 + b phi + c) with c = 1 where it is not given
    EXPECT_NEAR(sd(0), 4, 1e-12);
    EXPECT_NEAR(sd(0.5), 4 * (1 - 2 * 0.25), 0.02);
    save(*editor);
    const Material saved = read(path);
    EXPECT_EQ(saved, editor->document().material());
    EXPECT_TRUE(
        saved.m_vaporContactResistance.parameter(MM::VaporContactResistanceModel::Param::WEIGHT_FACTOR_POS).empty());
    EXPECT_EQ(saved.m_vaporContactResistance.resistance(true).scale[0], -2);
}

TEST_F(HygMaterialModelsTest, MeasuredDataStayToTheLetterWhereNobodyEditsThem) {
    const std::string data =
        "  [GEOMETRY]\n  SPECIMEN   =  1\n\n; a remark = not a value\n  TEMPERATURE = 293.15  296\n"
        "  PHI_INSIDE=50\n free text\n";
    const QString path = file([&](std::string & content) { content += "\n[MEASURED_DATA]\n" + data + "\n\n"; });
    auto editor = editorOf(path);
    auto & table = *editor->findChild<QTableView *>("measuredTable");
    editor->findChild<QTabWidget *>()->setCurrentIndex(4);
    EXPECT_EQ(cells(table), "[GEOMETRY],,|SPECIMEN,1,|,,|; a remark = not a value,,|TEMPERATURE,293.15  296,K|"
                            "PHI_INSIDE,50,%|free text,,");
    EXPECT_TRUE(type(table, 5, 1, "53.5"));
    EXPECT_FALSE(type(table, 6, 0, "[HEAT_TRANSPORT]"));
    EXPECT_FALSE(type(table, 6, 0, " "));
    save(*editor);
    const std::string written = KOR::readFile(path.toStdString(), 1 << 20);
    std::string expected = data;
    expected.replace(expected.find("  PHI_INSIDE=50"), 15, "  PHI_INSIDE             = 53.5");
    EXPECT_NE(written.find("[MEASURED_DATA]\n" + expected), std::string::npos) << written;

    QGuiApplication::clipboard()->setText("MEW = 9\n [AIR_TRANSPORT] \n");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(table.model()->rowCount(), 7) << "it would begin another section";
    QGuiApplication::clipboard()->setText("\n\n  MEW = 9\r\n[OWN]\n\n");
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells(table), "MEW,9,-|[OWN],,") << "without empty lines at the ends, as the reader leaves them";
    table.setCurrentIndex(table.model()->index(0, 0));
    QTest::keyClick(&table, Qt::Key_Insert);
    EXPECT_EQ(table.model()->rowCount(), 3);
    table.selectAll();
    QTest::keyClick(&table, Qt::Key_Delete);
    save(*editor);
    EXPECT_TRUE(read(path).m_measuredData.empty());
}

/// What the reader would put into another section or drop is not written.
TEST_F(HygMaterialModelsTest, WhatWouldBeReadOtherwiseIsNotSaved) {
    const QString path = copy();
    const std::string content = KOR::readFile(path.toStdString(), 1 << 20);
    auto editor = editorOf(path);
    HygMaterialDocument & document = editor->document();
    const std::vector<std::function<void(Material &)>> changes{
        [](Material & m) {
            m.m_measuredData.m_lines = {"A = 1", "[COMMENT]", "[HEAT_TRANSPORT_V]"};
        },
        [](Material & m) {
            m.m_measuredData.m_lines = {"", "A = 1"};
        },
        [](Material & m) {
            MM::ModelHandler models;
            models.add({"GAUSS", {{"GAUSS_Wi", " 1"}}, {}});
            m.m_moistureStorage.setModels(models);
        },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        document.change("x", changes[i]);
        EXPECT_THROW(document.save(path), KOR::Exception) << i;
        EXPECT_EQ(KOR::readFile(path.toStdString(), 1 << 20), content);
        document.undoStack().undo();
    }
    document.save(path);
    EXPECT_EQ(read(path), document.material());
}

TEST_F(HygMaterialModelsTest, LongTablesAreReadPastedAndWrittenWhileTheWindowLives) {
    constexpr int POINTS = 100'000;
    std::string x, y, text;
    for (int i = 0; i < POINTS; ++i) {
        const std::string at = std::to_string(i);
        x += at + ' ';
        y += "0." + at + ' ';
        text += at + "\t0," + at + '\n';
    }
    const QString path = file([&](std::string & content) {
        removeSection(content, "THERMAL_STORAGE");
        content += "\n[THERMAL_STORAGE]\n  FUNCTION = u(T)\n    " + x + "\n    " + y + '\n';
    });
    // A timer of the window goes on while the file is read and written.
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] { ++beats; });
    heart.start(1);
    answer<Reply>({[&](QWidget & window) {
        auto & editor = static_cast<HygMaterialEditor &>(window);
        const HygMaterialFunctions::Place place{15, 0};
        ASSERT_STREQ(HygMaterialFunctions::row(place.row).keyword, "u(T)");
        const auto & given = HygMaterialFunctions::spline(editor.document().material(), place);
        EXPECT_EQ(given.size(), static_cast<std::size_t>(POINTS));
        EXPECT_EQ(given.y()[POINTS - 1], 0.99999);
        EXPECT_GE(editor.document().undoStack().undoLimit(), 10);
        editor.findChild<QTabWidget *>()->setCurrentIndex(2);
        auto & table = *editor.findChild<QTableView *>("pointTable");
        editor.findChild<QListWidget *>("functionList")->setCurrentRow(15);
        ASSERT_EQ(table.model()->rowCount(), POINTS);
        table.selectAll();
        QTest::keyClick(&table, Qt::Key_Delete);
        EXPECT_EQ(table.model()->rowCount(), 0);
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        const int before = beats;
        QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
        EXPECT_GT(beats, before) << "the window stood still";
        EXPECT_EQ(table.model()->rowCount(), POINTS);
        QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
        EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith("99999\t0.99999\n"));
        const int atSaving = beats;
        save(editor);
        EXPECT_GT(beats, atSaving) << "the window stood still";
        editor.reject();
    }});
    EXPECT_EQ(HygMaterialEditor::edit(*m_database, path, nullptr), path);
    EXPECT_GT(beats, 0);
    EXPECT_EQ(read(path).m_thermalStorage.function(MM::ThermalStorage::Functions::u_T).size(),
              static_cast<std::size_t>(POINTS));
    // A file that goes while somebody wants it is named.
    QFile::remove(path);
    try {
        HygMaterialEditor::edit(*m_database, path, nullptr);
        ADD_FAILURE() << "there is nothing to edit";
    } catch (const KOR::Exception & ex) {
        EXPECT_NE(std::string(ex.what()).find(path.toStdString()), std::string::npos);
    }
    EXPECT_THROW(m_database->copyToUser(path), KOR::Exception);
}

} // namespace
