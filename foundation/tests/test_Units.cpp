#include "TestTools.h"

#include <KOR/Flag.h>
#include <KOR/IntPara.h>
#include <KOR/Parameter.h>
#include <KOR/UnitList.h>
#include <KOR/UnitVector.h>

#include <cmath>
#include <limits>
#include <sstream>

using KOR::Parameter;
using KOR::Unit;
using KOR::UnitList;
using KOR::UnitVector;

namespace {

double converted(double value, const char * from, const char * to) {
    UnitList::instance().convert(Unit(from), Unit(to), value);
    return value;
}

/// The element without indentation or declaration.
template <typename Value> std::string written(const Value & value) {
    TiXmlElement parent("a");
    value.writeXML(parent);
    TiXmlPrinter printer;
    printer.SetStreamPrinting();
    parent.FirstChildElement()->Accept(&printer);
    return printer.Str();
}

TEST(Unit, IsShownAsEngineersWriteIt) {
    const std::pair<const char *, const char *> names[] = {
        {"kg/m2s05",  "kg/(m²·√s)"  },
        {"kg/m2h05",  "kg/(m²·√h)"  },
        {"J/kgK",     "J/(kg·K)"       },
        {"m3/m3",     "m³/m³"         },
        {"C",         "°C"             },
        {"Deg",       "°"              },
        {"---",       ""                },
        {"undefined", ""                },
        {"W/m2K",     "W/(m²·K)"      },
        {"m3/m2hPa",  "m³/(m²·h·Pa)"},
        {"kg/ms",     "kg/(m·s)"       },
        {"ms",        "ms"              },
        {"kWh/m2a",   "kWh/(m²·a)"    },
        {"m2K/W",     "m²·K/W"        },
        {"W/mm3",     "W/mm³"          },
        {"mm/mK",     "mm/(m·K)"       },
        {"log(g/m3)", "log(g/m³)"      },
        {"sqrt(h)",   "√h"            },
        {"µg/m2s",   "µg/(m²·s)"    },
        {"Vol%/d",    "Vol%/d"          },
        {"1/logcm",   "1/logcm"         },
        {"Person/m2", "Person/m²"      },
        {"hPa",       "hPa"             },
        {"1/10",      "1/10"            },
        {"s2/m2",     "s²/m²"         },
        {"g/m3hK",    "g/(m³·h·K)"   },
        {"m2s/kg",    "m²·s/kg"       },
        {"W/dm2s",    "W/(dm²·s)"     },
    };
    for (const auto & [name, shown] : names)
        EXPECT_EQ(Unit(std::string_view(name)).displayName(), shown);
    // Two units of one kind never look alike, apart from those that stand for none.
    std::map<std::pair<std::size_t, std::string>, std::string> seen;
    const UnitList & list = UnitList::instance();
    for (std::size_t i = 0; i < list.size(); ++i)
        if (const std::string shown = Unit(i).displayName(); !shown.empty()) {
            const auto place = seen.emplace(std::pair(list.retrieve(i).base, shown), list.retrieve(i).name);
            EXPECT_TRUE(place.second) << list.retrieve(i).name << " looks like " << place.first->second;
        }
}

} // namespace

TEST(UnitList, HoldsTheBuiltInTable) {
    const UnitList & units = UnitList::instance();
    EXPECT_EQ(units.builtInCount(), 264u);
    EXPECT_EQ(units.size(), 264u);
    struct Row {
        const char * name;
        std::size_t index;
        const char * base;
    };
    const Row rows[] = {
        {"undefined", 0,   "undefined"},
        {"m",         1,   "m"        },
        {"mm",        2,   "m"        },
        {"m2",        5,   "m2"       },
        {"Kh",        263, "Kh"       }
    };
    for (const Row & row : rows) {
        EXPECT_EQ(Unit(row.name).index(), row.index) << row.name;
        EXPECT_EQ(Unit(row.index).name(), row.name);
        EXPECT_EQ(Unit(row.name).base().name(), row.base);
    }
    for (std::size_t i = 0; i < units.size(); ++i) {
        const UnitList::Record & record = units.retrieve(i);
        EXPECT_EQ(units.retrieve(record.name).index, i);
        EXPECT_LE(record.base, i);
        EXPECT_EQ(units.retrieve(record.base).operation, UnitList::OP_NONE) << record.name;
        if (record.operation == UnitList::OP_MULTIPLY || record.operation == UnitList::OP_DIVIDE) {
            EXPECT_NE(record.factor, 0) << record.name;
        }
    }
}

