#pragma once

#include <array>
#include <string>
#include <string_view>

namespace MM {

/// Up to three categories of a material and the text from which they were set.
class MaterialCategory {
public:
    enum class CategoryID {
        INVALID,
        COATING,
        PLASTER,
        BRICK,
        NATURAL_STONES,
        CONCRETE,
        INSULATION,
        BUILDING_BOARDS,
        TIMBER,
        NATURAL_MATERIALS,
        SOIL,
        CLADDING,
        FOILS,
        MISC
    };

    /// Reads "BRICK, INSULATION" (or blank-separated keywords); an item may be a number. Throws
    /// ("[MaterialCategory::set]  ") and leaves the categories as they were.
    void set(std::string_view text);

    /// INVALID where there is none.
    CategoryID id(std::size_t which) const { return m_ids[which]; }
    /// As it was set.
    const std::string & text() const { return m_text; }
    bool empty() const { return m_text.empty(); }
    /// The first category as the user reads it.
    std::string description() const;

    bool operator==(const MaterialCategory &) const = default;

private:
    std::array<CategoryID, 3> m_ids{};
    std::string m_text;
};

} // namespace MM
