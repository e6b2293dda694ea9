#include "XmlTesting.h"

#include <HYGRION/Disc.h>

#include <cmath>
#include <numeric>

namespace {

using namespace HYGRION;
using namespace testing_xml;

double sum(const std::vector<double> & steps) {
    return std::accumulate(steps.begin(), steps.end(), 0.0);
}

struct Fault {
    const char * name;
    const char * content;
    const char * message; ///< innermost, without its line
    const char * outermost;
    const char * line;
};

class DiscFaults : public testing::TestWithParam<Fault> {};

TEST_P(DiscFaults, AreNamedWithTheirLine) {
    const Fault & fault = GetParam();
    const KOR::Exception ex = caught([&] { read<Disc>(fault.content); });
    EXPECT_EQ(withoutLine(ex.cause()), fault.message);
    EXPECT_TRUE(ex.cause().starts_with(std::string("Error in XML file, line ") + fault.line + ": ")) << ex.cause();
    EXPECT_TRUE(ex.message().ends_with(fault.outermost)) << ex.message();
}

constexpr const char * MISSING = "Invalid discretization found in section 'Discretization', x-steps vector is missing.";

INSTANTIATE_TEST_SUITE_P(
    Xml, DiscFaults,
    testing::Values(
        Fault{"Empty", "<Discretization/>", MISSING, MISSING, "1"},
        Fault{"YFirst", "<Discretization>\n<YSteps unit='m'>1</YSteps></Discretization>", MISSING, MISSING, "1"},
        Fault{"Element", "<Discretization><XSteps unit='m'>1</XSteps>\n<WSteps/></Discretization>",
              "Unknown element 'WSteps' in 'Discretization' section.",
              "Unknown element 'WSteps' in 'Discretization' section.", "2"},
        Fault{"Parameter",
              "<Discretization><XSteps unit='m'>1</XSteps>\n<KOR:Parameter name='ThetaX' "
              "unit='Deg'>1</KOR:Parameter></Discretization>",
              "Unknown parameter 'ThetaX' in 'Discretization' section.",
              "Unknown parameter 'ThetaX' in 'Discretization' section.", "2"},
        Fault{"Twice", "<Discretization><XSteps unit='m'>1</XSteps>\n<XSteps unit='m'>1</XSteps></Discretization>",
              "'XSteps' is given more than once.", "'XSteps' is given more than once.", "2"},
        Fault{"NoUnit", "<Discretization>\n<XSteps>1</XSteps></Discretization>",
              "Missing 'unit' attribute in KOR:UnitVector element.",
              "\nInvalid format of xml element 'XSteps' in section 'Discretization'", "2"},
        Fault{"Temperature", "<Discretization>\n<XSteps unit='C'>1</XSteps></Discretization>",
              "Invalid format of xml element 'XSteps' in section 'Discretization'",
              "Invalid format of xml element 'XSteps' in section 'Discretization'", "2"},
        Fault{"NotANumber",
              "<Discretization><XSteps unit='m'>1</XSteps>\n<ZSteps unit='m'>1 nan</ZSteps></Discretization>",
              "Error reading vector data, value #2 'nan' is not a finite number.",
              "\nInvalid format of xml element 'ZSteps' in section 'Discretization'", "2"}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(Disc, LeavesUnitHeightAndDepthOut) {
    const Disc disc = read<Disc>("<Discretization><XSteps unit='mm'>12.5 0.1</XSteps></Discretization>");
    EXPECT_EQ(disc.m_ySteps, KOR::UnitVector({1.0}, KOR::Unit("m")));
    EXPECT_EQ(disc.m_zSteps, disc.m_ySteps);
    EXPECT_EQ(written(disc), "<Root>\n"
                             "  <!-- Discretization data (grid and sketches) -->\n"
                             "  <Discretization>\n"
                             "    <XSteps unit=\"mm\">12.5 0.1</XSteps>\n"
                             "  </Discretization>\n"
                             "</Root>\n");
    Disc full = disc;
    full.m_ySteps = {{1.0}, KOR::Unit("mm")}; // one, but not one metre
    full.m_zSteps = {
        {0.1, 0.2},
        KOR::Unit("m")
    };
    full.m_thetaZ.set("ThetaZ", 30, KOR::Unit("Deg"));
    const Parsed file(written(full));
    Disc again;
    again.readXML(*file.root().FirstChildElement());
    EXPECT_EQ(again, full);
}

TEST(Disc, ChecksWidths) {
    struct Row {
        std::vector<double> x, y, z;
        const char * fault; ///< nullptr: valid
    };
    const std::string invalid = "Invalid discretization found in section 'Discretization', ";
    for (const Row & row : {
             Row{{1},    {1},      {0},    nullptr                                          },
             Row{{},     {},       {1},    "x-steps vector is missing."                     },
             Row{{0},    {},       {1},    "y-steps vector is missing."                     },
             Row{{0},    {1},      {},     "z-steps vector is missing."                     },
             Row{{1, 0}, {0},      {1},    "x-steps vector contains negative or zero width."},
             Row{{1},    {0},      {1},    "y-steps vector contains negative or zero width."},
             Row{{1},    {1},      {-1},   "z-steps vector contains negative or zero width."},
             Row{{1},    {1},      {0, 1}, "z-steps vector contains negative or zero width."},
             Row{{1},    {1, NAN}, {1},    "y-steps vector contains negative or zero width."}
    }) {
        Disc disc;
        disc.m_xSteps.m_data = row.x;
        disc.m_ySteps.m_data = row.y;
        disc.m_zSteps.m_data = row.z;
        if (row.fault == nullptr) {
            EXPECT_NO_THROW(disc.checkParameters());
            continue;
        }
        const KOR::Exception ex = caught([&] { disc.checkParameters(); });
        EXPECT_EQ(ex.cause(), invalid + row.fault);
        EXPECT_EQ(ex.chain().back(),
                  (KOR::Exception::Entry{"Disc has invalid parameters.", "[Disc::checkParameters]"}));
    }
}

TEST(DiscGenerators, SimpleLayers) {
    std::vector<double> steps;
    for (const unsigned int mode : {0u, 1u, 2u, 3u, 4u})
        for (const bool geometric : {false, true}) {
            Disc::discretizeWidth(0.1, mode, 0.2, 0.01, 1.3, geometric, steps);
            EXPECT_EQ(steps, std::vector<double>{0.1});
        }
    Disc::discretizeWidth(0.1, 3, 0.05, 1, 1.3, true, steps);
    EXPECT_EQ(steps, (std::vector<double>{0.1 / 3, 0.1 / 3, 0.1 - 2 * (0.1 / 3)}));
    Disc::discretizeWidth(0.1, 4, 0.001, 1, 1.3, true, steps);
    EXPECT_TRUE(steps.empty());
}

TEST(DiscGenerators, GeometricCells) {
    std::vector<double> steps;
    Disc::doubleSidedDisc(10, 1, 2, steps); // 1 2, then 4 are left: two halves
    EXPECT_EQ(steps, (std::vector<double>{1, 2, 2, 2, 2, 1}));
    Disc::doubleSidedDisc(5, 1, 2, steps); // 1, then 3 are left: half of it is more than 1
    EXPECT_EQ(steps, (std::vector<double>{1, 1.5, 1.5, 1}));
    Disc::doubleSidedDisc(3.5, 1, 2, steps); // one middle cell of 1.5
    EXPECT_EQ(steps, (std::vector<double>{1, 1.5, 1}));
    Disc::doubleSidedDisc(11, 1, 1.5, steps); // 1 1.5, then 6 are left, less than 3 * 2.25: three thirds
    EXPECT_EQ(steps, (std::vector<double>{1, 1.5, 2, 2, 2, 1.5, 1}));
    Disc::doubleSidedDisc(4.75, 1, 1.2, steps); // thirds of 2.75 were less than 1: two halves
    EXPECT_EQ(steps, (std::vector<double>{1, 1.375, 1.375, 1}));
    Disc::singleSidedDisc(8, 1, 2, steps); // 1 2 4, and 1 is left: with 4 and 2 four cells of the same width
    EXPECT_EQ(steps, (std::vector<double>{1, 1.75, 1.75, 1.75, 1.75}));
    Disc::singleSidedDisc(5, 1, 1, steps); // the rest pulls in all
    EXPECT_EQ(steps.size(), 6u);
    EXPECT_DOUBLE_EQ(steps.front(), 5. / 6);
}

TEST(DiscGenerators, FillTheLayerAndGrowGently) {
    for (const double width : {0.0125, 0.1, 0.24, 0.365, 1.0, 7.3})
        for (const double share : {0.33, 0.1, 0.013, 0.0021})
            for (const double stretch : {1.0, 1.05, 1.3, 2.0, 3.7}) {
                SCOPED_TRACE(testing::Message() << width << ' ' << share << ' ' << stretch);
                const double minStep = share * width;
                std::vector<double> steps;
                Disc::doubleSidedDisc(width, minStep, stretch, steps);
                EXPECT_EQ(sum(steps), width);
                for (std::size_t i = 0; i < steps.size() / 2; ++i)
                    EXPECT_NEAR(steps[i], steps[steps.size() - 1 - i], 1e-12 * width);
                EXPECT_GE(steps.front(), minStep * 0.99);
                Disc::singleSidedDisc(width, minStep, stretch, steps);
                EXPECT_NEAR(sum(steps), width, 1e-15 * width);
                for (std::size_t i = 1; i < steps.size(); ++i)
                    EXPECT_GT(steps[i], 0);
            }
}

TEST(DiscGenerators, RefuseWhatLeadsNowhere) {
    std::vector<double> steps;
    for (const auto generator : {&Disc::doubleSidedDisc, &Disc::singleSidedDisc}) {
        const KOR::Exception ex = caught([&] { generator(1.0, 0.4, 1.3, steps); });
        EXPECT_EQ(
            ex.chain().front(),
            (KOR::Exception::Entry{"Minimum step size is too large, must be smaller than minimum element width / 3.",
                                   "[Disc::doubleSidedDisc]"}));
        for (const auto & [minStep, stretch] : {
                 std::pair{0.0,  1.3 },
                 {-1.0, 1.3 },
                 {0.1,  0.0 },
                 {0.1,  -2.0},
                 {0.1,  NAN },
                 {1e-9, 1.0 },
                 {0.01, 0.5 }
        })
            EXPECT_THROW(generator(1.0, minStep, stretch, steps), KOR::Exception) << minStep << ' ' << stretch;
    }
    EXPECT_THROW(Disc::discretizeWidth(1, 3, 1e-12, 0, 1e-9, false, steps), KOR::Exception);
    EXPECT_THROW(Disc::discretizeWidth(1, 3, 0.1, 1e-12, 1.3, true, steps), KOR::Exception);
}

TEST(DiscGenerators, TangentGridsCloseOnTheirPositions) {
    std::vector<double> steps;
    const double inf = std::numeric_limits<double>::infinity();
    Disc::discretizeWidth(1, Disc::MODE_BOTH, 0.01, inf, 2, false, steps);
    // n = floor(1 / ((2 * 0.01 - 1) * tanh(2) / 4 + 0.5) + 0.5) = 4
    ASSERT_EQ(steps.size(), 4u);
    EXPECT_NEAR(steps[0], 0.5 * (1 - std::tanh(1.0) / std::tanh(2.0)), 1e-15);
    EXPECT_NEAR(steps[1], steps[2], 1e-15);
    EXPECT_NEAR(steps[3], 0, 1e-15);
    Disc::discretizeWidth(1, Disc::MODE_START, 0.01, inf, 2, false, steps);
    std::vector<double> mirrored;
    Disc::discretizeWidth(1, Disc::MODE_END, 0.01, inf, 2, false, mirrored);
    std::reverse(mirrored.begin(), mirrored.end());
    EXPECT_EQ(steps, mirrored);
    EXPECT_GE(steps.size(), 3u);
    EXPECT_NEAR(steps.back(), 0, 1e-15);
}

TEST(DiscGenerators, MaximumStep) {
    struct Row {
        std::vector<double> before;
        double maxStep;
        std::vector<double> after;
    };
    for (const Row & row : {
             Row{{1, 2, 1},         2, {1, 2, 1}                                             },
             Row{{1, 5, 1},         2, {1, 5. / 3, 5. / 3, 5 - 2 * (5. / 3), 1}              },
             Row{{1, 2, 2.5, 2, 1}, 2, {1, 6.5 / 4, 6.5 / 4, 6.5 / 4, 6.5 - 3 * (6.5 / 4), 1}},
             Row{{4, 1, 4},         2, {1.8, 1.8, 1.8, 1.8, 9 - 4 * 1.8}                     },
             Row{{4, 1},            0, {4, 1}                                                },
             Row{{},                1, {}                                                    }
    }) {
        std::vector<double> steps = row.before;
        Disc::applyMaxStepSize(steps, row.maxStep);
        ASSERT_EQ(steps.size(), row.after.size());
        for (std::size_t i = 0; i < steps.size(); ++i)
            EXPECT_NEAR(steps[i], row.after[i], 1e-14);
        EXPECT_DOUBLE_EQ(sum(steps), sum(row.before));
    }
}

Assignments assignments(std::initializer_list<std::pair<Assignment::location_t, const char *>> rows) {
    Assignments list;
    for (const auto & [location, range] : rows)
        list.m_list.emplace_back(Assignment::type_t::Interface, location, Range::fromString(range), "surface");
    return list;
}

std::vector<std::string> ranges(const Assignments & list) {
    std::vector<std::string> texts;
    for (const Assignment & assignment : list.m_list)
        texts.push_back(assignment.m_range.toString());
    return texts;
}

TEST(Disc, AssignmentsFollowModifiedCells) {
    using enum Assignment::location_t;
    struct Row {
        const char * name;
        std::size_t first, count;
        std::vector<double> widths;
        std::vector<std::string> ranges; ///< of the first and last column where not "gone"
    };
    // Cells 1 2 3 4 wide; a range before, over, behind and across cell 1; thin sides of cell 1
    const auto before = assignments({
        {Element, "0 0 0 0"},
        {Element, "1 0 1 0"},
        {Element, "2 0 3 0"},
        {Element, "0 0 3 0"},
        {Left,    "1 0 1 0"},
        {Right,   "1 0 1 0"},
        {Top,     "1 0 1 0"}
    });
    for (const Row & row : {
             Row{"Same",            1, 1, {5},                {"0 0", "1 1", "2 3", "0 3", "1 1", "1 1", "1 1"}    },
             Row{"Split",           1, 1, {0.5, 1, 0.5},      {"0 0", "1 3", "4 5", "0 5", "1 1", "3 3", "1 3"}    },
             Row{"Merged",          0, 2, {3},                {"gone", "0 0", "1 2", "0 2", "0 0", "0 0", "0 0"}   },
             Row{"MergedWithWider", 1, 2, {5},                {"0 0", "gone", "1 2", "0 2", "gone", "gone", "gone"}},
             Row{"Removed",         1, 1, {},                 {"0 0", "gone", "1 2", "0 2", "gone", "gone", "gone"}},
             Row{"InsertedBehind",  2, 0, {1, 1},             {"0 0", "1 3", "4 5", "0 5", "1 1", "3 3", "1 3"}    },
             Row{"InsertedInFront", 0, 0, {1},                {"0 1", "2 2", "3 4", "0 4", "2 2", "2 2", "2 2"}    },
             Row{"Regridded",       0, 3, {1, 1, 1, 1, 1, 1}, {"0 0", "1 2", "3 6", "0 6", "1 1", "2 2", "1 2"}    },
    }) {
        SCOPED_TRACE(row.name);
        Disc disc;
        disc.m_xSteps.m_data = {1, 2, 3, 4};
        Assignments after = before;
        const auto gone = disc.modifySteps(Disc::X, row.first, row.count, row.widths, after);
        EXPECT_EQ(disc.nx(), 4 - row.count + row.widths.size());
        EXPECT_NO_THROW(after.checkParameters(disc));
        std::vector<std::string> expected;
        for (const std::string & range : row.ranges)
            if (range != "gone") {
                const auto blank = range.find(' ');
                expected.push_back(
                    Range::fromString(range.substr(0, blank) + " 0" + range.substr(blank) + " 0").toString());
            }
        EXPECT_EQ(ranges(after), expected);
        EXPECT_EQ(gone.size() + after.size(), before.size());
    }
}

TEST(Disc, ModifyStepsRefuses) {
    Disc disc;
    disc.m_xSteps.m_data = {1, 2};
    Assignments none;
    const KOR::Exception ex = caught([&] { disc.modifySteps(3, 0, 1, {1}, none); });
    EXPECT_EQ(ex.chain().front(), (KOR::Exception::Entry{"Invalid argument for dir.", "[Disc::modifySteps]"}));
    EXPECT_THROW(disc.modifySteps(Disc::X, 1, 2, {1}, none), KOR::Exception);
    EXPECT_THROW(disc.modifySteps(Disc::X, 3, 0, {1}, none), KOR::Exception);
    EXPECT_THROW(disc.modifySteps(Disc::X, 0, 1, {0}, none), KOR::Exception);
    EXPECT_THROW(disc.modifySteps(Disc::X, 0, 2, {}, none), KOR::Exception);
    EXPECT_EQ(disc.m_xSteps.m_data, (std::vector<double>{1, 2}));
}

TEST(Disc, AutomaticDiscretization) {
    using enum Assignment::location_t;
    Disc disc;
    disc.m_xSteps = {
        {150, 365, 20},
        KOR::Unit("mm")
    };
    Assignments list = assignments({
        {Element, "0 0 0 0"},
        {Element, "1 0 1 0"},
        {Element, "2 0 2 0"},
        {Left,    "0 0 0 0"},
        {Right,   "2 0 2 0"},
        {Right,   "1 0 1 0"}
    });
    BoundaryIDGrid grid;
    std::vector<Disc::LayerSettings> columns(3);
    columns[0].isGeometric = false;
    columns[0].mode = Disc::MODE_END;
    columns[0].stretch = 2;
    columns[1].maxStep = 0.02;
    columns[2].mode = Disc::MODE_NONE;
    disc.autoDisc(columns, {}, {}, list, grid);
    EXPECT_NO_THROW(disc.checkParameters());
    EXPECT_NO_THROW(list.checkParameters(disc));
    // Each layer keeps its width, the cells of one end where those of the next begin.
    std::uint32_t next = 0;
    for (const auto & [layer, width] : {
             std::pair<std::size_t, double>{0, 150},
              {1, 365},
              {2, 20 }
    }) {
        const Range & range = list.m_list[layer].m_range;
        EXPECT_EQ(range.left, next);
        next = range.right + 1;
        const auto first = disc.m_xSteps.m_data.begin();
        EXPECT_NEAR(std::accumulate(first + range.left, first + next, 0.0), width, 1e-10);
        for (std::uint32_t i = range.left; i < next; ++i)
            EXPECT_LE(disc.m_xSteps.m_data[i], (layer == 1 ? 20 : 50) + 1e-9);
    }
    EXPECT_EQ(next, disc.nx());
    EXPECT_EQ(list.m_list[3].m_range.right, 0u);
    EXPECT_EQ(list.m_list[4].m_range.left, disc.nx() - 1);
    EXPECT_EQ(list.m_list[5].m_range.left, list.m_list[1].m_range.right);
    EXPECT_EQ(grid.at(0, 0, 0), 1u);
    EXPECT_EQ(grid.at(disc.nx() - 1, 0, 0), 2u);

    const Disc before = disc;
    columns.resize(2);
    EXPECT_THROW(disc.autoDisc(columns, {}, {}, list, grid), KOR::Exception);
    EXPECT_THROW(disc.autoDisc({}, std::vector<Disc::LayerSettings>{{.mode = 7}}, {}, list, grid), KOR::Exception);
    EXPECT_EQ(disc, before);
}

} // namespace