TEST(UnitList, EveryUnitConvertsToItsSiblingsAndBack) {
    const UnitList & units = UnitList::instance();
    for (std::size_t i = 0; i < units.size(); ++i)
        for (std::size_t j = 0; j < units.size(); ++j) {
            const Unit from(i);
            const Unit to(j);
            if (from.base() != to.base())
                continue;
            double value = 12.5;
            units.convert(from, to, value);
            units.convert(to, from, value);
            EXPECT_NEAR(value, 12.5, 1e-9) << from.name() << " -> " << to.name();
        }
}

TEST(UnitList, Converts) {
    struct Row {
        double value;
        const char *from, *to;
        double expected;
    };
    const Row rows[] = {
        {20,      "C",          "K",           293.15         },
        {293.15,  "K",          "C",           20             },
        {1,       "d",          "h",           24             },
        {1,       "a",          "d",           365            },
        {12.5,    "cm",         "mm",          125            },
        {50,      "%",          "1/8",         4              },
        {3,       "1/10",       "---",         0.3            },
        {7,       "mmol/L",     "mM",          7              },
        {2,       "t",          "g",           2e6            },
        {36,      "l/m2h",      "L/m2s",       0.01           },
        {1,       "kWh",        "J",           3.6e6          },
        {2,       "kg/m2s",     "g/m2h",       7.2e6          },
        {100,     "Vol%",       "m3/m3",       1              },
        {1013.25, "hPa",        "kPa",         101.325        },
        {3600,    "s",          "sqrt(h)",     1              },
        {2,       "h",          "sqrt(s)",     std::sqrt(7200)},
        {3,       "sqrt(h)",    "s",           32400          },
        {2,       "sqrt(h)",    "sqrt(s)",     120            },
        {1,       "d",          "sqrt(h)",     std::sqrt(24)  },
        {3,       "log(g/m3)",  "kg/m3",       1              },
        {1,       "kg/m3",      "log(mg/m3)",  6              },
        {-3,      "log(kg/m3)", "log(µg/m3)", 6              },
        {2,       "log(mg/m3)", "g/m3",        0.1            },
        {1e-60,   "kg/m3",      "log(kg/m3)",  -50            },
        {0,       "kg/m3",      "log(µg/m3)", -50            },
        {-1,      "kg/m3",      "log(kg/m3)",  -50            },
        {-51,     "log(mg/m3)", "kg/m3",       1e-50          },
        {-50,     "log(g/m3)",  "kg/m3",       1e-50          },
    };
    for (const Row & row : rows)
        EXPECT_DOUBLE_EQ(converted(row.value, row.from, row.to), row.expected) << row.from << " -> " << row.to;
    EXPECT_EQ(converted(-1, "sqrt(s)", "sqrt(s)"), -1);
}

struct ConversionFault {
    double value;
    const char *from, *to, *message, *where;
};
class ConversionFaults : public testing::TestWithParam<ConversionFault> {};

