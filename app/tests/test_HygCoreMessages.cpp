#include "HygCoreMessages.h"

#include <QCoreApplication>
#include <QTranslator>

namespace {

TEST(HygCoreMessages, AreToldInTheLanguageOfTheUser) {
    struct Row {
        const char * english;
        const char * german;
    };
    const Row rows[] = {
        {"9 of 49 cells have no material.",                                               "9 von 49 Zellen haben kein Material."},
        {"Interface 'West': Parameter 'Albedo' is 5 ---, it must lie within 0..1.",
         "Interface 'West': Der Parameter „Albedo“ ist 5 ---, er muss zwischen 0 und 1 liegen."                             },
        {"Parameter 'RelTol' is -1 ---, it must be positive.",
         "Der Parameter „RelTol“ ist -1 ---, er muss positiv sein."                                                         },
 // values stay as they are, whatever they look like
        {"File '/tmp/100 %2 wool.m6' of 'Wool %1' does not exist.",
         "Die Datei „/tmp/100 %2 wool.m6“ von „Wool %1“ gibt es nicht."                                                 },
 // lines that are not known stay
        {"The run cannot start.\nSomething else.\nOut of memory.",
         "Der Lauf kann nicht beginnen.\nSomething else.\nDer Arbeitsspeicher reicht nicht."                                    },
        {"Error in XML file, line 2: Missing 'unit' attribute in KOR:Parameter element.",
         "Fehler in der XML-Datei, Zeile 2: Dem Element KOR:Parameter fehlt das Attribut „unit“."                           },
        {"Project '/a b/wall.h6p' opened: 9 x 1 x 1 cells, 3 materials, 12 assignments.",
         "Projekt „/a b/wall.h6p“ geöffnet: 9 x 1 x 1 Zellen, 3 Materialien, 12 Zuweisungen."                              },
    };
    for (const Row & row : rows)
        EXPECT_EQ(HygCoreMessages::translated(row.english), row.english);
    EXPECT_EQ(HygCoreMessages::translatedPlace("interface 'Outside'"), "interface 'Outside'");
    QTranslator german;
    ASSERT_TRUE(german.load("hygrion_de", HYG_BINARY_DIR "/translations"));
    QCoreApplication::installTranslator(&german);
    for (const Row & row : rows)
        EXPECT_EQ(HygCoreMessages::translated(row.english).toStdString(), row.german);
    EXPECT_EQ(HygCoreMessages::translatedPlace("assignment 'Outside '25'"), "Zuweisung 'Outside '25'");
    EXPECT_EQ(HygCoreMessages::translatedPlace("Outputs"), "Ausgaben");
    EXPECT_EQ(HygCoreMessages::translatedPlace("elsewhere"), "elsewhere");
    QCoreApplication::removeTranslator(&german);
}

} // namespace
