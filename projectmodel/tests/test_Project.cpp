#include "FullProject.h"
#include "XmlTesting.h"

#include <HYGRION/ProjectCheck.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <sys/resource.h>

#include <filesystem>
#include <random>

namespace {

using namespace HYGRION;
using namespace testing_xml;

/// A directory of its own for each test.
class ProjectFile : public testing::Test {
protected:
    ProjectFile() {
        const auto * test = testing::UnitTest::GetInstance()->current_test_info();
        m_directory = std::filesystem::temp_directory_path() /
                      (std::string("hygrion_") + test->name() + std::to_string(::getpid()));
        std::filesystem::create_directories(m_directory);
    }
    ~ProjectFile() override { std::filesystem::remove_all(m_directory); }

    std::string path(const char * name = "project.h6p") const { return (m_directory / name).string(); }
    std::string write(const std::string & content) const {
        KOR::writeFile(path(), content);
        return path();
    }

    std::filesystem::path m_directory;
};

/// Keeps what is reported while it lives.
class Messages : public KOR::MessageHandler {
public:
    Messages() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    ~Messages() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    void msg(const std::string & text, int type, const std::string & where, int) override {
        m_all.push_back(std::to_string(type) + ' ' + where + ' ' + text);
    }
    std::vector<std::string> m_all;
};

std::string inRoot(const std::string & inner) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<HygrionProject xmlns=\"x\" fileVersion=\"6.1\">\n" + inner +
           "\n</HygrionProject>\n";
}

Project parsedProject(const std::string & content, bool headerOnly = false) {
    Project project;
    project.readText(content, headerOnly);
    return project;
}

/// A wall that passes every check but those for files on the disk.
Project soundProject() {
    Project p;
    p.m_materials = {
        {"Brick", {}, 0, KOR::Path()},
        {"Wool",  {}, 0, KOR::Path()}
    };
    p.m_disc.m_xSteps = {
        {0.1, 0.2, 0.3},
        KOR::Unit("m")
    };
    auto & c = p.m_conditions;
    ClimateCond climate;
    climate.m_name = "Warm";
    climate.m_kind = ClimateCond::kind_t::Constant;
    climate.m_para.set(ClimateCond::para_t::ConstantValue, 20, "C");
    c.m_climateConditions = {climate};
    BoundaryCond boundary;
    boundary.m_name = "Heat";
    boundary.m_para.set(BoundaryCond::para_t::ExchangeCoefficient, 8, "W/m2K");
    boundary.m_ccReferences[ClimateCond::condition_t::Temperature] = "Warm";
    c.m_boundaryConditions = {boundary};
    Interface side;
    side.m_name = "Inside";
    side.m_bcReferences = {"Heat"};
    c.m_interfaces = {side};
    OutputGrid grid;
    grid.m_name = "hourly";
    grid.m_intervals.emplace_back().m_para.set(Interval::para_t::StepSize, 1);
    p.m_outputs.m_outputGrids = {grid};
    OutputFile file;
    file.m_name = "Field";
    file.m_quantity = "Temperature";
    file.m_outputGrid = "hourly";
    p.m_outputs.m_outputFiles = {file};
    using enum Assignment::type_t;
    using enum Assignment::location_t;
    p.m_assignments.m_list = {
        {Material,                      Element, Range::fromString("0 0 1 0"), "Brick" },
        {Material,                      Element, Range::fromString("2 0 2 0"), "Wool"  },
        {Assignment::type_t::Interface, Right,   Range::fromString("2 0 2 0"), "Inside"},
        {Output,                        Element, Range::fromString("0 0 2 0"), "Field" }
    };
    return p;
}

TEST_F(ProjectFile, KeepsEveryDigitOfAFullProject) {
    for (unsigned int seed = 0; seed < 5; ++seed) {
        const Project project = FullProject(seed).make();
        ASSERT_TRUE(project.writeXML(path()));
        Project read;
        read.readXML(path());
        EXPECT_EQ(read.m_fileName, path());
        EXPECT_EQ(read.text(), KOR::readFile(path(), 1u << 24));
        read.m_fileName.clear();
        EXPECT_EQ(read.m_projectInfo, project.m_projectInfo);
        EXPECT_EQ(read.m_placeholders, project.m_placeholders);
        EXPECT_EQ(read.m_init, project.m_init);
        EXPECT_EQ(read.m_materials, project.m_materials);
        EXPECT_EQ(read.m_disc, project.m_disc);
        EXPECT_EQ(read.m_conditions, project.m_conditions);
        EXPECT_EQ(read.m_outputs, project.m_outputs);
        EXPECT_EQ(read.m_assignments, project.m_assignments);
        EXPECT_EQ(read.m_assessments, project.m_assessments);
        EXPECT_EQ(read, project);
    }
}

