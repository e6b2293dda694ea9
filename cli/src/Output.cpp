#include "Output.h"

#include <nlohmann/json.hpp>

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

} // namespace CMD
