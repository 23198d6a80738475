#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "shell/qt/Appearance.h"

int main(int argc, char** argv)
{
    Q_INIT_RESOURCE(morvane);
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // What Qt's own dialogs remember is not to be the user's.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argc, argv);
    morvane::ApplyAppearance(application);
    return RUN_ALL_TESTS();
}
