#pragma once

#include <MM/ModelDataContainer.h>

#include <vector>

namespace MM {

/// The model blocks of one section, one for each model identifier, in reading order.
class ModelHandler {
public:
    enum class ModelIdentifier { GAUSS, SERIAL_PARALLEL };

    /// Throws "Multiple definitions of model identifier '%1'!" ("[MaterialFunctionBase::readModelsASCII]").
    void add(ModelDataContainer model);
    void clear() { m_models.clear(); }
    /// The block of an identifier or nullptr.
    const ModelDataContainer * find(std::string_view type) const;
    const std::vector<ModelDataContainer> & models() const { return m_models; }
    bool empty() const { return m_models.empty(); }

    bool operator==(const ModelHandler &) const = default;

private:
    std::vector<ModelDataContainer> m_models;
};

} // namespace MM