TEST_F(ProjectFile, HeaderOnlyLooksAtNothingElse) {
    const std::string info = "<ProjectInfo created='c'><Location>here</Location></ProjectInfo>";
    for (const std::string & content :
         {inRoot(info + "<Init><Nonsense/></Init><Unknown/>"), "<HygrionProject fileVersion='6.0'>" + info + "<Init",
          inRoot("<Init><Nonsense/></Init>" + info), inRoot("<!--" + std::string(100000, 'x') + "-->" + info)}) {
        Project project;
        project.readXML(write(content), true);
        EXPECT_EQ(project.m_projectInfo.m_location, "here");
        EXPECT_EQ(project.m_projectInfo.m_created, "c");
        EXPECT_EQ(project.m_init, Init());
    }
    EXPECT_EQ(parsedProject("<HygrionProject fileVersion='6.7'><In", true).m_fileVersion, (KOR::Version{6, 7}));
    Project whole;
    whole.readXML(write(inRoot(info)));
    whole.m_fileName.clear();
    whole.m_projectInfo = {};
    EXPECT_EQ(whole, Project());
}

struct Fault {
    const char * name;
    std::string content;
    std::string cause; ///< innermost
    const char * where;
};

class ProjectFaults : public testing::TestWithParam<Fault> {};

TEST_P(ProjectFaults, AreNamedAndLeaveTheProjectAsItWas) {
    Project project = soundProject();
    const KOR::Exception ex = caught([&] { project.readText(GetParam().content); });
    EXPECT_EQ(ex.cause(), GetParam().cause);
    EXPECT_EQ(ex.chain().back().where, GetParam().where);
    EXPECT_EQ(project, soundProject());
}

INSTANTIATE_TEST_SUITE_P(
    Xml, ProjectFaults,
    testing::Values(
        Fault{"NotXml", "text", "Error in line 1 of project file:\nText outside of the root element.",
              "[Project::readXML]"},
        Fault{"Empty", "", "Error in line 1 of project file:\nThe file has no root element.", "[Project::readXML]"},
        Fault{"Cut", "<HygrionProject>\n<Init>\n",
              "Error in line 3 of project file:\nThe file ends inside of element 'Init'.", "[Project::readXML]"},
        Fault{"Latin1", "<HygrionProject>\n\xE4</HygrionProject>",
              "Error in line 2 of project file:\nThe file holds bytes that are not UTF-8, it is damaged or in another "
              "encoding.",
              "[Project::readXML]"},
        Fault{"Root", "<Project/>", "Expected HygrionProject as root node in XML file.", "[Project::readXML]"},
        Fault{"Version", "<HygrionProject fileVersion='6'/>",
              "Error in XML file, line 1: Error reading version string from project file.", "[Project::readXMLRoot]"},
        Fault{"VersionText", "<HygrionProject fileVersion='6.x'/>",
              "Error in XML file, line 1: Error reading version string from project file.", "[Project::readXMLRoot]"},
        Fault{"Section", inRoot("<Sketches/>"),
              "Error in XML file, line 3: Unknown element 'Sketches' in HygrionProject.", "[Project::readXMLRoot]"},
        Fault{"Twice", inRoot("<Outputs/>\n<Outputs/>"),
              "Error in XML file, line 4: Section 'Outputs' is given more than once.", "[Project::readXMLRoot]"},
        Fault{"Info", inRoot("<ProjectInfo>\n<Owner/></ProjectInfo>"),
              "Error in XML file, line 4: Unknown element 'Owner' in ProjectInfo section.",
              "[Project::readProjectInfoXML]"},
        Fault{"Placeholder", inRoot("<DirectoryPlaceholders>\n<Placeholder>/x</Placeholder></DirectoryPlaceholders>"),
              "Error in XML file, line 4: Missing 'name' attribute in Placeholder element.", "[Project::readXMLRoot]"},
        Fault{"PlaceholderTag", inRoot("<DirectoryPlaceholders>\n<Directory/></DirectoryPlaceholders>"),
              "Error in XML file, line 4: Unknown element 'Directory' in DirectoryPlaceholders section.",
              "[Project::readXMLRoot]"},
        Fault{"PlaceholderTwice",
              inRoot("<DirectoryPlaceholders><Placeholder name='a'>/x</Placeholder>\n<Placeholder "
                     "name='a'>/y</Placeholder></DirectoryPlaceholders>"),
              "Error in XML file, line 4: Placeholder 'a' is defined more than once.", "[Project::readXMLRoot]"},
        Fault{"Color", inRoot("<Materials>\n<MaterialReference name='a' color='reddish'/></Materials>"),
              "Error in XML file, line 4: Error decoding color from string 'reddish'.", "[Project::readXMLRoot]"},
        Fault{"Hatch", inRoot("<Materials>\n<MaterialReference name='a' hatchCode='x'/></Materials>"),
              "Error in XML file, line 4: Could not convert 'x' into value.", "[Project::readXMLRoot]"}),
    [](const auto & fault) { return std::string(fault.param.name); });

