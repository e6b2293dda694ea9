#pragma once

#include <KOR/Exception.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// Little-endian primitives of the container files. Lengths are bounded before memory is taken, and memory grows with
/// the data that really arrives.
namespace KOR {

static_assert(std::endian::native == std::endian::little, "the container files are little-endian");

template <typename T> void write_binary(std::ostream & out, const T & value) {
    out.write(reinterpret_cast<const char *>(&value), sizeof(T));
}

/// Throws "Error reading from input stream!" ("[read_binary]").
template <typename T> T read_binary(std::istream & in) {
    T value;
    if (!in.read(reinterpret_cast<char *>(&value), sizeof(T)))
        throw Exception("Error reading from input stream!", "[read_binary]");
    return value;
}

namespace detail {
/// Reads a 32-bit count and as many elements; takes memory in steps as they arrive.
template <typename Container>
Container readCounted(std::istream & in, std::uint32_t maxCount, const char * tooLong, const char * where) {
    using Element = typename Container::value_type;
    constexpr std::size_t CHUNK = 65536 / sizeof(Element);
    std::uint32_t count = 0;
    if (!in.read(reinterpret_cast<char *>(&count), sizeof(count)))
        throw Exception("Error reading from input stream!", where);
    if (count > maxCount)
        throw Exception(tooLong, where);
    Container values;
    while (values.size() < count) {
        const std::size_t start = values.size();
        const std::size_t step = std::min<std::size_t>(std::max(CHUNK, start), count - start);
        values.resize(start + step);
        if (!in.read(reinterpret_cast<char *>(values.data() + start),
                     static_cast<std::streamsize>(step * sizeof(Element))))
            throw Exception("Error reading from input stream!", where);
    }
    return values;
}
} // namespace detail

/// 32-bit length, then the bytes, no terminator.
void write_string_binary(std::ostream & out, std::string_view text);

/// Throws ("[read_string_binary]") "String length exceeds given maximum!" and "Error reading from input stream!".
std::string read_string_binary(std::istream & in, std::uint32_t maxLength);

/// 32-bit count, then the elements.
template <typename T> void write_vector_binary(std::ostream & out, const std::vector<T> & values) {
    write_binary(out, static_cast<std::uint32_t>(values.size()));
    out.write(reinterpret_cast<const char *>(values.data()), static_cast<std::streamsize>(values.size() * sizeof(T)));
}

/// Throws ("[read_vector_binary]") "Vector length exceeds given maximum!" and "Error reading from input stream!".
template <typename T> std::vector<T> read_vector_binary(std::istream & in, std::uint32_t maxCount) {
    return detail::readCounted<std::vector<T>>(in, maxCount, "Vector length exceeds given maximum!",
                                               "[read_vector_binary]");
}

} // namespace KOR
