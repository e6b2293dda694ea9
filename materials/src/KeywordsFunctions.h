#pragma once

#include <KOR/Keywords.h>

/// Words of the material functions.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace MM {

constexpr KOR::KeywordRow AIR_TRANSPORT_FUNCTIONS[] = {
    {"Kg(Theta_l) Kg(Ol)", "", ""},
};

constexpr KOR::KeywordRow FOILS_IDENT[] = {
    {"NAME",     "", ""},
    {"ID_PLUS",  "", ""},
    {"ID_MINUS", "", ""},
    {"COMMENT",  "", ""},
};

constexpr KOR::KeywordRow FOILS_PARAM[] = {
    {"SD_VALUE",          "", ""},
    {"WEIGHT_FACTOR_POS", "", ""},
    {"WEIGHT_FACTOR_NEG", "", ""},
    {"SCALING_A_POS",     "", ""},
    {"SCALING_B_POS",     "", ""},
    {"SCALING_C_POS",     "", ""},
    {"SCALING_A_NEG",     "", ""},
    {"SCALING_B_NEG",     "", ""},
    {"SCALING_C_NEG",     "", ""},
};

constexpr KOR::KeywordRow FOILS_FUNCTIONS[] = {
    {"sd+(rh)", "", ""},
    {"sd-(rh)", "", ""},
};

constexpr KOR::KeywordRow MODEL_HANDLER_MODEL_IDENTIFIER[] = {
    {"GAUSS",           "", ""},
    {"SERIAL_PARALLEL", "", ""},
};

constexpr KOR::KeywordRow MOISTURE_STORAGE_FUNCTIONS[] = {
    {"Theta_l(pC)_de Ol(pC)",             "", ""},
    {"pC(Theta_l)_de pC(Ol)",             "", ""},
    {"Theta_l(RH) Theta_l(RH)_de Ol(RH)", "", ""},
    {"Theta_l(pC)_ad",                    "", ""},
    {"pC(Theta_l)_ad",                    "", ""},
    {"mwu(T)",                            "", ""},
    {"DE(pC)",                            "", ""},
};

constexpr KOR::KeywordRow MOISTURE_STORAGE_MODEL_TYPES[] = {
    {"GAUSS",         "Gauss MRC-Model",         ""},
    {"VAN_GENUCHTEN", "van Genuchten MRC-Model", ""},
};

constexpr KOR::KeywordRow MOISTURE_TRANSPORT_FUNCTIONS[] = {
    {"lgKl(Theta_l) lgKl(Ol)", "", ""},
    {"lgDl(Theta_l) lgDl(Ol)", "", ""},
    {"lgKv(Theta_l) lgKv(Ol)", "", ""},
    {"mew(RH) My(Phi)",        "", ""},
};

constexpr KOR::KeywordRow MOISTURE_TRANSPORT_MODEL_TYPES[] = {
    {"SERIAL_PARALLEL SP_MODEL", "Serial Parallel vapor transport model", ""},
};

constexpr KOR::KeywordRow THERMAL_STORAGE_FUNCTIONS[] = {
    {"u(T)", "", ""},
};

constexpr KOR::KeywordRow THERMAL_TRANSPORT_FUNCTIONS[] = {
    {"lambda(Theta_l) lambda(Ol)", "", ""},
    {"lambda(T)",                  "", ""},
    {"lambda(Theta_ice)",          "", ""},
};

constexpr KOR::KeywordRow VAPOR_CONTACT_RESISTANCE_MODEL_PARAM[] = {
    {"WEIGHT_FACTOR_POS", "Weighting factor for adaptive foil model positive direction",                        "-"},
    {"WEIGHT_FACTOR_NEG", "Weighting factor for adaptive foil model negative direction",                        "-"},
    {"SCALING_A_POS",     "Parameter a for square scaling function for adaptive foil model positive direction", "-"},
    {"SCALING_B_POS",     "Parameter b for square scaling function for adaptive foil model positive direction", "-"},
    {"SCALING_C_POS",     "Parameter c for square scaling function for adaptive foil model positive direction", "-"},
    {"SCALING_A_NEG",     "Parameter a for square scaling function for adaptive foil model negative direction", "-"},
    {"SCALING_B_NEG",     "Parameter b for square scaling function for adaptive foil model negative direction", "-"},
    {"SCALING_C_NEG",     "Parameter c for square scaling function for adaptive foil model negative direction", "-"},
};

constexpr KOR::KeywordRow VAPOR_CONTACT_RESISTANCE_MODEL_FUNCTIONS[] = {
    {"sd+(rh)", "", ""},
    {"sd-(rh)", "", ""},
};

} // namespace MM
