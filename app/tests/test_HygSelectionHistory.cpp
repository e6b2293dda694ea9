// Where selected cells go when the grid changes, and what undo and redo select.
#include "construction/HygSelectionHistory.h"

#include <QUndoStack>

#include <gmock/gmock.h>

namespace {

using HYGRION::Disc;
using HYGRION::Range;
using testing::ElementsAreArray;

constexpr Range columns(std::uint32_t first, std::uint32_t last) {
    return {.left = first, .right = last, .top = 3};
}

struct Mapping {
    const char * name;
    HygGridMap map;
    std::vector<Range> selected;
    std::vector<Range> expected;
};
class HygGridMaps : public testing::TestWithParam<Mapping> {};

TEST_P(HygGridMaps, BlocksFollowTheirCells) {
    EXPECT_THAT(GetParam().map.mapped(GetParam().selected), ElementsAreArray(GetParam().expected));
}

const double WIDTHS[] = {5, 10, 60, 60, 10};
const double DIVIDED[] = {5, 5, 5, 20, 20, 20, 60, 10};
const double TENTHS[] = {0.1, 0.1, 0.1, 0.3};
const double SUMS[] = {0.1 + 0.1 + 0.1, 0.1, 0.2};
INSTANTIATE_TEST_SUITE_P(
    Changes, HygGridMaps,
    testing::Values(
        Mapping{
            "Divided", HygGridMap::divided(Disc::X, WIDTHS, DIVIDED), {columns(1, 2)},
                {columns(1, 5)}
},
        Mapping{"DividedBeside",
                HygGridMap::divided(Disc::X, WIDTHS, DIVIDED),
                {columns(0, 0), columns(3, 4)},
                {columns(0, 0), columns(6, 7)}},
        Mapping{"United",
                HygGridMap::divided(Disc::X, DIVIDED, WIDTHS),
                {columns(1, 1), columns(4, 4)},
                {columns(1, 1), columns(2, 2)}},
        Mapping{"UnitedToOne",
                HygGridMap::divided(Disc::X, DIVIDED, WIDTHS),
                {columns(3, 3), columns(5, 5)},
                {columns(2, 2)}},
        Mapping{"RoundedSums", HygGridMap::divided(Disc::X, TENTHS, SUMS), {columns(0, 2)}, {columns(0, 0)}},
        Mapping{"InsertedAreChosen", HygGridMap::replaced(Disc::X, 5, 2, 0, 2), {columns(2, 3)}, {columns(2, 3)}},
        Mapping{"InsertedAtTheEnd", HygGridMap::replaced(Disc::X, 5, 5, 0, 1), {columns(4, 4)}, {columns(5, 5)}},
        Mapping{"RemovedBefore", HygGridMap::replaced(Disc::X, 5, 0, 2, 0), {columns(1, 3)}, {columns(0, 1)}},
        Mapping{"RemovedItself", HygGridMap::replaced(Disc::X, 5, 1, 2, 0), {columns(1, 2)}, {columns(1, 1)}},
        Mapping{"RemovedLast", HygGridMap::replaced(Disc::X, 5, 3, 2, 0), {columns(3, 4)}, {columns(2, 2)}},
        Mapping{"Mirrored",
                HygGridMap::mirrored(Disc::X, 5, 1, 4),
                {columns(0, 1), columns(3, 3)},
                {columns(0, 0), columns(4, 4), columns(2, 2)}},
        Mapping{"MovedUp", HygGridMap::moved(Disc::X, 5, 0, 1, 4), {columns(1, 2)}, {columns(0, 0), columns(3, 3)}},
        Mapping{"MovedDown", HygGridMap::moved(Disc::X, 5, 3, 4, 1), {columns(3, 4)}, {columns(1, 2)}},
        Mapping{"RowsKeepColumns",
                HygGridMap::replaced(Disc::Y, 4, 1, 0, 1),
                {Range{2, 1, 0, 3, 2, 0}},
                {Range{2, 1, 0, 3, 1, 0}}},
        Mapping{"NothingSelected", HygGridMap::replaced(Disc::X, 5, 2, 0, 2), {}, {}}),
    [](const auto & row) { return std::string(row.param.name); });

class HygSelectionHistories : public testing::Test {
protected:
    struct Command : QUndoCommand {
        bool merges = false;
        int id() const override { return merges ? 1 : -1; }
        bool mergeWith(const QUndoCommand *) override { return true; }
    };
    /// A change while \p block is selected. \return what is selected then
    void change(const Range & block, const HygGridMap * map, bool merges = false) {
        m_selection.setBlocks({block});
        m_history.begin(m_selection);
        if (map != nullptr)
            m_history.plan(*map);
        auto * command = new Command;
        command->merges = merges;
        m_stack.push(command);
        follow();
    }
    void follow() {
        if (const auto wanted = m_history.follow(m_stack))
            m_selection = *wanted;
    }
    void go(int index) {
        m_history.begin(m_selection); // as the project announces each change
        m_stack.setIndex(index);
        follow();
    }
    void expect(const Range & block) { EXPECT_THAT(m_selection.blocks(), testing::ElementsAre(block)); }

    QUndoStack m_stack;
    HygSelectionHistory m_history;
    HygGridSelection m_selection;
};

TEST_F(HygSelectionHistories, UndoAndRedoBringBackWhatWasSelected) {
    const HygGridMap map = HygGridMap::replaced(Disc::X, 5, 2, 0, 2);
    change(columns(1, 1), nullptr); // an assignment
    expect(columns(1, 1));
    change(columns(2, 4), &map);
    expect(columns(2, 3));
    m_stack.push(new QUndoCommand("elsewhere"));
    follow();
    m_selection.setBlocks({columns(0, 0)});
    go(2); // what does not concern cells leaves the selection
    expect(columns(0, 0));
    go(1);
    expect(columns(2, 4));
    go(0);
    expect(columns(1, 1));
    go(3); // several at once
    expect(columns(2, 3));
    go(0);
    expect(columns(1, 1));
    m_stack.clear();
    follow();
    change(columns(3, 3), &map);
    expect(columns(2, 3));
    go(0);
    expect(columns(3, 3));
}

TEST_F(HygSelectionHistories, MergedStepsAreOne) {
    change(columns(1, 1), nullptr, true);
    change(columns(2, 2), nullptr, true);
    ASSERT_EQ(m_stack.count(), 1);
    expect(columns(2, 2));
    go(0);
    expect(columns(1, 1));
    go(1);
    expect(columns(2, 2));
}

} // namespace
