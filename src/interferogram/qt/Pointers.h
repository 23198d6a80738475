// The mouse pointers over an interferogram: black with a white edge, to be seen on dark and on
// bright fringes.
#pragma once
#include <QCursor>

#include "interferogram/ToolTables.h"

namespace morvane {

// Density is physical pixels per logical one of the screen that the pointer is on.
QCursor PointerFor(PointerShape Shape, double Density);

} // namespace morvane
