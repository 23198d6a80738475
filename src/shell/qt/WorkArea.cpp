#include "shell/qt/WorkArea.h"

#include <QPainter>

#include "document/qt/ChildWindow.h"
#include "shell/qt/Appearance.h"
#include "shell/qt/WindowPlaces.h"

namespace morvane {

WorkArea::WorkArea(QWidget* Parent) : QMdiArea(Parent)
{
    setFrameShape(QFrame::NoFrame);
    setBackground(WorkAreaColor);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
}

void WorkArea::resizeEvent(QResizeEvent* Event)
{
    QMdiArea::resizeEvent(Event);
    for (ChildWindow* const window : ChildWindowsIn(*this))
        window->FollowFrame();
}

void WorkArea::paintEvent(QPaintEvent* Event)
{
    QMdiArea::paintEvent(Event);
    if (!subWindowList().isEmpty())
        return;
    QPainter painter(viewport());
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    painter.setFont(font);
    painter.setPen(WorkAreaColor.darker(170));
    painter.drawText(RoomForPicture(viewport()->size(), 1), Qt::AlignCenter,
        tr("Open an interferogram with File, Open,\nor drop its picture here."));
}

} // namespace morvane
