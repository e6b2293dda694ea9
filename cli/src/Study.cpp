#include "Study.h"

#include <SOLVER/CheckProject.h>
#include <SOLVER/SolverOptions.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <nlohmann/json.hpp>

#include <tinyxml.h>

#include <algorithm>
#include <set>

namespace CMD {

using Json = nlohmann::json;
using KOR::Exception;
using KOR::text;

namespace {

constexpr std::size_t MAX_SIZE = 16 << 20;
constexpr std::size_t MAX_VARIANTS = 100'000;

/// JSON with comments. A name that an object holds twice is refused; otherwise the last one would win in silence.
Json parsed(const std::string & content) {
    std::vector<std::set<std::string>> names; // of the objects that are open
    const auto check = [&names](int, Json::parse_event_t event, Json & value) {
        if (event == Json::parse_event_t::object_start)
            names.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            names.pop_back();
        else if (event == Json::parse_event_t::key && !names.back().insert(value.get<std::string>()).second)
            throw Exception(text("The entry '%1' stands there twice.", value.get<std::string>()), "[Study::Study]");
        return true;
    };
    return Json::parse(content, check, true, true);
}

std::string joined(const std::vector<std::string> & path) {
    std::string all;
    for (const std::string & step : path)
        all += (all.empty() ? "" : "/") + step;
    return all;
}

std::string writtenText(const Json & json, const char * key) {
    if (!json.is_string() || json.get_ref<const std::string &>().empty())
        throw Exception(text("'%1' must be a text.", key), "[Study::Study]");
    return json;
}

bool isNamed(const TiXmlElement & element, const std::string & name) {
    const char * const attribute = element.Attribute("name");
    return element.ValueStr() == name || (attribute != nullptr && name == attribute);
}

/// All elements below \p parent that the path leads to; there may be others between its steps.
void find(TiXmlElement & parent, std::span<const std::string> path, std::vector<TiXmlElement *> & found) {
    for (TiXmlElement * child = parent.FirstChildElement(); child != nullptr; child = child->NextSiblingElement()) {
        const bool isStep = isNamed(*child, path.front());
        if (isStep && path.size() == 1)
            found.push_back(child);
        else
            find(*child, isStep ? path.subspan(1) : path, found);
    }
}

void setText(TiXmlElement & element, const std::string & value) {
    element.Clear();
    element.LinkEndChild(new TiXmlText(value.c_str())); // owned by the element
}

} // namespace

Study::Study(const std::string & path) {
    constexpr const char * WHERE = "[Study::Study]";
    try {
        const Json json = parsed(KOR::readFile(path, MAX_SIZE));
        if (!json.is_object())
            throw Exception("Expected an object with 'project' and 'vary'.", WHERE);
        const KOR::Path here = KOR::Path(path).parentPath();
        m_directory = KOR::Path(path).withoutExtension().str();
        for (const auto & [key, value] : json.items()) {
            if (key == "project") {
                m_base.readXML(KOR::Path(writtenText(value, "project")).absolutePath(here).str());
            } else if (key == "duration") {
                m_duration = writtenText(value, "duration");
                SOLVER::SolverOptions::parseDuration(*m_duration);
            } else if (key == "directory") {
                m_directory = KOR::Path(writtenText(value, "directory")).absolutePath(here).str();
            } else if (key == "vary") {
                if (!value.is_array())
                    throw Exception("'vary' must be a list.", WHERE);
                for (const Json & item : value)
                    readItem(item);
            } else {
                throw Exception(text("Unknown entry '%1'; there are project, duration, directory and vary.", key),
                                WHERE);
            }
        }
        if (m_base.m_fileName.empty())
            throw Exception("The entry 'project' is missing.", WHERE);
        if (m_directory == path)
            throw Exception("The name of the study needs an extension; without it, it is the directory of the results.",
                            WHERE);
        std::size_t count = 1;
        for (const Item & item : m_items) {
            count *= item.values.size();
            if (count > MAX_VARIANTS)
                throw Exception(text("There are more than %1 combinations.", MAX_VARIANTS), WHERE);
        }
        m_baseText = m_base.text();
    } catch (const std::exception & ex) {
        const auto * const known = dynamic_cast<const Exception *>(&ex);
        throw Exception(known != nullptr ? *known : Exception(ex.what(), WHERE),
                        text("Error reading study '%1'.", path), WHERE);
    }
}

void Study::readItem(const Json & json) {
    constexpr const char * WHERE = "[Study::readItem]";
    if (!json.is_object())
        throw Exception("Each entry of 'vary' must be an object.", WHERE);
    Item item;
    for (const auto & [key, value] : json.items()) {
        if (key == "parameter" && value.is_array()) {
            for (const Json & step : value)
                item.path.push_back(writtenText(step, "parameter"));
        } else if (key == "parameter") {
            const std::string written = writtenText(value, "parameter");
            for (const std::string_view step : KOR::split(written, '/'))
                item.path.emplace_back(step);
        } else if (key == "orientation") {
            item.path = {"Interfaces", writtenText(value, "orientation"), "Orientation"};
        } else if (key == "material") {
            item.path = {"Materials", writtenText(value, "material")};
            item.isMaterial = true;
        } else if (key == "label") {
            item.label = writtenText(value, "label");
        } else if (key == "values" && value.is_array() && !value.empty()) {
            for (const Json & one : value) {
                if (one.is_string())
                    item.values.push_back({one.get<std::string>(), true});
                else if (one.is_number())
                    item.values.push_back({KOR::toString(one.get<double>()), false});
                else if (one.is_boolean())
                    item.values.push_back({one.get<bool>() ? "true" : "false", false});
                else
                    throw Exception("A value must be a number, a text, true or false.", WHERE);
            }
        } else {
            throw Exception(key == "values" ? std::string("'values' must be a list that is not empty.")
                                            : text("Unknown entry '%1' in 'vary'; there are parameter, orientation, "
                                                   "material, label and values.",
                                                   key),
                            WHERE);
        }
    }
    if (item.path.empty() || std::count(item.path.begin(), item.path.end(), std::string()) > 0)
        throw Exception("An entry of 'vary' names no parameter, orientation or material.", WHERE);
    if (item.values.empty())
        throw Exception(text("'%1' has no values.", joined(item.path)), WHERE);
    if (item.label.empty())
        item.label = json.contains("parameter") ? joined(item.path)
                     : item.isMaterial          ? item.path[1]
                                                : "Orientation of " + item.path[1];
    m_items.push_back(std::move(item));
}

std::vector<std::string> Study::labels() const {
    std::vector<std::string> all;
    for (const Item & item : m_items)
        all.push_back(item.label);
    return all;
}

std::size_t Study::variantCount() const {
    std::size_t count = 1;
    for (const Item & item : m_items)
        count *= item.values.size();
    return count;
}

const Study::Value & Study::valueOf(std::size_t variant, std::size_t item) const {
    for (std::size_t i = m_items.size(); --i > item;)
        variant /= m_items[i].values.size();
    return m_items[item].values[variant % m_items[item].values.size()];
}

std::vector<std::string> Study::valuesOf(std::size_t variant) const {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        all.push_back(m_items[i].isMaterial ? KOR::Path(valueOf(variant, i).text).filename()
                                            : valueOf(variant, i).text);
    return all;
}

void Study::apply(TiXmlElement & root, const Item & item, const Value & value) {
    constexpr const char * WHERE = "[Study::apply]";
    std::vector<TiXmlElement *> found;
    find(root, item.path, found);
    if (found.size() > 1)
        throw Exception(text("'%1' stands for %2 places; put the name of the definition or section before it.",
                             joined(item.path), found.size()),
                        WHERE);
    // "80 mm" is a value and its unit, "Brick wall" a text.
    const auto words = KOR::words(value.text);
    const bool isWithUnit = value.hasUnit && words.size() == 2 && KOR::parseDouble(words[0]);
    if (found.empty()) { // it has its default so far
        if (item.path.size() > 1)
            find(root, std::span(item.path).first(item.path.size() - 1), found);
        if (found.size() != 1 || item.isMaterial)
            throw Exception(text("The project holds no '%1'.", joined(item.path)), WHERE);
        if (!isWithUnit)
            throw Exception(text("'%1' has its default in the project; its values need a unit here, as in \"90 Deg\".",
                                 joined(item.path)),
                            WHERE);
        TiXmlElement & parameter = *found.front()->LinkEndChild(new TiXmlElement("KOR:Parameter"))->ToElement();
        parameter.SetAttribute("name", item.path.back().c_str());
        found = {&parameter};
    }
    TiXmlElement & element = *found.front();
    if (element.FirstChildElement() != nullptr)
        throw Exception(text("'%1' is no single value.", joined(item.path)), WHERE);
    if (element.ValueStr() == "KOR:Parameter" && isWithUnit) {
        element.SetAttribute("unit", std::string(words[1]).c_str());
        setText(element, std::string(words[0]));
    } else {
        setText(element, value.text);
    }
}

HYGRION::Project Study::project(std::size_t variant) const {
    constexpr const char * WHERE = "[Study::project]";
    try {
        TiXmlDocument document;
        document.Parse(m_baseText.c_str());
        if (document.Error() || document.RootElement() == nullptr)
            throw Exception(document.ErrorDesc(), WHERE);
        for (std::size_t i = 0; i < m_items.size(); ++i)
            apply(*document.RootElement(), m_items[i], valueOf(variant, i));
        TiXmlPrinter printer;
        printer.SetIndent("  ");
        document.Accept(&printer);
        HYGRION::Project project;
        project.readText(printer.Str());
        project.m_fileName = m_base.m_fileName;
        HYGRION::forEachPath(project, [&project](KOR::Path & path, const std::string &) {
            if (!path.empty())
                path = project.resolved(path);
        });
        for (const HYGRION::ProjectCheck::Finding & finding : SOLVER::checkProject(project))
            if (finding.severity == HYGRION::ProjectCheck::FAULT)
                throw Exception(finding.text(), WHERE);
        return project;
    } catch (const Exception & ex) {
        std::string values;
        for (const std::string & value : valuesOf(variant))
            values += (values.empty() ? "" : ", ") + value;
        throw Exception(ex, text("Error in variant %1 (%2).", variant + 1, values), WHERE);
    }
}

} // namespace CMD
