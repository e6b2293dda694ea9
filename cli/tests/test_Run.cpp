#include "Shell.h"

#include <DATAIO/DataIO.h>
#include <KOR/Strings.h>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <filesystem>
#include <random>

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string scratch(const std::string & name) {
    std::string path = testing::TempDir() + "hyg-run-" + std::to_string(::getpid()) + '-' + name;
    fs::remove_all(path);
    return path;
}
std::string content(const std::string & path) {
    return KOR::readFile(path, 1 << 24);
}
nlohmann::json summary(const std::string & directory) {
    return nlohmann::json::parse(content(directory + "/log/summary.json"));
}

constexpr const char * SHORT = "'examples/validation/HAMSTAD 2.h6p'";
/// Longer than a test waits.
constexpr const char * LONG = "'examples/Brick wall.h6p'";
/// In a shell, waits until a run has begun to calculate.
std::string untilStarted(const std::string & directory) {
    return "for i in $(seq 200); do [ -s '" + directory + "/log/progress.txt' ] && break; sleep 0.05; done; ";
}

struct Line {
    const char * command;
    int exitCode;
    const char * out;
    const char * err;
};

} // namespace

TEST(SolverProgram, TellsWhatIsWrongWithItsCommandLine) {
    constexpr Line LINES[] = {
        {"HygrionSolver.exe --version",                     0, "HygrionSolver 6.1.0\n", ""                                            },
        {"HygrionSolver.exe --help",                        0, "--restart-realtime-dt", ""                                            },
        {"HygrionSolver.exe",                               2, "",                      "The project file is missing.\nHelp: "        },
        {"HygrionSolver.exe a b",                           2, "",                      "One project file is needed, 'b' is too much."},
        {"HygrionSolver.exe --bogus a",                     2, "",                      "Unknown option '"                            },
        {"HygrionSolver.exe --verbosity-level=4 a",         2, "",                      "takes a number from 0 to 3, not '4'"         },
        {"HygrionSolver.exe --restart-realtime-dt=often a", 2, "",                      "not 'often'"                                 },
        {"HygrionSolver.exe --duration=-1 a",               2, "",                      "takes a time as in \"30 d\", not '-1'"       },
        {"HygrionSolver.exe nothing.h6p",                   1, "",                      "There is no project file 'nothing.h6p'."     },
        {"HygrionSolver.exe README.md",                     1, "",                      "There is already a file with the name"       },
        {"hygrion-cli run nothing.h6p",                     1, "",                      "There is no project file 'nothing.h6p'."     },
        {"hygrion-cli run nothing.h6p --duration 3m2",      2, "",                      "It takes a time as in \"30 d\", not '3m2'."  },
        {"hygrion-cli run nothing.h6p --duration 1e300",    2, "",                      "not '1e300'."                                },
    };
    for (const Line & line : LINES) {
        const std::string copy = scratch("usage");
        fs::create_directory(copy);
        fs::copy_file(HYG_SOURCE_DIR "/README.md", copy + "/README.md");
        fs::copy_file(HYG_SOURCE_DIR "/README.md", copy + "/README");
        const Result result = shell("cd '" + copy + "' && " + line.command);
        EXPECT_EQ(result.exitCode, line.exitCode) << line.command;
        EXPECT_THAT(result.out, HasSubstr(line.out)) << line.command;
        // Messages of the solver go to its console, which is one stream.
        EXPECT_THAT(result.exitCode == 1 ? result.out + result.err : result.err, HasSubstr(line.err)) << line.command;
    }
}

