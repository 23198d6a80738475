#include "shell/modMain.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

std::string PictureFile(const std::string& Name)
{
    const std::string path = ::testing::TempDir() + Name;
    WritePicture(VerticalFringes(400, 400, 20), path);
    return path;
}

std::shared_ptr<clsDocument> OpenAnalysed(Session& In, const std::string& Name)
{
    const auto document = In.OpenPicture(PictureFile(Name), true);
    SetCircle(document->Aperture, 200, 200, 180);
    document->InvalidateMask();
    In.TraceFringes(FringeDirection::Vertical);
    In.AnalyzeFringes();
    return document;
}

TEST(SessionDocuments, TakeTheLowestFreeSlotUpToTheLimit)
{
    SilentSession session;
    Session& main = session.Main;
    for (int slot = 1; slot <= MaxDocuments; ++slot)
        ASSERT_EQ(main.NewDocument()->DocNumber, slot);
    EXPECT_EQ(main.NewDocument(), nullptr);
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    EXPECT_EQ(session.Answerer.Asked[0].Text, "Too many open documents");
    EXPECT_EQ(session.Answerer.Asked[0].Title, "Error");
    main.CloseDocument(*main.Document(2));
    EXPECT_EQ(main.NumOpenDocuments(), MaxDocuments - 1);
    EXPECT_EQ(main.NewDocument()->DocNumber, 2);
    EXPECT_EQ(main.Document(0), nullptr);
    EXPECT_EQ(main.Document(101), nullptr);
}

TEST(SessionDocuments, ClosingTheActiveOneLeavesNoneActive)
{
    SilentSession session;
    const auto first = session.Main.OpenPicture(PictureFile("morvane_a.bmp"), true);
    const auto second = session.Main.OpenPicture(PictureFile("morvane_b.bmp"), true);
    EXPECT_EQ(session.Main.Active(), second.get());
    session.Main.CloseDocument(*first);
    EXPECT_EQ(session.Main.Active(), second.get());
    session.Main.CloseDocument(*second);
    session.Main.CloseDocument(*second);
    EXPECT_EQ(session.Main.Active(), nullptr);
    EXPECT_EQ(session.Main.NumOpenDocuments(), 0);
    EXPECT_FALSE(second->ImageViewExists());
}

TEST(SessionDocuments, TheLastOneHandsItsVisibleViewsOn)
{
    SilentSession session;
    const auto document = OpenAnalysed(session.Main, "morvane_last.bmp");
    session.Main.ToggleView(ViewType::Zernikes);
    session.Main.ToggleView(ViewType::Aberrations);
    session.Main.CloseDocument(*document);
    EXPECT_TRUE(OpenAnalysed(session.Main, "morvane_last.bmp")->Visible.Zernikes);
    EXPECT_FALSE(session.Main.Document(1)->Visible.Aberrations);
}

TEST(SessionDocuments, TheLastOneOfTheCommonWorkspaceSavesTheViewsAtOnce)
{
    for (const bool common : {true, false}) {
        const TemporaryFolder folder;
        SettingsStore store(folder / "settings.ini");
        SilentSession session;
        session.Main.ReadSettings(store, {1000, 800, 4, 23}, "");
        session.Main.Prefs.HogWindows = common;
        const auto first = session.Main.NewDocument(), last = session.Main.NewDocument();
        ASSERT_TRUE(last->CreateOutputViews());
        last->Visible.Zernikes = true;
        session.Main.CloseDocument(*first);
        EXPECT_FALSE(std::filesystem::exists(folder / "settings.ini")) << "one is still open";
        session.Main.CloseDocument(*last);
        SettingsStore again(folder / "settings.ini");
        EXPECT_EQ(again.GetSettingBool(MainSection, "Zernikes Visible", false), common);
    }
}

TEST(SessionOpen, BadFilesAreToldAndLeaveNothingOpen)
{
    SilentSession session;
    const std::string folder = ::testing::TempDir();
    const std::string text = folder + "morvane_session_text.bmp";
    const std::string other = folder + "morvane_session.txt";
    const std::string document = folder + "morvane_session.mvd";
    const std::string pipe = folder + "morvane_session_pipe.mvd";
    WriteWholeFile(text, "text");
    WriteWholeFile(document, "text");
    mkfifo(pipe.c_str(), 0600);
    WriteWholeFile(other, "text");
    const struct {
        std::string Path, Message;
    } cases[] = {
        {folder + "morvane_absent.bmp", "Could not find file " + folder + "morvane_absent.bmp"},
        {folder, "Could not find file " + folder},
        {other, "Could not open file " + other},
        {text, "Could not load image file " + text},
        {"", "Could not find file "},
        {document, "Could not open file " + document + "\r\nIt is not a Morvane document."},
        {pipe, "Could not open file " + pipe + "\r\nNot a regular file"},
    };
    for (const auto& c : cases) {
        session.Main.OpenFiles({c.Path}, false);
        EXPECT_EQ(session.Answerer.TakeOnly(), c.Message);
        session.Main.OpenFiles({c.Path}, true);
        EXPECT_TRUE(session.Answerer.Asked.empty()) << c.Path;
        EXPECT_EQ(session.Main.NumOpenDocuments(), 0) << c.Path;
    }
}

TEST(SessionOpen, AFullTableCostsNoRecentFile)
{
    SilentSession session;
    while (session.Main.NumOpenDocuments() < MaxDocuments)
        session.Main.NewDocument();
    const std::string path = PictureFile("morvane_a.bmp");
    session.Main.Recent.SetPaths({path});
    session.Main.OpenFiles({path}, false);
    EXPECT_EQ(session.Answerer.TakeOnly(), "Too many open documents");
    EXPECT_EQ(session.Main.Recent.Paths(), std::vector{path});
}

