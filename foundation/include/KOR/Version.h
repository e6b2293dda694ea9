#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace KOR {

/// The version in the head of a container file: four magic bytes, "RLZ!", the version.
/// Binary files hold a 32-bit word (major in the low byte, minor in the next), text files eight characters "   6.1  ".
struct Version {
    std::uint8_t major = 0;
    std::uint8_t minor = 0;

    /// Reads the head. \p magics lists what is accepted first, \p binary says for each whether a word follows.
    /// \return the index of the magic that was found. Throws ("[Version::read]")
    /// "Invalid magic header or unknown file format.", "Wrong second magic number!" and a bad version text.
    struct Magic {
        std::string_view bytes;
        bool isBinary;
    };
    std::size_t read(std::istream & in, std::span<const Magic> magics);
    void write(std::ostream & out, const Magic & magic) const;

    std::uint32_t word() const { return static_cast<std::uint32_t>(major | (minor << 8)); }
    static Version fromWord(std::uint32_t word) {
        return {static_cast<std::uint8_t>(word & 0xFF), static_cast<std::uint8_t>((word >> 8) & 0xFF)};
    }
    /// Eight characters, "6.1" padded with blanks.
    std::string text() const;
    /// Major and minor number of "6.1"; false if the text is none.
    bool parse(std::string_view text);

    friend auto operator<=>(const Version &, const Version &) = default;
};

inline constexpr Version FILE_VERSION{6, 1};             ///< of the files this program writes
inline constexpr std::string_view SECOND_MAGIC = "RLZ!"; ///< second word of every container file

} // namespace KOR
