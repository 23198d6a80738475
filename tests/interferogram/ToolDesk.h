// A document with its mouse tools on a host that records what it is told. At 100% and not scrolled,
// so that client positions are image positions until a test changes it.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "PlainHost.h"
#include "interferogram/MouseTools.h"

namespace morvane {

class ToolDesk final : public ToolsHost {
    PlainHost m_host;

public:
    static constexpr RasterSize Picture{640, 480}, Client{400, 300};

    clsDocument Document{m_host};
    ImageViewport View;
    ToolBox Box;
    MouseTools Tools{Document, View, Box, *this};

    bool Active = true;
    std::optional<PointerShape> Pointer;
    std::string Hint, Position, Intensity;
    std::vector<Point> Marks;
    std::vector<int> Orders, Zooms;
    std::vector<ObjectType> Xors; // what was selected then
    std::optional<FringePopup> Popup;
    int Repaints = 0, Scrolls = 0, Changes = 0;

    ToolDesk()
    {
        Document.LoadBlankImage(Picture.Width, Picture.Height);
        View.Layout(Client.Width, Client.Height, 1, Picture);
        Document.Grid.PhysicalWidth = 100;
        Document.Grid.CellWidth = 10;
        Document.Grid.CellHeight = 5;
        BeClean();
    }
    // As just saved, analysed and with its mask.
    void BeClean()
    {
        Document.Modified = false;
        Document.AnalysisValid = Document.Analysis.Mask.MaskValid = true;
        Changes = 0;
    }

    void Down(double X, double Y, int Shift = 0) { Tools.Press(MouseButton::Left, X, Y, Shift); }
    void Drag(double X, double Y, int Shift = 0) { Tools.Move(X, Y, true, Shift); }
    void Up(int Shift = 0) { Tools.Release(MouseButton::Left, Shift); }
    void Hover(double X, double Y, int Shift = 0) { Tools.Move(X, Y, false, Shift); }
    void Click(Point At, int Shift = 0)
    {
        Down(At.X, At.Y, Shift);
        Up(Shift);
    }
    void Click(std::span<const Point> Points)
    {
        for (const Point& at : Points)
            Click(at);
    }
    Point Tick(int Order, int Tick) const
    {
        int index = NoFringe;
        return Document.Fringes.GetCenter(Order, Tick, index);
    }
    // -1 without such a fringe.
    int NumTicks(int Order) const
    {
        int index = NoFringe;
        const int count = Document.Fringes.GetNumTicks(Order, index);
        return count == NoFringe ? -1 : count;
    }

    bool IsActive() const override { return Active; }
    void Repaint() override { ++Repaints; }
    void XorSelected() override { Xors.push_back(Tools.Selected().Type); }
    void DrawClickMark(Point Image) override { Marks.push_back(Image); }
    void ShowPointer(PointerShape Shape) override { Pointer = Shape; }
    void ShowHint(std::string_view Text) override { Hint = Text; }
    void ShowPosition(const std::string& At, const std::string& Value) override
    {
        Position = At;
        Intensity = Value;
    }
    void Scrolled() override { ++Scrolls; }
    void ZoomTo(int Percent) override
    {
        Zooms.push_back(Percent);
        View.SetZoomPercent(Percent);
        View.Layout(Client.Width, Client.Height, 1, Document.GetImageSize());
    }
    void ShowPopup(const FringePopup& Menu) override { Popup = Menu; }
    void SelectOrder(int Order) override { Orders.push_back(Order); }
    void MarkChanges() override { ++Changes; }
};

} // namespace morvane
