#include <SOLVER/Construction.h>

#include <HYGRION/Project.h>
#include <KOR/Exception.h>

#include <cmath>
#include <filesystem>

using namespace SOLVER;

namespace {

HYGRION::Project example(const std::string & name) {
    HYGRION::Project project;
    project.readXML(std::string(HYG_SOURCE_DIR) + "/examples/" + name + ".h6p");
    return project;
}

class EveryExample : public testing::TestWithParam<std::string> {};

TEST_P(EveryExample, BecomesAModelThatCanBeEvaluated) {
    const HYGRION::Project project = example(GetParam());
    const Construction construction = buildConstruction(project);
    EXPECT_EQ(construction.cellPlaces.size(), construction.input.cells.size());
    EXPECT_EQ(construction.surfacePlaces.size(), construction.input.surfaces.size());
    EXPECT_GT(construction.input.surfaces.size(), 0u);
    EXPECT_GT(construction.endTime, construction.startTime);
    Model model(construction.input);
    std::vector<double> derivative(model.size());
    const std::vector<double> state = model.initialState();
    for (double t = construction.startTime; t < construction.endTime;
         t += (construction.endTime - construction.startTime) / 7)
        EXPECT_TRUE(model.rightHandSide(t, state, derivative)) << t;
}

std::vector<std::string> examples() {
    std::vector<std::string> names;
    const std::filesystem::path root = std::string(HYG_SOURCE_DIR) + "/examples";
    for (const auto & entry : std::filesystem::recursive_directory_iterator(root))
        if (entry.path().extension() == ".h6p")
            names.push_back(std::filesystem::relative(entry.path(), root).replace_extension().string());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Files, EveryExample, testing::ValuesIn(examples()), [](const auto & name) {
    std::string word;
    for (const char c : name.param)
        if (std::isalnum(static_cast<unsigned char>(c)))
            word += c;
    return word;
});

} // namespace
