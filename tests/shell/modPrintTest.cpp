#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PrintJob : public ::testing::Test {
protected:
    PrintJob()
    {
        WritePicture(VerticalFringes(60, 40, 20), folder / "picture.bmp");
        document = session.Main.OpenPicture(folder / "picture.bmp", true);
        session.Main.Prefs.Report.NumPanes = 1;
        session.Main.Prefs.Report.Pane[0] = 3; // the interferogram
    }
    void Print() { session.Main.PrintDialog(*document); }
    bool HasDrawn() const { return !log.Page.Calls.empty(); }

    TemporaryFolder folder;
    SilentSession session;
    PrinterLog& log = session.Frame.Printing;
    std::shared_ptr<clsDocument> document;
};

TEST_F(PrintJob, GoesThroughAllSteps)
{
    session.Main.Prefs.Report.PageOrientation = 2;
    Print();
    EXPECT_THAT(log.Steps, ElementsAre("open", "settings", "start", "page", "end page", "end"));
    EXPECT_EQ(log.Request.DocumentName, "Morvane - picture.bmp");
    EXPECT_TRUE(log.Request.Landscape);
    EXPECT_TRUE(HasDrawn());
    EXPECT_THAT(session.Answerer.Asked, IsEmpty());
    EXPECT_FALSE(session.Frame.Hourglass);
}

TEST_F(PrintJob, EveryFailureIsToldAndEndsIt)
{
    const struct {
        const char* Step;
        const char* Text;
        const char* Title;
        int Flags;
        bool HasDrawn;
    } cases[] = {
        {"open", "Cannot open printer: Laser", "Error", MessageOk, false},
        {"settings", "Error changing page settings.", "Print Error", MessageWarningSign, false},
        {"start", "Cannot start print job on Laser", "Error", MessageOk, false},
        {"page", "Cannot print page", "Error", MessageOk, false},
        {"end page", "Cannot advance page", "Error", MessageOk, true},
        {"end", "Print job incomplete", "Error", MessageOk, true},
    };
    for (const auto& c : cases) {
        log = PrinterLog();
        log.FailsAt = c.Step;
        session.Answerer.Asked.clear();
        EXPECT_FALSE(session.Main.PrintToPdf(*document, "page.pdf"));
        ASSERT_EQ(session.Answerer.Asked.size(), 1u) << c.Step;
        const Message& told = session.Answerer.Asked[0];
        EXPECT_EQ(told.Text, c.Text);
        EXPECT_EQ(told.Title, c.Title) << c.Step;
        EXPECT_EQ(told.Flags, c.Flags) << c.Step;
        EXPECT_EQ(log.Steps.back(), c.Step) << "it goes on";
        EXPECT_EQ(HasDrawn(), c.HasDrawn) << c.Step;
        EXPECT_FALSE(session.Frame.Hourglass) << c.Step;
    }
}

TEST_F(PrintJob, AsksWhetherPanesMayStayEmpty)
{
    session.Main.Prefs.Report.Pane[0] = 8;
    session.Answerer.Answers = {MessageAnswer::Cancel};
    Print();
    ASSERT_EQ(session.Answerer.Asked.size(), 1u);
    const Message asked = session.Answerer.Asked[0];
    EXPECT_EQ(asked.Text,
        "Some of the specified panes will be empty, because there are no analysis results to "
        "print. Continue?");
    EXPECT_EQ(asked.Title, "Morvane");
    EXPECT_EQ(asked.Flags, MessageOkCancel);
    EXPECT_THAT(log.Steps, IsEmpty());
    session.Main.PrintAtOnce(*document);
    EXPECT_EQ(log.Steps.size(), 6u) << "after OK";
    {
        const UnattendedScope alone(session.Main);
        EXPECT_FALSE(session.Main.PrintToPdf(*document, "page.pdf"));
        EXPECT_EQ(alone.LastText(), asked.Text);
    }
}

TEST_F(PrintJob, CancelledDialogIsSilent)
{
    session.Frame.CancelPrinting = true;
    Print();
    EXPECT_THAT(log.Steps, IsEmpty());
    EXPECT_THAT(session.Answerer.Asked, IsEmpty());
}

TEST_F(PrintJob, LeavesTheWindowsAlone)
{
    document->CreateOutputViews();
    session.Main.Prefs.Report.NumPanes = 6;
    session.Main.Prefs.Report.Pane = {1, 3, 4, 5, 8, 9};
    session.Frame.Log.Lines.clear();
    Print();
    EXPECT_TRUE(HasDrawn());
    EXPECT_THAT(session.Frame.Log.Lines, IsEmpty());
}

} // namespace
} // namespace morvane
