#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"
#include "shell/modFileLib.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

// A session with one picture of a temporary folder open.
class Saving : public ::testing::Test {
protected:
    void SetUp() override { document = Open("mirror.bmp"); }

    std::string At(const std::string& Name) const { return folder / Name; }
    std::shared_ptr<clsDocument> Open(const std::string& Name)
    {
        WritePicture(VerticalFringes(40, 30, 8), At(Name));
        return session.Main.OpenPicture(At(Name), true);
    }
    void Choose(const std::string& Name, int Filter)
    {
        session.Frame.Choices.push_back({{At(Name)}, Filter});
    }

    TemporaryFolder folder;
    SilentSession session;
    std::shared_ptr<clsDocument> document;
};

TEST_F(Saving, AnUntouchedPictureAsksNothing)
{
    EXPECT_TRUE(session.Main.CloseAsking(*document));
    EXPECT_TRUE(session.Answerer.Asked.empty());
    EXPECT_EQ(session.Main.NumOpenDocuments(), 0);
}

TEST_F(Saving, TheQuestionNamesTheFileAndItsAnswerIsFollowed)
{
    document->Modified = true;
    session.Answerer.Answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(session.Main.CloseAsking(*document));
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);
    EXPECT_EQ(session.Answerer.Asked[0].Flags, 35);
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Morvane");
    EXPECT_EQ(session.Answerer.TakeOnly(), "Save changes to mirror.bmp ?");

    SetCircle(document->Aperture, 20, 15, 10);
    session.Answerer.Answers = {MessageAnswer::Yes};
    Choose("mirror.mvd", 2);
    EXPECT_TRUE(session.Main.SaveDocumentSettings(*document));
    EXPECT_EQ(session.Answerer.TakeOnly(), "Save changes to mirror.mvd ?");
    EXPECT_EQ(session.Frame.Requests[0].FileName, "mirror.mvd");
    EXPECT_EQ(session.Frame.Requests[0].FilterIndex, 2);
    EXPECT_TRUE(fs::exists(At("mirror.mvd")));
    EXPECT_FALSE(document->Modified);

    document->Modified = true;
    session.Answerer.Answers = {MessageAnswer::No};
    EXPECT_TRUE(session.Main.CloseAsking(*document));
    EXPECT_EQ(session.Answerer.TakeOnly(), "Save changes to " + At("mirror.mvd") + " ?");
}

TEST_F(Saving, ACancelledDialogOrARefusedReplacementLosesNothing)
{
    SetCircle(document->Aperture, 20, 15, 10);
    document->Modified = true;
    session.Answerer.Answers = {MessageAnswer::Yes};
    EXPECT_FALSE(session.Main.CloseAsking(*document));
    EXPECT_EQ(session.Main.NumOpenDocuments(), 1);

    WriteWholeFile(At("other.mvd"), "precious");
    session.Answerer.Asked.clear();
    session.Answerer.Answers = {MessageAnswer::Yes, MessageAnswer::No};
    Choose("other.mvd", 2);
    EXPECT_FALSE(session.Main.CloseAsking(*document));
    EXPECT_EQ(session.Answerer.Asked[1].Text,
        At("other.mvd") + " already exists.\r\nDo you want to replace it?");
    EXPECT_EQ(session.Answerer.Asked[1].Flags, 52);
    EXPECT_EQ(session.Answerer.Asked[1].Title, "Save File As");
    EXPECT_EQ(fs::file_size(At("other.mvd")), 8u);
    EXPECT_TRUE(document->Modified);
}

TEST_F(Saving, ClosingAllStopsAtTheFirstCancel)
{
    for (const char* name : {"2.bmp", "3.bmp", "4.bmp", "5.bmp"})
        Open(name)->Modified = true;
    session.Answerer.Answers = {MessageAnswer::No, MessageAnswer::Cancel};
    EXPECT_FALSE(session.Main.CloseAllAsking());
    EXPECT_EQ(session.Main.NumOpenDocuments(), 3);
    EXPECT_EQ(session.Main.Document(2), nullptr);
    EXPECT_NE(session.Main.Document(3), nullptr);
}

