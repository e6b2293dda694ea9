#include "TestTools.h"

#include <KOR/Time.h>

#include <limits>

using KOR::Time;
using KOR::TimePattern;

namespace {
const Time INVALID;

Time date(int year, int month, int day, double seconds = 0) {
    Time time;
    time.set(year, month - 1, day - 1, seconds);
    return time;
}
} // namespace

TEST(Time, IsSetFromMonthAndDay) {
    EXPECT_EQ(date(2019, 1, 1), Time(2019, 0));
    EXPECT_EQ(date(2019, 12, 31, 86399), Time(2019, 31535999));
    EXPECT_EQ(date(2020, 2, 29), Time(2020, 5097600)); // 1 March: there is no leap day
    EXPECT_EQ(date(2020, 1, 32), date(2020, 2, 1));

    struct Row {
        int month, day;
        double seconds;
        const char * message;
    };
    const Row rows[] = {
        {12, 0,  0,                                        "Invalid month"  },
        {-1, 0,  0,                                        "Invalid month"  },
        {0,  32, 0,                                        "Invalid day"    },
        {0,  -1, 0,                                        "Invalid day"    },
        {0,  0,  86400,                                    "Invalid seconds"},
        {0,  0,  -1,                                       "Invalid seconds"},
        {0,  0,  std::numeric_limits<double>::quiet_NaN(), "Invalid seconds"}
    };
    Time time(1999, 5);
    for (const Row & row : rows) {
        const auto ex = caught([&] { time.set(2020, row.month, row.day, row.seconds); });
        EXPECT_EQ(ex.message(), row.message);
        EXPECT_EQ(ex.chain().back().where, "[Time::set]");
    }
    EXPECT_EQ(time, Time(1999, 5));
}

TEST(Time, DifferencesAreDurations) {
    struct Row {
        Time later, earlier, difference;
    };
    const Row rows[] = {
        {date(2001,         1,                   1),        date(2000,                            12,31), {0, 86400}},
        {date(2000,       12,                          31),                           date(2001,                                                       1,1), INVALID},
        {date(2001,                1,                                 1),                                   date(2001,                 1,1), {0, 0}},
        {date(2001,               1,1),date(2000,1,1), {0, 31536000}}, // only what exceeds a year counts as a year
        {date(2001,         1,             1,                            1),                                                                                         date(2000, 1, 1), {1, 1}},
        {date(2010,    3,                       1),                        date(2000,                                                   2,1), {10, 2419200}},
        {{2000, 4e8},        {2000, 0},                          {12, 4e8 - 12 * KOR::SECONDS_PER_YEAR}                                },
        {{2147483647, 0},             {-2147483647, 0},        INVALID}, // more years than a year number holds
        {INVALID,                 date(2000,                          1,                   1),INVALID},
        {date(2000,1,1),                   INVALID,INVALID},
    };
    for (const Row & row : rows)
        EXPECT_EQ(row.later - row.earlier, row.difference) << row.later.toString() << " - " << row.earlier.toString();
    EXPECT_EQ(date(2002, 1, 2).secondsSinceYearOf(date(2000, 6, 1)), 2 * 31536000.0 + 86400);
    EXPECT_EQ(date(2000, 1, 2).secondsSinceYearOf(date(2001, 6, 1)), 86400 - 31536000.0);
}

TEST(Time, ReadsDateAndClock) {
    EXPECT_EQ(Time::fromString("31.12.2019 23:59:59"), Time(2019, 31535999));
    EXPECT_EQ(Time::fromString(" 1.2.2007 3:04:05 "), date(2007, 2, 1, 3 * 3600 + 4 * 60 + 5));
    for (const char * text : {"", "31.12.2019", "31.12.2019 23:59", "a.12.2019 23:59:59", "31-12-2019 23:59:59",
                              "31.12.2019 23:59:99999999999"})
        EXPECT_EQ(Time::fromString(text), INVALID) << text;
    EXPECT_EQ(caught([] { Time::fromString("01.13.2019 00:00:00"); }).message(), "Invalid month");
    EXPECT_EQ(caught([] { Time::fromString("00.12.2019 00:00:00"); }).message(), "Invalid day");
    EXPECT_EQ(caught([] { Time::fromString("-2147483648.-2147483648.2019 00:00:00"); }).message(), "Invalid month");
    EXPECT_EQ(caught([] { Time::fromString("01.12.2019 2147483647:2147483647:2147483647"); }).message(),
              "Invalid seconds");
}

