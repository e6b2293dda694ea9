#pragma once

#include <cstddef>
#include <string_view>

namespace KOR {

/// One base unit a line, then its related units as operation, factor, name: what is done to a value in the base unit.
/// Units get their indices in this order. Odd factors ("1/10" ten, "mmol/L" one) are what existing files rely on.
// clang-format off
inline constexpr std::string_view UNIT_TABLE =
    "undefined\n"
    "m * 1e+03 mm * 1e+02 cm * 1e+01 dm\n"
    "m2 * 1e+06 mm2 * 1e+04 cm2 * 1e+02 dm2\n"
    "m3 * 1e+09 mm3 * 1e+06 cm3 * 1e+03 dm3 * 1e+03 L\n"
    "s / 60 min / 3600 h / 86400 d / 3.1536e+07 a % 0 sqrt(s) % 0 sqrt(h) * 1000 ms\n"
    "s/s / 60 min/s / 3600 h/s / 86400 d/s / 3.1536e+07 a/s\n"
    "m/s * 100 cm/s * 360000 cm/h * 8.64e+06 cm/d\n"
    "m2/s * 10000 cm2/s * 3600 m2/h * 3.6e+07 cm2/h\n"
    "m/s2\n"
    "s/m * 1 kg/m2sPa\n"
    "s2/m2\n"
    "kg * 1000 g * 1e+06 mg / 1000 t\n"
    "kg/ms\n"
    "kg/s * 3600 kg/h * 86400 kg/d * 1000 g/s * 3.6e6 g/h * 8.64e+07 g/d * 31536e6 g/a * 1e6 mg/s "
    "* 1e9 µg/s\n"
    "kg/m2 / 100 kg/dm2 * 10 g/dm2 / 10 g/cm2 * 1e6 mg/m2\n"
    "kg/m2s * 1000 g/m2s * 3.6e+06 g/m2h * 86.4e+06 g/m2d * 3600 kg/m2h * 1e6 mg/m2s * 1e9 µg/m2s "
    "* 3.6e9 mg/m2h * 3.6e12 µg/m2h\n"
    "kg/m3 / 1000 kg/dm3 * 1 g/dm3 / 1000 g/cm3 * 1000 g/m3 * 1e6 mg/m3 * 1000 kg/L * 1 g/L / 1000 mg/L "
    "* 1e9 µg/m3 % 0 log(kg/m3) % 0 log(g/m3) % 0 log(mg/m3) % 0 log(µg/m3)\n"
    "kg/m3s * 1000 g/m3s * 3.6e+06 g/m3h * 3600 kg/m3h * 1e6 mg/m3s * 1e9 µg/m3s * 3.6e9 mg/m3h "
    "* 3.6e12 µg/m3h\n"
    "kg/m * 1000 g/m * 1 g/mm / 1000 kg/mm\n"
    "kg/kg * 1000 g/kg * 1e6 mg/kg\n"
    "kg/m2s05 * 60 kg/m2h05\n"
    "J / 1000 kJ / 1e+06 MJ / 3.6e+09 MWh / 3.6e+06 kWh / 3600 Wh\n"
    "J/m2 / 1000 kJ/m2 / 1e+06 MJ/m2 / 1e+09 GJ/m2 / 1e+02 J/dm2 / 1e+04 J/cm2 / 3.6e+06 kWh/m2\n"
    "J/m3 * 1 Ws/m3 / 1000 kJ/m3 / 1e+06 MJ/m3 / 1e+09 GJ/m3 / 1e+03 J/dm3 / 1e+06 J/cm3 / 3.6e+06 kWh/m3\n"
    "J/m3s / 1000 kJ/m3s / 1e+06 MJ/m3s / 1000 J/dm3s / 1e+06 J/cm3s * 3600 J/m3h * 1 W/m3 / 1000 kW/m3 "
    "/ 1e+06 MW/m3 / 1000 W/dm3 / 1e+06 W/cm3 / 1e+09 W/mm3\n"
    "J/m3K / 1000 kJ/m3K\n"
    "J/s * 3600 J/h * 86400 J/d * 86.4 kJ/d * 1 W / 1000 kW / 1e+06 MW * 1 Nm/s\n"
    "J/kg / 1000 kJ/kg\n"
    "J/kgK / 1000 kJ/kgK * 1 Ws/kgK / 1000 J/gK / 1000 Ws/gK\n"
    "J/K / 1000 kJ/K\n"
    "J/m2s * 1 W/m2 / 1000 kW/m2 / 1e+06 MW/m2 / 100 W/dm2 / 10000 W/cm2\n"
    "W/mK / 1000 kW/mK\n"
    "W/m2K\n"
    "W/m2K2\n"
    "W/mK2\n"
    "L/m2s * 3600 L/m2h * 86400 L/m2d * 86400 mm/d * 3600 mm/h\n"
    "L/m3s * 3600 L/m3h\n"
    "m3/m2s * 3600 m3/m2h * 1000 dm3/m2s * 3.6e+06 dm3/m2h\n"
    "m3/m2sPa * 3600 m3/m2hPa\n"
    "m3/s * 3600 m3/h * 1000 dm3/s * 3.6e+06 dm3/h\n"
    "m3/m3 * 100 Vol%\n"
    "m3/m3d * 100 Vol%/d\n"
    "--- * 100 % * 1 1 * 10 1/10 * 8 1/8\n"
    "---/d * 100 %/d\n"
    "K - 273.15 C\n"
    "1/K\n"
    "K/m\n"
    "m2s/kg\n"
    "Pa / 100 hPa / 1000 kPa * 1e-02 mBar * 1e-05 Bar * 0.000145038 PSI * 0.00750062 Torr\n"
    "1/Pa\n"
    "Pa/m / 1000 kPa/m\n"
    "Lux / 1000 kLux\n"
    "Rad * 57.2958 Deg\n"
    "m2/kg\n"
    "m2K/W\n"
    "1/m / 100 1/cm\n"
    "logcm\n"
    "logm\n"
    "logPa\n"
    "K/Pa\n"
    "mol/kg / 1000 mol/g\n"
    "kg/mol * 1000 g/mol\n"
    "J/mol / 1000 kJ/mol\n"
    "1/logcm\n"
    "mol/m3 / 1000 mol/L / 1000 mol/dm3 / 1e+06 mol/cm3 / 1 mmol/L / 1 mM\n"
    "mol * 1e+03 mmol\n"
    "-\n"
    "mm/mK / 1000 m/mK\n"
    "m3m/m3m * 1000 m3mm/m3m * 1 m/m * 1000 mm/m\n"
    "kg/m3sK * 1000 g/m3sK * 3.6e+06 g/m3hK * 3600 kg/m3hK * 1e6 mg/m3sK * 1e9 µg/m3sK * 3.6e9 mg/m3hK "
    "* 3.6e12 µg/m3hK\n"
    "1/s * 60 1/min * 3600 1/h\n"
    "W/m2s * 3600.0000000 W/m2h / 1000.0000000 kW/m2s / 1.000000e+06 MW/m2s / 100.0000000 W/dm2s "
    "/ 10000.0000000 W/cm2s\n"
    "Person/m2\n"
    "m2/Person\n"
    "W/Person / 1000 kW/Person\n"
    "W/K\n"
    "kWh/m2a\n"
    "kWh/a\n"
    "m2/m3\n"
    "Kh\n";
// clang-format on

namespace detail {
/// Units of a table: each line holds one base unit and a unit for every three further words.
constexpr std::size_t countUnits(std::string_view table) {
    std::size_t units = 0;
    std::size_t wordsInLine = 0;
    bool inWord = false;
    for (const char c : table) {
        if (c == '\n') {
            units += wordsInLine == 0 ? 0 : 1 + (wordsInLine - 1) / 3;
            wordsInLine = 0;
        }
        const bool isBlank = c == ' ' || c == '\n';
        if (!isBlank && !inWord)
            ++wordsInLine;
        inWord = !isBlank;
    }
    return units;
}
} // namespace detail

static_assert(detail::countUnits(UNIT_TABLE) == 264, "the unit table is incomplete");

} // namespace KOR
