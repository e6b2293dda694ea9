#include "EditedProject.h"
#include "document/HygProjectPackage.h"

#include <KOR/Exception.h>

#include <QBuffer>
#include <QDirIterator>

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

namespace {

/// What a hostile package holds besides a project that could be opened.
struct Entry {
    QString name;
    QByteArray content = "x";
    quint32 kind = 0100000; ///< of file, as POSIX writes it
};

QByteArray zipOf(const std::vector<Entry> & entries, bool hasProject = true) {
    QBuffer buffer;
    QuaZip zip(&buffer);
    zip.setUtf8Enabled(true);
    zip.setAutoClose(false);
    EXPECT_TRUE(zip.open(QuaZip::mdCreate));
    const auto add = [&zip](const Entry & entry) {
        QuaZipNewInfo info(entry.name);
        info.externalAttr = (entry.kind | 0644) << 16;
        QuaZipFile file(&zip);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly, info));
        file.write(entry.content);
        file.close();
    };
    if (hasProject)
        add({"wall.h6p", "<HygrionProject/>"});
    for (const Entry & entry : entries)
        add(entry);
    zip.close();
    return buffer.data();
}

class HygProjectPackageTest : public EditedProject {
protected:
    HygProjectPackageTest() {
        QDir(m_directory.path()).mkpath("in/target");
        QDir(m_directory.path()).mkpath("db");
    }
    /// Unpacks these bytes; the cause of the refusal, or an empty text.
    std::string refusal(const QByteArray & bytes) const {
        write("in/package.h6pp", bytes.toStdString());
        try {
            const QString project = HygProjectPackage::extract(path("in/package.h6pp"), path("in/target"));
            EXPECT_TRUE(QFileInfo(project).isFile());
            return {};
        } catch (const KOR::Exception & ex) {
            return ex.cause();
        }
    }
    /// All that lies in the folder of the test but the package.
    QStringList found() const {
        QStringList names;
        QDirIterator walk(m_directory.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext())
            names << QDir(m_directory.path()).relativeFilePath(walk.next());
        names.sort();
        return names;
    }
};

TEST_F(HygProjectPackageTest, TakesAProjectToAnotherPlace) {
    write("db/brick.m6", "brick");
    write("db/Brick.m6", "another");
    write("weather.epw", "weather");
    HYGRION::Project project;
    project.m_fileName = path("Wand ä.h6p").toStdString();
    project.m_placeholders["Own"] = path("db").toStdString();
    const char * const materials[] = {"${Own}/brick.m6", "db/Brick.m6", "${Project Directory}/db/brick.m6"};
    for (const char * material : materials)
        project.m_materials.emplace_back().m_filename = KOR::Path(material);
    project.m_init.m_climateDataFilePath = KOR::Path(path("weather.epw").toStdString());
    const HYGRION::Project before = project;
    HygProjectPackage::write(project, path("wall.h6pp"));
    EXPECT_EQ(project, before);
    for (const char * folder : {"wall", "wall 2"}) { // twice into the same place
        const QString file = HygProjectPackage::extract(path("wall.h6pp"), path("in/target"));
        EXPECT_EQ(file, path(QStringLiteral("in/target/%1/Wand ä.h6p").arg(folder)));
        HYGRION::Project unpacked;
        unpacked.readXML(file.toStdString());
        ASSERT_EQ(unpacked.m_materials.size(), 3u);
        const auto content = [&](const KOR::Path & reference) {
            EXPECT_EQ(reference.placeholder(), KOR::Path::PROJECT_DIRECTORY);
            const std::string place = unpacked.resolved(reference).str();
            EXPECT_EQ(place.find(path("in/target/").toStdString()), 0u) << place;
            return KOR::readFile(place, 1000);
        };
        EXPECT_EQ(content(unpacked.m_materials[0].m_filename), "brick");
        EXPECT_EQ(content(unpacked.m_materials[1].m_filename), "another");
        EXPECT_EQ(unpacked.m_materials[2].m_filename, unpacked.m_materials[0].m_filename);
        EXPECT_EQ(content(unpacked.m_init.m_climateDataFilePath), "weather");
    }
    QFile::remove(path("db/brick.m6"));
    QFile::remove(path("weather.epw"));
    try {
        HygProjectPackage::write(project, path("other.h6pp"));
        ADD_FAILURE() << "packed what is not there";
    } catch (const KOR::Exception & ex) {
        EXPECT_THAT(ex.cause(), testing::HasSubstr("db/brick.m6"));
        EXPECT_THAT(ex.cause(), testing::HasSubstr("weather.epw"));
    }
    EXPECT_FALSE(QFileInfo::exists(path("other.h6pp")));
}

