#include "shell/qt/WindowPlaces.h"

#include <algorithm>

namespace morvane {
namespace {

constexpr int Gap = 8;
constexpr int TitleBar = 28; // of a tool window: the window system may put it above the place
constexpr int SlotStep = 26, SlotSteps = 6; // a title bar; then from the corner again
constexpr QSize AberrationsSize(350, 310), ZernikesSize(290, 370), ProfileSize(460, 300);
constexpr int TextColumn = 350, AnalysisColumn = 300, ToolColumn = 220;
constexpr QSize LeastPictureRoom(480, 320);

int StepsTo(int slot)
{
    return std::max(0, slot - 1) % SlotSteps;
}

} // namespace

QRect PlaceInCascade(QSize WorkArea, QRect Room, QPoint Step, int Slot)
{
    const QRect moved = Room.translated(StepsTo(Slot) * Step);
    return {QPoint(std::clamp(moved.left(), 0, std::max(0, WorkArea.width() - Room.width())),
                std::clamp(moved.top(), 0, std::max(0, WorkArea.height() - Room.height()))),
        Room.size()};
}

QRect RoomForPicture(QSize WorkArea, int Slot)
{
    const int offset = StepsTo(Slot) * SlotStep;
    const QPoint corner(Gap + offset, Gap + offset);
    const QSize whole(WorkArea.width() - corner.x() - Gap, WorkArea.height() - corner.y() - Gap);
    const int besideTwo = whole.width() - TextColumn - AnalysisColumn - 2 * Gap;
    const int besideAll = besideTwo - ToolColumn - Gap;
    const int width = besideAll >= LeastPictureRoom.width() ? besideAll
        : besideTwo >= LeastPictureRoom.width()             ? besideTwo
                                                            : whole.width();
    return {corner, QSize(width, whole.height()).expandedTo({1, 1})};
}

QRect PlaceOfProfile(QSize WorkArea)
{
    const QSize size = ProfileSize.boundedTo(WorkArea - QSize(2 * Gap, 2 * Gap)).expandedTo({1, 1});
    return {QPoint(Gap, std::max(0, WorkArea.height() - Gap - size.height())), size};
}

QRect PlaceOfText(QSize WorkArea, ViewType Kind, QSize Needed)
{
    const bool aberrations = Kind == ViewType::Aberrations;
    const QSize whole = Needed.expandedTo(aberrations ? AberrationsSize : ZernikesSize);
    const QSize size = whole.boundedTo(WorkArea - QSize(2 * Gap, 2 * Gap)).expandedTo({1, 1});
    // The grid's results leave the title of the Zernikes free; where there is no room below the
    // aberrations, something of each shows on the left.
    const int step = Kind == ViewType::GridResults ? SlotStep : 0;
    const int top = aberrations ? Gap : Gap + AberrationsSize.height() + Gap + step;
    const int lowest = std::max(0, WorkArea.height() - size.height());
    const int aside = step + (top > lowest && !aberrations ? SlotStep : 0);
    const int left = WorkArea.width() - Gap - std::max(TextColumn, size.width()) - aside;
    return {QPoint(std::max(0, left), std::clamp(top, 0, lowest)), size};
}

QPoint PlaceOfAnalysis(QRect Area, QSize Wanted, QRect Room)
{
    const int inside = Area.width() - TextColumn - 2 * Gap - Wanted.width();
    const int outside = Area.width() + Gap;
    const bool fitsOutside = Area.left() + outside + Wanted.width() <= Room.right();
    const bool goesOutside = inside < LeastPictureRoom.width() && fitsOutside;
    const int lowest = Room.bottom() - Wanted.height() - TitleBar;
    return {Area.left() + (goesOutside ? outside : std::max(0, inside)),
        std::max(Room.top(), std::min(Area.top() + Gap + TitleBar, lowest))};
}

QPoint PlaceOfToolBox(QRect Frame, QRect Area, QRect Taken, QSize Wanted, QRect Room)
{
    const int top = Area.top() + Gap + TitleBar;
    const auto isFree = [&](int left) {
        const QRect box(QPoint(left, top), Wanted);
        return Room.contains(box) && !box.intersects(Taken);
    };
    const int outside = Frame.right() + Gap;
    const QRect column = Taken.isNull() ? QRect(Area.right() - TextColumn - Gap, top, 0, 0) : Taken;
    const int before = column.left() - Gap - Wanted.width(), after = column.right() + Gap;
    const bool leavesPicture = before - Area.left() >= LeastPictureRoom.width();
    for (const int left : {outside, leavesPicture ? before : after, after})
        if (isFree(left))
            return {left, top};
    return {Area.right() - Gap - Wanted.width(), top};
}

} // namespace morvane
