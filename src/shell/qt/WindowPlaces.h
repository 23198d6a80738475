// Where the windows of a document first appear in the main window, so that none covers another
// while there is room: the picture on the left, tool box and analysis window beside it, the texts
// in a column on the right. In logical pixels of the work area where nothing else is said.
#pragma once
#include <QRect>

#include "document/DocumentWindows.h"

namespace morvane {

// Windows of later slots begin a step further right and down.
QRect RoomForPicture(QSize WorkArea, int Slot);

// Needed is the size at which the whole text shows.
QRect PlaceOfText(QSize WorkArea, ViewType Kind, QSize Needed);

// Room moved on by steps from slot to slot, from the start again before it gets far, and never out
// of the area.
QRect PlaceInCascade(QSize WorkArea, QRect Room, QPoint Step, int Slot);

// In the lower left corner: below the picture, if that is small.
QRect PlaceOfProfile(QSize WorkArea);

// Area and Room, the screen's, in the screen's coordinates, as is the result: beside the texts, or
// to the right of an area that is too narrow for all, and whole on the screen.
QPoint PlaceOfAnalysis(QRect Area, QSize Wanted, QRect Room);

// Frame is the main window's, Taken the analysis window's or none, all in the screen's coordinates:
// to the right of the main window if there is room on the screen; else beside the analysis window
// or the texts, where it leaves room for the picture; else inside, at the right edge.
QPoint PlaceOfToolBox(QRect Frame, QRect Area, QRect Taken, QSize Wanted, QRect Room);

} // namespace morvane
