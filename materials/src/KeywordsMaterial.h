#pragma once

#include <KOR/Keywords.h>

/// Words of materials, their identification and base parameters.
/// A row: the word that is written and the words still read, the description, the default unit.
namespace MM {

constexpr KOR::KeywordRow MATERIAL_IDENTIFICATION_IDENT[] = {
    {"NAME",               "", ""},
    {"PRODUCER",           "", ""},
    {"PRODUCT_ID",         "", ""},
    {"INVESTIGATOR",       "", ""},
    {"LABORATORY SOURCE",  "", ""},
    {"DATE",               "", ""},
    {"SAMPLING_DATE",      "", ""},
    {"PRODUCTION_DATE",    "", ""},
    {"SAMPLE_ID",          "", ""},
    {"SAMPLING_METHOD",    "", ""},
    {"COUNTRY",            "", ""},
    {"COLOUR COLOR",       "", ""},
    {"FLAGS",              "", ""},
    {"USE_INSTEAD",        "", ""},
    {"COPYRIGHT",          "", ""},
    {"CATEGORY",           "", ""},
    {"COMMENTS",           "", ""},
    {"U_DIRECTION",        "", ""},
    {"V_DIRECTION",        "", ""},
    {"W_DIRECTION",        "", ""},
    {"DBTYPE",             "", ""},
    {"SIGNATURE_SOURCE",   "", ""},
    {"QUALITY_FLAGS",      "", ""},
    {"DATA_SHEET_SOURCE",  "", ""},
    {"HATCHING",           "", ""},
    {"AQUISITION_ID",      "", ""},
    {"FROST_DAMAGE_CHECK", "", ""},
};

constexpr KOR::KeywordRow MATERIAL_IDENTIFICATION_FLAGS[] = {
    {"AIR",         "Material is air.",                                                                   ""},
    {"AIR_TIGHT",   "No gas transport through the material possible.",                                    ""},
    {"VAPOR_TIGHT", "No water vapor transport through the material.",                                     ""},
    {"WATER_TIGHT", "No liquid water transport through the materials.",                                   ""},
    {"WOOD",        "Material is wood (timber)",                                                          ""},
    {"WOOD_BASED",  "Material is based on wood (e.g. wood fiber board)",                                  ""},
    {"FOILS",       "Material is a foil or vapor retarder. See in comments for additional informations.", ""},
};

constexpr KOR::KeywordRow MATERIAL_IDENTIFICATION_SAMPLING_METHODS[] = {
    {"S_CAST_CUT_PRODUCER", "casted and cutted by producer", ""},
    {"S_CAST_PRODUCER",     "casted by producer",            ""},
    {"S_CAST_CUT_KOR",      "casted and cutted by KOR",      ""},
    {"S_CAST_KOR",          "casted by KOR",                 ""},
};

constexpr KOR::KeywordRow MATERIAL_IDENTIFICATION_FLAGS_PRE_V6[] = {
    {"AIR",                    "", ""},
    {"AIRTIGHT AIR_TIGHT",     "", ""},
    {"VAPORTIGHT VAPOR_TIGHT", "", ""},
    {"WATERTIGHT WATER_TIGHT", "", ""},
    {"WOOD",                   "", ""},
    {"WOODBASED",              "", ""},
    {"ONLY_HYGROSCOPIC",       "", ""},
};

constexpr KOR::KeywordRow MATERIAL_IDENTIFICATION_HATCHING_TYPE[] = {
    {"Ground",                "code according DIN ISO 128-50 no, DIN 1356-1 8.1",  ""},
    {"Gravel",                "code according DIN ISO 128-50 SN4",                 ""},
    {"Sand",                  "code according DIN ISO 128-50 SN5",                 ""},
    {"ConcreteNotReinforced", "code according DIN ISO 128-50 SN47",                ""},
    {"ConcreteReinforced",    "code according DIN ISO 128-50 SN46",                ""},
    {"Masonry",               "code according DIN ISO 128-50 SN41",                ""},
    {"WoodTransverseToFibre", "code according DIN ISO 128-50 SN21",                ""},
    {"WoodLongitudinal",      "code according DIN ISO 128-50 SN22",                ""},
    {"Metal",                 "code according DIN ISO 128-50 SM",                  ""},
    {"MortarPlaster",         "code according DIN ISO 128-50 no, DIN 1356-1 8.10", ""},
    {"Insulation",            "code according DIN ISO 128-50 SN55",                ""},
    {"SealingFoil",           "code according DIN ISO 128-50 SN59",                ""},
    {"Sealant",               "code according DIN ISO 128-50 SN24",                ""},
    {"None",                  "",                                                  ""},
};

constexpr KOR::KeywordRow MATERIAL_SECTIONS[] = {
    {"IDENTIFICATION",             "", ""},
    {"STORAGE_BASE_PARAMETERS",    "", ""},
    {"TRANSPORT_BASE_PARAMETERS",  "", ""},
    {"MECHANICAL_BASE_PARAMETERS", "", ""},
    {"THERMAL_STORAGE",            "", ""},
    {"MOISTURE_STORAGE",           "", ""},
    {"MOISTURE_TRANSPORT",         "", ""},
    {"HEAT_TRANSPORT",             "", ""},
    {"AIR_TRANSPORT",              "", ""},
    {"MOISTURE_TRANSPORT_V",       "", ""},
    {"HEAT_TRANSPORT_V",           "", ""},
    {"AIR_TRANSPORT_V",            "", ""},
    {"MOISTURE_TRANSPORT_W",       "", ""},
    {"HEAT_TRANSPORT_W",           "", ""},
    {"AIR_TRANSPORT_W",            "", ""},
    {"MEASURED_DATA",              "", ""},
    {"VAPOR_CONTACT_RESISTANCE",   "", ""},
};

constexpr KOR::KeywordRow MATERIAL_SECTIONS_PRE_V6[] = {
    {"MATERIAL",       "", ""},
    {"IDENTIFICATION", "", ""},
    {"GENERAL",        "", ""},
    {"MRC",            "", ""},
    {"MOISTTRANS",     "", ""},
    {"HEATTRANS",      "", ""},
    {"AIRTRANS",       "", ""},
    {"PARAMETER",      "", ""},
    {"PCMMATERIAL",    "", ""},
};

constexpr KOR::KeywordRow MATERIAL_PARA_STORAGE[] = {
    {"RHO",            "Bulk density of dry material",                                  "kg/m3"},
    {"CE CET",         "Specific heat capacity of dry material",                        "J/kgK"},
    {"THETA_POR OPOR", "Open porosity",                                                 "m3/m3"},
    {"THETA_EFF OEFF", "Effective saturation (long term process)",                      "m3/m3"},
    {"THETA_CAP OCAP", "Capillary saturation content (short term process)",             "m3/m3"},
    {"THETA_LIM_HYG",  "Maxiumum moisture content allowed (material must not get wet)", "m3/m3"},
    {"THETA_80 O80",   "Hygroscopic sorption value at RH=80%",                          "m3/m3"},
};

constexpr KOR::KeywordRow MATERIAL_PARA_TRANSPORT[] = {
    {"LAMBDA",        "Thermal conductivity (dry)",                                                "W/mK"    },
    {"AW",            "Water uptake coefficient",                                                  "kg/m2s05"},
    {"MEW",           "Water vapor diffusion resistance factor",                                   "-"       },
    {"SD",            "Diffusion equivalent air layer thickness",                                  "m"       },
    {"KLEFF KLSAT",   "Liquid water conductivity at effective saturation",                         "s"       },
    {"DLEFF",         "Liquid water diffusivity at effective saturation",                          "m2/s"    },
    {"KG KGDRY",      "Air permeability",                                                          "s"       },
    {"LAMBDA_V",      "Thermal conductivity (dry) in material direction v",                        "W/mK"    },
    {"AW_V",          "Water uptake coefficient in material direction v",                          "kg/m2s05"},
    {"MEW_V",         "Water vapor diffusion resistance factor in material direction v",           "-"       },
    {"SD_V",          "Diffusion equivalent air layer thickness in material direction v",          "m"       },
    {"KLEFF_V",       "Liquid water conductivity at effective saturation in material direction v", "s"       },
    {"DLEFF_V",       "Liquid water diffusivity at effective saturation in material direction v",  "m2/s"    },
    {"KG_V",          "Air permeability in material direction v",                                  "s"       },
    {"LAMBDA_W",      "Thermal conductivity (dry) in material direction w",                        "W/mK"    },
    {"AW_W",          "Water uptake coefficient in material direction w",                          "kg/m2s05"},
    {"MEW_W",         "Water vapor diffusion resistance factor in material direction w",           "-"       },
    {"SD_W",          "Diffusion equivalent air layer thickness in material direction w",          "m"       },
    {"KLEFF_W",       "Liquid water conductivity at effective saturation in material direction w", "s"       },
    {"DLEFF_W",       "Liquid water diffusivity at effective saturation in material direction w",  "m2/s"    },
    {"KG_W",          "Air permeability in material direction w",                                  "s"       },
    {"LAMBDA_DESIGN", "Design value of thermal conductivity",                                      "W/mK"    },
};

constexpr KOR::KeywordRow MATERIAL_PARA_MECHANICAL[] = {
    {"ALPHA",          "Thermal expansion coefficient",                                                      "mm/mK"  },
    {"BETA_THETA_L",   "Hygric expansion coefficient (volumetric moisture content)",                         "m3m/m3m"},
    {"BETA_THETA_L2",  "Fiber saturation point (wood)",                                                      "m3/m3"  },
    {"ALPHA_V",        "Thermal expansion coefficient in material direction v",                              "mm/mK"  },
    {"BETA_THETA_L_V", "Hygric expansion coefficient (volumetric moisture content) in material direction v", "m3m/m3m"},
    {"ALPHA_W",        "Thermal expansion coefficient in material direction w",                              "mm/mK"  },
    {"BETA_THETA_L_W", "Hygric expansion coefficient (volumetric moisture content) in material direction w", "m3m/m3m"},
};

constexpr KOR::KeywordRow MATERIAL_CATEGORY_CATEGORY_ID[] = {
    {"INVALID",           "Invalid Category",                       ""},
    {"COATING",           "Coating",                                ""},
    {"PLASTER",           "Plaster and mortar",                     ""},
    {"BRICK",             "Building brick",                         ""},
    {"NATURAL_STONES",    "Natural stones",                         ""},
    {"CONCRETE",          "Concrete containing building materials", ""},
    {"INSULATION",        "Insulation materials",                   ""},
    {"BUILDING_BOARDS",   "Building boards",                        ""},
    {"TIMBER",            "Timber",                                 ""},
    {"NATURAL_MATERIALS", "Natural materials",                      ""},
    {"SOIL",              "Soil",                                   ""},
    {"CLADDING",          "Cladding panels and ceramic tiles",      ""},
    {"FOILS",             "Foils and waterproofing products",       ""},
    {"MISC",              "Miscellaneous",                          ""},
};

} // namespace MM
