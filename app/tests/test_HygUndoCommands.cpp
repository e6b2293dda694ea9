#include "document/HygProjectHandler.h"
#include "undo/HygEditing.h"
#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoGrid.h"
#include "undo/HygUndoSections.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>

#include <gmock/gmock.h>

namespace {

using HYGRION::Project;

/// Two definitions of each kind, each referred to by another one, on a grid of 3 x 2 cells.
Project sampleProject() {
    using namespace HYGRION;
    Project p;
    p.m_disc.m_xSteps = {
        {0.1, 0.2, 0.3},
        KOR::Unit("m")
    };
    p.m_disc.m_ySteps = {
        {10, 20},
        KOR::Unit("mm")
    };
    Conditions & c = p.m_conditions;
    for (const std::string n : {"A", "B"}) {
        p.m_materials.emplace_back().m_name = n;
        c.m_schedules.emplace_back().m_name = n;
        c.m_climateConditions.emplace_back().m_name = n;
        c.m_contactConditions.emplace_back().m_name = n;
        BoundaryCond & bc = c.m_boundaryConditions.emplace_back();
        bc.m_name = n;
        bc.m_schedule = n;
        bc.m_contactConditionName = n;
        bc.m_otherInterfaceReference = n;
        FieldCond & field = c.m_fieldConditions.emplace_back();
        field.m_name = n;
        field.m_schedule = n;
        InitialCond & initial = c.m_initialConditions.emplace_back();
        initial.m_name = n;
        initial.m_reference = n;
        Interface & interface = c.m_interfaces.emplace_back();
        interface.m_name = n;
        interface.m_bcReferences = {"A", "B"};
        p.m_outputs.m_outputGrids.emplace_back().m_name = n;
        OutputFile & file = p.m_outputs.m_outputFiles.emplace_back();
        file.m_name = n;
        file.m_outputGrid = n;
        for (const auto type :
             {Assignment::type_t::Material, Assignment::type_t::Interface, Assignment::type_t::InitialCondition,
              Assignment::type_t::FieldCondition, Assignment::type_t::ContactCondition, Assignment::type_t::Output}) {
            const bool onSide = type == Assignment::type_t::Interface || type == Assignment::type_t::ContactCondition;
            p.m_assignments.m_list.emplace_back(type,
                                                onSide ? Assignment::location_t::Left : Assignment::location_t::Element,
                                                Range{.right = 1, .top = 1}, n);
        }
    }
    return p;
}

template <typename Item> Item named(Item item, const char * name = "New") {
    item.m_name = name;
    return item;
}

std::size_t count(const Project & project, HYGRION::definition_t kind, const char * name) {
    return project.referencesTo(kind, name).size();
}

class HygUndoCommandsTest : public testing::Test {
protected:
    HygUndoCommandsTest() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        EXPECT_TRUE(m_handler.createProject(m_directory.filePath("sample.h6p")));
        HygUndoProject("sample", sampleProject()).redo();
        m_signals.clear();
    }
    ~HygUndoCommandsTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    const Project & project() const { return m_handler.project(); }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygProjectHandler m_handler;
    QUndoStack m_stack;
    std::vector<std::pair<int, void *>> m_signals;
    QMetaObject::Connection m_listener =
        QObject::connect(&m_handler, &HygProjectHandler::modified,
                         [this](int code, void * data) { m_signals.emplace_back(code, data); });
};

/// One command: how it is made, what it announces when it is done and undone, what it does.
struct Row {
    const char * name;
    std::function<std::unique_ptr<QUndoCommand>(const Project &)> make;
    int redoCode;
    int undoCode;
    int data;
    std::function<bool(const Project & before, const Project & after)> isDone;

    Row(const char * rowName, decltype(make) maker, int redo, int undo, int kind, decltype(isDone) check)
        : name(rowName), make(std::move(maker)), redoCode(redo), undoCode(undo), data(kind), isDone(std::move(check)) {}
};

