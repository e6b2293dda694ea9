#include <MM/ModelDataContainer.h>

#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>

#include <ostream>

namespace MM {

namespace {

constexpr const char * WHERE = "[ModelDataContainer::read]";
constexpr std::size_t MAX_ENTRIES = 256;  ///< of parameters and of functions in one block
constexpr std::size_t MAX_VALUE = 10'000; ///< characters of a parameter

/// Sets the entry of a keyword; an earlier one is replaced, with the warning.
template <typename Value>
void define(std::vector<std::pair<std::string, Value>> & entries, std::string_view keyword, Value value,
            std::string_view duplicate) {
    for (auto & [name, old] : entries)
        if (name == keyword) {
            log(KOR::text(duplicate, keyword), KOR::MSG_WARNING, WHERE);
            old = std::move(value);
            return;
        }
    if (entries.size() == MAX_ENTRIES)
        throw KOR::Exception(KOR::text("Expected at most %1 entries.", MAX_ENTRIES), WHERE);
    entries.emplace_back(keyword, std::move(value));
}

} // namespace

void ModelDataContainer::read(std::span<const std::string_view> lines) {
    ModelDataContainer model;
    try {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const auto [keyword, value] = KeywordLine(lines[i]);
            if (keyword.empty() || value.empty())
                throw KOR::Exception(KOR::text("Expected a keyword and a value, got '%1'.", shown(lines[i])), WHERE);
            if (value.size() > MAX_VALUE)
                throw KOR::Exception(KOR::text("The value of keyword '%1' is too long.", shown(keyword)), WHERE);
            if (keyword == "TYPE") {
                model.m_type = value;
            } else if (keyword == "FUNCTION") {
                if (lines.size() - i < 3)
                    throw KOR::Exception(KOR::text("Expected two lines of values for function '%1'.", shown(value)),
                                         WHERE);
                KOR::LinearSpline spline;
                readPoints(spline, value, lines[i + 1], lines[i + 2], WHERE);
                define(model.m_functions, value, std::move(spline),
                       "Duplicate definition of function '%1' within model data block. Overwriting previous "
                       "definition.\n");
                i += 2;
            } else {
                define(model.m_parameters, keyword, std::string(value),
                       "Duplicate definition of parameter '%1' within model data block. Overwriting previous "
                       "definition.\n");
            }
        }
        if (model.m_type.empty())
            throw KOR::Exception("Expected a line 'TYPE = ' with the model's identifier.", WHERE);
    } catch (const KOR::Exception & ex) {
        *this = ModelDataContainer();
        throw KOR::Exception(ex, "Error reading model data!", WHERE);
    }
    *this = std::move(model);
}

void ModelDataContainer::write(std::ostream & out, std::size_t indent) const {
    out << std::string(indent, ' ') << MODEL_LINE << '\n';
    out << std::string(indent, ' ') << "TYPE = " << m_type << '\n';
    for (const auto & [keyword, value] : m_parameters)
        out << keywordColumn(indent, keyword, MODEL_KEYWORD_WIDTH) << "= " << value << '\n';
    for (const auto & [name, spline] : m_functions) {
        out << std::string(indent, ' ') << "FUNCTION = " << name << '\n';
        spline.write(out, indent + 4);
    }
}

const std::string * ModelDataContainer::find(std::string_view keyword) const {
    for (const auto & [name, value] : m_parameters)
        if (name == keyword)
            return &value;
    return nullptr;
}

std::vector<double> ModelDataContainer::values(std::string_view keyword) const {
    std::vector<double> numbers;
    const std::string * text = find(keyword);
    if (text != nullptr && KOR::parseDoubles(*text, numbers) != std::string_view::npos)
        numbers.clear();
    return numbers;
}

void ModelDataContainer::set(std::string_view keyword, std::string text) {
    for (auto & [name, value] : m_parameters)
        if (name == keyword) {
            value = std::move(text);
            return;
        }
    m_parameters.emplace_back(keyword, std::move(text));
}

} // namespace MM
