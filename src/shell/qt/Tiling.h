// Fills an area with its windows, none over another.
#pragma once
#include <Qt>

class QMdiArea;

namespace morvane {

// Up to three windows lie one below the other (Qt::Horizontal) or side by side (Qt::Vertical); more
// make further columns or rows.
void Tile(QMdiArea& Area, Qt::Orientation Direction);

} // namespace morvane
