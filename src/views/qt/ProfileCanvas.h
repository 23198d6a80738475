// The plot area of the line profile's window, drawn into a picture of its own in physical pixels.
#pragma once
#include <QWidget>

#include "platform/qt/ClientPicture.h"
#include "views/ProfileChart.h"

namespace morvane {

class ProfileCanvas final : public QWidget {
public:
    ProfileCanvas();

    void SetProfile(const ProfileData& Shown);
    // Draws anew with the next paint event.
    void Renew();

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;

private:
    void Draw();

    clsLineProfile m_plot;
    bool m_hasData = false;
    bool m_isCurrent = false; // m_client shows the present state
    ClientPicture m_client;
};

} // namespace morvane
