#include "BaseParameters.h"

#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

#include <iterator>
#include <limits>
#include <variant>

namespace MM {

namespace {

using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;

struct Limits {
    std::variant<Storage, Transport> parameter;
    double least, most;
    std::string_view purpose;
};

constexpr double ANY = std::numeric_limits<double>::max();

/// In the order of Need; in the parameters' default units.
constexpr Limits LIMITS[] = {
    {Storage::THETA_EFF, 1e-20, ANY, "moisture storage models"       },
    {Transport::MEW,     1e-20, ANY, "standard vapor diffusion model"},
    {Transport::KG,      1e-20, 1,   "standard airflow model"        },
    {Storage::RHO,       1e-3,  1e5, "standard thermal storage"      },
    {Storage::CE,        1,     1e6, "standard thermal storage"      },
    {Transport::LAMBDA,  1e-20, 1e5, "thermal transport model"       },
};
static_assert(std::size(LIMITS) == indexOf(Need::THERMAL_TRANSPORT) + 1);

/// The units of dimensionless values: whoever writes one means the other.
bool isDimensionless(const KOR::Unit & unit) {
    return unit.name() == "---" || unit.name() == "-" || unit.name() == "1";
}

} // namespace

KOR::Parameter parameterFromText(std::string_view category, int index, std::string_view value) {
    const std::string keyword = KeywordList::Keyword(category, index);
    const std::string_view unitName = KeywordList::Unit(category, index);
    const KOR::Unit unit(unitName.empty() ? "-" : unitName);
    try {
        KOR::Parameter parameter;
        parameter.readValue(value, unit);
        if (!unitName.empty() && parameter.ioUnit().base() != unit.base()) {
            if (!isDimensionless(parameter.ioUnit()) || !isDimensionless(unit))
                throw KOR::Exception(
                    KOR::text("Unit '%1' cannot be converted to '%2'.", parameter.ioUnit().name(), unit.name()),
                    "[Material::readASCIIParameterFromLine]");
            parameter.set_value(parameter.ioValue(), unit);
        }
        parameter.set_name(keyword);
        return parameter;
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Invalid format of argument '%2' to keyword '%1'.", keyword, shown(value)),
                             "[Material::readASCIIParameterFromLine]");
    }
}

double requireParameter(const Material & material, Need need, int direction, const std::string & where) {
    const Limits & limits = LIMITS[indexOf(need)];
    const auto * storage = std::get_if<Storage>(&limits.parameter);
    const KOR::Parameter & parameter = storage != nullptr
                                           ? material.parameter(*storage)
                                           : material.parameter(std::get<Transport>(limits.parameter), direction);
    if (parameter.empty()) {
        const std::string keyword = storage != nullptr ? KeywordList::Keyword(*storage)
                                                       : KeywordList::Keyword(std::get<Transport>(limits.parameter));
        throw KOR::Exception(KOR::text("Parameter %1 missing for %2.", keyword, limits.purpose), where);
    }
    const double value = parameter.value();
    if (!(value >= limits.least))
        throw KOR::Exception(KOR::text("Parameter %1 (=%2) should be >= %3.", parameter.name(), value, limits.least),
                             where);
    if (!(value <= limits.most))
        throw KOR::Exception(KOR::text("Parameter %1 (=%2) should be <= %3.", parameter.name(), value, limits.most),
                             where);
    return value;
}

} // namespace MM
