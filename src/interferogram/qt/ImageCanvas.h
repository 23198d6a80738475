// The client of an interferogram window with its scroll bars: events go to the mouse tools, what
// they tell goes on the screen and to the session. The client is a picture of its own in physical
// pixels; tools draw on it at any time, the paint event only shows it.
#pragma once
#include <QAbstractScrollArea>

#include "interferogram/ImagePainter.h"
#include "platform/qt/ClientPicture.h"
#include "shell/modMain.h"

namespace morvane {

class ImageCanvas final : public QAbstractScrollArea, public ToolsHost {
public:
    ImageCanvas(clsDocument& Of, Session& In);

    MouseTools& Tools() { return m_tools; }
    int ZoomPercent() const { return m_viewport.ZoomPercent(); }
    // Zoom and scroll range follow.
    void SetZoom(int Percent);
    // The document's picture is another one.
    void RefreshPicture();

    // Such that the whole picture shows at the present zoom.
    QSize sizeHint() const override;

    // --- ToolsHost
    bool IsActive() const override;
    void Repaint() override;
    void XorSelected() override;
    void DrawClickMark(Point Image) override;
    void ShowPointer(PointerShape Shape) override;
    void ShowHint(std::string_view Hint) override;
    void ShowPosition(const std::string& Position, const std::string& Intensity) override;
    void Scrolled() override;
    void ZoomTo(int Percent) override;
    void ShowPopup(const FringePopup& Menu) override;
    void SelectOrder(int Order) override;
    void MarkChanges() override;

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void scrollContentsBy(int DeltaX, int DeltaY) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;
    void contextMenuEvent(QContextMenuEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void keyReleaseEvent(QKeyEvent* Event) override;
    void focusInEvent(QFocusEvent* Event) override;

private:
    RasterSize PictureSize() const;
    void Layout();
    void ShowScrollBars();
    void UpdateBox(const DeviceRect& Box);
    template <typename Drawing>
    void DrawNow(Drawing Draw);

    clsDocument& m_document;
    Session& m_session;
    ImageViewport m_viewport;
    ImagePainter m_painter;
    MouseTools m_tools;
    ClientPicture m_client;
    double m_density = 1; // of the layout
    bool m_isCurrent = false; // the client shows the present state
    bool m_isShowingBars = false; // their signals say nothing new
    PointerShape m_pointer = PointerShape::Default;
    int m_wheel = 0; // turned so far towards a zoom step
};

} // namespace morvane
