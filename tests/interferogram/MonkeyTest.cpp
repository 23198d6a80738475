// Whatever comes in whatever order, nothing that the tools work on leaves its limits.
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "RecordingDevice.h"
#include "ToolDesk.h"
#include "interferogram/ImagePainter.h"

namespace morvane {
namespace {

constexpr int NumSteps = 100'000;

class ClientDevice final : public RecordingDevice {
public:
    DeviceRect Bounds() const override { return {0, 0, 400, 300}; }
};

class Monkey {
public:
    void Step()
    {
        const int kind = Pick(100);
        const Point at = Place();
        if (kind < 48)
            m_desk.Tools.Move(at.X, at.Y, Pick(4) > 0, Keys());
        else if (kind < 70)
            m_desk.Tools.Press(
                Pick(20) ? MouseButton::Left : MouseButton::Right, at.X, at.Y, Keys());
        else if (kind < 85)
            Release();
        else if (kind < 88)
            m_desk.Tools.KeysChanged(Keys());
        else if (kind < 90)
            m_desk.Tools.SpaceKey(Keys());
        else if (kind < 96)
            Command();
        else
            World();
        m_desk.Marks.clear();
        m_desk.Xors.clear();
        for (; !m_desk.Orders.empty(); m_desk.Orders.pop_back())
            m_desk.Box.SetOrder(std::clamp(m_desk.Orders.back(), 1, MaxFringes));
    }

