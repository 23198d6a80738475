#include "geometry/clsFringes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RecordingDevice.h"
#include "TextParser.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;

// Tick n of a fringe lies at (100 Order + n, 2 n).
std::vector<Point> TicksOf(int order, int count)
{
    std::vector<Point> ticks;
    for (int n = 1; n <= count; ++n)
        ticks.push_back({100.0 * order + n, 2.0 * n});
    return ticks;
}

void Insert(clsFringes& fringes, std::initializer_list<int> orders, int ticks = 3)
{
    for (const int order : orders)
        fringes.InsertOrder(order, TicksOf(order, ticks));
}

std::vector<int> Orders(const clsFringes& fringes)
{
    std::vector<int> orders;
    for (int index = 1; index <= fringes.NumFringes(); ++index)
        orders.push_back(fringes.GetFringeOrder(index));
    return orders;
}

Point Center(const clsFringes& fringes, int order, int tick)
{
    int index = NoFringe;
    return fringes.GetCenter(order, tick, index);
}

int Count(const clsFringes& fringes, int order)
{
    int index = NoFringe;
    return fringes.GetNumTicks(order, index);
}

const Point Nowhere{NoPoint, NoPoint};

TEST(clsFringesOrders, OutOfRangeOrAFullStoreTakesNoOrder)
{
    clsFringes fringes;
    EXPECT_EQ(fringes.AddOrder(0), NoFringe);
    EXPECT_EQ(fringes.AddOrder(201), NoFringe);
    EXPECT_EQ(fringes.InsertOrder(1, TicksOf(1, MaxTicks + 1)), NoFringe);
    EXPECT_EQ(fringes.NumFringes(), 0);
    for (int slot = 1; slot <= MaxFringes; ++slot)
        EXPECT_EQ(fringes.AddOrder(7), slot); // orders may repeat
    EXPECT_EQ(fringes.AddOrder(8), NoFringe);
    EXPECT_EQ(fringes.InsertOrder(8, {}), NoFringe);
    EXPECT_EQ(fringes.NumFringes(), MaxFringes);
    EXPECT_EQ(fringes.GetFringeIndex(7), 1);
}

TEST(clsFringesOrders, LookUpWritesTheIndexBack)
{
    clsFringes fringes;
    Insert(fringes, {5, 9});
    int index = NoFringe;
    EXPECT_EQ(fringes.GetNumTicks(9, index), 3);
    EXPECT_EQ(index, 2);
    EXPECT_EQ(fringes.GetCenter(5, 1, index), (Point{901, 2})) << "a given index is not searched";
    index = NoFringe;
    EXPECT_EQ(fringes.GetNumTicks(6, index), NoFringe);
    EXPECT_EQ(fringes.GetNumTicks(NoFringe, index), NoFringe);
    for (int outside : {0, -1, 201}) {
        EXPECT_EQ(fringes.GetNumTicks(5, outside), NoFringe);
        EXPECT_EQ(fringes.GetFringeOrder(outside), NoFringe);
        EXPECT_TRUE(fringes.Ticks(outside).empty());
        fringes.SetOrder(3, outside);
        fringes.AddCenter(5, {1, 1}, outside);
        fringes.Defrag(outside);
        fringes.DeleteOrder(5, outside);
    }
    fringes.SetOrder(0, 1);
    fringes.SetOrder(201, 1);
    EXPECT_THAT(Orders(fringes), ElementsAre(5, 9));
    EXPECT_EQ(fringes.TotalNumTicks(), 6);
}

TEST(clsFringesOrders, DeletingClosesSlotsAndNumbers)
{
    clsFringes fringes;
    Insert(fringes, {1, 2, 3, 4});
    fringes.DeleteOrder(2);
    EXPECT_THAT(Orders(fringes), ElementsAre(1, 2, 3));
    EXPECT_EQ(Center(fringes, 2, 1), (Point{301, 2})) << "the former third";
    EXPECT_EQ(Center(fringes, 3, 3), (Point{403, 6}));
    fringes.DeleteOrder(9); // none
    fringes.DeleteOrder(3); // the last slot
    EXPECT_THAT(Orders(fringes), ElementsAre(1, 2));
    EXPECT_EQ(fringes.AddOrder(3), 3);
    EXPECT_EQ(Count(fringes, 3), 0) << "a slot in use anew is empty";
}

