#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace KOR {

/// The version in the head of a container file: four magic bytes, "RLZ!", the version.
/// Binary files hold a 32-bit word (major in the low byte, minor in the next), text files eight characters " 006.001".
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
    static constexpr std::size_t TEXT_LENGTH = 8;
    /// " 006.001": two fields of four characters, each a mark and three digits.
    std::string text() const;
    /// Reads the last three characters of each field; false (and unchanged) if they are no numbers.
    bool parse(std::string_view text);

    friend auto operator<=>(const Version &, const Version &) = default; // NOLINT(modernize-use-nullptr)
};

inline constexpr Version FILE_VERSION{6, 1};             ///< of the files this program writes
inline constexpr std::string_view SECOND_MAGIC = "RLZ!"; ///< second word of every container file

} // namespace KOR
