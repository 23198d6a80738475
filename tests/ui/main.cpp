#include <gtest/gtest.h>

#include <QApplication>

#include "shell/qt/Appearance.h"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    morvane::ApplyAppearance(application);
    return RUN_ALL_TESTS();
}
