#include "materials/HygMaterialDBProxyModel.h"
#include "materials/HygMaterialDBTableModel.h"
#include "materials/HygThreadMaterialDBUpdater.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace {

using Model = HygMaterialDBTableModel;

/// Keeps the errors that are logged.
class ErrorLog : public KOR::MessageHandler {
public:
    ErrorLog() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    ~ErrorLog() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    void msg(const std::string & text, int type, const std::string & where, int) override {
        const std::scoped_lock lock(m_mutex);
        if (type == KOR::MSG_ERROR)
            m_lines << QString::fromStdString(text + ' ' + where);
    }
    QString take() {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_lines, {}).join('\n');
    }

private:
    std::mutex m_mutex;
    QStringList m_lines;
};

/// A material file's text.
std::string material(const char * name, const char * category, const char * producer = "") {
    return std::string("H6MARLZ! 006.001\n[IDENTIFICATION]\n  NAME = ") + name + "\n  CATEGORY = " + category +
           (*producer ? std::string("\n  PRODUCER = ") + producer : "") +
           "\n[STORAGE_BASE_PARAMETERS]\n  RHO = 1.5 kg/dm3\n  THETA_EFF = 0.35 m3/m3\n"
           "[MOISTURE_STORAGE]\n  FUNCTION = Theta_l(RH)\n    0 0.8 1\n    0 0.02 0.35\n";
}

/// Two directories with files, and a scan of them.
class HygMaterialDBTest : public testing::Test {
protected:
    HygMaterialDBTest() { QDir(m_home.path()).mkdir("built in"); }

    QString path(const QString & name) const { return m_home.filePath(name); }
    void write(const QString & name, const std::string & content) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), static_cast<qint64>(content.size()));
    }
    HygMaterialDBScanPtr scan() {
        HygThreadMaterialDBUpdater updater({path("built in"), path("data/user"), path("cache")}, "1");
        QSignalSpy updated(&updater, &HygThreadMaterialDBUpdater::updated);
        updater.update();
        EXPECT_TRUE(updated.wait(20000));
        return updater.result();
    }
    static QStringList names(const QAbstractItemModel & model) {
        QStringList found;
        for (int row = 0; row < model.rowCount(); ++row)
            found << model.index(row, Model::NameColumn).data().toString();
        return found;
    }

    QTemporaryDir m_home;
    ErrorLog m_log;
};

TEST_F(HygMaterialDBTest, BrokenFilesAreNamedAndTheRestIsThere) {
    write("built in/brick_1.m6", material("en:Brick|de:Ziegel", "BRICK, PLASTER"));
    write("built in/broken_2.m6", "H6MARLZ! 006.001\n[STORAGE_BASE_PARAMETERS]\n  RHO = heavy\n");
    write("built in/empty_3.m6", "");
    write("built in/old_4.m6b", std::string("H6MBRLZ! 006.001\0\1\2", 19));
    write("built in/readme.txt", "no material");
    write("data/user/brick_1.m6", material("My brick", "BRICK"));
    QFile huge(path("built in/huge_5.m6"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{65} << 20));
    QFile::link(path("nowhere"), path("built in/link_6.m6"));

    Model model;
    model.setScan(scan());
    const QString log = m_log.take();
    EXPECT_EQ(names(model), (QStringList{"Brick", "broken_2.m6", "empty_3.m6", "huge_5.m6", "old_4.m6b", "My brick"}));
    for (const char * file : {"broken_2.m6", "empty_3.m6", "huge_5.m6", "old_4.m6b"}) {
        EXPECT_TRUE(log.contains("Error reading material data file '" + path("built in/") + file +
                                 "' [HygThreadMaterialDBUpdater::store]"))
            << log.toStdString();
        const int row = model.rowOf(path("built in/") + file);
        EXPECT_FALSE(model.entry(row).problem.isEmpty()) << file;
        EXPECT_FALSE(model.flags(model.index(row, 0)).testFlag(Qt::ItemIsDragEnabled));
    }
    EXPECT_EQ(model.entry(4).problem, "Binary material files cannot be read.");
    EXPECT_EQ(model.countProblems(), 6); // four that cannot be read, two of one ID
    EXPECT_TRUE(
        model.index(0, Model::MarkColumn).data(Qt::ToolTipRole).toString().contains(path("data/user/brick_1.m6")));

    const QStringList shown{"1",  "",    "Brick", "Building brick",           "", "1500", "", "", "",
                            "20", "350", "",      path("built in/brick_1.m6")};
    for (int column = 0; column < Model::NUM_COLUMNS; ++column)
        EXPECT_EQ(model.index(0, column).data().toString(), shown[column]) << column;
    const QStringList headers{"ID",
                              "",
                              "Name",
                              "Category",
                              "Producer",
                              "Rho [kg/m3]",
                              "cp [J/kgK]",
                              "Lambda [W/mK]",
                              "µ [---]",
                              "W80 [kg/m3]",
                              "WSat [kg/m3]",
                              "Aw [kg/m2s05]",
                              "Material file path"};
    for (int column = 0; column < Model::NUM_COLUMNS; ++column)
        EXPECT_EQ(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(), headers[column]);
    EXPECT_EQ(model.index(0, 0).data(Model::Category1Role), 3);
    EXPECT_EQ(model.index(0, 0).data(Model::Category2Role), 2);
    EXPECT_EQ(model.index(0, 0).data(Model::Category3Role), 0);

    const std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(1, 0), model.index(5, 0)}));
    EXPECT_EQ(QString::fromUtf8(dragged->data("application/x-hygrion-material")), path("data/user/brick_1.m6"));
}

