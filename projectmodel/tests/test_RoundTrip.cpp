#include "XmlTesting.h"

#include <HYGRION/Conditions.h>
#include <HYGRION/Defaults.h>
#include <HYGRION/Init.h>
#include <HYGRION/Outputs.h>

#include <KOR/UnitList.h>

#include <cmath>
#include <random>

using namespace testing_xml;
using namespace HYGRION;

namespace {

/// Fills definitions with every keyword of their categories once and random values.
class Filler {
public:
    double number() { return std::ldexp(std::uniform_real_distribution<>(-1, 1)(m_random), whole(-60, 60)); }
    int whole(int low, int high) { return std::uniform_int_distribution<>(low, high)(m_random); }
    bool coin() { return whole(0, 1) != 0; }

    /// Names and texts with all that XML must escape.
    std::string text(const std::string & start) {
        static const std::string PIECES[] = {"ä", "<", "&", "\"", "'", "µ", " ", "%1", "&#x41;", "x"};
        std::string result = start;
        for (int i = whole(0, 6); i > 0; --i)
            result += PIECES[whole(0, 9)];
        return result + '.';
    }

    template <typename Enum> void fill(ParaSet<Enum> & set) {
        for (int i = 0; i < KeywordList::count<Enum>(); ++i) {
            const auto index =
                static_cast<std::size_t>(whole(1, static_cast<int>(KOR::UnitList::instance().size()) - 1));
            KOR::Unit unit(index);
            if (unit.name().starts_with("log(") || unit.name().starts_with("sqrt("))
                unit = unit.base();
            set.set(static_cast<Enum>(i), number(), unit);
        }
    }
    template <typename Enum> void fill(IntParaSet<Enum> & set) {
        for (int i = 0; i < KeywordList::count<Enum>(); ++i)
            set.set(static_cast<Enum>(i), whole(-100000, 100000));
    }
    template <typename Enum> void fill(FlagSet<Enum> & set) {
        for (int i = 0; i < KeywordList::count<Enum>(); ++i)
            set.set(static_cast<Enum>(i), coin());
    }
    template <typename Enum> void fill(std::map<Enum, std::string> & references) {
        for (int i = 0; i < KeywordList::count<Enum>(); ++i)
            references[static_cast<Enum>(i)] = text("reference");
    }
    /// Calls \p body for each enumerator.
    template <typename Enum, typename Body> static void forEach(const Body & body) {
        for (int i = 0; i < KeywordList::count<Enum>(); ++i)
            body(static_cast<Enum>(i));
    }
    /// A choice that goes through all its keywords as \p i counts.
    template <typename Enum> static Enum turn(std::size_t i) {
        return static_cast<Enum>(i % static_cast<std::size_t>(KeywordList::count<Enum>()));
    }

private:
    std::mt19937 m_random{20240229};
};

std::string numbered(const char * name, std::size_t i) {
    return name + std::to_string(i) + ':';
}

Conditions conditions(Filler & filler) {
    Conditions all;
    for (std::size_t i = 0; i < 31; ++i) {
        Schedule & schedule = all.m_schedules.emplace_back();
        schedule.m_name = filler.text(numbered("schedule", i));
        schedule.m_enabled = filler.coin();
        filler.fill(schedule.m_intervals.emplace_back().m_para);

        Interface & interface = all.m_interfaces.emplace_back();
        interface.m_name = filler.text(numbered("interface", i));
        interface.m_type = Filler::turn<Interface::type_t>(i);
        interface.m_bcReferences = {filler.text("b"), filler.text("c")};
        filler.fill(interface.m_para);
        filler.fill(interface.m_flag);
        interface.m_climateTypeIndoor = Filler::turn<Interface::climateTypeIndoor_t>(i);
        interface.m_indoorWTAType = Filler::turn<Interface::indoorWTAType_t>(i);
        interface.m_climateTypeOutdoor = Filler::turn<Interface::climateTypeOutdoor_t>(i);
        interface.m_fmuInterfaceType = Filler::turn<Interface::fmuInterface_t>(i);
        interface.m_otherSideType = Filler::turn<Interface::otherSideType_t>(i);

        ClimateCond & climate = all.m_climateConditions.emplace_back();
        climate.m_name = filler.text(numbered("climate", i));
        climate.m_type = Filler::turn<ClimateCond::condition_t>(i);
        climate.m_kind = Filler::turn<ClimateCond::kind_t>(i);
        filler.fill(climate.m_para);
        filler.fill(climate.m_flag);
        climate.m_filename = KOR::Path("${Project Directory}/" + filler.text("file"));
        climate.m_species = filler.text("species");

        BoundaryCond & boundary = all.m_boundaryConditions.emplace_back();
        boundary.m_name = filler.text(numbered("boundary", i));
        boundary.m_type = Filler::turn<BoundaryCond::condition_t>(i);
        boundary.m_kind = Filler::turn<BoundaryCond::kind_t>(i);
        filler.fill(boundary.m_para);
        filler.fill(boundary.m_flag);
        filler.fill(boundary.m_intPara);
        filler.fill(boundary.m_ccReferences);
        boundary.m_schedule = filler.text("schedule");
        boundary.m_otherInterfaceReference = filler.text("other");
        boundary.m_contactConditionName = filler.text("contact");

        InitialCond & initial = all.m_initialConditions.emplace_back();
        initial.m_name = filler.text(numbered("initial", i));
        initial.m_type = Filler::turn<InitialCond::condition_t>(i);
        initial.setValue(filler.number(), KOR::Unit("Pa"));
        initial.m_reference = filler.text("reference");

        FieldCond & field = all.m_fieldConditions.emplace_back();
        field.m_name = filler.text(numbered("field", i));
        field.m_type = Filler::turn<FieldCond::condition_t>(i);
        filler.fill(field.m_para);
        filler.fill(field.m_flag);
        filler.fill(field.m_intPara);
        filler.fill(field.m_ccReferences);
        filler.fill(field.m_additionalReferences);
        field.m_schedule = filler.text("schedule");
        field.m_otherInterfaceReference = filler.text("other");

        ContactCond & contact = all.m_contactConditions.emplace_back();
        contact.m_name = filler.text(numbered("contact", i));
        contact.m_type = Filler::turn<ContactCond::condition_t>(i);
        contact.m_kind = Filler::turn<ContactCond::kind_t>(i);
        filler.fill(contact.m_para);
        filler.fill(contact.m_flag);
        Filler::forEach<ContactCond::function_t>([&](auto key) {
            contact.setFunction(key, {0, 33.3, 100}, "%", {filler.number(), filler.number(), filler.number()}, "cm");
        });
        contact.m_foilName = filler.text("foil");

        SolutionDefinition & solution = all.m_solutionDefinitions.emplace_back();
        solution.m_name = filler.text(numbered("solution", i));
        solution.m_para = {KOR::Parameter("Molality", filler.number(), KOR::Unit("mol/kg"))};
        solution.m_saltSpecies = {"Na", filler.text("Cl")};
    }
    return all;
}

Init init(Filler & filler) {
    Init all;
    all.m_balanceEquationModule = "HeatMoistureTransport";
    all.m_fluxModules = {
        {filler.text("flux"), std::nullopt      },
        {filler.text("flux"), filler.text("old")}
    };
    all.m_sourceModules = {
        {filler.text("source"), ""}
    };
    filler.fill(all.m_interval.m_para);
    all.m_climateDataFilePath = KOR::Path("${Climate Database}/" + filler.text("climate"));
    filler.fill(all.m_para);
    filler.fill(all.m_intPara);
    filler.fill(all.m_flag);
    filler.fill(all.m_defaultInitialCondition);
    all.m_lambdaSelection = Init::lambdaSelection_t::LambdaDesign;
    filler.fill(all.m_solverSettings.m_para);
    filler.fill(all.m_solverSettings.m_flag);
    all.m_solverSettings.m_integrator = SolverSettings::integrator_t::CVODE;
    all.m_solverSettings.m_lesSolver = SolverSettings::lesSolver_t::KLU;
    all.m_solverSettings.m_precond = SolverSettings::precond_t::None;
    all.m_modelSettingsSalt.m_saltDatabase = KOR::Path(filler.text("salts"));
    all.m_modelSettingsSalt.m_saltSpeciesIDs = {"1", "NaCl"};
    all.m_modelSettingsVOC.m_vocDatabase = KOR::Path(filler.text("vocs"));
    all.m_modelSettingsVOC.m_vocID = filler.text("voc");
    all.m_modelSettingsVOC.m_materialMapping = {
        {filler.text("brick"), "77"                  },
        {"mortar",             filler.text("toluene")}
    };
    return all;
}

Outputs outputs(Filler & filler) {
    Outputs all;
    all.m_timeUnit = KOR::Unit("d");
    filler.fill(all.m_para);
    filler.fill(all.m_intPara);
    filler.fill(all.m_flag);
    for (std::size_t i = 0; i < 5; ++i) {
        OutputGrid & grid = all.m_outputGrids.emplace_back();
        grid.m_name = filler.text(numbered("grid", i));
        filler.fill(grid.m_intervals.emplace_back().m_para);
        filler.fill(grid.m_intervals.emplace_back().m_para);
        OutputFile & file = all.m_outputFiles.emplace_back();
        file.m_name = filler.text(numbered("file", i));
        file.m_quantity = filler.text("Temperature");
        if (i > 0)
            file.m_outputUnit = KOR::Unit("l/m2h");
        file.m_timeType = Filler::turn<OutputFile::time_type_t>(i);
        file.m_spaceType = Filler::turn<OutputFile::space_type_t>(i);
        file.m_outputGrid = grid.m_name;
    }
    return all;
}

/// Writes, reads, compares, writes again.
template <typename Item> void expectRoundTrip(const Item & item) {
    const std::string first = written(item);
    const Parsed document(first);
    const Item back =
        read<Item>(first.substr(first.find("<Root>") + 6, first.rfind("</Root>") - first.find("<Root>") - 6));
    EXPECT_EQ(back, item);
    EXPECT_EQ(written(back), first);
}

} // namespace

