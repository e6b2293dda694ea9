#pragma once

#include <KOR/Keywords.h>

/// Words of measured data.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace MM {

constexpr KOR::KeywordRow MEASURED_DATA_SECTIONS[] = {
    {"GEOMETRY",    "", ""},
    {"EXPERIMENTS", "", ""},
};

constexpr KOR::KeywordRow MEASURED_DATA_WATER_RETENTION_VALUES[] = {
    {"NON_LOG_PC",    "", "Pa"   },
    {"TEMPERATURE",   "", "K"    },
    {"THETA_L",       "", "m3/m3"},
    {"STD_DEVIATION", "", "-"    },
    {"MINIMUM",       "", "m3/m3"},
    {"MAXIMUM",       "", "m3/m3"},
};

constexpr KOR::KeywordRow MEASURED_DATA_WATER_VAPOUR_PERMEABILITY_VALUES[] = {
    {"PHI_INSIDE",    "", "%"},
    {"PHI_OUTSIDE",   "", "%"},
    {"MEW",           "", "-"},
    {"STD_DEVIATION", "", "-"},
    {"MINIMUM",       "", "-"},
    {"MAXIMUM",       "", "-"},
};

constexpr KOR::KeywordRow MEASURED_DATA_LIQUID_WATER_CONDUCTIVITY_VALUES[] = {
    {"STD_DEVIATION", "", "-"},
    {"MINIMUM",       "", "s"},
    {"MAXIMUM",       "", "s"},
};

constexpr KOR::KeywordRow MEASURED_DATA_WATER_UPTAKE_VALUES[] = {
    {"MASS", "", "Kg"},
};

constexpr KOR::KeywordRow MEASURED_DATA_DRYING_VALUES0[] = {
    {"WEIGHT",   "", "m"},
    {"WIDTH_0",  "", "m"},
    {"LENGTH_0", "", "m"},
    {"HEIGHT_0", "", "m"},
    {"WIDTH_1",  "", "m"},
    {"LENGTH_1", "", "m"},
    {"HEIGHT_1", "", "m"},
};

constexpr KOR::KeywordRow MEASURED_DATA_DRYING_VALUES1[] = {
    {"BC_TEMPERATURE_0",     "", "K"},
    {"BC_RH_0",              "", "%"},
    {"BC_TEMPERATURE_1",     "", "K"},
    {"BC_RH_1",              "", "%"},
    {"SAMPLE_TEMPERATURE_0", "", "K"},
    {"SAMPLE_TEMPERATURE_1", "", "K"},
    {"SAMPLE_TEMPERATURE_2", "", "K"},
    {"SAMPLE_TEMPERATURE_3", "", "K"},
    {"SAMPLE_TEMPERATURE_4", "", "K"},
    {"SAMPLE_TEMPERATURE_5", "", "K"},
};

constexpr KOR::KeywordRow MEASURED_DATA_GEOMETRY_KEYS[] = {
    {"SPECIMEN",  "", ""},
    {"CYLINDRIC", "", ""},
    {"WIDTH_0",   "", ""},
    {"WIDTH_1",   "", ""},
    {"WIDTH_2",   "", ""},
    {"WIDTH_3",   "", ""},
    {"LENGTH_0",  "", ""},
    {"LENGTH_1",  "", ""},
    {"LENGTH_2",  "", ""},
    {"LENGTH_3",  "", ""},
    {"HEIGHT_0",  "", ""},
    {"HEIGHT_1",  "", ""},
    {"HEIGHT_2",  "", ""},
    {"HEIGHT_3",  "", ""},
};

constexpr KOR::KeywordRow MEASURED_DATA_EXPERIMENT_KEYS[] = {
    {"SPECIMEN",             "", ""},
    {"EXPERIMENT",           "", ""},
    {"X_VALUES",             "", ""},
    {"NON_LOG_PC",           "", ""},
    {"TEMPERATURE",          "", ""},
    {"THETA_L",              "", ""},
    {"PHI_INSIDE",           "", ""},
    {"PHI_OUTSIDE",          "", ""},
    {"MEW",                  "", ""},
    {"MINIMUM",              "", ""},
    {"MAXIMUM",              "", ""},
    {"STD_DEVIATION",        "", ""},
    {"WEIGHT",               "", ""},
    {"WIDTH_0",              "", ""},
    {"LENGTH_0",             "", ""},
    {"HEIGHT_0",             "", ""},
    {"WIDTH_1",              "", ""},
    {"LENGTH_1",             "", ""},
    {"HEIGHT_1",             "", ""},
    {"DATE_BC",              "", ""},
    {"BC_TEMPERATURE_0",     "", ""},
    {"BC_RH_0",              "", ""},
    {"BC_TEMPERATURE_1",     "", ""},
    {"BC_RH_1",              "", ""},
    {"SAMPLE_TEMPERATURE_0", "", ""},
    {"SAMPLE_TEMPERATURE_1", "", ""},
    {"SAMPLE_TEMPERATURE_2", "", ""},
    {"SAMPLE_TEMPERATURE_3", "", ""},
    {"SAMPLE_TEMPERATURE_4", "", ""},
    {"SAMPLE_TEMPERATURE_5", "", ""},
};

constexpr KOR::KeywordRow MEASURED_DATA_EXPERIMENTS[] = {
    {"WET_CUP",           "", ""},
    {"MED_CUP",           "", ""},
    {"DRY_CUP",           "", ""},
    {"WATER_RETENTION",   "", ""},
    {"SORPTION_ISOTHERM", "", ""},
    {"WATER_UPTAKE",      "", ""},
    {"DRYING_0",          "", ""},
    {"DRYING_1",          "", ""},
};

} // namespace MM
