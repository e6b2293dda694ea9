#include "HygSettings.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygProjectMaterialFiles.h"
#include "materials/HygProjectMaterials.h"
#include "materials/HygProjectMaterialsWidget.h"
#include "undo/HygUndoGrid.h"

#include <MM/Material.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QAction>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QUndoStack>

namespace {

using Files = HygProjectMaterialFiles;

/// A project with a brick that is assigned and a plaster that is not.
class HygProjectMaterialsTest : public testing::Test {
protected:
    HygProjectMaterialsTest() {
        m_settings.setDefaults();
        m_settings.m_langId = "en";
        for (const char * file : {"clay_brick_solid_108.m6", "lime_mortar_232.m6", "glass_247.m6"})
            QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/") + file, path(file));
        EXPECT_TRUE(m_projects.createProject(path("wall.h6p")));
        EXPECT_EQ(HygProjectMaterials::add(m_projects, {path("clay_brick_solid_108.m6"), path("lime_mortar_232.m6")}),
                  2);
        HYGRION::Assignments assignments;
        HYGRION::Assignment assignment;
        assignment.m_type = HYGRION::Assignment::type_t::Material;
        assignment.m_reference = "Solid clay brick";
        assignment.m_name = "wall";
        assignments.m_list = {assignment};
        m_projects.undoStack().push(new HygUndoAssignments("assign", assignments));
    }
    QString path(const QString & name) const { return m_home.filePath(name); }
    const HYGRION::Project & project() const { return m_projects.project(); }
    QStringList names() const {
        QStringList found;
        for (const HYGRION::MaterialReference & material : project().m_materials)
            found << QString::fromStdString(material.m_name);
        return found;
    }

    QTemporaryDir m_home;
    HygSettings m_settings{"KOR", "project materials"};
    HygProjectHandler m_projects;
};

TEST_F(HygProjectMaterialsTest, AreAddedReplacedAndRemovedInStepsOfUndo) {
    QUndoStack & stack = m_projects.undoStack();
    const HYGRION::MaterialReference & brick = project().m_materials[0];
    EXPECT_EQ(names(), (QStringList{"Solid clay brick", "Lime mortar 1450-1600"}));
    EXPECT_EQ(brick.m_filename.str(), "${Project Directory}/clay_brick_solid_108.m6");
    EXPECT_EQ(brick.m_color.html(), "#b5533c");
    EXPECT_EQ(brick.m_hatchCode, 5);
    EXPECT_EQ(HygProjectMaterials::add(m_projects, {path("clay_brick_solid_108.m6")}), 0) << "it is there already";
    EXPECT_EQ(HygProjectMaterials::uses(project(), "Solid clay brick"), QStringList{"wall"});

    // Another file of the same name gets a name of its own.
    QFile::copy(path("clay_brick_solid_108.m6"), path("other_9.m6"));
    HygProjectMaterials::add(m_projects, {path("other_9.m6")});
    EXPECT_EQ(names().last(), "Solid clay brick (2)");
    stack.undo();
    EXPECT_THROW(HygProjectMaterials::add(m_projects, {path("glass_247.m6"), path("nowhere_1.m6")}), KOR::Exception);
    EXPECT_EQ(names().size(), 2) << "nothing or all";

    const HYGRION::Project before = project();
    HygProjectMaterials::replace(m_projects, 0, path("glass_247.m6"));
    EXPECT_EQ(names()[0], "Soda-lime glass");
    EXPECT_EQ(project().m_assignments.m_list[0].m_reference, "Soda-lime glass");
    stack.undo();
    EXPECT_EQ(project(), before);

    EXPECT_EQ(HygProjectMaterials::removeUnused(m_projects), 1);
    EXPECT_EQ(names(), QStringList{"Solid clay brick"});
    EXPECT_EQ(HygProjectMaterials::removeUnused(m_projects), 0);
    HygProjectMaterials::remove(m_projects, 0);
    EXPECT_TRUE(project().m_assignments.empty());
    stack.undo();
    stack.undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygProjectMaterialsTest, FilesThatAreMissingBrokenOrChangedAreShown) {
    auto database = std::make_shared<HygMaterialDB>(
        HygThreadMaterialDBUpdater::Places{path("none"), path("user"), path("cache")}, "en");
    HygProjectMaterialsWidget widget(m_projects, *database);
    widget.show();
    Files & files = Files::of(m_projects);
    EXPECT_EQ(&files, &Files::of(m_projects));
    const auto becomes = [&](Files::state_t brick, Files::state_t mortar) {
        return QTest::qWaitFor([&] { return files.file(0).state == brick && files.file(1).state == mortar; }, 10000);
    };
    const auto & list = *widget.findChild<QTreeWidget *>("projectMaterials");
    const auto shown = [&](int row) { return list.topLevelItem(row)->text(1) + ' ' + list.topLevelItem(row)->text(2); };
    EXPECT_TRUE(becomes(Files::Good, Files::Good));
    EXPECT_EQ(shown(0), "good 1");
    EXPECT_EQ(shown(1), "good unused");

    std::string content = KOR::readFile(path("clay_brick_solid_108.m6").toStdString(), 1 << 20);
    content.replace(content.find("1650 kg/m3"), 4, "1700");
    KOR::writeFile(path("clay_brick_solid_108.m6").toStdString(), content);
    QFile::remove(path("lime_mortar_232.m6"));
    EXPECT_TRUE(becomes(Files::Changed, Files::Missing));
    EXPECT_EQ(shown(0), "changed 1");
    EXPECT_TRUE(files.file(1).problem.contains("does not exist"));
    EXPECT_EQ(files.file(0).material->parameter(MM::Material::ParaStorage::RHO).value(), 1700);

    auto & accept = *widget.findChild<QAction *>("projectMaterialAccept");
    EXPECT_TRUE(accept.isVisible());
    accept.trigger();
    EXPECT_TRUE(becomes(Files::Good, Files::Missing));
    KOR::writeFile(path("lime_mortar_232.m6").toStdString(), "H6MARLZ! 006.001\n[IDENTIFICATION]\n  FLAGS = HEAVY\n");
    EXPECT_TRUE(becomes(Files::Good, Files::Broken)) << "a file that comes back is seen";
    EXPECT_TRUE(list.topLevelItem(1)->text(1).startsWith("unusable"));
    EXPECT_FALSE(list.topLevelItem(1)->toolTip(1).isEmpty());
    HygProjectMaterials::replace(m_projects, 1, path("glass_247.m6"));
    EXPECT_TRUE(becomes(Files::Good, Files::Good));
}

} // namespace
