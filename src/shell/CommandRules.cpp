#include "shell/CommandRules.h"

#include "shell/modMain.h"

namespace morvane {

CommandState StateOf(const Session& Of)
{
    CommandState state{.AnyDocument = Of.NumOpenDocuments() > 0,
        .GrabberReady = Of.Grabber.IsReady(),
        .GrabberHasProperties = Of.Grabber.HasProperties()};
    if (const clsDocument* active = Of.Active(); active && active->OutputViewsExist()) {
        state.OutputViewsExist = true;
        state.AberrationsVisible = active->Visible.Aberrations;
        state.ZernikesVisible = active->Visible.Zernikes;
    }
    return state;
}

CommandRules RulesFor(const CommandState& State)
{
    const bool any = State.AnyDocument, views = State.OutputViewsExist;
    return {.Close = any,
        .Save = any,
        .SaveAs = any,
        .AdjustAspectRatio = any,
        .Trace = any,
        .Analyze = any,
        .Arrange = any,
        .Views = views,
        .Exports = views,
        .AberrationsChecked = views && State.AberrationsVisible,
        .ZernikesChecked = views && State.ZernikesVisible,
        .Grab = State.GrabberReady,
        .GrabberProperties = State.GrabberReady && State.GrabberHasProperties};
}

} // namespace morvane
