#include "ModelBuilder.h"

#include <KOR/MessageHandler.h>
#include <MM/Foils.h>
#include <MM/Physics.h>

#include <algorithm>
#include <cmath>

/// Contact conditions of the project become resistances of faces.
namespace SOLVER {

using HYGRION::Assignment;
using HYGRION::ContactCond;
using HYGRION::KeywordList;
using KOR::text;

namespace {

using Type = ContactCond::condition_t;
using Para = ContactCond::para_t;

/// Which parameters a type of contact can use.
struct Row {
    Type type;
    Para para;
    std::string_view unit;
    double ContactResistance::*resistance; ///< what the value adds to; of an exchange coefficient its inverse
    bool isInverse;
    double perUnit;
};
using R = ContactResistance;
constexpr Row ROWS[] = {
    {Type::AirMaterialBoundary,  Para::HeatExchangeCoefficient,   "W/m2K", &R::heat,   true,  1             },
    {Type::AirMaterialBoundary,  Para::VaporExchangeCoefficient,  "s/m",   &R::vapor,  true,  1             },
    {Type::Foil,                 Para::VaporDiffusionSD,          "m",     &R::vapor,  false, 1 / MM::KV_AIR},
    {Type::Foil,                 Para::VaporDiffusionResistance,  "m/s",   &R::vapor,  false, 1             },
    {Type::Foil,                 Para::HeatConductionResistance,  "m2K/W", &R::heat,   false, 1             },
    {Type::FoilAdaptive,         Para::HeatConductionResistance,  "m2K/W", &R::heat,   false, 1             },
    {Type::AdditionalResistance, Para::HeatConductionResistance,  "m2K/W", &R::heat,   false, 1             },
    {Type::AdditionalResistance, Para::VaporDiffusionResistance,  "m/s",   &R::vapor,  false, 1             },
    {Type::AdditionalResistance, Para::VaporDiffusionSD,          "m",     &R::vapor,  false, 1 / MM::KV_AIR},
    {Type::AdditionalResistance, Para::WaterConductionResistance, "m/s",   &R::liquid, false, 1             },
};
/// Parameters of the adaptive foil in the order of MM::VaporContactResistanceModel::Param.
constexpr Para ADAPTIVE[] = {Para::WEIGHT_FACTOR_POS, Para::WEIGHT_FACTOR_NEG, Para::SCALING_A_POS,
                             Para::SCALING_B_POS,     Para::SCALING_C_POS,     Para::SCALING_A_NEG,
                             Para::SCALING_B_NEG,     Para::SCALING_C_NEG};
/// They belong to balances that are not solved, or to moving air.
constexpr Para WITHOUT_EFFECT[] = {Para::AirConvectionResistance, Para::SaltDiffusionResistance,
                                   Para::HeatExchangeSlope,       Para::HeatExchangeExponent,
                                   Para::VaporExchangeSlope,      Para::VaporExchangeExponent};

bool contains(std::span<const Para> list, Para key) {
    return std::find(list.begin(), list.end(), key) != list.end();
}

void checkParametersOf(const ContactCond & condition) {
    for (const auto & [key, parameter] : condition.m_para) {
        const bool isUsed =
            std::any_of(std::begin(ROWS), std::end(ROWS),
                        [&, k = key](const Row & row) { return row.type == condition.m_type && row.para == k; }) ||
            (condition.m_type == Type::FoilAdaptive && (contains(ADAPTIVE, key) || key == Para::VaporDiffusionSD));
        if (!isUsed && !contains(WITHOUT_EFFECT, key))
            refuse(text("Parameter '%1' cannot be used in a contact condition of type '%2' and kind '%3'.",
                        KeywordList::Keyword(key), KeywordList::Keyword(condition.m_type),
                        KeywordList::Keyword(condition.m_kind)));
    }
}

/// The function of a foil for one direction of the vapour.
ModelInput::Foil foilOf(const MM::VaporContactResistanceModel & model, bool positiveIsForward) {
    const MM::AdaptiveResistance sides[] = {model.resistance(positiveIsForward), model.resistance(!positiveIsForward)};
    for (const MM::AdaptiveResistance & side : sides)
        if (!(side.weight >= 0 && side.weight <= 1))
            refuse("Weighting factors of a foil must lie between 0 and 1.");
    const auto resistance = [](const MM::AdaptiveResistance & side) {
        return [side](double humidity) { return side.value(humidity, humidity) / MM::KV_AIR; };
    };
    return {resistance(sides[0]), resistance(sides[1]), sides[0].weight, sides[1].weight};
}

} // namespace

const ContactCond & ModelBuilder::contactCondition(const std::string & name) const {
    return named(m_project.m_conditions.m_contactConditions, name, "Contact condition");
}

void ModelBuilder::checkContact(const ContactCond & condition) {
    if (condition.m_type == Type::VOCMassTransfer)
        refuse("Type 'VOCMassTransfer' belongs to the transport of pollutants (VOC), which is not available.");
    if (condition.m_kind == ContactCond::kind_t::ExchangeVelocityDependent)
        KOR::message(text("Contact condition '%1': the air inside stands still as long as its flow is not calculated; "
                          "the coefficients for still air count.",
                          condition.m_name),
                     KOR::MSG_WARNING, "[SOLVER::buildConstruction]");
    condition.checkParameters();
    checkParametersOf(condition);
}

ContactResistance ModelBuilder::contactOf(const ContactCond & condition) {
    return inContext(text("Contact condition '%1' cannot be calculated.", condition.m_name), [&] {
        checkContact(condition);
        ContactResistance contact;
        contact.blocksLiquid = condition.m_type != Type::AdditionalResistance;
        for (const Row & row : ROWS) {
            const auto value = row.type == condition.m_type ? condition.m_para.value(row.para, row.unit) : std::nullopt;
            if (!value)
                continue;
            if (row.isInverse && !(*value > 0))
                refuse(text("Parameter '%1' must be above 0.", KeywordList::Keyword(row.para)));
            contact.*row.resistance += row.isInverse ? 1 / *value : *value * row.perUnit;
        }

        // A foil by name is a material of the project.
        std::optional<MM::Material> foil;
        if (!condition.m_foilName.empty()) {
            for (const HYGRION::MaterialReference & reference : m_project.m_materials)
                if (reference.m_name == condition.m_foilName) {
                    foil.emplace();
                    foil->read(m_project.resolved(reference.m_filename).systemPath());
                }
            if (!foil && contact.vapor == 0 && condition.m_functions.empty())
                refuse(text("Foil '%1' is no material of the project, and no vapour resistance is given.",
                            condition.m_foilName));
        }
        if (condition.m_type == Type::Foil && contact.vapor == 0) {
            const KOR::Parameter * sd = foil ? &foil->parameter(MM::Material::ParaTransport::SD) : nullptr;
            if (!sd || sd->empty())
                refuse("Neither 'VaporDiffusionSD' nor 'VaporDiffusionResistance' is given.");
            contact.vapor = sd->get_value("m") / MM::KV_AIR;
        }
        if (condition.m_type == Type::FoilAdaptive) {
            using Adaptive = MM::VaporContactResistanceModel;
            Adaptive model = foil ? foil->m_vaporContactResistance : Adaptive();
            const auto take = [&](ContactCond::function_t key, Adaptive::Functions as) {
                const auto found = condition.m_functions.find(key);
                if (found == condition.m_functions.end())
                    return;
                KOR::LinearSpline spline = found->second;
                spline.convert(KOR::Unit("---"), KOR::Unit("m"));
                model.setFunction(as, spline);
            };
            take(ContactCond::function_t::SdPositive, Adaptive::Functions::sdPos_rh);
            if (condition.m_kind != ContactCond::kind_t::DirectionIndependent)
                take(ContactCond::function_t::SdNegative, Adaptive::Functions::sdNeg_rh);
            if (!model.has(Adaptive::Functions::sdPos_rh) && !model.has(Adaptive::Functions::sdNeg_rh)) {
                // The scaling alone: of the constant sd-value.
                const double sd = condition.m_para.value(Para::VaporDiffusionSD, "m").value_or(1);
                model.setFunction(Adaptive::Functions::sdPos_rh, KOR::LinearSpline({0, 1}, {sd, sd}));
                if (condition.m_kind == ContactCond::kind_t::DirectionDependent)
                    model.setFunction(Adaptive::Functions::sdNeg_rh, KOR::LinearSpline({0, 1}, {sd, sd}));
            }
            for (std::size_t i = 0; i < std::size(ADAPTIVE); ++i)
                if (const KOR::Parameter * given = condition.m_para.find(ADAPTIVE[i]))
                    model.setParameter(static_cast<Adaptive::Param>(i), given->value());
            contact.foil = static_cast<int>(m_result.input.foils.size());
            m_result.input.foils.push_back(
                foilOf(model, condition.m_flag.isEnabled(ContactCond::flag_t::SDPositiveDirection, true)));
        }
        return contact;
    });
}

void ModelBuilder::readContacts() {
    const auto & assignments = m_project.m_assignments.m_list;
    for (std::size_t a = 0; a < assignments.size(); ++a) {
        const Assignment & assignment = assignments[a];
        if (assignment.m_type != Assignment::type_t::ContactCondition)
            continue;
        inContext(
            text("Assignment %1 (%2) cannot be calculated.", m_project.assignmentLabel(a), assignment.description()),
            [&] {
                const ContactResistance contact = contactOf(contactCondition(assignment.m_reference));
                for (const GridFace & face : facesOf(assignment)) {
                    const auto [before, behind] = cellsAt(face);
                    if (before == NO_CELL && behind == NO_CELL)
                        continue;
                    if (before == NO_CELL || behind == NO_CELL)
                        refuse("A contact condition lies between two cells; at a surface its resistance belongs to the "
                               "boundary conditions.");
                    ContactResistance & sum = m_contacts[faceKey(face)];
                    if (sum.foil >= 0 && contact.foil >= 0)
                        refuse("Two adaptive foils lie in one face.");
                    sum.heat += contact.heat;
                    sum.vapor += contact.vapor;
                    sum.liquid += contact.liquid;
                    sum.blocksLiquid = sum.blocksLiquid || contact.blocksLiquid;
                    sum.foil = std::max(sum.foil, contact.foil);
                }
            });
    }
}

} // namespace SOLVER
