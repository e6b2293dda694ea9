#include <KOR/Strings.h>

#include <cstdint>
#include <cstring>

namespace KOR {

std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> words(std::string_view text, std::string_view blanks) {
    std::vector<std::string_view> found;
    std::size_t start = text.find_first_not_of(blanks);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(blanks, start);
        found.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(blanks, end);
    }
    return found;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char & c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string replaced(std::string text, std::string_view what, std::string_view with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

std::size_t validUtf8Length(std::string_view text) {
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto isAscii = [&text](std::size_t i) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + i, sizeof(eight));
        return (eight & 0x8080808080808080) == 0;
    };
    std::size_t i = 0;
    while (i < text.size()) {
        while (i + 8 <= text.size() && isAscii(i)) // most of most files
            i += 8;
        if (i == text.size())
            break;
        const unsigned char lead = byte(i);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        if (lead < 0xC2 || lead > 0xF4 || i + length > text.size())
            return i;
        // The second byte's range excludes overlong forms, surrogates and values above U+10FFFF.
        const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        if (byte(i + 1) < low || byte(i + 1) > high)
            return i;
        for (std::size_t k = 2; k < length; ++k)
            if ((byte(i + k) & 0xC0) != 0x80)
                return i;
        i += length;
    }
    return i;
}

} // namespace KOR
