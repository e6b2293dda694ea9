#include <MM/Foils.h>

#include "Lines.h"

#include <ostream>

namespace MM {

namespace {

constexpr MaterialFunctionBase::SectionTexts TEXTS{
    .functions = "Foils::Functions",
    .parameters = "Foils::Param",
    .models = {},
    .fewLines = "Error reading data for function '%1'.",
    .wrapping = "Error reading foil data!",
    .where = "[Foils::read]",
    .whereWrite = "[Foils::write]",
};

/// The parameter of the contact resistance model for each one of a foil behind SD_VALUE: same order.
static_assert(indexOf(Foils::Param::SCALING_C_NEG) == indexOf(VaporContactResistanceModel::Param::SCALING_C_NEG) + 1);

} // namespace

Foils::Foils() : MaterialFunctionBase(TEXTS) {}

void Foils::read(std::span<const std::string_view> lines) {
    std::array<std::string, 4> texts;
    std::vector<std::string_view> others;
    for (const std::string_view line : lines) {
        const auto [keyword, value] = KeywordLine(line);
        if (KeywordList::KeywordExists<Ident>(keyword))
            texts[indexOf(KeywordList::Enumeration<Ident>(keyword))] = value;
        else
            others.push_back(line);
    }
    MaterialFunctionBase::read(others);
    m_ident = std::move(texts);
}

void Foils::write(std::ostream & out, std::size_t indent) const {
    for (std::size_t i = 0; i < m_ident.size(); ++i)
        if (!m_ident[i].empty())
            out << keywordColumn(indent, KeywordList::Keyword(static_cast<Ident>(i)), KEYWORD_WIDTH) << "= "
                << m_ident[i] << '\n';
    MaterialFunctionBase::write(out, indent);
}

double Foils::sd(bool positive, double upstream, double downstream) const {
    if (!has(Functions::sdPos_rh) && !has(Functions::sdNeg_rh))
        return parameter(Param::SD_VALUE).value();
    VaporContactResistanceModel model;
    model.setFunction(VaporContactResistanceModel::Functions::sdPos_rh, function(Functions::sdPos_rh));
    model.setFunction(VaporContactResistanceModel::Functions::sdNeg_rh, function(Functions::sdNeg_rh));
    for (std::size_t i = indexOf(Param::WEIGHT_FACTOR_POS); i < m_parameters.size(); ++i)
        if (!m_parameters[i].empty())
            model.setParameter(static_cast<VaporContactResistanceModel::Param>(i - 1), m_parameters[i].value());
    return model.resistance(positive).value(upstream, downstream);
}

} // namespace MM
