#include <SOLVER/RunDirectory.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

RunDirectory::RunDirectory(const std::string & path) : m_path(path) {
    constexpr const char * WHERE = "[RunDirectory::RunDirectory]";
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored) && !std::filesystem::is_directory(path, ignored))
        throw Exception(text("There is already a file with the name of the output directory to be created '%1'. Please "
                             "remove this file or save the project with a new name!",
                             path),
                        WHERE);
    for (const char * part : {"log", "results", "var"})
        KOR::Path(path + '/' + part).makePath();

    const std::string lock = path + "/var/lock";
    m_lock = ::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (m_lock < 0)
        throw Exception(text("Cannot write '%1': %2", lock, std::generic_category().message(errno)), WHERE);
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
        std::array<char, 32> owner{};
        const ssize_t size = ::read(m_lock, owner.data(), owner.size());
        ::close(m_lock);
        throw Exception(text("Directory '%1' is in use by another run (process %2). Wait until it has finished or stop "
                             "it.",
                             path, std::string_view(owner.data(), size > 0 ? static_cast<std::size_t>(size) : 0)),
                        WHERE);
    }
    const std::string process = std::to_string(::getpid());
    // Who it is matters to the message of others only.
    if (::ftruncate(m_lock, 0) != 0 || ::write(m_lock, process.data(), process.size()) < 0)
        errno = 0;
}

RunDirectory::~RunDirectory() {
    ::close(m_lock);
}

} // namespace SOLVER
