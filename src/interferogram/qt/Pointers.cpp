#include "interferogram/qt/Pointers.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <map>
#include <utility>

namespace morvane {
namespace {

constexpr int Extent = 32; // of a drawing, logical pixels

struct Drawing {
    const char* Name;
    QPoint HotSpot; // logical pixels
};

Drawing DrawingOf(PointerShape Shape)
{
    constexpr QPoint center(16, 16), tip(5, 4);
    switch (Shape) {
    case PointerShape::Default:
        break;
    case PointerShape::AddShape:
        return {"add-shape", center};
    case PointerShape::SelectFringe:
        return {"select-fringe", tip};
    case PointerShape::ClearFringe:
        return {"clear-fringe", tip};
    case PointerShape::MoveShape:
        return {"move-shape", center};
    case PointerShape::MoveShapeOrtho:
        return {"move-shape-ortho", center};
    case PointerShape::ResizeShape:
        return {"resize-shape", center};
    case PointerShape::RotateShape:
        return {"rotate-shape", center};
    case PointerShape::Hand:
        return {"hand", center};
    case PointerShape::ZoomIn:
        return {"zoom-in", center};
    case PointerShape::ZoomOut:
        return {"zoom-out", center};
    }
    return {};
}

// X11 is handed picture and hot spot as they stand, in physical pixels: without a ratio of its own
// the picture's pixels are the hot spot's.
double RatioFor(double Density)
{
    return QGuiApplication::platformName() == "xcb" ? 1.0 : Density;
}

QCursor MakePointer(PointerShape Shape, double Density)
{
    if (Shape == PointerShape::Default)
        return {};
    const auto [name, hotSpot] = DrawingOf(Shape);
    QPixmap picture(QSize(Extent, Extent) * Density);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(QString(":/pointers/%1.svg").arg(name)).render(&painter);
    painter.end();
    picture.setDevicePixelRatio(RatioFor(Density));
    const QPoint at = hotSpot * (Density / RatioFor(Density));
    return QCursor(picture, at.x(), at.y());
}

} // namespace

QCursor PointerFor(PointerShape Shape, double Density)
{
    static std::map<std::pair<PointerShape, double>, QCursor> made;
    const auto found = made.find({Shape, Density});
    if (found != made.end())
        return found->second;
    return made[{Shape, Density}] = MakePointer(Shape, Density);
}

} // namespace morvane
