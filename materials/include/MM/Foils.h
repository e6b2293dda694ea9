#pragma once

#include <MM/VaporContactResistanceModel.h>

#include <array>
#include <span>
#include <string>

namespace MM {

/// A foil of a foil list: who it is, its constant vapour resistance, and its resistance that depends on humidity.
class Foils : public MaterialFunctionBase {
public:
    enum class Ident { NAME, ID_PLUS, ID_MINUS, COMMENT };
    enum class Param {
        SD_VALUE,
        WEIGHT_FACTOR_POS,
        WEIGHT_FACTOR_NEG,
        SCALING_A_POS,
        SCALING_B_POS,
        SCALING_C_POS,
        SCALING_A_NEG,
        SCALING_B_NEG,
        SCALING_C_NEG
    };
    enum class Functions { sdPos_rh, sdNeg_rh };

    Foils();

    /// Reads the lines of one foil: Ident texts, parameters, functions.
    void read(std::span<const std::string_view> lines);
    void write(std::ostream & out, std::size_t indent) const;

    std::string & ident(Ident which) { return m_ident[indexOf(which)]; }
    const std::string & ident(Ident which) const { return m_ident[indexOf(which)]; }
    const KOR::Parameter & parameter(Param which) const { return m_parameters[indexOf(which)]; }
    /// Equivalent air layer thickness [m]: SD_VALUE, or by the function of the direction where there is one.
    double sd(bool positive, double upstream, double downstream) const;

private:
    std::array<std::string, 4> m_ident;
};

} // namespace MM
