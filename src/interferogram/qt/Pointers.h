#pragma once
#include <QCursor>

#include "interferogram/ToolTables.h"

namespace morvane {

QCursor PointerFor(PointerShape Shape, double Density);

} // namespace morvane
