#include "materials/HygMaterialModels.h"

#include "materials/HygMaterialTexts.h"

#include <MM/Material.h>
#include <MM/MrcGAUSS_dpC.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>

#include <QCoreApplication>

namespace {

using namespace HygMaterialModels;
using MM::Material;
using MM::ModelDataContainer;

constexpr Parameter GAUSS[] = {
    {"GAUSS_Wi",                             QT_TRANSLATE_NOOP("HygMaterialModels", "Weight"), ""},
    {          "GAUSS_Ri", QT_TRANSLATE_NOOP("HygMaterialModels",                        "Pore radius"),       "m"  },
    { "GAUSS_Si",                 QT_TRANSLATE_NOOP("HygMaterialModels",                                         "Standard deviation"),
     QT_TRANSLATE_NOOP("HygMaterialModels",                                    "decades of pC")},
};
constexpr double FIRST_MODE[] = {1, 1e-7, 0.5};

constexpr Parameter SERIAL_PARALLEL[] = {
    {"SP_SP",               QT_TRANSLATE_NOOP("HygMaterialModels", "Share of pores that lie parallel"),       ""     },
    {"SP_Kl",               QT_TRANSLATE_NOOP("HygMaterialModels", "Liquid conductivity (kept, not used)"),   "s"    },
    {"SP_KScale",           QT_TRANSLATE_NOOP("HygMaterialModels", "Scale of conductivity (kept, not used)"), ""     },
    {"SP_UNSAT",            QT_TRANSLATE_NOOP("HygMaterialModels", "Unsaturated (kept, not used)"),           ""     },
    {"SP_UseAdsorption",    QT_TRANSLATE_NOOP("HygMaterialModels", "Adsorption branch (kept, not used)"),     ""     },
    {"SP_pCmax",            QT_TRANSLATE_NOOP("HygMaterialModels", "Largest pC (kept, not used)"),            ""     },
    {"SP_ThetaLAdditional", QT_TRANSLATE_NOOP("HygMaterialModels", "Additional content (kept, not used)"),    "m3/m3"},
};
constexpr double FIRST_SHARE[] = {0.5};

// clang-format off
constexpr Row ROWS[] = {
    {"GAUSS", MoistureStorage, QT_TRANSLATE_NOOP("HygMaterialModels", "Gauss model of moisture retention"), GAUSS, true, "GAUSS_MODALITY", FIRST_MODE},
    {"VAN_GENUCHTEN", MoistureStorage, QT_TRANSLATE_NOOP("HygMaterialModels", "Van Genuchten model of moisture retention (not calculated with)"), {}, false, nullptr, {}},
    {"SERIAL_PARALLEL", MoistureTransport, QT_TRANSLATE_NOOP("HygMaterialModels", "Serial-parallel model of vapour transport"), SERIAL_PARALLEL, false, nullptr, FIRST_SHARE},
};
// clang-format on

constexpr const char * SECTIONS[] = {QT_TRANSLATE_NOOP("HygMaterialModels", "Moisture storage"),
                                     QT_TRANSLATE_NOOP("HygMaterialModels", "Moisture transport"),
                                     QT_TRANSLATE_NOOP("HygMaterialModels", "Thermal storage"),
                                     QT_TRANSLATE_NOOP("HygMaterialModels", "Heat transport"),
                                     QT_TRANSLATE_NOOP("HygMaterialModels", "Air transport"),
                                     QT_TRANSLATE_NOOP("HygMaterialModels", "Adaptive foil")};
static_assert(std::size(SECTIONS) == NUM_SECTIONS);

constexpr const char * DIRECTIONS[] = {"u", "v", "w"};

QString text(const char * source) {
    return QCoreApplication::translate("HygMaterialModels", source);
}

QString withDirection(const QString & title, int direction) {
    return direction == 0 ? title : text("%1, direction %2").arg(title, QLatin1String(DIRECTIONS[direction]));
}

bool hasDirections(section_t section) {
    return section == MoistureTransport || section == HeatTransport || section == AirTransport;
}

template <typename MaterialType> auto & section(MaterialType & material, section_t which, int direction) {
    using Base =
        std::conditional_t<std::is_const_v<MaterialType>, const MM::MaterialFunctionBase, MM::MaterialFunctionBase>;
    const auto d = static_cast<std::size_t>(direction);
    Base * const sections[] = {&material.m_moistureStorage, &material.m_moistureTransport[d],
                               &material.m_thermalStorage,  &material.m_thermalTransport[d],
                               &material.m_airTransport[d], &material.m_vaporContactResistance};
    return *sections[which];
}

/// Replaces the blocks of a section by others.
void setModels(Material & material, const Place & place, const std::vector<ModelDataContainer> & models) {
    MM::ModelHandler handler;
    for (const ModelDataContainer & model : models)
        handler.add(model);
    section(material, place.section, place.direction).setModels(std::move(handler));
}

const std::vector<ModelDataContainer> & modelsOf(const Material & material, section_t which, int direction) {
    return section(material, which, direction).models().models();
}

} // namespace

