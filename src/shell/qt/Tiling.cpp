#include "shell/qt/Tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <cmath>

namespace morvane {
namespace {

QList<QMdiSubWindow*> TiledWindows(const QMdiArea& Area)
{
    QList<QMdiSubWindow*> tiled;
    for (QMdiSubWindow* const window : Area.subWindowList())
        if (window->isVisible() && !window->isMinimized())
            tiled.append(window);
    return tiled;
}

} // namespace

void Tile(QMdiArea& Area, Qt::Orientation Direction)
{
    const QList<QMdiSubWindow*> windows = TiledWindows(Area);
    const int count = static_cast<int>(windows.size());
    const int lines = static_cast<int>(std::sqrt(count));
    const bool below = Direction == Qt::Horizontal;
    const QSize room = Area.viewport()->size();
    const int across = below ? room.width() : room.height();
    const int along = below ? room.height() : room.width();

    // The last lines take one window more where the count does not divide.
    for (int line = 0, next = 0; line < lines; ++line) {
        const int members = (count - next) / (lines - line);
        const int start = across * line / lines, end = across * (line + 1) / lines;
        for (int i = 0; i < members; ++i) {
            const int from = along * i / members, to = along * (i + 1) / members;
            QMdiSubWindow& window = *windows[next + i];
            if (window.isMaximized())
                window.showNormal();
            window.setGeometry(below ? QRect(start, from, end - start, to - from)
                                     : QRect(from, start, to - from, end - start));
        }
        next += members;
    }
}

void ArrangeIcons(QMdiArea& Area)
{
    const QSize room = Area.viewport()->size();
    QPoint corner(0, room.height()); // lower left
    for (QMdiSubWindow* const window : Area.subWindowList()) {
        if (!window->isVisible() || !window->isMinimized())
            continue;
        if (corner.x() > 0 && corner.x() + window->width() > room.width())
            corner = {0, corner.y() - window->height()};
        window->move(corner.x(), corner.y() - window->height());
        corner.rx() += window->width();
    }
}

} // namespace morvane
