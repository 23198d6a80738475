#include "shell/CommandRules.h"

#include "shell/modMain.h"

namespace morvane {
namespace {

CommandRule RuleForView(const CommandState& state, ViewType view)
{
    return {state.OutputViewsExist, state.OutputViewsExist && state.Visible.At(view)};
}

// The mode itself stays while another view is active; only the buttons are up.
CommandRule RuleForTool(const CommandState& state, bool edit)
{
    const bool live = state.ActiveView == ViewType::Interferogram;
    return {live, live && state.EditMode == edit};
}

bool MayZoom(const CommandState& state)
{
    return state.AnyDocument
        && (!state.ActiveView || state.ActiveView == ViewType::Interferogram
            || state.ActiveView == ViewType::SFringe);
}

} // namespace

CommandState StateOf(const Session& Of)
{
    CommandState state;
    state.AnyDocument = Of.NumOpenDocuments() > 0;
    state.GrabberReady = Of.Grabber.IsReady();
    state.GrabberHasProperties = Of.Grabber.HasProperties();
    const clsDocument* const active = Of.Active();
    if (!active)
        return state;
    state.ActiveView = active->ActiveView;
    state.OutputViewsExist = active->OutputViewsExist();
    for (const ViewType view : OutputViewTypes) // one without a window is not to be seen
        state.Visible.At(view) = active->Visible.At(view) && active->View(view);
    if (active->ActiveView == ViewType::Interferogram && active->ImageViewExists()) {
        state.EditMode = active->ImageView()->Tools().EditMode();
        state.ZoomPercent = active->ImageView()->ZoomPercent();
    }
    return state;
}

CommandRule RuleFor(Command Of, const CommandState& State)
{
    switch (Of) {
    case Command::Close:
    case Command::Save:
    case Command::SaveAs:
    case Command::PageSetup:
    case Command::Print:
    case Command::UserData:
    case Command::ClearFringes:
    case Command::AdjustAspectRatio:
    case Command::Trace:
    case Command::AnalyzeFringes:
    case Command::ArrangeWindows:
        return {.Enabled = State.AnyDocument};
    case Command::Copy:
    case Command::Properties:
    case Command::ExportMap:
    case Command::ExportZernikes:
    case Command::AddAverage:
        return {.Enabled = State.OutputViewsExist};
    case Command::SurfacePlot:
        return RuleForView(State, ViewType::SurfacePlot);
    case Command::ContourPlot:
        return RuleForView(State, ViewType::ContourPlot);
    case Command::LineProfile:
        return RuleForView(State, ViewType::LineProfile);
    case Command::SFringe:
        return RuleForView(State, ViewType::SFringe);
    case Command::Aberrations:
        return RuleForView(State, ViewType::Aberrations);
    case Command::Zernikes:
        return RuleForView(State, ViewType::Zernikes);
    case Command::GridResults:
        return RuleForView(State, ViewType::GridResults);
    case Command::GrabImage:
        return {.Enabled = State.GrabberReady};
    case Command::GrabberProperties:
        return {.Enabled = State.GrabberReady && State.GrabberHasProperties};
    case Command::HandTool:
        return RuleForTool(State, false);
    case Command::EditTool:
        return RuleForTool(State, true);
    case Command::Zoom:
        return {.Enabled = MayZoom(State)};
    }
    return {};
}

} // namespace morvane
