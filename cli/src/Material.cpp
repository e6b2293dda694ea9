#include "Families.h"

#include <MM/CheckMaterial.h>
#include <MM/Evaluation.h>
#include <MM/Material.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iomanip>
#include <iterator>
#include <ostream>

namespace CMD {

namespace {

using MM::KeywordList;
using MM::Material;
namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using Storage = Material::ParaStorage;
using Transport = Material::ParaTransport;

constexpr const char * FILE_HELP = "The material file: m6, or an older one.";

struct File {
    std::string path;
};

/// The material files of a directory, sorted; the path itself if it is a file.
std::vector<std::string> materialFiles(const std::string & path) {
    if (!fs::is_directory(path))
        return {path};
    std::vector<std::string> files;
    try {
        for (const auto & entry : fs::directory_iterator(path)) {
            const std::string extension = KOR::lowered(entry.path().extension().string());
            if (extension == ".m6" || extension == ".mat")
                files.push_back(entry.path().string());
        }
    } catch (const fs::filesystem_error & ex) {
        throw KOR::Exception(KOR::text("Cannot read directory '%1': %2", path, ex.code().message()),
                             "[CMD::materialFiles]");
    }
    if (files.empty())
        throw KOR::Exception(KOR::text("There are no material files (m6, mat) in directory '%1'.", path),
                             "[CMD::materialFiles]");
    std::sort(files.begin(), files.end());
    return files;
}

Material readMaterial(const std::string & path) {
    Material material;
    material.read(path);
    return material;
}

std::string names(const Material & material) {
    std::string all;
    for (const auto & [language, text] : material.m_identification.m_name.texts())
        all += (all.empty() ? "" : ", ") + text + (language == KOR::LangString::ALL ? "" : " (" + language + ")");
    return all;
}

std::string flags(const Material & material) {
    std::string set;
    const KOR::KeywordCategory & rows = *KeywordList::table().find("MaterialIdentification::Flags");
    for (std::size_t i = 0; i < rows.rows.size(); ++i)
        if ((material.m_identification.m_flags & static_cast<unsigned int>(rows.index(i))) != 0)
            set += (set.empty() ? "" : " ") + std::string(rows.rows[i].words);
    return set;
}

std::string categories(const Material & material) {
    using Id = MM::MaterialCategory::CategoryID;
    std::string all;
    for (std::size_t i = 0; i < 3; ++i)
        if (const Id id = material.m_identification.m_category.id(i); id != Id::INVALID)
            all += (all.empty() ? "" : ", ") + std::string(KeywordList::Description(id));
    return all;
}

std::string hatching(const Material & material) {
    const auto type = material.m_identification.m_hatching;
    return type ? KeywordList::Keyword(*type) : "";
}

std::string colour(const Material & material) {
    const auto & given = material.m_identification.m_colour;
    return given ? given->html() : "";
}

// *** check ***

void defineCheck(CLI::App & app, File & arguments) {
    app.add_option("PATH", arguments.path, "A material file, or a directory of them.")->required();
}

void check(const File & arguments, Output & output) {
    Json document = Json::array();
    std::size_t faulty = 0;
    const auto files = materialFiles(arguments.path);
    for (const std::string & path : files) {
        std::vector<std::string> messages;
        std::vector<std::string> notes;
        try {
            Material material = readMaterial(path);
            for (const MM::Finding & finding : checkMaterial(material))
                (finding.isFault ? messages : notes).emplace_back(finding.message);
            material.prepareCalculation();
        } catch (const KOR::Exception & ex) {
            for (const auto & entry : ex.chain())
                messages.push_back(std::string(KOR::trimmed(entry.message)));
        }
        faulty += messages.empty() ? 0 : 1;
        if (output.isJson()) {
            document.push_back({
                {"file",     path    },
                {"findings", messages},
                {"notes",    notes   }
            });
            continue;
        }
        if (!messages.empty() || files.size() == 1)
            output.text() << path << (messages.empty() ? ": good" : "") << '\n';
        for (const std::string & message : messages)
            output.text() << "  " << KOR::replaced(message, "\n", " ") << '\n';
        for (const std::string & note : files.size() == 1 ? notes : std::vector<std::string>())
            output.text() << "  " << note << '\n';
    }
    if (output.isJson())
        output.json(document);
    else if (files.size() != 1)
        output.text() << files.size() << " materials, " << faulty << " with findings\n";
    if (faulty > 0)
        output.fail(KOR::Exception(KOR::text("Findings in %1 of %2 materials.", faulty, files.size()), "[CMD::check]"));
}

// *** show ***

void defineFile(CLI::App & app, File & arguments) {
    app.add_option("FILE", arguments.path, FILE_HELP)->required();
}

/// The parameters that are set, in the order of the file.
template <typename Body> void eachParameter(const Material & material, const Body & body) {
    const auto list = [&](auto last) {
        for (std::size_t i = 0; i <= MM::indexOf(last); ++i) {
            const auto which = static_cast<decltype(last)>(i);
            if (!material.parameter(which).empty())
                body(material.parameter(which), KeywordList::Description(which));
        }
    };
    list(Storage::THETA_80);
    list(Transport::LAMBDA_DESIGN);
    list(Material::ParaMechanical::BETA_THETA_L_W);
}

/// The units of a stored function.
struct FunctionUnits {
    std::string_view function, x, y;
};
// clang-format off
constexpr FunctionUnits FUNCTION_UNITS[] = {
    {"u(T)",              "K",     "J/kg"},
    {"Theta_l(pC)_de",    "logPa", "m3/m3"},
    {"pC(Theta_l)_de",    "m3/m3", "logPa"},
    {"Theta_l(RH)",       "-",     "m3/m3"},
    {"Theta_l(pC)_ad",    "logPa", "m3/m3"},
    {"pC(Theta_l)_ad",    "m3/m3", "logPa"},
    {"mwu(T)",            "K",     ""},
    {"DE(pC)",            "logPa", ""},
    {"lgKl(Theta_l)",     "m3/m3", "log(s)"},
    {"lgDl(Theta_l)",     "m3/m3", "log(m2/s)"},
    {"lgKv(Theta_l)",     "m3/m3", "log(s)"},
    {"mew(RH)",           "-",     "-"},
    {"lambda(Theta_l)",   "m3/m3", "W/mK"},
    {"lambda(T)",         "K",     "W/mK"},
    {"lambda(Theta_ice)", "m3/m3", "W/mK"},
    {"Kg(Theta_l)",       "m3/m3", "s"},
    {"sd+(rh)",           "-",     "m"},
    {"sd-(rh)",           "-",     "m"},
};
// clang-format on

/// \param function the name, a direction may follow it
FunctionUnits unitsOf(std::string_view function) {
    for (const FunctionUnits & row : FUNCTION_UNITS)
        if (function.substr(0, function.find(',')) == row.function)
            return row;
    return {};
}

/// A unit behind a number; nothing for pure numbers.
std::string withBlank(std::string_view unit) {
    return unit.empty() || unit == "-" ? "" : ' ' + std::string(unit);
}

/// The functions that are stored, with the section's name.
template <typename Body> void eachFunction(const Material & material, const Body & body) {
    const auto list = [&](const auto & section, auto first, const std::string & suffix) {
        const std::string_view category = KOR::enumerationName<decltype(first)>();
        for (int i = 0; i <= KeywordList::MaxIndex(category); ++i)
            if (const auto which = static_cast<decltype(first)>(i); section.has(which))
                body(KeywordList::Keyword(which) + suffix, section.function(which));
    };
    list(material.m_thermalStorage, MM::ThermalStorage::Functions::u_T, "");
    list(material.m_moistureStorage, MM::MoistureStorage::Functions::Theta_l_pC_de, "");
    for (std::size_t d = 0; d < Material::NUM_DIRECTIONS; ++d) {
        const std::string suffix = d == 0 ? "" : d == 1 ? ", direction v" : ", direction w";
        list(material.m_moistureTransport[d], MM::MoistureTransport::Functions::lgKl_Theta_l, suffix);
        list(material.m_thermalTransport[d], MM::ThermalTransport::Functions::lambda_Theta_l, suffix);
        list(material.m_airTransport[d], MM::AirTransport::Functions::Kg_Theta_l, suffix);
    }
    list(material.m_vaporContactResistance, MM::VaporContactResistanceModel::Functions::sdPos_rh, "");
}

template <typename Body> void eachModel(const Material & material, const Body & body) {
    for (const auto & model : material.m_moistureStorage.models().models())
        body(model);
    for (const auto & transport : material.m_moistureTransport)
        for (const auto & model : transport.models().models())
            body(model);
}

void show(const File & arguments, Output & output) {
    const Material material = readMaterial(arguments.path);
    const MM::MaterialIdentification & who = material.m_identification;
    const std::string version = KOR::toString(material.m_versionMajor) + '.' + KOR::toString(material.m_versionMinor);
    if (output.isJson()) {
        Json name = Json::object();
        for (const auto & [language, text] : who.m_name.texts())
            name[language] = text;
        Json parameters = Json::object();
        eachParameter(material, [&](const KOR::Parameter & parameter, std::string_view) {
            parameters[parameter.name()] = {
                {"value", parameter.ioValue()      },
                {"unit",  parameter.ioUnit().name()}
            };
        });
        Json functions = Json::object();
        eachFunction(material, [&](const std::string & function, const KOR::LinearSpline & spline) {
            const FunctionUnits units = unitsOf(function);
            functions[function] = {
                {"xUnit", units.x   },
                {"yUnit", units.y   },
                {"x",     spline.x()},
                {"y",     spline.y()}
            };
        });
        Json models = Json::array();
        eachModel(material, [&](const MM::ModelDataContainer & model) {
            Json entry{
                {"type", model.m_type}
            };
            for (const auto & [keyword, value] : model.m_parameters)
                entry[keyword] = value;
            models.push_back(entry);
        });
        output.json({
            {"id",         material.m_id           },
            {"version",    version                 },
            {"name",       name                    },
            {"category",   who.m_category.text()   },
            {"flags",      flags(material)         },
            {"colour",     colour(material)        },
            {"hatching",   hatching(material)      },
            {"source",     who.m_dataSheetSource   },
            {"comments",   who.m_comments.get("en")},
            {"parameters", parameters              },
            {"functions",  functions               },
            {"models",     models                  }
        });
        return;
    }
    std::ostream & out = output.text();
    const auto line = [&out](std::string_view caption, const std::string & value) {
        if (!value.empty())
            out << std::left << std::setw(12) << caption << value << '\n';
    };
    line("Name:", names(material));
    line("ID:", KOR::toString(material.m_id));
    line("File:", "version " + version);
    line("Category:", categories(material));
    line("Flags:", flags(material));
    line("Colour:", colour(material));
    line("Hatching:", hatching(material));
    line("Producer:", who.m_producer.get("en"));
    line("Source:", who.m_dataSheetSource);
    line("Comments:", who.m_comments.get("en"));
    out << '\n';
    eachParameter(material, [&](const KOR::Parameter & parameter, std::string_view description) {
        out << std::left << std::setw(16) << parameter.name() << std::setw(18) << parameter.valueText() << ' '
            << description << '\n';
    });
    out << '\n';
    eachFunction(material, [&](const std::string & function, const KOR::LinearSpline & spline) {
        const FunctionUnits units = unitsOf(function);
        const auto range = [&out](std::string_view axis, const std::vector<double> & values, std::string_view unit) {
            out << axis << KOR::toString(values.front(), 6) << " to " << KOR::toString(values.back(), 6)
                << withBlank(unit);
        };
        out << std::left << std::setw(30) << function << spline.size() << " points";
        range(", x ", spline.x(), units.x);
        range(", y ", spline.y(), units.y);
        out << '\n';
    });
    eachModel(material, [&](const MM::ModelDataContainer & model) {
        out << "Model " << model.m_type;
        for (const auto & [keyword, value] : model.m_parameters)
            out << ", " << keyword << ' ' << value;
        out << '\n';
    });
}

// *** eval ***

struct Eval {
    std::string path;
    std::string function;
    std::string direction = "u";
    std::vector<double> values;
};

/// What may be asked for, by the unit of x: percents and degrees Celsius are common slips.
struct Range {
    std::string_view unit;
    double least, most;
};
// clang-format off
constexpr Range RANGES[] = {
    {"-",     0,   1},
    {"m3/m3", 0,   1},
    {"logPa", -20, 20},
    {"K",     100, 2000},
};
// clang-format on

void checkRange(const MM::Evaluation & evaluation, double x) {
    for (const Range & range : RANGES)
        if (range.unit == evaluation.xUnit && !(x >= range.least && x <= range.most))
            throw KOR::Exception(KOR::text("%1 takes values from %2 to %3%4, got %5.", evaluation.name, range.least,
                                           range.most, withBlank(range.unit), x),
                                 "[CMD::eval]");
}

void defineEval(CLI::App & app, Eval & arguments) {
    app.add_option("FILE", arguments.path, FILE_HELP)->required();
    app.add_option("FUNCTION", arguments.function,
                   "One of: " + MM::evaluationNames() +
                       ". Kl to lambda are over the content; lambda is that at 283.15 K.")
        ->required();
    addNumbers(app, "X", arguments.values,
               "Where to evaluate: humidity from 0 to 1, content [m3/m3], pC [logPa], T [K].")
        ->required()
        ->expected(1, 100'000);
    app.add_option("--direction", arguments.direction, "The material's direction: u, v or w.")
        ->check(CLI::IsMember({"u", "v", "w"}));
}

void eval(const Eval & arguments, Output & output) {
    const MM::Evaluation & function = MM::evaluation(arguments.function);
    for (const double x : arguments.values)
        checkRange(function, x);
    Material material = readMaterial(arguments.path);
    material.prepareCalculation();
    Json points = Json::array();
    for (const double x : arguments.values) {
        const double y = function.value(material, arguments.direction[0] - 'u', x);
        if (output.isJson())
            points.push_back({
                {"x", x                                  },
                {"y", std::isfinite(y) ? Json(y) : Json()}
            });
        else
            output.text() << KOR::toString(x) << ' ' << function.xUnit << '\t' << KOR::toString(y, 10) << ' '
                          << function.yUnit << '\n';
    }
    if (output.isJson())
        output.json({
            {"function", function.name },
            {"xUnit",    function.xUnit},
            {"yUnit",    function.yUnit},
            {"points",   points        }
        });
}

// *** convert ***

struct Convert {
    std::string in;
    std::string out;
};

void defineConvert(CLI::App & app, Convert & arguments) {
    app.add_option("IN", arguments.in, FILE_HELP)->required();
    app.add_option("OUT", arguments.out,
                   "The m6 file to write, its name is given the material's ID; or a directory for it.")
        ->required();
}

void convert(const Convert & arguments, Output & output) {
    Material material = readMaterial(arguments.in);
    fs::path out = arguments.out;
    if (fs::is_directory(out))
        out = Material::pathWithId(out / fs::path(arguments.in).filename(), material.m_id);
    else if (const auto id = Material::idFromPath(arguments.out))
        material.m_id = *id;
    const std::string path = material.write(out);
    if (output.isJson())
        output.json({
            {"written", path}
        });
    else
        output.text() << path << '\n';
}

// *** list ***

void defineDirectory(CLI::App & app, File & arguments) {
    app.add_option("DIR", arguments.path, "A directory of material files.")->required()->type_name("DIR");
}

void list(const File & arguments, Output & output) {
    struct Column {
        const char *caption, *unit;
        int width;
    };
    constexpr Column COLUMNS[] = {
        {"Rho",    "kg/m3",    9 },
        {"cp",     "J/kgK",    8 },
        {"Lambda", "W/mK",     9 },
        {"Mu",     "-",        10},
        {"Aw",     "kg/m2s05", 11},
    };
    const auto files = materialFiles(arguments.path);
    Json document = Json::array();
    if (!output.isJson()) {
        output.text() << std::right << std::setw(6) << "ID";
        for (const Column & column : COLUMNS)
            output.text() << std::setw(column.width) << column.caption;
        output.text() << "  Name\n" << std::setw(6) << "";
        for (const Column & column : COLUMNS)
            output.text() << std::setw(column.width) << column.unit;
        output.text() << '\n';
    }
    for (const std::string & path : files) {
        Material material;
        try {
            material.read(path);
        } catch (const KOR::Exception & ex) {
            output.fail(ex);
            continue;
        }
        const KOR::Parameter * const parameters[] = {
            &material.parameter(Storage::RHO), &material.parameter(Storage::CE), &material.parameter(Transport::LAMBDA),
            &material.parameter(Transport::MEW), &material.parameter(Transport::AW)};
        static_assert(std::size(parameters) == std::size(COLUMNS));
        if (output.isJson()) {
            Json entry{
                {"id",       material.m_id                              },
                {"name",     material.name()                            },
                {"category", material.m_identification.m_category.text()},
                {"file",     path                                       }
            };
            for (const KOR::Parameter * parameter : parameters)
                if (!parameter->empty())
                    entry[parameter->name()] = {
                        {"value", parameter->value()               },
                        {"unit",  parameter->ioUnit().base().name()}
                    };
            document.push_back(entry);
            continue;
        }
        output.text() << std::right << std::setw(6) << material.m_id;
        for (std::size_t i = 0; i < std::size(COLUMNS); ++i)
            output.text() << std::setw(COLUMNS[i].width)
                          << (parameters[i]->empty() ? "-" : KOR::toString(parameters[i]->value(), 4));
        output.text() << "  " << material.name() << '\n';
    }
    if (output.isJson())
        output.json(document);
}

} // namespace

void addMaterial(Commands & program) {
    Commands material = program.family({"material", "Materials: read, checked, evaluated and converted."});
    material.command<File>(
        {
            "check",
            "Checks materials; ends with 1 if anything is found.",
            {"material check brick_12.m6# findings of one material",
              "material check DB_materials# of all materials of a directory"}
    },
        defineCheck, check);
    material.command<File>(
        {"show", "Shows what a material file holds.", {"material show brick_12.m6# parameters and functions"}},
        defineFile, show);
    material.command<Eval>(
        {
            "eval",
            "Evaluates a function of a material as charts and solver do.",
            {"material eval brick_12.m6 'Theta_l(RH)' 0.5 0.8# contents at two humidities",
              "material eval brick_12.m6 Kl 0.2 --json# liquid conductivity"}
    },
        defineEval, eval);
    material.command<Convert>({"convert",
                               "Writes a material as a file of today's version.",
                               {"material convert brick_12.mat brick_12.m6# an older file"}},
                              defineConvert, convert);
    material.command<File>({"list", "Lists the materials of a directory.", {"material list DB_materials# a line each"}},
                           defineDirectory, list);
}

} // namespace CMD
