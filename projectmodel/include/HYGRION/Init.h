#pragma once

#include <HYGRION/Interval.h>
#include <HYGRION/ModelSettingsSalt.h>
#include <HYGRION/ModelSettingsVOC.h>
#include <HYGRION/NamedSet.h>
#include <HYGRION/SolverSettings.h>

#include <KOR/Path.h>

#include <optional>
#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// What holds for the whole simulation: the section "Init" of the project file.
/// Only what the user gave is stored; what is missing follows from the table of defaults (HYGRION/Defaults.h).
class Init {
public:
    enum class para_t { IsothermalTRef, Longitude, Latitude, Height, Albedo };
    enum class intpara_t { StartYear, TimeZone };
    enum class flag_t {
        UseKirchhoffPotential,
        UseBouyancyLiquid,
        UseBouyancyGas,
        PreventOverfilling,
        UseIce,
        UseCustomLocation,
        UseStrictMaterialChecks,
        UseUpperTemperatureLimit
    };
    enum class defaultInitialCondition_t { DefaultTemperature, DefaultRelativeHumidity };
    enum class lambdaSelection_t { LambdaDry, LambdaDesign, LambdaMoistureDependent };
    /// Which balances are solved.
    enum class balanceEquationModule_t {
        HeatTransport,
        MoistureTransport, ///< isothermal, at the reference temperature
        HeatMoistureTransport,
        HeatAirMoistureTransport,
        HeatMoistureVOCTransport,
        HeatMoistureSaltTransport
    };

    /// A flux or source module; it may stand in for another one.
    struct Module {
        std::string m_name;
        std::optional<std::string> m_overrides; ///< the module that it replaces
        bool operator==(const Module &) const = default;
    };

    /// The longest simulation [s]: a thousand years.
    static constexpr double LONGEST_TIME = 1000 * 365 * 86400.0;

    std::string m_balanceEquationModule; ///< keyword of balanceEquationModule_t; empty: the default
    std::vector<Module> m_fluxModules;
    std::vector<Module> m_sourceModules;
    Interval m_interval;
    KOR::Path m_climateDataFilePath;
    ParaSet<para_t> m_para;
    IntParaSet<intpara_t> m_intPara;
    FlagSet<flag_t> m_flag;
    ParaSet<defaultInitialCondition_t> m_defaultInitialCondition;
    std::optional<lambdaSelection_t> m_lambdaSelection;
    SolverSettings m_solverSettings;
    ModelSettingsSalt m_modelSettingsSalt;
    ModelSettingsVOC m_modelSettingsVOC;

    /// The given value or the default.
    KOR::Parameter parameter(para_t key) const;
    KOR::Parameter parameter(defaultInitialCondition_t key) const;
    int intParameter(intpara_t key) const;
    bool isEnabled(flag_t key) const;
    lambdaSelection_t lambdaSelection() const;
    /// Throws "Unknown balance equation module '%1'." ("[Init::balanceEquationModule]").
    balanceEquationModule_t balanceEquationModule() const;

    /// Reads the section. Throws ("[Init::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Reads "SimulationParameter". Throws ("[Init::readGeneralParametersXML]") with the element's line.
    void readGeneralParametersXML(const TiXmlElement & element);
    /// Appends the section with its comment; nothing when all is left to the defaults.
    void writeXML(TiXmlElement & parent) const;
    /// Refuses, naming the parameter, what no simulation can have: "[Init::checkParameters]",
    /// "[Interval::checkParameters]", "[SolverSettings::checkParameters]".
    void checkParameters() const;

    bool operator==(const Init &) const = default;
};

} // namespace HYGRION