TEST(SolverProgram, LeavesLogsResultsAndARestartFile) {
    const std::string directory = scratch("whole");
    const std::string arguments = "--output-dir='" + directory + "' " + SHORT;
    Result result = shell("HygrionSolver.exe --test-init " + arguments);
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_THAT(result.out, HasSubstr("The simulation is set up without errors."));
    EXPECT_TRUE(fs::is_empty(directory + "/results"));

    result = shell("HygrionSolver.exe --step-stats " + arguments);
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_THAT(content(directory + "/log/screenlog.txt"),
                AllOf(HasSubstr("simulated    done"), HasSubstr("Balance of moisture: ")));
    EXPECT_THAT(content(directory + "/log/progress.txt"), HasSubstr("\n3600000\t"));
    EXPECT_THAT(content(directory + "/log/steps.tsv"), HasSubstr("cell 1 (Benchmark 2"));
    const nlohmann::json all = summary(directory);
    EXPECT_EQ(all["status"], "finished");
    EXPECT_GT(all["integrator"]["steps"], 50);
    EXPECT_GT(all["integrator"]["rightHandSides"], all["integrator"]["steps"]);
    EXPECT_LT(all["moistureBalance_kg"]["relativeError"], 1e-6);
    EXPECT_THAT(all["limitedBy"][0]["place"].get<std::string>(), StartsWith("cell "));
    for (const auto & path : all["results"])
        EXPECT_TRUE(fs::exists(path.get<std::string>())) << path;
    EXPECT_TRUE(fs::exists(directory + "/var/restart.h6r"));

    result = shell("hygrion-cli run --json --output-dir='" + directory + "' " + SHORT);
    EXPECT_EQ(nlohmann::json::parse(result.out)["status"], "finished") << result.err;
}

TEST(SolverProgram, EndsInOrderOnCtrlCAndGoesOn) {
    const std::string directory = scratch("stopped");
    const std::string arguments = "--output-dir='" + directory + "' " + LONG;
    const Result result =
        shell("HygrionSolver.exe " + arguments + " & run=$!; " + untilStarted(directory) + "HygrionSolver.exe " +
              arguments + " >&2; echo \"second $?\" >&2; kill -INT $run; wait $run");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.out, HasSubstr("option --restart goes on from "));
    EXPECT_THAT(result.err, AllOf(HasSubstr("is in use by another run (process "), HasSubstr("second 1")));
    const nlohmann::json stopped = summary(directory);
    EXPECT_EQ(stopped["status"], "interrupted");
    const double reached = stopped["time_s"];
    EXPECT_GT(reached, 0);

    const std::string duration = "--duration='" + std::to_string(reached + 86400) + " s' ";
    EXPECT_EQ(shell("HygrionSolver.exe --restart " + duration + arguments).exitCode, 0);
    EXPECT_NEAR(summary(directory)["time_s"], reached + 86400, 1e-3);
    EXPECT_GT(summary(directory)["integrator"]["steps"], stopped["integrator"]["steps"]);
    EXPECT_THAT(content(directory + "/log/screenlog.txt"), HasSubstr("Continued from"));

    const Result again = shell("rm '" + directory + "/log/progress.txt'; hygrion-cli run --restart " + arguments +
                               " & run=$!; " + untilStarted(directory) + "kill -INT $run; wait $run");
    EXPECT_EQ(again.exitCode, 3);
    EXPECT_THAT(again.err, HasSubstr("was interrupted; --restart goes on with it."));

    fs::resize_file(directory + "/var/restart.h6r", 1000);
    const Result damaged = shell("hygrion-cli run --restart " + arguments);
    EXPECT_EQ(damaged.exitCode, 1);
    EXPECT_THAT(damaged.err, HasSubstr("without --restart it starts from the beginning."));
}

TEST(SolverProgram, KeepsWhatWasWrittenWhenTheDiskIsFull) {
    const std::string directory = scratch("full");
    // Files that may not grow beyond 32 blocks of 512 bytes stand for the disk.
    const Result result =
        shell("ulimit -f 32; HygrionSolver.exe --disable-periodic-restart-file-writing --duration='60 d' "
              "--output-dir='" +
              directory + "' " + LONG);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.out + result.err,
                AllOf(HasSubstr("Cannot write result file '"), HasSubstr("Make room, then go on with --restart;")));
    std::size_t records = 0;
    for (const fs::directory_entry & entry : fs::directory_iterator(directory + "/results"))
        if (entry.path().extension() == ".h6b") {
            DATAIO::DataIO file;
            ASSERT_NO_THROW(file.read(entry.path())) << entry.path();
            records += file.timeCount();
        }
    EXPECT_GT(records, 100U);
}

