// What a document asks of the windows that show it. The forms implement it, the frame makes them,
// tests install recorders. The document owns its windows, they refer back to it.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "document/Preferences.h"
#include "geometry/modRaster.h"

namespace morvane {

class clsDocument;
class MouseTools;

enum class Activation { TakeFocus, LeaveFocus };

class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;

    virtual void SetCaption(const std::string& Caption) = 0;
    virtual WindowPlace GetPlace() const = 0;
    virtual void SetPlace(const WindowPlace& Place) = 0;
    // Whether it stands where somebody put it, not where it found room itself.
    virtual bool IsPlaced() const = 0;
    // Neither moves nor resizes the window.
    virtual void Show(Activation How) = 0;
    virtual void Hide() = 0;
    // Above all other windows; the focus stays where it is.
    virtual void Raise() = 0;
    virtual void Repaint() = 0;
};

// The interferogram with aperture, obstruction, ticks and grid over it.
class ImageWindow : public DocumentWindow {
public:
    // The document's picture is another one, or there is none any more.
    virtual void RefreshPicture() = 0;
    // What lies on the picture is new: nothing of what was there can be dragged any more.
    virtual void RefreshContents() = 0;
    // Takes the size that suits the picture.
    virtual void ResizeWindow() = 0;
    // Takes this size where it stands; unlike a place, it may be larger than the desktop.
    virtual void SizeWindow(int Width, int Height) = 0;
    // As it is on the screen; the place is that of a normal window.
    virtual RasterSize WindowSize() const = 0;
    // The machine behind the mouse; it goes with the window.
    virtual MouseTools& Tools() = 0;
    virtual int ZoomPercent() const = 0;
    // One of the levels of the zoom box.
    virtual void SetZoom(int Percent) = 0;
};

// A read-only text with tab stops, in quarters of the font's average character width.
class TextWindow : public DocumentWindow {
public:
    virtual void SetText(
        const std::string& Text, const TextFont& Font, std::span<const int> TabStops) = 0;
    // What is selected, or all of it.
    virtual std::string TextToCopy() const = 0;
};

// The wavefront along a line through the center of the pupil.
struct ProfileData {
    std::span<const double> X; // -1 to 1
    std::span<const double> Y; // display units; NoData where there is no wavefront
    int Angle = 0; // degrees
    const char* Unit = ""; // the name of the display units
    double MinYSpan = 0; // of the scale, display units
    bool AutoScale = true; // otherwise ZMinimum to ZMaximum
    double ZMinimum = 0, ZMaximum = 1;
};

class ProfileWindow : public DocumentWindow {
public:
    // The data need not last.
    virtual void SetProfile(const ProfileData& Shown) = 0;
};

class DocumentWindowFactory {
public:
    virtual ~DocumentWindowFactory() = default;
    // Made hidden; nullptr if the window cannot be had.
    virtual std::unique_ptr<ImageWindow> CreateImageWindow(clsDocument& Of) = 0;
    virtual std::unique_ptr<TextWindow> CreateTextWindow(clsDocument& Of, ViewType Kind) = 0;
    virtual std::unique_ptr<ProfileWindow> CreateProfileWindow(clsDocument& Of) = 0;
};

} // namespace morvane
