#pragma once

#include <MM/Material.h>

#include <KOR/Parameter.h>

#include <string>
#include <string_view>

/// Base parameters from texts, and the limits within which each preparation accepts them.
namespace MM {

/// The parameter of a row of the keyword list from the text "1900 kg/m3"; a lone number is in the default unit.
/// Throws "Invalid format of argument '%2' to keyword '%1'." ("[Material::readASCIIParameterFromLine]").
KOR::Parameter parameterFromText(std::string_view category, int index, std::string_view value);

/// Base parameters that preparations need; a row of the table of limits each.
enum class Need { MOISTURE_STORAGE, VAPOR_DIFFUSION, AIR_FLOW, THERMAL_DENSITY, THERMAL_CAPACITY, THERMAL_TRANSPORT };

/// Checks the parameter of a row of the table of limits and returns its value in the default unit.
/// Throws "Parameter %1 missing for %2.", "Parameter %1 (=%2) should be >= %3.", "Parameter %1 (=%2) should be <= %3."
/// \param direction 0, 1, 2 for u, v, w
double requireParameter(const Material & material, Need need, int direction, const std::string & where);

} // namespace MM
