// Which commands of the main window are enabled and checked: a pure function of a small state, for
// menu items and the tool bar alike. Commands without a rule here are always enabled; the windows
// that float over the main window check theirs themselves.
#pragma once
#include <optional>

#include "document/Preferences.h"

namespace morvane {

class Session;

struct CommandState {
    bool AnyDocument = false; // one is open
    // Of the active document; none without one.
    std::optional<ViewType> ActiveView;
    bool OutputViewsExist = false;
    PerView<bool> Visible; // output views
    // Of the interferogram, while it is the active view.
    bool EditMode = false;
    std::optional<int> ZoomPercent;
    bool GrabberReady = false, GrabberHasProperties = false;
};

// One rule may stand for several commands of the same kind.
enum class Command {
    Close,
    Save,
    SaveAs,
    ExportMap,
    ExportZernikes,
    PageSetup,
    Print,
    Copy,
    UserData,
    ClearFringes,
    Properties,
    SurfacePlot,
    ContourPlot,
    LineProfile,
    SFringe,
    Aberrations,
    Zernikes,
    GridResults,
    GrabImage,
    GrabberProperties,
    AdjustAspectRatio,
    Trace,
    AnalyzeFringes,
    AddAverage,
    ArrangeWindows,
    HandTool,
    EditTool,
    Zoom
};

struct CommandRule {
    bool Enabled = false, Checked = false;
    friend bool operator==(const CommandRule&, const CommandRule&) = default;
};

CommandState StateOf(const Session& Of);
CommandRule RuleFor(Command Of, const CommandState& State);

} // namespace morvane