template <typename Command> auto add(const auto & item) {
    return [item](const Project &) { return std::make_unique<Command>("text", item); };
}

/// Renames item 1 ("B" to "New") and expects as many references to follow.
template <typename Command, typename ListRow> Row modify(const char * name, std::size_t references) {
    return {name,
            [](const Project & p) {
                Project copy = p;
                return std::make_unique<Command>("text", 1, named(ListRow::list(copy)[1]));
            },
            ListRow::CODES.modified,
            ListRow::CODES.modified,
            ListRow::KIND,
            [references](const Project & before, const Project & after) {
                return count(before, ListRow::DEFINITION, "B") == references &&
                       count(after, ListRow::DEFINITION, "B") == 0 &&
                       count(after, ListRow::DEFINITION, "New") == references;
            }};
}

template <auto LIST, typename Item = void> auto isLast() {
    return [](const Project & before, const Project & after) {
        return LIST(after).size() == LIST(before).size() + 1 && LIST(after).back().m_name == "New";
    };
}
/// Item 0 is gone, item 1 is there.
template <auto LIST> auto isGone() {
    return [](const Project & before, const Project & after) {
        return LIST(after).size() + 1 == LIST(before).size() && LIST(after)[0].m_name == "B";
    };
}

template <typename Command, auto SECTION> auto swapped(auto change) {
    return [change](const Project & p) {
        auto value = SECTION(p);
        change(value);
        return std::make_unique<Command>("text", std::move(value));
    };
}

