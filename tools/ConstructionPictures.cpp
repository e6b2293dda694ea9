#include "ConstructionPictures.h"

#include "HygSettings.h"
#include "construction/HygConstructionView.h"
#include "construction/HygDiscretizationDialog.h"
#include "construction/HygMaterialOffer.h"
#include "construction/HygNewLayerDialog.h"
#include "document/HygProjectHandler.h"

#include <KOR/Exception.h>

#include <QAbstractButton>
#include <QDir>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

constexpr QSize VIEW(1200, 720);

void save(QWidget & widget, const QString & path) {
    QTest::qWait(60);
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[ConstructionPictures]");
    std::printf("%s\n", qPrintable(path));
}

} // namespace

void drawConstructionPictures(const QString & target, const QString & suffix) {
    HygSettings::instance().setInstallationDirectory(QStringLiteral(HYG_SOURCE_DIR)); // of the material database
    HygProjectHandler projects;
    HygConstructionView view(&projects);
    view.resize(VIEW);
    view.show();
    const QStringList files =
        QDir(QStringLiteral(HYG_SOURCE_DIR "/examples")).entryList({QStringLiteral("*.h6p")}, QDir::Files, QDir::Name);
    for (const QString & file : files) {
        if (!projects.openProject(QStringLiteral(HYG_SOURCE_DIR "/examples/") + file))
            throw KOR::Exception(KOR::text("Cannot open '%1'.", file.toStdString()), "[ConstructionPictures]");
        QString name = QFileInfo(file).completeBaseName().toLower();
        name.replace(QLatin1Char(' '), QLatin1Char('_'));
        save(view, target + QStringLiteral("/construction_") + name + suffix);
    }

    // What the user does with them: outputs and start values, a selection, the panels.
    projects.openProject(QStringLiteral(HYG_SOURCE_DIR "/examples/Floor slab edge.h6p"));
    for (const char * overlay : {"showInitials", "showOutputs"})
        view.findChild<QAbstractButton *>(QLatin1String(overlay))->setChecked(true);
    view.canvas().select({view.canvas().blockAround(20, 20)});
    auto & panels = *view.findChild<QTabWidget *>(QStringLiteral("constructionPanels"));
    panels.setCurrentIndex(1);
    save(view, target + QStringLiteral("/construction_selection") + suffix);
    panels.setCurrentIndex(2);
    save(view, target + QStringLiteral("/construction_assignments") + suffix);
    for (const char * overlay : {"showInitials", "showOutputs"})
        view.findChild<QAbstractButton *>(QLatin1String(overlay))->setChecked(false);

    projects.openProject(QStringLiteral(HYG_SOURCE_DIR "/examples/Interior insulation.h6p"));
    HygDiscretizationDialog cells(view.canvas().scene(), &view);
    cells.show();
    save(cells, target + QStringLiteral("/construction_discretization") + suffix);
    HygMaterialOffer offer;
    offer.start();
    if (!QTest::qWaitFor([&offer, &projects] { return offer.entries(projects.project()).size() > 20; }))
        throw KOR::Exception("The material database has not been read.", "[ConstructionPictures]");
    HygNewLayerDialog layer(offer, projects.project(), view.canvas().scene().unit, &view);
    layer.setPlaces({
        {QCoreApplication::translate("HygConstructionView", "Inside, on the right"), 0}
    });
    layer.show();
    save(layer, target + QStringLiteral("/construction_layer") + suffix);

    // An interface is gone, a layer has lost its material.
    view.editor().clear({
        {0, 0, 0, 7, 0, 0}
    });
    QTest::qWait(200);
    save(view, target + QStringLiteral("/construction_hints") + suffix);

    const QTemporaryDir folder;
    projects.createProject(folder.filePath(QStringLiteral("new.h6p")));
    save(view, target + QStringLiteral("/construction_start") + suffix);
}
