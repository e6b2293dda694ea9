#include <HYGRION/Discretization.h>
#include <HYGRION/GridEdit.h>
#include <HYGRION/ListChange.h>
#include <HYGRION/Project.h>

#include <KOR/Exception.h>

#include <random>

namespace {

using namespace HYGRION;
using enum Assignment::type_t;
using enum Assignment::location_t;

/// What lies on each cell and side, as the assignment grid sees it: sorted texts by cell. Two lists of assignments that
/// look the same here are the same construction.
using Picture = std::map<std::array<std::size_t, 3>, std::multiset<std::string>>;

Picture picture(const Assignments & assignments) {
    Picture result;
    for (const Assignment & a : assignments.m_list) {
        const Range r = edit::effectiveRange(a);
        for (std::size_t k = r.back; k <= r.front; ++k)
            for (std::size_t j = r.bottom; j <= r.top; ++j)
                for (std::size_t i = r.left; i <= r.right; ++i)
                    result[{i, j, k}].insert(a.m_reference + std::to_string(static_cast<int>(a.m_location)));
    }
    return result;
}

Project sample(std::size_t nx, std::size_t ny, unsigned int seed) {
    std::mt19937 random(seed);
    Project p;
    p.m_disc.m_xSteps.m_data.clear();
    p.m_disc.m_ySteps.m_data.clear();
    for (std::size_t i = 0; i < nx; ++i)
        p.m_disc.m_xSteps.m_data.push_back(0.1 + 0.01 * static_cast<double>(i));
    for (std::size_t j = 0; j < ny; ++j)
        p.m_disc.m_ySteps.m_data.push_back(0.2 + 0.01 * static_cast<double>(j));
    for (const char * name : {"A", "B"}) {
        p.m_materials.emplace_back().m_name = name;
        p.m_conditions.m_interfaces.emplace_back().m_name = name;
        InitialCond & initial = p.m_conditions.m_initialConditions.emplace_back();
        initial.m_name = name;
        initial.m_type =
            *name == 'A' ? InitialCond::condition_t::Temperature : InitialCond::condition_t::RelativeHumidity;
    }
    for (int n = 0; n < 12; ++n) {
        Range r{.left = static_cast<std::uint32_t>(random() % nx),
                .bottom = static_cast<std::uint32_t>(random() % ny),
                .right = static_cast<std::uint32_t>(random() % nx),
                .top = static_cast<std::uint32_t>(random() % ny)};
        r.normalise();
        const Assignment::location_t sides[] = {Left, Right, Bottom, Top};
        const bool isSide = n % 3 == 0;
        p.m_assignments.m_list.emplace_back(isSide       ? Interface
                                            : n % 3 == 1 ? Material
                                                         : InitialCondition,
                                            isSide ? sides[random() % 4] : Element, r, n % 2 == 0 ? "A" : "B");
    }
    return p;
}

std::multiset<std::string> mirrored(const std::multiset<std::string> & texts) {
    std::multiset<std::string> result;
    for (std::string text : texts) {
        if (text.back() == '1' || text.back() == '2') // left and right
            text.back() = text.back() == '1' ? '2' : '1';
        result.insert(text);
    }
    return result;
}

TEST(GridEdit, MirrorTakesEveryCellToItsImage) {
    for (unsigned int seed = 0; seed < 20; ++seed) {
        Project p = sample(7, 3, seed);
        const Picture before = picture(p.m_assignments);
        const std::vector<double> widths = p.m_disc.m_xSteps.m_data;
        edit::mirrorSteps(p.m_disc, p.m_assignments, Disc::X, 0, 6);
        Picture expected;
        for (const auto & [cell, texts] : before)
            expected[{6 - cell[0], cell[1], cell[2]}] = mirrored(texts);
        EXPECT_EQ(picture(p.m_assignments), expected) << seed;
        EXPECT_TRUE(std::equal(widths.rbegin(), widths.rend(), p.m_disc.m_xSteps.m_data.begin()));
    }
}

TEST(GridEdit, MirrorOfARunLeavesTheRestAlone) {
    for (unsigned int seed = 0; seed < 20; ++seed) {
        Project p = sample(7, 4, seed);
        const Picture before = picture(p.m_assignments);
        const Disc disc = p.m_disc;
        edit::mirrorSteps(p.m_disc, p.m_assignments, Disc::Y, 1, 2);
        const Picture after = picture(p.m_assignments);
        for (const std::size_t j : {0u, 3u})
            for (std::size_t i = 0; i < 7; ++i)
                EXPECT_EQ(after.contains({i, j, 0}) ? after.at({i, j, 0}) : std::multiset<std::string>(),
                          before.contains({i, j, 0}) ? before.at({i, j, 0}) : std::multiset<std::string>());
        edit::mirrorSteps(p.m_disc, p.m_assignments, Disc::Y, 1, 2);
        EXPECT_EQ(picture(p.m_assignments), before) << seed;
        EXPECT_EQ(p.m_disc, disc);
    }
    Project p = sample(4, 1, 0);
    p.m_assignments.m_list = {Assignment(Interface, Left, Range{}, "A")};
    Assignment & sensor = p.m_assignments.m_list.emplace_back();
    sensor.m_location = Coordinate;
    sensor.m_coordinates.x = 0.05;
    edit::mirrorSteps(p.m_disc, p.m_assignments, Disc::X, 0, 1); // 0.1 and 0.11 wide
    EXPECT_EQ(p.m_assignments.m_list[1], Assignment(Interface, Left, Range{}, "A")) << "the outer surface stays";
    EXPECT_DOUBLE_EQ(p.m_assignments.m_list[0].m_coordinates.x, 0.16);
}

TEST(GridEdit, MoveTakesTheRunToItsNewPlace) {
    struct Move {
        std::size_t first, last, before;
        std::vector<std::size_t> order; ///< old number of each new column
    };
    const Move moves[] = {
        Move{0, 0, 3, {1, 2, 0, 3, 4}},
        Move{3, 4, 0, {3, 4, 0, 1, 2}},
        Move{1, 2, 5, {0, 3, 4, 1, 2}},
        Move{1, 2, 3, {0, 1, 2, 3, 4}},
    };
    for (const Move & move : moves)
        for (unsigned int seed = 0; seed < 5; ++seed) {
            Project p = sample(5, 3, seed);
            const Picture before = picture(p.m_assignments);
            const std::vector<double> widths = p.m_disc.m_xSteps.m_data;
            edit::moveSteps(p.m_disc, p.m_assignments, Disc::X, move.first, move.last, move.before);
            Picture expected;
            for (std::size_t i = 0; i < move.order.size(); ++i) {
                EXPECT_EQ(p.m_disc.m_xSteps.m_data[i], widths[move.order[i]]);
                for (const auto & [cell, texts] : before)
                    if (cell[0] == move.order[i])
                        expected[{i, cell[1], cell[2]}] = texts;
            }
            EXPECT_EQ(picture(p.m_assignments), expected) << seed;
        }
}

TEST(GridEdit, StepsAreInsertedSplitMergedAndRemovedWithTheirAssignments) {
    Project p = sample(4, 1, 1);
    Disc & disc = p.m_disc;
    Assignments & list = p.m_assignments;
    list.m_list = {Assignment(Material, Element, Range{.right = 1}, "A"),
                   Assignment(Material, Element, Range{.left = 2, .right = 3}, "B"),
                   Assignment(Interface, Right, Range{.left = 3, .right = 3}, "A")};
    const double total = std::accumulate(disc.m_xSteps.m_data.begin(), disc.m_xSteps.m_data.end(), 0.0);
    const auto ranges = [&list] {
        std::string text;
        for (const Assignment & a : list.m_list)
            text += std::to_string(a.m_range.left) + '-' + std::to_string(a.m_range.right) + ' ';
        return text;
    };
    edit::splitStep(disc, list, Disc::X, 1, 3);
    EXPECT_EQ(ranges(), "0-3 4-5 5-5 ");
    EXPECT_NEAR(std::accumulate(disc.m_xSteps.m_data.begin(), disc.m_xSteps.m_data.end(), 0.0), total, 1e-15);
    edit::mergeSteps(disc, list, Disc::X, 1, 3);
    EXPECT_EQ(ranges(), "0-1 2-3 3-3 ");
    edit::insertSteps(disc, list, Disc::X, 2, 2);
    EXPECT_EQ(ranges(), "0-3 4-5 5-5 ");
    EXPECT_EQ(disc.m_xSteps.m_data[2], disc.m_xSteps.m_data[1]);
    edit::insertSteps(disc, list, Disc::X, 6);
    EXPECT_EQ(ranges(), "0-3 4-6 6-6 ");
    EXPECT_EQ(edit::removeSteps(disc, list, Disc::X, 0, 3).size(), 1u);
    EXPECT_EQ(ranges(), "0-2 2-2 ");
    edit::setWidths(disc, Disc::X, 1, 2, 0.5);
    EXPECT_EQ(disc.m_xSteps.m_data[2], 0.5);
    const Project before = p;
    EXPECT_THROW(edit::removeSteps(disc, list, Disc::X, 0, 2), KOR::Exception);
    EXPECT_THROW(edit::mergeSteps(disc, list, Disc::X, 2, 3), KOR::Exception);
    EXPECT_THROW(edit::mirrorSteps(disc, list, 3, 0, 1), KOR::Exception);
    EXPECT_THROW(edit::setWidths(disc, Disc::X, 0, 0, -1), KOR::Exception);
    EXPECT_THROW(edit::moveSteps(disc, list, Disc::X, 0, 0, 9), KOR::Exception);
    EXPECT_EQ(p, before);
}

TEST(GridEdit, AssignReplacesWhatCannotStandBeside) {
    for (unsigned int seed = 0; seed < 30; ++seed) {
        Project p = sample(6, 5, seed);
        p.m_assignments.m_list.clear();
        std::mt19937 random(seed);
        std::map<std::array<std::size_t, 3>, std::string> painted; // the plain way: cell by cell
        for (int n = 0; n < 30; ++n) {
            Range r{.left = static_cast<std::uint32_t>(random() % 6),
                    .bottom = static_cast<std::uint32_t>(random() % 5),
                    .right = static_cast<std::uint32_t>(random() % 6),
                    .top = static_cast<std::uint32_t>(random() % 5)};
            r.normalise();
            const std::string name = random() % 2 == 0 ? "A" : "B";
            const bool erases = n % 5 == 4;
            if (erases)
                edit::unassign(p.m_assignments, Material, Element, r);
            else
                edit::assign(p, p.m_assignments, Assignment(Material, Element, r, name));
            for (std::size_t j = r.bottom; j <= r.top; ++j)
                for (std::size_t i = r.left; i <= r.right; ++i)
                    if (erases)
                        painted.erase({i, j, 0});
                    else
                        painted[{i, j, 0}] = name + "0";
        }
        Picture expected;
        for (const auto & [cell, name] : painted)
            expected[cell] = {name};
        EXPECT_EQ(picture(p.m_assignments), expected) << seed;
    }
}

TEST(GridEdit, AssignKeepsWhatMayStandBesideAndJoinsBlocks) {
    const Project p = sample(6, 5, 0);
    Assignments list;
    const auto assign = [&](Assignment::type_t type, Assignment::location_t where, const Range & r, const char * name) {
        edit::assign(p, list, Assignment(type, where, r, name));
        return list.size();
    };
    EXPECT_EQ(assign(InitialCondition, Element, Range{.right = 2}, "A"), 1u);
    EXPECT_EQ(assign(InitialCondition, Element, Range{.right = 2}, "B"), 2u) << "temperature and humidity";
    EXPECT_EQ(assign(InitialCondition, Element, Range{.left = 3, .right = 5}, "A"), 2u) << "one block";
    EXPECT_EQ(list.m_list.back().m_range, (Range{.right = 5}));
    EXPECT_EQ(assign(Interface, Left, Range{.right = 3}, "A"), 3u);
    EXPECT_EQ(list.m_list.back().m_range, Range{}) << "only the cells along the side";
    EXPECT_EQ(assign(Interface, Bottom, Range{}, "B"), 4u);
    EXPECT_EQ(assign(Interface, Left, Range{}, "B"), 4u);
    EXPECT_TRUE(edit::unassign(list, Interface, Left, Range{.right = 5, .top = 4}, "B"));
    EXPECT_FALSE(edit::unassign(list, Interface, Left, Range{.right = 5, .top = 4}));
}

TEST(GridEdit, ABlockIsPastedAsItWasCopied) {
    Project p = sample(6, 6, 3);
    const Range block{.left = 1, .bottom = 2, .right = 3, .top = 4};
    const edit::CellBlock copied = edit::copyBlock(p.m_assignments, block);
    EXPECT_EQ(edit::CellBlock::fromText(copied.text()), copied);
    Assignments pasted = p.m_assignments;
    EXPECT_TRUE(edit::pasteBlock(p, pasted, copied, 4, 0).empty()); // one column of three fits
    Picture expected = picture(p.m_assignments);
    const Picture source = picture(p.m_assignments);
    for (std::size_t i = 4; i < 6; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            const auto from = source.find({i - 3, j + 2, 0});
            expected.erase({i, j, 0});
            if (from != source.end())
                expected[{i, j, 0}] = from->second;
        }
    EXPECT_EQ(picture(pasted), expected);

    p.m_materials.clear();
    EXPECT_FALSE(edit::pasteBlock(p, pasted, copied, 0, 0).empty());
    for (const char * wrong : {"", "<X/>", "<HygrionCells nx='1' ny='1'/>", "<HygrionCells nx='0' ny='1' nz='1'/>",
                               "<HygrionCells nx='1' ny='1' nz='1'><Assignments><X/></Assignments></HygrionCells>"})
        EXPECT_THROW(edit::CellBlock::fromText(wrong), KOR::Exception) << wrong;
}

TEST(ListChange, GoesThereAndBackForAnyTwoLists) {
    std::mt19937 random(1);
    for (int run = 0; run < 2000; ++run) {
        std::vector<int> before(random() % 40);
        for (int & item : before)
            item = static_cast<int>(random() % 6);
        std::vector<int> after = before;
        for (int edits = static_cast<int>(random() % 5); edits > 0; --edits) {
            const std::size_t place = random() % (after.size() + 1);
            if (random() % 2 == 0)
                after.insert(after.begin() + static_cast<std::ptrdiff_t>(place), random() % 4, 9);
            else if (place < after.size())
                after.erase(after.begin() + static_cast<std::ptrdiff_t>(place));
        }
        if (run % 10 == 0)
            std::shuffle(after.begin(), after.end(), random);
        ListChange<int> change(before, after);
        std::vector<int> list = before;
        EXPECT_EQ(change.empty(), before == after);
        change.exchange(list);
        ASSERT_EQ(list, after);
        change.exchange(list);
        ASSERT_EQ(list, before);
        change.exchange(list);
        ASSERT_EQ(list, after);
    }
}

} // namespace
