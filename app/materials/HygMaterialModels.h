#pragma once

#include <MM/ModelDataContainer.h>

#include <QString>

#include <span>
#include <vector>

namespace MM {
class Material;
}

/// The parametrised models ("[MODEL]" blocks) of a material file, and what is known of their parameters.
namespace HygMaterialModels {

/// A section whose functions a model may replace.
enum section_t { MoistureStorage, MoistureTransport, ThermalStorage, HeatTransport, AirTransport, Foil, NUM_SECTIONS };

struct Parameter {
    const char * keyword;
    const char * title; ///< to be translated in context "HygMaterialModels"
    const char * unit;  ///< empty for none; words are translated
};

/// One kind of model.
struct Row {
    const char * type; ///< as in the file
    section_t section;
    const char * title;
    std::span<const Parameter> parameters;
    bool isList;                   ///< the parameters are lists of the same length, an entry a mode
    const char * count;            ///< keyword of the number of modes, nullptr for none
    std::span<const double> first; ///< values of a new model, or of the mode that is added
};

/// One block of a material.
struct Place {
    section_t section = MoistureStorage;
    int direction = 0; ///< 0, 1, 2 for u, v, w
    std::size_t index = 0;
    bool operator==(const Place &) const = default;
};

std::span<const Row> rows();
/// nullptr for models that the material library does not know.
const Row * find(section_t section, const std::string & type);
QString title(const Place & place, const MM::ModelDataContainer & model);
QString title(const Row & row, int direction);
QString title(const Parameter & parameter);
QString unit(const Parameter & parameter);

/// All blocks of a material, in the order of its file.
std::vector<Place> places(const MM::Material & material);
const MM::ModelDataContainer & model(const MM::Material & material, const Place & place);
/// Whether a block of the kind may be added.
bool canAdd(const MM::Material & material, const Row & row, int direction);
/// The place of the block that was added, with values to begin with.
Place add(MM::Material & material, const Row & row, int direction);
void remove(MM::Material & material, const Place & place);
void set(MM::Material & material, const Place & place, MM::ModelDataContainer model);

/// Why a calculation could not use the block; empty if it could.
QString problem(const Place & place, const MM::ModelDataContainer & model);

} // namespace HygMaterialModels
