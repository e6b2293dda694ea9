#include <KOR/Version.h>

#include <KOR/Binary.h>
#include <KOR/Strings.h>

#include <array>

namespace KOR {

std::size_t Version::read(std::istream & in, std::span<const Magic> magics) {
    std::array<char, 4> bytes{};
    in.read(bytes.data(), bytes.size());
    const std::string_view first(bytes.data(), static_cast<std::size_t>(in.gcount()));
    std::size_t found = 0;
    while (found < magics.size() && magics[found].bytes != first)
        ++found;
    if (found == magics.size())
        throw Exception("Invalid magic header or unknown file format.", "[Version::read]");
    in.read(bytes.data(), bytes.size());
    if (!in || std::string_view(bytes.data(), bytes.size()) != SECOND_MAGIC)
        throw Exception("Wrong second magic number!", "[Version::read]");
    if (magics[found].isBinary) {
        *this = fromWord(read_binary<std::uint32_t>(in));
        return found;
    }
    std::array<char, 8> versionText{};
    in.read(versionText.data(), versionText.size());
    const std::string_view given(versionText.data(), static_cast<std::size_t>(in.gcount()));
    if (given.size() != versionText.size() || !parse(given))
        throw Exception(KOR::text("Invalid version number '%1' in file header.", given), "[Version::read]");
    return found;
}

void Version::write(std::ostream & out, const Magic & magic) const {
    out << magic.bytes << SECOND_MAGIC;
    if (magic.isBinary)
        write_binary(out, word());
    else
        out << text();
}

std::string Version::text() const {
    std::string padded = std::to_string(major) + '.' + std::to_string(minor);
    padded.resize(std::max<std::size_t>(padded.size(), 8), ' ');
    return padded;
}

bool Version::parse(std::string_view given) {
    const auto parts = split(trimmed(given), '.');
    if (parts.size() != 2)
        return false;
    const auto majorNumber = parseInteger<std::uint8_t>(parts[0]);
    const auto minorNumber = parseInteger<std::uint8_t>(parts[1]);
    if (!majorNumber || !minorNumber)
        return false;
    major = *majorNumber;
    minor = *minorNumber;
    return true;
}

} // namespace KOR
