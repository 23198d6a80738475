#include "shell/SavedShapes.h"

#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

TEST(SavedShapes, EachKindComesBack)
{
    const TemporaryFolder folder;
    SettingsStore store(folder / "settings.ini");
    clsShape loaded(ShapeRole::Aperture);
    EXPECT_FALSE(LoadSavedShape(store, SavedAperture, loaded));
    EXPECT_EQ(loaded.GetShapeType(), ShapeKind::None);

    clsShape circle(ShapeRole::Aperture);
    SetCircle(circle, 100.5, 90, 40);
    SaveShape(store, SavedAperture, circle);
    ASSERT_TRUE(LoadSavedShape(store, SavedAperture, loaded));
    EXPECT_EQ(loaded.GetCenter(), circle.GetCenter());
    EXPECT_EQ(loaded.GetRadii(), circle.GetRadii());
    EXPECT_FALSE(LoadSavedShape(store, SavedObstruction, loaded)) << "a figure of its own";

    clsShape ellipse(ShapeRole::Aperture);
    const Point ends[] = {{10, 10}, {50, 30}, {25, 30}};
    ellipse.Save(ShapeKind::Ellipse, ends);
    SaveShape(store, SavedAperture, ellipse);
    ASSERT_TRUE(LoadSavedShape(store, SavedAperture, loaded));
    EXPECT_EQ(loaded.GetShapeType(), ShapeKind::Ellipse);
    EXPECT_EQ(loaded.GetAngle(), ellipse.GetAngle());

    clsShape polygon(ShapeRole::Obstruction);
    const Point corners[] = {{1, 2}, {30, 4}, {20, 25.5}};
    polygon.Save(ShapeKind::Polygon, corners);
    SaveShape(store, SavedObstruction, polygon);
    ASSERT_TRUE(store.Save());
    SettingsStore again(folder / "settings.ini");
    ASSERT_TRUE(LoadSavedShape(again, SavedObstruction, loaded));
    EXPECT_EQ(loaded.GetVertices(), 3);
    EXPECT_EQ(loaded.GetVertex(3), corners[2]);
}

TEST(SavedShapes, APictureOpensWithThemIfThePreferencesSaySo)
{
    const TemporaryFolder folder;
    WritePicture(VerticalFringes(200, 200, 20), folder / "mirror.bmp");
    SettingsStore store(folder / "settings.ini");
    clsShape circle(ShapeRole::Aperture);
    SetCircle(circle, 100, 100, 80);
    SaveShape(store, SavedAperture, circle);
    ASSERT_TRUE(store.Save());
    SilentSession session;
    session.Main.ReadSettings(store, {1920, 1080, 4, 30}, "Jan 1, 2026");
    const auto document = session.Main.OpenPicture(folder / "mirror.bmp", true);
    EXPECT_EQ(document->Aperture.GetRadii(), (Point{80, 80}));
    EXPECT_EQ(document->Obstruction.GetShapeType(), ShapeKind::None);
    EXPECT_FALSE(document->Modified) << "an untouched picture asks nothing";

    session.Main.Prefs.AutoLoadAperture = false;
    EXPECT_EQ(session.Main.OpenPicture(folder / "mirror.bmp", true)->Aperture.GetShapeType(),
        ShapeKind::None);
}

} // namespace
} // namespace morvane
