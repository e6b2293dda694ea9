#include <KOR/InputFile.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace KOR {

InputFile::~InputFile() {
    close();
}

InputFile & InputFile::operator=(InputFile && other) noexcept {
    std::swap(m_fd, other.m_fd);
    return *this;
}

bool InputFile::open(const std::string & path) {
    close();
    // Without O_NONBLOCK a pipe would be waited for.
    m_fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (m_fd >= 0 && (::fstat(m_fd, &status) != 0 || !S_ISREG(status.st_mode))) {
        close();
        errno = EINVAL;
    }
    return isOpen();
}

void InputFile::close() {
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

std::uint64_t InputFile::size() const {
    struct stat status {};
    return ::fstat(m_fd, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::size_t InputFile::readAt(std::uint64_t offset, std::span<char> buffer) const {
    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t got =
            ::pread(m_fd, buffer.data() + done, buffer.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return got < 0 ? 0 : done;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool InputFile::readCached(std::uint64_t offset, std::span<char> buffer) const {
    const iovec part{buffer.data(), buffer.size()};
    return ::preadv2(m_fd, &part, 1, static_cast<off_t>(offset), RWF_NOWAIT) == static_cast<ssize_t>(buffer.size());
}

void InputFile::prefetch(std::uint64_t offset, std::uint64_t size) const {
    ::posix_fadvise(m_fd, static_cast<off_t>(offset), static_cast<off_t>(size), POSIX_FADV_WILLNEED);
}

} // namespace KOR