TEST(SolverProgram, GoesOnAfterKillAsIfNothingHadHappened) {
    const std::string whole = scratch("unkilled"), cut = scratch("killed");
    const std::string options = "--restart-realtime-dt=0.05 --duration='3 d' ";
    const std::string project = "'examples/Interior insulation.h6p'";
    ASSERT_EQ(shell("HygrionSolver.exe " + options + "--output-dir='" + whole + "' " + project).exitCode, 0);
    const double wallTime = summary(whole)["wallTime_s"];
    std::mt19937 random(20261123);
    constexpr int ROUNDS = 2;
    for (int round = 0; round < ROUNDS; ++round) {
        // Killed twice at any time, then left alone.
        fs::remove_all(cut);
        const std::string arguments = options + "--output-dir='" + cut + "' " + project;
        for (const char * restart : {"", "--restart "}) {
            const double share = std::uniform_real_distribution<>(0.1, 0.7)(random);
            shell("HygrionSolver.exe " + std::string(restart) + arguments + " & run=$!; " + untilStarted(cut) +
                  "sleep " + std::to_string(share * wallTime) + "; kill -KILL $run; wait $run");
        }
        ASSERT_EQ(shell("HygrionSolver.exe --restart " + arguments).exitCode, 0);
        const auto results = summary(whole)["results"];
        EXPECT_FALSE(results.empty());
        for (const auto & path : results) {
            DATAIO::DataIO a, b;
            a.read(path.get<std::string>());
            b.read(cut + "/results/" + fs::path(path.get<std::string>()).filename().string());
            ASSERT_EQ(a.timePoints(), b.timePoints()) << path;
            double scale = 0, difference = 0;
            for (std::size_t t = 0; t < a.timeCount(); ++t) {
                const std::vector<double> expected = a.data(t), found = b.data(t);
                for (std::size_t i = 0; i < expected.size(); ++i) {
                    scale = std::max(scale, std::fabs(expected[i]));
                    difference = std::max(difference, std::fabs(found[i] - expected[i]));
                }
            }
            EXPECT_LT(difference, 1e-4 * scale) << path;
        }
    }
}

TEST(SolverProgram, RefusesWhatItCannotCalculate) {
    struct Fault {
        const char * project;
        const char * edit; ///< by sed
        const char * message;
    };
    constexpr Fault FAULTS[] = {
        {"HAMSTAD 2",        "30q",                                             "The file ends inside of element"                          },
        {"HAMSTAD 2",        "s/benchmark_bm2_402/none/",                       "Material 'Benchmark 2: homogeneous layer' cannot be used."},
        {"HAMSTAD 2",        "s/<Quantity.*MassDensity/<Quantity>MassDensity/",
         "Unknown output quantity 'MassDensity'. Did you mean '"                                                                           },
        {"HAMSTAD 2",        "s/<BCReference>Diffusion o/<BCReference>O/",      "'Outside'"                                                },
        {"HAMSTAD 1",        "s/name=.Cyclic.>true/name='Cyclic'>false/",
         "hold from 0 d to 364.958 d, but the simulation goes"                                                                             },
        {"EN 15026",         "s/HeatMoistureT/HeatMoistureVOCT/",               "the solver does not yet calculate the transport of air"   },
        {"ISO 10211 case 1", "s/\\(benchmark_iso[^/]*m6\\)/..\\/zero.m6/",      "Parameter LAMBDA (=0) should be >= 1e-20."                },
    };
    const std::string directory = scratch("faults");
    fs::create_directory(directory);
    for (const Fault & fault : FAULTS) {
        const Result result = shell("cp examples/validation/*.ccd '" + directory +
                                    "'; sed 's/LAMBDA  *=.*/LAMBDA = 0 W\\/mK/' "
                                    "DB_materials/benchmark_iso10211_column_421.m6 >'" +
                                    std::string(HYG_BINARY_DIR) + "/zero.m6'; sed -e \"" + fault.edit +
                                    "\" 'examples/validation/" + fault.project + ".h6p' >'" + directory +
                                    "/case.h6p'; HygrionSolver.exe --test-init '" + directory + "/case.h6p'");
        EXPECT_EQ(result.exitCode, 1) << fault.edit << result.out;
        EXPECT_THAT(result.out + result.err, HasSubstr(fault.message)) << fault.edit;
    }
    fs::remove(HYG_BINARY_DIR "/zero.m6");
    const Result all = shell("sed 's/unit=.%.>[0-9]*</unit=\"%\">-1</' " + std::string(SHORT) + " >'" + directory +
                             "/case.h6p'; hygrion-cli run '" + directory + "/case.h6p'");
    EXPECT_EQ(all.exitCode, 1);
    EXPECT_THAT(all.err, HasSubstr("/case.h6p: error: line ")) << all.err;
}

