#include "geometry/modSort.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

constexpr int Width = 200, Height = 300;

// All inside but a border of 10 cells, with an obstruction in columns 60 to 139, rows 130 to 169.
std::vector<std::uint8_t> obstructedCells()
{
    std::vector<std::uint8_t> cells(Width * Height);
    for (int y = 10; y < Height - 10; ++y)
        for (int x = 10; x < Width - 10; ++x)
            cells[y * Width + x] =
                x >= 60 && x < 140 && y >= 130 && y < 170 ? MaskObstruction : MaskInside;
    return cells;
}

// A vertical piece of a fringe, ticks every 10 rows and one at its end.
struct Piece {
    int X, Top, Bottom;
};

struct Sorted {
    int Order;
    std::vector<int> Pieces; // in the order of their ticks
    friend bool operator==(const Sorted&, const Sorted&) = default;
};

std::ostream& operator<<(std::ostream& out, const Sorted& s)
{
    out << s.Order << ":";
    for (const int piece : s.Pieces)
        out << " " << piece;
    return out;
}

// Which pieces make up each used slot, told by the fraction that their columns carry.
std::vector<Sorted> sortPieces(const std::vector<Piece>& pieces)
{
    clsFringes fringes;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        std::vector<Point> ticks;
        const double x = pieces[i].X + i / 64.0;
        for (int y = pieces[i].Top; y < pieces[i].Bottom; y += 10)
            ticks.push_back({x, static_cast<double>(y)});
        ticks.push_back({x, static_cast<double>(pieces[i].Bottom)});
        fringes.InsertOrder(static_cast<int>(i) + 1, ticks);
    }
    const auto cells = obstructedCells();
    SortOrders(fringes, {cells, Width, Height}, Orientation::Upright,
        AutoTraceParameters(FringeDensity::Normal));

    std::vector<Sorted> sorted;
    for (int slot = 1; slot <= fringes.NumFringes(); ++slot) {
        if (fringes.GetFringeOrder(slot) == NoFringe)
            continue;
        sorted.push_back({fringes.GetFringeOrder(slot), {}});
        for (const Point& tick : fringes.Ticks(slot)) {
            const int piece = static_cast<int>((tick.X - static_cast<int>(tick.X)) * 64);
            if (sorted.back().Pieces.empty() || sorted.back().Pieces.back() != piece)
                sorted.back().Pieces.push_back(piece);
        }
    }
    return sorted;
}

