// The client of an interferogram window: the picture at one logical pixel for each of its own, with
// aperture, obstruction and ticks over it, and scroll bars where the window is smaller. It is drawn
// into a picture of its own in physical pixels; the paint event only shows that.
#pragma once
#include <QAbstractScrollArea>
#include <QImage>

#include "document/clsDocument.h"

namespace morvane {

class ImageCanvas final : public QAbstractScrollArea {
public:
    explicit ImageCanvas(const clsDocument& Of, QWidget* Parent = nullptr);

    void SetPalette(const std::array<Color, 256>& Palette);
    // Size and scroll range follow the document's picture.
    void RefreshSize();
    // Draws anew with the next paint event.
    void Invalidate();

    // Such that the whole picture shows.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void scrollContentsBy(int DeltaX, int DeltaY) override;

private:
    QSize PictureSize() const;
    void Compose(double Zoom);
    void DrawPicture(Device& On, const ImageMapping& Map) const;
    void DrawOverlays(Device& On, const ImageMapping& Map) const;

    const clsDocument& m_document;
    std::array<Color, 256> m_palette{};
    QImage m_client; // physical pixels
    bool m_valid = false;
};

} // namespace morvane
