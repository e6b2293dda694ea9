#pragma once

#include <KOR/Unit.h>

#include <deque>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace KOR {

/// The process-wide registry of units, built from a built-in table on first use.
/// Reading is safe from any thread; read() must not run while others convert.
class UnitList {
public:
    /// How a value in the base unit becomes a value in a unit.
    enum operation_t : char {
        OP_NONE = ' ',     ///< is a base unit
        OP_ADD = '+',      ///< plus the factor
        OP_SUBTRACT = '-', ///< minus the factor
        OP_MULTIPLY = '*', ///< times the factor
        OP_DIVIDE = '/',   ///< divided by the factor
        OP_SPECIAL = '%'   ///< logarithms and square roots
    };

    /// One unit of the registry.
    struct Record {
        std::string name;
        std::size_t index = 0; ///< position in the registry
        std::size_t base = 0;  ///< index of the base unit
        operation_t operation = OP_NONE;
        double factor = 0;
    };

    /// What turns a value in one unit into a value in another.
    struct Relation {
        operation_t operation = OP_NONE; ///< OP_NONE, OP_ADD, OP_MULTIPLY or OP_SPECIAL
        double factor = 0;
        bool operator==(const Relation &) const = default;
    };

    static UnitList & instance();
    UnitList(const UnitList &) = delete; // the index refers to the names of the records
    UnitList & operator=(const UnitList &) = delete;

    /// Reads lines of the form "base op factor name op factor name ..."; with \p clear empties the registry first.
    /// Throws "Duplicate unit '%1' defined." ("[UnitList::read]").
    void read(std::istream & table, bool clear);

    /// The record of a name (legacy spellings accepted) or nullptr.
    const Record * find(std::string_view name) const;
    /// Throws "Unit '%1' not found." ("[UnitList::retrieve]").
    const Record & retrieve(std::string_view name) const;
    /// Throws "Unit index %1 out of range 0..%2." ("[UnitList::retrieve]").
    const Record & retrieve(std::size_t index) const;

    std::size_t size() const { return m_records.size(); }
    /// Number of units that came from the built-in table.
    std::size_t builtInCount() const { return m_builtInCount; }

    /// The operation and factor from source to target. Throws ("[UnitList::relate_units]") when the base units differ,
    /// when offsets and factors mix, and on a zero divisor.
    Relation relate_units(Unit source, Unit target) const;

    /// Converts the value in place; a failure leaves it unchanged. Throws as relate_units and convert_special.
    void convert(Unit source, Unit target, double & value) const;
    /// Converts all values in place; a failure leaves all unchanged.
    void convert(Unit source, Unit target, std::span<double> values) const;

    /// The base unit of the time integral (over seconds) of a rate or flux unit.
    /// Throws "Cannot obtain integral unit for base unit %1." ("[UnitList::integralQuantity]").
    Unit integralQuantity(Unit unit) const;

private:
    UnitList();
    void add(Record record);

    std::deque<Record> m_records; ///< a deque, so that names stay where they are when units are added
    std::unordered_map<std::string_view, std::size_t> m_indices;
    std::size_t m_builtInCount = 0;
};

/// Converts between units of the same base of which at least one is special (logarithm, square root).
/// Throws "Conversion error (square-root of negative number)!" ("[UnitVector::convert_special]") and the errors of
/// f_pow10 and f_log10.
double convertSpecial(Unit source, Unit target, double value);

/// Ten to the power of x; throws "Exponent too large in power function, exponent = %1" ("[KOR::f_pow10]") above 50.
double f_pow10(double x);
/// Decimal logarithm; throws "Negative or zero value in log function, x = %1" ("[KOR::f_log10]").
double f_log10(double x);

} // namespace KOR
