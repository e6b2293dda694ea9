#pragma once

#include <HYGRION/Project.h>

#include <random>

/// A project in which every list has an entry of every type and every parameter, flag and keyword is set, with random
/// values of many digits.
class FullProject {
public:
    explicit FullProject(unsigned int seed) : m_random(seed) {}

    HYGRION::Project make() {
        using namespace HYGRION;
        Project p;
        p.m_projectInfo = {"2026-01-31 12:00",
                           "2026-02-01",
                           "Line 1\nLine <2> & \"3\"",
                           "Name",
                           "ID",
                           "User",
                           "Company",
                           "Wärmebrücke µ",
                           "Dresden",
                           "base.h6p",
                           "thicker"};
        p.m_placeholders = {
            {"Materials", "/opt/materials"          },
            {"Own",       "${Project Directory}/own"}
        };
        p.m_materials = {
            {"Brick",       {.red = 200, .green = 80, .blue = 60},         3, KOR::Path("${Materials}/brick.m6")},
            {"Wool & more", {.red = 1, .green = 2, .blue = 3, .alpha = 4}, 0, KOR::Path("wool.m6")              }
        };
        makeInit(p.m_init);
        p.m_disc.m_xSteps = {values(40), KOR::Unit("mm")};
        p.m_disc.m_ySteps = {values(3), KOR::Unit("m")};
        p.m_disc.m_zSteps = {values(2), KOR::Unit("cm")};
        p.m_disc.m_thetaZ.set("ThetaZ", value(), KOR::Unit("Deg"));
        makeConditions(p.m_conditions);
        makeOutputs(p.m_outputs);
        makeAssignments(p);
        each<Assessment::AssessmentType>([&](auto type) {
            Assessment a;
            a.m_name = KeywordList::Keyword(type);
            a.m_type = type;
            a.m_assignmentType = static_cast<Assessment::AssignmentType>(p.m_assessments.size() % 4);
            a.m_criteriaSet = "DIN";
            if (p.m_assessments.size() % 2 == 0)
                a.m_layer = 3;
            else
                a.m_range = Range::fromString("1 2 3 4 5 6");
            for (const Assessment::Limit & limit : Assessment::limits())
                if (limit.type == type)
                    a.m_limits.emplace_back(std::string(limit.name), value(), KOR::Unit(limit.unit));
            p.m_assessments.push_back(std::move(a));
        });
        return p;
    }

private:
    double value() { return std::uniform_real_distribution<>(1e-6, 10)(m_random); }
    std::vector<double> values(std::size_t count) {
        std::vector<double> result(count);
        for (double & v : result)
            v = value();
        return result;
    }
    template <typename Enum, typename Body> static void each(Body && body) {
        for (int i = 0; i < HYGRION::KeywordList::count<Enum>(); ++i)
            body(static_cast<Enum>(i));
    }
    template <typename Enum> void fill(HYGRION::ParaSet<Enum> & set) {
        each<Enum>([&](Enum key) {
            const std::string_view unit = HYGRION::KeywordList::Unit(key);
            set.set(key, value(), unit.empty() ? std::string_view("---") : unit);
        });
    }
    template <typename Enum> void fill(HYGRION::IntParaSet<Enum> & set) {
        each<Enum>([&](Enum key) { set.set(key, static_cast<int>(m_random() % 2000) - 1000); });
    }
    template <typename Enum> void fill(HYGRION::FlagSet<Enum> & set) {
        each<Enum>([&](Enum key) { set.set(key, m_random() % 2 == 0); });
    }
    template <typename Enum> Enum any() {
        return static_cast<Enum>(
            static_cast<int>(m_random() % static_cast<unsigned>(HYGRION::KeywordList::count<Enum>())));
    }

    void makeInterval(HYGRION::Interval & interval) { fill(interval.m_para); }

