#pragma once

#include <CCM/ClimateDataLoader.h>

#include <KOR/Exception.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// What an action throws; a test failure if it does not.
template <typename Action> KOR::Exception caught(Action action) {
    try {
        action();
    } catch (const KOR::Exception & ex) {
        return ex;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {"", ""};
}

/// A path in the scratch directory of this test program.
inline std::string scratchFile(const std::string & name) {
    const std::filesystem::path directory = std::filesystem::path(testing::TempDir()) / "hygrion_climate";
    std::filesystem::create_directories(directory);
    const auto * info = testing::UnitTest::GetInstance()->current_test_info();
    std::string test = std::string(info->test_suite_name()) + '_' + info->name();
    std::replace(test.begin(), test.end(), '/', '_');
    return (directory / (test + '_' + name)).string();
}

inline void writeText(const std::string & path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string fileContent(const std::string & path) {
    std::ostringstream out;
    out << std::ifstream(path, std::ios::binary).rdbuf();
    return out.str();
}

/// Reference data kept beside the checkout; not everybody has them.
#define HYG_SHARED_CLIMATE HYG_SOURCE_DIR "/../shared/climate/"
#define HYG_REQUIRE_SHARED(path)                                                                                       \
    if (!std::filesystem::exists(path))                                                                                \
    GTEST_SKIP() << "reference data not found: " << (path)

/// One year of hours, all quantities with plausible values that differ from hour to hour.
inline CCM::ClimateDataLoader annualClimate() {
    CCM::ClimateDataLoader data;
    data.m_city = "Testville";
    data.m_latitude = 52.5;
    data.m_longitude = 13.4;
    data.m_timeZone = 1;
    for (unsigned int q = 0; q < CCM::NUM_QUANTITIES; ++q)
        for (std::size_t i = 0; i < CCM::HOURS_OF_YEAR; ++i)
            data.m_data[q].push_back(static_cast<double>((i * (q + 3)) % 37) + 0.25 * q);
    data.checkValues();
    return data;
}

/// A table in a file of comma-separated values, keyed by its captions.
class CsvTable {
public:
    explicit CsvTable(const std::string & path) : m_in(path) { m_captions = fields(); }
    bool next() {
        m_row = fields();
        return m_row.size() >= m_captions.size() && !m_captions.empty();
    }
    std::string text(const std::string & caption) const {
        const auto at = std::find(m_captions.begin(), m_captions.end(), caption);
        EXPECT_NE(at, m_captions.end()) << caption;
        return m_row.at(static_cast<std::size_t>(at - m_captions.begin()));
    }
    double number(const std::string & caption) const { return KOR::string2val<double>(text(caption)); }

private:
    std::vector<std::string> fields() {
        std::string line;
        std::getline(m_in, line);
        std::vector<std::string> result;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, ',');)
            result.push_back(field);
        return result;
    }
    std::ifstream m_in;
    std::vector<std::string> m_captions;
    std::vector<std::string> m_row;
};