TEST_F(HygMaterialDBTest, DirectoriesThatCannotBeReadAreNamed) {
    QDir(path("built in")).removeRecursively();
    write("data/user/own_7.m6", material("Own", "MISC"));
    HygMaterialDBScanPtr found = scan();
    EXPECT_EQ(m_log.take(), "Cannot access built-in material database '" + path("built in") +
                                "' [HygThreadMaterialDBUpdater::fetch]");
    ASSERT_EQ(found->entries.size(), 1u);
    EXPECT_EQ(found->entries[0].origin, HygMaterialDBEntry::User);

    QDir(path("data")).removeRecursively();
    QDir(m_home.path()).mkdir("built in");
    EXPECT_EQ(scan()->problems.size(), 0u);
    EXPECT_TRUE(QFileInfo(path("data/user")).isDir()) << "made with its parents";

    QDir(path("data")).removeRecursively();
    write("data", "a file in the way");
    EXPECT_TRUE(m_log.take().isEmpty());
    EXPECT_EQ(scan()->problems.size(), 1u);
    EXPECT_TRUE(m_log.take().contains("User material data directory '" + path("data/user") +
                                      "' does not exist and cannot be created (permission denied?). "
                                      "[HygThreadMaterialDBUpdater::fetch]"));
    if (::geteuid() == 0)
        return; // may read everything
    QFile::setPermissions(path("built in"), {});
    EXPECT_EQ(scan()->problems.size(), 2u);
    QFile::setPermissions(path("built in"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(HygMaterialDBTest, OnlyWhatHasChangedIsReadAgain) {
    write("built in/brick_1.m6", material("Brick", "BRICK", "Kiln"));
    write("built in/broken_2.m6", "H6MARLZ! 006.001\n[STORAGE_BASE_PARAMETERS]\n  RHO = heavy\n");
    const HygMaterialDBScanPtr first = scan();
    EXPECT_EQ(first->numRead, 2);
    m_log.take();
    const HygMaterialDBScanPtr second = scan();
    EXPECT_EQ(second->numRead, 0);
    EXPECT_TRUE(m_log.take().contains("Error reading material data file")) << "told in every run of the program";
    EXPECT_EQ(second->entries[0].producer, first->entries[0].producer);
    EXPECT_EQ(second->entries[0].categories, first->entries[0].categories);
    EXPECT_EQ(second->entries[0].values[HygMaterialDBEntry::Rho], 1500);
    EXPECT_EQ(second->entries[1].problem, first->entries[1].problem);

    write("built in/broken_2.m6", material("Mended", "BRICK"));
    write("data/user/new_3.m6", material("New", "BRICK"));
    const HygMaterialDBScanPtr third = scan();
    EXPECT_EQ(third->numRead, 2);
    Model model;
    model.setScan(second);
    const QPersistentModelIndex brick = model.index(0, 0);
    model.setScan(third);
    EXPECT_EQ(names(model), (QStringList{"Brick", "Mended", "New"}));
    QFile::remove(path("built in/brick_1.m6"));
    model.setScan(scan());
    EXPECT_EQ(names(model), (QStringList{"Mended", "New"}));
    EXPECT_FALSE(brick.isValid());

    // A cache that was cut, changed, or written by another version is none.
    const std::string cache = KOR::readFile(path("cache").toStdString(), 1 << 20);
    std::string changed = cache;
    changed[cache.size() / 2] = static_cast<char>(~changed[cache.size() / 2]);
    for (const std::string & damaged :
         {std::string(), cache.substr(0, 9), cache.substr(0, cache.size() / 2), changed}) {
        KOR::writeFile(path("cache").toStdString(), damaged);
        EXPECT_EQ(scan()->numRead, 2);
    }
    HygMaterialDBCache other(path("cache"), "2");
    other.read();
    EXPECT_EQ(other.size(), 0u);
}

struct Filter {
    int category;
    const char * search;
    int marks;
    const char * rows; ///< IDs
};

TEST_F(HygMaterialDBTest, CategoryWordsAndMarksNarrowTheRows) {
    write("built in/a_1.m6", material("en:Lime brick|de:Kalkziegel", "BRICK", "Kiln & Sons"));
    write("built in/b_2.m6", material("Brick, solid", "BRICK", "Limestone works"));
    write("built in/c_3.m6", material("Lime plaster", "PLASTER, NATURAL_MATERIALS, BRICK"));
    write("built in/d_4.m6", material("Insulation [WLG 035]", "INSULATION", "kiln"));
    write("data/user/e_5.m6", material("Brick", "BRICK"));
    write("data/user/f_6.m6", "broken");
    Model model;
    model.setScan(scan());
    model.setFavourites({"b_2.m6", "e_5.m6"}); // the second is the name of no built-in file
    HygMaterialDBProxyModel proxy;
    proxy.setSourceModel(&model);
    using P = HygMaterialDBProxyModel;
    constexpr int ALL = 14;
    constexpr Filter ROWS[] = {
        {ALL, "",               0,                                "1 2 3 4 5 6"},
        {3,   "",               0,                                "1 2 3 5"    }, // first and third category
        {2,   "",               0,                                "3"          },
        {9,   "",               0,                                "3"          }, // second category
        {10,  "",               0,                                ""           },
        {ALL, "brick lime",     0,                                "1 2"        }, // in name or producer, in any order
        {ALL, "  BRICK  LIME ", 0,                                "1 2"        },
        {ALL, "kiln",           0,                                "1 4"        },
        {ALL, "roof",           0,                                ""           },
        {ALL, "l?me*st",        0,                                "2 3"        },
        {ALL, "[kj]iln",        0,                                "1 4"        },
        {ALL, "[WLG",           0,                                "4"          }, // no wildcard
        {ALL, "br*solid",       0,                                "2"          },
        {ALL, "(",              0,                                ""           }, // no regular expression
        {3,   "lime",           0,                                "1 2 3"      },
        {ALL, "",               P::Favourites,                    "2"          },
        {ALL, "",               P::UserMaterials,                 "5 6"        },
        {ALL, "",               P::Problems,                      "6"          },
        {ALL, "",               P::Problems | P::Favourites,      "2 6"        },
        {3,   "brick",          P::UserMaterials | P::Favourites, "2 5"        },
    };
    for (const Filter & row : ROWS) {
        proxy.setCategory(row.category);
        proxy.setSearch(row.search);
        proxy.setMarks(row.marks);
        QStringList ids;
        for (int i = 0; i < proxy.rowCount(); ++i)
            ids << proxy.index(i, Model::IdColumn).data().toString();
        EXPECT_EQ(ids.join(' '), row.rows) << row.search << ' ' << row.category << ' ' << row.marks;
    }
    proxy.setMarks(0);
    proxy.setCategory(ALL);
    proxy.setSearch("kalk");
    EXPECT_EQ(proxy.rowCount(), 0);
    model.setLanguage("de");
    EXPECT_EQ(proxy.rowCount(), 1) << "names are looked for in the language that is shown";

    proxy.setSearch("");
    model.setCompared({path("built in/a_1.m6"), path("data/user/f_6.m6")});
    const char * colors[] = {"#ffe49d", nullptr, nullptr, nullptr, "#fff4b8", "#ffe49d"};
    for (int i = 0; i < proxy.rowCount(); ++i) {
        const QVariant color = proxy.index(i, 0).data(Qt::BackgroundRole);
        EXPECT_EQ(color, colors[i] ? QVariant(QColor(colors[i])) : QVariant()) << i;
        EXPECT_EQ(proxy.index(i, 0).data(Qt::ForegroundRole).isValid(), color.isValid());
    }
    proxy.sort(Model::RhoColumn, Qt::DescendingOrder);
    EXPECT_EQ(proxy.index(5, 0).data().toString(), "6") << "what has no value stands at the end";
}

} // namespace
