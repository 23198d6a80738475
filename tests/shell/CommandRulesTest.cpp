#include "shell/CommandRules.h"

#include <gtest/gtest.h>

#include "FringePicture.h"
#include "RecordingFrame.h"
#include "TemporaryFolder.h"

namespace morvane {
namespace {

using enum Command;

constexpr Command Views[] = {
    SurfacePlot, ContourPlot, LineProfile, SFringe, Aberrations, Zernikes, GridResults};
constexpr ViewType ViewTypes[] = {ViewType::SurfacePlot, ViewType::ContourPlot,
    ViewType::LineProfile, ViewType::SFringe, ViewType::Aberrations, ViewType::Zernikes,
    ViewType::GridResults};

CommandState Showing(ViewType View)
{
    CommandState state;
    state.AnyDocument = true;
    state.ActiveView = View;
    return state;
}

CommandState Analysed(ViewType View)
{
    CommandState state = Showing(View);
    state.OutputViewsExist = true;
    return state;
}

// Enabled in: no document, a picture, a picture with results, a text in front, the synthetic
// fringes in front.
TEST(CommandRules, EnableByDocumentViewsAndActiveView)
{
    const CommandState states[] = {{}, Showing(ViewType::Interferogram),
        Analysed(ViewType::Interferogram), Analysed(ViewType::Aberrations),
        Analysed(ViewType::SFringe)};
    const struct {
        std::vector<Command> Commands;
        std::array<bool, 5> Enabled;
    } rows[] = {
        {{Close, Save, SaveAs, Print, PageSetup, ClearFringes, UserData, AdjustAspectRatio, Trace,
             AnalyzeFringes, ArrangeWindows},
            {false, true, true, true, true}},
        {{Copy, Properties, ExportMap, ExportZernikes, AddAverage, SurfacePlot, ContourPlot,
             LineProfile, SFringe, Aberrations, Zernikes, GridResults},
            {false, false, true, true, true}},
        {{HandTool, EditTool}, {false, true, true, false, false}},
        {{Zoom}, {false, true, true, false, true}},
        {{GrabImage, GrabberProperties}, {}},
    };
    for (const auto& row : rows)
        for (const Command command : row.Commands)
            for (std::size_t i = 0; i < std::size(states); ++i)
                EXPECT_EQ(RuleFor(command, states[i]).Enabled, row.Enabled[i])
                    << "command " << static_cast<int>(command) << ", state " << i;
}

TEST(CommandRules, CheckAViewByItsOwnFlagWhileViewsExist)
{
    for (std::size_t shown = 0; shown < std::size(Views); ++shown)
        for (std::size_t asked = 0; asked < std::size(Views); ++asked) {
            CommandState state = Analysed(ViewType::Interferogram);
            state.Visible.At(ViewTypes[shown]) = true;
            EXPECT_EQ(RuleFor(Views[asked], state).Checked, asked == shown) << asked << shown;
            state.OutputViewsExist = false;
            EXPECT_FALSE(RuleFor(Views[asked], state).Checked) << asked;
        }
}

TEST(CommandRules, PutOneToolDownWhileThePictureIsActive)
{
    for (const bool edit : {false, true}) {
        CommandState state = Showing(ViewType::Interferogram);
        state.EditMode = edit;
        EXPECT_EQ(RuleFor(EditTool, state), (CommandRule{true, edit}));
        EXPECT_EQ(RuleFor(HandTool, state), (CommandRule{true, !edit}));
        state.ActiveView = ViewType::Zernikes;
        EXPECT_EQ(RuleFor(EditTool, state), CommandRule{});
        EXPECT_EQ(RuleFor(HandTool, state), CommandRule{});
    }
}

TEST(CommandRules, GrabWithoutADocumentWhenTheCardIsReady)
{
    for (const bool ready : {false, true})
        for (const bool properties : {false, true}) {
            CommandState state;
            state.GrabberReady = ready;
            state.GrabberHasProperties = properties;
            EXPECT_EQ(RuleFor(GrabImage, state).Enabled, ready);
            EXPECT_EQ(RuleFor(GrabberProperties, state).Enabled, ready && properties);
        }
}

TEST(CommandRules, ReadModeAndZoomOfThePictureInFront)
{
    const TemporaryFolder folder;
    WritePicture(VerticalFringes(100, 100, 20), folder / "a.bmp");
    SilentSession session;
    const auto document = session.Main.OpenPicture(folder / "a.bmp", true);
    ASSERT_TRUE(document);
    session.Main.SetZoom(300);
    session.Main.SetEditMode(false);
    CommandState state = StateOf(session.Main);
    EXPECT_EQ(state.ZoomPercent, 300);
    EXPECT_FALSE(state.EditMode);
    EXPECT_EQ(state.ActiveView, ViewType::Interferogram);
    session.Main.ActivateDocument(*document, ViewType::Aberrations);
    EXPECT_FALSE(StateOf(session.Main).ZoomPercent) << "the zoom box is left alone";
    session.Main.ActivateDocument(*document, ViewType::Interferogram);
    EXPECT_FALSE(StateOf(session.Main).EditMode) << "the mode stays";
    EXPECT_EQ(session.Frame.LastHint.substr(0, 10), "Drag mouse") << "of the hand tool again";
}

} // namespace
} // namespace morvane
