#pragma once

#include <MM/AirTransport.h>
#include <MM/MaterialIdentification.h>
#include <MM/MeasuredData.h>
#include <MM/MoistureStorage.h>
#include <MM/MoistureTransport.h>
#include <MM/ThermalStorage.h>
#include <MM/ThermalTransport.h>
#include <MM/VaporContactResistanceModel.h>

#include <KOR/Parameter.h>

#include <array>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace MM {

/// One material: identification, base parameters and functions, and its file.
class Material {
public:
    enum class Sections {
        IDENTIFICATION,
        STORAGE_BASE_PARAMETERS,
        TRANSPORT_BASE_PARAMETERS,
        MECHANICAL_BASE_PARAMETERS,
        THERMAL_STORAGE,
        MOISTURE_STORAGE,
        MOISTURE_TRANSPORT,
        HEAT_TRANSPORT,
        AIR_TRANSPORT,
        MOISTURE_TRANSPORT_V,
        HEAT_TRANSPORT_V,
        AIR_TRANSPORT_V,
        MOISTURE_TRANSPORT_W,
        HEAT_TRANSPORT_W,
        AIR_TRANSPORT_W,
        MEASURED_DATA,
        VAPOR_CONTACT_RESISTANCE
    };
    enum class SectionsPreV6 {
        MATERIAL,
        IDENTIFICATION,
        GENERAL,
        MRC,
        MOISTTRANS,
        HEATTRANS,
        AIRTRANS,
        PARAMETER,
        PCMMATERIAL
    };
    enum class ParaStorage { RHO, CE, THETA_POR, THETA_EFF, THETA_CAP, THETA_LIM_HYG, THETA_80 };
    enum class ParaTransport {
        LAMBDA,
        AW,
        MEW,
        SD,
        KLEFF,
        DLEFF,
        KG,
        LAMBDA_V,
        AW_V,
        MEW_V,
        SD_V,
        KLEFF_V,
        DLEFF_V,
        KG_V,
        LAMBDA_W,
        AW_W,
        MEW_W,
        SD_W,
        KLEFF_W,
        DLEFF_W,
        KG_W,
        LAMBDA_DESIGN
    };
    enum class ParaMechanical { ALPHA, BETA_THETA_L, BETA_THETA_L2, ALPHA_V, BETA_THETA_L_V, ALPHA_W, BETA_THETA_L_W };

    static constexpr std::size_t NUM_STORAGE = indexOf(ParaStorage::THETA_80) + 1;
    static constexpr std::size_t NUM_TRANSPORT = indexOf(ParaTransport::LAMBDA_DESIGN) + 1;
    static constexpr std::size_t NUM_MECHANICAL = indexOf(ParaMechanical::BETA_THETA_L_W) + 1;
    static constexpr std::size_t NUM_DIRECTIONS = 3; ///< u, v, w

    static constexpr std::size_t MAX_FILE_SIZE = 64u << 20;

    std::string m_path;
    unsigned int m_id = 0;
    int m_versionMajor = 6;
    int m_versionMinor = 1;
    /// 1 lets a file with transport sections in direction w but none in direction v pass.
    int m_allowWithoutV = 0;

    MaterialIdentification m_identification;
    MoistureStorage m_moistureStorage;
    ThermalStorage m_thermalStorage;
    std::array<MoistureTransport, NUM_DIRECTIONS> m_moistureTransport;
    std::array<ThermalTransport, NUM_DIRECTIONS> m_thermalTransport;
    std::array<AirTransport, NUM_DIRECTIONS> m_airTransport;
    VaporContactResistanceModel m_vaporContactResistance;
    MeasuredData m_measuredData;

