#include "interferogram/qt/ImageCanvas.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "document/Dib.h"
#include "interferogram/qt/Pointers.h"
#include "platform/Numbers.h"
#include "platform/qt/QtDevice.h"

namespace morvane {
namespace {

constexpr double ScrollStep = 24; // of the arrows and of a line of the wheel, logical pixels
constexpr int WheelStep = 120; // of a usual wheel

int ShiftOf(Qt::KeyboardModifiers keys)
{
    return (keys & Qt::ShiftModifier ? ShiftKey : 0) | (keys & Qt::ControlModifier ? ControlKey : 0)
        | (keys & Qt::AltModifier ? AltKey : 0);
}

} // namespace

ImageCanvas::ImageCanvas(clsDocument& Of, Session& In)
    : m_document(Of), m_session(In), m_painter(Of, m_viewport, In.Tools),
      m_tools(Of, m_viewport, In.Tools, *this)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    horizontalScrollBar()->setObjectName("hsbImage");
    verticalScrollBar()->setObjectName("vsbImage");
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
}

RasterSize ImageCanvas::PictureSize() const
{
    const RasterSize size = m_document.GetImageSize();
    return size.Width == NoSize || size.Height == NoSize ? RasterSize{} : size;
}

QSize ImageCanvas::sizeHint() const
{
    const RasterSize picture = PictureSize();
    const double zoom = m_viewport.ZoomPercent() / 100.0;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    if (picture.Width == 0 || picture.Height == 0)
        return {400, 300};
    return {RoundToLong(picture.Width * zoom) + bar, RoundToLong(picture.Height * zoom) + bar};
}

void ImageCanvas::RefreshPicture()
{
    const Preferences& preferences = m_session.GetPreferences();
    m_painter.SetDisplay(BuildDisplayPalette(preferences.RedDisplay, preferences.AutoStretch,
                             m_document.Image().Pixels),
        ToColor(palette().color(QPalette::Button)));
    m_tools.Forget();
    Layout();
    if (IsActive()) // what it told of the picture before
        ShowPosition("", "");
}

void ImageCanvas::SetZoom(int Percent)
{
    m_tools.EndPan();
    m_viewport.SetZoomPercent(Percent);
    Layout();
}

void ImageCanvas::Layout()
{
    const QSize client = PhysicalSize(*viewport());
    m_density = devicePixelRatioF();
    m_viewport.Layout(client.width(), client.height(), m_density, PictureSize());
    m_painter.SetDensity(m_density);
    ShowScrollBars();
    Repaint();
}

void ImageCanvas::ShowScrollBars()
{
    const QScopedValueRollback showing(m_isShowingBars, true);
    const auto show = [this](QScrollBar& bar, const ScrollBar& state, int client) {
        bar.setRange(0, std::max(0, state.Max));
        bar.setPageStep(std::max(1, RoundToLong(client * m_viewport.InvZoom())));
        bar.setSingleStep(std::max(1, RoundToLong(ScrollStep * m_density * m_viewport.InvZoom())));
        bar.setValue(state.Value);
        bar.setEnabled(state.Enabled);
    };
    show(*horizontalScrollBar(), m_viewport.Horizontal(), m_viewport.ClientWidth());
    show(*verticalScrollBar(), m_viewport.Vertical(), m_viewport.ClientHeight());
}

bool ImageCanvas::IsActive() const
{
    return m_session.Active() == &m_document;
}

void ImageCanvas::Repaint()
{
    m_isCurrent = false;
    viewport()->update();
}

// On the client as it is; one that is not current is drawn anew anyway.
template <typename Drawing>
void ImageCanvas::DrawNow(Drawing Draw)
{
    if (!m_isCurrent || m_client.IsNull())
        return;
    QtDevice device(m_client.Picture(), PenScaleOf(m_density));
    Draw(device);
    UpdateBox(device.Touched());
}

void ImageCanvas::UpdateBox(const DeviceRect& Box)
{
    if (Box.Width() == 0)
        return;
    const QRectF box(Box.Left, Box.Top, Box.Width(), Box.Height());
    viewport()->update(QRectF(box.topLeft() / m_density, box.size() / m_density).toAlignedRect());
}

void ImageCanvas::XorSelected()
{
    DrawNow([this](Device& on) { m_painter.DrawSelected(on, m_tools.Selected()); });
}

void ImageCanvas::DrawClickMark(Point Image)
{
    DrawNow([&](Device& on) { m_painter.DrawClickMark(on, Image); });
}

void ImageCanvas::ShowPointer(PointerShape Shape)
{
    if (Shape == m_pointer)
        return;
    m_pointer = Shape;
    viewport()->setCursor(PointerFor(Shape, devicePixelRatioF()));
}

void ImageCanvas::ShowHint(std::string_view Hint)
{
    if (IsActive())
        m_session.Frame().ShowHint(std::string(Hint));
}

