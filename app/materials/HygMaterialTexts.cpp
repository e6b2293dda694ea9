#include "materials/HygMaterialTexts.h"

#include "HygFormat.h"

#include <MM/Material.h>

#include <QtExt/LanguageHandler.h>
#include <QtExt/Settings.h>
#include <SCI/Axis.h>

#include <QCoreApplication>

#include <cmath>

namespace {

// The descriptions of the material library's keyword lists, for the translators.
// clang-format off
[[maybe_unused]] constexpr const char * DESCRIPTIONS[] = {
    QT_TRANSLATE_NOOP("MM", "Invalid Category"),
    QT_TRANSLATE_NOOP("MM", "Coating"),
    QT_TRANSLATE_NOOP("MM", "Plaster and mortar"),
    QT_TRANSLATE_NOOP("MM", "Building brick"),
    QT_TRANSLATE_NOOP("MM", "Natural stones"),
    QT_TRANSLATE_NOOP("MM", "Concrete containing building materials"),
    QT_TRANSLATE_NOOP("MM", "Insulation materials"),
    QT_TRANSLATE_NOOP("MM", "Building boards"),
    QT_TRANSLATE_NOOP("MM", "Timber"),
    QT_TRANSLATE_NOOP("MM", "Natural materials"),
    QT_TRANSLATE_NOOP("MM", "Soil"),
    QT_TRANSLATE_NOOP("MM", "Cladding panels and ceramic tiles"),
    QT_TRANSLATE_NOOP("MM", "Foils and waterproofing products"),
    QT_TRANSLATE_NOOP("MM", "Miscellaneous"),
    QT_TRANSLATE_NOOP("MM", "Material is air."),
    QT_TRANSLATE_NOOP("MM", "No gas transport through the material possible."),
    QT_TRANSLATE_NOOP("MM", "No water vapor transport through the material."),
    QT_TRANSLATE_NOOP("MM", "No liquid water transport through the materials."),
    QT_TRANSLATE_NOOP("MM", "Material is wood (timber)"),
    QT_TRANSLATE_NOOP("MM", "Material is based on wood (e.g. wood fiber board)"),
    QT_TRANSLATE_NOOP("MM", "Material is a foil or vapor retarder. See in comments for additional informations."),
    QT_TRANSLATE_NOOP("MM", "Bulk density of dry material"),
    QT_TRANSLATE_NOOP("MM", "Specific heat capacity of dry material"),
    QT_TRANSLATE_NOOP("MM", "Open porosity"),
    QT_TRANSLATE_NOOP("MM", "Effective saturation (long term process)"),
    QT_TRANSLATE_NOOP("MM", "Capillary saturation content (short term process)"),
    QT_TRANSLATE_NOOP("MM", "Maxiumum moisture content allowed (material must not get wet)"),
    QT_TRANSLATE_NOOP("MM", "Hygroscopic sorption value at RH=80%"),
    QT_TRANSLATE_NOOP("MM", "Thermal conductivity (dry)"),
    QT_TRANSLATE_NOOP("MM", "Water uptake coefficient"),
    QT_TRANSLATE_NOOP("MM", "Water vapor diffusion resistance factor"),
    QT_TRANSLATE_NOOP("MM", "Diffusion equivalent air layer thickness"),
    QT_TRANSLATE_NOOP("MM", "Liquid water conductivity at effective saturation"),
    QT_TRANSLATE_NOOP("MM", "Liquid water diffusivity at effective saturation"),
    QT_TRANSLATE_NOOP("MM", "Air permeability"),
    QT_TRANSLATE_NOOP("MM", "Thermal conductivity (dry) in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Water uptake coefficient in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Water vapor diffusion resistance factor in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Diffusion equivalent air layer thickness in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Liquid water conductivity at effective saturation in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Liquid water diffusivity at effective saturation in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Air permeability in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Thermal conductivity (dry) in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Water uptake coefficient in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Water vapor diffusion resistance factor in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Diffusion equivalent air layer thickness in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Liquid water conductivity at effective saturation in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Liquid water diffusivity at effective saturation in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Air permeability in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Design value of thermal conductivity"),
    QT_TRANSLATE_NOOP("MM", "Thermal expansion coefficient"),
    QT_TRANSLATE_NOOP("MM", "Hygric expansion coefficient (volumetric moisture content)"),
    QT_TRANSLATE_NOOP("MM", "Fiber saturation point (wood)"),
    QT_TRANSLATE_NOOP("MM", "Thermal expansion coefficient in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Hygric expansion coefficient (volumetric moisture content) in material direction v"),
    QT_TRANSLATE_NOOP("MM", "Thermal expansion coefficient in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Hygric expansion coefficient (volumetric moisture content) in material direction w"),
    QT_TRANSLATE_NOOP("MM", "Weighting factor for adaptive foil model positive direction"),
    QT_TRANSLATE_NOOP("MM", "Weighting factor for adaptive foil model negative direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter a for square scaling function for adaptive foil model positive direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter b for square scaling function for adaptive foil model positive direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter c for square scaling function for adaptive foil model positive direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter a for square scaling function for adaptive foil model negative direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter b for square scaling function for adaptive foil model negative direction"),
    QT_TRANSLATE_NOOP("MM", "Parameter c for square scaling function for adaptive foil model negative direction"),
};

constexpr const char * HATCHINGS[] = {
    QT_TRANSLATE_NOOP("MM", "Ground"),
    QT_TRANSLATE_NOOP("MM", "Gravel"),
    QT_TRANSLATE_NOOP("MM", "Sand"),
    QT_TRANSLATE_NOOP("MM", "Concrete, not reinforced"),
    QT_TRANSLATE_NOOP("MM", "Concrete, reinforced"),
    QT_TRANSLATE_NOOP("MM", "Masonry"),
    QT_TRANSLATE_NOOP("MM", "Wood, across the fibre"),
    QT_TRANSLATE_NOOP("MM", "Wood, along the fibre"),
    QT_TRANSLATE_NOOP("MM", "Metal"),
    QT_TRANSLATE_NOOP("MM", "Mortar and plaster"),
    QT_TRANSLATE_NOOP("MM", "Insulation"),
    QT_TRANSLATE_NOOP("MM", "Sealing foil"),
    QT_TRANSLATE_NOOP("MM", "Sealant"),
    QT_TRANSLATE_NOOP("MM", "None"),
};
// clang-format on
static_assert(std::size(HATCHINGS) == MM::indexOf(MM::MaterialIdentification::HatchingType::None) + 1,
              "hatching table and enumeration disagree");

} // namespace

QString HygMaterialTexts::language() {
    const QString langId = QtExt::Settings::instance().langId();
    return langId.isEmpty() ? QtExt::LanguageHandler::systemLanguage() : langId;
}

QString HygMaterialTexts::translated(std::string_view english) {
    return QCoreApplication::translate("MM", std::string(english).c_str());
}

QString HygMaterialTexts::category(int id) {
    return translated(MM::KeywordList::Description(static_cast<MM::MaterialCategory::CategoryID>(id)));
}

QString HygMaterialTexts::hatching(int index) {
    return translated(HATCHINGS[static_cast<std::size_t>(index)]);
}

int HygMaterialTexts::numHatchings() {
    return static_cast<int>(std::size(HATCHINGS));
}

QString HygMaterialTexts::unit(const QString & name) {
    const QString shown = SCI::printedUnit(name);
    return shown.isEmpty() ? QStringLiteral("-") : shown;
}

QString HygMaterialTexts::number(double value) {
    return std::isnan(value) ? QString() : HygFormat::number(value, 6);
}
