#include <gtest/gtest.h>

#include "RecordingFrame.h"

namespace morvane {
namespace {

class SessionViews : public testing::Test {
protected:
    SessionViews()
    {
        session.Main.Prefs.CascadeX = 4;
        session.Main.Prefs.CascadeY = 30;
        session.Main.Prefs.Visible.Zernikes = true;
        for (clsDocument*& document : documents) {
            document = session.Main.NewDocument().get();
            document->CreateImageView();
            document->CreateOutputViews();
            session.Main.ActivateDocument(*document, ViewType::Interferogram);
        }
    }
    DocumentWindow& Zernikes(int Of) { return *documents[Of]->View(ViewType::Zernikes); }

    SilentSession session;
    clsDocument* documents[3] = {};
};

TEST_F(SessionViews, OfTheirOwnStandAStepApartInsideTheFrame)
{
    const WindowPlace active = Zernikes(2).GetPlace();
    Zernikes(0).SetPlace({-50, 20, 300, 200});
    session.Main.Prefs.Places = {}; // none shared: each stays where it is before the steps
    session.Main.ShareViews(false);
    EXPECT_EQ(Zernikes(0).GetPlace(), (WindowPlace{0, 50, 300, 200})) << "never out at the left";
    EXPECT_EQ(Zernikes(1).GetPlace(), (WindowPlace{18, 80, 300, 200}));
    EXPECT_EQ(Zernikes(2).GetPlace(), active);
    EXPECT_EQ(session.Frame.Log.Lines.back(), "Zernikes: raise");
}

TEST_F(SessionViews, InCommonAllTakeThePlacesOfTheActiveSet)
{
    session.Main.ShareViews(false);
    Zernikes(2).SetPlace({70, 60, 250, 150});
    session.Main.ShareViews(true);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Zernikes(i).GetPlace(), (WindowPlace{70, 60, 250, 150})) << i;
    EXPECT_TRUE(session.Main.Prefs.HogWindows);
    EXPECT_TRUE(session.Frame.Log.Has("Zernikes: hide"));
}

} // namespace
} // namespace morvane
