#include <KOR/Unit.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace KOR {

namespace {

/// Names that do not follow the rule "factors/divisors".
constexpr std::pair<std::string_view, std::string_view> OWN_NAMES[] = {
    {"undefined",   ""                },
    {"---",         ""                },
    {"-",           ""                },
    {"1",           ""                },
    {"C",           "°C"             },
    {"Deg",         "°"              },
    {"Rad",         "rad"             },
    {"sqrt(s)",     "√s"            },
    {"sqrt(h)",     "√h"            },
    {"log(kg/m3)",  "log(kg/m³)"     },
    {"log(g/m3)",   "log(g/m³)"      },
    {"log(mg/m3)",  "log(mg/m³)"     },
    {"log(µg/m3)", "log(µg/m³)"    },
    {"m3m/m3m",     "m³·m/(m³·m)" },
    {"m3mm/m3m",    "m³·mm/(m³·m)"},
};

/// Divisors are written one behind the other; the longer before those that they begin with.
constexpr std::array<std::string_view, 19> DIVISORS = {
    "Person", "logcm", "mol", "min", "kg", "dm", "cm", "mm", "Pa", "m", "g", "s", "h", "d", "a", "K", "L", "W", "J"};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// "m2" as "m²", "s05" as "√s".
std::string raised(std::string_view symbol, std::string_view power) {
    constexpr std::array<std::string_view, 10> DIGITS = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    if (power == "05")
        return "√" + std::string(symbol);
    std::string text(symbol);
    for (const char digit : power)
        text += DIGITS[static_cast<std::size_t>(digit - '0')];
    return text;
}

/// The factors of a product, "m2s05" as "m²" and "√s"; of a numerator only what stands behind a power is a factor of its
/// own, since "Wh" and "Nm" are words.
std::vector<std::string> factors(std::string_view product, bool isDivisor) {
    std::vector<std::string> found;
    while (!product.empty()) {
        std::size_t length = 0;
        if (isDivisor) {
            const auto * known = std::find_if(DIVISORS.begin(), DIVISORS.end(),
                                              [&](std::string_view symbol) { return product.starts_with(symbol); });
            length = known == DIVISORS.end() ? product.size() : known->size();
        } else {
            length = static_cast<std::size_t>(std::find_if(product.begin(), product.end(), isDigit) - product.begin());
        }
        const std::string_view symbol = product.substr(0, length);
        product.remove_prefix(length);
        const auto power =
            static_cast<std::size_t>(std::find_if_not(product.begin(), product.end(), isDigit) - product.begin());
        found.push_back(symbol.empty() ? std::string(product.substr(0, power))
                                       : raised(symbol, product.substr(0, power)));
        product.remove_prefix(power);
    }
    return found;
}

std::string joined(const std::vector<std::string> & parts) {
    std::string text;
    for (const std::string & part : parts)
        text += (text.empty() ? "" : "·") + part;
    return text;
}

} // namespace

std::string Unit::displayName() const {
    const std::string_view whole = name();
    const auto * own =
        std::find_if(std::begin(OWN_NAMES), std::end(OWN_NAMES), [&](const auto & row) { return row.first == whole; });
    if (own != std::end(OWN_NAMES))
        return std::string(own->second);
    const std::size_t slash = whole.find('/');
    std::string above = joined(factors(whole.substr(0, slash), false));
    if (slash == std::string_view::npos)
        return above;
    const std::vector<std::string> below = factors(whole.substr(slash + 1), true);
    return above + '/' + (below.size() > 1 ? '(' + joined(below) + ')' : joined(below));
}

} // namespace KOR
