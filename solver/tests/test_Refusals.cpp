#include "ProjectTexts.h"

#include <CCM/ClimateDataLoader.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <fstream>

using namespace SOLVER;
using namespace texts;

/// What a project uses and the solver cannot do, and what is wrong with it, is said before the first step.
namespace {

const std::string DIRECTORY = testing::TempDir();

/// A file of the test, by its path.
std::string file(const std::string & name, const std::string & content) {
    std::ofstream(DIRECTORY + name) << content;
    return DIRECTORY + name;
}

/// Brick with a line replaced.
std::string brickWith(const std::string & name, const std::string & line, const std::string & replacement) {
    std::string content = KOR::readFile(HYG_BINARY_DIR "/DB_materials/clay_brick_solid_108.m6", 1 << 20);
    const std::size_t at = content.find(line);
    EXPECT_NE(at, std::string::npos) << line;
    content.replace(at, content.find('\n', at) - at, replacement);
    return file(name, content);
}

std::string heat(const std::string & children = parameter("ExchangeCoefficient", "8", "W/m2K") +
                                                reference("Temperature")) {
    return "<BoundaryCondition name='Law' type='HeatConduction' kind='Exchange'>" + children + "</BoundaryCondition>";
}
std::string boundary(const std::string & type, const std::string & kind, const std::string & children = {}) {
    return "<BoundaryCondition name='Law' type='" + type + "' kind='" + kind + "'>" + children + "</BoundaryCondition>";
}
void setField(Parts & parts, const std::string & type, const std::string & children,
              const std::string & range = "1 0 2 0") {
    parts.field = "<FieldCondition name='Field' type='" + type + "'>" + children + "</FieldCondition>";
    parts.assignments = assignment("FieldCondition", "Element", "Field", range);
}
void setContact(Parts & parts, const std::string & type, const std::string & kind, const std::string & children) {
    parts.contact =
        "<ContactCondition name='Joint' type='" + type + "' kind='" + kind + "'>" + children + "</ContactCondition>";
    parts.assignments = assignment("ContactCondition", "Right", "Joint", "0 0 0 0");
}
void setInitial(Parts & parts, const std::string & type, const std::string & value, const std::string & unit) {
    parts.initial =
        "<InitialCondition name='Start' type='" + type + "'>" + parameter("Value", value, unit) + "</InitialCondition>";
    parts.assignments = assignment("InitialCondition", "Element", "Start", "0 0 3 0");
}
void setClimate(Parts & parts, const std::string & kind, const std::string & children) {
    parts.climate =
        "<ClimateCondition name='Weather' type='Temperature' kind='" + kind + "'>" + children + "</ClimateCondition>";
    parts.boundary = heat(parameter("ExchangeCoefficient", "8", "W/m2K") + reference("Temperature", "Weather"));
}

struct Refusal {
    const char * name;
    void (*make)(Parts &);
    std::vector<const char *> said; ///< the reason first, then what it belongs to
};
void PrintTo(const Refusal & row, std::ostream * out) {
    *out << row.name;
}
class Refusals : public testing::TestWithParam<Refusal> {};

TEST_P(Refusals, NameDefinitionAndReason) {
    Parts parts;
    parts.boundary = heat();
    GetParam().make(parts);
    try {
        buildConstruction(project(parts));
        FAIL() << "nothing was refused";
    } catch (const KOR::Exception & ex) {
        std::string all;
        for (const auto & entry : ex.chain())
            all += entry.message + "\n";
        EXPECT_NE(ex.chain().front().message.find(GetParam().said.front()), std::string::npos) << all;
        for (const char * const part : GetParam().said)
            EXPECT_NE(all.find(part), std::string::npos) << part << "\nis not in\n" << all;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Projects, Refusals,
    testing::Values(
        // *** Modules and settings ***
        Refusal{
            "Air",
            [](Parts & p) { p.module = "HeatAirMoistureTransport";                                                                    },
            {"Balance equation module 'HeatAirMoistureTransport' is not available"}
},
        Refusal{"Salt",
                [](Parts & p) { p.module = "HeatMoistureSaltTransport"; },
                {"'HeatMoistureSaltTransport' is not available"}},
        Refusal{"Voc",
                [](Parts & p) { p.module = "HeatMoistureVOCTransport"; },
                {"'HeatMoistureVOCTransport' is not available"}},
        Refusal{"FluxModule",
                [](Parts & p) { p.settings = "<FluxModules><Module>Osmosis</Module></FluxModules>"; },
                {"Flux module 'Osmosis' is not known"}},
        Refusal{"ReferenceTemperature",
                [](Parts & p) { p.settings = parameter("IsothermalTRef", "10", "C"); },
                {"'IsothermalTRef'"}},
        // *** Grid and assignments ***
        Refusal{"TooManyCells",
                [](Parts & p) {
                    std::string steps;
                    for (int i = 0; i < 300; ++i)
                        steps += "0.01 ";
                    p.grid = "<XSteps unit='m'>" + steps + "</XSteps><YSteps unit='m'>" + steps +
                             "</YSteps><ZSteps unit='m'>" + steps + "</ZSteps>";
                },
                {"27000000 cells"}},
        Refusal{"EmptyCell",
                [](Parts & p) { p.range = "0 0 2 0"; },
                {"cells without material at column 4, row 1, plane 1 have no interface"}},
        Refusal{"Hole",
                [](Parts & p) {
                    p.grid = "<XSteps unit='m'>1 1 1</XSteps><YSteps unit='m'>1 1 1</YSteps>";
                    p.range = "0 0 2 0";
                    p.assignments = assignment("Material", "Element", "Brick", "0 2 2 2") +
                                    assignment("Material", "Element", "Brick", "0 1 0 1") +
                                    assignment("Material", "Element", "Brick", "2 1 2 1");
                },
                {"cells without material at column 2, row 2, plane 1 have no interface"}},
        Refusal{"NoMaterial",
                [](Parts & p) {
                    p.range = "0 0 0 0";
                    p.assignments = assignment("Interface", "Right", "Surface", "2 0 2 0");
                },
                {"cells without material at column 2"}},
        Refusal{"InterfaceInside",
                [](Parts & p) { p.assignments = assignment("Interface", "Right", "Surface", "1 0 1 0"); },
                {"lies between two cells with material", "Assignment"}},
        Refusal{"TwoInterfaces",
                [](Parts & p) { p.assignments = assignment("Interface", "Left", "Surface", "0 0 0 0"); },
                {"has two interfaces"}},
        Refusal{"MaterialOnASide",
                [](Parts & p) { p.assignments = assignment("Material", "Left", "Brick", "0 0 0 0"); },
                {"type 'Material' cannot be used with location 'Left'"}},
        Refusal{"RevolutionWithPlanes",
                [](Parts & p) { p.grid += "<ZSteps unit='m'>1 1</ZSteps>" + parameter("ThetaZ", "360", "Deg"); },
                {"one stack plane only"}},
        Refusal{"InterfaceOnTheAxis",
                [](Parts & p) { p.grid += parameter("ThetaZ", "360", "Deg"); },
                {"axis of the body of revolution"}},
        Refusal{"TurnedMaterial",
                [](Parts & p) {
                    p.assignments =
                        "<Assignment type='Material' "
                        "location='Element'><Reference>Brick</Reference><Mapping>UserMatrix</"
                        "Mapping><DirectionRotationMatrix><RotationMatrixInstance elementID='0'>0.6 -0.8 0 0.8 0.6 0 0 "
                        "0 1</RotationMatrixInstance></DirectionRotationMatrix><Range>0 0 3 0</Range></Assignment>";
                },
                {"turns the material's directions"}},
        // *** Materials ***
        Refusal{"NoMaterialFile",
                [](Parts & p) { p.material = "/nowhere/brick.m6"; },
                {"/nowhere/brick.m6", "Material 'Brick' cannot be used"}},
        Refusal{"ZeroConductivity",
                [](Parts & p) { p.material = brickWith("zero_901.m6", "  LAMBDA ", "  LAMBDA = 0 W/mK"); },
                {"LAMBDA", "Material 'Brick'"}},
        Refusal{"NoConductivity",
                [](Parts & p) { p.material = brickWith("none_902.m6", "  LAMBDA ", "  LAMBDA_DESIGN = 0.6 W/mK"); },
                {"LAMBDA", "Material 'Brick'"}},
        Refusal{"NoLiquidTransport",
                [](Parts & p) {
                    p.material =
                        file("storage_903.m6",
                             "H6MARLZ! 006.001\n[IDENTIFICATION]\n  NAME = x\n[STORAGE_BASE_PARAMETERS]\n  "
                             "RHO = 1650 kg/m3\n  CE = 850 J/kgK\n  THETA_EFF = 0.37 m3/m3\n  THETA_80 = "
                             "0.0092 m3/m3\n[TRANSPORT_BASE_PARAMETERS]\n  LAMBDA = 0.6 "
                             "W/mK\n[MOISTURE_STORAGE]\n  FUNCTION = Theta_l(RH)\n    0 0.5 1\n    0 0.01 0.37\n");
                },
                {"Material is not water tight and no liquid transport function is given!", "Material 'Brick'"}},
        Refusal{"NoDesignConductivity",
                [](Parts & p) { p.settings = "<LambdaSelection>LambdaDesign</LambdaSelection>"; },
                {"LAMBDA_DESIGN is missing", "Material 'Brick'"}},
        Refusal{"BrokenMaterialFile",
                [](Parts & p) {
                    p.material = file(
                        "broken_904.m6",
                        "H6MARLZ! 006.001\n[IDENTIFICATION]\n  NAME = x\n[STORAGE_BASE_PARAMETERS]\n  RHO = heavy\n");
                },
                {"'heavy'", "'RHO'", "Material 'Brick'"}},
        Refusal{"TooWet",
                [](Parts & p) { setInitial(p, "MoistureMass", "500", "kg/m3"); },
                {"Initial condition 'Start' asks for 500 kg/m3", "holds 370 kg/m3"}},
        Refusal{
            "SaltMass", [](Parts & p) { setInitial(p, "SaltMass", "5", "kg/m3"); }, {"modules that are not available"}},
        Refusal{"FrozenStart",
                [](Parts & p) { setInitial(p, "Temperature", "-60", "C"); },
                {"Initial condition 'Start' has probably an invalid temperature"}},
        // *** Climate ***
        Refusal{"ExternalClimate",
                [](Parts & p) { setClimate(p, "External", {}); },
                {"external model", "Climate condition 'Weather'", "Boundary condition 'Law'", "Interface 'Surface'"}},
        Refusal{"ClimateEnds",
                [](Parts & p) {
                    setClimate(p, "TabulatedData",
                               "<Filename>" + file("short.ccd", "Temperature : C\n0 00:00:00 5\n6 12:00:00 7\n") +
                                   "</Filename>");
                },
                {"hold from 0 d to 6.5 d, but the simulation goes from 0 d to 10 d", "'Weather'"}},
        Refusal{"NoClimateFile",
                [](Parts & p) { setClimate(p, "TabulatedData", "<Filename>/nowhere/weather.epw</Filename>"); },
                {"/nowhere/weather.epw", "'Weather'"}},
        Refusal{"NoLocation", [](Parts & p) { setClimate(p, "CCM", {}); }, {"names no climate data file", "'Weather'"}},
        Refusal{
            "NoSky",
            [](Parts & p) {
                CCM::ClimateDataLoader data;
                for (auto & values : data.m_data)
                    values.assign(CCM::HOURS_OF_YEAR, 0);
                data.writeClimateDataKOR(DIRECTORY + "dark.c6b");
                p.settings = "<ClimateDataFilePath>" + DIRECTORY + "dark.c6b</ClimateDataFilePath>";
                p.interface =
                    "<Interface name='Surface' "
                    "type='EngineeringOutdoor'><ClimateTypeOutdoor>OutdoorUserData</ClimateTypeOutdoor></Interface>";
            },
            {"holds no values of quantity 'RelativeHumidity'", ":OutdoorRelativeHumidity", "Interface 'Surface'"}},
        Refusal{"OtherQuantity",
                [](Parts & p) {
                    p.boundary =
                        heat(parameter("ExchangeCoefficient", "8", "W/m2K") + reference("Temperature", "Power"));
                },
                {"Climate condition 'Power' is of quantity 'Power', but 'Temperature' is asked for"}},
        // *** Boundaries ***
        Refusal{"External",
                [](Parts & p) {
                    p.interface = "<Interface name='Surface' "
                                  "type='External'><FMUInterfaceType>FMUThermal</FMUInterfaceType></Interface>";
                },
                {"'External' need an external model", "Interface 'Surface'"}},
        Refusal{"AirConvection",
                [](Parts & p) { p.boundary = boundary("AirConvection", "ImposedFlux"); },
                {"'AirConvection' of kind 'ImposedFlux'", "Boundary condition 'Law'", "Interface 'Surface'"}},
        Refusal{"WrongKind",
                [](Parts & p) { p.boundary = boundary("HeatConduction", "StandardRainModel"); },
                {"'HeatConduction' of kind 'StandardRainModel'"}},
        Refusal{"NoCoefficient",
                [](Parts & p) { p.boundary = heat(reference("Temperature")); },
                {"'ExchangeCoefficient' is missing"}},
        Refusal{"NoTemperature",
                [](Parts & p) { p.boundary = heat(parameter("ExchangeCoefficient", "8", "W/m2K")); },
                {"Climate quantity 'Temperature' is missing", "Boundary condition 'Law'"}},
        Refusal{"NoOrientation",
                [](Parts & p) {
                    p.interface =
                        "<Interface name='Surface' type='Detailed'><BCReference>Law</BCReference></Interface>";
                    p.boundary = boundary("WindDrivenRain", "StandardRainModel",
                                          reference("RainFluxHorizontal") + reference("WindDirection") +
                                              reference("WindVelocity"));
                },
                {"Parameter 'Orientation' of interface 'Surface' is missing"}},
        Refusal{"TwoOneWayExchanges",
                [](Parts & p) {
                    p.interface =
                        "<Interface name='Surface' "
                        "type='Detailed'><BCReference>Law</BCReference><BCReference>Law</BCReference></Interface>";
                    p.boundary = heat(parameter("ExchangeCoefficient", "8", "W/m2K") + reference("Temperature") +
                                      "<KOR:IntPara name='HeatingCooling'>1</KOR:IntPara>");
                },
                {"must be the only one", "Interface 'Surface'"}},
        Refusal{"Glycol",
                [](Parts & p) {
                    p.boundary = boundary("HeatConduction", "PipeCollectorModel",
                                          reference("Temperature") + reference("MassFlowRate") +
                                              parameter("PipeCollectorDiameter", "25", "mm") +
                                              parameter("PipeCollectorThickness", "2", "mm") +
                                              parameter("PipeCollectorLength", "20", "m") +
                                              parameter("PipeCollectorThermalConductivity", "0.4", "W/mK") +
                                              parameter("PipeCollectorGlycolContent", "30", "%"));
                },
                {"glycol", "Boundary condition 'Law'"}},
        // *** Contacts ***
        Refusal{"VocContact",
                [](Parts & p) { setContact(p, "VOCMassTransfer", "Exchange", {}); },
                {"VOCMassTransfer", "Contact condition 'Joint'"}},
        Refusal{"FoilWithoutResistance",
                [](Parts & p) { setContact(p, "Foil", "Exchange", {}); },
                {"Neither 'VaporDiffusionSD' nor 'VaporDiffusionResistance'", "Contact condition 'Joint'"}},
        Refusal{"ContactAtASurface",
                [](Parts & p) {
                    setContact(p, "Foil", "Exchange", parameter("VaporDiffusionSD", "1", "m"));
                    p.assignments = assignment("ContactCondition", "Left", "Joint", "0 0 0 0");
                },
                {"lies between two cells"}},
        Refusal{"UselessParameter",
                [](Parts & p) {
                    setContact(p, "Foil", "Exchange",
                               parameter("VaporDiffusionSD", "1", "m") +
                                   parameter("VOCMassTransferCoefficient", "1", "m/s"));
                },
                {"'VOCMassTransferCoefficient' cannot be used", "Contact condition 'Joint'"}},
        // *** Field conditions ***
        Refusal{"VocSource",
                [](Parts & p) { setField(p, "VOCSource", {}); },
                {"pollutants (VOC)", "Field condition 'Field'"}},
        Refusal{"NoSource",
                [](Parts & p) { setField(p, "EnergySource", {}); },
                {"Climate quantity 'EnergySource' is missing", "Field condition 'Field'"}},
        Refusal{"NoPower",
                [](Parts & p) { setField(p, "EnergySource", reference("EnergySource") + flag("UseSource")); },
                {"'Power' is missing, which flag 'UseSource' asks for"}},
        Refusal{"NoThermostat",
                [](Parts & p) {
                    setField(p, "EnergySource",
                             reference("EnergySource") + "<KOR:IntPara name='HeatingCooling'>1</KOR:IntPara>");
                },
                {"'LimitT' is missing"}},
        Refusal{"GasInGaps",
                [](Parts & p) {
                    setField(p, "AirChange",
                             reference("FluidChangeRate") + reference("Temperature") + reference("RelativeHumidity") +
                                 parameter("GasConvectionInclination", "90", "Deg"));
                },
                {"convection of gas in gaps"}},
        Refusal{"NothingDrivesTheAir",
                [](Parts & p) {
                    setField(p, "ConvectiveSource",
                             reference("Temperature") + reference("RelativeHumidity") +
                                 parameter("ConvectiveSourcekCL", "0.007", "m3/m2hPa"));
                },
                {"nothing drives the air"}},
        Refusal{"NoAmbient",
                [](Parts & p) {
                    setField(p, "ConvectiveSource",
                             reference("Temperature") + reference("RelativeHumidity") +
                                 parameter("ConvectiveSourcekCL", "0.007", "m3/m2hPa") +
                                 parameter("ConvectiveSourceHeight", "3", "m"));
                },
                {"'AmbientTemperature' is missing"}},
        Refusal{"NoRain",
                [](Parts & p) {
                    setField(p, "RainSource",
                             parameter("RainFraction", "1", "%") +
                                 "<OtherInterfaceReference>Surface</OtherInterfaceReference>");
                },
                {"Interface 'Surface' has no boundary condition of type 'WindDrivenRain'"}},
        Refusal{"NoFlowDirection",
                [](Parts & p) { setField(p, "GroundWaterFlow", reference("Temperature") + reference("Velocity")); },
                {"Parameter 'FlowDirection' is missing"}},
        Refusal{"NoFlow",
                [](Parts & p) {
                    setField(p, "GroundWaterFlow",
                             reference("Temperature") + "<KOR:IntPara name='FlowDirection'>1</KOR:IntPara>");
                },
                {"one of 'MassFlowRate', 'FluidFlowRate', 'Velocity'"}},
        Refusal{"BackwardFlow",
                [](Parts & p) {
                    p.climate = "<ClimateCondition name='Tide' type='Velocity' kind='Sinus'>" +
                                parameter("MeanValue", "0", "m/s") + parameter("Amplitude1", "1e-6", "m/s") +
                                parameter("OscPeriod1", "1", "d") + parameter("PhaseShift1", "0", "d") +
                                "</ClimateCondition>";
                    setField(p, "GroundWaterFlow",
                             reference("Temperature") + reference("Velocity", "Tide") +
                                 "<KOR:IntPara name='FlowDirection'>1</KOR:IntPara>");
                },
                {"Climate condition 'Tide' is negative"}},
        Refusal{"CavityWithoutDirection",
                [](Parts & p) { setField(p, "LongWaveRadiation", parameter("LeftEmissionCoefficient", "0.9", "---")); },
                {"has no direction"}},
        Refusal{"CavityWithoutEmission",
                [](Parts & p) {
                    setField(p, "LongWaveRadiation",
                             flag("LongWaveRadiationX") + parameter("LeftEmissionCoefficient", "0.9", "---"));
                },
                {"Parameter 'RightEmissionCoefficient' is missing"}},
        Refusal{"CavityWithoutWall",
                [](Parts & p) {
                    setField(p, "LongWaveRadiation",
                             flag("LongWaveRadiationX") + parameter("LeftEmissionCoefficient", "0.9", "---") +
                                 parameter("RightEmissionCoefficient", "0.9", "---"),
                             "0 0 1 0");
                },
                {"no wall on its left side"}}),
    [](const auto & row) { return std::string(row.param.name); });

} // namespace
