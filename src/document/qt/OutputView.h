// A window of the results: an output view in the frame, for the interface Window of one kind.
#pragma once
#include "document/qt/ChildWindow.h"

namespace morvane {

template <typename Window>
class OutputView : public ChildWindow, public Window {
public:
    using ChildWindow::ChildWindow;

    void SetCaption(const std::string& Caption) final { ShowCaption(Caption); }
    void Show(Activation How) final { ShowWindow(How); }
    void Hide() final { HideWindow(); }
    void Raise() final { raise(); }
    WindowPlace GetPlace() const final { return NormalPlace(); }
    void SetPlace(const WindowPlace& Place) final { TakePlaceOrFindRoom(Place); }
    bool IsPlaced() const final { return StandsWherePut(); }
};

} // namespace morvane