TEST_F(ProjectFile, MaterialReferencesTellWhatTheyDecoded) {
    const KOR::Exception ex = caught([] { read<MaterialReference>("<MaterialReference name='a' hatchCode='1.5'/>"); });
    EXPECT_EQ(ex.chain().front().where, "[string2val]");
    EXPECT_EQ(ex.chain().back(),
              (KOR::Exception::Entry{"Error decoding hatch code from string '1.5'.", "[MaterialReference::readXML]"}));
    Project project;
    const KOR::Exception missing = caught([&] { project.readXML(path("missing.h6p")); });
    EXPECT_TRUE(missing.message().starts_with("Error in line 0 of project file:\nCannot open file "))
        << missing.message();
}

TEST_F(ProjectFile, InfoIsWrittenOnlyWithTimesOrComment) {
    Project project;
    project.m_projectInfo.m_projectName = "Name";
    EXPECT_EQ(project.text().find("ProjectInfo"), std::string::npos);
    project.m_projectInfo.m_lastEdited = "today";
    const std::string text = project.text();
    EXPECT_NE(text.find("<ProjectInfo lastEdited=\"today\">\n    <Comment />\n    <ProjectName>Name</ProjectName>"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find("Variant"), std::string::npos);
}

TEST_F(ProjectFile, WarnsOfUndefinedPlaceholdersOnce) {
    Messages messages;
    Project project;
    for (const char * file :
         {"${Lost}/a.m6", "${Lost}/b.m6", "${Project Directory}/c.m6", "${Known}/d.m6", "${Other}/e.m6"})
        project.m_materials.push_back({file, {}, 0, KOR::Path(file)});
    project.m_placeholders["Known"] = "/known";
    EXPECT_TRUE(project.writeXML(path()));
    const std::string rest =
        "' is being used in one or more referenced files, but not defined within the placeholder section";
    EXPECT_EQ(messages.m_all, (std::vector<std::string>{"2 [Project::writeXML] Placeholder 'Lost" + rest,
                                                        "2 [Project::writeXML] Placeholder 'Other" + rest}));
    EXPECT_TRUE(std::filesystem::exists(path()));
    Project read;
    read.readXML(path());
    EXPECT_EQ(read.resolved(read.m_materials[2].m_filename).str(), (m_directory / "c.m6").string());
    EXPECT_EQ(read.resolved(read.m_materials[3].m_filename).str(), "/known/d.m6");
    EXPECT_EQ(read.resolved(KOR::Path("sub/x.m6")).str(), (m_directory / "sub/x.m6").string());
}

TEST_F(ProjectFile, FailureToWriteIsReportedAndLeavesTheOldFile) {
    Messages messages;
    Project project = soundProject();
    const std::string old = "old content";
    EXPECT_FALSE(project.writeXML((m_directory / "missing" / "p.h6p").string()));
    ASSERT_FALSE(messages.m_all.empty());
    EXPECT_EQ(messages.m_all.back(), "3 [Project::writeXML] Error writing project file '" +
                                         (m_directory / "missing" / "p.h6p").string() + "'");
    write(old);
    project.m_disc.m_xSteps.m_data[0] = NAN; // could not be read again
    EXPECT_FALSE(project.writeXML(path()));
    EXPECT_EQ(KOR::readFile(path(), 100), old);
}

TEST(Project, SanityChecksWrapTheFault) {
    Project project = soundProject();
    EXPECT_NO_THROW(project.GUISanityChecks());
    project.m_assignments.m_list[2].m_range.right = 3;
    const KOR::Exception ex = caught([&] { project.GUISanityChecks(); });
    EXPECT_EQ(ex.cause(), "Invalid attribute 'right' in Range.");
    EXPECT_EQ(ex.chain().back(),
              (KOR::Exception::Entry{"Project has invalid/missing parameters.", "[Project::GUISanityChecks]"}));
}

TEST(Project, NamesWrongReferences) {
    struct Row {
        const char * name;
        void (*spoil)(Project &);
        const char * message;
    };
    const auto isCold = [](Project & p) {
        p.m_conditions.m_boundaryConditions[0].m_ccReferences[ClimateCond::condition_t::Temperature] = "Cold";
    };
    const auto isStone = [](Project & p) {
        p.m_init.m_modelSettingsVOC.m_materialMapping = {
            {"Stone", "s"}
        };
    };
    for (const Row & row : {
             Row{"boundary condition", [](Project & p) { p.m_conditions.m_interfaces[0].m_bcReferences = {"Rain"}; },
                 "Boundary condition with id name 'Rain' referenced from interface 'Inside' is not defined."                                                                                     },
             Row{"output grid",        [](Project & p) { p.m_outputs.m_outputFiles[0].m_outputGrid = "daily"; },
                 "Output grid with id name 'daily' referenced from output file 'Field' is not defined."                                                                                          },
             Row{"climate",            isCold,
                 "Climate condition with id name 'Cold' referenced from boundary condition 'Heat' is not defined."                                                                               },
             Row{"interface",          [](Project & p) { p.m_assignments.m_list[2].m_reference = "Outside"; },
                 "Interface with id name 'Outside' referenced from assignment '#3' is not defined."                                                                                              },
             Row{"mapping",            isStone,                                                                       "Material 'Stone' in the material mapping of the VOC model is not defined."},
    }) {
        SCOPED_TRACE(row.name);
        Project project = soundProject();
        EXPECT_NO_THROW(project.checkReferences());
        row.spoil(project);
        EXPECT_EQ(caught([&] { project.checkReferences(); }).chain().front(),
                  (KOR::Exception::Entry{row.message, "[Project::checkReferences]"}));
        EXPECT_EQ(caught([&] { project.removeUnusedDefinitions(); }).message(),
                  "Error during cleaning Hygrion project structure.");
    }
    Project project = soundProject();
    EXPECT_EQ(project.extractUsedMaterials(), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(project.extractUsedOutputGrids(), (std::vector<std::size_t>{0}));
    project.m_assignments.m_list[1].m_name = "insulation";
    project.m_materials.push_back(project.m_materials[1]);
    EXPECT_EQ(
        caught([&] { project.extractUsedMaterials(); }).chain().front(),
        (KOR::Exception::Entry{"Ambiguous material assignment 'insulation'. Check whether there are multiple materials "
                               "with the name 'Wool'!",
                               "[Project::extractUsedMaterials]"}));
    project.m_materials.resize(1);
    EXPECT_EQ(caught([&] { project.extractUsedMaterials(); }).message(),
              "Invalid material assignment 'insulation' with name 'Wool'. Check the ID names of your assignments!");
    project.m_outputs.m_outputGrids.clear();
    EXPECT_EQ(caught([&] { project.extractUsedOutputGrids(); }).chain().front().where,
              "[Project::extractUsedOutputGrids]");
}

TEST(Project, CleaningKeepsWhatIsReached) {
    Project project = soundProject();
    auto & c = project.m_conditions;
    const auto add = [](auto & list, const char * name) -> auto & {
        auto copy = list.front();
        copy.m_name = name;
        list.push_back(std::move(copy));
        return list.back();
    };
    project.m_materials.insert(project.m_materials.begin(), {"Stone", {}, 0, KOR::Path()});
    add(c.m_climateConditions, "Cold");
    add(c.m_boundaryConditions, "Unused").m_ccReferences[ClimateCond::condition_t::Temperature] = "Cold";
    add(c.m_interfaces, "Gap"); // reached through the boundary condition of another one
    c.m_boundaryConditions[0].m_otherInterfaceReference = "Gap";
    add(c.m_interfaces, "Roof").m_bcReferences = {"Unused"};
    add(project.m_outputs.m_outputGrids, "daily");
    c.m_schedules.emplace_back().m_name = "Never";
    const std::string report = project.removeUnusedDefinitions();
    EXPECT_EQ(report, "Removed unused definitions from project\n"
                      "2 materials (of 3) used:\n  Brick\n  Wool\n"
                      "2 interface definitions (of 3) used:\n  Inside\n  Gap\n"
                      "0 initial conditions (of 0) used:\n"
                      "0 field conditions (of 0) used:\n"
                      "0 contact conditions (of 0) used:\n"
                      "1 boundary conditions (of 2) used:\n  Heat\n"
                      "1 climate conditions (of 2) used:\n  Warm\n"
                      "1 output file definition (of 1) used:\n  Field\n"
                      "1 output grids (of 2) used:\n  hourly\n");
    EXPECT_EQ(c.m_schedules.size(), 1u);
    EXPECT_NO_THROW(project.checkReferences());
}

TEST(Project, RenamingChangesEveryReference) {
    const Project before = FullProject(3).make();
    ASSERT_TRUE(before.danglingReferences().empty());
    Project project = before;
    std::size_t changed = 0;
    forEachDefinitionList(before, [&](definition_t kind, const auto & list) {
        SCOPED_TRACE(definitionWord(kind));
        for (const auto & item : list) {
            changed += project.rename(kind, item.m_name, item.m_name + " new");
            EXPECT_TRUE(project.danglingReferences().empty());
        }
        EXPECT_THROW(project.rename(kind, list[0].m_name, "x"), KOR::Exception);         // is gone
        EXPECT_THROW(project.rename(kind, list[0].m_name + " new", ""), KOR::Exception); // no name
        if (list.size() > 1) {
            EXPECT_THROW(project.rename(kind, list[0].m_name + " new", list[1].m_name + " new"), KOR::Exception);
        }
    });
    std::size_t references = 0;
    forEachReference(project, [&references](const ReferenceSource &, definition_t, const std::string & name) {
        EXPECT_TRUE(name.ends_with(" new")) << name;
        ++references;
    });
    EXPECT_EQ(changed, references);
    forEachDefinitionList(before, [&](definition_t kind, const auto & list) {
        for (const auto & item : list)
            project.rename(kind, item.m_name + " new", item.m_name);
    });
    EXPECT_EQ(project, before);
}

TEST_F(ProjectFile, AllFaultsAreFound) {
    Project project;
    const Project sound = soundProject();
    EXPECT_TRUE(ProjectCheck::checkFile(write(sound.text()), project).empty());
    project.m_fileName.clear();
    EXPECT_EQ(project, sound);

    Project faulty = sound;
    faulty.m_materials.push_back({"Lost", {}, 0, KOR::Path("lost.m6")});
    faulty.m_materials.push_back(faulty.m_materials[0]);
    faulty.m_conditions.m_interfaces[0].m_bcReferences.push_back("Rain");
    faulty.m_assignments.m_list[0].m_range.right = 7;
    faulty.m_assignments.m_list[1].m_range.right = 8;
    std::string text = faulty.text();
    const auto spoil = [&text](const std::string & what, const std::string & with) {
        const std::size_t at = text.find(what);
        ASSERT_NE(at, std::string::npos) << what;
        text.replace(at, what.size(), with);
    };
    spoil("unit=\"C\"", "unit=\"X\"");              // of the climate condition, to which one refers
    spoil("kind=\"Exchange\"", "kind=\"Nothing\""); // of the boundary condition
    spoil("<TimeType>", "<TimeKind>");
    spoil("</TimeType>", "</TimeKind>");
    std::vector<std::string> found;
    for (const ProjectCheck::Finding & finding : ProjectCheck::checkFile(write(text), project))
        found.push_back((finding.severity == ProjectCheck::WARNING ? "warning " : "") + finding.text());
    const auto line = [&text](const std::string & what) {
        const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(what));
        return std::to_string(1 + std::count(text.begin(), end, '\n'));
    };
    EXPECT_THAT(
        found,
        testing::UnorderedElementsAre(
            "line " + line("unit=\"X\"") + ": climate condition 'Warm': Unit 'X' not found.",
            "line " + line("kind=\"Nothing\"") +
                ": boundary condition 'Heat': Cannot determine enumeration value for enumeration type "
                "'BoundaryCond::kind_t' and keyword 'Nothing'.",
            "line " + line("<TimeKind>") + ": output file 'Field': Unknown XML tag with name 'TimeKind' in OutputFile.",
            "line " + line("<MaterialReference name=\"Brick\"") +
                ": material 'Brick': The identification name is not unique.",
            "line " + line("<Interface name") +
                ": interface 'Inside': Boundary condition with id name 'Rain' referenced from interface "
                "'Inside' is not defined.",
            "line " + line("<Assignment type") + ": assignment '#1': Invalid attribute 'right' in Range.",
            "line " + std::to_string(std::stoi(line("<Assignment type")) + 4) +
                ": assignment '#2': Invalid attribute 'right' in Range.",
            "warning File '" + path("lost.m6") + "' of 'Lost' does not exist."));
    EXPECT_EQ(project.m_materials.size(), 4u);

    Project bare = sound;
    bare.m_assignments.m_list.erase(bare.m_assignments.m_list.begin());
    const auto findings = ProjectCheck::checkProject(bare);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].text(), "Assignments: 2 of 3 cells have no material.");
    EXPECT_EQ(ProjectCheck::checkFile(write("<A/>"), project)[0].message,
              "Expected HygrionProject as root node in XML file.");
    EXPECT_EQ(ProjectCheck::checkFile(write("<A>\n"), project)[0].line, 2);
    EXPECT_EQ(ProjectCheck::checkFile(path("missing"), project).size(), 1u);
}

