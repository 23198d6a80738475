#include "shell/ToolBoxSettings.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"
#include "shell/BoxPlace.h"

namespace morvane {
namespace {

class ToolBoxSettingsStore : public ::testing::Test {
protected:
    ToolBox Read(const std::string& File)
    {
        WriteWholeFile(path, File);
        SettingsStore store(path);
        ToolBox box;
        ReadToolBox(store, box);
        return box;
    }

    TemporaryFolder folder;
    std::string path = folder / "settings.ini";
};

TEST_F(ToolBoxSettingsStore, WhatIsTypedByHandIsClamped)
{
    const struct {
        const char* File;
        ShapeKind Aperture, Obstruction;
        int Order;
    } cases[] = {
        {"", ShapeKind::Circle, ShapeKind::Circle, 1},
        {"[Toolbox]\nAperture Type = 3\nObstruction Type = 2\nFringe Order = 200\n",
            ShapeKind::Polygon, ShapeKind::Ellipse, 200},
        {"[Toolbox]\nAperture Type = 0\nObstruction Type = 4\nFringe Order = 500\n",
            ShapeKind::Circle, ShapeKind::Polygon, 200},
        {"[Toolbox]\nFringe Order = 0\n", ShapeKind::Circle, ShapeKind::Circle, 1},
    };
    for (const auto& c : cases) {
        const ToolBox box = Read(c.File);
        EXPECT_EQ(box.KindOf(ShapeRole::Aperture), c.Aperture) << c.File;
        EXPECT_EQ(box.KindOf(ShapeRole::Obstruction), c.Obstruction) << c.File;
        EXPECT_EQ(box.CurrentOrder(), c.Order) << c.File;
        EXPECT_EQ(box.OrderText(), std::to_string(c.Order)) << c.File;
    }
}

TEST_F(ToolBoxSettingsStore, TheOrderIsKeptAsTyped)
{
    SettingsStore store(path);
    ToolBox box;
    box.SetKind(ShapeRole::Obstruction, ShapeKind::Polygon);
    box.TypeOrder("007");
    WriteToolBox(store, box);
    ASSERT_TRUE(store.Save());
    SettingsStore next(path);
    EXPECT_EQ(next.GetSettingString("Toolbox", "Fringe Order", ""), "007");
    ReadToolBox(next, box);
    EXPECT_EQ(box.CurrentOrder(), 7);
    EXPECT_EQ(box.KindOf(ShapeRole::Obstruction), ShapeKind::Polygon);
}

// Another program may have written its own order meanwhile.
TEST_F(ToolBoxSettingsStore, AnOrderThatWasOnlyReadIsNoChange)
{
    WriteWholeFile(path, "[Toolbox]\nFringe Order = 500\n");
    SettingsStore store(path);
    ToolBox box;
    ReadToolBox(store, box);
    WriteWholeFile(path, "[Toolbox]\nFringe Order = 12\n");
    WriteToolBox(store, box);
    ASSERT_TRUE(store.Save());
    EXPECT_EQ(SettingsStore(path).GetSettingString("Toolbox", "Fringe Order", ""), "12");
}

TEST_F(ToolBoxSettingsStore, EachBoxHasAPlaceOfItsOwn)
{
    SettingsStore store(path);
    WritePlace(store, AnalyzePlace, {-200, 300});
    WritePlace(store, InputPlace, {40, 50});
    EXPECT_EQ(ReadPlace(store, AnalyzePlace).Left, -200);
    EXPECT_EQ(ReadPlace(store, AnalyzePlace).Top, 300);
    EXPECT_EQ(store.GetSettingString(MainSection, "InputDlgTop", ""), "50");
    EXPECT_EQ(ReadPlace(store, ToolBoxPlace, {7, 8}).Left, 7);
}

TEST_F(ToolBoxSettingsStore, APlaceBeyondTheLimitsIsMovedToThem)
{
    WriteWholeFile(path, "[Toolbox]\nLeft = -5\nTop = 5000\n");
    SettingsStore store(path);
    const BoxPlace place = ReadPlace(store, ToolBoxPlace, {}, {.Min = {0, 0}, .Max = {1200, 700}});
    EXPECT_EQ(place.Left, 0);
    EXPECT_EQ(place.Top, 700);
}

} // namespace
} // namespace morvane