std::vector<Row> commands() {
    using namespace HYGRION;
    namespace R = HygUndoRows;
    constexpr auto INTERFACES = R::CONDITIONS<&Conditions::m_interfaces>;
    constexpr auto INITIALS = R::CONDITIONS<&Conditions::m_initialConditions>;
    constexpr auto FIELDS = R::CONDITIONS<&Conditions::m_fieldConditions>;
    constexpr auto CONTACTS = R::CONDITIONS<&Conditions::m_contactConditions>;
    constexpr auto CLIMATES = R::CONDITIONS<&Conditions::m_climateConditions>;
    constexpr auto BOUNDARIES = R::CONDITIONS<&Conditions::m_boundaryConditions>;
    constexpr auto SCHEDULES = R::CONDITIONS<&Conditions::m_schedules>;
    constexpr auto FILES = R::OUTPUTS<&Outputs::m_outputFiles>;
    constexpr auto GRIDS = R::OUTPUTS<&Outputs::m_outputGrids>;
    constexpr auto WHOLE = [](const Project & p) { return p; };
    const auto differs = [](const Project & before, const Project & after) { return !(before == after); };
    const auto remove = [](auto create) {
        return [create](const Project &) -> std::unique_ptr<QUndoCommand> { return create("text", 0u); };
    };
    using HygModification::definition_t;
    const auto removeDefinition = [](definition_t kind) {
        return [kind](const Project &) -> std::unique_ptr<QUndoCommand> {
            return HygUndoRemoveDefinition::createRemoveDefinitionAction("text", kind, 0);
        };
    };

    std::vector<Row> rows = {
        Row("AddInterface", add<HygUndoAddInterface>(named(Interface())), 4, 6, 1, isLast<INTERFACES>()),
        Row("AddInitialCond", add<HygUndoAddInitialCond>(named(InitialCond())), 4, 6, 2, isLast<INITIALS>()),
        Row("AddFieldCond", add<HygUndoAddFieldCond>(named(FieldCond())), 4, 6, 3, isLast<FIELDS>()),
        Row("AddContactCond", add<HygUndoAddContactCond>(named(ContactCond())), 4, 6, 4, isLast<CONTACTS>()),
        Row("AddOutput", add<HygUndoAddOutput>(named(OutputFile())), 4, 6, 5, isLast<FILES>()),
        Row("AddClimateCond", add<HygUndoAddListItem>(named(ClimateCond())), 7, 9, 0, isLast<CLIMATES>()),
        Row("AddBoundaryCond", add<HygUndoAddListItem>(named(BoundaryCond())), 7, 9, 1, isLast<BOUNDARIES>()),
        Row("AddSchedule", add<HygUndoAddListItem>(named(Schedule())), 7, 9, 2, isLast<SCHEDULES>()),
        Row("AddOutputGrid", add<HygUndoAddListItem>(named(OutputGrid())), 7, 9, 3, isLast<GRIDS>()),
        Row("AddMaterial", add<HygUndoAddMaterial>(named(MaterialReference())), 1, 1, 0, isLast<R::MATERIALS>()),
        modify<HygUndoModifyInterface, R::Interfaces>("ModifyInterface", 2),
        modify<HygUndoModifyInitialCond, R::InitialConditions>("ModifyInitialCond", 2),
        modify<HygUndoModifyFieldCond, R::FieldConditions>("ModifyFieldCond", 1),
        modify<HygUndoModifyContactCond, R::ContactConditions>("ModifyContactCond", 2),
        modify<HygUndoModifyOutput, R::OutputFiles>("ModifyOutput", 1),
        modify<HygUndoModifyClimateCond, R::ClimateConditions>("ModifyClimateCond", 0),
        modify<HygUndoModifyBoundaryCond, R::BoundaryConditions>("ModifyBoundaryCond", 2),
        modify<HygUndoModifySchedule, R::Schedules>("ModifySchedule", 2),
        modify<HygUndoModifyOutputGrid, R::OutputGrids>("ModifyOutputGrid", 1),
        modify<HygUndoModifyMaterial, R::Materials>("ModifyMaterial", 1),
        Row("RemoveInterface", remove(HygUndoRemoveInterface::createRemoveDefinitionAction), 6, 4, 1,
            isGone<INTERFACES>()),
        Row("RemoveInitialCond", removeDefinition(HygModification::InitialCondition), 6, 4, 2, isGone<INITIALS>()),
        Row("RemoveFieldCond", removeDefinition(HygModification::FieldCondition), 6, 4, 3, isGone<FIELDS>()),
        Row("RemoveContactCond", removeDefinition(HygModification::ContactCondition), 6, 4, 4, isGone<CONTACTS>()),
        Row("RemoveClimateCond", remove(HygUndoRemoveClimateCond::createUndoAction), 9, 9, 0, isGone<CLIMATES>()),
        Row("RemoveBoundaryCond", remove(HygUndoRemoveBoundaryCond::createUndoAction), 9, 9, 1, isGone<BOUNDARIES>()),
        Row("RemoveSchedule", remove(HygUndoRemoveSchedule::createUndoAction), 9, 9, 2, isGone<SCHEDULES>()),
        Row("RemoveOutputGrid", remove(HygUndoRemoveOutputGrid::createUndoAction), 9, 9, 3, isGone<GRIDS>()),
        Row("RemoveMaterial", remove(HygUndoRemoveMaterial::createUndoAction), 3, 3, 0, isGone<R::MATERIALS>()),
        Row(
            "Assignments",
            [](const Project & p) {
                Assignments assignments = p.m_assignments;
                std::reverse(assignments.m_list.begin(), assignments.m_list.end());
                assignments.m_list.resize(7);
                return std::make_unique<HygUndoAssignments>("text", std::move(assignments));
            },
            0, 0, 0,
            [](const Project & before, const Project & after) {
                return after.m_assignments.size() == 7 &&
                       after.m_assignments.m_list[0] == before.m_assignments.m_list.back();
            }),
        Row(
            "ModifyGrid",
            [](const Project & p) {
                Disc disc = p.m_disc;
                disc.m_xSteps.m_data = {1, 2};
                return std::make_unique<HygUndoModifyGrid>("text", std::move(disc));
            },
            11, 11, 0, [](const Project &, const Project & after) { return after.m_disc.nx() == 2; }),
        Row(
            "ModifyGridWithAssignments",
            [](const Project & p) {
                Disc disc = p.m_disc;
                Assignments assignments = p.m_assignments;
                disc.modifySteps(Disc::X, 1, 2, {0.5}, assignments);
                return std::make_unique<HygUndoModifyGrid>("text", std::move(disc), std::move(assignments));
            },
            11, 11, 0,
            [](const Project & before, const Project & after) {
                return after.m_disc.nx() == 2 && !(before.m_assignments == after.m_assignments);
            }),
        Row("SolverSettings", swapped<HygUndoSolverSettings, R::SOLVER_SETTINGS>([](SolverSettings & settings) {
                settings.m_flag.set(SolverSettings::flag_t::UseStabilityLimitDetection, true);
            }),
            12, 12, 0, differs),
        Row("Init", swapped<HygUndoInit, R::INIT>([](Init & init) { init.m_para.set(Init::para_t::Albedo, 0.3); }), 13,
            13, 0, differs),
        Row("ProjectDescription",
            swapped<HygUndoProjectDescription, R::DESCRIPTION>([](std::string & text) { text = "d"; }), 13, 13, 0,
            differs),
        Row("ProjectInformation",
            swapped<HygUndoProjectInformation, R::INFORMATION>([](ProjectInfo & info) { info.m_userName = "u"; }), 13,
            13, 0, differs),
        Row("AssessmentSettings", swapped<HygUndoAssessmentSettings, R::ASSESSMENTS>([](auto & list) {
                list.emplace_back().m_name = "mould";
            }),
            13, 13, 0, differs),
        Row("Outputs",
            swapped<HygUndoOutputs, R::OUTPUTS_SECTION>([](Outputs & outputs) { outputs.m_outputFiles.clear(); }), 14,
            14, 0, differs),
        Row(
            "LocationParameter",
            [](const Project & p) {
                LocationParameter location = LocationParameter::of(p.m_init);
                location.m_para.set(Init::para_t::Latitude, 51);
                location.m_timeZone = 1;
                location.m_useCustomLocation = true;
                location.m_climateDataFilePath = KOR::Path("x.c6b");
                return std::make_unique<HygUndoLocationParameter>("text", location);
            },
            15, 15, 0,
            [](const Project &, const Project & after) {
                return after.m_init.parameter(Init::para_t::Latitude).get_value("Deg") == 51 &&
                       after.m_init.intParameter(Init::intpara_t::TimeZone) == 1 &&
                       after.m_init.isEnabled(Init::flag_t::UseCustomLocation) &&
                       after.m_init.m_climateDataFilePath.str() == "x.c6b";
            }),
        Row("Project", swapped<HygUndoProject, WHOLE>([](Project & p) {
                p = Project();
                p.m_materials.resize(5);
            }),
            0xFF0001, 0xFF0001, 0,
            [](const Project & before,
               const Project &
                   after) { return after.m_materials.size() == 5 && after.m_fileName == before.m_fileName; }),
    };
    return rows;
}

