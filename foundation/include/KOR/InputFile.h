#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace KOR {

/// A regular file that is read at any place, also while another program still appends to it.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(InputFile && other) noexcept : m_fd(other.m_fd) { other.m_fd = -1; }
    InputFile & operator=(InputFile && other) noexcept;
    InputFile(const InputFile &) = delete;
    InputFile & operator=(const InputFile &) = delete;

    /// False (and the system's error number is set) if it cannot be opened or is no regular file.
    bool open(const std::string & path);
    bool isOpen() const { return m_fd >= 0; }
    void close();
    /// The size now [bytes].
    std::uint64_t size() const;
    /// Reads from \p offset until the buffer is full or the file ends; \return the bytes read, on an error 0.
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer) const;
    /// Reads what needs not be waited for: false unless the whole buffer was in memory.
    bool readCached(std::uint64_t offset, std::span<char> buffer) const;
    /// Has the system fetch a part while other parts are asked for or read: many places of a slow disk at once.
    void prefetch(std::uint64_t offset, std::uint64_t size) const;

private:
    int m_fd = -1;
};

} // namespace KOR
