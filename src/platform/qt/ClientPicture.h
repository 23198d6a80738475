// The picture of a widget's client in physical pixels. What is drawn on it at any time is shown by
// the next paint event.
#pragma once
#include <QImage>

#include "platform/Device.h"

class QColor;
class QWidget;

namespace morvane {

// Widths of pens for a screen of Density physical pixels a logical one.
int PenScaleOf(double Density);
Color ToColor(const QColor& Of);

class ClientPicture {
public:
    // Takes the size of the widget. True if it has another one than before and is empty now.
    bool Fit(const QWidget& To);
    bool IsNull() const { return m_picture.isNull(); }
    QImage& Picture() { return m_picture; }
    void ShowOn(QWidget& Shown) const;

private:
    QImage m_picture;
};

// In physical pixels; a fraction of one counts.
QSize PhysicalSize(const QWidget& Of);

} // namespace morvane
