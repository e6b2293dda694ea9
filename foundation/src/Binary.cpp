#include <KOR/Binary.h>

namespace KOR {

void write_string_binary(std::ostream & out, std::string_view text) {
    write_binary(out, static_cast<std::uint32_t>(text.size()));
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string read_string_binary(std::istream & in, std::uint32_t maxLength) {
    std::uint32_t length = 0;
    if (!in.read(reinterpret_cast<char *>(&length), sizeof(length)))
        throw Exception("Error reading from input stream!", "[read_string_binary]");
    if (length > maxLength)
        throw Exception("String length exceeds given maximum!", "[read_string_binary]");
    std::string text(length, '\0'); // the largest maximum in use is half a megabyte
    if (!in.read(text.data(), length))
        throw Exception("Error reading from input stream!", "[read_string_binary]");
    return text;
}

} // namespace KOR
