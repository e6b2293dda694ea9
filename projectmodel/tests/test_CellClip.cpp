#include <HYGRION/CellClip.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <filesystem>
#include <random>

namespace {

using namespace HYGRION;
using enum Assignment::type_t;
using enum Assignment::location_t;
using edit::CellClip;

/// Two projects in folders of their own, each with a material file "a.m6" beside it.
class CellClips : public testing::Test {
protected:
    CellClips() {
        for (const char * name : {"one", "two"}) {
            std::filesystem::create_directories(m_folder / name);
            KOR::writeFile((m_folder / name / "a.m6").string(), name);
            KOR::writeFile((m_folder / name / "rain.ccd").string(), name);
        }
    }
    ~CellClips() override { std::filesystem::remove_all(m_folder); }

    Project project(const char * folder) const {
        Project p;
        p.m_fileName = (m_folder / folder / "wall.h6p").string();
        p.m_disc.m_xSteps.m_data = {0.1, 0.1};
        for (const char * name : {"Brick", "Spare"})
            p.m_materials.push_back({name, {}, 1, KOR::Path("${Project Directory}/a.m6")});
        p.m_materials.back().m_filename = KOR::Path("spare.m6"); // does not exist, and nobody needs it
        ClimateCond & rain = p.m_conditions.m_climateConditions.emplace_back();
        rain.m_name = "Rain";
        rain.m_type = ClimateCond::condition_t::RainFluxNormal;
        rain.m_kind = ClimateCond::kind_t::TabulatedData;
        rain.m_filename = KOR::Path("rain.ccd");
        p.m_conditions.m_climateConditions.emplace_back().m_name = "Unused";
        p.m_conditions.m_schedules.emplace_back().m_name = "Summer";
        BoundaryCond & wet = p.m_conditions.m_boundaryConditions.emplace_back();
        wet.m_name = "Wet";
        wet.m_ccReferences[ClimateCond::condition_t::RainFluxNormal] = "Rain";
        wet.m_schedule = "Summer";
        class Interface & outside = p.m_conditions.m_interfaces.emplace_back();
        outside.m_name = "Outside";
        outside.m_bcReferences = {"Wet"};
        p.m_outputs.m_outputGrids.emplace_back().m_name = "Hourly";
        OutputFile & file = p.m_outputs.m_outputFiles.emplace_back();
        file.m_name = "Field";
        file.m_outputGrid = "Hourly";
        p.m_assignments.m_list = {
            {Material,  Element, Range{.right = 1}, "Brick"  },
            {Interface, Left,    Range{},           "Outside"},
            {Output,    Element, Range{.right = 1}, "Field"  }
        };
        return p;
    }
    CellClip clip() const {
        const Project source = project("one");
        return CellClip::fromText(CellClip::copy(source, {.right = 1}).text());
    }
    static std::vector<std::string> names(const Project & p) {
        std::vector<std::string> all;
        forEachDefinitionList(p, [&](definition_t, const auto & list) {
            for (const auto & item : list)
                all.push_back(item.m_name);
        });
        return all;
    }
    Project empty() const {
        Project p;
        p.m_fileName = (m_folder / "two" / "wall.h6p").string();
        return p;
    }

