#pragma once

#include <MM/MaterialCategory.h>

#include <KOR/Color.h>
#include <KOR/LangString.h>

#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace MM {

/// Who and what a material is: names, origin, category, flags, appearance.
class MaterialIdentification {
public:
    enum class Ident {
        NAME,
        PRODUCER,
        PRODUCT_ID,
        INVESTIGATOR,
        LABORATORY,
        DATE,
        SAMPLING_DATE,
        PRODUCTION_DATE,
        SAMPLE_ID,
        SAMPLING_METHOD,
        COUNTRY,
        COLOUR,
        FLAGS,
        USE_INSTEAD,
        COPYRIGHT,
        CATEGORY,
        COMMENTS,
        U_DIRECTION,
        V_DIRECTION,
        W_DIRECTION,
        DBTYPE,
        SIGNATURE_SOURCE,
        QUALITY_FLAGS,
        DATA_SHEET_SOURCE,
        HATCHING,
        AQUISITION_ID,
        FROST_DAMAGE_CHECK
    };
    enum class Flags {
        AIR = 1,
        AIR_TIGHT = 2,
        VAPOR_TIGHT = 4,
        WATER_TIGHT = 8,
        WOOD = 16,
        WOOD_BASED = 32,
        FOILS = 64
    };
    enum class SamplingMethods { S_CAST_CUT_PRODUCER = 1, S_CAST_PRODUCER, S_CAST_CUT_KOR, S_CAST_KOR };
    enum class FlagsPreV6 { AIR, AIRTIGHT, VAPORTIGHT, WATERTIGHT, WOOD, WOODBASED, ONLY_HYGROSCOPIC };
    enum class HatchingType {
        Ground,
        Gravel,
        Sand,
        ConcreteNotReinforced,
        ConcreteReinforced,
        Masonry,
        WoodTransverseToFibre,
        WoodLongitudinal,
        Metal,
        MortarPlaster,
        Insulation,
        SealingFoil,
        Sealant,
        None
    };

    /// The database editions known to DBTYPE; others are kept with a warning.
    static std::span<const std::string_view> databaseEditions();
    /// Today in the form "%d.%m.%y" of dates that the program writes.
    static std::string today();

    KOR::LangString m_name, m_producer, m_productId, m_laboratory, m_comments;
    std::string m_investigator, m_date, m_samplingDate, m_productionDate, m_sampleId, m_country, m_copyright;
    std::string m_uDirection, m_vDirection, m_wDirection; ///< meaning of the material's directions
    std::string m_signatureSource, m_dataSheetSource;
    std::optional<SamplingMethods> m_samplingMethod;
    std::optional<KOR::Color> m_colour;
    unsigned int m_flags = 0;        ///< bits of Flags
    std::optional<int> m_useInstead; ///< ID of the material that replaces this one
    MaterialCategory m_category;
    std::vector<std::string> m_dbType; ///< database editions that hold the material
    std::optional<unsigned int> m_qualityFlags;
    std::optional<HatchingType> m_hatching;
    std::optional<int> m_acquisitionId;
    std::optional<int> m_frostDamageCheck;

    bool hasFlag(Flags flag) const { return (m_flags & static_cast<unsigned int>(flag)) != 0; }
    /// Neither vapour nor liquid water moves through it or is held in it.
    bool isTight() const { return hasFlag(Flags::VAPOR_TIGHT) && hasFlag(Flags::WATER_TIGHT); }

    void clear() { *this = MaterialIdentification(); }
    /// Reads the lines of the section. Throws "Error reading material identification section!"
    /// ("[MaterialIdentification::read]").
    void read(std::span<const std::string_view> lines, bool preV6 = false);
    /// Reads one line; an unknown keyword is a warning. Throws ("[MaterialIdentification::readLine]").
    void readLine(std::string_view line);
    /// Reads one line of a file before version 6.
    void readLinePreV6(std::string_view line);
    /// Sets the flags from blank-separated keywords; the flags stay as they were when one is unknown.
    /// Throws ("[MaterialIdentification::setFlags]  ").
    void setFlags(std::string_view text);
    /// The same with the keywords of files before version 6; unknown ones are warnings.
    void setFlagsPreV6(std::string_view text);
    /// Writes the lines of the section.
    void write(std::ostream & out, std::size_t indent) const;

    bool operator==(const MaterialIdentification &) const = default;

private:
    void setValue(Ident key, std::string_view value);
    std::string valueText(Ident key) const;
};

} // namespace MM
