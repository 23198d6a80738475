// Where a dialog that is made anew each time stood the last time.
#pragma once
#include "shell/BoxPlace.h"

class QDialog;

namespace morvane {

// With its final contents, before it is shown. Without a kept place that can be reached it comes up
// in the middle of its owner.
void TakeKeptPlace(QDialog& Of, SettingsStore& Settings, const PlaceKey& Key);
void KeepPlace(const QDialog& Of, SettingsStore& Settings, const PlaceKey& Key);

} // namespace morvane