TEST(clsFringesOrders, Renumber)
{
    clsFringes fringes;
    Insert(fringes, {4, 5, 6});
    fringes.Renumber(5, false);
    EXPECT_THAT(Orders(fringes), ElementsAre(4, 6, 7));
    fringes.DeleteAll();
    Insert(fringes, {4, 5, 6});
    fringes.Renumber(5, true);
    EXPECT_THAT(Orders(fringes), ElementsAre(4, 5, 5));
}

TEST(clsFringesTicks, AFullFringeDropsWhatDoesNotFit)
{
    clsFringes fringes;
    Insert(fringes, {1}, 3995);
    int index = NoFringe;
    fringes.AddCenters(1, TicksOf(2, 10), index);
    EXPECT_EQ(Count(fringes, 1), 3995);
    fringes.AddCenters(1, TicksOf(2, 5), index);
    fringes.AddCenter(1, {7, 7}, index);
    EXPECT_EQ(Count(fringes, 1), MaxTicks);
    EXPECT_EQ(Center(fringes, 1, MaxTicks), (Point{205, 10}));
}

TEST(clsFringesTicks, OutsideTheFringeThereIsNoPoint)
{
    clsFringes fringes;
    Insert(fringes, {1});
    int index = NoFringe;
    for (const int tick : {0, 4, -1, NoFringe}) {
        EXPECT_EQ(Center(fringes, 1, tick), Nowhere) << tick;
        fringes.SetCenter(1, tick, {0, 0}, index);
        fringes.DeleteCenter(1, tick, index);
    }
    EXPECT_EQ(Center(fringes, 2, 1), Nowhere);
    EXPECT_THAT(fringes.Ticks(1), ::testing::ElementsAreArray(TicksOf(1, 3)));
}

TEST(clsFringesTicks, DeleteMovesTheLaterOnesDown)
{
    clsFringes fringes;
    Insert(fringes, {1});
    int index = NoFringe;
    fringes.SetCenter(1, 2, {8, 9}, index);
    fringes.DeleteCenter(1, 1, index);
    EXPECT_THAT(fringes.Ticks(1), ElementsAre(Point{8, 9}, Point{103, 6}));
}

TEST(clsFringesTicks, TransposeAndHalfReachEveryTick)
{
    clsFringes fringes;
    Insert(fringes, {1, 2});
    fringes.TransposeAll();
    fringes.HalfFringeData();
    EXPECT_EQ(Center(fringes, 2, 3), (Point{3, 101.5}));
    fringes.TransposeAll();
    fringes.HalfFringeData();
    EXPECT_EQ(Center(fringes, 2, 3), (Point{50.75, 1.5}));
}

TEST(clsFringesCombine, ToTheLimitInTheGivenOrder)
{
    clsFringes fringes;
    Insert(fringes, {1}, 2500);
    Insert(fringes, {2}, 1501);
    int first = NoFringe, second = NoFringe;
    EXPECT_FALSE(fringes.CombineOrders(1, 2, first, second));
    EXPECT_FALSE(fringes.CombineOrders(1, 1, first, first)) << "with itself";
    EXPECT_EQ(Count(fringes, 1), 2500);
    EXPECT_EQ(Count(fringes, 2), 1501);
    fringes.DeleteCenter(2, 1, second);
    int missing = NoFringe;
    EXPECT_FALSE(fringes.CombineOrders(1, 3, first, missing));
    EXPECT_TRUE(fringes.CombineOrders(1, 2, first, second));
    EXPECT_EQ(Count(fringes, 1), MaxTicks);
    EXPECT_EQ(Center(fringes, 1, 2501), (Point{202, 4}));
    EXPECT_EQ(fringes.NumFringes(), 2);
    EXPECT_EQ(fringes.GetFringeOrder(2), NoFringe);
}

// Empties the slots of Gone by combining them into slot 1.
clsFringes WithGaps(std::initializer_list<int> orders, const std::vector<int>& gone)
{
    clsFringes fringes;
    Insert(fringes, orders, 1);
    for (int slot : gone) {
        int first = 1;
        fringes.CombineOrders(NoFringe, NoFringe, first, slot);
    }
    return fringes;
}

