#pragma once

#include <HYGRION/NamedSet.h>

#include <KOR/LinearSpline.h>

#include <map>
#include <string>

class TiXmlElement;

namespace HYGRION {

/// A resistance between two layers or at a foil.
class ContactCond {
public:
    enum class condition_t { AirMaterialBoundary, Foil, FoilAdaptive, AdditionalResistance, VOCMassTransfer };
    enum class kind_t { Exchange, ExchangeVelocityDependent, DirectionDependent, DirectionIndependent };
    enum class para_t {
        HeatConductionResistance,
        VaporDiffusionResistance,
        VaporDiffusionSD,
        WaterConductionResistance,
        AirConvectionResistance,
        SaltDiffusionResistance,
        VOCMassTransferCoefficient,
        HeatExchangeCoefficient,
        HeatExchangeSlope,
        HeatExchangeExponent,
        VaporExchangeCoefficient,
        VaporExchangeSlope,
        VaporExchangeExponent,
        WEIGHT_FACTOR_POS,
        WEIGHT_FACTOR_NEG,
        SCALING_A_POS,
        SCALING_B_POS,
        SCALING_C_POS,
        SCALING_A_NEG,
        SCALING_B_NEG,
        SCALING_C_NEG
    };
    enum class flag_t { SDPositiveDirection };
    enum class function_t { SdPositive, SdNegative };

    std::string m_name;
    condition_t m_type = condition_t::AdditionalResistance;
    kind_t m_kind = kind_t::Exchange;
    ParaSet<para_t> m_para;
    FlagSet<flag_t> m_flag;
    /// The sd-value of an adaptive foil over relative humidity, in the units in which they were given.
    std::map<function_t, KOR::LinearSpline> m_functions;
    std::string m_foilName;

    /// \param x relative humidity in \p xUnit \param y sd-value in \p yUnit
    void setFunction(function_t key, const std::vector<double> & x, std::string_view xUnit,
                     const std::vector<double> & y, std::string_view yUnit);

    /// Throws ("[ContactCond::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[ContactCond::checkParameters]"), naming condition and parameter, values out of their limits and an
    /// adaptive foil of which nothing is known.
    void checkParameters() const;

    bool operator==(const ContactCond &) const = default;
};

} // namespace HYGRION
