#include "interferogram/frmImage.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QPointer>
#include <QStyle>

#include "document/Dib.h"
#include "interferogram/qt/ImageCanvas.h"
#include "shell/qt/WindowPlaces.h"

namespace morvane {

frmImage::frmImage(clsDocument& Of, Session& In)
    : ChildWindow(Of, ViewType::Interferogram, In), m_canvas(new ImageCanvas(Of))
{
    setObjectName("frmImage");
    setWidget(m_canvas);
}

void frmImage::Repaint()
{
    m_canvas->Invalidate();
}

void frmImage::RefreshPicture()
{
    const Preferences& preferences = m_session.GetPreferences();
    m_canvas->SetPalette(BuildDisplayPalette(
        preferences.RedDisplay, preferences.AutoStretch, m_document.Image().Pixels));
    m_canvas->RefreshSize();
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
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QSize wanted = sizeHint();
    if (wanted.width() > room.width())
        wanted.rheight() += bar;
    if (wanted.height() > room.height())
        wanted.rwidth() += bar;
    setGeometry(QRect(isVisible() ? pos() : room.topLeft(), wanted.boundedTo(room.size())));
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