TEST(SortOrders, NumbersAndJoinsFromLeftToRight)
{
    const Piece whole{20, 12, 287}, upper{100, 12, 127}, lower{100, 172, 287};
    const auto at = [](Piece piece, int x) { return Piece{x, piece.Top, piece.Bottom}; };
    const struct {
        const char* Name;
        std::vector<Piece> Pieces;
        std::vector<Sorted> Expected;
    } cases[] = {
        {"by the leftmost tick", {at(whole, 40), at(whole, 20), at(whole, 30)},
            {{3, {0}}, {1, {1}}, {2, {2}}}},
        {"a tie keeps the slots' order", {at(whole, 30), at(whole, 20), at(whole, 30)},
            {{2, {0}}, {1, {1}}, {3, {2}}}},
        {"two halves join", {upper, lower}, {{1, {0, 1}}}},
        {"the piece that comes first takes the other's ticks", {lower, upper}, {{1, {0, 1}}}},
        {"the lower piece is numbered first", {at(upper, 105), at(lower, 100)}, {{1, {1, 0}}}},
        {"an upper piece alone", {upper, at(whole, 150)}, {{1, {0}}, {2, {1}}}},
        {"two upper pieces, the first takes the lower one",
            {at(upper, 110), at(upper, 90), at(lower, 120)}, {{2, {0}}, {1, {1, 2}}}},
        {"the lower piece first takes the leftmost upper one",
            {at(upper, 110), at(upper, 100), at(lower, 90)}, {{2, {0}}, {1, {2, 1}}}},
        {"ends 26 rows short of the edge, far from the obstruction", {at(whole, 30), {30, 12, 100}},
            {{1, {0}}, {2, {1}}}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(sortPieces(c.Pieces), c.Expected) << c.Name;
}

// The obstruction lies in rows 130 to 169. The window below an end reaches 14 rows on, that above
// an end 15 rows back; one that lies past the obstruction is seen 15 rows back, or 16 rows on.
TEST(SortOrders, LooksForTheObstructionInItsWindow)
{
    const struct {
        const char* Name;
        Piece Upper, Lower;
        bool Joins;
    } cases[] = {
        {"rows 130 and 169 just seen", {100, 12, 116}, {100, 184, 287}, true},
        {"row 130 just missed", {100, 12, 115}, {100, 184, 287}, false},
        {"row 169 just missed", {100, 12, 116}, {100, 185, 287}, false},
        {"column 60 just seen", {46, 12, 127}, {46, 172, 287}, true},
        {"column 60 just missed", {45, 12, 127}, {45, 172, 287}, false},
        {"column 139 just seen", {154, 12, 127}, {154, 172, 287}, true},
        {"column 139 just missed", {155, 12, 127}, {155, 172, 287}, false},
        {"the top window is the longer one", {100, 12, 127}, {100, 114, 287}, true},
        {"but not longer than that", {100, 12, 127}, {100, 113, 287}, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(sortPieces({c.Upper, c.Lower}).size(), c.Joins ? 1U : 2U) << c.Name;
}

// The rows inside are 10 to 289. A second fringe waits at the other side of the obstruction, broken
// there, so that an end that is marked is joined.
TEST(SortOrders, DoesNotMarkAnEndWithinTheGapOfTheEdge)
{
    std::vector<std::uint8_t> cells = obstructedCells();
    for (const int row : {15, 275})
        for (int y = row; y < row + 10; ++y)
            cells[y * Width + 100] = MaskObstruction;
    const struct {
        const char* Name;
        double Top, Bottom, OtherTop, OtherBottom;
        bool IsJoined;
    } cases[] = {
        {"bottom beyond the gap", 172, 263, 172, 280, true},
        {"bottom at the gap", 172, 264, 172, 280, false},
        {"top beyond the gap", 36, 100, 20, 128, true},
        {"top at the gap", 35, 100, 20, 128, false},
    };
    for (const auto& c : cases) {
        clsFringes fringes;
        fringes.InsertOrder(1, std::vector<Point>{{100, c.Top}, {100, c.Bottom}});
        fringes.InsertOrder(2, std::vector<Point>{{101, c.OtherTop}, {101, c.OtherBottom}});
        SortOrders(fringes, {cells, Width, Height}, Orientation::Upright,
            AutoTraceParameters(FringeDensity::Normal));
        EXPECT_EQ(fringes.Ticks(1).size(), c.IsJoined ? 4U : 2U) << c.Name;
    }
}

TEST(SortOrders, HalvesThatDoNotFitIntoOneFringeStayTwo)
{
    const auto piece = [](double x, double top, double bottom, int count) {
        std::vector<Point> ticks(count, Point{x, (top + bottom) / 2});
        ticks.front().Y = top;
        ticks.back().Y = bottom;
        return ticks;
    };
    const auto cells = obstructedCells();
    for (const int count : {2000, 2001}) {
        clsFringes fringes;
        fringes.InsertOrder(1, piece(100, 12, 128, 2000));
        fringes.InsertOrder(2, piece(101, 172, 287, count));
        SortOrders(fringes, {cells, Width, Height}, Orientation::Upright,
            AutoTraceParameters(FringeDensity::Normal));
        EXPECT_EQ(fringes.Ticks(1).size(), count == 2000 ? 4000U : 2000U);
        EXPECT_EQ(fringes.GetFringeIndex(2), count == 2000 ? NoFringe : 2);
    }
}

TEST(SortOrders, GivesNoNumberToEmptySlots)
{
    clsFringes fringes;
    fringes.AddOrder(9);
    fringes.InsertOrder(5, std::vector<Point>{{30, 50}});
    const auto cells = obstructedCells();
    SortOrders(fringes, {cells, Width, Height}, Orientation::Upright,
        AutoTraceParameters(FringeDensity::Normal));
    EXPECT_EQ(fringes.GetFringeOrder(1), 9);
    EXPECT_EQ(fringes.GetFringeOrder(2), 1);
}

} // namespace
} // namespace morvane
