#include "document/HygProjectHandler.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace {

class HygProjectHandlerTest : public testing::Test {
protected:
    HygProjectHandlerTest() { KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet); }
    ~HygProjectHandlerTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygProjectHandler m_projects;
    QSignalSpy m_changed{&m_projects, &HygProjectHandler::projectFileChanged};
    QSignalSpy m_failed{&m_projects, &HygProjectHandler::failed};
};

TEST_F(HygProjectHandlerTest, CreatesAProjectThatOpensAgain) {
    const QString path = m_directory.filePath("Südwand.h6p");
    ASSERT_TRUE(m_projects.createProject(path));
    EXPECT_EQ(m_projects.projectFile(), path);
    EXPECT_EQ(m_projects.project().m_projectInfo.m_projectName, "Südwand");
    EXPECT_FALSE(m_projects.project().m_projectInfo.m_created.empty());
    EXPECT_EQ(m_projects.project().m_disc.nx(), 1u);
    HygProjectHandler other;
    ASSERT_TRUE(other.openProject(path));
    EXPECT_EQ(other.project(), m_projects.project());
    EXPECT_EQ(m_changed.count(), 1);
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(HygProjectHandlerTest, KeepsTheOpenProjectWhenAnotherCannotBeRead) {
    const QString good = m_directory.filePath("good.h6p");
    ASSERT_TRUE(m_projects.createProject(good));
    const QString bad = m_directory.filePath("bad.h6p");
    KOR::writeFile(bad.toStdString(), "<HygrionProject>\n  <Init><Wrong/></Init>\n</HygrionProject>\n");
    EXPECT_FALSE(m_projects.openProject(bad));
    EXPECT_EQ(m_projects.projectFile(), good);
    ASSERT_EQ(m_failed.count(), 1);
    const std::string story = m_failed[0][0].toString().toStdString();
    EXPECT_THAT(story, testing::StartsWith("Cannot open project '" + bad.toStdString() + "'."));
    EXPECT_THAT(story, testing::HasSubstr("line 2"));
    EXPECT_EQ(m_changed.last()[0].toString(), good);
}

TEST_F(HygProjectHandlerTest, SaysWhenANewProjectCannotBeWritten) {
    EXPECT_FALSE(m_projects.createProject(m_directory.filePath("gone/wall.h6p")));
    EXPECT_FALSE(m_projects.hasProject());
    ASSERT_EQ(m_failed.count(), 1);
    EXPECT_THAT(m_failed[0][0].toString().toStdString(), testing::HasSubstr("gone/wall.h6p"));
}

} // namespace
