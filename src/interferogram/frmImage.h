// The window of a document's interferogram.
#pragma once
#include "document/qt/ChildWindow.h"

namespace morvane {

class ImageCanvas;

class frmImage final : public ChildWindow, public ImageWindow {
public:
    frmImage(clsDocument& Of, Session& In);

    void SetCaption(const std::string& Caption) override { ShowCaption(Caption); }
    void Show(Activation How) override { ShowWindow(How); }
    void Hide() override { hide(); }
    void Raise() override { raise(); }
    WindowPlace GetPlace() const override { return NormalPlace(); }
    bool IsPlaced() const override { return StandsWherePut(); }
    void SetPlace(const WindowPlace& Place) override;
    void Repaint() override;
    void RefreshPicture() override;
    void RefreshContents() override;
    void ResizeWindow() override;
    void SizeWindow(int Width, int Height) override;
    RasterSize WindowSize() const override { return {width(), height()}; }
    MouseTools& Tools() override;
    int ZoomPercent() const override;
    void SetZoom(int Percent) override;

protected:
    void closeEvent(QCloseEvent* Event) override;

private:
    ImageCanvas* m_canvas; // owned by Qt
    bool m_hasGivenSize = false; // one that does not follow the picture
    bool m_isAsking = false; // whether to save, after its close box
};

} // namespace morvane
