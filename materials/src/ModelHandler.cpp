#include <MM/ModelHandler.h>

#include <KOR/Exception.h>

namespace MM {

void ModelHandler::add(ModelDataContainer model) {
    if (find(model.m_type) != nullptr)
        throw KOR::Exception(KOR::text("Multiple definitions of model identifier '%1'!", model.m_type),
                             "[MaterialFunctionBase::readModelsASCII]");
    m_models.push_back(std::move(model));
}

const ModelDataContainer * ModelHandler::find(std::string_view type) const {
    for (const ModelDataContainer & model : m_models)
        if (model.m_type == type)
            return &model;
    return nullptr;
}

} // namespace MM