TEST_P(ConversionFaults, NameBothUnitsAndChangeNothing) {
    const auto [value, from, to, message, where] = GetParam();
    double single = value;
    std::vector<double> several = {1, value, 2};
    const auto ex = caught([&, f = Unit(from), t = Unit(to)] { UnitList::instance().convert(f, t, single); });
    EXPECT_EQ(ex.message(), message);
    EXPECT_EQ(ex.chain().back().where, where);
    EXPECT_ANY_THROW(UnitList::instance().convert(Unit(from), Unit(to), several));
    EXPECT_EQ(single, value);
    EXPECT_EQ(several, (std::vector<double>{1, value, 2}));
}
INSTANTIATE_TEST_SUITE_P(
    Units, ConversionFaults,
    testing::Values(ConversionFault{1, "m", "s", "Can't relate unit [m] to [s]", "[UnitList::relate_units]"},
                    ConversionFault{1, "undefined", "---", "Can't relate unit [undefined] to [---]",
                                    "[UnitList::relate_units]"},
                    ConversionFault{-1, "s", "sqrt(s)", "Conversion error (square-root of negative number)!",
                                    "[UnitVector::convert_special]"},
                    ConversionFault{-1, "h", "sqrt(h)", "Conversion error (square-root of negative number)!",
                                    "[UnitVector::convert_special]"},
                    ConversionFault{50.5, "log(kg/m3)", "g/m3", "Exponent too large in power function, exponent = 50.5",
                                    "[KOR::f_pow10]"}));

TEST(UnitList, OffsetsAndFactorsDoNotMix) {
    // No built-in base unit has relations of both kinds: a table of our own, the built-in one comes back afterwards.
    UnitList & units = UnitList::instance();
    struct Restore {
        Restore() {
            for (std::size_t i = 0; i < UnitList::instance().size(); ++i) {
                const UnitList::Record & record = UnitList::instance().retrieve(i);
                builtIn += record.operation == UnitList::OP_NONE
                               ? '\n' + record.name
                               : KOR::text(" %1 %2 %3", std::string(1, record.operation), record.factor, record.name);
            }
        }
        ~Restore() {
            std::istringstream table(builtIn);
            UnitList::instance().read(table, true);
        }
        std::string builtIn;
    } const restore;
    std::istringstream table("K - 273.15 C + 10 K10 * 2 K2 / 4 K4 / 0 K0 * 0 none\n");
    units.read(table, true);
    const std::string factorAfterOffset = "* and / operations not allowed when using + and - operations!";
    const std::string offsetAfterFactor = "+ and - operations not allowed when using * and / operations!";
    struct Fault {
        const char *from, *to;
        std::string message;
    };
    const Fault faults[] = {
        {"C",    "K2",  factorAfterOffset + " (tried to convert [C] to [K2] )!"  },
        {"K10",  "K4",  factorAfterOffset + " (tried to convert [K10] to [K4] )!"},
        {"K2",   "C",   offsetAfterFactor + " (tried to convert [K2] to [C] )!"  },
        {"K4",   "K10", offsetAfterFactor + " (tried to convert [K4] to [K10] )!"},
        {"K",    "K0",  "Div by zero! (tried to convert [K] to [K0] )!"          },
        {"none", "K",   "Div by zero! (tried to convert [none] to [K] )!"        },
        {"K2",   "K0",  "Div by zero! (tried to convert [K2] to [K0] )!"         },
    };
    for (const Fault & fault : faults) {
        const auto ex = caught([&] { units.relate_units(Unit(fault.from), Unit(fault.to)); });
        EXPECT_EQ(ex.message(), fault.message);
        EXPECT_EQ(ex.chain().back().where, "[UnitList::relate_units]");
    }
    struct Row {
        const char *from, *to;
        UnitList::Relation relation;
    };
    const Row rows[] = {
        {"K",   "C",   {UnitList::OP_ADD, -273.15}        },
        {"K",   "K10", {UnitList::OP_ADD, 10}             },
        {"C",   "K",   {UnitList::OP_ADD, 273.15}         },
        {"K10", "K",   {UnitList::OP_ADD, -10}            },
        {"C",   "K10", {UnitList::OP_ADD, 273.15 + 10}    },
        {"K10", "C",   {UnitList::OP_ADD, -10 - 273.15}   },
        {"K",   "K2",  {UnitList::OP_MULTIPLY, 2}         },
        {"K",   "K4",  {UnitList::OP_MULTIPLY, 0.25}      },
        {"K2",  "K4",  {UnitList::OP_MULTIPLY, 0.5 * 0.25}},
        {"K4",  "K2",  {UnitList::OP_MULTIPLY, 8}         },
        {"K4",  "K",   {UnitList::OP_MULTIPLY, 4}         },
        {"C",   "C",   {UnitList::OP_NONE, 0}             },
    };
    for (const Row & row : rows)
        EXPECT_EQ(units.relate_units(Unit(row.from), Unit(row.to)), row.relation) << row.from << " -> " << row.to;

    std::istringstream again("W\nK\n");
    const auto ex = caught([&] { units.read(again, false); });
    EXPECT_EQ(ex.message(), "Duplicate unit 'K' defined.");
    EXPECT_EQ(ex.chain().back().where, "[UnitList::read]");
    for (const char * line : {"P * 2", "P * two Q", "P ^ 2 Q"}) {
        std::istringstream malformed(line);
        EXPECT_ANY_THROW(units.read(malformed, false)) << line;
    }
}

