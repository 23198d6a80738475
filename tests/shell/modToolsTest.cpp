#include <filesystem>

#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

constexpr ScreenMeasures Screen{1920, 1080, 4, 30};

// An interferogram of 200 by 200 pixels with its mouse tools, at 100 percent in a client of 400 by
// 300: image and client coordinates are the same.
class SessionTools : public ::testing::Test {
protected:
    SessionTools()
    {
        session.Main.ReadSettings(store, Screen, "Jan 1, 2026");
        document = Open();
    }
    clsDocument* Open()
    {
        WritePicture(VerticalFringes(200, 200, 20), folder / "mirror.bmp");
        const auto opened = session.Main.OpenPicture(folder / "mirror.bmp", true);
        opened->ImageView()->SetZoom(100);
        session.Main.BringToFront(*opened);
        return opened.get();
    }
    MouseTools& Mouse() { return document->ImageView()->Tools(); }
    void Click(double X, double Y)
    {
        Mouse().Press(MouseButton::Left, X, Y, 0);
        Mouse().Release(MouseButton::Left, 0);
    }
    // Of the fringe of an order, 0 if there is none.
    int Ticks(int Order)
    {
        int index = NoFringe;
        const int ticks = document->Fringes.GetNumTicks(Order, index);
        return ticks == NoFringe ? 0 : ticks;
    }
    void AddFringe(int Order, double X, int NumTicks = 3)
    {
        int index = document->Fringes.AddOrder(Order);
        for (int i = 0; i < NumTicks; ++i)
            document->Fringes.AddCenter(Order, {X, 50.0 + 10 * i}, index);
    }
    // A click that is not a center yet when the next command comes.
    void PressOnly(double X, double Y) { Mouse().Press(MouseButton::Left, X, Y, 0); }

    const ToolBox& Box() { return session.Main.Tools; }

    TemporaryFolder folder;
    SettingsStore store{folder / "settings.ini"};
    SilentSession session;
    clsDocument* document = nullptr;
};

TEST_F(SessionTools, AddDrawsTheChosenFigureInPlaceOfTheOldOne)
{
    const struct {
        ShapeKind Kind;
        std::vector<Point> Clicks;
    } figures[] = {
        {ShapeKind::Circle, {{20, 100}, {180, 100}, {100, 20}, {100, 180}}},
        {ShapeKind::Ellipse, {{20, 100}, {180, 100}, {100, 60}}},
        {ShapeKind::Polygon, {{20, 20}, {180, 30}, {170, 170}, {30, 160}, {21, 21}}},
    };
    for (const ShapeRole role : {ShapeRole::Aperture, ShapeRole::Obstruction}) {
        const bool isAperture = role == ShapeRole::Aperture;
        const clsShape& shape = isAperture ? document->Aperture : document->Obstruction;
        document->Aperture.Delete(); // a click on it would drag it
        for (const auto& figure : figures) {
            session.Main.Tools.SetKind(role, figure.Kind);
            session.Main.AddShape(role);
            EXPECT_EQ(shape.GetShapeType(), ShapeKind::None) << "before the first click";
            EXPECT_EQ(Box().Controls(), (ToolControls{false, isAperture, !isAperture}));
            for (const Point& at : figure.Clicks)
                Click(at.X, at.Y);
            EXPECT_EQ(shape.GetShapeType(), figure.Kind);
            EXPECT_EQ(Box().Controls(), ToolControls{});
        }
    }
    EXPECT_EQ(document->Obstruction.GetVertices(), 4) << "the closing click is no corner";
    EXPECT_EQ(document->Fringes.NumFringes(), 0);
}

TEST_F(SessionTools, AddGoesBackToTheEditToolAndTheInterferogram)
{
    session.Main.SetEditMode(false);
    document->ActiveView = ViewType::Zernikes;
    session.Frame.Log.Lines.clear();
    session.Main.AddShape(ShapeRole::Aperture);
    EXPECT_TRUE(Mouse().EditMode());
    EXPECT_TRUE(Box().EditMode) << "as the tool bar shows it";
    EXPECT_EQ(document->ActiveView, ViewType::Interferogram);
    EXPECT_TRUE(session.Frame.Log.Has("Image: show with focus"));
}

TEST_F(SessionTools, ClearCancelsAPolygonAndGoesBackToFringes)
{
    session.Main.Tools.SetKind(ShapeRole::Aperture, ShapeKind::Polygon);
    session.Main.AddShape(ShapeRole::Aperture);
    Click(20, 20);
    Click(180, 20);
    session.Main.ClearShape(ShapeRole::Aperture);
    EXPECT_EQ(Box().Controls(), ToolControls{});
    EXPECT_EQ(document->Aperture.GetShapeType(), ShapeKind::None);
    EXPECT_TRUE(Mouse().Clicks().empty());
    Click(50, 60);
    EXPECT_EQ(Ticks(1), 1);
}

