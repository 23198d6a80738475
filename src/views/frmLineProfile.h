// The line profile of a document with the scroll bar that turns its line. Each step of the bar has
// the document compute the profile anew, and shows it at once.
#pragma once
#include "document/qt/OutputView.h"

class QScrollBar;

namespace morvane {

class ProfileCanvas;

class frmLineProfile final : public OutputView<ProfileWindow> {
public:
    frmLineProfile(clsDocument& Of, Session& In);

    void Repaint() override;
    void SetProfile(const ProfileData& Shown) override;

protected:
    QRect Room(QSize WorkArea) const override;

private:
    ProfileCanvas* m_canvas; // both owned by Qt
    QScrollBar* m_angle;
};

} // namespace morvane
