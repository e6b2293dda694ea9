#include "ProjectSummary.h"

#include <KOR/Exception.h>

#include <nlohmann/json.hpp>

#include <iomanip>
#include <numeric>
#include <ostream>
#include <set>

namespace CMD {

namespace {

using namespace HYGRION;
using Json = nlohmann::ordered_json;
using Type = Assignment::type_t;

constexpr double MM = 1000; ///< in a metre

/// The first and last cell of a range along an axis.
std::pair<std::size_t, std::size_t> extent(const Range & range, Disc::dir_t axis) {
    if (axis == Disc::X)
        return {range.left, range.right};
    if (axis == Disc::Y)
        return {range.bottom, range.top};
    return {range.back, range.front};
}

/// The material of each cell along the only axis: that of the last assignment that covers it.
std::vector<std::string> materialsAlong(const Project & project, Disc::dir_t axis) {
    std::vector<std::string> materials(project.m_disc.steps(axis).size());
    for (const Assignment & assignment : project.m_assignments.m_list)
        if (assignment.m_type == Type::Material && assignment.m_location != Assignment::location_t::Coordinate) {
            const auto [first, last] = extent(assignment.m_range, axis);
            std::fill(materials.begin() + static_cast<std::ptrdiff_t>(first),
                      materials.begin() + static_cast<std::ptrdiff_t>(last) + 1, assignment.m_reference);
        }
    return materials;
}

double lengthOf(const std::vector<double> & widths, std::size_t first, std::size_t last) {
    return MM * std::accumulate(widths.begin() + static_cast<std::ptrdiff_t>(first),
                                widths.begin() + static_cast<std::ptrdiff_t>(last) + 1, 0.0);
}

template <typename Enum> std::string word(Enum value) {
    return KeywordList::Keyword(value);
}

std::string described(std::string_view keyword, std::string_view description) {
    return keyword == description ? std::string(keyword) : KOR::text("%1 (%2)", keyword, description);
}

/// "Orientation 270 Deg, Inclination 90 Deg, UseHeatCond" of what is set; switches that are off are left out.
template <typename Item> std::string settings(const Item & item) {
    std::string all;
    const auto add = [&all](const std::string & text) { all += (all.empty() ? "" : ", ") + text; };
    for (const auto & [key, parameter] : item.m_para)
        add(parameter.name() + ' ' + parameter.valueText());
    for (const auto & [key, flag] : item.m_flag)
        if (flag.isEnabled())
            add(word(key));
    return all;
}

/// Where a definition is assigned, in mm of the construction.
Json places(const Project & project, Type type, const std::string & name) {
    Json found = Json::array();
    for (const Assignment & assignment : project.m_assignments.m_list) {
        if (assignment.m_type != type || assignment.m_reference != name)
            continue;
        std::string place = word(assignment.m_location);
        if (assignment.m_location == Assignment::location_t::Coordinate) {
            const Point3D & at = assignment.m_coordinates;
            place += KOR::text(" (%1, %2, %3) m", at.x, at.y, at.z);
        } else {
            constexpr std::pair<Disc::dir_t, const char *> AXES[] = {
                {Disc::X, "x"},
                {Disc::Y, "y"},
                {Disc::Z, "z"}
            };
            for (const auto & [axis, letter] : AXES) {
                if (project.m_disc.steps(axis).size() < 2)
                    continue;
                const auto [first, last] = extent(assignment.m_range, axis);
                const std::vector<double> widths = project.m_disc.steps(axis).baseValues();
                const double start = first == 0 ? 0 : lengthOf(widths, 0, first - 1);
                place += KOR::text(", %1 %2 to %3 mm", letter, shortNumber(start),
                                   shortNumber(start + lengthOf(widths, first, last)));
            }
        }
        if (!assignment.m_name.empty())
            place += " (" + assignment.m_name + ')';
        found.push_back(place);
    }
    return found;
}

Json interfaces(const Project & project) {
    Json all = Json::array();
    for (const Interface & item : project.m_conditions.m_interfaces) {
        std::string climate;
        const auto add = [&climate](const auto & choice) {
            if (choice)
                climate += (climate.empty() ? "" : ", ") + word(*choice);
        };
        add(item.m_climateTypeIndoor);
        add(item.m_indoorWTAType);
        add(item.m_climateTypeOutdoor);
        add(item.m_fmuInterfaceType);
        const Json where = places(project, Type::Interface, item.m_name);
        Json entry{
            {"name",     item.m_name      },
            {"type",     word(item.m_type)},
            {"climate",  climate          },
            {"settings", settings(item)   },
            {"places",   where            }
        };
        for (const std::string & name : item.m_bcReferences) {
            Json condition{
                {"name", name}
            };
            for (const BoundaryCond & boundary : project.m_conditions.m_boundaryConditions)
                if (boundary.m_name == name) {
                    condition["type"] = word(boundary.m_type);
                    condition["kind"] = word(boundary.m_kind);
                    condition["settings"] = settings(boundary);
                    for (const auto & [quantity, climateName] : boundary.m_ccReferences)
                        condition["climate"].push_back(climateName);
                }
            entry["boundaryConditions"].push_back(condition);
        }
        all.push_back(std::move(entry));
    }
    return all;
}

Json climates(const Project & project) {
    Json all = Json::array();
    for (const ClimateCond & item : project.m_conditions.m_climateConditions)
        all.push_back({
            {"name",     item.m_name                                     },
            {"quantity", word(item.m_type)                               },
            {"kind",     item.m_kind ? word(*item.m_kind) : std::string()},
            {"settings", settings(item)                                  },
            {"file",     item.m_filename.str()                           }
        });
    return all;
}

Json states(const Project & project) {
    Json all = Json::array();
    for (const InitialCond & item : project.m_conditions.m_initialConditions) {
        const Json where = places(project, Type::InitialCondition, item.m_name);
        all.push_back({
            {"name",   item.m_name                                                       },
            {"type",   item.m_type ? word(*item.m_type) : std::string()                  },
            {"value",  item.m_value.empty() ? item.m_reference : item.m_value.valueText()},
            {"places", where                                                             }
        });
    }

    return all;
}

template <typename Item> Json conditions(const Project & project, const std::vector<Item> & items, Type type) {
    Json all = Json::array();
    for (const Item & item : items) {
        const Json where = places(project, type, item.m_name);
        all.push_back({
            {"name",     item.m_name      },
            {"type",     word(item.m_type)},
            {"settings", settings(item)   },
            {"places",   where            }
        });
    }

    return all;
}

Json outputs(const Project & project) {
    Json all = Json::array();
    for (const OutputFile & item : project.m_outputs.m_outputFiles) {
        std::string unit = item.m_outputUnit == KOR::Unit() ? std::string() : item.m_outputUnit.name();
        std::string steps;
        for (const OutputGrid & grid : project.m_outputs.m_outputGrids)
            if (grid.m_name == item.m_outputGrid)
                for (const Interval & interval : grid.m_intervals)
                    if (const KOR::Parameter * step = interval.m_para.find(Interval::para_t::StepSize))
                        steps += (steps.empty() ? "" : ", ") + step->valueText();
        const Json where = places(project, Type::Output, item.m_name);
        all.push_back({
            {"name",     item.m_name           },
            {"quantity", item.m_quantity       },
            {"unit",     unit                  },
            {"space",    word(item.m_spaceType)},
            {"time",     word(item.m_timeType) },
            {"grid",     item.m_outputGrid     },
            {"step",     steps                 },
            {"places",   where                 }
        });
    }
    return all;
}

std::string fileOf(const Project & project, const std::string & material) {
    for (const MaterialReference & reference : project.m_materials)
        if (reference.m_name == material)
            return reference.m_filename.str();
    return {};
}

/// Layers of a one-dimensional construction, else the blocks of material.
void addConstruction(const Project & project, Json & document) {
    if (const auto axis = onlyAxis(project.m_disc)) {
        for (const Strip & strip : strips(project, *axis)) {
            const std::string file = fileOf(project, strip.material);
            document["layers"].push_back({
                {"thickness", strip.width                 },
                {"material",  strip.material              },
                {"cells",     strip.last - strip.first + 1},
                {"file",      file                        }
            });
        }
        return;
    }
    for (const MaterialReference & material : project.m_materials) {
        const Json where = places(project, Type::Material, material.m_name);
        document["materials"].push_back({
            {"name",   material.m_name          },
            {"file",   material.m_filename.str()},
            {"places", where                    }
        });
    }
}

std::string durationText(const Interval & interval) {
    std::string all;
    for (const auto & [key, parameter] : interval.m_para)
        all += (all.empty() ? "" : ", ") + parameter.name() + ' ' + parameter.valueText();
    return all.empty() ? "without end" : all;
}

/// A caption and its entries, one a line, a part that is empty left out.
void printList(const Json & list, const char * caption, std::ostream & out, std::initializer_list<const char *> keys) {
    if (list.empty())
        return;
    out << '\n' << caption << '\n';
    std::size_t width = 0;
    for (const Json & entry : list)
        width = std::max(width, entry["name"].get_ref<const std::string &>().size());
    for (const Json & entry : list) {
        const auto & name = entry["name"].get_ref<const std::string &>();
        std::string line;
        for (const char * key : keys)
            if (entry.contains(key) && !entry[key].get_ref<const std::string &>().empty())
                line += (line.empty() ? "" : "; ") + entry[key].get_ref<const std::string &>();
        out << "  " << name << std::string(width - name.size() + 2, ' ') << line << '\n';
        if (entry.contains("boundaryConditions"))
            for (const Json & condition : entry["boundaryConditions"]) {
                out << "      " << condition["name"].get<std::string>() << ": "
                    << condition.value("type", std::string("not defined")) << ", "
                    << condition.value("kind", std::string()) << "; " << condition.value("settings", std::string())
                    << '\n';
            }
        if (entry.contains("places"))
            for (const Json & place : entry["places"])
                out << "      " << place.get<std::string>() << '\n';
    }
}

} // namespace

std::string shortNumber(double value) {
    return KOR::toString(value, 6);
}

std::optional<Disc::dir_t> onlyAxis(const Disc & disc) {
    if (disc.ny() == 1 && disc.nz() == 1)
        return Disc::X;
    if (disc.nx() == 1 && disc.nz() == 1)
        return Disc::Y;
    if (disc.nx() == 1 && disc.ny() == 1)
        return Disc::Z;
    return std::nullopt;
}

std::vector<Strip> strips(const Project & project, Disc::dir_t axis) {
    const std::vector<double> widths = project.m_disc.steps(axis).baseValues();
    std::vector<std::string> materials(widths.size());
    std::set<std::size_t> borders{0, widths.size()};
    if (onlyAxis(project.m_disc) == axis) {
        materials = materialsAlong(project, axis);
        for (std::size_t i = 1; i < materials.size(); ++i)
            if (materials[i] != materials[i - 1])
                borders.insert(i);
    } else {
        for (const Assignment & assignment : project.m_assignments.m_list)
            if (assignment.m_type == Type::Material) {
                const auto [first, last] = extent(assignment.m_range, axis);
                borders.insert({first, last + 1});
            }
    }
    std::vector<Strip> found;
    double start = 0;
    for (auto border = borders.begin(); std::next(border) != borders.end(); ++border) {
        Strip strip{.first = *border, .last = *std::next(border) - 1, .start = start, .material = materials[*border]};
        strip.width = lengthOf(widths, strip.first, strip.last);
        const auto [smallest, largest] =
            std::minmax_element(widths.begin() + static_cast<std::ptrdiff_t>(strip.first),
                                widths.begin() + static_cast<std::ptrdiff_t>(strip.last) + 1);
        strip.smallest = MM * *smallest;
        strip.largest = MM * *largest;
        start += strip.width;
        found.push_back(std::move(strip));
    }
    return found;
}

Json summary(const Project & project) {
    const Init & init = project.m_init;
    const Disc & disc = project.m_disc;
    std::string location = project.m_projectInfo.m_location;
    if (init.isEnabled(Init::flag_t::UseCustomLocation))
        location += KOR::text("%1latitude %2, longitude %3", location.empty() ? "" : ", ",
                              init.parameter(Init::para_t::Latitude).valueText(),
                              init.parameter(Init::para_t::Longitude).valueText());
    const auto balances = init.balanceEquationModule();
    Json document{
        {"name",        project.m_projectInfo.m_projectName},
        {"description", project.m_projectInfo.m_description},
        {"location",    location                           },
        {"climate",     init.m_climateDataFilePath.str()   },
        {"balances",    described(word(balances),            KeywordList::Description(balances))},
        {"duration",             durationText(init.m_interval)                                      },
        {"startYear",             init.intParameter(Init::intpara_t::StartYear)}
    };
    document["grid"] = Json::array({disc.nx(), disc.ny(), disc.nz()});
    addConstruction(project, document);
    document["interfaces"] = interfaces(project);
    document["climateConditions"] = climates(project);
    document["contactConditions"] =
        conditions(project, project.m_conditions.m_contactConditions, Type::ContactCondition);
    document["fieldConditions"] = conditions(project, project.m_conditions.m_fieldConditions, Type::FieldCondition);
    document["initialConditions"] = states(project);
    document["outputs"] = outputs(project);
    document["assessments"] = Json::array();
    for (const Assessment & item : project.m_assessments)
        document["assessments"].push_back({
            {"name",  item.m_name                },
            {"type",  word(item.m_type)          },
            {"place", word(item.m_assignmentType)}
        });
    return document;
}

void printSummary(const Json & document, std::ostream & out) {
    const auto line = [&out](const char * caption, const std::string & value) {
        if (!value.empty())
            out << std::left << std::setw(13) << caption << value << '\n';
    };
    const auto text = [&document](const char * key) { return document[key].get<std::string>(); };
    line("Project:", text("name"));
    line("Description:", text("description"));
    line("Location:", text("location"));
    line("Climate:", text("climate"));
    line("Balances:", text("balances"));
    line("Duration:", KOR::text("%1; start year %2", text("duration"), document["startYear"].get<int>()));
    const Json & grid = document["grid"];
    line("Grid:", KOR::text("%1 x %2 x %3 cells", grid[0].get<std::size_t>(), grid[1].get<std::size_t>(),
                            grid[2].get<std::size_t>()));
    if (document.contains("layers")) {
        out << "\nLayers\n";
        double total = 0;
        for (const Json & layer : document["layers"]) {
            const double thickness = layer["thickness"].get<double>();
            total += thickness;
            const std::string material = layer["material"].get<std::string>();
            out << std::right << std::setw(10) << shortNumber(thickness) << " mm  "
                << (material.empty() ? "no material" : material) << "; " << layer["cells"].get<std::size_t>()
                << " cells\n";
        }
        out << std::right << std::setw(10) << shortNumber(total) << " mm  in all\n";
    }
    if (document.contains("materials"))
        printList(document["materials"], "Materials", out, {"file"});
    printList(document["interfaces"], "Interfaces", out, {"type", "climate", "settings"});
    printList(document["climateConditions"], "Climate", out, {"quantity", "kind", "settings", "file"});
    printList(document["contactConditions"], "Contact conditions", out, {"type", "settings"});
    printList(document["fieldConditions"], "Field conditions", out, {"type", "settings"});
    printList(document["initialConditions"], "Initial conditions", out, {"type", "value"});
    printList(document["outputs"], "Outputs", out, {"quantity", "unit", "space", "time", "grid", "step"});
    printList(document["assessments"], "Assessments", out, {"type", "place"});
}

} // namespace CMD
