#include "XmlTesting.h"

#include <HYGRION/Conditions.h>
#include <HYGRION/Init.h>
#include <HYGRION/Outputs.h>

#include <gmock/gmock.h>

#include <functional>
#include <map>

using namespace testing_xml;
using namespace HYGRION;

namespace {

using Reader = std::function<void(const TiXmlElement &)>;

template <typename Item> Reader reader() {
    return [](const TiXmlElement & element) { Item().readXML(element); };
}

/// The reader of each element.
const std::map<std::string, Reader> READERS{
    {"Interface",          reader<Interface>()         },
    {"ClimateCondition",   reader<ClimateCond>()       },
    {"BoundaryCondition",  reader<BoundaryCond>()      },
    {"ContactCondition",   reader<ContactCond>()       },
    {"FieldCondition",     reader<FieldCond>()         },
    {"InitialCondition",   reader<InitialCond>()       },
    {"SolutionDefinition", reader<SolutionDefinition>()},
    {"Schedule",           reader<Schedule>()          },
    {"Interval",           reader<Interval>()          },
    {"Conditions",         reader<Conditions>()        },
    {"OutputFile",         reader<OutputFile>()        },
    {"OutputGrid",         reader<OutputGrid>()        },
    {"Outputs",            reader<Outputs>()           },
    {"Init",               reader<Init>()              },
    {"SolverParameter",    reader<SolverSettings>()    },
    {"ModelSettingsSalt",  reader<ModelSettingsSalt>() },
    {"ModelSettingsVOC",   reader<ModelSettingsVOC>()  },
};

struct Fault {
    const char * name;
    const char * xml;
    int line;                ///< named by the innermost message
    const char * cause;      ///< innermost message without its line
    const char * where;      ///< identifier of the outermost message
    const char * outer = ""; ///< outermost message, if there is more than one
};

class ElementFaults : public testing::TestWithParam<Fault> {};

#define IN_INIT "\nInvalid format of xml element "

// clang-format off
const Fault FAULTS[] = {
    // Required attributes and their keywords
    {"InterfaceName", "<Interface/>", 1, "Expected 'name' attribute in element 'Interface'.", "[Interface::readXML]"},
    {"InterfaceType", "<Interface name='a'/>", 1, "Expected 'type' attribute in element 'Interface'.",
     "[Interface::readXML]"},
    {"InterfaceKeyword", "<Interface name='a' type='detailed'/>", 1,
     "Cannot determine enumeration value for enumeration type 'Interface::type_t' and keyword 'detailed'.",
     "[KeywordList::Enumeration]"},
    {"ClimateName", "<ClimateCondition/>", 1, "Expected 'name' attribute in ClimateCondition.",
     "[ClimateCond::readXML]"},
    {"ClimateType", "<ClimateCondition name='a'/>", 1, "Expected 'type' attribute in ClimateCondition.",
     "[ClimateCond::readXML]"},
    {"ClimateKind", "<ClimateCondition name='a' type='Temperature'/>", 1,
     "Expected 'kind' attribute in ClimateCondition.", "[ClimateCond::readXML]"},
    {"BoundaryName", "<BoundaryCondition/>", 1, "Expected 'name' attribute in BoundaryCondition.",
     "[BoundaryCond::readXML]"},
    {"BoundaryType", "<BoundaryCondition name='a'/>", 1, "Expected 'type' attribute in BoundaryCondition.",
     "[BoundaryCond::readXML]"},
    {"BoundaryKind", "<BoundaryCondition name='a' type='HeatConduction'/>", 1,
     "Expected 'kind' attribute in BoundaryCondition.", "[BoundaryCond::readXML]"},
    {"ContactName", "<ContactCondition/>", 1, "Expected 'name' attribute in ContactCondition.",
     "[ContactCond::readXML]"},
    {"ContactType", "<ContactCondition name='a'/>", 1, "Expected 'type' attribute in ContactCondition.",
     "[ContactCond::readXML]"},
    {"ContactKind", "<ContactCondition name='a' type='Foil'/>", 1, "Expected 'kind' attribute in ContactCondition.",
     "[ContactCond::readXML]"},
    {"FieldName", "<FieldCondition/>", 1, "Expected 'name' attribute in FieldCondition.", "[FieldCond::readXML]"},
    {"FieldType", "<FieldCondition name='a'/>", 1, "Expected 'type' attribute in FieldCondition.",
     "[FieldCond::readXML]"},
    {"InitialName", "<InitialCondition/>", 1, "Expected 'name' attribute in InitialCondition.",
     "[InitialCond::readXML]"},
    {"InitialType", "<InitialCondition name='a'/>", 1, "Expected 'type' attribute in InitialCondition.",
     "[InitialCond::readXML]"},
    {"ScheduleName", "<Schedule/>", 1, "Missing attribute 'name' in 'Schedule' element.", "[Schedule::readXML]"},
    {"ScheduleEnabled", "<Schedule name='a'/>", 1, "Missing attribute 'enabled' in 'Schedule' element.",
     "[Schedule::readXML]"},
    {"ScheduleState", "<Schedule name='a' enabled='on'/>", 1, "Invalid value 'on' for flag 'enabled'!",
     "[Flag::set]"},
    // Unknown children
    {"InterfaceTag", "<Interface name='a' type='Detailed'>\n<X/></Interface>", 2,
     "Unknown XML tag with name 'X' in 'Interface' element.", "[Interface::readXML]"},
    {"ClimateTag", "<ClimateCondition name='a' type='Temperature' kind='Constant'><X/></ClimateCondition>", 1,
     "Unknown XML tag with name 'X' in ClimateCondition element.", "[ClimateCond::readXML]"},
    {"BoundaryTag", "<BoundaryCondition name='a' type='HeatConduction' kind='Exchange'>\n\n<X/></BoundaryCondition>",
     3, "Unknown XML tag with name 'X' in BoundaryCondition element.", "[BoundaryCond::readXML]"},
    {"ContactTag", "<ContactCondition name='a' type='Foil' kind='Exchange'><X/></ContactCondition>", 1,
     "Unknown XML tag with name 'X' in ContactCondition element.", "[ContactCond::readXML]"},
    {"FieldTag", "<FieldCondition name='a' type='AirChange'><X/></FieldCondition>", 1,
     "Unknown XML tag with name 'X' in FieldCondition element.", "[FieldCond::readXML]"},
    {"InitialTag", "<InitialCondition name='a' type='Temperature'><X/></InitialCondition>", 1,
     "Unknown XML tag with name 'X' in InitialCondition element.", "[InitialCond::readXML]"},
    {"ScheduleTag", "<Schedule name='a' enabled='true'><X/></Schedule>", 1,
     "Expected element 'Interval' in 'Schedule' element.", "[Schedule::readXML]"},
    {"ConditionsTag", "<Conditions>\n<X/></Conditions>", 2, "Unknown XML tag 'X' in 'Conditions' section.",
     "[Conditions::readXML]"},
    {"ConditionsListTag", "<Conditions>\n<Interfaces>\n<X/></Interfaces></Conditions>", 3,
     "Unknown XML tag 'X' in 'Conditions' section.", "[Conditions::readXML]",
     "Error reading elements in section 'Interfaces'."},
    {"SaltTag", "<ModelSettingsSalt><X/></ModelSettingsSalt>", 1,
     "Unknown element 'X' in 'ModelSettingsSalt' section.", "[ModelSettingsSalt::readXML]"},
    {"VOCTag", "<ModelSettingsVOC><X/></ModelSettingsVOC>", 1, "Unknown element 'X' in 'ModelSettingsVOC' section.",
     "[ModelSettingsVOC::readXML]"},
    {"SolverTag", "<SolverParameter><X/></SolverParameter>", 1, "Unknown element 'X' in 'SolverParameter' section.",
     "[SolverSettings::readXML]"},
    {"InitTag", "<Init>\n<X/></Init>", 2, "Unknown element 'X' in 'Init' section.", "[Init::readXML]"},
    {"OutputGridTag", "<OutputGrid name='a'>\n<X/></OutputGrid>", 2, "Unknown XML tag with name 'X' in OutputGrid.",
     "[OutputGrid::readXML]", "Error reading OutputGrid data."},
    {"OutputFileTag", "<OutputFile name='a'><X/></OutputFile>", 1, "Unknown XML tag with name 'X' in OutputFile.",
     "[OutputFile::readXML]", "Error reading OutputFile data."},
    // Faults inside children
    {"InterfaceChild", "<Interface name='a' type='External'>\n<FMUInterfaceType>FMU</FMUInterfaceType></Interface>",
     2, "Cannot determine enumeration value for enumeration type 'Interface::fmuInterface_t' and keyword 'FMU'.",
     "[Interface::readXML]", "Error reading element 'FMUInterfaceType' in 'Interface' element."},
    {"ClimateChild",
     "<ClimateCondition name='a' type='Temperature' kind='Constant'>\n<KOR:Parameter "
     "name='ConstantValue'>1</KOR:Parameter></ClimateCondition>", 2,
     "Missing 'unit' attribute in KOR:Parameter element.", "[ClimateCond::readXML]",
     "Error reading element 'KOR:Parameter' in ClimateCondition element."},
    {"ClimateTwice",
     "<ClimateCondition name='a' type='Temperature' kind='Constant'>\n<KOR:Flag "
     "name='Cyclic'>true</KOR:Flag>\n<KOR:Flag name='Cyclic'>false</KOR:Flag></ClimateCondition>", 3,
     "'Cyclic' is given more than once.", "[ClimateCond::readXML]",
     "Error reading element 'KOR:Flag' in ClimateCondition element."},
    {"ClimateFileTwice", "<ClimateCondition name='a' type='Temperature' kind='CCM'>\n<Filename>b</Filename>\n<Filename/>"
     "</ClimateCondition>", 3, "Element 'Filename' is given more than once.", "[ClimateCond::readXML]"},
    {"BoundaryReferenceType",
     "<BoundaryCondition name='a' type='HeatConduction' "
     "kind='Exchange'>\n<CCReference>x</CCReference></BoundaryCondition>", 2,
     "Expected 'type' attribute in CCReference.", "[BoundaryCond::readXML]",
     "Error reading BoundaryCondition element."},
    {"FieldReferenceName",
     "<FieldCondition name='a' type='AirChange'>\n<CCReference type='AmbientTemperature'/></FieldCondition>", 2,
     "Missing name of a climate condition in CCReference.", "[FieldCond::readXML]",
     "Error reading FieldCondition element."},
    {"ContactUnits",
     "<ContactCondition name='a' type='FoilAdaptive' kind='DirectionIndependent'>\n<KOR:LinearSpline "
     "name='sd+(rh)'><X unit='%'>0 100</X><Y unit='kg'>1 2</Y></KOR:LinearSpline></ContactCondition>", 2,
     "Invalid x or y unit.", "[ContactCond::readXML]", "Error reading ContactCondition element."},
    {"ContactData",
     "<ContactCondition name='a' type='FoilAdaptive' kind='DirectionIndependent'>\n<KOR:LinearSpline "
     "name='sd+(rh)'><X unit='%'>0 nan</X><Y unit='m'>1 2</Y></KOR:LinearSpline></ContactCondition>", 2,
     "Cannot read x value #2 'nan' of linear spline.", "[ContactCond::readXML]",
     "Error reading ContactCondition element."},
    {"ContactFunction",
     "<ContactCondition name='a' type='FoilAdaptive' kind='DirectionIndependent'>\n<KOR:LinearSpline name='sd'><X "
     "unit='%'>0 1</X><Y unit='m'>1 2</Y></KOR:LinearSpline></ContactCondition>", 2,
     "Cannot determine enumeration value for enumeration type 'ContactCond::function_t' and keyword 'sd'.",
     "[ContactCond::readXML]", "Error reading ContactCondition element."},
    {"InitialChild",
     "<InitialCondition name='a' type='Temperature'>\n<KOR:Parameter name='Wert' "
     "unit='C'>1</KOR:Parameter></InitialCondition>", 2,
     "Expected KOR:Parameter with name 'Value' in InitialCondition element, found 'Wert'.", "[InitialCond::readXML]",
     "Error reading InitialCondition element 'KOR:Parameter'."},
    {"DuplicateName",
     "<Conditions><InitialConditions>\n<InitialCondition name='a' type='Temperature'/>\n<InitialCondition name='a' "
     "type='SaltMass'/></InitialConditions></Conditions>", 3,
     "Duplicate identification name 'a' in InitialConditions.", "[Conditions::readXML]",
     "Error reading elements in section 'InitialConditions'."},
    {"IntervalTag", "<Interval>\n<KOR:Flag name='Start'>true</KOR:Flag></Interval>", 2,
     "Expected element 'KOR:Parameter' in 'Interval' element.", "[Interval::readXML]"},
    {"IntervalValue", "<Interval>\n<KOR:Parameter name='Start' unit='d'>inf</KOR:Parameter></Interval>", 2,
     "Cannot read value in KOR:Parameter element.", "[Interval::readXML]",
     "Error in XML file, line 2: Cannot read value in KOR:Parameter element.\nError reading KOR:Parameter element in "
     "'Interval' element."},
    // Outputs
    {"OutputFileName", "<OutputFile/>", 1, "Missing name attribute in OutputFile definition.",
     "[OutputFile::readXML]", "Error reading OutputFile data."},
    {"OutputFileNothing", "<OutputFile name='a'/>", 1, "Missing TimeType element in output definition 'a'.",
     "[OutputFile::readXML]", "Error reading OutputFile data."},
    {"OutputFileSpace", "<OutputFile name='a'><OutputGrid>g</OutputGrid><TimeType>None</TimeType></OutputFile>", 1,
     "Missing SpaceType element in output definition 'a'.", "[OutputFile::readXML]",
     "Error reading OutputFile data."},
    {"OutputFileGrid", "<OutputFile name='a'><SpaceType>Max</SpaceType><TimeType>None</TimeType></OutputFile>", 1,
     "Missing OutputGrid element in output definition 'a'.", "[OutputFile::readXML]",
     "Error reading OutputFile data."},
    {"OutputFileUnit", "<OutputFile name='a'>\n<Quantity unit='furlong'>T</Quantity></OutputFile>", 2,
     "Unit 'furlong' not found.", "[OutputFile::readXML]", "Error reading OutputFile data."},
    {"OutputGridName", "<OutputGrid/>", 1, "Missing name attribute in OutputGrid definition.",
     "[OutputGrid::readXML]", "Error reading OutputGrid data."},
    {"TimeUnitUnknown", "<Outputs>\n<KOR:Unit name='TimeUnit'>furlong</KOR:Unit></Outputs>", 2,
     "Unknown unit 'furlong' in 'Outputs' section.", "[Outputs::readXML]", "Error reading Outputs element."},
    {"TimeUnitLength", "<Outputs><KOR:Unit name='TimeUnit'>m</KOR:Unit></Outputs>", 1,
     "Unit 'm' in 'Outputs' section is not a time unit.", "[Outputs::readXML]", "Error reading Outputs element."},
    {"OutputsParameter", "<Outputs>\n<KOR:Parameter name='X' unit='m'>1</KOR:Parameter></Outputs>", 2,
     "Cannot determine enumeration value for enumeration type 'Outputs::para_t' and keyword 'X'.",
     "[Outputs::readXML]", "Error reading Outputs element."},
    {"OutputsInteger", "<Outputs>\n<KOR:IntPara name='AsciiPrecision'>many</KOR:IntPara></Outputs>", 2,
     "Could not convert 'many' into value.", "[Outputs::readXML]", "Error reading Outputs element."},
    {"OutputsGrids", "<Outputs><OutputGrids>\n<OutputGrid name='a'/>\n<OutputGrid/></OutputGrids></Outputs>", 3,
     "Missing name attribute in OutputGrid definition.", "[Outputs::readXML]", "Error reading Outputs element."},
    // Init
    {"InitModule", "<Init><SimulationParameter>\n<FluxModules><Modul/></FluxModules></SimulationParameter></Init>", 2,
     "Expected child element 'Module'in element 'FluxModules'.", "[Init::readXML]",
     "Error in XML file, line 2: Expected child element 'Module'in element 'FluxModules'."
     IN_INIT "'FluxModules' in section 'Init'" IN_INIT "'SimulationParameter' in section 'Init'"},
    {"InitLambda",
     "<Init><SimulationParameter>\n<LambdaSelection>Lambda</LambdaSelection></SimulationParameter></Init>", 2,
     "Cannot determine enumeration value for enumeration type 'Init::lambdaSelection_t' and keyword 'Lambda'.",
     "[Init::readXML]",
     "Invalid parameter value for LambdaSelection property."
     IN_INIT "'LambdaSelection' in section 'Init'" IN_INIT "'SimulationParameter' in section 'Init'"},
    {"InitYear", "<Init><SimulationParameter>\n<StartYear>2000.5</StartYear></SimulationParameter></Init>", 2,
     "Could not convert '2000.5' into value.", "[Init::readXML]",
     "Invalid parameter value for 'StartYear' property."
     IN_INIT "'StartYear' in section 'Init'" IN_INIT "'SimulationParameter' in section 'Init'"},
    {"SolverIntegrator", "<SolverParameter>\n<Integrator>Euler</Integrator></SolverParameter>", 2,
     "Cannot determine enumeration value for enumeration type 'SolverSettings::integrator_t' and keyword 'Euler'.",
     "[SolverSettings::readXML]",
     "Invalid keyword for Integrator attribute\nInvalid format of xml element 'Integrator' in section "
     "'SolverParameter'"},
    {"VOCMapping", "<ModelSettingsVOC>\n<MaterialMapping>a=b</MaterialMapping></ModelSettingsVOC>", 2,
     "Invalid format of value'a=b' for 'MaterialMapping' parameter, expected == separator.",
     "[ModelSettingsVOC::readXML]",
     "Error in XML file, line 2: Invalid format of value'a=b' for 'MaterialMapping' parameter, expected == "
     "separator.\nInvalid format of xml element 'MaterialMapping' in section 'ModelSettingsVOC'"},
};
// clang-format on

} // namespace

