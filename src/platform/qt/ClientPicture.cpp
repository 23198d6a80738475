#include "platform/qt/ClientPicture.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"

namespace morvane {
namespace {

constexpr double DotsPerInch = 96, InchesPerMeter = 1 / 0.0254; // of a logical pixel

} // namespace

int PenScaleOf(double Density)
{
    return std::max(1, RoundToLong(Density));
}

Color ToColor(const QColor& Of)
{
    return {static_cast<std::uint8_t>(Of.red()), static_cast<std::uint8_t>(Of.green()),
        static_cast<std::uint8_t>(Of.blue())};
}

QSize PhysicalSize(const QWidget& Of)
{
    const double density = Of.devicePixelRatioF();
    return {static_cast<int>(std::ceil(Of.width() * density)),
        static_cast<int>(std::ceil(Of.height() * density))};
}

bool ClientPicture::Fit(const QWidget& To)
{
    const QSize size = PhysicalSize(To);
    if (m_picture.size() == size)
        return false;
    m_picture = QImage(size, QImage::Format_RGB32);
    const int dots = RoundToLong(DotsPerInch * To.devicePixelRatioF() * InchesPerMeter);
    m_picture.setDotsPerMeterX(dots);
    m_picture.setDotsPerMeterY(dots);
    return true;
}

void ClientPicture::ShowOn(QWidget& Shown) const
{
    const QSizeF logical = QSizeF(m_picture.size()) / Shown.devicePixelRatioF();
    QPainter(&Shown).drawImage(QRectF(QPointF(0, 0), logical), m_picture);
}

} // namespace morvane