    const KOR::Parameter & parameter(ParaStorage which) const { return m_paraStorage[indexOf(which)]; }
    const KOR::Parameter & parameter(ParaTransport which) const { return m_paraTransport[indexOf(which)]; }
    const KOR::Parameter & parameter(ParaMechanical which) const { return m_paraMechanical[indexOf(which)]; }
    /// The parameter in a direction (0, 1, 2); where it is not given that of the direction before.
    const KOR::Parameter & parameter(ParaTransport which, int direction) const;
    /// Sets a parameter in its default unit.
    void setParameter(ParaStorage which, double value) { setParameter(m_paraStorage[indexOf(which)], which, value); }
    void setParameter(ParaTransport which, double value) {
        setParameter(m_paraTransport[indexOf(which)], which, value);
    }
    void setParameter(ParaMechanical which, double value) {
        setParameter(m_paraMechanical[indexOf(which)], which, value);
    }
    void clearParameter(ParaStorage which) { m_paraStorage[indexOf(which)].clear(); }
    void clearParameter(ParaTransport which) { m_paraTransport[indexOf(which)].clear(); }
    void clearParameter(ParaMechanical which) { m_paraMechanical[indexOf(which)].clear(); }

    bool hasFlag(MaterialIdentification::Flags flag) const { return m_identification.hasFlag(flag); }
    /// The name in a language, else the file's name.
    std::string name(std::string_view language = "en") const;
    bool hasDirection(int direction) const;
    /// Has functions or parameters in directions v or w.
    bool isAnisotropic() const { return hasDirection(1) || hasDirection(2); }
    /// The direction whose functions hold in \p direction: itself if it has any, else the one before.
    int effectiveDirection(int direction) const;
    const MoistureTransport & moistureTransport(int direction) const {
        return m_moistureTransport[static_cast<std::size_t>(effectiveDirection(direction))];
    }
    const ThermalTransport & thermalTransport(int direction) const {
        return m_thermalTransport[static_cast<std::size_t>(effectiveDirection(direction))];
    }
    const AirTransport & airTransport(int direction) const {
        return m_airTransport[static_cast<std::size_t>(effectiveDirection(direction))];
    }

    void clear();
    /// Reads a whole file. Throws ("[Material::read]"); the material is then cleared.
    void read(const std::string & path);
    /// Reads a whole file's content. \p path gives the name and ID. Throws as read.
    void readContent(std::string content, const std::string & path);
    /// Reads the section lines. Throws "Error reading material '%1'." or, if a path is set, "Error reading material
    /// file '%1'." ("[Material::readASCII]").
    void readASCII(std::span<const std::string_view> lines, bool preV6);
    /// Reads one base-parameter line. Throws "Error reading material base parameter section!"
    /// ("[Material::readASCIIParameterFromLine]").
    void readASCIIParameterFromLine(std::string_view line);

    /// The file's content, version 6.1.
    std::string content() const;
    /// Writes the file, with the ID in its name, and takes the path over. \return the path that was written.
    /// Throws ("[Material::write]") "No filename given." and "Couldn't write material file '%1'.".
    std::string write(const std::string & path);
    void writeASCIIParameters(std::ostream & out, std::size_t indent) const;

    /// The ID in a file name of the form name_ID.m6.
    static std::optional<unsigned int> idFromPath(std::string_view path);
    /// The path with the ID in the file's name.
    static std::string pathWithId(const std::string & path, unsigned int id);

    /// Makes all functions ready to evaluate, in all directions that the material has. Throws ("[Material::prepareCalculation]").
    void prepareCalculation();

    /// What the file holds: identification, parameters, functions, measured data.
    bool operator==(const Material & other) const;

private:
    template <typename Enum> static void setParameter(KOR::Parameter & parameter, Enum which, double value) {
        const std::string_view category = KOR::enumerationName<Enum>();
        parameter.set(KeywordList::Keyword(which), value,
                      KOR::Unit(KeywordList::Unit(category, static_cast<int>(which))));
    }
    void readSection(Sections section, std::span<const std::string_view> lines);
    void readSectionPreV6(SectionsPreV6 section, std::span<const std::string_view> lines);
    void setParameterFromText(std::string_view keyword, std::string_view value);
    void writeSection(std::ostream & out, Sections section) const;

    std::array<KOR::Parameter, NUM_STORAGE> m_paraStorage;
    std::array<KOR::Parameter, NUM_TRANSPORT> m_paraTransport;
    std::array<KOR::Parameter, NUM_MECHANICAL> m_paraMechanical;
};

} // namespace MM
