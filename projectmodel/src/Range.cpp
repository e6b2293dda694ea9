#include <HYGRION/Range.h>

#include <KOR/Strings.h>
#include <KOR/Xml.h>

#include <array>
#include <charconv>

namespace HYGRION {

namespace {

/// Reads leading unsigned numbers and returns how many there are.
std::size_t readNumbers(std::string_view text, std::array<std::uint32_t, 6> & numbers) {
    std::size_t count = 0;
    while (count < numbers.size()) {
        text.remove_prefix(std::min(text.find_first_not_of(KOR::WHITE_SPACE), text.size()));
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), numbers[count]);
        if (error != std::errc{})
            break;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        ++count;
    }
    return count;
}

} // namespace

void Range::normalise() {
    if (left > right)
        std::swap(left, right);
    if (bottom > top)
        std::swap(bottom, top);
    if (back > front)
        std::swap(back, front);
}

std::uint64_t Range::cellCount() const {
    if (!isNormalised())
        return 0;
    return (std::uint64_t{right} - left + 1) * (std::uint64_t{top} - bottom + 1) * (std::uint64_t{front} - back + 1);
}

Range Range::fromString(std::string_view text) {
    std::array<std::uint32_t, 6> n{};
    const std::size_t count = readNumbers(text, n);
    if (count < 4)
        throw KOR::Exception(KOR::text("Invalid or unsupported range format '%1'", text), "[Range::fromString]");
    Range range;
    if (count == 6)
        range = {.left = n[0], .bottom = n[1], .back = n[2], .right = n[3], .top = n[4], .front = n[5]};
    else
        range = {.left = n[0], .bottom = n[1], .back = 0, .right = n[2], .top = n[3], .front = 0};
    range.normalise();
    return range;
}

std::string Range::toString() const {
    return KOR::text("[%1, %2, %3] - [%4, %5, %6]", left, bottom, back, right, top, front);
}

void Range::readXML(const TiXmlElement & element) {
    const std::string text = KOR::xml::text(element);
    try {
        *this = fromString(text);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(KOR::xml::located(element, ex), KOR::text("Error reading range '%1'.", text),
                             "[Range::readXML]");
    }
}

void Range::writeXML(TiXmlElement & parent) const {
    const bool isFlat = back == 0 && front == 0;
    KOR::xml::appendText(parent, "Range",
                         isFlat ? KOR::text("%1 %2 %3 %4", left, bottom, right, top)
                                : KOR::text("%1 %2 %3 %4 %5 %6", left, bottom, back, right, top, front));
}

} // namespace HYGRION
