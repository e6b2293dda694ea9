#include "ConstructionPictures.h"

#include "construction/HygConstructionView.h"
#include "document/HygProjectHandler.h"

#include <KOR/Exception.h>

#include <QDir>
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
}
