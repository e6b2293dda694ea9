// Any bytes are a result file or an error. All that was read is evaluated; what comes on demand is what was read at once.
#include <DATAIO/DataIO.h>

#include <KOR/Exception.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

/// A file in memory.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t * bytes, std::size_t size)
        : m_fd(::memfd_create("fuzz", MFD_CLOEXEC)), path("/proc/self/fd/" + std::to_string(m_fd)) {
        if (m_fd < 0 || ::write(m_fd, bytes, size) != static_cast<ssize_t>(size))
            std::abort();
    }
    ~MemoryFile() { ::close(m_fd); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile & operator=(const MemoryFile &) = delete;

private:
    int m_fd;

public:
    const std::string path;
};

bool isSame(const std::vector<double> & a, const std::vector<double> & b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * bytes, std::size_t size) {
    if (size == 0)
        return 0;
    const MemoryFile input(bytes, size);
    DATAIO::DataIO whole, onDemand;
    try {
        onDemand.openAndReadHeader(input.path);
        whole.read(input.path);
    } catch (const KOR::Exception &) { // refused, as it should be
        return 0;
    }
    for (const std::size_t t : {std::size_t{0}, whole.timeCount() / 2})
        if (t < whole.timeCount() && !isSame(whole.data(t), onDemand.data(t)))
            std::abort();
    try {
        const std::size_t value = whole.header().valueCount() / 2;
        if (!isSame(whole.dataVector(value), onDemand.dataVector(value)))
            std::abort();
    } catch (const KOR::Exception &) { // times that do not grow
    }
    try {
        whole.determineDataFormat(whole.embeddedGeometry() ? &*whole.embeddedGeometry() : nullptr);
    } catch (const KOR::Exception &) { // indices that lead nowhere
    }
    return 0;
}