TEST(Unit, UnknownOnesAreNamed) {
    struct Row {
        const char *message, *where;
        void (*action)();
    };
    const Row rows[] = {
        {"Unit 'furlong' not found.",                     "[Unit::Unit]",                 [] { Unit("furlong"); }                         },
        {"Unit 'M' not found.",                           "[Unit::Unit]",                 [] { Unit("M"); }                               },
        {"Unit '' not found.",                            "[Unit::set]",                  [] { Unit().set(""); }                          },
        {"Unit index 264 out of range 0..263.",           "[Unit::Unit]",                 [] { Unit(std::size_t{264}); }                  },
        {"Unit index 65536 out of range 0..263.",         "[Unit::set]",                  [] { Unit().set(std::size_t{65536}); }          },
        {"Unit 'furlong' not found.",                     "[UnitList::retrieve]",         [] { UnitList::instance().retrieve("furlong"); }},
        {"Unit index 264 out of range 0..263.",           "[UnitList::retrieve]",         [] { UnitList::instance().retrieve(264); }      },
        {"Cannot obtain integral unit for base unit K.",  "[UnitList::integralQuantity]",
         [] { UnitList::instance().integralQuantity(Unit("C")); }                                                                         },
        {"Negative or zero value in log function, x = 0", "[KOR::f_log10]",               [] { KOR::f_log10(0); }                         },
    };
    for (const Row & row : rows) {
        const auto ex = caught(row.action);
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, row.where);
    }
    EXPECT_EQ(Unit("l/m2h").name(), "L/m2h");
    EXPECT_ANY_THROW(Unit("l/m3d"));
}

TEST(UnitList, IntegratesRatesOverTime) {
    struct Row {
        const char *rate, *amount;
    };
    const Row rows[] = {
        {"kg/m2s", "kg/m2"},
        {"g/m2h",  "kg/m2"},
        {"W/m2",   "J/m2" },
        {"kW",     "J"    },
        {"kg/s",   "kg"   },
        {"m3/h",   "m3"   }
    };
    for (const Row & row : rows)
        EXPECT_EQ(UnitList::instance().integralQuantity(Unit(row.rate)).name(), row.amount) << row.rate;
}

TEST(Parameter, HoldsTheBaseValueAndShowsTheUsersOwn) {
    Parameter width("Width", 12.7, Unit("mm"));
    EXPECT_DOUBLE_EQ(width.value(), 0.0127);
    EXPECT_EQ(width.get_value("mm"), 12.7); // the very digits, although 12.7 / 1000 * 1000 is another double
    EXPECT_DOUBLE_EQ(width.get_value("cm"), 1.27);
    EXPECT_EQ(width.valueText(), "12.7 mm");
    const auto ex = caught([&] { width.get_value("K"); });
    EXPECT_EQ(ex.message(), "Error converting unit in parameter 'Width'.");
    EXPECT_EQ(ex.cause(), "Can't relate unit [m] to [K]");
    EXPECT_EQ(ex.chain().back().where, "[Parameter::get_value]");

    const Parameter before = width;
    EXPECT_ANY_THROW(width.set_ioUnit(Unit("K")));
    EXPECT_EQ(width, before);
    width.set_ioUnit(Unit("dm"));
    EXPECT_EQ(width.valueText(), "0.127 dm");

    const Parameter salt("Salt", 2, Unit("log(g/m3)"));
    EXPECT_DOUBLE_EQ(salt.value(), 0.1);
    EXPECT_DOUBLE_EQ(salt.get_value("log(mg/m3)"), 5);
}