TEST(Time, ReadsByPattern) {
    struct Row {
        const char *pattern, *text;
        Time time;
        bool observeLeapYears;
    };
    const Row rows[] = {
        {"dd.MM.yyyy",        "28.02.2019",                       date(2019,                                                   2,28), false},
        {"dd.MM.yyyy hh:mm",              "01.03.2019 12:30",                                                date(2019,                                                                                          3,1, 45000), false},
        {"yyyy-MM-dd hh:mm",                  "2020-03-01 00:00",                                                   date(2020,               3,1), false},
        {"yyyy-MM-dd hh:mm",  "2020-03-01 00:00", date(2020, 3,2), true},
        {"yyyy-MM-dd hh:mm",              "2020-02-29 00:00",                                                date(2020,                                                                                          3,1), true},
        {"yyyy-MM-dd hh:mm",                  "2019-03-01 00:00",                                                  date(2019,                                                                                                         3,                                                                                                                        1), true},
        {"yyyy-MM-dd hh:mm","2019-12-31 24:00",{2019, 31536000},false},
        {"yyMMdd hhmmss",                   "070102 030405",                                    date(2007,                                                            1,2, 11045), false},
        {"'t' hh:mm dd.MM.yyyy",                 "'t' 01:00 02.01.2000 and more",                                               date(2000,                                                                                                          1,2, 3600), false},
        {"yyyy",   "2003",                                                                   date(2003,                                                                                                                                                                                                1,                                                                                                                                           1), false},
        {"dd.MM.yyyy",          "28.02.201",        INVALID,       false},
        {"dd.MM.yyyy",                   "28. 2.2019",                                INVALID,                                            false},
        {"dd.MM.yyyy",                  "+8.02.2019",                                               INVALID,                                                                                                     false                                                                                                                                   },
        {"dd.MM.yyyy",           "28.13.2019",INVALID,false},
        {"dd.MM.yyyy",                   "28.00.2019",                                          INVALID,                                                                                 false},
        {"dd.MM.yyyy",                   "00.01.2019",                                          INVALID,                                                                       false},
        {"dd.MM.yyyy hh:mm",                   "01.01.2019 12:60",                                          INVALID,                                                                        false                              },
        {"dd.MM.yyyy",                   "",                                          INVALID,                                                                               false},
    };
    for (const Row & row : rows)
        EXPECT_EQ(Time::fromString(row.text, TimePattern(row.pattern), row.observeLeapYears), row.time)
            << row.pattern << " <- " << row.text;
}

TEST(Time, WritesDateAndClock) {
    struct Row {
        Time time;
        const char * text;
    };
    const Row rows[] = {
        {date(2019,                        2,                                     28, 9 * 3600 + 5 * 60 + 7), "28.02.2019  9:05:07"},
        {date(2019,          12,                          31, 86399.9), "31.12.2019 23:59:59"},
        {{2019, 31536000},                        "01.01.2020  0:00:00"                                                 },
        {{2019, -1},                        "31.12.2018 23:59:59"                                       },
        {{2019, 31536000 * 3.0 + 2678400},                 "01.02.2022  0:00:00"         },
        {{2000, 5.3 * 86400},                       "06.01.2000  7:12:00"               },
        {{2000, 31536000 - 1e-9}, "01.01.2001  0:00:00"},
        {{7, 0},              "01.01.0007  0:00:00"       },
        {INVALID,          "invalid"                         },
        {{2000, std::numeric_limits<double>::infinity()},                           "invalid"                             },
    };
    for (const Row & row : rows)
        EXPECT_EQ(row.time.toString(), row.text);
    EXPECT_EQ(date(2019, 3, 4).toString('/'), "04/03/2019  0:00:00");
}

TEST(Time, MailDateIsEnglishAndBounded) {
    setenv("TZ", "UTC0", 1);
    tzset();
    EXPECT_EQ(KOR::dateRFC2822("%a, %d %b %Y %H:%M:%S %z", 1551398400), "Fri, 01 Mar 2019 00:00:00 +0000");
    EXPECT_EQ(KOR::dateRFC2822(std::string(80, 'x'), 0).size(), 80u);
    EXPECT_EQ(KOR::dateRFC2822(std::string(81, 'x'), 0), "");
    EXPECT_EQ(KOR::dateRFC2822().size(), 31u);
    const auto ex = caught([] { KOR::dateRFC2822("%Y", std::numeric_limits<std::time_t>::max()); });
    EXPECT_EQ(ex.message(), "Time is out of range, error calling std::localtime().");
    EXPECT_EQ(ex.chain().back().where, "[Time::dateRFC2822]");
}

TEST(Duration, IsShownInAFittingUnit) {
    struct Row {
        double seconds;
        const char *text, *unit;
    };
    const Row rows[] = {
        {0,         "     0 ms",  "ms" },
        {0.5,       "   500 ms",  "ms" },
        {1,         " 1.000 s",   "ms" },
        {59.9,      "59.900 s",   "s"  },
        {60,        " 1.000 min", "s"  },
        {180,       " 3.000 min", "s"  },
        {181,       " 3.017 min", "min"},
        {1800,      "30.000 min", "min"},
        {3600,      " 1.000 h",   "h"  },
        {43200,     "12.000 h",   "h"  },
        {86400,     " 1.000 d",   "d"  },
        {15552000,  "180.000 d",  "d"  },
        {15552001,  "180.000 d",  "a"  },
        {31536000,  " 1.000 a",   "a"  },
        {3.1536e10, "1000.000 a", "a"  },
    };
    for (const Row & row : rows) {
        EXPECT_EQ(KOR::formatDuration(row.seconds), row.text);
        EXPECT_EQ(KOR::durationUnit(row.seconds).name(), row.unit) << row.seconds;
    }
}

TEST(Duration, IsShownInAGivenUnit) {
    struct Row {
        double seconds;
        const char *unit, *text;
    };
    const Row rows[] = {
        {90,        "min", "  1.500 min"      },
        {90,        "s",   " 90.000 s   "     },
        {0.0123,    "ms",  "     12 ms  "     },
        {3.1536e7,  "a",   "  1.000 a   "     },
        {3.1536e12, "d",   "36500000.000 d   "},
    };
    for (const Row & row : rows)
        EXPECT_EQ(KOR::formatDuration(row.seconds, KOR::Unit(row.unit)), row.text);
    EXPECT_ANY_THROW(KOR::formatDuration(1, KOR::Unit("m")));
}
