#include "XmlTesting.h"

#include <HYGRION/Assessment.h>
#include <HYGRION/Disc.h>

namespace {

using namespace HYGRION;
using namespace testing_xml;

TEST(Range, ReadsBothForms) {
    struct Row {
        const char * text;
        const char * written; ///< nullptr: refused
    };
    for (const Row & row : {
             Row{"3 0 1 0",          "1 0 3 0"         },
             Row{"0 0 0 5 2 1",      "0 0 0 5 2 1"     },
             Row{" 1\t2\n3 4 ",      "1 2 3 4"         },
             Row{"5 6 7 2 3 4",      "2 3 4 5 6 7"     },
             Row{"1 2 3 4 5",        "1 2 3 4"         },
             Row{"1 2 3 4 x y",      "1 2 3 4"         },
             Row{"4294967295 0 0 0", "0 0 4294967295 0"},
             Row{"1 2 3",            nullptr           },
             Row{"",                 nullptr           },
             Row{"-1 0 0 0",         nullptr           },
             Row{"4294967296 0 0 0", nullptr           },
             Row{"a b c d",          nullptr           }
    }) {
        const std::string content = KOR::text("<Range>%1</Range>", row.text);
        if (row.written != nullptr) {
            EXPECT_EQ(written(read<Range>(content)), KOR::text("<Root>\n  <Range>%1</Range>\n</Root>\n", row.written));
            continue;
        }
        const KOR::Exception ex = caught([&] { read<Range>(content); });
        const std::string trimmed = row.text;
        EXPECT_EQ(ex.cause(), "Error in XML file, line 1: Invalid or unsupported range format '" + trimmed + "'");
        EXPECT_EQ(ex.chain().front().where, "[Range::fromString]");
        EXPECT_EQ(ex.chain().back(),
                  (KOR::Exception::Entry{"Error reading range '" + trimmed + "'.", "[Range::readXML]"}));
    }
    EXPECT_EQ(Range::fromString("1 0 3 2").toString(), "[1, 0, 0] - [3, 2, 0]");
}

struct Fault {
    const char * name;
    const char * content;
    const char * cause;
    const char * outermost;
};

class AssignmentFaults : public testing::TestWithParam<Fault> {};

TEST_P(AssignmentFaults, AreNamedWithTheirLine) {
    const KOR::Exception ex = caught([] { read<Assignment>(GetParam().content); });
    EXPECT_EQ(ex.cause(), KOR::text("Error in XML file, line 1: %1", GetParam().cause));
    EXPECT_TRUE(ex.message().ends_with(GetParam().outermost)) << ex.message();
    EXPECT_TRUE(ex.chain().back().where == "[Assignment::readXML]") << ex.chain().back().where;
}

#define ASSIGNMENT(INNER) "<Assignment type='Material' location='Element'>" INNER "</Assignment>"

INSTANTIATE_TEST_SUITE_P(
    Xml, AssignmentFaults,
    testing::Values(
        Fault{"NoType", "<Assignment location='Left'/>", "Expected 'type' attribute in Assignment.",
              "Expected 'type' attribute in Assignment."},
        Fault{"NoLocation", "<Assignment type='Output'/>", "Expected 'location' attribute in Assignment.",
              "Expected 'location' attribute in Assignment."},
        Fault{"WrongType", "<Assignment type='Wall' location='Left'/>",
              "Cannot determine enumeration value for enumeration type 'Assignment::type_t' and keyword 'Wall'.",
              "Invalid value for 'type' attribute in Assignment."},
        Fault{"WrongLocation", "<Assignment type='Output' location='left'/>",
              "Cannot determine enumeration value for enumeration type 'Assignment::location_t' and keyword 'left'.",
              "Invalid value for 'location' attribute in Assignment."},
        Fault{"InterfaceInside", "<Assignment type='Interface' location='Element'/>",
              "Invalid location for assignment of type 'Interface'.",
              "Invalid location for assignment of type 'Interface'."},
        Fault{"ContactInside", "<Assignment type='ContactCondition' location='Element'/>",
              "Invalid location for assignment of type 'ContactCondition'.",
              "Invalid location for assignment of type 'ContactCondition'."},
        Fault{"Tag", ASSIGNMENT("<Colour/>"), "Unknown XML tag with name 'Colour' in Assignment element.",
              "Unknown XML tag with name 'Colour' in Assignment element."},
        Fault{"Range", ASSIGNMENT("<Range>1 2</Range>"), "Invalid or unsupported range format '1 2'",
              "Error reading range '1 2'.\nError reading element 'Range in Assignment element."},
        Fault{"Mapping", ASSIGNMENT("<Mapping>XYZ</Mapping>"),
              "Cannot determine enumeration value for enumeration type 'Assignment::AnisotropyInitType' and keyword "
              "'XYZ'.",
              "\nError reading element 'Mapping in Assignment element."},
        Fault{"ElementID",
              ASSIGNMENT("<DirectionRotationMatrix><RotationMatrixInstance elementID='x'>1 0 0 0 1 0 0 0 "
                         "1</RotationMatrixInstance></DirectionRotationMatrix>"),
              "Could not convert 'x' into value.",
              "\nError reading element 'DirectionRotationMatrix in Assignment element."},
        Fault{"EightNumbers",
              ASSIGNMENT("<DirectionRotationMatrix><RotationMatrixInstance elementID='1'>1 0 0 0 1 0 0 0"
                         "</RotationMatrixInstance></DirectionRotationMatrix>"),
              "Expected 9 numbers, found 8.",
              "\nError reading element 'DirectionRotationMatrix in Assignment element."},
        Fault{"Point", ASSIGNMENT("<KOR:Point3D>1 2 inf</KOR:Point3D>"), "Could not convert 'inf' into value.",
              "\nError reading element 'KOR:Point3D in Assignment element."}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST(Assignments, ReadWhatTheyWrite) {
    using enum Assignment::type_t;
    using enum Assignment::location_t;
    Assignments list;
    list.m_list.emplace_back(Material, Element, Range::fromString("0 0 3 0"), "Brick & <Mortar>");
    list.m_list.back().m_name = "outer leaf";
    list.m_list.back().m_anisotropy = Assignment::AnisotropyInitType::UserMatrix;
    list.m_list.back().m_rotationMatrices = {
        {.elementID = 7, .values = {0, -1, 0, 1, 0, 0, 0, 0, 1}},
        {              }
    };
    list.m_list.emplace_back(Interface, Left, Range::fromString("0 0 0 0 4 2"), "Outside");
    list.m_list.emplace_back(Output, Coordinate, Range(), "Field");
    list.m_list.back().m_coordinates = {.x = 0.1, .y = 1.0 / 3, .z = 0};
    const std::string text = written(list);
    const Parsed file(text);
    Assignments again;
    again.readXML(*file.root().FirstChildElement());
    EXPECT_EQ(again, list);
    EXPECT_EQ(written(again), text);
    EXPECT_NE(text.find("<!-- List of all assignments of materials and conditions -->"), std::string::npos);
    EXPECT_EQ(written(Assignments()), "<Root />\n");
    EXPECT_TRUE(list.m_list[0].m_rotationMatrices[0].isRotation());
    EXPECT_FALSE((RotationMatrix{
        .elementID = 0,
        .values = {-1, 0, 0, 0, 1, 0, 0, 0,
                   1}
    }.isRotation()));
}

TEST(Assignments, AreCheckedAgainstTheGrid) {
    using enum Assignment::location_t;
    Disc disc;
    disc.m_xSteps.m_data = {1, 1, 1};
    disc.m_ySteps.m_data = {1, 1};
    struct Row {
        Range range;
        const char * fault;
    };
    for (const Row & row : {
             Row{{0, 0, 0, 2, 1, 0}, nullptr                               },
             Row{{3, 2, 1, 3, 2, 1}, "Invalid attribute 'left' in Range."  },
             Row{{0, 2, 0, 3, 2, 0}, "Invalid attribute 'right' in Range." },
             Row{{0, 2, 0, 0, 2, 0}, "Invalid attribute 'bottom' in Range."},
             Row{{0, 0, 1, 0, 2, 1}, "Invalid attribute 'top' in Range."   },
             Row{{0, 0, 1, 0, 0, 1}, "Invalid attribute 'back' in Range."  },
             Row{{0, 0, 0, 0, 0, 1}, "Invalid attribute 'front' in Range." }
    }) {
        Assignments list;
        list.m_list.emplace_back(Assignment::type_t::Material, Element, row.range, "Brick");
        if (row.fault == nullptr) {
            EXPECT_NO_THROW(list.checkParameters(disc));
            continue;
        }
        const KOR::Exception ex = caught([&] { list.checkParameters(disc); });
        EXPECT_EQ(ex.chain().front(), (KOR::Exception::Entry{row.fault, "[Assignment::checkParameters]"}));
        EXPECT_EQ(ex.chain().back(),
                  (KOR::Exception::Entry{"Assignments have invalid parameters.", "[Assignments::checkParameters]"}));
    }
    Assignment point(Assignment::type_t::Output, Coordinate, {9, 9, 9, 9, 9, 9}, "Field");
    EXPECT_NO_THROW(point.checkParameters(disc));
    for (const auto & [coordinates, fault] : {
             std::pair<Point3D, const char *>{{-0.001, -1, -1}, "Invalid x-coordinate."},
             {{0, -1, -1},      "Invalid y-coordinate."},
             {{0, 0, -1},       "Invalid z-coordinate."}
    }) {
        point.m_coordinates = coordinates;
        EXPECT_EQ(caught([&] { point.checkParameters(disc); }).message(), fault);
    }
}

TEST(AssignmentGrid, ListsFollowTheOrder) {
    using enum Assignment::type_t;
    using enum Assignment::location_t;
    Assignments list;
    const auto add = [&list](Assignment::location_t location, const Range & range) {
        list.m_list.emplace_back(location == Element ? Material : Interface, location, range, "x");
    };
    //                left, bottom, back, right, top, front
    add(Element, {0, 0, 0, 2, 1, 1}); // 0: all
    add(Element, {1, 0, 0, 2, 0, 0}); // 1
    add(Element, {2, 0, 0, 2, 1, 1}); // 2
    add(Left, {0, 0, 0, 1, 1, 0});    // 3: outer
    add(Right, {0, 0, 0, 2, 0, 0});   // 4: outer
    add(Right, {0, 0, 0, 0, 0, 0});   // 5: inner, before column 1
    add(Left, {2, 1, 1, 2, 1, 1});    // 6: inner
    add(Top, {0, 0, 0, 0, 1, 0});     // 7: outer
    add(Top, {1, 0, 0, 1, 0, 0});     // 8: inner, below row 1
    add(Bottom, {0, 0, 0, 0, 0, 0});  // 9: outer
    add(Back, {0, 0, 1, 0, 0, 1});    // 10: inner
    add(Front, {0, 0, 0, 0, 0, 1});   // 11: outer
    add(Left, {0, 0, 0, 0, 0, 0});    // 12: outer, after 3
    add(Coordinate, {9, 9, 9, 9, 9, 9});

    AssignmentGrid grid;
    Discretization::updateDiscAssignmentGrid(3, 2, 2, list, grid);
    using List = std::vector<std::uint32_t>;
    EXPECT_EQ(grid.elements(0, 0, 0), (List{0}));
    EXPECT_EQ(grid.elements(1, 0, 0), (List{0, 1}));
    EXPECT_EQ(grid.elements(2, 0, 0), (List{0, 1, 2}));
    EXPECT_EQ(grid.elements(2, 1, 1), (List{0, 2}));
    EXPECT_EQ(grid.elementList(2, 1, 1), grid.elementList(2, 0, 1));
    EXPECT_EQ(grid.sides(0, 0, 0, Left), (List{3, 12}));
    EXPECT_EQ(grid.sides(0, 1, 0, Left), (List{3}));
    EXPECT_EQ(grid.sides(0, 1, 1, Left), (List{}));
    EXPECT_EQ(grid.sides(1, 0, 0, Left), (List{}));
    EXPECT_EQ(grid.sides(2, 0, 0, Right), (List{4}));
    EXPECT_EQ(grid.sides(0, 1, 0, Top), (List{7}));
    EXPECT_EQ(grid.sides(0, 0, 0, Top), (List{}));
    EXPECT_EQ(grid.sides(0, 0, 0, Bottom), (List{9}));
    EXPECT_EQ(grid.sides(0, 0, 0, Back), (List{}));
    EXPECT_EQ(grid.sides(0, 0, 1, Front), (List{11}));
    EXPECT_EQ(grid.list(grid.faceList(AssignmentGrid::X, 1, 0, 0)), (List{5}));
    struct Row {
        std::size_t i, j, k;
        std::uint32_t flags;
    };
    for (const Row & row : {
             Row{0, 0, 0, 0                           },
             Row{1, 0, 0, AssignmentGrid::INNER_LEFT  },
             Row{2, 1, 1, AssignmentGrid::INNER_LEFT  },
             Row{1, 1, 0, AssignmentGrid::INNER_BOTTOM},
             Row{0, 0, 1, AssignmentGrid::INNER_BACK  },
             Row{2, 0, 0, 0                           }
    })
        EXPECT_EQ(grid.flags(row.i, row.j, row.k), row.flags) << row.i << row.j << row.k;

    BoundaryIDGrid boundary;
    add(Left, {1, 0, 0, 8, 8, 0}); // the part outside of the grid is skipped
    Discretization::updateBoundaryIDGrid(3, 2, 2, list, boundary);
    EXPECT_EQ(boundary.at(0, 0, 0), 1u | 2u | 8u | 4u | 32u);
    EXPECT_EQ(boundary.at(2, 1, 0), 1u);
    EXPECT_EQ(boundary.at(2, 0, 0), 1u | 2u);
    EXPECT_EQ(boundary.at(0, 0, 1), 16u | 32u);
    EXPECT_EQ(boundary.at(1, 1, 1), 0u);
}

TEST(AssignmentGrid, RefusesBadRangesAndSizes) {
    Assignments list;
    list.m_list.emplace_back(Assignment::type_t::Material, Assignment::location_t::Element, Range{1, 0, 0, 0, 0, 0},
                             "Brick");
    AssignmentGrid grid;
    BoundaryIDGrid boundary;
    KOR::Exception ex = caught([&] { Discretization::updateDiscAssignmentGrid(2, 1, 1, list, grid); });
    EXPECT_EQ(ex.chain().front(),
              (KOR::Exception::Entry{"Invalid range '[1, 0, 0] - [0, 0, 0]' in assignment 'Material Brick'.",
                                     "[Discretization::updateDiscAssignmentGrid]"}));
    list.m_list[0].m_range = {0, 0, 0, 2, 0, 0};
    ex = caught([&] { Discretization::updateDiscAssignmentGrid(2, 1, 1, list, grid); });
    EXPECT_EQ(ex.message(),
              "An index in the range '[0, 0, 0] - [2, 0, 0]' in assignment 'Material Brick' is out of grid range.");
    for (const std::array<std::size_t, 3> & n : {
             std::array<std::size_t, 3>{SIZE_MAX, 2,            1       },
             {1u << 20, 1u << 20,     1       },
             {1u << 14, 1u << 14,     1u << 14},
             {1,        SIZE_MAX / 2, 4       }
    }) {
        ex = caught([&] { Discretization::updateBoundaryIDGrid(n[0], n[1], n[2], list, boundary); });
        EXPECT_EQ(ex.chain().front(),
                  (KOR::Exception::Entry{"The grid is too large (can't allocate continuous memory)! ",
                                         "[Discretization::updateBoundaryIDGrid]"}));
    }
}

TEST(Assessment, ReadsWhatItWritesAndKnowsItsLimits) {
    Assessment mould;
    mould.m_name = "Mould";
    mould.m_type = Assessment::AssessmentType::MoldGrowth;
    mould.m_assignmentType = Assessment::AssignmentType::Layer1D;
    mould.m_layer = 2;
    mould.m_criteriaSet = "sensitive";
    mould.m_limits.emplace_back("MaxMouldIndex", 1, KOR::Unit("---"));
    const Parsed file(written(mould));
    Assessment again;
    again.readXML(*file.root().FirstChildElement());
    EXPECT_EQ(again, mould);
    EXPECT_EQ(again.limit("MaxMouldIndex", "---"), 1);
    EXPECT_EQ(again.limit("DeclineFactor", "---"), 1);
    EXPECT_THROW(again.limit("AveragingDepth", "mm"), KOR::Exception);
    for (const Assessment::Limit & limit : Assessment::limits()) {
        Assessment any;
        any.m_name = "any";
        any.m_type = limit.type;
        EXPECT_EQ(any.limit(limit.name, limit.unit), limit.value);
        any.m_limits.emplace_back(std::string(limit.name), limit.value, KOR::Unit(limit.unit));
        EXPECT_NO_THROW(any.checkParameters());
        any.m_limits.emplace_back(std::string(limit.name), limit.value, KOR::Unit("W/m2K"));
        EXPECT_THROW(any.checkParameters(), KOR::Exception);
    }
    for (const char * content :
         {"<Assessment type='MoldGrowth' assignment='1DLayer'/>", "<Assessment name='a' assignment='1DLayer'/>",
          "<Assessment name='a' type='MoldGrowth' assignment='Everywhere'/>",
          "<Assessment name='a' type='MoldGrowth' assignment='1DLayer'><Layer>-1</Layer></Assessment>",
          "<Assessment name='a' type='MoldGrowth' assignment='1DLayer'><Layer>1</Layer>"
          "<Range>0 0 1 1</Range></Assessment>",
          "<Assessment name='a' type='MoldGrowth' assignment='1DLayer'><Limits/></Assessment>"}) {
        const KOR::Exception ex = caught([&] { read<Assessment>(content); });
        EXPECT_TRUE(ex.cause().starts_with("Error in XML file, line 1: ")) << ex.cause();
        EXPECT_EQ(ex.message(), "Error reading Assessment element.");
    }
}

} // namespace
