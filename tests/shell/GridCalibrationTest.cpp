#include "shell/GridCalibration.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"

namespace morvane {
namespace {

TEST(GridCalibration, TravelsThroughTheSettingsWithoutTheCriteria)
{
    const TemporaryFolder folder;
    clsGrid grid;
    grid.PhysicalWidth = 50;
    grid.CellWidth = 12.5;
    grid.CellHeight = 10.1;
    grid.SetBounds(10, 20, 210, 180);
    grid.MaxRMS = 0.01;
    {
        SettingsStore store(folder / "settings.ini");
        RegistrySaveCalibration(grid, store);
        ASSERT_TRUE(store.Save());
    }
    SettingsStore store(folder / "settings.ini");
    clsGrid loaded;
    RegistryLoadCalibration(loaded, store);
    EXPECT_EQ(loaded.UpperLeftX, 10);
    EXPECT_EQ(loaded.PixelWidth, 200);
    EXPECT_EQ(loaded.PixelHeight, grid.PixelHeight);
    EXPECT_EQ(loaded.CellHeight, 10.1);
    EXPECT_EQ(loaded.CellCountX, 4);
    EXPECT_EQ(loaded.MaxRMS, clsGrid().MaxRMS);
}

TEST(GridCalibration, AnEmptyStoreOrASizeOfZeroIsNoBounds)
{
    const TemporaryFolder folder;
    SettingsStore store(folder / "settings.ini");
    clsGrid grid;
    RegistryLoadCalibration(grid, store);
    EXPECT_EQ(grid.PhysicalWidth, 100);
    EXPECT_TRUE(grid.IsDefined(GridIsCalibrated));
    EXPECT_FALSE(grid.IsDefined(GridHasBounds));
    store.SaveSettingDouble("Grid", "PixelSizeX", 0);
    store.SaveSettingDouble("Grid", "PixelSizeY", 100);
    RegistryLoadCalibration(grid, store);
    EXPECT_FALSE(grid.IsDefined(GridHasBounds));
}

} // namespace
} // namespace morvane
