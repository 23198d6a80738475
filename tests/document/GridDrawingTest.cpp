#include <cmath>
#include <optional>

#include <gtest/gtest.h>

#include "RecordingDevice.h"
#include "document/clsGrid.h"
#include "platform/Numbers.h"

namespace morvane {
namespace {

class ClientDevice final : public RecordingDevice {
public:
    DeviceRect Bounds() const override { return {0, 0, 400, 300}; }
};

struct Axis {
    double First, Size, Cell; // image pixels
};

// The lines read plainly: in steps of the cell to the far side inclusive, one that falls on the
// pixel of the one before left out, and a closing one where the steps stop short.
std::vector<int> PlainLines(const Axis& axis, double offset, double zoom)
{
    std::vector<int> lines;
    const auto add = [&](double at) {
        const int line = RoundToLong((at - offset) * zoom);
        if (lines.empty() || lines.back() != line)
            lines.push_back(line);
    };
    for (int i = 0; i * axis.Cell <= axis.Size; ++i)
        add(axis.First + i * axis.Cell);
    add(axis.First + axis.Size);
    return lines;
}

// A pixel a millimetre.
clsGrid GridOf(const Axis& x, const Axis& y)
{
    clsGrid grid;
    grid.PhysicalWidth = grid.PixelWidth = x.Size;
    grid.PixelHeight = y.Size;
    grid.CellWidth = x.Cell;
    grid.CellHeight = y.Cell;
    grid.UpperLeftX = x.First;
    grid.UpperLeftY = y.First;
    return grid;
}

TEST(GridDrawing, LinesOfEveryCell)
{
    const struct {
        const char* Name;
        Axis X, Y;
        ImageMapping Map;
    } rows[] = {
        {"plain", {40, 200, 20}, {30, 100, 10}, {}},
        {"zoomed and scrolled", {40, 120, 20}, {30, 100, 10}, {1.5, 11, 7}},
        {"closing lines", {40, 200, 60}, {30, 100, 30}, {}},
        {"one cell", {40, 200, 200}, {30, 100, 100}, {0.5, 0, 0}},
        {"cells of half a pixel", {40, 200, 2}, {32, 100, 2}, {0.25, 0, 0}},
        {"from the middle of a pixel", {42, 200, 2}, {34, 100, 2}, {0.25, 0, 0}},
        {"cells of three quarters", {42, 210, 3}, {34, 99, 3}, {0.25, 0, 0}},
        {"cells of a pixel and a half", {41, 201, 1.5}, {31, 99, 1.5}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const std::vector<int> columns = PlainLines(row.X, row.Map.OffsetX, row.Map.Zoom);
        const std::vector<int> lines = PlainLines(row.Y, row.Map.OffsetY, row.Map.Zoom);
        std::vector<std::vector<DevicePoint>> expected;
        for (const int x : columns)
            expected.push_back({{x, lines.front()}, {x, lines.back()}});
        for (const int y : lines)
            expected.push_back({{columns.front(), y}, {columns.back(), y}});

        ClientDevice device;
        GridOf(row.X, row.Y).Draw(device, row.Map, RasterOp::Xor);
        std::vector<std::vector<DevicePoint>> drawn;
        for (const DeviceCall& call : device.Calls) {
            drawn.push_back(call.Points);
            EXPECT_EQ(call.With, (Pen{White, 1}));
            EXPECT_EQ(call.Op, RasterOp::Xor);
        }
        EXPECT_EQ(drawn, expected);
        EXPECT_EQ(device.CurrentPen(), Pen());
        EXPECT_EQ(device.CurrentRasterOp(), RasterOp::Copy);
    }
}

TEST(GridDrawing, OnlyWithCalibrationAndBounds)
{
    clsGrid grid = GridOf({40, 200, 20}, {30, 100, 10});
    ClientDevice device;
    grid.CellHeight = 0;
    grid.Draw(device, {}, RasterOp::Copy);
    grid.CellHeight = 10;
    grid.ClearBounds();
    grid.Draw(device, {}, RasterOp::Copy);
    EXPECT_TRUE(device.Calls.empty());
}

// A line a pixel of the client, and one around it, is all that can show.
TEST(GridDrawing, CostsNoMoreThanTheClient)
{
    for (const double left : {40.0, -1e9, 1e12, -1e17, -1e308})
        for (const double size : {200.0, 1e9, 2e17, 1e300})
            for (const double cell : {1e-300, 1e-9, 1.0, 1e9}) {
                ClientDevice device;
                GridOf({left, size, cell}, {left, size, cell})
                    .Draw(device, {16, 0, 0}, RasterOp::Copy);
                EXPECT_LE(device.Calls.size(), 400u + 300u + 8u) << left << ' ' << size;
            }
}

} // namespace
} // namespace morvane
