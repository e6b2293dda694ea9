#include <MM/VaporContactResistanceModel.h>

#include <cmath>

namespace MM {

namespace {

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "VaporContactResistanceModel::Functions",
    .parameters = "VaporContactResistanceModel::Param",
    .models = {},
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading vapor transport resistance section!",
    .where = "[VaporContactResistanceModel::read]",
    .whereWrite = "[VaporContactResistanceModel::write]",
};

} // namespace

double AdaptiveResistance::value(double upstream, double downstream) const {
    const double phi = weight * upstream + (1 - weight) * downstream;
    const double factor = (scale[0] * phi + scale[1]) * phi + scale[2];
    return sd.empty() ? 0 : std::fmax(0.0, factor * sd.value(phi));
}

VaporContactResistanceModel::VaporContactResistanceModel() : MaterialFunctionBase(TEXTS) {}

void VaporContactResistanceModel::setParameter(Param which, double value) {
    m_parameters[indexOf(which)].set(KeywordList::Keyword(which), value, KOR::Unit("-"));
}

AdaptiveResistance VaporContactResistanceModel::resistance(bool positive) const {
    AdaptiveResistance result;
    const bool usePositive = has(Functions::sdPos_rh) && (positive || !has(Functions::sdNeg_rh));
    result.sd = function(usePositive ? Functions::sdPos_rh : Functions::sdNeg_rh);
    const auto take = [this](Param which, double & target) {
        if (!parameter(which).empty())
            target = parameter(which).value();
    };
    take(usePositive ? Param::WEIGHT_FACTOR_POS : Param::WEIGHT_FACTOR_NEG, result.weight);
    constexpr std::array<Param, 3> POSITIVE{Param::SCALING_A_POS, Param::SCALING_B_POS, Param::SCALING_C_POS};
    constexpr std::array<Param, 3> NEGATIVE{Param::SCALING_A_NEG, Param::SCALING_B_NEG, Param::SCALING_C_NEG};
    for (std::size_t i = 0; i < result.scale.size(); ++i)
        take(usePositive ? POSITIVE[i] : NEGATIVE[i], result.scale[i]);
    return result;
}

} // namespace MM
