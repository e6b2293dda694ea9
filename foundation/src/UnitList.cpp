#include <KOR/UnitList.h>

#include "UnitTable.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <array>
#include <cmath>
#include <istream>
#include <limits>
#include <sstream>

namespace KOR {

namespace {

struct Legacy {
    std::string_view spelling, replacement;
};
constexpr Legacy LEGACY_SPELLINGS[] = {
    {"l/m2s", "L/m2s"},
    {"l/m2h", "L/m2h"},
    {"l/m2d", "L/m2d"},
    {"l/m3s", "L/m3s"},
    {"l/m3h", "L/m3h"},
};

/// Base units whose integral over seconds is itself a base unit of the registry. Rates per day or year ("m3/m3d",
/// "kWh/a") are left out: integrated over seconds they would need a factor.
struct Integral {
    std::string_view rate, amount;
};
constexpr Integral INTEGRALS[] = {
    {"kg/s",   "kg"   },
    {"kg/m2s", "kg/m2"},
    {"kg/m3s", "kg/m3"},
    {"J/s",    "J"    },
    {"J/m2s",  "J/m2" },
    {"J/m3s",  "J/m3" },
    {"W/m2s",  "J/m2s"},
    {"W/K",    "J/K"  },
    {"m/s",    "m"    },
    {"m2/s",   "m2"   },
    {"m3/s",   "m3"   },
    {"m3/m2s", "m"    },
    {"m/s2",   "m/s"  },
    {"1/s",    "---"  },
    {"s/s",    "s"    },
};

/// The special units that are logarithms or square roots, and the factor inside the function.
struct SpecialUnit {
    std::string_view name;
    bool isLogarithm;
    double factor; ///< of the base value before the logarithm; of the squared value towards the base
};
constexpr SpecialUnit SPECIAL_UNITS[] = {
    {"log(kg/m3)",  true,  1   },
    {"log(g/m3)",   true,  1e3 },
    {"log(mg/m3)",  true,  1e6 },
    {"log(µg/m3)", true,  1e9 },
    {"sqrt(s)",     false, 1   },
    {"sqrt(h)",     false, 3600},
};
constexpr double SMALLEST_LOG = -50;
constexpr double SMALLEST_DENSITY = 1e-50;

const SpecialUnit * specialUnit(Unit unit) {
    for (const SpecialUnit & special : SPECIAL_UNITS)
        if (special.name == unit.name())
            return &special;
    return nullptr;
}

[[noreturn]] void failRelation(std::string_view reason, const UnitList::Record & source,
                               const UnitList::Record & target) {
    throw Exception(text("%1 (tried to convert [%2] to [%3] )!", reason, source.name, target.name),
                    "[UnitList::relate_units]");
}

constexpr const char * DIV_BY_ZERO = "Div by zero!";
constexpr const char * FACTOR_AFTER_OFFSET = "* and / operations not allowed when using + and - operations!";
constexpr const char * OFFSET_AFTER_FACTOR = "+ and - operations not allowed when using * and / operations!";

/// The factor from the base unit to \p unit.
double factorFromBase(const UnitList::Record & unit, const UnitList::Record & source) {
    if (unit.operation == UnitList::OP_NONE)
        return 1;
    if (unit.operation == UnitList::OP_MULTIPLY)
        return unit.factor;
    if (unit.factor == 0)
        failRelation(DIV_BY_ZERO, source, unit);
    return 1 / unit.factor;
}

} // namespace

UnitList & UnitList::instance() {
    static UnitList list;
    return list;
}

UnitList::UnitList() {
    std::istringstream table{std::string(UNIT_TABLE)};
    read(table, true);
    m_builtInCount = m_records.size();
}

void UnitList::add(Record record) {
    if (m_indices.contains(record.name))
        throw Exception(text("Duplicate unit '%1' defined.", record.name), "[UnitList::read]");
    record.index = m_records.size();
    if (record.index > std::numeric_limits<std::uint16_t>::max())
        throw Exception("Too many units.", "[UnitList::read]");
    if (record.operation == OP_NONE)
        record.base = record.index;
    m_records.push_back(std::move(record));
    m_indices.emplace(m_records.back().name, m_records.back().index);
}

void UnitList::read(std::istream & table, bool clear) {
    if (clear) {
        m_indices.clear();
        m_records.clear();
    }
    std::string line;
    while (std::getline(table, line)) {
        const auto tokens = words(line);
        if (tokens.empty())
            continue;
        add({std::string(tokens[0])});
        const std::size_t base = m_records.back().index;
        for (std::size_t i = 1; i < tokens.size(); i += 3) {
            if (i + 2 >= tokens.size() || tokens[i].size() != 1 ||
                std::string_view("+-*/%").find(tokens[i][0]) == std::string_view::npos)
                throw Exception(text("Malformed line '%1' in unit table.", line), "[UnitList::read]");
            add({std::string(tokens[i + 2]), 0, base, static_cast<operation_t>(tokens[i][0]),
                 string2val<double>(tokens[i + 1])});
        }
    }
}

const UnitList::Record * UnitList::find(std::string_view name) const {
    for (const Legacy & legacy : LEGACY_SPELLINGS)
        if (legacy.spelling == name)
            name = legacy.replacement;
    const auto found = m_indices.find(name);
    return found == m_indices.end() ? nullptr : &m_records[found->second];
}

const UnitList::Record & UnitList::retrieve(std::string_view name) const {
    const Record * record = find(name);
    if (record == nullptr)
        throw Exception(text("Unit '%1' not found.", name), "[UnitList::retrieve]");
    return *record;
}

const UnitList::Record & UnitList::retrieve(std::size_t index) const {
    if (index >= m_records.size())
        throw Exception(text("Unit index %1 out of range 0..%2.", index, m_records.size() - 1), "[UnitList::retrieve]");
    return m_records[index];
}

UnitList::Relation UnitList::relate_units(Unit sourceUnit, Unit targetUnit) const {
    if (sourceUnit == targetUnit)
        return {};
    const Record & source = retrieve(sourceUnit.index());
    const Record & target = retrieve(targetUnit.index());
    if (source.base != target.base)
        throw Exception(text("Can't relate unit [%1] to [%2]", source.name, target.name), "[UnitList::relate_units]");
    if (source.operation == OP_SPECIAL || target.operation == OP_SPECIAL)
        return {OP_SPECIAL, 0};

    const bool targetHasOffset = target.operation == OP_ADD || target.operation == OP_SUBTRACT;
    const double targetOffset = target.operation == OP_ADD ? target.factor : -target.factor;
    switch (source.operation) {
    case OP_NONE:
        if (targetHasOffset)
            return {OP_ADD, targetOffset};
        return {OP_MULTIPLY, factorFromBase(target, source)};
    case OP_ADD:
    case OP_SUBTRACT: {
        const double offsetToBase = source.operation == OP_ADD ? -source.factor : source.factor;
        if (target.operation == OP_NONE)
            return {OP_ADD, offsetToBase};
        if (!targetHasOffset)
            failRelation(FACTOR_AFTER_OFFSET, source, target);
        return {OP_ADD, offsetToBase + targetOffset};
    }
    default:
        if (targetHasOffset)
            failRelation(OFFSET_AFTER_FACTOR, source, target);
        if (source.operation == OP_MULTIPLY && source.factor == 0)
            failRelation(DIV_BY_ZERO, source, target);
        const double factorToBase = source.operation == OP_MULTIPLY ? 1 / source.factor : source.factor;
        return {OP_MULTIPLY, factorToBase * factorFromBase(target, source)};
    }
}

void UnitList::convert(Unit source, Unit target, double & value) const {
    convert(source, target, std::span(&value, 1));
}

void UnitList::convert(Unit source, Unit target, std::span<double> values) const {
    const Relation relation = relate_units(source, target);
    switch (relation.operation) {
    case OP_ADD:
        for (double & value : values)
            value += relation.factor;
        break;
    case OP_MULTIPLY:
        for (double & value : values)
            value *= relation.factor;
        break;
    case OP_SPECIAL: {
        std::vector<double> converted;
        converted.reserve(values.size());
        for (const double value : values)
            converted.push_back(convertSpecial(source, target, value));
        std::copy(converted.begin(), converted.end(), values.begin());
        break;
    }
    default:
        break;
    }
}

Unit UnitList::integralQuantity(Unit unit) const {
    const Record & base = retrieve(retrieve(unit.index()).base);
    for (const Integral & integral : INTEGRALS)
        if (integral.rate == base.name)
            return Unit(integral.amount);
    throw Exception(text("Cannot obtain integral unit for base unit %1.", base.name), "[UnitList::integralQuantity]");
}

double f_pow10(double x) {
    if (x > 50)
        throw Exception(text("Exponent too large in power function, exponent = %1", x), "[KOR::f_pow10]");
    return std::pow(10.0, x);
}

double f_log10(double x) {
    if (x <= 0)
        throw Exception(text("Negative or zero value in log function, x = %1", x), "[KOR::f_log10]");
    return std::log10(x);
}

double convertSpecial(Unit source, Unit target, double value) {
    const UnitList & units = UnitList::instance();
    const Unit base = source.base();
    if (const SpecialUnit * special = specialUnit(source)) {
        if (!special->isLogarithm)
            value = value * value * special->factor;
        else
            value = value <= SMALLEST_LOG ? SMALLEST_DENSITY : f_pow10(value) / special->factor;
    } else {
        units.convert(source, base, value);
    }

    const SpecialUnit * special = specialUnit(target);
    if (special == nullptr) {
        units.convert(base, target, value);
        return value;
    }
    if (special->isLogarithm)
        return value <= SMALLEST_DENSITY ? SMALLEST_LOG : f_log10(value * special->factor);
    if (value < 0)
        throw Exception("Conversion error (square-root of negative number)!", "[UnitVector::convert_special]");
    return std::sqrt(value / special->factor);
}

} // namespace KOR
