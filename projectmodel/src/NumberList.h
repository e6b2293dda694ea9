#pragma once

#include <KOR/Numbers.h>
#include <KOR/Strings.h>
#include <KOR/Xml.h>

#include <array>
#include <cmath>

namespace HYGRION {

/// Reads an element's text of exactly COUNT numbers. Throws with the line: "Could not convert '%1' into value."
/// ("[string2val]"), "Expected %1 numbers, found %2." (\p where).
template <std::size_t COUNT>
std::array<double, COUNT> readNumberList(const TiXmlElement & element, const char * where) {
    const std::string text = KOR::xml::text(element);
    const auto parts = KOR::words(text);
    if (parts.size() != COUNT)
        throw KOR::Exception(
            KOR::xml::withLine(element, KOR::text("Expected %1 numbers, found %2.", COUNT, parts.size())), where);
    std::array<double, COUNT> numbers{};
    for (std::size_t i = 0; i < COUNT; ++i)
        numbers[i] = KOR::string2val<double>(parts[i]);
    return numbers;
}

/// The numbers with their shortest digits. Throws when one could not be read again.
template <std::size_t COUNT>
std::string writeNumberList(const std::array<double, COUNT> & numbers, const char * where) {
    for (const double number : numbers)
        if (!std::isfinite(number))
            throw KOR::Exception("Cannot write a number that is not finite.", where);
    return KOR::joinNumbers({numbers.begin(), numbers.end()});
}

} // namespace HYGRION
