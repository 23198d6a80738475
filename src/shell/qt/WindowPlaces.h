// Where the windows of a document first appear in the main window, so that none covers another
// while there is room: the picture on the left, the analysis window beside it, the texts in a
// column on the right. All in logical pixels of the work area.
#pragma once
#include <QRect>

#include "document/DocumentWindows.h"

namespace morvane {

// Windows of later slots begin a step further right and down.
QRect RoomForPicture(QSize WorkArea, int Slot);

// Needed is the size at which the whole text shows.
QRect PlaceOfText(QSize WorkArea, ViewType Kind, QSize Needed);

QPoint PlaceOfAnalysis(QSize WorkArea, QSize Wanted);

} // namespace morvane
