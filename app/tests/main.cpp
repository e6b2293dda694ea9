#include "EditUntilKilled.h"
#include "HygDebugApplication.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Widgets need an application; the settings of whoever runs the tests stay untouched.
int main(int argc, char ** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir store;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, store.path());
    qputenv("XDG_DATA_HOME", QFile::encodeName(store.path()));
    const HygDebugApplication application(argc, argv);
    HygDebugApplication::initResources();
    if (argc == 4 && std::string_view(argv[1]) == "--edit-until-killed")
        return editUntilKilled(argv[2], argv[3]);
    return RUN_ALL_TESTS();
}
