#include <gtest/gtest.h>

#include "RecordingFrame.h"
#include "plugins/TestPlugin.h"
#include "shell/CommandRules.h"

namespace morvane {
namespace {

class SessionGrab : public ::testing::Test {
protected:
    void Start(const std::string& Name)
    {
        main.Prefs.GrabberName = Name;
        main.StartGrabber(TEST_PLUGIN_FOLDER);
    }

    TestPluginScript& script = NewTestScript();
    SilentSession session;
    Session& main = session.Main;
};

TEST_F(SessionGrab, StartsWithTheGrabberOfThePreferences)
{
    DeliverGoodFrame(script);
    Start("Scripted");
    EXPECT_TRUE(main.Grabber.IsReady());
    EXPECT_EQ(main.Prefs.GrabberName, "Scripted");
    for (const char* name : {"absent", "scripted", "None", ""}) {
        Start(name);
        EXPECT_FALSE(main.Grabber.IsLoaded()) << name;
        EXPECT_EQ(main.Prefs.GrabberName, "None") << name;
    }
    EXPECT_TRUE(session.Answerer.Asked.empty());
    EXPECT_FALSE(session.Frame.Hourglass);
}

TEST_F(SessionGrab, AGrabberThatCannotBeLoadedIsTold)
{
    Start("Refuses");
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Error Loading Frame Grabber");
    EXPECT_NE(session.Answerer.Asked[0].Text.find("no card in any slot"), std::string::npos);
    EXPECT_EQ(main.Prefs.GrabberName, "Refuses") << "tried again at the next start";
    EXPECT_FALSE(main.Grabber.IsLoaded());
}

TEST_F(SessionGrab, IntoNewWindowsCountsThem)
{
    DeliverGoodFrame(script);
    Start("Scripted");
    main.GrabImage();
    script.Success = false;
    main.GrabImage();
    script.Success = true;
    main.GrabImage();
    ASSERT_EQ(main.NumOpenDocuments(), 2);
    EXPECT_EQ(main.Document(1)->Title, "Image1");
    EXPECT_EQ(main.Document(2)->Title, "Image2");
    EXPECT_EQ(main.ActiveDocument(), 2);
    EXPECT_TRUE(main.Document(2)->Modified && main.Document(2)->ImageDirty);
    EXPECT_TRUE(session.Frame.Log.Has("Image: caption Image2"));
    EXPECT_TRUE(session.Frame.Log.Has("Image: show with focus"));
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

TEST_F(SessionGrab, WithoutAWindowTheDocumentIsClosedAgain)
{
    DeliverGoodFrame(script);
    Start("Scripted");
    session.Frame.RefuseWindows = true;
    main.GrabImage();
    EXPECT_EQ(main.NumOpenDocuments(), 0);
}

TEST_F(SessionGrab, ThatFailsLeavesUnsavedWork)
{
    DeliverGoodFrame(script);
    Start("Scripted");
    main.GrabImage();
    main.Prefs.GrabIntoNewWindow = false;
    main.Active()->Fringes.AddOrder(1);
    script.Success = false;
    main.GrabImage();
    ASSERT_NE(main.Active(), nullptr);
    EXPECT_EQ(main.Active()->Fringes.NumFringes(), 1);
}

TEST_F(SessionGrab, IntoTheActiveDocumentOrClosesIt)
{
    DeliverGoodFrame(script);
    Start("Scripted");
    main.Prefs.GrabIntoNewWindow = false;
    main.GrabImage();
    ASSERT_EQ(main.NumOpenDocuments(), 1) << "there was none to take the frame";
    Deliver(script, 4, 1, TestFrame(4, 1, 8, {1, 2, 3, 4}));
    session.Frame.Log.Lines.clear();
    main.GrabImage();
    ASSERT_EQ(main.NumOpenDocuments(), 1);
    EXPECT_EQ(main.Document(1)->GetIntensity(3, 0), 4);
    EXPECT_EQ(main.Document(1)->Title, "Image1");
    EXPECT_TRUE(session.Frame.Log.Has("Image: repaint"));
    script.Success = false;
    main.GrabImage();
    EXPECT_EQ(main.NumOpenDocuments(), 0);
    EXPECT_TRUE(session.Answerer.Asked.empty()) << "no question, no message";
}

TEST_F(SessionGrab, PropertiesLoadThePluginAnew)
{
    Start("Scripted");
    script.Calls.clear();
    main.GrabberProperties();
    EXPECT_EQ(script.Calls, "properties release create ");
    script.HasProperties = false;
    Start("Scripted");
    script.Calls.clear();
    main.GrabberProperties();
    EXPECT_EQ(script.Calls, "");
}

TEST_F(SessionGrab, CommandsFollowThePlugin)
{
    const struct {
        const char* Name;
        bool Ready, HasProperties, Grab, Properties;
    } cases[] = {
        {"Scripted", true, true, true, true},
        {"Scripted", true, false, true, false},
        {"Scripted", false, true, false, false},
        {"None", true, true, false, false},
    };
    for (const auto& c : cases) {
        script.Ready = c.Ready;
        script.HasProperties = c.HasProperties;
        Start(c.Name);
        const CommandState state = StateOf(main);
        EXPECT_EQ(RuleFor(Command::GrabImage, state).Enabled, c.Grab) << c.Name << c.Ready;
        EXPECT_EQ(RuleFor(Command::GrabberProperties, state).Enabled, c.Properties)
            << c.Name << c.HasProperties;
    }
    main.GrabImage();
    EXPECT_EQ(main.NumOpenDocuments(), 0);
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

} // namespace
} // namespace morvane