TEST_F(HygUndoCommandsTest, EachCommandIsDoneUndoneAndDoneAgain) {
    for (const Row & row : commands()) {
        SCOPED_TRACE(row.name);
        const Project before = project();
        m_signals.clear();
        m_stack.push(row.make(before).release());
        const Project after = project();
        EXPECT_TRUE(row.isDone(before, after));
        EXPECT_TRUE(m_handler.isModified());
        m_stack.undo();
        EXPECT_EQ(project(), before);
        m_stack.redo();
        EXPECT_EQ(project(), after);
        m_stack.undo();
        EXPECT_EQ(project(), before);
        using Signal = std::pair<int, void *>;
        const Signal redone(row.redoCode, HygModification::data(row.data));
        const Signal undone(row.undoCode, HygModification::data(row.data));
        EXPECT_THAT(m_signals, testing::ElementsAre(redone, undone, redone, undone));
    }
}

TEST_F(HygUndoCommandsTest, CellDimensionTellsWhichCell) {
    const Project before = project();
    std::vector<std::pair<unsigned int, unsigned int>> cells;
    QObject::connect(&m_handler, &HygProjectHandler::modified, [&](int code, void * data) {
        ASSERT_EQ(code, 10);
        const auto * cell = static_cast<const HygUndoCellDimension::CellData *>(data);
        cells.emplace_back(cell->column, cell->row);
    });
    HYGRION::Assignments fewer = before.m_assignments;
    fewer.m_list.resize(3);
    m_stack.push(new HygUndoCellDimension("text", 2, 1, 0.7, 33, fewer));
    EXPECT_THAT(project().m_disc.m_xSteps.m_data, testing::ElementsAre(0.1, 0.2, 0.7));
    EXPECT_THAT(project().m_disc.m_ySteps.m_data, testing::ElementsAre(10, 33));
    EXPECT_EQ(project().m_assignments, fewer);
    m_stack.undo();
    EXPECT_EQ(project(), before);
    m_stack.redo();
    EXPECT_EQ(project().m_assignments, fewer);
    EXPECT_THAT(cells, testing::ElementsAre(testing::Pair(2, 1), testing::Pair(2, 1), testing::Pair(2, 1)));
    EXPECT_THROW(HygUndoCellDimension("text", 3, 0, 1, 1), KOR::Exception);
    EXPECT_THROW(HygUndoCellDimension("text", 0, 0, 0, 1), KOR::Exception);
}

