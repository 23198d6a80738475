// Fills an area with its windows, none over another, and lines up the minimised ones.
#pragma once
#include <Qt>

class QMdiArea;

namespace morvane {

// Up to three windows lie one below the other (Qt::Horizontal) or side by side (Qt::Vertical); more
// make further columns or rows.
void Tile(QMdiArea& Area, Qt::Orientation Direction);

// The minimised windows in rows along the lower edge, from the left.
void ArrangeIcons(QMdiArea& Area);

} // namespace morvane
