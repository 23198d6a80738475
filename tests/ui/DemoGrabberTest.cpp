// The plug-in that ships, by the commands and the dialog that the user has.
#include <gtest/gtest.h>

#include <QDialog>
#include <QSpinBox>
#include <QTimer>

#include "Desk.h"

namespace morvane::test {
namespace {

class DemoGrabber : public testing::Test, public Desk {
protected:
    void SetUp() override
    {
        Session.Prefs.GrabberName = "Demo";
        Session.Prefs.GrabIntoNewWindow = true;
        Session.StartGrabber(DEMO_GRABBER_FOLDER);
        ASSERT_TRUE(User.Messages.empty()) << User.Messages[0].Text;
    }
    // Opens the properties, sets the values and closes them by OK or Cancel.
    void SetProperties(int Fringes, int Tilt, int Noise, bool Ok)
    {
        bool shown = false;
        QTimer::singleShot(0, &Frame, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            shown = true;
            EXPECT_EQ(dialog->windowTitle(), "Demo Camera");
            dialog->findChild<QSpinBox*>("spnFringes")->setValue(Fringes);
            dialog->findChild<QSpinBox*>("spnTilt")->setValue(Tilt);
            dialog->findChild<QSpinBox*>("spnNoise")->setValue(Noise);
            dialog->done(Ok ? QDialog::Accepted : QDialog::Rejected);
        });
        Trigger("mnuProcessGrabberProps");
        EXPECT_TRUE(shown);
    }
    // The fringes that are traced in a picture grabbed into a new window.
    int GrabAndTrace(FringeDirection Direction)
    {
        Trigger("mnuProcessGrabImage");
        clsDocument& document = *Session.Active();
        const std::array circle{Point{110, 240}, Point{530, 240}, Point{320, 30}, Point{320, 450}};
        document.Aperture.Save(ShapeKind::Circle, circle);
        document.InvalidateMask();
        document.AutoTraceFringes(Direction, FringeDensity::Normal);
        return document.Fringes.NumFringes();
    }
};

TEST_F(DemoGrabber, GrabsPicturesThatCanBeTraced)
{
    EXPECT_TRUE(Find<QAction>("mnuProcessGrabImage").isEnabled());
    EXPECT_TRUE(Find<QAction>("mnuProcessGrabberProps").isEnabled());
    SetProperties(20, 0, 4, true);
    // The aperture is a little smaller than the optic, and a fringe may end at its rim.
    EXPECT_NEAR(GrabAndTrace(FringeDirection::Vertical), 20, 2);
    EXPECT_EQ(Session.Active()->Title, "Image1");
    EXPECT_EQ(Session.Active()->GetImageSize(), (RasterSize{640, 480}));
    SetProperties(10, 90, 4, false);
    EXPECT_NEAR(GrabAndTrace(FringeDirection::Vertical), 20, 2) << "cancelled";
    SetProperties(10, 90, 4, true);
    EXPECT_NEAR(GrabAndTrace(FringeDirection::Horizontal), 10, 2);
    EXPECT_EQ(Session.NumOpenDocuments(), 3);
}

TEST_F(DemoGrabber, FramesLive)
{
    Trigger("mnuProcessGrabImage");
    const std::vector<std::uint8_t> first = Session.Active()->Image().Pixels;
    Session.Prefs.GrabIntoNewWindow = false;
    Trigger("mnuProcessGrabImage");
    EXPECT_EQ(Session.NumOpenDocuments(), 1);
    EXPECT_NE(Session.Active()->Image().Pixels, first);
}

} // namespace
} // namespace morvane::test