TEST_F(HygUndoCommandsTest, CreatorsRefuseAnIndexOutsideOfTheList) {
    struct Refusal {
        std::function<void()> create;
        const char * message;
        const char * where;
        Refusal(std::function<void()> creation, const char * text, const char * place)
            : create(std::move(creation)), message(text), where(place) {}
    };
    const auto definition = [](HygModification::definition_t kind) {
        return [kind] { HygUndoRemoveDefinition::createRemoveDefinitionAction("", kind, 2); };
    };
    const Refusal refusals[] = {
        Refusal([] { HygUndoRemoveBoundaryCond::createUndoAction("", 2); }, "Condition index 2 out of range.",
                "[HygUndoRemoveBoundaryCond::createUndoAction]"),
        Refusal([] { HygUndoRemoveClimateCond::createUndoAction("", 2); }, "Condition index 2 out of range.",
                "[HygUndoRemoveClimateCond::createUndoAction]"),
        Refusal([] { HygUndoRemoveMaterial::createUndoAction("", 2); }, "Material index 2 out of range.",
                "[HygUndoRemoveMaterial::createUndoAction]"),
        Refusal([] { HygUndoRemoveSchedule::createUndoAction("", 2); }, "Definition index 2 out of range.",
                "[HygUndoRemoveSchedule::createUndoAction]"),
        Refusal([] { HygUndoRemoveOutputGrid::createUndoAction("", 2); }, "Definition index 2 out of range.",
                "[HygUndoRemoveOutputGrid::createUndoAction]"),
        Refusal([] { HygUndoRemoveInterface::createRemoveDefinitionAction("", 2); }, "Interface index 2 out of range.",
                "[HygUndoRemoveInterface::createRemoveDefinitionAction]"),
        Refusal(definition(HygModification::InitialCondition), "Initial condition index 2 out of range.",
                "[HygUndoRemoveDefinition::createRemoveDefinitionAction]"),
        Refusal(definition(HygModification::FieldCondition), "Field condition index 2 out of range.",
                "[HygUndoRemoveDefinition::createRemoveDefinitionAction]"),
        Refusal(definition(HygModification::ContactCondition), "Contact condition index 2 out of range.",
                "[HygUndoRemoveDefinition::createRemoveDefinitionAction]"),
        Refusal(definition(HygModification::OutputFile), "There is no command that removes a definition of kind 5.",
                "[HygUndoRemoveDefinition::createRemoveDefinitionAction]"),
    };
    const Project before = project();
    const std::pair<const char *, std::function<void()>> doubles[] = {
        {"There is already a schedule with the name 'A'.",
         [&] { HygUndoAddListItem("", named(HYGRION::Schedule(), "A")); }        },
        {"There is already a material with the name 'A'.",
         [&] { HygUndoModifyMaterial("", 1, named(before.m_materials[1], "A")); }},
    };
    for (const auto & [message, create] : doubles) {
        try {
            create();
            ADD_FAILURE() << message;
        } catch (const KOR::Exception & ex) {
            EXPECT_EQ(ex.cause(), message);
        }
    }
    for (const Refusal & refusal : refusals) {
        SCOPED_TRACE(refusal.where);
        try {
            refusal.create();
            ADD_FAILURE() << "accepted";
        } catch (const KOR::Exception & ex) {
            EXPECT_EQ(ex.chain().front().message, refusal.message);
            EXPECT_EQ(ex.chain().front().where, refusal.where);
        }
    }
    EXPECT_EQ(project(), before);
    EXPECT_TRUE(m_signals.empty());
}

