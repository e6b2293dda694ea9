#include <MM/KeywordList.h>

#include <MM/Foils.h>
#include <MM/Material.h>

#include "KeywordsFunctions.h"
#include "KeywordsMaterial.h"
#include "KeywordsMeasuredData.h"

#include <iterator>

namespace MM {

namespace {

using KOR::KeywordIndexing;
using KOR::tiedKeywords;

/// In the order of the enumeration types. A row does not compile unless words and enumerators agree.
constexpr KOR::KeywordCategory CATEGORIES[] = {
    tiedKeywords<AirTransport::Functions>("AirTransport::Functions", AIR_TRANSPORT_FUNCTIONS),
    tiedKeywords<Foils::Ident>("Foils::Ident", FOILS_IDENT),
    tiedKeywords<Foils::Param>("Foils::Param", FOILS_PARAM),
    tiedKeywords<Foils::Functions>("Foils::Functions", FOILS_FUNCTIONS),
    tiedKeywords<MaterialIdentification::Ident>("MaterialIdentification::Ident", MATERIAL_IDENTIFICATION_IDENT),
    tiedKeywords<MaterialIdentification::Flags, KeywordIndexing::BITS>("MaterialIdentification::Flags",
                                                                       MATERIAL_IDENTIFICATION_FLAGS),
    tiedKeywords<MaterialIdentification::SamplingMethods, KeywordIndexing::FROM_ONE>(
        "MaterialIdentification::SamplingMethods", MATERIAL_IDENTIFICATION_SAMPLING_METHODS),
    tiedKeywords<MaterialIdentification::FlagsPreV6>("MaterialIdentification::FlagsPreV6",
                                                     MATERIAL_IDENTIFICATION_FLAGS_PRE_V6),
    tiedKeywords<MaterialIdentification::HatchingType>("MaterialIdentification::HatchingType",
                                                       MATERIAL_IDENTIFICATION_HATCHING_TYPE),
    tiedKeywords<Material::Sections>("Material::Sections", MATERIAL_SECTIONS),
    tiedKeywords<Material::SectionsPreV6>("Material::SectionsPreV6", MATERIAL_SECTIONS_PRE_V6),
    tiedKeywords<Material::ParaStorage>("Material::ParaStorage", MATERIAL_PARA_STORAGE),
    tiedKeywords<Material::ParaTransport>("Material::ParaTransport", MATERIAL_PARA_TRANSPORT),
    tiedKeywords<Material::ParaMechanical>("Material::ParaMechanical", MATERIAL_PARA_MECHANICAL),
    tiedKeywords<MaterialCategory::CategoryID>("MaterialCategory::CategoryID", MATERIAL_CATEGORY_CATEGORY_ID),
    tiedKeywords<MeasuredData::Sections>("MeasuredData::Sections", MEASURED_DATA_SECTIONS),
    tiedKeywords<MeasuredData::WaterRetentionValues>("MeasuredData::WaterRetentionValues",
                                                     MEASURED_DATA_WATER_RETENTION_VALUES),
    tiedKeywords<MeasuredData::WaterVapourPermeabilityValues>("MeasuredData::WaterVapourPermeabilityValues",
                                                              MEASURED_DATA_WATER_VAPOUR_PERMEABILITY_VALUES),
    tiedKeywords<MeasuredData::LiquidWaterConductivityValues>("MeasuredData::LiquidWaterConductivityValues",
                                                              MEASURED_DATA_LIQUID_WATER_CONDUCTIVITY_VALUES),
    tiedKeywords<MeasuredData::WaterUptakeValues>("MeasuredData::WaterUptakeValues", MEASURED_DATA_WATER_UPTAKE_VALUES),
    tiedKeywords<MeasuredData::DryingValues0>("MeasuredData::DryingValues0", MEASURED_DATA_DRYING_VALUES0),
    tiedKeywords<MeasuredData::DryingValues1>("MeasuredData::DryingValues1", MEASURED_DATA_DRYING_VALUES1),
    tiedKeywords<MeasuredData::GeometryKeys>("MeasuredData::GeometryKeys", MEASURED_DATA_GEOMETRY_KEYS),
    tiedKeywords<MeasuredData::ExperimentKeys>("MeasuredData::ExperimentKeys", MEASURED_DATA_EXPERIMENT_KEYS),
    tiedKeywords<MeasuredData::Experiments, KeywordIndexing::BITS>("MeasuredData::Experiments",
                                                                   MEASURED_DATA_EXPERIMENTS),
    tiedKeywords<ModelHandler::ModelIdentifier>("ModelHandler::ModelIdentifier", MODEL_HANDLER_MODEL_IDENTIFIER),
    tiedKeywords<MoistureStorage::Functions>("MoistureStorage::Functions", MOISTURE_STORAGE_FUNCTIONS),
    tiedKeywords<MoistureStorage::ModelTypes>("MoistureStorage::ModelTypes", MOISTURE_STORAGE_MODEL_TYPES),
    tiedKeywords<MoistureTransport::Functions>("MoistureTransport::Functions", MOISTURE_TRANSPORT_FUNCTIONS),
    tiedKeywords<MoistureTransport::ModelTypes>("MoistureTransport::ModelTypes", MOISTURE_TRANSPORT_MODEL_TYPES),
    tiedKeywords<ThermalStorage::Functions>("ThermalStorage::Functions", THERMAL_STORAGE_FUNCTIONS),
    tiedKeywords<ThermalTransport::Functions>("ThermalTransport::Functions", THERMAL_TRANSPORT_FUNCTIONS),
    tiedKeywords<VaporContactResistanceModel::Param>("VaporContactResistanceModel::Param",
                                                     VAPOR_CONTACT_RESISTANCE_MODEL_PARAM),
    tiedKeywords<VaporContactResistanceModel::Functions>("VaporContactResistanceModel::Functions",
                                                         VAPOR_CONTACT_RESISTANCE_MODEL_FUNCTIONS),
};
static_assert(std::size(CATEGORIES) == 34);

constexpr KOR::KeywordTable TABLE{CATEGORIES};

} // namespace

const KOR::KeywordTable & KeywordList::table() {
    return TABLE;
}

std::string_view KeywordList::Description(std::string_view enumtype, int index, bool * exists) {
    const std::string_view description = TABLE.Description(enumtype, index);
    if (exists != nullptr)
        *exists = !description.empty();
    if (!description.empty())
        return description;
    const KOR::KeywordCategory & category = *TABLE.find(enumtype);
    std::size_t row = 0;
    while (category.index(row) != index)
        ++row;
    return category.rows[row].words;
}

} // namespace MM
