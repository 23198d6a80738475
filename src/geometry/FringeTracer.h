// Finds the fringes of a field: scans every so many rows for valleys, follows each up and down and
// drops ticks at a set spacing.
//
// There is no list of valleys that have been visited. A trace that starts in one stops at its
// first tick, next to the fringe traced before, remains too short and is thrown away.
#pragma once
#include "geometry/TickIndex.h"
#include "geometry/ValleyField.h"
#include "geometry/clsFringes.h"
#include "geometry/modTrace.h"

namespace morvane {

class FringeTracer {
public:
    // Fringes must be empty. It and Field must outlive the tracer.
    FringeTracer(clsFringes& Fringes, const ValleyField& Field, const TraceParameters& Parameters);

    // Gives the fringes orders from 1 as they are found. False if there are more than MaxFringes;
    // those found before stay.
    bool ScanRows();

private:
    bool ScanRow(int row);
    bool TraceValley(PixelPosition seed);
    bool TraceFringe(PixelPosition seed);
    void Follow(PixelPosition from, int rowStep, PixelPosition lastTick);
    bool IsFarEnough(PixelPosition at, PixelPosition lastTick) const;
    void AddTick(PixelPosition at);
    int NumTicks() const { return static_cast<int>(m_fringes.Ticks(m_slot).size()); }

    clsFringes& m_fringes;
    const ValleyField& m_field;
    TraceParameters m_parameters;
    TickIndex m_ticks;
    int m_order = 1; // of the fringe being traced, and its slot in the store
    int m_slot = NoFringe;
};

} // namespace morvane