    std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("hygrion_test_clips_" + std::to_string(std::random_device()()));
};

TEST_F(CellClips, BringAllThatTheyNeedAndNothingElse) {
    Project target = empty();
    CellClip copied = clip();
    EXPECT_EQ(copied.addTo(target), 7u);
    EXPECT_THAT(names(target),
                testing::UnorderedElementsAre("Brick", "Outside", "Wet", "Rain", "Summer", "Field", "Hourly"));
    EXPECT_EQ(target.resolved(target.m_materials[0].m_filename).str(), (m_folder / "one" / "a.m6").string());
    EXPECT_EQ(target.resolved(target.m_conditions.m_climateConditions[0].m_filename).str(),
              (m_folder / "one" / "rain.ccd").string());
    EXPECT_EQ(copied.block.assignments, project("one").m_assignments);
    EXPECT_TRUE(target.danglingReferences().empty());
    // Of a part only what that needs.
    CellClip part = CellClip::copy(project("one"), {.right = 1});
    part.block.assignments.m_list[0].m_range = part.block.assignments.m_list[2].m_range = {.left = 1, .right = 1};
    part.crop(1, 1, 1);
    EXPECT_THAT(names(part.definitions), testing::UnorderedElementsAre("Outside", "Wet", "Rain", "Summer"));
    EXPECT_EQ(part.block.nx, 1u);
    // Once more: all is there.
    CellClip again = clip();
    EXPECT_EQ(again.addTo(target), 0u);
    EXPECT_EQ(again.block.assignments, project("one").m_assignments);
}

TEST_F(CellClips, GiveNamesOfTheirOwnToWhatMeansSomethingElse) {
    Project target = project("two"); // the same names, other files
    CellClip copied = clip();
    EXPECT_EQ(copied.addTo(target), 4u) << "what refers to another one is another one";
    EXPECT_EQ(target.m_materials.back().m_name, "Brick (2)");
    EXPECT_EQ(target.m_conditions.m_climateConditions.back().m_name, "Rain (2)");
    EXPECT_EQ(target.m_conditions.m_boundaryConditions.back().m_ccReferences.begin()->second, "Rain (2)");
    EXPECT_EQ(target.m_conditions.m_interfaces.back().m_bcReferences.front(), "Wet (2)");
    EXPECT_EQ(copied.block.assignments.m_list[0].m_reference, "Brick (2)");
    EXPECT_EQ(copied.block.assignments.m_list[1].m_reference, "Outside (2)");
    EXPECT_EQ(copied.block.assignments.m_list[2].m_reference, "Field") << "the same";
    EXPECT_TRUE(target.danglingReferences().empty());
    const Project before = target;
    CellClip again = clip();
    EXPECT_EQ(again.addTo(target), 0u) << "no third one";
    EXPECT_EQ(target, before);
    EXPECT_EQ(again.block, copied.block);
}

TEST_F(CellClips, UseTheSameMaterialUnderItsNameThere) {
    Project target = empty();
    target.m_materials.push_back({"Old brick", {}, 5, KOR::Path("../one/./a.m6")});
    CellClip copied = clip();
    copied.addTo(target);
    EXPECT_EQ(target.m_materials.size(), 1u);
    EXPECT_EQ(copied.block.assignments.m_list[0].m_reference, "Old brick");
}

TEST_F(CellClips, SayWhatCannotBeBroughtAlong) {
    const auto problem = [&](CellClip copied) {
        try {
            Project target = empty();
            copied.addTo(target);
        } catch (const KOR::Exception & ex) {
            return ex.cause();
        }
        return std::string();
    };
    CellClip copied = clip();
    std::filesystem::remove(m_folder / "one" / "a.m6");
    EXPECT_EQ(problem(copied), "File '" + (m_folder / "one" / "a.m6").string() + "' of 'Brick' does not exist.");
    Project same = project("one");
    EXPECT_EQ(copied.addTo(same), 0u) << "where it is missing already nothing is lost";
    Project source = project("two");
    source.m_assignments.m_list[0].m_reference = "Granite";
    EXPECT_EQ(problem(CellClip::copy(source, {.right = 1})),
              "'Granite' is defined neither in this project nor among the copied cells.");
    // What no file could hold either does not keep cells from being copied within their project.
    source.m_conditions.m_climateConditions[0].m_kind = {};
    CellClip bare = CellClip::fromText(CellClip::copy(source, {.right = 1}).text());
    EXPECT_EQ(bare.definitions, Project());
    bare.block.assignments.m_list.erase(bare.block.assignments.m_list.begin());
    EXPECT_EQ(bare.addTo(source), 0u);
    EXPECT_THROW(
        CellClip::fromText("<HygrionCells nx='1' ny='1' nz='1'><HygrionProject><x/></HygrionProject></HygrionCells>"),
        KOR::Exception);
}

} // namespace