TEST(Parameter, TextFormReadsWhatUsersType) {
    Parameter p("Width", 1, Unit("m"));
    p.readValue(" 12.5   mm ");
    EXPECT_EQ(p, Parameter("Width", 12.5, Unit("mm")));
    p.readValue("3", Unit("cm"));
    EXPECT_EQ(p, Parameter("Width", 3, Unit("cm")));
    p.read("Height = -1e-3 m");
    EXPECT_EQ(p, Parameter("Height", -0.001, Unit("m")));
    p.read("T 20 C");
    EXPECT_EQ(p, Parameter("T", 20, Unit("C")));
    const Parameter before = p;
    for (const char * text : {"", "mm", "12.5 furlong", "1 2 mm", "12,5 mm", "12.5", "nan m", "1e999 m"}) {
        const auto ex = caught([&] { p.readValue(text); });
        EXPECT_EQ(ex.message(), std::string("Error reading parameter from string '") + text + "'.");
    }
    for (const char * text : {"", "Width", "Width = mm", "= 3 mm", "Width = 3"}) {
        const auto ex = caught([&] { p.read(text); });
        EXPECT_EQ(ex.message(), std::string("Error reading parameter from string '") + text + "'.");
    }
    EXPECT_EQ(p, before);
}

TEST(NamedValues, XmlFormKeepsTheUsersDigits) {
    const auto roundTrip = [](const std::string & content, auto value) {
        const ParsedXml xml(content);
        value.readXML(xml.root());
        EXPECT_EQ(written(value), content);
        return value;
    };
    for (const char * digits : {"0.1", "12.7", "1e-300", "-273.15", "3.141592653589793", "5e-324",
                                "1.7976931348623157e+308", "123456789012345", "0.30000000000000004"})
        for (const char * unit : {"m", "mm", "µg/m3", "1/10", "%", "C", "sqrt(h)", "undefined"})
            roundTrip("<KOR:Parameter name=\"x &amp; y\" unit=\"" + std::string(unit) + "\">" + digits +
                          "</KOR:Parameter>",
                      Parameter());
    EXPECT_EQ(roundTrip("<KOR:IntPara name=\"n\">-2147483648</KOR:IntPara>", KOR::IntPara()).value, INT32_MIN);
    EXPECT_TRUE(roundTrip("<KOR:Flag name=\"f\">true</KOR:Flag>", KOR::Flag()).isEnabled());
    EXPECT_FALSE(roundTrip("<KOR:Flag name=\"f\">false</KOR:Flag>", KOR::Flag()).isEnabled());

    const ParsedXml xml("<KOR:Unit name=\"AxisUnit\">l/m2h</KOR:Unit>");
    Unit unit;
    unit.readXML(xml.root());
    TiXmlElement parent("a");
    unit.writeXML(parent, "AxisUnit");
    EXPECT_EQ(KOR::xml::text(*parent.FirstChildElement()), "L/m2h");
}

struct ValueFault {
    const char *name, *xml, *message;
};
class ValueFaults : public testing::TestWithParam<ValueFault> {};