std::span<const Row> HygMaterialModels::rows() {
    return ROWS;
}

const Row * HygMaterialModels::find(section_t section, const std::string & type) {
    for (const Row & row : ROWS)
        if (row.section == section && type == row.type)
            return &row;
    return nullptr;
}

QString HygMaterialModels::title(const Row & row, int direction) {
    return withDirection(text(row.title), direction);
}

QString HygMaterialModels::title(const Place & place, const ModelDataContainer & model) {
    if (const Row * row = find(place.section, model.m_type))
        return title(*row, place.direction);
    return QStringLiteral("%1: %2").arg(withDirection(text(SECTIONS[place.section]), place.direction),
                                        QString::fromStdString(model.m_type));
}

QString HygMaterialModels::title(const Parameter & parameter) {
    return text(parameter.title);
}

QString HygMaterialModels::unit(const Parameter & parameter) {
    return HygMaterialTexts::unit(text(parameter.unit));
}

std::vector<Place> HygMaterialModels::places(const Material & material) {
    std::vector<Place> found;
    for (int which = 0; which < NUM_SECTIONS; ++which) {
        const auto kind = static_cast<section_t>(which);
        for (int direction = 0; direction < (hasDirections(kind) ? 3 : 1); ++direction)
            for (std::size_t i = 0; i < modelsOf(material, kind, direction).size(); ++i)
                found.push_back({kind, direction, i});
    }
    return found;
}

const ModelDataContainer & HygMaterialModels::model(const Material & material, const Place & place) {
    return modelsOf(material, place.section, place.direction).at(place.index);
}

bool HygMaterialModels::canAdd(const Material & material, const Row & row, int direction) {
    if (direction > 0 && !(hasDirections(row.section) && material.hasDirection(direction)))
        return false;
    // Of several models of one section none could be used.
    return modelsOf(material, row.section, direction).empty();
}

Place HygMaterialModels::add(Material & material, const Row & row, int direction) {
    ModelDataContainer model;
    model.m_type = row.type;
    if (row.count != nullptr)
        model.set(row.count, "1");
    for (std::size_t i = 0; i < row.first.size(); ++i)
        model.set(row.parameters[i].keyword, KOR::toString(row.first[i]));
    std::vector<ModelDataContainer> models = modelsOf(material, row.section, direction);
    models.push_back(std::move(model));
    const Place place{row.section, direction, models.size() - 1};
    setModels(material, place, models);
    return place;
}

void HygMaterialModels::remove(Material & material, const Place & place) {
    std::vector<ModelDataContainer> models = modelsOf(material, place.section, place.direction);
    models.erase(models.begin() + static_cast<std::ptrdiff_t>(place.index));
    setModels(material, place, models);
}

void HygMaterialModels::set(Material & material, const Place & place, ModelDataContainer model) {
    std::vector<ModelDataContainer> models = modelsOf(material, place.section, place.direction);
    models.at(place.index) = std::move(model);
    setModels(material, place, models);
}

QString HygMaterialModels::problem(const Place & place, const ModelDataContainer & model) {
    const Row * row = find(place.section, model.m_type);
    if (row == nullptr)
        return text("The program does not know this model. It is kept in the file, but nothing is calculated with it.");
    try {
        if (row->parameters.data() == GAUSS)
            MM::MrcGAUSS_dpC().setData(model);
        else if (row->parameters.data() == SERIAL_PARALLEL)
            MM::MoistureTransport::shareOf(model);
        return {};
    } catch (const KOR::Exception & ex) {
        return QString::fromStdString(ex.message());
    }
}