TEST(RoundTrip, EveryKeywordOfEveryCategory) {
    Filler filler;
    expectRoundTrip(conditions(filler));
    expectRoundTrip(init(filler));
    expectRoundTrip(outputs(filler));
}

TEST(RoundTrip, DefaultsWriteNothing) {
    EXPECT_EQ(written(Conditions()), written(Interval()).substr(0, 0) + "<Root />\n");
    EXPECT_EQ(written(Init()), "<Root />\n");
    EXPECT_EQ(written(Outputs()), "<Root />\n");
}

/// What a user wrote stays as it is, digit for digit.
TEST(RoundTrip, KeepsDigitsAndUnits) {
    const std::string text = "<InitialCondition name=\"a\" type=\"Temperature\">\n"
                             "  <KOR:Parameter name=\"Value\" unit=\"C\">20.1</KOR:Parameter>\n"
                             "</InitialCondition>";
    EXPECT_NE(written(read<InitialCond>(text)).find("unit=\"C\">20.1<"), std::string::npos);
}

/// Forms that are read but not written.
TEST(RoundTrip, OlderForms) {
    const auto field = read<FieldCond>("<FieldCondition name='a' type='MediaFlow'/>");
    EXPECT_EQ(field.m_type, FieldCond::condition_t::GroundWaterFlow);
    EXPECT_NE(written(field).find("type=\"GroundWaterFlow\""), std::string::npos);

    const auto file = read<OutputFile>("<OutputFile name='a'><Quantity>ThermalLoadMediaFlow</Quantity><TimeType>Mean"
                                       "</TimeType><SpaceType>Max</SpaceType><OutputGrid>g</OutputGrid></OutputFile>");
    EXPECT_EQ(file.m_quantity, "ThermalLoadGroundWaterFlow");

    const auto settings = read<Init>("<Init><SimulationParameter><StartYear>2012</StartYear>"
                                     "<KOR:IntPara name='TimeZone'>-3</KOR:IntPara></SimulationParameter></Init>");
    EXPECT_EQ(settings.intParameter(Init::intpara_t::StartYear), 2012);
    EXPECT_EQ(settings.intParameter(Init::intpara_t::TimeZone), -3);

    const auto pipe = read<BoundaryCond>("<BoundaryCondition name='a' type='HeatConduction' kind='PipeCollectorModel'>"
                                         "<KOR:Parameter name='HeatingCooling' unit='---'>2</KOR:Parameter>"
                                         "</BoundaryCondition>");
    EXPECT_EQ(pipe.m_intPara.value(BoundaryCond::intpara_t::HeatingCooling), 2);
}