TEST_F(SessionTools, ASavedFigureComesBackInAnotherPicture)
{
    session.Main.Prefs.AutoLoadAperture = false;
    session.Main.LoadShapeIntoActive(ShapeRole::Aperture);
    EXPECT_EQ(document->Aperture.GetShapeType(), ShapeKind::None) << "nothing is kept";
    SetCircle(document->Aperture, 90, 80, 40);
    session.Main.LoadShapeIntoActive(ShapeRole::Aperture);
    EXPECT_EQ(document->Aperture.GetRadii(), (Point{40, 40})) << "nothing is kept";
    session.Main.SaveShape(ShapeRole::Aperture);

    document = Open();
    document->Modified = false;
    session.Main.LoadShapeIntoActive(ShapeRole::Obstruction);
    EXPECT_EQ(document->Obstruction.GetShapeType(), ShapeKind::None) << "a figure of its own";
    session.Main.LoadShapeIntoActive(ShapeRole::Aperture);
    EXPECT_EQ(document->Aperture.GetCenter(), (Point{90, 80}));
    EXPECT_TRUE(document->HasUnsavedChanges());
}

// Of two running programs the last to save counts, with the whole figure.
TEST_F(SessionTools, AFigureIsSavedWholeAndSeenByTheOtherProgram)
{
    SettingsStore otherStore(store.Path());
    SilentSession other;
    other.Main.ReadSettings(otherStore, Screen, "Jan 1, 2026");
    clsDocument& inOther = *other.Main.OpenPicture(folder / "mirror.bmp", true);
    const auto save = [](Session& in, clsDocument& of, double x, double radius) {
        SetCircle(of.Aperture, x, 80, radius);
        in.SaveShape(ShapeRole::Aperture);
    };
    const auto load = [](Session& in, clsDocument& into) {
        into.Aperture.Delete();
        in.LoadShapeIntoActive(ShapeRole::Aperture);
        return std::pair(into.Aperture.GetCenter().X, into.Aperture.GetRadii().X);
    };
    save(session.Main, *document, 90, 40);
    EXPECT_EQ(load(other.Main, inOther), std::pair(90.0, 40.0));
    save(session.Main, *document, 100, 60);
    save(other.Main, inOther, 120, 40);
    EXPECT_EQ(load(session.Main, *document), std::pair(120.0, 40.0)) << "not 60 of the first";
    save(session.Main, *document, 100, 60);
    save(other.Main, inOther, 120, 40);
    EXPECT_EQ(load(session.Main, *document), std::pair(120.0, 40.0)) << "the same again";
    session.Main.WriteSettings(store);
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(load(other.Main, inOther), std::pair(120.0, 40.0)) << "the end changes nothing";
}

TEST_F(SessionTools, AFigureThatCannotBeSavedIsTold)
{
    std::filesystem::create_directory(store.Path());
    session.Main.SaveShape(ShapeRole::Aperture);
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Warning");
    EXPECT_TRUE(session.Answerer.TakeOnly().starts_with(
        "Could not save the settings in " + store.Path() + "\r\n"));
}

TEST_F(SessionTools, InsertAndRemoveRenumberWhatLiesAbove)
{
    AddFringe(1, 20, 2);
    AddFringe(2, 40, 3);
    session.Main.SelectOrder(2);
    session.Main.InsertFringe();
    EXPECT_EQ(Ticks(1), 2);
    EXPECT_EQ(Ticks(2), 0);
    EXPECT_EQ(Ticks(3), 3);
    AddFringe(2, 30, 4);
    session.Main.RemoveFringe();
    EXPECT_EQ(Ticks(2), 3);
    EXPECT_EQ(Ticks(3), 0);
    EXPECT_TRUE(document->HasUnsavedChanges());
}

TEST_F(SessionTools, NoOrderLeavesTheRange)
{
    AddFringe(MaxFringes, 20);
    session.Main.InsertFringe();
    EXPECT_TRUE(session.Frame.LastHint.starts_with("Order 200 is in use"));
    EXPECT_EQ(Ticks(MaxFringes), 3);
    for (const char* typed : {"0", "201", "", "99999999999999"}) {
        session.Frame.TypedText = typed;
        session.Main.RenumberFringe();
        ASSERT_EQ(session.Answerer.Asked.size(), 1u) << typed;
        EXPECT_EQ(session.Answerer.Asked[0].Title, "Bad Input");
        EXPECT_EQ(session.Answerer.TakeOnly(), "New fringe order is out of range") << typed;
    }
}

