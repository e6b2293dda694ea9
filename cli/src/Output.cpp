#include "Output.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <nlohmann/json.hpp>

#include <filesystem>
#include <ostream>

namespace CMD {

void Output::json(const nlohmann::ordered_json & document) {
    // Texts of files that are not UTF-8 are shown with replacement characters rather than refused.
    m_out << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

void Output::fail(const std::exception & fault) {
    m_err << fault.what() << '\n';
    m_hasFailed = true;
}

void Output::writeTable(const std::string & path, std::string_view table, const std::vector<std::string> & sources) {
    constexpr const char * WHERE = "[Output::writeTable]";
    try {
        for (const std::string & source : sources) {
            std::error_code missing; // what does not exist yet is no source
            if (std::filesystem::equivalent(path, source, missing))
                throw KOR::Exception(KOR::text("The table would replace '%1', from which it is made.", source), WHERE);
        }
        KOR::writeFile(path, table);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Cannot write '%1'.", path), WHERE);
    }
}

} // namespace CMD