TEST_P(ValueFaults, AreNamedWithTheirLine) {
    const ParsedXml xml("<a>\n" + std::string(GetParam().xml) + "</a>");
    const TiXmlElement & element = *xml.root().FirstChildElement();
    const Parameter parameter("p", 1, Unit("m"));
    const UnitVector vector({1, 2}, Unit("s"));
    const auto ex = caught([&] {
        if (element.ValueStr() == "KOR:Parameter") {
            Parameter read = parameter;
            try {
                read.readXML(element);
            } catch (...) {
                EXPECT_EQ(read, parameter);
                throw;
            }
        } else if (element.ValueStr() == "KOR:UnitVector") {
            UnitVector read = vector;
            std::string name = "v";
            try {
                read.readXML(element, name);
            } catch (...) {
                EXPECT_EQ(read, vector);
                EXPECT_EQ(name, "v");
                throw;
            }
        } else if (element.ValueStr() == "KOR:Flag")
            KOR::Flag().readXML(element);
        else if (element.ValueStr() == "KOR:IntPara")
            KOR::IntPara().readXML(element);
        else
            Unit().readXML(element);
    });
    EXPECT_EQ(ex.message(), std::string("Error in XML file, line 2: ") + GetParam().message);
}
INSTANTIATE_TEST_SUITE_P(
    Xml, ValueFaults,
    testing::Values(
        ValueFault{"ParameterName", "<KOR:Parameter unit='m'>1</KOR:Parameter>",
                   "Missing 'name' attribute in KOR:Parameter element."},
        ValueFault{"ParameterUnit", "<KOR:Parameter name='x'>1</KOR:Parameter>",
                   "Missing 'unit' attribute in KOR:Parameter element."},
        ValueFault{"ParameterEmpty", "<KOR:Parameter name='x' unit='m'/>",
                   "Cannot read value in KOR:Parameter element."},
        ValueFault{"ParameterComma", "<KOR:Parameter name='x' unit='m'>1,5</KOR:Parameter>",
                   "Cannot read value in KOR:Parameter element."},
        ValueFault{"ParameterInfinite", "<KOR:Parameter name='x' unit='m'>inf</KOR:Parameter>",
                   "Cannot read value in KOR:Parameter element."},
        ValueFault{"ParameterTwo", "<KOR:Parameter name='x' unit='m'>1 2</KOR:Parameter>",
                   "Cannot read value in KOR:Parameter element."},
        ValueFault{"ParameterOddUnit", "<KOR:Parameter name='x' unit='furlong'>1</KOR:Parameter>",
                   "Unit 'furlong' not found."},
        ValueFault{"ParameterTooLarge", "<KOR:Parameter name='x' unit='log(kg/m3)'>51</KOR:Parameter>",
                   "Exponent too large in power function, exponent = 51"},
        ValueFault{"ParameterChild", "<KOR:Parameter name='x' unit='m'>1<b/></KOR:Parameter>",
                   "Unexpected element 'b' in the text of element 'KOR:Parameter'."},
        ValueFault{"VectorName", "<KOR:UnitVector unit='m'>1</KOR:UnitVector>",
                   "Missing 'name' attribute in KOR:UnitVector element."},
        ValueFault{"VectorUnit", "<KOR:UnitVector name='x'>1</KOR:UnitVector>",
                   "Missing 'unit' attribute in KOR:UnitVector element."},
        ValueFault{"VectorOddUnit", "<KOR:UnitVector name='x' unit='furlong'>1</KOR:UnitVector>",
                   "Invalid vector unit 'furlong'!"},
        ValueFault{"VectorEmpty", "<KOR:UnitVector name='x' unit='m'> </KOR:UnitVector>",
                   "Error reading vector data. String was empty or did not contain any values (started with string or "
                   "similar)!"},
        ValueFault{"VectorLetters", "<KOR:UnitVector name='x' unit='m'>one 2</KOR:UnitVector>",
                   "Error reading vector data. String was empty or did not contain any values (started with string or "
                   "similar)!"},
        ValueFault{"VectorLate", "<KOR:UnitVector name='x' unit='m'>1 2 x</KOR:UnitVector>",
                   "Error reading vector data, value #3 'x' is not a finite number."},
        ValueFault{"FlagOn", "<KOR:Flag name='x'>on</KOR:Flag>", "Invalid value 'on' for flag 'x'!"},
        ValueFault{"FlagName", "<KOR:Flag>true</KOR:Flag>", "Missing 'name' attribute in KOR:Flag element."},
        ValueFault{"IntParaHalf", "<KOR:IntPara name='x'>1.5</KOR:IntPara>",
                   "Cannot read value in KOR:IntPara element."},
        ValueFault{"IntParaBig", "<KOR:IntPara name='x'>2147483648</KOR:IntPara>",
                   "Cannot read value in KOR:IntPara element."},
        ValueFault{"Unit", "<KOR:Unit name='AxisUnit'>furlong</KOR:Unit>", "Unit 'furlong' not found."}),
    [](const auto & row) { return std::string(row.param.name); });