    void makeInit(HYGRION::Init & init) {
        using namespace HYGRION;
        init.m_balanceEquationModule = "HeatMoistureTransport";
        init.m_fluxModules = {
            {"HeatConduction", {}              },
            {"OwnFlux",        "VaporDiffusion"}
        };
        init.m_sourceModules = {
            {"Rain", "Other"},
            {"Heat", {}     }
        };
        makeInterval(init.m_interval);
        init.m_climateDataFilePath = KOR::Path("${Climate Database}/a.c6b");
        fill(init.m_para);
        fill(init.m_intPara);
        fill(init.m_flag);
        fill(init.m_defaultInitialCondition);
        init.m_lambdaSelection = any<Init::lambdaSelection_t>();
        fill(init.m_solverSettings.m_para);
        fill(init.m_solverSettings.m_flag);
        init.m_solverSettings.m_integrator = any<SolverSettings::integrator_t>();
        init.m_solverSettings.m_lesSolver = any<SolverSettings::lesSolver_t>();
        init.m_solverSettings.m_precond = any<SolverSettings::precond_t>();
        init.m_modelSettingsSalt = {
            KOR::Path("salts.xml"), {"NaCl", "KNO3"}
        };
        init.m_modelSettingsVOC = {
            KOR::Path("voc.xml"), "HCHO", {{"Brick", "b"}, {"Wool & more", "w"}}
        };
    }

    void makeConditions(HYGRION::Conditions & c) {
        using namespace HYGRION;
        c.m_schedules.resize(2);
        c.m_schedules[0].m_name = "Day";
        c.m_schedules[1].m_name = "Night";
        c.m_schedules[1].m_enabled = false;
        for (Schedule & schedule : c.m_schedules)
            makeInterval(schedule.m_intervals.emplace_back());
        each<ClimateCond::condition_t>([&](auto type) {
            ClimateCond & item = c.m_climateConditions.emplace_back();
            item.m_name = "Climate " + KeywordList::Keyword(type);
            item.m_type = type;
            item.m_kind = any<ClimateCond::kind_t>();
            fill(item.m_para);
            fill(item.m_flag);
            item.m_filename = KOR::Path("${Own}/climate.ccd");
            item.m_species = "HCHO";
        });
        each<BoundaryCond::condition_t>([&](auto type) {
            BoundaryCond & item = c.m_boundaryConditions.emplace_back();
            item.m_name = "Boundary " + KeywordList::Keyword(type);
            item.m_type = type;
            item.m_kind = any<BoundaryCond::kind_t>();
            fill(item.m_para);
            fill(item.m_flag);
            fill(item.m_intPara);
            for (const ClimateCond & climate : c.m_climateConditions)
                item.m_ccReferences[climate.m_type] = climate.m_name;
            item.m_schedule = "Day";
            item.m_otherInterfaceReference = "Interface Detailed";
            item.m_contactConditionName = "Contact Foil";
        });
        each<Interface::type_t>([&](auto type) {
            Interface & item = c.m_interfaces.emplace_back();
            item.m_name = "Interface " + KeywordList::Keyword(type);
            item.m_type = type;
            for (const BoundaryCond & boundary : c.m_boundaryConditions)
                item.m_bcReferences.push_back(boundary.m_name);
            fill(item.m_para);
            fill(item.m_flag);
            item.m_climateTypeIndoor = any<Interface::climateTypeIndoor_t>();
            item.m_indoorWTAType = any<Interface::indoorWTAType_t>();
            item.m_climateTypeOutdoor = any<Interface::climateTypeOutdoor_t>();
            item.m_fmuInterfaceType = any<Interface::fmuInterface_t>();
            item.m_otherSideType = any<Interface::otherSideType_t>();
        });
        each<InitialCond::condition_t>([&](auto type) {
            InitialCond & item = c.m_initialConditions.emplace_back();
            item.m_name = "Initial " + KeywordList::Keyword(type);
            item.m_type = type;
            if (type == InitialCond::condition_t::MoistureMass)
                item.m_reference = "Initial Temperature";
            else
                item.setValue(value(), KOR::Unit(KeywordList::Unit(type)));
        });
        each<FieldCond::condition_t>([&](auto type) {
            FieldCond & item = c.m_fieldConditions.emplace_back();
            item.m_name = "Field " + KeywordList::Keyword(type);
            item.m_type = type;
            fill(item.m_para);
            fill(item.m_flag);
            fill(item.m_intPara);
            item.m_ccReferences[ClimateCond::condition_t::Temperature] = "Climate Temperature";
            item.m_additionalReferences[FieldCond::additionalClimate_t::AmbientTemperature] = "Climate Temperature";
            item.m_schedule = "Night";
            item.m_otherInterfaceReference = "Interface External";
        });
        each<ContactCond::condition_t>([&](auto type) {
            ContactCond & item = c.m_contactConditions.emplace_back();
            item.m_name = "Contact " + KeywordList::Keyword(type);
            item.m_type = type;
            item.m_kind = any<ContactCond::kind_t>();
            fill(item.m_para);
            fill(item.m_flag);
            item.setFunction(ContactCond::function_t::SdPositive, {0, 50, 100}, "%", values(3), "m");
            item.setFunction(ContactCond::function_t::SdNegative, {0, 0.5, 1}, "---", values(3), "mm");
            item.m_foilName = "Foil 1";
        });
        SolutionDefinition & solution = c.m_solutionDefinitions.emplace_back();
        solution.m_name = "Brine";
        solution.m_para.emplace_back("Concentration", value(), KOR::Unit("mol/kg"));
        solution.m_saltSpecies = {"NaCl", "KNO3"};
    }