TEST(clsFringesDefrag, ClosesAllGaps)
{
    const struct {
        const char* Name;
        std::vector<int> Gone;
        std::vector<int> Orders;
    } cases[] = {
        {"none", {}, {1, 2, 3, 4, 5}},
        {"one", {3}, {1, 2, 4, 5}},
        {"the last", {5}, {1, 2, 3, 4}},
        {"two: a free slot stays counted", {2, 4}, {1, 3, 5, NoFringe}},
        {"all but the first: nothing happens", {2, 3, 4, 5},
            {1, NoFringe, NoFringe, NoFringe, NoFringe}},
    };
    for (const auto& c : cases) {
        clsFringes fringes = WithGaps({1, 2, 3, 4, 5}, c.Gone);
        fringes.Defrag(NoFringe);
        EXPECT_EQ(Orders(fringes), c.Orders) << c.Name;
        EXPECT_EQ(fringes.TotalNumTicks(), 5) << c.Name;
        const int last = c.Orders[2];
        if (last != NoFringe) {
            EXPECT_EQ(Center(fringes, last, 1), (Point{100.0 * last + 1, 2})) << c.Name;
        }
    }
}

TEST(clsFringesDefrag, AtASlotKeepsTheCount)
{
    clsFringes fringes;
    Insert(fringes, {1, 2, 3});
    fringes.Defrag(3); // not below the count
    EXPECT_THAT(Orders(fringes), ElementsAre(1, 2, 3));
    fringes.Defrag(1);
    EXPECT_THAT(Orders(fringes), ElementsAre(2, 3, NoFringe));
    EXPECT_EQ(fringes.GetFringeIndex(NoFringe), NoFringe) << "a free slot is no fringe";
}

TEST(clsFringesFind, WindowIsSquareAndClosed)
{
    clsFringes fringes;
    Insert(fringes, {1}, 1); // at (101, 2)
    const struct {
        const char* Name;
        Point At;
        bool Hits;
    } cases[] = {
        {"both limits", {104, 5}, true},
        {"both lower limits", {98, -1}, true},
        {"beyond in x", {104.01, 2}, false},
        {"beyond in y", {101, -1.01}, false},
        {"nowhere", Nowhere, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fringes.Find(c.At).has_value(), c.Hits) << c.Name;
        EXPECT_EQ(fringes.FindInOtherFringe(c.At, 1, 3, false), c.Hits) << c.Name;
        EXPECT_EQ(fringes.FindInOtherFringe(c.At, 2, 3, true), c.Hits) << c.Name;
        EXPECT_FALSE(fringes.FindInOtherFringe(c.At, 1, 3, true)) << c.Name;
        EXPECT_FALSE(fringes.FindInOtherFringe(c.At, 2, 3, false)) << c.Name;
    }
}

TEST(clsFringesFind, TheLowerSlotWinsOverTheNearerTick)
{
    clsFringes fringes;
    fringes.InsertOrder(9, std::vector<Point>{{50, 50}, {3, 0}, {2, 0}});
    fringes.InsertOrder(4, std::vector<Point>{{0, 0}});
    const auto hit = fringes.Find({0, 0});
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->Order, 9);
    EXPECT_EQ(hit->Tick, 2);
    EXPECT_EQ(hit->Index, 1);
}

// The crosses on a device: the end points of each pair of strokes are checked here.
struct Cross {
    DevicePoint Center;
    Color Ink;
    int Width;
    RasterOp Op;
    friend bool operator==(const Cross&, const Cross&) = default;
};

std::vector<Cross> Crosses(const RecordingDevice& device, int arm)
{
    std::vector<Cross> crosses;
    for (std::size_t i = 0; i + 1 < device.Calls.size(); i += 2) {
        const DeviceCall& level = device.Calls[i];
        const int x = level.Points[0].X + arm, y = level.Points[0].Y;
        EXPECT_THAT(
            level.Points, ElementsAre(DevicePoint{x - arm, y}, DevicePoint{x + arm + 1, y}));
        EXPECT_THAT(device.Calls[i + 1].Points,
            ElementsAre(DevicePoint{x, y - arm}, DevicePoint{x, y + arm + 1}));
        crosses.push_back({{x, y}, level.With.Ink, level.With.Width, level.Op});
    }
    return crosses;
}

