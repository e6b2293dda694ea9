#include "Families.h"

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <nlohmann/json.hpp>

#include <ostream>

namespace CMD {

namespace {

struct Convert {
    double value = 0;
    std::string from;
    std::string to;
};

void defineConvert(CLI::App & app, Convert & arguments) {
    addNumber(app, "VALUE", arguments.value, "The value; a negative one may stand as it is.")->required();
    app.add_option("FROM", arguments.from, "The unit of the value.")->required()->type_name("UNIT");
    app.add_option("TO", arguments.to, "The unit that is wanted.")->required()->type_name("UNIT");
}

void convert(const Convert & arguments, Output & output) {
    double result = arguments.value;
    try {
        const KOR::Unit from(arguments.from); // the first that is wrong is told first
        KOR::UnitList::instance().convert(from, KOR::Unit(arguments.to), result);
        if (!std::isfinite(result))
            throw KOR::Exception("The result is too large for a number.", "[CMD::convert]");
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(
            ex, KOR::text("Cannot convert %1 from '%2' to '%3'.", arguments.value, arguments.from, arguments.to),
            "[CMD::convert]");
    }
    // Fifteen digits are what survives the arithmetic of a conversion; the document has all.
    if (output.isJson())
        output.json({
            {"value",  arguments.value},
            {"from",   arguments.from },
            {"result", result         },
            {"to",     arguments.to   }
        });
    else
        output.text() << KOR::toString(result, 15) << ' ' << arguments.to << '\n';
}

struct List {
    std::string base;
};

void defineList(CLI::App & app, List & arguments) {
    app.add_option("BASE", arguments.base, "Only the units that this one can be converted to.")->type_name("UNIT");
}

using Record = KOR::UnitList::Record;

/// The related units of each base unit, in the order of the registry.
std::vector<std::pair<const Record *, std::vector<const Record *>>> groups(const std::string & member) {
    const KOR::UnitList & all = KOR::UnitList::instance();
    std::optional<std::size_t> wanted;
    if (!member.empty())
        wanted = all.retrieve(member).base;
    std::map<std::size_t, std::vector<const Record *>> related;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Record & record = all.retrieve(i);
        std::vector<const Record *> & group = related[record.base];
        if (record.index != record.base)
            group.push_back(&record);
    }
    std::vector<std::pair<const Record *, std::vector<const Record *>>> found;
    for (auto & [base, units] : related)
        if (!wanted || *wanted == base)
            found.emplace_back(&all.retrieve(base), std::move(units));
    return found;
}

void list(const List & arguments, Output & output) {
    const auto found = groups(arguments.base);
    if (output.isJson()) {
        auto document = nlohmann::ordered_json::array();
        for (const auto & [base, units] : found) {
            auto related = nlohmann::ordered_json::array();
            for (const Record * unit : units)
                related.push_back({
                    {"name",      unit->name   },
                    {"operation", std::string(1, unit->operation)},
                    {"factor",           unit->factor                }
                });
            document.push_back({
                {"base",  base->name},
                {"units", related   }
            });
        }
        output.json(document);
        return;
    }
    if (arguments.base.empty()) {
        for (const auto & [base, units] : found) {
            output.text() << base->name;
            for (const Record * unit : units)
                output.text() << ' ' << unit->name;
            output.text() << '\n';
        }
        return;
    }
    const auto & [base, units] = found.front();
    output.text() << base->name << '\n';
    for (const Record * unit : units) {
        double value = 1;
        KOR::UnitList::instance().convert(KOR::Unit(base->index), KOR::Unit(unit->index), value);
        output.text() << "1 " << base->name << " = " << KOR::toString(value, 15) << ' ' << unit->name << '\n';
    }
}

} // namespace

void addUnits(Commands & program) {
    Commands units = program.family({"units", "Units of physical quantities."});
    units.command<Convert>(
        {
            "convert",
            "Converts a value from one unit to another of the same kind.",
            {"units convert 20 C K# 293.15 K", "units convert -5 C K# 268.15 K",
              "units convert 12.5 mm m --json# as a JSON document"}
    },
        defineConvert, convert);
    units.command<List>(
        {
            "list",
            "Lists the units, those of one kind in a line, the base unit first.",
            {"units list# all units", "units list h# the units of time and their relations"}
    },
        defineList, list);
}

} // namespace CMD
