#include "interferogram/qt/Pointers.h"

namespace morvane {

QCursor PointerFor(PointerShape Shape, double)
{
    return Shape == PointerShape::Default ? Qt::ArrowCursor : Qt::CrossCursor;
}

} // namespace morvane
