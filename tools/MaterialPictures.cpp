#include "MaterialPictures.h"

#include "HygMainWindow.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDBWidget.h"
#include "materials/HygMaterialEditor.h"
#include "materials/HygMaterialFunctionPage.h"

#include <KOR/Exception.h>

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

constexpr int SCAN_MS = 30000;
enum page_t { Parameters = 1, Functions = 2, Models = 3 };

void save(QWidget & widget, const QString & path) {
    QTest::qWait(200); // layouts and checks
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[drawMaterialPictures]");
    std::printf("%s\n", qPrintable(path));
}

void drawEditor(HygMaterialDB & database, const QString & file, const QString & target, const QString & suffix) {
    MM::Material material;
    material.read(file.toStdString());
    material.m_path.clear(); // as a duplicate before it is saved
    material.m_id = 10'000;
    HygMaterialEditor editor(database, std::move(material));
    editor.show();
    auto & pages = *editor.findChild<QTabWidget *>(QStringLiteral("materialPages"));
    pages.setCurrentIndex(Functions);
    editor.findChild<HygMaterialFunctionPage *>()->showFunction(QStringLiteral("lgDl(Theta_l)"));
    editor.findChild<QTableView *>(QStringLiteral("pointTable"))->selectRow(2);
    save(editor, target + QStringLiteral("/material_editor") + suffix);

    // A retention curve of fine and coarse pores in the place of the points.
    editor.document().change({}, [](MM::Material & changed) {
        changed.m_moistureStorage.clear();
        MM::ModelHandler models;
        models.add({
            "GAUSS",
            {{"GAUSS_MODALITY", "2"},      {"GAUSS_Wi", "0.65 0.35"}, {"GAUSS_Ri", "2e-06 4e-08"}, {"GAUSS_Si", "0.35 0.6"}},
            {               }
        });
        changed.m_moistureStorage.setModels(std::move(models));
    });
    editor.document().checkNow();
    pages.setCurrentIndex(Models);
    save(editor, target + QStringLiteral("/material_models") + suffix);
    editor.document().undoStack().undo();

    pages.setCurrentIndex(Parameters);
    editor.document().change({}, [](MM::Material & changed) {
        changed.setParameter(MM::Material::ParaStorage::THETA_POR, 0.3);
        changed.clearParameter(MM::Material::ParaTransport::MEW);
    });
    editor.document().checkNow();
    save(editor, target + QStringLiteral("/material_findings") + suffix);
    editor.document().undoStack().setClean();
}

} // namespace

void drawMaterialPictures(HygMainWindow & window, const QString & target, const QString & suffix) {
    auto & log = *window.findChild<QDockWidget *>(QStringLiteral("logDock"));
    log.hide();
    const QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("Window reveal.h6p"));
    QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/examples/Window reveal.h6p"), project);
    window.projects().openProject(project);
    window.showView(HygViewTable::Materials);
    auto & widget = *window.findChild<HygMaterialDBWidget *>();
    const std::shared_ptr<HygMaterialDB> database = HygMaterialDB::shared();
    if (!QTest::qWaitFor([&] { return !database->isScanning() && database->model().rowCount() > 0; }, SCAN_MS))
        throw KOR::Exception("The material database is not there.", "[drawMaterialPictures]");
    const QString directory = database->model().entry(0).path.section(QLatin1Char('/'), 0, -2) + QLatin1Char('/');
    database->setFavourites({QStringLiteral("clay_brick_solid_108.m6"), QStringLiteral("concrete_dense_101.m6")});
    for (const char * compared :
         {"clay_brick_solid_108.m6", "sand_lime_brick_107.m6", "wood_fibre_insulation_127.m6"}) {
        widget.setCurrentPath(directory + QLatin1String(compared));
        widget.findChild<QAction *>(QStringLiteral("materialCompare"))->trigger();
    }
    widget.findChild<HygMaterialChart *>()->setCurve(HygMaterialCurves::VaporResistance);
    widget.setCurrentPath(directory + QStringLiteral("lime_mortar_232.m6"));
    QTest::qWait(500);
    window.findChild<QLabel *>(QStringLiteral("projectFile"))->setText(QStringLiteral("Window reveal.h6p"));
    save(window, target + QStringLiteral("/materials") + suffix);
    drawEditor(*database, directory + QStringLiteral("clay_brick_solid_108.m6"), target, suffix);

    window.projects().closeProject();
    window.showView(HygViewTable::Start);
    log.show();
}
