#pragma once

#include <HYGRION/Project.h>

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

class TiXmlElement;

namespace CMD {

/// A base project and lists of values for some of what it holds; every combination of them is a variant.
/// docs/command-line.md describes the file.
class Study {
public:
    /// Reads and checks the file. Throws "Error reading study '%1'." above the cause ("[Study::Study]").
    explicit Study(const std::string & path);

    /// What is varied, as headings.
    std::vector<std::string> labels() const;
    std::size_t variantCount() const;
    /// The values of a variant, in the order of the labels. The last varied item changes fastest.
    std::vector<std::string> valuesOf(std::size_t variant) const;
    /// The project of a variant with all paths absolute, so that it may stand anywhere.
    /// Throws "Error in variant %1: ..." above the cause ("[Study::project]").
    HYGRION::Project project(std::size_t variant) const;

    const std::optional<std::string> & duration() const { return m_duration; }
    /// Where the variants and their results go.
    const std::string & directory() const { return m_directory; }

private:
    struct Value {
        std::string text;
        bool hasUnit = false; ///< may hold a unit behind the number
    };
    struct Item {
        std::vector<std::string> path; ///< names of elements or definitions, from outside to inside
        bool isMaterial = false;
        std::string label;
        std::vector<Value> values;
    };
    void readItem(const nlohmann::json & json);
    const Value & valueOf(std::size_t variant, std::size_t item) const;
    static void apply(TiXmlElement & root, const Item & item, const Value & value);

    HYGRION::Project m_base;
    std::string m_baseText;
    std::optional<std::string> m_duration;
    std::string m_directory;
    std::vector<Item> m_items;
};

} // namespace CMD
