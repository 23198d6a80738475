#include "shell/qt/Screens.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>

namespace morvane {

ScreenMeasures Screens()
{
    const QSize desktop = QGuiApplication::primaryScreen()->virtualSize();
    const QStyle& style = *QApplication::style();
    const int frame = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int caption = style.pixelMetric(QStyle::PM_TitleBarHeight);
    return {.Width = desktop.width(),
        .Height = desktop.height(),
        .FrameStep = frame,
        .CaptionStep = frame + caption};
}

DeviceSize PhysicalSizeOf(const QScreen& Of)
{
    if (QGuiApplication::platformName() == "offscreen")
        return {1920, 1080};
    const QSizeF size = QSizeF(Of.size()) * Of.devicePixelRatio();
    return {qRound(size.width()), qRound(size.height())};
}

bool IsReachable(const QRect& Window)
{
    constexpr QSize grip(80, 20);
    const QRect edge(Window.topLeft(), QSize(Window.width(), grip.height()));
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect seen = edge & screen->availableGeometry();
        if (seen.width() >= grip.width() && seen.height() >= grip.height() / 2)
            return true;
    }
    return false;
}

} // namespace morvane