TEST_F(Saving, APictureGoesBesideItsDocumentWheneverItIsNotThere)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("copy.mvd"), *document));
    EXPECT_TRUE(fs::exists(At("copy.bmp")));
    EXPECT_EQ(document->FileName, "copy.mvd");
    EXPECT_EQ(document->Title, "copy.bmp");

    const auto written = fs::last_write_time(At("copy.bmp"));
    fs::last_write_time(At("copy.bmp"), written - std::chrono::hours(1));
    ASSERT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_EQ(fs::last_write_time(At("copy.bmp")), written - std::chrono::hours(1))
        << "a clean picture is not written again";
    document->ImageDirty = true;
    ASSERT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_FALSE(document->ImageDirty);
    EXPECT_NE(fs::last_write_time(At("copy.bmp")), written - std::chrono::hours(1));

    fs::create_directory(At("other folder ä"));
    ASSERT_TRUE(session.Main.WriteDocument(At("other folder ä/copy.mvd"), *document));
    EXPECT_TRUE(fs::exists(At("other folder ä/copy.bmp")));
}

// Somebody's original picture must not go because a document beside it takes its name.
TEST_F(Saving, AnotherPictureIsReplacedOnlyAfterAQuestion)
{
    const auto other = Open("other.bmp");
    WritePicture(VerticalFringes(60, 60, 8), At("alone.bmp"));
    for (const char* name : {"other", "alone"}) {
        const std::string picture = At(name + std::string(".bmp"));
        const auto size = fs::file_size(picture);
        session.Answerer.Asked.clear();
        session.Answerer.Answers = {MessageAnswer::No};
        document->ImageDirty = true;
        EXPECT_FALSE(session.Main.WriteDocument(At(name + std::string(".mvd")), *document));
        EXPECT_EQ(session.Answerer.TakeOnly(),
            picture + " already exists.\r\nDo you want to replace it?");
        EXPECT_EQ(fs::file_size(picture), size) << name;
        EXPECT_FALSE(fs::exists(At(name + std::string(".mvd")))) << name;
    }
    session.Answerer.Answers = {MessageAnswer::Yes};
    EXPECT_TRUE(session.Main.WriteDocument(At("other.mvd"), *document));
    EXPECT_TRUE(other->ImageDirty) << "its file holds another picture now";
}

TEST_F(Saving, APictureWhoseFileIsGoneIsWrittenAgain)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *document));
    fs::remove(At("mirror.bmp"));
    ASSERT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_TRUE(fs::exists(At("mirror.bmp")));
}

TEST_F(Saving, APictureAloneDoesNotCloseADocument)
{
    SetCircle(document->Aperture, 20, 15, 10);
    document->Modified = true;
    session.Answerer.Answers = {MessageAnswer::Yes};
    Choose("only.bmp", 1);
    EXPECT_FALSE(session.Main.CloseAsking(*document));
    EXPECT_TRUE(fs::exists(At("only.bmp")));
    EXPECT_TRUE(document->Modified);
    EXPECT_EQ(session.Answerer.Asked.back().Title, "Warning") << "why it is still open";

    document->Aperture.Delete();
    EXPECT_TRUE(session.Main.WriteDocument(At("only.bmp"), *document));
    EXPECT_FALSE(document->Modified) << "nothing is left that only a document holds";
}

TEST_F(Saving, NamesAndFoldersMayHoldDots)
{
    fs::create_directory(At("2026.11"));
    for (const char* name : {"result", "mirror 1.2"}) {
        session.Frame.Choices.push_back({{At(std::string("2026.11/") + name)}, 2});
        EXPECT_TRUE(session.Main.SaveAsDialog(*document, Session::SaveMode::Document));
        EXPECT_TRUE(fs::exists(At(std::string("2026.11/") + name + ".mvd"))) << name;
    }
    document->FileName.clear();
    document->Title = "shot.2.jpg";
    session.Main.SaveAsDialog(*document, Session::SaveMode::ImageOnly);
    EXPECT_EQ(session.Frame.Requests.back().FileName, "shot.2.bmp");
}

