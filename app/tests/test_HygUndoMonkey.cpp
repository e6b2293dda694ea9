// Random work: whatever is done, undo leads back to the first state and redo to the last.
#include "EditedProject.h"
#include "undo/HygEditing.h"
#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoGrid.h"

#include <random>

namespace {

using HYGRION::Project;
namespace R = HygUndoRows;

class HygUndoMonkey : public EditedProject {
protected:
    std::size_t upTo(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    bool coin() { return upTo(2) == 0; }
    /// Few names, so that references are met, lost and met again.
    std::string name() { return std::string(1, static_cast<char>('A' + upTo(8))); }
    const Project & project() const { return m_projects.project(); }
    QUndoStack & stack() { return m_projects.undoStack(); }

    template <typename Row, typename Add, typename Modify> void editList() {
        Project copy = project();
        auto & list = Row::list(copy);
        if (list.empty() || upTo(3) == 0) {
            typename Row::Item item;
            item.m_name = name();
            stack().push(new Add("add", item));
        } else if (const auto index = static_cast<unsigned int>(upTo(list.size())); coin()) {
            list[index].m_name = name();
            auto * command = new Modify("modify", index, list[index]);
            command->setField(coin() ? QString() : QStringLiteral("name"));
            stack().push(command);
        } else {
            HygEditing::removeDefinition(stack(), "remove", project(), Row::DEFINITION, index);
        }
    }
    void editGrid() {
        using namespace HYGRION;
        const unsigned int dir = coin() ? Disc::X : Disc::Y;
        const std::size_t count = dir == Disc::X ? project().m_disc.nx() : project().m_disc.ny();
        const std::size_t a = upTo(count);
        const std::size_t b = a + upTo(count - a);
        const double width = 0.01 * static_cast<double>(1 + upTo(50));
        if (coin())
            return stack().push(HygEditing::widthCommand("width", project(), dir, a, b, width).release());
        const std::size_t what = upTo(count > 8 ? 4 : 6);
        stack().push(HygEditing::gridCommand("grid", project(), [&](Disc & disc, Assignments & assignments) {
                         if (what == 0 && b - a + 1 < count)
                             edit::removeSteps(disc, assignments, dir, a, b);
                         else if (what == 1)
                             edit::mergeSteps(disc, assignments, dir, a, b);
                         else if (what == 2)
                             edit::mirrorSteps(disc, assignments, dir, a, b);
                         else if (what == 3)
                             edit::moveSteps(disc, assignments, dir, a, b, upTo(count + 1));
                         else if (what == 4)
                             edit::insertSteps(disc, assignments, dir, a);
                         else
                             edit::splitStep(disc, assignments, dir, a);
                     }).release());
    }
    void editAssignments() {
        using namespace HYGRION;
        const auto nx = static_cast<std::uint32_t>(project().m_disc.nx());
        const auto ny = static_cast<std::uint32_t>(project().m_disc.ny());
        const auto left = static_cast<std::uint32_t>(upTo(nx));
        const auto bottom = static_cast<std::uint32_t>(upTo(ny));
        const Range range{.left = left,
                          .bottom = bottom,
                          .right = left + static_cast<std::uint32_t>(upTo(nx - left)),
                          .top = bottom + static_cast<std::uint32_t>(upTo(ny - bottom))};
        const auto type = static_cast<Assignment::type_t>(upTo(6));
        const bool onSide = type == Assignment::type_t::Interface || type == Assignment::type_t::ContactCondition;
        const auto side = onSide ? Assignment::location_t::Left : Assignment::location_t::Element;
        auto command = HygEditing::assignmentsCommand("assign", project(), [&](Assignments & assignments) {
            if (coin())
                edit::assign(project(), assignments, Assignment(type, side, range, name()));
            else
                edit::unassign(assignments, type, side, range);
        });
        command->setField(coin() ? QString() : QStringLiteral("range"));
        stack().push(command.release());
    }
    void editSections() {
        HYGRION::ProjectInfo info = project().m_projectInfo;
        info.m_comment = name();
        HYGRION::Init init = project().m_init;
        init.m_para.set(HYGRION::Init::para_t::Albedo, 0.1 * static_cast<double>(upTo(9)));
        HYGRION::LocationParameter location = HYGRION::LocationParameter::of(project().m_init);
        location.m_timeZone = static_cast<int>(upTo(12));
        Project whole = project();
        whole.m_projectInfo.m_userName = name();
        HygUndoCommandBase * const commands[] = {
            new HygUndoProjectInformation("information", info), new HygUndoInit("init", init),
            new HygUndoLocationParameter("location", location), new HygUndoProjectDescription("description", name()),
            new HygUndoProject("project", whole)};
        const std::size_t chosen = upTo(std::size(commands));
        for (std::size_t i = 0; i < std::size(commands); ++i)
            i == chosen ? stack().push(commands[i]) : delete commands[i];
    }
    void edit() {
        using namespace HYGRION;
        const std::function<void()> edits[] = {
            [&] { editList<R::Materials, HygUndoAddMaterial, HygUndoModifyMaterial>(); },
            [&] { editList<R::Interfaces, HygUndoAddInterface, HygUndoModifyInterface>(); },
            [&] { editList<R::InitialConditions, HygUndoAddInitialCond, HygUndoModifyInitialCond>(); },
            [&] { editList<R::FieldConditions, HygUndoAddFieldCond, HygUndoModifyFieldCond>(); },
            [&] { editList<R::ContactConditions, HygUndoAddContactCond, HygUndoModifyContactCond>(); },
            [&] { editList<R::OutputFiles, HygUndoAddOutput, HygUndoModifyOutput>(); },
            [&] { editList<R::ClimateConditions, HygUndoAddListItem, HygUndoModifyClimateCond>(); },
            [&] { editList<R::BoundaryConditions, HygUndoAddListItem, HygUndoModifyBoundaryCond>(); },
            [&] { editList<R::Schedules, HygUndoAddListItem, HygUndoModifySchedule>(); },
            [&] { editList<R::OutputGrids, HygUndoAddListItem, HygUndoModifyOutputGrid>(); },
            [&] { editGrid(); },
            [&] { editGrid(); },
            [&] { editAssignments(); },
            [&] { editAssignments(); },
            [&] { editSections(); },
        };
        try {
            edits[upTo(std::size(edits))]();
        } catch (const KOR::Exception & ex) { // a name that is taken
            ++m_refused;
            EXPECT_EQ(ex.chain().back().where, "[HygUndoTemplates::requireNewName]") << ex.what();
        }
    }
    void act() {
        switch (upTo(8)) {
        case 0:
            for (std::size_t i = upTo(6); i > 0; --i)
                stack().undo();
            break;
        case 1:
            for (std::size_t i = upTo(6); i > 0; --i)
                stack().redo();
            break;
        case 2:
            stack().beginMacro("macro");
            for (std::size_t i = 1 + upTo(4); i > 0; --i)
                edit();
            stack().endMacro();
            break;
        default:
            edit();
        }
    }

    std::mt19937 m_random{20261123};
    int m_refused = 0;
};

TEST_F(HygUndoMonkey, TwoThousandActionsLeadBackToTheFirstState) {
    QFile::copy(HYG_SOURCE_DIR "/examples/Window reveal.h6p", path("monkey.h6p"));
    ASSERT_TRUE(m_projects.openProject(path("monkey.h6p")));
    const Project first = project();
    int announced = 0;
    QObject::connect(&m_projects, &HygProjectHandler::modified, [&] { ++announced; });
    std::map<int, Project> seen; // by index of the stack, while nothing before it has been done anew
    for (int action = 0; action < 2000; ++action) {
        const int index = stack().index();
        act();
        seen.erase(seen.upper_bound(std::min(index, stack().index()) - 1), seen.end());
        if (action % 50 == 0)
            seen.insert_or_assign(stack().index(), project());
    }
    EXPECT_GT(announced, 2000);
    EXPECT_GT(m_refused, 10);
    const Project last = project();
    const int lastIndex = stack().index();
    for (auto state = seen.rbegin(); state != seen.rend(); ++state) {
        stack().setIndex(state->first);
        EXPECT_TRUE(project() == state->second) << "at " << state->first;
    }
    stack().setIndex(0);
    EXPECT_TRUE(project() == first);
    EXPECT_FALSE(m_projects.isModified());
    stack().setIndex(lastIndex);
    EXPECT_TRUE(project() == last);
}

} // namespace
