#pragma once

#include "HygSettings.h"
#include "construction/HygConstructionView.h"
#include "document/HygProjectHandler.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <gmock/gmock.h>

/// A construction view with a project of its own: a wall of three layers, render (2 cells), brick (4) and plaster (2),
/// with an interface on each surface, a foil between render and brick and an output on the whole.
class ConstructionViewTest : public testing::Test {
protected:
    using type_t = HYGRION::Assignment::type_t;
    using location_t = HYGRION::Assignment::location_t;
    using Range = HYGRION::Range;

    static HYGRION::Project wall() {
        using namespace HYGRION;
        Project p;
        p.m_projectInfo.m_created = "2026-01-01";
        p.m_disc.m_xSteps = {
            {5, 10, 60, 60, 60, 60, 10, 5},
            KOR::Unit("mm")
        };
        for (const char * name : {"Render", "Brick", "Plaster"}) {
            p.m_materials.push_back({name, KOR::Color::fromRgb(0xb5533c), 5, KOR::Path("${Project Directory}/a.m6")});
        }
        for (const char * name : {"Outside", "Inside"})
            p.m_conditions.m_interfaces.emplace_back().m_name = name;
        p.m_conditions.m_contactConditions.emplace_back().m_name = "Foil";
        InitialCond & start = p.m_conditions.m_initialConditions.emplace_back();
        start.m_name = "Start";
        start.m_type = InitialCond::condition_t::Temperature;
        start.setValue(20, KOR::Unit("C"));
        p.m_outputs.m_outputGrids.emplace_back().m_name = "Hourly";
        OutputFile & file = p.m_outputs.m_outputFiles.emplace_back();
        file.m_name = "Field";
        file.m_quantity = "Temperature";
        file.m_outputGrid = "Hourly";
        auto & list = p.m_assignments.m_list;
        list.emplace_back(type_t::Material, location_t::Element, Range{.right = 1}, "Render");
        list.emplace_back(type_t::Material, location_t::Element, Range{.left = 2, .right = 5}, "Brick");
        list.emplace_back(type_t::Material, location_t::Element, Range{.left = 6, .right = 7}, "Plaster");
        list.emplace_back(type_t::Interface, location_t::Left, Range{}, "Outside");
        list.emplace_back(type_t::Interface, location_t::Right, Range{.left = 7, .right = 7}, "Inside");
        list.emplace_back(type_t::ContactCondition, location_t::Right, Range{.left = 1, .right = 1}, "Foil");
        list.emplace_back(type_t::Output, location_t::Element, Range{.right = 7}, "Field");
        return p;
    }

    ConstructionViewTest() { KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet); }
    ~ConstructionViewTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    void open(const HYGRION::Project & project) {
        const QString path = m_directory.filePath("wall.h6p");
        QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/clay_brick_solid_108.m6"),
                    m_directory.filePath("a.m6"));
        ASSERT_TRUE(project.writeXML(path.toStdString()));
        ASSERT_TRUE(m_projects.openProject(path));
        m_view.resize(1000, 600);
        m_view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_view));
    }

    const HYGRION::Project & project() const { return m_projects.project(); }
    QUndoStack & stack() { return m_projects.undoStack(); }
    HygConstructionCanvas & canvas() { return m_view.canvas(); }
    const HygConstructionScene & scene() { return m_view.canvas().scene(); }
    std::vector<Range> selected() { return scene().selection.blocks(); }

    QPoint middleOf(std::uint32_t i, std::uint32_t j = 0) {
        return scene().rectangle({i, j, 0, i, j, 0}).center().toPoint();
    }
    void click(std::uint32_t i, std::uint32_t j = 0, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(canvas().viewport(), Qt::LeftButton, modifiers, middleOf(i, j));
    }
    void key(int which, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&canvas(), static_cast<Qt::Key>(which), modifiers);
    }
    void trigger(const char * name) {
        auto * action = m_view.findChild<QAction *>(name);
        ASSERT_NE(action, nullptr) << name;
        ASSERT_TRUE(action->isEnabled()) << name;
        action->trigger();
    }
    template <typename Widget> Widget & find(const char * name) {
        auto * found = m_view.findChild<Widget *>(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    /// Nothing is read from or written to the directories of whoever runs the tests.
    struct Settings : HygSettings {
        explicit Settings(const QString & directory) : HygSettings("KOR", "Hygrion construction test") {
            setDefaults();
            setInstallationDirectory(directory);
            setDirectory("UserData", directory);
            QDir(directory).mkpath("DB_materials");
        }
    } m_settings{m_directory.path()};
    HygProjectHandler m_projects;
    HygConstructionView m_view{&m_projects};
};
