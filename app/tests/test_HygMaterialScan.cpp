#include "materials/HygThreadMaterialDBUpdater.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int FILES = 60;
constexpr int ROUNDS = 25;

void write(const QString & path, const QByteArray & content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Files appear, change and vanish while they are read; every scan ends well, and the last one tells what is there.
/// The build with the thread sanitizer runs this (scripts/tsan).
TEST(HygMaterialScan, FilesMayComeAndGo) {
    const QTemporaryDir home;
    const QString directory = home.filePath("built in");
    QDir(home.path()).mkdir("built in");
    const QByteArray brick = "H6MARLZ! 006.001\n[IDENTIFICATION]\n  NAME = en:Brick\n  CATEGORY = BRICK\n"
                             "[STORAGE_BASE_PARAMETERS]\n  RHO = 1500 kg/m3\n  THETA_EFF = 0.35 m3/m3\n"
                             "[MOISTURE_STORAGE]\n  FUNCTION = Theta_l(RH)\n    0 0.8 1\n    0 0.02 0.35\n";
    const auto path = [&](int i) { return directory + QString("/m_%1.m6").arg(i); };
    for (int i = 0; i < FILES; ++i)
        write(path(i), brick);

    HygThreadMaterialDBUpdater updater({directory, home.filePath("data/user"), home.filePath("cache")}, "1");
    int updates = 0;
    QObject::connect(&updater, &HygThreadMaterialDBUpdater::updated, &updater, [&] {
        const HygMaterialDBScanPtr scan = updater.result();
        for (const HygMaterialDBEntry & entry : scan->entries)
            EXPECT_TRUE(entry.isReadable() ? entry.name.get("en") == "Brick" : !entry.problem.isEmpty());
        ++updates;
    });
    for (int round = 0; round < ROUNDS; ++round) {
        updater.update();
        EXPECT_LE(updater.done(), FILES);
        for (int i = round % 3; i < FILES; i += 3) {
            QFile::remove(path(i));
            if (round % 2 == 1)
                write(path(i), i % 2 == 1 ? QByteArray("broken") : brick);
        }
        if (round == ROUNDS / 2)
            updater.cancel();
        QTest::qWait(5);
    }
    const auto isIdle = [&] { return !updater.isRunning(); };
    EXPECT_TRUE(QTest::qWaitFor(isIdle, 60000));
    QTest::qWait(50); // one more may have been wanted
    EXPECT_TRUE(QTest::qWaitFor(isIdle, 60000));
    EXPECT_GT(updates, 1);
    updater.update();
    EXPECT_TRUE(QTest::qWaitFor(isIdle, 60000));
    EXPECT_TRUE(updater.result()->isComplete);
    EXPECT_EQ(updater.result()->entries.size(),
              static_cast<std::size_t>(QDir(directory).entryList(QDir::Files).size()));
}

} // namespace
