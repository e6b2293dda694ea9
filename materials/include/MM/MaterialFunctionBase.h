#pragma once

#include <MM/KeywordList.h>
#include <MM/ModelHandler.h>

#include <KOR/LinearSpline.h>
#include <KOR/Parameter.h>

#include <cassert>
#include <iosfwd>
#include <span>
#include <string_view>
#include <vector>

namespace MM {

/// One function section of a material: tabulated functions, parameters and model blocks as they stand in the file, and
/// the functions prepared for calculation. The classes of the sections add what their functions mean.
class MaterialFunctionBase {
public:
    /// Largest number of points of a function that is read.
    static constexpr std::size_t MAX_POINTS = 100'000;

    /// What differs between the readers of the sections.
    struct SectionTexts {
        std::string_view functions;  ///< enumeration of the functions
        std::string_view parameters; ///< enumeration of the parameters; empty if there are none
        std::string_view models;     ///< enumeration of the model types; empty if there are none
        std::string_view fewLines;   ///< a function without its two lines, %1 = its name
        std::string_view wrapping;   ///< chained above every fault
        std::string_view where;      ///< identifier of the reader
        std::string_view whereWrite; ///< identifier of the writer
    };

    void clear();
    bool empty() const;

    /// Reads the section's lines (without comments). Throws the section's summary; the section is then empty.
    void read(std::span<const std::string_view> lines);
    /// Writes parameters, functions and model blocks. Throws for a function that could not be read again.
    void write(std::ostream & out, std::size_t indent) const;

    /// A function as stored in the file. \param which enumerator of the section's own functions
    template <typename Functions> const KOR::LinearSpline & function(Functions which) const {
        return m_functions[slot(which)];
    }
    template <typename Functions> void setFunction(Functions which, const KOR::LinearSpline & spline) {
        m_functions[slot(which)] = spline;
    }
    template <typename Functions> bool has(Functions which) const { return !m_functions[slot(which)].empty(); }
    /// A function ready to evaluate; empty before prepareCalculation and where there is none.
    template <typename Functions> const KOR::LinearSpline & prepared(Functions which) const {
        return m_prepared[slot(which)];
    }

    const ModelHandler & models() const { return m_models; }
    void setModels(ModelHandler models) { m_models = std::move(models); }

    /// What the file holds; what was prepared is no part of it.
    bool operator==(const MaterialFunctionBase & other) const;

protected:
    explicit MaterialFunctionBase(const SectionTexts & texts);

    /// Takes the "[MODEL]" blocks out of the lines. A block ends with the next line in brackets.
    /// Throws ("[MaterialFunctionBase::extractModelData]").
    static std::vector<std::vector<std::string_view>> extractModelData(std::vector<std::string_view> & lines);
    /// Takes the "[MODEL]" blocks out of the lines and reads them.
    /// Throws ("[MaterialFunctionBase::readModelsASCII]") "Error reading model parameter #%1." (the block, from 1).
    void readModelsASCII(std::vector<std::string_view> & lines);

    template <typename Functions> KOR::LinearSpline & preparedFunction(Functions which) {
        return m_prepared[slot(which)];
    }
    /// Starts the prepared functions as copies of the stored ones of \p source.
    void resetPrepared(const MaterialFunctionBase & source) { m_prepared = source.m_functions; }
    /// The section that holds in a direction: the last one up to it that has content, else the first.
    template <typename Sections> static const auto & effective(const Sections & sections, int direction) {
        auto d = static_cast<std::size_t>(direction);
        while (d > 0 && sections[d].empty())
            --d;
        return sections[d];
    }

    /// Throws "Invalid material transport direction type!" for a direction other than 0, 1, 2.
    static void checkDirection(int direction, const char * where);

    const SectionTexts * m_texts;
    std::vector<KOR::LinearSpline> m_functions; ///< as stored, by the section's enumeration
    std::vector<KOR::LinearSpline> m_prepared;  ///< ready to evaluate; as many, empty before prepareCalculation
    std::vector<KOR::Parameter> m_parameters;   ///< by the section's enumeration
    ModelHandler m_models;

private:
    template <typename Functions> std::size_t slot(Functions which) const {
        assert(KOR::enumerationName<Functions>() == m_texts->functions);
        return indexOf(which);
    }
    void readFunctions(std::span<const std::string_view> lines);
};

} // namespace MM