// One tick a fringe, at (Order, 10 Order).
clsFringes OneTickEach(std::initializer_list<int> orders)
{
    clsFringes fringes;
    for (const int order : orders)
        fringes.InsertOrder(order, std::vector<Point>{{1.0 * order, 10.0 * order}});
    return fringes;
}

TEST(clsFringesDraw, CrossesAreColouredByOrderAndStateIsRestored)
{
    const clsFringes fringes = OneTickEach({1, 2, 3, 4});
    RecordingDevice device;
    // Tick (1, 10) falls on (0.5, 9), which halves round to even.
    fringes.DrawAll(device, {0.5, 0, -8},
        {.CurrentOrder = 4, .TickSize = 5, .PenWidth = 2, .Op = RasterOp::Xor});
    EXPECT_THAT(Crosses(device, 5),
        ElementsAre(Cross{{0, 9}, Magenta, 2, RasterOp::Xor},
            Cross{{1, 14}, Yellow, 2, RasterOp::Xor}, Cross{{2, 19}, Cyan, 2, RasterOp::Xor},
            Cross{{2, 24}, White, 2, RasterOp::Xor}));
    EXPECT_EQ(device.CurrentPen(), Pen());
    EXPECT_EQ(device.CurrentRasterOp(), RasterOp::Copy);
}

TEST(clsFringesDraw, OneBitPerPixelIsWhite)
{
    RecordingDevice device(1);
    OneTickEach({1}).DrawAll(device, {}, {});
    EXPECT_THAT(Crosses(device, 3), ElementsAre(Cross{{1, 10}, White, 1, RasterOp::Copy}));
}

TEST(clsFringesDraw, OneTickAndAllOthersMakeUpTheWhole)
{
    clsFringes fringes;
    Insert(fringes, {1, 2}, 2);
    RecordingDevice all, others, one, order;
    const TickStyle style{.CurrentOrder = 2, .PenWidth = 4};
    fringes.DrawAllExceptOne(others, {}, style, 2, 1);
    fringes.DrawCenter(one, {}, style, 2, 1);
    fringes.DrawOrder(order, {}, style, 2);
    const Cross second1{{201, 2}, White, 1, RasterOp::Copy};
    const Cross second2{{202, 4}, White, 1, RasterOp::Copy};
    EXPECT_THAT(Crosses(others, 3),
        ElementsAre(Cross{{101, 2}, Magenta, 1, RasterOp::Copy},
            Cross{{102, 4}, Magenta, 1, RasterOp::Copy}, second2));
    EXPECT_THAT(Crosses(one, 3), ElementsAre(second1));
    EXPECT_THAT(Crosses(order, 3), ElementsAre(second1, second2));
}

TEST(clsFringesDraw, WhatDoesNotExistOrLiesFarOffIsHarmless)
{
    clsFringes fringes;
    fringes.InsertOrder(1, std::vector<Point>{{1e308, -1e308}});
    RecordingDevice device;
    fringes.DrawOrder(device, {}, {}, 2);
    fringes.DrawOrder(device, {}, {}, 1, 201);
    for (const int tick : {0, -5, MaxTicks + 1, NoFringe})
        fringes.DrawCenter(device, {}, {}, 1, tick);
    EXPECT_TRUE(device.Calls.empty());
    fringes.DrawAll(device, {1e10, 0, 0}, {});
    EXPECT_TRUE(device.Calls.empty()); // off the device
    fringes.DrawOrder(device, {1e10, 0, 0}, {}, 1);
    EXPECT_EQ(Crosses(device, 3).size(), 1u);
}

TEST(clsFringesBlock, IsWrittenInTheFormOfTheDocumentFile)
{
    clsFringes fringes;
    fringes.InsertOrder(3, std::vector<Point>{{512.25, 300}, {-1.5, 0.1}});
    std::string text;
    fringes.SaveToFile(text);
    EXPECT_EQ(text,
        "Fringes\r\nNumFringes, 1 \r\nOrder, 3 \r\nNumTicks, 2 \r\n"
        "Center, 512.25, 300\r\nCenter,-1.5, 0.1\r\nEndFringes\r\n");
}

