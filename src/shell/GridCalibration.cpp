#include "shell/GridCalibration.h"

#include <limits>

namespace morvane {
namespace {

constexpr const char* Section = "Grid";

struct CalibrationKey {
    const char* Name;
    double clsGrid::*Field;
    double Default;
};

constexpr CalibrationKey Keys[] = {
    {"UpperLeftX", &clsGrid::UpperLeftX, 0},
    {"UpperLeftY", &clsGrid::UpperLeftY, 0},
    {"PixelSizeX", &clsGrid::PixelWidth, -1},
    {"PixelSizeY", &clsGrid::PixelHeight, -1},
    {"PhysicalWidth", &clsGrid::PhysicalWidth, 100},
    {"CellWidth", &clsGrid::CellWidth, 10},
    {"CellHeight", &clsGrid::CellHeight, 10},
};

} // namespace

void RegistrySaveCalibration(const clsGrid& From, SettingsStore& Store)
{
    for (const CalibrationKey& key : Keys)
        Store.SaveSettingDouble(Section, key.Name, From.*key.Field);
}

void RegistryLoadCalibration(clsGrid& Into, SettingsStore& Store)
{
    constexpr double limit = std::numeric_limits<double>::max();
    for (const CalibrationKey& key : Keys)
        Into.*key.Field = Store.GetSettingDouble(Section, key.Name, -limit, limit, key.Default);
    if (Into.PixelWidth == 0 || Into.PixelHeight == 0)
        Into.PixelWidth = Into.PixelHeight = -1;
    Into.UpdateCellCounts();
}

} // namespace morvane
