#include <KOR/FileIO.h>

#include <KOR/Exception.h>
#include <KOR/InputFile.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

namespace KOR {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view TEMPORARY_MARK = ".hyg-";
constexpr std::size_t SUFFIX_LENGTH = 6;

/// The reason of the last failed system call.
std::string reason() {
    return std::generic_category().message(errno);
}

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor & operator=(const Descriptor &) = delete;
    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }
    /// True if the system had nothing to complain about.
    bool close() {
        const int fd = m_fd;
        m_fd = -1;
        return ::close(fd) == 0;
    }

private:
    int m_fd;
};

std::string readOpen(const std::string & path, std::size_t size, bool wholeFile) {
    InputFile file;
    if (!file.open(path))
        throw Exception(errno == EINVAL ? text("'%1' is not a regular file.", path)
                                        : text("Cannot open file '%1': %2", path, reason()),
                        "[KOR::readFile]");
    const std::uint64_t length = file.size();
    if (wholeFile && length > size)
        throw Exception(text("File '%1' is larger than %2 MiB.", path, size >> 20), "[KOR::readFile]");
    std::string content(static_cast<std::size_t>(std::min<std::uint64_t>(length, size)), '\0');
    errno = 0;
    content.resize(file.readAt(0, content)); // shorter if the file was cut meanwhile
    if (errno != 0)
        throw Exception(text("Cannot read file '%1': %2", path, reason()), "[KOR::readFile]");
    return content;
}

/// The temporary file of one save; removed unless it has become the file itself.
class Temporary {
public:
    /// \param target the file to be replaced, links resolved
    explicit Temporary(const fs::path & target) : m_path(unusedName(target)), m_file(create(m_path)) {
        if (!m_file.isOpen())
            fail("Cannot create temporary file");
        // While the lock is held, removeLeftovers() of another process lets the file be.
        ::flock(m_file.get(), LOCK_EX | LOCK_NB);
    }
    ~Temporary() {
        if (!m_isDone)
            ::unlink(m_path.c_str());
    }
    Temporary(const Temporary &) = delete;
    Temporary & operator=(const Temporary &) = delete;

    /// The mode of the file that is replaced; a new file has the one that the umask gave it.
    void setMode(mode_t mode) {
        if (::fchmod(m_file.get(), mode & 07777) != 0)
            fail("Cannot set the mode of temporary file");
    }

    void write(std::string_view content) {
        std::size_t done = 0;
        while (done < content.size()) {
            const ssize_t put = ::write(m_file.get(), content.data() + done, content.size() - done);
            if (put < 0 && errno == EINTR)
                continue;
            if (put <= 0)
                fail("Cannot write temporary file");
            done += static_cast<std::size_t>(put);
        }
        struct stat status {};
        if (::fsync(m_file.get()) != 0 || ::fstat(m_file.get(), &status) != 0)
            fail("Cannot flush temporary file");
        if (static_cast<std::uintmax_t>(status.st_size) != content.size())
            throw Exception(text("Temporary file '%1' was cut while writing.", m_path), "[KOR::writeFile]");
    }

    void becomeFile(const fs::path & target) {
        if (::rename(m_path.c_str(), target.c_str()) != 0)
            fail("Cannot replace the file by temporary file");
        m_isDone = true;
        if (!m_file.close())
            fail("Cannot close file");
        const Descriptor directory(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!directory.isOpen() || ::fsync(directory.get()) != 0)
            fail("Cannot flush the directory of file");
    }

private:
    static std::string unusedName(const fs::path & target) {
        static constexpr std::string_view LETTERS = "0123456789abcdefghijklmnopqrstuv";
        std::random_device random;
        std::string suffix(SUFFIX_LENGTH, '0');
        for (char & c : suffix)
            c = LETTERS[random() % LETTERS.size()];
        return (target.parent_path() / ('.' + target.filename().string())).string() + std::string(TEMPORARY_MARK) +
               suffix;
    }
    /// With O_EXCL a name that exists, a planted link too, is an error.
    static int create(const std::string & path) {
        return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    }
    [[noreturn]] void fail(const char * what) const {
        throw Exception(text("%1 '%2': %3", what, m_path, reason()), "[KOR::writeFile]");
    }

    std::string m_path;
    Descriptor m_file;
    bool m_isDone = false;
};

} // namespace

std::string readFile(const std::string & path, std::size_t maxSize) {
    return readOpen(path, maxSize, true);
}

std::string readFileHead(const std::string & path, std::size_t size) {
    return readOpen(path, size, false);
}

void writeFile(const std::string & path, std::string_view content) {
    std::error_code error;
    fs::path target = fs::canonical(path, error); // follows links to the file itself
    if (error) {
        if (fs::is_symlink(fs::symlink_status(path, error)))
            throw Exception(text("'%1' is a link to a file that does not exist.", path), "[KOR::writeFile]");
        target = fs::absolute(path, error);
    }
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) // nothing is known about what would be replaced
        throw Exception(text("Cannot write file '%1': %2", path, reason()), "[KOR::writeFile]");
    if (exists && !S_ISREG(status.st_mode))
        throw Exception(text("'%1' is not a regular file.", path), "[KOR::writeFile]");
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        throw Exception(text("Cannot write file '%1': %2", path, reason()), "[KOR::writeFile]");

    Temporary temporary(target);
    if (exists)
        temporary.setMode(status.st_mode);
    temporary.write(content);
    temporary.becomeFile(target);
}

void removeLeftovers(const std::string & path) noexcept {
    try {
        const fs::path target = fs::weakly_canonical(path);
        const std::string start = '.' + target.filename().string() + std::string(TEMPORARY_MARK);
        for (const fs::directory_entry & entry : fs::directory_iterator(target.parent_path())) {
            const std::string name = entry.path().filename().string();
            if (!name.starts_with(start) || name.size() != start.size() + SUFFIX_LENGTH || !entry.is_regular_file())
                continue;
            const Descriptor file(::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC));
            if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
                ::unlink(entry.path().c_str());
        }
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): tidying up must never be in the way
    }
}

} // namespace KOR
