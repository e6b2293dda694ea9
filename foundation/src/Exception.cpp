#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <omp.h>

#include <utility>

namespace KOR {

std::string formatText(std::string_view pattern, std::initializer_list<std::string> arguments) {
    std::string result;
    result.reserve(pattern.size() + 32);
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlaceholder =
            pattern[i] == '%' && i + 1 < pattern.size() && pattern[i + 1] >= '1' && pattern[i + 1] <= '9';
        const std::size_t number = isPlaceholder ? static_cast<std::size_t>(pattern[i + 1] - '1') : 0;
        if (isPlaceholder && number < arguments.size()) {
            result += arguments.begin()[number];
            ++i;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

Exception::Exception(std::string message, std::string where) : m_what(message) {
    m_chain.push_back({std::move(message), std::move(where)});
}

Exception::Exception(const Exception & cause, std::string message, std::string where)
    // NOLINTNEXTLINE(bugprone-throw-keyword-missing): a vector of entries, taken for an exception by its name
    : m_chain(cause.m_chain), m_what(message + '\n' + cause.m_what) {
    m_chain.push_back({std::move(message), std::move(where)});
}

void Exception::report() const {
    if (omp_in_parallel() && omp_get_thread_num() != 0)
        return;
    for (const Entry & entry : m_chain)
        KOR::message(entry.message, MSG_ERROR, entry.where, 1);
}

} // namespace KOR