TEST(Results, AreListedDescribedAndExported) {
    const std::string directory = scratch("results");
    ASSERT_EQ(shell("HygrionSolver.exe --output-dir='" + directory + "' " + SHORT).exitCode, 0);
    const std::string field = "'" + directory + "/results/Moisture content.h6b'";
    const std::string mass = "'" + directory + "/results/Moisture mass.h6b'";
    const Line lines[] = {
        {"list D",                                               0, "     11         1000 h     159  MoistureMassDensity [kg/m3]       ",                  ""                                                               },
        {"info F",                                               0, "Values:    159 of 159 elements, a profile in x\nRecords:   11, from 0 h to 1000 h\n", ""                                                               },
        {"info F --json",                                        0, "\"form\": \"a profile in x\"",                                                        ""                                                               },
        {"export F --time 100 --element 1",                      0, "Time [h],element 1 (x = 0.305 mm) [kg/m3]\n100,20.",                                  ""                                                               },
        {"export F --time 8d:20d --element 0 --json",            0, "\"times\": [\n    200.0,\n    300.0,\n    400.0\n",                                   ""                                                               },
        {"export M",                                             0, "Time [h],Moisture mass [kg]\n0,16.95",                                                ""                                                               },
        {"export F --csv D/table.csv && head -c 20 D/table.csv", 0, "11 records of 159 values\nTime [h],element 0 (",
         ""                                                                                                                                                                                                                 },
        {"export F --time 150h",                                 1, "",                                                                                    "There is no record at '150h'; the nearest are at 100 and 200 h."},
        {"export F --element 159",                               1, "",                                                                                    "The file holds no element 159."                                 },
        {"export M --element 0",                                 1, "",                                                                                    "The file holds one value for all elements together."            },
        {"export F --csv D/none/table.csv",                      1, "",                                                                                    "Cannot write '"                                                 },
        {"export F --csv F",                                     1, "",                                                                                    "from which it is made."                                         },
        {"info F",                                               0, "Records:   11, from 0 h to 1000 h\n",                                                 ""                                                               },
        {"export F --time 20d:8d",                               1, "",                                                                                    "The span '20d:8d' ends before it begins."                       },
        {"list ./DB_materials",                                  1, "",                                                                                    "There are no result files."                                     },
    };
    for (const Line & line : lines) {
        std::string command = line.command;
        for (const auto & [letter, path] :
             {std::pair(" F", " " + field), std::pair(" M", " " + mass), std::pair(" D", " " + directory)})
            command = KOR::replaced(command, letter, path);
        const Result result = shell("hygrion-cli results " + command);
        EXPECT_EQ(result.exitCode, line.exitCode) << line.command << result.err;
        EXPECT_THAT(result.out, HasSubstr(line.out)) << line.command;
        EXPECT_THAT(result.err, HasSubstr(line.err)) << line.command;
    }
}