//--- Hostile files: an error or a project, never a crash -------------------------------------------------------------

/// Reads; what is a project is written and read again to the same bytes.
bool readsOrFails(const std::string & content) {
    Project project;
    try {
        project.readText(content);
    } catch (const KOR::Exception &) {
        return false;
    }
    const std::string text = project.text();
    Project again;
    again.readText(text);
    EXPECT_EQ(again.text(), text);
    return true;
}

TEST(HostileProject, EveryPrefix) {
    std::string text = FullProject(1).make().text();
    const std::string sound = soundProject().text();
    for (std::size_t length = 0; length < sound.size(); ++length)
        EXPECT_EQ(readsOrFails(sound.substr(0, length)), length + 1 == sound.size())
            << length; // the last is a line end
    for (std::size_t length = 0; length < text.size(); length += 997)
        EXPECT_FALSE(readsOrFails(text.substr(0, length))) << length;
}

TEST(HostileProject, BitFlips) {
    const std::string text = soundProject().text();
    std::mt19937 random(4711);
    std::size_t refused = 0;
    for (int i = 0; i < 10000; ++i) {
        std::string flipped = text;
        flipped[random() % text.size()] ^= static_cast<char>(1u << (random() % 8));
        refused += readsOrFails(flipped) ? 0 : 1;
    }
    EXPECT_GT(refused, 5000u);
}

TEST(HostileProject, NumbersOutOfBounds) {
    const std::string grid = "<Discretization><XSteps unit='m'>%1</XSteps></Discretization>";
    for (const char * number : {"1e400", "nan", "inf", "-inf", "0x10", "1,5", ""})
        EXPECT_THROW(parsedProject(inRoot(KOR::text(grid, number))), KOR::Exception) << number;
    EXPECT_NO_THROW(parsedProject(inRoot(KOR::text(grid, "1e-320 5E+3"))));
    const std::string ranges =
        inRoot("<Assignments><Assignment type='Material' location='Element'><Reference>a</Reference>"
               "<Range>0 0 4294967295 4294967295 4294967295 4294967295</Range></Assignment>"
               "</Assignments>");
    Project project = parsedProject(ranges);
    EXPECT_THROW(project.GUISanityChecks(), KOR::Exception);
    AssignmentGrid cells;
    EXPECT_THROW(Discretization::updateDiscAssignmentGrid(1, 1, 1, project.m_assignments, cells), KOR::Exception);
}

} // namespace
