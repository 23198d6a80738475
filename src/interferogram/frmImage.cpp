#include "interferogram/frmImage.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QPointer>

#include "interferogram/qt/ImageCanvas.h"
#include "shell/qt/WindowPlaces.h"

namespace morvane {

frmImage::frmImage(clsDocument& Of, Session& In)
    : ChildWindow(Of, ViewType::Interferogram, In), m_canvas(new ImageCanvas(Of, In))
{
    setObjectName("frmImage");
    setWidget(m_canvas);
}

void frmImage::Repaint()
{
    m_canvas->Repaint();
}

void frmImage::RefreshPicture()
{
    m_canvas->RefreshPicture();
}

void frmImage::RefreshContents()
{
    Tools().Forget();
    Repaint();
}

MouseTools& frmImage::Tools()
{
    return m_canvas->Tools();
}

int frmImage::ZoomPercent() const
{
    return m_canvas->ZoomPercent();
}

void frmImage::SetZoom(int Percent)
{
    m_canvas->SetZoom(Percent);
}

void frmImage::SetPlace(const WindowPlace& Place)
{
    TakePlace(Place);
    m_hasGivenSize = true;
}

void frmImage::ResizeWindow()
{
    if (m_hasGivenSize || isMaximized() || isMinimized() || !mdiArea())
        return;
    const QRect room = RoomForPicture(mdiArea()->size(), m_document.DocNumber);
    setGeometry(QRect(isVisible() ? pos() : room.topLeft(), sizeHint().boundedTo(room.size())));
}

void frmImage::SizeWindow(int Width, int Height)
{
    if (isMaximized() || isMinimized())
        showNormal();
    const WindowPlace place = NormalPlace();
    TakeGeometry({place.Left, place.Top, Width, Height});
}

// The document destroys this window, which must not happen inside its own event.
void frmImage::closeEvent(QCloseEvent* Event)
{
    Event->ignore();
    if (m_isAsking)
        return;
    m_isAsking = true;
    QMetaObject::invokeMethod(
        mdiArea(),
        [window = QPointer(this), &session = m_session,
            document = std::weak_ptr(m_session.SharedDocument(m_document.DocNumber))] {
            if (const auto closed = document.lock())
                session.CloseAsking(*closed);
            if (window)
                window->m_isAsking = false;
        },
        Qt::QueuedConnection);
}

} // namespace morvane