void ImageCanvas::ShowPosition(const std::string& Position, const std::string& Intensity)
{
    m_session.Frame().ShowPosition(Position, Intensity);
}

void ImageCanvas::Scrolled()
{
    ShowScrollBars();
    Repaint();
}

void ImageCanvas::ZoomTo(int Percent)
{
    SetZoom(Percent);
    m_session.Frame().UpdateMainFrame();
}

void ImageCanvas::ShowPopup(const FringePopup& Menu)
{
    m_session.Frame().ShowFringePopup(Menu);
}

void ImageCanvas::SelectOrder(int Order)
{
    m_session.SelectOrder(Order);
}

void ImageCanvas::MarkChanges()
{
    m_session.Frame().UpdateMainFrame();
}

void ImageCanvas::paintEvent(QPaintEvent*)
{
    if (m_density != devicePixelRatioF()) {
        viewport()->setCursor(PointerFor(m_pointer, devicePixelRatioF()));
        Layout();
    }
    if (m_client.Fit(*viewport()))
        m_isCurrent = false;
    if (m_client.IsNull())
        return;
    if (!m_isCurrent) {
        QtDevice device(m_client.Picture(), PenScaleOf(m_density));
        m_painter.Paint(device, m_tools);
        m_isCurrent = true;
    }
    m_client.ShowOn(*viewport());
}

void ImageCanvas::resizeEvent(QResizeEvent*)
{
    Layout();
}

void ImageCanvas::scrollContentsBy(int, int)
{
    if (m_isShowingBars)
        return;
    m_tools.EndPan();
    m_viewport.ScrollTo(horizontalScrollBar()->value(), verticalScrollBar()->value());
    Repaint();
}

void ImageCanvas::mousePressEvent(QMouseEvent* Event)
{
    m_document.ImageView()->Raise();
    const QPointF at = Event->position() * m_density;
    const int shift = ShiftOf(Event->modifiers());
    if (Event->button() == Qt::LeftButton)
        m_tools.Press(MouseButton::Left, at.x(), at.y(), shift);
    else if (Event->button() == Qt::RightButton)
        m_tools.Press(MouseButton::Right, at.x(), at.y(), shift);
}

// The second of two quick clicks is a click like any other.
void ImageCanvas::mouseDoubleClickEvent(QMouseEvent* Event)
{
    mousePressEvent(Event);
}

void ImageCanvas::mouseMoveEvent(QMouseEvent* Event)
{
    const QPointF at = Event->position() * m_density;
    m_tools.Move(at.x(), at.y(), Event->buttons() & Qt::LeftButton, ShiftOf(Event->modifiers()));
}

void ImageCanvas::mouseReleaseEvent(QMouseEvent* Event)
{
    m_tools.Release(Event->button() == Qt::LeftButton ? MouseButton::Left : MouseButton::Right,
        ShiftOf(Event->modifiers()));
}

// The right button has its own event; this is the menu key, at the mouse.
void ImageCanvas::contextMenuEvent(QContextMenuEvent* Event)
{
    Event->accept();
    if (Event->reason() != QContextMenuEvent::Keyboard)
        return;
    const QPointF at = QPointF(viewport()->mapFromGlobal(QCursor::pos())) * m_density;
    m_tools.Press(MouseButton::Right, at.x(), at.y(), 0);
}

void ImageCanvas::wheelEvent(QWheelEvent* Event)
{
    if (!(Event->modifiers() & Qt::ControlModifier)) {
        m_wheel = 0;
        QAbstractScrollArea::wheelEvent(Event);
        return;
    }
    Event->accept();
    m_wheel += Event->angleDelta().y();
    if (std::abs(m_wheel) < WheelStep)
        return;
    const QPointF at = Event->position() * m_density;
    m_tools.ZoomAt(at.x(), at.y(), m_wheel > 0 ? ZoomStep::In : ZoomStep::Out);
    m_wheel = 0;
}

void ImageCanvas::keyPressEvent(QKeyEvent* Event)
{
    m_tools.KeysChanged(ShiftOf(Event->modifiers()));
    if (Event->key() == Qt::Key_Escape)
        m_tools.StopDrawingObject();
    else if (Event->key() != Qt::Key_Space)
        QAbstractScrollArea::keyPressEvent(Event);
}

// Keys may have gone down or up while another window had the focus.
void ImageCanvas::focusInEvent(QFocusEvent* Event)
{
    QAbstractScrollArea::focusInEvent(Event);
    m_tools.KeysChanged(ShiftOf(QGuiApplication::keyboardModifiers()));
}

// A key held down repeats its release too, which is none.
void ImageCanvas::keyReleaseEvent(QKeyEvent* Event)
{
    const int shift = ShiftOf(Event->modifiers());
    m_tools.KeysChanged(shift);
    if (Event->key() == Qt::Key_Space && !Event->isAutoRepeat())
        m_tools.SpaceKey(shift);
}

} // namespace morvane
