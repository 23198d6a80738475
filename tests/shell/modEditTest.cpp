#include <gtest/gtest.h>

#include <algorithm>

#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

class modEdit : public ::testing::Test, public SilentSession {
protected:
    clsDocument& Document()
    {
        clsDocument& document = *Main.NewDocument();
        document.CreateImageView();
        return document;
    }
};

TEST_F(modEdit, OnlyTheTextInFrontIsCopied)
{
    const std::string before = "what was there";
    const struct {
        ViewType InFront;
        const char* Clipboard;
    } cases[] = {
        {ViewType::Aberrations, "copied from Aberrations"},
        {ViewType::Zernikes, "copied from Zernikes"},
        {ViewType::GridResults, "copied from GridResults"},
        {ViewType::Interferogram, before.c_str()},
        {ViewType::LineProfile, before.c_str()},
        {ViewType::SFringe, before.c_str()},
    };
    clsDocument& document = Document();
    for (const auto& c : cases) {
        Main.ActivateDocument(document, c.InFront);
        Frame.Clipboard = before;
        Main.CopyText();
        EXPECT_EQ(Frame.Clipboard, before) << "without output views";
    }
    ASSERT_TRUE(document.CreateOutputViews());
    for (const auto& c : cases) {
        Main.ActivateDocument(document, c.InFront);
        Frame.Clipboard = before;
        Main.CopyText();
        EXPECT_EQ(Frame.Clipboard, c.Clipboard) << static_cast<int>(c.InFront);
    }
}

TEST_F(modEdit, UserDataModifyADocumentOnlyIfTheyDiffer)
{
    clsDocument& document = Document();
    const UserData typed{"f/8", "May 5", "Ada", "a\r\nb"};
    Main.SetUserData(document, typed, false);
    EXPECT_EQ(document.Optic, typed);
    EXPECT_TRUE(document.Modified);
    EXPECT_EQ(Main.Prefs.DefaultUserData, UserData{});
    document.Modified = false;
    Main.SetUserData(document, typed, true);
    EXPECT_FALSE(document.Modified) << "the same again";
    EXPECT_TRUE(Main.Prefs.SetAsDefault);
    EXPECT_EQ(Main.Prefs.DefaultUserData, typed);
    Main.SetUserData(document, {}, false);
    EXPECT_FALSE(Main.Prefs.SetAsDefault);
    EXPECT_EQ(Main.Prefs.DefaultUserData, typed) << "kept for the next time";
}

TEST_F(modEdit, UserDataAreNoLongerThanADocumentKeeps)
{
    clsDocument& document = Document();
    document.LoadBlankImage(100, 100);
    UserData typed;
    for (int i = 0; i < 700'000; ++i)
        typed.Comments += i % 2 ? "\xC3\xBC" : "\n";
    Main.SetUserData(document, typed, false);
    EXPECT_NE(Answerer.TakeOnly(), "");
    const std::string kept = document.Optic.Comments;
    EXPECT_TRUE(kept.ends_with("\xBC") || kept.ends_with('\n')) << "half a character";
    EXPECT_GT(kept.size(), 200'000u);
    const TemporaryFolder folder;
    ASSERT_TRUE(Main.WriteDocument(folder / "long.mvd", document));
    const auto read = Main.OpenDocument(folder / "long.mvd", true);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(std::ranges::count(read->Optic.Comments, '\xBC'), std::ranges::count(kept, '\xBC'));
    EXPECT_EQ(read->Optic.Comments.back(), kept.back());
}

// Two programs, each with a choice of its own: the later one stands, and is no mixture.
TEST(DefaultUserData, AreOneChoice)
{
    const TemporaryFolder folder;
    WriteWholeFile(folder / "settings.ini", "[CurrentVersion]\nDescription = f/4\nOperator = M\n");
    SettingsStore oneStore(folder / "settings.ini"), otherStore(oneStore.Path());
    SilentSession one, other;
    one.Main.ReadSettings(oneStore, {}, "May 5");
    other.Main.ReadSettings(otherStore, {}, "May 5");
    one.Main.SetUserData(*one.Main.NewDocument(), {"f/8", "", "Ada", "new"}, true);
    other.Main.SetUserData(*other.Main.NewDocument(), {"f/4", "", "Grace", ""}, true);
    one.Main.WriteSettings(oneStore);
    ASSERT_TRUE(oneStore.Save());
    SettingsStore next(oneStore.Path());
    EXPECT_EQ(ReadPreferences(next, {}, "").DefaultUserData, (UserData{"f/4", "", "Grace", ""}));
}

TEST_F(modEdit, UserDataOfAClosedDocumentGoNowhere)
{
    const auto closed = Main.NewDocument();
    Main.CloseDocument(*closed);
    Main.SetUserData(*closed, {"f/8", "May 5", "Ada", ""}, true);
    EXPECT_EQ(closed->Optic, UserData{});
    EXPECT_FALSE(Main.Prefs.SetAsDefault);
}

} // namespace
} // namespace morvane
