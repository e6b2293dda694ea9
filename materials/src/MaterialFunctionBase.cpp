#include <MM/MaterialFunctionBase.h>

#include "BaseParameters.h"
#include "Lines.h"
#include "SplineTools.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace MM {

namespace {

constexpr std::size_t MAX_MODELS = 16;

std::size_t entries(std::string_view enumeration) {
    return enumeration.empty() ? 0 : KeywordList::table().find(enumeration)->rows.size();
}

} // namespace

MaterialFunctionBase::MaterialFunctionBase(const SectionTexts & texts)
    : m_texts(&texts), m_functions(entries(texts.functions)), m_prepared(m_functions.size()),
      m_parameters(entries(texts.parameters)) {}

void MaterialFunctionBase::clear() {
    *this = MaterialFunctionBase(*m_texts);
}

bool MaterialFunctionBase::empty() const {
    const auto isEmpty = [](const auto & entry) { return entry.empty(); };
    return std::all_of(m_functions.begin(), m_functions.end(), isEmpty) &&
           std::all_of(m_parameters.begin(), m_parameters.end(), isEmpty) && m_models.empty();
}

bool MaterialFunctionBase::operator==(const MaterialFunctionBase & other) const {
    return m_functions == other.m_functions && m_parameters == other.m_parameters && m_models == other.m_models;
}

void MaterialFunctionBase::read(std::span<const std::string_view> sectionLines) {
    clear();
    try {
        std::vector<std::string_view> lines = withoutComments(sectionLines);
        readModelsASCII(lines);
        readFunctions(lines);
    } catch (const KOR::Exception & ex) {
        clear();
        throw KOR::Exception(ex, std::string(m_texts->wrapping), std::string(m_texts->where));
    }
}

std::vector<std::vector<std::string_view>>
MaterialFunctionBase::extractModelData(std::vector<std::string_view> & lines) {
    std::vector<std::vector<std::string_view>> blocks;
    std::vector<std::string_view> others;
    bool isInBlock = false;
    for (const std::string_view line : lines) {
        if (line == MODEL_LINE) {
            if (blocks.size() == MAX_MODELS)
                throw KOR::Exception(KOR::text("Expected at most %1 model blocks.", MAX_MODELS),
                                     "[MaterialFunctionBase::extractModelData]");
            blocks.emplace_back();
            isInBlock = true;
            continue;
        }
        isInBlock = isInBlock && bracketed(line).empty();
        (isInBlock ? blocks.back() : others).push_back(line);
    }
    lines = std::move(others);
    return blocks;
}

void MaterialFunctionBase::readModelsASCII(std::vector<std::string_view> & lines) {
    const char * const where = "[MaterialFunctionBase::readModelsASCII]";
    std::size_t number = 0;
    for (const auto & block : extractModelData(lines)) {
        ++number;
        ModelDataContainer model;
        try {
            model.read(block);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Error reading model parameter #%1.", number), where);
        }
        bool isDeprecated = false;
        if (!m_texts->models.empty() && KeywordList::KeywordExists(m_texts->models, model.m_type)) {
            const int type = KeywordList::Enumeration(m_texts->models, model.m_type, &isDeprecated);
            model.m_type = KeywordList::Keyword(m_texts->models, type);
        }
        m_models.add(std::move(model));
    }
}

void MaterialFunctionBase::readFunctions(std::span<const std::string_view> lines) {
    const std::string where(m_texts->where);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto [keyword, value] = KeywordLine(lines[i]);
        if (keyword.empty())
            throw KOR::Exception(KOR::text("Expected keyword, got '%1'!", shown(lines[i])), where);
        if (keyword != "FUNCTION") {
            if (m_texts->parameters.empty() || !KeywordList::KeywordExists(m_texts->parameters, keyword))
                throw KOR::Exception(KOR::text("Invalid or deprecated keyword '%1' in this section!", shown(keyword)),
                                     where);
            const int index = KeywordList::Enumeration(m_texts->parameters, keyword);
            m_parameters[static_cast<std::size_t>(index)] = parameterFromText(m_texts->parameters, index, value);
            continue;
        }
        if (!KeywordList::KeywordExists(m_texts->functions, value))
            throw KOR::Exception(KOR::text("Unknown function type '%1'.", shown(value)), where);
        if (lines.size() - i < 3)
            throw KOR::Exception(KOR::text(m_texts->fewLines, value), where);
        bool isDeprecated = false;
        const int index = KeywordList::Enumeration(m_texts->functions, value, &isDeprecated);
        KOR::LinearSpline & spline = m_functions[static_cast<std::size_t>(index)];
        if (!spline.empty())
            log(KOR::text("Function '%1' is given twice, the later one is used.", value), KOR::MSG_WARNING, where);
        if (isDeprecated)
            log(KOR::text("Keyword '%1' is deprecated (new -> '%2').", value,
                          KeywordList::Keyword(m_texts->functions, index)),
                KOR::MSG_WARNING, where, DETAIL);
        readPoints(spline, value, lines[i + 1], lines[i + 2], where);
        i += 2;
    }
}

void MaterialFunctionBase::checkDirection(int direction, const char * where) {
    if (direction < 0 || direction > 2)
        throw KOR::Exception("Invalid material transport direction type!", where);
}

void MaterialFunctionBase::write(std::ostream & out, std::size_t indent) const {
    for (std::size_t i = 0; i < m_parameters.size(); ++i)
        if (!m_parameters[i].empty())
            out << keywordColumn(indent, m_parameters[i].name(), KEYWORD_WIDTH) << "= " << m_parameters[i].valueText()
                << '\n';
    for (std::size_t i = 0; i < m_functions.size(); ++i)
        if (!m_functions[i].empty()) {
            const std::string name = KeywordList::Keyword(m_texts->functions, static_cast<int>(i));
            const auto isFinite = [](double value) { return std::isfinite(value); };
            const auto & y = m_functions[i].y();
            if (!m_functions[i].valid() || !std::all_of(y.begin(), y.end(), isFinite))
                throw KOR::Exception(KOR::text("Function '%1' holds points that could not be read again.", name),
                                     std::string(m_texts->whereWrite));
            out << std::string(indent, ' ') << "FUNCTION = " << name << '\n';
            m_functions[i].write(out, indent + 4);
        }
    for (const ModelDataContainer & model : m_models.models())
        model.write(out, indent);
}

} // namespace MM
