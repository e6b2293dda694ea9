#pragma once

#include <KOR/LinearSpline.h>

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace MM {

/// One "[MODEL]" block: the model's identifier, its parameters as written and its functions, in reading order.
class ModelDataContainer {
public:
    std::string m_type; ///< the text of the line TYPE
    std::vector<std::pair<std::string, std::string>> m_parameters;
    std::vector<std::pair<std::string, KOR::LinearSpline>> m_functions;

    /// Reads the lines below "[MODEL]". Of two definitions the later one wins, with a warning.
    /// Throws "Error reading model data!" ("[ModelDataContainer::read]"); the block is then empty.
    void read(std::span<const std::string_view> lines);
    /// Writes "[MODEL]" and the block, keywords padded to 25 characters.
    void write(std::ostream & out, std::size_t indent) const;

    /// The parameter's text or nullptr.
    const std::string * find(std::string_view keyword) const;
    /// The parameter's text as numbers; empty if it is not given or holds something else.
    std::vector<double> values(std::string_view keyword) const;
    void set(std::string_view keyword, std::string text);

    bool operator==(const ModelDataContainer &) const = default;
};

} // namespace MM
