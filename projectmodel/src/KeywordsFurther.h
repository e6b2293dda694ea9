#pragma once

#include <KOR/Keywords.h>

/// Words beside the 53 categories of the keyword list.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace HYGRION {

constexpr KOR::KeywordRow INIT_BALANCE_EQUATION_MODULE[] = {
    {"HeatTransport",             "Heat",                                 ""},
    {"MoistureTransport",         "Moisture at constant temperature",     ""},
    {"HeatMoistureTransport",     "Heat and moisture",                    ""},
    {"HeatAirMoistureTransport",  "Heat, air and moisture",               ""},
    {"HeatMoistureVOCTransport",  "Heat, moisture and a pollutant (VOC)", ""},
    {"HeatMoistureSaltTransport", "Heat, moisture and salt",              ""},
};

constexpr KOR::KeywordRow OUTPUTS_FLAG[] = {
    {"BinaryFormat",           "Write binary result files (h6b) instead of text (h6o)",           ""},
    {"CreateDirectoryPerGrid", "Write the files of each output grid into a directory of its own", ""},
};

} // namespace HYGRION
