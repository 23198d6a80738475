// The traced fringes of one interferogram, each an order number and the points ("ticks") found
// along its dark center, in image pixels, origin top left, y down. Memory for 200 fringes of
// 4000 ticks is taken in the constructor: the tracer never waits for the allocator, and the hit
// test behind every mouse move is a single pass over one block.
//
// A fringe has two addresses, both counted from 1: its order, as shown to the user, and its
// index, the slot it lies in. Where an operation takes both, Index == NoFringe means "search by
// Order"; taken by reference, it comes back as the slot found, so that a loop searches only once.
//
// The store never complains: an order, index or tick out of range is ignored or answered by a
// marker. What the user is told is the caller's decision.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Device.h"
#include "platform/Point.h"

namespace morvane {

class clsParser;

inline constexpr int MaxFringes = 200; // slots, and the highest order
inline constexpr int MaxTicks = 4000; // per fringe
inline constexpr int NoFringe = 2147483647; // no such order, index or tick

struct FringeHit {
    int Order, Tick, Index;
};

// How ticks are drawn: crosses with arms of TickSize device units, coloured by order, the current
// order white.
struct TickStyle {
    int CurrentOrder = NoFringe;
    int TickSize = 3;
    int PenWidth = 1;
    RasterOp Op = RasterOp::Copy;
};

class clsFringes {
public:
    clsFringes();

    int NumFringes() const { return m_numFringes; }
    int TotalNumTicks() const;

    // Ticks in use; NoFringe if there is no such fringe.
    int GetNumTicks(int Order, int& Index) const;
    int GetFringeIndex(int Order) const;
    int GetFringeOrder(int Index) const;

    // The ticks in use of a slot; empty for a slot out of range.
    std::span<const Point> Ticks(int Index) const;

    // Opens an empty fringe and returns its slot; NoFringe if Order lies outside 1..MaxFringes or
    // all slots are taken. Orders may repeat: a search finds the lowest slot.
    int AddOrder(int Order);
    int InsertOrder(int Order, std::span<const Point> Centers);
    void SetOrder(int Order, int Index);
    void DeleteOrder(int Order, int Index = NoFringe);
    void DeleteAll();

    // Appends the second fringe's ticks to the first and empties the second's slot, which stays
    // counted: the caller must call Defrag(NoFringe) next. False, and nothing changed, if either
    // is missing, both are one slot, or the sum exceeds MaxTicks.
    bool CombineOrders(int Order1, int Order2, int& Index1, int& Index2);

    // With a slot: closes the gap at Index, NumFringes unchanged. With NoFringe: closes all gaps;
    // with several of them, NumFringes ends one below the highest used slot before.
    void Defrag(int Index);

    // Down false: orders at or above Order gain 1; true: orders above it lose 1.
    void Renumber(int Order, bool Down);

    // A full fringe drops the tick.
    void AddCenter(int Order, Point At, int& Index);
    // Appends all Centers or, if they do not fit, none, so that nobody has to undo half a batch.
    void AddCenters(int Order, std::span<const Point> Centers, int& Index);
    // Both coordinates are NoPoint if there is no such fringe or tick.
    Point GetCenter(int Order, int Tick, int& Index) const;
    void SetCenter(int Order, int Tick, Point At, int& Index);
    void DeleteCenter(int Order, int Tick, int& Index);

    void TransposeAll();
    void HalfFringeData();

    // First tick, in slot order, within 3 pixels in x and in y. Not the nearest.
    std::optional<FringeHit> Find(Point At) const;
    // Whether a tick lies within Tolerance in x and in y: of fringes whose order differs from
    // Order, or, with OtherThanOrder false, of those that have it.
    bool FindInOtherFringe(Point At, int Order, double Tolerance, bool OtherThanOrder) const;

    // White on a device of one bit a pixel. The pen width of Style is DrawAll's only.
    void DrawAll(Device& On, const ImageMapping& Map, const TickStyle& Style) const;
    void DrawAllExceptOne(
        Device& On, const ImageMapping& Map, const TickStyle& Style, int Index, int Tick) const;
    void DrawOrder(Device& On, const ImageMapping& Map, const TickStyle& Style, int Order,
        int Index = NoFringe) const;
    // Tick need not be in use.
    void DrawCenter(Device& On, const ImageMapping& Map, const TickStyle& Style, int Order,
        int Tick, int Index = NoFringe) const;

    // The "Fringes" block of a document file, appended to Text, lines ended by CR LF.
    void SaveToFile(std::string& Text) const;
    // Reads the block whose first line has been taken from Parser already. The store is expected
    // empty; a count or order out of range ends the reading.
    void LoadFromFile(clsParser& Parser);

private:
    static bool IsSlot(int Index) { return Index >= 1 && Index <= MaxFringes; }
    static std::size_t TickPlace(int Index, int Tick);
    // Searches Index by Order if it is NoFringe; whether Index is a slot then.
    bool FindSlot(int Order, int& Index) const;
    bool HasTick(int Index, int Tick) const { return Tick >= 1 && Tick <= m_numTicks[Index]; }
    std::span<Point> UsedTicks(int Index);
    int FindFreeSlot() const;
    void CopyFringe(int To, int From);
    void ClearFringe(int Index);
    void CloseGap(int Index);
    void CloseAllGaps();
    void DrawSlots(Device& On, const ImageMapping& Map, const TickStyle& Style, int ExceptIndex,
        int ExceptTick) const;

    class BlockReader;

    std::array<int, MaxFringes + 1> m_orders, m_numTicks; // from 1; order NoFringe: slot is free
    std::vector<Point> m_ticks; // MaxFringes rows of MaxTicks
    int m_numFringes = 0;
};

} // namespace morvane