    void makeOutputs(HYGRION::Outputs & outputs) {
        using namespace HYGRION;
        outputs.m_timeUnit = KOR::Unit("d");
        fill(outputs.m_para);
        fill(outputs.m_intPara);
        outputs.m_flag.set(Outputs::flag_t::BinaryFormat, false);
        outputs.m_flag.set(Outputs::flag_t::CreateDirectoryPerGrid, true);
        for (const char * name : {"hourly", "daily"}) {
            OutputGrid & grid = outputs.m_outputGrids.emplace_back();
            grid.m_name = name;
            makeInterval(grid.m_intervals.emplace_back());
            makeInterval(grid.m_intervals.emplace_back());
        }
        each<OutputFile::time_type_t>([&](auto timeType) {
            each<OutputFile::space_type_t>([&](auto spaceType) {
                OutputFile & file = outputs.m_outputFiles.emplace_back();
                file.m_name = KeywordList::Keyword(timeType) + ' ' + KeywordList::Keyword(spaceType);
                file.m_quantity = "Temperature";
                if (m_random() % 2 == 0)
                    file.m_outputUnit = KOR::Unit("C");
                file.m_timeType = timeType;
                file.m_spaceType = spaceType;
                file.m_outputGrid = "hourly";
            });
        });
    }

    /// Of each type an assignment at each location that it may have; each names one definition, in turn.
    void makeAssignments(HYGRION::Project & p) {
        using namespace HYGRION;
        const Range ranges[] = {Range::fromString("0 0 39 2"), Range::fromString("3 1 0 7 2 1"), Range()};
        each<Assignment::type_t>([&](auto type) {
            each<Assignment::location_t>([&](auto location) {
                const bool needsSide =
                    type == Assignment::type_t::Interface || type == Assignment::type_t::ContactCondition;
                if (needsSide && location == Assignment::location_t::Element)
                    return;
                Assignment & a = p.m_assignments.m_list.emplace_back(type, location, ranges[m_random() % 3], "");
                if (location == Assignment::location_t::Coordinate) {
                    a.m_coordinates = {value(), value(), value()};
                    a.m_range = {};
                }
                if (m_random() % 2 == 0)
                    a.m_name = "label " + std::to_string(p.m_assignments.size());
                forEachDefinitionList(p, [&](definition_t kind, const auto & list) {
                    if (kind == referencedKind(a))
                        a.m_reference = list[p.m_assignments.size() % list.size()].m_name;
                });
            });
        });
        each<Assignment::AnisotropyInitType>([&](auto anisotropy) {
            Assignment & a = p.m_assignments.m_list.emplace_back(Assignment::type_t::Material,
                                                                 Assignment::location_t::Element, ranges[0], "Brick");
            a.m_anisotropy = anisotropy;
            if (anisotropy == Assignment::AnisotropyInitType::UserMatrix) {
                RotationMatrix & matrix = a.m_rotationMatrices.emplace_back();
                matrix.elementID = 12;
                for (double & v : matrix.values)
                    v = value();
            }
        });
    }

    std::mt19937 m_random;
};