TEST(Flag, ReadsItsWords) {
    struct Row {
        const char * text;
        bool state;
    };
    for (const Row & row : {
             Row{"YES",   true },
             {"1",     true },
             {"True",  true },
             {"no",    false},
             {"0",     false},
             {"FALSE", false}
    }) {
        KOR::Flag flag("f", !row.state);
        flag.set("f", row.text);
        EXPECT_EQ(flag.isEnabled(), row.state) << row.text;
    }
    KOR::Flag flag("before", true);
    for (const char * text : {"on", "", " yes", "truee", "2"}) {
        const auto ex = caught([&] { flag.set("f", text); });
        EXPECT_EQ(ex.message(), std::string("Invalid value '") + text + "' for flag 'f'!");
        EXPECT_EQ(ex.chain().back().where, "[Flag::set]");
    }
    EXPECT_EQ(flag, KOR::Flag("before", true));
}

TEST(UnitVector, ReadsConvertsAndWrites) {
    UnitVector vector;
    vector.read(" 1\t2.5\n+3e2 ", "h");
    EXPECT_EQ(vector, UnitVector({1, 2.5, 300}, Unit("h")));
    EXPECT_EQ(vector.baseValues(), (std::vector<double>{3600, 9000, 1080000}));
    vector.convert(Unit("sqrt(h)"));
    EXPECT_EQ(vector.m_data, (std::vector<double>{1, std::sqrt(2.5), std::sqrt(300)}));

    vector = UnitVector({1, -1, 4}, Unit("s"));
    const UnitVector before = vector;
    EXPECT_ANY_THROW(vector.convert(Unit("sqrt(s)")));
    EXPECT_ANY_THROW(vector.convert(Unit("m")));
    EXPECT_EQ(vector, before);

    TiXmlElement parent("a");
    UnitVector({0.1, 1.0 / 3, 1e21}, Unit("µg/m3")).writeXML(parent, "KOR:UnitVector", "v");
    std::string name;
    vector.readXML(*parent.FirstChildElement(), name);
    EXPECT_EQ(vector, UnitVector({0.1, 1.0 / 3, 1e21}, Unit("µg/m3")));
    EXPECT_EQ(name, "v");

    vector.m_data.push_back(std::numeric_limits<double>::infinity());
    const auto ex = caught([&] { vector.write(); });
    EXPECT_EQ(ex.message(), "Error writing unit vector!");
    EXPECT_EQ(ex.chain().back().where, "[UnitVector::write]");
}

TEST(Numbers, ReadWholeTextsOnly) {
    struct Row {
        const char * text;
        std::optional<double> value;
    };
    const Row rows[] = {
        {"1",          1     },
        {" +1.5e3\n",  1500  },
        {".5",         0.5   },
        {"-0",         -0.0  },
        {"5.",         5     },
        {"1e-310",     1e-310},
        {"",           {}    },
        {" ",          {}    },
        {"1,5",        {}    },
        {"1 2",        {}    },
        {"0x10",       {}    },
        {"+-1",        {}    },
        {"--1",        {}    },
        {"inf",        {}    },
        {"nan",        {}    },
        {"1e999",      {}    },
        {"1e",         {}    },
        {"1.2.3",      {}    },
        {"\xC2\xA0"
         "1", {}    },
    };
    for (const Row & row : rows)
        EXPECT_EQ(KOR::parseDouble(row.text), row.value) << row.text;
    EXPECT_EQ(KOR::parseInteger<int>("-2147483649"), std::nullopt);
    EXPECT_EQ(KOR::parseInteger<unsigned>("-1"), std::nullopt);
    EXPECT_EQ(KOR::parseInteger<int>("1.0"), std::nullopt);
    EXPECT_EQ(KOR::parseInteger<int>(" +7 "), 7);
    const auto ex = caught([] { KOR::string2val<double>("1,5"); });
    EXPECT_EQ(ex.message(), "Could not convert '1,5' into value.");
    EXPECT_EQ(ex.chain().back().where, "[string2val]");
}
