// A host for documents without a session: windows that only remember where they stand, no messages.
#pragma once
#include <cstdlib>
#include <memory>
#include <string>

#include "document/DocumentHost.h"

namespace morvane {

template <typename Window>
class PlainWindow : public Window {
public:
    void SetCaption(const std::string&) override { }
    WindowPlace GetPlace() const override { return m_place; }
    void SetPlace(const WindowPlace& Place) override { m_place = Place; }
    bool IsPlaced() const override { return true; }
    void Show(Activation) override { }
    void Hide() override { }
    void Raise() override { }
    void Repaint() override { }

private:
    WindowPlace m_place;
};

class PlainImageWindow final : public PlainWindow<ImageWindow> {
public:
    void RefreshPicture() override { }
    void RefreshContents() override { }
    void ResizeWindow() override { }
    void SizeWindow(int, int) override { }
    RasterSize WindowSize() const override { return {}; }
    [[noreturn]] MouseTools& Tools() override { std::abort(); } // nobody works in it
    int ZoomPercent() const override { return 100; }
    void SetZoom(int) override { }
};

class PlainTextWindow final : public PlainWindow<TextWindow> {
public:
    void SetText(const std::string&, const TextFont&, std::span<const int>) override { }
    std::string TextToCopy() const override { return {}; }
};

class PlainProfileWindow final : public PlainWindow<ProfileWindow> {
public:
    void SetProfile(const ProfileData&) override { }
};

class PlainHost final : public DocumentHost, public DocumentWindowFactory {
public:
    explicit PlainHost(const Preferences& Given = {}) : Prefs(Given) { }

    Preferences Prefs;
    bool RefuseOutputViews = false;

    Preferences& GetPreferences() override { return Prefs; }
    MessageAnswer ShowMessage(const std::string&, int, const std::string&) override
    {
        return MessageAnswer::Ok;
    }
    DocumentWindowFactory& Windows() override { return *this; }
    void ShowHourglass(bool) override { }

    std::unique_ptr<ImageWindow> CreateImageWindow(clsDocument&) override
    {
        return std::make_unique<PlainImageWindow>();
    }
    std::unique_ptr<TextWindow> CreateTextWindow(clsDocument&, ViewType) override
    {
        return RefuseOutputViews ? nullptr : std::make_unique<PlainTextWindow>();
    }
    std::unique_ptr<ProfileWindow> CreateProfileWindow(clsDocument&) override
    {
        return std::make_unique<PlainProfileWindow>();
    }
};

} // namespace morvane
