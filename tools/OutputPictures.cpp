#include "OutputPictures.h"

#include "document/HygProjectHandler.h"
#include "outputs/HygOutputDialog.h"
#include "outputs/HygOutputsView.h"

#include <KOR/Exception.h>

#include <QTableView>
#include <QTest>

#include <cstdio>

namespace {

void save(QWidget & widget, const QString & path) {
    QTest::qWait(60);
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[OutputPictures]");
    std::printf("%s\n", qPrintable(path));
}

} // namespace

void drawOutputPictures(const QString & target, const QString & suffix) {
    HygProjectHandler projects;
    HygOutputsView view(&projects);
    view.resize(1200, 460);
    view.show();
    projects.openProject(QStringLiteral(HYG_SOURCE_DIR "/examples/Brick wall.h6p"));
    view.findChild<QTableView *>(QStringLiteral("outputTable"))->selectRow(3);
    save(view, target + QStringLiteral("/outputs") + suffix);
    HygOutputDialog dialog(projects.project(), projects.project().m_outputs.m_outputFiles[3], &view);
    dialog.show();
    save(dialog, target + QStringLiteral("/outputs_dialog") + suffix);
}
