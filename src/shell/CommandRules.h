// Which commands of the main window are enabled and checked.
#pragma once

namespace morvane {

class Session;

struct CommandState {
    bool AnyDocument = false; // one is open
    bool OutputViewsExist = false; // of the active document
    bool AberrationsVisible = false, ZernikesVisible = false;
    bool GrabberReady = false, GrabberHasProperties = false;
};

struct CommandRules {
    bool Close = false, Save = false, SaveAs = false, AdjustAspectRatio = false;
    bool Trace = false, Analyze = false, Arrange = false;
    bool Views = false, Exports = false;
    bool AberrationsChecked = false, ZernikesChecked = false;
    bool Grab = false, GrabberProperties = false;
    friend bool operator==(const CommandRules&, const CommandRules&) = default;
};

CommandState StateOf(const Session& Of);
CommandRules RulesFor(const CommandState& State);

} // namespace morvane