TEST_F(HygProjectPackageTest, RefusesHostileNamesAndLeavesNothing) {
    const QString deep = QStringLiteral("a/").repeated(30) + 'x';
    const Entry hostile[] = {
        {"../x"        },
        {"a/../../x"   },
        {"a/.."        },
        {".."          },
        {"."           },
        {"./x"         },
        {"/x"          },
        {"//host/x"    },
        {"/etc/passwd" },
        {"~/x"         },
        {"a//x"        },
        {"C:/x"        },
        {"C:x"         },
        {"..\\x"       },
        {"a\\..\\..\\x"},
        {"\\\\host\\x" },
        {"a\nb"        },
        {"a\tb"        },
        {"a\x7f"
         "b"  },
        {"x."          },
        {"x "          },
        {" x"          },
        {"a./x"        },
        {"a /x"        },
        {"x:stream"    },
        {"x|y"         },
        {"x*"          },
        {"x?"          },
        {"<x>"         },
        {"\"x\""       },
        {deep          },
        {QString(250,    'x')},
        {QStringLiteral("a/").repeated(600)             },
        {"Wall.H6P"},
        {"other.h6p"             },
        {"folder/", "content"},
        {"link",     "/etc/passwd", 0120000},
        {"link",         "../../x", 0120000},
        {"pipe",       "", 0010000},
        {"device",         "", 0020000},
        {"disk",       "", 0060000},
        {"socket",         "", 0140000},
        {"file",       "x", 0040000},
        {"folder/",       "", 0120000},
        {"wall.h6p/x"      },
    };
    write("in/package.h6pp", "");
    const QStringList before = found();
    for (const Entry & entry : hostile) {
        SCOPED_TRACE(entry.name.toStdString());
        EXPECT_NE(refusal(zipOf({entry})), "");
        EXPECT_EQ(found(), before);
    }
    EXPECT_NE(refusal(zipOf({
                  {"a", "1"},
                  {"A", "2"}
    })),
              "");
    EXPECT_NE(refusal(zipOf({}, false)), "");
    EXPECT_EQ(found(), before);
    EXPECT_EQ(refusal(zipOf({
                  {"folder/",     "", 0040000},
                  {"folder/x.m6"     },
                  {"ä ö.epw"}
    })),
              "");
}

TEST_F(HygProjectPackageTest, CountsWhileItUnpacks) {
    const QByteArray zeros(static_cast<int>(HygProjectPackage::MAX_SIZE / 4 + 1), '\0');
    std::vector<Entry> bomb;
    for (int i = 0; i < 4; ++i)
        bomb.push_back({QString::number(i), zeros});
    const QByteArray packed = zipOf(bomb);
    EXPECT_LT(packed.size(), 2 << 20);
    EXPECT_THAT(refusal(packed), testing::HasSubstr("more than 256 MiB"));
    bomb.assign(HygProjectPackage::MAX_ENTRIES, {});
    for (int i = 0; i < HygProjectPackage::MAX_ENTRIES; ++i)
        bomb[static_cast<std::size_t>(i)] = {QString::number(i), ""};
    EXPECT_THAT(refusal(zipOf(bomb)), testing::HasSubstr("more than 10000 entries"));
    EXPECT_EQ(QDir(path("in/target")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(HygProjectPackageTest, RefusesWhatIsDamagedOrLies) {
    QByteArray text;
    for (int i = 0; i < 5000; ++i)
        text += QByteArray::number(i * 7919 % 10007);
    const QByteArray good = zipOf({
        {"data.epw", text}
    });
    // The directory's entries begin with "PK\1\2"; the size unpacked stands 24 bytes behind, the attributes 38.
    const int entry = good.lastIndexOf("PK\x01\x02");
    for (const int size : {0, 1, 5000, 0x7fffffff, -1}) {
        QByteArray lying = good;
        memcpy(lying.data() + entry + 24, &size, sizeof size);
        EXPECT_NE(refusal(lying), "") << size;
    }
    for (int cut = 0; cut < good.size(); cut += 97)
        EXPECT_NE(refusal(good.left(cut)), "") << cut;
    // A flipped bit is refused or does no harm; the check sum guards the content.
    for (int at = 0; at < good.size(); at += 211) {
        QByteArray flipped = good;
        flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
        if (refusal(flipped).empty()) {
            const QDir target(path("in/target"));
            const QString folder = target.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
            for (const QFileInfo & file : QDir(target.filePath(folder)).entryInfoList({"*.epw"}, QDir::Files))
                EXPECT_EQ(KOR::readFile(file.filePath().toStdString(), 1 << 20), text.toStdString()) << at;
            QDir(target.filePath(folder)).removeRecursively();
        }
    }
    EXPECT_EQ(QDir(path("in/target")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

} // namespace
