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
    std::array<char, TEXT_LENGTH> versionText{};
    in.read(versionText.data(), versionText.size());
    const std::string_view given(versionText.data(), static_cast<std::size_t>(in.gcount()));
    if (!parse(given))
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
    const auto digits = [](unsigned int number) {
        std::string three = std::to_string(number);
        return std::string(3 - three.size(), '0') + three;
    };
    return ' ' + digits(major) + '.' + digits(minor);
}

bool Version::parse(std::string_view given) {
    if (given.size() != TEXT_LENGTH)
        return false;
    const auto number = [&given](std::size_t at) -> std::optional<std::uint8_t> {
        const std::string_view digits = given.substr(at, 3);
        if (digits.find_first_not_of("0123456789") != std::string_view::npos)
            return std::nullopt;
        return parseInteger<std::uint8_t>(digits);
    };
    const auto majorNumber = number(1);
    const auto minorNumber = number(5);
    if (!majorNumber || !minorNumber)
        return false;
    major = *majorNumber;
    minor = *minorNumber;
    return true;
}

} // namespace KOR