TEST(Vary, CalculatesEveryCombinationOnceAndGoesOn) {
    const std::string base = scratch("study");
    fs::create_directory(base);
    const std::string file = base + "/drying.json", directory = base + "/drying";
    const auto study = [&](const std::string & duration, const std::string & values) {
        KOR::writeFile(file, "{\"project\": \"" HYG_SOURCE_DIR
                             "/examples/validation/HAMSTAD 2.h6p\", \"duration\": \"" +
                                 duration + "\", \"vary\": [" + values + "]}");
        return shell("hygrion-cli vary --jobs 2 '" + file + "'");
    };
    const std::string humidity =
        "{\"parameter\": \"Humidity outside/ConstantValue\", \"label\": \"Left\", \"values\": [45, \"0.55 ---\"]}, ";
    const std::string start = "{\"parameter\": \"Initial humidity/Value\", \"values\": [95, 80]}";
    Result result = study("100 h", humidity + start);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.err, HasSubstr("Variant 4 of 4: finished"));
    const auto table = [&] { return content(directory + ".csv"); };
    EXPECT_THAT(table(), StartsWith("Variant,Left,Initial humidity/Value,Status,\"Layer 1, lowest temperature [C]\""));
    EXPECT_THAT(table(), AllOf(HasSubstr("\n1,45,95,finished,"), HasSubstr("\n4,0.55 ---,80,finished,")));

    result = study("100 h", humidity + start);
    EXPECT_THAT(result.err, StartsWith("4 of 4 variants are finished already."));
    result = study("200 h", humidity + start); // goes on from 100 h
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(content(directory + "/0003/log/screenlog.txt"), HasSubstr("Continued from 4.1666667 d."));
    result = study("150 h", humidity + start); // less than there is: from the beginning
    EXPECT_EQ(summary(directory + "/0003")["time_s"], 150 * 3600.0);

    for (const auto & [values, message] : {
             std::pair("{\"parameter\": \"Nothing/Value\", \"values\": [1]}", "The project holds no 'Nothing/Value'."),
             std::pair("{\"parameter\": \"ConstantValue\", \"values\": [1]}", "'ConstantValue' stands for "),
             std::pair("{\"parameter\": \"Initial humidity\", \"values\": [1]}", "is no single value."),
             std::pair("{\"orientation\": \"Outside\", \"values\": [1]}", "its values need a unit here"),
             std::pair("{\"orientation\": \"Outside\", \"values\": []}", "'values' must be a list that is not empty."),
             std::pair("{\"orientation\": \"Outside\"}", "has no values."),
             std::pair("{\"values\": [1]}", "names no parameter, orientation or material."),
             std::pair("{\"label\": \"a\", \"values\": [1], \"values\": [2]}",
                       "The entry 'values' stands there twice."),
             std::pair("{\"parmeter\": \"Left\"}", "Unknown entry 'parmeter' in 'vary'"),
             std::pair("{\"parameter\": \"Initial humidity/Value\", \"values\": [\"wet\"]}",
                       "Error in variant 1 (wet)."),
             std::pair("{\"parameter\": \"Initial humidity/Value\", \"values\": [80, 180]}",
                       "Error in variant 2 (180).\ninitial condition 'Initial humidity': "),
             std::pair("{\"parameter\": \"Initial humidity/Value\", \"values\": [true]} x", "Error reading study '"),
         }) {
        result = study("1 h", values);
        EXPECT_EQ(result.exitCode, 1) << values;
        EXPECT_THAT(result.err, HasSubstr(message)) << values;
    }
    // A variant that fails does not stop the others.
    result =
        study("1 h", "{\"material\": \"Benchmark 2: homogeneous layer\", \"values\": [\"none.m6\", \"" HYG_SOURCE_DIR
                     "/DB_materials/gypsum_plaster_234.m6\"]}");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, AllOf(HasSubstr("Variant 1 of 2: failed"), HasSubstr("Variant 2 of 2: finished")));
    EXPECT_THAT(table(), HasSubstr("1,none.m6,\"failed: "));
    result = shell("flock '" + directory + "' hygrion-cli vary '" + file + "'");
    EXPECT_THAT(result.err, HasSubstr("is being calculated by another process."));
    fs::remove_all(directory);
    result = shell("hygrion-cli vary --csv '" + file + "' '" + file + "'");
    EXPECT_THAT(result.err, AllOf(HasSubstr("from which it is made."), Not(HasSubstr("Variant "))));
}
