// The line profile of a document with the scroll bar that turns its line. Each step of the bar has
// the document compute the profile anew, and shows it at once.
#pragma once
#include "document/qt/ChildWindow.h"

class QScrollBar;

namespace morvane {

class ProfileCanvas;

class frmLineProfile final : public ChildWindow, public ProfileWindow {
public:
    frmLineProfile(clsDocument& Of, Session& In);

    void SetCaption(const std::string& Caption) override { ShowCaption(Caption); }
    void Show(Activation How) override { ShowWindow(How); }
    void Hide() override { HideWindow(); }
    void Raise() override { raise(); }
    WindowPlace GetPlace() const override { return NormalPlace(); }
    void SetPlace(const WindowPlace& Place) override { TakePlaceOrFindRoom(Place); }
    bool IsPlaced() const override { return StandsWherePut(); }
    void Repaint() override;
    void SetProfile(const ProfileData& Shown) override;

protected:
    QRect Room(QSize WorkArea) const override;

private:
    ProfileCanvas* m_canvas; // both owned by Qt
    QScrollBar* m_angle;
};

} // namespace morvane
