#include <gtest/gtest.h>

#include "RecordingFrame.h"
#include "automation/MorvaneDoc.h"
#include "plugins/TestPlugin.h"

namespace morvane {
namespace {

class MorvaneDocGrab : public ::testing::Test {
protected:
    void SetUp() override
    {
        DeliverGoodFrame(script);
        session.Main.Prefs.GrabberName = "Scripted";
        session.Main.StartGrabber(TEST_PLUGIN_FOLDER);
    }

    TestPluginScript& script = NewTestScript();
    SilentSession session;
    MorvaneDoc doc{session.Main};
};

TEST_F(MorvaneDocGrab, NeedsAGrabber)
{
    session.Main.LoadGrabber(NoGrabber);
    const Raised<bool> result = doc.Grab();
    ASSERT_FALSE(result);
    EXPECT_EQ(static_cast<std::uint32_t>(result.Error().Number), 0x80040213);
    EXPECT_EQ(result.Error().Description,
        "Failed to grab image because no frame grabber card is currently selected.");
    EXPECT_STREQ(ErrorName(result.Error().Number), "NoGrabber");
    EXPECT_EQ(session.Main.NumOpenDocuments(), 0);
}

TEST_F(MorvaneDocGrab, MakesADocumentOnceAndThenGrabsIntoIt)
{
    ASSERT_TRUE(doc.Grab().Value());
    const auto first = doc.Document();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->Title, "Image1");
    EXPECT_TRUE(session.Frame.Log.Has("Image: show with focus"));
    Deliver(script, 4, 1, TestFrame(4, 1, 8, {1, 2, 3, 4}));
    session.Frame.Log.Lines.clear();
    ASSERT_TRUE(doc.Grab().Value());
    EXPECT_EQ(doc.Document(), first);
    EXPECT_EQ(first->GetIntensity(3, 0), 4);
    EXPECT_TRUE(session.Frame.Log.Has("Image: repaint"));
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);
}

TEST_F(MorvaneDocGrab, AFailureClosesOnlyADocumentOfItsOwn)
{
    script.Success = false;
    EXPECT_FALSE(doc.Grab().Value());
    EXPECT_EQ(session.Main.NumOpenDocuments(), 0);
    EXPECT_FALSE(doc.Document());
    script.Success = true;
    ASSERT_TRUE(doc.Grab().Value());
    script.Success = false;
    EXPECT_FALSE(doc.Grab().Value());
    EXPECT_EQ(doc.Document()->GetIntensity(0, 0), 10);
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);
}

} // namespace
} // namespace morvane