    void Check() const
    {
        CheckFringes();
        CheckShape(m_desk.Document.Aperture);
        CheckShape(m_desk.Document.Obstruction);
        CheckBar(m_desk.View.Horizontal());
        CheckBar(m_desk.View.Vertical());
        ASSERT_LE(m_desk.Tools.Clicks().size(), 50u);
        const clsGrid& grid = m_desk.Document.Grid;
        ASSERT_TRUE(std::isfinite(grid.UpperLeftX) && std::isfinite(grid.UpperLeftY));
        ASSERT_TRUE(std::isfinite(grid.PixelWidth) && std::isfinite(grid.PixelHeight));
        ASSERT_TRUE(grid.CellCountX >= 0 && grid.CellCountX <= 10);
        ASSERT_GE(grid.CellCountY, 0);
        ASSERT_LE(grid.CellCountY * grid.PixelWidth / 20, grid.PixelHeight + 1) << "rows that fit";
    }

private:
    int Pick(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    int Order() { return Pick(3) ? 1 + Pick(8) : Pick(205) - 2; }
    // Anywhere, and as often where there is something to take hold of.
    Point Place()
    {
        const clsDocument& document = m_desk.Document;
        const clsShape& shape = Pick(2) ? document.Aperture : document.Obstruction;
        const auto clicks = m_desk.Tools.Clicks();
        Point at{Pick(460) - 30.0, Pick(360) - 30.0};
        switch (Pick(10)) {
        case 0:
            at = {shape.GetCenter().X + shape.GetRadii().X, shape.GetCenter().Y};
            break;
        case 1:
            at = shape.GetVertex(1 + Pick(5));
            break;
        case 2:
            at = document.Grid.GetVertex(Pick(4));
            break;
        case 3:
            at = m_desk.Tick(document.Fringes.GetFringeOrder(1), 1 + Pick(3));
            break;
        case 4:
            at = clicks.empty() ? at : clicks.front();
            break;
        default:
            return at;
        }
        const DevicePoint client = m_desk.View.Mapping().ToDevice(at.X, at.Y);
        return {Pick(3) - 1.0 + client.X, Pick(3) - 1.0 + client.Y};
    }
    int Keys() { return Pick(5) ? m_keys : m_keys = Pick(2) ? 0 : Pick(8); }
    ShapeRole Role() { return Pick(2) ? ShapeRole::Aperture : ShapeRole::Obstruction; }

    void Release()
    {
        const int keys = Keys();
        MouseTools& tools = m_desk.Tools;
        const bool finishes = !m_desk.Box.PopupActive && tools.EditMode() && m_desk.Active
            && keys == 0 && tools.Selected() == ImageObject();
        tools.Release(MouseButton::Left, keys);
        ASSERT_EQ(tools.Selected(), ImageObject());
        const std::size_t needed = tools.Target() == DrawTarget::FringeCenters ? 1 : m_clicksNeeded;
        ASSERT_TRUE(!finishes || tools.Clicks().size() < needed);
    }

    void Command()
    {
        MouseTools& tools = m_desk.Tools;
        switch (Pick(12)) {
        case 0: {
            const int kind = 1 + Pick(3);
            m_clicksNeeded = kind == 1 ? 4 : kind == 2 ? 3 : 50;
            tools.StartShape(Role(), static_cast<ShapeKind>(kind));
            break;
        }
        case 1:
            m_clicksNeeded = 2;
            tools.StartGrid();
            break;
        case 2:
            if (Pick(4) == 0)
                tools.ClearShape(Role());
            break;
        case 3:
            tools.StopDrawingObject();
            break;
        case 4:
            tools.InsertFringe(Order());
            break;
        case 5:
            tools.DeleteFringe(Order());
            break;
        case 6:
        case 7:
            tools.RenumberFringe(Order(), Order());
            break;
        case 8:
            tools.SaveFringe(Order());
            break;
        case 9:
            tools.DeleteHoverCenter();
            break;
        case 10:
            tools.SetEditMode(Pick(4) > 0);
            break;
        default:
            tools.Forget();
        }
    }

    // What happens to the tools from outside.
    void World()
    {
        clsDocument& document = m_desk.Document;
        switch (Pick(8)) {
        case 0:
            m_density = 1 + Pick(5) * 0.25;
            break;
        case 1:
            document.LoadBlankImage(1 + Pick(900), 1 + Pick(900));
            m_desk.Tools.Forget();
            break;
        case 2: // behind the back of the tools
            document.Fringes.DeleteAll();
            for (int count = Pick(30); count > 0; --count)
                document.Fringes.InsertOrder(Order(), std::vector<Point>(1 + Pick(5), Place()));
            if (Pick(10) == 0)
                document.Fringes.InsertOrder(1, std::vector<Point>(MaxTicks - 1));
            break;
        case 3:
            m_desk.Active = Pick(5) > 0;
            break;
        case 4:
            m_client = Pick(10) ? RasterSize{400, 300} : RasterSize{Pick(3), Pick(3)};
            break;
        case 5:
            m_desk.View.ScrollTo(Pick(1000) - 100, Pick(1000) - 100);
            break;
        case 6: {
            ClientDevice device;
            ImagePainter(document, m_desk.View, m_desk.Box).Paint(device, m_desk.Tools);
            break;
        }
        default:
            m_desk.View.SetZoomPercent(ZoomLevels[static_cast<std::size_t>(Pick(10))]);
        }
        m_desk.View.Layout(m_client.Width, m_client.Height, m_density, document.GetImageSize());
    }

    void CheckFringes() const
    {
        const clsFringes& fringes = m_desk.Document.Fringes;
        ASSERT_TRUE(fringes.NumFringes() >= 0 && fringes.NumFringes() <= MaxFringes);
        for (int index = 1; index <= MaxFringes; ++index) {
            ASSERT_LE(fringes.Ticks(index).size(), static_cast<std::size_t>(MaxTicks));
            const int order = fringes.GetFringeOrder(index);
            ASSERT_TRUE(order == NoFringe || (order >= 1 && order <= MaxFringes)) << order;
            ASSERT_TRUE(order == NoFringe || index <= fringes.NumFringes());
        }
    }
    static void CheckShape(const clsShape& shape)
    {
        ASSERT_LE(shape.GetVertices(), 50);
        if (shape.GetShapeType() == ShapeKind::None)
            return;
        const auto isFinite = [](Point at) { return std::isfinite(at.X) && std::isfinite(at.Y); };
        ASSERT_TRUE(isFinite(shape.GetCenter()) && std::isfinite(shape.GetAngle()));
        ASSERT_TRUE(shape.GetRadii().X >= 0 && shape.GetRadii().Y >= 0);
        ASSERT_TRUE(isFinite(shape.GetRadii()));
        ASSERT_TRUE(std::ranges::all_of(shape.Vertices(), isFinite));
    }
    static void CheckBar(const ScrollBar& bar)
    {
        ASSERT_TRUE(bar.Value >= 0 && bar.Value <= std::max(0, bar.Max)) << bar.Value;
    }

    std::mt19937 m_random{20261};
    ToolDesk m_desk;
    RasterSize m_client = ToolDesk::Client;
    double m_density = 1;
    int m_keys = 0;
    std::size_t m_clicksNeeded = 1;
};

TEST(MouseToolsMonkey, LeavesEverythingWithinItsLimits)
{
    const auto monkey = std::make_unique<Monkey>();
    for (int step = 1; step <= NumSteps; ++step) {
        monkey->Step();
        monkey->Check();
        if (testing::Test::HasFailure())
            FAIL() << "at step " << step;
    }
}

} // namespace
} // namespace morvane