TEST_F(SessionTools, RenumberProposesTheOrderBelow)
{
    for (const auto& [order, proposed] : {std::pair{1, "2"}, {2, "1"}, {5, "4"}}) {
        session.Main.SelectOrder(order);
        session.Main.RenumberFringe();
        const InputRequest& asked = session.Frame.Inputs.back();
        EXPECT_EQ(asked.Text, proposed);
        EXPECT_EQ(asked.Caption, "Renumber Fringe");
        EXPECT_EQ(asked.Prompt, "Enter new fringe order:");
        EXPECT_EQ(asked.Kind, InputKind::PositiveInteger);
    }
}

TEST_F(SessionTools, RenumberMovesOrJoinsTheFringe)
{
    AddFringe(1, 20, 2);
    AddFringe(2, 40, 3);
    AddFringe(3, 60, 4);
    session.Main.SelectOrder(2);
    session.Main.RenumberFringe();
    EXPECT_EQ(Ticks(2), 3) << "cancelled";
    session.Frame.TypedText = "9";
    session.Main.RenumberFringe();
    EXPECT_EQ(Ticks(2), 0);
    EXPECT_EQ(Ticks(9), 3);
    EXPECT_EQ(Ticks(3), 4) << "a free order moves nothing else";

    session.Main.SelectOrder(9);
    session.Frame.TypedText = "1";
    session.Main.RenumberFringe();
    EXPECT_EQ(Ticks(1), 5);
    EXPECT_EQ(Ticks(9), 0);
    EXPECT_EQ(document->Fringes.TotalNumTicks(), 9);
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

TEST_F(SessionTools, ClicksStayWithTheOrderBefore)
{
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"selected", [&] { session.Main.SelectOrder(7); }},
        {"typed", [&] { session.Main.TypeOrder("7"); }},
        {"stepped", [&] { session.Main.StepOrder(6); }}};
    for (const auto& [name, change] : changes) {
        session.Main.SelectOrder(1);
        document->Fringes.DeleteAll();
        PressOnly(50, 60);
        change();
        EXPECT_EQ(Box().CurrentOrder(), 7) << name;
        EXPECT_EQ(Ticks(1), 1) << name;
        EXPECT_EQ(Ticks(7), 0) << name;
    }
}

TEST_F(SessionTools, OrdersBeyondTheRange)
{
    session.Main.SelectOrder(5);
    for (const int bad : {0, -1, 201}) {
        session.Main.SelectOrder(bad);
        EXPECT_EQ(Box().CurrentOrder(), 5) << bad;
    }
    const struct {
        const char* Typed;
        int Order, Up, Down;
    } cases[] = {{"0", 0, 1, 1}, {"", 0, 1, 1}, {"1", 1, 2, 1}, {"200", 200, 200, 199},
        {"500", 500, 200, 200}, {"99999999999", 99999, 200, 200}};
    for (const auto& c : cases) {
        session.Main.TypeOrder(c.Typed);
        EXPECT_EQ(Box().CurrentOrder(), c.Order) << c.Typed;
        EXPECT_EQ(Box().OrderText(), c.Typed);
        EXPECT_EQ(Box().OrderAfter(1), c.Up) << c.Typed;
        EXPECT_EQ(Box().OrderAfter(-1), c.Down) << c.Typed;
        Click(50, 60);
        EXPECT_EQ(document->Fringes.NumFringes(), c.Order >= 1 && c.Order <= 200) << c.Typed;
        document->Fringes.DeleteAll();
    }
}

TEST_F(SessionTools, WithoutAPictureOnlyTheOrderIsTaken)
{
    session.Main.CloseAllDocuments();
    const ShapeRole role = ShapeRole::Aperture;
    session.Main.AddShape(role);
    session.Main.ClearShape(role);
    session.Main.LoadShapeIntoActive(role);
    session.Main.SaveShape(role);
    session.Main.InsertFringe();
    session.Main.RemoveFringe();
    session.Main.RenumberFringe();
    session.Main.SelectOrder(4);
    EXPECT_EQ(Box().Controls(), ToolControls{});
    EXPECT_TRUE(session.Frame.Inputs.empty());
    EXPECT_EQ(Box().CurrentOrder(), 1);
    session.Main.TypeOrder("12");
    EXPECT_EQ(Box().CurrentOrder(), 12) << "the box and what it stands for agree";
}

TEST_F(SessionTools, TheBoxComesBackWithTheNextSession)
{
    session.Main.Tools.SetKind(ShapeRole::Aperture, ShapeKind::Ellipse);
    session.Main.SelectOrder(17);
    session.Main.WriteSettings(store);
    SilentSession next;
    next.Main.ReadSettings(store, Screen, "");
    EXPECT_EQ(next.Main.Tools.CurrentOrder(), 17);
    EXPECT_EQ(next.Main.Tools.KindOf(ShapeRole::Aperture), ShapeKind::Ellipse);
}

} // namespace
} // namespace morvane