TEST_F(Saving, OnlyKnownExtensionsAndRealPicturesAreWritten)
{
    EXPECT_FALSE(session.Main.WriteDocument(At("mirror.txt"), *document));
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Save File As");
    EXPECT_EQ(session.Answerer.TakeOnly(),
        "Could not save " + At("mirror.txt") + "\r\nUnknown file type.");
    document->LoadBlankImage(40, 30);
    EXPECT_FALSE(session.Main.WriteDocument(At("blank.bmp"), *document));
    EXPECT_EQ(session.Answerer.TakeOnly(), "Cannot save a blank image");
    EXPECT_FALSE(fs::exists(At("blank.bmp")));
}

TEST_F(Saving, AFailedWriteIsAskedAboutAndTheFlagsTellTheTruth)
{
    document->Modified = true;
    const std::string nowhere = At("no such folder/mirror.mvd");
    session.Answerer.Answers = {MessageAnswer::Retry, MessageAnswer::Ignore};
    EXPECT_FALSE(session.Main.WriteDocument(nowhere, *document));
    ASSERT_EQ(session.Answerer.Asked.size(), 2u);
    EXPECT_EQ(session.Answerer.Asked[0].Flags, 2);
    EXPECT_EQ(session.Answerer.Asked[0].Text.find("Could not save " + nowhere + "\r\n"), 0u);
    EXPECT_TRUE(document->Modified);
    EXPECT_TRUE(document->FileName.empty());

    // The document can be written, its picture cannot: a folder stands in its place.
    session.Answerer.Asked.clear();
    session.Answerer.Answers = {MessageAnswer::Abort};
    fs::create_directory(At("half.bmp"));
    EXPECT_FALSE(session.Main.WriteDocument(At("half.mvd"), *document));
    EXPECT_TRUE(document->Modified);
    EXPECT_TRUE(document->FileName.empty()) << "the next save asks again";
    EXPECT_FALSE(fs::exists(At("half.mvd"))) << "neither file is new before both are ready";

    document->Modified = false;
    EXPECT_FALSE(session.Main.WriteDocument(At("half.bmp"), *document));
    EXPECT_FALSE(document->HasUnsavedChanges()) << "it is as clean as it was";
}

TEST_F(Saving, ACopyOfThePictureSavesNothingOfTheDocument)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *document));
    ASSERT_TRUE(document->StretchImage(2));
    document->Modified = true;
    ASSERT_TRUE(session.Main.WriteDocument(At("copy.bmp"), *document));
    EXPECT_TRUE(document->Modified && document->ImageDirty);
    EXPECT_EQ(document->PicturePath, At("mirror.bmp"));
    session.Answerer.Answers = {MessageAnswer::Yes}; // the original
    ASSERT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_EQ(fs::file_size(At("mirror.bmp")), fs::file_size(At("copy.bmp")));
}

TEST_F(Saving, AnOriginalStaysUnlessTheUserGivesItUp)
{
    WriteWholeFile(At("mirror.bmp"), "in colours");
    EXPECT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_EQ(fs::file_size(At("mirror.bmp")), 10u) << "nothing has changed";

    ASSERT_TRUE(document->StretchImage(2));
    session.Answerer.Answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_FALSE(session.Main.WriteDocument(At("mirror.mvd"), *document));
    EXPECT_EQ(session.Answerer.TakeOnly(),
        At("mirror.bmp") + " already exists.\r\nDo you want to replace it?");
    EXPECT_EQ(fs::file_size(At("mirror.bmp")), 10u);
    EXPECT_FALSE(fs::exists(At("mirror.mvd")));
    EXPECT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *document));
    ASSERT_TRUE(document->StretchImage(2));
    session.Answerer.Asked.clear();
    EXPECT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_TRUE(session.Answerer.Asked.empty()) << "it is the document's own now";
}