TEST_P(ElementFaults, AreNamedWithTheirLine) {
    const Fault & fault = GetParam();
    const Parsed document(fault.xml);
    const KOR::Exception ex = caught([&] { READERS.at(document.root().ValueStr())(document.root()); });
    EXPECT_EQ(ex.cause(), KOR::text("Error in XML file, line %1: %2", fault.line, fault.cause));
    EXPECT_EQ(ex.chain().back().where, fault.where);
    if (*fault.outer == '\0')
        EXPECT_EQ(ex.chain().size(), 1u);
    else
        EXPECT_EQ(ex.message(), fault.outer);
}
INSTANTIATE_TEST_SUITE_P(Xml, ElementFaults, testing::ValuesIn(FAULTS),
                         [](const auto & fault) { return std::string(fault.param.name); });

/// The messages between the innermost and the outermost one.
TEST(ElementFaultChain, TellsTheWholePath) {
    const auto story = [](const std::string & xml) {
        const Parsed document(xml);
        const KOR::Exception ex = caught([&] { READERS.at(document.root().ValueStr())(document.root()); });
        std::string result;
        for (const auto & entry : ex.chain())
            result += withoutLine(entry.message) + '|';
        return result;
    };
    using testing::HasSubstr;
    EXPECT_EQ(story("<Outputs><OutputFiles>\n<OutputFile name='a'>\n<TimeType>none</TimeType></OutputFile>"
                    "</OutputFiles></Outputs>"),
              "Cannot determine enumeration value for enumeration type 'OutputFile::time_type_t' and keyword 'none'.|"
              "Error reading OutputFile data.|"
              "Error reading entry 1: Error reading OutputFile data. Please check line: 2.|"
              "Error reading output files.|Error reading Outputs element.|");
    EXPECT_THAT(story("<Outputs><KOR:Flag name='Fast'>true</KOR:Flag></Outputs>"),
                HasSubstr("|Unknown flag 'Fast' in 'Outputs' section.|"));
    EXPECT_THAT(story("<Outputs><KOR:Parameter name='X' unit='m'>1</KOR:Parameter></Outputs>"),
                HasSubstr("|Unknown KOR Parameter tag with name 'X' in Outputs element.|"));
    EXPECT_THAT(story("<Outputs><KOR:IntPara name='AsciiPrecision'/></Outputs>"),
                HasSubstr("|Invalid parameter value for 'AsciiPrecision' property.|"));
    const std::string contact = "<ContactCondition name='a' type='Foil' kind='Exchange'>";
    EXPECT_THAT(story(contact + "<KOR:Parameter name='X' unit='m'>1</KOR:Parameter></ContactCondition>"),
                HasSubstr("|Unknown KOR Parameter tag with name 'X' in ContactCondition element.|"));
    EXPECT_THAT(story(contact + "<KOR:Flag name='X'>true</KOR:Flag></ContactCondition>"),
                HasSubstr("|Unknown Flag tag with name 'X' in ContactCondition element.|"));
    EXPECT_THAT(story(contact +
                      "<KOR:LinearSpline name='sd+(rh)'><X unit='%'>0 1</X><Y unit='m'>1</Y></KOR:LinearSpline>"
                      "</ContactCondition>"),
                HasSubstr("|Invalid data in KOR::LinearSpline element.|Error reading ContactCondition element.|"));
    const std::string boundary = "<BoundaryCondition name='a' type='HeatConduction' kind='Exchange'>";
    EXPECT_EQ(story(boundary + "<KOR:Parameter name='SDValue' unit='m'>x</KOR:Parameter></BoundaryCondition>"),
              "Cannot read value in KOR:Parameter element.|Invalid parameter value for 'SDValue' property.|"
              "Error reading BoundaryCondition element.|");
}

/// A failed reader leaves the object as it was.
TEST(ElementFaultChain, LeavesTheObjectAlone) {
    Interface interface;
    interface.m_name = "kept";
    const Parsed document("<Interface name='new' type='External'><X/></Interface>");
    caught([&] { interface.readXML(document.root()); });
    EXPECT_EQ(interface.m_name, "kept");
}