TEST(clsFringesBlock, ComesBackToTheBitAndLeavesTheNextLine)
{
    clsFringes fringes;
    Insert(fringes, {3, 1}, 2);
    fringes.InsertOrder(200, std::vector<Point>{{0.1 + 0.2, 1e308}, {5e-324, -1.0 / 3}});
    std::string text;
    fringes.SaveToFile(text);
    TextParser parser(text + "Next\r\n");
    parser->Readline(); // "Fringes" is the document's
    clsFringes read;
    read.LoadFromFile(parser);
    EXPECT_EQ(Orders(read), Orders(fringes));
    for (int index = 1; index <= 3; ++index)
        EXPECT_THAT(read.Ticks(index), ::testing::ElementsAreArray(fringes.Ticks(index)));
    ASSERT_TRUE(parser->Readline());
    EXPECT_EQ(parser->GetKeyword(), "next");
}

clsFringes Loaded(const std::string& block)
{
    TextParser parser(block);
    clsFringes fringes;
    fringes.LoadFromFile(parser);
    return fringes;
}

TEST(clsFringesBlock, ReadingStopsAtTheFirstNumberOutOfRange)
{
    const struct {
        const char* Block;
        std::vector<int> Orders;
        int TotalNumTicks;
    } cases[] = {
        {"NumFringes, 201\nOrder, 1", {}, 0},
        {"NumFringes,-1 \nOrder, 1", {}, 0},
        {"NumFringes, 2\nOrder, 1\nNumTicks, 1\nOrder, 0\nNumTicks, 1", {1, NoFringe}, 1},
        {"NumFringes, 2\nOrder, 201\nNumTicks, 1\nOrder, 2", {NoFringe, NoFringe}, 0},
        {"NumFringes, 2\nOrder, 1\nNumTicks, 4001\nOrder, 2", {NoFringe, NoFringe}, 0},
        {"NumFringes, 1\nOrder, 1\nNumTicks,-1\nNumTicks, 2", {NoFringe}, 0},
        {"NumFringes, 1e99\nOrder, 1", {}, 0},
        {"NumFringes, 1\nOrder, 2.5\nEndFringes\nNumTicks, 3", {2}, 0},
    };
    for (const auto& c : cases) {
        const clsFringes fringes = Loaded(c.Block);
        EXPECT_EQ(Orders(fringes), c.Orders) << c.Block;
        EXPECT_EQ(fringes.TotalNumTicks(), c.TotalNumTicks) << c.Block;
    }
}

TEST(clsFringesBlock, TheFileTellsTheNumberOfTicks)
{
    const clsFringes fringes = Loaded("NUMFRINGES 1 ORDER 7 NumTicks 5\nCenter, 1, 2\nWhat, 5\n"
                                      "Center; 3 4 Center: 5 6 junk Center, 9, 9\nEndFringes");
    EXPECT_THAT(Orders(fringes), ElementsAre(7));
    EXPECT_THAT(fringes.Ticks(1),
        ElementsAre(Point{1, 2}, Point{3, 4}, Point{5, 6}, Point{0, 0}, Point{0, 0}));
}

TEST(clsFringesBlock, WhatLiesOutsideTheStoreIsIgnored)
{
    std::string block = "NumTicks, 5\nCenter, 1, 2\nNumFringes, 200\n";
    for (int i = 0; i < MaxFringes; ++i)
        block += "Order, 1\n";
    block += "NumTicks, 4000\n";
    for (int i = 0; i < MaxTicks; ++i)
        block += "Center, 1, 1\n";
    block += "Center, 2, 2\nOrder, 2\nCenter, 3, 3\n";
    const clsFringes fringes = Loaded(block);
    EXPECT_EQ(fringes.TotalNumTicks(), MaxTicks);
    EXPECT_EQ(fringes.Ticks(MaxFringes).back(), (Point{1, 1}));
}

} // namespace
} // namespace morvane
