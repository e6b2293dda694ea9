#include <KOR/Binary.h>

namespace KOR {

void write_string_binary(std::ostream & out, std::string_view text) {
    write_binary(out, static_cast<std::uint32_t>(text.size()));
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string read_string_binary(std::istream & in, std::uint32_t maxLength) {
    return detail::readCounted<std::string>(in, maxLength, "String length exceeds given maximum!",
                                            "[read_string_binary]");
}

} // namespace KOR
