#include "views/qt/ProfileCanvas.h"

#include "platform/qt/QtDevice.h"

namespace morvane {
ProfileCanvas::ProfileCanvas()
{
    setObjectName("picProfile");
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ProfileCanvas::SetProfile(const ProfileData& Shown)
{
    m_hasData = LoadProfile(m_plot, Shown);
    Renew();
}

void ProfileCanvas::Renew()
{
    m_isCurrent = false;
    update();
}

void ProfileCanvas::resizeEvent(QResizeEvent*)
{
    Renew();
}

void ProfileCanvas::Draw()
{
    const double density = devicePixelRatioF();
    QtDevice device(m_client.Picture(), PenScaleOf(density));
    const DeviceRect client = device.Bounds();
    if (!m_hasData) {
        device.FillRectangle(client, ToColor(palette().color(QPalette::Button)));
        return;
    }
    device.FillRectangle(client, White);
    m_plot.Chart.SetTickMarkLengths(density);
    m_plot.Chart.CreateChartLimits(device, {0, 0, client.Right - 1, client.Bottom});
    m_plot.PlotRedraw(device);
}

void ProfileCanvas::paintEvent(QPaintEvent*)
{
    if (m_client.Fit(*this))
        m_isCurrent = false;
    if (m_client.IsNull())
        return;
    if (!m_isCurrent)
        Draw();
    m_isCurrent = true;
    m_client.ShowOn(*this);
}

} // namespace morvane