TEST(SessionOpen, MissingFilesAreSkippedAndPathsMadeAbsolute)
{
    SilentSession session;
    const std::string path = PictureFile("Morvane_Upper.BMP");
    std::string backslashed = path;
    std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
    session.Main.OpenFiles({path + ".absent", backslashed, path}, true);
    ASSERT_EQ(session.Main.NumOpenDocuments(), 2);
    EXPECT_EQ(session.Main.Document(1)->Title, "Morvane_Upper.BMP");
    EXPECT_EQ(session.Main.Document(1)->Directory + "/Morvane_Upper.BMP", path);
    EXPECT_TRUE(session.Main.Document(1)->HasSourceFile);
    EXPECT_FALSE(session.Main.Document(1)->Modified);
}

TEST(SessionOpen, WithoutAWindowTheDocumentIsClosedAgain)
{
    SilentSession session;
    session.Frame.RefuseWindows = true;
    EXPECT_EQ(session.Main.OpenPicture(PictureFile("morvane_c.bmp"), true), nullptr);
    EXPECT_EQ(session.Main.NumOpenDocuments(), 0);
}

TEST(SessionAnalysis, TheFirstOneBringsUpTheViewsThatThePreferencesAskFor)
{
    SilentSession session;
    const auto document = OpenAnalysed(session.Main, "morvane_d.bmp");
    EXPECT_TRUE(document->OutputViewsExist());
    const WindowLog& log = session.Frame.Log;
    EXPECT_TRUE(log.Has("Aberrations: caption Aberrations - morvane_d.bmp"));
    EXPECT_TRUE(log.Has("Aberrations: text Output Units: Waves"));
    EXPECT_TRUE(log.Has("Aberrations: show"));
    EXPECT_TRUE(log.Has("Zernikes: hide"));
    EXPECT_FALSE(session.Frame.Hourglass);

    session.Main.ToggleView(ViewType::Zernikes);
    EXPECT_TRUE(document->Visible.Zernikes);
    EXPECT_TRUE(log.Has("Zernikes: show with focus"));
    session.Main.ToggleView(ViewType::Aberrations);
    EXPECT_FALSE(document->Visible.Aberrations);
    EXPECT_TRUE(log.Has("Aberrations: hide"));
    EXPECT_EQ(log.Lines.back(), "Image: show with focus");
}

TEST(SessionAnalysis, CommonViewsGiveWayToThoseOfTheInterferogramInFront)
{
    SilentSession session;
    const auto first = OpenAnalysed(session.Main, "morvane_e.bmp");
    session.Main.ToggleView(ViewType::Zernikes);
    const auto second = OpenAnalysed(session.Main, "morvane_f.bmp");
    EXPECT_TRUE(second->Visible.Zernikes) << "taken over from the document before";
    session.Main.ToggleView(ViewType::Aberrations);
    session.Frame.Log.Lines.clear();
    session.Main.ActivateDocument(*first, ViewType::Interferogram);
    EXPECT_EQ(session.Frame.Log.Lines,
        (std::vector<std::string>{"Zernikes: hide", "Zernikes: show", "Image: repaint"}));
    EXPECT_FALSE(first->Visible.Aberrations);
}

TEST(SessionAnalysis, TheBoxFollowsAnAnalysedDocumentThatComesToTheFront)
{
    SilentSession session;
    AnalyzeBox& box = session.Main.Analyze;
    AnalyzeOptions options = box.Options();
    options.Scale = ScaleChoice::Custom;
    options.CustomScale = "0.25";
    options.Unit = DisplayUnit::Micrometers;
    options.InputWavelength = "543.5";
    options.Limit = OrderLimit::Sixth;
    options.TrimEdges = false;
    box.SetOptions(options);
    const auto first = OpenAnalysed(session.Main, "morvane_g.bmp");
    box.SetOptions({});
    OpenAnalysed(session.Main, "morvane_h.bmp");
    EXPECT_EQ(box.Options().Limit, OrderLimit::Automatic);
    session.Main.ActivateDocument(*first, ViewType::Interferogram);
    EXPECT_EQ(box.Options().Scale, ScaleChoice::Custom);
    EXPECT_EQ(box.Options().CustomScale, "0.25");
    EXPECT_EQ(box.Options().Unit, DisplayUnit::Micrometers);
    EXPECT_EQ(box.Options().InputWavelength, "543.5");
    EXPECT_EQ(box.Options().Limit, OrderLimit::Sixth);
    EXPECT_FALSE(box.Options().TrimEdges);
}

TEST(UnattendedScope, AnswersCarefullyAndShowsNothing)
{
    SilentSession session;
    {
        const UnattendedScope alone(session.Main);
        EXPECT_EQ(session.Main.ShowMessage("?", MessageYesNo, "Warning"), MessageAnswer::No);
        EXPECT_EQ(session.Main.ShowMessage("?", MessageYesNoCancel + MessageQuestionSign, "x"),
            MessageAnswer::Cancel);
        EXPECT_EQ(
            session.Main.ShowMessage("?", MessageAbortRetryIgnore, "Error"), MessageAnswer::Abort);
    }
    EXPECT_TRUE(session.Answerer.Asked.empty());
    session.Main.ShowMessage("seen", MessageOk, "Error");
    EXPECT_EQ(session.Answerer.TakeOnly(), "seen");
}

} // namespace
} // namespace morvane
