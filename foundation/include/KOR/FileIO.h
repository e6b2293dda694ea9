#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace KOR {

/// The whole content of a regular file. Throws ("[KOR::readFile]") when it cannot be opened or read, is no regular
/// file, or is larger than \p maxSize bytes (which is checked before memory is taken).
std::string readFile(const std::string & path, std::size_t maxSize);

/// At most the first \p size bytes of a regular file. Throws as readFile.
std::string readFileHead(const std::string & path, std::size_t size);

/// Replaces the file's content atomically and durably: a temporary file beside it is written, flushed to the disk and
/// renamed over it. Symbolic links are followed, the mode is kept. Any failure throws ("[KOR::writeFile]") with the
/// system's reason and leaves the old file whole. Targets that are no regular files are refused.
void writeFile(const std::string & path, std::string_view content);

/// Removes the temporary files that an interrupted writeFile left beside \p path. Never throws.
void removeLeftovers(const std::string & path) noexcept;

} // namespace KOR