TEST_F(HygUndoCommandsTest, RenamingBackLeavesReferencesAloneThatLedNowhereBefore) {
    // An interface that named "Rain" before there was a boundary condition of that name keeps it.
    HYGRION::Interface stray = project().m_conditions.m_interfaces[0];
    stray.m_bcReferences = {"A", "Rain"};
    m_stack.push(new HygUndoModifyInterface("stray", 0, stray));
    const Project before = project();
    m_stack.push(
        new HygUndoModifyBoundaryCond("rename", 0, named(before.m_conditions.m_boundaryConditions[0], "Rain")));
    EXPECT_THAT(project().m_conditions.m_interfaces[0].m_bcReferences, testing::ElementsAre("Rain", "Rain"));
    EXPECT_THAT(project().m_conditions.m_interfaces[1].m_bcReferences, testing::ElementsAre("Rain", "B"));
    m_stack.undo();
    EXPECT_EQ(project(), before);
}

TEST_F(HygUndoCommandsTest, SuccessiveEditsOfOneFieldAreOneStep) {
    const Project before = project();
    const auto rename = [&](const char * name, unsigned int index, const char * field) {
        auto * command = new HygUndoModifyMaterial("rename", index, named(project().m_materials[index], name));
        command->setField(field);
        m_stack.push(command);
    };
    for (const char * name : {"Br", "Bri", "Brick"})
        rename(name, 0, "name");
    EXPECT_EQ(m_stack.count(), 1);
    rename("Wood", 1, "name");   // another definition
    rename("Woods", 1, "label"); // another field
    EXPECT_EQ(m_stack.count(), 3);
    EXPECT_EQ(count(project(), HYGRION::definition_t::Material, "Brick"), 1u);
    EXPECT_EQ(count(project(), HYGRION::definition_t::Material, "Woods"), 1u);
    while (m_stack.canUndo())
        m_stack.undo();
    EXPECT_EQ(project(), before);
    m_stack.redo();
    EXPECT_EQ(count(project(), HYGRION::definition_t::Material, "Brick"), 1u);
    rename("A", 0, "name"); // back to where it began
    EXPECT_EQ(m_stack.count(), 0);
    EXPECT_EQ(project(), before);

    const auto drag = [&](std::uint32_t right, std::size_t last) {
        HYGRION::Assignments assignments = project().m_assignments;
        assignments.m_list[0].m_range.right = right;
        assignments.m_list.resize(last);
        auto * command = new HygUndoAssignments("drag", std::move(assignments));
        command->setField("range");
        m_stack.push(command);
    };
    drag(1, 12);
    drag(2, 11);
    drag(0, 5);
    EXPECT_EQ(m_stack.count(), 1);
    m_stack.undo();
    EXPECT_EQ(project(), before);
    m_stack.redo();
    EXPECT_EQ(project().m_assignments.size(), 5u);
    EXPECT_EQ(project().m_assignments.m_list[0].m_range.right, 0u);
}