// The picture beside a document may be the one that the camera made.
TEST_F(Saving, AnOpenedDocumentsPictureIsReplacedOnlyAfterAQuestion)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *document));
    session.Main.CloseDocument(*document);
    const auto size = fs::file_size(At("mirror.bmp"));
    const auto opened = session.Main.OpenDocument(At("mirror.mvd"), true);
    ASSERT_TRUE(opened->StretchImage(2));
    EXPECT_FALSE(session.Main.SaveDocument(*opened));
    EXPECT_EQ(fs::file_size(At("mirror.bmp")), size);
    EXPECT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *opened, Session::Originals::Replace));
    EXPECT_GT(fs::file_size(At("mirror.bmp")), size);
}

TEST_F(Saving, ADocumentWithoutItsPictureTakesNoOther)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("lone.mvd"), *document));
    fs::remove(At("lone.bmp"));
    const auto opened = session.Main.OpenDocument(At("lone.mvd"), true);
    ASSERT_TRUE(opened->BlankImage);
    ASSERT_TRUE(session.Main.SaveDocument(*opened));
    EXPECT_NE(opened->DataText().find("HasImageFile, True"), std::string::npos);

    fs::copy_file(At("mirror.bmp"), At("lone.bmp")); // back again, but another is taken now
    ASSERT_TRUE(opened->LoadFileIntoDataBuffer(At("mirror.bmp"), true));
    EXPECT_FALSE(session.Main.SaveDocument(*opened));
    EXPECT_NE(session.Answerer.TakeOnly(), "");
    opened->BlankImage = opened->LacksPicture = true;
    ASSERT_TRUE(session.Main.WriteDocument(At("mirror.mvd"), *opened));
    EXPECT_NE(opened->DataText().find("HasImageFile, False"), std::string::npos);
}

TEST_F(Saving, WhoeverElseShowsTheFileHasItsOwnWorkToSave)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("twice.mvd"), *document));
    const auto other = session.Main.OpenDocument(At("twice.mvd"), true);
    SetCircle(document->Aperture, 20, 15, 10);
    ASSERT_FALSE(other->HasUnsavedChanges());
    ASSERT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_TRUE(other->HasUnsavedChanges());
    EXPECT_FALSE(session.Main.SaveDocument(*other)) << "over the newer work";
    EXPECT_NE(session.Answerer.TakeOnly(), "");
}

TEST_F(Saving, APlainBitmapGoesToItsOwnFileAndAJpegToADialog)
{
    document->ImageDirty = true;
    EXPECT_FALSE(session.Main.SaveDocument(*document)) << "it may be another picture";
    session.Answerer.Answers = {MessageAnswer::Yes};
    EXPECT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_TRUE(session.Frame.Requests.empty());
    EXPECT_FALSE(document->ImageDirty);

    document->Title = "mirror.jpg";
    document->ImageDirty = true;
    Choose("mirror2", 1);
    EXPECT_TRUE(session.Main.SaveDocument(*document));
    EXPECT_EQ(session.Frame.Requests[0].FileName, "mirror.bmp");
    EXPECT_EQ(session.Frame.Requests[0].FilterIndex, 1);
    EXPECT_TRUE(fs::exists(At("mirror2.bmp")));
    EXPECT_EQ(document->Title, "mirror2.bmp");
}

TEST_F(Saving, DocumentsComeBackWithTheirPicture)
{
    SetCircle(document->Aperture, 20, 15, 10);
    ASSERT_TRUE(session.Main.WriteDocument(At("Mirror.mvd"), *document));
    session.Main.CloseDocument(*document);
    session.Main.OpenFiles({At("Mirror.mvd")}, false);
    clsDocument* opened = session.Main.Active();
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->Aperture.GetRadii(), (Point{10, 10}));
    EXPECT_FALSE(opened->BlankImage);
    EXPECT_FALSE(opened->Modified);
    EXPECT_EQ(opened->FileName, "Mirror.mvd");
    EXPECT_EQ(session.Main.Recent.Paths(), std::vector{At("Mirror.mvd")});

    session.Main.CloseDocument(*opened);
    fs::remove(At("Mirror.bmp"));
    session.Main.OpenFiles({At("Mirror.mvd")}, false);
    opened = session.Main.Active();
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->BlankImage);
    EXPECT_EQ(opened->Title, "Mirror.bmp");
    EXPECT_FALSE(opened->HasSourceFile);
    EXPECT_EQ(opened->Aperture.GetRadii(), (Point{10, 10}));
    EXPECT_TRUE(session.Answerer.Asked.empty());
}

TEST_F(Saving, AnOpenedDocumentKeepsItsOwnVisibleViews)
{
    document->Visible.Zernikes = true;
    ASSERT_TRUE(document->CreateOutputViews());
    document->Visible = {.SFringe = true, .Zernikes = true};
    ASSERT_TRUE(session.Main.WriteDocument(At("views.mvd"), *document));
    session.Main.CloseDocument(*document);
    for (const bool common : {true, false}) {
        session.Main.Prefs.HogWindows = common;
        session.Main.Prefs.Visible = {.Aberrations = true};
        const auto opened = session.Main.OpenDocument(At("views.mvd"), true);
        ASSERT_NE(opened, nullptr);
        EXPECT_EQ(opened->Visible, (PerView<bool>{.SFringe = true, .Zernikes = true})) << common;
        const std::vector<std::string>& log = session.Frame.Log.Lines;
        const auto shown = std::find_if(log.rbegin(), log.rend(),
            [](const std::string& line) { return line.find(": show") != line.npos; });
        EXPECT_EQ(*shown, "Image: show with focus") << "in front of its views";
        session.Main.CloseDocument(*opened);
    }
}

TEST_F(Saving, APictureThatIsMissingOnceIsNotForgotten)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("scan.mvd"), *document));
    session.Main.CloseDocument(*document);
    fs::rename(At("scan.bmp"), At("elsewhere.bmp"));
    const auto blank = session.Main.OpenDocument(At("scan.mvd"), false);
    ASSERT_NE(blank, nullptr);
    EXPECT_TRUE(blank->BlankImage && session.Answerer.Asked.empty());
    EXPECT_EQ(session.Frame.LastHint, "scan.bmp: No such file or directory " + At("scan.bmp"));
    ASSERT_TRUE(session.Main.WriteDocument(At("scan.mvd"), *blank));
    session.Main.CloseDocument(*blank);
    fs::rename(At("elsewhere.bmp"), At("scan.bmp"));
    EXPECT_FALSE(session.Main.OpenDocument(At("scan.mvd"), false)->BlankImage);
}

TEST_F(Saving, CapitalExtensionsOpenLikeLowerCase)
{
    ASSERT_TRUE(session.Main.WriteDocument(At("scan.mvd"), *document));
    session.Main.CloseDocument(*document);
    fs::rename(At("scan.mvd"), At("SCAN.MVD"));
    fs::rename(At("scan.bmp"), At("SCAN.BMP"));
    const auto opened = session.Main.OpenDocument(At("SCAN.MVD"), true);
    ASSERT_NE(opened, nullptr);
    EXPECT_FALSE(opened->BlankImage);
    opened->ImageDirty = true;
    session.Answerer.Answers = {MessageAnswer::Yes};
    EXPECT_TRUE(session.Main.SaveDocument(*opened));
    EXPECT_FALSE(fs::exists(At("SCAN.bmp"))) << "one picture, not two";
}

TEST_F(Saving, AFileThatDoesNotOpenLeavesTheRecentList)
{
    WriteWholeFile(At("broken.bmp"), "BM");
    session.Main.Recent.SetPaths({At("broken.bmp"), At("mirror.bmp")});
    session.Main.OpenFiles({At("broken.bmp")}, true);
    EXPECT_EQ(session.Main.Recent.Paths(), std::vector{At("mirror.bmp")});
}

TEST(RecentFiles, KeepTheLastFourOnce)
{
    RecentFiles recent;
    for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/c"})
        recent.Add(path);
    EXPECT_EQ(recent.Paths(), (std::vector<std::string>{"/c", "/e", "/d", "/b"}));
    recent.Remove("/e");
    recent.Remove("/x");
    EXPECT_EQ(recent.Paths(), (std::vector<std::string>{"/c", "/d", "/b"}));
}

} // namespace
} // namespace morvane