TEST_F(HygUndoCommandsTest, AssignmentsKeepOnlyWhatDiffers) {
    HYGRION::Assignments many = project().m_assignments;
    for (std::uint32_t i = 0; i < 20000; ++i)
        many.m_list.emplace_back(HYGRION::Assignment::type_t::Material, HYGRION::Assignment::location_t::Element,
                                 HYGRION::Range{.right = i}, "A");
    m_stack.push(new HygUndoAssignments("many", many));
    const HYGRION::Assignments before = project().m_assignments;
    many = before;
    many.m_list[100].m_reference = "B";
    many.m_list.erase(many.m_list.begin() + 5000);
    many.m_list.insert(many.m_list.begin() + 15000, 3, many.m_list[1]);
    const HYGRION::Assignments after = many;
    auto * command = new HygUndoAssignments("three places", std::move(many));
    m_stack.push(command);
    EXPECT_EQ(project().m_assignments, after);
    EXPECT_LE(command->keptAssignments(), 2u);
    m_stack.undo();
    EXPECT_EQ(project().m_assignments, before);
    EXPECT_LE(command->keptAssignments(), 4u);
    m_stack.redo();
    EXPECT_EQ(project().m_assignments, after);
}

TEST_F(HygUndoCommandsTest, RemovingADefinitionTakesItsAssignmentsAlongInOneStep) {
    const Project before = project();
    std::size_t removable = 0;
    HYGRION::forEachDefinitionList(before, [&](HYGRION::definition_t kind, const auto & list) {
        if (list.empty())
            return;
        ++removable;
        HygEditing::removeDefinition(m_stack, "remove", project(), kind, 0);
        EXPECT_EQ(m_stack.count(), 1);
        for (const HYGRION::Assignment & assignment : project().m_assignments.m_list)
            EXPECT_FALSE(HYGRION::referencedKind(assignment) == kind && assignment.m_reference == "A");
        EXPECT_THROW(HygEditing::removeDefinition(m_stack, "remove", project(), kind, 7), KOR::Exception);
        EXPECT_EQ(m_stack.count(), 1);
        m_stack.undo();
        EXPECT_EQ(project(), before);
    });
    EXPECT_EQ(removable, 10u);
}

TEST_F(HygUndoCommandsTest, WidthsOfOneColumnAreACellDimension) {
    using HYGRION::Disc;
    const Project before = project();
    const auto push = [&](unsigned int dir, std::size_t first, std::size_t last) {
        m_stack.push(HygEditing::widthCommand("width", project(), dir, first, last, 5).release());
        return m_signals.back().first;
    };
    EXPECT_EQ(push(Disc::X, 1, 1), 10);
    EXPECT_EQ(push(Disc::Y, 1, 1), 10);
    EXPECT_EQ(push(Disc::X, 1, 2), 11);
    EXPECT_EQ(push(Disc::Z, 0, 0), 11);
    EXPECT_THAT(project().m_disc.m_xSteps.m_data, testing::ElementsAre(0.1, 5, 5));
    EXPECT_THAT(project().m_disc.m_ySteps.m_data, testing::ElementsAre(10, 5));
    m_stack.push(HygEditing::gridCommand("insert", project(), [](auto & disc, auto & assignments) {
                     HYGRION::edit::insertSteps(disc, assignments, Disc::X, 0);
                 }).release());
    EXPECT_EQ(project().m_disc.nx(), 4u);
    m_stack.setIndex(0);
    EXPECT_EQ(project(), before);
}

TEST(HygUndoCommands, NeedAProject) {
    EXPECT_THROW(HygUndoInit("text", HYGRION::Init()), KOR::Exception);
    HygProjectHandler empty;
    EXPECT_THROW(HygUndoInit("text", HYGRION::Init()), KOR::Exception);
}

} // namespace
